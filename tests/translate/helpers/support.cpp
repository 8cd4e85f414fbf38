#include "support.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace TestSupport {

TemporaryFolder::TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "translate-XXXXXX") {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string sourcePath(const std::string& name) { return std::string(SOURCE_FOLDER) + "/" + name; }

std::string readFile(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) throw std::runtime_error("cannot read " + path);
    std::string text;
    char block[65536];
    for (std::size_t count; (count = std::fread(block, 1, sizeof block, file)) > 0;) text.append(block, count);
    std::fclose(file);
    return text;
}

void writeFile(const std::string& path, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr || std::fwrite(text.data(), 1, text.size(), file) != text.size() || std::fclose(file) != 0) {
        throw std::runtime_error("cannot write " + path);
    }
}

std::string readAll(int descriptor) {
    std::string text;
    char block[65536];
    for (ssize_t count; (count = read(descriptor, block, sizeof block)) > 0;) {
        text.append(block, static_cast<std::size_t>(count));
    }
    return text;
}

std::vector<rapidjson::Document> parseLines(const std::string& text) {
    std::vector<rapidjson::Document> lines;
    for (std::size_t place = 0; place < text.size();) {
        const std::size_t end = text.find('\n', place);
        rapidjson::Document line;
        line.Parse<rapidjson::kParseFullPrecisionFlag>(text.data() + place, end - place);
        if (end == std::string::npos || line.HasParseError()) throw std::runtime_error("a line is not JSON");
        lines.push_back(std::move(line));
        place = end + 1;
    }
    return lines;
}

const rapidjson::Value& Scene::plugin(const std::string& name) const {
    for (std::size_t i = 1; i < lines_.size(); ++i) {
        if (lines_[i]["name"].GetString() == name) return lines_[i];
    }
    throw std::runtime_error("no plugin " + name);
}

bool Scene::has(const std::string& name, const char* param) const {
    const rapidjson::Value& line = plugin(name);
    return line.HasMember("params") && line["params"].HasMember(param);
}

const rapidjson::Value& Scene::param(const std::string& name, const char* param) const {
    if (!has(name, param)) throw std::runtime_error("no parameter " + name + "." + param);
    return plugin(name)["params"][param];
}

std::vector<std::string> Scene::names(const std::string& type) const {
    std::vector<std::string> names;
    for (std::size_t i = 1; i < lines_.size(); ++i) {
        if (lines_[i]["type"].GetString() == type) names.emplace_back(lines_[i]["name"].GetString());
    }
    return names;
}

std::vector<std::string> Scene::deferredNames() const {
    std::vector<std::string> names;
    for (std::size_t i = 1; i < lines_.size(); ++i) {
        if (lines_[i].HasMember("deferred")) names.emplace_back(lines_[i]["name"].GetString());
    }
    return names;
}

}  // namespace TestSupport
