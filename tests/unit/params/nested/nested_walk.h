// Walks over lists of lists and map channels, each step compared with a plain model. A source of steps says what is
// done: below(limit), between(from, to), and more() before each step.
#pragma once

#include <vector>

#include "check.h"
#include "helpers/model_array.h"
#include "helpers/value_classes.h"

namespace nested_walk {

using namespace value_classes;

// Numbers 0 to 15 stand for the elements of every class; 0 is the zero answer.
inline describe::NamedThing things[15] = {
    describe::NamedThing("1"), describe::NamedThing("2"), describe::NamedThing("3"), describe::NamedThing("4"),
    describe::NamedThing("5"), describe::NamedThing("6"), describe::NamedThing("7"), describe::NamedThing("8"),
    describe::NamedThing("9"), describe::NamedThing("a"), describe::NamedThing("b"), describe::NamedThing("c"),
    describe::NamedThing("d"), describe::NamedThing("e"), describe::NamedThing("f")};

inline void set(ParamType type, KelmoSettableParamInterface& settable, int number, int index) {
    const float single = static_cast<float>(number);
    switch (type) {
        case PARAM_INT:
            settable.setInt(number, index, 0.0);
            break;
        case PARAM_FLOAT:
            settable.setFloat(single, index, 0.0);
            break;
        case PARAM_VECTOR:
            settable.setVector(Vector{single, single, single}, index, 0.0);
            break;
        default:
            settable.setPlugin(number == 0 ? nullptr : &things[number - 1], index, 0.0);
            break;
    }
}

inline int get(ParamType type, KelmoPluginParameter& value, int index) {
    switch (type) {
        case PARAM_INT:
            return value.getInt(index, 0.0);
        case PARAM_FLOAT:
            return static_cast<int>(value.getFloat(index, 0.0));
        case PARAM_VECTOR:
            return static_cast<int>(value.getVector(index, 0.0).z);
        default: {
            PluginBase* plugin = value.getPlugin(index, 0.0, nullptr);
            return plugin == nullptr ? 0 : static_cast<int>(static_cast<describe::NamedThing*>(plugin) - things) + 1;
        }
    }
}

struct ListsModel {
    std::vector<ModelArray> lists;
    int depth = 0;
    int current = 0;

    ModelArray* opened() {
        const bool there = depth >= 1 && current >= 0 && current < static_cast<int>(lists.size());
        return there ? &lists[static_cast<std::size_t>(current)] : nullptr;
    }
    int count() {
        if (depth == 0) return static_cast<int>(lists.size());
        return depth == 1 && opened() != nullptr ? opened()->count : -1;
    }
    int type(int index, int element) const { return depth == 0 || (depth == 1 && index == -1) ? 12 : element; }
    int open(int index) {
        if (depth == 0) current = index;
        ++depth;
        return depth == 1 ? 1 : 0;
    }
    int close() { return depth < 1 ? depth : --depth; }
    void setCount(int n) {
        if (depth == 0) lists.assign(static_cast<std::size_t>(n < 0 ? 0 : n), ModelArray());
        if (depth == 1 && opened() != nullptr) opened()->setCount(n);
    }
    void store(int number, int index) {
        if (depth == 1 && opened() != nullptr && opened()->holds(index))
            opened()->block[static_cast<std::size_t>(index)] = number;
    }
};

template <class Steps>
void walkLists(const NestedClass& row, Steps& random) {
    ListsModel model;
    Owned value(row.make("frames", true));
    const int element = static_cast<int>(row.elementType);
    while (random.more()) {
        const int index = random.between(-2, 6);
        switch (random.below(8)) {
            case 0:
            case 1:
                CHECK_EQ(value->openList(index), ListHandle{model.open(index)});
                break;
            case 2:
            case 3:
                CHECK_EQ(value->closeList(0), ListHandle{model.close()});
                break;
            case 4:
                // Mostly inside a list, so that the lists live for a while.
                if (model.depth == 0 && random.below(8) != 0) break;
                settableOf(*value).setCount(index);
                model.setCount(index);
                break;
            case 5:
                if (random.below(16) != 0) break;
                settableOf(*value).reserve(index);
                model.setCount(index);
                break;
            case 6: {
                if (random.below(32) != 0) break;
                KelmoPluginParameter* copy = cloneOf(*value);
                delete value.value;
                value.value = copy;
                for (ModelArray& list : model.lists) list.block.resize(static_cast<std::size_t>(list.count));
                break;
            }
            default: {
                const int number = random.below(16);
                set(row.elementType, settableOf(*value), number, index);
                model.store(number, index);
                break;
            }
        }
        CHECK_EQ(value->getCount(0.0), model.count());
        for (int i = -2; i < 7; ++i) {
            CHECK_EQ(static_cast<int>(value->getType(i, 0.0)), model.type(i, element));
            CHECK_EQ(get(row.elementType, *value, i), model.opened() != nullptr ? model.opened()->at(i) : 0);
        }
    }
}

struct ChannelModel {
    int number = 0;
    ModelArray vertices;
    ModelArray faces;
};

struct MapModel {
    std::vector<ChannelModel> block;
    int count = 0;
    int depth = 0, channel = 0, part = 0;

