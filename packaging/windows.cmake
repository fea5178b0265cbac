# Icon and version of the programs, and the script of their installer.
include(windows/program.cmake)
composer_describe_program(kelvarion-composer "Kelvarion Composer")
composer_describe_program(kelvarion-composer-cli "Kelvarion Composer, the command line")
composer_describe_program(kelvarion-fmod-facts "Kelvarion Composer, facts about an FMOD library")
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION .)
configure_file(windows/installer.nsi.in installer.nsi @ONLY)
