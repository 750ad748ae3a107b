# What `cmake --install` puts where, how other projects find it, and the Debian package.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(HelpFiles)
include(PublicHeaders)

set(TESSARON_LIBRARIES TessaronExchange TessaronEngines TessaronResources)
set(TESSARON_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/TessaronResources")

# An installed library finds its sisters beside itself, wherever the prefix goes.
set_target_properties(${TESSARON_LIBRARIES} PROPERTIES INSTALL_RPATH "$ORIGIN")
foreach(library IN LISTS TESSARON_LIBRARIES)
  target_compile_features(${library} INTERFACE cxx_std_17)
endforeach()

# So does the command, in the folder of programs.
file(RELATIVE_PATH fromPrograms "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
set_target_properties(tessaron-job PROPERTIES INSTALL_RPATH "$ORIGIN/${fromPrograms}")
install(TARGETS tessaron-job RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")

install(TARGETS ${TESSARON_LIBRARIES} EXPORT TessaronTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/tessaron" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")

# The package finds the libraries from where it lies.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/python/tessaron" DESTINATION lib/python3/dist-packages
  FILES_MATCHING PATTERN "*.py" PATTERN "py.typed")

# The engine looks for its data beside its library, and the module for its help files.
install(FILES "${TESSARON_EXPERT_DATABASE}" ${TESSARON_HELP_FILES} DESTINATION "${CMAKE_INSTALL_LIBDIR}")

install(EXPORT TessaronTargets NAMESPACE TessaronResources:: DESTINATION "${TESSARON_CMAKEDIR}")
configure_package_config_file(cmake/package/TessaronResourcesConfig.cmake.in
  "${PROJECT_BINARY_DIR}/package/TessaronResourcesConfig.cmake" INSTALL_DESTINATION "${TESSARON_CMAKEDIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/TessaronResourcesConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/package/TessaronResourcesConfig.cmake"
  "${PROJECT_BINARY_DIR}/package/TessaronResourcesConfigVersion.cmake"
  DESTINATION "${TESSARON_CMAKEDIR}")

# tessaron_pkgconfig(LIBRARY DESCRIPTION text [REQUIRES text] [LIBS text])
# The file knows where it lies, so that the tree may be moved.
function(tessaron_pkgconfig library)
  cmake_parse_arguments(ARG "" "DESCRIPTION;REQUIRES;LIBS" "" ${ARGN})
  file(RELATIVE_PATH prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  string(REGEX REPLACE "/$" "" prefix "${prefix}")
  configure_file(cmake/package/library.pc.in "${PROJECT_BINARY_DIR}/package/${library}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/package/${library}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endfunction()
tessaron_pkgconfig(TessaronExchange DESCRIPTION "Exchange records of CNC toolpath generation, and their archives"
  LIBS "-lboost_serialization")
tessaron_pkgconfig(TessaronEngines DESCRIPTION "Toolpath jobs, operation templates and cutting data"
  REQUIRES TessaronExchange)
tessaron_pkgconfig(TessaronResources DESCRIPTION "The user interface of CNC toolpath generation"
  REQUIRES TessaronEngines)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessaron-resources)
set(CPACK_PACKAGE_VENDOR "Halvorsund Technologies")
set(CPACK_PACKAGE_CONTACT "Halvorsund Technologies <support@halvorsund.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# What hosts need to be built, and what opens the help files.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libwxgtk3.2-dev, libboost1.81-dev | libboost-dev (>= 1.81), libboost-serialization1.81-dev | libboost-serialization-dev (>= 1.81), xdg-utils, xchm | okular-extra-backends")
include(CPack)
