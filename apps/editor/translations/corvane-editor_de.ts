<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>About</name>
    <message>
        <source>About Corvane Editor</source>
        <translation>Über den Corvane-Editor</translation>
    </message>
    <message>
        <source>Version %1. Edits the tags of MP3 files; the audio is never touched.</source>
        <translation>Version %1. Bearbeitet die Tags von MP3-Dateien; der Ton wird nie angetastet.</translation>
    </message>
</context>
<context>
    <name>Fields</name>
    <message>
        <source>title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>track</source>
        <translation>Titelnummer</translation>
    </message>
    <message>
        <source>genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>composer</source>
        <translation>Komponist</translation>
    </message>
    <message>
        <source>copyright</source>
        <translation>Copyright</translation>
    </message>
    <message>
        <source>lyrics</source>
        <translation>Liedtext</translation>
    </message>
    <message>
        <source>picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>original artist</source>
        <translation>Originalinterpret</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>encoded by</source>
        <translation>Kodiert von</translation>
    </message>
    <message>
        <source>synchronised lyrics</source>
        <translation>Liedtext mit Zeiten</translation>
    </message>
</context>
<context>
    <name>QApplication</name>
    <message>
        <source>Edits the tags of MP3 files.</source>
        <translation>Bearbeitet die Tags von MP3-Dateien.</translation>
    </message>
    <message>
        <source>Files and folders to open.</source>
        <translation>Dateien und Ordner, die geöffnet werden.</translation>
    </message>
</context>
<context>
    <name>corvane::editor::CaseDialog</name>
    <message>
        <source>Convert case</source>
        <translation>Groß- und Kleinschreibung ändern</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>&amp;First Letter of Each Word</source>
        <translation>Anfangsbuchstabe &amp;Jedes Wortes Groß</translation>
    </message>
    <message>
        <source>all in &amp;lower case</source>
        <translation>alles in &amp;kleinbuchstaben</translation>
    </message>
    <message>
        <source>ALL IN &amp;UPPER CASE</source>
        <translation>ALLES IN &amp;GROSSBUCHSTABEN</translation>
    </message>
    <message>
        <source>In</source>
        <translation>In</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Artist</source>
        <translation>&amp;Interpret</translation>
    </message>
    <message>
        <source>Al&amp;bum</source>
        <translation>Al&amp;bum</translation>
    </message>
    <message>
        <source>Co&amp;mposer</source>
        <translation>Kom&amp;ponist</translation>
    </message>
    <message>
        <source>&amp;Original artist</source>
        <translation>&amp;Originalinterpret</translation>
    </message>
    <message>
        <source>Con&amp;vert</source>
        <translation>&amp;Umwandeln</translation>
    </message>
    <message>
        <source>Comme&amp;nt</source>
        <translation>Ko&amp;mmentar</translation>
    </message>
</context>
<context>
    <name>corvane::editor::ChangeDialog</name>
    <message>
        <source>Files that will change: %1</source>
        <translation>Dateien, die sich ändern: %1</translation>
    </message>
    <message>
        <source>Files saved: %1</source>
        <translation>Gespeicherte Dateien: %1</translation>
    </message>
    <message>
        <source>that cannot be saved: %1</source>
        <translation>die nicht gespeichert werden können: %1</translation>
    </message>
    <message>
        <source>failed: %1</source>
        <translation>fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>with warnings: %1</source>
        <translation>mit Warnungen: %1</translation>
    </message>
    <message>
        <source>Preview of the changes</source>
        <translation>Vorschau auf die Änderungen</translation>
    </message>
    <message>
        <source>Report of the last save</source>
        <translation>Bericht über das letzte Speichern</translation>
    </message>
    <message>
        <source>Copy as &amp;text</source>
        <translation>Als Text &amp;kopieren</translation>
    </message>
</context>
<context>
    <name>corvane::editor::ChangeTree</name>
    <message>
        <source>%1 tag, new</source>
        <translation>%1-Tag, neu</translation>
    </message>
    <message>
        <source>%1 tag, removed</source>
        <translation>%1-Tag, entfernt</translation>
    </message>
    <message>
        <source>%1 tag</source>
        <translation>%1-Tag</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nachher</translation>
    </message>
    <message>
        <source>Nothing changes</source>
        <translation>Nichts ändert sich</translation>
    </message>
    <message>
        <source>  failed: %1</source>
        <translation>  fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>  warning: %1</source>
        <translation>  Warnung: %1</translation>
    </message>
</context>
<context>
    <name>corvane::editor::EditSession</name>
    <message>
        <source>revert</source>
        <translation>Zurücknehmen</translation>
    </message>
