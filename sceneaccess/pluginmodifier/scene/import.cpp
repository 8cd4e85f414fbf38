#include "scene/import.h"

#include <memory>
#include <new>

#include "frame/problem.h"
#include "frame/py_ref.h"
#include "host/error_text.h"
#include "host/state.h"
#include "params/shared_text.h"
#include "scene/lookup.h"
#include "scene/scene_storage.h"

namespace KUtils::Python {

namespace {

// Null when there is no memory. The scene lives on in the host's list.
KelmoScene* makeScene() {
    void* place = kelmo_malloc(sizeof(KelmoScene));
    if (place == nullptr) return nullptr;
    try {
        return new (place) KelmoScene(currentPluginManager(), nullptr, 0);
    } catch (...) {
        kelmo_free(place, sizeof(KelmoScene));
        throw;
    }
}

// A copy of the item's characters, because reading a file may change the list; null for an item without any, and for a
// hole, which lists that _getParam hands out can have.
TextRef fileName(PyObject* item) {
    // Encoding a unicode item can be a script's own work, and may change the list too.
    const PyRef held = PyRef::borrow(item);
    const char* characters = item != nullptr ? PyString_AsString(item) : nullptr;
    PyErr_Clear();
    return TextRef(makeSharedText(characters));
}

void loadFile(KelmoScene& scene, const char* file, const char* text) {
    const ErrorRef error(scene.readFile(file, 0, 1, text));
    if (!error) return;
    char message[PROBLEM_MESSAGE_SIZE];
    errorText(error.get(), message, sizeof message);
    throwError("%s", message);
}

// A scene that could not be allocated is skipped.
PyObject* loadFiles(KelmoScene* scene, PyListObject* files, const char* text) {
    auto* list = reinterpret_cast<PyObject*>(files);
    const char* textOrNull = text[0] != 0 ? text : nullptr;
    for (Py_ssize_t i = 0; scene != nullptr && i < PyList_GET_SIZE(list); ++i) {
        const TextRef file = fileName(PyList_GET_ITEM(list, i));
        loadFile(*scene, charactersOf(file.get()), textOrNull);
    }
    return newNone();
}

}  // namespace

PyObject* addSceneContent(PyListObject* files, const char* text) {
    KelmoScene* scene = makeScene();
    appendScene(*sceneAccessState->sceneList, scene);
    return loadFiles(scene, files, text);
}

PyObject* appendSceneContent(PyListObject* files, const char* text) {
    SceneList& scenes = *sceneAccessState->sceneList;
    if (scenes.count == 0) return addSceneContent(files, text);
    return loadFiles(oldestScene(scenes), files, text);
}

}  // namespace KUtils::Python
