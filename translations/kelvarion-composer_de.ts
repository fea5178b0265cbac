<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AbcEditorWindow</name>
    <message>
        <source>&amp;Tune</source>
        <translation>&amp;Stück</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>&amp;Noten</translation>
    </message>
    <message>
        <source>Sn&amp;ap</source>
        <translation>Ei&amp;nrasten</translation>
    </message>
    <message>
        <source>T&amp;ransform</source>
        <translation>&amp;Umformen</translation>
    </message>
    <message>
        <source>&amp;Clean Up</source>
        <translation>&amp;Aufräumen</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Ansi&amp;cht</translation>
    </message>
    <message>
        <source>&amp;Ghost Notes</source>
        <translation>&amp;Geisternoten</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Playback tempo</source>
        <translation>Wiedergabetempo</translation>
    </message>
    <message>
        <source>How fast the preview plays; the tune keeps its tempo (F9 slower, F11 faster)</source>
        <translation>Wie schnell die Vorschau spielt; das Stück behält sein Tempo (F9 langsamer, F11 schneller)</translation>
    </message>
    <message>
        <source>There is nothing at the caret that has one right fix.</source>
        <translation>Am Cursor steht nichts, was sich auf genau eine Weise beheben ließe.</translation>
    </message>
    <message>
        <source>The changes are applied.</source>
        <translation>Die Änderungen sind übernommen.</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>%1[*] – ABC Editor</source>
        <translation>%1[*] – ABC-Editor</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>The text has errors: it is a draft, and the part stays as it was applied last.</source>
        <translation>Der Text hat Fehler: Er ist ein Entwurf, und die Stimme bleibt, wie sie zuletzt übernommen wurde.</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Go to Line</source>
        <translation>Gehe zu Zeile</translation>
    </message>
    <message>
        <source>Line, 1 to %1:</source>
        <translation>Zeile, 1 bis %1:</translation>
    </message>
    <message>
        <source>&amp;Enter</source>
        <translation>&amp;Eingeben</translation>
    </message>
    <message>
        <source>Len&amp;gth of New Notes</source>
        <translation>Länge ne&amp;uer Noten</translation>
    </message>
    <message>
        <source>How long new notes of the piano roll are (keys 1 to 7; . dots, T makes triplets)</source>
        <translation>Wie lang neue Noten der Pianorolle sind (Tasten 1 bis 7; . punktiert, T macht Triolen)</translation>
    </message>
    <message>
        <source>What notes of the piano roll snap to (keys [ and ])</source>
        <translation>Worauf Noten der Pianorolle einrasten (Tasten [ und ])</translation>
    </message>
    <message>
        <source>Length of new notes: %1</source>
        <translation>Länge neuer Noten: %1</translation>
    </message>
    <message>
        <source>Grid: %1</source>
        <translation>Raster: %1</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>Grid and &amp;Zoom of the Roll</source>
        <translation>R&amp;aster und Zoom der Pianorolle</translation>
    </message>
</context>
<context>
    <name>AbcParser</name>
    <message>
        <source>Unexpected token found in chord at line %1, column %2.</source>
        <translation>Unerwartetes Zeichen im Akkord in Zeile %1, Spalte %2.</translation>
    </message>
    <message>
        <source>Unexpected token found in ABC header: line %1, column %2.</source>
        <translation>Unerwartetes Zeichen im ABC-Kopf: Zeile %1, Spalte %2.</translation>
    </message>
    <message>
        <source>Empty chord</source>
        <translation>Leerer Akkord</translation>
    </message>
    <message>
        <source>Unknown token found in ABC body at line %1, column %2.</source>
        <translation>Unbekanntes Zeichen in der ABC-Musik in Zeile %1, Spalte %2.</translation>
    </message>
</context>
<context>
    <name>AbcReading</name>
    <message>
        <source>Unexpected text in the header; the music begins behind the K: line</source>
        <translation>Unerwarteter Text im Kopf; die Musik beginnt hinter der K:-Zeile</translation>
    </message>
    <message>
        <source>The sign %1 has no second one behind it</source>
        <translation>Auf das Zeichen %1 folgt kein zweites</translation>
    </message>
    <message>
        <source>“%1” means nothing here</source>
        <translation>„%1“ bedeutet hier nichts</translation>
    </message>
    <message>
        <source>The number is too large</source>
        <translation>Die Zahl ist zu groß</translation>
    </message>
    <message>
        <source>The chord is not closed</source>
        <translation>Der Akkord ist nicht geschlossen</translation>
    </message>
    <message>
        <source>Empty chord</source>
        <translation>Leerer Akkord</translation>
    </message>
    <message>
        <source>The chord has too many notes</source>
        <translation>Der Akkord hat zu viele Noten</translation>
    </message>
    <message>
        <source>“%1” does not belong in a chord</source>
        <translation>„%1“ gehört nicht in einen Akkord</translation>
    </message>
</context>
<context>
    <name>AbcTextEdit</name>
    <message>
        <source>ABC text</source>
        <translation>ABC-Text</translation>
    </message>
</context>
<context>
    <name>About</name>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Kelvarion Composer&lt;/b&gt; (v&lt;i&gt;%1&lt;/i&gt;)&lt;/p&gt;&lt;p&gt;Turns MIDI, MML and ABC music into songs that the instruments of Kelvarion can play.&lt;/p&gt;&lt;p&gt;Copyright © 2026 the Kelvarion Composer developers.&lt;br&gt;Free software under the MIT licence; it comes without any warranty.&lt;/p&gt;&lt;p&gt;With thanks to the makers of Qt %2 (LGPL 3), libsndfile (LGPL 2.1) and SDL (zlib licence), which this program is built upon.&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Kelvarion Composer&lt;/b&gt; (v&lt;i&gt;%1&lt;/i&gt;)&lt;/p&gt;&lt;p&gt;Macht aus MIDI-, MML- und ABC-Musik Songs, die die Instrumente von Kelvarion spielen können.&lt;/p&gt;&lt;p&gt;Copyright © 2026 die Entwickler von Kelvarion Composer.&lt;br&gt;Freie Software unter der MIT-Lizenz, ohne jede Gewährleistung.&lt;/p&gt;&lt;p&gt;Mit Dank an die Macher von Qt %2 (LGPL 3), libsndfile (LGPL 2.1) und SDL (zlib-Lizenz), auf denen dieses Programm aufbaut.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>ArrangeDialog</name>
    <message>
        <source>Arrange for Players</source>
        <translation>Für Spieler arrangieren</translation>
    </message>
    <message>
        <source>The song as it is</source>
        <translation>Der Song, wie er ist</translation>
    </message>
    <message>
        <source>As it would be</source>
        <translation>Wie er dann wäre</translation>
    </message>
    <message>
        <source>How many people play</source>
        <translation>Wie viele Leute spielen</translation>
    </message>
    <message>
        <source>The most notes that one of them plays at the same time</source>
        <translation>Wie viele Töne eine oder einer davon höchstens zugleich spielt</translation>
    </message>
    <message>
        <source>The part whose highest notes are all kept</source>
        <translation>Die Stimme, deren höchste Töne alle erhalten bleiben</translation>
    </message>
    <message>
        <source>The part whose lowest notes come next</source>
        <translation>Die Stimme, deren tiefste Töne als Nächste drankommen</translation>
    </message>
    <message>
        <source>&amp;Players:</source>
        <translation>&amp;Spieler:</translation>
    </message>
    <message>
        <source>&amp;Notes at once:</source>
        <translation>&amp;Töne zugleich:</translation>
    </message>
    <message>
        <source>&amp;Melody:</source>
        <translation>&amp;Melodie:</translation>
    </message>
    <message>
        <source>&amp;Bass:</source>
        <translation>&amp;Bass:</translation>
    </message>
    <message>
        <source>Listen to the &amp;Song</source>
        <translation>S&amp;ong anhören</translation>
    </message>
    <message>
        <source>Play the song as it is, or stop</source>
        <translation>Den Song spielen, wie er ist, oder anhalten</translation>
    </message>
    <message>
        <source>&amp;Listen to the Arrangement</source>
        <translation>Arrangement an&amp;hören</translation>
    </message>
    <message>
        <source>Play all parts as they would be, or stop</source>
        <translation>Alle Stimmen spielen, wie sie würden, oder anhalten</translation>
    </message>
    <message>
        <source>Listen to O&amp;ne of Its Parts</source>
        <translation>&amp;Eine seiner Stimmen anhören</translation>
    </message>
    <message>
        <source>Play the chosen part of the arrangement alone, or stop</source>
        <translation>Die gewählte Stimme des Arrangements allein spielen oder anhalten</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>&amp;Arrangieren</translation>
    </message>
    <message>
        <source>Found: %1</source>
        <translation>Gefunden: %1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Arranging…</source>
        <translation>Wird arrangiert…</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 notes are kept, by %n player(s)</source>
        <translation>
            <numerusform>%1 von %2 Noten bleiben, bei %n Spieler</numerusform>
            <numerusform>%1 von %2 Noten bleiben, bei %n Spielern</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 were doubled</source>
        <translation>%1 waren verdoppelt</translation>
    </message>
    <message>
        <source>for %1 no voice was free</source>
        <translation>für %1 war kein Platz</translation>
    </message>
    <message>
        <source>for %1 no instrument has a sample</source>
        <translation>für %1 hat kein Instrument einen Klang</translation>
    </message>
    <message>
        <source>%1 have no length</source>
        <translation>%1 haben keine Länge</translation>
    </message>
    <message>
        <source>%1 of drums need a third player</source>
        <translation>%1 des Schlagzeugs brauchen einen dritten Spieler</translation>
    </message>
</context>
<context>
    <name>ArrangeTable</name>
    <message>
        <source>Part</source>
        <translation>Stimme</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Noten</translation>
    </message>
    <message>
        <source>How many notes it has</source>
        <translation>Wie viele Noten sie hat</translation>
    </message>
    <message>
        <source>Span</source>
        <translation>Umfang</translation>
    </message>
    <message>
        <source>Its lowest and its highest note</source>
        <translation>Ihr tiefster und ihr höchster Ton</translation>
    </message>
    <message>
        <source>At once</source>
        <translation>Zugleich</translation>
    </message>
    <message>
        <source>The most notes that sound at the same time</source>
        <translation>Wie viele Töne höchstens zugleich klingen</translation>
    </message>
    <message>
        <source>Crossings</source>
        <translation>Kreuzungen</translation>
    </message>
    <message>
        <source>Notes that begin above what sounds in the part that is the next higher</source>
        <translation>Töne, die über dem beginnen, was in der nächsthöheren Stimme klingt</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Notes that somebody will play</source>
        <translation>Töne, die jemand spielen wird</translation>
    </message>
    <message>
        <source>Doubled</source>
        <translation>Verdoppelt</translation>
    </message>
    <message>
        <source>Notes left out because another one that begins with them has their pitch, or is octaves away</source>
        <translation>Töne, die wegfallen, weil ein anderer zugleich auf ihrer Tonhöhe oder Oktaven davon beginnt</translation>
    </message>
    <message>
        <source>No voice</source>
        <translation>Kein Platz</translation>
    </message>
    <message>
        <source>Notes left out because everybody was playing others</source>
        <translation>Töne, die wegfallen, weil alle schon andere spielten</translation>
    </message>
    <message>
        <source>Other losses</source>
        <translation>Andere Verluste</translation>
    </message>
    <message>
        <source>Notes of no instrument&apos;s range, without a drummer, or of no length</source>
        <translation>Töne, die kein Instrument hat, ohne Schlagzeuger oder ohne Länge</translation>
    </message>
    <message>
        <source>Moved</source>
        <translation>Versetzt</translation>
    </message>
    <message>
        <source>Notes moved by octaves, into the range of the instrument</source>
        <translation>Töne, die um Oktaven in den Umfang des Instruments versetzt sind</translation>
    </message>
    <message>
        <source>Shortened</source>
        <translation>Gekürzt</translation>
    </message>
    <message>
        <source>Notes that end early, since their voice is needed</source>
        <translation>Töne, die früher enden, weil ihr Platz gebraucht wird</translation>
    </message>
    <message>
        <source>Lent</source>
        <translation>Geliehen</translation>
    </message>
    <message>
        <source>Notes of other players&apos; parts</source>
        <translation>Töne aus den Stimmen anderer Spieler</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
</context>
<context>
    <name>AudioEngine</name>
    <message>
        <source>No errors.</source>
        <translation>Keine Fehler.</translation>
    </message>
    <message>
        <source>An invalid parameter was passed.</source>
        <translation>Ein ungültiger Wert wurde übergeben.</translation>
    </message>
    <message>
        <source>The engine is not initialized.</source>
        <translation>Die Klangausgabe ist nicht gestartet.</translation>
    </message>
    <message>
        <source>There is no sound device.</source>
        <translation>Es gibt kein Audiogerät.</translation>
    </message>
    <message>
        <source>The sound device was lost.</source>
        <translation>Das Audiogerät ist verschwunden.</translation>
    </message>
    <message>
        <source>The sound server does not answer.</source>
        <translation>Der Audioserver antwortet nicht.</translation>
    </message>
    <message>
        <source>There is no such group.</source>
        <translation>Diese Gruppe gibt es nicht.</translation>
    </message>
    <message>
        <source>There are too many groups.</source>
        <translation>Es gibt zu viele Gruppen.</translation>
    </message>
    <message>
        <source>Too many notes sound at once.</source>
        <translation>Zu viele Töne klingen zugleich.</translation>
    </message>
    <message>
        <source>The mixer did not keep up with the commands.</source>
        <translation>Der Mixer kam mit den Befehlen nicht nach.</translation>
    </message>
    <message>
        <source>The sample cannot be decoded.</source>
        <translation>Das Sample lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>The sample is too long.</source>
        <translation>Das Sample ist zu lang.</translation>
    </message>
    <message>
        <source>The wave file cannot be written.</source>
        <translation>Die Wave-Datei lässt sich nicht schreiben.</translation>
    </message>
    <message>
        <source>The sound library failed.</source>
        <translation>Die Audiobibliothek hat versagt.</translation>
    </message>
    <message>
        <source>Unknown error.</source>
        <translation>Unbekannter Fehler.</translation>
    </message>
</context>
<context>
    <name>AudioExportDialog</name>
    <message>
        <source>Export Audio</source>
        <translation>Audio exportieren</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Qualität:</translation>
    </message>
    <message>
        <source>From 0, the smallest file, to 10, the best sound</source>
        <translation>Von 0, der kleinsten Datei, bis 10, dem besten Klang</translation>
    </message>
    <message>
        <source>The mix</source>
        <translation>Der Mix</translation>
    </message>
    <message>
        <source>One file for each part</source>
        <translation>Eine Datei je Stimme</translation>
    </message>
    <message>
        <source>The mix and one file for each part</source>
        <translation>Der Mix und eine Datei je Stimme</translation>
    </message>
    <message>
        <source>The whole song</source>
        <translation>Der ganze Song</translation>
    </message>
    <message>
        <source>The loop</source>
        <translation>Die Schleife</translation>
    </message>
    <message>
        <source>The song has no loop</source>
        <translation>Der Song hat keine Schleife</translation>
    </message>
    <message>
        <source>&amp;Normalise to -1 dBFS</source>
        <translation>Auf -1 dBFS &amp;normalisieren</translation>
    </message>
    <message>
        <source>Makes all files louder or softer alike, so that nothing is clipped</source>
        <translation>Macht alle Dateien gleichermaßen lauter oder leiser, sodass nichts übersteuert</translation>
    </message>
    <message>
        <source>With the &amp;start offsets of the parts</source>
        <translation>Mit dem Startver&amp;satz der Stimmen</translation>
    </message>
    <message>
        <source>Parts come in as they do in the playback</source>
        <translation>Stimmen setzen so ein wie bei der Wiedergabe</translation>
    </message>
    <message>
        <source>No part has a start offset</source>
        <translation>Keine Stimme hat einen Startversatz</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>F&amp;iles:</source>
        <translation>&amp;Dateien:</translation>
    </message>
    <message>
        <source>&amp;Range:</source>
        <translation>&amp;Bereich:</translation>
    </message>
</context>
<context>
    <name>BusNotices</name>
    <message>
        <source>Show the Window</source>
        <translation>Fenster zeigen</translation>
    </message>
</context>
<context>
    <name>BusyIndicator</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Stop what is running (Esc)</source>
        <translation>Anhalten, was gerade läuft (Esc)</translation>
    </message>
</context>
<context>
    <name>ChecksPage</name>
    <message>
        <source>Will the game play it?</source>
        <translation>Spielt das Spiel es?</translation>
    </message>
    <message>
        <source>Notes that are farther from their sample do not sound natural</source>
        <translation>Töne, die weiter von ihrem Sample entfernt sind, klingen nicht natürlich</translation>
    </message>
    <message>
        <source> semitones</source>
        <translation> Halbtöne</translation>
    </message>
    <message>
        <source>Farthest from a sample:</source>
        <translation>Größter Abstand vom Sample:</translation>
    </message>
    <message>
        <source>How many notes of one part the game plays at once</source>
        <translation>Wie viele Töne einer Stimme das Spiel zugleich spielt</translation>
    </message>
    <message>
        <source>any number</source>
        <translation>beliebig viele</translation>
    </message>
    <message>
        <source>Notes of a part at once:</source>
        <translation>Töne einer Stimme zugleich:</translation>
    </message>
    <message>
        <source>How long the text of a part may be</source>
        <translation>Wie lang der Text einer Stimme sein darf</translation>
    </message>
    <message>
        <source>Characters of a part:</source>
        <translation>Zeichen einer Stimme:</translation>
    </message>
</context>
<context>
    <name>DialogFrame</name>
    <message>
        <source>Keep bar lines and comments</source>
        <translation>Taktstriche und Kommentare behalten</translation>
    </message>
    <message>
        <source>Change only the notes in the text; otherwise it is written anew, without all that is no note</source>
        <translation>Nur die Noten im Text ändern; sonst wird er neu geschrieben, ohne alles, was keine Note ist</translation>
    </message>