</context>
<context>
    <name>corvane::editor::Editing</name>
    <message>
        <source>edit</source>
        <translation>Bearbeitung</translation>
    </message>
    <message>
        <source>edit of many files</source>
        <translation>Bearbeitung vieler Dateien</translation>
    </message>
    <message>
        <source>Drop MP3 files or folders here, or open them from the File menu.
Select files to see and change what is in them.</source>
        <translation>Ziehen Sie MP3-Dateien oder Ordner hierher, oder öffnen Sie sie über das Menü Datei.
Wählen Sie Dateien aus, um zu sehen und zu ändern, was in ihnen steht.</translation>
    </message>
    <message>
        <source>This file cannot be read: %1</source>
        <translation>Diese Datei kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Reading the tags of the selected files…</source>
        <translation>Die Tags der ausgewählten Dateien werden gelesen …</translation>
    </message>
    <message>
        <source>Reading was cancelled. Select the files again to edit them.</source>
        <translation>Das Lesen wurde abgebrochen. Wählen Sie die Dateien erneut aus, um sie zu bearbeiten.</translation>
    </message>
    <message>
        <source>None of these files can be read.</source>
        <translation>Keine dieser Dateien kann gelesen werden.</translation>
    </message>
</context>
<context>
    <name>corvane::editor::FileList</name>
    <message>
        <source>Filter: words in any column</source>
        <translation>Filter: Wörter in beliebigen Spalten</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
</context>
<context>
    <name>corvane::editor::FilePages</name>
    <message>
        <source>ID3v2</source>
        <translation>ID3v2</translation>
    </message>
    <message>
        <source>ID3v1</source>
        <translation>ID3v1</translation>
    </message>
    <message>
        <source>Lyrics3</source>
        <translation>Lyrics3</translation>
    </message>
    <message>
        <source>File and audio</source>
        <translation>Datei und Ton</translation>
    </message>
    <message>
        <source>XML</source>
        <translation>XML</translation>
    </message>
</context>
<context>
    <name>corvane::editor::FileTable</name>
    <message>
        <source> VBR</source>
        <translation> VBR</translation>
    </message>
    <message>
        <source>Cannot be read: %1</source>
        <translation>Kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Changed, not saved yet</source>
        <translation>Geändert, noch nicht gespeichert</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Bit rate</source>
        <comment>kbit/s</comment>
        <translation>Bitrate</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>corvane::editor::GenreDialog</name>
    <message>
        <source>Genres</source>
        <translation>Genres</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>&amp;Set genre</source>
        <translation>Genre &amp;setzen</translation>
    </message>
</context>
<context>
    <name>corvane::editor::JobBar</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1: %2 of %3</source>
        <translation>%1: %2 von %3</translation>
    </message>
