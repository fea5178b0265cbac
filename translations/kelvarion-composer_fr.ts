<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AbcEditorWindow</name>
    <message>
        <source>&amp;Tune</source>
        <translation>&amp;Air</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>&amp;Notes</translation>
    </message>
    <message>
        <source>Sn&amp;ap</source>
        <translation>&amp;Magnétisme</translation>
    </message>
    <message>
        <source>T&amp;ransform</source>
        <translation>&amp;Transformer</translation>
    </message>
    <message>
        <source>&amp;Clean Up</source>
        <translation>Netto&amp;yer</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Lecture</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Affic&amp;hage</translation>
    </message>
    <message>
        <source>&amp;Ghost Notes</source>
        <translation>Notes &amp;fantômes</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>Playback tempo</source>
        <translation>Tempo de lecture</translation>
    </message>
    <message>
        <source>How fast the preview plays; the tune keeps its tempo (F9 slower, F11 faster)</source>
        <translation>La vitesse de la préécoute&#xa0;; l’air garde son tempo (F9 plus lent, F11 plus rapide)</translation>
    </message>
    <message>
        <source>There is nothing at the caret that has one right fix.</source>
        <translation>Il n’y a rien au curseur qui ait une seule bonne correction.</translation>
    </message>
    <message>
        <source>The changes are applied.</source>
        <translation>Les modifications sont appliquées.</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Annuler&#xa0;: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>%1[*] – ABC Editor</source>
        <translation>%1[*] – Éditeur ABC</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>The text has errors: it is a draft, and the part stays as it was applied last.</source>
        <translation>Le texte contient des erreurs&#xa0;: c’est un brouillon, et la partie reste telle qu’elle a été appliquée en dernier.</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Go to Line</source>
        <translation>Aller à la ligne</translation>
    </message>
    <message>
        <source>Line, 1 to %1:</source>
        <translation>Ligne, de 1 à %1&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Enter</source>
        <translation>Saisie par touc&amp;hes</translation>
    </message>
    <message>
        <source>Len&amp;gth of New Notes</source>
        <translation>Durée des nou&amp;velles notes</translation>
    </message>
    <message>
        <source>How long new notes of the piano roll are (keys 1 to 7; . dots, T makes triplets)</source>
        <translation>La durée des nouvelles notes du piano roll (touches 1 à 7&#xa0;; . pointe, T fait des triolets)</translation>
    </message>
    <message>
        <source>What notes of the piano roll snap to (keys [ and ])</source>
        <translation>Ce sur quoi s’aimantent les notes du piano roll (touches [ et ])</translation>
    </message>
    <message>
        <source>Length of new notes: %1</source>
        <translation>Durée des nouvelles notes&#xa0;: %1</translation>
    </message>
    <message>
        <source>Grid: %1</source>
        <translation>Grille&#xa0;: %1</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>Grid and &amp;Zoom of the Roll</source>
        <translation>Grille et &amp;zoom du piano roll</translation>
    </message>
</context>
<context>
    <name>AbcParser</name>
    <message>
        <source>Unexpected token found in chord at line %1, column %2.</source>
        <translation>Signe inattendu dans l’accord à la ligne %1, colonne %2.</translation>
    </message>
    <message>
        <source>Unexpected token found in ABC header: line %1, column %2.</source>
        <translation>Signe inattendu dans l’en-tête ABC&#xa0;: ligne %1, colonne %2.</translation>
    </message>
    <message>
        <source>Empty chord</source>
        <translation>Accord vide</translation>
    </message>
    <message>
        <source>Unknown token found in ABC body at line %1, column %2.</source>
        <translation>Signe inconnu dans la musique ABC à la ligne %1, colonne %2.</translation>
    </message>
</context>
<context>
    <name>AbcReading</name>
    <message>
        <source>Unexpected text in the header; the music begins behind the K: line</source>
        <translation>Texte inattendu dans l’en-tête&#xa0;; la musique ne commence qu’après la ligne K: de la tonalité</translation>
    </message>
    <message>
        <source>The sign %1 has no second one behind it</source>
        <translation>Le signe %1 n’est suivi d’aucun second</translation>
    </message>
    <message>
        <source>“%1” means nothing here</source>
        <translation>«&#xa0;%1&#xa0;» ne signifie rien ici</translation>
    </message>
    <message>
        <source>The number is too large</source>
        <translation>Le nombre est trop grand</translation>
    </message>
    <message>
        <source>The chord is not closed</source>
        <translation>L’accord n’est pas fermé</translation>
    </message>
    <message>
        <source>Empty chord</source>
        <translation>Accord vide</translation>
    </message>
    <message>
        <source>The chord has too many notes</source>
        <translation>L’accord a trop de notes</translation>
    </message>
    <message>
        <source>“%1” does not belong in a chord</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas sa place dans un accord</translation>
    </message>
</context>
<context>
    <name>AbcTextEdit</name>
    <message>
        <source>ABC text</source>
        <translation>Texte ABC</translation>
    </message>
</context>
<context>
    <name>About</name>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Kelvarion Composer&lt;/b&gt; (v&lt;i&gt;%1&lt;/i&gt;)&lt;/p&gt;&lt;p&gt;Turns MIDI, MML and ABC music into songs that the instruments of Kelvarion can play.&lt;/p&gt;&lt;p&gt;Copyright © 2026 the Kelvarion Composer developers.&lt;br&gt;Free software under the MIT licence; it comes without any warranty.&lt;/p&gt;&lt;p&gt;With thanks to the makers of Qt %2 (LGPL 3), libsndfile (LGPL 2.1) and SDL (zlib licence), which this program is built upon.&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Kelvarion Composer&lt;/b&gt; (v&lt;i&gt;%1&lt;/i&gt;)&lt;/p&gt;&lt;p&gt;Fait de la musique MIDI, MML et ABC des morceaux que les instruments de Kelvarion savent jouer.&lt;/p&gt;&lt;p&gt;Copyright © 2026 les développeurs de Kelvarion Composer.&lt;br&gt;Logiciel libre sous licence MIT, sans aucune garantie.&lt;/p&gt;&lt;p&gt;Merci aux auteurs de Qt %2 (LGPL 3), de libsndfile (LGPL 2.1) et de SDL (licence zlib), sur lesquels ce programme repose.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>ArrangeDialog</name>
    <message>
        <source>Arrange for Players</source>
        <translation>Arranger pour des joueurs</translation>
    </message>
    <message>
        <source>The song as it is</source>
        <translation>Le morceau tel qu’il est</translation>
    </message>
    <message>
        <source>As it would be</source>
        <translation>Tel qu’il serait</translation>
    </message>
    <message>
        <source>How many people play</source>
        <translation>Combien de personnes jouent</translation>
    </message>
    <message>
        <source>The most notes that one of them plays at the same time</source>
        <translation>Le plus grand nombre de notes que l’un d’eux joue à la fois</translation>
    </message>
    <message>
        <source>The part whose highest notes are all kept</source>
        <translation>La partie dont les notes les plus hautes sont toutes gardées</translation>
    </message>
    <message>
        <source>The part whose lowest notes come next</source>
        <translation>La partie dont les notes les plus basses viennent ensuite</translation>
    </message>
    <message>
        <source>&amp;Players:</source>
        <translation>&amp;Joueurs&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Notes at once:</source>
        <translation>&amp;Notes à la fois&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Melody:</source>
        <translation>&amp;Mélodie&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Bass:</source>
        <translation>&amp;Basse&#xa0;:</translation>
    </message>
    <message>
        <source>Listen to the &amp;Song</source>
        <translation>Écouter le m&amp;orceau</translation>
    </message>
    <message>
        <source>Play the song as it is, or stop</source>
        <translation>Lire le morceau tel qu’il est, ou arrêter</translation>
    </message>
    <message>
        <source>&amp;Listen to the Arrangement</source>
        <translation>Écouter l’a&amp;rrangement</translation>
    </message>
    <message>
        <source>Play all parts as they would be, or stop</source>
        <translation>Lire toutes les parties telles qu’elles seraient, ou arrêter</translation>
    </message>
    <message>
        <source>Listen to O&amp;ne of Its Parts</source>
        <translation>Écouter &amp;une de ses parties</translation>
    </message>
    <message>
        <source>Play the chosen part of the arrangement alone, or stop</source>
        <translation>Lire seule la partie choisie de l’arrangement, ou arrêter</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>&amp;Arranger</translation>
    </message>
    <message>
        <source>Found: %1</source>
        <translation>Trouvée&#xa0;: %1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>Arranging…</source>
        <translation>Arrangement en cours…</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 notes are kept, by %n player(s)</source>
        <translation>
            <numerusform>%1 notes sur %2 sont gardées, par %n joueur</numerusform>
            <numerusform>%1 notes sur %2 sont gardées, par %n joueurs</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 were doubled</source>
        <translation>%1 étaient doublées</translation>
    </message>
    <message>
        <source>for %1 no voice was free</source>
        <translation>aucune voix n’était libre pour %1</translation>
    </message>
    <message>
        <source>for %1 no instrument has a sample</source>
        <translation>aucun instrument n’a d’échantillon pour %1</translation>
    </message>
    <message>
        <source>%1 have no length</source>
        <translation>%1 sont sans durée</translation>
    </message>
    <message>
        <source>%1 of drums need a third player</source>
        <translation>%1 de batterie demandent un troisième joueur</translation>
    </message>
</context>
<context>
    <name>ArrangeTable</name>
    <message>
        <source>Part</source>
        <translation>Partie</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message>
        <source>How many notes it has</source>
        <translation>Combien de notes elle a</translation>
    </message>
    <message>
        <source>Span</source>
        <translation>Étendue</translation>
    </message>
    <message>
        <source>Its lowest and its highest note</source>
        <translation>Sa note la plus basse et la plus haute</translation>
    </message>
    <message>
        <source>At once</source>
        <translation>À la fois</translation>
    </message>
    <message>
        <source>The most notes that sound at the same time</source>
        <translation>Le plus grand nombre de notes qui sonnent à la fois</translation>
    </message>
    <message>
        <source>Crossings</source>
        <translation>Croisements</translation>
    </message>
    <message>
        <source>Notes that begin above what sounds in the part that is the next higher</source>
        <translation>Notes qui commencent au-dessus de ce qui sonne dans la partie supérieure voisine</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Gardées</translation>
    </message>
    <message>
        <source>Notes that somebody will play</source>
        <translation>Notes que quelqu’un jouera</translation>
    </message>
    <message>
        <source>Doubled</source>
        <translation>Doublées</translation>
    </message>
    <message>
        <source>Notes left out because another one that begins with them has their pitch, or is octaves away</source>
        <translation>Notes omises parce qu’une autre, qui commence avec elles, a leur hauteur ou en est à des octaves</translation>
    </message>
    <message>
        <source>No voice</source>
        <translation>Sans voix</translation>
    </message>
    <message>
        <source>Notes left out because everybody was playing others</source>
        <translation>Notes omises parce que tout le monde en jouait d’autres</translation>
    </message>
    <message>
        <source>Other losses</source>
        <translation>Autres pertes</translation>
    </message>
    <message>
        <source>Notes of no instrument&apos;s range, without a drummer, or of no length</source>
        <translation>Notes hors de portée de tout instrument, sans batteur, ou sans durée</translation>
    </message>
    <message>
        <source>Moved</source>
        <translation>Déplacées</translation>
    </message>
    <message>
        <source>Notes moved by octaves, into the range of the instrument</source>
        <translation>Notes déplacées par octaves dans l’étendue de l’instrument</translation>
    </message>
    <message>
        <source>Shortened</source>
        <translation>Raccourcies</translation>
    </message>
    <message>
        <source>Notes that end early, since their voice is needed</source>
        <translation>Notes qui finissent plus tôt, car leur voix est requise</translation>
    </message>
    <message>
        <source>Lent</source>
        <translation>Prêtées</translation>
    </message>
    <message>
        <source>Notes of other players&apos; parts</source>
        <translation>Notes des parties d’autres joueurs</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Toutes</translation>
    </message>
</context>
<context>
    <name>AudioEngine</name>
    <message>
        <source>No errors.</source>
        <translation>Aucune erreur.</translation>
    </message>
    <message>
        <source>An invalid parameter was passed.</source>
        <translation>Une valeur non valide a été transmise.</translation>
    </message>
    <message>
        <source>The engine is not initialized.</source>
        <translation>Le moteur audio n’est pas démarré.</translation>
    </message>
    <message>
        <source>There is no sound device.</source>
        <translation>Il n’y a pas de périphérique audio.</translation>
    </message>
    <message>
        <source>The sound device was lost.</source>
        <translation>Le périphérique audio a disparu.</translation>
    </message>
    <message>
        <source>The sound server does not answer.</source>
        <translation>Le serveur audio ne répond pas.</translation>
    </message>
    <message>
        <source>There is no such group.</source>
        <translation>Ce groupe n’existe pas.</translation>
    </message>
    <message>
        <source>There are too many groups.</source>
        <translation>Il y a trop de groupes.</translation>
    </message>
    <message>
        <source>Too many notes sound at once.</source>
        <translation>Trop de notes sonnent à la fois.</translation>
    </message>
    <message>
        <source>The mixer did not keep up with the commands.</source>
        <translation>Le mixeur n’a pas suivi les commandes.</translation>
    </message>
    <message>
        <source>The sample cannot be decoded.</source>
        <translation>L’échantillon ne peut pas être décodé.</translation>
    </message>
    <message>
        <source>The sample is too long.</source>
        <translation>L’échantillon est trop long.</translation>
    </message>
    <message>
        <source>The wave file cannot be written.</source>
        <translation>Le fichier Wave ne peut pas être écrit.</translation>
    </message>
    <message>
        <source>The sound library failed.</source>
        <translation>La bibliothèque audio a échoué.</translation>
    </message>
    <message>
        <source>Unknown error.</source>
        <translation>Erreur inconnue.</translation>
    </message>
</context>
<context>
    <name>AudioExportDialog</name>
    <message>
        <source>Export Audio</source>
        <translation>Exporter l’audio</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Qualité&#xa0;:</translation>
    </message>
    <message>
        <source>From 0, the smallest file, to 10, the best sound</source>
        <translation>De 0, le plus petit fichier, à 10, le meilleur son</translation>
    </message>
    <message>
        <source>The mix</source>
        <translation>Le mixage</translation>
    </message>
    <message>
        <source>One file for each part</source>
        <translation>Un fichier par partie</translation>
    </message>
    <message>
        <source>The mix and one file for each part</source>
        <translation>Le mixage et un fichier par partie</translation>
    </message>
    <message>
        <source>The whole song</source>
        <translation>Tout le morceau</translation>
    </message>
    <message>
        <source>The loop</source>
        <translation>La boucle</translation>
    </message>
    <message>
        <source>The song has no loop</source>
        <translation>Le morceau n’a pas de boucle</translation>
    </message>
    <message>
        <source>&amp;Normalise to -1 dBFS</source>
        <translation>&amp;Normaliser à -1 dBFS</translation>
    </message>
    <message>
        <source>Makes all files louder or softer alike, so that nothing is clipped</source>
        <translation>Rend tous les fichiers également plus forts ou plus doux, pour que rien ne sature</translation>
    </message>
    <message>
        <source>With the &amp;start offsets of the parts</source>
        <translation>Avec les &amp;décalages de départ des parties</translation>
    </message>
    <message>
        <source>Parts come in as they do in the playback</source>
        <translation>Les parties entrent comme à la lecture</translation>
    </message>
    <message>
        <source>No part has a start offset</source>
        <translation>Aucune partie n’a de décalage de départ</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exporter...</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format&#xa0;:</translation>
    </message>
    <message>
        <source>F&amp;iles:</source>
        <translation>F&amp;ichiers&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Range:</source>
        <translation>&amp;Étendue&#xa0;:</translation>
    </message>
</context>
<context>
    <name>BusNotices</name>
    <message>
        <source>Show the Window</source>
        <translation>Montrer la fenêtre</translation>
    </message>
</context>
<context>
    <name>BusyIndicator</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Stop what is running (Esc)</source>
        <translation>Arrêter ce qui est en cours (Échap)</translation>
    </message>
</context>
<context>
    <name>ChecksPage</name>
    <message>
        <source>Will the game play it?</source>
        <translation>Le jeu le jouera-t-il&#xa0;?</translation>
    </message>
    <message>
        <source>Notes that are farther from their sample do not sound natural</source>
        <translation>Les notes plus éloignées de leur échantillon ne sonnent pas naturellement</translation>
    </message>
    <message>
        <source> semitones</source>
        <translation> demi-tons</translation>
    </message>
    <message>
        <source>Farthest from a sample:</source>
        <translation>Écart maximal d’un échantillon&#xa0;:</translation>
    </message>
    <message>
        <source>How many notes of one part the game plays at once</source>
        <translation>Combien de notes d’une partie le jeu joue à la fois</translation>
    </message>
    <message>
        <source>any number</source>
        <translation>sans limite</translation>
    </message>
    <message>
        <source>Notes of a part at once:</source>
        <translation>Notes d’une partie à la fois&#xa0;:</translation>
    </message>
    <message>
        <source>How long the text of a part may be</source>
        <translation>La longueur permise du texte d’une partie</translation>
    </message>
    <message>
        <source>Characters of a part:</source>
        <translation>Caractères d’une partie&#xa0;:</translation>
    </message>
</context>
<context>
    <name>DialogFrame</name>
    <message>
        <source>Keep bar lines and comments</source>
        <translation>Garder barres de mesure et commentaires</translation>
    </message>
    <message>
        <source>Change only the notes in the text; otherwise it is written anew, without all that is no note</source>
        <translation>Ne changer que les notes du texte&#xa0;; sinon il est réécrit, sans tout ce qui n’est pas une note</translation>
    </message>
</context>
<context>
    <name>Dialogs</name>
    <message>
        <source>Overwrite</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Enregistrer sous...</translation>
    </message>
    <message>
        <source>&amp;Fix Errors</source>
        <translation>C&amp;orriger les erreurs</translation>
    </message>
    <message>
        <source>&amp;Keep as Draft</source>
        <translation>&amp;Garder comme brouillon</translation>
    </message>
    <message>
        <source>&amp;Discard Changes</source>
        <translation>A&amp;bandonner les modifications</translation>
    </message>
    <message>
        <source>&amp;Convert for the Game</source>
        <translation>&amp;Convertir pour le jeu</translation>
    </message>
    <message>
        <source>&amp;Open as It Is</source>
        <translation>&amp;Ouvrir tel quel</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Appliquer</translation>
    </message>
    <message>
        <source>Make the song sound as the text says</source>
        <translation>Faire sonner le morceau comme le dit le texte</translation>
    </message>
    <message>
        <source>Apply and &amp;Save</source>
        <translation>Appliquer et &amp;enregistrer</translation>
    </message>
    <message>
        <source>Apply the changes, and save them to disk</source>
        <translation>Appliquer les modifications et les enregistrer</translation>
    </message>
    <message>
        <source>&amp;Revert to Applied</source>
        <translation>&amp;Revenir au texte appliqué</translation>
    </message>
    <message>
        <source>Take back every change since the last Apply, as one step to undo</source>
        <translation>Reprendre toutes les modifications depuis la dernière application, en une seule étape</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Close the editor</source>
        <translation>Fermer l’éditeur</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Take back the last change, of the text or of the notes</source>
        <translation>Reprendre la dernière modification du texte ou des notes</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Make the change that was taken back again</source>
        <translation>Refaire la modification qui a été annulée</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Cou&amp;per</translation>
    </message>
    <message>
        <source>Move the selected text to the clipboard</source>
        <translation>Déplacer le texte sélectionné dans le presse-papiers</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Copy the selected text to the clipboard</source>
        <translation>Copier le texte sélectionné dans le presse-papiers</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>Insert the text of the clipboard</source>
        <translation>Insérer le texte du presse-papiers</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Tout sélectionner</translation>
    </message>
    <message>
        <source>Select the whole text</source>
        <translation>Sélectionner tout le texte</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>Rec&amp;hercher…</translation>
    </message>
    <message>
        <source>Find in the text</source>
        <translation>Rechercher dans le texte</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>Occurrence &amp;suivante</translation>
    </message>
    <message>
        <source>Find the next match</source>
        <translation>Trouver l’occurrence suivante</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>Occurrence précé&amp;dente</translation>
    </message>
    <message>
        <source>Find the previous match</source>
        <translation>Trouver l’occurrence précédente</translation>
    </message>
    <message>
        <source>R&amp;eplace…</source>
        <translation>Re&amp;mplacer…</translation>
    </message>
    <message>
        <source>Find and replace in the text</source>
        <translation>Rechercher et remplacer dans le texte</translation>
    </message>
    <message>
        <source>&amp;Go to Line…</source>
        <translation>A&amp;ller à la ligne…</translation>
    </message>
    <message>
        <source>Put the caret on a line</source>
        <translation>Placer le curseur sur une ligne</translation>
    </message>
    <message>
        <source>Ne&amp;xt Problem</source>
        <translation>Problème sui&amp;vant</translation>
    </message>
    <message>
        <source>Go to the next error of the text</source>
        <translation>Aller à l’erreur suivante du texte</translation>
    </message>
    <message>
        <source>Previous Pro&amp;blem</source>
        <translation>Pro&amp;blème précédent</translation>
    </message>
    <message>
        <source>Go to the previous error of the text</source>
        <translation>Aller à l’erreur précédente du texte</translation>
    </message>
    <message>
        <source>F&amp;ix Problem</source>
        <translation>Corri&amp;ger le problème</translation>
    </message>
    <message>
        <source>Mend what is wrong at the caret, where there is one right way</source>
        <translation>Corriger ce qui est faux au curseur, quand il n’y a qu’une bonne façon</translation>
    </message>
    <message>
        <source>&amp;Quick Realign</source>
        <translation>Réalignement &amp;rapide</translation>
    </message>
    <message>
        <source>Move all notes onto the nearest 128th or tuplet of it</source>
        <translation>Déplacer toutes les notes sur la 128e de ronde la plus proche ou un n-olet de celle-ci</translation>
    </message>
    <message>
        <source>&amp;Realign Notes…</source>
        <translation>Réaligner les &amp;notes…</translation>
    </message>
    <message>
        <source>Move all notes onto the grids of your choice</source>
        <translation>Déplacer toutes les notes sur les grilles de votre choix</translation>
    </message>
    <message>
        <source>&amp;Clean Quantise</source>
        <translation>&amp;Quantifier proprement</translation>
    </message>
    <message>
        <source>Write all notes as a musician would, on the grid of each measure</source>
        <translation>Écrire toutes les notes comme le ferait un musicien, sur la grille de chaque mesure</translation>
    </message>
    <message>
        <source>&amp;Transpose…</source>
        <translation>Tran&amp;sposer…</translation>
    </message>
    <message>
        <source>Move all notes up or down</source>
        <translation>Monter ou descendre toutes les notes</translation>
    </message>
    <message>
        <source>Change &amp;Unit Length…</source>
        <translation>Changer la valeur de &amp;base…</translation>
    </message>
    <message>
        <source>Write all lengths in another unit</source>
        <translation>Écrire toutes les durées dans une autre unité</translation>
    </message>
    <message>
        <source>Change &amp;Key…</source>
        <translation>Changer la t&amp;onalité…</translation>
    </message>
    <message>
        <source>Write all notes in another key; they sound as before</source>
        <translation>Écrire toutes les notes dans une autre tonalité&#xa0;; elles sonnent comme avant</translation>
    </message>
    <message>
        <source>&amp;Split at Caret</source>
        <translation>&amp;Scinder au curseur</translation>
    </message>
    <message>
        <source>Cut the selected notes, or all, in two at the caret</source>
        <translation>Couper en deux au curseur les notes sélectionnées, ou toutes</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>&amp;Joindre</translation>
    </message>
    <message>
        <source>Make one note of the selected notes of each pitch</source>
        <translation>Faire une seule note des notes sélectionnées de chaque hauteur</translation>
    </message>
    <message>
        <source>&amp;Legato</source>
        <translation>&amp;Legato</translation>
    </message>
    <message>
        <source>Let each selected note sound up to the next</source>
        <translation>Faire sonner chaque note sélectionnée jusqu’à la suivante</translation>
    </message>
    <message>
        <source>&amp;Double Lengths</source>
        <translation>&amp;Doubler les durées</translation>
    </message>
    <message>
        <source>Make the selected notes twice as long</source>
        <translation>Rendre les notes sélectionnées deux fois plus longues</translation>
    </message>
    <message>
        <source>&amp;Halve Lengths</source>
        <translation>Rédu&amp;ire les durées de moitié</translation>
    </message>
    <message>
        <source>Make the selected notes half as long</source>
        <translation>Rendre les notes sélectionnées deux fois plus courtes</translation>
    </message>
    <message>
        <source>&amp;Quantise to Grid</source>
        <translation>&amp;Quantifier sur la grille</translation>
    </message>
    <message>
        <source>Move the selected notes onto the grid of the piano roll</source>
        <translation>Déplacer les notes sélectionnées sur la grille du piano roll</translation>
    </message>
    <message>
        <source>Quantise Half &amp;Way</source>
        <translation>Quantifier à &amp;moitié</translation>
    </message>
    <message>
        <source>Move the selected notes half of the way onto the grid</source>
        <translation>Déplacer les notes sélectionnées à mi-chemin de la grille</translation>
    </message>
    <message>
        <source>&amp;Invert Selection</source>
        <translation>I&amp;nverser la sélection</translation>
    </message>
    <message>
        <source>Select the notes that are not selected</source>
        <translation>Sélectionner les notes qui ne le sont pas</translation>
    </message>
    <message>
        <source>Select Same &amp;Pitch</source>
        <translation>Sélectionner la même &amp;hauteur</translation>
    </message>
    <message>
        <source>Select all notes that have the pitch of a selected one</source>
        <translation>Sélectionner toutes les notes de la hauteur d’une note sélectionnée</translation>
    </message>
    <message>
        <source>Select Pitch &amp;Range</source>
        <translation>Sélectionner une &amp;plage de hauteurs</translation>
    </message>
    <message>
        <source>Select all notes from the lowest to the highest pitch of the selected ones</source>
        <translation>Sélectionner toutes les notes de la plus basse à la plus haute de la sélection</translation>
    </message>
    <message>
        <source>Insert &amp;Measure</source>
        <translation>Insérer une m&amp;esure</translation>
    </message>
    <message>
        <source>Put an empty measure before the one at the caret</source>
        <translation>Mettre une mesure vide avant celle du curseur</translation>
    </message>
    <message>
        <source>Delete M&amp;easures</source>
        <translation>Supprimer des mes&amp;ures</translation>
    </message>
    <message>
        <source>Take out the measures of the selected notes, or the one at the caret</source>
        <translation>Ôter les mesures des notes sélectionnées, ou celle du curseur</translation>
    </message>
    <message>
        <source>Play o&amp;r Stop</source>
        <translation>Lire &amp;ou arrêter</translation>
    </message>
    <message>
        <source>Play from where the caret is, or stop</source>
        <translation>Lire depuis le curseur, ou arrêter</translation>
    </message>
    <message>
        <source>&amp;Play from Caret</source>
        <translation>Lire depuis le &amp;curseur</translation>
    </message>
    <message>
        <source>Play from where the caret is</source>
        <translation>Lire depuis le curseur</translation>
    </message>
    <message>
        <source>Play from &amp;Start</source>
        <translation>Lire depuis le &amp;début</translation>
    </message>
    <message>
        <source>Play from the beginning</source>
        <translation>Lire depuis le début</translation>
    </message>
    <message>
        <source>&amp;Loop Selection</source>
        <translation>Lire la sélection en &amp;boucle</translation>
    </message>
    <message>
        <source>Play the selection, or the whole tune, again and again</source>
        <translation>Lire sans cesse la sélection, ou tout l’air</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>&amp;Arrêter</translation>
    </message>
    <message>
        <source>Stop playing</source>
        <translation>Arrêter la lecture</translation>
    </message>
    <message>
        <source>&amp;With the Song</source>
        <translation>Avec le &amp;morceau</translation>
    </message>
    <message>
        <source>Hear the other parts of the song, too, that are not muted</source>
        <translation>Entendre aussi les autres parties du morceau qui ne sont pas muettes</translation>
    </message>
    <message>
        <source>Sl&amp;ower</source>
        <translation>Plus &amp;lent</translation>
    </message>
    <message>
        <source>Play slower; the tune keeps its tempo</source>
        <translation>Lire plus lentement&#xa0;; l’air garde son tempo</translation>
    </message>
    <message>
        <source>&amp;Faster</source>
        <translation>Plus &amp;rapide</translation>
    </message>
    <message>
        <source>Play faster; the tune keeps its tempo</source>
        <translation>Lire plus vite&#xa0;; l’air garde son tempo</translation>
    </message>
    <message>
        <source>&amp;Normal Tempo</source>
        <translation>Tempo &amp;normal</translation>
    </message>
    <message>
        <source>Play in the tempo of the tune</source>
        <translation>Lire au tempo de l’air</translation>
    </message>
    <message>
        <source>&amp;Piano Roll</source>
        <translation>&amp;Piano roll</translation>
    </message>
    <message>
        <source>Show the notes over a keyboard</source>
        <translation>Montrer les notes sur un clavier</translation>
    </message>
    <message>
        <source>&amp;Switch between Text and Roll</source>
        <translation>&amp;Basculer entre texte et piano roll</translation>
    </message>
    <message>
        <source>Give the keyboard to the other view</source>
        <translation>Donner le clavier à l’autre vue</translation>
    </message>
    <message>
        <source>P&amp;roblems</source>
        <translation>P&amp;roblèmes</translation>
    </message>
    <message>
        <source>Show the list of errors</source>
        <translation>Montrer la liste des erreurs</translation>
    </message>
    <message>
        <source>&amp;Wrap Lines</source>
        <translation>Retour à la &amp;ligne</translation>
    </message>
    <message>
        <source>Break long lines at the edge of the window</source>
        <translation>Couper les longues lignes au bord de la fenêtre</translation>
    </message>
    <message>
        <source>&amp;Follow Playback</source>
        <translation>&amp;Suivre la lecture</translation>
    </message>
    <message>
        <source>Keep what sounds in view</source>
        <translation>Garder en vue ce qui sonne</translation>
    </message>
    <message>
        <source>Zoom Text &amp;In</source>
        <translation>&amp;Agrandir le texte</translation>
    </message>
    <message>
        <source>Make the text larger</source>
        <translation>Rendre le texte plus grand</translation>
    </message>
    <message>
        <source>Zoom Text &amp;Out</source>
        <translation>Ré&amp;duire le texte</translation>
    </message>
    <message>
        <source>Make the text smaller</source>
        <translation>Rendre le texte plus petit</translation>
    </message>
    <message>
        <source>&amp;Normal Text Size</source>
        <translation>&amp;Taille normale du texte</translation>
    </message>
    <message>
        <source>Give the text its normal size</source>
        <translation>Donner au texte sa taille normale</translation>
    </message>
</context>
<context>
    <name>EditorCleanUp</name>
    <message>
        <source>Nothing to change here.</source>
        <translation>Rien à changer ici.</translation>
    </message>
    <message>
        <source>Split Notes</source>
        <translation>Scinder des notes</translation>
    </message>
    <message>
        <source>Select the notes that are to be joined.</source>
        <translation>Sélectionnez les notes à joindre.</translation>
    </message>
    <message>
        <source>Join Notes</source>
        <translation>Joindre des notes</translation>
    </message>
    <message>
        <source>Legato</source>
        <translation>Legato</translation>
    </message>
    <message>
        <source>Double Lengths</source>
        <translation>Doubler les durées</translation>
    </message>
    <message>
        <source>Halve Lengths</source>
        <translation>Réduire les durées de moitié</translation>
    </message>
    <message>
        <source>Quantise</source>
        <translation>Quantifier</translation>
    </message>
    <message>
        <source>Insert Measure</source>
        <translation>Insérer une mesure</translation>
    </message>
    <message>
        <source>There is no measure here.</source>
        <translation>Il n’y a pas de mesure ici.</translation>
    </message>
    <message>
        <source>Delete Measures</source>
        <translation>Supprimer des mesures</translation>
    </message>
    <message>
        <source>No bar line stands where this measure begins or ends by its metre. Write one there first.</source>
        <translation>Aucune barre de mesure ne se trouve là où cette mesure commence ou finit selon sa métrique. Écrivez-en d’abord une à cet endroit.</translation>
    </message>
    <message>
        <source>A tuplet goes on behind a bar line here. Let it end before the bar line first.</source>
        <translation>Un n-olet continue ici derrière une barre de mesure. Faites-le d’abord finir avant la barre.</translation>
    </message>
    <message>
        <source>Other notes would change. Make the measures around here as long as their metre says first.</source>
        <translation>D’autres notes changeraient. Donnez d’abord aux mesures voisines la longueur que dit leur métrique.</translation>
    </message>
</context>
<context>
    <name>EditorDocument</name>
    <message>
        <source>Typing</source>
        <translation>Saisie</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Brouillon</translation>
    </message>
</context>
<context>
    <name>EditorStatus</name>
    <message>
        <source>Line %1, column %2</source>
        <translation>Ligne %1, colonne %2</translation>
    </message>
    <message>
        <source>The caret in the text</source>
        <translation>Le curseur dans le texte</translation>
    </message>
    <message>
        <source>%1, tick %2</source>
        <translation>%1, tick %2</translation>
    </message>
    <message>
        <source>The caret in the music; a whole note has 40320 ticks</source>
        <translation>Le curseur dans la musique&#xa0;; une ronde compte 40320 ticks</translation>
    </message>
    <message>
        <source>Pitch and length of the note at the caret</source>
        <translation>Hauteur et durée de la note au curseur</translation>
    </message>
    <message>
        <source>What is wrong with the text</source>
        <translation>Ce qui ne va pas dans le texte</translation>
    </message>
    <message>
        <source>Unapplied changes</source>
        <translation>Non appliqué</translation>
    </message>
    <message>
        <source>Whether the song has what the text says</source>
        <translation>Si le morceau contient ce que dit le texte</translation>
    </message>
    <message>
        <source>1 problem</source>
        <translation>1 problème</translation>
    </message>
    <message>
        <source>%1 problems</source>
        <translation>%1 problèmes</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Applied</source>
        <translation>Appliqué</translation>
    </message>
</context>
<context>
    <name>EditorTransforms</name>
    <message>
        <source>The changes cannot be applied</source>
        <translation>Les modifications ne peuvent pas être appliquées</translation>
    </message>
    <message>
        <source>ABC Editor</source>
        <translation>Éditeur ABC</translation>
    </message>
    <message>
        <source>There are unapplied changes. Would you like to apply these first?</source>
        <translation>Des modifications ne sont pas appliquées. Voulez-vous d’abord les appliquer&#xa0;?</translation>
    </message>
    <message>
        <source>The text cannot be applied, since it has errors:
%1

A draft stays with the song as it is, to go on with later. Until then the part plays as it was applied last.</source>
        <translation>Le texte ne peut pas être appliqué, car il contient des erreurs&#xa0;:
%1

Un brouillon reste tel quel avec le morceau, pour continuer plus tard. D’ici là, la partie joue comme elle a été appliquée en dernier.</translation>
    </message>
    <message>
        <source>Quick Realign</source>
        <translation>Réalignement rapide</translation>
    </message>
    <message>
        <source>Realign Notes</source>
        <translation>Réaligner les notes</translation>
    </message>
    <message>
        <source>Clean Quantise</source>
        <translation>Quantifier proprement</translation>
    </message>
    <message>
        <source>Transpose</source>
        <translation>Transposer</translation>
    </message>
    <message>
        <source>Change Unit Length</source>
        <translation>Changer la valeur de base</translation>
    </message>
    <message>
        <source>Change Key</source>
        <translation>Changer la tonalité</translation>
    </message>
</context>
<context>
    <name>EditorWindows</name>
    <message>
        <source>Edit Track</source>
        <translation>Modifier la piste</translation>
    </message>
</context>
<context>
    <name>EmptyHint</name>
    <message>
        <source>Drop a MIDI or ABC file here</source>
        <translation>Déposez ici un fichier MIDI ou ABC</translation>
    </message>
    <message>
        <source>Every part of the song becomes a track that you can hear with the game&apos;s instruments and save as ABC.</source>
        <translation>Chaque partie du morceau devient une piste, à écouter avec les instruments du jeu et à enregistrer en ABC.</translation>
    </message>
    <message>
        <source>Text in ABC or MML can be pasted with Ctrl+V.</source>
        <translation>Un texte en ABC ou MML se colle avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Import MIDI...</source>
        <translation>Importer du MIDI...</translation>
    </message>
    <message>
        <source>Choose a MIDI file (Ctrl+Shift+M)</source>
        <translation>Choisir un fichier MIDI (Ctrl+Maj+M)</translation>
    </message>
    <message>
        <source>Open ABC...</source>
        <translation>Ouvrir de l’ABC...</translation>
    </message>
    <message>
        <source>Choose ABC files (Ctrl+O)</source>
        <translation>Choisir des fichiers ABC (Ctrl+O)</translation>
    </message>
</context>
<context>
    <name>EngineChoice</name>
    <message>
        <source>FMOD cannot be used, so the built-in engine plays. %1</source>
        <translation>FMOD est inutilisable, le moteur intégré joue donc à sa place. %1</translation>
    </message>
</context>
<context>
    <name>EngineGroup</name>
    <message>
        <source>Built-in</source>
        <translation>Intégré</translation>
    </message>
    <message>
        <source>What mixes the tracks, from the next Play on</source>
        <translation>Ce qui mixe les pistes, à partir de la prochaine lecture</translation>
    </message>
    <message>
        <source>The game&apos;s or the system&apos;s</source>
        <translation>Celle du jeu ou du système</translation>
    </message>
    <message>
        <source>Your FMOD library, version 1.08 to 2.03, as games come with</source>
        <translation>Votre bibliothèque FMOD, version 1.08 à 2.03, comme celle des jeux</translation>
    </message>
    <message>
        <source>Sound Engine</source>
        <translation>Moteur audio</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Parcourir...</translation>
    </message>
    <message>
        <source>Choose the file of an FMOD library</source>
        <translation>Choisir le fichier d’une bibliothèque FMOD</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Tester</translation>
    </message>
    <message>
        <source>Play a scale with this library</source>
        <translation>Jouer une gamme avec cette bibliothèque</translation>
    </message>
    <message>
        <source>Engine:</source>
        <translation>Moteur&#xa0;:</translation>
    </message>
    <message>
        <source>Library:</source>
        <translation>Bibliothèque&#xa0;:</translation>
    </message>
    <message>
        <source>Choose the FMOD library</source>
        <translation>Choisir la bibliothèque FMOD</translation>
    </message>
    <message>
        <source>Libraries (*.so *.so.* *.dll *.dylib);;All files (*)</source>
        <translation>Bibliothèques (*.so *.so.* *.dll *.dylib);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>%1
It plays on the system&apos;s default device.</source>
        <translation>%1
Elle joue sur le périphérique par défaut du système.</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Stopped.</source>
        <translation>Arrêté.</translation>
    </message>
    <message>
        <source>Not enough memory.</source>
        <translation>Mémoire insuffisante.</translation>
    </message>
    <message>
        <source>Unknown failure.</source>
        <translation>Échec inconnu.</translation>
    </message>
</context>
<context>
    <name>ExportCommands</name>
    <message>
        <source>Export to Wav</source>
        <translation>Exporter en Wav</translation>
    </message>
    <message>
        <source>Export Audio</source>
        <translation>Exporter l’audio</translation>
    </message>
    <message>
        <source>&apos;%1&apos; does not end in &quot;.%2&quot;, as %3 files do.</source>
        <translation>«&#xa0;%1&#xa0;» ne se termine pas par «&#xa0;.%2&#xa0;», comme les fichiers %3.</translation>
    </message>
    <message>
        <source>Exporting %1...</source>
        <translation>Exportation de %1...</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) are there already:
