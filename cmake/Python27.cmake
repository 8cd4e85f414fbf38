# The Python 2.7 that the module is built for and tested with.
#   PYTHON2                  the interpreter; another one only by -DPYTHON2=, and only one that runs
#   Python27::Module         headers for an extension module, which never links libpython
#   Python27::Embedded       headers and library for a program that embeds the interpreter
#   PYTHON27_STATIC_LIBRARY  its library as an archive, of the release interpreter only; empty when it is not there
#   PYTHON27_FLAVOUR         "release" or "debug": the debug interpreter has other object layouts
if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
  include(WindowsPython27)
  return()
endif()

set(PYTHON2 "/usr/bin/python2.7" CACHE FILEPATH "The Python 2.7 interpreter to build for")
execute_process(
  COMMAND "${PYTHON2}" -c "import sys, sysconfig as s
v = s.get_config_var
print(';'.join([sys.version[:3], v('INCLUDEPY'), v('LIBDIR'), v('MULTIARCH') or '', v('LDLIBRARY'), str(int(hasattr(sys, 'gettotalrefcount'))),
                v('LIBPL') + '/' + v('LIBRARY')]))"
  OUTPUT_VARIABLE python27_facts OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE python27_status ERROR_VARIABLE python27_error)
if(NOT python27_status EQUAL 0)
  message(FATAL_ERROR "${PYTHON2} does not run: ${python27_error}\nRun scripts/setup, or name a Python 2.7 that runs with -DPYTHON2=.")
endif()
list(GET python27_facts 0 python27_version)
if(NOT python27_version STREQUAL "2.7")
  message(FATAL_ERROR "${PYTHON2} is Python ${python27_version}, and the module needs 2.7. Name another with -DPYTHON2=.")
endif()
list(GET python27_facts 1 python27_include)
list(GET python27_facts 2 python27_library_folder)
list(GET python27_facts 3 python27_multiarch)
list(GET python27_facts 4 python27_library_name)
list(GET python27_facts 5 python27_debug)
list(GET python27_facts 6 python27_static_library)
if(NOT EXISTS "${python27_include}/Python.h")
  message(FATAL_ERROR "${PYTHON2} has no headers in ${python27_include}. Run scripts/setup.")
endif()

if(python27_debug)
  set(PYTHON27_FLAVOUR debug)
else()
  set(PYTHON27_FLAVOUR release)
  if(EXISTS "${python27_static_library}")
    set(PYTHON27_STATIC_LIBRARY "${python27_static_library}")
  endif()
endif()

add_library(Python27::Module INTERFACE IMPORTED)
target_include_directories(Python27::Module SYSTEM INTERFACE "${python27_include}")
# The debug interpreter's headers are links to the release one's; resolved, they would find the release configuration.
target_compile_options(Python27::Module INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fno-canonical-system-headers>)

find_library(PYTHON27_LIBRARY NAMES ${python27_library_name}
  HINTS "${python27_library_folder}" "${python27_library_folder}/${python27_multiarch}")
add_library(Python27::Embedded INTERFACE IMPORTED)
target_link_libraries(Python27::Embedded INTERFACE Python27::Module)
if(PYTHON27_LIBRARY)
  target_link_libraries(Python27::Embedded INTERFACE "${PYTHON27_LIBRARY}")
endif()
