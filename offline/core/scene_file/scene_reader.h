// Reads a scene line by line into the contents of a scene.
//
// Ownership: the contents are the caller's. Errors: records of which the caller holds one reference; what was read
// before the damaged line stays, and finish() settles its references too.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/scene/scene_contents.h"
#include "core/scene_file/records/plugin_line.h"
#include "core/scene_file/scene_builder.h"
#include "kelmo/core/error_record.h"

namespace Offline {

class SceneReader {
  public:
    SceneReader(SceneContents& contents, const char* shownName) : contents(contents), shownName(shownName) {}

    // Takes the next line, without its end. Null on success.
    KUtils::ErrorRecord* readLine(const char* begin, const char* end);

    // To be called once after the last line, also after a damaged one. Null on success.
    KUtils::ErrorRecord* finish();

  private:
    bool readHeader(JsonText& text);
    KUtils::ErrorRecord* readPlugin(JsonText& text, const char* begin, const char* end);
    KUtils::ErrorRecord* damaged(std::uint64_t line, std::size_t column, const std::string& place,
                                 const std::string& message) const;

    SceneContents& contents;
    const char* shownName;
    std::uint64_t lineNumber = 0;
    PluginLineReader lineReader;
    PluginLine plugin;
    std::vector<OpenValue> open;
};

}  // namespace Offline
