// The host bridge: finds the host plug-in under the installation root, loads it and takes from it the functions
// and objects through which the scene is reached.
#pragma once

namespace KUtils::Python {

// Starts script access anew, also when it is started already (the old library is freed, its manager not told).
// False when there is no memory for the state record. Throws SceneAccessProblem; the module is then
// uninitialised again.
bool startSceneAccess();

// Tells the host manager that script access ends, frees the library and the state. Nothing when not started.
void endSceneAccess();

}  // namespace KUtils::Python
