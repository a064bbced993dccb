<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AddSnippet</name>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>New folder name:</source>
        <translation>Name des Ordners:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Add Snippet</source>
        <translation>Textbaustein hinzufügen</translation>
    </message>
    <message>
        <source>None</source>
        <extracomment>No folder.</extracomment>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Create new folder...</source>
        <translation>Neuen Ordner anlegen …</translation>
    </message>
</context>
<context>
    <name>AddSnippetShortcutView</name>
    <message>
        <source>Choose a keyboard shortcut to quickly add a new Snippet</source>
        <translation>Ein Tastenkürzel wählen, das schnell einen neuen Textbaustein anlegt</translation>
    </message>
    <message>
        <source>Default: Shift + Command + C: </source>
        <translation>Vorgabe: Umschalt + Super + C: </translation>
    </message>
</context>
<context>
    <name>ClearHistoryRow</name>
    <message>
        <source>Clear History</source>
        <translation>Verlauf löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Confirm?</source>
        <comment>deletes the whole history; beside &quot;Cancel&quot; in a narrow row</comment>
        <translation>Löschen?</translation>
    </message>
</context>
<context>
    <name>ClipButton</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Confirm?</source>
        <extracomment>The button that really deletes; beside &quot;Cancel&quot; in a narrow row.</extracomment>
        <translation>Löschen?</translation>
    </message>
</context>
<context>
    <name>ClipHistoryToggleView</name>
    <message>
        <source>Enable this option to make sure Quillery automatically loads each time you restart your computer:</source>
        <translation>Damit startet Quillery nach jedem Neustart des Rechners von selbst:</translation>
    </message>
    <message>
        <source>Enabling Clipboard History will save all your copied text for future pasting from all your iCloud devices:</source>
        <translation>Mit dem Verlauf der Zwischenablage lässt sich jeder kopierte Text später auf allen eigenen Geräten einfügen:</translation>
    </message>
    <message>
        <source>What&apos;s the maximum number of items we should keep in your Clipboard History?</source>
        <translation>Wie viele Einträge soll der Verlauf der Zwischenablage höchstens behalten?</translation>
    </message>
</context>
<context>
    <name>ClipHistoryView</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Nothing copied yet</source>
        <translation>Noch nichts kopiert</translation>
    </message>
</context>
<context>
    <name>ContentViewMac</name>
    <message>
        <source>&lt;-- Select a Snippet. Press + to create a new Snippet</source>
        <translation>&lt;-- Textbaustein auswählen oder mit + einen neuen anlegen</translation>
    </message>
</context>
<context>
    <name>ExactTextEdit</name>
    <message>
        <source>The Tab key writes a tab. Control and Tab, or Shift and Tab, leave the field.</source>
        <translation>Die Tabulatortaste schreibt einen Tabulator. Strg und Tabulator oder Umschalt und Tabulator verlassen das Feld.</translation>
    </message>
</context>
<context>
    <name>FieldMenu</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
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
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>FirstLoadView</name>
    <message>
        <source>Quillery Setup</source>
        <translation>Quillery einrichten</translation>
    </message>
</context>
<context>
    <name>Funcs</name>
    <message>
        <source>Add Snippet</source>
        <translation>Textbaustein hinzufügen</translation>
    </message>
</context>
<context>
    <name>KeyboardShortcuts</name>
    <message>
        <source>Space</source>
        <comment>the space bar</comment>
        <translation>Leertaste</translation>
    </message>
</context>
<context>
    <name>KeyboardShortcuts::RecorderFace</name>
    <message>
        <source>Clear Shortcut</source>
        <translation>Tastenkürzel entfernen</translation>
    </message>
</context>
<context>
    <name>LaunchAtLogin::Toggle</name>
    <message>
        <source>Launch at login</source>
        <translation>Beim Anmelden starten</translation>
    </message>
