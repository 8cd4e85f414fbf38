#include "core/plugin/parameter_list.h"

#include <cstring>
#include <string>

#include "core/base/counters.h"
#include "core/core_api.h"
#include "support/check.h"
#include "test_value.h"

using namespace Offline;

namespace {

// Collects names, and can put a further value while it walks or stop early.
class Collect final : public KUtils::EnumParamsCallback {
  public:
    int process(KUtils::KelmoPluginParameter* param) override {
        names += param->getName();
        if (list != nullptr) list->put(added);
        return static_cast<int>(names.size()) < stopAt ? 1 : 0;
    }
    std::string names;
    ParameterList* list = nullptr;
    KUtils::KelmoPluginParameter* added = nullptr;
    int stopAt = 1000;
};

std::string namesOf(const ParameterList& list) {
    Collect collect;
    list.enumerate(collect);
    return collect.names;
}

struct Letters {
    TestValue values[5] = {{"a", KUtils::PARAM_INT},
                           {"b", KUtils::PARAM_INT},
                           {"c", KUtils::PARAM_INT},
                           {"d", KUtils::PARAM_INT},
                           {"e", KUtils::PARAM_INT}};
};

}  // namespace

TEST_CASE(valuesKeepTheirPlace) {
    const Counters before = counters;
    TestValue a("a", KUtils::PARAM_INT), b("b", KUtils::PARAM_INT), c("c", KUtils::PARAM_INT);
    TestValue otherA("a", KUtils::PARAM_FLOAT);
    {
        ParameterList list;
        CHECK(list.find("a") == nullptr);
        CHECK(list.put(&a));
        CHECK(list.put(&b));
        CHECK(list.put(&c));
        CHECK_TEXT(namesOf(list).c_str(), "abc");
        CHECK(list.put(&otherA));
        CHECK_TEXT(namesOf(list).c_str(), "abc");
        CHECK_EQ(list.count(), 3);
        CHECK(list.find("a") == &otherA);
        CHECK(list.at(0) == &otherA);
        CHECK(list.find("A") == nullptr);
        CHECK(list.find(nullptr) == nullptr);
    }
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(counters.wrongSizes, before.wrongSizes);
}

TEST_CASE(walksStopAtZero) {
    TestValue a("a", KUtils::PARAM_INT), b("b", KUtils::PARAM_INT);
    ParameterList list;
    list.put(&a);
    list.put(&b);
    Collect collect;
    collect.stopAt = 1;
    list.enumerate(collect);
    CHECK_TEXT(collect.names.c_str(), "a");
}

TEST_CASE(walksSurviveAGrowingList) {
    Letters letters;
    ParameterList list;
    for (int i = 0; i < 4; ++i) list.put(&letters.values[i]);
    Collect collect;
    collect.list = &list;
    collect.added = &letters.values[4];
    list.enumerate(collect);
    CHECK_TEXT(collect.names.c_str(), "abcd");
    CHECK_TEXT(namesOf(list).c_str(), "abcde");
}

TEST_CASE(aListThatCannotGrowStaysAsItIs) {
    Letters letters;
    ParameterList list;
    failAllocation(1, false);
    CHECK(!list.put(&letters.values[0]));
    CHECK_EQ(list.count(), 0);
    for (int i = 0; i < 4; ++i) CHECK(list.put(&letters.values[i]));
    failAllocation(1, false);
    CHECK(!list.put(&letters.values[4]));
    failAllocation(0, false);
    CHECK_TEXT(namesOf(list).c_str(), "abcd");
    CHECK(list.put(&letters.values[4]));
}
