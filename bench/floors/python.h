// The one place from which the floors see Python. As a system header: its warnings are not ours.
#pragma once

#define PY_SSIZE_T_CLEAN
#include <Python.h>
