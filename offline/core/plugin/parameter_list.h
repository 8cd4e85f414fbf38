// The values that a plugin carries, in the order in which it was given them.
//
// The list points at values and owns none. Its array lives in the core's heap.
#pragma once

#include <cstdint>

#include "kelmo/plugin/parameter_list.h"

namespace Offline {

class ParameterList : public KUtils::KelmoParameterList {
  public:
    ParameterList() = default;
    ParameterList(const ParameterList&) = delete;
    ParameterList& operator=(const ParameterList&) = delete;
    ~ParameterList();

    // The carried value of this name, or null.
    KUtils::KelmoPluginParameter* find(const char* name) const;

    // Replaces the value of the same name in its place, or appends; false when the list cannot grow.
    bool put(KUtils::KelmoPluginParameter* value);

    std::int32_t count() const { return used; }
    KUtils::KelmoPluginParameter* at(std::int32_t index) const { return values[index]; }

    // Calls back for the values that are carried now; stops at zero.
    void enumerate(KUtils::EnumParamsCallback& callback) const;

  private:
    std::int32_t place(const char* name) const;

    KUtils::KelmoPluginParameter** values = nullptr;
    std::int32_t used = 0;
    std::int32_t capacity = 0;
};

}  // namespace Offline
