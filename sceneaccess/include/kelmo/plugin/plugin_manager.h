// The renderer core's plugin manager: types by name, plugins in turn.
#pragma once

#include "kelmo/plugin/plugin.h"

namespace KUtils {

class EnumPluginCallback {
  public:
    // Receives one plugin; nonzero goes on, zero stops.
    virtual int process(Plugin* plugin) = 0;

  protected:
    ~EnumPluginCallback() = default;
};

class PluginManager {
  public:
    virtual PluginDescriptor* getPluginDescriptor(const char* typeName) = 0;  // null: no such type
    virtual void enumPlugins(EnumPluginCallback* callback) = 0;

  protected:
    ~PluginManager() = default;
};

}  // namespace KUtils
