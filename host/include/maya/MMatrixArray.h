#pragma once
#include <maya/MArrayBase.h>
#include <maya/MMatrix.h>

MHOST_ARRAY_CLASS(MMatrixArray, MMatrix);
