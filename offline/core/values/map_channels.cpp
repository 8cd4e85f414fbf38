#include "core/values/map_channels.h"

#include <new>

namespace Offline {
namespace {

constexpr int NUMBER = 0;
constexpr int VERTICES = 1;
constexpr int FACES = 2;
constexpr int PARTS = 3;

KUtils::ParamType partType(int part) {
    if (part == NUMBER || part == FACES) return KUtils::PARAM_INT;
    return part == VERTICES ? KUtils::PARAM_VECTOR : KUtils::PARAM_UNKNOWN;
}

}  // namespace

MapChannelList::~MapChannelList() {
    for (MapChannel* channel : channels) {
        channel->~MapChannel();
        kelmo_free(channel, sizeof(MapChannel));
    }
}

MapChannel* MapChannelList::append() {
    void* memory = kelmo_malloc(sizeof(MapChannel));
    if (memory == nullptr) return nullptr;
    auto* channel = ::new (memory) MapChannel();
    if (channels.append(channel)) return channel;
    channel->~MapChannel();
    kelmo_free(memory, sizeof(MapChannel));
    return nullptr;
}

int MapChannels::getCount(double) {
    if (depth == 1) return PARTS;
    if (depth != 2 || part < NUMBER || part > FACES) return channels.count();
    const MapChannel* at = opened();
    if (part == NUMBER || at == nullptr) return -1;
    return part == VERTICES ? at->vertices.count() : at->faces.count();
}

KUtils::ListHandle MapChannels::openListImpl(int index) {
    ++depth;
    if (depth == 1) channel = index;
    if (depth == 2) part = index;
    return depth;
}

KUtils::ListHandle MapChannels::closeList(KUtils::ListHandle) { return --depth; }

int MapChannels::getInt(int, double) {
    const MapChannel* at = depth == 1 || depth == 2 ? opened() : nullptr;
    return at != nullptr ? at->number : 0;
}

KUtils::ListView<std::int32_t> MapChannels::getIntList(double) {
    MapChannel* at = depth == 2 && part == FACES ? opened() : nullptr;
    return at != nullptr ? KUtils::borrowedView(at->faces.data(), at->faces.count())
                         : KUtils::emptyView<std::int32_t>();
}

KUtils::ListView<KUtils::Vector> MapChannels::getVectorList(double) {
    MapChannel* at = depth == 2 && part == VERTICES ? opened() : nullptr;
    return at != nullptr ? KUtils::borrowedView(at->vertices.data(), at->vertices.count())
                         : KUtils::emptyView<KUtils::Vector>();
}

KUtils::ParamType MapChannels::getType(int index, double) {
    if (depth == 0) return code;
    if (index != -1) return partType(index);
    return depth == 1 ? code : partType(part);
}

bool MapChannels::copyChannels(MapChannelList& to, const MapChannelList& from) {
    for (int i = 0; i < from.count(); ++i) {
        MapChannel* copy = to.append();
        if (copy == nullptr || !copy->vertices.copy(from.at(i)->vertices) || !copy->faces.copy(from.at(i)->faces))
            return false;
        copy->number = from.at(i)->number;
    }
    return true;
}

}  // namespace Offline
