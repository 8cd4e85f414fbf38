// DefStringListParam: a flat list of texts. Each element is a shared text record, null when absent; a
// clone shares the records, which are never written again.
#pragma once

#include "params/list/list_base.h"
#include "params/shared_text.h"

namespace KUtils {

// The records belong to the block, over its whole capacity: those beyond the count can come back.
template <>
struct ElementLife<SharedText*> {
    static void initialise(SharedText** first, std::size_t count);
    static void dispose(SharedText** first, std::size_t count);
    static void copy(SharedText** to, SharedText* const* from, std::size_t count);
};

class DefStringListParam final : public DefListParamBaseTyped<SharedText*> {
  public:
    using DefListParamBaseTyped::DefListParamBaseTyped;

    const char* getString(int index, double time) override;
    void setString(const char* value, int index, double time) override;
    KelmoPluginParameter* clone() override;
};

}  // namespace KUtils