</context>
<context>
    <name>Dialogs</name>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>&amp;Fix Errors</source>
        <translation>Fehler be&amp;heben</translation>
    </message>
    <message>
        <source>&amp;Keep as Draft</source>
        <translation>Als Entwurf &amp;behalten</translation>
    </message>
    <message>
        <source>&amp;Discard Changes</source>
        <translation>Änderungen &amp;verwerfen</translation>
    </message>
    <message>
        <source>&amp;Convert for the Game</source>
        <translation>Für das Spiel um&amp;wandeln</translation>
    </message>
    <message>
        <source>&amp;Open as It Is</source>
        <translation>&amp;Unverändert öffnen</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Apply</source>
        <translation>Üb&amp;ernehmen</translation>
    </message>
    <message>
        <source>Make the song sound as the text says</source>
        <translation>Den Song klingen lassen, wie der Text es sagt</translation>
    </message>
    <message>
        <source>Apply and &amp;Save</source>
        <translation>Übernehmen und &amp;speichern</translation>
    </message>
    <message>
        <source>Apply the changes, and save them to disk</source>
        <translation>Die Änderungen übernehmen und speichern</translation>
    </message>
    <message>
        <source>&amp;Revert to Applied</source>
        <translation>Auf Übernommenes &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Take back every change since the last Apply, as one step to undo</source>
        <translation>Jede Änderung seit dem letzten Übernehmen zurücknehmen, in einem Schritt</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close the editor</source>
        <translation>Den Editor schließen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Take back the last change, of the text or of the notes</source>
        <translation>Die letzte Änderung am Text oder an den Noten zurücknehmen</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Make the change that was taken back again</source>
        <translation>Die zurückgenommene Änderung wieder vornehmen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>Move the selected text to the clipboard</source>
        <translation>Den ausgewählten Text in die Zwischenablage verschieben</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy the selected text to the clipboard</source>
        <translation>Den ausgewählten Text in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Insert the text of the clipboard</source>
        <translation>Den Text der Zwischenablage einfügen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>Select the whole text</source>
        <translation>Den ganzen Text auswählen</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>&amp;Suchen…</translation>
    </message>
    <message>
        <source>Find in the text</source>
        <translation>Im Text suchen</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>We&amp;itersuchen</translation>
    </message>
    <message>
        <source>Find the next match</source>
        <translation>Den nächsten Treffer suchen</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>&amp;Vorheriges suchen</translation>
    </message>
    <message>
        <source>Find the previous match</source>
        <translation>Den vorherigen Treffer suchen</translation>
    </message>
    <message>
        <source>R&amp;eplace…</source>
        <translation>Erse&amp;tzen…</translation>
    </message>
    <message>
        <source>Find and replace in the text</source>
        <translation>Im Text suchen und ersetzen</translation>
    </message>
    <message>
        <source>&amp;Go to Line…</source>
        <translation>&amp;Gehe zu Zeile…</translation>
    </message>
    <message>
        <source>Put the caret on a line</source>
        <translation>Den Cursor auf eine Zeile setzen</translation>
    </message>
    <message>
        <source>Ne&amp;xt Problem</source>
        <translation>Nächstes &amp;Problem</translation>
    </message>
    <message>
        <source>Go to the next error of the text</source>
        <translation>Zum nächsten Fehler im Text gehen</translation>
    </message>
    <message>
        <source>Previous Pro&amp;blem</source>
        <translation>Vorheriges Pro&amp;blem</translation>
    </message>
    <message>
        <source>Go to the previous error of the text</source>
        <translation>Zum vorherigen Fehler im Text gehen</translation>
    </message>
    <message>
        <source>F&amp;ix Problem</source>
        <translation>Problem be&amp;heben</translation>
    </message>
    <message>
        <source>Mend what is wrong at the caret, where there is one right way</source>
        <translation>Beheben, was am Cursor falsch ist, wo es genau einen richtigen Weg gibt</translation>
    </message>
    <message>
        <source>&amp;Quick Realign</source>
        <translation>&amp;Schnell ausrichten</translation>
    </message>
    <message>
        <source>Move all notes onto the nearest 128th or tuplet of it</source>
        <translation>Alle Noten auf das nächste 128stel oder eine N-Tole davon verschieben</translation>
    </message>
    <message>
        <source>&amp;Realign Notes…</source>
        <translation>Noten &amp;ausrichten…</translation>
    </message>
    <message>
        <source>Move all notes onto the grids of your choice</source>
        <translation>Alle Noten auf Raster Ihrer Wahl verschieben</translation>
    </message>
    <message>
        <source>&amp;Clean Quantise</source>
        <translation>Sauber &amp;quantisieren</translation>
    </message>
    <message>
        <source>Write all notes as a musician would, on the grid of each measure</source>
        <translation>Alle Noten schreiben, wie ein Musiker es täte, auf dem Raster jedes Takts</translation>
    </message>
    <message>
        <source>&amp;Transpose…</source>
        <translation>&amp;Transponieren…</translation>
    </message>
    <message>
        <source>Move all notes up or down</source>
        <translation>Alle Noten höher oder tiefer setzen</translation>
    </message>
    <message>
        <source>Change &amp;Unit Length…</source>
        <translation>&amp;Grundnotenlänge ändern…</translation>
    </message>
    <message>
        <source>Write all lengths in another unit</source>
        <translation>Alle Längen in einer anderen Einheit schreiben</translation>
    </message>
    <message>
        <source>Change &amp;Key…</source>
        <translation>T&amp;onart ändern…</translation>
    </message>
    <message>
        <source>Write all notes in another key; they sound as before</source>
        <translation>Alle Noten in einer anderen Tonart schreiben; sie klingen wie zuvor</translation>
    </message>
    <message>
        <source>&amp;Split at Caret</source>
        <translation>Am &amp;Cursor teilen</translation>
    </message>
    <message>
        <source>Cut the selected notes, or all, in two at the caret</source>
        <translation>Die ausgewählten Noten oder alle am Cursor in zwei teilen</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>Make one note of the selected notes of each pitch</source>
        <translation>Aus den ausgewählten Noten jeder Tonhöhe eine machen</translation>
    </message>
    <message>
        <source>&amp;Legato</source>
        <translation>&amp;Legato</translation>
    </message>
    <message>
        <source>Let each selected note sound up to the next</source>
        <translation>Jede ausgewählte Note bis zur nächsten klingen lassen</translation>
    </message>
    <message>
        <source>&amp;Double Lengths</source>
        <translation>Längen ver&amp;doppeln</translation>
    </message>
    <message>
        <source>Make the selected notes twice as long</source>
        <translation>Die ausgewählten Noten doppelt so lang machen</translation>
    </message>
    <message>
        <source>&amp;Halve Lengths</source>
        <translation>Längen &amp;halbieren</translation>
    </message>
    <message>
        <source>Make the selected notes half as long</source>
        <translation>Die ausgewählten Noten halb so lang machen</translation>
    </message>
    <message>
        <source>&amp;Quantise to Grid</source>
        <translation>Am &amp;Raster quantisieren</translation>
    </message>
    <message>
        <source>Move the selected notes onto the grid of the piano roll</source>
        <translation>Die ausgewählten Noten auf das Raster der Pianorolle verschieben</translation>
    </message>
    <message>
        <source>Quantise Half &amp;Way</source>
        <translation>Hal&amp;b quantisieren</translation>
    </message>
    <message>
        <source>Move the selected notes half of the way onto the grid</source>
        <translation>Die ausgewählten Noten den halben Weg zum Raster verschieben</translation>
    </message>
    <message>
        <source>&amp;Invert Selection</source>
        <translation>Auswahl &amp;umkehren</translation>
    </message>
    <message>
        <source>Select the notes that are not selected</source>
        <translation>Die Noten auswählen, die nicht ausgewählt sind</translation>
    </message>
    <message>
        <source>Select Same &amp;Pitch</source>
        <translation>&amp;Gleiche Tonhöhe auswählen</translation>
    </message>
    <message>
        <source>Select all notes that have the pitch of a selected one</source>
        <translation>Alle Noten auswählen, die die Tonhöhe einer ausgewählten haben</translation>
    </message>
    <message>
        <source>Select Pitch &amp;Range</source>
        <translation>T&amp;onhöhenbereich auswählen</translation>
    </message>
    <message>
        <source>Select all notes from the lowest to the highest pitch of the selected ones</source>
        <translation>Alle Noten von der tiefsten bis zur höchsten ausgewählten Tonhöhe auswählen</translation>
    </message>
    <message>
        <source>Insert &amp;Measure</source>
        <translation>Takt &amp;einfügen</translation>
    </message>
    <message>
        <source>Put an empty measure before the one at the caret</source>
        <translation>Einen leeren Takt vor dem am Cursor einfügen</translation>
    </message>
    <message>
        <source>Delete M&amp;easures</source>
        <translation>Ta&amp;kte löschen</translation>
    </message>
    <message>
        <source>Take out the measures of the selected notes, or the one at the caret</source>
        <translation>Die Takte der ausgewählten Noten herausnehmen, oder den am Cursor</translation>
    </message>
    <message>
        <source>Play o&amp;r Stop</source>
        <translation>Abspielen &amp;oder anhalten</translation>
    </message>
    <message>
        <source>Play from where the caret is, or stop</source>
        <translation>Ab dem Cursor abspielen oder anhalten</translation>
    </message>
    <message>
        <source>&amp;Play from Caret</source>
        <translation>Ab &amp;Cursor abspielen</translation>
    </message>
    <message>
        <source>Play from where the caret is</source>
        <translation>Ab dem Cursor abspielen</translation>
    </message>
    <message>
        <source>Play from &amp;Start</source>
        <translation>Ab &amp;Anfang abspielen</translation>
    </message>
    <message>
        <source>Play from the beginning</source>
        <translation>Von Anfang an abspielen</translation>
    </message>
    <message>
        <source>&amp;Loop Selection</source>
        <translation>Auswahl &amp;wiederholen</translation>
    </message>
    <message>
        <source>Play the selection, or the whole tune, again and again</source>
        <translation>Die Auswahl oder das ganze Stück immer wieder abspielen</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>An&amp;halten</translation>
    </message>
    <message>
        <source>Stop playing</source>
        <translation>Die Wiedergabe anhalten</translation>
    </message>
    <message>
        <source>&amp;With the Song</source>
        <translation>&amp;Mit dem Song</translation>
    </message>
    <message>
        <source>Hear the other parts of the song, too, that are not muted</source>
        <translation>Auch die anderen Stimmen des Songs hören, die nicht stumm sind</translation>
    </message>
    <message>
        <source>Sl&amp;ower</source>
        <translation>&amp;Langsamer</translation>
    </message>
    <message>
        <source>Play slower; the tune keeps its tempo</source>
        <translation>Langsamer abspielen; das Stück behält sein Tempo</translation>
    </message>
    <message>
        <source>&amp;Faster</source>
        <translation>&amp;Schneller</translation>
    </message>
    <message>
        <source>Play faster; the tune keeps its tempo</source>
        <translation>Schneller abspielen; das Stück behält sein Tempo</translation>
    </message>
    <message>
        <source>&amp;Normal Tempo</source>
        <translation>&amp;Normales Tempo</translation>
    </message>
    <message>
        <source>Play in the tempo of the tune</source>
        <translation>Im Tempo des Stücks abspielen</translation>
    </message>
    <message>
        <source>&amp;Piano Roll</source>
        <translation>&amp;Pianorolle</translation>
    </message>
    <message>
        <source>Show the notes over a keyboard</source>
        <translation>Die Noten über einer Klaviatur zeigen</translation>
    </message>
    <message>
        <source>&amp;Switch between Text and Roll</source>
        <translation>Zwischen Text und Rolle &amp;wechseln</translation>
    </message>
    <message>
        <source>Give the keyboard to the other view</source>
        <translation>Der anderen Ansicht die Tastatur geben</translation>
    </message>
    <message>
        <source>P&amp;roblems</source>
        <translation>P&amp;robleme</translation>
    </message>
    <message>
        <source>Show the list of errors</source>
        <translation>Die Liste der Fehler zeigen</translation>
    </message>
    <message>
        <source>&amp;Wrap Lines</source>
        <translation>&amp;Zeilen umbrechen</translation>
    </message>
    <message>
        <source>Break long lines at the edge of the window</source>
        <translation>Lange Zeilen am Fensterrand umbrechen</translation>
    </message>
    <message>
        <source>&amp;Follow Playback</source>
        <translation>Wiedergabe &amp;folgen</translation>
    </message>
    <message>
        <source>Keep what sounds in view</source>
        <translation>Was klingt, im Blick behalten</translation>
    </message>
    <message>
        <source>Zoom Text &amp;In</source>
        <translation>Text &amp;vergrößern</translation>
    </message>
    <message>
        <source>Make the text larger</source>
        <translation>Den Text größer machen</translation>
    </message>
    <message>
        <source>Zoom Text &amp;Out</source>
        <translation>Text ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Make the text smaller</source>
        <translation>Den Text kleiner machen</translation>
    </message>
    <message>
        <source>&amp;Normal Text Size</source>
        <translation>&amp;Normale Textgröße</translation>
    </message>
    <message>
        <source>Give the text its normal size</source>
        <translation>Dem Text seine normale Größe geben</translation>
    </message>
</context>
<context>
    <name>EditorCleanUp</name>
    <message>
        <source>Nothing to change here.</source>
        <translation>Hier ist nichts zu ändern.</translation>
    </message>
    <message>
        <source>Split Notes</source>
        <translation>Noten teilen</translation>
    </message>
    <message>
        <source>Select the notes that are to be joined.</source>
        <translation>Wählen Sie die Noten aus, die verbunden werden sollen.</translation>
    </message>
    <message>
        <source>Join Notes</source>
        <translation>Noten verbinden</translation>
    </message>
    <message>
        <source>Legato</source>
        <translation>Legato</translation>
    </message>
    <message>
        <source>Double Lengths</source>
        <translation>Längen verdoppeln</translation>
    </message>
    <message>
        <source>Halve Lengths</source>
        <translation>Längen halbieren</translation>
    </message>
    <message>
        <source>Quantise</source>
        <translation>Quantisieren</translation>
    </message>
    <message>
        <source>Insert Measure</source>
        <translation>Takt einfügen</translation>
    </message>
    <message>
        <source>There is no measure here.</source>
        <translation>Hier ist kein Takt.</translation>
    </message>
    <message>
        <source>Delete Measures</source>
        <translation>Takte löschen</translation>
    </message>
    <message>
        <source>No bar line stands where this measure begins or ends by its metre. Write one there first.</source>
        <translation>Wo dieser Takt nach seiner Taktart beginnt oder endet, steht kein Taktstrich. Schreiben Sie dort zuerst einen.</translation>
    </message>
    <message>
        <source>A tuplet goes on behind a bar line here. Let it end before the bar line first.</source>
        <translation>Eine N-Tole geht hier hinter einem Taktstrich weiter. Lassen Sie sie zuerst vor dem Taktstrich enden.</translation>
    </message>
    <message>
        <source>Other notes would change. Make the measures around here as long as their metre says first.</source>
        <translation>Andere Noten würden sich ändern. Machen Sie die Takte um diese Stelle zuerst so lang, wie ihre Taktart sagt.</translation>
    </message>
</context>
<context>
    <name>EditorDocument</name>
    <message>
        <source>Typing</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
</context>
<context>
    <name>EditorStatus</name>
    <message>
        <source>Line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>The caret in the text</source>
        <translation>Der Cursor im Text</translation>
    </message>
    <message>
        <source>%1, tick %2</source>
        <translation>%1, Tick %2</translation>
    </message>
    <message>
        <source>The caret in the music; a whole note has 40320 ticks</source>
        <translation>Der Cursor in der Musik; eine ganze Note hat 40320 Ticks</translation>
    </message>
    <message>
        <source>Pitch and length of the note at the caret</source>
        <translation>Tonhöhe und Länge der Note am Cursor</translation>
    </message>
    <message>
        <source>What is wrong with the text</source>
        <translation>Was am Text falsch ist</translation>
    </message>
    <message>
        <source>Unapplied changes</source>
        <translation>Nicht übernommen</translation>
    </message>
    <message>
        <source>Whether the song has what the text says</source>
        <translation>Ob der Song hat, was der Text sagt</translation>
    </message>
    <message>
        <source>1 problem</source>
        <translation>1 Problem</translation>
    </message>
    <message>
        <source>%1 problems</source>
        <translation>%1 Probleme</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Applied</source>
        <translation>Übernommen</translation>
    </message>
</context>
<context>
    <name>EditorTransforms</name>
    <message>
        <source>The changes cannot be applied</source>
        <translation>Die Änderungen lassen sich nicht übernehmen</translation>
    </message>
    <message>
        <source>ABC Editor</source>
        <translation>ABC-Editor</translation>
    </message>
    <message>
        <source>There are unapplied changes. Would you like to apply these first?</source>
        <translation>Es gibt Änderungen, die nicht übernommen sind. Möchten Sie sie zuerst übernehmen?</translation>
    </message>
    <message>
        <source>The text cannot be applied, since it has errors:
%1

A draft stays with the song as it is, to go on with later. Until then the part plays as it was applied last.</source>
        <translation>Der Text lässt sich nicht übernehmen, da er Fehler hat:
%1

Ein Entwurf bleibt unverändert beim Song, um später daran weiterzuarbeiten. Bis dahin spielt die Stimme, wie sie zuletzt übernommen wurde.</translation>
    </message>
    <message>
        <source>Quick Realign</source>
        <translation>Schnell ausrichten</translation>
    </message>
    <message>
        <source>Realign Notes</source>
        <translation>Noten ausrichten</translation>
    </message>
    <message>
        <source>Clean Quantise</source>
        <translation>Sauber quantisieren</translation>
    </message>
    <message>
        <source>Transpose</source>
        <translation>Transponieren</translation>
    </message>
    <message>
        <source>Change Unit Length</source>
        <translation>Grundnotenlänge ändern</translation>
    </message>
    <message>
        <source>Change Key</source>
        <translation>Tonart ändern</translation>
    </message>
</context>
<context>
    <name>EditorWindows</name>
    <message>
        <source>Edit Track</source>
        <translation>Spur bearbeiten</translation>
    </message>
</context>
<context>
    <name>EmptyHint</name>
    <message>
        <source>Drop a MIDI or ABC file here</source>
        <translation>Ziehen Sie eine MIDI- oder ABC-Datei hierher</translation>
    </message>
    <message>
        <source>Every part of the song becomes a track that you can hear with the game&apos;s instruments and save as ABC.</source>
        <translation>Jede Stimme des Songs wird eine Spur, die Sie mit den Instrumenten des Spiels hören und als ABC speichern können.</translation>
    </message>
    <message>
        <source>Text in ABC or MML can be pasted with Ctrl+V.</source>
        <translation>Text in ABC oder MML lässt sich mit Strg+V einfügen.</translation>
    </message>
    <message>
        <source>Import MIDI...</source>
        <translation>MIDI importieren...</translation>
    </message>
    <message>
        <source>Choose a MIDI file (Ctrl+Shift+M)</source>
        <translation>Eine MIDI-Datei wählen (Strg+Umschalt+M)</translation>
    </message>
    <message>
        <source>Open ABC...</source>
        <translation>ABC öffnen...</translation>
    </message>
    <message>
        <source>Choose ABC files (Ctrl+O)</source>
        <translation>ABC-Dateien wählen (Strg+O)</translation>
    </message>
</context>
<context>
    <name>EngineChoice</name>
    <message>
        <source>FMOD cannot be used, so the built-in engine plays. %1</source>
        <translation>FMOD lässt sich nicht verwenden, daher spielt die eingebaute Klangausgabe. %1</translation>
    </message>
</context>
<context>
    <name>EngineGroup</name>
    <message>
        <source>Built-in</source>
        <translation>Eingebaut</translation>
    </message>
    <message>
        <source>What mixes the tracks, from the next Play on</source>
        <translation>Was die Spuren mischt, ab der nächsten Wiedergabe</translation>
    </message>
    <message>
        <source>Your FMOD library, version 1.08 to 2.03, as games come with</source>
        <translation>Ihre FMOD-Bibliothek, Version 1.08 bis 2.03, wie Spiele sie mitbringen</translation>
    </message>
    <message>
        <source>Sound Engine</source>
        <translation>Klangausgabe</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Choose the file of an FMOD library</source>
        <translation>Die Datei einer FMOD-Bibliothek wählen</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Testen</translation>
    </message>
    <message>
        <source>Play a scale with this library</source>
        <translation>Mit dieser Bibliothek eine Tonleiter spielen</translation>
    </message>
    <message>
        <source>Engine:</source>
        <translation>Ausgabe:</translation>
    </message>
    <message>
        <source>Library:</source>
        <translation>Bibliothek:</translation>
    </message>
    <message>
        <source>Choose the FMOD library</source>
        <translation>Die FMOD-Bibliothek wählen</translation>
    </message>
    <message>
        <source>Libraries (*.so *.so.* *.dll *.dylib);;All files (*)</source>
        <translation>Bibliotheken (*.so *.so.* *.dll *.dylib);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1
It plays on the system&apos;s default device.</source>
        <translation>%1
Sie spielt auf dem Standardgerät des Systems.</translation>
    </message>
    <message>
        <source>The game&apos;s or the system&apos;s</source>
        <translation>Die des Spiels oder des Systems</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Stopped.</source>
        <translation>Angehalten.</translation>
    </message>
    <message>
        <source>Not enough memory.</source>
        <translation>Nicht genug Arbeitsspeicher.</translation>
    </message>
    <message>
        <source>Unknown failure.</source>
        <translation>Unbekannter Fehler.</translation>
    </message>
</context>
<context>
    <name>ExportCommands</name>
    <message>
        <source>Export to Wav</source>
        <translation>Als Wav exportieren</translation>
    </message>
    <message>
        <source>Export Audio</source>
        <translation>Audio exportieren</translation>
    </message>
    <message>
        <source>&apos;%1&apos; does not end in &quot;.%2&quot;, as %3 files do.</source>
        <translation>„%1“ endet nicht auf „.%2“, wie %3-Dateien es tun.</translation>
    </message>
    <message>
        <source>Exporting %1...</source>
        <translation>%1 wird exportiert...</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) are there already:
%1
Would you like to overwrite them?</source>
        <translation>
            <numerusform>%n Datei gibt es schon:
%1
Möchten Sie sie überschreiben?</numerusform>
            <numerusform>%n Dateien gibt es schon:
%1
Möchten Sie sie überschreiben?</numerusform>
        </translation>
    </message>
    <message>
        <source>The export to wav is still running.
Would you like to stop it?</source>
        <translation>Der Export läuft noch.
Möchten Sie ihn abbrechen?</translation>
    </message>
    <message>
        <source>Export all (non-muted) tracks to a wave file</source>
        <translation>Alle (nicht stummen) Spuren in eine Wave-Datei exportieren</translation>
    </message>
    <message>
        <source>Export Audio...</source>
        <translation>Audio exportieren...</translation>
    </message>
    <message>
        <source>Export all (non-muted) tracks as WAV, FLAC, Ogg, Opus or MP3: the mix, or each part</source>
        <translation>Alle (nicht stummen) Spuren als WAV, FLAC, Ogg, Opus oder MP3 exportieren: den Mix oder jede Stimme</translation>
    </message>
    <message>
        <source>Renderer in use</source>
        <translation>Export läuft bereits</translation>
    </message>
    <message>
        <source>You are already rendering to wav, please wait for it to finish and try again.</source>
        <translation>Es wird bereits als Wav exportiert. Bitte warten Sie das Ende ab und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Export tracks to wav...</source>
        <translation>Spuren als Wav exportieren...</translation>
    </message>
    <message>
        <source>Wave file (*.wav)</source>
        <translation>Wave-Datei (*.wav)</translation>
    </message>
    <message>
        <source>Rendering to wav...</source>
        <translation>Wav wird geschrieben...</translation>
    </message>
</context>
<context>
    <name>ExportEnd</name>
    <message numerus="yes">
        <source>%n file(s) in %1</source>
        <translation>
            <numerusform>%n Datei in %1</numerusform>
            <numerusform>%n Dateien in %1</numerusform>
        </translation>
    </message>
    <message>
        <source>The export is done</source>
        <translation>Der Export ist fertig</translation>
    </message>
    <message>
        <source>The export failed</source>
        <translation>Der Export ist gescheitert</translation>
    </message>
</context>
<context>
    <name>ExportNote</name>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Show what was exported in the program for files</source>
        <translation>Im Dateimanager zeigen, was exportiert wurde</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>%1 geschrieben</translation>
    </message>
</context>
<context>
    <name>ExportProgress</name>
    <message>
        <source>Loading samples...</source>
        <translation>Samples werden geladen...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>What to look for (F3 finds the next, Shift+F3 the previous)</source>
        <translation>Wonach gesucht wird (F3 findet das Nächste, Umschalt+F3 das Vorherige)</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>What takes its place</source>
        <translation>Was an seine Stelle tritt</translation>
    </message>
    <message>
        <source>Whole &amp;words</source>
        <translation>Ganze &amp;Wörter</translation>
    </message>
    <message>
        <source>Not within longer words</source>
        <translation>Nicht innerhalb längerer Wörter</translation>
    </message>
    <message>
        <source>Match &amp;case</source>
        <translation>&amp;Groß/klein beachten</translation>
    </message>
    <message>
        <source>C and c are different</source>
        <translation>C und c sind verschieden</translation>
    </message>
    <message>
        <source>Wrap &amp;around</source>
        <translation>Von v&amp;orn weiter</translation>
    </message>
    <message>
        <source>Go on from the other end of the text</source>
        <translation>Am anderen Ende des Texts weitersuchen</translation>
    </message>
    <message>
        <source>How the text is meant</source>
        <translation>Wie der Text gemeint ist</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>Einfach</translation>
    </message>
    <message>
        <source>Extended (\n, \t, \x41)</source>
        <translation>Erweitert (\n, \t, \x41)</translation>
    </message>
    <message>
        <source>Regular expression</source>
        <translation>Regulärer Ausdruck</translation>
    </message>
    <message>
        <source>Search mode</source>
        <translation>Suchmodus</translation>
    </message>
    <message>
        <source>Where Return looks from the caret</source>
        <translation>Wohin die Eingabetaste vom Cursor aus sucht</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Aufwärts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Abwärts</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Replace the selected match and find the next</source>
        <translation>Den ausgewählten Treffer ersetzen und den nächsten suchen</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Alle ersetzen</translation>
    </message>
    <message>
        <source>Replace every match, as one step to undo</source>
        <translation>Jeden Treffer ersetzen, in einem Schritt</translation>
    </message>
    <message>
        <source>Find previous</source>
        <translation>Vorheriges suchen</translation>
    </message>
    <message>
        <source>Find previous (Shift+F3)</source>
        <translation>Vorheriges suchen (Umschalt+F3)</translation>
    </message>
    <message>
        <source>Find next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message>
        <source>Find next (F3)</source>
        <translation>Weitersuchen (F3)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close (Esc)</source>
        <translation>Schließen (Esc)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Not an expression</source>
        <translation>Kein Ausdruck</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Keine Treffer</translation>
    </message>
    <message>
        <source>1 match</source>
        <translation>1 Treffer</translation>
    </message>
    <message>
        <source>%1 matches</source>
        <translation>%1 Treffer</translation>
    </message>
    <message>
        <source>There is nothing to look for.</source>
        <translation>Es gibt nichts zu suchen.</translation>
    </message>
    <message>
        <source>“%1” was not found.</source>
        <translation>„%1“ wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>The search went on from the other end of the text.</source>
        <translation>Die Suche ging am anderen Ende des Texts weiter.</translation>
    </message>
    <message>
        <source>1 match was replaced.</source>
        <translation>1 Treffer wurde ersetzt.</translation>
    </message>
    <message>
        <source>%1 matches were replaced.</source>
        <translation>%1 Treffer wurden ersetzt.</translation>
    </message>
