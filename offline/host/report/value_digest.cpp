#include "host/report/value_digest.h"

#include <cstring>

namespace Offline {

namespace {

using KUtils::KelmoPluginParameter;
using KUtils::ParamType;

// Deeper values are refused by whoever makes one; the walk must end on a foreign one too.
constexpr int MAX_DEPTH = 64;

class Digest {
  public:
    void bytes(const void* data, std::size_t size) {
        const auto* at = static_cast<const unsigned char*>(data);
        for (; size >= 8; at += 8, size -= 8) word(at, 8);
        word(at, size);
    }

    template <class T>
    void plain(const T& value) {
        bytes(&value, sizeof value);
    }

    void text(const char* value) {
        plain(value != nullptr);
        if (value != nullptr) bytes(value, std::strlen(value));
    }

    template <class T>
    void view(const KUtils::ListView<T>& values) {
        if (values.data != nullptr && values.count > 0)
            bytes(values.data, sizeof(T) * static_cast<std::size_t>(values.count));
        KUtils::releaseView(values);
    }

    std::uint64_t state = 0x6b656c6d6f;

  private:
    void word(const unsigned char* at, std::size_t size) {
        std::uint64_t value = size;
        if (size > 0) std::memcpy(&value, at, size);
        state = (state ^ value) * 0x9e3779b97f4a7c15u;
        state ^= state >> 29;
    }
};

void addSingle(Digest& digest, KelmoPluginParameter& value, ParamType type, int index) {
    switch (type) {
        case KUtils::PARAM_INT:
            return digest.plain(value.getInt(index, 0.0));
        case KUtils::PARAM_FLOAT:
            return digest.plain(value.getFloat(index, 0.0));
        case KUtils::PARAM_DOUBLE:
            return digest.plain(value.getDouble(index, 0.0));
        case KUtils::PARAM_BOOL:
            return digest.plain(value.getBool(index, 0.0));
        case KUtils::PARAM_VECTOR:
            return digest.plain(value.getVector(index, 0.0));
        case KUtils::PARAM_COLOR:
            return digest.plain(value.getColor(index, 0.0));
        case KUtils::PARAM_ACOLOR:
            return digest.plain(value.getAColor(index, 0.0));
        case KUtils::PARAM_MATRIX:
            return digest.plain(value.getMatrix(index, 0.0));
        case KUtils::PARAM_STRING:
            return digest.text(value.getString(index, 0.0));
        case KUtils::PARAM_TRANSFORM: {
            // By its parts: there may be bytes between them that mean nothing.
            const KUtils::TraceTransform transform = value.getTransform(index, 0.0);
            digest.plain(transform.matrix);
            return digest.plain(transform.offset);
        }
        default:
            break;
    }
    if (type != KUtils::PARAM_PLUGIN && !KUtils::isTextureType(type)) return;
    const char* output = nullptr;
    digest.plain(value.getPlugin(index, 0.0, &output));
    digest.text(output);
}

void addLevel(Digest& digest, KelmoPluginParameter& value, ParamType type, int index, int depth) {
    digest.plain(type);
    const int count = value.getCount(0.0);
    digest.plain(count);
    if (count < 0) return addSingle(digest, value, type, index);
    switch (type) {
        case KUtils::PARAM_INT:
        case KUtils::PARAM_BOOL:
            return digest.view(value.getIntList(0.0));
        case KUtils::PARAM_FLOAT:
            return digest.view(value.getFloatList(0.0));
        case KUtils::PARAM_VECTOR:
            return digest.view(value.getVectorList(0.0));
        case KUtils::PARAM_COLOR:
            return digest.view(value.getColorList(0.0));
        case KUtils::PARAM_LIST:
            break;
        default:
            for (int i = 0; i < count; ++i) addSingle(digest, value, type, i);
            return;
    }
    for (int i = 0; i < count && depth < MAX_DEPTH; ++i) {
        const ParamType elementType = value.getType(i, 0.0);
        const KUtils::ListHandle handle = value.openListImpl(i);
        addLevel(digest, value, elementType, i, depth + 1);
        value.closeList(handle);
    }
}

}  // namespace

std::uint64_t valueDigest(KelmoPluginParameter& value) {
    Digest digest;
    addLevel(digest, value, value.getType(-1, 0.0), 0, 0);
    return digest.state;
}

}  // namespace Offline
