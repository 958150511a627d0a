<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ControlKinds</name>
    <message>
        <source>Corvane</source>
        <translation>Corvane</translation>
    </message>
    <message>
        <source>Opens one MP3 file for the form</source>
        <translation>Öffnet eine MP3-Datei für das Formular</translation>
    </message>
    <message>
        <source>Owns a FileHandler and shows who made the library.</source>
        <translation>Besitzt einen FileHandler und zeigt, von wem die Bibliothek stammt.</translation>
    </message>
    <message>
        <source>ID3v1 Editor</source>
        <translation>ID3v1-Editor</translation>
    </message>
    <message>
        <source>Edits one or many ID3v1 tags</source>
        <translation>Bearbeitet ein oder viele ID3v1-Tags</translation>
    </message>
    <message>
        <source>Shows and edits the fields of an ID3v1 or ID3v1.1 tag, or of several.</source>
        <translation>Zeigt und bearbeitet die Felder eines oder mehrerer ID3v1- oder ID3v1.1-Tags.</translation>
    </message>
    <message>
        <source>Title, 30 characters are stored.</source>
        <translation>Titel; 30 Zeichen werden gespeichert.</translation>
    </message>
    <message>
        <source>Artist, 30 characters are stored.</source>
        <translation>Interpret; 30 Zeichen werden gespeichert.</translation>
    </message>
    <message>
        <source>Album, 30 characters are stored.</source>
        <translation>Album; 30 Zeichen werden gespeichert.</translation>
    </message>
    <message>
        <source>Year, 4 characters are stored.</source>
        <translation>Jahr; 4 Zeichen werden gespeichert.</translation>
    </message>
    <message>
        <source>Genre number; 255 means none.</source>
        <translation>Nummer des Genres; 255 bedeutet keines.</translation>
    </message>
    <message>
        <source>Track number from 1 to 255; 0 means none.</source>
        <translation>Titelnummer von 1 bis 255; 0 bedeutet keine.</translation>
    </message>
    <message>
        <source>Comment, 30 characters are stored, 28 with a track.</source>
        <translation>Kommentar; 30 Zeichen werden gespeichert, mit Titelnummer 28.</translation>
    </message>
    <message>
        <source>Whether the texts can only be read.</source>
        <translation>Ob die Texte nur gelesen werden können.</translation>
    </message>
    <message>
        <source>One tag, or many at once: then only edited fields count.</source>
        <translation>Ein Tag, oder viele zugleich: dann zählen nur bearbeitete Felder.</translation>
    </message>
    <message>
        <source>ID3v2 Editor</source>
        <translation>ID3v2-Editor</translation>
    </message>
    <message>
        <source>Edits an ID3v2 tag</source>
        <translation>Bearbeitet ein ID3v2-Tag</translation>
    </message>
    <message>
        <source>Shows and edits the fields, the picture and the lyrics of an ID3v2 tag, and lists its frames.</source>
        <translation>Zeigt und bearbeitet Felder, Bild und Liedtexte eines ID3v2-Tags und listet seine Frames auf.</translation>
    </message>
    <message>
        <source>Whether the fields and the picture can be used.</source>
        <translation>Ob die Felder und das Bild benutzt werden können.</translation>
    </message>
    <message>
        <source>The panels one below the other, or side by side.</source>
        <translation>Die Bereiche untereinander oder nebeneinander.</translation>
    </message>
    <message>
        <source>Whether the list of all frames is shown.</source>
        <translation>Ob die Liste aller Frames gezeigt wird.</translation>
    </message>
    <message>
        <source>Lyrics3 Viewer</source>
        <translation>Lyrics3-Anzeige</translation>
    </message>
    <message>
        <source>Shows a Lyrics3 tag</source>
        <translation>Zeigt ein Lyrics3-Tag</translation>
    </message>
    <message>
        <source>Shows title, artist, album, author and lyrics of a Lyrics3 tag.</source>
        <translation>Zeigt Titel, Interpret, Album, Autor und Liedtext eines Lyrics3-Tags.</translation>
    </message>
    <message>
        <source>Whether the fields can be edited unless they are locked.</source>
        <translation>Ob die Felder bearbeitet werden können, sofern sie nicht gesperrt sind.</translation>
    </message>
    <message>
        <source>Whether the control as a whole can be used.</source>
        <translation>Ob das Steuerelement als Ganzes benutzt werden kann.</translation>
    </message>
</context>
<context>
    <name>Id3v1Form</name>
    <message>
        <source>Previous tag</source>
        <translation>Voriges Tag</translation>
    </message>
    <message>
        <source>Next tag</source>
        <translation>Nächstes Tag</translation>
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
        <translation>Titelnummer</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
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
        <source>&amp;Year</source>
        <translation>&amp;Jahr</translation>
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
        <source>Trac&amp;k</source>
        <translation>Titel&amp;nummer</translation>
    </message>
    <message>
        <source>no tag</source>
        <translation>kein Tag</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>ID3v&amp;1 tag</source>
        <translation>ID3v&amp;1-Tag</translation>
    </message>
