#include "params/generic/generic_list_param.h"

namespace KUtils {

GenericSettableListParam::GenericSettableListParam(const char* text) noexcept : name(makeSharedText(text)) {}

GenericSettableListParam::~GenericSettableListParam() {
    path.release();
    ElementLife<ValueRecord>::dispose(&root, 1);
    releaseText(name);
}

bool GenericSettableListParam::keepPrivateTexts() { return KUtils::keepPrivateTexts(root); }

PluginInterface* GenericSettableListParam::getInterface(InterfaceID id) {
    if (static_cast<std::uint32_t>(id) == EXT_SETTABLE_PARAM) return static_cast<KelmoSettableParamInterface*>(this);
    return PluginBase::getInterface(id);
}

// The cursor

// The depth can fall below zero; the root is the current value then too.
ValueRecord& GenericSettableListParam::current() { return path.count > 0 ? *path.data[path.count - 1] : root; }

int GenericSettableListParam::getCount(double) {
    const ListPayload* list = listOf(current());
    return list != nullptr ? list->records.count : -1;
}

ListHandle GenericSettableListParam::openListImpl(int index) {
    ListPayload* list = listOf(current());
    if (list == nullptr || index >= list->records.count) return 0;
    ValueRecord* opened = index >= 0 ? list->records.data + index : &spare;
    const std::int32_t depth = path.count;
    if (!path.resize(std::int64_t{depth} + 1, Growth::Stepped)) return 0;
    if (depth >= 0) {
        path.data[depth] = opened;
    } else {
        // Below zero there is no place for it: the depth rises, the root stays current.
        path.count = depth + 1;
    }
    return reinterpret_cast<ListHandle>(opened);
}

ListHandle GenericSettableListParam::closeList(ListHandle) { return --path.count; }

ParamType GenericSettableListParam::getType(int index, double) {
    if (index < 0) return PARAM_LIST;
    const ValueRecord& value = current();
    const ListPayload* list = listOf(value);
    if (list == nullptr) return value.type;
    const ValueRecord* element = list->records.at(index);
    return element != nullptr ? element->type : PARAM_UNKNOWN;
}

// Which record an index means

const ValueRecord* GenericSettableListParam::recordToRead(int index) {
    ValueRecord& value = current();
    if (const ListPayload* list = listOf(value)) return list->records.at(index);
    if (index < 1) return &value;
    // A single value was opened: the index still means an element of the list that holds it.
    if (path.count <= 0) return nullptr;
    const ValueRecord& holder = path.count == 1 ? root : *path.data[path.count - 2];
    return listOf(holder)->records.at(index);
}

ValueRecord* GenericSettableListParam::recordToWrite(int index) {
    ValueRecord& value = current();
    if (const ListPayload* list = listOf(value)) return list->records.at(index);
    return index <= 0 && &value != &spare ? &value : nullptr;
}

// Counts

void GenericSettableListParam::setCount(int count) {
    ValueRecord& value = current();
    if (&value == &spare) return;
    if (listOf(value) == nullptr && !makeList(value)) return;
    ArrayRecord<ValueRecord>& records = listOf(value)->records;
    if (count > records.count) records.resize(count, Growth::Stepped);
}

void GenericSettableListParam::reserve(int capacity) {
    setCount(capacity);
    ListPayload* list = listOf(current());
    if (list != nullptr && list->records.count >= capacity) list->records.count = 0;
}

}  // namespace KUtils
