set(COMPOSER_ID example.kelvarion_composer.Composer)
set(DOCUMENTATION ${CMAKE_INSTALL_DATADIR}/doc/kelvarion-composer)
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(GZIP gzip REQUIRED)

install(FILES ${COMPOSER_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${COMPOSER_ID}.metainfo.xml.in ${COMPOSER_ID}.metainfo.xml @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${COMPOSER_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES kelvarion-composer.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)

# Panels and menus that cannot draw SVG want icons of these sizes.
set(GENERATED)
function(install_icon DRAWING FOLDER NAME)
    install(FILES ${DRAWING} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/${FOLDER} RENAME ${NAME}.svg)
    foreach(SIZE 16 22 24 32 48 64 128 256)
        set(PICTURE ${CMAKE_CURRENT_BINARY_DIR}/${SIZE}/${NAME}.png)
        add_custom_command(OUTPUT ${PICTURE}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${SIZE}
            COMMAND ${RSVG_CONVERT} -w ${SIZE} -h ${SIZE} ${DRAWING} -o ${PICTURE}
            DEPENDS ${DRAWING} VERBATIM)
        list(APPEND GENERATED ${PICTURE})
        install(FILES ${PICTURE} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${SIZE}x${SIZE}/${FOLDER})
    endforeach()
    set(GENERATED ${GENERATED} PARENT_SCOPE)
endfunction()
install_icon(${CMAKE_SOURCE_DIR}/src/resources/icons/appicon.svg apps kelvarion-composer)
install_icon(${CMAKE_CURRENT_SOURCE_DIR}/songfile.svg mimetypes application-vnd.kelvarion-composer.song+json)

# Texts that policy wants compressed, without names and times in them.
function(install_compressed TEXT DESTINATION NAME)
    set(COMPRESSED ${CMAKE_CURRENT_BINARY_DIR}/${NAME}.gz)
    add_custom_command(OUTPUT ${COMPRESSED} COMMAND ${GZIP} -9nc ${TEXT} > ${COMPRESSED} DEPENDS ${TEXT})
    install(FILES ${COMPRESSED} DESTINATION ${DESTINATION})
    set(GENERATED ${GENERATED} ${COMPRESSED} PARENT_SCOPE)
endfunction()

# The headless program writes its own manual page and completions, where it can be run.
function(generate FILE)
    add_custom_command(OUTPUT ${FILE} COMMAND kelvarion-composer-cli ${ARGN} > ${FILE} DEPENDS kelvarion-composer-cli)
endfunction()
install_compressed(${CMAKE_CURRENT_SOURCE_DIR}/kelvarion-composer.1 ${CMAKE_INSTALL_MANDIR}/man1 kelvarion-composer.1)
if(NOT CMAKE_CROSSCOMPILING AND NOT COMPOSER_SANITIZE)
    set(HERE ${CMAKE_CURRENT_BINARY_DIR})
    generate(${HERE}/kelvarion-composer-cli.1 manual)
    generate(${HERE}/kelvarion-composer-cli completion bash)
    generate(${HERE}/_kelvarion-composer-cli completion zsh)
    generate(${HERE}/kelvarion-composer-cli.fish completion fish)
    install_compressed(${HERE}/kelvarion-composer-cli.1 ${CMAKE_INSTALL_MANDIR}/man1 kelvarion-composer-cli.1)
    set(COMPLETIONS ${HERE}/kelvarion-composer-cli ${HERE}/_kelvarion-composer-cli ${HERE}/kelvarion-composer-cli.fish)
    install(FILES ${HERE}/kelvarion-composer-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    install(FILES ${HERE}/_kelvarion-composer-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
    install(FILES ${HERE}/kelvarion-composer-cli.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endif()

configure_file(copyright copyright COPYONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/copyright DESTINATION ${DOCUMENTATION})
install(FILES ${CMAKE_SOURCE_DIR}/docs/command-line.md DESTINATION ${DOCUMENTATION})
add_custom_target(desktop_files ALL DEPENDS ${GENERATED} ${COMPLETIONS})
