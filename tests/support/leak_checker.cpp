// What the checker of leaks is told by a program that embeds the interpreter.
// Its runtime library looks for this function, so it is visible.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() { return LEAK_CHECKER_OPTIONS; }
