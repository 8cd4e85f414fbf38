// A shader source that keeps what is written into it, in place of the core's.
#pragma once

#include "kelmo/param/shader_source.h"

class ShaderText : public KUtils::ShaderSource {
  public:
    char text[256] = "";
    int calls = 0;
};
