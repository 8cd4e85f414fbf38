// The start and end of one image (a library or a program): static objects are constructed at its start
// and destroyed, with the functions given to atexit, at its end.
//
// These files declare what they use of the C run-time themselves: the headers mark atexit and others as
// imported, and here they are defined.
#pragma once

extern "C" {

using VoidFunction = void(__cdecl*)();
using IntFunction = int(__cdecl*)();

// False when an initializer refuses: the image must not be used.
bool startImage();
void endImage();
}
