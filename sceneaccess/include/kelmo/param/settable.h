// The interfaces through which a value is filled and copied.
#pragma once

#include <cstdint>

#include "kelmo/param/plugin_parameter.h"

namespace KUtils {

// Writes a value at the cursor of its owner. `index` is an element index, ignored by scalars. Every
// setter's default does nothing.
class KelmoSettableParamInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_SETTABLE_PARAM; }
    const char* getInterfaceName() override { return "EXT_SETTABLE_PARAM"; }

    virtual void setInt(int /*value*/, int /*index*/, double /*time*/) {}
    virtual void setFloat(float /*value*/, int /*index*/, double /*time*/) {}
    virtual void setDouble(double /*value*/, int /*index*/, double /*time*/) {}
    virtual void setBool(bool /*value*/, int /*index*/, double /*time*/) {}
    virtual void setColor(const Color& /*value*/, int /*index*/, double /*time*/) {}
    virtual void setAColor(const AColor& /*value*/, int /*index*/, double /*time*/) {}
    virtual void setString(const char* /*value*/, int /*index*/, double /*time*/) {}
    virtual void setPluginOutput(PluginBase* /*plugin*/, const char* /*outputName*/, int /*index*/, double /*time*/) {}
    virtual void setPlugin(PluginBase* plugin, int index, double time) {
        setPluginOutput(plugin, nullptr, index, time);
    }
    virtual void setVector(const Vector& /*value*/, int /*index*/, double /*time*/) {}
    virtual void setMatrix(const Matrix& /*value*/, int /*index*/, double /*time*/) {}
    virtual void setTransform(const Transform& /*value*/, int /*index*/, double /*time*/) {}
    virtual void reservedSet1() {}
    virtual void reservedSet2() {}
    virtual void reservedSet3() {}
    virtual void reservedSet4() {}
    virtual void setCount(int /*count*/) {}
    virtual void reserve(int /*capacity*/) {}
};

// Adds whole-array access for doubles and transforms. The views that the getters return are owned
// by the caller (releaseView); the views given to the setters are not released.
class KelmoSettableParamInterface2 : public KelmoSettableParamInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_SETTABLE_PARAM2; }
    const char* getInterfaceName() override { return "EXT_SETTABLE_PARAM2"; }

    virtual void reservedSet5() {}
    virtual void reservedSet6() {}
    virtual void reservedSet7() {}
    virtual void setDoubleList(const ListView<double>& /*values*/) {}
    virtual ListView<double> getDoubleList() { return emptyView<double>(); }
    virtual void setTransformList(const ListView<Transform>& /*values*/) {}
    virtual ListView<TraceTransform> getTransformList() { return emptyView<TraceTransform>(); }
};

class KelmoCloneableParamInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_CLONEABLE_PARAM; }
    const char* getInterfaceName() override { return "EXT_CLONEABLE_PARAM"; }

    // A new object of the same class with the same name and value, owned by the caller; null when it
    // cannot be made. The parameter pointer, because it is the key by which owners know the object.
    virtual KelmoPluginParameter* clone() = 0;
};

}  // namespace KUtils
