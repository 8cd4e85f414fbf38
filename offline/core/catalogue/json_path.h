// What the reader of the catalogue's files shares: the JSON type and the way errors name a key.
#pragma once

#include <rapidjson/document.h>

#include <cstddef>
#include <string>

namespace Offline {

using Json = rapidjson::Value;

// The first error that a file has, with the path to the key: "types[3].params[2].default: expected ...".
class PathError {
  public:
    // Remembers the error; always false, so that a reader can return it.
    bool fail(const std::string& what) {
        if (message.empty()) message = path.empty() ? what : path + ": " + what;
        return false;
    }
    // As fail, with what was found instead.
    bool expected(const char* what, const Json& found) {
        return fail(std::string("expected ") + what + ", found " + describe(found));
    }

    // A short text of a JSON value: "5", "\"abc\"", "a list of 3", ...
    static std::string describe(const Json& value);

    std::string path;
    std::string message;
};

// Extends the path while it lives.
class PathStep {
  public:
    PathStep(PathError& error, const std::string& key) : error(error), length(error.path.size()) {
        if (!error.path.empty()) error.path += '.';
        error.path += key;
    }
    PathStep(PathError& error, std::size_t index) : error(error), length(error.path.size()) {
        error.path += '[' + std::to_string(index) + ']';
    }
    ~PathStep() { error.path.resize(length); }
    PathStep(const PathStep&) = delete;
    PathStep& operator=(const PathStep&) = delete;

  private:
    PathError& error;
    std::size_t length;
};

}  // namespace Offline
