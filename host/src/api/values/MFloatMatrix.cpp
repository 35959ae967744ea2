#include "matrixMembers.h"

#include <maya/MFloatMatrix.h>

TALVEN_DEFINE_MATRIX_MEMBERS(MFloatMatrix, float)
