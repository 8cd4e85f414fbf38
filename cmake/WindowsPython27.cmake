# Python 2.7 for Windows.
#   PYTHON27_HEADERS   folders with Python.h and with pyconfig.h
#   PYTHON27_LIBRARY   the import library of python27.dll
#   Python27::Module   headers and import library for an extension module
# The defaults are what scripts/test-windows builds from the interpreter's sources. No program that embeds
# Python is built here.
set(PYTHON27_HEADERS "${CMAKE_BINARY_DIR}/python-source/Include;${CMAKE_BINARY_DIR}/python-source/PC"
  CACHE STRING "Folders with Python.h and pyconfig.h of Python 2.7 for Windows")
set(PYTHON27_LIBRARY "${CMAKE_BINARY_DIR}/python/python27.lib"
  CACHE FILEPATH "Import library of Python 2.7 for Windows")
list(GET PYTHON27_HEADERS 0 _python_headers)
if(NOT EXISTS "${_python_headers}/Python.h" OR NOT EXISTS "${PYTHON27_LIBRARY}")
  message(FATAL_ERROR "Python 2.7 for Windows is not there (${_python_headers}/Python.h, ${PYTHON27_LIBRARY}). "
    "scripts/test-windows builds it; or set PYTHON27_HEADERS and PYTHON27_LIBRARY, as docs/windows.md tells.")
endif()
set(PYTHON27_FLAVOUR release)

add_library(Python27::Module INTERFACE IMPORTED)
target_include_directories(Python27::Module SYSTEM INTERFACE ${PYTHON27_HEADERS})
target_link_libraries(Python27::Module INTERFACE "${PYTHON27_LIBRARY}")
