# Configures `cpack` to make a Debian package and an archive of the sources.
set(CPACK_PACKAGE_NAME vireline)
set(CPACK_PACKAGE_VENDOR "The Vireline developers")
set(CPACK_PACKAGE_CONTACT "The Vireline developers <vireline@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "dock on every display")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
# Derives dependencies from the libraries that the program is linked with. What it needs at run
# time, such as Qt's X11 plugin, is installed along with those.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS hicolor-icon-theme)
# Qt's plugin for Wayland, unlike that for X11, is a package of its own. Without it, the program runs
# under Xwayland.
if(VIRELINE_HAS_WAYLAND)
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)
endif()
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"The desktop's own dock stays where it is, on its display. Vireline gives
every other display one of its own: the apps pinned there, mirrored live, or
a list of your own; then the apps that run; then Downloads and Trash. A click
launches an app, brings it forward or hides it. It runs under X11, and under
Wayland compositors with the layer shell.")
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)

set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME vireline-${PROJECT_VERSION})
string(REGEX REPLACE "([][+.*()^$?|\\\\])" "\\\\\\1" source_folder "${PROJECT_SOURCE_DIR}")
set(CPACK_SOURCE_IGNORE_FILES)
foreach(ours IN ITEMS "\\.git" build "\\.cache" "compile_commands\\.json")
    list(APPEND CPACK_SOURCE_IGNORE_FILES "^${source_folder}/${ours}(/|$)")
endforeach()

include(CPack)