</context>
<context>
    <name>Finding</name>
    <message>
        <source>Text that the game cannot read</source>
        <translation>Text, den das Spiel nicht lesen kann</translation>
    </message>
    <message>
        <source>Notes out of range</source>
        <translation>Noten außerhalb des Umfangs</translation>
    </message>
    <message>
        <source>“%1” is outside the notes that instruments play, and stays silent.</source>
        <translation>„%1“ liegt außerhalb dessen, was Instrumente spielen, und bleibt still.</translation>
    </message>
    <message>
        <source>Move by octaves into the range</source>
        <translation>Um Oktaven in den Umfang versetzen</translation>
    </message>
    <message>
        <source>Empty measures</source>
        <translation>Leere Takte</translation>
    </message>
    <message>
        <source>The bar line “%1” makes an empty measure: the game is silent for it.</source>
        <translation>Der Taktstrich „%1“ macht einen leeren Takt: Das Spiel schweigt so lange.</translation>
    </message>
    <message>
        <source>Remove the bar line</source>
        <translation>Den Taktstrich entfernen</translation>
    </message>
    <message>
        <source>Pick-ups with a gap behind them</source>
        <translation>Auftakte mit einer Lücke dahinter</translation>
    </message>
    <message>
        <source>The first measure is short by %1: the game is silent for as long behind it, not before it.</source>
        <translation>Der erste Takt ist zu kurz: Es fehlt %1. So lange schweigt das Spiel hinter ihm statt davor.</translation>
    </message>
    <message>
        <source>Begin with a rest</source>
        <translation>Mit einer Pause beginnen</translation>
    </message>
    <message>
        <source>Measures that are too short</source>
        <translation>Takte, die zu kurz sind</translation>
    </message>
    <message>
        <source>The measure is short by %1: at its bar line the game is silent for as long.</source>
        <translation>Dem Takt fehlt %1: An seinem Taktstrich schweigt das Spiel so lange.</translation>
    </message>
    <message>
        <source>Measures that are too long</source>
        <translation>Takte, die zu lang sind</translation>
    </message>
    <message>
        <source>The measure is long by %1: what follows its bar line begins before it ends.</source>
        <translation>Der Takt ist um %1 zu lang: Was auf seinen Taktstrich folgt, beginnt, bevor er endet.</translation>
    </message>
    <message>
        <source>Texts that are too long</source>
        <translation>Texte, die zu lang sind</translation>
    </message>
    <message>
        <source>The text has %1 characters; the limit is %2.%3</source>
        <translation>Der Text hat %1 Zeichen; erlaubt sind %2.%3</translation>
    </message>
    <message>
        <source>Write it with another unit length</source>
        <translation>Mit einer anderen Grundnotenlänge schreiben</translation>
    </message>
    <message>
        <source>Grace notes that are not closed</source>
        <translation>Vorschlagsnoten, die nicht geschlossen sind</translation>
    </message>
    <message>
        <source>The grace notes are not closed: the game plays nothing behind them.</source>
        <translation>Die Vorschlagsnoten sind nicht geschlossen: Das Spiel spielt nichts, was dahinter steht.</translation>
    </message>
    <message>
        <source>Signs that belong to nothing</source>
        <translation>Zeichen, die zu nichts gehören</translation>
    </message>
    <message>
        <source>“%1” belongs to nothing here: the game passes over it.</source>
        <translation>„%1“ gehört hier zu nichts: Das Spiel übergeht es.</translation>
    </message>
    <message>
        <source>Remove the sign</source>
        <translation>Das Zeichen entfernen</translation>
    </message>
    <message>
        <source>Ties that lead nowhere</source>
        <translation>Haltebögen, die ins Leere führen</translation>
    </message>
    <message>
        <source>The tie leads nowhere: no note of the same pitch follows at once.</source>
        <translation>Der Haltebogen führt ins Leere: Es folgt nicht gleich ein Ton derselben Höhe.</translation>
    </message>
    <message>
        <source>Remove the tie</source>
        <translation>Den Haltebogen entfernen</translation>
    </message>
    <message>
        <source>Fields that the game cannot read</source>
        <translation>Felder, die das Spiel nicht lesen kann</translation>
    </message>
    <message>
        <source>The game cannot read “%1”; it would read %2, for example.</source>
        <translation>Das Spiel kann „%1“ nicht lesen; es verstünde zum Beispiel %2.</translation>
    </message>
    <message>
        <source>Fields that change nothing</source>
        <translation>Felder, die nichts ändern</translation>
    </message>
    <message>
        <source>“%1” changes nothing: the game takes the unit length from the header alone.</source>
        <translation>„%1“ ändert nichts: Das Spiel nimmt die Grundnotenlänge allein aus dem Kopf.</translation>
    </message>
    <message>
        <source>Second tunes</source>
        <translation>Zweite Stücke</translation>
    </message>
    <message>
        <source>A second tune begins here: the game plays it on as part of the first.</source>
        <translation>Hier beginnt ein zweites Stück: Das Spiel spielt es als Teil des ersten weiter.</translation>
    </message>
    <message>
        <source>Empty parts</source>
        <translation>Leere Stimmen</translation>
    </message>
    <message>
        <source>The part has no notes.</source>
        <translation>Die Stimme hat keine Noten.</translation>
    </message>
    <message>
        <source>Too many notes at once</source>
        <translation>Zu viele Töne zugleich</translation>
    </message>
    <message>
        <source>%1 notes sound at once; the limit is %2.</source>
        <translation>%1 Töne klingen zugleich; erlaubt sind %2.</translation>
    </message>
    <message>
        <source>Unknown instruments</source>
        <translation>Unbekannte Instrumente</translation>
    </message>
    <message>
        <source>The game has no instrument “%1”.%2</source>
        <translation>Das Spiel hat kein Instrument „%1“.%2</translation>
    </message>
    <message>
        <source>Name the instrument that is meant</source>
        <translation>Das gemeinte Instrument nennen</translation>
    </message>
    <message>
        <source>Notes without a sample</source>
        <translation>Noten ohne Sample</translation>
    </message>
    <message>
        <source>%2 has no sample for %1: the note stays silent.</source>
        <translation>%2 hat kein Sample für %1: Der Ton bleibt still.</translation>
    </message>
    <message>
        <source>Notes far from their sample</source>
        <translation>Noten weit von ihrem Sample</translation>
    </message>
    <message>
        <source>%1 is %2 semitones from its sample, and will not sound natural.</source>
        <translation>%1 ist %2 Halbtöne von seinem Sample entfernt und wird nicht natürlich klingen.</translation>
    </message>
    <message>
        <source>Tempos that differ</source>
        <translation>Abweichende Tempi</translation>
    </message>
    <message>
        <source>The part plays %1 quarter notes a minute here, most others %2.</source>
        <translation>Die Stimme spielt hier %1 Viertel in der Minute, die meisten anderen %2.</translation>
    </message>
    <message>
        <source>Starts that differ</source>
        <translation>Abweichende Anfänge</translation>
    </message>
    <message>
        <source>The part&apos;s first note comes %1 later than the song&apos;s.</source>
        <translation>Die erste Note der Stimme kommt später als die des Songs: %1.</translation>
    </message>
    <message>
        <source>Lengths that differ</source>
        <translation>Abweichende Längen</translation>
    </message>
    <message>
        <source>The part ends %1 before the longest one.</source>
        <translation>Die Stimme endet vor der längsten: %1.</translation>
    </message>
    <message>
        <source>%1 note</source>
        <translation>%1-Note</translation>
    </message>
    <message>
        <source>a whole note</source>
        <translation>eine ganze Note</translation>
    </message>
    <message>
        <source>%1 whole notes</source>
        <translation>%1 ganze Noten</translation>
    </message>
    <message>
        <source>There is “%1”.</source>
        <translation>Es gibt „%1“.</translation>
    </message>
    <message>
        <source>With L:%1 it would have %2.</source>
        <translation>Mit L:%1 hätte er %2.</translation>
    </message>
    <message>
        <source>Move by octaves to a sample</source>
        <translation>Um Oktaven zu einem Sample versetzen</translation>
    </message>
    <message>
        <source>Give it the tempo of the others</source>
        <translation>Das Tempo der anderen geben</translation>
    </message>
    <message>
        <source>End with rests</source>
        <translation>Mit Pausen enden</translation>
    </message>
</context>
<context>
    <name>FindingsModel</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>measure %1</source>
        <translation>Takt %1</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
</context>
<context>
    <name>FindingsPanel</name>
    <message>
        <source>Fix</source>
        <translation>Beheben</translation>
    </message>
    <message>
        <source>Mend what is chosen, in the part&apos;s text</source>
        <translation>Beheben, was ausgewählt ist, im Text der Stimme</translation>
    </message>
    <message>
        <source>Fix All of This Kind</source>
        <translation>Alle dieser Art beheben</translation>
    </message>
    <message>
        <source>Mend it in all parts, as one step</source>
        <translation>In allen Stimmen beheben, in einem Schritt</translation>
    </message>
    <message>
        <source>What the game would not play as it is meant</source>
        <translation>Was das Spiel anders spielen würde, als es gemeint ist</translation>
    </message>
    <message>
        <source>Nothing is known that the game would not play as it is meant.</source>
        <translation>Es ist nichts bekannt, was das Spiel anders spielen würde, als es gemeint ist.</translation>
    </message>
    <message>
        <source>A click shows the place in the editor.</source>
        <translation>Ein Klick zeigt die Stelle im Editor.</translation>
    </message>
    <message>
        <source>There are no parts yet.</source>
        <translation>Es gibt noch keine Stimmen.</translation>
    </message>
</context>
<context>
    <name>FixedKeys</name>
    <message>
        <source>Cancel what takes long</source>
        <translation>Abbrechen, was lange dauert</translation>
    </message>
    <message>
        <source>Next control</source>
        <translation>Nächstes Bedienelement</translation>
    </message>
    <message>
        <source>Previous control</source>
        <translation>Voriges Bedienelement</translation>
    </message>
    <message>
        <source>Press the button, tick the box</source>
        <translation>Knopf drücken, Kästchen ankreuzen</translation>
    </message>
    <message>
        <source>Title of a track: rename it</source>
        <translation>Titel einer Spur: umbenennen</translation>
    </message>
    <message>
        <source>Overview of a track: a measure back</source>
        <translation>Übersicht einer Spur: einen Takt zurück</translation>
    </message>
    <message>
        <source>Overview of a track: a measure on</source>
        <translation>Übersicht einer Spur: einen Takt weiter</translation>
    </message>
    <message>
        <source>Overview of a track: to the start</source>
        <translation>Übersicht einer Spur: zum Anfang</translation>
    </message>
    <message>
        <source>Dial, slider or list: more, the one before</source>
        <translation>Drehknopf, Regler oder Liste: mehr, das vorige</translation>
    </message>
    <message>
        <source>Dial, slider or list: less, the one behind</source>
        <translation>Drehknopf, Regler oder Liste: weniger, das nächste</translation>
    </message>
    <message>
        <source>Dial: its usual value</source>
        <translation>Drehknopf: sein üblicher Wert</translation>
    </message>
    <message>
        <source>List of instruments: open it</source>
        <translation>Instrumentenliste: öffnen</translation>
    </message>
    <message>
        <source>The menu of the track, the notes or the text</source>
        <translation>Das Menü der Spur, der Noten oder des Texts</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>Take the first completion</source>
        <translation>Die erste Ergänzung nehmen</translation>
    </message>
    <message>
        <source>Next word</source>
        <translation>Nächstes Wort</translation>
    </message>
    <message>
        <source>Previous word</source>
        <translation>Voriges Wort</translation>
    </message>
    <message>
        <source>Start of the line</source>
        <translation>Anfang der Zeile</translation>
    </message>
    <message>
        <source>End of the line</source>
        <translation>Ende der Zeile</translation>
    </message>
    <message>
        <source>Start of the text</source>
        <translation>Anfang des Texts</translation>
    </message>
    <message>
        <source>End of the text</source>
        <translation>Ende des Texts</translation>
    </message>
    <message>
        <source>A page down</source>
        <translation>Eine Seite nach unten</translation>
    </message>
    <message>
        <source>A page up</source>
        <translation>Eine Seite nach oben</translation>
    </message>
    <message>
        <source>Select on</source>
        <translation>Weiter auswählen</translation>
    </message>
    <message>
        <source>Select back</source>
        <translation>Zurück auswählen</translation>
    </message>
    <message>
        <source>Select to the next word</source>
        <translation>Bis zum nächsten Wort auswählen</translation>
    </message>
    <message>
        <source>Select to the previous word</source>
        <translation>Bis zum vorigen Wort auswählen</translation>
    </message>
    <message>
        <source>Select down</source>
        <translation>Nach unten auswählen</translation>
    </message>
    <message>
        <source>Select up</source>
        <translation>Nach oben auswählen</translation>
    </message>
    <message>
        <source>Delete to the end of the word</source>
        <translation>Bis zum Ende des Worts löschen</translation>
    </message>
    <message>
        <source>Delete to the start of the word</source>
        <translation>Bis zum Anfang des Worts löschen</translation>
    </message>
</context>
<context>
    <name>FmodLibrary</name>
    <message>
        <source>%1 is no FMOD library, or one that is not supported: it has no %2.</source>
        <translation>%1 ist keine FMOD-Bibliothek oder eine, die nicht unterstützt wird: %2 fehlt ihr.</translation>
    </message>
    <message>
        <source>%1 does not start: FMOD Error: %2</source>
        <translation>%1 startet nicht: FMOD-Fehler: %2</translation>
    </message>
    <message>
        <source>%1 is FMOD %2; 1.08 to 2.03 are supported.</source>
        <translation>%1 ist FMOD %2; unterstützt werden 1.08 bis 2.03.</translation>
    </message>
    <message>
        <source>No FMOD library was found.</source>
        <translation>Es wurde keine FMOD-Bibliothek gefunden.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>Es gibt keine Datei %1.</translation>
    </message>
</context>
<context>
    <name>ForeignNotation</name>
    <message>
        <source>repeats</source>
        <translation>Wiederholungen</translation>
    </message>
    <message>
        <source>voices</source>
        <translation>Stimmen</translation>
    </message>
    <message>
        <source>tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>bar lines</source>
        <translation>Taktstriche</translation>
    </message>
    <message>
        <source>ties</source>
        <translation>Haltebögen</translation>
    </message>
    <message>
        <source>signs that it cannot read</source>
        <translation>Zeichen, die es nicht lesen kann</translation>
    </message>
    <message>
        <source>accidentals or note lengths</source>
        <translation>Vorzeichen oder Notenlängen</translation>
    </message>
</context>
<context>
    <name>GameLocation</name>
    <message>
        <source>Kelvarion Composer requires Kelvarion to be installed in order to work.
Please specify where Kelvarion is installed.</source>
        <translation>Kelvarion Composer braucht ein installiertes Kelvarion.
Bitte geben Sie an, wo Kelvarion installiert ist.</translation>
    </message>
    <message>
        <source>Please locate the Kelvarion directory.</source>
        <translation>Bitte wählen Sie den Ordner von Kelvarion.</translation>
    </message>
    <message>
        <source>No Kelvarion installation was found at the specified directory.</source>
        <translation>Im angegebenen Ordner wurde kein installiertes Kelvarion gefunden.</translation>
    </message>
</context>
<context>
    <name>GhostParts</name>
    <message>
        <source>&amp;All Parts</source>
        <translation>&amp;Alle Stimmen</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
</context>
<context>
    <name>ImportAgainDialog</name>
    <message>
        <source>Import Again</source>
        <translation>Erneut importieren</translation>
    </message>
    <message>
        <source>What is read again; its parts are replaced</source>
        <translation>Was erneut gelesen wird; seine Stimmen werden ersetzt</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>Datei:</translation>
    </message>
    <message>
        <source>The parts of this import are replaced, in one step that can be undone. Parts of the same name keep their instrument, volume and pan.</source>
        <translation>Die Stimmen dieses Imports werden ersetzt, in einem Schritt, der sich rückgängig machen lässt. Gleichnamige Stimmen behalten Instrument, Lautstärke und Panorama.</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
</context>
<context>
    <name>ImportCommands</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weitere</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>;;Songs (*.kvsong)</source>
        <translation>;;Songs (*.kvsong)</translation>
    </message>
    <message>
        <source>;;All music (*.abc *.kvsong *.mid *.midi *.kar *.mml)</source>
        <translation>;;Alle Musik (*.abc *.kvsong *.mid *.midi *.kar *.mml)</translation>
    </message>
    <message>
        <source>Open Tracks</source>
        <translation>Spuren öffnen</translation>
    </message>
    <message>
        <source>Loading ABC files...</source>
        <translation>ABC-Dateien werden geladen...</translation>
    </message>
    <message>
        <source>;;Other endings of MIDI files (*.midi *.kar)</source>
        <translation>;;Andere Endungen von MIDI-Dateien (*.midi *.kar)</translation>
    </message>
    <message>
        <source>Import MIDI</source>
        <translation>MIDI importieren</translation>
    </message>
    <message>
        <source>Paste Tracks</source>
        <translation>Spuren einfügen</translation>
    </message>
    <message>
        <source>Reading the clipboard...</source>
        <translation>Die Zwischenablage wird gelesen...</translation>
    </message>
    <message>
        <source>Loading files...</source>
        <translation>Dateien werden geladen...</translation>
    </message>
    <message>
        <source>Import Again</source>
        <translation>Erneut importieren</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Dateien öffnen</translation>
    </message>
    <message>
        <source>These are no ABC or MIDI files, and no songs.</source>
        <translation>Das sind keine ABC- oder MIDI-Dateien und keine Songs.</translation>
    </message>
    <message>
        <source>Drop Files</source>
        <translation>Dateien ablegen</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) were changed by another program:
%1
Would you like to read them again?</source>
        <translation>
            <numerusform>%n Datei wurde von einem anderen Programm geändert:
%1
Möchten Sie sie erneut lesen?</numerusform>
            <numerusform>%n Dateien wurden von einem anderen Programm geändert:
%1
Möchten Sie sie erneut lesen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Changed Files</source>
        <translation>Geänderte Dateien</translation>
    </message>
    <message>
        <source>Read Again</source>
        <translation>Erneut lesen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Open ABC files or a song</source>
        <translation>ABC-Dateien oder einen Song öffnen</translation>
    </message>
    <message>
        <source>Import MIDI file into the editor</source>
        <translation>Eine MIDI-Datei importieren</translation>
    </message>
    <message>
        <source>Import from Clipboard</source>
        <translation>Aus der Zwischenablage importieren</translation>
    </message>
    <message>
        <source>Import an ABC track from the clipboard</source>
        <translation>Eine ABC-Spur aus der Zwischenablage importieren</translation>
    </message>
    <message>
        <source>Import Again...</source>
        <translation>Erneut importieren...</translation>
    </message>
    <message>
        <source>Read a file that parts came from again, with other settings</source>
        <translation>Eine Datei, aus der Stimmen kamen, erneut lesen, mit anderen Einstellungen</translation>
    </message>
    <message>
        <source>Choose ABC file(s) to open</source>
        <translation>Wählen Sie ABC-Dateien zum Öffnen</translation>
    </message>
    <message>
        <source>ABC files (*.abc)</source>
        <translation>ABC-Dateien (*.abc)</translation>
    </message>
    <message>
        <source>Choose MIDI file to import...</source>
        <translation>MIDI-Datei zum Importieren wählen...</translation>
    </message>
    <message>
        <source>MIDI files (*.mid)</source>
        <translation>MIDI-Dateien (*.mid)</translation>
    </message>
    <message>
        <source>Loading MIDI file...</source>
        <translation>MIDI-Datei wird geladen...</translation>
    </message>
    <message>
        <source>Import from clipboard</source>
        <translation>Aus der Zwischenablage importieren</translation>
    </message>
    <message>
        <source>The clipboard does not contain anything to import.</source>
        <translation>Die Zwischenablage enthält nichts, was sich importieren ließe.</translation>
    </message>
    <message>
        <source>Import Files</source>
        <translation>Dateien importieren</translation>
    </message>
</context>
<context>
    <name>ImportLimits</name>
    <message>
        <source>Too many tracks.</source>
        <translation>Zu viele Spuren.</translation>
    </message>
    <message>
        <source>Too many tempo, metre and key changes.</source>
        <translation>Zu viele Tempo-, Taktart- und Tonartwechsel.</translation>
    </message>
    <message>
        <source>Too many pitch bends.</source>
        <translation>Zu viele Tonhöhenbeugungen.</translation>
    </message>
</context>
<context>
    <name>ImportPreviewDialog</name>
    <message>
        <source>Choose Parts</source>
        <translation>Stimmen wählen</translation>
    </message>
    <message>
        <source>Choose Parts - %1</source>
        <translation>Stimmen wählen - %1</translation>
    </message>
    <message>
        <source>What becomes parts of the song</source>
        <translation>Was zu Stimmen des Songs wird</translation>
    </message>
    <message>
        <source>Listen to &amp;Part</source>
        <translation>&amp;Stimme anhören</translation>
    </message>
    <message>
        <source>Play the chosen part, or stop</source>
        <translation>Die gewählte Stimme abspielen oder anhalten</translation>
    </message>
    <message>
        <source>&amp;Listen to All</source>
        <translation>Alle an&amp;hören</translation>
    </message>
    <message>
        <source>Play all parts that are ticked, or stop</source>
        <translation>Alle angekreuzten Stimmen abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Tick &amp;All</source>
        <translation>&amp;Alle ankreuzen</translation>
    </message>
    <message>
        <source>Every part is imported</source>
        <translation>Jede Stimme wird importiert</translation>
    </message>
    <message>
        <source>Tick &amp;None</source>
        <translation>&amp;Keine ankreuzen</translation>
    </message>
    <message>
        <source>No part is imported</source>
        <translation>Keine Stimme wird importiert</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen…</translation>
    </message>
    <message>
        <source>%1 of %2 parts, %3 notes, %4 characters</source>
        <translation>%1 von %2 Stimmen, %3 Noten, %4 Zeichen</translation>
    </message>
    <message>
        <source>; %1 notes would be lost or silent</source>
        <translation>; %1 Noten gingen verloren oder blieben still</translation>
    </message>
</context>
<context>
    <name>ImportQueue</name>
    <message numerus="yes">
        <source>%n more could not be read.</source>
        <translation>
            <numerusform>%n weitere ließ sich nicht lesen.</numerusform>
            <numerusform>%n weitere ließen sich nicht lesen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Error while reading files</source>
        <translation>Fehler beim Lesen von Dateien</translation>
    </message>
    <message>
        <source>The text</source>
        <translation>Der Text</translation>
    </message>
    <message>
        <source>%1 uses notation that the game reads otherwise: %2.</source>
        <translation>%1 verwendet Notation, die das Spiel anders liest: %2.</translation>
    </message>
    <message>
        <source>So do %1 more.</source>
        <translation>Ebenso %1 weitere.</translation>
    </message>
    <message>
        <source>Converted for the game, it sounds as it is written. Opened as it is, it stays the same text and file.</source>
        <translation>Für das Spiel umgewandelt klingt es, wie es geschrieben ist. Unverändert geöffnet bleibt es derselbe Text und dieselbe Datei.</translation>
    </message>
    <message>
        <source>Would you like to remove the existing tracks first?</source>
        <translation>Möchten Sie die vorhandenen Spuren zuerst entfernen?</translation>
    </message>
</context>
<context>
    <name>ImportReportModel</name>
    <message>
        <source>measure %1</source>
        <translation>Takt %1</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1 (%2 von %3)</translation>
    </message>
    <message>
        <source>Notes moved by up to %1 ms, %2 ms on average</source>
        <translation>Noten um bis zu %1 ms verschoben, im Mittel %2 ms</translation>
    </message>
    <message>
        <source>In no part</source>
        <translation>In keiner Stimme</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
