// The typed getters and setters of every class that holds values of one type, made from the table of
// value types. Scalars and flat lists differ only in how they find an element.
//
// Base derives from DefParamBase and the settable interface and gives:
//   Element                         the value type
//   const Element* elementAt(int)   the element to read, null when there is none
//   Element* slotFor(int)           the element to write, null when there is none
#pragma once

#include "kelmo/param/settable.h"
#include "params/base/param_base.h"
#include "params/base/value_type.h"

namespace KUtils {

template <class Base>
class ElementAccess : public Base {
    using Element = typename Base::Element;

  public:
    using Base::Base;

    ParamType getType(int, double) override { return ValueType<Element>::code; }

    int getInt(int index, double time) override {
        return read<std::int32_t>(index, [=] { return this->DefParamBase::getInt(index, time); });
    }
    float getFloat(int index, double time) override {
        return read<float>(index, [=] { return this->DefParamBase::getFloat(index, time); });
    }
    double getDouble(int index, double time) override {
        return read<double>(index, [=] { return this->DefParamBase::getDouble(index, time); });
    }
    bool getBool(int index, double time) override {
        return read<bool>(index, [=] { return this->DefParamBase::getBool(index, time); });
    }
    Vector getVector(int index, double time) override {
        return read<Vector>(index, [=] { return this->DefParamBase::getVector(index, time); });
    }
    Color getColor(int index, double time) override {
        return read<Color>(index, [=] { return this->DefParamBase::getColor(index, time); });
    }
    AColor getAColor(int index, double time) override {
        return read<AColor>(index, [=] { return this->DefParamBase::getAColor(index, time); });
    }
    Matrix getMatrix(int index, double time) override {
        return read<Matrix>(index, [=] { return this->DefParamBase::getMatrix(index, time); });
    }
    TraceTransform getTransform(int index, double time) override {
        return read<TraceTransform>(index, [=] { return this->DefParamBase::getTransform(index, time); });
    }

    void setInt(int value, int index, double) override { write<std::int32_t>(value, index); }
    void setFloat(float value, int index, double) override { write<float>(value, index); }
    void setDouble(double value, int index, double) override { write<double>(value, index); }
    void setBool(bool value, int index, double) override { write<bool>(value, index); }
    void setColor(const Color& value, int index, double) override { write<Color>(value, index); }
    void setAColor(const AColor& value, int index, double) override { write<AColor>(value, index); }
    void setVector(const Vector& value, int index, double) override { write<Vector>(value, index); }
    void setMatrix(const Matrix& value, int index, double) override { write<Matrix>(value, index); }
    void setTransform(const Transform& value, int index, double) override { write<Transform>(value, index); }

  private:
    template <class Wanted, class Conversion>
    Wanted read([[maybe_unused]] int index, [[maybe_unused]] Conversion conversion) {
        if constexpr (HasRead<Element, Wanted>::value) {
            Wanted result{};
            const Element* element = this->elementAt(index);
            if (element != nullptr) ValueType<Element>::read(*element, result);
            return result;
        } else {
            return conversion();
        }
    }

    // By value: the given one may stand in the very block that an append replaces.
    template <class Given>
    void write([[maybe_unused]] Given value, [[maybe_unused]] int index) {
        if constexpr (HasWrite<Element, Given>::value) {
            Element* element = this->slotFor(index);
            if (element != nullptr) ValueType<Element>::write(*element, value);
        }
    }
};

}  // namespace KUtils
