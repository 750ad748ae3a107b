# tessaron_embed(TARGET FOLDER): makes the dialog templates and pictures of a folder part of a target, as arrays of bytes.
# Call it where the target is made: the command that writes the source is known in that directory only.
function(tessaron_embed target folder)
  set(generated "${PROJECT_BINARY_DIR}/EmbeddedFiles.cpp")
  file(GLOB embedded CONFIGURE_DEPENDS "${folder}/*.xrc" "${folder}/*.svg")
  add_custom_command(
    OUTPUT "${generated}"
    COMMAND "${CMAKE_COMMAND}" "-DOUTPUT=${generated}" "-DFOLDER=${folder}" -P "${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake"
    DEPENDS ${embedded} "${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake"
    COMMENT "Embedding dialog templates and pictures"
    VERBATIM)
  target_sources(${target} PRIVATE "${generated}")
  add_custom_target(tessaron_embedded_files DEPENDS "${generated}")
  add_dependencies(tessaron_generated tessaron_embedded_files)
endfunction()