</context>
<context>
    <name>ImportReportPanel</name>
    <message>
        <source>Import report</source>
        <translation>Importbericht</translation>
    </message>
    <message>
        <source>A click shows the place, the next click the next one; a double click opens it in the editor</source>
        <translation>Ein Klick zeigt die Stelle, der nächste die nächste; ein Doppelklick öffnet sie im Editor</translation>
    </message>
    <message>
        <source>Of the last import there is nothing to report.</source>
        <translation>Zum letzten Import gibt es nichts zu berichten.</translation>
    </message>
</context>
<context>
    <name>ImportReports</name>
    <message>
        <source>Import Report</source>
        <translation>Importbericht</translation>
    </message>
    <message>
        <source>Show what the last import lost and changed</source>
        <translation>Zeigen, was der letzte Import verloren und geändert hat</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
</context>
<context>
    <name>ImportSettingsBox</name>
    <message>
        <source>End notes that are struck again</source>
        <translation>Erneut angeschlagene Noten beenden</translation>
    </message>
    <message>
        <source>A note that is struck again while it sounds ends there, instead of being lost</source>
        <translation>Eine Note, die erneut angeschlagen wird, während sie klingt, endet dort, statt verloren zu gehen</translation>
    </message>
    <message>
        <source>Use the sustain pedal</source>
        <translation>Haltepedal beachten</translation>
    </message>
    <message>
        <source>Notes sound on while the pedal is down</source>
        <translation>Töne klingen weiter, solange das Pedal unten ist</translation>
    </message>
    <message>
        <source>One part for each program of a channel</source>
        <translation>Eine Stimme je Programm eines Kanals</translation>
    </message>
    <message>
        <source>A channel that changes its instrument becomes several parts</source>
        <translation>Ein Kanal, der das Instrument wechselt, wird zu mehreren Stimmen</translation>
    </message>
    <message>
        <source>Use the names of MIDI tracks</source>
        <translation>Namen der MIDI-Spuren verwenden</translation>
    </message>
    <message>
        <source>Parts are named after the tracks that they are from</source>
        <translation>Stimmen heißen nach den Spuren, aus denen sie kommen</translation>
    </message>
    <message>
        <source>Move notes out of range by octaves</source>
        <translation>Noten außerhalb des Umfangs um Oktaven versetzen</translation>
    </message>
    <message>
        <source>Notes that are too low or too high to be written are moved, instead of being left out</source>
        <translation>Noten, die zum Schreiben zu tief oder zu hoch sind, werden versetzt statt weggelassen</translation>
    </message>
    <message>
        <source>Keep the tempo exactly</source>
        <translation>Das Tempo genau beibehalten</translation>
    </message>
    <message>
        <source>The tempo is not rounded to whole beats a minute</source>
        <translation>Das Tempo wird nicht auf ganze Schläge in der Minute gerundet</translation>
    </message>
    <message>
        <source>Read tracks that the file does not count</source>
        <translation>Spuren lesen, die die Datei nicht zählt</translation>
    </message>
    <message>
        <source>All tracks are read, however many the beginning of the file speaks of</source>
        <translation>Alle Spuren werden gelesen, gleich von wie vielen der Dateianfang spricht</translation>
    </message>
    <message>
        <source>Auto-detect the note length of channels, too</source>
        <translation>Notenlänge auch bei Kanälen automatisch bestimmen</translation>
    </message>
    <message>
        <source>The note length is also detected where there is one track per channel</source>
        <translation>Die Notenlänge wird auch bestimmt, wo es eine Spur je Kanal gibt</translation>
    </message>
    <message>
        <source>Quantise cleanly instead of re-aligning</source>
        <translation>Sauber quantisieren statt ausrichten</translation>
    </message>
    <message>
        <source>Notes move to the grid that the music is on, measure by measure, and get lengths that are simple to write</source>
        <translation>Noten rücken Takt für Takt auf das Raster, auf dem die Musik liegt, und bekommen Längen, die einfach zu schreiben sind</translation>
    </message>
    <message>
        <source>Leave out notes softer than</source>
        <translation>Noten weglassen, die leiser sind als</translation>
    </message>
    <message>
        <source>How hard a note must be struck to be meant: 0 to 127</source>
        <translation>Wie stark eine Note angeschlagen sein muss, um gemeint zu sein: 0 bis 127</translation>
    </message>
    <message>
        <source>Play grace notes</source>
        <translation>Vorschlagsnoten spielen</translation>
    </message>
    <message>
        <source>They sound in time taken from the note behind them, instead of being left out</source>
        <translation>Sie klingen in Zeit, die der Note dahinter genommen wird, statt wegzufallen</translation>
    </message>
    <message>
        <source>Play chord names as an accompaniment</source>
        <translation>Akkordnamen als Begleitung spielen</translation>
    </message>
    <message>
        <source>Chord names over the music become a part of their own, instead of a remark in its header</source>
        <translation>Akkordnamen über der Musik werden zu einer eigenen Stimme statt zu einer Bemerkung im Kopf</translation>
    </message>
    <message>
        <source>A tempo without a beat counts quarter notes</source>
        <translation>Ein Tempo ohne Zählzeit zählt Viertel</translation>
    </message>
    <message>
        <source>&quot;Q:120&quot; is 120 quarter notes a minute, instead of 120 of the unit length of the tune</source>
        <translation>„Q:120“ bedeutet 120 Viertel in der Minute statt 120 Grundnotenlängen des Stücks</translation>
    </message>
    <message>
        <source>By Choice</source>
        <translation>Nach Wahl</translation>
    </message>
    <message>
        <source>Converted ABC</source>
        <translation>Umgewandeltes ABC</translation>
    </message>
    <message>
        <source>Create one track per MIDI channel</source>
        <translation>Eine Spur je MIDI-Kanal anlegen</translation>
    </message>
    <message>
        <source>If checked, all notes playing on the same channel will be merged into a single track, even if they are in separate tracks in the MIDI.</source>
        <translation>Angekreuzt kommen alle Noten desselben Kanals in eine einzige Spur, auch wenn sie im MIDI auf verschiedenen Spuren stehen.</translation>
    </message>
    <message>
        <source>Automatically re-align notes after importing</source>
        <translation>Noten nach dem Import automatisch ausrichten</translation>
    </message>
    <message>
        <source>If checked, all notes will automatically be re-aligned after importing a MIDI.</source>
        <translation>Angekreuzt werden alle Noten nach dem Import einer MIDI-Datei automatisch ausgerichtet.</translation>
    </message>
    <message>
        <source>Process pitch bending</source>
        <translation>Tonhöhenbeugung verarbeiten</translation>
    </message>
    <message>
        <source>If checked, pitch bending in MIDIs will be approximated with additional notes</source>
        <translation>Angekreuzt wird Tonhöhenbeugung in MIDI-Dateien durch zusätzliche Noten angenähert</translation>
    </message>
    <message>
        <source>Auto-detect default note length to minimize ABC size</source>
        <translation>Grundnotenlänge automatisch bestimmen, damit das ABC kurz wird</translation>
    </message>
    <message>
        <source>If checked, the unit length (L: header) of imported tracks will be optimized to produce the smallest ABC size. Otherwise the default of 1/4 will be used.</source>
        <translation>Angekreuzt wird die Grundnotenlänge (L: im Kopf) importierter Spuren so gewählt, dass das ABC am kürzesten wird. Sonst gilt der Standard 1/4.</translation>
    </message>
    <message>
        <source>Process note volume (Will not work in Kelvarion!)</source>
        <translation>Notenlautstärke verarbeiten (wirkt nicht in Kelvarion!)</translation>
    </message>
    <message>
        <source>If checked, the volume of notes will be imported as well. Do note that this will only affect the preview, the generated ABC is not affected as Kelvarin does not support volume changes.</source>
        <translation>Angekreuzt wird auch die Lautstärke der Noten importiert. Das betrifft nur die Vorschau; das erzeugte ABC bleibt gleich, da Kelvarion keine Lautstärkewechsel kennt.</translation>
    </message>
    <message>
        <source>Import Settings</source>
        <translation>Importeinstellungen</translation>
    </message>
</context>
<context>
    <name>ImportWords</name>
    <message>
        <source>struck again and lost</source>
        <translation>erneut angeschlagen und verloren</translation>
    </message>
    <message>
        <source>Notes struck again and lost</source>
        <translation>Noten erneut angeschlagen und verloren</translation>
    </message>
    <message>
        <source>too soft</source>
        <translation>zu leise</translation>
    </message>
    <message>
        <source>Notes too soft</source>
        <translation>Noten zu leise</translation>
    </message>
    <message>
        <source>out of range</source>
        <translation>außerhalb des Umfangs</translation>
    </message>
    <message>
        <source>Notes out of range</source>
        <translation>Noten außerhalb des Umfangs</translation>
    </message>
    <message>
        <source>moved by octaves</source>
        <translation>um Oktaven versetzt</translation>
    </message>
    <message>
        <source>Notes moved by octaves</source>
        <translation>Noten um Oktaven versetzt</translation>
    </message>
    <message>
        <source>never released</source>
        <translation>nie losgelassen</translation>
    </message>
    <message>
        <source>Notes never released</source>
        <translation>Noten nie losgelassen</translation>
    </message>
    <message>
        <source>silences by bar lines</source>
        <translation>Stille an Taktstrichen</translation>
    </message>
    <message>
        <source>Silences by bar lines</source>
        <translation>Stille an Taktstrichen</translation>
    </message>
    <message>
        <source>measures longer than the metre</source>
        <translation>Takte länger als die Taktart</translation>
    </message>
    <message>
        <source>Measures longer than the metre</source>
        <translation>Takte länger als die Taktart</translation>
    </message>
    <message>
        <source>repeats not played</source>
        <translation>nicht gespielte Wiederholungen</translation>
    </message>
    <message>
        <source>Repeats not played</source>
        <translation>Nicht gespielte Wiederholungen</translation>
    </message>
    <message>
        <source>ties lost</source>
        <translation>verlorene Haltebögen</translation>
    </message>
    <message>
        <source>Ties lost</source>
        <translation>Verlorene Haltebögen</translation>
    </message>
    <message>
        <source>tunes without a tempo</source>
        <translation>Stücke ohne Tempo</translation>
    </message>
    <message>
        <source>No tempo is written</source>
        <translation>Kein Tempo ist angegeben</translation>
    </message>
    <message>
        <source>signs and fields without a meaning</source>
        <translation>Zeichen und Felder ohne Bedeutung</translation>
    </message>
    <message>
        <source>Signs and fields without a meaning</source>
        <translation>Zeichen und Felder ohne Bedeutung</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 of %2 notes were %3</source>
        <translation>%1 von %2 Noten: %3</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>worst shift %1 ms</source>
        <translation>größte Verschiebung %1 ms</translation>
    </message>
</context>
<context>
    <name>InstrumentCommands</name>
    <message>
        <source>Load Instruments</source>
        <translation>Instrumente laden</translation>
    </message>
    <message>
        <source>Apply Instrument</source>
        <translation>Instrument zuweisen</translation>
    </message>
    <message>
        <source>Apply this instrument to selected tracks or all if none are selected.</source>
        <translation>Dieses Instrument den ausgewählten Spuren zuweisen, oder allen, wenn keine ausgewählt ist.</translation>
    </message>
</context>
<context>
    <name>KeyDialog</name>
    <message>
        <source>0 sharps / flats</source>
        <translation>0 Kreuze / Be</translation>
    </message>
    <message>
        <source>1 sharp</source>
        <translation>1 Kreuz</translation>
    </message>
    <message>
        <source>%1 sharps</source>
        <translation>%1 Kreuze</translation>
    </message>
    <message>
        <source>1 flat</source>
        <translation>1 Be</translation>
    </message>
    <message>
        <source>%1 flats</source>
        <translation>%1 Be</translation>
    </message>
    <message>
        <source>Include Major qualifier</source>
        <translation>Dur ausdrücklich angeben</translation>
    </message>
    <message>
        <source>Major / Ionian</source>
        <translation>Dur / Ionisch</translation>
    </message>
    <message>
        <source>Minor / Aeolian</source>
        <translation>Moll / Äolisch</translation>
    </message>
    <message>
        <source>Mixolydian</source>
        <translation>Mixolydisch</translation>
    </message>
    <message>
        <source>Dorian</source>
        <translation>Dorisch</translation>
    </message>
    <message>
        <source>Phrygian</source>
        <translation>Phrygisch</translation>
    </message>
    <message>
        <source>Lydian</source>
        <translation>Lydisch</translation>
    </message>
    <message>
        <source>Locrian</source>
        <translation>Lokrisch</translation>
    </message>
    <message>
        <source>As Major is the default mode, it does not have to be included explicitly. If this option is checked, it will be added regardless.</source>
        <translation>Dur ist der Standard und muss nicht ausdrücklich angegeben werden. Angekreuzt wird es trotzdem hinzugefügt.</translation>
    </message>
    <message>
        <source>New Key</source>
        <translation>Neue Tonart</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modus:</translation>
    </message>
    <message>
        <source>Sharps / flats:</source>
        <translation>Kreuze / Be:</translation>
    </message>
    <message>
        <source>New key:</source>
        <translation>Neue Tonart:</translation>
    </message>
    <message>
        <source>Change Key</source>
        <translation>Tonart ändern</translation>
    </message>
    <message>
        <source>You&apos;ve chosen a key that is not supported by Kelvarion.
Are you sure you want to continue?</source>
        <translation>Sie haben eine Tonart gewählt, die Kelvarion nicht kennt.
Möchten Sie wirklich fortfahren?</translation>
    </message>
</context>
<context>
    <name>KeyRecorder</name>
    <message>
        <source>Record Notes</source>
        <translation>Noten aufnehmen</translation>
    </message>
    <message>
        <source>Otherwise what was played becomes a part of its own.</source>
        <translation>Sonst wird das Gespielte eine eigene Stimme.</translation>
    </message>
</context>
<context>
    <name>KeyboardGroup</name>
    <message>
        <source>MIDI Keyboard</source>
        <translation>MIDI-Keyboard</translation>
    </message>
    <message>
        <source>What is played on it sounds as the selected part</source>
        <translation>Was darauf gespielt wird, klingt wie die ausgewählte Stimme</translation>
    </message>
    <message>
        <source>Keyboard:</source>
        <translation>Keyboard:</translation>
    </message>
    <message>
        <source>Connected:</source>
        <translation>Verbunden:</translation>
    </message>
    <message>
        <source>Recorded notes on:</source>
        <translation>Aufnahme auf:</translation>
    </message>
    <message>
        <source>The first that is found</source>
        <translation>Das erste, das gefunden wird</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>%1 (not found)</source>
        <translation>%1 (nicht gefunden)</translation>
    </message>
    <message>
        <source>Where notes begin and end that Record writes down</source>
        <translation>Wo Noten beginnen und enden, die Aufnehmen notiert</translation>
    </message>
    <message>
        <source>Eighths</source>
        <translation>Achtel</translation>
    </message>
    <message>
        <source>Eighth triplets</source>
        <translation>Achteltriolen</translation>
    </message>
    <message>
        <source>Sixteenths</source>
        <translation>Sechzehntel</translation>
    </message>
    <message>
        <source>Sixteenth triplets</source>
        <translation>Sechzehnteltriolen</translation>
    </message>
    <message>
        <source>Thirty-seconds</source>
        <translation>Zweiunddreißigstel</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
</context>
<context>
    <name>LineNumbers</name>
    <message>
        <source>Line numbers</source>
        <translation>Zeilennummern</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Edit Track</source>
        <translation>Spur bearbeiten</translation>
    </message>
    <message>
        <source>Remove Track</source>
        <translation>Spur entfernen</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>No MIDI keyboard is connected.
Please plug one in, and see Tools, Preferences, Sound.</source>
        <translation>Kein MIDI-Keyboard ist verbunden.
Bitte schließen Sie eines an, siehe Extras, Einstellungen, Klang.</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Track</source>
        <translation>&amp;Spur</translation>
    </message>
    <message>
        <source>&amp;Song</source>
        <translation>S&amp;ong</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>Count-In and Clicks</source>
        <translation>Einzählen und Klicks</translation>
    </message>
    <message>
        <source>T&amp;ools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Every change; click on one to go back to it</source>
        <translation>Jede Änderung; klicken Sie auf eine, um zu ihr zurückzukehren</translation>
    </message>
    <message>
        <source>Show the list of changes</source>
        <translation>Die Liste der Änderungen zeigen</translation>
    </message>
    <message>
        <source>Default instrument</source>
        <translation>Standardinstrument</translation>
    </message>
    <message>
        <source>This is the default instrument that will be assigned to new tracks</source>
        <translation>Das Standardinstrument, das neue Spuren bekommen</translation>
    </message>
    <message>
        <source>Default instrument for new tracks</source>
        <translation>Standardinstrument für neue Spuren</translation>
    </message>
    <message>
        <source>Master level</source>
        <translation>Gesamtpegel</translation>
    </message>
    <message>
        <source>The level of all tracks together; red at its end: it was too loud (click to put it out)</source>
        <translation>Der Pegel aller Spuren zusammen; rot am Ende: Es war zu laut (Klick löscht es)</translation>
    </message>
    <message>
        <source>Master volume</source>
        <translation>Gesamtlautstärke</translation>
    </message>
    <message>
        <source>The playback volume of all tracks</source>
        <translation>Die Wiedergabelautstärke aller Spuren</translation>
    </message>
    <message>
        <source>Track Toolbar</source>
        <translation>Spurleiste</translation>
    </message>
    <message>
        <source>Playback Controls</source>
        <translation>Wiedergabeleiste</translation>
    </message>
    <message>
        <source>Instrument Toolbar</source>
        <translation>Instrumentenleiste</translation>
    </message>
    <message>
        <source>Meters Toolbar</source>
        <translation>Pegelleiste</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n part(s) as ABC files</source>
        <translation>
            <numerusform>%n Stimme als ABC-Datei kopiert</numerusform>
            <numerusform>%n Stimmen als ABC-Dateien kopiert</numerusform>
        </translation>
    </message>
    <message>
        <source>Kelvarion Composer has done its work</source>
        <translation>Kelvarion Composer ist fertig</translation>
    </message>
</context>
<context>
    <name>ManualWindow</name>
    <message>
        <source>Manual - Kelvarion Composer</source>
        <translation>Handbuch - Kelvarion Composer</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Find in this page</source>
        <translation>Auf dieser Seite suchen</translation>
    </message>
</context>
<context>
    <name>MarkTexts</name>
    <message>
        <source>free</source>
        <translation>frei</translation>
    </message>
</context>
<context>
    <name>MergeTracks</name>
    <message>
        <source>Cannot merge tracks with different tempos</source>
        <translation>Spuren mit verschiedenen Tempi lassen sich nicht zusammenführen</translation>
    </message>
</context>
<context>
    <name>MidiExport</name>
    <message>
        <source>The song is too long for a MIDI file.</source>
        <translation>Der Song ist zu lang für eine MIDI-Datei.</translation>
    </message>
    <message>
        <source>A MIDI file has at most %1 parts.</source>
        <translation>Eine MIDI-Datei hat höchstens %1 Stimmen.</translation>
    </message>
</context>
<context>
    <name>MidiImport</name>
    <message>
        <source>Invalid MIDI file.</source>
        <translation>Ungültige MIDI-Datei.</translation>
    </message>
    <message>
        <source>Unsupported MIDI type %1.</source>
        <translation>MIDI-Typ %1 wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>SMPTE time divisions are currently unsupported.</source>
        <translation>SMPTE-Zeiteinteilungen werden zurzeit nicht unterstützt.</translation>
    </message>
    <message>
        <source>Unknown MIDI channel event 0x%1.</source>
        <translation>Unbekanntes MIDI-Kanalereignis 0x%1.</translation>
    </message>
    <message>
        <source>Unknown MIDI system event 0x%1.</source>
        <translation>Unbekanntes MIDI-Systemereignis 0x%1.</translation>
    </message>
</context>
<context>
    <name>NotationExport</name>
    <message numerus="yes">
        <source>%n note(s) end where their pitch begins again</source>
        <translation>
            <numerusform>%n Note endet, wo ihre Tonhöhe wieder beginnt</numerusform>
            <numerusform>%n Noten enden, wo ihre Tonhöhe wieder beginnt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n note(s) are too high for MIDI</source>
        <translation>
            <numerusform>%n Note ist zu hoch für MIDI</numerusform>
            <numerusform>%n Noten sind zu hoch für MIDI</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n part(s) are written in the tempo of the longest</source>
        <translation>
            <numerusform>%n Stimme steht im Tempo der längsten</numerusform>
            <numerusform>%n Stimmen stehen im Tempo der längsten</numerusform>
        </translation>
    </message>
    <message>
        <source>Export MIDI</source>
        <translation>MIDI exportieren</translation>
    </message>
    <message>
        <source>MIDI file (*.mid)</source>
        <translation>MIDI-Datei (*.mid)</translation>
    </message>
    <message>
        <source>Export Tunebook</source>
        <translation>Notenheft exportieren</translation>
    </message>
    <message>
        <source>ABC Files (*.abc)</source>
        <translation>ABC-Dateien (*.abc)</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Export MIDI...</source>
        <translation>MIDI exportieren...</translation>
    </message>
    <message>
        <source>Write all parts into one MIDI file</source>
        <translation>Alle Stimmen in eine MIDI-Datei schreiben</translation>
    </message>
    <message>
        <source>Export Tunebook...</source>
        <translation>Notenheft exportieren...</translation>
    </message>
    <message>
        <source>Write all parts into one ABC file, as tunes</source>
        <translation>Alle Stimmen als Stücke in eine ABC-Datei schreiben</translation>
    </message>
</context>
<context>
    <name>NoteScheduler</name>
    <message>
        <source>Notes are silent: samples of the game cannot be read.</source>
        <translation>Töne sind stumm: Samples des Spiels lassen sich nicht lesen.</translation>
    </message>
    <message>
        <source>Notes are missing: the samples that sound at once need too much memory.</source>
        <translation>Es fehlen Töne: Die Samples, die zugleich klingen, brauchen zu viel Arbeitsspeicher.</translation>
    </message>
    <message>
        <source>Notes are missing: samples could not be loaded in time.</source>
        <translation>Es fehlen Töne: Samples ließen sich nicht rechtzeitig laden.</translation>
    </message>
</context>
<context>
    <name>NoteText</name>
    <message>
        <source>Measure %1, beat %2</source>
        <translation>Takt %1, Schlag %2</translation>
    </message>
</context>
<context>
    <name>OneTempoDialog</name>
    <message>
        <source>Every note &amp;sounds when it did</source>
        <translation>Jeder Ton er&amp;klingt, wann er es tat</translation>
    </message>
    <message>
        <source>Every note keeps its &amp;written length</source>
        <translation>Jede Note behält ihre ge&amp;schriebene Länge</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Notes are written anew in the other tempo, as nearly as can be</source>
        <translation>Die Noten werden im anderen Tempo neu geschrieben, so genau es geht</translation>
    </message>
    <message>
        <source>Only the tempos change, for parts whose tempo was wrong</source>
        <translation>Nur die Tempi ändern sich, für Stimmen, deren Tempo falsch war</translation>
    </message>
    <message>
        <source>All parts get the &amp;tempo of</source>
        <translation>Alle Stimmen bekommen das &amp;Tempo von</translation>
    </message>
    <message>
        <source>One Tempo for All</source>
        <translation>Ein Tempo für alle</translation>
    </message>
