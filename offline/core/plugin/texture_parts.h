// The texture interfaces of a plugin: one small object for each that its type offers, placed behind the plugin.
//
// Shading is not simulated: a texture answers, wherever it is asked, with the constant that the plugin's first
// parameter of that kind carries or has as its default, else with zeros.
#pragma once

#include <cstddef>
#include <cstdint>

#include "kelmo/plugin/plugin_base.h"

namespace Offline {

class OfflinePlugin;

// Every texture interface of a plugin has this size: a table and its owner.
constexpr std::size_t TEXTURE_PART_BYTES = 2 * sizeof(void*);

// How many interfaces the TextureOffer bits ask for.
std::size_t countTextureParts(std::uint32_t offered);

// Makes the interfaces in `place`, which has room for all of them, in the order of the bits.
void makeTextureParts(std::uint32_t offered, OfflinePlugin& owner, unsigned char* place);

// The interface with this identifier among those that makeTextureParts made, or null.
KUtils::PluginInterface* findTexturePart(std::uint32_t offered, unsigned char* place, std::uint32_t id);

}  // namespace Offline
