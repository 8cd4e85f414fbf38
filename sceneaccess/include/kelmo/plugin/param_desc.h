// A plugin type: its name and the table of the parameters that it declares. Read directly, so every
// offset is fixed (bytes of the 64-bit core library).
#pragma once

#include <cstdint>

#include "kelmo/param/param_type.h"
#include "kelmo/param/types.h"
#include "kelmo/plugin/plugin_base.h"

namespace KUtils {

// The declaration of one parameter. The reserved bytes are the core's.
struct ParamDesc {
    unsigned char reserved0[64];
    const char* name;
    ParamType type;          // PARAM_OUTPUT_...: an output parameter
    std::int32_t listCount;  // -1: a single value; anything else: a list
    unsigned char reserved80[32];
    std::uint8_t hasDefault;  // nonzero: the default of the declared type is valid
    std::int32_t defaultInt;
    float defaultFloat;
    double defaultDouble;
    Vector defaultVector;
    Color defaultColor;
    AColor defaultAColor;
    Matrix defaultMatrix;
    Transform defaultTransform;
    const char* defaultString;  // may be null
    unsigned char reserved272[16];
};

// Declarations in their order, contiguous.
struct ParamTable {
    std::int32_t count;
    unsigned char reserved4[12];
    ParamDesc* records;
};

class PluginDescriptor {
  public:
    virtual const char* getTypeName() = 0;

    unsigned char reserved8[8];
    ParamTable* params;

  protected:
    PluginDescriptor() : reserved8(), params(nullptr) {}
    ~PluginDescriptor() = default;
};

// What a plugin answers for PLUGIN_DESC_INTERFACE_ID.
class PluginDescriptorInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return PLUGIN_DESC_INTERFACE_ID; }

    PluginDescriptor* descriptor = nullptr;
};

}  // namespace KUtils