%1
Would you like to overwrite them?</source>
        <translation>
            <numerusform>%n fichier existe déjà&#xa0;:
%1
Voulez-vous le remplacer&#xa0;?</numerusform>
            <numerusform>%n fichiers existent déjà&#xa0;:
%1
Voulez-vous les remplacer&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>The export to wav is still running.
Would you like to stop it?</source>
        <translation>L’exportation est encore en cours.
Voulez-vous l’arrêter&#xa0;?</translation>
    </message>
    <message>
        <source>Export all (non-muted) tracks to a wave file</source>
        <translation>Exporter toutes les pistes (non muettes) dans un fichier Wave</translation>
    </message>
    <message>
        <source>Export Audio...</source>
        <translation>Exporter l’audio...</translation>
    </message>
    <message>
        <source>Export all (non-muted) tracks as WAV, FLAC, Ogg, Opus or MP3: the mix, or each part</source>
        <translation>Exporter toutes les pistes (non muettes) en WAV, FLAC, Ogg, Opus ou MP3&#xa0;: le mixage, ou chaque partie</translation>
    </message>
    <message>
        <source>Renderer in use</source>
        <translation>Exportation déjà en cours</translation>
    </message>
    <message>
        <source>You are already rendering to wav, please wait for it to finish and try again.</source>
        <translation>Une exportation en Wav est déjà en cours&#xa0;; attendez qu’elle se termine et réessayez.</translation>
    </message>
    <message>
        <source>Export tracks to wav...</source>
        <translation>Exporter les pistes en Wav...</translation>
    </message>
    <message>
        <source>Wave file (*.wav)</source>
        <translation>Fichier Wave (*.wav)</translation>
    </message>
    <message>
        <source>Rendering to wav...</source>
        <translation>Écriture du Wav...</translation>
    </message>
</context>
<context>
    <name>ExportEnd</name>
    <message numerus="yes">
        <source>%n file(s) in %1</source>
        <translation>
            <numerusform>%n fichier dans %1</numerusform>
            <numerusform>%n fichiers dans %1</numerusform>
        </translation>
    </message>
    <message>
        <source>The export is done</source>
        <translation>L’export est terminé</translation>
    </message>
    <message>
        <source>The export failed</source>
        <translation>L’export a échoué</translation>
    </message>
</context>
<context>
    <name>ExportNote</name>
    <message>
        <source>Open Folder</source>
        <translation>Ouvrir le dossier</translation>
    </message>
    <message>
        <source>Show what was exported in the program for files</source>
        <translation>Montrer ce qui a été exporté dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 fichiers</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>%1 écrit</translation>
    </message>
</context>
<context>
    <name>ExportProgress</name>
    <message>
        <source>Loading samples...</source>
        <translation>Chargement des échantillons...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>reste %1</translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>What to look for (F3 finds the next, Shift+F3 the previous)</source>
        <translation>Ce qu’il faut chercher (F3 trouve le suivant, Maj+F3 le précédent)</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Remplacer par</translation>
    </message>
    <message>
        <source>What takes its place</source>
        <translation>Ce qui prend sa place</translation>
    </message>
    <message>
        <source>Whole &amp;words</source>
        <translation>&amp;Mots entiers</translation>
    </message>
    <message>
        <source>Not within longer words</source>
        <translation>Pas à l’intérieur de mots plus longs</translation>
    </message>
    <message>
        <source>Match &amp;case</source>
        <translation>Respecter la &amp;casse</translation>
    </message>
    <message>
        <source>C and c are different</source>
        <translation>C et c sont différents</translation>
    </message>
    <message>
        <source>Wrap &amp;around</source>
        <translation>R&amp;eprendre au début</translation>
    </message>
    <message>
        <source>Go on from the other end of the text</source>
        <translation>Continuer depuis l’autre bout du texte</translation>
    </message>
    <message>
        <source>How the text is meant</source>
        <translation>Comment comprendre le texte</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>Simple</translation>
    </message>
    <message>
        <source>Extended (\n, \t, \x41)</source>
        <translation>Étendu (\n, \t, \x41)</translation>
    </message>
    <message>
        <source>Regular expression</source>
        <translation>Expression régulière</translation>
    </message>
    <message>
        <source>Search mode</source>
        <translation>Mode de recherche</translation>
    </message>
    <message>
        <source>Where Return looks from the caret</source>
        <translation>Où la touche Entrée cherche depuis le curseur</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Vers le haut</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Vers le bas</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Replace the selected match and find the next</source>
        <translation>Remplacer l’occurrence sélectionnée et trouver la suivante</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Tout remplacer</translation>
    </message>
    <message>
        <source>Replace every match, as one step to undo</source>
        <translation>Remplacer toutes les occurrences, en une seule étape</translation>
    </message>
    <message>
        <source>Find previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Find previous (Shift+F3)</source>
        <translation>Précédent (Maj+F3)</translation>
    </message>
    <message>
        <source>Find next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Find next (F3)</source>
        <translation>Suivant (F3)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Close (Esc)</source>
        <translation>Fermer (Échap)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Not an expression</source>
        <translation>Pas une expression</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Aucun résultat</translation>
    </message>
    <message>
        <source>1 match</source>
        <translation>1 résultat</translation>
    </message>
    <message>
        <source>%1 matches</source>
        <translation>%1 résultats</translation>
    </message>
    <message>
        <source>There is nothing to look for.</source>
        <translation>Il n’y a rien à chercher.</translation>
    </message>
    <message>
        <source>“%1” was not found.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas été trouvé.</translation>
    </message>
    <message>
        <source>The search went on from the other end of the text.</source>
        <translation>La recherche a continué depuis l’autre bout du texte.</translation>
    </message>
    <message>
        <source>1 match was replaced.</source>
        <translation>1 occurrence a été remplacée.</translation>
    </message>
    <message>
        <source>%1 matches were replaced.</source>
        <translation>%1 occurrences ont été remplacées.</translation>
    </message>
