# Brings the texts of the sources into the .ts files. Run as: cmake -DSOURCE_DIR=… -DLUPDATE=… -DCOPY=… -P update.cmake
# lupdate reads a copy of the sources, since that of Qt 5 takes the marks between digits (10'000) for characters.
file(REMOVE_RECURSE ${COPY})
file(GLOB_RECURSE FILES RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/src/*.h ${SOURCE_DIR}/src/*.cpp)
foreach(FILE IN LISTS FILES)
    file(READ ${SOURCE_DIR}/${FILE} TEXT)
    string(REGEX REPLACE "([0-9])'([0-9])" "\\1\\2" TEXT "${TEXT}")
    file(WRITE ${COPY}/${FILE} "${TEXT}")
endforeach()

# Without line numbers, which would change with every edit of a source.
set(UPDATE ${LUPDATE} -silent -locations none -no-obsolete -extensions cpp,h -I ${COPY}/src ${COPY}/src
    -source-language en)
set(NAME ${SOURCE_DIR}/translations/kelvarion-composer)
foreach(LANGUAGE IN LISTS LANGUAGES)
    execute_process(COMMAND ${UPDATE} -target-language ${LANGUAGE} -ts ${NAME}_${LANGUAGE}.ts COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(COMMAND ${UPDATE} -target-language en -pluralonly -ts ${NAME}_en.ts COMMAND_ERROR_IS_FATAL ANY)
