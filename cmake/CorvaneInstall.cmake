# What `cmake --install` puts where: the libraries with their published headers, the CMake package and the pkg-config
# files. Command and editor install themselves (apps/). Each component becomes a package of its own (CorvanePackages).
include(CMakePackageConfigHelpers)

set(CORVANE_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Corvane)

install(TARGETS corvane EXPORT CorvaneTargets
  LIBRARY COMPONENT library NAMELINK_COMPONENT library-development
  FILE_SET HEADERS COMPONENT library-development
  FILE_SET generated_headers COMPONENT library-development)
install(EXPORT CorvaneTargets NAMESPACE Corvane:: DESTINATION ${CORVANE_CMAKE_DIR} COMPONENT library-development)
if(CORVANE_CONTROLS)
  install(TARGETS corvane-controls EXPORT CorvaneControlsTargets
    LIBRARY COMPONENT controls NAMELINK_COMPONENT controls-development
    FILE_SET HEADERS COMPONENT controls-development)
  install(TARGETS corvane-designer DESTINATION ${CMAKE_INSTALL_LIBDIR}/qt6/plugins/designer
    COMPONENT controls-development)
  install(EXPORT CorvaneControlsTargets NAMESPACE Corvane:: DESTINATION ${CORVANE_CMAKE_DIR}
    COMPONENT controls-development)
endif()

install(FILES ${PROJECT_SOURCE_DIR}/docs/schema/corvane.rng DESTINATION ${CMAKE_INSTALL_DATADIR}/corvane
  COMPONENT command)

configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/CorvaneConfig.cmake.in
  ${PROJECT_BINARY_DIR}/CorvaneConfig.cmake INSTALL_DESTINATION ${CORVANE_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CorvaneConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/CorvaneConfig.cmake ${PROJECT_BINARY_DIR}/CorvaneConfigVersion.cmake
  DESTINATION ${CORVANE_CMAKE_DIR} COMPONENT library-development)

# A pkg-config file is made when installing: only then is the prefix known (`cmake --install --prefix`). What stands
# below the prefix is written relative to it.
foreach(kind IN ITEMS LIBDIR INCLUDEDIR)
  cmake_path(IS_ABSOLUTE CMAKE_INSTALL_${kind} absolute)
  if(absolute)
    set(CORVANE_PC_${kind} ${CMAKE_INSTALL_${kind}})
  else()
    set(CORVANE_PC_${kind} "\\\${prefix}/${CMAKE_INSTALL_${kind}}")
  endif()
endforeach()

# corvane_pkg_config(NAME COMPONENT)
function(corvane_pkg_config name component)
  install(CODE "
    set(CORVANE_PC_LIBDIR \"${CORVANE_PC_LIBDIR}\")
    set(CORVANE_PC_INCLUDEDIR \"${CORVANE_PC_INCLUDEDIR}\")
    set(PROJECT_DESCRIPTION \"${PROJECT_DESCRIPTION}\")
    set(PROJECT_VERSION \"${PROJECT_VERSION}\")
    configure_file(\"${PROJECT_SOURCE_DIR}/packaging/${name}.pc.in\" \"${PROJECT_BINARY_DIR}/${name}.pc\" @ONLY)"
    COMPONENT ${component})
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component})
endfunction()

corvane_pkg_config(corvane library-development)
if(CORVANE_CONTROLS)
  corvane_pkg_config(corvane-controls controls-development)
endif()
