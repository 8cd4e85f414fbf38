// What the tests of the interfaces' slots share: objects that are only ever pointed to, and the base of every probe.
#pragma once

#include "contract/probe.h"
#include "kelmo/param/texture.h"
#include "kelmo/plugin/plugin_base.h"
#include "raw_slots.h"
#include "support/check.h"

// The slot of an operation by its number in the contract, where 1 is the destructor.
constexpr int slot(int number) { return number - 2 + DESTRUCTOR_SLOTS; }

inline char anything[32];

inline const KUtils::ShadingContext& someContext() {
    return *reinterpret_cast<const KUtils::ShadingContext*>(anything);
}
inline KUtils::PluginBase* somePlugin() { return reinterpret_cast<KUtils::PluginBase*>(anything + 8); }

// Notes who asks for the owner, and answers it.
template <class Interface>
class Owned : public Interface {
  public:
    KUtils::PluginBase* getPlugin() override {
        note("getPlugin");
        return somePlugin();
    }
};

// The first three operations of every interface: what it is, whose it is, what it is called.
inline void checkIdentity(void* object, std::uint32_t id, const char* name) {
    CHECK_ROW(name);
    CHECK_EQ(callSlot<std::uint32_t>(object, slot(2)), id);
    CHECK_EQ(callSlot<KUtils::PluginBase*>(object, slot(3)), somePlugin());
    CHECK_CALLED("getPlugin");
    CHECK_TEXT(callSlot<const char*>(object, slot(4)), name);
}
