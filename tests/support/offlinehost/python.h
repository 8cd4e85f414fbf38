// The interpreter's header, for this extension alone. It has to come before the standard headers.
#pragma once

#include <Python.h>
