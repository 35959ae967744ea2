#pragma once
#include <maya/MArrayBase.h>
#include <maya/MString.h>

MHOST_ARRAY_CLASS(MStringArray, MString);
