# What every target of the project is compiled with.
#   project_options    link it PRIVATE into each target
#   count_coverage()   what the current folder compiles counts, in a build for that, which lines and branches run
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(project_options INTERFACE)
# Values are computed as written: no fused multiply-add changes a mean in its last bit.
if(MSVC AND CMAKE_CXX_COMPILER_ID STREQUAL "MSVC")
  target_compile_options(project_options INTERFACE /W3 /permissive- /EHsc /utf-8 /fp:precise)
else()
  target_compile_options(project_options INTERFACE -Wall -Wextra -Wpedantic -Werror -ffp-contract=off)
endif()

set(SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
if(SANITIZE)
  add_compile_options(-fsanitize=${SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${SANITIZE})
endif()

option(COVERAGE "Count what runs of the module and of its tests" OFF)
macro(count_coverage)
  if(COVERAGE)
    # Assertions of the interpreter's headers are no branches of ours.
    add_compile_options(--coverage -DNDEBUG)
    add_link_options(--coverage)
  endif()
endmacro()
