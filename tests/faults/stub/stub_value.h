// The values that plugins of the stub renderer carry: one of every kind, single and in lists. Each of their operations
// says that it was reached.
#pragma once

#include <vector>

#include "kelmo/param/settable.h"

namespace stub {

void reach(const char* operation);
bool answersNoClones();

// A value that is carried: its name, the type code that it answers, the one that is declared, and its shape.
struct Carried {
    const char* name;
    int code;
    int declared;
    bool isList;
    bool clones;  // can clone itself
};

const std::vector<Carried>& carriedValues();

class Value final : public KUtils::KelmoPluginParameter, public KUtils::KelmoCloneableParamInterface {
  public:
    Value(const Carried& what, KUtils::PluginBase* target) : carried(what), referred(target) {}

    const char* getName() override;
    int getCount(double) override;
    KUtils::ListHandle openListImpl(int index) override;
    KUtils::ListHandle closeList(KUtils::ListHandle) override;
    int getInt(int, double) override;
    float getFloat(int, double) override;
    double getDouble(int, double) override;
    bool getBool(int, double) override;
    KUtils::Vector getVector(int, double) override;
    KUtils::Color getColor(int, double) override;
    KUtils::AColor getAColor(int, double) override;
    KUtils::Matrix getMatrix(int, double) override;
    KUtils::TraceTransform getTransform(int, double) override;
    const char* getString(int, double) override;
    KUtils::PluginBase* getPlugin(int, double, const char** outputName) override;
    KUtils::ListView<std::int32_t> getIntList(double) override;
    KUtils::ListView<float> getFloatList(double) override;
    KUtils::ListView<KUtils::Vector> getVectorList(double) override;
    KUtils::ListView<KUtils::Color> getColorList(double) override;
    KUtils::ParamType getType(int, double) override;
    KUtils::PluginInterface* getInterface(KUtils::InterfaceID id) override;

    KUtils::PluginBase* getPlugin() override { return this; }
    KUtils::KelmoPluginParameter* clone() override;

    // How many levels are open.
    int openLevels() const { return depth; }

  private:
    const Carried& carried;
    KUtils::PluginBase* referred;
    int depth = 0;
};

// A value outside the core's heap.
struct ValueHolder {
    ValueHolder(const Carried& what, KUtils::PluginBase* target) : value(what, target) {}
    Value value;
};

}  // namespace stub