</context>
<context>
    <name>PartFiles</name>
    <message>
        <source>Copy as File</source>
        <translation>Als Datei kopieren</translation>
    </message>
    <message>
        <source>Copy the track that has the keys, or all that are selected with it, as ABC files</source>
        <translation>Die Spur, die den Fokus hat, oder alle, die mit ihr ausgewählt sind, als ABC-Dateien kopieren</translation>
    </message>
</context>
<context>
    <name>PartsFolder</name>
    <message>
        <source>Save Parts to Folder</source>
        <translation>Stimmen in Ordner speichern</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) are there already:
%1
Would you like to overwrite them?</source>
        <translation>
            <numerusform>%n Datei gibt es schon:
%1
Möchten Sie sie überschreiben?</numerusform>
            <numerusform>%n Dateien gibt es schon:
%1
Möchten Sie sie überschreiben?</numerusform>
        </translation>
    </message>
    <message>
        <source>Could not open the file for saving.</source>
        <translation>Die Datei ließ sich nicht zum Speichern öffnen.</translation>
    </message>
</context>
<context>
    <name>PartsTable</name>
    <message>
        <source>Part</source>
        <translation>Stimme</translation>
    </message>
    <message>
        <source>Whether it becomes a part of the song</source>
        <translation>Ob es eine Stimme des Songs wird</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>The instrument that the part gets; a choice is remembered for its program</source>
        <translation>Das Instrument, das die Stimme bekommt; eine Wahl wird für ihr Programm gemerkt</translation>
    </message>
    <message>
        <source>Octaves</source>
        <translation>Oktaven</translation>
    </message>
    <message>
        <source>By how many octaves the notes are moved</source>
        <translation>Um wie viele Oktaven die Noten versetzt werden</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>The MIDI channel that it is from, and what it is played on there</source>
        <translation>Der MIDI-Kanal, aus dem sie kommt, und worauf sie dort gespielt wird</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Noten</translation>
    </message>
    <message>
        <source>How many notes it has</source>
        <translation>Wie viele Noten sie hat</translation>
    </message>
    <message>
        <source>Lost</source>
        <translation>Verloren</translation>
    </message>
    <message>
        <source>How many notes nobody would hear</source>
        <translation>Wie viele Töne niemand hören würde</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Umfang</translation>
    </message>
    <message>
        <source>Its lowest and its highest note</source>
        <translation>Ihr tiefster und ihr höchster Ton</translation>
    </message>
    <message>
        <source>At once</source>
        <translation>Zugleich</translation>
    </message>
    <message>
        <source>The most notes that sound at the same time</source>
        <translation>Wie viele Töne höchstens zugleich klingen</translation>
    </message>
    <message>
        <source>Characters</source>
        <translation>Zeichen</translation>
    </message>
    <message>
        <source>The length of its ABC text</source>
        <translation>Die Länge ihres ABC-Texts</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 notes are not on the instrument</source>
        <translation>%1 Noten hat das Instrument nicht</translation>
    </message>
    <message>
        <source>%1 notes are moved out of range</source>
        <translation>%1 Noten werden aus dem Umfang versetzt</translation>
    </message>
</context>
<context>
    <name>PianoRoll</name>
    <message>
        <source>Piano roll</source>
        <translation>Pianorolle</translation>
    </message>
    <message numerus="yes">
        <source>%n note(s) selected</source>
        <translation>
            <numerusform>%n Note ausgewählt</numerusform>
            <numerusform>%n Noten ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>tick %1</source>
        <translation>Tick %1</translation>
    </message>
    <message>
        <source>length %1</source>
        <translation>Länge %1</translation>
    </message>
</context>
<context>
    <name>PositionDisplay</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>The position: minutes, seconds and thousandths; measure and beat</source>
        <translation>Die Position: Minuten, Sekunden und Tausendstel; Takt und Schlag</translation>
    </message>
</context>
<context>
    <name>PracticeCommands</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>1 Measure</source>
        <translation>1 Takt</translation>
    </message>
    <message>
        <source>%1 Measures</source>
        <translation>%1 Takte</translation>
    </message>
    <message>
        <source>Count-In</source>
        <translation>Einzählen</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Volume of the Clicks</source>
        <translation>Lautstärke der Klicks</translation>
    </message>
    <message>
        <source>Band Rehearsal</source>
        <translation>Bandprobe</translation>
    </message>
    <message>
        <source>Let the parts come in a little sooner or later, as players do who start by hand; the song stays as it is</source>
        <translation>Die Stimmen etwas früher oder später einsetzen lassen, wie Spieler, die von Hand starten; der Song bleibt, wie er ist</translation>
    </message>
    <message>
        <source>Rehearsal Offsets...</source>
        <translation>Versatz der Bandprobe...</translation>
    </message>
    <message>
        <source>Choose by how much the parts come in sooner or later</source>
        <translation>Wählen, um wie viel die Stimmen früher oder später einsetzen</translation>
    </message>
    <message>
        <source>Metronome</source>
        <translation>Metronom</translation>
    </message>
    <message>
        <source>Click on every beat while the song is played; no export has the clicks</source>
        <translation>Bei der Wiedergabe auf jedem Schlag klicken; kein Export enthält die Klicks</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>What the preferences are about</source>
        <translation>Wovon die Einstellungen handeln</translation>
    </message>
    <message>
        <source>ABC Import</source>
        <translation>ABC-Import</translation>
    </message>
    <message>
        <source>Programs</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Klang</translation>
    </message>
    <message>
        <source>Checks</source>
        <translation>Prüfungen</translation>
    </message>
    <message>
        <source>The folder that Kelvarion is installed in</source>
        <translation>Der Ordner, in dem Kelvarion installiert ist</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Choose the folder that Kelvarion is installed in</source>
        <translation>Den Ordner wählen, in dem Kelvarion installiert ist</translation>
    </message>
    <message>
        <source>Also offer the instruments of mods</source>
        <translation>Auch die Instrumente von Mods anbieten</translation>
    </message>
    <message>
        <source>Show a line below every C</source>
        <translation>Unter jedem C eine Linie zeigen</translation>
    </message>
    <message>
        <source>Show where each measure begins</source>
        <translation>Zeigen, wo jeder Takt beginnt</translation>
    </message>
    <message>
        <source>Note color</source>
        <translation>Notenfarbe</translation>
    </message>
    <message>
        <source>The color that notes are drawn in</source>
        <translation>Die Farbe, in der Noten gezeichnet werden</translation>
    </message>
    <message>
        <source>Choose the color that notes are drawn in</source>
        <translation>Die Farbe wählen, in der Noten gezeichnet werden</translation>
    </message>
    <message>
        <source>Draw notes in the usual color again</source>
        <translation>Noten wieder in der üblichen Farbe zeichnen</translation>
    </message>
    <message>
        <source>Choose parts when importing</source>
        <translation>Beim Import Stimmen wählen</translation>
    </message>
    <message>
        <source>Show what would become parts, and how, before Import MIDI brings them in</source>
        <translation>Zeigen, was zu Stimmen würde und wie, bevor der MIDI-Import sie bringt</translation>
    </message>
    <message>
        <source>Ask</source>
        <translation>Fragen</translation>
    </message>
    <message>
        <source>Convert for the game</source>
        <translation>Für das Spiel umwandeln</translation>
    </message>
    <message>
        <source>Open as it is</source>
        <translation>Unverändert öffnen</translation>
    </message>
    <message>
        <source>ABC that was written for other programs has repeats, voices and more that the game reads otherwise</source>
        <translation>ABC, das für andere Programme geschrieben ist, hat Wiederholungen, Stimmen und mehr, was das Spiel anders liest</translation>
    </message>
    <message>
        <source>ABC that the game reads otherwise:</source>
        <translation>ABC, das das Spiel anders liest:</translation>
    </message>
    <message>
        <source>Dark colors</source>
        <translation>Dunkle Farben</translation>
    </message>
    <message>
        <source>Draw the windows in dark colors</source>
        <translation>Die Fenster in dunklen Farben zeichnen</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>The language of menus, dialogs and messages, and how numbers are written</source>
        <translation>Die Sprache der Menüs, Dialoge und Meldungen, und wie Zahlen geschrieben werden</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>This change will take effect next time you start Kelvarion Composer.</source>
        <translation>Diese Änderung gilt ab dem nächsten Start von Kelvarion Composer.</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Instruments</source>
        <translation>Instrumente</translation>
    </message>
    <message>
        <source>Track Preview</source>
        <translation>Spurvorschau</translation>
    </message>
    <message>
        <source>Midi Import</source>
        <translation>MIDI-Import</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Kelvarion Location:</source>
        <translation>Ort von Kelvarion:</translation>
    </message>
    <message>
        <source>Load instruments from mods directory</source>
        <translation>Instrumente aus dem Mods-Ordner laden</translation>
    </message>
    <message>
        <source>Kelvarion</source>
        <translation>Kelvarion</translation>
    </message>
    <message>
        <source>Draw octave lines</source>
        <translation>Oktavlinien zeichnen</translation>
    </message>
    <message>
        <source>Draw measure lines</source>
        <translation>Taktlinien zeichnen</translation>
    </message>
    <message>
        <source>Change color</source>
        <translation>Farbe ändern</translation>
    </message>
    <message>
        <source>Revert to default</source>
        <translation>Auf Standard zurücksetzen</translation>
    </message>
    <message>
        <source>Pick note color</source>
        <translation>Notenfarbe wählen</translation>
    </message>
    <message>
        <source>Visualization</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Please locate the Kelvarion directory.</source>
        <translation>Bitte wählen Sie den Ordner von Kelvarion.</translation>
    </message>
    <message>
        <source>No Kelvarion installation was found at the specified directory.</source>
        <translation>Im angegebenen Ordner wurde kein installiertes Kelvarion gefunden.</translation>
    </message>
    <message>
        <source>Open files in the running window</source>
        <translation>Dateien im laufenden Fenster öffnen</translation>
    </message>
    <message>
        <source>Open what is opened in a file manager in the window that is there already</source>
        <translation>Was in einer Dateiverwaltung geöffnet wird, in dem Fenster öffnen, das schon da ist</translation>
    </message>
</context>
<context>
    <name>ProblemList</name>
    <message>
        <source>Problems</source>
        <translation>Probleme</translation>
    </message>
    <message>
        <source>Click a problem to go to it (F8 goes to the next)</source>
        <translation>Auf ein Problem klicken, um hinzugehen (F8 geht zum nächsten)</translation>
    </message>
    <message>
        <source>No problems</source>
        <translation>Keine Probleme</translation>
    </message>
    <message>
        <source>… and %1 more</source>
        <translation>… und %1 weitere</translation>
    </message>
    <message>
        <source>Line %1, column %2: %3</source>
        <translation>Zeile %1, Spalte %2: %3</translation>
    </message>
</context>
<context>
    <name>ProgramCommands</name>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Exit Kelvarion Composer</source>
        <translation>Kelvarion Composer beenden</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>Show preferences</source>
        <translation>Die Einstellungen zeigen</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>How things are done, and what the game plays</source>
        <translation>Wie etwas geht, und was das Spiel spielt</translation>
    </message>
    <message>
        <source>Check for updates...</source>
        <translation>Nach Updates suchen...</translation>
    </message>
    <message>
        <source>Check online for updates for Kelvarion Composer</source>
        <translation>Im Internet nach Updates für Kelvarion Composer suchen</translation>
    </message>
    <message>
        <source>About Kelvarion Composer...</source>
        <translation>Über Kelvarion Composer...</translation>
    </message>
    <message>
        <source>Donate</source>
        <translation>Spenden</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>About Kelvarion Composer</source>
        <translation>Über Kelvarion Composer</translation>
    </message>
    <message>
        <source>No updates</source>
        <translation>Keine Updates</translation>
    </message>
    <message>
        <source>You are running the latest version of Kelvarion Composer.</source>
        <translation>Sie verwenden die neueste Version von Kelvarion Composer.</translation>
    </message>
    <message>
        <source>Kelvarion Composer v%1 is available.
Would you like to download it now?</source>
        <translation>Kelvarion Composer v%1 ist verfügbar.
Möchten Sie es jetzt herunterladen?</translation>
    </message>
    <message>
        <source>Update available</source>
        <translation>Update verfügbar</translation>
    </message>
    <message>
        <source>Updates check failed</source>
        <translation>Suche nach Updates gescheitert</translation>
    </message>
    <message>
        <source>Failed to check for updates: %1</source>
        <translation>Die Suche nach Updates ist gescheitert: %1</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts...</source>
        <translation>Tastenkürzel...</translation>
    </message>
    <message>
        <source>Show and change the keys of all commands</source>
        <translation>Die Tasten aller Befehle zeigen und ändern</translation>
    </message>
</context>
<context>
    <name>ProgramNames</name>
    <message>
        <source>Acoustic Grand Piano</source>
        <translation>Konzertflügel</translation>
    </message>
    <message>
        <source>Bright Acoustic Piano</source>
        <translation>Helles Klavier</translation>
    </message>
    <message>
        <source>Electric Grand Piano</source>
        <translation>Elektrischer Flügel</translation>
    </message>
    <message>
        <source>Honky-tonk Piano</source>
        <translation>Honky-Tonk-Klavier</translation>
    </message>
    <message>
        <source>Electric Piano 1</source>
        <translation>E-Piano 1</translation>
    </message>
    <message>
        <source>Electric Piano 2</source>
        <translation>E-Piano 2</translation>
    </message>
    <message>
        <source>Harpsichord</source>
        <translation>Cembalo</translation>
    </message>
    <message>
        <source>Clavinet</source>
        <translation>Clavinet</translation>
    </message>
    <message>
        <source>Celesta</source>
        <translation>Celesta</translation>
    </message>
    <message>
        <source>Glockenspiel</source>
        <translation>Glockenspiel</translation>
    </message>
    <message>
        <source>Music Box</source>
        <translation>Spieluhr</translation>
    </message>
    <message>
        <source>Vibraphone</source>
        <translation>Vibraphon</translation>
    </message>
    <message>
        <source>Marimba</source>
        <translation>Marimba</translation>
    </message>
    <message>
        <source>Xylophone</source>
        <translation>Xylophon</translation>
    </message>
    <message>
        <source>Tubular Bells</source>
        <translation>Röhrenglocken</translation>
    </message>
    <message>
        <source>Dulcimer</source>
        <translation>Hackbrett</translation>
    </message>
    <message>
        <source>Drawbar Organ</source>
        <translation>Zugriegelorgel</translation>
    </message>
    <message>
        <source>Percussive Organ</source>
        <translation>Perkussive Orgel</translation>
    </message>
    <message>
        <source>Rock Organ</source>
        <translation>Rockorgel</translation>
    </message>
    <message>
        <source>Church Organ</source>
        <translation>Kirchenorgel</translation>
    </message>
    <message>
        <source>Reed Organ</source>
        <translation>Harmonium</translation>
    </message>
    <message>
        <source>Accordion</source>
        <translation>Akkordeon</translation>
    </message>
    <message>
        <source>Harmonica</source>
        <translation>Mundharmonika</translation>
    </message>
    <message>
        <source>Tango Accordion</source>
        <translation>Bandoneon</translation>
    </message>
    <message>
        <source>Acoustic Guitar (nylon)</source>
        <translation>Akustikgitarre (Nylon)</translation>
    </message>
    <message>
        <source>Acoustic Guitar (steel)</source>
        <translation>Akustikgitarre (Stahl)</translation>
    </message>
    <message>
        <source>Electric Guitar (jazz)</source>
        <translation>E-Gitarre (Jazz)</translation>
    </message>
    <message>
        <source>Electric Guitar (clean)</source>
        <translation>E-Gitarre (unverzerrt)</translation>
    </message>
    <message>
        <source>Electric Guitar (muted)</source>
        <translation>E-Gitarre (gedämpft)</translation>
    </message>
    <message>
        <source>Overdriven Guitar</source>
        <translation>Übersteuerte Gitarre</translation>
    </message>
    <message>
        <source>Distortion Guitar</source>
        <translation>Verzerrte Gitarre</translation>
    </message>
    <message>
        <source>Guitar Harmonics</source>
        <translation>Gitarrenflageolett</translation>
    </message>
    <message>
        <source>Acoustic Bass</source>
        <translation>Kontrabass (akustisch)</translation>
    </message>
    <message>
        <source>Electric Bass (finger)</source>
        <translation>E-Bass (Finger)</translation>
    </message>
    <message>
        <source>Electric Bass (pick)</source>
        <translation>E-Bass (Plektrum)</translation>
    </message>
    <message>
        <source>Fretless Bass</source>
        <translation>Bundloser Bass</translation>
    </message>
    <message>
        <source>Slap Bass 1</source>
        <translation>Slap-Bass 1</translation>
    </message>
    <message>
        <source>Slap Bass 2</source>
        <translation>Slap-Bass 2</translation>
    </message>
    <message>
        <source>Synth Bass 1</source>
        <translation>Synth-Bass 1</translation>
    </message>
    <message>
        <source>Synth Bass 2</source>
        <translation>Synth-Bass 2</translation>
    </message>
    <message>
        <source>Violin</source>
        <translation>Violine</translation>
    </message>
    <message>
        <source>Viola</source>
        <translation>Bratsche</translation>
    </message>
    <message>
        <source>Cello</source>
        <translation>Cello</translation>
    </message>
    <message>
        <source>Contrabass</source>
        <translation>Kontrabass</translation>
    </message>
    <message>
        <source>Tremolo Strings</source>
        <translation>Tremolostreicher</translation>
    </message>
    <message>
        <source>Pizzicato Strings</source>
        <translation>Pizzicatostreicher</translation>
    </message>
    <message>
        <source>Orchestral Harp</source>
        <translation>Konzertharfe</translation>
    </message>
    <message>
        <source>Timpani</source>
        <translation>Pauken</translation>
    </message>
    <message>
        <source>String Ensemble 1</source>
        <translation>Streicherensemble 1</translation>
    </message>
    <message>
        <source>String Ensemble 2</source>
        <translation>Streicherensemble 2</translation>
    </message>
    <message>
        <source>Synth Strings 1</source>
        <translation>Synth-Streicher 1</translation>
    </message>
    <message>
        <source>Synth Strings 2</source>
        <translation>Synth-Streicher 2</translation>
    </message>
    <message>
        <source>Choir Aahs</source>
        <translation>Chor Aah</translation>
    </message>
    <message>
        <source>Voice Oohs</source>
        <translation>Stimme Ooh</translation>
    </message>
    <message>
        <source>Synth Choir</source>
        <translation>Synth-Chor</translation>
    </message>
    <message>
        <source>Orchestra Hit</source>
        <translation>Orchesterschlag</translation>
    </message>
    <message>
        <source>Trumpet</source>
        <translation>Trompete</translation>
    </message>
    <message>
        <source>Trombone</source>
        <translation>Posaune</translation>
    </message>
    <message>
        <source>Tuba</source>
        <translation>Tuba</translation>
    </message>
    <message>
        <source>Muted Trumpet</source>
        <translation>Gedämpfte Trompete</translation>
    </message>
    <message>
        <source>French Horn</source>
        <translation>Waldhorn</translation>
    </message>
    <message>
        <source>Brass Section</source>
        <translation>Blechbläser</translation>
    </message>
    <message>
        <source>Synth Brass 1</source>
        <translation>Synth-Blech 1</translation>
    </message>
    <message>
        <source>Synth Brass 2</source>
        <translation>Synth-Blech 2</translation>
    </message>
    <message>
        <source>Soprano Sax</source>
        <translation>Sopransaxophon</translation>
    </message>
    <message>
        <source>Alto Sax</source>
        <translation>Altsaxophon</translation>
    </message>
    <message>
        <source>Tenor Sax</source>
        <translation>Tenorsaxophon</translation>
    </message>
    <message>
        <source>Baritone Sax</source>
        <translation>Baritonsaxophon</translation>
    </message>
    <message>
        <source>Oboe</source>
        <translation>Oboe</translation>
    </message>
    <message>
        <source>English Horn</source>
        <translation>Englischhorn</translation>
    </message>
    <message>
        <source>Bassoon</source>
        <translation>Fagott</translation>
    </message>
    <message>
        <source>Clarinet</source>
        <translation>Klarinette</translation>
    </message>
    <message>
        <source>Piccolo</source>
        <translation>Piccolo</translation>
    </message>
    <message>
        <source>Flute</source>
        <translation>Flöte</translation>
    </message>
    <message>
        <source>Recorder</source>
        <translation>Blockflöte</translation>
    </message>
    <message>
        <source>Pan Flute</source>
        <translation>Panflöte</translation>
    </message>
    <message>
        <source>Blown bottle</source>
        <translation>Angeblasene Flasche</translation>
    </message>
    <message>
        <source>Shakuhachi</source>
        <translation>Shakuhachi</translation>
    </message>
    <message>
        <source>Whistle</source>
        <translation>Tin Whistle</translation>
    </message>
    <message>
        <source>Ocarina</source>
        <translation>Okarina</translation>
    </message>
    <message>
        <source>Lead 1 (square)</source>
        <translation>Lead 1 (Rechteck)</translation>
    </message>
    <message>
        <source>Lead 2 (sawtooth)</source>
        <translation>Lead 2 (Sägezahn)</translation>
    </message>
    <message>
        <source>Lead 3 (calliope)</source>
        <translation>Lead 3 (Dampforgel)</translation>
    </message>
    <message>
        <source>Lead 4 (chiff)</source>
        <translation>Lead 4 (Anblasen)</translation>
    </message>
    <message>
        <source>Lead 5 (charang)</source>
        <translation>Lead 5 (Charango)</translation>
    </message>
    <message>
        <source>Lead 6 (voice)</source>
        <translation>Lead 6 (Stimme)</translation>
    </message>
    <message>
        <source>Lead 7 (fifths)</source>
        <translation>Lead 7 (Quinten)</translation>
    </message>
    <message>
        <source>Lead 8 (bass + lead)</source>
        <translation>Lead 8 (Bass + Lead)</translation>
    </message>
    <message>
        <source>Pad 1 (new age)</source>
        <translation>Fläche 1 (New Age)</translation>
    </message>
    <message>
        <source>Pad 2 (warm)</source>
        <translation>Fläche 2 (warm)</translation>
    </message>
    <message>
        <source>Pad 3 (polysynth)</source>
        <translation>Fläche 3 (Polysynth)</translation>
    </message>
    <message>
        <source>Pad 4 (choir)</source>
        <translation>Fläche 4 (Chor)</translation>
    </message>
    <message>
        <source>Pad 5 (bowed)</source>
        <translation>Fläche 5 (gestrichen)</translation>
    </message>
    <message>
        <source>Pad 6 (metallic)</source>
        <translation>Fläche 6 (metallisch)</translation>
    </message>
    <message>
        <source>Pad 7 (halo)</source>
        <translation>Fläche 7 (Halo)</translation>
    </message>
    <message>
        <source>Pad 8 (sweep)</source>
        <translation>Fläche 8 (Sweep)</translation>
    </message>
    <message>
        <source>FX 1 (rain)</source>
        <translation>Effekt 1 (Regen)</translation>
    </message>
    <message>
        <source>FX 2 (soundtrack)</source>
        <translation>Effekt 2 (Filmmusik)</translation>
    </message>
    <message>
        <source>FX 3 (crystal)</source>
        <translation>Effekt 3 (Kristall)</translation>
    </message>
    <message>
        <source>FX 4 (atmosphere)</source>
        <translation>Effekt 4 (Atmosphäre)</translation>
    </message>
    <message>
        <source>FX 5 (brightness)</source>
        <translation>Effekt 5 (Helligkeit)</translation>
    </message>
    <message>
        <source>FX 6 (goblins)</source>
        <translation>Effekt 6 (Kobolde)</translation>
    </message>
    <message>
        <source>FX 7 (echoes)</source>
        <translation>Effekt 7 (Echos)</translation>
    </message>
    <message>
        <source>FX 8 (sci-fi)</source>
        <translation>Effekt 8 (Science-Fiction)</translation>
    </message>
    <message>
        <source>Sitar</source>
        <translation>Sitar</translation>
    </message>
    <message>
        <source>Banjo</source>
        <translation>Banjo</translation>
    </message>
    <message>
        <source>Shamisen</source>
        <translation>Shamisen</translation>
    </message>
    <message>
        <source>Koto</source>
        <translation>Koto</translation>
    </message>
    <message>
        <source>Kalimba</source>
        <translation>Kalimba</translation>
    </message>
    <message>
        <source>Bagpipe</source>
        <translation>Dudelsack</translation>
    </message>
    <message>
        <source>Fiddle</source>
        <translation>Fiedel</translation>
    </message>
    <message>
        <source>Shanai</source>
        <translation>Shanai</translation>
    </message>
    <message>
        <source>Tinkle Bell</source>
        <translation>Glöckchen</translation>
    </message>
    <message>
        <source>Agogo</source>
        <translation>Agogo</translation>
    </message>
    <message>
        <source>Steel Drums</source>
        <translation>Steeldrums</translation>
    </message>
    <message>
        <source>Woodblock</source>
        <translation>Holzblock</translation>
    </message>
    <message>
        <source>Taiko Drum</source>
        <translation>Taiko</translation>
    </message>
    <message>
        <source>Melodic Tom</source>
        <translation>Melodisches Tom</translation>
    </message>
    <message>
        <source>Synth Drum</source>
        <translation>Synth-Trommel</translation>
    </message>
    <message>
        <source>Reverse Cymbal</source>
        <translation>Rückwärtsbecken</translation>
    </message>
    <message>
        <source>Guitar Fret Noise</source>
        <translation>Gitarrengriffgeräusch</translation>
    </message>
    <message>
        <source>Breath Noise</source>
        <translation>Atemgeräusch</translation>
    </message>
    <message>
        <source>Seashore</source>
        <translation>Meeresrauschen</translation>
    </message>
    <message>
        <source>Bird Tweet</source>
        <translation>Vogelgezwitscher</translation>
    </message>
    <message>
        <source>Telephone Ring</source>
        <translation>Telefonklingeln</translation>
    </message>
    <message>
        <source>Helicopter</source>
        <translation>Hubschrauber</translation>
    </message>
    <message>
        <source>Applause</source>
        <translation>Applaus</translation>
    </message>
    <message>
        <source>Gunshot</source>
        <translation>Schuss</translation>
    </message>
    <message>
        <source>Percussion</source>
        <translation>Schlagzeug</translation>
    </message>
