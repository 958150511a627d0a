# The libraries that Corvane stands on, all of them Debian packages (tools/packages.txt).
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
find_package(pugixml REQUIRED)
pkg_check_modules(Mount REQUIRED IMPORTED_TARGET mount)
pkg_check_modules(Stb REQUIRED IMPORTED_TARGET stb)
if(CORVANE_APPS OR CORVANE_TESTS)
  find_package(CLI11 REQUIRED)
  find_package(fmt REQUIRED)
  find_package(nlohmann_json REQUIRED)
endif()
# The system's Python, for which the Debian packages of the test scripts are made: another one may stand first on PATH.
find_program(CORVANE_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
