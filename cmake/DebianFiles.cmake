# Run by CPack before it packs the files: adds those that Debian requires in every package.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

set(share ${CPACK_TEMPORARY_DIRECTORY}/usr/share)
set(documents ${share}/doc/vireline)
file(MAKE_DIRECTORY ${documents})
file(READ ${CPACK_RESOURCE_FILE_LICENSE} license)
string(REGEX REPLACE "^MIT License\n+Copyright[^\n]*\n+" "" license "${license}")
string(STRIP "${license}" license)
string(REPLACE "\n\n" "\n.\n" license "${license}")
string(REPLACE "\n" "\n " license "${license}")
file(WRITE ${documents}/copyright
"Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: Vireline

Files: *
Copyright: 2026 The Vireline developers
License: Expat

License: Expat
 ${license}
")

string(TIMESTAMP packed "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${documents}/changelog
"vireline (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * See CHANGELOG.md in the sources.

 -- ${CPACK_PACKAGE_CONTACT}  ${packed}
")
execute_process(
    COMMAND gzip --best --no-name ${documents}/changelog ${share}/man/man1/vireline.1
    COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE added ${documents}/* ${share}/man/*)
foreach(file IN LISTS added)
    file(CHMOD ${file} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()
