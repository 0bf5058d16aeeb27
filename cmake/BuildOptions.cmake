# What every target of the project is compiled with.

option(ZORGEO_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(ZORGEO_BENCHMARKS "Build the benchmarks" ${PROJECT_IS_TOP_LEVEL})
set(ZORGEO_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize takes them: address,undefined or thread")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(zorgeo_options INTERFACE)
target_compile_features(zorgeo_options INTERFACE cxx_std_20)
target_include_directories(zorgeo_options INTERFACE ${PROJECT_SOURCE_DIR})
# The same input gives the same bits everywhere: no contraction, no relaxed arithmetic. The math
# functions' errno is not read by anyone.
target_compile_options(
  zorgeo_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wsign-conversion
            -Wnon-virtual-dtor
            -Wold-style-cast
            -Woverloaded-virtual
            -Wnull-dereference
            -Wdouble-promotion
            -Wimplicit-fallthrough
            -Wundef
            -Werror
            -ffp-contract=off
            -fno-math-errno)
# What g++ alone knows; clang-tidy reads the same command lines and refuses it.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_CXX_CLANG_TIDY)
  set(ZORGEO_GNU ON)
  # g++ 12 sees overlaps in short concatenations of strings that are not there.
  target_compile_options(zorgeo_options INTERFACE -Wno-restrict)
endif()
if(ZORGEO_SANITIZE)
  target_compile_options(zorgeo_options INTERFACE -fsanitize=${ZORGEO_SANITIZE} -fno-omit-frame-pointer
                                                  -fno-sanitize-recover=all)
  target_link_options(zorgeo_options INTERFACE -fsanitize=${ZORGEO_SANITIZE})
endif()
# g++ 12 sees null dereferences through instrumented code that are not there.
if(ZORGEO_SANITIZE)
  target_compile_options(zorgeo_options INTERFACE -Wno-null-dereference -Wno-maybe-uninitialized)
endif()

# Hidden unless marked for export.
add_library(zorgeo_hidden INTERFACE)
# Unique symbols would keep the module mapped after it is unloaded.
target_compile_options(zorgeo_hidden INTERFACE -fvisibility=hidden -fvisibility-inlines-hidden
                                               $<$<BOOL:${ZORGEO_GNU}>:-fno-gnu-unique>)
