#include "host/session.h"

#include "frame/py_ref.h"
#include "frame/translate_problem.h"
#include "host/bridge.h"

namespace KUtils::Python {

PyObject* init(PyObject*, PyObject*) {
    try {
        return startSceneAccess() ? newNone() : PyErr_NoMemory();
    } catch (const SceneAccessProblem& problem) {
        return translateProblem(problem);
    }
}

PyObject* uninit(PyObject*, PyObject*) {
    endSceneAccess();
    return newNone();
}

}  // namespace KUtils::Python
