// Thread-local variables: the directory that the loader looks for. The first thread_local, or the first
// local static that is not constant, of an image brings this file in through _tls_index.
// Thread-locals are constant-initialized only: no constructors run for a new thread.
#pragma section(".tls", long, read, write)
#pragma section(".tls$ZZZ", long, read, write)
#pragma section(".CRT$XLA", long, read)
#pragma section(".CRT$XLZ", long, read)

extern "C" {

using ThreadCallback = void(__stdcall*)(void*, unsigned long, void*);

unsigned long _tls_index = 0;
__declspec(allocate(".tls")) char _tls_start = 0;
__declspec(allocate(".tls$ZZZ")) char _tls_end = 0;
__declspec(allocate(".CRT$XLA")) ThreadCallback firstThreadCallback = nullptr;
__declspec(allocate(".CRT$XLZ")) ThreadCallback endOfThreadCallbacks = nullptr;

struct ThreadStorageDirectory {
    const void *start, *end;
    unsigned long* index;
    ThreadCallback* callbacks;
    unsigned zeroFill, flags;
};
extern const ThreadStorageDirectory _tls_used;
const ThreadStorageDirectory _tls_used = {&_tls_start, &_tls_end, &_tls_index, &firstThreadCallback + 1, 0, 0};
}
