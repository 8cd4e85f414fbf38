#include "core/scene_file/scene_reader.h"

#include <cstring>

#include "core/base/nearest_name.h"
#include "core/scene_file/records/line_error.h"

namespace Offline {
namespace {

constexpr int FORMAT_VERSION = 1;

constexpr const char* HEADER_KEYS[] = {"kelmo-scene", "up", "unit", "source"};

const char* nearestHeaderKey(const std::string& key) {
    NearestName nearest(key.c_str());
    for (const char* known : HEADER_KEYS) nearest.offer(known);
    return nearest.best();
}

// The plugin whose name is nearest, among as many as can be compared in a moment.
const char* nearestPlugin(const SceneContents& contents, const std::string& name) {
    constexpr std::size_t MOST_COMPARISONS = 200000000;
    NearestName nearest(name.c_str());
    std::size_t comparisons = 0;
    for (const OfflinePlugin* plugin = contents.first(); plugin != nullptr; plugin = SceneContents::next(plugin)) {
        comparisons += name.size() * std::strlen(plugin->name);
        if (comparisons > MOST_COMPARISONS) break;
        nearest.offer(plugin->name);
    }
    return nearest.best();
}

}  // namespace

KUtils::ErrorRecord* SceneReader::damaged(std::uint64_t line, std::size_t column, const std::string& place,
                                          const std::string& message) const {
    return lineError(shownName, line, column, place, message);
}

KUtils::ErrorRecord* SceneReader::readLine(const char* begin, const char* end) {
    ++lineNumber;
    JsonText text(begin, end);
    if (lineNumber > 1) return readPlugin(text, begin, end);
    if (readHeader(text)) return nullptr;
    return damaged(lineNumber, text.errorColumn(), "", text.errorMessage());
}

bool SceneReader::readHeader(JsonText& text) {
    SceneHeader header;
    unsigned seen = 0;
    const char* start = text.mark();
    const auto once = [&](unsigned bit) {
        if ((seen & bit) != 0) return text.failAt(text.last(), "the key stands here twice");
        seen |= bit;
        return true;
    };
    const bool read = text.readObject("the header, as {\"kelmo-scene\":1}", [&](const std::string& key) {
        if (key == "kelmo-scene") {
            int version = 0;
            const char* where = text.mark();
            if (!once(1) || !text.readInt(version, "the version of the format, 1")) return false;
            if (version == FORMAT_VERSION) return true;
            text.moveTo(where);
            return text.fail("the version of the format, 1");
        }
        if (key == "up") {
            const char* where = text.mark();
            if (!once(2) || !text.readText(header.up, "\"x\", \"y\" or \"z\"")) return false;
            if (header.up == "x" || header.up == "y" || header.up == "z") return true;
            text.moveTo(where);
            return text.fail("\"x\", \"y\" or \"z\"");
        }
        if (key == "unit") {
            const char* where = text.mark();
            double metres = 0;
            if (!once(4) || !text.readDouble(metres, "a number of metres")) return false;
            header.unit.assign(where, text.position());
            if (metres > 0) return true;
            text.moveTo(where);
            return text.fail("a number of metres above 0");
        }
        if (key == "source") return once(8) && text.readText(header.source, "the name of a file");
        return text.failAt(text.last(), "the header has no key " + quoted(key) + suggestion(nearestHeaderKey(key)));
    });
    if (!read || !text.needEnd()) return false;
    if ((seen & 1) == 0) return text.failAt(start, "the header must have the key \"kelmo-scene\"");
    SceneHeader& kept = contents.header();
    if (kept.up.empty() && kept.unit.empty() && kept.source.empty()) kept = header;
    return true;
}

KUtils::ErrorRecord* SceneReader::readPlugin(JsonText& text, const char* begin, const char* end) {
    const bool read = lineReader.read(text, contents, plugin);
    if (!read) return damaged(lineNumber, text.errorColumn(), lineReader.errorPlace(plugin), text.errorMessage());

    const std::string place = "plugin " + quoted(plugin.name);
    if (contents.find(plugin.name.c_str()) != nullptr || contents.deferred().findByName(plugin.name) != nullptr)
        return damaged(lineNumber, 1, place, "a plugin of this name stands in the scene already");
    if (!plugin.deferred) {
        if (buildPlugin(contents, plugin, lineNumber, open) != nullptr) return nullptr;
        return damaged(lineNumber, 1, place, NO_MEMORY);
    }
    DeferredRecord record;
    record.name = plugin.name;
    record.node = plugin.node;
    record.type = plugin.type->typeName();
    record.line.assign(begin, end);
    record.lineNumber = lineNumber;
    record.source = shownName;
    record.after = contents.last();
    contents.deferred().add(std::move(record));
    return nullptr;
}

KUtils::ErrorRecord* SceneReader::finish() {
    const OpenValue* firstValue = nullptr;
    const OpenReference* firstReference = nullptr;
    std::size_t missing = 0;
    for (const OpenValue& value : open) {
        settle(contents, value, [&](const OpenValue& of, const OpenReference& reference) {
            if (missing++ != 0) return;
            firstValue = &of;
            firstReference = &reference;
        });
    }
    if (missing == 0) return nullptr;
    const bool deferred = contents.deferred().findByName(firstReference->name) != nullptr;
    std::string message = deferred ? "refers to " + quoted(firstReference->name) + ", which is deferred"
                                   : "there is no plugin " + quoted(firstReference->name) +
                                         suggestion(nearestPlugin(contents, firstReference->name));
    if (missing > 1) message += " (the first of " + std::to_string(missing) + " such references)";
    return damaged(firstValue->line, firstReference->column,
                   "plugin " + quoted(firstValue->plugin) + ", parameter " + quoted(firstValue->param), message);
}

}  // namespace Offline
