# Debian packages (`make package`, docs/packaging.md): what each holds is an install component, and a component that this
# build lacks makes no package.
set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_VENDOR "The Corvane authors")
set(CPACK_PACKAGE_CONTACT "The Corvane authors <authors@corvane.invalid>")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# Each package has a summary of its own, which one of the whole project would replace.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE corvane)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${PROJECT_BINARY_DIR}/corvane ${PROJECT_BINARY_DIR}/corvane/controls)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# What Debian wants in a package beside what is installed: manual pages compressed, copyright, changelog, symbols.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/CorvaneCompletePackages.cmake)
set(CPACK_CORVANE_CONTROL_DIR ${PROJECT_BINARY_DIR}/packaging)
set(CPACK_CORVANE_SOURCE_DIR ${PROJECT_SOURCE_DIR})
set(CPACK_CORVANE_PYTHON ${CORVANE_PYTHON})
set(CPACK_CORVANE_SOVERSION ${CORVANE_SOVERSION})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

get_cmake_property(CORVANE_COMPONENTS COMPONENTS)
set(CPACK_COMPONENTS_ALL "")

# corvane_package(COMPONENT NAME SECTION MULTI_ARCH SUMMARY TEXT [DEPENDS...]): DEPENDS names what no tool finds; the
# packages of the libraries that its files link are added to it.
function(corvane_package component name section multi_arch summary text)
  if(NOT component IN_LIST CORVANE_COMPONENTS)
    return()
  endif()
  string(TOUPPER ${component} key)
  list(JOIN ARGN ", " depends)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  # CPack 3.25 has no variable for the field Multi-Arch: it follows the section as a line of its own.
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION "${section}\nMulti-Arch: ${multi_arch}" PARENT_SCOPE)
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${summary}\n${text}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
  list(TRANSFORM CORVANE_CONTROL_${component} PREPEND ${CPACK_CORVANE_CONTROL_DIR}/${name}/ OUTPUT_VARIABLE extra)
  set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA "${extra}" PARENT_SCOPE)
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
endfunction()

# Files of a package's control part; the completing script writes them. The packages of the libraries have no postinst and
# no postrm, since a trigger calls ldconfig, but CPack makes some that call it unless the package names its own; it warns
# that it misses these.
set(CORVANE_CONTROL_library triggers shlibs symbols postinst postrm)
set(CORVANE_CONTROL_controls ${CORVANE_CONTROL_library})

set(this_version "= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
# Loaded by name when a tag is changed for the first time.
set(id3lib libid3-3.8.3v5)

# A compiled module fits one version of Python.
execute_process(COMMAND ${CORVANE_PYTHON} -c "import sys; print('3.%d;3.%d' % (sys.version_info[1], sys.version_info[1] + 1))"
  OUTPUT_VARIABLE pythons OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
list(GET pythons 0 this_python)
list(GET pythons 1 next_python)

corvane_package(library libcorvane${CORVANE_SOVERSION} libs same
  "tags and technical data of MP3 files (library)"
  "Corvane reads the ID3v1, ID3v2.2 to 2.4 and Lyrics3 tags of MP3 files and the
technical data of their first audio frame, and writes and removes ID3v1 and
ID3v2.3 tags. A change never leaves a damaged file behind.
.
This package contains the shared library."
  ${id3lib})
corvane_package(library-development libcorvane-dev libdevel same
  "tags and technical data of MP3 files (development files)"
  "Corvane reads the ID3v1, ID3v2.2 to 2.4 and Lyrics3 tags of MP3 files and the
technical data of their first audio frame, and writes and removes ID3v1 and
ID3v2.3 tags. A change never leaves a damaged file behind.
.
This package contains the C++20 headers, the CMake package and the pkg-config
file."
  "libcorvane${CORVANE_SOVERSION} (${this_version})")
corvane_package(controls libcorvane-controls${CORVANE_SOVERSION} libs same
  "Qt 6 widgets that edit the tags of MP3 files (library)"
  "Widgets for any Qt program: editors of the ID3v1 and ID3v2 tags of one or many
MP3 files, a viewer of Lyrics3 tags, and a control that opens a file for them.
.
This package contains the shared library."
  "libcorvane${CORVANE_SOVERSION} (${this_version})")
corvane_package(controls-development libcorvane-controls-dev libdevel same
  "Qt 6 widgets that edit the tags of MP3 files (development files)"
  "Widgets for any Qt program: editors of the ID3v1 and ID3v2 tags of one or many
MP3 files, a viewer of Lyrics3 tags, and a control that opens a file for them.
.
This package contains the headers, the CMake package, the pkg-config file and
the plugin by which Qt Designer and QUiLoader know the widgets."
  "libcorvane-controls${CORVANE_SOVERSION} (${this_version})" "libcorvane-dev (${this_version})" qt6-base-dev)
set(CPACK_DEBIAN_CONTROLS-DEVELOPMENT_PACKAGE_RECOMMENDS libqt6svg6)
corvane_package(command corvane sound foreign
  "show, list, change and remove the tags of MP3 files"
  "The command corvane shows everything that is inside an MP3 file, for people or
as one XML document, lists whole collections as JSON or CSV, and changes and
removes ID3v1 and ID3v2.3 tags, pictures and lyrics included. A change never
leaves a damaged file behind."
  ${id3lib})
corvane_package(editor corvane-editor sound foreign
  "edit the tags of MP3 files in a window"
  "Corvane Editor edits the ID3v1 and ID3v2 tags of one MP3 file or of thousands,
pictures and lyrics included. Edits can be undone, a preview tells what saving
will do, and a report what it has done. The audio is never touched."
  ${id3lib})
set(CPACK_DEBIAN_EDITOR_PACKAGE_RECOMMENDS libqt6svg6)
corvane_package(python python3-corvane python no
  "tags and technical data of MP3 files (Python module)"
  "Corvane reads the ID3v1, ID3v2.2 to 2.4 and Lyrics3 tags of MP3 files and the
technical data of their first audio frame, and writes and removes ID3v1 and
ID3v2.3 tags. A change never leaves a damaged file behind.
.
This package contains the module corvane for Python 3, with its type stubs."
  "libcorvane${CORVANE_SOVERSION} (${this_version})" "python3 (>= ${this_python}~)" "python3 (<< ${next_python}~)")

include(CPack)
