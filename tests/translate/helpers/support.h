// What the tests of the translation share: files, folders that vanish, and scenes as JSON.
#pragma once

#include <rapidjson/document.h>

#include <string>
#include <vector>

namespace TestSupport {

// A folder of its own, removed with all that is in it.
class TemporaryFolder {
  public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    std::string path(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string path_;
};

std::string sourcePath(const std::string& name);
std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& text);

// All that is left to read of an open file.
std::string readAll(int descriptor);

// The lines of a text, each parsed.
std::vector<rapidjson::Document> parseLines(const std::string& text);

// The plugins of a translated scene.
class Scene {
  public:
    explicit Scene(const std::string& text) : lines_(parseLines(text)) {}

    const rapidjson::Value& header() const { return lines_.front(); }
    // The line of the plugin; fails the test when there is none.
    const rapidjson::Value& plugin(const std::string& name) const;
    // A parameter of it.
    const rapidjson::Value& param(const std::string& plugin, const char* name) const;
    bool has(const std::string& plugin, const char* param) const;
    std::vector<std::string> names(const std::string& type) const;
    std::vector<std::string> deferredNames() const;
    const std::vector<rapidjson::Document>& lines() const { return lines_; }

  private:
    std::vector<rapidjson::Document> lines_;
};

}  // namespace TestSupport
