#include "session/python.h"

#include "session/script.h"

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "failure.h"

namespace {

constexpr const char* rootVariable = "KELMO_FOR_MAYA2020_MAIN";

// Owns one reference.
class Ref {
  public:
    explicit Ref(PyObject* stolen) : object_(stolen) {}
    ~Ref() { Py_XDECREF(object_); }
    Ref(const Ref&) = delete;
    Ref& operator=(const Ref&) = delete;
    PyObject* get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

  private:
    PyObject* object_;
};

std::string folderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string textOf(PyObject* object) {
    Ref text(PyUnicode_Check(object) ? PyUnicode_AsUTF8String(object) : PyObject_Str(object));
    if (!text) {
        PyErr_Clear();
        return "a value without a text";
    }
    return PyString_AS_STRING(text.get());
}

// What `sys.exit` was given: the exception's `code`.
ScriptEnd judgeExit(PyObject* exception) {
    ScriptEnd end;
    Ref code(PyObject_GetAttrString(exception, "code"));
    if (!code) PyErr_Clear();
    end.left = true;
    end.exitIsNumber = code && PyInt_Check(code.get());
    end.succeeded = !code || code.get() == Py_None || (end.exitIsNumber && PyInt_AS_LONG(code.get()) == 0);
    if (!end.succeeded) end.exitValue = textOf(code.get());
    return end;
}

// Hands the exception to sys.excepthook. PyErr_Print is not used, since it ends the process for a SystemExit.
void report(PyObject* type, PyObject* value, PyObject* traceback) {
    PyObject* hook = PySys_GetObject(const_cast<char*>("excepthook"));
    if (hook) {
        Py_INCREF(hook);
        Ref held(hook);
        Ref result(PyObject_CallFunctionObjArgs(hook, type, value, traceback ? traceback : Py_None, nullptr));
        if (result) return;
        PyErr_Clear();
    }
    PyErr_Display(type, value, traceback);
}

// Takes the pending exception and says how the script ended.
ScriptEnd judge() {
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    Ref heldType(type), heldValue(value), heldTraceback(traceback);
    if (PyErr_GivenExceptionMatches(type, PyExc_SystemExit)) return judgeExit(value);
    ScriptEnd end;
    end.interrupted = PyErr_GivenExceptionMatches(type, PyExc_KeyboardInterrupt) != 0;
    report(type, value, traceback);
    return end;
}

void prepareArguments(const Script& script) {
    std::vector<char*> argv{const_cast<char*>(script.path.c_str())};
    for (const std::string& argument : script.arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    PySys_SetArgvEx(static_cast<int>(argv.size()), argv.data(), 0);
}

void prepareSearchPath(const Script& script, const Installation& place) {
    PyObject* path = PySys_GetObject(const_cast<char*>("path"));
    Ref own(PyString_FromString(place.pythonFolder.c_str()));
    Ref beside(PyString_FromString(folderOf(script.path).c_str()));
    if (!path || !own || !beside || PyList_Insert(path, 0, beside.get()) != 0 ||
        PyList_Insert(path, 0, own.get()) != 0) {
        throw Failure(exitInstallation, "Python's search path cannot be set");
    }
}

ScriptEnd runFile(const Script& script) {
    std::FILE* file = std::fopen(script.path.c_str(), "r");
    if (!file) throw Failure(exitInput, "cannot read the script \"" + script.path + "\": " + std::strerror(errno));
    PyObject* names = PyModule_GetDict(PyImport_AddModule("__main__"));
    Ref fileName(PyString_FromString(script.path.c_str()));
    PyDict_SetItemString(names, "__file__", fileName.get());
    Ref result(PyRun_FileExFlags(file, script.path.c_str(), Py_file_input, names, names, 1, nullptr));
    if (!result) return judge();
    // What `print "text",` left open gets its line end, as at the end of any Python program.
    if (Py_FlushLine() != 0) PyErr_Clear();
    ScriptEnd end;
    end.succeeded = true;
    return end;
}

// Whether the pipe stands in a folder, unlike that of a shell's <(command). Python opens a script once more to show its
// lines in a traceback, and would wait there for a writer that does not come.
bool hasName(const std::string& pipe) {
    struct statfs facts {};
    return statfs(pipe.c_str(), &facts) != 0 || facts.f_type != PIPEFS_MAGIC;
}

}  // namespace

void checkScript(const std::string& path) {
    // It is not opened: a pipe can be read only once.
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0 || access(path.c_str(), R_OK) != 0) {
        throw Failure(exitInput, "cannot read the script \"" + path + "\": " + std::strerror(errno));
    }
    const auto refuse = [&](const char* reason) {
        throw Failure(exitInput, "cannot read the script \"" + path + "\": " + reason);
    };
    if (S_ISDIR(facts.st_mode)) refuse("it is a folder");
    if (S_ISFIFO(facts.st_mode) && hasName(path)) refuse("it is a named pipe");
}

ScriptEnd runScript(const Script& script, const Installation& place) {
    setenv(rootVariable, place.root.c_str(), 1);
    Py_Initialize();
    prepareArguments(script);
    prepareSearchPath(script, place);
    ScriptEnd end = runFile(script);
    Py_Finalize();
    return end;
}

std::string pythonVersion() { return PY_VERSION; }
