# Builds for macOS on Linux, with Zig's C++ compiler, which includes the C and C++ libraries, and
# with the declarations and linker stubs in this folder instead of Apple's frameworks. The result is
# a complete executable.
#
# VIRELINE_MACOS_ARCHITECTURE is arm64 or x86_64.

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 22)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VIRELINE_MACOS_ARCHITECTURE)
set(CMAKE_SYSTEM_PROCESSOR ${VIRELINE_MACOS_ARCHITECTURE})
set(target ${VIRELINE_MACOS_ARCHITECTURE})
if(target STREQUAL "arm64")
    set(target aarch64)
endif()

execute_process(
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/../../script/lib/zig
    OUTPUT_VARIABLE tools
    OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
set(CMAKE_CXX_COMPILER ${tools}/clang++)
set(CMAKE_AR ${tools}/ar)
set(CMAKE_RANLIB ${tools}/ranlib)
# Only needed for shared libraries, of which there are none, but CMake requires it.
set(CMAKE_INSTALL_NAME_TOOL ${CMAKE_COMMAND})

# The deployment target is part of Zig's target name. CMake has to know the target, or to identify the compiler
# it would link a program for the build machine, for which Zig would first compile a C++ library. Zig enables UndefinedBehaviorSanitizer traps
# by default, which would only make the objects larger, since nothing is run here.
set(CMAKE_CXX_COMPILER_TARGET ${target}-macos.13.0)
set(CMAKE_OSX_DEPLOYMENT_TARGET "" CACHE STRING "")
set(CMAKE_OSX_SYSROOT "" CACHE STRING "")
set(CMAKE_CXX_FLAGS_INIT "-fno-sanitize=undefined -F${CMAKE_CURRENT_LIST_DIR}/Frameworks")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-L${CMAKE_CURRENT_LIST_DIR}/lib")

# Nothing of the build machine is used, except for the JSON headers and GoogleTest's sources, which
# the package files in this folder copy from it.
set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(nlohmann_json_DIR ${CMAKE_CURRENT_LIST_DIR}/nlohmann_json)
set(GTest_DIR ${CMAKE_CURRENT_LIST_DIR}/GTest)
set(CMAKE_FIND_PACKAGE_PREFER_CONFIG ON)
