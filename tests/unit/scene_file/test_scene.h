// A scene of its own for each test, over a small catalogue with parameters of every type.
#pragma once

#include <string>

#include "core/base/counters.h"
#include "core/scene/scene_contents.h"
#include "core/scene_file/scene_file_api.h"

// The catalogue as a text.
extern const char TEST_TYPES[];

// The chain of an error as one text: "[place] message | message"; "" for null. Gives the record back.
std::string takeError(KUtils::ErrorRecord* error);

class TestScene {
  public:
    TestScene();
    // With these contents as its main scene.
    explicit TestScene(TestScene& main);

    // Reads a scene text named "s"; the error, or "".
    std::string read(const std::string& text);
    // Reads a header and these lines.
    std::string readLines(const std::string& lines) { return read("{\"kelmo-scene\":1}\n" + lines); }
    // The whole scene as text, and the same without the header.
    std::string text();
    std::string lines();

    Offline::OfflinePlugin* find(const char* name) { return contents.find(name); }
    // The value of a parameter of plugin "p"; null: none.
    KUtils::KelmoPluginParameter* value(const char* param);

  private:
    Offline::Catalogue ownCatalogue;

  public:
    Offline::SceneContents contents;
};
