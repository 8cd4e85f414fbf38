// Reading and saving scenes in the offline scene format (docs/scene-format.md), for the host plug-in and for
// tests. Only plain types cross this border.
//
// Errors are chains of records (null: success) of which the caller holds one reference. Texts handed to a sink
// are valid during the call only.
#pragma once

#include <cstddef>

#include "core/core_api.h"

namespace Offline {

// Adds the plugins of a file or a text to the contents. `shownName` names it in messages (null: the path). What was
// read before an error stays.
KELMO_CORE_API KUtils::ErrorRecord* readScene(SceneContents& contents, const char* path, const char* shownName);
KELMO_CORE_API KUtils::ErrorRecord* readSceneText(SceneContents& contents, const char* text, std::size_t length,
                                                  const char* shownName);

// Writes the contents to a file: aside in the same folder, then renamed. A failure leaves the file as it was.
KELMO_CORE_API KUtils::ErrorRecord* saveScene(SceneContents& contents, const char* path);
// Writes the contents to a sink, one call a line, the line's end included.
KELMO_CORE_API void saveSceneText(SceneContents& contents, TextSink sink, void* user);

// The plugin of a kind that stands for a DCC node (or has this name), made from its deferred record together with
// everything deferred that it refers to if it does not stand in the scene yet. `kind` is a kind as the catalogue
// spells it ("material", ...); null: any. Null: no such node, one of another kind, a record that can be made no more,
// or no memory. `problem`, when given, receives why a record could not be made (null: memory aside, each could).
KELMO_CORE_API KUtils::Plugin* materialise(SceneContents& contents, const char* node, const char* kind,
                                           KUtils::ErrorRecord** problem = nullptr);

// The value as one short text for a report: as in a scene file, references and numbers included; of a list longer than
// `maxElements` only the first ones, then "... N in all". A null value is "(none)".
KELMO_CORE_API void describeValue(KUtils::KelmoPluginParameter* value, int maxElements, TextSink sink, void* user);

}  // namespace Offline
