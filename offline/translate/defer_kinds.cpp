#include "defer_kinds.h"

namespace Translation {
namespace {

struct Row {
    std::string_view name;
    DeferKind kind;
};

constexpr Row ROWS[] = {
    {"materials", DEFER_MATERIALS},
    {"textures", DEFER_TEXTURES},
    {"cameras", DEFER_CAMERAS},
    {"nodes", DEFER_NODES},
};

unsigned kindOf(std::string_view name) {
    for (const Row& row : ROWS) {
        if (row.name == name) return row.kind;
    }
    return 0;
}

}  // namespace

bool parseDeferKinds(std::string_view list, unsigned& kinds, std::string& unknown) {
    kinds = 0;
    while (!list.empty()) {
        const std::size_t comma = list.find(',');
        const std::string_view name = list.substr(0, comma);
        const unsigned kind = kindOf(name);
        if (kind == 0) {
            unknown = std::string(name);
            return false;
        }
        kinds |= kind;
        list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
    }
    return true;
}

}  // namespace Translation
