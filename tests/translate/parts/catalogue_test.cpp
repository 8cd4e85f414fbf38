// The catalogue of plugin types: complete, documented, and with defaults of the form that the types ask for.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <set>

#include "helpers/support.h"

namespace {

using rapidjson::Value;
using Check = std::function<bool(const Value&)>;

bool isInt(const Value& value) { return value.IsInt(); }
bool isNumber(const Value& value) { return value.IsNumber(); }
bool isText(const Value& value) { return value.IsString() || value.IsNull(); }

bool isNumbers(const Value& value, unsigned count) {
    return value.IsArray() && value.Size() == count && std::all_of(value.Begin(), value.End(), isNumber);
}
bool isVector(const Value& value) { return isNumbers(value, 3); }
bool isAColor(const Value& value) { return isNumbers(value, 4); }
bool isMatrix(const Value& value) {
    return value.IsArray() && value.Size() == 3 && std::all_of(value.Begin(), value.End(), isVector);
}
bool isTransform(const Value& value) {
    return value.IsArray() && value.Size() == 2 && isMatrix(value[0]) && isVector(value[1]);
}
bool never(const Value&) { return false; }

// Every type of a parameter, and what its default looks like.
const std::map<std::string, Check> TYPES = {
    {"int", isInt},
    {"float", isNumber},
    {"double", isNumber},
    {"bool", [](const Value& value) { return value.IsBool(); }},
    {"vector", isVector},
    {"color", isVector},
    {"acolor", isAColor},
    {"matrix", isMatrix},
    {"transform", isTransform},
    {"string", isText},
    {"plugin", never},
    {"texture", isAColor},
    {"list", never},
    {"texture_float", isNumber},
    {"texture_int", isInt},
    {"texture_vector", isVector},
    {"texture_matrix", isMatrix},
    {"texture_transform", isTransform},
    {"output_texture", never},
    {"output_texture_float", never},
    {"output_texture_int", never},
    {"output_texture_vector", never},
    {"output_texture_matrix", never},
    {"output_texture_transform", never},
};

const std::set<std::string> KINDS = {"geometry", "node", "material", "texture", "light", "camera", "settings", "other"};
const std::set<std::string> SHAPES = {"ints", "floats", "vectors", "plugins", "map_channels", "any"};

class Catalogue : public testing::Test {
  protected:
    Catalogue() {
        const std::filesystem::path folder = TestSupport::sourcePath("offline/types");
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() != ".json") continue;
            rapidjson::Document family;
            family.Parse(TestSupport::readFile(entry.path()).c_str());
            EXPECT_FALSE(family.HasParseError()) << entry.path();
            families_.push_back(std::move(family));
        }
    }

    void forEachType(const std::function<void(const Value&)>& act) const {
        for (const auto& family : families_) {
            for (const Value& type : family["types"].GetArray()) act(type);
        }
    }
    void forEachParam(const std::function<void(const Value&, const std::string&)>& act) const {
        forEachType([&act](const Value& type) {
            for (const Value& param : type["params"].GetArray()) {
                act(param, std::string(type["name"].GetString()) + "." + param["name"].GetString());
            }
        });
    }

    std::vector<rapidjson::Document> families_;
};

bool isSentence(const Value& owner) {
    if (!owner.HasMember("doc")) return false;
    const std::string text = owner["doc"].GetString();
    return text.size() > 10 && text.back() == '.';
}

TEST_F(Catalogue, DocumentsEveryTypeAndParameter) {
    std::set<std::string> names;
    forEachType([&names](const Value& type) {
        const std::string name = type["name"].GetString();
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_TRUE(isSentence(type)) << name;
        EXPECT_EQ(KINDS.count(type["kind"].GetString()), 1u) << name;
    });
    EXPECT_GT(names.size(), 30u);
    forEachParam([](const Value& param, const std::string& name) { EXPECT_TRUE(isSentence(param)) << name; });
}

TEST_F(Catalogue, HasDefaultsOfTheDeclaredForm) {
    forEachParam([](const Value& param, const std::string& name) {
        const auto type = TYPES.find(param["type"].GetString());
        ASSERT_NE(type, TYPES.end()) << name;
        EXPECT_EQ(param.HasMember("shape"), type->first == "list") << name;
        if (param.HasMember("shape")) {
            EXPECT_EQ(SHAPES.count(param["shape"].GetString()), 1u) << name;
        }
        if (!param.HasMember("default")) return;
        EXPECT_FALSE(param.HasMember("list")) << name;
        EXPECT_TRUE(type->second(param["default"])) << name;
    });
}

TEST_F(Catalogue, CoversEveryType) {
    std::set<std::string> single, lists, defaults, shapes, kinds;
    bool nullText = false;
    forEachType([&kinds](const Value& type) { kinds.insert(type["kind"].GetString()); });
    forEachParam([&](const Value& param, const std::string&) {
        const std::string type = param["type"].GetString();
        (param.HasMember("list") ? lists : single).insert(type);
        if (param.HasMember("default")) defaults.insert(type);
        if (param.HasMember("shape")) shapes.insert(param["shape"].GetString());
        nullText = nullText || (param.HasMember("default") && param["default"].IsNull());
    });
    for (const auto& [type, check] : TYPES) {
        EXPECT_EQ(single.count(type), 1u) << type;
        const bool isOutput = type.compare(0, 7, "output_") == 0;
        EXPECT_EQ(lists.count(type), isOutput || type == "list" ? 0u : 1u) << type;
        EXPECT_EQ(defaults.count(type), isOutput || type == "list" || type == "plugin" ? 0u : 1u) << type;
    }
    EXPECT_EQ(shapes, SHAPES);
    EXPECT_EQ(kinds, KINDS);
    EXPECT_TRUE(nullText);
}

// The parameters that the module treats in their own way, by these very names.
TEST_F(Catalogue, DeclaresTheListsOfLists) {
    std::map<std::string, std::string> shapes;
    forEachParam([&shapes](const Value& param, const std::string& name) {
        if (param.HasMember("shape")) shapes[name] = param["shape"].GetString();
    });
    EXPECT_EQ(shapes["GeomStaticMesh.map_channels"], "map_channels");
    EXPECT_EQ(shapes["SettingsLightLinker.ignored_lights"], "plugins");
    EXPECT_EQ(shapes["SettingsLightLinker.ignored_shadow_lights"], "plugins");
    EXPECT_EQ(shapes["SettingsOutput.frames"], "ints");
    EXPECT_EQ(shapes["GeomStaticNURBS.weights"], "floats");
    EXPECT_EQ(shapes["GeomStaticNURBS.cvs"], "vectors");
}

}  // namespace
