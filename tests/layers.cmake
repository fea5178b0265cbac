# Fails when a source includes a header of a layer that it may not know. Run as: cmake -DSOURCE_DIR=… -P layers.cmake
cmake_minimum_required(VERSION 3.21)

# One row a layer: the beginning of its files' paths, a bar, and the layers (or single headers) of src that it may
# include beside itself. A file belongs to the longest row that fits.
set(LAYERS
    "src/base|"
    "src/settings|base"
    "src/language|"
    "src/core|base"
    "src/import|base core"
    "src/import/midi|base core import"
    "src/import/quantise|base core import import/midi"
    "src/import/standard|base core import"
    "src/song|base settings core import import/midi import/quantise import/standard"
    "src/song/journal|base song"
    "src/edit|base core"
    "src/edit/plan|base core edit"
    "src/edit/notes|base core edit"
    "src/assets/package|base"
    "src/assets|base assets/package"
    "src/check/findings|base settings core edit"
    "src/check/text|base core import edit check/findings"
    "src/check|base core import edit assets check/findings check/text"
    "src/song/preview|base settings core import song assets"
    "src/audio/sound|"
    "src/audio/samples|base assets assets/package audio/sound"
    "src/audio/clicks|core assets audio/sound"
    "src/audio|base core assets assets/package audio/sound audio/samples audio/clicks"
    "src/audio/player|base core assets audio audio/samples audio/clicks"
    "src/audio/render|base core audio audio/sound"
    "src/audio/engine|audio/AudioEngine.h audio/OutputControl.h audio/sound"
    "src/audio/fmod|audio/AudioEngine.h audio/sound"
    "src/audio/choice|audio audio/engine audio/fmod audio/sound base"
    "src/midi|base"
    "src/export|base core import assets audio/TempoPlaces.h"
    "src/arrange|base core import audio/TempoPlaces.h"
    "src/ui|base settings assets ui/notices"
    "src/ui/notices|"
    "src/ui/timeline|base core ui"
    "src/ui/tracks|core song"
    "src/ui/song|base settings core import song assets ui ui/timeline ui/tracks"
    "src/ui/report|settings core import song ui"
    "src/ui/checks|core check check/findings"
    "src/ui/preferences|base settings language import assets audio/OutputControl.h audio/choice midi ui"
    "src/ui/document|base core edit edit/plan assets check check/findings"
    "src/ui/text|base settings core edit ui ui/document check/findings"
    "src/ui/roll|base settings core edit edit/notes ui ui/timeline ui/document check/findings"
    "src/ui/transform|base settings core import ui"
    "src/ui/editor|base settings core import import/quantise edit edit/plan edit/notes assets audio audio/player ui ui/document ui/text ui/roll ui/transform check/findings"
    "src/ui/importing|base settings core import edit song song/preview assets audio audio/player ui ui/report ui/listening"
    "src/app/services|base settings core import song song/journal check check/findings edit assets audio audio/player audio/clicks ui ui/tracks ui/editor"
    "src/app/commands|base settings core import import/quantise song song/preview assets audio audio/player ui ui/timeline ui/tracks ui/song ui/report ui/preferences ui/importing app/services ui/manual"
    "src/ui/manual|ui"
    "src/app/exporting|base settings core song assets audio audio/render audio/sound export ui ui/tracks app/services app/commands"
    "src/app/practice|settings core song audio audio/clicks ui ui/tracks app/services app/commands"
    "src/app/recovery|base core song song/journal ui ui/tracks app/services app/commands"
    "src/app/keyboard|base settings core song assets audio midi ui ui/tracks ui/editor import edit import/quantise app/services edit/plan"
    "src/app|base settings language core edit check/findings song assets audio audio/player midi audio/engine ui ui/timeline ui/tracks ui/song ui/report ui/checks app/services app/commands app/exporting app/practice app/recovery app/keyboard audio/render audio/choice app/songtools ui/manual ui/notices"
    "src/ui/listening|core assets audio audio/player"
    "src/ui/arranging|base core arrange assets audio edit ui ui/listening"
    "src/app/songtools|base core arrange import song assets audio audio/player ui ui/tracks ui/arranging ui/transform app/services app/commands"
    "tools/cli|base settings core import import/quantise song edit check check/findings assets assets/package audio audio/render audio/sound audio/engine audio/choice export arrange tools/cli/arguments tools/cli/streams tools/cli/input tools/cli/summary"
    "tools/cli/arguments|settings core import import/quantise song audio/render audio/choice arrange"
    "tools/cli/streams|base"
    "tools/cli/input|base import song tools/cli/arguments tools/cli/streams"
    "tools/cli/summary|base core import song edit assets audio check check/findings tools/cli/arguments tools/cli/streams"
    "tools/manual|"
    "tools/demogame|"
    "tools/fmodfacts|audio/fmod")
