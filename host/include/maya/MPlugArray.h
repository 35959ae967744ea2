#pragma once
#include <maya/MArrayBase.h>
#include <maya/MPlug.h>

MHOST_ARRAY_CLASS(MPlugArray, MPlug);
