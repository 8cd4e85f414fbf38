// Builds one JSON object of texts and numbers, on one line.
#pragma once

#include <cstdint>
#include <string>

namespace Offline {

// Appends `text` in quotes. A byte that is not part of valid UTF-8 becomes the escape of a lone
// surrogate, \udcNN, as in a scene file.
void appendJsonText(std::string& out, const char* text, std::size_t length);

class JsonObject {
  public:
    JsonObject& text(const char* key, const char* value);  // null: null
    JsonObject& text(const char* key, const std::string& value);
    JsonObject& number(const char* key, std::uint64_t value);

    // The object as it stands now.
    std::string line() const { return body + '}'; }

  private:
    void key(const char* name);

    std::string body = "{";
};

}  // namespace Offline
