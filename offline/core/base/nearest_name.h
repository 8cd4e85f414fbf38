// Finds, among names that exist, the one that somebody probably meant.
#pragma once

#include <cstddef>

namespace Offline {

class NearestName {
  public:
    // `wanted` stays the caller's and must outlive the object.
    explicit NearestName(const char* wanted);

    // Considers one name, which must outlive the object. Of equally near names the first wins.
    void offer(const char* name);

    // The nearest name, or null when none is near: at most a third of the wanted name's characters differ.
    const char* best() const { return nearest; }

  private:
    const char* wanted;
    std::size_t length;
    std::size_t distance;  // a name must be nearer than this
    const char* nearest = nullptr;
};

}  // namespace Offline
