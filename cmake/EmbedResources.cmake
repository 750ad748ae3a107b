# tessaron_embed(TARGET FOLDER): makes the dialog templates, pictures and translations of a folder part of a target, as
# arrays of bytes. Call it where the target is made: the command that writes the source is known in that directory only.
function(tessaron_embed target folder)
  set(generated "${PROJECT_BINARY_DIR}/EmbeddedFiles.cpp")
  set(translations "${PROJECT_BINARY_DIR}/translations")
  file(MAKE_DIRECTORY "${translations}")
  file(GLOB embedded CONFIGURE_DEPENDS "${folder}/*.xrc" "${folder}/*.svg")
  file(GLOB catalogues CONFIGURE_DEPENDS "${folder}/translations/*.po")
  find_program(TESSARON_MSGFMT msgfmt REQUIRED)
  foreach(catalogue IN LISTS catalogues)
    get_filename_component(language "${catalogue}" NAME_WE)
    add_custom_command(
      OUTPUT "${translations}/${language}.mo"
      COMMAND "${TESSARON_MSGFMT}" --check-format -o "${translations}/${language}.mo" "${catalogue}"
      DEPENDS "${catalogue}"
      VERBATIM)
    list(APPEND embedded "${translations}/${language}.mo")
  endforeach()
  add_custom_command(
    OUTPUT "${generated}"
    COMMAND "${CMAKE_COMMAND}" "-DOUTPUT=${generated}" "-DFOLDER=${folder}" "-DTRANSLATIONS=${translations}"
      -P "${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake"
    DEPENDS ${embedded} "${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake"
    COMMENT "Embedding dialog templates, pictures and translations"
    VERBATIM)
  target_sources(${target} PRIVATE "${generated}")
  add_custom_target(tessaron_embedded_files DEPENDS "${generated}")
  add_dependencies(tessaron_generated tessaron_embedded_files)
endfunction()
