// Writes what a value answers as one line of text, so that a table of expected answers can be read.
#pragma once

#include "kelmo/param/plugin_parameter.h"

namespace describe {

// A line of text, filled piece by piece; what does not fit is cut.
struct Line {
    char text[1024];
    int length;

    Line() : length(0) { text[0] = '\0'; }
    void add(const char* format, ...);
};

// What the eleven element getters answer at `index`, in the getters' order and with zero answers left
// out: "int 7 float 7 double 7 bool self". A plugin stands as "self" (the value), or "plugin NAME".
Line answers(KUtils::KelmoPluginParameter& value, int index);

// The element in its own type only, "" when it has no type.
Line element(KUtils::KelmoPluginParameter& value, int index);

// A stand-in for a plugin, which describe knows by name.
struct NamedThing : KUtils::PluginBase {
    explicit NamedThing(const char* called) : name(called) {}
    const char* name;
};
extern NamedThing lamp;
extern NamedThing sphere;

}  // namespace describe