</context>
<context>
    <name>Finding</name>
    <message>
        <source>Text that the game cannot read</source>
        <translation>Texte que le jeu ne peut pas lire</translation>
    </message>
    <message>
        <source>Notes out of range</source>
        <translation>Notes hors de l’étendue</translation>
    </message>
    <message>
        <source>“%1” is outside the notes that instruments play, and stays silent.</source>
        <translation>«&#xa0;%1&#xa0;» est hors des notes que jouent les instruments, et reste muette.</translation>
    </message>
    <message>
        <source>Move by octaves into the range</source>
        <translation>Déplacer par octaves dans l’étendue</translation>
    </message>
    <message>
        <source>Empty measures</source>
        <translation>Mesures vides</translation>
    </message>
    <message>
        <source>The bar line “%1” makes an empty measure: the game is silent for it.</source>
        <translation>La barre «&#xa0;%1&#xa0;» fait une mesure vide&#xa0;: le jeu se tait pendant ce temps.</translation>
    </message>
    <message>
        <source>Remove the bar line</source>
        <translation>Enlever la barre de mesure</translation>
    </message>
    <message>
        <source>Pick-ups with a gap behind them</source>
        <translation>Levées suivies d’un trou</translation>
    </message>
    <message>
        <source>The first measure is short by %1: the game is silent for as long behind it, not before it.</source>
        <translation>Il manque %1 à la première mesure&#xa0;: le jeu se tait d’autant après elle, et non avant.</translation>
    </message>
    <message>
        <source>Begin with a rest</source>
        <translation>Commencer par un silence</translation>
    </message>
    <message>
        <source>Measures that are too short</source>
        <translation>Mesures trop courtes</translation>
    </message>
    <message>
        <source>The measure is short by %1: at its bar line the game is silent for as long.</source>
        <translation>Il manque %1 à la mesure&#xa0;: à sa barre, le jeu se tait d’autant.</translation>
    </message>
    <message>
        <source>Measures that are too long</source>
        <translation>Mesures trop longues</translation>
    </message>
    <message>
        <source>The measure is long by %1: what follows its bar line begins before it ends.</source>
        <translation>La mesure dépasse de %1&#xa0;: ce qui suit sa barre commence avant sa fin.</translation>
    </message>
    <message>
        <source>Texts that are too long</source>
        <translation>Textes trop longs</translation>
    </message>
    <message>
        <source>The text has %1 characters; the limit is %2.%3</source>
        <translation>Le texte a %1 caractères&#xa0;; la limite est de %2.%3</translation>
    </message>
    <message>
        <source>Write it with another unit length</source>
        <translation>L’écrire avec une autre valeur de base</translation>
    </message>
    <message>
        <source>Grace notes that are not closed</source>
        <translation>Appoggiatures non fermées</translation>
    </message>
    <message>
        <source>The grace notes are not closed: the game plays nothing behind them.</source>
        <translation>Les appoggiatures ne sont pas fermées&#xa0;: le jeu ne joue rien de ce qui suit.</translation>
    </message>
    <message>
        <source>Signs that belong to nothing</source>
        <translation>Signes qui n’appartiennent à rien</translation>
    </message>
    <message>
        <source>“%1” belongs to nothing here: the game passes over it.</source>
        <translation>«&#xa0;%1&#xa0;» n’appartient à rien ici&#xa0;: le jeu passe outre.</translation>
    </message>
    <message>
        <source>Remove the sign</source>
        <translation>Enlever le signe</translation>
    </message>
    <message>
        <source>Ties that lead nowhere</source>
        <translation>Liaisons qui ne mènent nulle part</translation>
    </message>
    <message>
        <source>The tie leads nowhere: no note of the same pitch follows at once.</source>
        <translation>La liaison ne mène nulle part&#xa0;: aucune note de même hauteur ne suit aussitôt.</translation>
    </message>
    <message>
        <source>Remove the tie</source>
        <translation>Enlever la liaison</translation>
    </message>
    <message>
        <source>Fields that the game cannot read</source>
        <translation>Champs que le jeu ne peut pas lire</translation>
    </message>
    <message>
        <source>The game cannot read “%1”; it would read %2, for example.</source>
        <translation>Le jeu ne peut pas lire «&#xa0;%1&#xa0;»&#xa0;; il lirait par exemple %2.</translation>
    </message>
    <message>
        <source>Fields that change nothing</source>
        <translation>Champs qui ne changent rien</translation>
    </message>
    <message>
        <source>“%1” changes nothing: the game takes the unit length from the header alone.</source>
        <translation>«&#xa0;%1&#xa0;» ne change rien&#xa0;: le jeu ne prend la valeur de base que dans l’en-tête.</translation>
    </message>
    <message>
        <source>Second tunes</source>
        <translation>Seconds airs</translation>
    </message>
    <message>
        <source>A second tune begins here: the game plays it on as part of the first.</source>
        <translation>Un second air commence ici&#xa0;: le jeu le joue comme la suite du premier.</translation>
    </message>
    <message>
        <source>Empty parts</source>
        <translation>Parties vides</translation>
    </message>
    <message>
        <source>The part has no notes.</source>
        <translation>La partie n’a pas de notes.</translation>
    </message>
    <message>
        <source>Too many notes at once</source>
        <translation>Trop de notes à la fois</translation>
    </message>
    <message>
        <source>%1 notes sound at once; the limit is %2.</source>
        <translation>%1 notes sonnent à la fois&#xa0;; la limite est de %2.</translation>
    </message>
    <message>
        <source>Unknown instruments</source>
        <translation>Instruments inconnus</translation>
    </message>
    <message>
        <source>The game has no instrument “%1”.%2</source>
        <translation>Le jeu n’a pas d’instrument «&#xa0;%1&#xa0;».%2</translation>
    </message>
    <message>
        <source>Name the instrument that is meant</source>
        <translation>Nommer l’instrument voulu</translation>
    </message>
    <message>
        <source>Notes without a sample</source>
        <translation>Notes sans échantillon</translation>
    </message>
    <message>
        <source>%2 has no sample for %1: the note stays silent.</source>
        <translation>%2 n’a pas d’échantillon pour %1&#xa0;: la note reste muette.</translation>
    </message>
    <message>
        <source>Notes far from their sample</source>
        <translation>Notes loin de leur échantillon</translation>
    </message>
    <message>
        <source>%1 is %2 semitones from its sample, and will not sound natural.</source>
        <translation>%1 est à %2 demi-tons de son échantillon et ne sonnera pas naturellement.</translation>
    </message>
    <message>
        <source>Tempos that differ</source>
        <translation>Tempos qui diffèrent</translation>
    </message>
    <message>
        <source>The part plays %1 quarter notes a minute here, most others %2.</source>
        <translation>La partie joue ici %1 noires à la minute, la plupart des autres %2.</translation>
    </message>
    <message>
        <source>Starts that differ</source>
        <translation>Débuts qui diffèrent</translation>
    </message>
    <message>
        <source>The part&apos;s first note comes %1 later than the song&apos;s.</source>
        <translation>La première note de la partie vient plus tard que celle du morceau&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Lengths that differ</source>
        <translation>Durées qui diffèrent</translation>
    </message>
    <message>
        <source>The part ends %1 before the longest one.</source>
        <translation>La partie finit avant la plus longue&#xa0;: %1.</translation>
    </message>
    <message>
        <source>%1 note</source>
        <translation>note de %1</translation>
    </message>
    <message>
        <source>a whole note</source>
        <translation>une ronde</translation>
    </message>
    <message>
        <source>%1 whole notes</source>
        <translation>%1 rondes</translation>
    </message>
    <message>
        <source>There is “%1”.</source>
        <translation>Il y a «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>With L:%1 it would have %2.</source>
        <translation>Avec L:%1, il en aurait %2.</translation>
    </message>
    <message>
        <source>Move by octaves to a sample</source>
        <translation>Déplacer par octaves vers un échantillon</translation>
    </message>
    <message>
        <source>Give it the tempo of the others</source>
        <translation>Lui donner le tempo des autres</translation>
    </message>
    <message>
        <source>End with rests</source>
        <translation>Finir par des silences</translation>
    </message>
</context>
<context>
    <name>FindingsModel</name>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>measure %1</source>
        <translation>mesure %1</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Quoi</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Où</translation>
    </message>
</context>
<context>
    <name>FindingsPanel</name>
    <message>
        <source>Fix</source>
        <translation>Corriger</translation>
    </message>
    <message>
        <source>Mend what is chosen, in the part&apos;s text</source>
        <translation>Corriger ce qui est choisi, dans le texte de la partie</translation>
    </message>
    <message>
        <source>Fix All of This Kind</source>
        <translation>Corriger tous ceux de ce genre</translation>
    </message>
    <message>
        <source>Mend it in all parts, as one step</source>
        <translation>Le corriger dans toutes les parties, en une seule étape</translation>
    </message>
    <message>
        <source>What the game would not play as it is meant</source>
        <translation>Ce que le jeu jouerait autrement que prévu</translation>
    </message>
    <message>
        <source>Nothing is known that the game would not play as it is meant.</source>
        <translation>Rien n’est connu que le jeu jouerait autrement que prévu.</translation>
    </message>
    <message>
        <source>A click shows the place in the editor.</source>
        <translation>Un clic montre l’endroit dans l’éditeur.</translation>
    </message>
    <message>
        <source>There are no parts yet.</source>
        <translation>Il n’y a pas encore de parties.</translation>
    </message>
</context>
<context>
    <name>FixedKeys</name>
    <message>
        <source>Cancel what takes long</source>
        <translation>Annuler ce qui dure longtemps</translation>
    </message>
    <message>
        <source>Next control</source>
        <translation>Commande suivante</translation>
    </message>
    <message>
        <source>Previous control</source>
        <translation>Commande précédente</translation>
    </message>
    <message>
        <source>Press the button, tick the box</source>
        <translation>Presser le bouton, cocher la case</translation>
    </message>
    <message>
        <source>Title of a track: rename it</source>
        <translation>Titre d’une piste&#xa0;: la renommer</translation>
    </message>
    <message>
        <source>Overview of a track: a measure back</source>
        <translation>Aperçu d’une piste&#xa0;: une mesure en arrière</translation>
    </message>
    <message>
        <source>Overview of a track: a measure on</source>
        <translation>Aperçu d’une piste&#xa0;: une mesure en avant</translation>
    </message>
    <message>
        <source>Overview of a track: to the start</source>
        <translation>Aperçu d’une piste&#xa0;: au début</translation>
    </message>
    <message>
        <source>Dial, slider or list: more, the one before</source>
        <translation>Molette, curseur ou liste&#xa0;: plus, le précédent</translation>
    </message>
    <message>
        <source>Dial, slider or list: less, the one behind</source>
        <translation>Molette, curseur ou liste&#xa0;: moins, le suivant</translation>
    </message>
    <message>
        <source>Dial: its usual value</source>
        <translation>Molette&#xa0;: sa valeur habituelle</translation>
    </message>
    <message>
        <source>List of instruments: open it</source>
        <translation>Liste des instruments&#xa0;: l’ouvrir</translation>
    </message>
    <message>
        <source>The menu of the track, the notes or the text</source>
        <translation>Le menu de la piste, des notes ou du texte</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuel</translation>
    </message>
    <message>
        <source>Take the first completion</source>
        <translation>Prendre la première proposition</translation>
    </message>
    <message>
        <source>Next word</source>
        <translation>Mot suivant</translation>
    </message>
    <message>
        <source>Previous word</source>
        <translation>Mot précédent</translation>
    </message>
    <message>
        <source>Start of the line</source>
        <translation>Début de la ligne</translation>
    </message>
    <message>
        <source>End of the line</source>
        <translation>Fin de la ligne</translation>
    </message>
    <message>
        <source>Start of the text</source>
        <translation>Début du texte</translation>
    </message>
    <message>
        <source>End of the text</source>
        <translation>Fin du texte</translation>
    </message>
    <message>
        <source>A page down</source>
        <translation>Une page vers le bas</translation>
    </message>
    <message>
        <source>A page up</source>
        <translation>Une page vers le haut</translation>
    </message>
    <message>
        <source>Select on</source>
        <translation>Sélectionner en avant</translation>
    </message>
    <message>
        <source>Select back</source>
        <translation>Sélectionner en arrière</translation>
    </message>
    <message>
        <source>Select to the next word</source>
        <translation>Sélectionner jusqu’au mot suivant</translation>
    </message>
    <message>
        <source>Select to the previous word</source>
        <translation>Sélectionner jusqu’au mot précédent</translation>
    </message>
    <message>
        <source>Select down</source>
        <translation>Sélectionner vers le bas</translation>
    </message>
    <message>
        <source>Select up</source>
        <translation>Sélectionner vers le haut</translation>
    </message>
    <message>
        <source>Delete to the end of the word</source>
        <translation>Effacer jusqu’à la fin du mot</translation>
    </message>
    <message>
        <source>Delete to the start of the word</source>
        <translation>Effacer jusqu’au début du mot</translation>
    </message>
</context>
<context>
    <name>FmodLibrary</name>
    <message>
        <source>There is no file %1.</source>
        <translation>Il n’y a pas de fichier %1.</translation>
    </message>
    <message>
        <source>%1 is no FMOD library, or one that is not supported: it has no %2.</source>
        <translation>%1 n’est pas une bibliothèque FMOD, ou n’est pas prise en charge&#xa0;: il lui manque %2.</translation>
    </message>
    <message>
        <source>%1 does not start: FMOD Error: %2</source>
        <translation>%1 ne démarre pas&#xa0;: erreur FMOD&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is FMOD %2; 1.08 to 2.03 are supported.</source>
        <translation>%1 est FMOD %2&#xa0;; les versions 1.08 à 2.03 sont prises en charge.</translation>
    </message>
    <message>
        <source>No FMOD library was found.</source>
        <translation>Aucune bibliothèque FMOD n’a été trouvée.</translation>
    </message>
</context>
<context>
    <name>ForeignNotation</name>
    <message>
        <source>repeats</source>
        <translation>reprises</translation>
    </message>
    <message>
        <source>voices</source>
        <translation>voix</translation>
    </message>
    <message>
        <source>tempo</source>
        <translation>tempo</translation>
    </message>
    <message>
        <source>bar lines</source>
        <translation>barres de mesure</translation>
    </message>
    <message>
        <source>ties</source>
        <translation>liaisons</translation>
    </message>
    <message>
        <source>signs that it cannot read</source>
        <translation>signes qu’il ne peut pas lire</translation>
    </message>
    <message>
        <source>accidentals or note lengths</source>
        <translation>altérations ou durées</translation>
    </message>
</context>
<context>
    <name>GameLocation</name>
    <message>
        <source>Kelvarion Composer requires Kelvarion to be installed in order to work.
Please specify where Kelvarion is installed.</source>
        <translation>Kelvarion Composer a besoin que Kelvarion soit installé.
Veuillez indiquer où Kelvarion est installé.</translation>
    </message>
    <message>
        <source>Please locate the Kelvarion directory.</source>
        <translation>Veuillez choisir le dossier de Kelvarion.</translation>
    </message>
    <message>
        <source>No Kelvarion installation was found at the specified directory.</source>
        <translation>Aucune installation de Kelvarion n’a été trouvée dans le dossier indiqué.</translation>
    </message>
</context>
<context>
    <name>GhostParts</name>
    <message>
        <source>&amp;All Parts</source>
        <translation>&amp;Toutes les parties</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Aucune</translation>
    </message>
</context>
<context>
    <name>ImportAgainDialog</name>
    <message>
        <source>Import Again</source>
        <translation>Importer à nouveau</translation>
    </message>
    <message>
        <source>What is read again; its parts are replaced</source>
        <translation>Ce qui est relu&#xa0;; ses parties sont remplacées</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Presse-papiers</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>Fichier&#xa0;:</translation>
    </message>
    <message>
        <source>The parts of this import are replaced, in one step that can be undone. Parts of the same name keep their instrument, volume and pan.</source>
        <translation>Les parties de cette importation sont remplacées, en une étape qui peut être annulée. Les parties de même nom gardent instrument, volume et panoramique.</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
</context>
<context>
    <name>ImportCommands</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 et %n autre</numerusform>
            <numerusform>%1 et %n autres</numerusform>
        </translation>
    </message>
    <message>
        <source>;;Songs (*.kvsong)</source>
        <translation>;;Morceaux (*.kvsong)</translation>
    </message>
    <message>
        <source>;;All music (*.abc *.kvsong *.mid *.midi *.kar *.mml)</source>
        <translation>;;Toute la musique (*.abc *.kvsong *.mid *.midi *.kar *.mml)</translation>
    </message>
    <message>
        <source>Open Tracks</source>
        <translation>Ouvrir des pistes</translation>
    </message>
    <message>
        <source>Loading ABC files...</source>
        <translation>Chargement des fichiers ABC...</translation>
    </message>
    <message>
        <source>;;Other endings of MIDI files (*.midi *.kar)</source>
        <translation>;;Autres extensions de fichiers MIDI (*.midi *.kar)</translation>
    </message>
    <message>
        <source>Import MIDI</source>
        <translation>Importer du MIDI</translation>
    </message>
    <message>
        <source>Paste Tracks</source>
        <translation>Coller des pistes</translation>
    </message>
    <message>
        <source>Reading the clipboard...</source>
        <translation>Lecture du presse-papiers...</translation>
    </message>
    <message>
        <source>Loading files...</source>
        <translation>Chargement des fichiers...</translation>
    </message>
    <message>
        <source>Import Again</source>
        <translation>Importer à nouveau</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Ouvrir des fichiers</translation>
    </message>
    <message>
        <source>These are no ABC or MIDI files, and no songs.</source>
        <translation>Ce ne sont ni des fichiers ABC ou MIDI, ni des morceaux.</translation>
    </message>
    <message>
        <source>Drop Files</source>
        <translation>Déposer des fichiers</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) were changed by another program:
%1
Would you like to read them again?</source>
        <translation>
            <numerusform>%n fichier a été modifié par un autre programme&#xa0;:
%1
Voulez-vous le relire&#xa0;?</numerusform>
            <numerusform>%n fichiers ont été modifiés par un autre programme&#xa0;:
%1
Voulez-vous les relire&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>Changed Files</source>
        <translation>Fichiers modifiés</translation>
    </message>
    <message>
        <source>Read Again</source>
        <translation>Relire</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Open ABC files or a song</source>
        <translation>Ouvrir des fichiers ABC ou un morceau</translation>
    </message>
    <message>
        <source>Import MIDI file into the editor</source>
        <translation>Importer un fichier MIDI</translation>
    </message>
    <message>
        <source>Import from Clipboard</source>
        <translation>Importer du presse-papiers</translation>
    </message>
    <message>
        <source>Import an ABC track from the clipboard</source>
        <translation>Importer une piste ABC du presse-papiers</translation>
    </message>
    <message>
        <source>Import Again...</source>
        <translation>Importer à nouveau...</translation>
    </message>
    <message>
        <source>Read a file that parts came from again, with other settings</source>
        <translation>Relire un fichier d’où viennent des parties, avec d’autres réglages</translation>
    </message>
    <message>
        <source>Choose ABC file(s) to open</source>
        <translation>Choisir les fichiers ABC à ouvrir</translation>
    </message>
    <message>
        <source>ABC files (*.abc)</source>
        <translation>Fichiers ABC (*.abc)</translation>
    </message>
    <message>
        <source>Choose MIDI file to import...</source>
        <translation>Choisir le fichier MIDI à importer...</translation>
    </message>
    <message>
        <source>MIDI files (*.mid)</source>
        <translation>Fichiers MIDI (*.mid)</translation>
    </message>
    <message>
        <source>Loading MIDI file...</source>
        <translation>Chargement du fichier MIDI...</translation>
    </message>
    <message>
        <source>Import from clipboard</source>
        <translation>Importer du presse-papiers</translation>
    </message>
    <message>
        <source>The clipboard does not contain anything to import.</source>
        <translation>Le presse-papiers ne contient rien à importer.</translation>
    </message>
    <message>
        <source>Import Files</source>
        <translation>Importer des fichiers</translation>
    </message>
</context>
<context>
    <name>ImportLimits</name>
    <message>
        <source>Too many tracks.</source>
        <translation>Trop de pistes.</translation>
    </message>
    <message>
        <source>Too many tempo, metre and key changes.</source>
        <translation>Trop de changements de tempo, de mesure et de tonalité.</translation>
    </message>
    <message>
        <source>Too many pitch bends.</source>
        <translation>Trop d’inflexions de hauteur.</translation>
    </message>
</context>
<context>
    <name>ImportPreviewDialog</name>
    <message>
        <source>Choose Parts</source>
        <translation>Choisir les parties</translation>
    </message>
    <message>
        <source>Choose Parts - %1</source>
        <translation>Choisir les parties - %1</translation>
    </message>
    <message>
        <source>What becomes parts of the song</source>
        <translation>Ce qui devient des parties du morceau</translation>
    </message>
    <message>
        <source>Listen to &amp;Part</source>
        <translation>Écouter la &amp;partie</translation>
    </message>
    <message>
        <source>Play the chosen part, or stop</source>
        <translation>Lire la partie choisie, ou arrêter</translation>
    </message>
    <message>
        <source>&amp;Listen to All</source>
        <translation>Écouter &amp;tout</translation>
    </message>
    <message>
        <source>Play all parts that are ticked, or stop</source>
        <translation>Lire toutes les parties cochées, ou arrêter</translation>
    </message>
    <message>
        <source>Tick &amp;All</source>
        <translation>Tout &amp;cocher</translation>
    </message>
    <message>
        <source>Every part is imported</source>
        <translation>Chaque partie est importée</translation>
    </message>
    <message>
        <source>Tick &amp;None</source>
        <translation>Tout &amp;décocher</translation>
    </message>
    <message>
        <source>No part is imported</source>
        <translation>Aucune partie n’est importée</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importer</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Lecture…</translation>
    </message>
    <message>
        <source>%1 of %2 parts, %3 notes, %4 characters</source>
        <translation>%1 parties sur %2, %3 notes, %4 caractères</translation>
    </message>
    <message>
        <source>; %1 notes would be lost or silent</source>
        <translation>; %1 notes seraient perdues ou muettes</translation>
    </message>
</context>
<context>
    <name>ImportQueue</name>
    <message numerus="yes">
        <source>%n more could not be read.</source>
        <translation>
            <numerusform>%n autre n’a pas pu être lu.</numerusform>
            <numerusform>%n autres n’ont pas pu être lus.</numerusform>
        </translation>
    </message>
    <message>
        <source>Error while reading files</source>
        <translation>Erreur à la lecture de fichiers</translation>
    </message>
    <message>
        <source>The text</source>
        <translation>Le texte</translation>
    </message>
    <message>
        <source>%1 uses notation that the game reads otherwise: %2.</source>
        <translation>%1 emploie une notation que le jeu lit autrement&#xa0;: %2.</translation>
    </message>
    <message>
        <source>So do %1 more.</source>
        <translation>De même pour %1 autres.</translation>
    </message>
    <message>
        <source>Converted for the game, it sounds as it is written. Opened as it is, it stays the same text and file.</source>
        <translation>Converti pour le jeu, cela sonne comme c’est écrit. Ouvert tel quel, cela reste le même texte et le même fichier.</translation>
    </message>
    <message>
        <source>Would you like to remove the existing tracks first?</source>
        <translation>Voulez-vous d’abord retirer les pistes existantes&#xa0;?</translation>
    </message>
