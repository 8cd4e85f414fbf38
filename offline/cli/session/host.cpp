#include "session/host.h"

#include <dlfcn.h>

#include <exception>

namespace {

// Carries pieces of text from the table's C sink to a C++ callback; an exception of the callback waits
// until the host has returned.
struct Collector {
    const Host::Lines& each;
    std::exception_ptr problem = nullptr;

    static void sink(void* user, const char* text, size_t length) {
        Collector& self = *static_cast<Collector*>(user);
        if (self.problem) return;
        try {
            self.each(std::string(text, length));
        } catch (...) {
            self.problem = std::current_exception();
        }
    }
    void rethrow() const {
        if (problem) std::rethrow_exception(problem);
    }
};

}  // namespace

Host::Host(const std::string& library) {
    void* handle = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) throw Failure(exitInstallation, std::string("the host library cannot be loaded: ") + dlerror());
    const auto table = reinterpret_cast<OfflineControlFunction>(dlsym(handle, OFFLINE_CONTROL_EXPORT));
    control_ = table ? table(OFFLINE_CONTROL_VERSION) : nullptr;
    if (!control_ || control_->size < sizeof(OfflineControl)) {
        throw Failure(exitInstallation, "the host library \"" + library + "\" is of another version than this program");
    }
    // So early the host can only warn of its own files.
    warnings([](const std::string& text) { throw Failure(exitInstallation, "the installation is damaged: " + text); });
}

void Host::check(int result, ExitCode code) const {
    if (result != 0) throw Failure(code, control_->lastError());
}

void Host::addTypes(const std::string& folder) { check(control_->addTypes(folder.c_str()), exitInput); }

bool Host::types(const char* typeName, const Lines& each) const {
    Collector collector{each};
    const int result = control_->types(typeName, &Collector::sink, &collector);
    collector.rethrow();
    if (!typeName) check(result, exitInstallation);
    return result == 0;
}

void Host::open(const std::string& path, const std::string& shownName) {
    check(control_->open(path.c_str(), shownName.c_str()), exitInput);
}

void Host::save(const std::string& path) { check(control_->save(path.c_str()), exitOutput); }

void Host::saveText(const Lines& each) {
    Collector collector{each};
    const int result = control_->saveText(&Collector::sink, &collector);
    collector.rethrow();
    check(result, exitOutput);
}

void Host::snapshot() { check(control_->snapshot(), exitInput); }

void Host::changes(const Lines& each) {
    Collector collector{each};
    const int result = control_->changes(&Collector::sink, &collector);
    collector.rethrow();
    check(result, exitOutput);
}

void Host::warnings(const Lines& each) const {
    Collector collector{each};
    control_->warnings(&Collector::sink, &collector);
    collector.rethrow();
}

bool Host::end(std::string& report) {
    const Lines keep = [&report](const std::string& text) { report += text; };
    Collector collector{keep};
    const int result = control_->end(&Collector::sink, &collector);
    collector.rethrow();
    return result == 0;
}
