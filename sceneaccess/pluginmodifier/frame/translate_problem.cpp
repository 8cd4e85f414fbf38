#include "frame/translate_problem.h"

#include "frame/py_ref.h"
#include "host/state.h"

namespace KUtils::Python {

PyObject* translateProblem(const SceneAccessProblem& problem) {
    const SceneAccessState* state = sceneAccessState;
    if (problem.warning != 0 && state != nullptr && state->printWarningFn != nullptr) {
        state->printWarningFn(problem.message);
        return newNone();
    }
    PyErr_SetString(PyExc_Exception, problem.message);
    return nullptr;
}

}  // namespace KUtils::Python
