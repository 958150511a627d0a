# How every target of this project is compiled.
include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

option(CORVANE_WARNINGS_AS_ERRORS "Stop at the first warning" ${PROJECT_IS_TOP_LEVEL})
option(CORVANE_UNITY "Compile the sources of a folder together: less work for a whole build, more for one change" OFF)
set(CMAKE_UNITY_BUILD ${CORVANE_UNITY})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 12)
set(CORVANE_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize= takes them")

add_library(corvane-settings INTERFACE)
target_compile_options(corvane-settings INTERFACE -Wall -Wextra -Wconversion -Wshadow -Wpedantic
  $<$<BOOL:${CORVANE_WARNINGS_AS_ERRORS}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 takes joined strings for overlapping ones (GCC bug 105651).
  target_compile_options(corvane-settings INTERFACE -Wno-restrict)
  # With the checks of sanitizers in between it takes members of <regex> for uninitialised. Builds without them look.
  if(CORVANE_SANITIZE)
    target_compile_options(corvane-settings INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
if(CORVANE_UNITY)
  # A local name may be that of a neighbour's inside. Builds that compile each source alone look.
  target_compile_options(corvane-settings INTERFACE -Wno-shadow)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Nor does g++ see that what is included here is a source, whose unnamed types nobody else has.
    target_compile_options(corvane-settings INTERFACE -Wno-subobject-linkage)
  endif()
endif()
set(CORVANE_GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)
target_include_directories(corvane-settings INTERFACE ${PROJECT_SOURCE_DIR} ${CORVANE_GENERATED_DIR})
# File positions are 64 bits wide on every architecture.
target_compile_definitions(corvane-settings INTERFACE _FILE_OFFSET_BITS=64)
if(CORVANE_SANITIZE)
  add_compile_options(-fsanitize=${CORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${CORVANE_SANITIZE})
endif()

# For the folder that calls it. Sanitizers watch the library, which keeps the optimisation of its preset. Other code is
# checked all the same, but takes half to two thirds of the time to compile without optimisation.
macro(corvane_without_optimisation_under_sanitizers)
  if(CORVANE_SANITIZE)
    add_compile_options(-O0)
  endif()
endmacro()
