# Run by cpack between gathering the files of the packages and packing them: adds what Debian wants in each package
# beside what is installed. CPACK_TEMPORARY_INSTALL_DIRECTORY holds a folder for each component.
set(packaging ${CPACK_CORVANE_SOURCE_DIR}/packaging)

function(corvane_run)
  execute_process(${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(corvane_compress_manual_pages root)
  file(GLOB pages ${root}/usr/share/man/man*/*.[1-9])
  if(pages)
    corvane_run(COMMAND gzip --best --no-name --force ${pages})
  endif()
endfunction()

function(corvane_add_documents root package)
  set(folder ${root}/usr/share/doc/${package})
  file(MAKE_DIRECTORY ${folder})
  file(COPY ${packaging}/debian/copyright DESTINATION ${folder})
  corvane_run(COMMAND gzip --best --no-name --stdout ${packaging}/debian/changelog OUTPUT_FILE ${folder}/changelog.Debian.gz)
  corvane_run(COMMAND gzip --best --no-name --stdout ${CPACK_CORVANE_SOURCE_DIR}/CHANGELOG.md
    OUTPUT_FILE ${folder}/changelog.gz)
  configure_file(${packaging}/debian/lintian-overrides ${root}/usr/share/lintian/overrides/${package} COPYONLY)
endfunction()

# symbols and shlibs tell the builders of other packages what to depend on; the trigger calls ldconfig.
function(corvane_write_library_control root package control)
  file(GLOB_RECURSE library ${root}/usr/lib/lib*.so.${CPACK_CORVANE_SOVERSION})
  cmake_path(GET library FILENAME soname)
  string(REGEX REPLACE "\\.so\\..*" "" name ${soname})
  file(WRITE ${control}/triggers "activate-noawait ldconfig\n")
  file(WRITE ${control}/shlibs "${name} ${CPACK_CORVANE_SOVERSION} ${package} (>= ${CPACK_PACKAGE_VERSION})\n")
  corvane_run(COMMAND ${CPACK_CORVANE_PYTHON} ${CPACK_CORVANE_SOURCE_DIR}/tools/abi debian ${library}
    OUTPUT_FILE ${control}/symbols)
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} key)
  set(package ${CPACK_DEBIAN_${key}_PACKAGE_NAME})
  set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component})
  set(control ${CPACK_CORVANE_CONTROL_DIR}/${package})
  file(REMOVE_RECURSE ${control})
  corvane_compress_manual_pages(${root})
  corvane_add_documents(${root} ${package})
  if(component STREQUAL "library" OR component STREQUAL "controls")
    corvane_write_library_control(${root} ${package} ${control})
  endif()
endforeach()
