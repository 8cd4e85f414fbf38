#include "params/nested/list_of_lists_param.h"

#include <type_traits>

#include "params/base/param_base.h"
#include "params/base/value_type.h"

namespace KUtils {

namespace {

// A new, empty sublist; null when memory is short.
template <class T>
ArrayRecord<T>* newSublist() {
    auto* list = static_cast<ArrayRecord<T>*>(kelmo_malloc(sizeof(ArrayRecord<T>)));
    if (list != nullptr) *list = ArrayRecord<T>{0, 1, 0, nullptr};
    return list;
}

template <class T>
void freeSublist(ArrayRecord<T>* list) {
    if (list == nullptr) return;
    list->release();
    kelmo_free(list, sizeof(ArrayRecord<T>));
}

}  // namespace

// Construction and destruction

template <class T>
DefListOfListsParam<T>::DefListOfListsParam(const char* text, bool copied) noexcept
    : depth(0), currentList(0), secondIndex(0), name(copied ? copyText(text) : text), ownsName(copied ? 1 : 0) {
    lists.step = 1;
}

template <class T>
DefListOfListsParam<T>::DefListOfListsParam(const DefListOfListsParam& source) noexcept
    : KelmoPluginParameter(source),
      KelmoCloneableParamInterface(source),
      KelmoSettableParamInterface(source),
      depth(source.depth),
      currentList(source.currentList),
      secondIndex(source.secondIndex),
      name(source.ownsName != 0 ? copyText(source.name) : source.name),
      ownsName(source.ownsName) {
    lists.step = 1;
    if (!lists.resize(source.lists.count, Growth::Exact)) return;
    for (std::int32_t i = 0; i < lists.count; ++i) {
        Sublist* copy = newSublist<T>();
        if (copy != nullptr && source.lists.data[i] != nullptr) copy->copyElements(*source.lists.data[i]);
        lists.data[i] = copy;
    }
}

template <class T>
DefListOfListsParam<T>::~DefListOfListsParam() {
    for (std::int32_t i = 0; i < lists.count; ++i) freeSublist(lists.data[i]);
    lists.release();
    if (ownsName != 0) freeText(const_cast<char*>(name));
}

template <class T>
bool DefListOfListsParam<T>::isWholeCopyOf(const DefListOfListsParam& source) const {
    if ((name == nullptr) != (source.name == nullptr) || lists.count != source.lists.count) return false;
    for (std::int32_t i = 0; i < lists.count; ++i) {
        const Sublist* from = source.lists.data[i];
        if (lists.data[i] == nullptr || lists.data[i]->count != (from != nullptr ? from->count : 0)) return false;
    }
    return true;
}

template <class T>
PluginInterface* DefListOfListsParam<T>::getInterface(InterfaceID id) {
    PluginInterface* part = settableOrCloneable(*this, id);
    return part != nullptr ? part : PluginBase::getInterface(id);
}

// The cursor

template <class T>
int DefListOfListsParam<T>::getCount(double) {
    if (depth == 0) return lists.count;
    const Sublist* list = depth == 1 ? openedList() : nullptr;
    return list != nullptr ? list->count : -1;
}

template <class T>
ListHandle DefListOfListsParam<T>::openListImpl(int index) {
    if (depth++ != 0) return 0;
    currentList = index;
    return depth;
}

template <class T>
ListHandle DefListOfListsParam<T>::closeList(ListHandle) {
    if (depth > 0) --depth;
    return depth;
}

template <class T>
ParamType DefListOfListsParam<T>::getType(int index, double) {
    if (depth == 0 || (depth == 1 && index == -1)) return PARAM_LIST;
    return ValueType<T>::code;
}

// Reading: each variant answers its own type only

template <class T>
template <class Wanted>
Wanted DefListOfListsParam<T>::read([[maybe_unused]] int index) const {
    if constexpr (std::is_same<T, Wanted>::value) {
        const Sublist* list = openedList();
        const T* element = list != nullptr ? list->at(index) : nullptr;
        if (element != nullptr) return *element;
    }
    return Wanted{};
}

template <class T>
template <class Wanted>
ListView<Wanted> DefListOfListsParam<T>::view() const {
    if constexpr (std::is_same<T, Wanted>::value) {
        const Sublist* list = openedList();
        if (list != nullptr) return list->view();
    }
    return emptyView<Wanted>();
}

// Writing: with the conversions of the flat lists, but only at depth 1 and only over an element

template <class T>
T* DefListOfListsParam<T>::elementToWrite(int index) {
    const Sublist* list = depth == 1 ? openedList() : nullptr;
    return list != nullptr ? list->at(index) : nullptr;
}

template <class T>
template <class Given>
void DefListOfListsParam<T>::write([[maybe_unused]] const Given& value, [[maybe_unused]] int index) {
    if constexpr (HasWrite<T, Given>::value) {
        T* element = elementToWrite(index);
        if (element != nullptr) ValueType<T>::write(*element, value);
    }
}

template <class T>
void DefListOfListsParam<T>::setPluginOutput([[maybe_unused]] PluginBase* plugin, const char*,
                                             [[maybe_unused]] int index, double) {
    if constexpr (std::is_same<T, PluginBase*>::value) {
        T* element = elementToWrite(index);
        if (element != nullptr) *element = plugin;
    }
}

// Counts

template <class T>
void DefListOfListsParam<T>::setCount(int count) {
    if (depth == 0) {
        replaceLists(count);
    } else if (depth == 1) {
        Sublist* list = openedList();
        if (list != nullptr) list->resize(count, Growth::Exact);
    }
}

template <class T>
void DefListOfListsParam<T>::replaceLists(int count) {
    const std::int32_t before = lists.count;
    if (!lists.resize(count, Growth::Exact)) return;
    for (std::int32_t i = 0; i < before; ++i) {
        freeSublist(lists.data[i]);
        lists.data[i] = nullptr;
    }
    for (std::int32_t i = 0; i < lists.count; ++i) lists.data[i] = newSublist<T>();
}

template class DefListOfListsParam<std::int32_t>;
template class DefListOfListsParam<float>;
template class DefListOfListsParam<Vector>;
template class DefListOfListsParam<PluginBase*>;

KelmoPluginParameter* DefListOfListIntParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefListOfListFloatParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefListOfListVectorParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefListOfListPluginParam::clone() { return wholeCopy(*this); }

}  // namespace KUtils
