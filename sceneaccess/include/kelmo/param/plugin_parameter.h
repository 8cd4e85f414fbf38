// KelmoPluginParameter: the one interface through which every parameter value is seen.
//
// A value is a tree that is walked with a cursor: openList descends into an element, closeList comes
// back, and while descended the count, type and element operations speak of the opened element.
// `time` is a frame time. Nothing here throws or reports: what is absent or of another type reads as
// zero, null, an empty view, -1 (count) or PARAM_UNKNOWN (type).
#pragma once

#include <cstdint>

#include "kelmo/param/list_view.h"
#include "kelmo/param/param_type.h"
#include "kelmo/param/types.h"
#include "kelmo/plugin/plugin_base.h"

namespace KUtils {

// What openList hands out and the matching closeList takes; 0: nothing was opened.
using ListHandle = std::intptr_t;

class KelmoPluginParameter : public PluginBase {
  public:
    virtual const char* getName() = 0;

    // Number of elements at the cursor, -1 when the value there is no list.
    virtual int getCount(double /*time*/) { return -1; }

    virtual ListHandle openList(int index) { return openListImpl(index); }
    virtual ListHandle openListImpl(int /*index*/) { return 0; }
    virtual ListHandle closeList(ListHandle /*handle*/) { return 0; }

    virtual int getInt(int /*index*/, double /*time*/) { return 0; }
    virtual float getFloat(int /*index*/, double /*time*/) { return 0.0f; }
    virtual double getDouble(int /*index*/, double /*time*/) { return 0.0; }
    virtual bool getBool(int /*index*/, double /*time*/) { return false; }
    virtual Vector getVector(int /*index*/, double /*time*/) { return Vector{}; }
    virtual Color getColor(int /*index*/, double /*time*/) { return Color{}; }
    virtual AColor getAColor(int /*index*/, double /*time*/) { return AColor{}; }
    virtual Matrix getMatrix(int /*index*/, double /*time*/) { return Matrix{}; }
    virtual TraceTransform getTransform(int /*index*/, double /*time*/) { return TraceTransform{}; }
    virtual const char* getString(int /*index*/, double /*time*/) { return nullptr; }

    // The referenced plugin. `outputName`, when given, receives the output's name.
    virtual PluginBase* getPlugin(int /*index*/, double /*time*/, const char** /*outputName*/) { return nullptr; }

    virtual ListView<std::int32_t> getIntList(double /*time*/) { return emptyView<std::int32_t>(); }
    virtual ListView<float> getFloatList(double /*time*/) { return emptyView<float>(); }
    virtual ListView<Vector> getVectorList(double /*time*/) { return emptyView<Vector>(); }
    virtual ListView<Color> getColorList(double /*time*/) { return emptyView<Color>(); }

    // The type of element `index`; -1 asks for the parameter as a whole.
    virtual ParamType getType(int /*index*/, double /*time*/) { return PARAM_UNKNOWN; }

    virtual void reserved() {}
};

}  // namespace KUtils
