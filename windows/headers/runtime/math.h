// Wine's math.h offers isnan and the like as macros only. libc++ drops the macros and expects the
// overloaded functions that Microsoft's C run-time has.
#include_next <math.h>
#if defined(__cplusplus) && !defined(WINDOWS_MATH_CLASSIFICATION)
#define WINDOWS_MATH_CLASSIFICATION
#undef isfinite
#undef isinf
#undef isnan
#undef isnormal
extern "C++" {
#define CLASSIFICATION(name)                                                                                    \
    inline bool name(float value) { return __builtin_##name(value); }                                           \
    inline bool name(double value) { return __builtin_##name(value); }                                          \
    inline bool name(long double value) { return __builtin_##name(value); }                                     \
    template <class Integer, class = decltype((double)Integer()), bool = Integer(1) / Integer(2) == Integer(0)> \
    inline bool name(Integer value) {                                                                           \
        return name((double)value);                                                                             \
    }
CLASSIFICATION(isfinite)
CLASSIFICATION(isinf)
CLASSIFICATION(isnan)
CLASSIFICATION(isnormal)
#undef CLASSIFICATION
}
#endif
