<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ArrangeDialog</name>
    <message numerus="yes">
        <source>%1 of %2 notes are kept, by %n player(s)</source>
        <translation>
            <numerusform>%1 of %2 notes are kept, by %n player</numerusform>
            <numerusform>%1 of %2 notes are kept, by %n players</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportCommands</name>
    <message numerus="yes">
        <source>%n file(s) are there already:
%1
Would you like to overwrite them?</source>
        <translation>
            <numerusform>%n file is there already:
%1
Would you like to overwrite it?</numerusform>
            <numerusform>%n files are there already:
%1
Would you like to overwrite them?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportEnd</name>
    <message numerus="yes">
        <source>%n file(s) in %1</source>
        <translation>
            <numerusform>%n file in %1</numerusform>
            <numerusform>%n files in %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportCommands</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) were changed by another program:
%1
Would you like to read them again?</source>
        <translation>
            <numerusform>%n file was changed by another program:
%1
Would you like to read it again?</numerusform>
            <numerusform>%n files were changed by another program:
%1
Would you like to read them again?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportQueue</name>
    <message numerus="yes">
        <source>%n more could not be read.</source>
        <translation>
            <numerusform>%n more could not be read.</numerusform>
            <numerusform>%n more could not be read.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>Copied %n part(s) as ABC files</source>
        <translation>
            <numerusform>Copied %n part as an ABC file</numerusform>
            <numerusform>Copied %n parts as ABC files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NotationExport</name>
    <message numerus="yes">
        <source>%n note(s) end where their pitch begins again</source>
        <translation>
            <numerusform>%n note ends where its pitch begins again</numerusform>
            <numerusform>%n notes end where their pitch begins again</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n note(s) are too high for MIDI</source>
        <translation>
            <numerusform>%n note is too high for MIDI</numerusform>
            <numerusform>%n notes are too high for MIDI</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n part(s) are written in the tempo of the longest</source>
        <translation>
            <numerusform>%n part is written in the tempo of the longest</numerusform>
            <numerusform>%n parts are written in the tempo of the longest</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PartsFolder</name>
    <message numerus="yes">
        <source>%n file(s) are there already:
%1
Would you like to overwrite them?</source>
        <translation>
            <numerusform>%n file is there already:
%1
Would you like to overwrite it?</numerusform>
            <numerusform>%n files are there already:
%1
Would you like to overwrite them?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PianoRoll</name>
    <message numerus="yes">
        <source>%n note(s) selected</source>
        <translation>
            <numerusform>%n note selected</numerusform>
            <numerusform>%n notes selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RewriteQuestion</name>
    <message numerus="yes">
        <source>%n bar line(s)</source>
        <translation>
            <numerusform>%n bar line</numerusform>
            <numerusform>%n bar lines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chord symbol(s) and text(s) above the staff</source>
        <translation>
            <numerusform>%n chord symbol and text above the staff</numerusform>
            <numerusform>%n chord symbols and texts above the staff</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n decoration(s), grace notes and slurs</source>
        <translation>
            <numerusform>%n decoration, grace notes and slurs</numerusform>
            <numerusform>%n decorations, grace notes and slurs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n comment(s)</source>
        <translation>
            <numerusform>%n comment</numerusform>
            <numerusform>%n comments</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RollCommands</name>
    <message numerus="yes">
        <source>Replaces %n note(s) of the same pitch here</source>
        <translation>
            <numerusform>Replaces %n note of the same pitch here</numerusform>
            <numerusform>Replaces %n notes of the same pitch here</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongRecovery</name>
    <message numerus="yes">
        <source>%n song(s) will be gone for good.
Would you like to delete them?</source>
        <translation>
            <numerusform>%n song will be gone for good.
Would you like to delete it?</numerusform>
            <numerusform>%n songs will be gone for good.
Would you like to delete them?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongTools</name>
    <message numerus="yes">
        <source>Arrange for %n Player(s)</source>
        <translation>
            <numerusform>Arrange for %n Player</numerusform>
            <numerusform>Arrange for %n Players</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StatusIndicators</name>
    <message numerus="yes">
        <source>%n part(s)</source>
        <translation>
            <numerusform>%n part</numerusform>
            <numerusform>%n parts</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrackCommands</name>
    <message numerus="yes">
        <source>%n note(s) would leave the range and be removed.
Move them back into the range by octaves instead?</source>
        <translation>
            <numerusform>%n note would leave the range and be removed.
Move it back into the range by octaves instead?</numerusform>
            <numerusform>%n notes would leave the range and be removed.
Move them back into the range by octaves instead?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RenderWorker</name>
    <message numerus="yes">
        <source>%n sample(s) could not be read, and their notes are silent</source>
        <translation>
            <numerusform>%n sample could not be read, and its notes are silent</numerusform>
            <numerusform>%n samples could not be read, and their notes are silent</numerusform>
        </translation>
    </message>
</context>
</TS>
