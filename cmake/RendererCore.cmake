# The renderer's own core library, for a build of the module alone.
#   KELMO_IMPORT_LIBRARY   the import library of kelmo.dll; windows/imports/kelmo.def is its definition
set(KELMO_IMPORT_LIBRARY "" CACHE FILEPATH "Import library of the renderer core")
if(NOT EXISTS "${KELMO_IMPORT_LIBRARY}")
  message(FATAL_ERROR "KELMO_IMPORT_LIBRARY names no file: \"${KELMO_IMPORT_LIBRARY}\". "
    "docs/windows.md tells how it is made.")
endif()
add_library(kelmo_core INTERFACE IMPORTED GLOBAL)
target_link_libraries(kelmo_core INTERFACE "${KELMO_IMPORT_LIBRARY}")
