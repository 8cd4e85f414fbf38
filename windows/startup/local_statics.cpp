// Local statics are initialized once, whatever the threads do, by the protocol of the Microsoft ABI. A
// guard holds 0 (not begun), -1 (being initialized), or the epoch in which it was done; a thread whose own
// epoch is older takes the slow road through the header function.
struct CriticalSection {
    void* debug;
    long locks, recursion;
    void *owner, *semaphore;
    unsigned long long spin;
};
struct ConditionVariable {
    void* state;
};

extern "C" {

void __stdcall InitializeCriticalSection(CriticalSection*);
void __stdcall EnterCriticalSection(CriticalSection*);
void __stdcall LeaveCriticalSection(CriticalSection*);
void __stdcall WakeAllConditionVariable(ConditionVariable*);
int __stdcall SleepConditionVariableCS(ConditionVariable*, CriticalSection*, unsigned long milliseconds);

constexpr int NOT_BEGUN = 0;
constexpr int BEING_INITIALIZED = -1;
constexpr int FIRST_EPOCH = -2147483647 - 1;
constexpr unsigned long FOREVER = 0xffffffff;

thread_local int _Init_thread_epoch = FIRST_EPOCH;
static int globalEpoch = FIRST_EPOCH;
static CriticalSection lock;
static ConditionVariable finished;

static int __cdecl prepareLock() {
    InitializeCriticalSection(&lock);
    return 0;
}
// Runs before any constructor.
#pragma section(".CRT$XIB", long, read)
__declspec(allocate(".CRT$XIB")) extern int(__cdecl* const prepareLockEntry)();
__declspec(allocate(".CRT$XIB")) int(__cdecl* const prepareLockEntry)() = prepareLock;

void _Init_thread_header(int* guard) {
    EnterCriticalSection(&lock);
    while (*guard == BEING_INITIALIZED) SleepConditionVariableCS(&finished, &lock, FOREVER);
    if (*guard == NOT_BEGUN) {
        *guard = BEING_INITIALIZED;
    } else {
        _Init_thread_epoch = globalEpoch;
    }
    LeaveCriticalSection(&lock);
}

void _Init_thread_footer(int* guard) {
    EnterCriticalSection(&lock);
    *guard = ++globalEpoch;
    _Init_thread_epoch = globalEpoch;
    LeaveCriticalSection(&lock);
    WakeAllConditionVariable(&finished);
}

// The initializer threw: the next one to come tries again.
void _Init_thread_abort(int* guard) {
    EnterCriticalSection(&lock);
    *guard = NOT_BEGUN;
    LeaveCriticalSection(&lock);
    WakeAllConditionVariable(&finished);
}
}
