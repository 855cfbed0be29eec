# Makes Vireline.app from the executable, and a disk image with it.

set(VIRELINE_BUNDLE_IDENTIFIER org.vireline.Vireline)

function(vireline_bundle executable)
    set(resources ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/Resources)
    configure_file(${resources}/Info.plist.in ${CMAKE_CURRENT_BINARY_DIR}/Info.plist @ONLY)
    set(icon ${resources}/Vireline.icns)
    target_sources(${executable} PRIVATE ${icon})
    set_source_files_properties(${icon} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
    set_target_properties(${executable} PROPERTIES
        OUTPUT_NAME Vireline
        MACOSX_BUNDLE ON
        MACOSX_BUNDLE_INFO_PLIST ${CMAKE_CURRENT_BINARY_DIR}/Info.plist)

    find_program(CODESIGN codesign)
    if(CODESIGN)
        # An ad-hoc signature, which suffices to run the bundle on this Mac.
        add_custom_command(TARGET ${executable} POST_BUILD
            COMMAND ${CODESIGN} --force --sign - --identifier ${VIRELINE_BUNDLE_IDENTIFIER}
                $<TARGET_BUNDLE_DIR:${executable}>
            VERBATIM)
    endif()
    vireline_disk_image(${executable})
endfunction()

# Adds the target dmg, which makes a disk image with the bundle and a link to /Applications.
function(vireline_disk_image executable)
    find_program(HDIUTIL hdiutil)
    if(NOT HDIUTIL)
        return()
    endif()
    set(content ${CMAKE_BINARY_DIR}/dmg)
    set(image ${CMAKE_BINARY_DIR}/Vireline-${PROJECT_VERSION}.dmg)
    add_custom_target(dmg
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${content}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${content}
        COMMAND ditto $<TARGET_BUNDLE_DIR:${executable}> ${content}/Vireline.app
        COMMAND ${CMAKE_COMMAND} -E create_symlink /Applications ${content}/Applications
        COMMAND ${HDIUTIL} create -volname Vireline -srcfolder ${content} -format UDZO -ov ${image}
        DEPENDS ${executable}
        VERBATIM)
endfunction()