</context>
<context>
    <name>ImportReportModel</name>
    <message>
        <source>measure %1</source>
        <translation>mesure %1</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1 (%2 sur %3)</translation>
    </message>
    <message>
        <source>Notes moved by up to %1 ms, %2 ms on average</source>
        <translation>Notes déplacées jusqu’à %1 ms, %2 ms en moyenne</translation>
    </message>
    <message>
        <source>In no part</source>
        <translation>Dans aucune partie</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Quoi</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Où</translation>
    </message>
</context>
<context>
    <name>ImportReportPanel</name>
    <message>
        <source>Import report</source>
        <translation>Rapport d’importation</translation>
    </message>
    <message>
        <source>A click shows the place, the next click the next one; a double click opens it in the editor</source>
        <translation>Un clic montre l’endroit, le clic suivant le suivant&#xa0;; un double clic l’ouvre dans l’éditeur</translation>
    </message>
    <message>
        <source>Of the last import there is nothing to report.</source>
        <translation>Il n’y a rien à signaler de la dernière importation.</translation>
    </message>
</context>
<context>
    <name>ImportReports</name>
    <message>
        <source>Import Report</source>
        <translation>Rapport d’importation</translation>
    </message>
    <message>
        <source>Show what the last import lost and changed</source>
        <translation>Montrer ce que la dernière importation a perdu et changé</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
</context>
<context>
    <name>ImportSettingsBox</name>
    <message>
        <source>End notes that are struck again</source>
        <translation>Terminer les notes rejouées</translation>
    </message>
    <message>
        <source>A note that is struck again while it sounds ends there, instead of being lost</source>
        <translation>Une note rejouée pendant qu’elle sonne finit là, au lieu d’être perdue</translation>
    </message>
    <message>
        <source>Use the sustain pedal</source>
        <translation>Utiliser la pédale de maintien</translation>
    </message>
    <message>
        <source>Notes sound on while the pedal is down</source>
        <translation>Les notes résonnent tant que la pédale est enfoncée</translation>
    </message>
    <message>
        <source>One part for each program of a channel</source>
        <translation>Une partie par programme d’un canal</translation>
    </message>
    <message>
        <source>A channel that changes its instrument becomes several parts</source>
        <translation>Un canal qui change d’instrument devient plusieurs parties</translation>
    </message>
    <message>
        <source>Use the names of MIDI tracks</source>
        <translation>Utiliser les noms des pistes MIDI</translation>
    </message>
    <message>
        <source>Parts are named after the tracks that they are from</source>
        <translation>Les parties portent le nom des pistes d’où elles viennent</translation>
    </message>
    <message>
        <source>Move notes out of range by octaves</source>
        <translation>Déplacer par octaves les notes hors de l’étendue</translation>
    </message>
    <message>
        <source>Notes that are too low or too high to be written are moved, instead of being left out</source>
        <translation>Les notes trop basses ou trop hautes pour être écrites sont déplacées au lieu d’être omises</translation>
    </message>
    <message>
        <source>Keep the tempo exactly</source>
        <translation>Garder le tempo exact</translation>
    </message>
    <message>
        <source>The tempo is not rounded to whole beats a minute</source>
        <translation>Le tempo n’est pas arrondi à des battements entiers par minute</translation>
    </message>
    <message>
        <source>Read tracks that the file does not count</source>
        <translation>Lire les pistes que le fichier ne compte pas</translation>
    </message>
    <message>
        <source>All tracks are read, however many the beginning of the file speaks of</source>
        <translation>Toutes les pistes sont lues, quel que soit le nombre annoncé au début du fichier</translation>
    </message>
    <message>
        <source>Auto-detect the note length of channels, too</source>
        <translation>Détecter aussi la valeur de base des canaux</translation>
    </message>
    <message>
        <source>The note length is also detected where there is one track per channel</source>
        <translation>La valeur de base est aussi détectée quand il y a une piste par canal</translation>
    </message>
    <message>
        <source>Quantise cleanly instead of re-aligning</source>
        <translation>Quantifier proprement au lieu de réaligner</translation>
    </message>
    <message>
        <source>Notes move to the grid that the music is on, measure by measure, and get lengths that are simple to write</source>
        <translation>Les notes vont sur la grille de la musique, mesure par mesure, et prennent des durées simples à écrire</translation>
    </message>
    <message>
        <source>Leave out notes softer than</source>
        <translation>Omettre les notes plus douces que</translation>
    </message>
    <message>
        <source>How hard a note must be struck to be meant: 0 to 127</source>
        <translation>La force de frappe à partir de laquelle une note est voulue&#xa0;: de 0 à 127</translation>
    </message>
    <message>
        <source>Play grace notes</source>
        <translation>Jouer les appoggiatures</translation>
    </message>
    <message>
        <source>They sound in time taken from the note behind them, instead of being left out</source>
        <translation>Elles sonnent dans un temps pris à la note suivante, au lieu d’être omises</translation>
    </message>
    <message>
        <source>Play chord names as an accompaniment</source>
        <translation>Jouer les noms d’accords en accompagnement</translation>
    </message>
    <message>
        <source>Chord names over the music become a part of their own, instead of a remark in its header</source>
        <translation>Les noms d’accords au-dessus de la musique deviennent une partie, au lieu d’une remarque dans l’en-tête</translation>
    </message>
    <message>
        <source>A tempo without a beat counts quarter notes</source>
        <translation>Un tempo sans unité compte des noires</translation>
    </message>
    <message>
        <source>&quot;Q:120&quot; is 120 quarter notes a minute, instead of 120 of the unit length of the tune</source>
        <translation>«&#xa0;Q:120&#xa0;» vaut 120 noires à la minute, au lieu de 120 valeurs de base de l’air</translation>
    </message>
    <message>
        <source>By Choice</source>
        <translation>Au choix</translation>
    </message>
    <message>
        <source>Converted ABC</source>
        <translation>ABC converti</translation>
    </message>
    <message>
        <source>Create one track per MIDI channel</source>
        <translation>Créer une piste par canal MIDI</translation>
    </message>
    <message>
        <source>If checked, all notes playing on the same channel will be merged into a single track, even if they are in separate tracks in the MIDI.</source>
        <translation>Si coché, toutes les notes d’un même canal sont réunies dans une seule piste, même si elles sont dans des pistes séparées du MIDI.</translation>
    </message>
    <message>
        <source>Automatically re-align notes after importing</source>
        <translation>Réaligner les notes automatiquement après l’importation</translation>
    </message>
    <message>
        <source>If checked, all notes will automatically be re-aligned after importing a MIDI.</source>
        <translation>Si coché, toutes les notes sont réalignées automatiquement après l’importation d’un MIDI.</translation>
    </message>
    <message>
        <source>Process pitch bending</source>
        <translation>Traiter les inflexions de hauteur</translation>
    </message>
    <message>
        <source>If checked, pitch bending in MIDIs will be approximated with additional notes</source>
        <translation>Si coché, les inflexions de hauteur des MIDI sont approchées par des notes supplémentaires</translation>
    </message>
    <message>
        <source>Auto-detect default note length to minimize ABC size</source>
        <translation>Détecter la valeur de base qui rend l’ABC le plus court</translation>
    </message>
    <message>
        <source>If checked, the unit length (L: header) of imported tracks will be optimized to produce the smallest ABC size. Otherwise the default of 1/4 will be used.</source>
        <translation>Si coché, la valeur de base (en-tête L:) des pistes importées est choisie pour que l’ABC soit le plus court. Sinon, la valeur par défaut 1/4 est utilisée.</translation>
    </message>
    <message>
        <source>Process note volume (Will not work in Kelvarion!)</source>
        <translation>Traiter le volume des notes (sans effet dans Kelvarion&#xa0;!)</translation>
    </message>
    <message>
        <source>If checked, the volume of notes will be imported as well. Do note that this will only affect the preview, the generated ABC is not affected as Kelvarin does not support volume changes.</source>
        <translation>Si coché, le volume des notes est aussi importé. Cela ne touche que la préécoute&#xa0;; l’ABC produit reste le même, car Kelvarion ne connaît pas les changements de volume.</translation>
    </message>
    <message>
        <source>Import Settings</source>
        <translation>Réglages d’importation</translation>
    </message>
</context>
<context>
    <name>ImportWords</name>
    <message>
        <source>struck again and lost</source>
        <translation>rejouées et perdues</translation>
    </message>
    <message>
        <source>Notes struck again and lost</source>
        <translation>Notes rejouées et perdues</translation>
    </message>
    <message>
        <source>too soft</source>
        <translation>trop douces</translation>
    </message>
    <message>
        <source>Notes too soft</source>
        <translation>Notes trop douces</translation>
    </message>
    <message>
        <source>out of range</source>
        <translation>hors de l’étendue</translation>
    </message>
    <message>
        <source>Notes out of range</source>
        <translation>Notes hors de l’étendue</translation>
    </message>
    <message>
        <source>moved by octaves</source>
        <translation>déplacées par octaves</translation>
    </message>
    <message>
        <source>Notes moved by octaves</source>
        <translation>Notes déplacées par octaves</translation>
    </message>
    <message>
        <source>never released</source>
        <translation>jamais relâchées</translation>
    </message>
    <message>
        <source>Notes never released</source>
        <translation>Notes jamais relâchées</translation>
    </message>
    <message>
        <source>silences by bar lines</source>
        <translation>silences dus aux barres de mesure</translation>
    </message>
    <message>
        <source>Silences by bar lines</source>
        <translation>Silences dus aux barres de mesure</translation>
    </message>
    <message>
        <source>measures longer than the metre</source>
        <translation>mesures plus longues que la métrique</translation>
    </message>
    <message>
        <source>Measures longer than the metre</source>
        <translation>Mesures plus longues que la métrique</translation>
    </message>
    <message>
        <source>repeats not played</source>
        <translation>reprises non jouées</translation>
    </message>
    <message>
        <source>Repeats not played</source>
        <translation>Reprises non jouées</translation>
    </message>
    <message>
        <source>ties lost</source>
        <translation>liaisons perdues</translation>
    </message>
    <message>
        <source>Ties lost</source>
        <translation>Liaisons perdues</translation>
    </message>
    <message>
        <source>tunes without a tempo</source>
        <translation>airs sans tempo</translation>
    </message>
    <message>
        <source>No tempo is written</source>
        <translation>Aucun tempo n’est écrit</translation>
    </message>
    <message>
        <source>signs and fields without a meaning</source>
        <translation>signes et champs sans signification</translation>
    </message>
    <message>
        <source>Signs and fields without a meaning</source>
        <translation>Signes et champs sans signification</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 of %2 notes were %3</source>
        <translation>%1 notes sur %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>worst shift %1 ms</source>
        <translation>plus grand décalage %1 ms</translation>
    </message>
</context>
<context>
    <name>InstrumentCommands</name>
    <message>
        <source>Load Instruments</source>
        <translation>Charger les instruments</translation>
    </message>
    <message>
        <source>Apply Instrument</source>
        <translation>Attribuer l’instrument</translation>
    </message>
    <message>
        <source>Apply this instrument to selected tracks or all if none are selected.</source>
        <translation>Attribuer cet instrument aux pistes sélectionnées, ou à toutes si aucune ne l’est.</translation>
    </message>
</context>
<context>
    <name>KeyDialog</name>
    <message>
        <source>0 sharps / flats</source>
        <translation>0 dièse / bémol</translation>
    </message>
    <message>
        <source>1 sharp</source>
        <translation>1 dièse</translation>
    </message>
    <message>
        <source>%1 sharps</source>
        <translation>%1 dièses</translation>
    </message>
    <message>
        <source>1 flat</source>
        <translation>1 bémol</translation>
    </message>
    <message>
        <source>%1 flats</source>
        <translation>%1 bémols</translation>
    </message>
    <message>
        <source>Include Major qualifier</source>
        <translation>Indiquer le mode majeur</translation>
    </message>
    <message>
        <source>Major / Ionian</source>
        <translation>Majeur / Ionien</translation>
    </message>
    <message>
        <source>Minor / Aeolian</source>
        <translation>Mineur / Éolien</translation>
    </message>
    <message>
        <source>Mixolydian</source>
        <translation>Mixolydien</translation>
    </message>
    <message>
        <source>Dorian</source>
        <translation>Dorien</translation>
    </message>
    <message>
        <source>Phrygian</source>
        <translation>Phrygien</translation>
    </message>
    <message>
        <source>Lydian</source>
        <translation>Lydien</translation>
    </message>
    <message>
        <source>Locrian</source>
        <translation>Locrien</translation>
    </message>
    <message>
        <source>As Major is the default mode, it does not have to be included explicitly. If this option is checked, it will be added regardless.</source>
        <translation>Le mode majeur va de soi et n’a pas besoin d’être indiqué. Si cette option est cochée, il est ajouté quand même.</translation>
    </message>
    <message>
        <source>New Key</source>
        <translation>Nouvelle tonalité</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Mode&#xa0;:</translation>
    </message>
    <message>
        <source>Sharps / flats:</source>
        <translation>Dièses / bémols&#xa0;:</translation>
    </message>
    <message>
        <source>New key:</source>
        <translation>Nouvelle tonalité&#xa0;:</translation>
    </message>
    <message>
        <source>Change Key</source>
        <translation>Changer la tonalité</translation>
    </message>
    <message>
        <source>You&apos;ve chosen a key that is not supported by Kelvarion.
Are you sure you want to continue?</source>
        <translation>Vous avez choisi une tonalité que Kelvarion ne connaît pas.
Voulez-vous vraiment continuer&#xa0;?</translation>
    </message>
</context>
<context>
    <name>KeyRecorder</name>
    <message>
        <source>Record Notes</source>
        <translation>Enregistrer des notes</translation>
    </message>
    <message>
        <source>Otherwise what was played becomes a part of its own.</source>
        <translation>Sinon, ce qui a été joué devient une partie à part.</translation>
    </message>
</context>
<context>
    <name>KeyboardGroup</name>
    <message>
        <source>MIDI Keyboard</source>
        <translation>Clavier MIDI</translation>
    </message>
    <message>
        <source>What is played on it sounds as the selected part</source>
        <translation>Ce qu’on y joue sonne comme la partie sélectionnée</translation>
    </message>
    <message>
        <source>Keyboard:</source>
        <translation>Clavier&#xa0;:</translation>
    </message>
    <message>
        <source>Connected:</source>
        <translation>Connecté&#xa0;:</translation>
    </message>
    <message>
        <source>Recorded notes on:</source>
        <translation>Enregistrement sur&#xa0;:</translation>
    </message>
    <message>
        <source>The first that is found</source>
        <translation>Le premier trouvé</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>%1 (not found)</source>
        <translation>%1 (introuvable)</translation>
    </message>
    <message>
        <source>Where notes begin and end that Record writes down</source>
        <translation>Où commencent et finissent les notes que l’enregistrement écrit</translation>
    </message>
    <message>
        <source>Eighths</source>
        <translation>Croches</translation>
    </message>
    <message>
        <source>Eighth triplets</source>
        <translation>Triolets de croches</translation>
    </message>
    <message>
        <source>Sixteenths</source>
        <translation>Doubles croches</translation>
    </message>
    <message>
        <source>Sixteenth triplets</source>
        <translation>Triolets de doubles croches</translation>
    </message>
    <message>
        <source>Thirty-seconds</source>
        <translation>Triples croches</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
</context>
<context>
    <name>LineNumbers</name>
    <message>
        <source>Line numbers</source>
        <translation>Numéros de ligne</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Edit Track</source>
        <translation>Modifier la piste</translation>
    </message>
    <message>
        <source>Remove Track</source>
        <translation>Retirer la piste</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrer la prise</translation>
    </message>
    <message>
        <source>No MIDI keyboard is connected.
Please plug one in, and see Tools, Preferences, Sound.</source>
        <translation>Aucun clavier MIDI n’est connecté.
Veuillez en brancher un&#xa0;; voyez Outils, Préférences, Son.</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Ouvrir un &amp;récent</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;Track</source>
        <translation>&amp;Piste</translation>
    </message>
    <message>
        <source>&amp;Song</source>
        <translation>&amp;Morceau</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Lecture</translation>
    </message>
    <message>
        <source>Count-In and Clicks</source>
        <translation>Décompte et clics</translation>
    </message>
    <message>
        <source>T&amp;ools</source>
        <translation>&amp;Outils</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Historique</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Every change; click on one to go back to it</source>
        <translation>Toutes les modifications&#xa0;; cliquez sur l’une pour y revenir</translation>
    </message>
    <message>
        <source>Show the list of changes</source>
        <translation>Montrer la liste des modifications</translation>
    </message>
    <message>
        <source>Default instrument</source>
        <translation>Instrument par défaut</translation>
    </message>
    <message>
        <source>This is the default instrument that will be assigned to new tracks</source>
        <translation>L’instrument par défaut, attribué aux nouvelles pistes</translation>
    </message>
    <message>
        <source>Default instrument for new tracks</source>
        <translation>Instrument par défaut des nouvelles pistes</translation>
    </message>
    <message>
        <source>Master level</source>
        <translation>Niveau général</translation>
    </message>
    <message>
        <source>The level of all tracks together; red at its end: it was too loud (click to put it out)</source>
        <translation>Le niveau de toutes les pistes ensemble&#xa0;; rouge au bout&#xa0;: c’était trop fort (cliquer pour l’éteindre)</translation>
    </message>
    <message>
        <source>Master volume</source>
        <translation>Volume général</translation>
    </message>
    <message>
        <source>The playback volume of all tracks</source>
        <translation>Le volume de lecture de toutes les pistes</translation>
    </message>
    <message>
        <source>Track Toolbar</source>
        <translation>Barre des pistes</translation>
    </message>
    <message>
        <source>Playback Controls</source>
        <translation>Barre de lecture</translation>
    </message>
    <message>
        <source>Instrument Toolbar</source>
        <translation>Barre des instruments</translation>
    </message>
    <message>
        <source>Meters Toolbar</source>
        <translation>Barre des niveaux</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n part(s) as ABC files</source>
        <translation>
            <numerusform>%n partie copiée comme fichier ABC</numerusform>
            <numerusform>%n parties copiées comme fichiers ABC</numerusform>
        </translation>
    </message>
    <message>
        <source>Kelvarion Composer has done its work</source>
        <translation>Kelvarion Composer a terminé</translation>
    </message>
</context>
<context>
    <name>ManualWindow</name>
    <message>
        <source>Manual - Kelvarion Composer</source>
        <translation>Manuel - Kelvarion Composer</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuel</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Sommaire</translation>
    </message>
    <message>
        <source>Find in this page</source>
        <translation>Rechercher dans cette page</translation>
    </message>
</context>
<context>
    <name>MarkTexts</name>
    <message>
        <source>free</source>
        <translation>libre</translation>
    </message>
</context>
<context>
    <name>MergeTracks</name>
    <message>
        <source>Cannot merge tracks with different tempos</source>
        <translation>Impossible de fusionner des pistes de tempos différents</translation>
    </message>
</context>
<context>
    <name>MidiExport</name>
    <message>
        <source>The song is too long for a MIDI file.</source>
        <translation>Le morceau est trop long pour un fichier MIDI.</translation>
    </message>
    <message>
        <source>A MIDI file has at most %1 parts.</source>
        <translation>Un fichier MIDI a au plus %1 parties.</translation>
    </message>
</context>
<context>
    <name>MidiImport</name>
    <message>
        <source>Invalid MIDI file.</source>
        <translation>Fichier MIDI non valide.</translation>
    </message>
    <message>
        <source>Unsupported MIDI type %1.</source>
        <translation>Le type MIDI %1 n’est pas pris en charge.</translation>
    </message>
    <message>
        <source>SMPTE time divisions are currently unsupported.</source>
        <translation>Les divisions de temps SMPTE ne sont pas prises en charge actuellement.</translation>
    </message>
    <message>
        <source>Unknown MIDI channel event 0x%1.</source>
        <translation>Événement de canal MIDI inconnu 0x%1.</translation>
    </message>
    <message>
        <source>Unknown MIDI system event 0x%1.</source>
        <translation>Événement système MIDI inconnu 0x%1.</translation>
    </message>
</context>
<context>
    <name>NotationExport</name>
    <message numerus="yes">
        <source>%n note(s) end where their pitch begins again</source>
        <translation>
            <numerusform>%n note finit là où sa hauteur recommence</numerusform>
            <numerusform>%n notes finissent là où leur hauteur recommence</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n note(s) are too high for MIDI</source>
        <translation>
            <numerusform>%n note est trop haute pour le MIDI</numerusform>
            <numerusform>%n notes sont trop hautes pour le MIDI</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n part(s) are written in the tempo of the longest</source>
        <translation>
            <numerusform>%n partie est écrite au tempo de la plus longue</numerusform>
            <numerusform>%n parties sont écrites au tempo de la plus longue</numerusform>
        </translation>
    </message>
    <message>
        <source>Export MIDI</source>
        <translation>Exporter en MIDI</translation>
    </message>
    <message>
        <source>MIDI file (*.mid)</source>
        <translation>Fichier MIDI (*.mid)</translation>
    </message>
    <message>
        <source>Export Tunebook</source>
        <translation>Exporter un recueil</translation>
    </message>
    <message>
        <source>ABC Files (*.abc)</source>
        <translation>Fichiers ABC (*.abc)</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Export MIDI...</source>
        <translation>Exporter en MIDI...</translation>
    </message>
    <message>
        <source>Write all parts into one MIDI file</source>
        <translation>Écrire toutes les parties dans un fichier MIDI</translation>
    </message>
    <message>
        <source>Export Tunebook...</source>
        <translation>Exporter un recueil...</translation>
    </message>
    <message>
        <source>Write all parts into one ABC file, as tunes</source>
        <translation>Écrire toutes les parties dans un fichier ABC, comme des airs</translation>
    </message>
</context>
<context>
    <name>NoteScheduler</name>
    <message>
        <source>Notes are silent: samples of the game cannot be read.</source>
        <translation>Des notes sont muettes : des échantillons du jeu ne peuvent pas être lus.</translation>
    </message>
    <message>
        <source>Notes are missing: the samples that sound at once need too much memory.</source>
        <translation>Des notes manquent&#xa0;: les échantillons qui sonnent à la fois demandent trop de mémoire.</translation>
    </message>
    <message>
        <source>Notes are missing: samples could not be loaded in time.</source>
        <translation>Des notes manquent&#xa0;: des échantillons n’ont pas pu être chargés à temps.</translation>
    </message>
</context>
<context>
    <name>NoteText</name>
    <message>
        <source>Measure %1, beat %2</source>
        <translation>Mesure %1, temps %2</translation>
    </message>
</context>
<context>
    <name>OneTempoDialog</name>
    <message>
        <source>Every note &amp;sounds when it did</source>
        <translation>Chaque note &amp;sonne quand elle sonnait</translation>
    </message>
    <message>
        <source>Every note keeps its &amp;written length</source>
        <translation>Chaque note garde sa durée &amp;écrite</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Notes are written anew in the other tempo, as nearly as can be</source>
        <translation>Les notes sont réécrites dans l’autre tempo, au plus près</translation>
    </message>
    <message>
        <source>Only the tempos change, for parts whose tempo was wrong</source>
        <translation>Seuls les tempos changent, pour les parties dont le tempo était faux</translation>
    </message>
    <message>
        <source>All parts get the &amp;tempo of</source>
        <translation>Toutes les parties prennent le &amp;tempo de</translation>
    </message>
    <message>
        <source>One Tempo for All</source>
        <translation>Un seul tempo pour tous</translation>
    </message>
</context>
<context>
    <name>PartFiles</name>
    <message>
        <source>Copy as File</source>
        <translation>Copier comme fichier</translation>
    </message>
    <message>
        <source>Copy the track that has the keys, or all that are selected with it, as ABC files</source>
        <translation>Copier la piste qui a le clavier, ou toutes celles sélectionnées avec elle, comme fichiers ABC</translation>
    </message>
</context>
<context>
    <name>PartsFolder</name>
    <message>
        <source>Save Parts to Folder</source>
        <translation>Enregistrer les parties dans un dossier</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) are there already:
