// Plugin types for tests of the core, and error chains as text.
#pragma once

#include <cstring>
#include <string>

#include "core/catalogue/catalogue.h"
#include "kelmo/core/error_record.h"

// "[location] message | message" of a chain, which is given back. Empty for null.
inline std::string textOf(KUtils::ErrorRecord* error) {
    std::string text;
    for (const KUtils::ErrorRecord* record = error; record != nullptr; record = record->cause) {
        if (!text.empty()) text += " | ";
        if (record->location != nullptr) text += '[' + std::string(record->location) + "] ";
        text += record->message;
    }
    KUtils::releaseError(error);
    return text;
}

inline std::string addTypesText(Offline::Catalogue& catalogue, const char* json) {
    return textOf(catalogue.addText(json, std::strlen(json), "t.json"));
}

// Plain: no parameters. Shade: a colour and a number texture, an output. Only: single-instance. Bare: no descriptor.
inline void addTestTypes(Offline::Catalogue& catalogue) {
    addTypesText(catalogue, R"({"family":"Test","types":[
      {"name":"Plain","kind":"node"},
      {"name":"Shade","kind":"material","interfaces":["texture","texture_float"],"params":[
        {"name":"color","type":"texture","default":[0.25,0.5,0.75,1]},
        {"name":"amount","type":"float","default":0.5},
        {"name":"amount","type":"string"},
        {"name":"label","type":"string","default":"none"},
        {"name":"sizes","type":"int","list":true},
        {"name":"out","type":"output_texture"}]},
      {"name":"Only","kind":"settings","unique":true},
      {"name":"Bare","descriptor":false,"interfaces":["texture_transform","texture_int","texture_vector","texture_matrix"]}
    ]})");
}