set(LAYERS_WITHOUT_QT "src/audio/sound" "src/audio/engine")

# People look for the layers in the page about the architecture.
file(READ ${SOURCE_DIR}/docs/architecture.md ARCHITECTURE)
foreach(ROW IN LISTS LAYERS)
    string(REGEX REPLACE "[|].*" "" NAME "${ROW}")
    string(FIND "${ARCHITECTURE}" "`${NAME}`" AT)
    if(AT EQUAL -1)
        message(SEND_ERROR "docs/architecture.md does not say what is in ${NAME}")
    endif()
endforeach()

# Sets LAYER to the row's name and MAY_INCLUDE to its list.
function(find_layer PATH)
    set(LAYER "")
    foreach(ROW IN LISTS LAYERS)
        string(REGEX MATCH "^([^|]*)[|](.*)$" ROW "${ROW}")
        string(FIND "${PATH}" "${CMAKE_MATCH_1}" AT)
        if(AT EQUAL 0 AND CMAKE_MATCH_1 STRGREATER LAYER)
            set(LAYER "${CMAKE_MATCH_1}")
            string(REPLACE " " ";" MAY_INCLUDE "${CMAKE_MATCH_2}")
        endif()
    endforeach()
    set(LAYER "${LAYER}" PARENT_SCOPE)
    set(MAY_INCLUDE "${MAY_INCLUDE}" PARENT_SCOPE)
endfunction()

set(CHECKED 0)
file(GLOB_RECURSE FILES RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/src/*.h ${SOURCE_DIR}/src/*.cpp
     ${SOURCE_DIR}/tools/*.h ${SOURCE_DIR}/tools/*.cpp)
foreach(FILE IN LISTS FILES)
    find_layer(${FILE})
    set(OWN ${LAYER})
    set(ALLOWED ${MAY_INCLUDE})
    if(NOT OWN)
        message(SEND_ERROR "${FILE} stands in no layer")
    endif()
    file(STRINGS ${SOURCE_DIR}/${FILE} QT_INCLUDES REGEX "^#include <Q")
    if(QT_INCLUDES AND OWN IN_LIST LAYERS_WITHOUT_QT)
        message(SEND_ERROR "${FILE} may not include Qt")
    endif()
    file(STRINGS ${SOURCE_DIR}/${FILE} INCLUDES REGEX "^ *# *include *[<\"][^>\"]*/")
    foreach(INCLUDE IN LISTS INCLUDES)
        string(REGEX REPLACE "^ *# *include *[<\"]([^>\"]*)[>\"].*" "\\1" HEADER "${INCLUDE}")
        if(HEADER MATCHES "(^|/)[.][.]?/")
            message(SEND_ERROR "${FILE} includes ${HEADER} by a relative path, which hides its layer")
            continue()
        endif()
        if(EXISTS ${SOURCE_DIR}/src/${HEADER})
            find_layer("src/${HEADER}")
        elseif(EXISTS ${SOURCE_DIR}/tools/cli/${HEADER})
            find_layer("tools/cli/${HEADER}")
        else()
            continue() # of a library
        endif()
        string(REPLACE "src/" "" NAME "${LAYER}")
        if(NOT LAYER STREQUAL OWN AND NOT NAME IN_LIST ALLOWED AND NOT HEADER IN_LIST ALLOWED)
            message(SEND_ERROR "${FILE} may not include ${HEADER}")
        endif()
        math(EXPR CHECKED "${CHECKED} + 1")
    endforeach()
endforeach()
if(CHECKED LESS 50)
    message(FATAL_ERROR "only ${CHECKED} includes were found below ${SOURCE_DIR}")
endif()
