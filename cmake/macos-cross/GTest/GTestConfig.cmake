# Builds GoogleTest from the sources in Debian's package, since its compiled libraries are for
# Linux.
if(NOT TARGET GTest::gtest)
    find_path(host_gtest_folder src/gtest-all.cc REQUIRED
        NO_CMAKE_FIND_ROOT_PATH
        PATHS /usr/src/googletest/googletest)
    add_library(gtest STATIC EXCLUDE_FROM_ALL ${host_gtest_folder}/src/gtest-all.cc)
    target_include_directories(gtest SYSTEM
        PUBLIC ${host_gtest_folder}/include
        PRIVATE ${host_gtest_folder})
    add_library(gtest_main STATIC EXCLUDE_FROM_ALL ${host_gtest_folder}/src/gtest_main.cc)
    target_link_libraries(gtest_main PUBLIC gtest)
    add_library(GTest::gtest ALIAS gtest)
    add_library(GTest::gtest_main ALIAS gtest_main)
endif()
