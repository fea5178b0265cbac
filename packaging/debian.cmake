# A Debian package and an archive, by `cpack --preset` or ./package.
find_program(DATE date REQUIRED)
execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C ${DATE} -u -R -d ${COMPOSER_RELEASE_DATE}
    OUTPUT_VARIABLE RELEASE_TIME OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(MAINTAINER "The Kelvarion Composer developers <developers@kelvarion-composer.example>")
configure_file(changelog.in changelog @ONLY)
install_compressed(${CMAKE_CURRENT_BINARY_DIR}/changelog ${DOCUMENTATION} changelog)
add_custom_target(debian_files ALL DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz)

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME kelvarion-composer)
set(CPACK_PACKAGE_VENDOR "The Kelvarion Composer developers")
set(CPACK_PACKAGE_CONTACT ${MAINTAINER})
set(CPACK_PACKAGE_HOMEPAGE_URL https://www.kelvarion-composer.example/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "make songs for the instruments of the game Kelvarion")
set(CPACK_PACKAGE_DESCRIPTION
"Kelvarion Composer turns MIDI, MML and ABC music into clean ABC songs that the
instruments of the game Kelvarion can play. Parts are heard with the game's own
instruments, mixed, edited as text or in a piano roll, and written as ABC, MIDI
and sound files.
.
The program kelvarion-composer-cli does the same without a window.")
set(CPACK_PACKAGE_FILE_NAME kelvarion-composer_${PROJECT_VERSION}_${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qttranslations5-l10n) # the words of Qt's own dialogs
if(COMPOSER_QT EQUAL 6)
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-translations-l10n)
endif()
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON) # the libraries and the versions of them that are linked
include(CPack)
