// Texts on their way from the control table to Python: a sink that keeps them, and what becomes of them.
// Every function that returns an object returns a new reference, or null with the Python error set.
#pragma once

#include "python.h"
// The interpreter's header comes first.
#include <string>
#include <vector>

namespace offlinehost {

using Texts = std::vector<std::string>;

// An OfflineTextSink: appends to the Texts that `user` points to.
void keepText(void* user, const char* text, std::size_t length);

// All of them in one str.
PyObject* joined(const Texts& texts);

// A list of str.
PyObject* listOf(const Texts& texts);

// A list of what the json module reads from each.
PyObject* parsedList(const Texts& texts);

// What the json module reads from one text.
PyObject* parsed(const std::string& text);

}  // namespace offlinehost
