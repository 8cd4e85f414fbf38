// The only place where the program includes the interpreter's header. It has to come before any other header.
#pragma once

#include <Python.h>
