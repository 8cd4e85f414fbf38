#include "scene/exports.h"

#include "frame/problem.h"
#include "frame/py_ref.h"
#include "host/state.h"

namespace KUtils::Python {

namespace {

// `kind` is what the message calls the node.
PyObject* exportWith(ExportFunction hostFunction, const char* kind, const char* nodeName) {
    const Plugin* plugin = hostFunction(nodeName);
    if (plugin == nullptr) throwWarning("The %s \\\"%s\\\" could not be exported.", kind, nodeName);
    return newString(pluginName(plugin));
}

}  // namespace

PyObject* exportTexture(const char* nodeName) {
    return exportWith(sceneAccessState->exportTextureFn, "texture", nodeName);
}

PyObject* exportMaterial(const char* nodeName) {
    return exportWith(sceneAccessState->exportMaterialFn, "material", nodeName);
}

PyObject* exportCamera(const char* nodeName) {
    return exportWith(sceneAccessState->exportCameraFn, "camera", nodeName);
}

PyObject* exportNode(const char* nodeName) { return exportWith(sceneAccessState->exportNodeFn, "node", nodeName); }

}  // namespace KUtils::Python
