// Copying values through the settable interface, element by element.
#include "param/clone/clone_param_value.h"
#include "params/generic/generic_list_param.h"

namespace KUtils {

namespace {

Transform narrowed(const TraceTransform& wide) {
    Transform transform;
    transform.matrix = wide.matrix;
    transform.offset = Vector{static_cast<float>(wide.offset[0]), static_cast<float>(wide.offset[1]),
                              static_cast<float>(wide.offset[2])};
    return transform;
}

// One fill: what stays the same at all its levels. A generic list that finds no memory for a level stays at the one
// before, where the values of the inner list would replace others; so the fill ends there.
struct Fill {
    KelmoSettableParamInterface& settable;
    KelmoPluginParameter& target;
    KelmoPluginParameter& source;
    GenericSettableListParam* generic;
    std::int64_t nestedElements;

    // The source outlives a fill that something of the host's ends with an exception: its level is closed then.
    template <class Work>
    auto closingWhenRaised(ListHandle sourceList, const Work& work) {
        try {
            return work();
        } catch (...) {
            source.closeList(sourceList);
            throw;
        }
    }

    bool run(int level) {
        const int count = source.getCount(0.0);
        if (level > 1 && count > 0) nestedElements += count;
        if (level > MAX_LIST_NESTING || nestedElements > MAX_NESTED_ELEMENTS) return false;
        settable.setCount(count);
        if (generic != nullptr && generic->getCount(0.0) == -1) return false;
        for (int i = 0; i < count; ++i) {
            if (!isListAt(i)) {
                copyElement(settable, source, i);
                continue;
            }
            const ListHandle sourceList = source.openListImpl(i);
            const ListHandle targetList = target.openListImpl(i);
            if (generic != nullptr && targetList == 0) return false;
            if (!closingWhenRaised(sourceList, [&] { return run(level + 1); })) return false;
            source.closeList(sourceList);
            target.closeList(targetList);
        }
        return true;
    }

    bool isListAt(int index) {
        const ListHandle peeked = source.openListImpl(index);
        const int count = closingWhenRaised(peeked, [&] { return source.getCount(0.0); });
        source.closeList(peeked);
        return count != -1;
    }
};

}  // namespace

void copyElement(KelmoSettableParamInterface& settable, KelmoPluginParameter& source, int index) {
    const std::int32_t type = source.getType(index, 0.0);
    switch (type) {
        case PARAM_INT:
            return settable.setInt(source.getInt(index, 0.0), index, 0.0);
        case PARAM_FLOAT:
            return settable.setFloat(source.getFloat(index, 0.0), index, 0.0);
        case PARAM_DOUBLE:
            return settable.setDouble(source.getDouble(index, 0.0), index, 0.0);
        case PARAM_BOOL:
            return settable.setBool(source.getBool(index, 0.0), index, 0.0);
        case PARAM_VECTOR:
            return settable.setVector(source.getVector(index, 0.0), index, 0.0);
        case PARAM_COLOR:
            return settable.setColor(source.getColor(index, 0.0), index, 0.0);
        case PARAM_ACOLOR:
            return settable.setAColor(source.getAColor(index, 0.0), index, 0.0);
        case PARAM_MATRIX:
            return settable.setMatrix(source.getMatrix(index, 0.0), index, 0.0);
        case PARAM_TRANSFORM:
            return settable.setTransform(narrowed(source.getTransform(index, 0.0)), index, 0.0);
        case PARAM_STRING:
            return settable.setString(source.getString(index, 0.0), index, 0.0);
        default:
            break;
    }
    if (type != PARAM_PLUGIN && !isOutputType(type)) return;
    const char* outputName = nullptr;
    PluginBase* plugin = source.getPlugin(index, 0.0, &outputName);
    settable.setPluginOutput(plugin, outputName, index, 0.0);
}

bool fillList(KelmoSettableParamInterface* settable, KelmoPluginParameter* target, KelmoPluginParameter& source,
              std::int32_t, GenericSettableListParam* generic) {
    if (settable == nullptr || target == nullptr) return false;
    return Fill{*settable, *target, source, generic, 0}.run(1);
}

}  // namespace KUtils
