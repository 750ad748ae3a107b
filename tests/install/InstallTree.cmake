# Installs the build into INSTALLED and, staged, a second time; both must hold the same files, and nothing that the
# installed headers include may be missing.
function(install_build)
  execute_process(COMMAND ${ARGN} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE "${INSTALLED}" "${INSTALLED}-staged")
install_build("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${INSTALLED}")
install_build("${CMAKE_COMMAND}" -E env "DESTDIR=${INSTALLED}-staged" "${CMAKE_COMMAND}" --install "${BUILD}" --prefix /opt/tessaron)

file(GLOB_RECURSE files RELATIVE "${INSTALLED}" "${INSTALLED}/*")
file(GLOB_RECURSE staged RELATIVE "${INSTALLED}-staged/opt/tessaron" "${INSTALLED}-staged/*")
if(NOT files STREQUAL staged)
  message(FATAL_ERROR "DESTDIR changes what is installed:\n${files}\n${staged}")
endif()
file(REMOVE_RECURSE "${INSTALLED}-staged")

foreach(name IN ITEMS
    "${LIBDIR}/libTessaronExchange.so.${VERSION}" "${LIBDIR}/libTessaronEngines.so.${VERSION}"
    "${LIBDIR}/libTessaronResources.so.${VERSION}" "${LIBDIR}/TechnologyExpert.db"
    "bin/tessaron-job"
    "${LIBDIR}/Chip Thickness Control in Tessaron Metric.chm" "${LIBDIR}/Chip Thickness Control in Tessaron Inch.chm")
  if(NOT EXISTS "${INSTALLED}/${name}")
    message(SEND_ERROR "Not installed: ${name}")
  endif()
endforeach()

foreach(header IN LISTS files)
  if(NOT header MATCHES "^include/tessaron/.*\\.h$")
    continue()
  endif()
  file(STRINGS "${INSTALLED}/${header}" includes REGEX "^ *#include (\"|<tessaron/)")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE ".*[<\"](.*)[>\"].*" "\\1" include "${include}")
    if(NOT EXISTS "${INSTALLED}/include/${include}")
      message(SEND_ERROR "${header} includes ${include}, which is not installed")
    endif()
  endforeach()
endforeach()
