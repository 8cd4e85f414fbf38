// The core's own value objects: what a scene's plugins carry before a script changes them.
//
// Ownership: whoever makes a value destroys it (SceneContents::own for those of a scene); a clone belongs to its
// caller. A name is borrowed (the catalogue's) or a copy. Everything lives in the core's heap; nothing throws,
// what cannot be allocated is null. References are to OfflinePlugins and own nothing.
#pragma once

#include <cstdint>

#include "core/values/element_kinds.h"
#include "kelmo/param/plugin_parameter.h"
#include "kelmo/param/settable.h"

namespace Offline {

struct ValueName {
    const char* text;
    bool copied;  // false: the text outlives the value
};

class Value : public KUtils::KelmoPluginParameter {
  public:
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() override;

    const char* getName() override { return name; }

    // A new object of the same class with the same name and value; null when there is no memory.
    virtual Value* copy() const = 0;

    // Calls back for every plugin reference, empty ones included, in the order in which they are written.
    using ReferenceVisitor = void (*)(void* user, PluginRef& reference);
    virtual void eachReference(ReferenceVisitor /*visitor*/, void* /*user*/) {}

  protected:
    // `code` is the type that the value answers.
    Value(ValueName valueName, KUtils::ParamType code);

    ValueName nameToCopy() const { return {name, ownsName != 0}; }
    bool hasNameOf(const Value& other) const { return name != nullptr || other.name == nullptr; }

    const char* name;
    std::uint32_t ownsName;
    const KUtils::ParamType code;
};

// A value that can clone itself.
template <class Base>
class Cloneable final : public Base, public KUtils::KelmoCloneableParamInterface {
  public:
    using Base::Base;
    using Base::getPlugin;

    KUtils::PluginInterface* getInterface(KUtils::InterfaceID id) override {
        if (static_cast<std::uint32_t>(id) == KUtils::EXT_CLONEABLE_PARAM)
            return static_cast<KUtils::KelmoCloneableParamInterface*>(this);
        return Base::getInterface(id);
    }
    KUtils::PluginBase* getPlugin() override { return this; }
    KUtils::KelmoPluginParameter* clone() override { return copy(); }

    Value* copy() const override { return Base::template copyAs<Cloneable>(*this); }
};

// The same value without the cloneable interface: readers must copy it through its getters.
template <class Base>
class Rigid final : public Base {
  public:
    using Base::Base;

    Value* copy() const override { return Base::template copyAs<Rigid>(*this); }
};

// Makes a value of the one or the other class. Null, and nothing taken, when there is no memory.
template <class Base, class... Content>
Value* makeValue(bool rigid, ValueName name, Content&&... content) {
    if (rigid) return new Rigid<Base>(name, static_cast<Content&&>(content)...);
    return new Cloneable<Base>(name, static_cast<Content&&>(content)...);
}

}  // namespace Offline
