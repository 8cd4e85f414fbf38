# The staging tree: an installation root as the module's environment variable names it.
#   stage_target(TARGET FOLDER)   puts a target's library or program into stage/FOLDER
#   stage_files(FOLDER FILE...)   copies files into stage/FOLDER when they change
# The target `stage` builds all of it and nothing else.
add_custom_target(stage)
set(STAGE "${CMAKE_BINARY_DIR}/stage")

function(stage_target target folder)
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${STAGE}/${folder}"
    LIBRARY_OUTPUT_DIRECTORY "${STAGE}/${folder}")
  add_dependencies(stage ${target})
endfunction()

function(stage_files folder)
  set(outputs)
  foreach(file IN LISTS ARGN)
    get_filename_component(name "${file}" NAME)
    set(output "${STAGE}/${folder}/${name}")
    add_custom_command(OUTPUT "${output}"
      COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_CURRENT_SOURCE_DIR}/${file}" "${output}"
      DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${file}" VERBATIM)
    list(APPEND outputs "${output}")
  endforeach()
  string(MAKE_C_IDENTIFIER "stage_${CMAKE_CURRENT_SOURCE_DIR}_${folder}" id)
  string(SHA1 hash "${id}${ARGN}")
  string(SUBSTRING "${hash}" 0 8 hash)
  get_filename_component(here "${CMAKE_CURRENT_SOURCE_DIR}" NAME)
  add_custom_target(stage_${here}_${hash} ALL DEPENDS ${outputs})
  add_dependencies(stage stage_${here}_${hash})
endfunction()
