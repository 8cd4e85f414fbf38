// Reading values, as plain C++ types.
#include <stdexcept>

#include "connection.h"
#include "scene.h"

namespace BenchScene {

using namespace KUtils;

namespace {

KelmoPluginParameter& valueOf(const std::string& plugin, const std::string& param) {
    KelmoPluginParameter* value = pluginOf(plugin).getParameter(param.c_str());
    if (value == nullptr) throw std::runtime_error("no value " + param);
    return *value;
}

}  // namespace

int getInt(const std::string& plugin, const std::string& param) { return valueOf(plugin, param).getInt(0, 0.0); }

double getFloat(const std::string& plugin, const std::string& param) {
    return static_cast<double>(valueOf(plugin, param).getFloat(0, 0.0));
}

Point getVector(const std::string& plugin, const std::string& param) {
    const Vector vector = valueOf(plugin, param).getVector(0, 0.0);
    return Point(vector.x, vector.y, vector.z);
}

Point getColor(const std::string& plugin, const std::string& param) {
    const Color color = valueOf(plugin, param).getColor(0, 0.0);
    return Point(color.r, color.g, color.b);
}

std::string getString(const std::string& plugin, const std::string& param) {
    const char* text = valueOf(plugin, param).getString(0, 0.0);
    return text != nullptr ? text : "";
}

std::vector<int> getIntList(const std::string& plugin, const std::string& param) {
    const ListView<std::int32_t> view = valueOf(plugin, param).getIntList(0.0);
    std::vector<int> values(view.data, view.data + view.count);
    releaseView(view);
    return values;
}

std::vector<float> getFloatList(const std::string& plugin, const std::string& param) {
    const ListView<float> view = valueOf(plugin, param).getFloatList(0.0);
    std::vector<float> values(view.data, view.data + view.count);
    releaseView(view);
    return values;
}

std::vector<Point> getVectorList(const std::string& plugin, const std::string& param) {
    const ListView<Vector> view = valueOf(plugin, param).getVectorList(0.0);
    std::vector<Point> values;
    values.reserve(static_cast<std::size_t>(view.count));
    for (int i = 0; i < view.count; ++i) values.emplace_back(view.data[i].x, view.data[i].y, view.data[i].z);
    releaseView(view);
    return values;
}

}  // namespace BenchScene
