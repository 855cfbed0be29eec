# How every target of the project is compiled.

option(VIRELINE_PROGRAM "Build the platform and the executable" ON)
option(VIRELINE_TESTS "Build the tests" OFF)
option(VIRELINE_COVERAGE "Have programs count which of their code runs; needs Clang" OFF)
option(VIRELINE_TOUR "Offer the targets for the tour, the pictures and the measurements" OFF)
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
    # Without these it caches nothing that begins with a precompiled header.
    set(sloppiness pch_defines,time_macros,include_file_mtime,include_file_ctime)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=${sloppiness} ${CCACHE})
endif()

add_library(vireline_options INTERFACE)
target_compile_options(vireline_options INTERFACE -Wall -Wextra -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimising, GCC 12 warns inside its own std::string and std::variant (its bugs 105651, 105562).
    target_compile_options(vireline_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()

if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # In a batch every source is an included file to GCC, and what it keeps to itself looks like a header's.
    target_compile_options(vireline_options INTERFACE -Wno-subobject-linkage)
endif()

if(VIRELINE_COVERAGE)
    # The counts live in the file itself, so that those of a program that ends early count too.
    target_compile_options(vireline_options INTERFACE
        -fprofile-instr-generate -fcoverage-mapping -mllvm -runtime-counter-relocation)
    target_link_options(vireline_options INTERFACE -fprofile-instr-generate)
endif()

if(VIRELINE_SANITIZE)
    # A target that has the property LOOKS_FROM_OUTSIDE does nothing itself that needs watching.
    set(is_watched "$<NOT:$<BOOL:$<TARGET_PROPERTY:LOOKS_FROM_OUTSIDE>>>")
    target_compile_options(vireline_options INTERFACE "$<${is_watched}:\
-fsanitize=address,undefined;-fno-sanitize-recover=all;-fno-omit-frame-pointer>")
    target_link_options(vireline_options INTERFACE -fsanitize=address,undefined)
endif()

if(VIRELINE_FUZZ)
    target_compile_options(vireline_options INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(vireline_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(CMAKE_BUILD_TYPE STREQUAL "Release")
    # What is handed on names no folder of the machine that built it.
    target_compile_options(vireline_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
endif()

if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT APPLE)
    target_compile_options(vireline_options INTERFACE
        -fstack-protector-strong -fstack-clash-protection
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    target_link_options(vireline_options INTERFACE
        -Wl,-z,relro,-z,now,-z,noexecstack -Wl,--as-needed)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
endif()

# Adds a static library made of every source file below the current folder.
function(vireline_library name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.hpp *.mm)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC vireline_options)
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
endfunction()

# What is no platform's own is only linked by a cross-build, or on paper, with what is: it has been
# compiled file by file before, and here takes a fraction of the time.
function(vireline_build_at_once name)
    if(CMAKE_CROSSCOMPILING OR VIRELINE_PAPER)
        set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
    endif()
endfunction()
