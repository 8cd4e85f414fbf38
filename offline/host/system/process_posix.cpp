#include <dlfcn.h>
#include <pthread.h>

#include "host/system/process.h"

namespace Offline {

std::string ownFolder() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&ownFolder), &info) == 0 || info.dli_fname == nullptr) return {};
    const std::string file = info.dli_fname;
    const std::size_t slash = file.rfind('/');
    return slash == std::string::npos ? std::string(".") : file.substr(0, slash);
}

// The library is linked with -z nodelete.
void keepLoaded() {}

std::uint64_t currentThread() { return static_cast<std::uint64_t>(pthread_self()); }

}  // namespace Offline
