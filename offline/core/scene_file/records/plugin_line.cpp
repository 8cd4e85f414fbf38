#include "core/scene_file/records/plugin_line.h"

#include "core/base/nearest_name.h"
#include "core/catalogue/type_names.h"
#include "core/plugin/value_fits.h"
#include "core/scene_file/records/line_error.h"

namespace Offline {
namespace {

constexpr const char* KEYS[] = {"type", "name", "node", "deferred", "params", "rigid"};
enum Key { TYPE, NAME, NODE, DEFERRED, PARAMS, RIGID, KEY_COUNT };

std::string typeWords(int code, bool isList) {
    const char* name = "unknown";
    for (const TypeCodeName& row : TYPE_CODE_NAMES)
        if (row.code == code) name = row.name;
    return isList && code != KUtils::PARAM_LIST ? "list of " + std::string(name) : name;
}

}  // namespace

void PluginLine::clear() {
    for (LineParam& param : params) delete param.value;
    params.clear();
    type = nullptr;
    name.clear();
    node.clear();
    deferred = false;
}

std::string PluginLineReader::errorPlace(const PluginLine& line) const {
    std::string place;
    if (!line.name.empty()) place = "plugin " + quoted(line.name);
    if (!param.empty()) place += (place.empty() ? "parameter " : ", parameter ") + quoted(param);
    return place;
}

bool PluginLineReader::read(JsonText& lineText, const SceneContents& scene, PluginLine& result) {
    text = &lineText;
    contents = &scene;
    line = &result;
    line->clear();
    rigid.clear();
    param.clear();
    paramsPlace = nullptr;
    seen = 0;
    const char* start = text->mark();
    if (!text->readObject("a plugin, as {\"type\":...,\"name\":...}",
                          [this](const std::string& key) { return readMember(key); }) ||
        !text->needEnd())
        return false;
    if (line->type == nullptr) return text->failAt(start, "a plugin must have a \"type\"");
    if (line->name.empty()) return text->failAt(start, "a plugin must have a \"name\"");
    if (paramsPlace != nullptr) {
        text->moveTo(paramsPlace);
        if (!readParams()) return false;
    }
    return makeRigid() && checkFits();
}

bool PluginLineReader::readMember(const std::string& key) {
    int which = 0;
    while (which < KEY_COUNT && key != KEYS[which]) ++which;
    if (which == KEY_COUNT) {
        NearestName nearest(key.c_str());
        for (const char* known : KEYS) nearest.offer(known);
        return text->failAt(text->last(), "a plugin has no key " + quoted(key) + suggestion(nearest.best()));
    }
    if ((seen & 1u << which) != 0) return text->failAt(text->last(), "the key " + quoted(key) + " stands here twice");
    seen |= 1u << which;

    switch (which) {
        case TYPE:
            return readType();
        case NAME:
            return readName();
        case NODE:
            if (!text->readText(line->node, "the name of a node")) return false;
            return !line->node.empty() || text->failAt(text->last(), "the name of a node must not be empty");
        case DEFERRED:
            line->deferred = text->takeWord("true");
            return line->deferred || text->takeWord("false") || text->fail("true or false");
        case PARAMS:
            if (line->type != nullptr) return readParams();
            paramsPlace = text->mark();
            return text->skipValue();
        default:
            return readRigid();
    }
}

bool PluginLineReader::readType() {
    if (!text->readText(scratch, "the name of a plugin type")) return false;
    line->type = contents->catalogue().find(scratch);
    if (line->type != nullptr) return true;
    return text->failAt(text->last(), "there is no plugin type " + quoted(scratch) +
                                          suggestion(contents->catalogue().nearest(scratch.c_str())));
}

bool PluginLineReader::readName() {
    if (!text->readText(line->name, "the name of the plugin")) return false;
    return !line->name.empty() || text->failAt(text->last(), "the name of a plugin must not be empty");
}

bool PluginLineReader::readParams() {
    return text->readObject("an object of parameters", [this](const std::string& key) { return readParam(key); });
}

bool PluginLineReader::readParam(const std::string& paramName) {
    const char* place = text->last();
    param = paramName;
    const int index = line->type->paramIndex(paramName.c_str());
    if (index < 0) {
        return text->failAt(place, "the type " + quoted(line->type->typeName()) + " has no parameter " +
                                       quoted(paramName) + suggestion(line->type->nearestParam(paramName.c_str())));
    }
    const auto known = static_cast<std::size_t>(index);
    for (const LineParam& other : line->params)
        if (other.index == known) return text->failAt(place, "the parameter stands here twice");

    const KUtils::ParamDesc& desc = line->type->param(known);
    const char* valuePlace = text->mark();
    ValueReader reader(*text, *contents);
    Value* value = reader.read(desc, line->type->shape(known), {desc.name, false}, false);
    if (value == nullptr) return false;
    line->params.push_back({known, valuePlace, value, std::move(reader.openReferences)});
    param.clear();
    return true;
}

bool PluginLineReader::readRigid() {
    return text->readList("a list of parameter names", [this] {
        if (!text->readText(scratch, "the name of a parameter")) return false;
        rigid.push_back({scratch, text->last()});
        return true;
    });
}

// Reads the values of the rigid parameters once more, into the other class.
bool PluginLineReader::makeRigid() {
    for (const RigidName& wanted : rigid) {
        LineParam* found = nullptr;
        NearestName nearest(wanted.name.c_str());
        for (LineParam& candidate : line->params) {
            const char* name = line->type->param(candidate.index).name;
            if (wanted.name == name) found = &candidate;
            nearest.offer(name);
        }
        if (found == nullptr)
            return text->failAt(wanted.place, "\"rigid\" names " + quoted(wanted.name) + ", which has no value here" +
                                                  suggestion(nearest.best()));
        param = wanted.name;
        text->moveTo(found->place);
        const KUtils::ParamDesc& desc = line->type->param(found->index);
        ValueReader reader(*text, *contents);
        Value* value = reader.read(desc, line->type->shape(found->index), {desc.name, false}, true);
        if (value == nullptr) return false;
        delete found->value;
        found->value = value;
        found->openReferences = std::move(reader.openReferences);
        param.clear();
    }
    return true;
}

bool PluginLineReader::checkFits() {
    for (const LineParam& candidate : line->params) {
        const KUtils::ParamDesc& desc = line->type->param(candidate.index);
        if (valueFits(desc, *candidate.value)) continue;
        param = desc.name;
        return text->failAt(candidate.place,
                            "expected a value of type " + typeWords(desc.type, desc.listCount != -1) +
                                ", found one of type " +
                                typeWords(candidate.value->getType(-1, 0.0), candidate.value->getCount(0.0) != -1));
    }
    return true;
}

}  // namespace Offline
