// A plugin of a scene. The module reads the name (byte 24), the descriptor (40) and the list of carried
// values (48) directly, and calls the parameter holder that stands at byte 32.
//
// Ownership: plugins belong to the renderer; the module never frees one.
#pragma once

#include "kelmo/param/plugin_parameter.h"
#include "kelmo/plugin/param_desc.h"
#include "kelmo/plugin/parameter_list.h"

namespace KUtils {

// The part of a plugin that takes and gives its values.
class ParamHolder {
  public:
    // Nonzero when the plugin took the value.
    virtual int setParameter(KelmoPluginParameter* param) = 0;
    // The carried value of this name, or null.
    virtual KelmoPluginParameter* getParameter(const char* name) = 0;

  protected:
    ~ParamHolder() = default;
};

class NamedPlugin : public PluginBase {
  public:
    virtual PluginDescriptor* getPluginDescriptor() = 0;  // null: none

    void* reserved16 = nullptr;
    const char* name = nullptr;
};

class Plugin : public NamedPlugin, public ParamHolder {
  public:
    PluginDescriptor* descriptor = nullptr;
    KelmoParameterList* paramList = nullptr;
};

// The plugin's name, read where it stands.
inline const char* pluginName(const PluginBase* plugin) { return static_cast<const NamedPlugin*>(plugin)->name; }

// The name of the plugin's type; null when the plugin has no descriptor.
inline const char* pluginTypeName(PluginBase* plugin) {
    PluginDescriptor* descriptor = static_cast<NamedPlugin*>(plugin)->getPluginDescriptor();
    return descriptor != nullptr ? descriptor->getTypeName() : nullptr;
}

}  // namespace KUtils
