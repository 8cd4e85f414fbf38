// The core's shader source: collects the text that values write into it.
#pragma once

#include <string>

#include "kelmo/param/shader_source.h"

namespace Offline {

// Every ShaderSource that exists is one of these.
class ShaderText final : public KUtils::ShaderSource {
  public:
    std::string text;
};

}  // namespace Offline
