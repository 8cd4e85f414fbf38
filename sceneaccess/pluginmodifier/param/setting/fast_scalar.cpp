#include "param/setting/fast_scalar.h"

#include "param/setting/read_exact.h"
#include "params/scalar/scalar_params.h"
#include "params/scalar/string_param.h"

namespace KUtils::Python {

namespace {

// The value's name is its own: the script's text goes with the call.
constexpr bool OWNS_NAME = true;

template <class Class, class Element>
bool make(const char* name, long tag, PyObject* tagged, OwnedValue& value) {
    PyObject* object = ExactTag(tag).valueOf(tagged);
    Element read;
    if (object == nullptr || !readExact(object, read)) return false;
    value = OwnedValue(new Class(name, read, OWNS_NAME));
    return true;
}

}  // namespace

bool fastScalar(const char* name, std::int32_t code, PyObject* tagged, OwnedValue& value) {
    switch (code) {
        case PARAM_INT:
        case PARAM_TEXTURE_INT:
            return make<DefIntParam, std::int32_t>(name, PARAM_INT, tagged, value);
        case PARAM_FLOAT:
        case PARAM_TEXTURE_FLOAT:
            return make<DefFloatParam, float>(name, PARAM_FLOAT, tagged, value);
        case PARAM_VECTOR:
        case PARAM_TEXTURE_VECTOR:
            return make<DefVectorParam, Vector>(name, PARAM_VECTOR, tagged, value);
        case PARAM_COLOR:
        case PARAM_TEXTURE:
            return make<DefColorParam, Color>(name, PARAM_COLOR, tagged, value);
        case PARAM_STRING:
            return make<DefStringParam, const char*>(name, PARAM_STRING, tagged, value);
        default:
            return false;
    }
}

}  // namespace KUtils::Python
