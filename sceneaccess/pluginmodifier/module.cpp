// The module's table of functions and its entry, the one symbol that the library exports.
#include "frame/compiler.h"
#include "frame/method.h"
#include "host/session.h"
#include "param/declaration/introspection.h"
#include "param/reading/get_param.h"
#include "param/setting/set_param.h"
#include "scene/duplicate.h"
#include "scene/exports.h"
#include "scene/import.h"
#include "scene/lifecycle.h"
#include "scene/search/search.h"

namespace KUtils::Python {

namespace {

constexpr char DELETE[] = "_delete";
constexpr char CREATE[] = "_create";
constexpr char SET_PARAM[] = "_setParam";
constexpr char GET_PARAM[] = "_getParam";
constexpr char GET_PLUGIN_PARAMS[] = "_getPluginParams";
constexpr char GET_TYPE_PARAMS[] = "_getTypeParams";
constexpr char GET_PLUGIN_TYPE[] = "_getPluginType";
constexpr char GET_PARAM_TYPE[] = "_getParamType";
constexpr char IS_OUTPUT_PARAM[] = "_isOutputParam";
constexpr char PLUGIN_EXISTS[] = "_pluginExists";
constexpr char PARAM_EXISTS[] = "_paramExists";
constexpr char FIND_BY_TYPE[] = "_findByType";
constexpr char FIND_BY_NAME[] = "_findByName";
constexpr char EXPORT_TEXTURE[] = "_exportTexture";
constexpr char EXPORT_MATERIAL[] = "_exportMaterial";
constexpr char EXPORT_CAMERA[] = "_exportCamera";
constexpr char EXPORT_NODE[] = "_exportNode";
constexpr char ADD_SCENE_CONTENT[] = "_addSceneContent";
constexpr char APPEND_SCENE_CONTENT[] = "_appendSceneContent";
constexpr char DUPLICATE[] = "_duplicate";
constexpr char UNIQUE[] = "_unique";

PyMethodDef methods[] = {
    {"_init", init, METH_VARARGS, "Must be called manually before using the module."},
    {"_uninit", uninit, METH_VARARGS, "Must be called manually after using the module."},
    {DELETE, method<DELETE, deletePlugin>, METH_VARARGS, "Delete a plugin with the given name."},
    {CREATE, method<CREATE, create>, METH_VARARGS, "Create a plugin with the given type and name."},
    {SET_PARAM, method<SET_PARAM, setParam>, METH_VARARGS, "Set the value of a plugin parameter."},
    {GET_PARAM, method<GET_PARAM, getParam>, METH_VARARGS, "Return the value of a plugin parameter."},
    {GET_PLUGIN_PARAMS, method<GET_PLUGIN_PARAMS, getPluginParams>, METH_VARARGS,
     "Return a python list containing the names of all parameters for the given plugin."},
    {GET_TYPE_PARAMS, method<GET_TYPE_PARAMS, getTypeParams>, METH_VARARGS,
     "Return a python list containing the names of all parameters for the given plugin type."},
    {GET_PLUGIN_TYPE, method<GET_PLUGIN_TYPE, getPluginType>, METH_VARARGS,
     "Return the type of the plugin with the given name."},
    {GET_PARAM_TYPE, method<GET_PARAM_TYPE, getParamType>, METH_VARARGS, "Return the type of the plugin parameter."},
    {IS_OUTPUT_PARAM, method<IS_OUTPUT_PARAM, isOutputParam>, METH_VARARGS,
     "Return true if the plugin parameter is an output parameter."},
    {PLUGIN_EXISTS, predicate<PLUGIN_EXISTS, pluginExists>, METH_VARARGS,
     "Return true if a plugin with the given name exists."},
    {PARAM_EXISTS, predicate<PARAM_EXISTS, paramExists>, METH_VARARGS,
     "Return true if a parameter with the given name exists for this plugin."},
    {FIND_BY_TYPE, method<FIND_BY_TYPE, findByType>, METH_VARARGS,
     "Find all plugins with type matching a string(including wild cards)."},
    {FIND_BY_NAME, method<FIND_BY_NAME, findByName>, METH_VARARGS,
     "Find all plugins with name matching a string(including wild cards)."},
    {EXPORT_TEXTURE, method<EXPORT_TEXTURE, exportTexture>, METH_VARARGS, "Export a texture node."},
    {EXPORT_MATERIAL, method<EXPORT_MATERIAL, exportMaterial>, METH_VARARGS, "Export a material node."},
    {EXPORT_CAMERA, method<EXPORT_CAMERA, exportCamera>, METH_VARARGS, "Export a camera node."},
    {EXPORT_NODE, method<EXPORT_NODE, exportNode>, METH_VARARGS, "Export any node supported by kelmo."},
    {ADD_SCENE_CONTENT, method<ADD_SCENE_CONTENT, addSceneContent>, METH_VARARGS,
     "Add the plugins from the given scene file."},
    {APPEND_SCENE_CONTENT, method<APPEND_SCENE_CONTENT, appendSceneContent>, METH_VARARGS,
     "Append the plugins from the given scene file."},
    {DUPLICATE, method<DUPLICATE, duplicate>, METH_VARARGS, "Create an exact copy of a Kelmo plugin."},
    {UNIQUE, question<UNIQUE, unique>, METH_VARARGS, "Check whether only one instance of this plugin type can exist."},
    {nullptr, nullptr, 0, nullptr},
};

// The interface of Python 2.7 that the table is made for.
constexpr int API_VERSION = 1013;

}  // namespace

}  // namespace KUtils::Python

// Python ignores what the entry returns; other callers get the module (a borrowed reference).
MODULE_ENTRY PyObject* initpluginmodifier() {
    PyImport_AddModule("pluginmodifier");
    return Py_InitModule4("pluginmodifier", KUtils::Python::methods, nullptr, nullptr, KUtils::Python::API_VERSION);
}
