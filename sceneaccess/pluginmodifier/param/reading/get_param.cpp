#include "param/reading/get_param.h"

#include "frame/py_ref.h"
#include "param/declaration/lookup_param_desc.h"
#include "param/reading/value_to_python.h"
#include "scene/lookup.h"

namespace KUtils::Python {

PyObject* getParam(const char* pluginName, const char* paramName) {
    Plugin* plugin = lookupPlugin(pluginName);
    if (KelmoPluginParameter* value = plugin->getParameter(paramName)) {
        return valueToPython(*value, value->getType(-1, 0.0), 0);
    }
    const ParamDesc& record = lookupParamDesc(plugin, paramName);
    return record.hasDefault != 0 ? defaultToPython(record) : newNone();
}

}  // namespace KUtils::Python
