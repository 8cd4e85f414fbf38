// GenericSettableListParam: a value whose shape is not fixed in advance, a tree in which any value may be
// a list of further values. It is built and read through the cursor.
//
// Ownership: the name and all payloads are the object's. Texts and output names are kept as given, until
// keepPrivateTexts.
// Errors: a payload that cannot be had leaves the type set and reads as zero.
#pragma once

#include <cstdint>

#include "kelmo/param/settable.h"
#include "params/base/array_record.h"
#include "params/generic/value_record.h"
#include "params/shared_text.h"

namespace KUtils {

class GenericSettableListParam final : public KelmoPluginParameter, public KelmoSettableParamInterface {
  public:
    // The name is copied. A new value has no type and is no list; setCount makes it one.
    explicit GenericSettableListParam(const char* name) noexcept;
    GenericSettableListParam(const GenericSettableListParam&) = delete;
    ~GenericSettableListParam() override;

    // Makes the value stand for itself: every text becomes a copy of the object's own. Call it once the
    // value is filled, before the givers of the texts are gone. False when memory is short: the texts
    // that could not be copied are null then.
    bool keepPrivateTexts();

    PluginInterface* getInterface(InterfaceID id) override;
    using KelmoPluginParameter::getPlugin;
    PluginBase* getPlugin() override { return this; }
    const char* getName() override { return charactersOf(name); }

    int getCount(double time) override;
    // Only an element that exists is opened. A negative index opens an empty value that takes no writes.
    ListHandle openListImpl(int index) override;
    ListHandle closeList(ListHandle handle) override;
    ParamType getType(int index, double time) override;

    int getInt(int index, double time) override;
    bool getBool(int index, double time) override;
    float getFloat(int index, double time) override;
    double getDouble(int index, double time) override;
    Vector getVector(int index, double time) override;
    Color getColor(int index, double time) override;
    AColor getAColor(int index, double time) override;
    Matrix getMatrix(int index, double time) override;
    TraceTransform getTransform(int index, double time) override;
    const char* getString(int index, double time) override;
    PluginBase* getPlugin(int index, double time, const char** outputName) override;

    // A setter changes the type of its target; it stores the value only where there is no payload yet.
    void setInt(int value, int index, double time) override;
    void setFloat(float value, int index, double time) override;
    void setDouble(double value, int index, double time) override;
    void setBool(bool value, int index, double time) override;
    void setColor(const Color& value, int index, double time) override;
    void setAColor(const AColor& value, int index, double time) override;
    void setString(const char* value, int index, double time) override;
    void setPluginOutput(PluginBase* plugin, const char* outputName, int index, double time) override;
    void setVector(const Vector& value, int index, double time) override;
    void setMatrix(const Matrix& value, int index, double time) override;
    void setTransform(const Transform& value, int index, double time) override;

    // Turns the current value into a list, or lengthens it; a list is never shortened.
    void setCount(int count) override;
    // setCount, and then the list is empty.
    void reserve(int capacity) override;

  private:
    ValueRecord& current();
    const ValueRecord* recordToRead(int index);
    ValueRecord* recordToWrite(int index);
    void write(ParamType type, PayloadKind kind, const void* bytes, int index);

    SharedText* name;
    ValueRecord root;
    ArrayRecord<ValueRecord*> path;
    ValueRecord spare;  // what a negative index opens
};

}  // namespace KUtils