</context>
<context>
    <name>LibraryActions</name>
    <message>
        <source>Add Snippet</source>
        <translation>Textbaustein hinzufügen</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Item</source>
        <extracomment>The menu of the selected snippet or folder.</extracomment>
        <translation>&amp;Eintrag</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren …</translation>
    </message>
    <message>
        <source>&amp;Export Library…</source>
        <translation>Bibliothek &amp;exportieren …</translation>
    </message>
    <message>
        <source>&amp;Settings...</source>
        <translation>Ein&amp;stellungen …</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Undo I&amp;mport</source>
        <translation>I&amp;mport rückgängig machen</translation>
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
        <source>Select &amp;All</source>
        <translation>Alle&amp;s auswählen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>S&amp;uchen</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <extracomment>The snippet or folder above the selected one.</extracomment>
        <translation>&amp;Vorheriger</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <extracomment>The snippet or folder below the selected one.</extracomment>
        <translation>&amp;Nächster</translation>
    </message>
    <message>
        <source>Show &amp;Sidebar</source>
        <translation>&amp;Seitenleiste anzeigen</translation>
    </message>
    <message>
        <source>Go to &amp;List</source>
        <extracomment>Gives the keyboard to the list of snippets.</extracomment>
        <translation>Zur &amp;Liste</translation>
    </message>
    <message>
        <source>Close Folder</source>
        <translation>Ordner schließen</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>LibraryFault</name>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>A row must have 2 or 3 fields (title, content, and perhaps folder), but this one has %1.</source>
        <translation>Eine Zeile braucht 2 oder 3 Felder (Titel, Inhalt und vielleicht Ordner), diese hat %1.</translation>
    </message>
    <message numerus="yes">
        <source>The first row has %n fields, but this one has %1.</source>
        <translation>
            <numerusform>Die erste Zeile hat %n Feld, diese hat %1.</numerusform>
            <numerusform>Die erste Zeile hat %n Felder, diese hat %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>A library holds at most 32,767 snippets and folders.</source>
        <translation>Eine Bibliothek fasst höchstens 32.767 Textbausteine und Ordner.</translation>
    </message>
    <message>
        <source>The file is not in UTF-8.</source>
        <translation>Die Datei ist nicht in UTF-8.</translation>
    </message>
    <message>
        <source>The quotation mark that begins this field is never closed.</source>
        <translation>Das Anführungszeichen am Anfang dieses Feldes wird nirgends geschlossen.</translation>
    </message>
    <message>
        <source>Something follows the end of a field in quotation marks.</source>
        <translation>Auf ein Feld in Anführungszeichen folgt noch etwas.</translation>
    </message>
    <message>
        <source>A field with a quotation mark in it must stand in quotation marks, and the mark must be doubled.</source>
        <translation>Ein Feld, in dem ein Anführungszeichen vorkommt, muss in Anführungszeichen stehen und das Zeichen doppelt.</translation>
    </message>
    <message>
        <source>A comma or “%1” must stand here.</source>
        <translation>Hier muss ein Komma oder „%1“ stehen.</translation>
    </message>
    <message>
        <source>A name in quotation marks must stand here.</source>
        <translation>Hier muss ein Name in Anführungszeichen stehen.</translation>
    </message>
    <message>
        <source>A colon must stand here.</source>
        <translation>Hier muss ein Doppelpunkt stehen.</translation>
    </message>
    <message>
        <source>Nothing may follow the end of the library.</source>
        <translation>Auf das Ende der Bibliothek darf nichts folgen.</translation>
    </message>
    <message>
        <source>The text that begins here has no end.</source>
        <translation>Der Text, der hier beginnt, hat kein Ende.</translation>
    </message>
    <message>
        <source>A line end or control character inside a text must be written as an escape, such as \n.</source>
        <translation>Ein Zeilenende oder Steuerzeichen in einem Text muss umschrieben werden, etwa als \n.</translation>
    </message>
    <message>
        <source>There is no such escape.</source>
        <translation>Eine solche Umschreibung gibt es nicht.</translation>
    </message>
    <message>
        <source>Four hexadecimal digits must follow \u.</source>
        <translation>Auf \u müssen vier Hexadezimalziffern folgen.</translation>
    </message>
    <message>
        <source>%1 could not be read: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>It is not a file</source>
        <translation>Das ist keine Datei</translation>
    </message>
    <message>
        <source>It is larger than 1 GiB</source>
        <translation>Die Datei ist größer als 1 GiB</translation>
    </message>
    <message>
        <source>A library holds at most 32,767 snippets and folders. There are %1 already, and the file holds %2.</source>
        <translation>Eine Bibliothek fasst höchstens 32.767 Textbausteine und Ordner. Vorhanden sind schon %1, die Datei enthält %2.</translation>
    </message>
    <message>
        <source>A Quillery library begins with “{”.</source>
        <translation>Eine Quillery-Bibliothek beginnt mit „{“.</translation>
    </message>
    <message>
        <source>“%1” is missing.</source>
        <translation>„%1“ fehlt.</translation>
    </message>
    <message>
        <source>“%1” has no meaning here.</source>
        <translation>„%1“ hat hier keine Bedeutung.</translation>
    </message>
    <message>
        <source>“%1” stands here twice.</source>
        <translation>„%1“ steht hier doppelt.</translation>
    </message>
    <message>
        <source>The format must be “Quillery library”.</source>
        <translation>Das Format („format“) muss „Quillery library“ heißen.</translation>
    </message>
    <message>
        <source>The version must be a number, 1 or greater.</source>
        <translation>Die Version („version“) muss eine Zahl sein, mindestens 1.</translation>
    </message>
    <message>
        <source>The library was written by a newer Quillery (version %1 of the format; this one reads %2).</source>
        <translation>Die Bibliothek stammt von einem neueren Quillery (Version %1 des Formats; dieses liest %2).</translation>
    </message>
    <message>
        <source>The items must be a list in square brackets.</source>
        <translation>Die Einträge („items“) müssen eine Liste in eckigen Klammern sein.</translation>
    </message>
    <message>
        <source>An item must stand here, which begins with “{”.</source>
        <translation>Hier muss ein Eintrag stehen, der mit „{“ beginnt.</translation>
    </message>
    <message>
        <source>The title must be a text.</source>
        <translation>Der Titel („title“) muss ein Text sein.</translation>
    </message>
    <message>
        <source>The content must be a text.</source>
        <translation>Der Inhalt („content“) muss ein Text sein.</translation>
    </message>
    <message>
        <source>The content holds half a character, an escape \ud800 to \udfff without its other half.</source>
        <translation>Der Inhalt enthält ein halbes Zeichen, eine Umschreibung \ud800 bis \udfff ohne ihre andere Hälfte.</translation>
    </message>
    <message>
        <source>The item has two contents.</source>
        <translation>Der Eintrag hat zwei Inhalte.</translation>
    </message>
    <message>
        <source>The timestamp must be a date such as &quot;2026-11-21T15:45:02.123Z&quot;, or the milliseconds since 1970.</source>
        <translation>Der Zeitpunkt („timestamp“) muss ein Datum wie &quot;2026-11-21T15:45:02.123Z&quot; sein oder die Millisekunden seit 1970.</translation>
    </message>
    <message>
        <source>The id must be a UUID.</source>
        <translation>Die Kennung („id“) muss eine UUID sein.</translation>
    </message>
    <message>
        <source>A folder cannot stand inside a folder.</source>
        <translation>Ein Ordner kann nicht in einem Ordner stehen.</translation>
    </message>
    <message>
        <source>The members must be a list in square brackets.</source>
        <translation>Die Mitglieder („members“) müssen eine Liste in eckigen Klammern sein.</translation>
    </message>
    <message>
        <source>The library could not be written to %1: %2</source>
        <translation>Die Bibliothek konnte nicht nach %1 geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The text of “%1” could not be read</source>
        <translation>Der Text von „%1“ konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <comment>where in the file; what is wrong there</comment>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>“contentBase64” must be a Base64 text.</source>
        <translation>„contentBase64“ muss ein Text in Base64 sein.</translation>
    </message>
    <message>
        <source>“expanded” must be true or false.</source>
        <translation>„expanded“ muss true oder false sein.</translation>
    </message>
</context>
<context>
    <name>LibraryFiles</name>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Libraries and tables (*.json *.csv)</source>
        <translation>Bibliotheken und Tabellen (*.json *.csv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Export Library</source>
        <translation>Bibliothek exportieren</translation>
    </message>
    <message>
        <source>Quillery libraries (*.json)</source>
        <translation>Quillery-Bibliotheken (*.json)</translation>
    </message>
    <message>
        <source>Quillery Library.json</source>
        <extracomment>The name of the file that an export suggests.</extracomment>
        <translation>Quillery-Bibliothek.json</translation>
    </message>
    <message>
        <source>The file was not imported. Nothing was changed.</source>
        <translation>Die Datei wurde nicht importiert. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>The library was not exported.</source>
        <translation>Die Bibliothek wurde nicht exportiert.</translation>
    </message>
</context>
<context>
    <name>LibraryList</name>
    <message>
        <source>Snippets</source>
        <translation>Textbausteine</translation>
    </message>
    <message>
        <source>No match for “%1”</source>
        <translation>Kein Treffer für „%1“</translation>
    </message>
</context>
<context>
    <name>LibraryState</name>
    <message>
        <source>New Snippet</source>
        <extracomment>The title that a new snippet gets.</extracomment>
        <translation>Neuer Textbaustein</translation>
    </message>
    <message>
        <source>Folder</source>
        <extracomment>The title that a new folder gets.</extracomment>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Moved above %1</source>
        <translation>Über %1 verschoben</translation>
    </message>
    <message>
        <source>Moved below %1</source>
        <translation>Unter %1 verschoben</translation>
    </message>
</context>
<context>
    <name>MenuView</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Snippets</source>
        <translation>Textbausteine</translation>
    </message>
    <message>
        <source>Quick Add...</source>
        <translation>Schnell hinzufügen …</translation>
    </message>
    <message>
        <source>Snippet Editor...</source>
        <translation>Textbausteine bearbeiten …</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>Quit</source>
        <comment>ends the program</comment>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>MissingHere</name>
    <message>
        <source>This desktop grants neither shortcuts nor a tray icon: start Quillery again to open its menu.</source>
        <translation>Dieser Desktop bietet weder Tastenkürzel noch ein Symbol in der Leiste: Ein erneuter Start von Quillery öffnet das Menü.</translation>
    </message>
    <message>
        <source>This desktop grants no shortcuts: open the menu by the tray icon.</source>
        <translation>Dieser Desktop bietet keine Tastenkürzel: Das Symbol in der Leiste öffnet das Menü.</translation>
    </message>
    <message>
        <source>Other programs hold %1 and %2: choose other shortcuts on the next pages.</source>
        <translation>Andere Programme halten %1 und %2: Auf den nächsten Seiten lassen sich andere Tastenkürzel wählen.</translation>
    </message>
    <message>
        <source>Another program holds %1: choose another shortcut on the next pages.</source>
        <translation>Ein anderes Programm hält %1: Auf den nächsten Seiten lässt sich ein anderes Tastenkürzel wählen.</translation>
    </message>
    <message>
        <source>This desktop shows no tray icons: open the menu by its shortcut.</source>
        <translation>Dieser Desktop zeigt keine Symbole in der Leiste: Das Tastenkürzel öffnet das Menü.</translation>
    </message>
    <message>
        <source>This desktop does not let Quillery type: paste what you picked by yourself, with Ctrl+V.</source>
        <translation>Dieser Desktop lässt Quillery nicht tippen: Ausgewähltes bitte selbst mit Strg+V einfügen.</translation>
    </message>
</context>
<context>
    <name>NextButton</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>PageDots</name>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
</context>
<context>
    <name>PasteMenuShortcutView</name>
    <message>
        <source>Choose a keyboard shortcut to bring up the Paste menu</source>
        <translation>Ein Tastenkürzel wählen, das das Einfügemenü öffnet</translation>
    </message>
    <message>
        <source>Default: Shift + Command + V: </source>
        <translation>Vorgabe: Umschalt + Super + V: </translation>
    </message>
</context>
<context>
    <name>Quillery_MacApp</name>
    <message>
        <source>Quillery</source>
        <translation>Quillery</translation>
    </message>
    <message>
        <source>Quillery %1</source>
        <comment>%1 is the shortcut of the menu</comment>
        <translation>Quillery %1</translation>
    </message>
</context>
<context>
    <name>RowText</name>
    <message>
        <source>Blank text</source>
        <comment>one with nothing but blanks</comment>
        <translation>Leerer Text</translation>
    </message>
    <message>
        <source>99+ lines</source>
        <comment>beside a text: its length</comment>
        <translation>99+ Zeilen</translation>
    </message>
    <message numerus="yes">
        <source>%n lines</source>
        <comment>2 to 99</comment>
        <translation>
            <numerusform>%n Zeile</numerusform>
            <numerusform>%n Zeilen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n+ lines</source>
        <comment>this many at least</comment>
        <translation>
            <numerusform>%n+ Zeilen</numerusform>
            <numerusform>%n+ Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>Untitled</source>
        <comment>a snippet or a folder</comment>
        <translation>Ohne Titel</translation>
    </message>
</context>
<context>
    <name>Scenes</name>
    <message>
        <source>Welcome to Quillery!</source>
        <translation>Willkommen bei Quillery!</translation>
    </message>
    <message>
        <source>Add Snippet</source>
        <translation>Textbaustein hinzufügen</translation>
    </message>
    <message>
        <source>Quillery</source>
        <translation>Quillery</translation>
    </message>
    <message>
        <source>Quillery Settings</source>
        <translation>Quillery-Einstellungen</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Keep Clipboard History</source>
        <translation>Verlauf der Zwischenablage führen</translation>
    </message>
    <message>
        <source>Max clipboard history items:</source>
        <translation>Einträge im Verlauf, höchstens:</translation>
    </message>
    <message>
        <source>Paste keyboard shortcut:</source>
        <translation>Tastenkürzel zum Einfügen:</translation>
    </message>
    <message>
        <source>Add Snippet keyboard shortcut:</source>
        <translation>Tastenkürzel für neue Textbausteine:</translation>
    </message>
</context>
<context>
    <name>ShortcutNames</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>Ziffernblock 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>Ziffernblock 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>Ziffernblock 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>Ziffernblock 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>Ziffernblock 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>Ziffernblock 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>Ziffernblock 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>Ziffernblock 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>Ziffernblock 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>Ziffernblock 9</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num</translation>
    </message>
    <message>
        <source>Keypad Decimal</source>
        <translation>Ziffernblock Komma</translation>
    </message>
    <message>
        <source>Keypad Divide</source>
        <translation>Ziffernblock Geteilt</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>Ziffernblock Eingabe</translation>
    </message>
    <message>
        <source>Keypad Equals</source>
        <translation>Ziffernblock Gleich</translation>
    </message>
    <message>
        <source>Keypad Minus</source>
        <translation>Ziffernblock Minus</translation>
    </message>
    <message>
        <source>Keypad Multiply</source>
        <translation>Ziffernblock Mal</translation>
    </message>
    <message>
        <source>Keypad Plus</source>
        <translation>Ziffernblock Plus</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Lauter</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Leiser</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>Feststelltaste</translation>
    </message>
    <message>
        <source>key %1</source>
        <translation>Taste %1</translation>
    </message>
</context>
<context>
    <name>SnippetDetailMac</name>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Snippet</source>
        <translation>Textbaustein</translation>
    </message>
</context>
<context>
    <name>SnippetMenuView</name>
    <message>
        <source>Snippets</source>
        <translation>Textbausteine</translation>
    </message>
    <message>
        <source>No snippets yet</source>
        <translation>Noch keine Textbausteine</translation>
    </message>
    <message>
        <source>No match for “%1”</source>
        <translation>Kein Treffer für „%1“</translation>
    </message>
</context>
<context>
    <name>SummaryView</name>
    <message>
        <source>Enabled</source>
        <translation>Eingeschaltet</translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation>Ausgeschaltet</translation>
    </message>
    <message>
        <source>✔️ Your Paste hotkey is </source>
        <translation>✔️ Tastenkürzel zum Einfügen: </translation>
    </message>
    <message>
        <source>✔️ Your Add Snippet hotkey is </source>
        <translation>✔️ Tastenkürzel für neue Textbausteine: </translation>
    </message>
    <message>
        <source>✔️ Clipboard History is </source>
        <translation>✔️ Verlauf der Zwischenablage: </translation>
    </message>
    <message>
        <source>✔️ Storing a maximum of </source>
        <translation>✔️ Der Verlauf behält höchstens </translation>
    </message>
    <message>
        <source> items in History.</source>
        <translation> Einträge.</translation>
    </message>
    <message>
        <source>✔️ Autolaunch at login is </source>
        <translation>✔️ Start beim Anmelden: </translation>
    </message>
</context>
<context>
    <name>UpdaterSettingsView</name>
    <message>
        <source>Automatically check for updates</source>
        <translation>Automatisch nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>Automatically download updates</source>
        <translation>Aktualisierungen automatisch laden</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Quillery</source>
        <translation>Willkommen bei Quillery</translation>
    </message>
    <message>
        <source>Let&apos;s quickly set up some key features.</source>
        <translation>Das Wichtigste ist schnell eingerichtet.</translation>
    </message>
</context>
</TS>
