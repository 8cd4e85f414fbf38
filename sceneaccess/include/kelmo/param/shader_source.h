// What a value's shader text is written into, and when.
#pragma once

#include "kelmo/core/export.h"

namespace KUtils {

// Text that shading code is generated from; the renderer core's.
class ShaderSource {
  public:
    KELMO_CORE_API void printf(const char* format, ...);

  protected:
    ShaderSource() = default;
    ~ShaderSource() = default;
};

struct EvaluationState {
    double time;  // frame time
};

// The renderer's evaluation context, as far as values look into it.
class EvaluationContext {
  public:
    virtual const EvaluationState* getEvaluationState() const = 0;  // null: none

  protected:
    ~EvaluationContext() = default;
};

// The shading point. Values are constant, so nothing of it is read.
class ShadingContext;

}  // namespace KUtils
