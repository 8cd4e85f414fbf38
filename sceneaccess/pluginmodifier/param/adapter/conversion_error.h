// The Python error that reading a value left pending.
#pragma once

#include <string>

#include "frame/py_ref.h"

namespace KUtils::Python {

// Holds at most one error, which is then not pending any more.
class ConversionError {
  public:
    // Takes the pending error away, if there is one.
    void take();
    explicit operator bool() const { return static_cast<bool>(type); }
    // The error's text; its type's name when it has none.
    std::string text() const;

  private:
    PyRef type;
    PyRef value;
    PyRef traceback;
};

// Takes the pending error at the end of a scope, also when an exception leaves it.
class TakeConversionError {
  public:
    explicit TakeConversionError(ConversionError& target) : error(target) {}
    TakeConversionError(const TakeConversionError&) = delete;
    TakeConversionError& operator=(const TakeConversionError&) = delete;
    ~TakeConversionError() { error.take(); }

  private:
    ConversionError& error;
};

}  // namespace KUtils::Python
