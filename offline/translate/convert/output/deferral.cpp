#include "convert/output/deferral.h"

#include <string_view>
#include <unordered_map>

#include "defer_kinds.h"

namespace Translation {
namespace {

unsigned deferKindOf(RecordKind kind) {
    switch (kind) {
        case RecordKind::material:
            return DEFER_MATERIALS;
        case RecordKind::texture:
            return DEFER_TEXTURES;
        case RecordKind::camera:
            return DEFER_CAMERAS;
        case RecordKind::node:
            return DEFER_NODES;
        default:
            return 0;
    }
}

}  // namespace

std::size_t markDeferred(std::vector<Record>& records, unsigned kinds) {
    std::unordered_map<std::string_view, std::size_t> places;
    for (std::size_t i = 0; i < records.size(); ++i) places.emplace(records[i].name(), i);

    // What stays at any rate, then everything that it refers to.
    std::vector<bool> stays(records.size(), false);
    std::vector<std::size_t> open;
    const auto keep = [&stays, &open](std::size_t i) {
        if (!stays[i]) open.push_back(i);
        stays[i] = true;
    };
    for (std::size_t i = 0; i < records.size(); ++i) {
        if ((deferKindOf(records[i].kind()) & kinds) == 0 || records[i].visible()) keep(i);
    }
    while (!open.empty()) {
        const std::size_t i = open.back();
        open.pop_back();
        for (const std::string& name : records[i].references()) {
            const auto place = places.find(name);
            if (place != places.end()) keep(place->second);
        }
    }

    std::size_t count = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (stays[i]) continue;
        records[i].setDeferred();
        ++count;
    }
    return count;
}

}  // namespace Translation
