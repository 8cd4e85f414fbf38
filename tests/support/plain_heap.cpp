// In the place of the interpreter's own heap for small objects, which valgrind cannot see into: every object of
// Python's is a block of the C heap. So the use of an object after its end is found, and nothing has to be suppressed:
// the interpreter's heap reads outside of its blocks by design.
#include <cstdlib>

extern "C" __attribute__((visibility("default"))) void* PyObject_Malloc(std::size_t size);
extern "C" __attribute__((visibility("default"))) void* PyObject_Realloc(void* block, std::size_t size);
extern "C" __attribute__((visibility("default"))) void PyObject_Free(void* block);

namespace {

// No bytes are a block too.
std::size_t atLeastOne(std::size_t size) { return size != 0 ? size : 1; }

}  // namespace

void* PyObject_Malloc(std::size_t size) { return std::malloc(atLeastOne(size)); }
void* PyObject_Realloc(void* block, std::size_t size) { return std::realloc(block, atLeastOne(size)); }
void PyObject_Free(void* block) { std::free(block); }
