// A walk over the generic list, each step compared with a plain model of its rules. A source of steps says what is
// done: below(limit), between(from, to), and more() before each step.
#pragma once

#include <cstring>
#include <memory>
#include <vector>

#include "check.h"
#include "helpers/value_classes.h"

namespace generic_walk {

using namespace value_classes;

enum Kind { Nothing, Bytes, Text, Reference, List };

struct Node {
    int type = 10000;
    Kind kind = Nothing;
    std::vector<unsigned char> bytes;  // of the payload, as it was given
    std::vector<Node> block;           // of a list, as long as its capacity
    int count = 0;

    bool isList() const { return type == 12 && kind == List; }
    Node* at(int index) { return index >= 0 && index < count ? &block[static_cast<std::size_t>(index)] : nullptr; }

    void store(int newType, Kind newKind, const void* payload, std::size_t size) {
        type = newType;
        if (kind != Nothing) return;
        kind = newKind;
        const auto* first = static_cast<const unsigned char*>(payload);
        bytes.assign(first, first + size);
    }
    void setCount(int n) {
        if (!isList()) {
            *this = Node();
            type = 12;
            kind = List;
        }
        if (n <= count) return;
        if (n > static_cast<int>(block.size())) {
            block.resize(static_cast<std::size_t>(count));
            block.resize(static_cast<std::size_t>((n / 100 + 1) * 100));
        }
        count = n;
    }
    // The payload as a number, when it is of this type and long enough.
    template <class T>
    T number(int wanted) const {
        T value{};
        if (type == wanted && bytes.size() >= sizeof value) std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }
    const char* text() const {
        if (type != 9 || kind != Text) return nullptr;
        const char* value;
        std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }
};

struct Model {
    Node root;
    std::vector<Node*> path;
    int depth = 0;
    Node spare;

    Node* record(int level) { return level <= 0 ? &root : path[static_cast<std::size_t>(level - 1)]; }
    Node* current() { return record(depth); }

    bool open(int index) {
        Node* here = current();
        if (!here->isList() || index >= here->count) return false;
        Node* opened = index < 0 ? &spare : here->at(index);
        ++depth;
        path.resize(static_cast<std::size_t>(depth > 0 ? depth : 0));
        if (depth > 0) path.back() = opened;
        return true;
    }
    void close() { --depth; }
    int type(int index) {
        if (index < 0) return 12;
        Node* here = current();
        if (!here->isList()) return here->type;
        return here->at(index) != nullptr ? here->at(index)->type : 10000;
    }
    const Node* toRead(int index) {
        Node* here = current();
        if (here->isList()) return here->at(index);
        if (index < 1) return here;
        if (depth < 1) return nullptr;
        Node* holder = record(depth - 1);
        return holder->isList() ? holder->at(index) : nullptr;
    }
    Node* toWrite(int index) {
        Node* here = current();
        if (here->isList()) return here->at(index);
        return index <= 0 && here != &spare ? here : nullptr;
    }
};

// What the getters of both must agree on. A list payload under another type is not looked into here, nor a text's under
// one once the value `keeps` its own copies: what is read there is an address.
inline void compare(KelmoPluginParameter& value, Model& model, bool keeps) {
    CHECK_EQ(value.getCount(0.0), model.current()->isList() ? model.current()->count : -1);
    for (int i = -1; i < 6; ++i) {
        CHECK_EQ(static_cast<int>(value.getType(i, 0.0)), model.type(i));
        const Node empty;
        const Node* found = model.toRead(i);
        const Node& node = found != nullptr ? *found : empty;
        CHECK_TEXT(value.getString(i, 0.0), node.text());
        const char* output = "untouched";
        PluginBase* plugin = value.getPlugin(i, 0.0, &output);
        const bool isReference = node.type == 10 && node.kind == Reference;
        CHECK(plugin == (isReference ? &describe::lamp : nullptr));
        CHECK_TEXT(output, isReference ? "out" : node.type == 10 ? nullptr : "untouched");
        if (node.kind == List || (keeps && node.kind == Text)) continue;
        CHECK_EQ(value.getInt(i, 0.0), node.number<std::int32_t>(0));
        CHECK_EQ(value.getBool(i, 0.0), node.number<std::int32_t>(0) != 0);
        const float single = node.number<float>(1);
        const float read = value.getFloat(i, 0.0);
        CHECK(std::memcmp(&read, &single, sizeof read) == 0);
        if (node.type != 2) continue;
        const double wide = node.number<double>(2);
        const double wideRead = value.getDouble(i, 0.0);
        CHECK(std::memcmp(&wideRead, &wide, sizeof wideRead) == 0);
    }
}

inline void write(KelmoSettableParamInterface& settable, Node* target, int which, int number, int index) {
    static const char* const texts[] = {"a", "b", "c"};
    switch (which) {
        case 0: {
            settable.setInt(number, index, 0.0);
            if (target != nullptr) target->store(0, Bytes, &number, sizeof number);
            break;
        }
        case 1: {
            const float single = static_cast<float>(number) + 0.5f;
            settable.setFloat(single, index, 0.0);
            if (target != nullptr) target->store(1, Bytes, &single, sizeof single);
            break;
        }
        case 2: {
            const double wide = number + 0.25;
            settable.setDouble(wide, index, 0.0);
            if (target != nullptr) target->store(2, Bytes, &wide, sizeof wide);
            break;
        }
        case 3: {
            const char* text = texts[number % 3];
            settable.setString(text, index, 0.0);
            if (target != nullptr) target->store(9, Text, &text, sizeof text);
            break;
        }
        case 4: {
            const PluginReference reference{&describe::lamp, "out"};
            settable.setPluginOutput(reference.plugin, reference.outputName, index, 0.0);
            if (target != nullptr) target->store(10, Reference, &reference, sizeof reference);
            break;
        }
        default: {
            const Vector vector{static_cast<float>(number), 1, 2};
            settable.setVector(vector, index, 0.0);
            if (target != nullptr) target->store(4, Bytes, &vector, sizeof vector);
            break;
        }
    }
}

template <class Steps>
void walk(Steps& random) {
    auto model = std::make_unique<Model>();
    GenericSettableListParam value("anything");
    KelmoSettableParamInterface& settable = settableOf(value);
    while (random.more()) {
        const int index = random.between(-1, 5);
        switch (random.below(8)) {
            case 0:
            case 1:
            case 2:
                CHECK_EQ(value.openList(index) != 0, model->open(index));
                break;
            case 3:
                if (model->depth < 1 && random.below(4) != 0) break;
                value.closeList(0);
                model->close();
                break;
            case 4: {
                const int count = random.below(16) == 0 ? random.between(90, 220) : index;
                settable.setCount(count);
                if (model->current() != &model->spare) model->current()->setCount(count);
                break;
            }
            case 5:
                if (random.below(4) != 0 || model->current() == &model->spare) break;
                settable.reserve(index);
                model->current()->setCount(index);
                model->current()->count = 0;
                break;
            default:
                write(settable, model->toWrite(index), random.below(6), random.between(0, 99), index);
                break;
        }
        compare(value, *model, false);
    }
    CHECK(value.keepPrivateTexts());
    compare(value, *model, true);
}

}  // namespace generic_walk
