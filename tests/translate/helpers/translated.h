// Runs the shipped translating program on a file.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support.h"
#include "translate/supervise/supervise.h"

namespace TestSupport {

inline Translation::TranslationResult translateFile(const std::string& path, const std::string& deferKinds = "",
                                                    const Translation::Limits& limits = {}) {
    return Translation::translate(path, deferKinds, limits, TRANSLATOR);
}

// The translated scene; the test fails when there is none.
inline std::string translatedText(const std::string& path, const std::string& deferKinds = "") {
    const Translation::TranslationResult result = translateFile(path, deferKinds);
    EXPECT_TRUE(result.ok()) << result.message;
    return result.ok() ? readAll(result.scene.get()) : std::string();
}

}  // namespace TestSupport
