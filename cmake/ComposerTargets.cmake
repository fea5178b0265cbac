# The build settings that every target of the project shares, and the four ways to declare one:
#   composer_library(NAME [LINKS targets…])      src/…: one folder, one static library
#   composer_test(NAME [THREADS] [WINDOW] [LINKS …]) tests/…: NAME.cpp, run by ctest under its name; THREADS: worth a
#                                                run under ThreadSanitizer; WINDOW: opens windows, without a display
#   composer_fuzzer(NAME CORPUS folder [LINKS …]) fuzz/…: NAME.cpp, its corpus replayed by ctest
#   composer_benchmark(NAME [LINKS targets…])    benchmarks/…: NAME.cpp
# Each takes its sources from the current folder, so a new file needs no new line.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)

find_program(CCACHE ccache)
if(CCACHE) # it must not look for the macros of what is precompiled
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

add_library(composer_settings INTERFACE)
target_compile_definitions(composer_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_DEPRECATED_WARNINGS
    COMPOSER_VERSION="${PROJECT_VERSION}")
target_include_directories(composer_settings INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(WIN32) # windows.h makes macros of what the standard library calls min and max, else
    target_compile_definitions(composer_settings INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN UNICODE)
endif()
if(MSVC)
    target_compile_options(composer_settings INTERFACE /W4 /utf-8 $<$<BOOL:${COMPOSER_WARNINGS_ARE_ERRORS}>:/WX>)
else()
    target_compile_options(composer_settings INTERFACE
        -Wall -Wextra -Wpedantic $<$<BOOL:${COMPOSER_WARNINGS_ARE_ERRORS}>:-Werror> -Wshadow -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
        -Wcast-align -Wcast-qual -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough -Wextra-semi
        $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override>)
endif()
if(COMPOSER_SANITIZE)
    target_compile_options(composer_settings INTERFACE
        -fsanitize=${COMPOSER_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(composer_settings INTERFACE -fsanitize=${COMPOSER_SANITIZE})
    # GCC's warnings that follow the flow of values see ghosts in instrumented code.
    target_compile_options(composer_settings INTERFACE
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized -Wno-stringop-overflow -Wno-array-bounds>)
endif()
if(COMPOSER_FUZZ)
    target_compile_options(composer_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

# What ./test --sanitizers builds apart from everything.
add_custom_target(libraries)
add_custom_target(thread_tests)

# The headers that most sources read, precompiled once for all rooms with widgets (in ui) and once for all others (in
# base). Not with other compilers, so that each source is also compiled with nothing but what it includes itself.
function(composer_precompile NAME)
    if(NOT COMPOSER_PRECOMPILE OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU"
       OR CMAKE_CURRENT_SOURCE_DIR MATCHES "/audio/(sound|engine)$") # those are without Qt
        return()
    endif()
    set(OWNER base)
    if(CMAKE_CURRENT_SOURCE_DIR MATCHES "/(ui|app)(/|$)")
        set(OWNER ui)
    endif()
    if(NOT NAME STREQUAL OWNER)
        target_precompile_headers(${NAME} REUSE_FROM ${OWNER})
        return()
    endif()
    target_precompile_headers(${NAME} PRIVATE <algorithm> <functional> <memory> <optional> <QHash> <QObject> <QStringList> <QVector>)
    if(NAME STREQUAL ui)
        target_precompile_headers(${NAME} PRIVATE <QAction> <QApplication> <QComboBox> <QDialog> <QHBoxLayout> <QLabel>
            <QMainWindow> <QMenu> <QMouseEvent> <QPainter> <QTimer>)
    endif()
endfunction()

# What the operating systems do differently has a source for each: NAME_windows.cpp, and NAME_posix.cpp for all others;
# what their desktops do, NAME_dbus.cpp for those that are reached by D-Bus, and NAME_tray.cpp.
function(composer_glob_sources VARIABLE)
    file(GLOB SOURCES CONFIGURE_DEPENDS *.cpp *.h)
    set(OTHERS windows tray)
    if(APPLE)
        set(OTHERS windows dbus)
    elseif(WIN32)
        set(OTHERS posix dbus)
    endif()
    foreach(OTHER IN LISTS OTHERS)
        list(FILTER SOURCES EXCLUDE REGEX "_${OTHER}\\.(cpp|h)$")
    endforeach()
    set(${VARIABLE} ${SOURCES} PARENT_SCOPE)
endfunction()

function(composer_library NAME)
    cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
    composer_glob_sources(SOURCES)
    add_library(${NAME} STATIC ${SOURCES})
    target_link_libraries(${NAME} PUBLIC composer_settings ${ARG_LINKS})
    composer_precompile(${NAME})
    add_dependencies(libraries ${NAME})
endfunction()

# For code without Qt that computes samples: optimised, and products are not contracted into sums behind our back, so
# that the same sample has the same bits wherever a span is cut.
function(composer_exact_samples NAME)
    set_target_properties(${NAME} PROPERTIES AUTOMOC OFF)
    if(NOT MSVC)
        target_compile_options(${NAME} PRIVATE -ffp-contract=off)
        if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
            target_compile_options(${NAME} PRIVATE -O3)
        endif()
    endif()
endfunction()

# For sources that call a library by declarations of their own: the types of its handles are never the library's, which
# UndefinedBehaviorSanitizer takes for another function.
function(composer_foreign_calls)
    if(COMPOSER_SANITIZE MATCHES undefined AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        file(GLOB SOURCES *.cpp)
        set_source_files_properties(${SOURCES} PROPERTIES COMPILE_OPTIONS -fno-sanitize=function)
    endif()
endfunction()

function(composer_test NAME)
    cmake_parse_arguments(ARG "THREADS;WINDOW" "" "LINKS" ${ARGN})
    add_executable(${NAME} ${NAME}.cpp)
    target_include_directories(${NAME} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} Qt::Test)
    composer_precompile(${NAME})
    add_test(NAME ${NAME} COMMAND ${NAME})
    if(COMPOSER_SANITIZE STREQUAL "thread")
        set_tests_properties(${NAME} PROPERTIES ENVIRONMENT
            TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/thread-sanitizer.supp)
    endif()
    # Whatever the language of who builds: texts in the tests are English, and numbers have a point.
    set_property(TEST ${NAME} APPEND PROPERTY ENVIRONMENT LC_ALL=C.UTF-8 LANGUAGE=)
    if(ARG_WINDOW)
        composer_without_display(${NAME})
    endif()
    if(ARG_THREADS)
        set_tests_properties(${NAME} PROPERTIES LABELS threads)
        add_dependencies(thread_tests ${NAME})
    endif()
endfunction()

# A test of ctest that opens windows.
function(composer_without_display TEST)
    set_property(TEST ${TEST} APPEND PROPERTY ENVIRONMENT QT_QPA_PLATFORM=offscreen)
    if(COMPOSER_SANITIZE MATCHES address)
        # Whole stacks, so that the suppression finds the plugin in them.
        set_property(TEST ${TEST} APPEND PROPERTY ENVIRONMENT ASAN_OPTIONS=fast_unwind_on_malloc=0
            LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/leak-sanitizer.supp:print_suppressions=0)
    endif()
endfunction()

function(composer_fuzzer NAME)
    cmake_parse_arguments(ARG "" "CORPUS" "LINKS" ${ARGN})
    set(CORPUS ${CMAKE_CURRENT_SOURCE_DIR}/corpus/${ARG_CORPUS})
    if(COMPOSER_FUZZ)
        add_executable(${NAME} ${NAME}.cpp)
        target_link_options(${NAME} PRIVATE -fsanitize=fuzzer)
        add_test(NAME ${NAME} COMMAND ${NAME} -runs=0 ${CORPUS})
    else()
        add_executable(${NAME} ${NAME}.cpp replay.cpp)
        add_test(NAME ${NAME} COMMAND ${NAME} ${CORPUS})
    endif()
    target_link_libraries(${NAME} PRIVATE ${ARG_LINKS})
endfunction()

function(composer_benchmark NAME)
    cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
    add_executable(${NAME} ${NAME}.cpp)
    target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} bench_support)
endfunction()