    ChannelModel* opened() {
        return channel >= 0 && channel < count ? &block[static_cast<std::size_t>(channel)] : nullptr;
    }
    // The array under the cursor: 1 the vertices, 2 the faces.
    ModelArray* array(int wanted) {
        if (depth != 2 || part != wanted || opened() == nullptr) return nullptr;
        return wanted == 1 ? &opened()->vertices : &opened()->faces;
    }
    int countHere() {
        if (depth == 1) return 3;
        if (depth != 2 || part < 0 || part > 2) return count;
        if (part == 0 || opened() == nullptr) return -1;
        return array(part)->count;
    }
    int typeOfPart(int index) const { return index == 1 ? 4 : index == 0 || index == 2 ? 0 : 10000; }
    int type(int index) const {
        if (depth == 0) return 12;
        if (index != -1) return typeOfPart(index);
        return depth == 1 ? 12 : typeOfPart(part);
    }
    void setCount(int n, bool reserve) {
        if (n < 0) n = 0;
        if (depth == 0) {
            if (n > static_cast<int>(block.size())) {
                block.resize(static_cast<std::size_t>(count));
                block.resize(static_cast<std::size_t>(n));
            }
            count = reserve ? 0 : n;
        }
        for (int wanted : {1, 2}) {
            if (array(wanted) == nullptr) continue;
            array(wanted)->setCount(n);
            if (reserve) array(wanted)->count = 0;
        }
    }
    void copyExactly() {
        block.resize(static_cast<std::size_t>(count));
        for (ChannelModel& each : block) {
            each.vertices.block.resize(static_cast<std::size_t>(each.vertices.count));
            each.faces.block.resize(static_cast<std::size_t>(each.faces.count));
        }
        depth = channel = part = 0;
    }
};

template <class Steps>
void walkChannels(Steps& random) {
    MapModel model;
    Owned value(makeMapChannels("map_channels", true));
    while (random.more()) {
        const int index = random.between(-1, 4);
        const int number = random.between(1, 1000);
        switch (random.below(9)) {
            case 0:
            case 1:
                if (model.depth > 2 && random.below(4) != 0) break;
                CHECK_EQ(value->openList(index), ListHandle{++model.depth});
                if (model.depth == 1) model.channel = index;
                if (model.depth == 2) model.part = index;
                break;
            case 2:
                if (model.depth < 1 && random.below(4) != 0) break;
                CHECK_EQ(value->closeList(0), ListHandle{--model.depth});
                break;
            case 3:
                settableOf(*value).setCount(index);
                model.setCount(index, false);
                break;
            case 4:
                settableOf(*value).reserve(index);
                model.setCount(index, true);
                break;
            case 5: {
                if (random.below(32) != 0) break;
                KelmoPluginParameter* copy = cloneOf(*value);
                delete value.value;
                value.value = copy;
                model.copyExactly();
                break;
            }
            case 6:
                settableOf(*value).setVector(Vector{static_cast<float>(number), 2, 3}, index, 0.0);
                if (model.array(1) != nullptr) model.array(1)->store(number, index);
                break;
            default:
                settableOf(*value).setInt(number, index, 0.0);
                if (model.depth == 1 && model.opened() != nullptr) model.opened()->number = number;
                if (model.array(2) != nullptr) model.array(2)->store(number, index);
                break;
        }
        CHECK_EQ(value->getCount(0.0), model.countHere());
        for (int i = -2; i < 5; ++i) CHECK_EQ(static_cast<int>(value->getType(i, 0.0)), model.type(i));
        const bool numbered = (model.depth == 1 || model.depth == 2) && model.opened() != nullptr;
        CHECK_EQ(value->getInt(index, 0.0), numbered ? model.opened()->number : 0);
        const ListView<Vector> vertices = value->getVectorList(0.0);
        const ListView<std::int32_t> faces = value->getIntList(0.0);
        CHECK_EQ(vertices.count, model.array(1) != nullptr ? model.array(1)->count : 0);
        CHECK_EQ(faces.count, model.array(2) != nullptr ? model.array(2)->count : 0);
        for (int i = 0; i < vertices.count; ++i) CHECK_EQ(static_cast<int>(vertices.data[i].x), model.array(1)->at(i));
        for (int i = 0; i < faces.count; ++i) CHECK_EQ(faces.data[i], model.array(2)->at(i));
    }
}

}  // namespace nested_walk
