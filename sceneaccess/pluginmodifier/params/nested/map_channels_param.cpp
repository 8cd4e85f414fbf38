#include "params/nested/map_channels_param.h"

namespace KUtils {

namespace {

enum Part { NumberPart = 0, VerticesPart = 1, FacesPart = 2, PartCount = 3 };

ParamType partType(int part) {
    switch (part) {
        case NumberPart:
            return PARAM_INT;
        case VerticesPart:
            return PARAM_VECTOR;
        case FacesPart:
            return PARAM_INT;
        default:
            return PARAM_UNKNOWN;
    }
}

template <class T>
void store(ArrayRecord<T>& array, T value, int index) {
    T* slot = array.holds(index) ? array.data + index : array.append();
    if (slot != nullptr) *slot = value;
}

}  // namespace

// Channels

void ElementLife<MapChannel>::initialise(MapChannel* first, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) first[i] = MapChannel{};
}

void ElementLife<MapChannel>::dispose(MapChannel* first, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        first[i].vertices.release();
        first[i].faces.release();
    }
}

void ElementLife<MapChannel>::copy(MapChannel* to, const MapChannel* from, std::size_t count) {
    initialise(to, count);
    for (std::size_t i = 0; i < count; ++i) {
        to[i].number = from[i].number;
        to[i].vertices.copyElements(from[i].vertices);
        to[i].faces.copyElements(from[i].faces);
    }
}

// Construction and destruction

DefMapChannelsParam::DefMapChannelsParam(const char* name, bool ownsName) noexcept
    : DefParamBase(name, ownsName), currentChannel(0), currentElement(0), depth(0) {}

DefMapChannelsParam::DefMapChannelsParam(const DefMapChannelsParam& source) noexcept
    : DefParamBase(source),
      KelmoSettableParamInterface(source),
      KelmoCloneableParamInterface(source),
      currentChannel(0),
      currentElement(0),
      depth(0) {
    channels.copyElements(source.channels);
}

DefMapChannelsParam::~DefMapChannelsParam() { channels.release(); }

KelmoPluginParameter* DefMapChannelsParam::clone() { return wholeCopy(*this); }

bool DefMapChannelsParam::isWholeCopyOf(const DefMapChannelsParam& source) const {
    if (!DefParamBase::isWholeCopyOf(source) || channels.count != source.channels.count) return false;
    for (std::int32_t i = 0; i < channels.count; ++i) {
        const MapChannel& from = source.channels.data[i];
        const MapChannel& copy = channels.data[i];
        if (copy.vertices.count != from.vertices.count || copy.faces.count != from.faces.count) return false;
    }
    return true;
}

PluginInterface* DefMapChannelsParam::getInterface(InterfaceID id) {
    PluginInterface* part = settableOrCloneable(*this, id);
    return part != nullptr ? part : DefParamBase::getInterface(id);
}

// The cursor

ArrayRecord<Vector>* DefMapChannelsParam::openedVertices() const {
    MapChannel* channel = depth == 2 && currentElement == VerticesPart ? openedChannel() : nullptr;
    return channel != nullptr ? &channel->vertices : nullptr;
}

ArrayRecord<std::int32_t>* DefMapChannelsParam::openedFaces() const {
    MapChannel* channel = depth == 2 && currentElement == FacesPart ? openedChannel() : nullptr;
    return channel != nullptr ? &channel->faces : nullptr;
}

int DefMapChannelsParam::getCount(double) {
    if (depth == 1) return PartCount;
    if (depth != 2 || currentElement < NumberPart || currentElement >= PartCount) return channels.count;
    const ArrayRecord<Vector>* vertices = openedVertices();
    const ArrayRecord<std::int32_t>* faces = openedFaces();
    if (vertices != nullptr) return vertices->count;
    return faces != nullptr ? faces->count : -1;
}

ListHandle DefMapChannelsParam::openListImpl(int index) {
    ++depth;
    if (depth == 1) currentChannel = index;
    if (depth == 2) currentElement = index;
    return depth;
}

ListHandle DefMapChannelsParam::closeList(ListHandle) { return --depth; }

ParamType DefMapChannelsParam::getType(int index, double) {
    if (depth == 0) return PARAM_LIST;
    if (index != -1) return partType(index);
    return depth == 1 ? PARAM_LIST : partType(currentElement);
}

// Reading

int DefMapChannelsParam::getInt(int, double) {
    const MapChannel* channel = depth == 1 || depth == 2 ? openedChannel() : nullptr;
    return channel != nullptr ? channel->number : 0;
}

ListView<std::int32_t> DefMapChannelsParam::getIntList(double) {
    const ArrayRecord<std::int32_t>* faces = openedFaces();
    return faces != nullptr ? faces->view() : emptyView<std::int32_t>();
}

ListView<Vector> DefMapChannelsParam::getVectorList(double) {
    const ArrayRecord<Vector>* vertices = openedVertices();
    return vertices != nullptr ? vertices->view() : emptyView<Vector>();
}

// Writing

void DefMapChannelsParam::setInt(int value, int index, double) {
    if (depth == 1) {
        MapChannel* channel = openedChannel();
        if (channel != nullptr) channel->number = value;
        return;
    }
    ArrayRecord<std::int32_t>* faces = openedFaces();
    if (faces != nullptr) store<std::int32_t>(*faces, value, index);
}

void DefMapChannelsParam::setVector(const Vector& value, int index, double) {
    ArrayRecord<Vector>* vertices = openedVertices();
    if (vertices != nullptr) store(*vertices, value, index);
}

void DefMapChannelsParam::setCount(int count) {
    if (depth == 0) channels.resize(count, Growth::Exact);
    if (ArrayRecord<Vector>* vertices = openedVertices()) vertices->resize(count, Growth::Exact);
    if (ArrayRecord<std::int32_t>* faces = openedFaces()) faces->resize(count, Growth::Exact);
}

void DefMapChannelsParam::reserve(int capacity) {
    if (depth == 0 && channels.resize(capacity, Growth::Exact)) channels.count = 0;
    ArrayRecord<Vector>* vertices = openedVertices();
    if (vertices != nullptr && vertices->resize(capacity, Growth::Exact)) vertices->count = 0;
    ArrayRecord<std::int32_t>* faces = openedFaces();
    if (faces != nullptr && faces->resize(capacity, Growth::Exact)) faces->count = 0;
}

}  // namespace KUtils