%1
Would you like to overwrite them?</source>
        <translation>
            <numerusform>%n fichier existe déjà&#xa0;:
%1
Voulez-vous le remplacer&#xa0;?</numerusform>
            <numerusform>%n fichiers existent déjà&#xa0;:
%1
Voulez-vous les remplacer&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>Could not open the file for saving.</source>
        <translation>Impossible d’ouvrir le fichier pour l’enregistrement.</translation>
    </message>
</context>
<context>
    <name>PartsTable</name>
    <message>
        <source>Part</source>
        <translation>Partie</translation>
    </message>
    <message>
        <source>Whether it becomes a part of the song</source>
        <translation>Si cela devient une partie du morceau</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>The instrument that the part gets; a choice is remembered for its program</source>
        <translation>L’instrument que prend la partie&#xa0;; un choix est retenu pour son programme</translation>
    </message>
    <message>
        <source>Octaves</source>
        <translation>Octaves</translation>
    </message>
    <message>
        <source>By how many octaves the notes are moved</source>
        <translation>De combien d’octaves les notes sont déplacées</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>The MIDI channel that it is from, and what it is played on there</source>
        <translation>Le canal MIDI d’où elle vient, et ce sur quoi elle y est jouée</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message>
        <source>How many notes it has</source>
        <translation>Combien de notes elle a</translation>
    </message>
    <message>
        <source>Lost</source>
        <translation>Perdues</translation>
    </message>
    <message>
        <source>How many notes nobody would hear</source>
        <translation>Combien de notes personne n’entendrait</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Étendue</translation>
    </message>
    <message>
        <source>Its lowest and its highest note</source>
        <translation>Sa note la plus basse et la plus haute</translation>
    </message>
    <message>
        <source>At once</source>
        <translation>À la fois</translation>
    </message>
    <message>
        <source>The most notes that sound at the same time</source>
        <translation>Le plus grand nombre de notes qui sonnent à la fois</translation>
    </message>
    <message>
        <source>Characters</source>
        <translation>Caractères</translation>
    </message>
    <message>
        <source>The length of its ABC text</source>
        <translation>La longueur de son texte ABC</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 notes are not on the instrument</source>
        <translation>%1 notes ne sont pas sur l’instrument</translation>
    </message>
    <message>
        <source>%1 notes are moved out of range</source>
        <translation>%1 notes sont déplacées hors de l’étendue</translation>
    </message>
</context>
<context>
    <name>PianoRoll</name>
    <message>
        <source>Piano roll</source>
        <translation>Piano roll</translation>
    </message>
    <message numerus="yes">
        <source>%n note(s) selected</source>
        <translation>
            <numerusform>%n note sélectionnée</numerusform>
            <numerusform>%n notes sélectionnées</numerusform>
        </translation>
    </message>
    <message>
        <source>tick %1</source>
        <translation>tick %1</translation>
    </message>
    <message>
        <source>length %1</source>
        <translation>durée %1</translation>
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
        <translation>La position&#xa0;: minutes, secondes et millièmes&#xa0;; mesure et temps</translation>
    </message>
</context>
<context>
    <name>PracticeCommands</name>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>1 Measure</source>
        <translation>1 mesure</translation>
    </message>
    <message>
        <source>%1 Measures</source>
        <translation>%1 mesures</translation>
    </message>
    <message>
        <source>Count-In</source>
        <translation>Décompte</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>Volume of the Clicks</source>
        <translation>Volume des clics</translation>
    </message>
    <message>
        <source>Band Rehearsal</source>
        <translation>Répétition de groupe</translation>
    </message>
    <message>
        <source>Let the parts come in a little sooner or later, as players do who start by hand; the song stays as it is</source>
        <translation>Faire entrer les parties un peu plus tôt ou plus tard, comme des joueurs qui démarrent à la main&#xa0;; le morceau reste tel quel</translation>
    </message>
    <message>
        <source>Rehearsal Offsets...</source>
        <translation>Décalages de répétition...</translation>
    </message>
    <message>
        <source>Choose by how much the parts come in sooner or later</source>
        <translation>Choisir de combien les parties entrent plus tôt ou plus tard</translation>
    </message>
    <message>
        <source>Metronome</source>
        <translation>Métronome</translation>
    </message>
    <message>
        <source>Click on every beat while the song is played; no export has the clicks</source>
        <translation>Cliquer à chaque temps pendant la lecture&#xa0;; aucune exportation ne contient les clics</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>What the preferences are about</source>
        <translation>De quoi parlent les préférences</translation>
    </message>
    <message>
        <source>ABC Import</source>
        <translation>Importation ABC</translation>
    </message>
    <message>
        <source>Programs</source>
        <translation>Programmes</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Son</translation>
    </message>
    <message>
        <source>Checks</source>
        <translation>Vérifications</translation>
    </message>
    <message>
        <source>The folder that Kelvarion is installed in</source>
        <translation>Le dossier où Kelvarion est installé</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Parcourir...</translation>
    </message>
    <message>
        <source>Choose the folder that Kelvarion is installed in</source>
        <translation>Choisir le dossier où Kelvarion est installé</translation>
    </message>
    <message>
        <source>Also offer the instruments of mods</source>
        <translation>Proposer aussi les instruments des mods</translation>
    </message>
    <message>
        <source>Show a line below every C</source>
        <translation>Montrer une ligne sous chaque do</translation>
    </message>
    <message>
        <source>Show where each measure begins</source>
        <translation>Montrer où commence chaque mesure</translation>
    </message>
    <message>
        <source>Note color</source>
        <translation>Couleur des notes</translation>
    </message>
    <message>
        <source>The color that notes are drawn in</source>
        <translation>La couleur dans laquelle les notes sont dessinées</translation>
    </message>
    <message>
        <source>Choose the color that notes are drawn in</source>
        <translation>Choisir la couleur dans laquelle les notes sont dessinées</translation>
    </message>
    <message>
        <source>Draw notes in the usual color again</source>
        <translation>Dessiner de nouveau les notes dans la couleur habituelle</translation>
    </message>
    <message>
        <source>Choose parts when importing</source>
        <translation>Choisir les parties à l’importation</translation>
    </message>
    <message>
        <source>Show what would become parts, and how, before Import MIDI brings them in</source>
        <translation>Montrer ce qui deviendrait des parties, et comment, avant que l’importation MIDI ne les apporte</translation>
    </message>
    <message>
        <source>Ask</source>
        <translation>Demander</translation>
    </message>
    <message>
        <source>Convert for the game</source>
        <translation>Convertir pour le jeu</translation>
    </message>
    <message>
        <source>Open as it is</source>
        <translation>Ouvrir tel quel</translation>
    </message>
    <message>
        <source>ABC that was written for other programs has repeats, voices and more that the game reads otherwise</source>
        <translation>L’ABC écrit pour d’autres programmes a des reprises, des voix et plus encore, que le jeu lit autrement</translation>
    </message>
    <message>
        <source>ABC that the game reads otherwise:</source>
        <translation>ABC que le jeu lit autrement&#xa0;:</translation>
    </message>
    <message>
        <source>Dark colors</source>
        <translation>Couleurs sombres</translation>
    </message>
    <message>
        <source>Draw the windows in dark colors</source>
        <translation>Dessiner les fenêtres en couleurs sombres</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenêtres</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>The language of menus, dialogs and messages, and how numbers are written</source>
        <translation>La langue des menus, des dialogues et des messages, et la façon d’écrire les nombres</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Langue&#xa0;:</translation>
    </message>
    <message>
        <source>This change will take effect next time you start Kelvarion Composer.</source>
        <translation>Cette modification prendra effet au prochain démarrage de Kelvarion Composer.</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message>
        <source>Instruments</source>
        <translation>Instruments</translation>
    </message>
    <message>
        <source>Track Preview</source>
        <translation>Aperçu des pistes</translation>
    </message>
    <message>
        <source>Midi Import</source>
        <translation>Importation MIDI</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apparence</translation>
    </message>
    <message>
        <source>Kelvarion Location:</source>
        <translation>Emplacement de Kelvarion&#xa0;:</translation>
    </message>
    <message>
        <source>Load instruments from mods directory</source>
        <translation>Charger les instruments du dossier des mods</translation>
    </message>
    <message>
        <source>Kelvarion</source>
        <translation>Kelvarion</translation>
    </message>
    <message>
        <source>Draw octave lines</source>
        <translation>Dessiner les lignes d’octave</translation>
    </message>
    <message>
        <source>Draw measure lines</source>
        <translation>Dessiner les lignes de mesure</translation>
    </message>
    <message>
        <source>Change color</source>
        <translation>Changer la couleur</translation>
    </message>
    <message>
        <source>Revert to default</source>
        <translation>Rétablir la couleur par défaut</translation>
    </message>
    <message>
        <source>Pick note color</source>
        <translation>Choisir la couleur des notes</translation>
    </message>
    <message>
        <source>Visualization</source>
        <translation>Visualisation</translation>
    </message>
    <message>
        <source>Please locate the Kelvarion directory.</source>
        <translation>Veuillez choisir le dossier de Kelvarion.</translation>
    </message>
    <message>
        <source>No Kelvarion installation was found at the specified directory.</source>
        <translation>Aucune installation de Kelvarion n’a été trouvée dans le dossier indiqué.</translation>
    </message>
    <message>
        <source>Open files in the running window</source>
        <translation>Ouvrir les fichiers dans la fenêtre déjà ouverte</translation>
    </message>
    <message>
        <source>Open what is opened in a file manager in the window that is there already</source>
        <translation>Ouvrir dans la fenêtre déjà présente ce qui est ouvert depuis un gestionnaire de fichiers</translation>
    </message>
</context>
<context>
    <name>ProblemList</name>
    <message>
        <source>Problems</source>
        <translation>Problèmes</translation>
    </message>
    <message>
        <source>Click a problem to go to it (F8 goes to the next)</source>
        <translation>Cliquer sur un problème pour y aller (F8 va au suivant)</translation>
    </message>
    <message>
        <source>No problems</source>
        <translation>Aucun problème</translation>
    </message>
    <message>
        <source>… and %1 more</source>
        <translation>… et %1 autres</translation>
    </message>
    <message>
        <source>Line %1, column %2: %3</source>
        <translation>Ligne %1, colonne %2&#xa0;: %3</translation>
    </message>
</context>
<context>
    <name>ProgramCommands</name>
    <message>
        <source>Exit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Exit Kelvarion Composer</source>
        <translation>Quitter Kelvarion Composer</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Préférences...</translation>
    </message>
    <message>
        <source>Show preferences</source>
        <translation>Montrer les préférences</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuel</translation>
    </message>
    <message>
        <source>How things are done, and what the game plays</source>
        <translation>Comment faire, et ce que joue le jeu</translation>
    </message>
    <message>
        <source>Check for updates...</source>
        <translation>Rechercher des mises à jour...</translation>
    </message>
    <message>
        <source>Check online for updates for Kelvarion Composer</source>
        <translation>Rechercher en ligne des mises à jour de Kelvarion Composer</translation>
    </message>
    <message>
        <source>About Kelvarion Composer...</source>
        <translation>À propos de Kelvarion Composer...</translation>
    </message>
    <message>
        <source>Donate</source>
        <translation>Faire un don</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Site web</translation>
    </message>
    <message>
        <source>About Kelvarion Composer</source>
        <translation>À propos de Kelvarion Composer</translation>
    </message>
    <message>
        <source>No updates</source>
        <translation>Aucune mise à jour</translation>
    </message>
    <message>
        <source>You are running the latest version of Kelvarion Composer.</source>
        <translation>Vous utilisez la dernière version de Kelvarion Composer.</translation>
    </message>
    <message>
        <source>Kelvarion Composer v%1 is available.
Would you like to download it now?</source>
        <translation>Kelvarion Composer v%1 est disponible.
Voulez-vous le télécharger maintenant&#xa0;?</translation>
    </message>
    <message>
        <source>Update available</source>
        <translation>Mise à jour disponible</translation>
    </message>
    <message>
        <source>Updates check failed</source>
        <translation>Échec de la recherche de mises à jour</translation>
    </message>
    <message>
        <source>Failed to check for updates: %1</source>
        <translation>La recherche de mises à jour a échoué&#xa0;: %1</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts...</source>
        <translation>Raccourcis clavier...</translation>
    </message>
    <message>
        <source>Show and change the keys of all commands</source>
        <translation>Montrer et changer les touches de toutes les commandes</translation>
    </message>
</context>
<context>
    <name>ProgramNames</name>
    <message>
        <source>Acoustic Grand Piano</source>
        <translation>Piano à queue</translation>
    </message>
    <message>
        <source>Bright Acoustic Piano</source>
        <translation>Piano brillant</translation>
    </message>
    <message>
        <source>Electric Grand Piano</source>
        <translation>Piano à queue électrique</translation>
    </message>
    <message>
        <source>Honky-tonk Piano</source>
        <translation>Piano bastringue</translation>
    </message>
    <message>
        <source>Electric Piano 1</source>
        <translation>Piano électrique 1</translation>
    </message>
    <message>
        <source>Electric Piano 2</source>
        <translation>Piano électrique 2</translation>
    </message>
    <message>
        <source>Harpsichord</source>
        <translation>Clavecin</translation>
    </message>
    <message>
        <source>Clavinet</source>
        <translation>Clavinet</translation>
    </message>
    <message>
        <source>Celesta</source>
        <translation>Célesta</translation>
    </message>
    <message>
        <source>Glockenspiel</source>
        <translation>Glockenspiel</translation>
    </message>
    <message>
        <source>Music Box</source>
        <translation>Boîte à musique</translation>
    </message>
    <message>
        <source>Vibraphone</source>
        <translation>Vibraphone</translation>
    </message>
    <message>
        <source>Marimba</source>
        <translation>Marimba</translation>
    </message>
    <message>
        <source>Xylophone</source>
        <translation>Xylophone</translation>
    </message>
    <message>
        <source>Tubular Bells</source>
        <translation>Cloches tubulaires</translation>
    </message>
    <message>
        <source>Dulcimer</source>
        <translation>Tympanon</translation>
    </message>
    <message>
        <source>Drawbar Organ</source>
        <translation>Orgue à tirettes</translation>
    </message>
    <message>
        <source>Percussive Organ</source>
        <translation>Orgue percussif</translation>
    </message>
    <message>
        <source>Rock Organ</source>
        <translation>Orgue rock</translation>
    </message>
    <message>
        <source>Church Organ</source>
        <translation>Orgue d’église</translation>
    </message>
    <message>
        <source>Reed Organ</source>
        <translation>Harmonium</translation>
    </message>
    <message>
        <source>Accordion</source>
        <translation>Accordéon</translation>
    </message>
    <message>
        <source>Harmonica</source>
        <translation>Harmonica</translation>
    </message>
    <message>
        <source>Tango Accordion</source>
        <translation>Bandonéon</translation>
    </message>
    <message>
        <source>Acoustic Guitar (nylon)</source>
        <translation>Guitare acoustique (nylon)</translation>
    </message>
    <message>
        <source>Acoustic Guitar (steel)</source>
        <translation>Guitare acoustique (acier)</translation>
    </message>
    <message>
        <source>Electric Guitar (jazz)</source>
        <translation>Guitare électrique (jazz)</translation>
    </message>
    <message>
        <source>Electric Guitar (clean)</source>
        <translation>Guitare électrique (claire)</translation>
    </message>
    <message>
        <source>Electric Guitar (muted)</source>
        <translation>Guitare électrique (étouffée)</translation>
    </message>
    <message>
        <source>Overdriven Guitar</source>
        <translation>Guitare saturée</translation>
    </message>
    <message>
        <source>Distortion Guitar</source>
        <translation>Guitare distorsion</translation>
    </message>
    <message>
        <source>Guitar Harmonics</source>
        <translation>Harmoniques de guitare</translation>
    </message>
    <message>
        <source>Acoustic Bass</source>
        <translation>Basse acoustique</translation>
    </message>
    <message>
        <source>Electric Bass (finger)</source>
        <translation>Basse électrique (doigts)</translation>
    </message>
    <message>
        <source>Electric Bass (pick)</source>
        <translation>Basse électrique (médiator)</translation>
    </message>
    <message>
        <source>Fretless Bass</source>
        <translation>Basse sans frettes</translation>
    </message>
    <message>
        <source>Slap Bass 1</source>
        <translation>Basse slap 1</translation>
    </message>
    <message>
        <source>Slap Bass 2</source>
        <translation>Basse slap 2</translation>
    </message>
    <message>
        <source>Synth Bass 1</source>
        <translation>Basse synthé 1</translation>
    </message>
    <message>
        <source>Synth Bass 2</source>
        <translation>Basse synthé 2</translation>
    </message>
    <message>
        <source>Violin</source>
        <translation>Violon</translation>
    </message>
    <message>
        <source>Viola</source>
        <translation>Alto</translation>
    </message>
    <message>
        <source>Cello</source>
        <translation>Violoncelle</translation>
    </message>
    <message>
        <source>Contrabass</source>
        <translation>Contrebasse</translation>
    </message>
    <message>
        <source>Tremolo Strings</source>
        <translation>Cordes trémolo</translation>
    </message>
    <message>
        <source>Pizzicato Strings</source>
        <translation>Cordes pizzicato</translation>
    </message>
    <message>
        <source>Orchestral Harp</source>
        <translation>Harpe</translation>
    </message>
    <message>
        <source>Timpani</source>
        <translation>Timbales</translation>
    </message>
    <message>
        <source>String Ensemble 1</source>
        <translation>Ensemble à cordes 1</translation>
    </message>
    <message>
        <source>String Ensemble 2</source>
        <translation>Ensemble à cordes 2</translation>
    </message>
    <message>
        <source>Synth Strings 1</source>
        <translation>Cordes synthé 1</translation>
    </message>
    <message>
        <source>Synth Strings 2</source>
        <translation>Cordes synthé 2</translation>
    </message>
    <message>
        <source>Choir Aahs</source>
        <translation>Chœur Aah</translation>
    </message>
    <message>
        <source>Voice Oohs</source>
        <translation>Voix Ooh</translation>
    </message>
    <message>
        <source>Synth Choir</source>
        <translation>Chœur synthé</translation>
    </message>
    <message>
        <source>Orchestra Hit</source>
        <translation>Coup d’orchestre</translation>
    </message>
    <message>
        <source>Trumpet</source>
        <translation>Trompette</translation>
    </message>
    <message>
        <source>Trombone</source>
        <translation>Trombone</translation>
    </message>
    <message>
        <source>Tuba</source>
        <translation>Tuba</translation>
    </message>
    <message>
        <source>Muted Trumpet</source>
        <translation>Trompette bouchée</translation>
    </message>
    <message>
        <source>French Horn</source>
        <translation>Cor d’harmonie</translation>
    </message>
    <message>
        <source>Brass Section</source>
        <translation>Cuivres</translation>
    </message>
    <message>
        <source>Synth Brass 1</source>
        <translation>Cuivres synthé 1</translation>
    </message>
    <message>
        <source>Synth Brass 2</source>
        <translation>Cuivres synthé 2</translation>
    </message>
    <message>
        <source>Soprano Sax</source>
        <translation>Saxophone soprano</translation>
    </message>
    <message>
        <source>Alto Sax</source>
        <translation>Saxophone alto</translation>
    </message>
    <message>
        <source>Tenor Sax</source>
        <translation>Saxophone ténor</translation>
    </message>
    <message>
        <source>Baritone Sax</source>
        <translation>Saxophone baryton</translation>
    </message>
    <message>
        <source>Oboe</source>
        <translation>Hautbois</translation>
    </message>
    <message>
        <source>English Horn</source>
        <translation>Cor anglais</translation>
    </message>
    <message>
        <source>Bassoon</source>
        <translation>Basson</translation>
    </message>
    <message>
        <source>Clarinet</source>
        <translation>Clarinette</translation>
    </message>
    <message>
        <source>Piccolo</source>
        <translation>Piccolo</translation>
    </message>
    <message>
        <source>Flute</source>
        <translation>Flûte</translation>
    </message>
    <message>
        <source>Recorder</source>
        <translation>Flûte à bec</translation>
    </message>
    <message>
        <source>Pan Flute</source>
        <translation>Flûte de Pan</translation>
    </message>
    <message>
        <source>Blown bottle</source>
        <translation>Bouteille soufflée</translation>
    </message>
    <message>
        <source>Shakuhachi</source>
        <translation>Shakuhachi</translation>
    </message>
    <message>
        <source>Whistle</source>
        <translation>Flageolet</translation>
    </message>
    <message>
        <source>Ocarina</source>
        <translation>Ocarina</translation>
    </message>
    <message>
        <source>Lead 1 (square)</source>
        <translation>Lead 1 (carré)</translation>
    </message>
    <message>
        <source>Lead 2 (sawtooth)</source>
        <translation>Lead 2 (dent de scie)</translation>
    </message>
    <message>
        <source>Lead 3 (calliope)</source>
        <translation>Lead 3 (calliope)</translation>
    </message>
    <message>
        <source>Lead 4 (chiff)</source>
        <translation>Lead 4 (souffle)</translation>
    </message>
    <message>
        <source>Lead 5 (charang)</source>
        <translation>Lead 5 (charango)</translation>
    </message>
    <message>
        <source>Lead 6 (voice)</source>
        <translation>Lead 6 (voix)</translation>
    </message>
    <message>
        <source>Lead 7 (fifths)</source>
        <translation>Lead 7 (quintes)</translation>
    </message>
    <message>
        <source>Lead 8 (bass + lead)</source>
        <translation>Lead 8 (basse + lead)</translation>
    </message>
    <message>
        <source>Pad 1 (new age)</source>
        <translation>Nappe 1 (new age)</translation>
    </message>
    <message>
        <source>Pad 2 (warm)</source>
        <translation>Nappe 2 (chaude)</translation>
    </message>
    <message>
        <source>Pad 3 (polysynth)</source>
        <translation>Nappe 3 (polysynthé)</translation>
    </message>
    <message>
        <source>Pad 4 (choir)</source>
        <translation>Nappe 4 (chœur)</translation>
    </message>
    <message>
        <source>Pad 5 (bowed)</source>
        <translation>Nappe 5 (archet)</translation>
    </message>
    <message>
        <source>Pad 6 (metallic)</source>
        <translation>Nappe 6 (métallique)</translation>
    </message>
    <message>
        <source>Pad 7 (halo)</source>
        <translation>Nappe 7 (halo)</translation>
    </message>
    <message>
        <source>Pad 8 (sweep)</source>
        <translation>Nappe 8 (balayage)</translation>
    </message>
    <message>
        <source>FX 1 (rain)</source>
        <translation>Effet 1 (pluie)</translation>
    </message>
    <message>
        <source>FX 2 (soundtrack)</source>
        <translation>Effet 2 (bande-son)</translation>
    </message>
    <message>
        <source>FX 3 (crystal)</source>
        <translation>Effet 3 (cristal)</translation>
    </message>
    <message>
        <source>FX 4 (atmosphere)</source>
        <translation>Effet 4 (atmosphère)</translation>
    </message>
    <message>
        <source>FX 5 (brightness)</source>
        <translation>Effet 5 (clarté)</translation>
    </message>
    <message>
        <source>FX 6 (goblins)</source>
        <translation>Effet 6 (gobelins)</translation>
    </message>
    <message>
        <source>FX 7 (echoes)</source>
        <translation>Effet 7 (échos)</translation>
    </message>
    <message>
        <source>FX 8 (sci-fi)</source>
        <translation>Effet 8 (science-fiction)</translation>
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
        <translation>Cornemuse</translation>
    </message>
    <message>
        <source>Fiddle</source>
        <translation>Violon folk</translation>
    </message>
    <message>
        <source>Shanai</source>
        <translation>Shehnai</translation>
    </message>
    <message>
        <source>Tinkle Bell</source>
        <translation>Clochette</translation>
    </message>
    <message>
        <source>Agogo</source>
        <translation>Agogo</translation>
    </message>
    <message>
        <source>Steel Drums</source>
        <translation>Steel drums</translation>
    </message>
    <message>
        <source>Woodblock</source>
        <translation>Bloc de bois</translation>
    </message>
    <message>
        <source>Taiko Drum</source>
        <translation>Taïko</translation>
    </message>
    <message>
        <source>Melodic Tom</source>
        <translation>Tom mélodique</translation>
    </message>
    <message>
        <source>Synth Drum</source>
        <translation>Tambour synthé</translation>
    </message>
    <message>
        <source>Reverse Cymbal</source>
        <translation>Cymbale inversée</translation>
    </message>
    <message>
        <source>Guitar Fret Noise</source>
        <translation>Bruit de frettes</translation>
    </message>
    <message>
        <source>Breath Noise</source>
        <translation>Bruit de souffle</translation>
    </message>
    <message>
        <source>Seashore</source>
        <translation>Bord de mer</translation>
    </message>
    <message>
        <source>Bird Tweet</source>
        <translation>Chant d’oiseau</translation>
    </message>
    <message>
        <source>Telephone Ring</source>
        <translation>Sonnerie de téléphone</translation>
    </message>
    <message>
        <source>Helicopter</source>
        <translation>Hélicoptère</translation>
    </message>
    <message>
        <source>Applause</source>
        <translation>Applaudissements</translation>
    </message>
    <message>
        <source>Gunshot</source>
        <translation>Coup de feu</translation>
    </message>
    <message>
        <source>Percussion</source>
        <translation>Percussions</translation>
    </message>
