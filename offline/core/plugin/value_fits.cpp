#include "core/plugin/value_fits.h"

#include <cstdint>

namespace Offline {
namespace {

using namespace KUtils;

constexpr std::uint32_t bit(ParamType type) { return 1u << static_cast<unsigned>(type); }

constexpr std::uint32_t NUMBERS = bit(PARAM_INT) | bit(PARAM_FLOAT) | bit(PARAM_DOUBLE) | bit(PARAM_BOOL);
constexpr std::uint32_t COLORS = bit(PARAM_COLOR) | bit(PARAM_ACOLOR);
constexpr std::uint32_t FRAMES = bit(PARAM_MATRIX) | bit(PARAM_TRANSFORM);
constexpr std::uint32_t REFERENCE = bit(PARAM_PLUGIN);

struct FitRow {
    ParamType declared;
    std::uint32_t single;   // the codes that a single value may answer
    std::uint32_t element;  // the codes that a flat list may answer; 0: there is no flat list of the type
};

constexpr FitRow FITS[] = {
    {PARAM_INT, NUMBERS, NUMBERS},
    {PARAM_FLOAT, NUMBERS, NUMBERS},
    {PARAM_DOUBLE, NUMBERS, NUMBERS},
    {PARAM_BOOL, NUMBERS, NUMBERS},
    {PARAM_VECTOR, bit(PARAM_VECTOR), bit(PARAM_VECTOR)},
    {PARAM_COLOR, COLORS, COLORS},
    {PARAM_ACOLOR, COLORS, COLORS},
    {PARAM_MATRIX, FRAMES, FRAMES},
    {PARAM_TRANSFORM, FRAMES, FRAMES},
    {PARAM_STRING, bit(PARAM_STRING), bit(PARAM_STRING)},
    {PARAM_PLUGIN, REFERENCE, REFERENCE},
    {PARAM_TEXTURE, COLORS | REFERENCE | bit(PARAM_TEXTURE), REFERENCE | bit(PARAM_TEXTURE)},
    {PARAM_TEXTURE_FLOAT, NUMBERS | REFERENCE | bit(PARAM_TEXTURE_FLOAT), REFERENCE | bit(PARAM_TEXTURE_FLOAT)},
    {PARAM_TEXTURE_INT, NUMBERS | REFERENCE | bit(PARAM_TEXTURE_INT), REFERENCE | bit(PARAM_TEXTURE_INT)},
    {PARAM_TEXTURE_VECTOR, bit(PARAM_VECTOR) | REFERENCE | bit(PARAM_TEXTURE_VECTOR),
     REFERENCE | bit(PARAM_TEXTURE_VECTOR)},
    {PARAM_TEXTURE_MATRIX, FRAMES | REFERENCE | bit(PARAM_TEXTURE_MATRIX), REFERENCE | bit(PARAM_TEXTURE_MATRIX)},
    {PARAM_TEXTURE_TRANSFORM, FRAMES | REFERENCE | bit(PARAM_TEXTURE_TRANSFORM),
     REFERENCE | bit(PARAM_TEXTURE_TRANSFORM)},
};

bool isAmong(ParamType type, std::uint32_t codes) {
    return type >= 0 && type <= PARAM_TEXTURE_TRANSFORM && (codes & bit(type)) != 0;
}

}  // namespace

bool valueFits(const ParamDesc& desc, KelmoPluginParameter& value) {
    const bool isList = value.getCount(0.0) != -1;
    if (desc.type == PARAM_LIST) return isList && value.getType(-1, 0.0) == PARAM_LIST;
    for (const FitRow& row : FITS) {
        if (row.declared != desc.type) continue;
        if (desc.listCount == -1) return !isList && isAmong(value.getType(0, 0.0), row.single);
        return isList && isAmong(value.getType(-1, 0.0), row.element);
    }
    return false;
}

}  // namespace Offline
