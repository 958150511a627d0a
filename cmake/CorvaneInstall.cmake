# What `cmake --install` puts where: the library with its published headers, the CMake package and the pkg-config file.
# The command installs itself with its manual page and completions (apps/cli).
include(CMakePackageConfigHelpers)

set(CORVANE_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Corvane)

install(TARGETS corvane EXPORT CorvaneTargets FILE_SET HEADERS FILE_SET generated_headers)
install(EXPORT CorvaneTargets NAMESPACE Corvane:: DESTINATION ${CORVANE_CMAKE_DIR})
if(CORVANE_CONTROLS)
  install(TARGETS corvane-controls EXPORT CorvaneControlsTargets FILE_SET HEADERS)
  install(TARGETS corvane-designer DESTINATION ${CMAKE_INSTALL_LIBDIR}/qt6/plugins/designer)
  install(EXPORT CorvaneControlsTargets NAMESPACE Corvane:: DESTINATION ${CORVANE_CMAKE_DIR})
endif()

install(FILES ${PROJECT_SOURCE_DIR}/docs/schema/corvane.rng DESTINATION ${CMAKE_INSTALL_DATADIR}/corvane
  COMPONENT command)

configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/CorvaneConfig.cmake.in
  ${PROJECT_BINARY_DIR}/CorvaneConfig.cmake INSTALL_DESTINATION ${CORVANE_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CorvaneConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/CorvaneConfig.cmake ${PROJECT_BINARY_DIR}/CorvaneConfigVersion.cmake
  DESTINATION ${CORVANE_CMAKE_DIR})

# The pkg-config file is made when installing: only then is the prefix known (`cmake --install --prefix`). What stands
# below the prefix is written relative to it.
foreach(kind IN ITEMS LIBDIR INCLUDEDIR)
  cmake_path(IS_ABSOLUTE CMAKE_INSTALL_${kind} absolute)
  if(absolute)
    set(CORVANE_PC_${kind} ${CMAKE_INSTALL_${kind}})
  else()
    set(CORVANE_PC_${kind} "\\\${prefix}/${CMAKE_INSTALL_${kind}}")
  endif()
endforeach()
install(CODE "
  set(CORVANE_PC_LIBDIR \"${CORVANE_PC_LIBDIR}\")
  set(CORVANE_PC_INCLUDEDIR \"${CORVANE_PC_INCLUDEDIR}\")
  set(PROJECT_DESCRIPTION \"${PROJECT_DESCRIPTION}\")
  set(PROJECT_VERSION \"${PROJECT_VERSION}\")
  configure_file(\"${PROJECT_SOURCE_DIR}/packaging/corvane.pc.in\" \"${PROJECT_BINARY_DIR}/corvane.pc\" @ONLY)")
install(FILES ${PROJECT_BINARY_DIR}/corvane.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
