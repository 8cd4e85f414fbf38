/* python.exe: the C run-time of python27.dll reads the command line. */
typedef struct {
    int newHandlerMode;
} StartupOptions;

int __cdecl __getmainargs(int *count, char ***arguments, char ***environment, int expandWildcards, StartupOptions *);
void __cdecl exit(int);
__declspec(dllimport) int Py_Main(int, char **);

int _fltused = 1;

void __cdecl mainCRTStartup(void) {
    int count;
    char **arguments, **environment;
    StartupOptions options = {0};
    __getmainargs(&count, &arguments, &environment, 0, &options);
    exit(Py_Main(count, arguments));
}
