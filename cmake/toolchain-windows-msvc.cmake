# Windows x64 with Microsoft's C++ ABI, built on Debian 12: clang 19 and lld 19, Wine's C headers
# (libwine-dev), libc++ 19's headers (libc++-19-dev). Import libraries and start-up code are the
# project's own (windows/). Nothing of Microsoft's is needed.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

# Tells the project that no vendor's C run-time library is linked: cmake/WindowsRuntime.cmake gives one.
set(WINDOWS_OWN_RUNTIME ON)

set(_llvm 19)
set(_windows "${CMAKE_CURRENT_LIST_DIR}/../windows")
set(_wine /usr/include/wine/wine)

set(CMAKE_C_COMPILER clang-${_llvm})
set(CMAKE_CXX_COMPILER clang++-${_llvm})
set(CMAKE_RC_COMPILER /usr/lib/llvm-${_llvm}/bin/llvm-rc)
set(CMAKE_MT /usr/lib/llvm-${_llvm}/bin/llvm-mt)
set(CMAKE_LINKER /usr/lib/llvm-${_llvm}/bin/lld-link)
set(WINDOWS_DLLTOOL llvm-dlltool-${_llvm})
foreach(_language C CXX)
  set(CMAKE_${_language}_COMPILER_TARGET x86_64-pc-windows-msvc19.29)
  # None of the libraries that CMake adds for Microsoft's compiler by itself.
  set(CMAKE_${_language}_STANDARD_LIBRARIES "" CACHE STRING "" FORCE)
endforeach()
set(CMAKE_MSVC_RUNTIME_LIBRARY "")

# A probe program could not be linked before the start-up code is built.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

# The order is part of it: each folder's headers continue in the next one with #include_next.
# WINE_UNICODE_NATIVE makes WCHAR the compiler's wchar_t, as in Microsoft's headers.
execute_process(COMMAND clang-${_llvm} -print-resource-dir
  OUTPUT_VARIABLE _builtin OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(JOIN " " _common -nostdinc -fms-extensions -DWINE_UNICODE_NATIVE -D_CRT_SECURE_NO_WARNINGS)
string(JOIN " " _libcxx "-isystem ${_windows}/headers/libcxx" "-isystem /usr/lib/llvm-${_llvm}/include/c++/v1")
string(JOIN " " _system "-isystem ${_builtin}/include" "-isystem ${_windows}/headers/runtime"
  "-isystem ${_wine}/msvcrt" "-isystem ${_wine}/windows")
set(CMAKE_C_FLAGS_INIT "${_common} ${_system}")
set(CMAKE_CXX_FLAGS_INIT "${_common} ${_libcxx} ${_system}")

# /Brepro: the same sources give the same bytes. /ignore:4217: a test may define what other objects import.
foreach(_kind EXE SHARED MODULE)
  set(CMAKE_${_kind}_LINKER_FLAGS_INIT "-Xlinker /nodefaultlib -Xlinker /merge:.CRT=.rdata -Xlinker /Brepro -Xlinker /ignore:4217")
endforeach()

set(CMAKE_FIND_ROOT_PATH "${_windows}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/lib/windows-run.sh")
