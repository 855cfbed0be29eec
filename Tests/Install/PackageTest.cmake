# Packs the program that VIRELINE_TESTED_PROGRAM names, an optimised build, and says what is wrong
# with the package: its files, their owner and rights, what it depends on, and what lintian says.
# Given: VERSION, and SCRATCH, a folder that this test may replace.
set(program $ENV{VIRELINE_TESTED_PROGRAM})
get_filename_component(build "${program}" DIRECTORY)
if(NOT program OR NOT EXISTS ${build}/CPackConfig.cmake)
    message("SKIPPED: VIRELINE_TESTED_PROGRAM names no optimised build")
    return()
endif()
file(REMOVE_RECURSE ${SCRATCH})
execute_process(COMMAND ${CMAKE_CPACK_COMMAND} --config ${build}/CPackConfig.cmake -B ${SCRATCH}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB package ${SCRATCH}/*.deb)

execute_process(COMMAND dpkg-deb --field ${package} Version Depends
    OUTPUT_VARIABLE fields COMMAND_ERROR_IS_FATAL ANY)
foreach(pattern IN ITEMS "Version: ${VERSION}\n" "hicolor-icon-theme" "libc6 \\(>= " "libqt6widgets6"
        "libqt6svg6" "libglib2.0-0" "libplist3" "libxcb-randr0" "libxcb1")
    if(NOT fields MATCHES "${pattern}")
        message(FATAL_ERROR "no ${pattern} in\n${fields}")
    endif()
endforeach()

execute_process(COMMAND dpkg-deb --contents ${package}
    OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
include(${CMAKE_CURRENT_LIST_DIR}/InstalledFiles.cmake)
list(TRANSFORM installed_files REPLACE "\\.1$" ".1.gz")
set(expected ${installed_files}
    usr/share/doc/vireline/changelog.gz usr/share/doc/vireline/copyright)
list(SORT expected)
set(packed)
string(REGEX MATCHALL "[^\n]+" lines "${listing}")
foreach(line IN LISTS lines)
    if(line MATCHES "^(-[-rwx]+) root/root .* \\./(.+)$")
        set(file ${CMAKE_MATCH_2})
        set(rights ${CMAKE_MATCH_1})
        list(APPEND packed ${file})
        if(file MATCHES "/bin/")
            set(wanted -rwxr-xr-x)
        else()
            set(wanted -rw-r--r--)
        endif()
        if(NOT rights STREQUAL wanted)
            message(FATAL_ERROR "rights: ${line}")
        endif()
    elseif(NOT line MATCHES "^drwxr-xr-x root/root ")
        message(FATAL_ERROR "neither a file nor a folder of root's: ${line}")
    endif()
endforeach()
list(SORT packed)
if(NOT packed STREQUAL expected)
    message(FATAL_ERROR "packed: ${packed}\nexpected: ${expected}")
endif()

# KWin compares the path with that of the running program.
execute_process(COMMAND dpkg-deb --extract ${package} ${SCRATCH}/files COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS ${SCRATCH}/files/usr/share/applications/vireline.desktop command REGEX "^Exec=")
if(NOT command STREQUAL "Exec=/usr/bin/vireline")
    message(FATAL_ERROR "The desktop entry has ${command}")
endif()

find_program(LINTIAN lintian)
if(LINTIAN)
    # There is no address to write to.
    execute_process(COMMAND ${LINTIAN} --fail-on error,warning
            --suppress-tags bogus-mail-host,bogus-mail-host-in-debian-changelog ${package}
        RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${said}")
    endif()
endif()
