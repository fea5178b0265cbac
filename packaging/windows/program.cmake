# Icon and version of a program, where Windows shows them.
function(composer_describe_program PROGRAM DESCRIPTION)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${PROGRAM}.rc @ONLY)
    target_sources(${PROGRAM} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${PROGRAM}.rc)
endfunction()
