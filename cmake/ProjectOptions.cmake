# Compile and link options for all targets of the project.

option(VIRELINE_PROGRAM "Build the platform and the executable" ON)
option(VIRELINE_TESTS "Build the tests" OFF)
option(VIRELINE_COVERAGE "Measure code coverage; needs Clang" OFF)
option(VIRELINE_TOUR "Build the targets for the tour, the screenshots and the measurements" OFF)
option(VIRELINE_BENCHMARKS "Build the benchmarks" OFF)
option(VIRELINE_SANITIZE "Compile with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(VIRELINE_PAPER "Build the macOS platform on paper classes, and its tests; needs Clang" OFF)
option(VIRELINE_FUZZ "Compile for libFuzzer; needs Clang" OFF)

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(CCACHE ccache)
if(CCACHE)
    # Required to cache compilations that use a precompiled header.
    set(sloppiness pch_defines,time_macros,include_file_mtime,include_file_ctime)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=${sloppiness} ${CCACHE})
endif()

add_library(vireline_options INTERFACE)
target_compile_options(vireline_options INTERFACE -Wall -Wextra -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # With optimisation, GCC has false warnings in its own std::variant (GCC 12) and std::optional
    # (GCC 14); see GCC bug 105562.
    target_compile_options(vireline_options INTERFACE -Wno-maybe-uninitialized)
    if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # The same in std::string: GCC bug 105651.
        target_compile_options(vireline_options INTERFACE -Wno-restrict)
    endif()
endif()

if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # In a unity build GCC treats every source as an included file, and so warns of its anonymous
    # namespaces as if they were in a header.
    target_compile_options(vireline_options INTERFACE -Wno-subobject-linkage)
endif()

if(VIRELINE_COVERAGE)
    # The counters are mapped to the file, so that those of a process that dies are not lost.
    target_compile_options(vireline_options INTERFACE
        -fprofile-instr-generate -fcoverage-mapping -mllvm -runtime-counter-relocation)
    target_link_options(vireline_options INTERFACE -fprofile-instr-generate)
endif()

if(VIRELINE_SANITIZE)
    # Targets with the property NOT_SANITIZED only observe other programs.
    set(is_sanitized "$<NOT:$<BOOL:$<TARGET_PROPERTY:NOT_SANITIZED>>>")
    target_compile_options(vireline_options INTERFACE "$<${is_sanitized}:\
-fsanitize=address,undefined;-fno-sanitize-recover=all;-fno-omit-frame-pointer>")
    target_link_options(vireline_options INTERFACE "$<${is_sanitized}:-fsanitize=address,undefined>")
endif()

if(VIRELINE_FUZZ)
    target_compile_options(vireline_options INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(vireline_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(CMAKE_BUILD_TYPE STREQUAL "Release")
    # Keeps the build machine's folders out of the binary.
    target_compile_options(vireline_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
endif()

if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT APPLE)
    target_compile_options(vireline_options INTERFACE
        -fstack-protector-strong -fstack-clash-protection
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    target_link_options(vireline_options INTERFACE
        -Wl,-z,relro,-z,now,-z,noexecstack,-z,pack-relative-relocs -Wl,--as-needed)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
endif()

# vireline_library(<name>): a static library of all sources in and below the current folder.
function(vireline_library name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.hpp *.mm)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC vireline_options)
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
endfunction()

# vireline_build_at_once(<name>): makes builds on paper compile a platform-independent library as a unity build,
# unless the whole build is one. Other builds already check its files one by one.
function(vireline_build_at_once name)
    if(VIRELINE_PAPER AND NOT CMAKE_UNITY_BUILD)
        set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
    endif()
endfunction()
