// PythonParam: a tagged Python value that passes for a parameter value, so that it is read and copied like any
// other.
//
// Ownership: everything is borrowed; the adapter lives on the stack of one call and changes no reference count.
// Threads: the interpreter's. Errors: a getter of another type than the value's, or an index outside a list,
// reads as zero; what Python cannot convert reads as -1, -1.0 or a null text and leaves a Python error
// pending. getPlugin alone raises SceneAccessProblem, when a named plugin or output does not exist.
#pragma once

#include "frame/python.h"
#include "kelmo/param/plugin_parameter.h"

namespace KUtils::Python {

class PythonParam final : public KelmoPluginParameter {
  public:
    PythonParam(PyObject* tagged, const char* paramName);

    const char* getName() override { return name; }
    int getCount(double time) override;

    // Makes the element the current value; the handle is the one that was current before.
    ListHandle openListImpl(int index) override;
    ListHandle closeList(ListHandle handle) override;

    int getInt(int index, double time) override;
    float getFloat(int index, double time) override;
    double getDouble(int index, double time) override;
    bool getBool(int index, double time) override;
    Vector getVector(int index, double time) override;
    Color getColor(int index, double time) override;
    AColor getAColor(int index, double time) override;
    Matrix getMatrix(int index, double time) override;
    TraceTransform getTransform(int index, double time) override;
    const char* getString(int index, double time) override;
    PluginBase* getPlugin(int index, double time, const char** outputName) override;

    // The code that the script gave to the value, or to element `index` of a list.
    ParamType getType(int index, double time) override;

  private:
    // The value at `index` when its code is `code`, else null.
    PyObject* valueOfType(int index, ParamType code);

    PyObject* current;  // the tagged value that is looked at
    PyObject* value;    // its value; a list for lists
    const char* name;
    std::int32_t typeCode;  // of the whole value; descending does not change it
};

}  // namespace KUtils::Python