</context>
<context>
    <name>ProgramsPage</name>
    <message>
        <source>Percussion</source>
        <translation>Percussions</translation>
    </message>
    <message>
        <source>Programs with a chosen instrument</source>
        <translation>Programmes avec un instrument choisi</translation>
    </message>
    <message>
        <source>MIDI program</source>
        <translation>Programme MIDI</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Oublier</translation>
    </message>
    <message>
        <source>The instrument that is proposed for the chosen programs</source>
        <translation>L’instrument proposé pour les programmes choisis</translation>
    </message>
    <message>
        <source>Propose an instrument by its name and kind again</source>
        <translation>Proposer de nouveau un instrument selon son nom et son genre</translation>
    </message>
    <message>
        <source>What you chose for a program when importing is proposed the next time.</source>
        <translation>Ce que vous avez choisi pour un programme à l’importation est proposé la fois suivante.</translation>
    </message>
    <message>
        <source>Chosen Instruments</source>
        <translation>Instruments choisis</translation>
    </message>
</context>
<context>
    <name>QMenu</name>
    <message>
        <source>%1, everywhere (%2)</source>
        <translation>%1, partout (%2)</translation>
    </message>
</context>
<context>
    <name>RealignNotesDialog</name>
    <message>
        <source>Quantization Precision</source>
        <translation>Précision de la quantification</translation>
    </message>
    <message>
        <source>Realign Notes</source>
        <translation>Réaligner les notes</translation>
    </message>
    <message>
        <source>The finest note that notes are moved onto</source>
        <translation>La plus fine note sur laquelle les notes sont déplacées</translation>
    </message>
    <message>
        <source>Regular</source>
        <translation>Binaires</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Ronde</translation>
    </message>
    <message>
        <source>Triplets</source>
        <translation>Triolets</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Quintuplets</source>
        <translation>Quintolets</translation>
    </message>
    <message>
        <source>Septuplets</source>
        <translation>Septolets</translation>
    </message>
    <message>
        <source>Nonuplets</source>
        <translation>Nonolets</translation>
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
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>Cannot be read</source>
        <translation>Illisible</translation>
    </message>
    <message>
        <source>Discarded</source>
        <translation>Abandonné</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>Non enregistré</translation>
    </message>
    <message>
        <source>It was never saved as a song.</source>
        <translation>Il n’a jamais été enregistré comme morceau.</translation>
    </message>
    <message>
        <source>Its song file: %1</source>
        <translation>Son fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>Songs that can be recovered</source>
        <translation>Morceaux récupérables</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>Parties</translation>
    </message>
    <message>
        <source>Last change</source>
        <translation>Dernière modification</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Recover Songs</source>
        <translation>Récupérer des morceaux</translation>
    </message>
    <message>
        <source>The program ended before these songs were saved. They are as they were at the last moment.</source>
        <translation>Le programme s’est terminé avant que ces morceaux soient enregistrés. Ils sont tels qu’au dernier moment.</translation>
    </message>
    <message>
        <source>Songs that were not saved, and songs that were discarded in the last 7 days.</source>
        <translation>Morceaux non enregistrés, et morceaux abandonnés ces 7 derniers jours.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Récupérer</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Supprimer…</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Plus tard</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Open the chosen song as it was</source>
        <translation>Ouvrir le morceau choisi tel qu’il était</translation>
    </message>
    <message>
        <source>Delete the chosen songs for good</source>
        <translation>Supprimer définitivement les morceaux choisis</translation>
    </message>
    <message>
        <source>Keep the songs; File &gt; Recover… shows them again</source>
        <translation>Garder les morceaux&#xa0;; Fichier &gt; Récupérer… les montre de nouveau</translation>
    </message>
</context>
<context>
    <name>RehearsalDialog</name>
    <message>
        <source>&amp;New dice each time that Play is pressed</source>
        <translation>&amp;Nouveau tirage à chaque lecture</translation>
    </message>
    <message>
        <source>&amp;These offsets:</source>
        <translation>&amp;Ces décalages&#xa0;:</translation>
    </message>
    <message>
        <source>Band Rehearsal</source>
        <translation>Répétition de groupe</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>Hear the parts as a band plays them that starts by hand: some come in sooner, some later. The song itself stays as it is.</source>
        <translation>Écoutez les parties comme les joue un groupe qui démarre à la main&#xa0;: les unes entrent plus tôt, les autres plus tard. Le morceau lui-même reste tel quel.</translation>
    </message>
    <message>
        <source>Throw &amp;Dice</source>
        <translation>&amp;Tirer au sort</translation>
    </message>
    <message>
        <source>Up to, &amp;sooner or later:</source>
        <translation>Jusqu’à, &amp;plus tôt ou plus tard&#xa0;:</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Partie</translation>
    </message>
    <message>
        <source>Offset (ms)</source>
        <translation>Décalage (ms)</translation>
    </message>
</context>
<context>
    <name>RenderPlan</name>
    <message>
        <source>%1 % of the samples are clipped</source>
        <translation>%1&#xa0;% des échantillons sont saturés</translation>
    </message>
</context>
<context>
    <name>RenderWorker</name>
    <message numerus="yes">
        <source>%n sample(s) could not be read, and their notes are silent</source>
        <translation>
            <numerusform>%n échantillon n’a pas pu être lu, et ses notes sont muettes</numerusform>
            <numerusform>%n échantillons n’ont pas pu être lus, et leurs notes sont muettes</numerusform>
        </translation>
    </message>
    <message>
        <source>This sound engine writes nothing but plain WAV files.</source>
        <translation>Ce moteur audio n’écrit que des fichiers WAV simples.</translation>
    </message>
    <message>
        <source>No part is heard, so that there is nothing to write.</source>
        <translation>Aucune partie n’est audible, il n’y a donc rien à écrire.</translation>
    </message>
    <message>
        <source>%1 files cannot be written here.</source>
        <translation>Les fichiers %1 ne peuvent pas être écrits ici.</translation>
    </message>
    <message>
        <source>The song is too long for a file of this kind: %1.</source>
        <translation>Le morceau est trop long pour un fichier de ce type&#xa0;: %1.</translation>
    </message>
    <message>
        <source>There are more than %1 tracks.</source>
        <translation>Il y a plus de %1 pistes.</translation>
    </message>
    <message>
        <source>The song is longer than 6 hours.</source>
        <translation>Le morceau dure plus de 6 heures.</translation>
    </message>
</context>
<context>
    <name>RewriteQuestion</name>
    <message numerus="yes">
        <source>%n bar line(s)</source>
        <translation>
            <numerusform>%n barre de mesure</numerusform>
            <numerusform>%n barres de mesure</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chord symbol(s) and text(s) above the staff</source>
        <translation>
            <numerusform>%n chiffrage d’accord ou texte au-dessus de la portée</numerusform>
            <numerusform>%n chiffrages d’accords et textes au-dessus de la portée</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n decoration(s), grace notes and slurs</source>
        <translation>
            <numerusform>%n ornement, appoggiature ou liaison</numerusform>
            <numerusform>%n ornements, appoggiatures et liaisons</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n comment(s)</source>
        <translation>
            <numerusform>%n commentaire</numerusform>
            <numerusform>%n commentaires</numerusform>
        </translation>
    </message>
    <message>
        <source>its line breaks and its own way of writing notes</source>
        <translation>ses sauts de ligne et sa propre façon d’écrire les notes</translation>
    </message>
    <message>
        <source>The whole text must be written anew for this change. The notes stay as they are, but the text loses: %1.

Write it anew?</source>
        <translation>Pour cette modification, tout le texte doit être réécrit. Les notes restent telles quelles, mais le texte perd&#xa0;: %1.

Le réécrire&#xa0;?</translation>
    </message>
</context>
<context>
    <name>RollActions</name>
    <message>
        <source>Snap to %1</source>
        <translation>Aimanter à %1</translation>
    </message>
    <message>
        <source>&amp;Select Notes</source>
        <translation>&amp;Sélectionner des notes</translation>
    </message>
    <message>
        <source>Select, move and resize notes with the mouse; a double click inserts one</source>
        <translation>Sélectionner, déplacer et redimensionner des notes à la souris&#xa0;; un double clic en insère une</translation>
    </message>
    <message>
        <source>&amp;Draw Notes</source>
        <translation>&amp;Dessiner des notes</translation>
    </message>
    <message>
        <source>Draw notes with the mouse</source>
        <translation>Dessiner des notes à la souris</translation>
    </message>
    <message>
        <source>&amp;Insert Note</source>
        <translation>&amp;Insérer une note</translation>
    </message>
    <message>
        <source>Insert a note at the cursor</source>
        <translation>Insérer une note au curseur</translation>
    </message>
    <message>
        <source>Cu&amp;t Notes</source>
        <translation>Coup&amp;er les notes</translation>
    </message>
    <message>
        <source>Move the selected notes to the clipboard</source>
        <translation>Déplacer les notes sélectionnées dans le presse-papiers</translation>
    </message>
    <message>
        <source>&amp;Copy Notes</source>
        <translation>&amp;Copier les notes</translation>
    </message>
    <message>
        <source>Copy the selected notes to the clipboard, as ABC</source>
        <translation>Copier les notes sélectionnées dans le presse-papiers, en ABC</translation>
    </message>
    <message>
        <source>&amp;Paste Notes</source>
        <translation>C&amp;oller les notes</translation>
    </message>
    <message>
        <source>Insert the notes of the clipboard at the cursor</source>
        <translation>Insérer les notes du presse-papiers au curseur</translation>
    </message>
    <message>
        <source>D&amp;uplicate Notes</source>
        <translation>D&amp;upliquer les notes</translation>
    </message>
    <message>
        <source>Repeat the selected notes behind themselves</source>
        <translation>Répéter les notes sélectionnées à leur suite</translation>
    </message>
    <message>
        <source>Delete N&amp;otes</source>
        <translation>Su&amp;pprimer les notes</translation>
    </message>
    <message>
        <source>Delete the selected notes</source>
        <translation>Supprimer les notes sélectionnées</translation>
    </message>
    <message>
        <source>Select &amp;All Notes</source>
        <translation>Sélectionner &amp;toutes les notes</translation>
    </message>
    <message>
        <source>Select every note</source>
        <translation>Sélectionner toutes les notes</translation>
    </message>
    <message>
        <source>Select &amp;No Notes</source>
        <translation>&amp;Ne rien sélectionner</translation>
    </message>
    <message>
        <source>Take back the selection, or the drag in progress</source>
        <translation>Annuler la sélection ou le glissement en cours</translation>
    </message>
    <message>
        <source>Select Next Note</source>
        <translation>Sélectionner la note suivante</translation>
    </message>
    <message>
        <source>Select the note after the selection or the cursor</source>
        <translation>Sélectionner la note après la sélection ou le curseur</translation>
    </message>
    <message>
        <source>Select Previous Note</source>
        <translation>Sélectionner la note précédente</translation>
    </message>
    <message>
        <source>Select the note before the selection or the cursor</source>
        <translation>Sélectionner la note avant la sélection ou le curseur</translation>
    </message>
    <message>
        <source>Extend Selection to Next Note</source>
        <translation>Étendre la sélection à la note suivante</translation>
    </message>
    <message>
        <source>Add the next note to the selection</source>
        <translation>Ajouter la note suivante à la sélection</translation>
    </message>
    <message>
        <source>Extend Selection to Previous Note</source>
        <translation>Étendre la sélection à la note précédente</translation>
    </message>
    <message>
        <source>Add the previous note to the selection</source>
        <translation>Ajouter la note précédente à la sélection</translation>
    </message>
    <message>
        <source>Move Earlier</source>
        <translation>Avancer</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, one grid step back</source>
        <translation>Déplacer les notes sélectionnées, ou le curseur, d’un pas de grille en arrière</translation>
    </message>
    <message>
        <source>Move Later</source>
        <translation>Retarder</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, one grid step on</source>
        <translation>Déplacer les notes sélectionnées, ou le curseur, d’un pas de grille en avant</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, a semitone up</source>
        <translation>Monter les notes sélectionnées, ou le curseur, d’un demi-ton</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, a semitone down</source>
        <translation>Descendre les notes sélectionnées, ou le curseur, d’un demi-ton</translation>
    </message>
    <message>
        <source>Move an Octave Up</source>
        <translation>Monter d’une octave</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, an octave up</source>
        <translation>Monter les notes sélectionnées, ou le curseur, d’une octave</translation>
    </message>
    <message>
        <source>Move an Octave Down</source>
        <translation>Descendre d’une octave</translation>
    </message>
    <message>
        <source>Move the selected notes, or the cursor, an octave down</source>
        <translation>Descendre les notes sélectionnées, ou le curseur, d’une octave</translation>
    </message>
    <message>
        <source>Move a Measure Earlier</source>
        <translation>Avancer d’une mesure</translation>
    </message>
    <message>
        <source>Move the selected notes a measure back, or the cursor to its start</source>
        <translation>Déplacer les notes sélectionnées d’une mesure en arrière, ou le curseur à son début</translation>
    </message>
    <message>
        <source>Move a Measure Later</source>
        <translation>Retarder d’une mesure</translation>
    </message>
    <message>
        <source>Move the selected notes a measure on, or the cursor to the next one</source>
        <translation>Déplacer les notes sélectionnées d’une mesure en avant, ou le curseur à la suivante</translation>
    </message>
    <message>
        <source>&amp;Lengthen</source>
        <translation>&amp;Allonger</translation>
    </message>
    <message>
        <source>Make the selected notes one grid step longer</source>
        <translation>Allonger les notes sélectionnées d’un pas de grille</translation>
    </message>
    <message>
        <source>Sho&amp;rten</source>
        <translation>&amp;Raccourcir</translation>
    </message>
    <message>
        <source>Make the selected notes one grid step shorter</source>
        <translation>Raccourcir les notes sélectionnées d’un pas de grille</translation>
    </message>
    <message>
        <source>Cursor to Start</source>
        <translation>Curseur au début</translation>
    </message>
    <message>
        <source>Set the cursor to the start of the track</source>
        <translation>Placer le curseur au début de la piste</translation>
    </message>
    <message>
        <source>Cursor to End</source>
        <translation>Curseur à la fin</translation>
    </message>
    <message>
        <source>Set the cursor behind the last note</source>
        <translation>Placer le curseur après la dernière note</translation>
    </message>
    <message>
        <source>Play or Stop</source>
        <translation>Lire ou arrêter</translation>
    </message>
    <message>
        <source>Play the track from the cursor on, or stop what plays</source>
        <translation>Lire la piste depuis le curseur, ou arrêter ce qui joue</translation>
    </message>
    <message>
        <source>Play from Cursor</source>
        <translation>Lire depuis le curseur</translation>
    </message>
    <message>
        <source>Play the track from the cursor on</source>
        <translation>Lire la piste depuis le curseur</translation>
    </message>
    <message>
        <source>Fin&amp;er Grid</source>
        <translation>Grille plus f&amp;ine</translation>
    </message>
    <message>
        <source>Snap to the next shorter length</source>
        <translation>Aimanter à la durée plus courte suivante</translation>
    </message>
    <message>
        <source>&amp;Coarser Grid</source>
        <translation>&amp;Grille plus large</translation>
    </message>
    <message>
        <source>Snap to the next longer length</source>
        <translation>Aimanter à la durée plus longue suivante</translation>
    </message>
    <message>
        <source>&amp;Zoom In</source>
        <translation>Zoom a&amp;vant</translation>
    </message>
    <message>
        <source>Show time wider (Ctrl+wheel)</source>
        <translation>Élargir le temps (Ctrl+molette)</translation>
    </message>
    <message>
        <source>Zoom O&amp;ut</source>
        <translation>Z&amp;oom arrière</translation>
    </message>
    <message>
        <source>Show time narrower (Ctrl+wheel)</source>
        <translation>Resserrer le temps (Ctrl+molette)</translation>
    </message>
    <message>
        <source>&amp;Higher Rows</source>
        <translation>Rangées plus &amp;hautes</translation>
    </message>
    <message>
        <source>Show pitches higher (Ctrl+Shift+wheel)</source>
        <translation>Agrandir les hauteurs (Ctrl+Maj+molette)</translation>
    </message>
    <message>
        <source>&amp;Lower Rows</source>
        <translation>Ra&amp;ngées plus basses</translation>
    </message>
    <message>
        <source>Show pitches lower (Ctrl+Shift+wheel)</source>
        <translation>Réduire les hauteurs (Ctrl+Maj+molette)</translation>
    </message>
    <message>
        <source>Nor&amp;mal Size</source>
        <translation>Taille nor&amp;male</translation>
    </message>
    <message>
        <source>Show time and pitches at their usual size</source>
        <translation>Montrer temps et hauteurs à leur taille habituelle</translation>
    </message>
    <message>
        <source>Follow Pla&amp;yback</source>
        <translation>S&amp;uivre la lecture</translation>
    </message>
    <message>
        <source>Keep the playing position in sight</source>
        <translation>Garder en vue la position de lecture</translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation>Pointée</translation>
    </message>
    <message>
        <source>Triplet</source>
        <translation>Triolet</translation>
    </message>
    <message>
        <source>Note %1</source>
        <translation>Note %1</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Silence</translation>
    </message>
    <message>
        <source>%1 into the Chord</source>
        <translation>%1 dans l’accord</translation>
    </message>
    <message>
        <source>Selectio&amp;n</source>
        <translation>Sélectio&amp;n</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>&amp;Bouger</translation>
    </message>
</context>
<context>
    <name>RollCommands</name>
    <message>
        <source>Move Notes</source>
        <translation>Déplacer des notes</translation>
    </message>
    <message>
        <source>Transpose Notes</source>
        <translation>Transposer des notes</translation>
    </message>
    <message numerus="yes">
        <source>Replaces %n note(s) of the same pitch here</source>
        <translation>
            <numerusform>Remplace ici %n note de même hauteur</numerusform>
            <numerusform>Remplace ici %n notes de même hauteur</numerusform>
        </translation>
    </message>
    <message>
        <source>Copy Notes</source>
        <translation>Copier des notes</translation>
    </message>
    <message>
        <source>Resize Notes</source>
        <translation>Changer la durée des notes</translation>
    </message>
    <message>
        <source>Insert Note</source>
        <translation>Insérer une note</translation>
    </message>
    <message>
        <source>Enter Notes</source>
        <translation>Saisir des notes</translation>
    </message>
    <message>
        <source>Delete Notes</source>
        <translation>Supprimer des notes</translation>
    </message>
    <message>
        <source>Cut Notes</source>
        <translation>Couper des notes</translation>
    </message>
    <message>
        <source>Paste Notes</source>
        <translation>Coller des notes</translation>
    </message>
    <message>
        <source>Duplicate Notes</source>
        <translation>Dupliquer des notes</translation>
    </message>
</context>
<context>
    <name>RollKeyboard</name>
    <message>
        <source>Keyboard</source>
        <translation>Clavier</translation>
    </message>
    <message>
        <source>Press a key to hear its note.</source>
        <translation>Appuyez sur une touche pour entendre sa note.</translation>
    </message>
    <message>
        <source>%1: outside the playable range</source>
        <translation>%1&#xa0;: hors de l’étendue jouable</translation>
    </message>
    <message>
        <source>%1: the instrument has no sample near</source>
        <translation>%1&#xa0;: l’instrument n’a pas d’échantillon proche</translation>
    </message>
</context>
<context>
    <name>RollRuler</name>
    <message>
        <source>Click to set the cursor, double-click to play from here</source>
        <translation>Cliquer pour placer le curseur, double-cliquer pour lire d’ici</translation>
    </message>
    <message>
        <source>Measures</source>
        <translation>Mesures</translation>
    </message>
