#include "params/scalar/plugin_param.h"

namespace KUtils {

DefPluginParam::DefPluginParam(const char* name, PluginBase* plugin, const char* outputName, bool ownsName) noexcept
    : ScalarBase(name, ownsName), output(makeSharedText(outputName)), referenced(plugin) {}

DefPluginParam::DefPluginParam(const DefPluginParam& source) noexcept
    : ScalarBase(source), output(retainText(source.output)), referenced(source.referenced) {}

DefPluginParam::~DefPluginParam() { releaseText(output); }

ParamType DefPluginParam::getType(int, double) { return PARAM_PLUGIN; }

PluginBase* DefPluginParam::getPlugin(int, double, const char** outputName) {
    if (outputName != nullptr) *outputName = charactersOf(output);
    return referenced;
}

void DefPluginParam::setPluginOutput(PluginBase* plugin, const char* outputName, int, double) {
    // The new record comes first: the name may be the old record's.
    SharedText* replacement = makeSharedText(outputName);
    releaseText(output);
    output = replacement;
    referenced = plugin;
}

KelmoPluginParameter* DefPluginParam::clone() { return wholeCopy(*this); }

}  // namespace KUtils
