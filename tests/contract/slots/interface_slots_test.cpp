// PluginInterface and the cloning interface: identifiers, names, and every operation through the raw table.
#include "interface_slots.h"
#include "kelmo/param/settable.h"

using namespace KUtils;

namespace {

int destroyed = 0;

KelmoPluginParameter* someParameter() { return reinterpret_cast<KelmoPluginParameter*>(anything + 16); }

class ProbeInterface : public Owned<PluginInterface> {
  public:
    ~ProbeInterface() override { ++destroyed; }
    std::uint32_t getInterfaceID() override { return 0xFEDCBA98; }
    const char* getInterfaceName() override { return "NAME"; }
    void release() override { note("release"); }
};

class PlainInterface : public Owned<PluginInterface> {
  public:
    std::uint32_t getInterfaceID() override { return 1; }
};

class ProbeCloneable : public Owned<KelmoCloneableParamInterface> {
  public:
    KelmoPluginParameter* clone() override {
        note("clone");
        return someParameter();
    }
};

}  // namespace

TEST_CASE(identifiersOfNoInterface) {
    CHECK_EQ(UNIQUE_PLUGIN_INTERFACE_ID, InterfaceID{137724436992});
    CHECK_EQ(PLUGIN_DESC_INTERFACE_ID, 0x7776FFFFu);
}

TEST_CASE(interfaceBaseOperations) {
    destroyed = 0;
    alignas(ProbeInterface) unsigned char storage[sizeof(ProbeInterface)];
    auto* probe = ::new (storage) ProbeInterface;
    CHECK_EQ(callSlot<std::uint32_t>(probe, slot(2)), 0xFEDCBA98u);
    CHECK_EQ(callSlot<PluginBase*>(probe, slot(3)), somePlugin());
    CHECK_CALLED("getPlugin");
    CHECK_TEXT(callSlot<const char*>(probe, slot(4)), "NAME");
    callSlot<void>(probe, slot(5));
    CHECK_CALLED("release");
    destroyThroughTable(probe);
    CHECK_EQ(destroyed, 1);

    PlainInterface plain;
    CHECK_EQ(callSlot<const char*>(&plain, slot(4)), static_cast<const char*>(nullptr));
}

// An interface that is not told otherwise has its owner release it.
TEST_CASE(releaseGoesToTheOwner) {
    struct Owner : PluginBase {
        void releaseInterface(PluginInterface* iface) override { note("releaseInterface", iface); }
    } owner;
    struct Part : PluginInterface {
        PluginBase* owner = nullptr;
        std::uint32_t getInterfaceID() override { return 1; }
        PluginBase* getPlugin() override { return owner; }
    } part;
    part.owner = &owner;
    callSlot<void>(&part, slot(5));
    CHECK_CALLED("releaseInterface", static_cast<const void*>(&part));
}

TEST_CASE(cloneOperation) {
    ProbeCloneable probe;
    checkIdentity(&probe, 2011041500u, "EXT_CLONEABLE_PARAM");
    CHECK_EQ(callSlot<KelmoPluginParameter*>(&probe, slot(6)), someParameter());
    CHECK_CALLED("clone");
}
