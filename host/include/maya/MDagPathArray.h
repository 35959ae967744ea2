#pragma once
#include <maya/MArrayBase.h>
#include <maya/MDagPath.h>

MHOST_ARRAY_CLASS(MDagPathArray, MDagPath);
