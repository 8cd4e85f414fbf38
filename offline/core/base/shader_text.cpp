#include "core/base/shader_text.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

#include "core/core_api.h"

void KUtils::ShaderSource::printf(const char* format, ...) {
    std::va_list values;
    va_start(values, format);
    std::va_list again;
    va_copy(again, values);
    const int length = std::vsnprintf(nullptr, 0, format, values);
    va_end(values);
    if (length > 0) {
        std::vector<char> buffer(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(buffer.data(), buffer.size(), format, again);
        static_cast<Offline::ShaderText*>(this)->text.append(buffer.data(), static_cast<std::size_t>(length));
    }
    va_end(again);
}

namespace Offline {

KUtils::ShaderSource* makeShaderSource() { return new ShaderText; }

const char* shaderText(const KUtils::ShaderSource* source) {
    return static_cast<const ShaderText*>(source)->text.c_str();
}

void freeShaderSource(KUtils::ShaderSource* source) { delete static_cast<ShaderText*>(source); }

}  // namespace Offline
