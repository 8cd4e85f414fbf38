# What a vendor's compiler brings along on Windows and cmake/toolchain-windows-msvc.cmake does not:
#   windows_startup                    start-up code, linked into every library and program
#   windows_import_library(NAME FILE)  an import library windows::NAME from a definition file
# The start-up code reaches every target through project_options. RapidJSON is header-only and the same
# on every system; its one folder is linked into the build tree, so that nothing else of /usr/include is seen.
function(windows_import_library name definition)
  set(library "${CMAKE_BINARY_DIR}/imports/${name}.lib")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/imports")
  add_custom_command(OUTPUT "${library}"
    COMMAND ${WINDOWS_DLLTOOL} -m i386:x86-64 -d "${definition}" -l "${library}"
    DEPENDS "${definition}" VERBATIM)
  add_custom_target(import_${name} DEPENDS "${library}")
  add_library(windows::${name} INTERFACE IMPORTED GLOBAL)
  target_link_libraries(windows::${name} INTERFACE "${library}")
  add_dependencies(windows::${name} import_${name})
endfunction()

set(_windows "${PROJECT_SOURCE_DIR}/windows")
foreach(_library kernel32 ucrtbase vcruntime140)
  windows_import_library(${_library} "${_windows}/imports/${_library}.def")
endforeach()

# A static library: an image takes only the pieces that it refers to.
add_library(windows_startup STATIC
  "${_windows}/startup/allocation.cpp"
  "${_windows}/startup/dll_entry.cpp"
  "${_windows}/startup/image.cpp"
  "${_windows}/startup/libcxx_support.cpp"
  "${_windows}/startup/local_statics.cpp"
  "${_windows}/startup/program_entry.cpp"
  "${_windows}/startup/stack_probe.c"
  "${_windows}/startup/thread_storage.cpp"
  "${_windows}/startup/type_info.cpp")
target_compile_options(windows_startup PRIVATE -Wall -Wextra -Werror)
# libc++'s library is written in a newer C++ than its users need.
set_target_properties(windows_startup PROPERTIES CXX_STANDARD 20)
# The compiler crashes when type_info's own table and a type descriptor meet in one file.
set_source_files_properties("${_windows}/startup/type_info.cpp" PROPERTIES COMPILE_OPTIONS -fno-rtti)
# Each function by itself, so that an image takes no more of the C++ library than it uses.
set_source_files_properties("${_windows}/startup/libcxx_support.cpp" PROPERTIES COMPILE_OPTIONS -ffunction-sections)
target_link_options(windows_startup INTERFACE "LINKER:/opt:ref")
target_link_libraries(windows_startup INTERFACE windows::kernel32 windows::ucrtbase windows::vcruntime140)

set(_headers "${CMAKE_BINARY_DIR}/headers")
file(MAKE_DIRECTORY "${_headers}")
file(CREATE_LINK /usr/include/rapidjson "${_headers}/rapidjson" SYMBOLIC)
set(RAPIDJSON_INCLUDE_DIR "${_headers}" CACHE PATH "Where rapidjson/ stands")
target_link_libraries(project_options INTERFACE windows_startup)
