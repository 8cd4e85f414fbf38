// A parameter value for tests of the core: answers the type, the count and the numbers that it is told to.
#pragma once

#include "kelmo/param/plugin_parameter.h"

class TestValue final : public KUtils::KelmoPluginParameter {
  public:
    TestValue(const char* name, KUtils::ParamType type, int count = -1) : name(name), type(type), count(count) {}
    ~TestValue() override { ++destroyed; }

    const char* getName() override { return name; }
    int getCount(double) override { return count; }
    KUtils::ParamType getType(int, double) override { return type; }
    int getInt(int, double) override { return number; }
    float getFloat(int, double) override { return static_cast<float>(number); }
    KUtils::AColor getAColor(int, double) override {
        const float f = static_cast<float>(number);
        return {{f, f, f}, 1.0f};
    }

    const char* name;
    KUtils::ParamType type;
    int count;
    int number = 0;

    static inline int destroyed = 0;
};
