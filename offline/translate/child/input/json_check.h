// Whether a part of a file is JSON, found without following its nesting with the stack and without keeping
// its contents: the scene reader does both, and a hostile file would exhaust them.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace Translation {

constexpr int MAX_JSON_DEPTH = 256;

struct JsonFacts {
    std::string error;                      // empty: it is JSON; else the end of a sentence
    std::map<std::string, unsigned> lists;  // the members of the outermost object: how many objects each lists

    bool has(const char* member) const { return lists.count(member) != 0; }
};

JsonFacts checkJson(int descriptor, std::uint64_t offset, std::uint64_t bytes);

}  // namespace Translation
