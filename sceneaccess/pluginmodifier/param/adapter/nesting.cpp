#include "param/adapter/nesting.h"

#include <algorithm>
#include <unordered_map>

#include "param/adapter/python_conversions.h"
#include "param/clone/clone_param_value.h"

namespace KUtils::Python {

namespace {

struct Measure {
    int height = 0;             // levels of this list and of those within; 0 while it is being measured
    std::int64_t elements = 0;  // of the lists within, each as often as it stands there
};

class NestingMeasure {
  public:
    // Null when the bounds are exceeded. `level`: that of this list, 1 for the outermost.
    const Measure* measure(PyObject* list, int level) {
        const auto [place, isNew] = measured.try_emplace(list);
        Measure& known = place->second;  // stays where it is
        if (!isNew) return known.height > 0 && level + known.height - 1 <= MAX_LIST_NESTING ? &known : nullptr;
        if (level > MAX_LIST_NESTING) return nullptr;

        Measure total{1, 0};
        for (Py_ssize_t i = 0; i < PyList_GET_SIZE(list); ++i) {
            PyObject* element = PyList_GET_ITEM(list, i);
            if (!isTagged(element)) continue;
            PyObject* inner = PyTuple_GET_ITEM(element, 1);
            if (!isList(inner)) continue;
            const Measure* within = measure(inner, level + 1);
            if (within == nullptr) return nullptr;
            total.height = std::max(total.height, within->height + 1);
            total.elements += PyList_GET_SIZE(inner) + within->elements;
            if (total.elements > MAX_NESTED_ELEMENTS) return nullptr;
        }
        known = total;
        return &known;
    }

  private:
    std::unordered_map<PyObject*, Measure> measured;
};

}  // namespace

bool hasBoundedNesting(PyObject* list) { return NestingMeasure().measure(list, 1) != nullptr; }

}  // namespace KUtils::Python
