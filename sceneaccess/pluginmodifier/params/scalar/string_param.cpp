#include "params/scalar/string_param.h"

namespace KUtils {

DefStringParam::DefStringParam(const char* name, const char* initial, bool ownsName) noexcept
    : ScalarBase(name, ownsName), text(copyText(initial)) {}

DefStringParam::DefStringParam(const DefStringParam& source) noexcept
    : ScalarBase(source), text(copyText(source.text)) {}

DefStringParam::~DefStringParam() { freeText(text); }

ParamType DefStringParam::getType(int, double) { return PARAM_STRING; }

const char* DefStringParam::getString(int, double) { return text; }

void DefStringParam::setString(const char* value, int, double) {
    // The copy comes first: the value may be the text that is about to be freed.
    char* copy = copyText(value);
    freeText(text);
    text = copy;
}

KelmoPluginParameter* DefStringParam::clone() { return wholeCopy(*this); }

bool DefStringParam::isWholeCopyOf(const DefStringParam& source) const {
    return DefParamBase::isWholeCopyOf(source) && (text == nullptr) == (source.text == nullptr);
}

}  // namespace KUtils
