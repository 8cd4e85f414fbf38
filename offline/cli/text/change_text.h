// What a script changed, as text for a person: one line for each plugin, one below it for each parameter.
#pragma once

#include <string>

class ChangeText {
  public:
    // Takes one change as the host tells it, and gives its lines.
    std::string add(const std::string& line);

    // "2 created, 1 deleted, 3 changed", or "nothing changed".
    std::string summary() const;

  private:
    std::string current_;  // the plugin whose parameters are being listed
    bool currentIsNew_ = false;
    int created_ = 0;
    int deleted_ = 0;
    int changed_ = 0;
    int scenes_ = 0;
};
