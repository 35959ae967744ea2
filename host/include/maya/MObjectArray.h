#pragma once
#include <maya/MArrayBase.h>
#include <maya/MObject.h>

MHOST_ARRAY_CLASS(MObjectArray, MObject);
