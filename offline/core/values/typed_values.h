// Values whose elements are all of one kind: a single one, a flat list, a list of lists.
#pragma once

#include <type_traits>

#include "core/values/value.h"

namespace Offline {

// The getters of all three, over the element that the derived class picks.
template <class Kind>
class TypedValue : public Value {
  public:
    using Element = typename Kind::Element;

    int getInt(int index, double) override { return Kind::toInt(pick(index)); }
    float getFloat(int index, double) override { return Kind::toFloat(pick(index)); }
    double getDouble(int index, double) override { return Kind::toDouble(pick(index)); }
    bool getBool(int index, double) override { return Kind::toBool(pick(index)); }
    KUtils::Vector getVector(int index, double) override { return Kind::toVector(pick(index)); }
    KUtils::Color getColor(int index, double) override { return Kind::toColor(pick(index)); }
    KUtils::AColor getAColor(int index, double) override { return Kind::toAColor(pick(index)); }
    KUtils::Matrix getMatrix(int index, double) override { return Kind::toMatrix(pick(index)); }
    KUtils::TraceTransform getTransform(int index, double) override { return Kind::toTransform(pick(index)); }
    const char* getString(int index, double) override { return Kind::toText(pick(index)); }
    KUtils::PluginBase* getPlugin(int index, double, const char** outputName) override {
        const Element* element = elementAt(index);
        return element != nullptr ? Kind::toPlugin(*element, outputName) : nullptr;
    }

  protected:
    using Value::Value;

    // The element that an index means at the cursor, or null.
    virtual const Element* elementAt(int index) const = 0;

    static void visit(Element& element, ReferenceVisitor visitor, void* user) {
        if constexpr (std::is_same<Element, PluginRef>::value) {
            visitor(user, element);
        } else {
            (void)element, (void)visitor, (void)user;
        }
    }

    static void release(Array<Element>& elements) {
        for (Element& element : elements) Kind::release(element);
    }

    // Becomes a copy of `from`; false when there is no memory, and then holds only what was copied.
    static bool duplicate(Array<Element>& to, const Array<Element>& from) {
        if constexpr (!std::is_pointer<Element>::value && !std::is_same<Element, PluginRef>::value)
            return to.copy(from);
        for (const Element& element : from) {
            Element copy;
            if (!Kind::duplicate(copy, element)) return false;
            if (to.append(copy)) continue;
            Kind::release(copy);
            return false;
        }
        to.fit();
        return true;
    }

    // The views of those kinds that have one; the others are empty.
    template <class T>
    static KUtils::ListView<T> view(Array<Element>& elements) {
        if constexpr (std::is_same<Element, T>::value) return KUtils::borrowedView(elements.data(), elements.count());
        return KUtils::emptyView<T>();
    }

  private:
    // An element that is not there reads as zero.
    Element pick(int index) const {
        const Element* element = elementAt(index);
        return element != nullptr ? *element : Element{};
    }
};

// One element. It is no list, and every index means it.
template <class Kind>
class SingleValue : public TypedValue<Kind> {
  public:
    using typename TypedValue<Kind>::Element;

    // Takes over what belongs to the element.
    SingleValue(ValueName name, Element element, KUtils::ParamType code = Kind::CODE)
        : TypedValue<Kind>(name, code), value(element) {}
    ~SingleValue() override { Kind::release(value); }

    KUtils::ParamType getType(int, double) override { return this->code; }
    void eachReference(Value::ReferenceVisitor visitor, void* user) override { this->visit(value, visitor, user); }

  protected:
    const Element* elementAt(int) const override { return &value; }

    template <class Self>
    static Value* copyAs(const Self& from) {
        Element element;
        if (!Kind::duplicate(element, from.value)) return nullptr;
        auto* copy = new Self(from.nameToCopy(), element, from.code);
        if (copy == nullptr) {
            Kind::release(element);
        } else if (!copy->hasNameOf(from)) {
            delete copy;
            copy = nullptr;
        }
        return copy;
    }

  private:
    Element value;
};

// A flat list. Its type is that of its elements whatever the index; only the count tells that it is a list.
template <class Kind>
class FlatList : public TypedValue<Kind> {
  public:
    using typename TypedValue<Kind>::Element;

    // Takes the elements and what belongs to them.
    FlatList(ValueName name, Array<Element>&& list, KUtils::ParamType code = Kind::CODE)
        : TypedValue<Kind>(name, code), elements(static_cast<Array<Element>&&>(list)) {}
    ~FlatList() override { this->release(elements); }

    int getCount(double) override { return depth == 0 ? elements.count() : -1; }
    KUtils::ListHandle openListImpl(int) override {
        ++depth;
        return 0;
    }
    KUtils::ListHandle closeList(KUtils::ListHandle) override {
        --depth;
        return 0;
    }
    KUtils::ParamType getType(int, double) override { return this->code; }
    KUtils::ListView<std::int32_t> getIntList(double) override { return this->template view<std::int32_t>(elements); }
    KUtils::ListView<float> getFloatList(double) override { return this->template view<float>(elements); }
    KUtils::ListView<KUtils::Vector> getVectorList(double) override {
        return this->template view<KUtils::Vector>(elements);
    }
    KUtils::ListView<KUtils::Color> getColorList(double) override {
        return this->template view<KUtils::Color>(elements);
    }
    void eachReference(Value::ReferenceVisitor visitor, void* user) override {
        for (Element& element : elements) this->visit(element, visitor, user);
    }

