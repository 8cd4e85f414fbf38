// Gives every record a name of its own. Names of the DCC stay as they are; only the second and further
// records that want the same name get a number after it. Which one keeps the name depends on the order of
// asking alone, and no number ever takes a name that the file itself uses.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

#include "child/report.h"

namespace Translation {

class Names {
  public:
    explicit Names(Report& report) : report_(report) {}

    // First: every name that will be asked for.
    void announce(const std::string& wanted) { wanted_.insert(wanted); }

    // Then: the name to use. `kind` is told in the report when it is another than the wanted one.
    std::string take(const std::string& wanted, const char* kind);

  private:
    Report& report_;
    std::unordered_set<std::string> wanted_;
    std::unordered_set<std::string> taken_;
    std::unordered_map<std::string, int> next_;  // the number to try next for a name
};

}  // namespace Translation
