// A scene of the renderer core. The module makes extra scenes with it: 32 bytes of the core's heap,
// constructed in place, and never destroyed by the module.
#pragma once

#include "kelmo/core/error_record.h"
#include "kelmo/core/export.h"
#include "kelmo/plugin/plugin_manager.h"

namespace KUtils {

class Parser;

class KELMO_CORE_API KelmoScene {
  public:
    // `parser` may be null: the core's own.
    KelmoScene(PluginManager* manager, Parser* parser, int flags);
    KelmoScene(const KelmoScene&) = delete;
    KelmoScene& operator=(const KelmoScene&) = delete;
    ~KelmoScene();

    virtual PluginManager* getManager();
    virtual void deletePlugin(Plugin* plugin, bool flag);
    virtual Plugin* findPlugin(const char* name);
    virtual Plugin* newPlugin(const char* typeName, const char* name, int flags);  // null: refused

    // Adds the plugins of a file. `file` and `text` may be null. Null on success, else a chain of
    // records of which the caller holds one reference; what was read before stays.
    virtual ErrorRecord* readFile(const char* file, int flag1, int flag2, const char* text);

    // Tells the scene of a value that a plugin of it now carries.
    virtual void attachParameter(KelmoPluginParameter* param);

  private:
    void* reserved8;
    void* reserved16;
    void* reserved24;

    friend struct SceneAccess;
};

}  // namespace KUtils