</context>
<context>
    <name>corvane::editor::MainWindow</name>
    <message>
        <source>Tool bar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open files…</source>
        <translation>Dateien ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save all changes</source>
        <translation>Alle Änderungen &amp;speichern</translation>
    </message>
    <message>
        <source>Save s&amp;elected files</source>
        <translation>&amp;Ausgewählte Dateien speichern</translation>
    </message>
    <message>
        <source>&amp;Preview the changes…</source>
        <translation>&amp;Vorschau auf die Änderungen …</translation>
    </message>
    <message>
        <source>Repor&amp;t of the last save…</source>
        <translation>Beri&amp;cht über das letzte Speichern …</translation>
    </message>
    <message>
        <source>&amp;Close all files</source>
        <translation>Alle Dateien sch&amp;ließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Re&amp;vert selected files</source>
        <translation>Ausgewählte Dateien &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Select &amp;all files</source>
        <translation>&amp;Alle Dateien auswählen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Ansi&amp;cht</translation>
    </message>
    <message>
        <source>Go to &amp;filter</source>
        <translation>Zum &amp;Filter</translation>
    </message>
    <message>
        <source>Go to f&amp;iles</source>
        <translation>Zu den &amp;Dateien</translation>
    </message>
    <message>
        <source>Go to fi&amp;elds</source>
        <translation>Zu den F&amp;eldern</translation>
    </message>
    <message>
        <source>List all frames of an ID&amp;3v2 tag</source>
        <translation>Alle Frames eines ID&amp;3v2-Tags auflisten</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Corvane Editor</source>
        <translation>&amp;Über den Corvane-Editor</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Über &amp;Qt</translation>
    </message>
    <message>
        <source>Nothing yet</source>
        <translation>Noch nichts</translation>
    </message>
    <message>
        <source>&amp;Clear this list</source>
        <translation>Diese Liste &amp;leeren</translation>
    </message>
    <message>
        <source>Open files</source>
        <translation>Dateien öffnen</translation>
    </message>
    <message>
        <source>MP3 files (*.mp3 *.MP3);;All files (*)</source>
        <translation>MP3-Dateien (*.mp3 *.MP3);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>Reading tags</source>
        <translation>Lesen der Tags</translation>
    </message>
    <message>
        <source>Working</source>
        <translation>Arbeit</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>Files: %1</source>
        <translation>Dateien: %1</translation>
    </message>
    <message>
        <source>Files: %1 of %2</source>
        <translation>Dateien: %1 von %2</translation>
    </message>
    <message>
        <source>Corvane Editor</source>
        <translation>Corvane-Editor</translation>
    </message>
    <message>
        <source>There are changes that are not saved. Changed files: %1</source>
        <translation>Es gibt Änderungen, die nicht gespeichert sind. Geänderte Dateien: %1</translation>
    </message>
    <message>
        <source>Open &amp;folder…</source>
        <translation>&amp;Ordner öffnen …</translation>
    </message>
    <message>
        <source>The window closes when the files are saved.</source>
        <translation>Das Fenster schließt sich, wenn die Dateien gespeichert sind.</translation>
    </message>
    <message>
        <source>%1 is not opened: %2</source>
        <translation>%1 wird nicht geöffnet: %2</translation>
    </message>
    <message>
        <source>Remove from the &amp;list</source>
        <translation>Von der &amp;Liste nehmen</translation>
    </message>
    <message>
        <source>&amp;Read the files again</source>
        <translation>Dateien &amp;neu lesen</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>Remove from the list</source>
        <translation>Von der Liste nehmen</translation>
    </message>
    <message>
        <source>Temporary files</source>
        <translation>Temporäre Dateien</translation>
    </message>
    <message>
        <source>A save that was cut off has left temporary files behind: %1. Your files have all that is in them, except the tag that was being written.

Remove the temporary files?</source>
        <translation>Ein abgebrochenes Speichern hat temporäre Dateien zurückgelassen: %1. Alles darin außer dem Tag, der gerade geschrieben wurde, steht auch in Ihren Dateien.

Die temporären Dateien entfernen?</translation>
    </message>
    <message>
        <source>%1 was not removed: %2</source>
        <translation>%1 wurde nicht entfernt: %2</translation>
    </message>
</context>
<context>
    <name>corvane::editor::ManyPages</name>
    <message>
        <source>All tags</source>
        <translation>Alle Tags</translation>
    </message>
    <message>
        <source>ID3v1</source>
        <translation>ID3v1</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Artist</source>
        <translation>&amp;Interpret</translation>
    </message>
    <message>
        <source>Al&amp;bum</source>
        <translation>&amp;Album</translation>
    </message>
    <message>
        <source>Yea&amp;r</source>
        <translation>&amp;Jahr</translation>
    </message>
    <message>
        <source>Trac&amp;k</source>
        <translation>Titel&amp;nummer</translation>
    </message>
    <message>
        <source>&amp;Genre</source>
        <translation>&amp;Genre</translation>
    </message>
    <message>
        <source>&amp;Comment</source>
        <translation>&amp;Kommentar</translation>
    </message>
    <message>
        <source>Co&amp;mposer</source>
        <translation>Ko&amp;mponist</translation>
    </message>
    <message>
        <source>Or&amp;iginal artist</source>
        <translation>&amp;Originalinterpret</translation>
    </message>
    <message>
        <source>&amp;URL</source>
        <translation>&amp;URL</translation>
    </message>
    <message>
        <source>Enco&amp;ded by</source>
        <translation>Kodie&amp;rt von</translation>
    </message>
    <message>
        <source>New picture for all</source>
        <translation>Neues Bild für alle</translation>
    </message>
    <message>
        <source>Files that are edited together: %1. A field is written only when you change it, into the tags that each file has.</source>
        <translation>Gemeinsam bearbeitete Dateien: %1. Ein Feld wird nur geschrieben, wenn Sie es ändern, und zwar in die Tags, die jede Datei hat.</translation>
    </message>
    <message>
        <source>different values</source>
        <translation>verschiedene Werte</translation>
    </message>
    <message>
        <source>will be emptied</source>
        <translation>wird geleert</translation>
    </message>
    <message>
        <source>Remove the &amp;pictures of all</source>
        <translation>Bilder aller Dateien ent&amp;fernen</translation>
    </message>
    <message>
        <source>Cop&amp;yright</source>
        <translation>Co&amp;pyright</translation>
    </message>
