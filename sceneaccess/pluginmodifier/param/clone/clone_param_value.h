// cloneParamValue: turns any parameter value into a standalone value object of the module's own family, of the
// class that a requested type code asks for.
//
// The work has two halves: an empty object of the right class is made, then it is filled through its settable
// interface, while the source is read through the parameter value interface only, at time 0.0. The source's
// cursor moves and comes back.
//
// Ownership: a result belongs to the caller. Errors: a refusal is null, the caller words it. SceneAccessProblem
// only passes through from a source that raises it; nothing is left behind then.
#pragma once

#include <cstdint>
#include <memory>

#include "kelmo/param/plugin_parameter.h"
#include "kelmo/param/settable.h"
#include "kelmo/plugin/plugin.h"

namespace KUtils {

class GenericSettableListParam;

using OwnedValue = std::unique_ptr<KelmoPluginParameter>;

// A value of `source` as `plugin` would carry it: a single value of type `code`, or a list when `isList` is set
// or the code is PARAM_LIST.
OwnedValue cloneParamValue(PluginBase* plugin, KelmoPluginParameter& source, std::int32_t code, bool isList);

// An unfilled object for a single value of `code`, by the pair of the source's own type and the code.
OwnedValue makeScalarValue(KelmoPluginParameter& source, std::int32_t code);

// An empty list object for `code`. Lists of lists go by the parameter's name and the plugin's type. `generic`, when
// given, receives the object if it is a generic list: its texts become its own only with keepPrivateTexts.
OwnedValue makeListValue(PluginBase* plugin, const char* name, std::int32_t code,
                         GenericSettableListParam** generic = nullptr);

// Copies one value, by the type that the source has at `index`; an unknown type copies nothing.
void copyElement(KelmoSettableParamInterface& settable, KelmoPluginParameter& source, int index);

// The deepest nesting of a list value, and the most elements that its inner lists may have together, however
// often the same list stands in it.
constexpr int MAX_LIST_NESTING = 64;
constexpr std::int64_t MAX_NESTED_ELEMENTS = std::int64_t{1} << 28;

// Copies all elements of `source`, lists within it at the inner levels of `target`. False for a null settable or
// target, for a source that is nested beyond the bounds, and when `generic`, the target if it is a generic list, finds
// no memory for one of its levels; opened levels are then left open.
bool fillList(KelmoSettableParamInterface* settable, KelmoPluginParameter* target, KelmoPluginParameter& source,
              std::int32_t code, GenericSettableListParam* generic = nullptr);

// True when a value of type PARAM_PLUGIN, or 1000 (a named output), may feed a texture parameter of type `code`:
// the plugin offers the interface that the texture type reads, or declares the output with the matching type.
bool pluginFeedsTexture(KelmoPluginParameter& source, std::int32_t code);
bool outputFeedsTexture(KelmoPluginParameter& source, std::int32_t code);

// fillList on a new list object, whose texts are its own afterwards.
bool fillNewList(KelmoPluginParameter& list, GenericSettableListParam* generic, KelmoPluginParameter& source,
                 std::int32_t code);

// The interface through which an object is filled, or null.
KelmoSettableParamInterface* settableOf(KelmoPluginParameter& value);

}  // namespace KUtils
