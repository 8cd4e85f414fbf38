// The mapping channels of a mesh: for each its number, its vertices and its faces.
#pragma once

#include "core/values/value.h"

namespace Offline {

struct MapChannel {
    std::int32_t number = 0;
    Array<KUtils::Vector> vertices;
    Array<std::int32_t> faces;
};

// Owner of channel records in the core's heap.
class MapChannelList {
  public:
    MapChannelList() = default;
    MapChannelList(MapChannelList&& other) noexcept : channels(static_cast<Array<MapChannel*>&&>(other.channels)) {}
    MapChannelList& operator=(MapChannelList&&) = delete;
    ~MapChannelList();

    MapChannel* append();  // null when there is no memory
    std::int32_t count() const { return channels.count(); }
    MapChannel* at(int index) const { return channels.has(index) ? channels[index] : nullptr; }

  private:
    Array<MapChannel*> channels;
};

class MapChannels : public Value {
  public:
    MapChannels(ValueName name, MapChannelList&& list)
        : Value(name, KUtils::PARAM_LIST), channels(static_cast<MapChannelList&&>(list)) {}

    int getCount(double time) override;
    KUtils::ListHandle openListImpl(int index) override;
    KUtils::ListHandle closeList(KUtils::ListHandle handle) override;
    int getInt(int index, double time) override;
    KUtils::ListView<std::int32_t> getIntList(double time) override;
    KUtils::ListView<KUtils::Vector> getVectorList(double time) override;
    KUtils::ParamType getType(int index, double time) override;

  protected:
    template <class Self>
    static Value* copyAs(const Self& from) {
        MapChannelList list;
        if (!copyChannels(list, from.channels)) return nullptr;
        auto* copy = new Self(from.nameToCopy(), static_cast<MapChannelList&&>(list));
        if (copy != nullptr && !copy->hasNameOf(from)) {
            delete copy;
            copy = nullptr;
        }
        return copy;
    }

  private:
    static bool copyChannels(MapChannelList& to, const MapChannelList& from);
    MapChannel* opened() const { return channels.at(channel); }

    MapChannelList channels;
    std::int32_t depth = 0;
    std::int32_t channel = 0;  // opened at depth 0
    std::int32_t part = 0;     // opened at depth 1: 0 number, 1 vertices, 2 faces
};

}  // namespace Offline
