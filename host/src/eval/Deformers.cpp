#include "eval/Deformers.h"

namespace host {

void registerBuiltinDeformers() {
    registerDeformer("blendShape", deformBlendShape);
    registerDeformer("tweak", deformTweak);
    registerDeformer("skinCluster", deformSkinCluster);
    // Further deformer types register here.
}

} // namespace host
