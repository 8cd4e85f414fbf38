// One plugin line of a scene file, read but not yet part of a scene.
//
// Ownership: a PluginLine owns the values that it has read until somebody takes them; clear() or its end frees them.
#pragma once

#include <string>
#include <vector>

#include "core/scene_file/json/json_text.h"
#include "core/scene_file/records/value_reader.h"

namespace Offline {

struct LineParam {
    std::size_t index;  // into the type's declarations
    const char* place;  // where the value begins
    Value* value;
    std::vector<OpenReference> openReferences;
};

struct PluginLine {
    PluginLine() = default;
    PluginLine(const PluginLine&) = delete;
    PluginLine& operator=(const PluginLine&) = delete;
    ~PluginLine() { clear(); }

    void clear();

    PluginType* type = nullptr;
    std::string name;
    std::string node;  // empty: the same as the name
    bool deferred = false;
    std::vector<LineParam> params;
};

class PluginLineReader {
  public:
    // Reads a whole line. False: the error is noted in `text`, and errorPlace() says in whose value it stands.
    bool read(JsonText& text, const SceneContents& contents, PluginLine& line);

    // As `plugin "clay", parameter "color"`, as far as it is known; empty when nothing is.
    std::string errorPlace(const PluginLine& line) const;

  private:
    bool readMember(const std::string& key);
    bool readType();
    bool readName();
    bool readParams();
    bool readParam(const std::string& paramName);
    bool readRigid();
    bool makeRigid();
    bool checkFits();

    JsonText* text = nullptr;
    const SceneContents* contents = nullptr;
    PluginLine* line = nullptr;
    const char* paramsPlace = nullptr;  // of "params" that stood before "type"
    std::string param;                  // the one that is being read; empty: none
    unsigned seen = 0;                  // keys, as bits
    struct RigidName {
        std::string name;
        const char* place;
    };
    std::vector<RigidName> rigid;
    std::string scratch;
};

}  // namespace Offline