</context>
<context>
    <name>ProgramsPage</name>
    <message>
        <source>Percussion</source>
        <translation>Schlagzeug</translation>
    </message>
    <message>
        <source>Programs with a chosen instrument</source>
        <translation>Programme mit gewähltem Instrument</translation>
    </message>
    <message>
        <source>MIDI program</source>
        <translation>MIDI-Programm</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Vergessen</translation>
    </message>
    <message>
        <source>The instrument that is proposed for the chosen programs</source>
        <translation>Das Instrument, das für die gewählten Programme vorgeschlagen wird</translation>
    </message>
    <message>
        <source>Propose an instrument by its name and kind again</source>
        <translation>Wieder ein Instrument nach Name und Art vorschlagen</translation>
    </message>
    <message>
        <source>What you chose for a program when importing is proposed the next time.</source>
        <translation>Was Sie beim Import für ein Programm gewählt haben, wird beim nächsten Mal vorgeschlagen.</translation>
    </message>
    <message>
        <source>Chosen Instruments</source>
        <translation>Gewählte Instrumente</translation>
    </message>
</context>
<context>
    <name>QMenu</name>
    <message>
        <source>%1, everywhere (%2)</source>
        <translation>%1, überall (%2)</translation>
    </message>
</context>
<context>
    <name>RealignNotesDialog</name>
    <message>
        <source>Quantization Precision</source>
        <translation>Genauigkeit der Quantisierung</translation>
    </message>
    <message>
        <source>Realign Notes</source>
        <translation>Noten ausrichten</translation>
    </message>
    <message>
        <source>The finest note that notes are moved onto</source>
        <translation>Die feinste Note, auf die Noten verschoben werden</translation>
    </message>
    <message>
        <source>Regular</source>
        <translation>Gerade</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Ganze</translation>
    </message>
    <message>
        <source>Triplets</source>
        <translation>Triolen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Quintuplets</source>
        <translation>Quintolen</translation>
    </message>
    <message>
        <source>Septuplets</source>
        <translation>Septolen</translation>
    </message>
    <message>
        <source>Nonuplets</source>
        <translation>Nonolen</translation>
    </message>
    <message>
        <source>%1sts</source>
        <translation>1/%1</translation>
    </message>
    <message>
        <source>%1nds</source>
        <translation>1/%1</translation>
    </message>
    <message>
        <source>%1rds</source>
        <translation>1/%1</translation>
    </message>
    <message>
        <source>%1ths</source>
        <translation>1/%1</translation>
    </message>
</context>
<context>
    <name>RecoveryDialog</name>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>Cannot be read</source>
        <translation>Nicht lesbar</translation>
    </message>
    <message>
        <source>Discarded</source>
        <translation>Verworfen</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>It was never saved as a song.</source>
        <translation>Er wurde nie als Song gespeichert.</translation>
    </message>
    <message>
        <source>Its song file: %1</source>
        <translation>Seine Songdatei: %1</translation>
    </message>
    <message>
        <source>Songs that can be recovered</source>
        <translation>Songs, die sich wiederherstellen lassen</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>Stimmen</translation>
    </message>
    <message>
        <source>Last change</source>
        <translation>Letzte Änderung</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Recover Songs</source>
        <translation>Songs wiederherstellen</translation>
    </message>
    <message>
        <source>The program ended before these songs were saved. They are as they were at the last moment.</source>
        <translation>Das Programm endete, bevor diese Songs gespeichert waren. Sie sind, wie sie im letzten Augenblick waren.</translation>
    </message>
    <message>
        <source>Songs that were not saved, and songs that were discarded in the last 7 days.</source>
        <translation>Songs, die nicht gespeichert wurden, und Songs, die in den letzten 7 Tagen verworfen wurden.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Löschen…</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Open the chosen song as it was</source>
        <translation>Den gewählten Song öffnen, wie er war</translation>
    </message>
    <message>
        <source>Delete the chosen songs for good</source>
        <translation>Die gewählten Songs endgültig löschen</translation>
    </message>
    <message>
        <source>Keep the songs; File &gt; Recover… shows them again</source>
        <translation>Die Songs behalten; Datei &gt; Wiederherstellen… zeigt sie wieder</translation>
    </message>
</context>
<context>
    <name>RehearsalDialog</name>
    <message>
        <source>&amp;New dice each time that Play is pressed</source>
        <translation>Bei jeder Wiedergabe &amp;neu würfeln</translation>
    </message>
    <message>
        <source>&amp;These offsets:</source>
        <translation>&amp;Diesen Versatz:</translation>
    </message>
    <message>
        <source>Band Rehearsal</source>
        <translation>Bandprobe</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>Hear the parts as a band plays them that starts by hand: some come in sooner, some later. The song itself stays as it is.</source>
        <translation>Hören Sie die Stimmen, wie eine Band sie spielt, die von Hand startet: Manche setzen früher ein, manche später. Der Song selbst bleibt, wie er ist.</translation>
    </message>
    <message>
        <source>Throw &amp;Dice</source>
        <translation>&amp;Würfeln</translation>
    </message>
    <message>
        <source>Up to, &amp;sooner or later:</source>
        <translation>Bis zu, &amp;früher oder später:</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Stimme</translation>
    </message>
    <message>
        <source>Offset (ms)</source>
        <translation>Versatz (ms)</translation>
    </message>
</context>
<context>
    <name>RenderPlan</name>
    <message>
        <source>%1 % of the samples are clipped</source>
        <translation>%1 % der Abtastwerte sind übersteuert</translation>
    </message>
</context>
<context>
    <name>RenderWorker</name>
    <message numerus="yes">
        <source>%n sample(s) could not be read, and their notes are silent</source>
        <translation>
            <numerusform>%n Sample ließ sich nicht lesen, und seine Töne sind stumm</numerusform>
            <numerusform>%n Samples ließen sich nicht lesen, und ihre Töne sind stumm</numerusform>
        </translation>
    </message>
    <message>
        <source>This sound engine writes nothing but plain WAV files.</source>
        <translation>Diese Klangausgabe schreibt nur einfache WAV-Dateien.</translation>
    </message>
    <message>
        <source>No part is heard, so that there is nothing to write.</source>
        <translation>Keine Stimme ist zu hören, also gibt es nichts zu schreiben.</translation>
    </message>
    <message>
        <source>%1 files cannot be written here.</source>
        <translation>%1-Dateien lassen sich hier nicht schreiben.</translation>
    </message>
    <message>
        <source>The song is too long for a file of this kind: %1.</source>
        <translation>Der Song ist zu lang für eine Datei dieser Art: %1.</translation>
    </message>
    <message>
        <source>There are more than %1 tracks.</source>
        <translation>Es sind mehr als %1 Spuren.</translation>
    </message>
    <message>
        <source>The song is longer than 6 hours.</source>
        <translation>Der Song ist länger als 6 Stunden.</translation>
    </message>
</context>
<context>
    <name>RewriteQuestion</name>
    <message numerus="yes">
        <source>%n bar line(s)</source>
        <translation>
            <numerusform>%n Taktstrich</numerusform>
            <numerusform>%n Taktstriche</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chord symbol(s) and text(s) above the staff</source>
        <translation>
            <numerusform>%n Akkordsymbol oder Text über den Noten</numerusform>
            <numerusform>%n Akkordsymbole und Texte über den Noten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n decoration(s), grace notes and slurs</source>
        <translation>
            <numerusform>%n Verzierung, Vorschlag oder Bindebogen</numerusform>
            <numerusform>%n Verzierungen, Vorschläge und Bindebögen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n comment(s)</source>
        <translation>
            <numerusform>%n Kommentar</numerusform>
            <numerusform>%n Kommentare</numerusform>
        </translation>
    </message>
    <message>
        <source>its line breaks and its own way of writing notes</source>
        <translation>seine Zeilenumbrüche und seine eigene Schreibweise der Noten</translation>
    </message>
    <message>
        <source>The whole text must be written anew for this change. The notes stay as they are, but the text loses: %1.

Write it anew?</source>
        <translation>Für diese Änderung muss der ganze Text neu geschrieben werden. Die Noten bleiben, wie sie sind, aber der Text verliert: %1.

Neu schreiben?</translation>
    </message>
</context>
<context>
    <name>RollActions</name>
    <message>
        <source>Snap to %1</source>
        <translation>Auf %1 einrasten</translation>
    </message>
    <message>
        <source>&amp;Select Notes</source>
        <translation>Noten aus&amp;wählen</translation>
    </message>
    <message>
        <source>Select, move and resize notes with the mouse; a double click inserts one</source>
        <translation>Noten mit der Maus auswählen, verschieben und dehnen; ein Doppelklick fügt eine ein</translation>
    </message>
    <message>
        <source>&amp;Draw Notes</source>
        <translation>Noten &amp;zeichnen</translation>
    </message>
    <message>
        <source>Draw notes with the mouse</source>
        <translation>Noten mit der Maus zeichnen</translation>
    </message>
    <message>
        <source>&amp;Insert Note</source>
        <translation>Note e&amp;infügen</translation>
    </message>
    <message>
        <source>Insert a note at the cursor</source>
        <translation>Eine Note am Cursor einfügen</translation>
    </message>
    <message>
        <source>Cu&amp;t Notes</source>
        <translation>Noten aus&amp;schneiden</translation>
    </message>
    <message>
        <source>Move the selected notes to the clipboard</source>
        <translation>Die ausgewählten Noten in die Zwischenablage verschieben</translation>
    </message>
    <message>
        <source>&amp;Copy Notes</source>
        <translation>Noten &amp;kopieren</translation>
    </message>
    <message>
        <source>Copy the selected notes to the clipboard, as ABC</source>
        <translation>Die ausgewählten Noten als ABC in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste Notes</source>
        <translation>Noten einfü&amp;gen</translation>
    </message>
    <message>
        <source>Insert the notes of the clipboard at the cursor</source>
        <translation>Die Noten der Zwischenablage am Cursor einfügen</translation>
    </message>
    <message>
        <source>D&amp;uplicate Notes</source>
        <translation>Noten &amp;duplizieren</translation>
    </message>
    <message>
        <source>Repeat the selected notes behind themselves</source>
        <translation>Die ausgewählten Noten hinter sich selbst wiederholen</translation>
    </message>
    <message>
        <source>Delete N&amp;otes</source>
        <translation>Noten &amp;löschen</translation>
    </message>
    <message>
        <source>Delete the selected notes</source>
        <translation>Die ausgewählten Noten löschen</translation>
    </message>
    <message>
        <source>Select &amp;All Notes</source>
        <translation>&amp;Alle Noten auswählen</translation>
    </message>
    <message>
        <source>Select every note</source>
        <translation>Jede Note auswählen</translation>
    </message>
    <message>
        <source>Select &amp;No Notes</source>
        <translation>Keine No&amp;ten auswählen</translation>
    </message>
    <message>
        <source>Take back the selection, or the drag in progress</source>
        <translation>Die Auswahl oder das laufende Ziehen zurücknehmen</translation>
    </message>
    <message>
        <source>Select Next Note</source>
        <translation>Nächste Note auswählen</translation>
    </message>
    <message>
        <source>Select the note after the selection or the cursor</source>
        <translation>Die Note nach der Auswahl oder dem Cursor auswählen</translation>
    </message>
    <message>
        <source>Select Previous Note</source>
        <translation>Vorherige Note auswählen</translation>
    </message>
    <message>
        <source>Select the note before the selection or the cursor</source>
        <translation>Die Note vor der Auswahl oder dem Cursor auswählen</translation>
    </message>
    <message>
        <source>Extend Selection to Next Note</source>
        <translation>Auswahl bis zur nächsten Note erweitern</translation>
    </message>
    <message>
        <source>Add the next note to the selection</source>
        <translation>Die nächste Note zur Auswahl hinzunehmen</translation>
    </message>
    <message>
        <source>Extend Selection to Previous Note</source>
        <translation>Auswahl bis zur vorherigen Note erweitern</translation>
    </message>
    <message>
        <source>Add the previous note to the selection</source>
        <translation>Die vorherige Note zur Auswahl hinzunehmen</translation>
    </message>
    <message>
        <source>Move Earlier</source>
        <translation>Früher setzen</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, one grid step back</source>
        <translation>Die ausgewählten Noten oder den Cursor einen Rasterschritt zurücksetzen</translation>
    </message>
    <message>
        <source>Move Later</source>
        <translation>Später setzen</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, one grid step on</source>
        <translation>Die ausgewählten Noten oder den Cursor einen Rasterschritt weitersetzen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Höher setzen</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, a semitone up</source>
        <translation>Die ausgewählten Noten oder den Cursor einen Halbton höher setzen</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Tiefer setzen</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, a semitone down</source>
        <translation>Die ausgewählten Noten oder den Cursor einen Halbton tiefer setzen</translation>
    </message>
    <message>
        <source>Move an Octave Up</source>
        <translation>Eine Oktave höher setzen</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, an octave up</source>
        <translation>Die ausgewählten Noten oder den Cursor eine Oktave höher setzen</translation>
    </message>
    <message>
        <source>Move an Octave Down</source>
        <translation>Eine Oktave tiefer setzen</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, an octave down</source>
        <translation>Die ausgewählten Noten oder den Cursor eine Oktave tiefer setzen</translation>
    </message>
    <message>
        <source>Move a Measure Earlier</source>
        <translation>Einen Takt früher setzen</translation>
    </message>
    <message>
        <source>Move the selected notes a measure back, or the cursor to its start</source>
        <translation>Die ausgewählten Noten einen Takt zurücksetzen, oder den Cursor an dessen Anfang</translation>
    </message>
    <message>
        <source>Move a Measure Later</source>
        <translation>Einen Takt später setzen</translation>
    </message>
    <message>
        <source>Move the selected notes a measure on, or the cursor to the next one</source>
        <translation>Die ausgewählten Noten einen Takt weitersetzen, oder den Cursor in den nächsten</translation>
    </message>
    <message>
        <source>&amp;Lengthen</source>
        <translation>&amp;Verlängern</translation>
    </message>
    <message>
        <source>Make the selected notes one grid step longer</source>
        <translation>Die ausgewählten Noten einen Rasterschritt länger machen</translation>
    </message>
    <message>
        <source>Sho&amp;rten</source>
        <translation>Ve&amp;rkürzen</translation>
    </message>
    <message>
        <source>Make the selected notes one grid step shorter</source>
        <translation>Die ausgewählten Noten einen Rasterschritt kürzer machen</translation>
    </message>
    <message>
        <source>Cursor to Start</source>
        <translation>Cursor an den Anfang</translation>
    </message>
    <message>
        <source>Set the cursor to the start of the track</source>
        <translation>Den Cursor an den Anfang der Spur setzen</translation>
    </message>
    <message>
        <source>Cursor to End</source>
        <translation>Cursor ans Ende</translation>
    </message>
    <message>
        <source>Set the cursor behind the last note</source>
        <translation>Den Cursor hinter die letzte Note setzen</translation>
    </message>
    <message>
        <source>Play or Stop</source>
        <translation>Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Play the track from the cursor on, or stop what plays</source>
        <translation>Die Spur ab dem Cursor abspielen, oder anhalten, was spielt</translation>
    </message>
    <message>
        <source>Play from Cursor</source>
        <translation>Ab Cursor abspielen</translation>
    </message>
    <message>
        <source>Play the track from the cursor on</source>
        <translation>Die Spur ab dem Cursor abspielen</translation>
    </message>
    <message>
        <source>Fin&amp;er Grid</source>
        <translation>F&amp;eineres Raster</translation>
    </message>
    <message>
        <source>Snap to the next shorter length</source>
        <translation>Auf die nächstkürzere Länge einrasten</translation>
    </message>
    <message>
        <source>&amp;Coarser Grid</source>
        <translation>Grö&amp;beres Raster</translation>
    </message>
    <message>
        <source>Snap to the next longer length</source>
        <translation>Auf die nächstlängere Länge einrasten</translation>
    </message>
    <message>
        <source>&amp;Zoom In</source>
        <translation>Hine&amp;inzoomen</translation>
    </message>
    <message>
        <source>Show time wider (Ctrl+wheel)</source>
        <translation>Die Zeit breiter zeigen (Strg+Mausrad)</translation>
    </message>
    <message>
        <source>Zoom O&amp;ut</source>
        <translation>Herausz&amp;oomen</translation>
    </message>
    <message>
        <source>Show time narrower (Ctrl+wheel)</source>
        <translation>Die Zeit schmaler zeigen (Strg+Mausrad)</translation>
    </message>
    <message>
        <source>&amp;Higher Rows</source>
        <translation>&amp;Höhere Zeilen</translation>
    </message>
    <message>
        <source>Show pitches higher (Ctrl+Shift+wheel)</source>
        <translation>Tonhöhen höher zeigen (Strg+Umschalt+Mausrad)</translation>
    </message>
    <message>
        <source>&amp;Lower Rows</source>
        <translation>Niedrigere Zei&amp;len</translation>
    </message>
    <message>
        <source>Show pitches lower (Ctrl+Shift+wheel)</source>
        <translation>Tonhöhen niedriger zeigen (Strg+Umschalt+Mausrad)</translation>
    </message>
    <message>
        <source>Nor&amp;mal Size</source>
        <translation>Norm&amp;ale Größe</translation>
    </message>
    <message>
        <source>Show time and pitches at their usual size</source>
        <translation>Zeit und Tonhöhen in ihrer üblichen Größe zeigen</translation>
    </message>
    <message>
        <source>Follow Pla&amp;yback</source>
        <translation>Wie&amp;dergabe folgen</translation>
    </message>
    <message>
        <source>Keep the playing position in sight</source>
        <translation>Die spielende Stelle im Blick behalten</translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation>Punktiert</translation>
    </message>
    <message>
        <source>Triplet</source>
        <translation>Triole</translation>
    </message>
    <message>
        <source>Note %1</source>
        <translation>Note %1</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>%1 into the Chord</source>
        <translation>%1 in den Akkord</translation>
    </message>
    <message>
        <source>Selectio&amp;n</source>
        <translation>&amp;Auswahl</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>Verschie&amp;ben</translation>
    </message>
</context>
<context>
    <name>RollCommands</name>
    <message>
        <source>Move Notes</source>
        <translation>Noten verschieben</translation>
    </message>
    <message>
        <source>Transpose Notes</source>
        <translation>Noten transponieren</translation>
    </message>
    <message numerus="yes">
        <source>Replaces %n note(s) of the same pitch here</source>
        <translation>
            <numerusform>Ersetzt hier %n Note derselben Tonhöhe</numerusform>
            <numerusform>Ersetzt hier %n Noten derselben Tonhöhe</numerusform>
        </translation>
    </message>
    <message>
        <source>Copy Notes</source>
        <translation>Noten kopieren</translation>
    </message>
    <message>
        <source>Resize Notes</source>
        <translation>Notenlänge ändern</translation>
    </message>
    <message>
        <source>Insert Note</source>
        <translation>Note einfügen</translation>
    </message>
    <message>
        <source>Enter Notes</source>
        <translation>Noten eingeben</translation>
    </message>
    <message>
        <source>Delete Notes</source>
        <translation>Noten löschen</translation>
    </message>
    <message>
        <source>Cut Notes</source>
        <translation>Noten ausschneiden</translation>
    </message>
    <message>
        <source>Paste Notes</source>
        <translation>Noten einfügen</translation>
    </message>
    <message>
        <source>Duplicate Notes</source>
        <translation>Noten duplizieren</translation>
    </message>
</context>
<context>
    <name>RollKeyboard</name>
    <message>
        <source>Keyboard</source>
        <translation>Klaviatur</translation>
    </message>
    <message>
        <source>Press a key to hear its note.</source>
        <translation>Drücken Sie eine Taste, um ihren Ton zu hören.</translation>
    </message>
    <message>
        <source>%1: outside the playable range</source>
        <translation>%1: außerhalb des spielbaren Umfangs</translation>
    </message>
    <message>
        <source>%1: the instrument has no sample near</source>
        <translation>%1: Das Instrument hat kein nahes Sample</translation>
    </message>
