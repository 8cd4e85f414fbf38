// Value objects made by hand, as somebody outside the core would make them.
#pragma once

#include <string>
#include <vector>

#include "kelmo/param/plugin_parameter.h"

namespace stub {

// Counts the living objects of the classes here.
inline int& alive() {
    static int count = 0;
    return count;
}

class Named : public KUtils::KelmoPluginParameter {
  public:
    explicit Named(std::string text) : name(std::move(text)) { ++alive(); }
    ~Named() override { --alive(); }
    const char* getName() override { return name.c_str(); }

  private:
    std::string name;
};

class Int final : public Named {
  public:
    Int(std::string name, int number) : Named(std::move(name)), value(number) {}
    int getInt(int, double) override { return value; }
    float getFloat(int, double) override { return static_cast<float>(value); }
    KUtils::ParamType getType(int, double) override { return KUtils::PARAM_INT; }
    int value;
};

class Float final : public Named {
  public:
    Float(std::string name, float number) : Named(std::move(name)), value(number) {}
    float getFloat(int, double) override { return value; }
    KUtils::ParamType getType(int, double) override { return KUtils::PARAM_FLOAT; }
    float value;
};

class String final : public Named {
  public:
    String(std::string name, const char* text) : Named(std::move(name)), value(text) {}
    const char* getString(int, double) override { return value; }
    KUtils::ParamType getType(int, double) override { return KUtils::PARAM_STRING; }
    const char* value;
};

class Reference final : public Named {
  public:
    Reference(std::string name, KUtils::PluginBase* target, const char* outputName)
        : Named(std::move(name)), plugin(target), output(outputName) {}
    KUtils::PluginBase* getPlugin(int, double, const char** outputName) override {
        if (outputName != nullptr && output != nullptr) *outputName = output;
        return plugin;
    }
    KUtils::ParamType getType(int, double) override { return KUtils::PARAM_PLUGIN; }
    KUtils::PluginBase* plugin;
    const char* output;
};

class IntList final : public Named {
  public:
    IntList(std::string name, std::vector<std::int32_t> numbers) : Named(std::move(name)), values(std::move(numbers)) {}
    int getCount(double) override { return static_cast<int>(values.size()); }
    KUtils::ListView<std::int32_t> getIntList(double) override {
        return KUtils::borrowedView(values.data(), static_cast<std::int32_t>(values.size()));
    }
    KUtils::ParamType getType(int, double) override { return KUtils::PARAM_INT; }
    std::vector<std::int32_t> values;
};

// A list of which every element is a list again, however deep one goes.
class Endless final : public Named {
  public:
    explicit Endless(std::string name) : Named(std::move(name)) {}
    int getCount(double) override { return 1; }
    KUtils::ParamType getType(int, double) override { return KUtils::PARAM_LIST; }
};

}  // namespace stub
