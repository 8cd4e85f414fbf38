// Short ways to make the core's values.
#pragma once

#include <initializer_list>

#include "core/values/map_channels.h"
#include "core/values/mixed_list.h"
#include "core/values/typed_values.h"

template <class Kind>
Offline::Value* single(typename Kind::Element element, bool rigid = false) {
    return Offline::makeValue<Offline::SingleValue<Kind>>(rigid, {"name", false}, element);
}

template <class Kind>
Offline::Value* flat(std::initializer_list<typename Kind::Element> elements, bool rigid = false) {
    Offline::Array<typename Kind::Element> array;
    for (const auto& element : elements) array.append(element);
    return Offline::makeValue<Offline::FlatList<Kind>>(rigid, {"name", false}, std::move(array));
}

// The list at `absent` is none at all; -1: all are there.
template <class Kind>
Offline::Value* lists(std::initializer_list<std::initializer_list<typename Kind::Element>> content, int absent,
                      bool rigid = false) {
    Offline::SubLists<Kind> all;
    for (const auto& elements : content) {
        auto* list = all.append();
        list->absent = all.count() - 1 == absent;
        for (const auto& element : elements) list->elements.append(element);
    }
    return Offline::makeValue<Offline::ListOfLists<Kind>>(rigid, {"name", false}, std::move(all));
}
