# What every target of ours is compiled with. Link to kovra_options, not to flags.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
# The built files have the paths of the installed ones: else CMake leaves room for these as empty
# parts, and the loader takes an empty part for the current folder.
set(CMAKE_INSTALL_RPATH "$ORIGIN")
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)

add_library(kovra_options INTERFACE)
target_include_directories(kovra_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(kovra_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wuseless-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2 -Wnull-dereference
  -Wduplicated-cond -Wlogical-op -Wimplicit-fallthrough -Wextra-semi)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # These are names of the other compiler's warnings.
  target_compile_options(kovra_options INTERFACE
    -Wno-unknown-warning-option -Wno-error=unknown-warning-option)
endif()
# At -O3 these two find faults in this compiler's own string and vector; the other builds
# have them on.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(kovra_options INTERFACE
    $<$<CONFIG:Release>:-Wno-restrict> $<$<CONFIG:Release>:-Wno-null-dereference>)
endif()
# A library that is unloaded must take its state along: no process-wide unique symbols.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(kovra_options INTERFACE -fno-gnu-unique)
endif()
# Nobody replaces our functions from outside, so calls within a library are direct ones.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(kovra_options INTERFACE $<$<CONFIG:Release>:-fno-semantic-interposition>)
  target_link_options(kovra_options INTERFACE $<$<CONFIG:Release>:-Wl,-Bsymbolic-functions>)
endif()
if(KOVRA_SANITIZE)
  target_compile_options(kovra_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kovra_options INTERFACE -fsanitize=address,undefined)
endif()
if(KOVRA_LTO)
  set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
endif()

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()
