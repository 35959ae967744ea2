#pragma once
// Basic types and constants shared by the interface headers.
#include <cfloat>
#include <cstddef>
#include <cstdint>

#ifndef NULL
#define NULL 0
#endif

typedef int int2[2];
typedef int int3[3];
typedef int int4[4];
typedef short short2[2];
typedef short short3[3];
typedef float float2[2];
typedef float float3[3];
typedef float float4[4];
typedef double double2[2];
typedef double double3[3];
typedef double double4[4];
typedef int64_t MInt64;
typedef uint64_t MUint64;

#define MAYA_API_VERSION 20230000

class MObject;
class MPxCommand;
class MSyntax;
class MPxContext;

typedef void* (*MCreatorFunction)();
typedef MSyntax (*MCreateSyntaxFunction)();

namespace MHWRender {
class MUIDrawManager;
class MFrameContext;
} // namespace MHWRender

#define MStatError(status, msg) (void)0
