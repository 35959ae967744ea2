#pragma once
#include <maya/MArrayBase.h>

MHOST_ARRAY_CLASS(MDoubleArray, double);
