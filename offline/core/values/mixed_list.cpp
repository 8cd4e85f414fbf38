#include "core/values/mixed_list.h"

namespace Offline {

ValueList::~ValueList() {
    for (Value* value : values) delete value;
}

bool ValueList::append(Value* value) {
    if (values.append(value)) return true;
    delete value;
    return false;
}

int MixedList::getCount(double time) {
    if (depth == 0) return elements.count();
    Value* value = opened();
    return value != nullptr ? value->getCount(time) : -1;
}

KUtils::ListHandle MixedList::openListImpl(int index) {
    if (depth == 0) {
        if (index < 0 || index >= elements.count()) return 0;
        current = index;
        return ++depth;
    }
    Value* value = opened();
    if (value == nullptr) return 0;
    const bool list = value->getCount(0.0) != -1;
    if (value->openListImpl(index) == 0 && (!list || value->getType(-1, 0.0) == KUtils::PARAM_LIST)) return 0;
    return ++depth;
}

KUtils::ListHandle MixedList::closeList(KUtils::ListHandle handle) {
    if (handle == 0 || depth == 0) return depth;
    --depth;
    if (depth > 0) elements.at(current)->closeList(handle - 1);
    return depth;
}

Value* MixedList::answering(int index) const {
    if (depth > 0) return opened();
    Value* value = elements.at(index);
    return value != nullptr && value->getCount(0.0) == -1 ? value : nullptr;
}

int MixedList::getInt(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getInt(index, time) : 0;
}

float MixedList::getFloat(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getFloat(index, time) : 0.0f;
}

double MixedList::getDouble(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getDouble(index, time) : 0.0;
}

bool MixedList::getBool(int index, double time) {
    Value* value = answering(index);
    return value != nullptr && value->getBool(index, time);
}

KUtils::Vector MixedList::getVector(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getVector(index, time) : KUtils::Vector{};
}

KUtils::Color MixedList::getColor(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getColor(index, time) : KUtils::Color{};
}

KUtils::AColor MixedList::getAColor(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getAColor(index, time) : KUtils::AColor{};
}

KUtils::Matrix MixedList::getMatrix(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getMatrix(index, time) : KUtils::Matrix{};
}

KUtils::TraceTransform MixedList::getTransform(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getTransform(index, time) : KUtils::TraceTransform{};
}

const char* MixedList::getString(int index, double time) {
    Value* value = answering(index);
    return value != nullptr ? value->getString(index, time) : nullptr;
}

KUtils::PluginBase* MixedList::getPlugin(int index, double time, const char** outputName) {
    Value* value = answering(index);
    return value != nullptr ? value->getPlugin(index, time, outputName) : nullptr;
}

KUtils::ListView<std::int32_t> MixedList::getIntList(double time) {
    Value* value = opened();
    return value != nullptr ? value->getIntList(time) : KUtils::emptyView<std::int32_t>();
}

KUtils::ListView<float> MixedList::getFloatList(double time) {
    Value* value = opened();
    return value != nullptr ? value->getFloatList(time) : KUtils::emptyView<float>();
}

KUtils::ListView<KUtils::Vector> MixedList::getVectorList(double time) {
    Value* value = opened();
    return value != nullptr ? value->getVectorList(time) : KUtils::emptyView<KUtils::Vector>();
}

KUtils::ListView<KUtils::Color> MixedList::getColorList(double time) {
    Value* value = opened();
    return value != nullptr ? value->getColorList(time) : KUtils::emptyView<KUtils::Color>();
}

KUtils::ParamType MixedList::getType(int index, double time) {
    if (depth == 0 && index < 0) return code;
    Value* value = depth > 0 ? opened() : elements.at(index);
    if (value == nullptr) return KUtils::PARAM_UNKNOWN;
    return value->getType(depth > 0 ? index : -1, time);
}

void MixedList::eachReference(ReferenceVisitor visitor, void* user) {
    for (int i = 0; i < elements.count(); ++i)
        if (elements.at(i) != nullptr) elements.at(i)->eachReference(visitor, user);
}

bool MixedList::copyElements(ValueList& to, const ValueList& from) {
    for (int i = 0; i < from.count(); ++i) {
        Value* copy = from.at(i) != nullptr ? from.at(i)->copy() : nullptr;
        if (copy == nullptr && from.at(i) != nullptr) return false;
        if (!to.append(copy)) return false;
    }
    return true;
}

}  // namespace Offline
