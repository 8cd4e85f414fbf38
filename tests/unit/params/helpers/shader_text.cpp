#include "shader_text.h"

#include <cstdarg>
#include <cstdio>

void KUtils::ShaderSource::printf(const char* format, ...) {
    ShaderText& kept = static_cast<ShaderText&>(*this);
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(kept.text, sizeof kept.text, format, values);
    va_end(values);
    ++kept.calls;
}
