#pragma once
#include <maya/MArrayBase.h>
#include <maya/MVector.h>

MHOST_ARRAY_CLASS(MVectorArray, MVector);
