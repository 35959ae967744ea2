#pragma once
#include <maya/MArrayBase.h>
#include <maya/MFloatVector.h>

MHOST_ARRAY_CLASS(MFloatVectorArray, MFloatVector);