</context>
<context>
    <name>RollSnap</name>
    <message>
        <source>Off</source>
        <translation>Désactivé</translation>
    </message>
    <message>
        <source>%1 triplet</source>
        <translation>triolet de %1</translation>
    </message>
    <message>
        <source>%1 dotted</source>
        <translation>%1 pointée</translation>
    </message>
</context>
<context>
    <name>RollState</name>
    <message>
        <source>%1, %2, length %3</source>
        <translation>%1, %2, durée %3</translation>
    </message>
</context>
<context>
    <name>SafeFile</name>
    <message>
        <source>The disk is full.</source>
        <translation>Le disque est plein.</translation>
    </message>
    <message>
        <source>The space that is yours on the disk is used up.</source>
        <translation>Votre espace sur le disque est épuisé.</translation>
    </message>
    <message>
        <source>The disk is read-only.</source>
        <translation>Le disque est en lecture seule.</translation>
    </message>
    <message>
        <source>The folder is read-only.</source>
        <translation>Le dossier est en lecture seule.</translation>
    </message>
    <message>
        <source>The file may not be replaced.</source>
        <translation>Le fichier ne peut pas être remplacé.</translation>
    </message>
    <message>
        <source>The folder does not exist.</source>
        <translation>Le dossier n’existe pas.</translation>
    </message>
    <message>
        <source>The name is too long.</source>
        <translation>Le nom est trop long.</translation>
    </message>
    <message>
        <source>Not a regular file.</source>
        <translation>Pas un fichier ordinaire.</translation>
    </message>
</context>
<context>
    <name>SaveCommands</name>
    <message>
        <source>Could not open &apos;%1&apos; for saving.</source>
        <translation>Impossible d’ouvrir «&#xa0;%1&#xa0;» pour l’enregistrement.</translation>
    </message>
    <message>
        <source>Save track &apos;%1&apos; as..</source>
        <translation>Enregistrer la piste «&#xa0;%1&#xa0;» sous..</translation>
    </message>
    <message>
        <source>ABC Files (*.abc)</source>
        <translation>Fichiers ABC (*.abc)</translation>
    </message>
    <message>
        <source>Could not open the file for saving.</source>
        <translation>Impossible d’ouvrir le fichier pour l’enregistrement.</translation>
    </message>
    <message>
        <source>Would you like to overwrite it?</source>
        <translation>Voulez-vous le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is also the file of the track &apos;%2&apos;, which would be lost from it.</source>
        <translation>«&#xa0;%1&#xa0;» est aussi le fichier de la piste «&#xa0;%2&#xa0;», qui en serait perdue.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>&apos;%1&apos; was changed by another program.</source>
        <translation>«&#xa0;%1&#xa0;» a été modifié par un autre programme.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is read-only.</source>
        <translation>«&#xa0;%1&#xa0;» est en lecture seule.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; belongs to another user.</source>
        <translation>«&#xa0;%1&#xa0;» appartient à un autre utilisateur.</translation>
    </message>
    <message>
        <source>Save Selected</source>
        <translation>Enregistrer la sélection</translation>
    </message>
    <message>
        <source>Save the selected tracks to disk</source>
        <translation>Enregistrer les pistes sélectionnées</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Tout enregistrer</translation>
    </message>
    <message>
        <source>Save all tracks to disk</source>
        <translation>Enregistrer toutes les pistes</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>The settings cannot be read: %1</source>
        <translation>Les réglages ne peuvent pas être lus&#xa0;: %1</translation>
    </message>
    <message>
        <source>The settings were damaged; they are kept as %1</source>
        <translation>Les réglages étaient endommagés&#xa0;; ils sont gardés sous %1</translation>
    </message>
    <message>
        <source>The settings are not saved: %1</source>
        <translation>Les réglages ne sont pas enregistrés&#xa0;: %1</translation>
    </message>
    <message>
        <source>Not a regular file.</source>
        <translation>Pas un fichier ordinaire.</translation>
    </message>
</context>
<context>
    <name>ShortcutsDialog</name>
    <message>
        <source>Main window</source>
        <translation>Fenêtre principale</translation>
    </message>
    <message>
        <source>Controls that have the keys</source>
        <translation>Commandes qui ont le clavier</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Éditeur</translation>
    </message>
    <message>
        <source>Editor, in the text</source>
        <translation>Éditeur, dans le texte</translation>
    </message>
    <message>
        <source>Editor, in the piano roll</source>
        <translation>Éditeur, dans le piano roll</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message>
        <source>Find a command or a key</source>
        <translation>Chercher une commande ou une touche</translation>
    </message>
    <message>
        <source>Reset &amp;All</source>
        <translation>&amp;Tout rétablir</translation>
    </message>
    <message>
        <source>Every command gets its usual key again</source>
        <translation>Chaque commande retrouve sa touche habituelle</translation>
    </message>
    <message>
        <source>Commands and their keys</source>
        <translation>Les commandes et leurs touches</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Commande</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Touche</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>&amp;Key:</source>
        <translation>&amp;Touche&#xa0;:</translation>
    </message>
    <message>
        <source>Press the keys that the chosen command is to have</source>
        <translation>Pressez les touches que la commande choisie doit avoir</translation>
    </message>
    <message>
        <source>A&amp;ssign</source>
        <translation>A&amp;ssigner</translation>
    </message>
    <message>
        <source>The chosen command gets this key</source>
        <translation>La commande choisie reçoit cette touche</translation>
    </message>
    <message>
        <source>&amp;Take It from There</source>
        <translation>&amp;Prendre là-bas</translation>
    </message>
    <message>
        <source>The command that has this key loses it</source>
        <translation>La commande qui a cette touche la perd</translation>
    </message>
    <message>
        <source>&amp;No Key</source>
        <translation>Aucu&amp;ne</translation>
    </message>
    <message>
        <source>The chosen command has no key any more</source>
        <translation>La commande choisie n’a plus de touche</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>The chosen command gets its usual key again</source>
        <translation>La commande choisie retrouve sa touche habituelle</translation>
    </message>
    <message>
        <source>fixed</source>
        <translation>fixe</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>changée</translation>
    </message>
    <message>
        <source>Choose a command.</source>
        <translation>Choisissez une commande.</translation>
    </message>
    <message>
        <source>This key is fixed.</source>
        <translation>Cette touche est fixe.</translation>
    </message>
    <message>
        <source>%1 is typed into the text.</source>
        <translation>%1 s’écrit dans le texte.</translation>
    </message>
    <message>
        <source>%1 is the key of &quot;%2&quot; (%3).</source>
        <comment>key, command, where it works</comment>
        <translation>%1 est la touche de «&#xa0;%2&#xa0;» (%3).</translation>
    </message>
    <message>
        <source>It is fixed.</source>
        <translation>Elle est fixe.</translation>
    </message>
</context>
<context>
    <name>SongArea</name>
    <message>
        <source>What is shown of the song</source>
        <translation>Ce qui est montré du morceau</translation>
    </message>
    <message>
        <source> %</source>
        <translation>&#xa0;%</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>How fast the song is played, in percent of its tempo; its pitch stays</source>
        <translation>La vitesse de lecture du morceau, en pour cent de son tempo&#xa0;; la hauteur reste</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>Pistes</translation>
    </message>
</context>
<context>
    <name>SongCommands</name>
    <message>
        <source>Loading %1...</source>
        <translation>Chargement de %1...</translation>
    </message>
    <message>
        <source>Error while reading song file</source>
        <translation>Erreur à la lecture du fichier de morceau</translation>
    </message>
    <message>
        <source>Song Title</source>
        <translation>Titre du morceau</translation>
    </message>
    <message>
        <source>Title of the song:</source>
        <translation>Titre du morceau&#xa0;:</translation>
    </message>
    <message>
        <source>The song was changed by another program:
%1
Would you like to read it again?</source>
        <translation>Le morceau a été modifié par un autre programme&#xa0;:
%1
Voulez-vous le relire&#xa0;?</translation>
    </message>
    <message>
        <source>Changed Song</source>
        <translation>Morceau modifié</translation>
    </message>
    <message>
        <source>The song &apos;%1&apos; is not saved yet.
Would you like to save it?</source>
        <translation>Le morceau «&#xa0;%1&#xa0;» n’est pas encore enregistré.
Voulez-vous l’enregistrer&#xa0;?</translation>
    </message>
    <message>
        <source>New Song</source>
        <translation>Nouveau morceau</translation>
    </message>
    <message>
        <source>Begin an empty song</source>
        <translation>Commencer un morceau vide</translation>
    </message>
    <message>
        <source>Save Song</source>
        <translation>Enregistrer le morceau</translation>
    </message>
    <message>
        <source>Save the song with its parts and mix in one file</source>
        <translation>Enregistrer le morceau avec ses parties et son mixage dans un fichier</translation>
    </message>
    <message>
        <source>Save Song As...</source>
        <translation>Enregistrer le morceau sous...</translation>
    </message>
    <message>
        <source>Save the song in another file</source>
        <translation>Enregistrer le morceau dans un autre fichier</translation>
    </message>
    <message>
        <source>Save Parts to Folder...</source>
        <translation>Enregistrer les parties dans un dossier...</translation>
    </message>
    <message>
        <source>Save each part as an ABC file of one folder</source>
        <translation>Enregistrer chaque partie comme fichier ABC d’un dossier</translation>
    </message>
    <message>
        <source>Song Title...</source>
        <translation>Titre du morceau...</translation>
    </message>
    <message>
        <source>Change the title of the song</source>
        <translation>Changer le titre du morceau</translation>
    </message>
