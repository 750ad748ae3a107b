# The help files that the chip thickness dialog opens, built from its page beside the module.
set(page "${PROJECT_SOURCE_DIR}/docs/chip-thickness.md")
file(GLOB pictures CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/pictures/*.png")
set(TESSARON_HELP_FILES "")
foreach(units IN ITEMS Metric Inch)
  set(help "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/Chip Thickness Control in Tessaron ${units}.chm")
  add_custom_command(OUTPUT "${help}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}"
    COMMAND "${Python3_EXECUTABLE}" "${PROJECT_SOURCE_DIR}/tools/make-help" "${page}" ${units} "${help}"
    DEPENDS "${page}" ${pictures} "${PROJECT_SOURCE_DIR}/tools/make-help"
    COMMENT "Building the help file for ${units}"
    VERBATIM)
  list(APPEND TESSARON_HELP_FILES "${help}")
endforeach()
add_custom_target(tessaron_help DEPENDS ${TESSARON_HELP_FILES})
add_dependencies(TessaronResources tessaron_help)
