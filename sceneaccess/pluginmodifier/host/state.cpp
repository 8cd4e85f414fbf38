#include "host/state.h"

#include "frame/problem.h"

namespace KUtils::Python {

SceneAccessState* sceneAccessState = nullptr;

void throwNotInitialized() {
    throwError(
        "The kelmo.pluginmodifier module wasn't initialized properly. One possible reason for this error is that you "
        "are trying to execute the script from the Script Editor. The script must be placed inside the special field "
        "that Kelmo provides for Python code (Render Settings / Kelmo Common / MEL/Python Callbacks / Post Translate "
        "Python Script)");
}

}  // namespace KUtils::Python
