// Setting values: each is an object of the wrapper's own.
#include <type_traits>
#include <utility>

#include "connection.h"
#include "scene.h"

namespace BenchScene {

using namespace KUtils;

namespace {

// Each answers for one type and is of no other.
template <class T>
class Single final : public KelmoPluginParameter {
  public:
    Single(std::string paramName, ParamType typeCode, T single)
        : name(std::move(paramName)), type(typeCode), value(std::move(single)) {}

    const char* getName() override { return name.c_str(); }
    ParamType getType(int, double) override { return type; }
    int getInt(int, double) override { return as<int>(); }
    float getFloat(int, double) override { return as<float>(); }
    Vector getVector(int, double) override { return as<Vector>(); }
    Color getColor(int, double) override { return as<Color>(); }
    const char* getString(int, double) override {
        if constexpr (std::is_same_v<T, std::string>) return value.c_str();
        return nullptr;
    }

  private:
    template <class Wanted>
    Wanted as() const {
        if constexpr (std::is_same_v<T, Wanted>) return value;
        return Wanted{};
    }

    std::string name;
    ParamType type;
    T value;
};

template <class T>
class List final : public KelmoPluginParameter {
  public:
    List(std::string paramName, ParamType typeCode, std::vector<T> elements)
        : name(std::move(paramName)), type(typeCode), values(std::move(elements)) {}

    const char* getName() override { return name.c_str(); }
    ParamType getType(int, double) override { return type; }
    int getCount(double) override { return static_cast<int>(values.size()); }
    ListView<std::int32_t> getIntList(double) override { return as<std::int32_t>(); }
    ListView<float> getFloatList(double) override { return as<float>(); }
    ListView<Vector> getVectorList(double) override { return as<Vector>(); }

  private:
    template <class Wanted>
    ListView<Wanted> as() {
        if constexpr (std::is_same_v<T, Wanted>) return borrowedView(values.data(), getCount(0.0));
        return emptyView<Wanted>();
    }

    std::string name;
    ParamType type;
    std::vector<T> values;
};

template <class T>
void setSingle(const std::string& plugin, const std::string& param, ParamType type, T value) {
    give(pluginOf(plugin), std::make_unique<Single<T>>(param, type, std::move(value)));
}

template <class T>
void setList(const std::string& plugin, const std::string& param, ParamType type, std::vector<T> values) {
    give(pluginOf(plugin), std::make_unique<List<T>>(param, type, std::move(values)));
}

}  // namespace

void setInt(const std::string& plugin, const std::string& param, int value) {
    setSingle(plugin, param, PARAM_INT, value);
}

void setFloat(const std::string& plugin, const std::string& param, double value) {
    setSingle(plugin, param, PARAM_FLOAT, static_cast<float>(value));
}

void setVector(const std::string& plugin, const std::string& param, const Point& value) {
    setSingle(plugin, param, PARAM_VECTOR, Vector{value.x, value.y, value.z});
}

void setColor(const std::string& plugin, const std::string& param, const Point& value) {
    setSingle(plugin, param, PARAM_COLOR, Color{value.x, value.y, value.z});
}

void setString(const std::string& plugin, const std::string& param, const std::string& value) {
    setSingle(plugin, param, PARAM_STRING, value);
}

void setIntList(const std::string& plugin, const std::string& param, const std::vector<int>& values) {
    setList(plugin, param, PARAM_INT, values);
}

void setFloatList(const std::string& plugin, const std::string& param, const std::vector<float>& values) {
    setList(plugin, param, PARAM_FLOAT, values);
}

void setVectorList(const std::string& plugin, const std::string& param, const std::vector<Point>& values) {
    std::vector<Vector> vectors;
    vectors.reserve(values.size());
    for (const Point& point : values) vectors.push_back(Vector{point.x, point.y, point.z});
    setList(plugin, param, PARAM_VECTOR, std::move(vectors));
}

}  // namespace BenchScene
