/* Included before every file of the interpreter: the few things that Wine's C headers spell otherwise than
 * the headers that Python 2.7 was written for. With it the upstream sources build unchanged. */
#include <math.h>
#include <process.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/timeb.h> /* a member is called timezone: before the macro */
#include <time.h>

/* Wine always means the newer C run-time's streams; msvcr90 has an array. */
#undef stdin
#undef stdout
#undef stderr
#define stdin (_iob + 0)
#define stdout (_iob + 1)
#define stderr (_iob + 2)

/* Macros of both sides: Wine's take arguments, PC/pyconfig.h's do not. */
#undef copysign
#undef copysignf

/* Python/dynload_win.c has a static one of its own. */
#define strcasecmp py_strcasecmp
#define tzset _tzset

/* Data of the C run-time: Wine declares these without dllimport, and they would name a jump instruction.
 * The functions that return their addresses are there. */
long* __cdecl __p__timezone(void);
int* __cdecl __p__daylight(void);
char** __cdecl __p__tzname(void);
char*** __cdecl __p__environ(void);
int* __cdecl __sys_nerr(void);
char** __cdecl __sys_errlist(void);
#define timezone (*__p__timezone())
#define daylight (*__p__daylight())
#define tzname (__p__tzname())
#undef environ
#undef _environ
#define environ (*__p__environ())
#define _environ environ
#define _sys_nerr (*__sys_nerr())
#define _sys_errlist (__sys_errlist())

/* Constants and a type that Wine's headers leave out. */
#define _OLD_P_OVERLAY 2
#define _MAX_ENV 32767
#define REG_LEGAL_CHANGE_FILTER 15
typedef int sig_atomic_t;