</context>
<context>
    <name>SongFile</name>
    <message>
        <source>a text is expected</source>
        <translation>un texte est attendu</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2 is expected</source>
        <translation>un entier de %1 à %2 est attendu</translation>
    </message>
    <message>
        <source>true or false is expected</source>
        <translation>true ou false est attendu</translation>
    </message>
    <message>
        <source>an object is expected</source>
        <translation>un objet est attendu</translation>
    </message>
    <message>
        <source>a list is expected</source>
        <translation>une liste est attendue</translation>
    </message>
    <message>
        <source>The song file is damaged at line %1, column %2 (%3).</source>
        <translation>Le fichier de morceau est endommagé à la ligne %1, colonne %2 (%3).</translation>
    </message>
    <message>
        <source>This is not a song file.</source>
        <translation>Ce n’est pas un fichier de morceau.</translation>
    </message>
    <message>
        <source>The song was saved by a newer version of this program (song format %1; this version reads up to %2).</source>
        <translation>Le morceau a été enregistré par une version plus récente de ce programme (format %1&#xa0;; cette version lit jusqu’à %2).</translation>
    </message>
    <message>
        <source>The song file is damaged: &quot;version&quot; is missing.</source>
        <translation>Le fichier de morceau est endommagé&#xa0;: «&#xa0;version&#xa0;» manque.</translation>
    </message>
    <message>
        <source>The song file is damaged. %1</source>
        <translation>Le fichier de morceau est endommagé. %1</translation>
    </message>
    <message>
        <source>Part %1, %2.</source>
        <translation>Partie %1, %2.</translation>
    </message>
    <message>
        <source>The song has more than %1 parts.</source>
        <translation>Le morceau a plus de %1 parties.</translation>
    </message>
    <message>
        <source>A part has no id.</source>
        <translation>Une partie n’a pas d’identifiant.</translation>
    </message>
    <message>
        <source>Two parts have the id &quot;%1&quot;.</source>
        <translation>Deux parties ont l’identifiant «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The song file is larger than 256 MB.</source>
        <translation>Le fichier de morceau dépasse 256 Mo.</translation>
    </message>
</context>
<context>
    <name>SongFindings</name>
    <message>
        <source>Will the Game Play It?</source>
        <translation>Le jeu le jouera-t-il&#xa0;?</translation>
    </message>
    <message>
        <source>Show what the game would not play as it is meant</source>
        <translation>Montrer ce que le jeu jouerait autrement que prévu</translation>
    </message>
</context>
<context>
    <name>SongJournal</name>
    <message>
        <source>The journal is too large.</source>
        <translation>Le journal est trop grand.</translation>
    </message>
    <message>
        <source>Another program has the song open.</source>
        <translation>Un autre programme a ouvert le morceau.</translation>
    </message>
    <message>
        <source>The beginning of the journal is damaged.</source>
        <translation>Le début du journal est endommagé.</translation>
    </message>
    <message>
        <source>The journal was written by a newer version of this program.</source>
        <translation>Le journal a été écrit par une version plus récente de ce programme.</translation>
    </message>
    <message>
        <source>This is not a journal.</source>
        <translation>Ce n’est pas un journal.</translation>
    </message>
    <message>
        <source>Could not lock %1.</source>
        <translation>Impossible de verrouiller %1.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Il n’y a pas assez de mémoire.</translation>
    </message>
    <message>
        <source>A record holds nothing.</source>
        <translation>Un enregistrement est vide.</translation>
    </message>
    <message>
        <source>A change does not belong to its song.</source>
        <translation>Une modification n’appartient pas à son morceau.</translation>
    </message>
</context>
<context>
    <name>SongReader</name>
    <message>
        <source>Part &quot;%1&quot;: %2</source>
        <translation>Partie «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>Error while reading MIDI file</source>
        <translation>Erreur à la lecture du fichier MIDI</translation>
    </message>
    <message>
        <source>Error while reading ABC file</source>
        <translation>Erreur à la lecture du fichier ABC</translation>
    </message>
    <message>
        <source>Error while reading song file</source>
        <translation>Erreur à la lecture du fichier de morceau</translation>
    </message>
    <message>
        <source>Import from clipboard</source>
        <translation>Importer du presse-papiers</translation>
    </message>
    <message>
        <source>Not a regular file.</source>
        <translation>Pas un fichier ordinaire.</translation>
    </message>
    <message>
        <source>Could not open file: %1.</source>
        <translation>Impossible d’ouvrir le fichier&#xa0;: %1.</translation>
    </message>
    <message>
        <source>%1 more tunes could not be read.</source>
        <translation>%1 autres airs n’ont pas pu être lus.</translation>
    </message>
    <message>
        <source>Not enough memory to read %1.</source>
        <translation>Mémoire insuffisante pour lire %1.</translation>
    </message>
    <message>
        <source>Not enough memory to read the text.</source>
        <translation>Mémoire insuffisante pour lire le texte.</translation>
    </message>
    <message>
        <source>Unknown file type.</source>
        <translation>Type de fichier inconnu.</translation>
    </message>
    <message>
        <source>read as standard ABC</source>
        <translation>lu comme ABC standard</translation>
    </message>
    <message>
        <source> for its %1</source>
        <translation> à cause de&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
    <message>
        <source>Tune %1: %2</source>
        <translation>Air %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Tune %1, which begins in line %2: %3</source>
        <translation>Air %1, qui commence à la ligne %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>There are no notes in it.</source>
        <translation>Il ne contient pas de notes.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Le fichier est trop grand.</translation>
    </message>
</context>
<context>
    <name>SongRecovery</name>
    <message>
        <source>Recover Songs</source>
        <translation>Récupérer des morceaux</translation>
    </message>
    <message>
        <source>There is no song to recover.</source>
        <translation>Il n’y a aucun morceau à récupérer.</translation>
    </message>
    <message numerus="yes">
        <source>%n song(s) will be gone for good.
Would you like to delete them?</source>
        <translation>
            <numerusform>%n morceau disparaîtra pour de bon.
Voulez-vous le supprimer&#xa0;?</numerusform>
            <numerusform>%n morceaux disparaîtront pour de bon.
Voulez-vous les supprimer&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>Recover...</source>
        <translation>Récupérer...</translation>
    </message>
    <message>
        <source>Bring back a song that was not saved or was discarded</source>
        <translation>Ramener un morceau non enregistré ou abandonné</translation>
    </message>
</context>
<context>
    <name>SongSaving</name>
    <message>
        <source>Save Song As</source>
        <translation>Enregistrer le morceau sous</translation>
    </message>
    <message>
        <source>Songs (*.kvsong)</source>
        <translation>Morceaux (*.kvsong)</translation>
    </message>
    <message>
        <source>Would you like to overwrite it?</source>
        <translation>Voulez-vous le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>Could not save the song.
%1: %2</source>
        <translation>Impossible d’enregistrer le morceau.
%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; may hold another version of this song.</source>
        <translation>«&#xa0;%1&#xa0;» contient peut-être une autre version de ce morceau.</translation>
    </message>
    <message>
        <source>None of the parts that &apos;%1&apos; holds is in this song any more.</source>
        <translation>Aucune des parties que contient « %1 » n’est encore dans ce morceau.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; was changed by another program.</source>
        <translation>«&#xa0;%1&#xa0;» a été modifié par un autre programme.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is read-only.</source>
        <translation>«&#xa0;%1&#xa0;» est en lecture seule.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; belongs to another user.</source>
        <translation>«&#xa0;%1&#xa0;» appartient à un autre utilisateur.</translation>
    </message>
</context>
<context>
    <name>SongSession</name>
    <message>
        <source>Change Song Title</source>
        <translation>Changer le titre du morceau</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
</context>
<context>
    <name>SongTools</name>
    <message>
        <source>Arrange for Players</source>
        <translation>Arranger pour des joueurs</translation>
    </message>
    <message>
        <source>All parts are muted.</source>
        <translation>Toutes les parties sont muettes.</translation>
    </message>
    <message>
        <source>The song was changed meanwhile.</source>
        <translation>Le morceau a été modifié entre-temps.</translation>
    </message>
    <message numerus="yes">
        <source>Arrange for %n Player(s)</source>
        <translation>
            <numerusform>Arranger pour %n joueur</numerusform>
            <numerusform>Arranger pour %n joueurs</numerusform>
        </translation>
    </message>
    <message>
        <source>Transpose Song</source>
        <translation>Transposer le morceau</translation>
    </message>
    <message>
        <source>One Tempo for All</source>
        <translation>Un seul tempo pour tous</translation>
    </message>
    <message>
        <source>All parts have that tempo already.</source>
        <translation>Toutes les parties ont déjà ce tempo.</translation>
    </message>
    <message>
        <source>Trim Silence</source>
        <translation>Couper les silences</translation>
    </message>
    <message>
        <source>There is no silence before the first note of the song, nor behind its last.</source>
        <translation>Il n’y a de silence ni avant la première note du morceau, ni après la dernière.</translation>
    </message>
    <message>
        <source>Pad to One Length</source>
        <translation>Compléter à une même durée</translation>
    </message>
    <message>
        <source>All parts have one length already.</source>
        <translation>Toutes les parties ont déjà la même durée.</translation>
    </message>
    <message>
        <source>Arrange for Players...</source>
        <translation>Arranger pour des joueurs...</translation>
    </message>
    <message>
        <source>Fit the parts that are not muted to a number of players</source>
        <translation>Adapter les parties non muettes à un nombre de joueurs</translation>
    </message>
    <message>
        <source>Transpose Song...</source>
        <translation>Transposer le morceau...</translation>
    </message>
    <message>
        <source>Transpose all parts and their keys</source>
        <translation>Transposer toutes les parties et leurs tonalités</translation>
    </message>
    <message>
        <source>One Tempo for All...</source>
        <translation>Un seul tempo pour tous...</translation>
    </message>
    <message>
        <source>Give all parts the tempo of one of them</source>
        <translation>Donner à toutes les parties le tempo de l’une d’elles</translation>
    </message>
    <message>
        <source>Remove the silence before the first note of all parts and behind the last</source>
        <translation>Ôter le silence avant la première note de toutes les parties et après la dernière</translation>
    </message>
    <message>
        <source>Let all parts end with the longest, with rests</source>
        <translation>Faire finir toutes les parties avec la plus longue, par des silences</translation>
    </message>
</context>
<context>
    <name>SongTransposeDialog</name>
    <message>
        <source>Move &amp;drums, too</source>
        <translation>Déplacer aussi la &amp;batterie</translation>
    </message>
    <message>
        <source> semitone(s)</source>
        <translation> demi-ton(s)</translation>
    </message>
    <message>
        <source>12 semitones are an octave; a number below 0 moves the notes down</source>
        <translation>12 demi-tons font une octave&#xa0;; un nombre négatif descend les notes</translation>
    </message>
    <message>
        <source>move back by octaves</source>
        <translation>ramener par octaves</translation>
    </message>
    <message>
        <source>are removed</source>
        <translation>sont ôtées</translation>
    </message>
    <message>
        <source>The notes of drums are different drums, not pitches</source>
        <translation>Les notes de batterie sont des tambours différents, pas des hauteurs</translation>
    </message>
    <message>
        <source>&amp;Transpose all parts and their keys by</source>
        <translation>&amp;Transposer toutes les parties et leurs tonalités de</translation>
    </message>
    <message>
        <source>Notes that leave the &amp;range</source>
        <translation>Les notes qui quittent l’&amp;étendue</translation>
    </message>
    <message>
        <source>Transpose Song</source>
        <translation>Transposer le morceau</translation>
    </message>
    <message>
        <source>All notes stay within the range.</source>
        <translation>Toutes les notes restent dans l’étendue.</translation>
    </message>
    <message>
        <source>%1 notes leave the range.</source>
        <translation>%1 notes quittent l’étendue.</translation>
    </message>
</context>
<context>
    <name>SoundFormat</name>
    <message>
        <source>WAV, 16 bit</source>
        <translation>WAV, 16 bits</translation>
    </message>
    <message>
        <source>WAV, 24 bit</source>
        <translation>WAV, 24 bits</translation>
    </message>
    <message>
        <source>WAV, 32 bit float</source>
        <translation>WAV, 32 bits flottants</translation>
    </message>
    <message>
        <source>FLAC, 16 bit</source>
        <translation>FLAC, 16 bits</translation>
    </message>
    <message>
        <source>FLAC, 24 bit</source>
        <translation>FLAC, 24 bits</translation>
    </message>
</context>
<context>
    <name>SoundPage</name>
    <message>
        <source>%1 samples (%2 ms)</source>
        <translation>%1 échantillons (%2 ms)</translation>
    </message>
    <message>
        <source>Sound Device</source>
        <translation>Périphérique audio</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>Périphérique&#xa0;:</translation>
    </message>
    <message>
        <source>Block size:</source>
        <translation>Taille de bloc&#xa0;:</translation>
    </message>
    <message>
        <source>Latency:</source>
        <translation>Latence&#xa0;:</translation>
    </message>
    <message>
        <source>How long the device&apos;s block lasts</source>
        <translation>La durée du bloc du périphérique</translation>
    </message>
    <message>
        <source>Dropouts:</source>
        <translation>Coupures&#xa0;:</translation>
    </message>
    <message>
        <source>How often the device ran dry since the program&apos;s start: gaps that can be heard</source>
        <translation>Combien de fois le son a manqué au périphérique depuis le démarrage&#xa0;: des trous audibles</translation>
    </message>
    <message>
        <source>Where the tracks are heard</source>
        <translation>Où les pistes s’entendent</translation>
    </message>
    <message>
        <source>Small blocks answer a keyboard sooner; large ones have no gaps beside a busy program</source>
        <translation>Les petits blocs répondent plus vite à un clavier&#xa0;; les grands n’ont pas de trous à côté d’un programme occupé</translation>
    </message>
    <message>
        <source>Automatic (grows after a dropout)</source>
        <translation>Automatique (augmente après une coupure)</translation>
    </message>
    <message>
        <source>System default</source>
        <translation>Celui du système</translation>
    </message>
    <message>
        <source>%1 (not found)</source>
        <translation>%1 (introuvable)</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>no device is open</source>
        <translation>aucun périphérique n’est ouvert</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not there, so the system default is heard.</source>
        <translation>«&#xa0;%1&#xa0;» est absent, le périphérique du système est donc utilisé.</translation>
    </message>
</context>
<context>
    <name>SourceListening</name>
    <message>
        <source>No part is one of the source any more.</source>
        <translation>Aucune partie ne vient plus de la source.</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Hear the song as its source has it, instead of as the game will play it</source>
        <translation>Entendre le morceau tel que l’a sa source, au lieu de tel que le jeu le jouera</translation>
    </message>
</context>
<context>
    <name>SpokenPosition</name>
    <message>
        <source>Measure %1, beat %2</source>
        <translation>Mesure %1, temps %2</translation>
    </message>
</context>
<context>
    <name>SpokenWidget</name>
    <message>
        <source>nothing chosen</source>
        <translation>rien n’est choisi</translation>
    </message>
</context>
<context>
    <name>StandardAbc</name>
    <message>
        <source>Too many parts.</source>
        <translation>Trop de parties.</translation>
    </message>
    <message>
        <source>The tune is too long.</source>
        <translation>L’air est trop long.</translation>
    </message>
    <message>
        <source>Too many tunes.</source>
        <translation>Trop d’airs.</translation>
    </message>
    <message>
        <source>The tune uses the macro &quot;%1&quot; (m:), which cannot be read.</source>
        <translation>L’air emploie la macro «&#xa0;%1&#xa0;» (m:), qui ne peut pas être lue.</translation>
    </message>
    <message>
        <source>Too many voices.</source>
        <translation>Trop de voix.</translation>
    </message>
</context>
<context>
    <name>StatusIndicators</name>
    <message>
        <source>The sound device ran dry: close what is busy, or choose a larger block under Tools, Preferences, Sound</source>
        <translation>Le son a manqué au périphérique&#xa0;: fermez ce qui est occupé, ou choisissez un plus grand bloc sous Outils, Préférences, Son</translation>
    </message>
    <message>
        <source>Saving %1...</source>
        <translation>Enregistrement de %1...</translation>
    </message>
    <message numerus="yes">
        <source>%n part(s)</source>
        <translation>
            <numerusform>%n partie</numerusform>
            <numerusform>%n parties</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 enregistré</translation>
    </message>
    <message>
        <source>Looking for instruments...</source>
        <translation>Recherche des instruments...</translation>
    </message>
    <message>
        <source>Loading samples, track %1 of %2...</source>
        <translation>Chargement des échantillons, piste %1 sur %2...</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not there: the default device</source>
        <translation>«&#xa0;%1&#xa0;» est absent&#xa0;: périphérique par défaut</translation>
    </message>
    <message>
        <source>Sound dropouts: %1</source>
        <translation>Coupures du son&#xa0;: %1</translation>
    </message>
    <message>
        <source>Recording...</source>
        <translation>Prise en cours...</translation>
    </message>
    <message>
        <source>A crash would lose your work: %1</source>
        <translation>Un plantage perdrait votre travail&#xa0;: %1</translation>
    </message>
    <message>
        <source>Loading sample %1...</source>
        <translation>Chargement de l’échantillon %1...</translation>
    </message>
</context>
<context>
    <name>StepEntry</name>
    <message>
        <source>Enter Notes from the MIDI &amp;Keyboard</source>
        <translation>Saisir des notes au c&amp;lavier MIDI</translation>
    </message>
    <message>
        <source>Write what you play at the caret, note by note; keys that are down together are a chord</source>
        <translation>Écrire au curseur ce que vous jouez, note par note&#xa0;; des touches enfoncées ensemble font un accord</translation>
    </message>
    <message>
        <source>Enter Notes</source>
        <translation>Saisir des notes</translation>
    </message>
</context>
<context>
    <name>TimeRuler</name>
    <message>
        <source>Click or drag to set the position, drag in the upper half to set a loop (with Alt: between the beats)</source>
        <translation>Cliquer ou glisser place la position, glisser dans la moitié haute fait une boucle (avec Alt&#xa0;: entre les temps)</translation>
    </message>
    <message>
        <source>Measures</source>
        <translation>Mesures</translation>
    </message>
    <message>
        <source>%1; loop: %2 to %3</source>
        <comment>all are positions</comment>
        <translation>%1&#xa0;; boucle&#xa0;: de %2 à %3</translation>
    </message>
</context>
<context>
    <name>TrackCommands</name>
    <message>
        <source>New Track</source>
        <translation>Nouvelle piste</translation>
    </message>
    <message>
        <source>Remove All Tracks</source>
        <translation>Retirer toutes les pistes</translation>
    </message>
    <message>
        <source>Remove Tracks</source>
        <translation>Retirer des pistes</translation>
    </message>
    <message>
        <source>Merge Tracks</source>
        <translation>Fusionner des pistes</translation>
    </message>
    <message>
        <source>Clean Quantise</source>
        <translation>Quantifier proprement</translation>
    </message>
    <message numerus="yes">
        <source>%n note(s) would leave the range and be removed.
Move them back into the range by octaves instead?</source>
        <translation>
            <numerusform>%n note quitterait l’étendue et serait ôtée.
La ramener plutôt par octaves dans l’étendue&#xa0;?</numerusform>
            <numerusform>%n notes quitteraient l’étendue et seraient ôtées.
Les ramener plutôt par octaves dans l’étendue&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>Transpose Track</source>
        <translation>Transposer la piste</translation>
    </message>
    <message>
        <source>Create a new track</source>
        <translation>Créer une nouvelle piste</translation>
    </message>
    <message>
        <source>Remove all tracks</source>
        <translation>Retirer toutes les pistes</translation>
    </message>
    <message>
        <source>Merge Selected</source>
        <translation>Fusionner la sélection</translation>
    </message>
    <message>
        <source>Merges the selected tracks together</source>
        <translation>Fusionne les pistes sélectionnées</translation>
    </message>
    <message>
        <source>Write the selected tracks as a musician would, on the grid of each measure</source>
        <translation>Écrire les pistes sélectionnées comme le ferait un musicien, sur la grille de chaque mesure</translation>
    </message>
    <message>
        <source>Remove Selected</source>
        <translation>Retirer la sélection</translation>
    </message>
    <message>
        <source>Remove the selected tracks</source>
        <translation>Retirer les pistes sélectionnées</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Deselect All</source>
        <translation>Tout désélectionner</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>Inverser la sélection</translation>
    </message>
    <message>
        <source>Duplicate Selected</source>
        <translation>Dupliquer la sélection</translation>
    </message>
    <message>
        <source>Duplicate the selected tracks</source>
        <translation>Dupliquer les pistes sélectionnées</translation>
    </message>
    <message>
        <source>(Un)mute Selected</source>
        <translation>Son de la sélection</translation>
    </message>
    <message>
        <source>(Un)mute the selected tracks</source>
        <translation>Couper ou rétablir le son des pistes sélectionnées</translation>
    </message>
    <message>
        <source>Could not merge tracks: %1</source>
        <translation>Impossible de fusionner les pistes&#xa0;: %1</translation>
    </message>
    <message>
        <source>Next Track</source>
        <translation>Piste suivante</translation>
    </message>
    <message>
        <source>Go to the track below, at the same control</source>
        <translation>Aller à la piste du dessous, à la même commande</translation>
    </message>
    <message>
        <source>Previous Track</source>
        <translation>Piste précédente</translation>
    </message>
    <message>
        <source>Go to the track above, at the same control</source>
        <translation>Aller à la piste du dessus, à la même commande</translation>
    </message>
    <message>
        <source>Rename Track...</source>
        <translation>Renommer la piste...</translation>
    </message>
    <message>
        <source>Change the title of the track that has the keys</source>
        <translation>Changer le titre de la piste qui a le clavier</translation>
    </message>
    <message>
        <source>Open ABC Editor</source>
        <translation>Ouvrir l’éditeur ABC</translation>
    </message>
    <message>
        <source>Edit the track that has the keys</source>
        <translation>Modifier la piste qui a le clavier</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
    <message>
        <source>Hear only the track that has the keys, or all that are selected with it</source>
        <translation>N’entendre que la piste qui a le clavier, ou toutes celles sélectionnées avec elle</translation>
    </message>
    <message>
        <source>Move Track Up</source>
        <translation>Monter la piste</translation>
    </message>
    <message>
        <source>Move the track that has the keys up</source>
        <translation>Monter la piste qui a le clavier</translation>
    </message>
    <message>
        <source>Move Track Down</source>
        <translation>Descendre la piste</translation>
    </message>
    <message>
        <source>Move the track that has the keys down</source>
        <translation>Descendre la piste qui a le clavier</translation>
    </message>
    <message>
        <source>Describe Track</source>
        <translation>Décrire la piste</translation>
    </message>
    <message>
        <source>Tell instrument, volume, mute and level of the track that has the keys</source>
        <translation>Dire l’instrument, le volume, la coupure et le niveau de la piste qui a le clavier</translation>
    </message>
</context>
<context>
    <name>TrackList</name>
    <message>
        <source>Duplicate Tracks</source>
        <translation>Dupliquer des pistes</translation>
    </message>
    <message>
        <source>Move Track</source>
        <translation>Déplacer la piste</translation>
    </message>
    <message>
        <source>Change Instrument</source>
        <translation>Changer l’instrument</translation>
    </message>
    <message>
        <source>Change Volume</source>
        <translation>Changer le volume</translation>
    </message>
    <message>
        <source>Change Pan</source>
        <translation>Changer le panoramique</translation>
    </message>
    <message>
        <source>Change Start Offset</source>
        <translation>Changer le décalage de départ</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Couper le son</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Rétablir le son</translation>
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
        <translation>Titre de la piste</translation>
    </message>
    <message>
        <source>%1; the track differs from its file</source>
        <translation>%1&#xa0;; la piste diffère de son fichier</translation>
    </message>
    <message>
        <source>differs from its file</source>
        <translation>diffère de son fichier</translation>
    </message>
    <message>
        <source>Instrument for this track</source>
        <translation>Instrument de cette piste</translation>
    </message>
    <message>
        <source>There is no instrument &apos;%1&apos;; nothing sounds</source>
        <translation>Il n’y a pas d’instrument «&#xa0;%1&#xa0;»&#xa0;; rien ne sonne</translation>
    </message>
    <message>
        <source>There is no instrument &apos;%1&apos;; &apos;%2&apos; sounds instead</source>
        <translation>Il n’y a pas d’instrument «&#xa0;%1&#xa0;»&#xa0;; «&#xa0;%2&#xa0;» sonne à la place</translation>
    </message>
    <message>
        <source>%1 (missing)</source>
        <translation>%1 (absent)</translation>
    </message>
    <message>
        <source>Rename Track</source>
        <translation>Renommer la piste</translation>
    </message>
    <message>
        <source>New track title:</source>
        <translation>Nouveau titre de la piste&#xa0;:</translation>
    </message>
    <message>
        <source>Edit Track</source>
        <translation>Modifier la piste</translation>
    </message>
    <message>
        <source>Start Offset</source>
        <translation>Décalage de départ</translation>
    </message>
    <message>
        <source>Milliseconds by which the part sounds later than it is written (below 0: sooner):</source>
        <translation>Millisecondes dont la partie sonne plus tard qu’elle n’est écrite (en dessous de 0&#xa0;: plus tôt)&#xa0;:</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Enregistrer sous...</translation>
    </message>
    <message>
        <source>Open ABC Editor</source>
        <translation>Ouvrir l’éditeur ABC</translation>
    </message>
    <message>
        <source>(Un)mute</source>
        <translation>Son</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
    <message>
        <source>Start Offset...</source>
        <translation>Décalage de départ...</translation>
    </message>
    <message>
        <source>Quick Transpose</source>
        <translation>Transposition rapide</translation>
    </message>
    <message>
        <source>Transpose one octave up</source>
        <translation>Une octave plus haut</translation>
    </message>
    <message>
        <source>Transpose one octave down</source>
        <translation>Une octave plus bas</translation>
    </message>
    <message>
        <source>Drag to move the track</source>
        <translation>Glisser pour déplacer la piste</translation>
    </message>
    <message>
        <source>Drag to move the track up or down the list</source>
        <translation>Glisser pour monter ou descendre la piste dans la liste</translation>
    </message>
    <message>
        <source>Select track</source>
        <translation>Sélectionner la piste</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Brouillon</translation>
    </message>
    <message>
        <source>The editor holds text of this track that is not applied</source>
        <translation>L’éditeur contient du texte de cette piste qui n’est pas appliqué</translation>
    </message>
    <message>
        <source>Start offset: by how much this part sounds later than it is written, or sooner</source>
        <translation>Décalage de départ&#xa0;: de combien cette partie sonne plus tard qu’elle n’est écrite, ou plus tôt</translation>
    </message>
    <message>
        <source>Start offset</source>
        <translation>Décalage de départ</translation>
    </message>
    <message>
        <source>Show what the game would not play as it is meant</source>
        <translation>Montrer ce que le jeu jouerait autrement que prévu</translation>
    </message>
    <message>
        <source>Click or drag to set the position</source>
        <translation>Cliquer ou glisser place la position</translation>
    </message>
    <message>
        <source>Notes of this track and the playing position</source>
        <translation>Notes de cette piste et position de lecture</translation>
    </message>
    <message>
        <source>Playback Volume</source>
        <translation>Volume de lecture</translation>
    </message>
    <message>
        <source>The playback volume for this track</source>
        <translation>Le volume de lecture de cette piste</translation>
    </message>
    <message>
        <source>Playback Pan</source>
        <translation>Panoramique de lecture</translation>
    </message>
    <message>
        <source>The playback pan position for this track</source>
        <translation>La position panoramique de cette piste à la lecture</translation>
    </message>
    <message>
        <source>(Un)mute track</source>
        <translation>Couper ou rétablir le son de la piste</translation>
    </message>
    <message>
        <source>Solo: hear only this track, or all that are ticked with it</source>
        <translation>Solo&#xa0;: n’entendre que cette piste, ou toutes celles cochées avec elle</translation>
    </message>
    <message>
        <source>Edit track</source>
        <translation>Modifier la piste</translation>
    </message>
    <message>
        <source>Delete track</source>
        <translation>Supprimer la piste</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Vers le haut</translation>
    </message>
    <message>
        <source>Move track up</source>
        <translation>Monter la piste</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Vers le bas</translation>
    </message>
    <message>
        <source>Move track down</source>
        <translation>Descendre la piste</translation>
    </message>
    <message>
        <source>Level of this track; red at its end: it was too loud (click to put it out)</source>
        <translation>Niveau de cette piste&#xa0;; rouge au bout&#xa0;: c’était trop fort (cliquer pour l’éteindre)</translation>
    </message>
    <message>
        <source>Level of this track</source>
        <translation>Niveau de cette piste</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>C</source>
        <comment>in the middle</comment>
        <translation>C</translation>
    </message>
    <message>
        <source>L %1</source>
        <comment>left</comment>
        <translation>G %1</translation>
    </message>
    <message>
        <source>R %1</source>
        <comment>right</comment>
        <translation>D %1</translation>
    </message>
    <message>
        <source>no instrument</source>
        <translation>pas d’instrument</translation>
    </message>
    <message>
        <source>volume %1</source>
        <translation>volume %1</translation>
    </message>
    <message>
        <source>pan %1</source>
        <translation>panoramique %1</translation>
    </message>
    <message>
        <source>muted</source>
        <translation>muette</translation>
    </message>
    <message>
        <source>not muted</source>
        <translation>non muette</translation>
    </message>
    <message>
        <source>solo</source>
        <translation>en solo</translation>
    </message>
    <message>
        <source>selected</source>
        <translation>sélectionnée</translation>
    </message>
    <message>
        <source>level %1</source>
        <translation>niveau %1</translation>
    </message>
    <message>
        <source>start offset %1</source>
        <translation>décalage de départ %1</translation>
    </message>
    <message>
        <source>Copy as File</source>
        <translation>Copier comme fichier</translation>
    </message>
</context>
<context>
    <name>TransportCommands</name>
    <message>
        <source>No instruments were found, so that nothing can be heard.
Please choose the game&apos;s folder under Tools, Preferences.</source>
        <translation>Aucun instrument n’a été trouvé, donc rien ne peut s’entendre.
Veuillez choisir le dossier du jeu sous Outils, Préférences.</translation>
    </message>
    <message>
        <source>None of the tracks&apos; instruments has samples, so that nothing can be heard.
Please choose others.</source>
        <translation>Aucun des instruments des pistes n’a d’échantillons, donc rien ne peut s’entendre.
Veuillez en choisir d’autres.</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Preview current tracks.</source>
        <translation>Écouter les pistes.</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Lire ou mettre en pause</translation>
    </message>
    <message>
        <source>Play from the position, or pause there</source>
        <translation>Lire depuis la position, ou s’y arrêter</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stop preview.</source>
        <translation>Arrêter l’écoute.</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrer la prise</translation>
    </message>
    <message>
        <source>Play, and write down what is played on the MIDI keyboard in the selected part</source>
        <translation>Lire, et noter dans la partie sélectionnée ce qui est joué au clavier MIDI</translation>
    </message>
    <message>
        <source>Go to Start</source>
        <translation>Aller au début</translation>
    </message>
    <message>
        <source>Set the position to the start of the song</source>
        <translation>Placer la position au début du morceau</translation>
    </message>
    <message>
        <source>Go to End</source>
        <translation>Aller à la fin</translation>
    </message>
    <message>
        <source>Set the position to the end of the song</source>
        <translation>Placer la position à la fin du morceau</translation>
    </message>
    <message>
        <source>Measure Back</source>
        <translation>Mesure précédente</translation>
    </message>
    <message>
        <source>Set the position to the measure before</source>
        <translation>Placer la position à la mesure précédente</translation>
    </message>
    <message>
        <source>Measure Forward</source>
        <translation>Mesure suivante</translation>
    </message>
    <message>
        <source>Set the position to the next measure</source>
        <translation>Placer la position à la mesure suivante</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Play a part of the song again and again (drag in the upper half of the ruler)</source>
        <translation>Lire sans cesse un passage du morceau (glisser dans la moitié haute de la règle)</translation>
    </message>
    <message>
        <source>Begin Loop Here</source>
        <translation>Commencer la boucle ici</translation>
    </message>
    <message>
        <source>Let the loop begin at the position</source>
        <translation>Faire commencer la boucle à la position</translation>
    </message>
    <message>
        <source>End Loop Here</source>
        <translation>Finir la boucle ici</translation>
    </message>
    <message>
        <source>Let the loop end at the position</source>
        <translation>Faire finir la boucle à la position</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Show more of the song (Ctrl+wheel)</source>
        <translation>Montrer davantage du morceau (Ctrl+molette)</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Show less of the song, and that wider (Ctrl+wheel)</source>
        <translation>Montrer moins du morceau, et plus large (Ctrl+molette)</translation>
    </message>
    <message>
        <source>Whole Song</source>
        <translation>Tout le morceau</translation>
    </message>
    <message>
        <source>Show the song from its start to its end</source>
        <translation>Montrer le morceau du début à la fin</translation>
    </message>
    <message>
        <source>Follow Playback</source>
        <translation>Suivre la lecture</translation>
    </message>
    <message>
        <source>Keep what sounds in view</source>
        <translation>Garder en vue ce qui sonne</translation>
    </message>
    <message>
        <source>Put Out Red Lights</source>
        <translation>Éteindre les voyants rouges</translation>
    </message>
    <message>
        <source>Forget which levels were too loud</source>
        <translation>Oublier quels niveaux étaient trop forts</translation>
    </message>
</context>
<context>
    <name>TransposeDialog</name>
    <message>
        <source>Transpose all notes</source>
        <translation>Transposer toutes les notes</translation>
    </message>
    <message>
        <source>semitone(s)</source>
        <translation>demi-ton(s)</translation>
    </message>
    <message>
        <source>12 semitones are an octave; a number below 0 moves the notes down</source>
        <translation>12 demi-tons font une octave&#xa0;; un nombre négatif descend les notes</translation>
    </message>
    <message>
        <source>Notes that fall outside of the valid octave range after transposing will be removed!</source>
        <translation>Les notes hors de l’étendue permise après la transposition seront ôtées&#xa0;!</translation>
    </message>
    <message>
        <source>Transpose</source>
        <translation>Transposer</translation>
    </message>
</context>
<context>
    <name>TuneChooser</name>
    <message>
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Find tunes by a part of their names</source>
        <translation>Trouver des airs par une partie de leur nom</translation>
    </message>
    <message>
        <source>Choose Tunes</source>
        <translation>Choisir des airs</translation>
    </message>
    <message>
        <source>Tunes</source>
        <translation>Airs</translation>
    </message>
    <message>
        <source>Ticked tunes are opened, a track for each of their voices</source>
        <translation>Les airs cochés sont ouverts, une piste pour chacune de leurs voix</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Tous</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Aucune</translation>
    </message>
    <message>
        <source>%1 has several tunes. Which are to be opened?</source>
        <translation>%1 a plusieurs airs. Lesquels ouvrir&#xa0;?</translation>
    </message>
</context>
<context>
    <name>UnitLengthDialog</name>
    <message>
        <source>Use custom length</source>
        <translation>Utiliser une durée choisie</translation>
    </message>
    <message>
        <source>Numerator</source>
        <translation>Numérateur</translation>
    </message>
    <message>
        <source>Denominator</source>
        <translation>Dénominateur</translation>
    </message>
    <message>
        <source>Auto-detect ideal unit length</source>
        <translation>Détecter la meilleure valeur de base</translation>
    </message>
    <message>
        <source>Change unit length to</source>
        <translation>Changer la valeur de base en</translation>
    </message>
    <message>
        <source>Any fraction of a whole note</source>
        <translation>Une fraction quelconque de la ronde</translation>
    </message>
    <message>
        <source>The unit length that makes the text shortest</source>
        <translation>La valeur de base qui rend le texte le plus court</translation>
    </message>
    <message>
        <source>Change Unit Length</source>
        <translation>Changer la valeur de base</translation>
    </message>
</context>
<context>
    <name>UpdateChecker</name>
    <message>
        <source>Could not read update information</source>
        <translation>Impossible de lire les informations de mise à jour</translation>
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
        <translation>silencieux</translation>
    </message>
    <message>
        <source>%1, it was too loud</source>
        <comment>a level</comment>
        <translation>%1, c’était trop fort</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A fatal error occured:
%1</source>
        <translation>Une erreur fatale est survenue&#xa0;:
%1</translation>
    </message>
    <message>
        <source>An unknown fatal error ocurred</source>
        <translation>Une erreur fatale inconnue est survenue</translation>
    </message>
</context>
</TS>
