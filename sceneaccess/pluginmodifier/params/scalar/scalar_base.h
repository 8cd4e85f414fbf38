// What the scalar values share: their base parts in order, and the interfaces that they answer.
#pragma once

#include "kelmo/param/settable.h"
#include "params/base/element_access.h"
#include "params/base/param_base.h"
#include "params/base/settable_cloneable.h"
#include "params/base/whole_copy.h"

namespace KUtils {

// Extra: interfaces that stand before the settable one. Getting them is the class's own affair.
template <class... Extra>
class ScalarBase : public DefParamBase,
                   public Extra...,
                   public KelmoSettableParamInterface,
                   public KelmoCloneableParamInterface {
  public:
    using DefParamBase::DefParamBase;

    PluginInterface* getInterface(InterfaceID id) override {
        PluginInterface* part = settableOrCloneable(*this, id);
        return part != nullptr ? part : DefParamBase::getInterface(id);
    }

    using DefParamBase::getPlugin;
    PluginBase* getPlugin() override { return this; }
};

template <class T, class... Extra>
class ScalarValue : public ScalarBase<Extra...> {
  public:
    using Element = T;

    ScalarValue(const char* name, const T& initial, bool ownsName) noexcept
        : ScalarBase<Extra...>(name, ownsName), value(initial) {}

  protected:
    // A scalar has one element, whatever the index.
    const T* elementAt(int) const { return &value; }
    T* slotFor(int) { return &value; }

  private:
    T value;
};

}  // namespace KUtils
