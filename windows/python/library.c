/* The mark that the compiler refers to wherever floating point is used. */
int _fltused = 1;
