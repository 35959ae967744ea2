#pragma once
#include <maya/MArrayBase.h>
#include <maya/MColor.h>

MHOST_ARRAY_CLASS(MColorArray, MColor);