  protected:
    const Element* elementAt(int index) const override { return elements.has(index) ? &elements[index] : nullptr; }

    template <class Self>
    static Value* copyAs(const Self& from) {
        auto* copy = new Self(from.nameToCopy(), Array<Element>(), from.code);
        if (copy != nullptr && !(copy->hasNameOf(from) && TypedValue<Kind>::duplicate(copy->elements, from.elements))) {
            delete copy;
            copy = nullptr;
        }
        return copy;
    }

  private:
    Array<Element> elements;
    std::int32_t depth = 0;
};

// One list of a list of lists.
template <class Element>
struct SubList {
    Array<Element> elements;
    bool absent = false;
};

// Owner of the lists of a list of lists. The records themselves are made and destroyed here.
template <class Kind>
class SubLists {
  public:
    using Element = typename Kind::Element;
    using List = SubList<Element>;

    SubLists() = default;
    SubLists(SubLists&& other) noexcept : lists(static_cast<Array<List*>&&>(other.lists)) {}
    SubLists& operator=(SubLists&&) = delete;
    ~SubLists() {
        for (List* list : lists) {
            for (Element& element : list->elements) Kind::release(element);
            list->~List();
            kelmo_free(list, sizeof(List));
        }
    }

    // A new list at the end; null when there is no memory.
    List* append() {
        void* memory = kelmo_malloc(sizeof(List));
        if (memory == nullptr) return nullptr;
        auto* list = ::new (memory) List();
        if (lists.append(list)) return list;
        list->~List();
        kelmo_free(memory, sizeof(List));
        return nullptr;
    }

    std::int32_t count() const { return lists.count(); }
    List* at(int index) const { return lists.has(index) ? lists[index] : nullptr; }

  private:
    Array<List*> lists;
};

template <class Kind>
class ListOfLists : public TypedValue<Kind> {
  public:
    using typename TypedValue<Kind>::Element;

    // `elementCode` is what the elements of the lists answer.
    ListOfLists(ValueName name, SubLists<Kind>&& content, KUtils::ParamType elementCode = Kind::CODE)
        : TypedValue<Kind>(name, elementCode), lists(static_cast<SubLists<Kind>&&>(content)) {}

    int getCount(double) override {
        if (depth == 0) return lists.count();
        const SubList<Element>* list = opened();
        return depth == 1 && list != nullptr ? list->elements.count() : -1;
    }
    KUtils::ListHandle openListImpl(int index) override {
        if (depth++ != 0) return 0;
        current = index;
        return depth;
    }
    KUtils::ListHandle closeList(KUtils::ListHandle) override { return depth < 1 ? depth : --depth; }
    KUtils::ParamType getType(int index, double) override {
        return depth == 0 || (depth == 1 && index == -1) ? KUtils::PARAM_LIST : this->code;
    }
    KUtils::ListView<std::int32_t> getIntList(double) override { return openedView<std::int32_t>(); }
    KUtils::ListView<float> getFloatList(double) override { return openedView<float>(); }
    KUtils::ListView<KUtils::Vector> getVectorList(double) override { return openedView<KUtils::Vector>(); }
    void eachReference(Value::ReferenceVisitor visitor, void* user) override {
        for (int i = 0; i < lists.count(); ++i)
            for (Element& element : lists.at(i)->elements) this->visit(element, visitor, user);
    }

  protected:
    const Element* elementAt(int index) const override {
        const SubList<Element>* list = opened();
        return list != nullptr && list->elements.has(index) ? &list->elements[index] : nullptr;
    }

    template <class Self>
    static Value* copyAs(const Self& from) {
        SubLists<Kind> lists;
        for (int i = 0; i < from.lists.count(); ++i) {
            SubList<Element>* list = lists.append();
            if (list == nullptr || !TypedValue<Kind>::duplicate(list->elements, from.lists.at(i)->elements))
                return nullptr;
            list->absent = from.lists.at(i)->absent;
        }
        auto* copy = new Self(from.nameToCopy(), static_cast<SubLists<Kind>&&>(lists), from.code);
        if (copy != nullptr && !copy->hasNameOf(from)) {
            delete copy;
            copy = nullptr;
        }
        return copy;
    }

  private:
    // The opened list; null at depth 0, and when it is absent.
    SubList<Element>* opened() const {
        SubList<Element>* list = depth >= 1 ? lists.at(current) : nullptr;
        return list != nullptr && !list->absent ? list : nullptr;
    }

    template <class T>
    KUtils::ListView<T> openedView() {
        SubList<Element>* list = opened();
        return list != nullptr ? this->template view<T>(list->elements) : KUtils::emptyView<T>();
    }

    SubLists<Kind> lists;
    std::int32_t depth = 0;
    std::int32_t current = 0;
};

}  // namespace Offline
