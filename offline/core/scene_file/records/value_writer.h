// Writes a value as it stands in a scene file. Values are read through the parameter interface only, so that those
// of the core and those that a script made are written alike.
#pragma once

#include <string>

#include "core/catalogue/plugin_type.h"
#include "core/scene/scene_contents.h"
#include "kelmo/param/plugin_parameter.h"

namespace Offline {

class ValueWriter {
  public:
    // As a scene with these contents is saved: a reference that their reader would not find by name is null.
    ValueWriter(std::string& text, const SceneContents& contents) : out(text), scene(&contents) {}
    // For a report: of longer lists only so many elements are written, and how many there are in all; -1: no limit.
    ValueWriter(std::string& text, int longestList) : out(text), longest(longestList) {}

    // By the declaration of the parameter; tagged when the value is not as declared.
    void write(KUtils::KelmoPluginParameter& value, const KUtils::ParamDesc& desc, ListShape shape);

    // By what the value itself answers, without a tag where its kind can be seen.
    void describe(KUtils::KelmoPluginParameter& value);

  private:
    void writeList(KUtils::KelmoPluginParameter& value, const KUtils::ParamDesc& desc, ListShape shape);
    void writeSingle(KUtils::KelmoPluginParameter& value, const KUtils::ParamDesc& desc);
    void tagged(KUtils::KelmoPluginParameter& value, int code, int index);
    void taggedFlat(KUtils::KelmoPluginParameter& value, int code);
    void element(KUtils::KelmoPluginParameter& value, int code, int index);
    void flat(KUtils::KelmoPluginParameter& value, int code);
    void mixed(KUtils::KelmoPluginParameter& value);
    void listOfLists(KUtils::KelmoPluginParameter& value, int code);
    void mapChannels(KUtils::KelmoPluginParameter& value);
    bool writeShape(KUtils::KelmoPluginParameter& value, ListShape shape);
    bool cut(int index, int count);
    bool canBeNamed(KUtils::PluginBase* plugin) const;

    template <class Numbers>
    void numbers(const Numbers* values, int count);
    void matrix(const KUtils::Matrix& value);
    template <class T>
    bool fromView(const KUtils::ListView<T>& view, int count);

    std::string& out;
    const SceneContents* scene = nullptr;
    int longest = -1;
};

}  // namespace Offline
