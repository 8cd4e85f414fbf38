// Clones, rigid values, references to deleted plugins, and what happens without memory.
#include <string>

#include "check.h"
#include "core/base/counters.h"
#include "core/core_api.h"
#include "core/scene/scene_contents.h"
#include "core/scene_file/scene_file_api.h"
#include "made_values.h"

using namespace Offline;

namespace {

struct Row {
    const char* label;
    Value* (*make)(bool rigid);
    bool hasRigid;
};

template <class Kind>
typename Kind::Element something() {
    typename Kind::Element element{};
    return element;
}
template <>
char* something<StringKind>() {
    return copyText("text");
}
template <>
PluginRef something<ReferenceKind>() {
    return {nullptr, copyText("output")};
}

template <class Kind>
Value* aSingle(bool rigid) {
    return single<Kind>(something<Kind>(), rigid);
}
template <class Kind>
Value* aFlatList(bool rigid) {
    return flat<Kind>({something<Kind>(), something<Kind>()}, rigid);
}
template <class Kind>
Value* aListOfLists(bool rigid) {
    return lists<Kind>({{something<Kind>()}, {}, {something<Kind>(), something<Kind>()}}, 1, rigid);
}
Value* someMapChannels(bool) {
    MapChannelList list;
    MapChannel* channel = list.append();
    channel->number = 3;
    channel->vertices.append({1, 2, 3});
    channel->faces.append(0);
    return makeValue<MapChannels>(false, {"name", true}, std::move(list));
}
Value* aMixedList(bool rigid) {
    ValueList inner;
    inner.append(single<StringKind>(copyText("a"), true));
    ValueList list;
    list.append(single<IntKind>(5, true));
    list.append(nullptr);
    list.append(makeValue<MixedList>(true, {nullptr, false}, std::move(inner)));
    return makeValue<MixedList>(rigid, {"name", true}, std::move(list));
}

#define ALL_SHAPES(Kind)                                                              \
    {#Kind " single", aSingle<Kind>, true}, {#Kind " flat", aFlatList<Kind>, true}, { \
#Kind " lists", aListOfLists < Kind>, true                                    \
    }

const Row ROWS[] = {ALL_SHAPES(IntKind),
                    ALL_SHAPES(FloatKind),
                    ALL_SHAPES(DoubleKind),
                    ALL_SHAPES(BoolKind),
                    ALL_SHAPES(VectorKind),
                    ALL_SHAPES(ColorKind),
                    ALL_SHAPES(AColorKind),
                    ALL_SHAPES(MatrixKind),
                    ALL_SHAPES(TransformKind),
                    ALL_SHAPES(StringKind),
                    ALL_SHAPES(ReferenceKind),
                    {"map channels", someMapChannels, false},
                    {"mixed list", aMixedList, true}};

KUtils::KelmoCloneableParamInterface* cloneable(KUtils::KelmoPluginParameter* value) {
    return static_cast<KUtils::KelmoCloneableParamInterface*>(value->getInterface(KUtils::EXT_CLONEABLE_PARAM));
}

std::string described(KUtils::KelmoPluginParameter* value) {
    std::string text;
    describeValue(
        value, -1,
        [](void* user, const char* part, std::size_t length) { static_cast<std::string*>(user)->append(part, length); },
        &text);
    return text;
}

}  // namespace

TEST_CASE(clonesAreEqualAndOfTheSameClass) {
    const Counters before = counters;
    for (const Row& row : ROWS) {
        CHECK_ROW(row.label);
        Value* value = row.make(false);
        CHECK(cloneable(value) != nullptr);
        if (cloneable(value) == nullptr) continue;
        CHECK(cloneable(value)->getPlugin() == value);
        KUtils::KelmoPluginParameter* clone = cloneable(value)->clone();
        CHECK(clone != nullptr && clone != value);
        if (clone == nullptr) continue;
        const std::string text = described(value);
        CHECK_TEXT(clone->getName(), "name");
        CHECK(cloneable(clone) != nullptr);
        CHECK_EQ(static_cast<int>(clone->getType(-1, 0.0)), static_cast<int>(value->getType(-1, 0.0)));
        CHECK_EQ(clone->getCount(0.0), value->getCount(0.0));
        delete value;
        CHECK_TEXT(described(clone).c_str(), text.c_str());
        delete clone;
    }
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(counters.wrongSizes, before.wrongSizes);
    CHECK_EQ(counters.valuesMade - before.valuesMade, counters.valuesFreed - before.valuesFreed);
}