</context>
<context>
    <name>RollRuler</name>
    <message>
        <source>Click to set the cursor, double-click to play from here</source>
        <translation>Klicken setzt den Cursor, Doppelklick spielt ab hier</translation>
    </message>
    <message>
        <source>Measures</source>
        <translation>Takte</translation>
    </message>
</context>
<context>
    <name>RollSnap</name>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>%1 triplet</source>
        <translation>%1-Triole</translation>
    </message>
    <message>
        <source>%1 dotted</source>
        <translation>%1 punktiert</translation>
    </message>
</context>
<context>
    <name>RollState</name>
    <message>
        <source>%1, %2, length %3</source>
        <translation>%1, %2, Länge %3</translation>
    </message>
</context>
<context>
    <name>SafeFile</name>
    <message>
        <source>The disk is full.</source>
        <translation>Der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>The space that is yours on the disk is used up.</source>
        <translation>Ihr Platz auf dem Datenträger ist aufgebraucht.</translation>
    </message>
    <message>
        <source>The disk is read-only.</source>
        <translation>Der Datenträger ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The folder is read-only.</source>
        <translation>Der Ordner ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The file may not be replaced.</source>
        <translation>Die Datei darf nicht ersetzt werden.</translation>
    </message>
    <message>
        <source>The folder does not exist.</source>
        <translation>Den Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>The name is too long.</source>
        <translation>Der Name ist zu lang.</translation>
    </message>
    <message>
        <source>Not a regular file.</source>
        <translation>Keine gewöhnliche Datei.</translation>
    </message>
</context>
<context>
    <name>SaveCommands</name>
    <message>
        <source>Could not open &apos;%1&apos; for saving.</source>
        <translation>„%1“ ließ sich nicht zum Speichern öffnen.</translation>
    </message>
    <message>
        <source>Save track &apos;%1&apos; as..</source>
        <translation>Spur „%1“ speichern unter..</translation>
    </message>
    <message>
        <source>ABC Files (*.abc)</source>
        <translation>ABC-Dateien (*.abc)</translation>
    </message>
    <message>
        <source>Could not open the file for saving.</source>
        <translation>Die Datei ließ sich nicht zum Speichern öffnen.</translation>
    </message>
    <message>
        <source>Would you like to overwrite it?</source>
        <translation>Möchten Sie sie überschreiben?</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is also the file of the track &apos;%2&apos;, which would be lost from it.</source>
        <translation>„%1“ ist auch die Datei der Spur „%2“, die daraus verloren ginge.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>&apos;%1&apos; was changed by another program.</source>
        <translation>„%1“ wurde von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is read-only.</source>
        <translation>„%1“ ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; belongs to another user.</source>
        <translation>„%1“ gehört einem anderen Benutzer.</translation>
    </message>
    <message>
        <source>Save Selected</source>
        <translation>Auswahl speichern</translation>
    </message>
    <message>
        <source>Save the selected tracks to disk</source>
        <translation>Die ausgewählten Spuren speichern</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Alle speichern</translation>
    </message>
    <message>
        <source>Save all tracks to disk</source>
        <translation>Alle Spuren speichern</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>The settings cannot be read: %1</source>
        <translation>Die Einstellungen lassen sich nicht lesen: %1</translation>
    </message>
    <message>
        <source>The settings were damaged; they are kept as %1</source>
        <translation>Die Einstellungen waren beschädigt; sie sind als %1 aufgehoben</translation>
    </message>
    <message>
        <source>The settings are not saved: %1</source>
        <translation>Die Einstellungen sind nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>Not a regular file.</source>
        <translation>Keine gewöhnliche Datei.</translation>
    </message>
</context>
<context>
    <name>ShortcutsDialog</name>
    <message>
        <source>Main window</source>
        <translation>Hauptfenster</translation>
    </message>
    <message>
        <source>Controls that have the keys</source>
        <translation>Bedienelemente mit dem Fokus</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>Editor, in the text</source>
        <translation>Editor, im Text</translation>
    </message>
    <message>
        <source>Editor, in the piano roll</source>
        <translation>Editor, in der Pianorolle</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Find a command or a key</source>
        <translation>Befehl oder Taste suchen</translation>
    </message>
    <message>
        <source>Reset &amp;All</source>
        <translation>&amp;Alle zurücksetzen</translation>
    </message>
    <message>
        <source>Every command gets its usual key again</source>
        <translation>Jeder Befehl bekommt wieder seine übliche Taste</translation>
    </message>
    <message>
        <source>Commands and their keys</source>
        <translation>Befehle und ihre Tasten</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>&amp;Key:</source>
        <translation>Tas&amp;te:</translation>
    </message>
    <message>
        <source>Press the keys that the chosen command is to have</source>
        <translation>Drücken Sie die Tasten, die der gewählte Befehl haben soll</translation>
    </message>
    <message>
        <source>A&amp;ssign</source>
        <translation>&amp;Zuweisen</translation>
    </message>
    <message>
        <source>The chosen command gets this key</source>
        <translation>Der gewählte Befehl bekommt diese Taste</translation>
    </message>
    <message>
        <source>&amp;Take It from There</source>
        <translation>Dort weg&amp;nehmen</translation>
    </message>
    <message>
        <source>The command that has this key loses it</source>
        <translation>Der Befehl, der diese Taste hat, verliert sie</translation>
    </message>
    <message>
        <source>&amp;No Key</source>
        <translation>&amp;Keine Taste</translation>
    </message>
    <message>
        <source>The chosen command has no key any more</source>
        <translation>Der gewählte Befehl hat keine Taste mehr</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>Zu&amp;rücksetzen</translation>
    </message>
    <message>
        <source>The chosen command gets its usual key again</source>
        <translation>Der gewählte Befehl bekommt wieder seine übliche Taste</translation>
    </message>
    <message>
        <source>fixed</source>
        <translation>fest</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>Choose a command.</source>
        <translation>Wählen Sie einen Befehl.</translation>
    </message>
    <message>
        <source>This key is fixed.</source>
        <translation>Diese Taste ist fest.</translation>
    </message>
    <message>
        <source>%1 is typed into the text.</source>
        <translation>%1 wird in den Text getippt.</translation>
    </message>
    <message>
        <source>%1 is the key of &quot;%2&quot; (%3).</source>
        <comment>key, command, where it works</comment>
        <translation>%1 ist die Taste von „%2“ (%3).</translation>
    </message>
    <message>
        <source>It is fixed.</source>
        <translation>Sie ist fest.</translation>
    </message>
</context>
<context>
    <name>SongArea</name>
    <message>
        <source>What is shown of the song</source>
        <translation>Was vom Song zu sehen ist</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>How fast the song is played, in percent of its tempo; its pitch stays</source>
        <translation>Wie schnell der Song gespielt wird, in Prozent seines Tempos; die Tonhöhe bleibt</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>Spuren</translation>
    </message>
</context>
<context>
    <name>SongCommands</name>
    <message>
        <source>Loading %1...</source>
        <translation>%1 wird geladen...</translation>
    </message>
    <message>
        <source>Error while reading song file</source>
        <translation>Fehler beim Lesen der Songdatei</translation>
    </message>
    <message>
        <source>Song Title</source>
        <translation>Songtitel</translation>
    </message>
    <message>
        <source>Title of the song:</source>
        <translation>Titel des Songs:</translation>
    </message>
    <message>
        <source>The song was changed by another program:
%1
Would you like to read it again?</source>
        <translation>Der Song wurde von einem anderen Programm geändert:
%1
Möchten Sie ihn erneut lesen?</translation>
    </message>
    <message>
        <source>Changed Song</source>
        <translation>Geänderter Song</translation>
    </message>
    <message>
        <source>The song &apos;%1&apos; is not saved yet.
Would you like to save it?</source>
        <translation>Der Song „%1“ ist noch nicht gespeichert.
Möchten Sie ihn speichern?</translation>
    </message>
    <message>
        <source>New Song</source>
        <translation>Neuer Song</translation>
    </message>
    <message>
        <source>Begin an empty song</source>
        <translation>Einen leeren Song beginnen</translation>
    </message>
    <message>
        <source>Save Song</source>
        <translation>Song speichern</translation>
    </message>
    <message>
        <source>Save the song with its parts and mix in one file</source>
        <translation>Den Song mit Stimmen und Mix in einer Datei speichern</translation>
    </message>
    <message>
        <source>Save Song As...</source>
        <translation>Song speichern unter...</translation>
    </message>
    <message>
        <source>Save the song in another file</source>
        <translation>Den Song in einer anderen Datei speichern</translation>
    </message>
    <message>
        <source>Save Parts to Folder...</source>
        <translation>Stimmen in Ordner speichern...</translation>
    </message>
    <message>
        <source>Save each part as an ABC file of one folder</source>
        <translation>Jede Stimme als ABC-Datei in einem Ordner speichern</translation>
    </message>
    <message>
        <source>Song Title...</source>
        <translation>Songtitel...</translation>
    </message>
    <message>
        <source>Change the title of the song</source>
        <translation>Den Titel des Songs ändern</translation>
    </message>
</context>
<context>
    <name>SongFile</name>
    <message>
        <source>a text is expected</source>
        <translation>ein Text wird erwartet</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2 is expected</source>
        <translation>eine ganze Zahl von %1 bis %2 wird erwartet</translation>
    </message>
    <message>
        <source>true or false is expected</source>
        <translation>true oder false wird erwartet</translation>
    </message>
    <message>
        <source>an object is expected</source>
        <translation>ein Objekt wird erwartet</translation>
    </message>
    <message>
        <source>a list is expected</source>
        <translation>eine Liste wird erwartet</translation>
    </message>
    <message>
        <source>The song file is damaged at line %1, column %2 (%3).</source>
        <translation>Die Songdatei ist in Zeile %1, Spalte %2 beschädigt (%3).</translation>
    </message>
    <message>
        <source>This is not a song file.</source>
        <translation>Das ist keine Songdatei.</translation>
    </message>
    <message>
        <source>The song was saved by a newer version of this program (song format %1; this version reads up to %2).</source>
        <translation>Der Song wurde mit einer neueren Version dieses Programms gespeichert (Songformat %1; diese Version liest bis %2).</translation>
    </message>
    <message>
        <source>The song file is damaged: &quot;version&quot; is missing.</source>
        <translation>Die Songdatei ist beschädigt: „version“ fehlt.</translation>
    </message>
    <message>
        <source>The song file is damaged. %1</source>
        <translation>Die Songdatei ist beschädigt. %1</translation>
    </message>
    <message>
        <source>Part %1, %2.</source>
        <translation>Stimme %1, %2.</translation>
    </message>
    <message>
        <source>The song has more than %1 parts.</source>
        <translation>Der Song hat mehr als %1 Stimmen.</translation>
    </message>
    <message>
        <source>A part has no id.</source>
        <translation>Eine Stimme hat keine Kennung.</translation>
    </message>
    <message>
        <source>Two parts have the id &quot;%1&quot;.</source>
        <translation>Zwei Stimmen haben die Kennung „%1“.</translation>
    </message>
    <message>
        <source>The song file is larger than 256 MB.</source>
        <translation>Die Songdatei ist größer als 256 MB.</translation>
    </message>
</context>
<context>
    <name>SongFindings</name>
    <message>
        <source>Will the Game Play It?</source>
        <translation>Spielt das Spiel es?</translation>
    </message>
    <message>
        <source>Show what the game would not play as it is meant</source>
        <translation>Zeigen, was das Spiel anders spielen würde, als es gemeint ist</translation>
    </message>
</context>
<context>
    <name>SongJournal</name>
    <message>
        <source>The journal is too large.</source>
        <translation>Das Journal ist zu groß.</translation>
    </message>
    <message>
        <source>Another program has the song open.</source>
        <translation>Ein anderes Programm hat den Song geöffnet.</translation>
    </message>
    <message>
        <source>The beginning of the journal is damaged.</source>
        <translation>Der Anfang des Journals ist beschädigt.</translation>
    </message>
    <message>
        <source>The journal was written by a newer version of this program.</source>
        <translation>Das Journal wurde mit einer neueren Version dieses Programms geschrieben.</translation>
    </message>
    <message>
        <source>This is not a journal.</source>
        <translation>Das ist kein Journal.</translation>
    </message>
    <message>
        <source>Could not lock %1.</source>
        <translation>%1 ließ sich nicht sperren.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Es ist nicht genug Arbeitsspeicher da.</translation>
    </message>
    <message>
        <source>A record holds nothing.</source>
        <translation>Ein Eintrag ist leer.</translation>
    </message>
    <message>
        <source>A change does not belong to its song.</source>
        <translation>Eine Änderung gehört nicht zu ihrem Song.</translation>
    </message>
</context>
<context>
    <name>SongReader</name>
    <message>
        <source>Part &quot;%1&quot;: %2</source>
        <translation>Stimme „%1“: %2</translation>
    </message>
    <message>
        <source>Error while reading MIDI file</source>
        <translation>Fehler beim Lesen der MIDI-Datei</translation>
    </message>
    <message>
        <source>Error while reading ABC file</source>
        <translation>Fehler beim Lesen der ABC-Datei</translation>
    </message>
    <message>
        <source>Error while reading song file</source>
        <translation>Fehler beim Lesen der Songdatei</translation>
    </message>
    <message>
        <source>Import from clipboard</source>
        <translation>Aus der Zwischenablage importieren</translation>
    </message>
    <message>
        <source>Not a regular file.</source>
        <translation>Keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>Could not open file: %1.</source>
        <translation>Die Datei ließ sich nicht öffnen: %1.</translation>
    </message>
    <message>
        <source>%1 more tunes could not be read.</source>
        <translation>%1 weitere Stücke ließen sich nicht lesen.</translation>
    </message>
    <message>
        <source>Not enough memory to read %1.</source>
        <translation>Nicht genug Arbeitsspeicher, um %1 zu lesen.</translation>
    </message>
    <message>
        <source>Not enough memory to read the text.</source>
        <translation>Nicht genug Arbeitsspeicher, um den Text zu lesen.</translation>
    </message>
    <message>
        <source>Unknown file type.</source>
        <translation>Unbekannter Dateityp.</translation>
    </message>
    <message>
        <source>read as standard ABC</source>
        <translation>als Standard-ABC gelesen</translation>
    </message>
    <message>
        <source> for its %1</source>
        <translation> wegen: %1</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
    <message>
        <source>Tune %1: %2</source>
        <translation>Stück %1: %2</translation>
    </message>
    <message>
        <source>Tune %1, which begins in line %2: %3</source>
        <translation>Stück %1, das in Zeile %2 beginnt: %3</translation>
    </message>
    <message>
        <source>There are no notes in it.</source>
        <translation>Es sind keine Noten darin.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Die Datei ist zu groß.</translation>
    </message>
</context>
<context>
    <name>SongRecovery</name>
    <message>
        <source>Recover Songs</source>
        <translation>Songs wiederherstellen</translation>
    </message>
    <message>
        <source>There is no song to recover.</source>
        <translation>Es gibt keinen Song wiederherzustellen.</translation>
    </message>
    <message numerus="yes">
        <source>%n song(s) will be gone for good.
Would you like to delete them?</source>
        <translation>
            <numerusform>%n Song wird endgültig weg sein.
Möchten Sie ihn löschen?</numerusform>
            <numerusform>%n Songs werden endgültig weg sein.
Möchten Sie sie löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Recover...</source>
        <translation>Wiederherstellen...</translation>
    </message>
    <message>
        <source>Bring back a song that was not saved or was discarded</source>
        <translation>Einen Song zurückholen, der nicht gespeichert oder verworfen wurde</translation>
    </message>
</context>
<context>
    <name>SongSaving</name>
    <message>
        <source>Save Song As</source>
        <translation>Song speichern unter</translation>
    </message>
    <message>
        <source>Songs (*.kvsong)</source>
        <translation>Songs (*.kvsong)</translation>
    </message>
    <message>
        <source>Would you like to overwrite it?</source>
        <translation>Möchten Sie sie überschreiben?</translation>
    </message>
    <message>
        <source>Could not save the song.
%1: %2</source>
        <translation>Der Song ließ sich nicht speichern.
%1: %2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; may hold another version of this song.</source>
        <translation>„%1“ enthält vielleicht eine andere Fassung dieses Songs.</translation>
    </message>
    <message>
        <source>None of the parts that &apos;%1&apos; holds is in this song any more.</source>
        <translation>Keine der Stimmen, die „%1“ enthält, ist noch in diesem Song.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; was changed by another program.</source>
        <translation>„%1“ wurde von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is read-only.</source>
        <translation>„%1“ ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; belongs to another user.</source>
        <translation>„%1“ gehört einem anderen Benutzer.</translation>
    </message>
</context>
<context>
    <name>SongSession</name>
    <message>
        <source>Change Song Title</source>
        <translation>Songtitel ändern</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
</context>
<context>
    <name>SongTools</name>
    <message>
        <source>Arrange for Players</source>
        <translation>Für Spieler arrangieren</translation>
    </message>
    <message>
        <source>All parts are muted.</source>
        <translation>Alle Stimmen sind stumm.</translation>
    </message>
    <message>
        <source>The song was changed meanwhile.</source>
        <translation>Der Song wurde inzwischen geändert.</translation>
    </message>
    <message numerus="yes">
        <source>Arrange for %n Player(s)</source>
        <translation>
            <numerusform>Für %n Spieler arrangieren</numerusform>
            <numerusform>Für %n Spieler arrangieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Transpose Song</source>
        <translation>Song transponieren</translation>
    </message>
    <message>
        <source>One Tempo for All</source>
        <translation>Ein Tempo für alle</translation>
    </message>
    <message>
        <source>All parts have that tempo already.</source>
        <translation>Alle Stimmen haben dieses Tempo schon.</translation>
    </message>
    <message>
        <source>Trim Silence</source>
        <translation>Stille abschneiden</translation>
    </message>
    <message>
        <source>There is no silence before the first note of the song, nor behind its last.</source>
        <translation>Vor der ersten Note des Songs ist keine Stille, und hinter der letzten auch nicht.</translation>
    </message>
    <message>
        <source>Pad to One Length</source>
        <translation>Auf eine Länge bringen</translation>
    </message>
    <message>
        <source>All parts have one length already.</source>
        <translation>Alle Stimmen sind schon gleich lang.</translation>
    </message>
    <message>
        <source>Arrange for Players...</source>
        <translation>Für Spieler arrangieren...</translation>
    </message>
    <message>
        <source>Fit the parts that are not muted to a number of players</source>
        <translation>Die nicht stummen Stimmen auf eine Zahl von Spielern verteilen</translation>
    </message>
    <message>
        <source>Transpose Song...</source>
        <translation>Song transponieren...</translation>
    </message>
    <message>
        <source>Transpose all parts and their keys</source>
        <translation>Alle Stimmen und ihre Tonarten transponieren</translation>
    </message>
    <message>
        <source>One Tempo for All...</source>
        <translation>Ein Tempo für alle...</translation>
    </message>
    <message>
        <source>Give all parts the tempo of one of them</source>
        <translation>Allen Stimmen das Tempo von einer geben</translation>
    </message>
    <message>
        <source>Remove the silence before the first note of all parts and behind the last</source>
        <translation>Die Stille vor der ersten Note aller Stimmen und hinter der letzten entfernen</translation>
    </message>
    <message>
        <source>Let all parts end with the longest, with rests</source>
        <translation>Alle Stimmen mit der längsten enden lassen, durch Pausen</translation>
    </message>
</context>
<context>
    <name>SongTransposeDialog</name>
    <message>
        <source>Move &amp;drums, too</source>
        <translation>Auch &amp;Schlagzeug versetzen</translation>
    </message>
    <message>
        <source> semitone(s)</source>
        <translation> Halbton(töne)</translation>
    </message>
    <message>
        <source>12 semitones are an octave; a number below 0 moves the notes down</source>
        <translation>12 Halbtöne sind eine Oktave; eine Zahl unter 0 setzt die Noten tiefer</translation>
    </message>
    <message>
        <source>move back by octaves</source>
        <translation>um Oktaven zurückversetzen</translation>
    </message>
    <message>
        <source>are removed</source>
        <translation>werden entfernt</translation>
    </message>
    <message>
        <source>The notes of drums are different drums, not pitches</source>
        <translation>Die Noten des Schlagzeugs sind verschiedene Trommeln, keine Tonhöhen</translation>
    </message>
    <message>
        <source>&amp;Transpose all parts and their keys by</source>
        <translation>Alle Stimmen und ihre Tonarten &amp;transponieren um</translation>
    </message>
    <message>
        <source>Notes that leave the &amp;range</source>
        <translation>Noten, die den &amp;Umfang verlassen</translation>
    </message>
    <message>
        <source>Transpose Song</source>
        <translation>Song transponieren</translation>
    </message>
    <message>
        <source>All notes stay within the range.</source>
        <translation>Alle Noten bleiben im Umfang.</translation>
    </message>
    <message>
        <source>%1 notes leave the range.</source>
        <translation>%1 Noten verlassen den Umfang.</translation>
    </message>
</context>
<context>
    <name>SoundFormat</name>
    <message>
        <source>WAV, 16 bit</source>
        <translation>WAV, 16 Bit</translation>
    </message>
    <message>
        <source>WAV, 24 bit</source>
        <translation>WAV, 24 Bit</translation>
    </message>
    <message>
        <source>WAV, 32 bit float</source>
        <translation>WAV, 32 Bit Gleitkomma</translation>
    </message>
    <message>
        <source>FLAC, 16 bit</source>
        <translation>FLAC, 16 Bit</translation>
    </message>
    <message>
        <source>FLAC, 24 bit</source>
        <translation>FLAC, 24 Bit</translation>
    </message>
</context>
<context>
    <name>SoundPage</name>
    <message>
        <source>%1 samples (%2 ms)</source>
        <translation>%1 Abtastwerte (%2 ms)</translation>
    </message>
    <message>
        <source>Sound Device</source>
        <translation>Audiogerät</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>Gerät:</translation>
    </message>
    <message>
        <source>Block size:</source>
        <translation>Blockgröße:</translation>
    </message>
    <message>
        <source>Latency:</source>
        <translation>Latenz:</translation>
    </message>
    <message>
        <source>How long the device&apos;s block lasts</source>
        <translation>Wie lange der Block des Geräts dauert</translation>
    </message>
    <message>
        <source>Dropouts:</source>
        <translation>Aussetzer:</translation>
    </message>
    <message>
        <source>How often the device ran dry since the program&apos;s start: gaps that can be heard</source>
        <translation>Wie oft dem Gerät seit dem Programmstart der Klang ausging: hörbare Lücken</translation>
    </message>
    <message>
        <source>Where the tracks are heard</source>
        <translation>Wo die Spuren zu hören sind</translation>
    </message>
    <message>
        <source>Small blocks answer a keyboard sooner; large ones have no gaps beside a busy program</source>
        <translation>Kleine Blöcke antworten einem Keyboard schneller; große haben keine Lücken neben einem beschäftigten Programm</translation>
    </message>
    <message>
        <source>Automatic (grows after a dropout)</source>
        <translation>Automatisch (wächst nach einem Aussetzer)</translation>
    </message>
    <message>
        <source>System default</source>
        <translation>Standard des Systems</translation>
    </message>
    <message>
        <source>%1 (not found)</source>
        <translation>%1 (nicht gefunden)</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>no device is open</source>
        <translation>kein Gerät ist geöffnet</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not there, so the system default is heard.</source>
        <translation>„%1“ ist nicht da, daher ist der Standard des Systems zu hören.</translation>
    </message>
