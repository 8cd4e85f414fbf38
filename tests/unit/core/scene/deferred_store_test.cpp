#include "core/scene/deferred_store.h"

#include "support/check.h"

using namespace Offline;

namespace {

DeferredRecord record(const char* name, const char* node, const char* line) {
    DeferredRecord result;
    result.name = name;
    result.node = node;
    result.type = "T";
    result.line = line;
    return result;
}

}  // namespace

TEST_CASE(recordsWaitUntilTheyAreTaken) {
    DeferredStore store;
    DeferredRecord* a = store.add(record("a", "", "line a"));
    DeferredRecord* b = store.add(record("b", "nodeB", "line b"));
    DeferredRecord* c = store.add(record("c", "nodeB", "line c"));
    CHECK(a != nullptr && b != nullptr && c != nullptr);
    CHECK(store.add(record("a", "", "again")) == nullptr);
    CHECK_EQ(store.waiting(), std::size_t{3});
    CHECK(store.findByName("a") == a);
    CHECK(store.findByName("nodeB") == nullptr);
    CHECK(store.findByNode("a") == a);
    CHECK(store.findByNode("nodeB") == b);
    CHECK(store.findByNode("x") == nullptr);

    store.take(*b);
    store.take(*b);
    CHECK_EQ(store.waiting(), std::size_t{2});
    CHECK(store.findByName("b") == nullptr);
    CHECK(store.findByNode("nodeB") == c);
    CHECK(b->taken);
    CHECK_TEXT(b->line.c_str(), "");
    CHECK_EQ(store.size(), std::size_t{3});
    CHECK(&store.at(1) == b);

    DeferredRecord* secondB = store.add(record("b", "", "other b"));
    CHECK(secondB != nullptr && secondB != b);
    CHECK(store.findByName("b") == secondB);

    store.clear();
    CHECK_EQ(store.size(), std::size_t{0});
    CHECK_EQ(store.waiting(), std::size_t{0});
    CHECK(store.findByName("a") == nullptr);
    CHECK(store.findByNode("nodeB") == nullptr);
}