TEST_CASE(rigidValuesCannotCloneThemselves) {
    for (const Row& row : ROWS) {
        CHECK_ROW(row.label);
        Value* value = row.make(true);
        CHECK_EQ(cloneable(value) == nullptr, row.hasRigid);
        CHECK(value->getInterface(KUtils::EXT_SETTABLE_PARAM) == nullptr);
        delete value;
    }
}

TEST_CASE(aCloneWithoutMemoryIsNull) {
    const Counters before = counters;
    for (const Row& row : ROWS) {
        CHECK_ROW(row.label);
        Value* value = row.make(false);
        int failures = 0;
        for (std::uint64_t nth = 1; nth < 100; ++nth) {
            failAllocation(nth, true);
            KUtils::KelmoPluginParameter* clone = cloneable(value)->clone();
            failAllocation(0, false);
            delete clone;
            if (clone != nullptr) break;
            ++failures;
        }
        CHECK(failures > 0 && failures < 99);
        delete value;
    }
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(counters.valuesMade - before.valuesMade, counters.valuesFreed - before.valuesFreed);
}

TEST_CASE(aCopiedNameIsTheValuesOwn) {
    char name[] = "abc";
    Value* copied = makeValue<SingleValue<IntKind>>(false, {name, true}, 1);
    Value* borrowed = makeValue<SingleValue<IntKind>>(false, {name, false}, 1);
    Value* nameless = makeValue<SingleValue<IntKind>>(false, {nullptr, true}, 1);
    name[0] = 'x';
    CHECK_TEXT(copied->getName(), "abc");
    CHECK_TEXT(borrowed->getName(), "xbc");
    CHECK(nameless->getName() == nullptr);
    KUtils::KelmoPluginParameter* clone = cloneable(copied)->clone();
    delete copied;
    CHECK_TEXT(clone->getName(), "abc");
    KUtils::KelmoPluginParameter* second = cloneable(nameless)->clone();
    CHECK(second != nullptr && second->getName() == nullptr);
    delete second;
    delete clone;
    delete borrowed;
    delete nameless;
}

TEST_CASE(referencesToDeletedPluginsReadAsNone) {
    Catalogue catalogue;
    const char types[] = R"({"family":"Test","types":[{"name":"T","kind":"other","params":[]}]})";
    CHECK(catalogue.addText(types, sizeof types - 1, "types") == nullptr);
    SceneContents contents(catalogue);
    OfflinePlugin* plugin = contents.create(*catalogue.find("T"), "plugin");
    Value* value = flat<ReferenceKind>({{plugin, copyText("output")}, {nullptr, nullptr}});
    Value* texture = makeValue<SingleValue<ReferenceKind>>(true, {"name", false}, PluginRef{plugin, nullptr},
                                                           KUtils::PARAM_TEXTURE_FLOAT);
    CHECK_EQ(static_cast<int>(value->getType(0, 0.0)), 10);
    CHECK_EQ(static_cast<int>(texture->getType(0, 0.0)), 13);

    const char* output = "untouched";
    CHECK(value->getPlugin(0, 0.0, &output) == plugin);
    CHECK_TEXT(output, "output");
    CHECK(value->getPlugin(0, 0.0, nullptr) == plugin);
    CHECK(texture->getPlugin(0, 0.0, &output) == plugin);
    CHECK(output == nullptr);
    output = "untouched";
    CHECK(value->getPlugin(-1, 0.0, &output) == nullptr);
    CHECK(value->getPlugin(2, 0.0, &output) == nullptr);
    CHECK_TEXT(output, "untouched");

    CHECK(contents.remove(plugin));
    CHECK(value->getPlugin(0, 0.0, &output) == nullptr);
    CHECK(output == nullptr);
    CHECK(texture->getPlugin(0, 0.0, nullptr) == nullptr);
    delete value;
    delete texture;
}
