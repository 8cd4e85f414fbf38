/* The interpreter writes the name with a capital letter. */
#include <windows.h>
