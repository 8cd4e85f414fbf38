// What the translating process may still ask of the system once it has begun to read: memory, time, reading
// files, and writing to the descriptors that it was given. No file is opened for writing, made, renamed or
// removed, no program or process is started, no socket is made, no memory becomes executable. A refused call
// fails with EPERM.
#pragma once

#include <vector>

namespace Translation {

// Holds from now on and cannot be undone. False when the system does not offer it; errno says why.
bool enterSandbox(const std::vector<int>& writableDescriptors);

}  // namespace Translation
