// Which class answers which interface identifier, with which part of itself, and under which name.
#include "check.h"
#include "helpers/value_classes.h"
#include "kelmo/param/texture.h"

using namespace value_classes;

namespace {

struct Identifier {
    const char* name;
    std::uint32_t id;
};

const Identifier identifiers[] = {
    {"EXT_TEXTURE", 0x77780002},        {"EXT_TEXTURE_FLOAT", 0x7782F8E5},     {"EXT_TEXTURE_VECTOR", 0x7782F8E6},
    {"EXT_TEXTURE_MATRIX", 0x7782F8E7}, {"EXT_TEXTURE_TRANSFORM", 0x7782F8E9}, {"EXT_TEXTURE_INT", 0x7782F8EA},
    {"EXT_RTTEX", 0x77CFFFA6},          {"EXT_CLONEABLE_PARAM", 0x77DE0EDC},   {"EXT_SETTABLE_PARAM2", 0x77FD8383},
    {"EXT_SETTABLE_PARAM", 0xBABADED3},
};
constexpr int identifierCount = 10;

// The byte at which each identifier's part stands, in the order above; 0: not answered.
struct Row {
    const char* label;
    KelmoPluginParameter* (*make)(const char* name, bool ownsName);
    int offsets[identifierCount];
};

template <int which>
KelmoPluginParameter* scalar(const char* name, bool ownsName) {
    return classes[which].makeScalar(name, ownsName);
}
template <int which>
KelmoPluginParameter* list(const char* name, bool ownsName) {
    return classes[which].makeList(name, ownsName);
}
template <int which>
KelmoPluginParameter* lists(const char* name, bool ownsName) {
    return listsOfLists[which].make(name, ownsName);
}

const Row rows[] = {
    {"int", scalar<0>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"float", scalar<1>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"double", scalar<2>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"vector", scalar<3>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"color", scalar<4>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"acolor", scalar<5>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"matrix", scalar<6>, {24, 32, 56, 80, 48, 40, 16, 96, 0, 88}},
    {"transform", scalar<7>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"string", scalar<8>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"plugin", scalar<9>, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"int list", list<0>, {24, 32, 56, 0, 48, 40, 16, 96, 0, 88}},
    {"float list", list<1>, {24, 32, 56, 0, 48, 40, 16, 96, 0, 88}},
    {"double list", list<2>, {24, 32, 56, 0, 48, 40, 16, 96, 128, 88}},
    {"vector list", list<3>, {24, 32, 56, 0, 48, 40, 16, 96, 0, 88}},
    {"color list", list<4>, {24, 32, 56, 0, 48, 40, 16, 96, 0, 88}},
    {"acolor list", list<5>, {24, 32, 56, 0, 48, 40, 16, 96, 0, 88}},
    {"matrix list", list<6>, {24, 32, 56, 0, 48, 40, 16, 96, 0, 88}},
    {"transform list", list<7>, {24, 32, 56, 0, 48, 40, 16, 96, 128, 88}},
    {"string list", list<8>, {24, 32, 56, 0, 48, 40, 16, 96, 0, 88}},
    {"plugin list", list<9>, {0, 0, 0, 0, 0, 0, 0, 96, 0, 88}},
    {"int lists", lists<0>, {0, 0, 0, 0, 0, 0, 0, 16, 0, 24}},
    {"float lists", lists<1>, {0, 0, 0, 0, 0, 0, 0, 16, 0, 24}},
    {"vector lists", lists<2>, {0, 0, 0, 0, 0, 0, 0, 16, 0, 24}},
    {"plugin lists", lists<3>, {0, 0, 0, 0, 0, 0, 0, 16, 0, 24}},
    {"map channels", makeMapChannels, {24, 32, 56, 0, 48, 40, 16, 88, 0, 80}},
    {"generic", makeGeneric, {0, 0, 0, 0, 0, 0, 0, 0, 0, 16}},
};

// An interface that the list of a value carries, to see what is asked first.
struct Carried : PluginInterface {
    explicit Carried(std::uint32_t answered) : id(answered) {}
    std::uint32_t getInterfaceID() override { return id; }
    PluginBase* getPlugin() override { return nullptr; }
    std::uint32_t id;
};

}  // namespace

TEST_CASE(everyIdentifierIsAnsweredByItsPart) {
    const NothingLeft nothingLeft;
    for (const Row& row : rows) {
        const Owned value(row.make("name", true));
        const auto* bytes = reinterpret_cast<const char*>(value.value);
        CHECK_ROW(row.label);
        for (int i = 0; i < identifierCount; ++i) {
            PluginInterface* part = value->getInterface(identifiers[i].id);
            CHECK_EQ(part != nullptr, row.offsets[i] != 0);
            if (part == nullptr) continue;
            CHECK_EQ(static_cast<int>(reinterpret_cast<const char*>(part) - bytes), row.offsets[i]);
            CHECK_EQ(part->getInterfaceID(), identifiers[i].id);
            CHECK_TEXT(part->getInterfaceName(), identifiers[i].name);
            CHECK(part->getPlugin() == value.value);
            part->release();
            // Callers that were made for 32 bits leave the upper half undefined.
            CHECK(value->getInterface(identifiers[i].id | 0xABCD00000000u) == part);
        }
    }
}

TEST_CASE(foreignIdentifiersAreNotAnswered) {
    const std::uint64_t foreign[] = {0, 1, 0x7776FFFF, 0x2011042200, 0x77780001, 0xFFFFFFFF, 2011042200};
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        const Owned value(row.make("name", false));
        for (const std::uint64_t id : foreign) CHECK(value->getInterface(id) == nullptr);
    }
}

TEST_CASE(aCarriedInterfaceIsFoundAfterTheOwnOnes) {
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        const Owned value(row.make("name", false));
        Carried foreign(4711);
        Carried settable(EXT_SETTABLE_PARAM);
        Carried matrix(EXT_TEXTURE_MATRIX);
        CHECK(value->addInterface(&foreign, 0));
        CHECK(value->addInterface(&settable, 0));
        CHECK(value->addInterface(&matrix, 0));
        CHECK(value->getInterface(4711) == &foreign);
        CHECK(value->getInterface(EXT_SETTABLE_PARAM) != &settable);
        CHECK_EQ(value->getInterface(EXT_TEXTURE_MATRIX) == &matrix, row.offsets[3] == 0);
        // A clone has the value's own interfaces, not the added ones.
        if (value->getInterface(EXT_CLONEABLE_PARAM) == nullptr) continue;
        const Owned copy(cloneOf(*value));
        CHECK(copy->getInterface(4711) == nullptr);
        CHECK(copy->getInterface(EXT_SETTABLE_PARAM) != nullptr);
    }
}

TEST_CASE(theValueItselfIsNoPluginOfAnotherKind) {
    // Only what can stand as a constant texture answers itself; the lists of lists and the generic list do not.
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        const Owned value(row.make("name", false));
        const bool isTexture = row.offsets[0] != 0;
        CHECK_EQ(value->getPlugin(0, 0.0, nullptr) == value.value, isTexture && value->getType(0, 0.0) != PARAM_PLUGIN);
    }
}
