// A parameter value of the tests: a tree of typed values, read like any foreign value.
#pragma once

#include <vector>

#include "kelmo/param/plugin_parameter.h"

// A value: a number from which every numeric kind is made, a text, a plugin, or a list.
struct Node {
    int type = KUtils::PARAM_UNKNOWN;
    double number = 0;
    const char* text = nullptr;  // a string, or the output's name
    KUtils::PluginBase* plugin = nullptr;
    bool isList = false;
    std::vector<Node> elements;
};

inline Node number(int type, double value) { return Node{type, value, nullptr, nullptr, false, {}}; }
inline Node string(const char* value) { return Node{KUtils::PARAM_STRING, 0, value, nullptr, false, {}}; }
inline Node reference(int type, KUtils::PluginBase* plugin, const char* output = nullptr) {
    return Node{type, 0, output, plugin, false, {}};
}
inline Node list(int type, std::vector<Node> elements) {
    return Node{type, 0, nullptr, nullptr, true, std::move(elements)};
}

// Answers a getter whatever the value's type is: who reads decides by getType.
class TreeSource : public KUtils::KelmoPluginParameter {
  public:
    explicit TreeSource(Node tree, const char* paramName = "param") : root(std::move(tree)), name(paramName) {}

    const char* getName() override { return name; }
    int getCount(double) override { return current().isList ? static_cast<int>(current().elements.size()) : -1; }
    KUtils::ListHandle openListImpl(int index) override {
        ++opens;
        const Node& node = current();
        if (!node.isList || index < 0 || index >= static_cast<int>(node.elements.size())) return 0;
        path.push_back(&node.elements[static_cast<std::size_t>(index)]);
        return static_cast<KUtils::ListHandle>(path.size());
    }
    KUtils::ListHandle closeList(KUtils::ListHandle handle) override {
        if (handle != 0) path.pop_back();
        return 0;
    }
    KUtils::ParamType getType(int index, double) override {
        const Node& node = current();
        if (!node.isList) return static_cast<KUtils::ParamType>(node.type);
        if (index < 0 || index >= static_cast<int>(node.elements.size())) return KUtils::PARAM_UNKNOWN;
        return static_cast<KUtils::ParamType>(node.elements[static_cast<std::size_t>(index)].type);
    }
    int getInt(int index, double) override { return static_cast<int>(at(index).number); }
    float getFloat(int index, double) override { return static_cast<float>(at(index).number); }
    double getDouble(int index, double) override { return at(index).number; }
    bool getBool(int index, double) override { return at(index).number != 0; }
    KUtils::Vector getVector(int index, double time) override {
        const float first = getFloat(index, time);
        return {first, first + 1, first + 2};
    }
    KUtils::Color getColor(int index, double time) override {
        const float first = getFloat(index, time);
        return {first, first + 1, first + 2};
    }
    KUtils::AColor getAColor(int index, double time) override { return {getColor(index, time), 0.25f}; }
    KUtils::Matrix getMatrix(int index, double time) override {
        const KUtils::Vector column = getVector(index, time);
        return {{column, {column.y, column.z, column.x}, {column.z, column.x, column.y}}};
    }
    KUtils::TraceTransform getTransform(int index, double time) override {
        return {getMatrix(index, time), {0.1, 0.2, getDouble(index, time)}};
    }
    const char* getString(int index, double) override { return at(index).text; }
    KUtils::PluginBase* getPlugin(int index, double, const char** outputName) override {
        askedForOutput = outputName != nullptr;
        if (outputName != nullptr) *outputName = at(index).text;
        return at(index).plugin;
    }

    std::size_t depth() const { return path.size(); }
    int opens = 0;
    bool askedForOutput = false;

  private:
    const Node& current() const { return path.empty() ? root : *path.back(); }
    const Node& at(int index) const {
        const Node& node = current();
        return node.isList ? node.elements.at(static_cast<std::size_t>(index)) : node;
    }

    Node root;
    const char* name;
    std::vector<const Node*> path;
};
