// Identifiers of the optional interfaces. Most are dates written as decimal numbers.
#pragma once

#include <cstdint>

namespace KUtils {

// getInterface takes 64 bits because one identifier needs them; all others fit in 32.
using InterfaceID = std::uint64_t;

constexpr std::uint32_t EXT_TEXTURE = 2004353026;            // 0x77780002
constexpr std::uint32_t EXT_TEXTURE_FLOAT = 2005072101;      // 0x7782F8E5
constexpr std::uint32_t EXT_TEXTURE_VECTOR = 2005072102;     // 0x7782F8E6
constexpr std::uint32_t EXT_TEXTURE_MATRIX = 2005072103;     // 0x7782F8E7
constexpr std::uint32_t EXT_TEXTURE_TRANSFORM = 2005072105;  // 0x7782F8E9
constexpr std::uint32_t EXT_TEXTURE_INT = 2005072106;        // 0x7782F8EA
constexpr std::uint32_t EXT_RTTEX = 2010120102;              // 0x77CFFFA6
constexpr std::uint32_t EXT_CLONEABLE_PARAM = 2011041500;    // 0x77DE0EDC
constexpr std::uint32_t EXT_SETTABLE_PARAM2 = 2013102979;    // 0x77FD8383
constexpr std::uint32_t EXT_SETTABLE_PARAM = 3132808915;     // 0xBABADED3, the one that is no date

// Through this one a plugin hands out its type descriptor (PluginDescriptorInterface).
constexpr std::uint32_t PLUGIN_DESC_INTERFACE_ID = 0x7776FFFF;

// Asks a plugin whether only one of its type may exist. Wider than 32 bits, and hexadecimal.
constexpr InterfaceID UNIQUE_PLUGIN_INTERFACE_ID = 0x2011042200;

}  // namespace KUtils
