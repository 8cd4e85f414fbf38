// The plugin manager of the host plug-in: the main scene as the script sees it.
#pragma once

#include "kelmo/plugin/plugin_manager.h"
#include "kelmo/scene/pointer_set.h"

namespace KUtils {

class HostPluginManager {
  public:
    virtual Plugin* findPlugin(const char* name) = 0;
    // `existed` receives whether a plugin of this name was there already (it is the result then).
    virtual Plugin* createPlugin(const char* name, const char* typeName, bool& existed, bool flag1, bool flag2,
                                 bool flag3) = 0;
    virtual void deletePlugin(Plugin* plugin, bool flag) = 0;
    virtual int beginScriptAccess() = 0;
    virtual int endScriptAccess() = 0;

    void* reserved8 = nullptr;
    void* reserved16 = nullptr;
    PluginManager* pluginManager = nullptr;
    PointerSet* ownedParams = nullptr;

  protected:
    ~HostPluginManager() = default;
};

}  // namespace KUtils
