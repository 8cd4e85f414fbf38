// DefMapChannelsParam: the mapping channels of a mesh. Opening a channel and then one of its three parts
// (0 the channel's number, 1 its vertices, 2 its faces) reaches the arrays.
//
// Errors: a channel that does not exist counts -1 and reads as the zero answer; a write to it does
// nothing.
#pragma once

#include <cstdint>

#include "kelmo/param/settable.h"
#include "params/base/array_record.h"
#include "params/base/param_base.h"
#include "params/base/settable_cloneable.h"
#include "params/base/whole_copy.h"

namespace KUtils {

struct MapChannel {
    std::int32_t number = 0;
    ArrayRecord<Vector> vertices;
    ArrayRecord<std::int32_t> faces;  // indices of vertices
};

// A channel's two blocks belong to it.
template <>
struct ElementLife<MapChannel> {
    static void initialise(MapChannel* first, std::size_t count);
    static void dispose(MapChannel* first, std::size_t count);
    // An array that cannot be copied is empty in the copy.
    static void copy(MapChannel* to, const MapChannel* from, std::size_t count);
};

class DefMapChannelsParam final : public DefParamBase,
                                  public KelmoSettableParamInterface,
                                  public KelmoCloneableParamInterface {
  public:
    DefMapChannelsParam(const char* name, bool ownsName) noexcept;
    DefMapChannelsParam(const DefMapChannelsParam& source) noexcept;
    ~DefMapChannelsParam() override;

    PluginInterface* getInterface(InterfaceID id) override;
    using DefParamBase::getPlugin;
    PluginBase* getPlugin() override { return this; }

    // Outside the three levels, and for a part that is none of the three, the number of channels.
    int getCount(double time) override;
    // Every open and close moves the depth, below zero too; the result is the new depth.
    ListHandle openListImpl(int index) override;
    ListHandle closeList(ListHandle handle) override;
    ParamType getType(int index, double time) override;

    int getInt(int index, double time) override;
    ListView<std::int32_t> getIntList(double time) override;
    ListView<Vector> getVectorList(double time) override;

    void setInt(int value, int index, double time) override;
    void setVector(const Vector& value, int index, double time) override;
    void setCount(int count) override;
    // setCount, and then the array concerned is empty.
    void reserve(int capacity) override;
    KelmoPluginParameter* clone() override;

    // False when memory was too short for this copy of `source`.
    bool isWholeCopyOf(const DefMapChannelsParam& source) const;

  private:
    // The opened channel, or null.
    MapChannel* openedChannel() const { return channels.at(currentChannel); }
    // The opened channel's vertices (faces) when the cursor is on them, or null.
    ArrayRecord<Vector>* openedVertices() const;
    ArrayRecord<std::int32_t>* openedFaces() const;

    ArrayRecord<MapChannel> channels;
    std::int32_t currentChannel;
    std::int32_t currentElement;
    std::int32_t depth;
};

}  // namespace KUtils