</context>
<context>
    <name>corvane::editor::NumberDialog</name>
    <message>
        <source>Number the tracks</source>
        <translation>Titel nummerieren</translation>
    </message>
    <message>
        <source>The selected files (%1) get track numbers in the order in which the list shows them.</source>
        <translation>Die ausgewählten Dateien (%1) erhalten Titelnummern in der Reihenfolge, in der die Liste sie zeigt.</translation>
    </message>
    <message>
        <source>Write the &amp;total, as in 3/12:</source>
        <translation>&amp;Gesamtzahl schreiben, wie in 3/12:</translation>
    </message>
    <message>
        <source>&amp;Number</source>
        <translation>&amp;Nummerieren</translation>
    </message>
    <message>
        <source>&amp;First number:</source>
        <translation>&amp;Erste Nummer:</translation>
    </message>
</context>
<context>
    <name>corvane::editor::TechnicalView</name>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>%1 kbit/s, variable, average</source>
        <translation>%1 kbit/s, variabel, im Mittel</translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>%1 Hz</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Bytes</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Technical data</source>
        <translation>Technische Daten</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>No MPEG audio frame was found</source>
        <translation>Es wurde kein MPEG-Audioframe gefunden</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>%1 Layer %2</source>
        <translation>%1 Layer %2</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>Bit rate</source>
        <translation>Bitrate</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Abtastrate</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Frames</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Emphasis</source>
        <translation>Emphasis</translation>
    </message>
    <message>
        <source>Checksum</source>
        <translation>Prüfsumme</translation>
    </message>
    <message>
        <source>Copyright</source>
        <translation>Urheberrecht</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
</context>
<context>
    <name>corvane::editor::ToolMenu</name>
    <message>
        <source>Copy ID3v&amp;1 to ID3v2</source>
        <translation>ID3v&amp;1 nach ID3v2 kopieren</translation>
    </message>
    <message>
        <source>Copy ID3v&amp;2 to ID3v1</source>
        <translation>ID3v&amp;2 nach ID3v1 kopieren</translation>
    </message>
    <message>
        <source>Convert &amp;case…</source>
        <translation>&amp;Groß- und Kleinschreibung …</translation>
    </message>
    <message>
        <source>&amp;Number the tracks…</source>
        <translation>Titel &amp;nummerieren …</translation>
    </message>
    <message>
        <source>&amp;Genre…</source>
        <translation>G&amp;enre …</translation>
    </message>
    <message>
        <source>Load &amp;picture…</source>
        <translation>Bild &amp;laden …</translation>
    </message>
    <message>
        <source>R&amp;emove picture</source>
        <translation>Bild entfe&amp;rnen</translation>
    </message>
    <message>
        <source>Remove &amp;ID3v1 tag</source>
        <translation>ID3v1-&amp;Tag entfernen</translation>
    </message>
    <message>
        <source>Remove ID3&amp;v2 tag</source>
        <translation>ID3&amp;v2-Tag entfernen</translation>
    </message>
    <message>
        <source>Remove &amp;both tags</source>
        <translation>&amp;Beide Tags entfernen</translation>
    </message>
    <message>
        <source>case conversion</source>
        <translation>Schreibweise</translation>
    </message>
    <message>
        <source>numbering</source>
        <translation>Nummerierung</translation>
    </message>
    <message>
        <source>genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>%1 is no picture that a tag can hold.</source>
        <translation>%1 ist kein Bild, das ein Tag aufnehmen kann.</translation>
    </message>
    <message>
        <source>picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Tag&amp;s</source>
        <translation>Tag&amp;s</translation>
    </message>
</context>
<context>
    <name>corvane::editor::XmlView</name>
    <message>
        <source> … %1 characters … </source>
        <translation> … %1 Zeichen … </translation>
    </message>
    <message>
        <source>XML document</source>
        <translation>XML-Dokument</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>E&amp;xport…</source>
        <translation>E&amp;xportieren …</translation>
    </message>
    <message>
        <source>Export the document</source>
        <translation>Dokument exportieren</translation>
    </message>
    <message>
        <source>XML (*.xml)</source>
        <translation>XML (*.xml)</translation>
    </message>
    <message>
        <source>%1 was not written: %2</source>
        <translation>%1 wurde nicht geschrieben: %2</translation>
    </message>
    <message>
        <source>This file cannot be read any more.</source>
        <translation>Diese Datei kann nicht mehr gelesen werden.</translation>
    </message>
    <message>
        <source>there is no document of a file that cannot be read</source>
        <translation>es gibt kein Dokument einer Datei, die nicht gelesen werden kann</translation>
    </message>
</context>
</TS>
