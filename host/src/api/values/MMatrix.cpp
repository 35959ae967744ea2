#include "matrixMembers.h"

#include <maya/MMatrix.h>

const MMatrix MMatrix::identity;

TALVEN_DEFINE_MATRIX_MEMBERS(MMatrix, double)
