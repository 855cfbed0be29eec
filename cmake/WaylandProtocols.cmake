# Finds what the Wayland part needs: libraries, Qt's private headers and the protocols' descriptions.
# Sets VIRELINE_HAS_WAYLAND; without all of them the program is built for X11 only.

# Looks for the description of a protocol; `places` are folders or patterns of folders.
function(vireline_find_protocol variable file)
    foreach(place IN LISTS ARGN)
        file(GLOB found ${place}/${file})
        if(found)
            list(GET found -1 newest)
            set(${variable} ${newest} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    set(${variable} "" PARENT_SCOPE)
endfunction()

function(vireline_find_wayland)
    set(VIRELINE_HAS_WAYLAND OFF PARENT_SCOPE)
    pkg_check_modules(WAYLAND QUIET IMPORTED_TARGET GLOBAL wayland-client>=1.20)
    pkg_check_modules(WAYLAND_SERVER QUIET IMPORTED_TARGET GLOBAL wayland-server)
    find_program(WAYLAND_SCANNER wayland-scanner)
    pkg_get_variable(stable wayland-protocols pkgdatadir)
    # Qt6Gui_PRIVATE_INCLUDE_DIRS has generator expressions in newer versions.
    find_path(QT_PRIVATE_HEADERS qpa/qplatformnativeinterface.h
        PATHS ${Qt6Gui_INCLUDE_DIRS} PATH_SUFFIXES ${Qt6_VERSION}/QtGui NO_DEFAULT_PATH)

    # Some systems have a package of the compositors' own protocols; in Debian 12 and 13 they are
    # only part of other ones.
    set(wlr /usr/share/wlr-protocols/unstable
        /usr/share/cargo/registry/wayland-protocols*/wlr-protocols/unstable)
    set(plasma /usr/share/plasma-wayland-protocols)
    vireline_find_protocol(xdg_shell xdg-shell.xml ${stable}/stable/xdg-shell)
    vireline_find_protocol(viewporter viewporter.xml ${stable}/stable/viewporter)
    vireline_find_protocol(fractional_scale fractional-scale-v1.xml
        ${stable}/staging/fractional-scale)
    vireline_find_protocol(xdg_output xdg-output-unstable-v1.xml ${stable}/unstable/xdg-output)
    vireline_find_protocol(activation xdg-activation-v1.xml ${stable}/staging/xdg-activation)
    vireline_find_protocol(layer_shell wlr-layer-shell-unstable-v1.xml ${wlr})
    vireline_find_protocol(toplevels wlr-foreign-toplevel-management-unstable-v1.xml ${wlr})
    vireline_find_protocol(plasma_windows plasma-window-management.xml ${plasma})
    vireline_find_protocol(blur blur.xml ${plasma})

    set(missing)
    foreach(need IN ITEMS WAYLAND_FOUND WAYLAND_SCANNER QT_PRIVATE_HEADERS
            xdg_shell viewporter fractional_scale xdg_output activation layer_shell toplevels
            plasma_windows blur)
        if(NOT ${need})
            list(APPEND missing ${need})
        endif()
    endforeach()
    if(missing)
        list(JOIN missing ", " list)
        message(STATUS "Building without Wayland, for X11 only; missing: ${list}")
        return()
    endif()
    set(VIRELINE_HAS_WAYLAND ON PARENT_SCOPE)
    set(VIRELINE_PROTOCOLS ${xdg_shell} ${viewporter} ${fractional_scale} ${xdg_output}
        ${activation} ${layer_shell} ${toplevels} ${plasma_windows} ${blur} PARENT_SCOPE)
endfunction()

# Adds a library of the code that wayland-scanner makes of the protocols: <name>-client-protocol.h.
function(vireline_protocol_library name)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/protocols)
    file(MAKE_DIRECTORY ${folder})
    set(made)
    foreach(description IN LISTS ARGN)
        get_filename_component(base ${description} NAME_WE)
        set(header ${folder}/${base}-client-protocol.h)
        set(code ${folder}/${base}-protocol.c)
        add_custom_command(OUTPUT ${header} ${code}
            COMMAND ${WAYLAND_SCANNER} client-header ${description} ${header}
            COMMAND ${WAYLAND_SCANNER} private-code ${description} ${code}
            DEPENDS ${description} VERBATIM)
        list(APPEND made ${header} ${code})
    endforeach()
    add_library(${name} STATIC ${made})
    set_target_properties(${name} PROPERTIES UNITY_BUILD OFF C_CLANG_TIDY "")
    target_include_directories(${name} SYSTEM PUBLIC ${folder})
    target_link_libraries(${name} PUBLIC PkgConfig::WAYLAND)
endfunction()
