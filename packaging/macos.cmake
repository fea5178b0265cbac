# The window as a bundle, which names the files that it opens; the command line beside it.
set(ICON ${CMAKE_CURRENT_SOURCE_DIR}/macos/kelvarion-composer.icns)
target_sources(kelvarion-composer PRIVATE ${ICON})
set_source_files_properties(${ICON} TARGET_DIRECTORY kelvarion-composer PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
set_target_properties(kelvarion-composer PROPERTIES
    MACOSX_BUNDLE ON
    MACOSX_BUNDLE_INFO_PLIST ${CMAKE_CURRENT_SOURCE_DIR}/macos/Info.plist.in
    MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION})
