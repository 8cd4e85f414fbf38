// The interface list of PluginBase.
#include <string>

#include "contract/test_heap.h"
#include "kelmo/plugin/plugin_base.h"
#include "support/check.h"

using namespace KUtils;

namespace {

std::string released;

class Part : public PluginInterface {
  public:
    Part(char letter, std::uint32_t id) : letter_(letter), id_(id) {}
    std::uint32_t getInterfaceID() override { return id_; }
    PluginBase* getPlugin() override { return nullptr; }
    void release() override { released += letter_; }

  private:
    char letter_;
    std::uint32_t id_;
};

}  // namespace

TEST_CASE(interfaceLookup) {
    Part a('a', 5), b('b', 5), c('c', 3132808915u);
    PluginBase base;
    CHECK_EQ(base.getInterface(5), nullptr);
    CHECK(base.addInterface(&a, 0));
    CHECK(base.addInterface(nullptr, 1));
    CHECK(base.addInterface(&b, 0));
    CHECK(base.addInterface(&c, 0));
    CHECK_EQ(base.getInterface(5), static_cast<PluginInterface*>(&b));
    CHECK_EQ(base.getInterface(3132808915u), static_cast<PluginInterface*>(&c));
    CHECK_EQ(base.getInterface(0x1200000005), static_cast<PluginInterface*>(&b));
    CHECK_EQ(base.getInterface(6), nullptr);
    CHECK(base.removeInterface(&b));
    CHECK_EQ(base.getInterface(5), static_cast<PluginInterface*>(&a));
}

TEST_CASE(interfaceRemoval) {
    Part a('a', 1), b('b', 2), stranger('s', 1);
    released.clear();
    {
        PluginBase base;
        base.addInterface(&a, 1);
        base.addInterface(&b, 1);
        base.addInterface(&a, 1);
        CHECK_EQ(testHeap().live, 3);
        CHECK(!base.removeInterface(&stranger));
        CHECK_EQ(testHeap().live, 3);
        CHECK(base.removeInterface(&a));
        CHECK_EQ(testHeap().freedSize, sizeof(InterfaceRecord));
        CHECK_EQ(testHeap().live, 2);
        CHECK_TEXT(released.c_str(), "");
        CHECK_EQ(base.getInterface(1), static_cast<PluginInterface*>(&a));
    }
    // One record of `a` is left, and it is the older one.
    CHECK_TEXT(released.c_str(), "ab");
    CHECK_EQ(testHeap().live, 0);
}

TEST_CASE(releaseOrderAndOwnership) {
    Part a('a', 1), b('b', 2), c('c', 3), d('d', 4), e('e', 5);
    released.clear();
    {
        PluginBase base;
        base.addInterface(&a, 1);
        base.addInterface(&b, 0);
        base.addInterface(&c, 1);
        base.addInterface(nullptr, 1);
        base.addInterface(&d, 2);
        base.addInterface(&e, 0xFFFFFFFF);
    }
    CHECK_TEXT(released.c_str(), "ac");
    CHECK_EQ(testHeap().live, 0);
}

// The operation reports success, and the records that were there are out of reach: as many as there were, and no more.
TEST_CASE(failedAllocationDropsTheList) {
    constexpr int MOST = 5;
    Part parts[MOST + 1] = {{'a', 1}, {'b', 2}, {'c', 3}, {'d', 4}, {'e', 5}, {'f', 6}};
    for (int records = 0; records <= MOST; ++records) {
        released.clear();
        const int before = testHeap().live;
        void* dropped[MOST] = {};
        {
            PluginBase base;
            for (int i = 0; i < records; ++i) {
                base.addInterface(&parts[i], 1);
                dropped[i] = testHeap().newest;
            }
            testHeap().failNext = 1;
            CHECK(base.addInterface(&parts[records], 1));
            for (int id = 1; id <= MOST + 1; ++id) CHECK_EQ(base.getInterface(id), nullptr);
            CHECK(!base.removeInterface(&parts[0]));
            // What is added afterwards is released, what was dropped is not.
            CHECK(base.addInterface(&parts[records], 1));
            CHECK_EQ(base.getInterface(records + 1), static_cast<PluginInterface*>(&parts[records]));
            CHECK_EQ(testHeap().live, before + records + 1);
        }
        const char newest[] = {static_cast<char>('a' + records), 0};
        CHECK_TEXT(released.c_str(), newest);
        CHECK_EQ(testHeap().live, before + records);
        for (int i = 0; i < records; ++i) kelmo_free(dropped[i], sizeof(InterfaceRecord));
    }
}

TEST_CASE(copyHasAnEmptyList) {
    Part a('a', 1);
    released.clear();
    {
        PluginBase base;
        base.addInterface(&a, 1);
        PluginBase copy(base);
        CHECK_EQ(copy.getInterface(1), nullptr);
        CHECK_EQ(base.getInterface(1), static_cast<PluginInterface*>(&a));
    }
    CHECK_TEXT(released.c_str(), "a");
}

TEST_CASE(objectsLiveInTheRenderersHeap) {
    auto* base = new PluginBase;
    CHECK_EQ(testHeap().live, 1);
    CHECK_EQ(testHeap().lastSize, std::size_t{16});
    delete base;
    CHECK_EQ(testHeap().live, 0);
    CHECK_EQ(testHeap().freedSize, std::size_t{16});
    testHeap().failNext = 1;
    CHECK_EQ(new PluginBase, static_cast<PluginBase*>(nullptr));
}
