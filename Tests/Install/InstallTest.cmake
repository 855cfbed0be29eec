# Installs into a scratch folder through DESTDIR and reports missing and unexpected files.
# Given: BUILD_FOLDER, and SCRATCH, a folder that this test may replace.
file(REMOVE_RECURSE ${SCRATCH})
set(ENV{DESTDIR} ${SCRATCH})
execute_process(
    COMMAND ${CMAKE_COMMAND} --install ${BUILD_FOLDER} --prefix /usr
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

include(${CMAKE_CURRENT_LIST_DIR}/InstalledFiles.cmake)
set(expected ${installed_files})
file(GLOB_RECURSE installed RELATIVE ${SCRATCH} ${SCRATCH}/*)
list(SORT expected)
list(SORT installed)
if(NOT installed STREQUAL expected)
    message(FATAL_ERROR "installed: ${installed}\nexpected: ${expected}")
endif()

find_program(VALIDATE desktop-file-validate)
if(NOT VALIDATE)
    message(FATAL_ERROR "desktop-file-validate is missing")
endif()
execute_process(
    COMMAND ${VALIDATE} ${SCRATCH}/usr/share/applications/vireline.desktop
    COMMAND_ERROR_IS_FATAL ANY)

# KWin compares the path with that of the running program.
file(STRINGS ${SCRATCH}/usr/share/applications/vireline.desktop command REGEX "^Exec=")
if(NOT command STREQUAL "Exec=/usr/bin/vireline")
    message(FATAL_ERROR "The desktop entry has ${command}")
endif()
