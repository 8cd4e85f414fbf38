// The value record of the generic list: a type code and a payload in the core's heap. A payload keeps
// what it was made for: writing another type over a value changes the code only.
//
// Ownership: the record owns its payload, a list payload its records. Text and output name pointers are
// the giver's, except the texts that keepPrivateTexts has copied.
#pragma once

#include <cstdint>

#include "kelmo/param/param_type.h"
#include "kelmo/param/types.h"
#include "kelmo/plugin/plugin_base.h"
#include "params/base/array_record.h"

namespace KUtils {

// What a payload really holds, whatever the type code beside it says.
enum class PayloadKind : std::int32_t {
    None,
    Int,
    Float,
    Double,
    Vector,
    Color,
    AColor,
    Matrix,
    Transform,
    Text,         // a pointer as given
    PrivateText,  // a pointer to a copy of our own
    Plugin,
    List,
};

struct ValueRecord {
    ParamType type = PARAM_UNKNOWN;
    PayloadKind kind = PayloadKind::None;
    void* payload = nullptr;
};

// A payload of type 10.
struct PluginReference {
    PluginBase* plugin;
    const char* outputName;
};

// A payload of type 12.
struct ListPayload {
    ArrayRecord<ValueRecord> records;
    ListPayload* next = nullptr;  // links the lists of one walk through the tree
};

// New records hold nothing; ending a record frees what it owns, however deep.
template <>
struct ElementLife<ValueRecord> {
    static void initialise(ValueRecord* first, std::size_t count);
    static void dispose(ValueRecord* first, std::size_t count);
};

// The bytes that a payload of this kind has.
std::size_t payloadSize(PayloadKind kind);

// Gives the record, which has none, a payload; null payload when memory is short.
void attachPayload(ValueRecord& record, PayloadKind kind, const void* bytes);

// Makes the record a new, empty list instead of what it held; false when memory is short (the record
// is then of type 12 without a payload).
bool makeList(ValueRecord& record);

// The record's list, or null when it is none.
inline ListPayload* listOf(const ValueRecord& record) {
    const bool isList = record.type == PARAM_LIST && record.kind == PayloadKind::List;
    return isList ? static_cast<ListPayload*>(record.payload) : nullptr;
}

// Replaces every text below `root` that is somebody else's by a copy that the record owns. False when
// one could not be copied; it is null then.
bool keepPrivateTexts(ValueRecord& root);

}  // namespace KUtils