</context>
<context>
    <name>SourceListening</name>
    <message>
        <source>No part is one of the source any more.</source>
        <translation>Keine Stimme stammt mehr aus der Quelle.</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Hear the song as its source has it, instead of as the game will play it</source>
        <translation>Den Song hören, wie seine Quelle ihn hat, statt wie das Spiel ihn spielen wird</translation>
    </message>
</context>
<context>
    <name>SpokenPosition</name>
    <message>
        <source>Measure %1, beat %2</source>
        <translation>Takt %1, Schlag %2</translation>
    </message>
</context>
<context>
    <name>SpokenWidget</name>
    <message>
        <source>nothing chosen</source>
        <translation>nichts gewählt</translation>
    </message>
</context>
<context>
    <name>StandardAbc</name>
    <message>
        <source>Too many parts.</source>
        <translation>Zu viele Stimmen.</translation>
    </message>
    <message>
        <source>The tune is too long.</source>
        <translation>Das Stück ist zu lang.</translation>
    </message>
    <message>
        <source>Too many tunes.</source>
        <translation>Zu viele Stücke.</translation>
    </message>
    <message>
        <source>The tune uses the macro &quot;%1&quot; (m:), which cannot be read.</source>
        <translation>Das Stück verwendet das Makro „%1“ (m:), das sich nicht lesen lässt.</translation>
    </message>
    <message>
        <source>Too many voices.</source>
        <translation>Zu viele Stimmen.</translation>
    </message>
</context>
<context>
    <name>StatusIndicators</name>
    <message>
        <source>The sound device ran dry: close what is busy, or choose a larger block under Tools, Preferences, Sound</source>
        <translation>Dem Audiogerät ging der Klang aus: Schließen Sie, was beschäftigt ist, oder wählen Sie einen größeren Block unter Extras, Einstellungen, Klang</translation>
    </message>
    <message>
        <source>Saving %1...</source>
        <translation>%1 wird gespeichert...</translation>
    </message>
    <message numerus="yes">
        <source>%n part(s)</source>
        <translation>
            <numerusform>%n Stimme</numerusform>
            <numerusform>%n Stimmen</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Looking for instruments...</source>
        <translation>Instrumente werden gesucht...</translation>
    </message>
    <message>
        <source>Loading samples, track %1 of %2...</source>
        <translation>Samples werden geladen, Spur %1 von %2...</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not there: the default device</source>
        <translation>„%1“ ist nicht da: Standardgerät</translation>
    </message>
    <message>
        <source>Sound dropouts: %1</source>
        <translation>Aussetzer im Klang: %1</translation>
    </message>
    <message>
        <source>Recording...</source>
        <translation>Aufnahme...</translation>
    </message>
    <message>
        <source>A crash would lose your work: %1</source>
        <translation>Bei einem Absturz ginge Ihre Arbeit verloren: %1</translation>
    </message>
    <message>
        <source>Loading sample %1...</source>
        <translation>Sample %1 wird geladen...</translation>
    </message>
</context>
<context>
    <name>StepEntry</name>
    <message>
        <source>Enter Notes from the MIDI &amp;Keyboard</source>
        <translation>Noten vom &amp;MIDI-Keyboard eingeben</translation>
    </message>
    <message>
        <source>Write what you play at the caret, note by note; keys that are down together are a chord</source>
        <translation>Am Cursor schreiben, was Sie spielen, Note für Note; Tasten, die zugleich unten sind, sind ein Akkord</translation>
    </message>
    <message>
        <source>Enter Notes</source>
        <translation>Noten eingeben</translation>
    </message>
</context>
<context>
    <name>TimeRuler</name>
    <message>
        <source>Click or drag to set the position, drag in the upper half to set a loop (with Alt: between the beats)</source>
        <translation>Klicken oder Ziehen setzt die Position, Ziehen in der oberen Hälfte eine Schleife (mit Alt: zwischen den Schlägen)</translation>
    </message>
    <message>
        <source>Measures</source>
        <translation>Takte</translation>
    </message>
    <message>
        <source>%1; loop: %2 to %3</source>
        <comment>all are positions</comment>
        <translation>%1; Schleife: %2 bis %3</translation>
    </message>
</context>
<context>
    <name>TrackCommands</name>
    <message>
        <source>New Track</source>
        <translation>Neue Spur</translation>
    </message>
    <message>
        <source>Remove All Tracks</source>
        <translation>Alle Spuren entfernen</translation>
    </message>
    <message>
        <source>Remove Tracks</source>
        <translation>Spuren entfernen</translation>
    </message>
    <message>
        <source>Merge Tracks</source>
        <translation>Spuren zusammenführen</translation>
    </message>
    <message>
        <source>Clean Quantise</source>
        <translation>Sauber quantisieren</translation>
    </message>
    <message numerus="yes">
        <source>%n note(s) would leave the range and be removed.
Move them back into the range by octaves instead?</source>
        <translation>
            <numerusform>%n Note verließe den Umfang und würde entfernt.
Stattdessen um Oktaven in den Umfang zurückversetzen?</numerusform>
            <numerusform>%n Noten verließen den Umfang und würden entfernt.
Stattdessen um Oktaven in den Umfang zurückversetzen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Transpose Track</source>
        <translation>Spur transponieren</translation>
    </message>
    <message>
        <source>Create a new track</source>
        <translation>Eine neue Spur anlegen</translation>
    </message>
    <message>
        <source>Remove all tracks</source>
        <translation>Alle Spuren entfernen</translation>
    </message>
    <message>
        <source>Merge Selected</source>
        <translation>Auswahl zusammenführen</translation>
    </message>
    <message>
        <source>Merges the selected tracks together</source>
        <translation>Führt die ausgewählten Spuren zusammen</translation>
    </message>
    <message>
        <source>Write the selected tracks as a musician would, on the grid of each measure</source>
        <translation>Die ausgewählten Spuren schreiben, wie ein Musiker es täte, auf dem Raster jedes Takts</translation>
    </message>
    <message>
        <source>Remove Selected</source>
        <translation>Auswahl entfernen</translation>
    </message>
    <message>
        <source>Remove the selected tracks</source>
        <translation>Die ausgewählten Spuren entfernen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Deselect All</source>
        <translation>Keine auswählen</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>Auswahl umkehren</translation>
    </message>
    <message>
        <source>Duplicate Selected</source>
        <translation>Auswahl duplizieren</translation>
    </message>
    <message>
        <source>Duplicate the selected tracks</source>
        <translation>Die ausgewählten Spuren duplizieren</translation>
    </message>
    <message>
        <source>(Un)mute Selected</source>
        <translation>Auswahl stumm/laut</translation>
    </message>
    <message>
        <source>(Un)mute the selected tracks</source>
        <translation>Die ausgewählten Spuren stumm- oder lautschalten</translation>
    </message>
    <message>
        <source>Could not merge tracks: %1</source>
        <translation>Die Spuren ließen sich nicht zusammenführen: %1</translation>
    </message>
    <message>
        <source>Next Track</source>
        <translation>Nächste Spur</translation>
    </message>
    <message>
        <source>Go to the track below, at the same control</source>
        <translation>Zur Spur darunter gehen, zum selben Bedienelement</translation>
    </message>
    <message>
        <source>Previous Track</source>
        <translation>Vorige Spur</translation>
    </message>
    <message>
        <source>Go to the track above, at the same control</source>
        <translation>Zur Spur darüber gehen, zum selben Bedienelement</translation>
    </message>
    <message>
        <source>Rename Track...</source>
        <translation>Spur umbenennen...</translation>
    </message>
    <message>
        <source>Change the title of the track that has the keys</source>
        <translation>Den Titel der Spur ändern, die den Fokus hat</translation>
    </message>
    <message>
        <source>Open ABC Editor</source>
        <translation>ABC-Editor öffnen</translation>
    </message>
    <message>
        <source>Edit the track that has the keys</source>
        <translation>Die Spur bearbeiten, die den Fokus hat</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
    <message>
        <source>Hear only the track that has the keys, or all that are selected with it</source>
        <translation>Nur die Spur hören, die den Fokus hat, oder alle, die mit ihr ausgewählt sind</translation>
    </message>
    <message>
        <source>Move Track Up</source>
        <translation>Spur nach oben</translation>
    </message>
    <message>
        <source>Move the track that has the keys up</source>
        <translation>Die Spur, die den Fokus hat, nach oben bewegen</translation>
    </message>
    <message>
        <source>Move Track Down</source>
        <translation>Spur nach unten</translation>
    </message>
    <message>
        <source>Move the track that has the keys down</source>
        <translation>Die Spur, die den Fokus hat, nach unten bewegen</translation>
    </message>
    <message>
        <source>Describe Track</source>
        <translation>Spur beschreiben</translation>
    </message>
    <message>
        <source>Tell instrument, volume, mute and level of the track that has the keys</source>
        <translation>Instrument, Lautstärke, Stummschaltung und Pegel der Spur sagen, die den Fokus hat</translation>
    </message>
</context>
<context>
    <name>TrackList</name>
    <message>
        <source>Duplicate Tracks</source>
        <translation>Spuren duplizieren</translation>
    </message>
    <message>
        <source>Move Track</source>
        <translation>Spur verschieben</translation>
    </message>
    <message>
        <source>Change Instrument</source>
        <translation>Instrument ändern</translation>
    </message>
    <message>
        <source>Change Volume</source>
        <translation>Lautstärke ändern</translation>
    </message>
    <message>
        <source>Change Pan</source>
        <translation>Panorama ändern</translation>
    </message>
    <message>
        <source>Change Start Offset</source>
        <translation>Startversatz ändern</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stummschalten</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Lautschalten</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
</context>
<context>
    <name>TrackWidget</name>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>Track Title</source>
        <translation>Spurtitel</translation>
    </message>
    <message>
        <source>%1; the track differs from its file</source>
        <translation>%1; die Spur weicht von ihrer Datei ab</translation>
    </message>
    <message>
        <source>differs from its file</source>
        <translation>weicht von ihrer Datei ab</translation>
    </message>
    <message>
        <source>Instrument for this track</source>
        <translation>Instrument für diese Spur</translation>
    </message>
    <message>
        <source>There is no instrument &apos;%1&apos;; nothing sounds</source>
        <translation>Es gibt kein Instrument „%1“; nichts klingt</translation>
    </message>
    <message>
        <source>There is no instrument &apos;%1&apos;; &apos;%2&apos; sounds instead</source>
        <translation>Es gibt kein Instrument „%1“; stattdessen klingt „%2“</translation>
    </message>
    <message>
        <source>%1 (missing)</source>
        <translation>%1 (fehlt)</translation>
    </message>
    <message>
        <source>Rename Track</source>
        <translation>Spur umbenennen</translation>
    </message>
    <message>
        <source>New track title:</source>
        <translation>Neuer Titel der Spur:</translation>
    </message>
    <message>
        <source>Edit Track</source>
        <translation>Spur bearbeiten</translation>
    </message>
    <message>
        <source>Start Offset</source>
        <translation>Startversatz</translation>
    </message>
    <message>
        <source>Milliseconds by which the part sounds later than it is written (below 0: sooner):</source>
        <translation>Millisekunden, um die die Stimme später klingt, als sie geschrieben ist (unter 0: früher):</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>Open ABC Editor</source>
        <translation>ABC-Editor öffnen</translation>
    </message>
    <message>
        <source>(Un)mute</source>
        <translation>Stumm/laut</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
    <message>
        <source>Start Offset...</source>
        <translation>Startversatz...</translation>
    </message>
    <message>
        <source>Quick Transpose</source>
        <translation>Schnell transponieren</translation>
    </message>
    <message>
        <source>Transpose one octave up</source>
        <translation>Eine Oktave höher</translation>
    </message>
    <message>
        <source>Transpose one octave down</source>
        <translation>Eine Oktave tiefer</translation>
    </message>
    <message>
        <source>Drag to move the track</source>
        <translation>Ziehen, um die Spur zu verschieben</translation>
    </message>
    <message>
        <source>Drag to move the track up or down the list</source>
        <translation>Ziehen, um die Spur in der Liste höher oder tiefer zu setzen</translation>
    </message>
    <message>
        <source>Select track</source>
        <translation>Spur auswählen</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>The editor holds text of this track that is not applied</source>
        <translation>Der Editor hat Text dieser Spur, der nicht übernommen ist</translation>
    </message>
    <message>
        <source>Start offset: by how much this part sounds later than it is written, or sooner</source>
        <translation>Startversatz: um wie viel diese Stimme später klingt, als sie geschrieben ist, oder früher</translation>
    </message>
    <message>
        <source>Start offset</source>
        <translation>Startversatz</translation>
    </message>
    <message>
        <source>Show what the game would not play as it is meant</source>
        <translation>Zeigen, was das Spiel anders spielen würde, als es gemeint ist</translation>
    </message>
    <message>
        <source>Click or drag to set the position</source>
        <translation>Klicken oder Ziehen setzt die Position</translation>
    </message>
    <message>
        <source>Notes of this track and the playing position</source>
        <translation>Noten dieser Spur und die spielende Stelle</translation>
    </message>
    <message>
        <source>Playback Volume</source>
        <translation>Wiedergabelautstärke</translation>
    </message>
    <message>
        <source>The playback volume for this track</source>
        <translation>Die Wiedergabelautstärke dieser Spur</translation>
    </message>
    <message>
        <source>Playback Pan</source>
        <translation>Wiedergabepanorama</translation>
    </message>
    <message>
        <source>The playback pan position for this track</source>
        <translation>Die Panoramaposition dieser Spur bei der Wiedergabe</translation>
    </message>
    <message>
        <source>(Un)mute track</source>
        <translation>Spur stumm- oder lautschalten</translation>
    </message>
    <message>
        <source>Solo: hear only this track, or all that are ticked with it</source>
        <translation>Solo: nur diese Spur hören, oder alle, die mit ihr angekreuzt sind</translation>
    </message>
    <message>
        <source>Edit track</source>
        <translation>Spur bearbeiten</translation>
    </message>
    <message>
        <source>Delete track</source>
        <translation>Spur löschen</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move track up</source>
        <translation>Spur nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Move track down</source>
        <translation>Spur nach unten</translation>
    </message>
    <message>
        <source>Level of this track; red at its end: it was too loud (click to put it out)</source>
        <translation>Pegel dieser Spur; rot am Ende: Es war zu laut (Klick löscht es)</translation>
    </message>
    <message>
        <source>Level of this track</source>
        <translation>Pegel dieser Spur</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>C</source>
        <comment>in the middle</comment>
        <translation>M</translation>
    </message>
    <message>
        <source>L %1</source>
        <comment>left</comment>
        <translation>L %1</translation>
    </message>
    <message>
        <source>R %1</source>
        <comment>right</comment>
        <translation>R %1</translation>
    </message>
    <message>
        <source>no instrument</source>
        <translation>kein Instrument</translation>
    </message>
    <message>
        <source>volume %1</source>
        <translation>Lautstärke %1</translation>
    </message>
    <message>
        <source>pan %1</source>
        <translation>Panorama %1</translation>
    </message>
    <message>
        <source>muted</source>
        <translation>stumm</translation>
    </message>
    <message>
        <source>not muted</source>
        <translation>nicht stumm</translation>
    </message>
    <message>
        <source>solo</source>
        <translation>solo</translation>
    </message>
    <message>
        <source>selected</source>
        <translation>ausgewählt</translation>
    </message>
    <message>
        <source>level %1</source>
        <translation>Pegel %1</translation>
    </message>
    <message>
        <source>start offset %1</source>
        <translation>Startversatz %1</translation>
    </message>
    <message>
        <source>Copy as File</source>
        <translation>Als Datei kopieren</translation>
    </message>
</context>
<context>
    <name>TransportCommands</name>
    <message>
        <source>No instruments were found, so that nothing can be heard.
Please choose the game&apos;s folder under Tools, Preferences.</source>
        <translation>Es wurden keine Instrumente gefunden, daher ist nichts zu hören.
Bitte wählen Sie den Ordner des Spiels unter Extras, Einstellungen.</translation>
    </message>
    <message>
        <source>None of the tracks&apos; instruments has samples, so that nothing can be heard.
Please choose others.</source>
        <translation>Keines der Instrumente der Spuren hat Samples, daher ist nichts zu hören.
Bitte wählen Sie andere.</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Preview current tracks.</source>
        <translation>Die Spuren anhören.</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Abspielen oder Pause</translation>
    </message>
    <message>
        <source>Play from the position, or pause there</source>
        <translation>Ab der Position abspielen, oder dort pausieren</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop preview.</source>
        <translation>Wiedergabe anhalten.</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Play, and write down what is played on the MIDI keyboard in the selected part</source>
        <translation>Abspielen und in der ausgewählten Stimme notieren, was auf dem MIDI-Keyboard gespielt wird</translation>
    </message>
    <message>
        <source>Go to Start</source>
        <translation>Zum Anfang</translation>
    </message>
    <message>
        <source>Set the position to the start of the song</source>
        <translation>Die Position an den Anfang des Songs setzen</translation>
    </message>
    <message>
        <source>Go to End</source>
        <translation>Zum Ende</translation>
    </message>
    <message>
        <source>Set the position to the end of the song</source>
        <translation>Die Position ans Ende des Songs setzen</translation>
    </message>
    <message>
        <source>Measure Back</source>
        <translation>Takt zurück</translation>
    </message>
    <message>
        <source>Set the position to the measure before</source>
        <translation>Die Position in den vorigen Takt setzen</translation>
    </message>
    <message>
        <source>Measure Forward</source>
        <translation>Takt vor</translation>
    </message>
    <message>
        <source>Set the position to the next measure</source>
        <translation>Die Position in den nächsten Takt setzen</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Play a part of the song again and again (drag in the upper half of the ruler)</source>
        <translation>Einen Teil des Songs immer wieder abspielen (in der oberen Hälfte des Lineals ziehen)</translation>
    </message>
    <message>
        <source>Begin Loop Here</source>
        <translation>Schleife hier beginnen</translation>
    </message>
    <message>
        <source>Let the loop begin at the position</source>
        <translation>Die Schleife an der Position beginnen lassen</translation>
    </message>
    <message>
        <source>End Loop Here</source>
        <translation>Schleife hier beenden</translation>
    </message>
    <message>
        <source>Let the loop end at the position</source>
        <translation>Die Schleife an der Position enden lassen</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Show more of the song (Ctrl+wheel)</source>
        <translation>Mehr vom Song zeigen (Strg+Mausrad)</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Show less of the song, and that wider (Ctrl+wheel)</source>
        <translation>Weniger vom Song zeigen, und das breiter (Strg+Mausrad)</translation>
    </message>
    <message>
        <source>Whole Song</source>
        <translation>Ganzer Song</translation>
    </message>
    <message>
        <source>Show the song from its start to its end</source>
        <translation>Den Song von Anfang bis Ende zeigen</translation>
    </message>
    <message>
        <source>Follow Playback</source>
        <translation>Wiedergabe folgen</translation>
    </message>
    <message>
        <source>Keep what sounds in view</source>
        <translation>Was klingt, im Blick behalten</translation>
    </message>
    <message>
        <source>Put Out Red Lights</source>
        <translation>Rote Lichter löschen</translation>
    </message>
    <message>
        <source>Forget which levels were too loud</source>
        <translation>Vergessen, welche Pegel zu hoch waren</translation>
    </message>
</context>
<context>
    <name>TransposeDialog</name>
    <message>
        <source>Transpose all notes</source>
        <translation>Alle Noten transponieren</translation>
    </message>
    <message>
        <source>semitone(s)</source>
        <translation>Halbton(töne)</translation>
    </message>
    <message>
        <source>12 semitones are an octave; a number below 0 moves the notes down</source>
        <translation>12 Halbtöne sind eine Oktave; eine Zahl unter 0 setzt die Noten tiefer</translation>
    </message>
    <message>
        <source>Notes that fall outside of the valid octave range after transposing will be removed!</source>
        <translation>Noten, die nach dem Transponieren außerhalb des gültigen Umfangs liegen, werden entfernt!</translation>
    </message>
    <message>
        <source>Transpose</source>
        <translation>Transponieren</translation>
    </message>
</context>
<context>
    <name>TuneChooser</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find tunes by a part of their names</source>
        <translation>Stücke über einen Teil ihres Namens finden</translation>
    </message>
    <message>
        <source>Choose Tunes</source>
        <translation>Stücke wählen</translation>
    </message>
    <message>
        <source>Tunes</source>
        <translation>Stücke</translation>
    </message>
    <message>
        <source>Ticked tunes are opened, a track for each of their voices</source>
        <translation>Angekreuzte Stücke werden geöffnet, eine Spur für jede ihrer Stimmen</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Alle</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>%1 has several tunes. Which are to be opened?</source>
        <translation>%1 hat mehrere Stücke. Welche sollen geöffnet werden?</translation>
    </message>
</context>
<context>
    <name>UnitLengthDialog</name>
    <message>
        <source>Use custom length</source>
        <translation>Eigene Länge verwenden</translation>
    </message>
    <message>
        <source>Numerator</source>
        <translation>Zähler</translation>
    </message>
    <message>
        <source>Denominator</source>
        <translation>Nenner</translation>
    </message>
    <message>
        <source>Auto-detect ideal unit length</source>
        <translation>Beste Grundnotenlänge automatisch bestimmen</translation>
    </message>
    <message>
        <source>Change unit length to</source>
        <translation>Grundnotenlänge ändern auf</translation>
    </message>
    <message>
        <source>Any fraction of a whole note</source>
        <translation>Ein beliebiger Bruchteil einer ganzen Note</translation>
    </message>
    <message>
        <source>The unit length that makes the text shortest</source>
        <translation>Die Grundnotenlänge, die den Text am kürzesten macht</translation>
    </message>
    <message>
        <source>Change Unit Length</source>
        <translation>Grundnotenlänge ändern</translation>
    </message>
</context>
<context>
    <name>UpdateChecker</name>
    <message>
        <source>Could not read update information</source>
        <translation>Die Angaben zum Update ließen sich nicht lesen</translation>
    </message>
</context>
<context>
    <name>VUMeter</name>
    <message>
        <source>%L1 dB</source>
        <translation>%L1 dB</translation>
    </message>
    <message>
        <source>silent</source>
        <translation>still</translation>
    </message>
    <message>
        <source>%1, it was too loud</source>
        <comment>a level</comment>
        <translation>%1, war zu laut</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A fatal error occured:
%1</source>
        <translation>Ein schwerer Fehler ist aufgetreten:
%1</translation>
    </message>
    <message>
        <source>An unknown fatal error ocurred</source>
        <translation>Ein unbekannter schwerer Fehler ist aufgetreten</translation>
    </message>
</context>
</TS>