</context>
<context>
    <name>Id3v2Form</name>
    <message>
        <source>ID3v&amp;2 tag</source>
        <translation>ID3v&amp;2-Tag</translation>
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
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Titelnummer</translation>
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
        <source>This text is too long to be edited here.</source>
        <translation>Dieser Text ist zu lang, um hier bearbeitet zu werden.</translation>
    </message>
    <message>
        <source>Co&amp;pyright</source>
        <translation>Co&amp;pyright</translation>
    </message>
</context>
<context>
    <name>LyricsForm</name>
    <message>
        <source>&amp;Lyrics3 tag</source>
        <translation>&amp;Lyrics3-Tag</translation>
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
        <source>Author</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Liedtext</translation>
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
        <source>A&amp;uthor</source>
        <translation>A&amp;utor</translation>
    </message>
    <message>
        <source>L&amp;yrics</source>
        <translation>Liedte&amp;xt</translation>
    </message>
</context>
<context>
    <name>PictureTexts</name>
    <message>
        <source>All Pictures (*.bmp *.jpg *.jpeg *.gif *.png)</source>
        <translation>Alle Bilder (*.bmp *.jpg *.jpeg *.gif *.png)</translation>
    </message>
    <message>
        <source>Load Picture</source>
        <translation>Bild laden</translation>
    </message>
    <message>
        <source>Bitmaps and JPG Files (*.BMP *.JPG *.GIF)</source>
        <translation>Bitmaps und JPG-Dateien (*.BMP *.JPG *.GIF)</translation>
    </message>
</context>
<context>
    <name>corvane::controls::ControlPlugin</name>
    <message>
        <source>Corvane Tag Editors</source>
        <translation>Tag-Editoren von Corvane</translation>
    </message>
</context>
<context>
    <name>corvane::controls::EditMenu</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>Alles aus&amp;wählen</translation>
    </message>
    <message>
        <source>&amp;Format</source>
        <translation>&amp;Schreibweise</translation>
    </message>
    <message>
        <source>&amp;First Letter of Each Word Upper Case</source>
        <translation>&amp;Anfangsbuchstaben der Wörter groß</translation>
    </message>
    <message>
        <source>&amp;Lower Case</source>
        <translation>&amp;Kleinbuchstaben</translation>
    </message>
    <message>
        <source>&amp;Upper Case</source>
        <translation>&amp;Großbuchstaben</translation>
    </message>
</context>
<context>
    <name>corvane::controls::FieldLimit</name>
    <message>
        <source>Only the first %1 characters are stored.</source>
        <translation>Nur die ersten %1 Zeichen werden gespeichert.</translation>
    </message>
</context>
<context>
    <name>corvane::controls::FrameList</name>
    <message>
        <source>Frames of the tag</source>
        <translation>Frames des Tags</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Frame</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
</context>
<context>
    <name>corvane::controls::GenreBox</name>
    <message>
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Genre number</source>
        <translation>Nummer des Genres</translation>
    </message>
</context>
<context>
    <name>corvane::controls::ID3v2</name>
    <message>
        <source>This tag cannot be saved: %1</source>
        <translation>Dieses Tag kann nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>ID3v%1 Tag</source>
        <translation>ID3v%1 Tag</translation>
    </message>
    <message>
        <source>%1 Bytes</source>
        <translation>%1 Bytes</translation>
    </message>
</context>
<context>
    <name>corvane::controls::LyricsPanel</name>
    <message>
        <source>Unsynchronised lyrics</source>
        <translation>Liedtext ohne Zeiten</translation>
    </message>
    <message>
        <source>Synchronised lyrics</source>
        <translation>Liedtext mit Zeiten</translation>
    </message>
    <message>
        <source>Kind of lyrics</source>
        <translation>Art des Liedtextes</translation>
    </message>
    <message>
        <source>L&amp;yrics</source>
        <translation>Liedte&amp;xt</translation>
    </message>
    <message>
        <source>Sy&amp;nchronised Lyrics</source>
        <translation>Liedtext mit &amp;Zeiten</translation>
    </message>
</context>
<context>
    <name>corvane::controls::PicturePanel</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>L&amp;oad…</source>
        <translation>&amp;Laden …</translation>
    </message>
    <message>
        <source>no picture</source>
        <translation>kein Bild</translation>
    </message>
    <message>
        <source>%1 × %2, %3, %4</source>
        <translation>%1 × %2, %3, %4</translation>
    </message>
    <message>
        <source>cannot be shown</source>
        <translation>kann nicht gezeigt werden</translation>
    </message>
    <message>
        <source>The file holds no JPEG, PNG, GIF or BMP picture.</source>
        <translation>Die Datei enthält kein JPEG-, PNG-, GIF- oder BMP-Bild.</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Entfernen</translation>
    </message>
</context>
</TS>
