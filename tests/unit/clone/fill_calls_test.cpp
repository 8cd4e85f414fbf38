// The calls of a fill, in their order: on the source, on the target and on the target's settable interface.
#include <cstdio>
#include <string>

#include "check.h"
#include "param/clone/clone_param_value.h"
#include "tree_source.h"

using namespace KUtils;

namespace {

std::string trace;

void traced(const char* what, int number) {
    char call[64];
    std::snprintf(call, sizeof call, "%s%s(%d)", trace.empty() ? "" : " ", what, number);
    trace += call;
}

class TracedSource : public TreeSource {
  public:
    using TreeSource::TreeSource;
    int getCount(double time) override {
        traced("count", time == 0.0 ? 0 : 1);
        return TreeSource::getCount(time);
    }
    ListHandle openList(int index) override {
        traced("openList", index);
        return TreeSource::openList(index);
    }
    ListHandle openListImpl(int index) override {
        traced("open", index);
        const ListHandle handle = TreeSource::openListImpl(index);
        return handle != 0 ? handle + 100 : 0;
    }
    ListHandle closeList(ListHandle handle) override {
        traced("close", static_cast<int>(handle));
        return TreeSource::closeList(handle);
    }
    int getInt(int index, double time) override {
        traced("int", index);
        return TreeSource::getInt(index, time);
    }
};

class TracedTarget : public KelmoPluginParameter {
  public:
    const char* getName() override { return "target"; }
    ListHandle openList(int index) override {
        traced("targetOpenList", index);
        return 0;
    }
    ListHandle openListImpl(int index) override {
        traced("targetOpen", index);
        return 900 + index;
    }
    ListHandle closeList(ListHandle handle) override {
        traced("targetClose", static_cast<int>(handle));
        return 0;
    }
};

class TracedSetter : public KelmoSettableParamInterface {
  public:
    PluginBase* getPlugin() override { return nullptr; }
    void setInt(int value, int, double) override { traced("setInt", value); }
    void setCount(int count) override { traced("setCount", count); }
    void reserve(int count) override { traced("reserve", count); }
};

}  // namespace

TEST_CASE(theCallsOfAFill) {
    TracedSource source(list(12, {number(0, 7), list(0, {number(0, 8)})}));
    TracedTarget target;
    TracedSetter setter;
    trace.clear();
    CHECK(fillList(&setter, &target, source, 12));
    CHECK_TEXT(trace.c_str(),
               "count(0) setCount(2) "
               "open(0) count(0) close(101) int(0) setInt(7) "
               "open(1) count(0) close(101) open(1) targetOpen(1) count(0) setCount(1) "
               "open(0) count(0) close(102) int(0) setInt(8) "
               "close(101) targetClose(901)");
}
