<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Engine</name>
    <message>
        <source>%1: not read, %2</source>
        <translation>%1: nicht gelesen, %2</translation>
    </message>
    <message>
        <source>%1: not understood, %2</source>
        <translation>%1: nicht verstanden, %2</translation>
    </message>
    <message>
        <source>%1: only partly read, %2</source>
        <translation>%1: nur teilweise gelesen, %2</translation>
    </message>
    <message>
        <source>Who may watch</source>
        <translation>Wer zusehen kann</translation>
    </message>
    <message>
        <source>What starts by itself</source>
        <translation>Was von selbst startet</translation>
    </message>
    <message>
        <source>Remote access and management</source>
        <translation>Fernzugriff und Verwaltung</translation>
    </message>
    <message>
        <source>Sees what you type</source>
        <translation>Sieht, was Sie tippen</translation>
    </message>
    <message>
        <source>A program that is allowed here can notice every key you press, passwords included. To take it back, open System Settings, Privacy &amp; Security, Accessibility or Input Monitoring on the Mac and switch it off.</source>
        <translation>Ein hier erlaubtes Programm kann jede Taste bemerken, die Sie drücken, auch bei Passwörtern. Um das zurückzunehmen, öffnen Sie auf dem Mac Systemeinstellungen, Datenschutz &amp; Sicherheit, Bedienungshilfen oder Eingabeüberwachung und schalten Sie es aus.</translation>
    </message>
    <message>
        <source>Sees the screen</source>
        <translation>Sieht den Bildschirm</translation>
    </message>
    <message>
        <source>A program that is allowed here can take pictures of all that is on the screen. To take it back, open System Settings, Privacy &amp; Security, Screen Recording on the Mac and switch it off.</source>
        <translation>Ein hier erlaubtes Programm kann alles aufnehmen, was auf dem Bildschirm ist. Um das zurückzunehmen, öffnen Sie auf dem Mac Systemeinstellungen, Datenschutz &amp; Sicherheit, Bildschirmaufnahme und schalten Sie es aus.</translation>
    </message>
    <message>
        <source>Reads every file</source>
        <translation>Liest jede Datei</translation>
    </message>
    <message>
        <source>A program that is allowed here can open all files, mail and messages too. To take it back, open System Settings, Privacy &amp; Security, Full Disk Access on the Mac and switch it off.</source>
        <translation>Ein hier erlaubtes Programm kann alle Dateien öffnen, auch E-Mails und Nachrichten. Um das zurückzunehmen, öffnen Sie auf dem Mac Systemeinstellungen, Datenschutz &amp; Sicherheit, Festplattenvollzugriff und schalten Sie es aus.</translation>
    </message>
    <message>
        <source>Listens or watches</source>
        <translation>Hört oder sieht zu</translation>
    </message>
    <message>
        <source>A program that is allowed here can use the microphone or the camera. To take it back, open System Settings, Privacy &amp; Security, Microphone or Camera on the Mac and switch it off.</source>
        <translation>Ein hier erlaubtes Programm kann Mikrofon oder Kamera benutzen. Um das zurückzunehmen, öffnen Sie auf dem Mac Systemeinstellungen, Datenschutz &amp; Sicherheit, Mikrofon oder Kamera und schalten Sie es aus.</translation>
    </message>
    <message>
        <source>Acts for you</source>
        <translation>Handelt für Sie</translation>
    </message>
    <message>
        <source>A program that is allowed here can press keys and click as if it were you. To take it back, open System Settings, Privacy &amp; Security, Accessibility on the Mac and switch it off.</source>
        <translation>Ein hier erlaubtes Programm kann Tasten drücken und klicken, als wären Sie es. Um das zurückzunehmen, öffnen Sie auf dem Mac Systemeinstellungen, Datenschutz &amp; Sicherheit, Bedienungshilfen und schalten Sie es aus.</translation>
    </message>
    <message>
        <source>Steers other programs</source>
        <translation>Steuert andere Programme</translation>
    </message>
    <message>
        <source>A program that is allowed here can have another one do things, such as open a page or read mail. To take it back, open System Settings, Privacy &amp; Security, Automation on the Mac and switch it off.</source>
        <translation>Ein hier erlaubtes Programm kann ein anderes etwas tun lassen, etwa eine Seite öffnen oder E-Mails lesen. Um das zurückzunehmen, öffnen Sie auf dem Mac Systemeinstellungen, Datenschutz &amp; Sicherheit, Automation und schalten Sie es aus.</translation>
    </message>
    <message>
        <source>Other permissions</source>
        <translation>Andere Berechtigungen</translation>
    </message>
    <message>
        <source>These programs asked for single things, such as contacts, photos or one folder. To take one back, look for its name in System Settings, Privacy &amp; Security on the Mac.</source>
        <translation>Diese Programme haben um Einzelnes gebeten, etwa Kontakte, Fotos oder einen Ordner. Um etwas zurückzunehmen, suchen Sie den Namen auf dem Mac in Systemeinstellungen, Datenschutz &amp; Sicherheit.</translation>
    </message>
    <message>
        <source>Launch agents</source>
        <translation>Startagenten</translation>
    </message>
    <message>
        <source>These run while somebody is logged in, mostly unseen. Ask whoever looks after the Mac about those you do not know before you change anything.</source>
        <translation>Diese laufen, solange jemand angemeldet ist, meist unbemerkt. Fragen Sie nach denen, die Sie nicht kennen, die Person, die den Mac betreut, bevor Sie etwas ändern.</translation>
    </message>
    <message>
        <source>Launch daemons</source>
        <translation>Startdienste</translation>
    </message>
    <message>
        <source>These run from the Mac&apos;s start on, whoever is logged in. Ask whoever looks after the Mac about those you do not know before you change anything.</source>
        <translation>Diese laufen ab dem Start des Macs, wer auch angemeldet ist. Fragen Sie nach denen, die Sie nicht kennen, die Person, die den Mac betreut, bevor Sie etwas ändern.</translation>
    </message>
    <message>
        <source>Background items</source>
        <translation>Hintergrundobjekte</translation>
    </message>
    <message>
        <source>The system keeps this list of what may run in the background. On the Mac it is in System Settings, General, Login Items.</source>
        <translation>Das System führt diese Liste dessen, was im Hintergrund laufen darf. Auf dem Mac steht sie in Systemeinstellungen, Allgemein, Anmeldeobjekte.</translation>
    </message>
    <message>
        <source>Login items</source>
        <translation>Anmeldeobjekte</translation>
    </message>
    <message>
        <source>These are opened when somebody logs in. On the Mac they are in System Settings, General, Login Items.</source>
        <translation>Diese werden geöffnet, wenn sich jemand anmeldet. Auf dem Mac stehen sie in Systemeinstellungen, Allgemein, Anmeldeobjekte.</translation>
    </message>
    <message>
        <source>Login and logout hooks</source>
        <translation>Befehle bei An- und Abmeldung</translation>
    </message>
    <message>
        <source>These run as the Mac&apos;s administrator at each login or logout, and hardly anything honest still uses them. Ask whoever looks after the Mac who set them.</source>
        <translation>Diese laufen bei jeder An- oder Abmeldung mit den Rechten der Verwaltung, und kaum etwas Ehrliches nutzt sie noch. Fragen Sie die Person, die den Mac betreut, wer sie eingerichtet hat.</translation>
    </message>
    <message>
        <source>Timed commands</source>
        <translation>Zeitgesteuerte Befehle</translation>
    </message>
    <message>
        <source>These run at set times without being asked. Ask whoever looks after the Mac about those you do not know.</source>
        <translation>Diese laufen zu festen Zeiten, ohne dass jemand gefragt wird. Fragen Sie nach denen, die Sie nicht kennen, die Person, die den Mac betreut.</translation>
    </message>
    <message>
        <source>Rules of the event monitor</source>
        <translation>Regeln der Ereignisüberwachung</translation>
    </message>
    <message>
        <source>These run a command when something happens, such as a start. Hardly anything honest uses them: ask who set them.</source>
        <translation>Diese führen einen Befehl aus, wenn etwas geschieht, etwa ein Start. Kaum etwas Ehrliches nutzt sie: Fragen Sie, wer sie eingerichtet hat.</translation>
    </message>
    <message>
        <source>Scripts of the system</source>
        <translation>Skripte des Systems</translation>
    </message>
    <message>
        <source>These are run by the system itself at its start or each day, week or month. A Mac comes with some of them.</source>
        <translation>Diese führt das System selbst beim Start oder jeden Tag, jede Woche oder jeden Monat aus. Einige gehören zu jedem Mac.</translation>
    </message>
    <message>
        <source>Start-up items</source>
        <translation>Startobjekte</translation>
    </message>
    <message>
        <source>This is how very old programs started. A Mac of today ignores them.</source>
        <translation>So starteten sehr alte Programme. Ein heutiger Mac beachtet sie nicht.</translation>
    </message>
    <message>
        <source>Plug-ins of the login window</source>
        <translation>Zusätze des Anmeldefensters</translation>
    </message>
    <message>
        <source>These take part when somebody logs in and could see a password. Companies use them; ask who put them there.</source>
        <translation>Diese wirken mit, wenn sich jemand anmeldet, und könnten ein Passwort sehen. Firmen nutzen sie; fragen Sie, wer sie eingerichtet hat.</translation>
    </message>
    <message>
        <source>Kernel and system extensions</source>
        <translation>Kernel- und Systemerweiterungen</translation>
    </message>
    <message>
        <source>These become a part of the system and see more than a program does. On the Mac they are in System Settings, General, Login Items &amp; Extensions.</source>
        <translation>Diese werden ein Teil des Systems und sehen mehr als ein Programm. Auf dem Mac stehen sie in Systemeinstellungen, Allgemein, Anmeldeobjekte &amp; Erweiterungen.</translation>
    </message>
    <message>
        <source>Privileged helpers</source>
        <translation>Hilfsprogramme mit Sonderrechten</translation>
    </message>
    <message>
        <source>These do for an application what needs the administrator&apos;s rights. Most belong to an application of the same name.</source>
        <translation>Diese tun für eine Anwendung, was die Rechte der Verwaltung braucht. Die meisten gehören zu einer Anwendung gleichen Namens.</translation>
    </message>
    <message>
        <source>Files that a terminal runs</source>
        <translation>Dateien, die ein Terminal ausführt</translation>
    </message>
    <message>
        <source>Commands in these files run whenever a terminal is opened. Most Macs have some; only their names are listed here.</source>
        <translation>Befehle in diesen Dateien laufen immer, wenn ein Terminal geöffnet wird. Die meisten Macs haben einige; hier stehen nur ihre Namen.</translation>
    </message>
    <message>
        <source>Ways in</source>
        <translation>Zugänge</translation>
    </message>
    <message>
        <source>Somebody who knows a password or holds a key could use these from elsewhere. On the Mac they are switched in System Settings, General, Sharing.</source>
        <translation>Wer ein Passwort kennt oder einen Schlüssel hat, könnte sie von anderswo nutzen. Auf dem Mac werden sie in Systemeinstellungen, Allgemein, Freigaben geschaltet.</translation>
    </message>
    <message>
        <source>Management</source>
        <translation>Verwaltung</translation>
    </message>
    <message>
        <source>A company, a school or a person may manage this Mac and see much of it. On the Mac look in System Settings, General, Device Management.</source>
        <translation>Eine Firma, eine Schule oder eine Person verwaltet diesen Mac vielleicht und sieht viel davon. Sehen Sie auf dem Mac in Systemeinstellungen, Allgemein, Geräteverwaltung nach.</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Settings here can lead what you do on the network past somebody else. On the Mac they are in System Settings, Network.</source>
        <translation>Einstellungen hier können, was Sie im Netz tun, an anderen vorbeiführen. Auf dem Mac stehen sie in Systemeinstellungen, Netzwerk.</translation>
    </message>
    <message>
        <source>Programs for remote access</source>
        <translation>Programme für Fernzugriff</translation>
    </message>
    <message>
        <source>These well-known programs let somebody see and use the screen from elsewhere, and start by themselves. If you did not set one up, ask who did.</source>
        <translation>Mit diesen bekannten Programmen kann jemand den Bildschirm von anderswo sehen und bedienen, und sie starten von selbst. Wenn Sie keines eingerichtet haben, fragen Sie, wer es war.</translation>
    </message>
    <message>
        <source>keys and mouse</source>
        <translation>Tasten und Maus</translation>
    </message>
    <message>
        <source>control of programs</source>
        <translation>Steuerung von Programmen</translation>
    </message>
    <message>
        <source>the screen</source>
        <translation>der Bildschirm</translation>
    </message>
    <message>
        <source>the screen, from elsewhere</source>
        <translation>der Bildschirm, von anderswo</translation>
    </message>
    <message>
        <source>all files</source>
        <translation>alle Dateien</translation>
    </message>
    <message>
        <source>files of the administration</source>
        <translation>Dateien der Verwaltung</translation>
    </message>
    <message>
        <source>the microphone</source>
        <translation>das Mikrofon</translation>
    </message>
    <message>
        <source>the camera</source>
        <translation>die Kamera</translation>
    </message>
    <message>
        <source>the sound of other programs</source>
        <translation>der Ton anderer Programme</translation>
    </message>
    <message>
        <source>pressing keys and clicking</source>
        <translation>Tasten drücken und klicken</translation>
    </message>
    <message>
        <source>another program</source>
        <translation>ein anderes Programm</translation>
    </message>
    <message>
        <source>contacts</source>
        <translation>Kontakte</translation>
    </message>
    <message>
        <source>some contacts</source>
        <translation>einige Kontakte</translation>
    </message>
    <message>
        <source>calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>reminders</source>
        <translation>Erinnerungen</translation>
    </message>
    <message>
        <source>photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>adding photos</source>
        <translation>Fotos hinzufügen</translation>
    </message>
    <message>
        <source>the place where the Mac is</source>
        <translation>der Ort, an dem der Mac ist</translation>
    </message>
    <message>
        <source>recognising speech</source>
        <translation>Spracherkennung</translation>
    </message>
    <message>
        <source>music and films</source>
        <translation>Musik und Filme</translation>
    </message>
    <message>
        <source>movement</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>the home&apos;s devices</source>
        <translation>die Geräte des Zuhauses</translation>
    </message>
    <message>
        <source>whether you want no calls</source>
        <translation>ob Sie nicht gestört werden wollen</translation>
    </message>
    <message>
        <source>following you over programs</source>
        <translation>Ihnen über Programme hinweg folgen</translation>
    </message>
    <message>
        <source>the Desktop folder</source>
        <translation>der Ordner „Schreibtisch“</translation>
    </message>
    <message>
        <source>the Documents folder</source>
        <translation>der Ordner „Dokumente“</translation>
    </message>
    <message>
        <source>the Downloads folder</source>
        <translation>der Ordner „Downloads“</translation>
    </message>
    <message>
        <source>disks in the network</source>
        <translation>Laufwerke im Netz</translation>
    </message>
    <message>
        <source>disks that can be taken away</source>
        <translation>Wechseldatenträger</translation>
    </message>
    <message>
        <source>changing other applications</source>
        <translation>andere Anwendungen ändern</translation>
    </message>
    <message>
        <source>data of other applications</source>
        <translation>Daten anderer Anwendungen</translation>
    </message>
    <message>
        <source>files that a service provides</source>
        <translation>Dateien, die ein Dienst bereitstellt</translation>
    </message>
    <message>
        <source>noticing that files are used</source>
        <translation>bemerken, dass Dateien benutzt werden</translation>
    </message>
    <message>
        <source>running programs that the system would not</source>
        <translation>Programme ausführen, die das System ablehnt</translation>
    </message>
    <message>
        <source>what all programs do</source>
        <translation>was alle Programme tun</translation>
    </message>
    <message>
        <source>iCloud (data of applications)</source>
        <translation>iCloud (Daten von Anwendungen)</translation>
    </message>
    <message>
        <source>sharing with others</source>
        <translation>mit anderen teilen</translation>
    </message>
    <message>
        <source>denied</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>allowed</source>
        <translation>erlaubt</translation>
    </message>
    <message>
        <source>limited</source>
        <translation>eingeschränkt</translation>
    </message>
    <message>
        <source>a management profile</source>
        <translation>ein Verwaltungsprofil</translation>
    </message>
    <message>
        <source>the system</source>
        <translation>das System</translation>
    </message>
    <message>
        <source>on</source>
        <translation>an</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>still there</source>
        <translation>noch da</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>whole Mac</source>
        <translation>alle</translation>
    </message>
    <message>
        <source>you</source>
        <translation>Sie</translation>
    </message>
    <message>
        <source>not known, in a hidden folder</source>
        <translation>nicht bekannt, versteckter Ordner</translation>
    </message>
    <message>
        <source>not known, in a temporary folder</source>
        <translation>nicht bekannt, temporärer Ordner</translation>
    </message>
    <message>
        <source>not known, in the folder shared by all</source>
        <translation>nicht bekannt, gemeinsamer Ordner</translation>
    </message>
    <message>
        <source>not known, in the home of %1</source>
        <translation>nicht bekannt, Ordner von %1</translation>
    </message>
    <message>
        <source>still there, in a hidden folder</source>
        <translation>noch da, versteckter Ordner</translation>
    </message>
    <message>
        <source>still there, in a temporary folder</source>
        <translation>noch da, temporärer Ordner</translation>
    </message>
    <message>
        <source>still there, in the folder shared by all</source>
        <translation>noch da, gemeinsamer Ordner</translation>
    </message>
    <message>
        <source>still there, in the home of %1</source>
        <translation>noch da, Ordner von %1</translation>
    </message>
    <message>
        <source>missing, in a hidden folder</source>
        <translation>fehlt, versteckter Ordner</translation>
    </message>
    <message>
        <source>missing, in a temporary folder</source>
        <translation>fehlt, temporärer Ordner</translation>
    </message>
    <message>
        <source>missing, in the folder shared by all</source>
        <translation>fehlt, gemeinsamer Ordner</translation>
    </message>
    <message>
        <source>missing, in the home of %1</source>
        <translation>fehlt, Ordner von %1</translation>
    </message>
    <message>
        <source>you (%1)</source>
        <translation>Sie (%1)</translation>
    </message>
    <message>
        <source>the system (%1)</source>
        <translation>das System (%1)</translation>
    </message>
    <message>
        <source>a management profile (%1)</source>
        <translation>ein Verwaltungsprofil (%1)</translation>
    </message>
    <message>
        <source>not known (%1)</source>
        <translation>nicht bekannt (%1)</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Decision</source>
        <translation>Entscheidung</translation>
    </message>
    <message>
        <source>What for</source>
        <translation>Wofür</translation>
    </message>
    <message>
        <source>Decided by</source>
        <translation>Entschieden von</translation>
    </message>
    <message>
        <source>Since</source>
        <translation>Seit</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>Wessen</translation>
    </message>
    <message>
        <source>On the disk</source>
        <translation>Auf dem Datenträger</translation>
    </message>
    <message>
        <source>Path or identifier</source>
        <translation>Pfad oder Kennung</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wann</translation>
    </message>
    <message>
        <source>As</source>
        <translation>Als</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Anwendung</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Detail</source>
        <translation>Einzelheit</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>This disk holds more than any Mac&apos;s: not all of it is listed.</source>
        <translation>Dieser Datenträger enthält mehr als der jedes Macs: nicht alles ist aufgeführt.</translation>
    </message>
    <message>
        <source>reading it took too long</source>
        <translation>das Lesen dauerte zu lange</translation>
    </message>
    <message>
        <source>it could not be looked for</source>
        <translation>danach konnte nicht gesucht werden</translation>
    </message>
    <message>
        <source>it holds more than any Mac&apos;s; the rest was left out</source>
        <translation>es enthält mehr als das jedes Macs; der Rest wurde weggelassen</translation>
    </message>
    <message>
        <source>what was last written to the database and waits here is not read</source>
        <translation>was zuletzt in die Datenbank geschrieben wurde und hier wartet, wird nicht gelesen</translation>
    </message>
    <message>
        <source>the disk holds more than is read of any</source>
        <translation>der Datenträger enthält mehr, als von irgendeinem gelesen wird</translation>
    </message>
    <message>
        <source>it does not begin like one</source>
        <translation>es beginnt nicht wie eine</translation>
    </message>
    <message>
        <source>it is no dictionary</source>
        <translation>es ist kein Wörterbuch</translation>
    </message>
    <message>
        <source>it is no list of rules</source>
        <translation>es ist keine Liste von Regeln</translation>
    </message>
    <message>
        <source>it is not understood: %1</source>
        <translation>es wird nicht verstanden: %1</translation>
    </message>
    <message>
        <source>the database is not understood: %1</source>
        <translation>die Datenbank wird nicht verstanden: %1</translation>
    </message>
    <message>
        <source>the background items are not understood: %1</source>
        <translation>die Hintergrundobjekte werden nicht verstanden: %1</translation>
    </message>
    <message>
        <source>Starts by itself: %1</source>
        <translation>Startet von selbst: %1</translation>
    </message>
    <message>
        <source>Assigned to an organisation</source>
        <translation>Einer Organisation zugewiesen</translation>
    </message>
    <message>
        <source>Configuration profiles are installed</source>
        <translation>Konfigurationsprofile sind installiert</translation>
    </message>
    <message>
        <source>Enrolled with an organisation</source>
        <translation>Bei einer Organisation angemeldet</translation>
    </message>
    <message>
        <source>File of rules for acting as root</source>
        <translation>Regeldatei für das Handeln als root</translation>
    </message>
    <message>
        <source>File sharing</source>
        <translation>Dateifreigabe</translation>
    </message>
    <message>
        <source>Name servers for a domain</source>
        <translation>Nameserver für eine Domäne</translation>
    </message>
    <message>
        <source>Remote Apple events</source>
        <translation>Entfernte Apple-Events</translation>
    </message>
    <message>
        <source>Remote login (SSH)</source>
        <translation>Entfernte Anmeldung (SSH)</translation>
    </message>
    <message>
        <source>Remote management</source>
        <translation>Entfernte Verwaltung</translation>
    </message>
    <message>
        <source>Screen sharing</source>
        <translation>Bildschirmfreigabe</translation>
    </message>
    <message>
        <source>Screen sharing with a password of its own</source>
        <translation>Bildschirmfreigabe mit eigenem Passwort</translation>
    </message>
    <message>
        <source>Settings made by a profile</source>
        <translation>Von einem Profil gesetzte Einstellungen</translation>
    </message>
    <message>
        <source>Proxy for web pages</source>
        <translation>Proxy für Webseiten</translation>
    </message>
    <message>
        <source>Proxy for secure web pages</source>
        <translation>Proxy für sichere Webseiten</translation>
    </message>
    <message>
        <source>Proxy for all connections (SOCKS)</source>
        <translation>Proxy für alle Verbindungen (SOCKS)</translation>
    </message>
    <message>
        <source>Proxy settings from a file</source>
        <translation>Proxy-Einstellungen aus einer Datei</translation>
    </message>
    <message>
        <source>Keys that may log in</source>
        <translation>Schlüssel, die sich anmelden dürfen</translation>
    </message>
    <message>
        <source>Line of the hosts file</source>
        <translation>Zeile der hosts-Datei</translation>
    </message>
    <message>
        <source>Lines of the hosts file</source>
        <translation>Zeilen der hosts-Datei</translation>
    </message>
    <message>
        <source>Name servers (DNS) set by hand</source>
        <translation>Von Hand gesetzte Nameserver (DNS)</translation>
    </message>
    <message>
        <source>Remote management: every account may be used</source>
        <translation>Entfernte Verwaltung: jedes Konto darf benutzt werden</translation>
    </message>
    <message>
        <source>Remote management: viewers with a password of their own</source>
        <translation>Entfernte Verwaltung: Betrachter mit eigenem Passwort</translation>
    </message>
    <message>
        <source>Remote management: asking for leave to share the screen</source>
        <translation>Entfernte Verwaltung: Frage um Erlaubnis, den Bildschirm zu teilen</translation>
    </message>
    <message>
        <source>Remote management: shown in the menu bar</source>
        <translation>Entfernte Verwaltung: in der Menüleiste gezeigt</translation>
    </message>
    <message numerus="yes">
        <source>%n keys</source>
        <translation>
            <numerusform>%n Schlüssel</numerusform>
            <numerusform>%n Schlüssel</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more lines</source>
        <translation>
            <numerusform>%n weitere Zeile</numerusform>
            <numerusform>%n weitere Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>when loaded</source>
        <translation>beim Laden</translation>
    </message>
    <message>
        <source>kept running</source>
        <translation>ständig am Laufen gehalten</translation>
    </message>
    <message>
        <source>kept running under conditions</source>
        <translation>unter Bedingungen am Laufen gehalten</translation>
    </message>
    <message>
        <source>when asked for</source>
        <translation>auf Anfrage</translation>
    </message>
    <message>
        <source>when a disk is mounted</source>
        <translation>wenn ein Datenträger eingehängt wird</translation>
    </message>
    <message>
        <source>at login</source>
        <translation>bei der Anmeldung</translation>
    </message>
    <message>
        <source>at every login</source>
        <translation>bei jeder Anmeldung</translation>
    </message>
    <message>
        <source>at every logout</source>
        <translation>bei jeder Abmeldung</translation>
    </message>
    <message>
        <source>every minute</source>
        <translation>jede Minute</translation>
    </message>
    <message numerus="yes">
        <source>every %n seconds</source>
        <translation>
            <numerusform>jede Sekunde</numerusform>
            <numerusform>alle %n Sekunden</numerusform>
        </translation>
    </message>
    <message>
        <source>at the event %1</source>
        <translation>bei dem Ereignis %1</translation>
    </message>
    <message>
        <source>when %1 changes</source>
        <translation>wenn sich %1 ändert</translation>
    </message>
    <message>
        <source>while something lies in %1</source>
        <translation>solange etwas in %1 liegt</translation>
    </message>
    <message>
        <source>switched off for %1</source>
        <translation>ausgeschaltet für %1</translation>
    </message>
    <message>
        <source>switched on for %1</source>
        <translation>eingeschaltet für %1</translation>
    </message>
    <message>
        <source>%1 (hidden)</source>
        <translation>%1 (versteckt)</translation>
    </message>
    <message>
        <source>at %1</source>
        <translation>um %1</translation>
    </message>
    <message>
        <source>Google Chrome extensions</source>
        <translation>Google-Chrome-Erweiterungen</translation>
    </message>
    <message>
        <source>Firefox add-ons</source>
        <translation>Firefox-Erweiterungen</translation>
    </message>
    <message>
        <source>Safari extensions</source>
        <translation>Safari-Erweiterungen</translation>
    </message>
    <message>
        <source>Application support</source>
        <translation>Anwendungsdaten</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>What extensions may do</source>
        <translation>Was Erweiterungen dürfen</translation>
    </message>
    <message>
        <source>reads and changes all web sites</source>
        <translation>liest und ändert alle Websites</translation>
    </message>
    <message>
        <source>talks to programs on this Mac</source>
        <translation>spricht mit Programmen auf diesem Mac</translation>
    </message>
    <message>
        <source>controls pages as a debugger does</source>
        <translation>steuert Seiten wie ein Debugger</translation>
    </message>
    <message>
        <source>redirects all traffic</source>
        <translation>leitet allen Datenverkehr um</translation>
    </message>
    <message>
        <source>switches other extensions on and off</source>
        <translation>schaltet andere Erweiterungen ein und aus</translation>
    </message>
    <message>
        <source>reads and sets cookies</source>
        <translation>liest und setzt Cookies</translation>
    </message>
    <message>
        <source>reads the history</source>
        <translation>liest den Verlauf</translation>
    </message>
    <message>
        <source>sees the addresses and titles of all tabs</source>
        <translation>sieht Adressen und Titel aller Tabs</translation>
    </message>
    <message>
        <source>sees each page that is opened</source>
        <translation>sieht jede geöffnete Seite</translation>
    </message>
    <message>
        <source>sees what pages load</source>
        <translation>sieht, was Seiten laden</translation>
    </message>
    <message>
        <source>changes what pages load</source>
        <translation>ändert, was Seiten laden</translation>
    </message>
    <message>
        <source>blocks or redirects what pages load</source>
        <translation>sperrt oder lenkt um, was Seiten laden</translation>
    </message>
    <message>
        <source>runs programs in pages</source>
        <translation>führt Programme in Seiten aus</translation>
    </message>
    <message>
        <source>records the screen</source>
        <translation>nimmt den Bildschirm auf</translation>
    </message>
    <message>
        <source>records pages</source>
        <translation>nimmt Seiten auf</translation>
    </message>
    <message>
        <source>saves pages</source>
        <translation>sichert Seiten</translation>
    </message>
    <message>
        <source>reads the clipboard</source>
        <translation>liest die Zwischenablage</translation>
    </message>
    <message>
        <source>reads and changes bookmarks</source>
        <translation>liest und ändert Lesezeichen</translation>
    </message>
    <message>
        <source>sees and starts downloads</source>
        <translation>sieht und startet Downloads</translation>
    </message>
    <message>
        <source>opens downloaded files</source>
        <translation>öffnet geladene Dateien</translation>
    </message>
    <message>
        <source>sees the pages visited most often</source>
        <translation>sieht die meistbesuchten Seiten</translation>
    </message>
    <message>
        <source>sees closed tabs and those of other devices</source>
        <translation>sieht geschlossene Tabs und die anderer Geräte</translation>
    </message>
    <message>
        <source>clears the browser&apos;s data</source>
        <translation>löscht die Daten des Browsers</translation>
    </message>
    <message>
        <source>changes privacy settings</source>
        <translation>ändert Einstellungen zum Datenschutz</translation>
    </message>
    <message>
        <source>changes what sites are allowed</source>
        <translation>ändert, was Websites dürfen</translation>
    </message>
    <message>
        <source>changes the browser&apos;s settings</source>
        <translation>ändert die Einstellungen des Browsers</translation>
    </message>
    <message>
        <source>sees where this Mac is</source>
        <translation>sieht, wo dieser Mac ist</translation>
    </message>
    <message>
        <source>sees the account of the browser</source>
        <translation>sieht das Konto des Browsers</translation>
    </message>
    <message>
        <source>sees the account&apos;s address</source>
        <translation>sieht die Adresse des Kontos</translation>
    </message>
    <message>
        <source>shows notifications</source>
        <translation>zeigt Mitteilungen</translation>
    </message>
    <message>
        <source>from the browser&apos;s store</source>
        <translation>aus dem Angebot des Browsers</translation>
    </message>
    <message>
        <source>put there by another program or from a file</source>
        <translation>von einem anderen Programm oder aus einer Datei</translation>
    </message>
    <message>
        <source>put there by a policy</source>
        <translation>von einer Richtlinie eingesetzt</translation>
    </message>
    <message>
        <source>loaded from a folder</source>
        <translation>aus einem Ordner geladen</translation>
    </message>
    <message>
        <source>came with the browser</source>
        <translation>mit dem Browser gekommen</translation>
    </message>
    <message>
        <source>where it came from is not known</source>
        <translation>woher sie kommt, ist nicht bekannt</translation>
    </message>
    <message numerus="yes">
        <source>reads and changes %n web sites</source>
        <translation>
            <numerusform>liest und ändert %n Website</numerusform>
            <numerusform>liest und ändert %n Websites</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n other permissions</source>
        <translation>
            <numerusform>%n andere Berechtigung</numerusform>
            <numerusform>%n andere Berechtigungen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Cookies</source>
        <translation>Cookies</translation>
    </message>
    <message>
        <source>What web sites use to recognise you. Clearing them signs you out of web sites.</source>
        <translation>Woran Websites Sie wiedererkennen. Wer sie löscht, wird auf Websites abgemeldet.</translation>
    </message>
    <message>
        <source>Browser Caches</source>
        <translation>Browser-Zwischenspeicher</translation>
    </message>
    <message>
        <source>Copies of pages, pictures and programs of web sites. Sites load a little slower the first time afterwards.</source>
        <translation>Kopien von Seiten, Bildern und Programmen von Websites. Danach laden sie beim ersten Mal etwas langsamer.</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>The pages that were visited.</source>
        <translation>Die besuchten Seiten.</translation>
    </message>
    <message>
        <source>Visited Links</source>
        <translation>Besuchte Links</translation>
    </message>
    <message>
        <source>Which links are drawn as visited.</source>
        <translation>Welche Links als besucht gezeichnet werden.</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>The list of downloads. The downloaded files stay.</source>
        <translation>Die Liste der Downloads. Die geladenen Dateien bleiben.</translation>
    </message>
    <message>
        <source>Login Data</source>
        <translation>Anmeldedaten</translation>
    </message>
    <message>
        <source>Passwords that the browser remembers. They are lost unless they are kept elsewhere too.</source>
        <translation>Passwörter, die sich der Browser merkt. Sie sind verloren, wenn sie nicht auch anderswo stehen.</translation>
    </message>
    <message>
        <source>LastSession</source>
        <translation>Letzte Sitzung</translation>
    </message>
    <message>
        <source>The windows and tabs that were open last. They will not come back.</source>
        <translation>Die zuletzt offenen Fenster und Tabs. Sie kommen nicht wieder.</translation>
    </message>
    <message>
        <source>User preferences</source>
        <translation>Benutzereinstellungen</translation>
    </message>
    <message>
        <source>The browser&apos;s settings. It starts with its defaults afterwards.</source>
        <translation>Die Einstellungen des Browsers. Danach beginnt er mit seinen Vorgaben.</translation>
    </message>
    <message>
        <source>Favicons</source>
        <translation>Website-Symbole</translation>
    </message>
    <message>
        <source>The small pictures of web sites, which tell where you have been.</source>
        <translation>Die kleinen Bilder der Websites, die verraten, wo Sie waren.</translation>
    </message>
    <message>
        <source>TopSites</source>
        <translation>Meistbesuchte Seiten</translation>
    </message>
    <message>
        <source>The pages visited most often.</source>
        <translation>Die am häufigsten besuchten Seiten.</translation>
    </message>
    <message>
        <source>Top Sites</source>
        <translation>Meistbesuchte Seiten</translation>
    </message>
    <message>
        <source>Local Storage</source>
        <translation>Lokaler Speicher</translation>
    </message>
    <message>
        <source>What web sites and forms keep on this disk: drafts, settings, typed texts, addresses and cards that are filled in.</source>
        <translation>Was Websites und Formulare auf diesem Datenträger ablegen: Entwürfe, Einstellungen, getippte Texte, Adressen und Karten zum Ausfüllen.</translation>
    </message>
    <message>
        <source>What was made or accepted by hand: certificates, words of the dictionary, search services, which program opens what.</source>
        <translation>Was von Hand gemacht oder angenommen wurde: Zertifikate, Wörter des Wörterbuchs, Suchdienste, welches Programm was öffnet.</translation>
    </message>
    <message>
        <source>Reading List</source>
        <translation>Leseliste</translation>
    </message>
    <message>
        <source>Pages saved for reading offline. The list of their addresses stays.</source>
        <translation>Seiten, die zum späteren Lesen gesichert sind. Die Liste ihrer Adressen bleibt.</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Formulare</translation>
    </message>
    <message>
        <source>What was typed into forms.</source>
        <translation>Was in Formulare getippt wurde.</translation>
    </message>
    <message>
        <source>Recent Search</source>
        <translation>Letzte Suchen</translation>
    </message>
    <message>
        <source>Search services that web sites offered.</source>
        <translation>Suchdienste, die Websites angeboten haben.</translation>
    </message>
    <message>
        <source>WebFeeds</source>
        <translation>Web-Feeds</translation>
    </message>
    <message>
        <source>The news feeds that were subscribed to.</source>
        <translation>Die abonnierten Nachrichtenfeeds.</translation>
    </message>
    <message>
        <source>Tabs and Tab Groups</source>
        <translation>Tabs und Tabgruppen</translation>
    </message>
    <message>
        <source>One file with the open tabs, the tab groups and the list of profiles. They are lost together.</source>
        <translation>Eine Datei mit den offenen Tabs, den Tabgruppen und der Liste der Profile. Sie gehen zusammen verloren.</translation>
    </message>
    <message>
        <source>Crash Reports</source>
        <translation>Absturzberichte</translation>
    </message>
    <message>
        <source>What was recorded when the browser crashed.</source>
        <translation>Was beim Absturz des Browsers festgehalten wurde.</translation>
    </message>
    <message>
        <source>Firefox keeps all three in one file. Whoever clears it loses the bookmarks too.</source>
        <translation>Firefox hält alle drei in einer Datei. Wer sie löscht, verliert auch die Lesezeichen.</translation>
    </message>
    <message>
        <source>Reset Browsers Preferences to Defaults</source>
        <translation>Browser-Einstellungen auf Vorgaben zurücksetzen</translation>
    </message>
    <message>
        <source>The settings of all browsers, such as a start page that was changed for you. Each starts with its defaults afterwards.</source>
        <translation>Die Einstellungen aller Browser, etwa eine Startseite, die für Sie geändert wurde. Jeder beginnt danach mit seinen Vorgaben.</translation>
    </message>
    <message>
        <source>System Cache Files</source>
        <translation>Zwischenspeicher des Systems</translation>
    </message>
    <message>
        <source>What applications keep to be quicker. They make it anew when they need it.</source>
        <translation>Was Anwendungen aufheben, um schneller zu sein. Sie legen es bei Bedarf neu an.</translation>
    </message>
    <message>
        <source>Applications Cache Files</source>
        <translation>Zwischenspeicher der Anwendungen</translation>
    </message>
    <message>
        <source>The same of applications that live in a container of their own.</source>
        <translation>Dasselbe von Anwendungen, die in einem eigenen Container leben.</translation>
    </message>
    <message>
        <source>System Log Files</source>
        <translation>Protokolle des Systems</translation>
    </message>
    <message>
        <source>Records of what applications did. Useful only when looking for a fault.</source>
        <translation>Aufzeichnungen dessen, was Anwendungen taten. Nützlich nur bei der Suche nach einem Fehler.</translation>
    </message>
    <message>
        <source>Applications Log Files</source>
        <translation>Protokolle der Anwendungen</translation>
    </message>
    <message>
        <source>System Downloads Log</source>
        <translation>Download-Protokoll des Systems</translation>
    </message>
    <message>
        <source>The system&apos;s list of everything that was downloaded, and from where.</source>
        <translation>Die Liste des Systems von allem, was geladen wurde, und woher.</translation>
    </message>
    <message>
        <source>Trash Files</source>
        <translation>Dateien im Papierkorb</translation>
    </message>
    <message>
        <source>What was put into the Trash. It cannot be put back afterwards.</source>
        <translation>Was in den Papierkorb gelegt wurde. Es kann danach nicht zurückgelegt werden.</translation>
    </message>
    <message>
        <source>Quick Look Thumbnails</source>
        <translation>Vorschaubilder</translation>
    </message>
    <message>
        <source>Small pictures of documents that were looked at, of deleted ones and those on other disks too. They are made anew.</source>
        <translation>Kleine Bilder angesehener Dokumente, auch gelöschter und solcher auf anderen Datenträgern. Sie werden neu gemacht.</translation>
    </message>
    <message>
        <source>Recent Items</source>
        <translation>Zuletzt Benutztes</translation>
    </message>
    <message>
        <source>Which documents, applications and servers were opened last. They themselves stay.</source>
        <translation>Welche Dokumente, Anwendungen und Server zuletzt geöffnet wurden. Sie selbst bleiben.</translation>
    </message>
    <message>
        <source>Saved Application States</source>
        <translation>Gesicherte Zustände von Anwendungen</translation>
    </message>
    <message>
        <source>The windows that applications open again. They start with none afterwards.</source>
        <translation>Die Fenster, die Anwendungen wieder öffnen. Danach beginnen sie mit keinem.</translation>
    </message>
    <message>
        <source>Terminal Histories</source>
        <translation>Terminal-Verläufe</translation>
    </message>
    <message>
        <source>The commands typed into terminals, and now and then a password among them.</source>
        <translation>Die im Terminal getippten Befehle, darunter ab und zu ein Passwort.</translation>
    </message>
    <message>
        <source>Diagnostic Reports</source>
        <translation>Diagnoseberichte</translation>
    </message>
    <message>
        <source>What was recorded when applications crashed or hung.</source>
        <translation>Was festgehalten wurde, als Anwendungen abstürzten oder hingen.</translation>
    </message>
    <message>
        <source>Mail Download</source>
        <translation>Geladene Mail-Anhänge</translation>
    </message>
    <message>
        <source>Attachments that were opened. They stay in their messages.</source>
        <translation>Anhänge, die geöffnet wurden. In ihren E-Mails bleiben sie.</translation>
    </message>
    <message>
        <source>Mail Cache Files</source>
        <translation>Zwischenspeicher von Mail</translation>
    </message>
    <message>
        <source>What Mail keeps to be quicker. Messages stay.</source>
        <translation>Was Mail aufhebt, um schneller zu sein. Die E-Mails bleiben.</translation>
    </message>
    <message>
        <source>Mail Index</source>
        <translation>Mail-Index</translation>
    </message>
    <message>
        <source>Senders and subjects of all messages. Mail makes it anew at its next start, which takes a while; messages stay.</source>
        <translation>Absender und Betreff aller E-Mails. Mail legt ihn beim nächsten Start neu an, was eine Weile dauert; die E-Mails bleiben.</translation>
    </message>
    <message>
        <source>Flash Cookies</source>
        <translation>Flash-Cookies</translation>
    </message>
    <message>
        <source>What web sites kept by way of the Flash player.</source>
        <translation>Was Websites über den Flash-Player abgelegt haben.</translation>
    </message>
    <message>
        <source>History, Downloads and Bookmarks</source>
        <translation>Verlauf, Downloads und Lesezeichen</translation>
    </message>
    <message>
        <source>Cookies (%1)</source>
        <translation>Cookies (%1)</translation>
    </message>
    <message>
        <source>Visited Links (%1)</source>
        <translation>Besuchte Links (%1)</translation>
    </message>
    <message>
        <source>History (%1)</source>
        <translation>Verlauf (%1)</translation>
    </message>
    <message>
        <source>Login Data (%1)</source>
        <translation>Anmeldedaten (%1)</translation>
    </message>
    <message>
        <source>LastSession (%1)</source>
        <translation>Letzte Sitzung (%1)</translation>
    </message>
    <message>
        <source>User preferences (%1)</source>
        <translation>Benutzereinstellungen (%1)</translation>
    </message>
    <message>
        <source>Favicons (%1)</source>
        <translation>Website-Symbole (%1)</translation>
    </message>
    <message>
        <source>Top Sites (%1)</source>
        <translation>Meistbesuchte Seiten (%1)</translation>
    </message>
    <message>
        <source>Local Storage (%1)</source>
        <translation>Lokaler Speicher (%1)</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Browser Extensions</source>
        <translation>Browser-Erweiterungen</translation>
    </message>
    <message>
        <source>A browser extension. Clearing removes it; the browser may say that it is damaged.</source>
        <translation>Eine Browser-Erweiterung. Beim Löschen wird sie entfernt; der Browser meldet dann vielleicht, sie sei beschädigt.</translation>
    </message>
    <message>
        <source>%1 Extensions</source>
        <translation>%1-Erweiterungen</translation>
    </message>
    <message>
        <source>largest: %1</source>
        <translation>am größten: %1</translation>
    </message>
    <message>
        <source>The report cannot be opened: %1</source>
        <translation>Der Bericht lässt sich nicht öffnen: %1</translation>
    </message>
    <message>
        <source>The reports cannot be compared: %1</source>
        <translation>Die Berichte lassen sich nicht vergleichen: %1</translation>
    </message>
    <message>
        <source>The report could not be deleted: %1</source>
        <translation>Der Bericht konnte nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>It cannot be told whether this report is of the disk in front, so what of it is still there is not known.</source>
        <translation>Es lässt sich nicht sagen, ob dieser Bericht vom vorliegenden Datenträger ist; daher ist nicht bekannt, was davon noch da ist.</translation>
    </message>
    <message>
        <source>This report is of another disk than the one in front, so what of it is still there is not known.</source>
        <translation>Dieser Bericht ist von einem anderen Datenträger als dem vorliegenden; daher ist nicht bekannt, was davon noch da ist.</translation>
    </message>
    <message>
        <source>It cannot be told whether this report is of this disk, so there is nothing to show.</source>
        <translation>Es lässt sich nicht sagen, ob dieser Bericht von diesem Datenträger ist; daher gibt es nichts zu zeigen.</translation>
    </message>
    <message>
        <source>This report is of another volume, so there is nothing to show.</source>
        <translation>Dieser Bericht ist von einem anderen Volume; daher gibt es nichts zu zeigen.</translation>
    </message>
    <message>
        <source>The report was sent to the printer.</source>
        <translation>Der Bericht wurde an den Drucker gesendet.</translation>
    </message>
    <message>
        <source>The report was not printed: %1</source>
        <translation>Der Bericht wurde nicht gedruckt: %1</translation>
    </message>
    <message>
        <source>The document %1 cannot be read.</source>
        <translation>Das Dokument %1 lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>It cannot be told whether these reports are of one disk: what is new or gone here may merely be elsewhere.</source>
        <translation>Es lässt sich nicht sagen, ob diese Berichte von einem Datenträger sind: Was hier neu oder fort ist, ist vielleicht nur anderswo.</translation>
    </message>
    <message>
        <source>These two are reports of different volumes: what is new or gone here may merely be elsewhere.</source>
        <translation>Diese beiden sind Berichte verschiedener Volumes: Was hier neu oder fort ist, ist vielleicht nur anderswo.</translation>
    </message>
    <message>
        <source>These two are reports of different users: what is new or gone here may merely be elsewhere.</source>
        <translation>Diese beiden sind Berichte verschiedener Benutzer: Was hier neu oder fort ist, ist vielleicht nur anderswo.</translation>
    </message>
    <message>
        <source>The later scan did not look at everything: what is gone here may still be there.</source>
        <translation>Der spätere Scan hat nicht alles angesehen: Was hier fort ist, ist vielleicht noch da.</translation>
    </message>
    <message>
        <source>Only the earlier scan was a deep one: what is gone here may still be there.</source>
        <translation>Nur der frühere war ein Tiefenscan: Was hier fort ist, ist vielleicht noch da.</translation>
    </message>
    <message>
        <source>%1 of %2 exported to %3.</source>
        <translation>%1 von %2 nach %3 exportiert.</translation>
    </message>
    <message>
        <source>it cannot be told whether the report is of this disk</source>
        <translation>es lässt sich nicht sagen, ob der Bericht von diesem Datenträger ist</translation>
    </message>
    <message>
        <source>the report is of another volume</source>
        <translation>der Bericht ist von einem anderen Volume</translation>
    </message>
    <message>
        <source>its path is damaged</source>
        <translation>sein Pfad ist beschädigt</translation>
    </message>
    <message>
        <source>The document cannot be shown: it is damaged. Print or export it anew.</source>
        <translation>Das Dokument lässt sich nicht zeigen: Es ist beschädigt. Drucken oder exportieren Sie es neu.</translation>
    </message>
    <message>
        <source>All threats are Removed</source>
        <translation>Alle Bedrohungen sind entfernt</translation>
    </message>
    <message>
        <source>One Threat Remaining</source>
        <translation>Eine Bedrohung ist geblieben</translation>
    </message>
    <message>
        <source>Multiple Threats Remaining</source>
        <translation>Mehrere Bedrohungen sind geblieben</translation>
    </message>
    <message>
        <source>  %1 Failed</source>
        <translation>  %1 fehlgeschlagen</translation>
    </message>
    <message>
        <source>%1 Failed</source>
        <translation>%1 fehlgeschlagen</translation>
    </message>
    <message>
        <source>%1 removed, %2 failed, %3 left as you chose; Apple Remote Desktop stays: it is switched off in the Mac&apos;s settings.</source>
        <translation>%1 entfernt, %2 fehlgeschlagen, %3 auf Ihren Wunsch geblieben; Apple Remote Desktop bleibt: Es wird in den Einstellungen des Macs ausgeschaltet.</translation>
    </message>
    <message>
        <source>%1 removed, %2 failed; Apple Remote Desktop stays: it is switched off in the Mac&apos;s settings.</source>
        <translation>%1 entfernt, %2 fehlgeschlagen; Apple Remote Desktop bleibt: Es wird in den Einstellungen des Macs ausgeschaltet.</translation>
    </message>
    <message>
        <source>%1 removed, %2 left as you chose; Apple Remote Desktop stays: it is switched off in the Mac&apos;s settings.</source>
        <translation>%1 entfernt, %2 auf Ihren Wunsch geblieben; Apple Remote Desktop bleibt: Es wird in den Einstellungen des Macs ausgeschaltet.</translation>
    </message>
    <message>
        <source>%1 removed; Apple Remote Desktop stays: it is switched off in the Mac&apos;s settings.</source>
        <translation>%1 entfernt; Apple Remote Desktop bleibt: Es wird in den Einstellungen des Macs ausgeschaltet.</translation>
    </message>
    <message>
        <source>%1 removed, %2 failed, %3 left as you chose.</source>
        <translation>%1 entfernt, %2 fehlgeschlagen, %3 auf Ihren Wunsch geblieben.</translation>
    </message>
    <message>
        <source>%1 removed, %2 failed.</source>
        <translation>%1 entfernt, %2 fehlgeschlagen.</translation>
    </message>
    <message>
        <source>%1 removed, %2 left as you chose.</source>
        <translation>%1 entfernt, %2 auf Ihren Wunsch geblieben.</translation>
    </message>
    <message>
        <source>%1 removed.</source>
        <translation>%1 entfernt.</translation>
    </message>
    <message>
        <source>this folder is never removed; choose what lies inside it</source>
        <translation>dieser Ordner wird nie entfernt; wählen Sie, was darin liegt</translation>
    </message>
    <message>
        <source>a link on the way leads elsewhere than when it was found; look again first</source>
        <translation>ein Verweis auf dem Weg führt anderswohin als beim Fund; sehen Sie zuerst erneut nach</translation>
    </message>
    <message>
        <source>it is no longer what it was when it was found; look again first</source>
        <translation>es ist nicht mehr, was es beim Fund war; sehen Sie zuerst erneut nach</translation>
    </message>
    <message>
        <source>another disk is mounted there; eject it first</source>
        <translation>dort ist ein anderer Datenträger eingehängt; werfen Sie ihn zuerst aus</translation>
    </message>
    <message>
        <source>the volume is mounted read-only; mount it for writing first</source>
        <translation>das Volume ist nur zum Lesen eingehängt; hängen Sie es zuerst zum Schreiben ein</translation>
    </message>
    <message>
        <source>the folder that holds it may not be changed; ask its owner, or run this with the rights to</source>
        <translation>der Ordner, in dem es liegt, darf nicht geändert werden; fragen Sie den Eigentümer oder starten Sie dies mit dem Recht dazu</translation>
    </message>
    <message>
        <source>it is locked against changes; unlock it first</source>
        <translation>es ist gegen Änderungen gesperrt; entsperren Sie es zuerst</translation>
    </message>
    <message>
        <source>it is in use; close what uses it and try again</source>
        <translation>es wird benutzt; schließen Sie, was es benutzt, und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>something keeps filling the folder; stop that first</source>
        <translation>etwas füllt den Ordner immer wieder; halten Sie das zuerst an</translation>
    </message>
    <message>
        <source>its name or one in it is exchanged again and again; stop what does that first</source>
        <translation>sein Name oder einer darin wird immer wieder vertauscht; halten Sie zuerst an, was das tut</translation>
    </message>
    <message>
        <source>its folder cannot be read; run this with the rights to</source>
        <translation>sein Ordner lässt sich nicht lesen; starten Sie dies mit dem Recht dazu</translation>
    </message>
    <message>
        <source>the report is of another volume; connect that one</source>
        <translation>der Bericht ist von einem anderen Volume; schließen Sie jenes an</translation>
    </message>
    <message>
        <source>it cannot be told whether the report is of this disk; scan it again first</source>
        <translation>es lässt sich nicht sagen, ob der Bericht von diesem Datenträger ist; scannen Sie ihn zuerst erneut</translation>
    </message>
    <message>
        <source>remote desktop is not removed; switch it off in the Mac&apos;s Sharing settings</source>
        <translation>Remote Desktop wird nicht entfernt; schalten Sie es auf dem Mac in den Freigaben aus</translation>
    </message>
    <message>
        <source>the system stopped a removal outside the volume</source>
        <translation>das System hat ein Entfernen außerhalb des Volumes verhindert</translation>
    </message>
    <message>
        <source>stopped before it was done; remove it again to finish</source>
        <translation>angehalten, bevor es fertig war; entfernen Sie es erneut, um es abzuschließen</translation>
    </message>
    <message>
        <source>the system reports an error; check the disk, then try again</source>
        <translation>das System meldet einen Fehler; prüfen Sie den Datenträger und versuchen Sie es dann erneut</translation>
    </message>
    <message>
        <source>it was given up</source>
        <translation>es wurde aufgegeben</translation>
    </message>
    <message>
        <source>in this folder only its owner may remove it</source>
        <translation>in diesem Ordner darf es nur der Eigentümer entfernen</translation>
    </message>
    <message>
        <source>the system swaps to it</source>
        <translation>das System lagert dorthin aus</translation>
    </message>
    <message>
        <source>another one is there, spelled &quot;%1&quot;; scan again</source>
        <translation>dort ist ein anderes mit der Schreibweise „%1“; scannen Sie erneut</translation>
    </message>
    <message>
        <source>%1 is running; close it and try again</source>
        <translation>%1 läuft; schließen Sie es und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>a folder on the way cannot be searched</source>
        <translation>ein Ordner auf dem Weg lässt sich nicht durchsuchen</translation>
    </message>
    <message>
        <source>a folder on the way to it cannot be searched</source>
        <translation>ein Ordner auf dem Weg dorthin lässt sich nicht durchsuchen</translation>
    </message>
    <message>
        <source>it holds too many empty folders</source>
        <translation>es enthält zu viele leere Ordner</translation>
    </message>
    <message>
        <source>This is an image or a list of names, which is only read and never changed. To remove something, mount the disk itself and open its folder.</source>
        <translation>Dies ist ein Abbild oder eine Namensliste; sie wird nur gelesen und nie geändert. Um etwas zu entfernen, hängen Sie den Datenträger selbst ein und öffnen Sie dessen Ordner.</translation>
    </message>
    <message>
        <source>A scan is running. Stop it first, or wait for its end.</source>
        <translation>Ein Scan läuft. Halten Sie ihn zuerst an oder warten Sie sein Ende ab.</translation>
    </message>
    <message>
        <source>Something is being removed. Wait for its end.</source>
        <translation>Es wird gerade etwas entfernt. Warten Sie das Ende ab.</translation>
    </message>
    <message>
        <source>there are more accounts than any Mac has, and not all were read</source>
        <translation>es gibt mehr Konten, als ein Mac hat, und nicht alle wurden gelesen</translation>
    </message>
    <message>
        <source>there is no such home</source>
        <translation>diesen Benutzerordner gibt es nicht</translation>
    </message>
    <message>
        <source>it was found, and then could not be looked at</source>
        <translation>es wurde gefunden und konnte dann nicht angesehen werden</translation>
    </message>
    <message>
        <source>%1 more folders below it</source>
        <translation>%1 weitere Ordner darunter</translation>
    </message>
    <message>
        <source>%1 Not looked at: the system volume (%2).</source>
        <translation>%1 Nicht angesehen: das System-Volume (%2).</translation>
    </message>
    <message>
        <source>%1 Not looked at: %2, the system volume (%3).</source>
        <translation>%1 Nicht angesehen: %2, das System-Volume (%3).</translation>
    </message>
    <message>
        <source>%1 Not looked at: %2.</source>
        <translation>%1 Nicht angesehen: %2.</translation>
    </message>
    <message>
        <source>%1 Besides, %2.</source>
        <translation>%1 Außerdem: %2.</translation>
    </message>
    <message>
        <source>Found: %1.</source>
        <translation>Gefunden: %1.</translation>
    </message>
    <message>
        <source>Attention: %1.</source>
        <translation>Achtung: %1.</translation>
    </message>
    <message>
        <source>Stopped %1: nothing found in the part that was looked at; not everything could be read: %2.</source>
        <translation>Angehalten %1: in dem angesehenen Teil wurde nichts gefunden; nicht alles ließ sich lesen: %2.</translation>
    </message>
    <message>
        <source>Stopped %1: nothing found in the part that was looked at.</source>
        <translation>Angehalten %1: in dem angesehenen Teil wurde nichts gefunden.</translation>
    </message>
    <message>
        <source>Incomplete: nothing found, but what was looked at is not known.</source>
        <translation>Unvollständig: nichts gefunden, aber es ist nicht bekannt, was angesehen wurde.</translation>
    </message>
    <message>
        <source>Incomplete: nothing found, but not everything could be looked at: %1.</source>
        <translation>Unvollständig: nichts gefunden, aber nicht alles konnte angesehen werden: %1.</translation>
    </message>
    <message>
        <source>Clean for %1: nothing found.</source>
        <translation>Sauber für %1: nichts gefunden.</translation>
    </message>
    <message>
        <source>Clean: nothing found.</source>
        <translation>Sauber: nichts gefunden.</translation>
    </message>
    <message>
        <source>%1; not everything could be read: %2</source>
        <translation>%1; nicht alles ließ sich lesen: %2</translation>
    </message>
    <message>
        <source>%1; the scan was stopped %2</source>
        <translation>%1; der Scan wurde angehalten %2</translation>
    </message>
    <message>
        <source>the system volume was not looked at: %1 left out</source>
        <translation>das System-Volume wurde nicht angesehen: %1 ausgelassen</translation>
    </message>
    <message>
        <source>not looked at: the homes of %1</source>
        <translation>nicht angesehen: die Benutzerordner von %1</translation>
    </message>
    <message>
        <source>not looked at: other disks at %1 and %2 more</source>
        <translation>nicht angesehen: andere Datenträger unter %1 und %2 weitere</translation>
    </message>
    <message>
        <source>not looked at: other disks at %1</source>
        <translation>nicht angesehen: andere Datenträger unter %1</translation>
    </message>
    <message>
        <source>before its end</source>
        <translation>vor dem Ende</translation>
    </message>
    <message>
        <source>at %1 %</source>
        <translation>bei %1 %</translation>
    </message>
    <message>
        <source>no home at %1, and no other home on this volume</source>
        <translation>kein Benutzerordner unter %1 und kein anderer auf diesem Volume</translation>
    </message>
    <message>
        <source>no home at %1, homes there are: %2</source>
        <translation>kein Benutzerordner unter %1; vorhanden sind: %2</translation>
    </message>
    <message>
        <source>there was no access to the folder to be gone through</source>
        <translation>es gab keinen Zugriff auf den Ordner, der durchgegangen werden sollte</translation>
    </message>
    <message numerus="yes">
        <source>%n applications that the list leaves out bear a known name: %1 and %2 more</source>
        <translation>
            <numerusform>%n Anwendung, die die Liste auslässt, trägt einen bekannten Namen: %1 und %2 weitere</numerusform>
            <numerusform>%n Anwendungen, die die Liste auslässt, tragen einen bekannten Namen: %1 und %2 weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n applications that the list leaves out bear a known name: %1</source>
        <translation>
            <numerusform>%n Anwendung, die die Liste auslässt, trägt einen bekannten Namen: %1</numerusform>
            <numerusform>%n Anwendungen, die die Liste auslässt, tragen einen bekannten Namen: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n locations could not be read</source>
        <translation>
            <numerusform>%n Ort ließ sich nicht lesen</numerusform>
            <numerusform>%n Orte ließen sich nicht lesen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n potential threats</source>
        <translation>
            <numerusform>%n mögliche Bedrohung</numerusform>
            <numerusform>%n mögliche Bedrohungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n signatures</source>
        <translation>
            <numerusform>%n Signatur</numerusform>
            <numerusform>%n Signaturen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n locations</source>
        <translation>
            <numerusform>%n Ort</numerusform>
            <numerusform>%n Orte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n entries</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n findings</source>
        <translation>
            <numerusform>%n Fund</numerusform>
            <numerusform>%n Funde</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reports</source>
        <translation>
            <numerusform>%n Bericht</numerusform>
            <numerusform>%n Berichte</numerusform>
        </translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>Unvollständig</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Sauber</translation>
    </message>
    <message>
        <source>Potential Threats Detected</source>
        <translation>Mögliche Bedrohungen gefunden</translation>
    </message>
    <message>
        <source>An Application Needs Your Attention</source>
        <translation>Eine Anwendung verdient Ihre Aufmerksamkeit</translation>
    </message>
    <message>
        <source>Stopped Before All Was Looked At</source>
        <translation>Angehalten, bevor alles angesehen war</translation>
    </message>
    <message>
        <source>Not Everything Could Be Looked At</source>
        <translation>Nicht alles konnte angesehen werden</translation>
    </message>
    <message>
        <source>No Potential Threats Detected</source>
        <translation>Keine möglichen Bedrohungen gefunden</translation>
    </message>
    <message>
        <source>Not scan yet, please scan your mac</source>
        <translation>Noch nicht gescannt, bitte scannen Sie Ihren Mac</translation>
    </message>
    <message numerus="yes">
        <source>A scan has not been run on your system for %n days</source>
        <translation>
            <numerusform>Ihr System wurde seit %n Tag nicht gescannt</numerusform>
            <numerusform>Ihr System wurde seit %n Tagen nicht gescannt</numerusform>
        </translation>
    </message>
    <message>
        <source>A scan has never been run on your system</source>
        <translation>Ihr System wurde noch nie gescannt</translation>
    </message>
    <message>
        <source>The Home Folder Cannot Be Written To</source>
        <translation>In den Benutzerordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>It can be scanned as far as it can be read; nothing in it can be removed.</source>
        <translation>Er kann gescannt werden, soweit er sich lesen lässt; entfernt werden kann darin nichts.</translation>
    </message>
    <message>
        <source>Do you still think you are infected
with spyware?</source>
        <translation>Glauben Sie trotzdem, dass
Spyware auf dem Mac ist?</translation>
    </message>
    <message>
        <source>Please restart your app</source>
        <translation>Bitte starten Sie die App neu</translation>
    </message>
    <message>
        <source>Calculating Files:</source>
        <translation>Dateien werden gezählt:</translation>
    </message>
    <message>
        <source>Scanning Entry:</source>
        <translation>Wird angesehen:</translation>
    </message>
    <message>
        <source>Done Scanning</source>
        <translation>Scan beendet</translation>
    </message>
    <message>
        <source>Deep Scan</source>
        <translation>Tiefenscan</translation>
    </message>
    <message>
        <source>Quick Scan</source>
        <translation>Schnellscan</translation>
    </message>
    <message>
        <source>Real Time Scan</source>
        <translation>Echtzeitscan</translation>
    </message>
    <message>
        <source>Scheduled Scan</source>
        <translation>Geplanter Scan</translation>
    </message>
    <message>
        <source>Full System Scan</source>
        <translation>Scan des ganzen Systems</translation>
    </message>
    <message>
        <source>Custom Scan</source>
        <translation>Eigener Scan</translation>
    </message>
    <message>
        <source>Scan Path: %1</source>
        <translation>Pfad: %1</translation>
    </message>
    <message>
        <source>Scan Status:</source>
        <translation>Zustand:</translation>
    </message>
    <message>
        <source>Scan Duration:</source>
        <translation>Dauer:</translation>
    </message>
    <message>
        <source>Quick Scan &gt;</source>
        <translation>Schnellscan &gt;</translation>
    </message>
    <message>
        <source>Deep Scan &gt;</source>
        <translation>Tiefenscan &gt;</translation>
    </message>
    <message>
        <source>%1 Last time: %2.</source>
        <translation>%1 Letztes Mal: %2.</translation>
    </message>
    <message>
        <source>Looks at every file you gave access to, and everywhere a quick scan does.</source>
        <translation>Sieht jede Datei an, zu der Sie Zugriff gegeben haben, und alle Orte eines Schnellscans.</translation>
    </message>
    <message>
        <source>Looks in every place that known spyware settles in.</source>
        <translation>Sieht an allen Orten nach, an denen sich bekannte Spyware niederlässt.</translation>
    </message>
    <message>
        <source>exact path</source>
        <translation>genauer Pfad</translation>
    </message>
    <message>
        <source>known name in a launch folder</source>
        <translation>Name in Startordner</translation>
    </message>
    <message>
        <source>name fragment</source>
        <translation>Namensteil</translation>
    </message>
    <message>
        <source>bare substring</source>
        <translation>bloße Zeichenfolge</translation>
    </message>
    <message>
        <source>known name in a launch folder &quot;%1&quot;</source>
        <translation>Name in Startordner „%1“</translation>
    </message>
    <message>
        <source>name fragment &quot;%1&quot;</source>
        <translation>Namensteil „%1“</translation>
    </message>
    <message>
        <source>bare substring &quot;%1&quot;</source>
        <translation>bloße Zeichenfolge „%1“</translation>
    </message>
    <message>
        <source>This computer</source>
        <translation>Dieser Computer</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Abbild</translation>
    </message>
    <message>
        <source>Listing</source>
        <translation>Namensliste</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>This computer; user %1</source>
        <translation>Dieser Computer; Benutzer %1</translation>
    </message>
    <message>
        <source>This computer; users %1</source>
        <translation>Dieser Computer; Benutzer %1</translation>
    </message>
    <message>
        <source>This computer, %1</source>
        <translation>Dieser Computer, %1</translation>
    </message>
    <message>
        <source>%1, This computer; user %2</source>
        <translation>%1, dieser Computer; Benutzer %2</translation>
    </message>
    <message>
        <source>%1, This computer; users %2</source>
        <translation>%1, dieser Computer; Benutzer %2</translation>
    </message>
    <message>
        <source>%1, Folder %2; user %3</source>
        <translation>%1, Ordner %2; Benutzer %3</translation>
    </message>
    <message>
        <source>%1, Folder %2; users %3</source>
        <translation>%1, Ordner %2; Benutzer %3</translation>
    </message>
    <message>
        <source>%1, Image %2; user %3</source>
        <translation>%1, Abbild %2; Benutzer %3</translation>
    </message>
    <message>
        <source>%1, Image %2; users %3</source>
        <translation>%1, Abbild %2; Benutzer %3</translation>
    </message>
    <message>
        <source>%1, Listing %2; user %3</source>
        <translation>%1, Namensliste %2; Benutzer %3</translation>
    </message>
    <message>
        <source>%1, Listing %2; users %3</source>
        <translation>%1, Namensliste %2; Benutzer %3</translation>
    </message>
    <message>
        <source>%1; user %2</source>
        <translation>%1; Benutzer %2</translation>
    </message>
    <message>
        <source>%1; users %2</source>
        <translation>%1; Benutzer %2</translation>
    </message>
    <message>
        <source>Dashboard</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Scan</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoomen</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>Alle nach vorne bringen</translation>
    </message>
    <message>
        <source>Real-time Scan Enabled</source>
        <translation>Echtzeitscan eingeschaltet</translation>
    </message>
    <message>
        <source>Real-time Scan Disabled</source>
        <translation>Echtzeitscan ausgeschaltet</translation>
    </message>
    <message>
        <source>Enabled Real-time Scan</source>
        <translation>Echtzeitscan eingeschaltet</translation>
    </message>
    <message>
        <source>Disabled Real-time Scan</source>
        <translation>Echtzeitscan ausgeschaltet</translation>
    </message>
    <message>
        <source>Check for Update</source>
        <translation>Nach neuer Version suchen</translation>
    </message>
    <message>
        <source>Checking for Update…</source>
        <translation>Es wird nach einer neuen Version gesucht…</translation>
    </message>
    <message>
        <source>Open Pryvane</source>
        <translation>Pryvane öffnen</translation>
    </message>
    <message>
        <source>Visit Web Site</source>
        <translation>Website besuchen</translation>
    </message>
    <message>
        <source>Quit Pryvane</source>
        <translation>Pryvane beenden</translation>
    </message>
    <message>
        <source>Reading names: %1</source>
        <translation>Namen werden gelesen: %1</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>gerade eben</translation>
    </message>
    <message>
        <source>Not scan yet</source>
        <translation>Noch nicht gescannt</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message>
        <source>In few seconds</source>
        <translation>In wenigen Sekunden</translation>
    </message>
    <message numerus="yes">
        <source>%n seconds ago</source>
        <translation>
            <numerusform>vor %n Sekunde</numerusform>
            <numerusform>vor %n Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes ago</source>
        <translation>
            <numerusform>vor %n Minute</numerusform>
            <numerusform>vor %n Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hours ago</source>
        <translation>
            <numerusform>vor %n Stunde</numerusform>
            <numerusform>vor %n Stunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>vor %n Tag</numerusform>
            <numerusform>vor %n Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n weeks ago</source>
        <translation>
            <numerusform>vor %n Woche</numerusform>
            <numerusform>vor %n Wochen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>vor %n Monat</numerusform>
            <numerusform>vor %n Monaten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n years ago</source>
        <translation>
            <numerusform>vor %n Jahr</numerusform>
            <numerusform>vor %n Jahren</numerusform>
        </translation>
    </message>
    <message>
        <source>less then 1 second</source>
        <translation>weniger als 1 Sekunde</translation>
    </message>
    <message>
        <source>next: %1 %2 %3, %4</source>
        <translation>nächster Scan: %1, %2. %3, %4</translation>
    </message>
    <message>
        <source>Sun</source>
        <translation>So</translation>
    </message>
    <message>
        <source>Mon</source>
        <translation>Mo</translation>
    </message>
    <message>
        <source>Tue</source>
        <translation>Di</translation>
    </message>
    <message>
        <source>Wed</source>
        <translation>Mi</translation>
    </message>
    <message>
        <source>Thu</source>
        <translation>Do</translation>
    </message>
    <message>
        <source>Fri</source>
        <translation>Fr</translation>
    </message>
    <message>
        <source>Sat</source>
        <translation>Sa</translation>
    </message>
    <message>
        <source>Jan</source>
        <translation>Jan.</translation>
    </message>
    <message>
        <source>Feb</source>
        <translation>Feb.</translation>
    </message>
    <message>
        <source>Mar</source>
        <translation>März</translation>
    </message>
    <message>
        <source>Apr</source>
        <translation>Apr.</translation>
    </message>
    <message>
        <source>May</source>
        <translation>Mai</translation>
    </message>
    <message>
        <source>Jun</source>
        <translation>Juni</translation>
    </message>
    <message>
        <source>Jul</source>
        <translation>Juli</translation>
    </message>
    <message>
        <source>Aug</source>
        <translation>Aug.</translation>
    </message>
    <message>
        <source>Sep</source>
        <translation>Sept.</translation>
    </message>
    <message>
        <source>Oct</source>
        <translation>Okt.</translation>
    </message>
    <message>
        <source>Nov</source>
        <translation>Nov.</translation>
    </message>
    <message>
        <source>Dec</source>
        <translation>Dez.</translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation>Sonntag</translation>
    </message>
    <message>
        <source>Monday</source>
        <translation>Montag</translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation>Dienstag</translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation>Mittwoch</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>Donnerstag</translation>
    </message>
    <message>
        <source>Friday</source>
        <translation>Freitag</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>Samstag</translation>
    </message>
    <message>
        <source>%1 January %2</source>
        <translation>%1. Januar %2</translation>
    </message>
    <message>
        <source>%1 February %2</source>
        <translation>%1. Februar %2</translation>
    </message>
    <message>
        <source>%1 March %2</source>
        <translation>%1. März %2</translation>
    </message>
    <message>
        <source>%1 April %2</source>
        <translation>%1. April %2</translation>
    </message>
    <message>
        <source>%1 May %2</source>
        <translation>%1. Mai %2</translation>
    </message>
    <message>
        <source>%1 June %2</source>
        <translation>%1. Juni %2</translation>
    </message>
    <message>
        <source>%1 July %2</source>
        <translation>%1. Juli %2</translation>
    </message>
    <message>
        <source>%1 August %2</source>
        <translation>%1. August %2</translation>
    </message>
    <message>
        <source>%1 September %2</source>
        <translation>%1. September %2</translation>
    </message>
    <message>
        <source>%1 October %2</source>
        <translation>%1. Oktober %2</translation>
    </message>
    <message>
        <source>%1 November %2</source>
        <translation>%1. November %2</translation>
    </message>
    <message>
        <source>%1 December %2</source>
        <translation>%1. Dezember %2</translation>
    </message>
    <message>
        <source>%1 January</source>
        <translation>%1. Januar</translation>
    </message>
    <message>
        <source>%1 February</source>
        <translation>%1. Februar</translation>
    </message>
    <message>
        <source>%1 March</source>
        <translation>%1. März</translation>
    </message>
    <message>
        <source>%1 April</source>
        <translation>%1. April</translation>
    </message>
    <message>
        <source>%1 May</source>
        <translation>%1. Mai</translation>
    </message>
    <message>
        <source>%1 June</source>
        <translation>%1. Juni</translation>
    </message>
    <message>
        <source>%1 July</source>
        <translation>%1. Juli</translation>
    </message>
    <message>
        <source>%1 August</source>
        <translation>%1. August</translation>
    </message>
    <message>
        <source>%1 September</source>
        <translation>%1. September</translation>
    </message>
    <message>
        <source>%1 October</source>
        <translation>%1. Oktober</translation>
    </message>
    <message>
        <source>%1 November</source>
        <translation>%1. November</translation>
    </message>
    <message>
        <source>%1 December</source>
        <translation>%1. Dezember</translation>
    </message>
    <message>
        <source>Every day</source>
        <translation>Jeden Tag</translation>
    </message>
    <message>
        <source>Every 7 days</source>
        <translation>Alle 7 Tage</translation>
    </message>
    <message>
        <source>Every 30 days</source>
        <translation>Alle 30 Tage</translation>
    </message>
    <message>
        <source>Every 365 days</source>
        <translation>Alle 365 Tage</translation>
    </message>
    <message>
        <source>Once, on %1, %2, at %3.</source>
        <translation>Einmal, am %1, %2, um %3.</translation>
    </message>
    <message>
        <source>Every day at %1, next on %2, %3, the last time on %4.</source>
        <translation>Jeden Tag um %1, das nächste Mal am %2, %3, zuletzt am %4.</translation>
    </message>
    <message>
        <source>Every 30 days at %1, next on %2, %3, the last time on %4.</source>
        <translation>Alle 30 Tage um %1, das nächste Mal am %2, %3, zuletzt am %4.</translation>
    </message>
    <message>
        <source>Every 365 days at %1, next on %2, %3, the last time on %4.</source>
        <translation>Alle 365 Tage um %1, das nächste Mal am %2, %3, zuletzt am %4.</translation>
    </message>
    <message>
        <source>No scan is scheduled.</source>
        <translation>Es ist kein Scan geplant.</translation>
    </message>
    <message>
        <source>The last day is before the first one.</source>
        <translation>Der letzte Tag liegt vor dem ersten.</translation>
    </message>
    <message>
        <source>That time has passed, so nothing would be scanned.</source>
        <translation>Diese Zeit ist vorbei, es würde also nichts gescannt.</translation>
    </message>
    <message>
        <source>Today, %1</source>
        <translation>Heute, %1</translation>
    </message>
    <message>
        <source>Yesterday, %1</source>
        <translation>Gestern, %1</translation>
    </message>
    <message>
        <source>Every %1 at %2, next on %3, %4, the last time on %5.</source>
        <translation>Jeden %1 um %2, das nächste Mal am %3, %4, zuletzt am %5.</translation>
    </message>
    <message>
        <source>%1 byte</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1 PB</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1 EB</translation>
    </message>
    <message numerus="yes">
        <source>%n hours</source>
        <translation>
            <numerusform>%n Stunde</numerusform>
            <numerusform>%n Stunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n Minute</numerusform>
            <numerusform>%n Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n seconds</source>
        <translation>
            <numerusform>%n Sekunde</numerusform>
            <numerusform>%n Sekunden</numerusform>
        </translation>
    </message>
    <message>
        <source>this exact place is on the list</source>
        <translation>genau dieser Ort steht auf der Liste</translation>
    </message>
    <message>
        <source>an application of this name in the user&apos;s own Applications folder</source>
        <translation>eine Anwendung dieses Namens im eigenen Programmordner des Benutzers</translation>
    </message>
    <message>
        <source>this place inside a Library folder is on the list</source>
        <translation>dieser Ort in einem Ordner „Library“ steht auf der Liste</translation>
    </message>
    <message>
        <source>part of a name in a folder where such programs settle</source>
        <translation>Teil eines Namens in einem Ordner, in dem sich solche Programme niederlassen</translation>
    </message>
    <message>
        <source>a word anywhere in a name in a folder where such programs settle</source>
        <translation>ein Wort irgendwo in einem Namen in einem Ordner, in dem sich solche Programme niederlassen</translation>
    </message>
    <message>
        <source>a place that known backdoors use</source>
        <translation>ein Ort, den bekannte Hintertüren nutzen</translation>
    </message>
    <message>
        <source>where Apple Remote Desktop keeps its settings</source>
        <translation>wo Apple Remote Desktop seine Einstellungen hat</translation>
    </message>
    <message>
        <source>a text anywhere in a path, which a deep scan alone looks for</source>
        <translation>eine Zeichenfolge irgendwo im Pfad, nach der nur ein Tiefenscan sucht</translation>
    </message>
    <message>
        <source>no rule of this version</source>
        <translation>keine Regel dieser Version</translation>
    </message>
    <message>
        <source>another program: %1</source>
        <translation>ein anderes Programm: %1</translation>
    </message>
    <message>
        <source>the disk does not say</source>
        <translation>der Datenträger sagt es nicht</translation>
    </message>
    <message>
        <source>account not known (%1)</source>
        <translation>Konto nicht bekannt (%1)</translation>
    </message>
    <message>
        <source>The Scan Was Given Up</source>
        <translation>Der Scan wurde aufgegeben</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>While you are logged in, a quick scan of this computer starts at these times without a window. Its report is kept with the others.</source>
        <translation>Solange Sie angemeldet sind, beginnt zu diesen Zeiten ohne Fenster ein Schnellscan dieses Computers. Sein Bericht liegt bei den anderen.</translation>
    </message>
    <message>
        <source>While you are logged in, a quick scan of %1 starts at these times without a window. Its report is kept with the others.</source>
        <translation>Solange Sie angemeldet sind, beginnt zu diesen Zeiten ohne Fenster ein Schnellscan von %1. Sein Bericht liegt bei den anderen.</translation>
    </message>
    <message>
        <source>An image or a list of names is only read while Pryvane is running.</source>
        <translation>Ein Abbild oder eine Namensliste wird nur gelesen, während Pryvane läuft.</translation>
    </message>
    <message>
        <source>Not possible here: %1</source>
        <translation>Hier nicht möglich: %1</translation>
    </message>
    <message>
        <source>Scans while Pryvane is closed could not be changed: %1</source>
        <translation>Scans bei geschlossenem Pryvane ließen sich nicht ändern: %1</translation>
    </message>
    <message>
        <source>this session is not run by systemd, which would have to start these scans.</source>
        <translation>Diese Sitzung wird nicht von systemd verwaltet, das diese Scans starten müsste.</translation>
    </message>
    <message>
        <source>%1 was written or changed by somebody else and is left as it is. Move it away first.</source>
        <translation>%1 wurde von jemand anderem geschrieben oder geändert und bleibt, wie es ist. Verschieben Sie es zuerst.</translation>
    </message>
    <message>
        <source>pryvane-cli, which does these scans, is not installed beside Pryvane; install it</source>
        <translation>pryvane-cli, das diese Scans ausführt, ist nicht neben Pryvane installiert; installieren Sie es</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>systemd refuses: %1</source>
        <translation>systemd lehnt ab: %1</translation>
    </message>
    <message>
        <source>Once a scan is scheduled, it can also start while Pryvane is closed.</source>
        <translation>Ist ein Scan geplant, kann er auch beginnen, während Pryvane geschlossen ist.</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Choose what to look at</source>
        <translation>Wählen, was angesehen wird</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Scan</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Tick what is to go with Space, or everything shown with Ctrl+A, then choose Remove. A plan shows what would be deleted before anything is. Removal is permanent. What could not be removed is listed with the reason.</source>
        <translation>Kreuzen Sie mit der Leertaste an, was fort soll, oder mit Ctrl+A alles Gezeigte, und wählen Sie „Entfernen“. Ein Plan zeigt, was gelöscht würde, bevor etwas gelöscht wird. Entfernen ist endgültig. Was nicht entfernt werden konnte, steht mit dem Grund auf einer Liste.</translation>
    </message>
    <message>
        <source>Keep the history</source>
        <translation>Den Verlauf behalten</translation>
    </message>
    <message>
        <source>Every scan leaves a report. Reports can be compared, printed, exported and deleted, and what they list can still be removed later.</source>
        <translation>Jeder Scan hinterlässt einen Bericht. Berichte lassen sich vergleichen, drucken, exportieren und löschen, und was sie aufführen, kann auch später entfernt werden.</translation>
    </message>
    <message>
        <source>Scan on a schedule</source>
        <translation>Nach Zeitplan scannen</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Ctrl+1 to Ctrl+4 choose the screens, Ctrl+F the filter, Ctrl+P prints, F1 opens this guide, Esc closes a sheet.</source>
        <translation>Ctrl+1 bis Ctrl+4 wählen die Ansicht, Ctrl+F den Filter, Ctrl+P druckt, F1 öffnet diese Anleitung, Esc schließt eine Tafel.</translation>
    </message>
    <message>
        <source>The button at the foot of the navigation names the disk and the user. Click it, or press Ctrl+O, to look at another mounted Mac disk, at an image of one, or at a list of its names.</source>
        <translation>Die Schaltfläche unten in der Navigation nennt Datenträger und Benutzer. Klicken Sie darauf oder drücken Sie Ctrl+O, um einen anderen eingehängten Mac-Datenträger, ein Abbild davon oder eine Liste seiner Namen anzusehen.</translation>
    </message>
    <message>
        <source>Is it safe to look?</source>
        <translation>Ist es gefahrlos, nachzusehen?</translation>
    </message>
    <message>
        <source>Looking changes nothing on the disk. A scan reads the names of files and folders, never opens what it finds, and starts none of it. One thing leaves this computer: a request for the settings file of the maker, which says nothing about you or the disk. Whoever may watch a Mac notices nothing when you look at its disk from another computer; on the Mac itself they may see that Pryvane runs.</source>
        <translation>Nachsehen ändert nichts auf dem Datenträger. Ein Scan liest die Namen von Dateien und Ordnern, öffnet nichts, was er findet, und startet nichts davon. Eines verlässt diesen Computer: eine Anfrage nach der Einstellungsdatei des Herstellers, die nichts über Sie oder den Datenträger sagt. Wer einen Mac überwacht, merkt nichts davon, wenn Sie dessen Datenträger an einem anderen Computer ansehen; auf dem Mac selbst ist vielleicht zu sehen, dass Pryvane läuft.</translation>
    </message>
    <message>
        <source>A quick scan looks in the places that known spyware uses. A deep scan looks there and at the name of every file you gave access to. The line under the result says what was looked at and what could not be; its button lists each place. Only a scan that could look everywhere says “Clean”.</source>
        <translation>Ein Schnellscan sieht an den Orten nach, die bekannte Spyware nutzt. Ein Tiefenscan sieht dort nach und den Namen jeder Datei an, zu der Sie Zugriff gegeben haben. Die Zeile unter dem Ergebnis sagt, was angesehen wurde und was nicht; ihre Schaltfläche nennt jeden Ort. Nur ein Scan, der überall nachsehen konnte, sagt „Sauber“.</translation>
    </message>
    <message>
        <source>When something was found</source>
        <translation>Wenn etwas gefunden wurde</translation>
    </message>
    <message>
        <source>A finding is a name that is known, not proof. Press Return on it to see why it was found, and look at the chip beside it: an exact path speaks strongly, a bare substring may be a harmless file with an unlucky name. Nothing has to be done at once. Keep a record first: the report can be saved as a PDF and as JSON. If the Mac belongs to a company or a school, ask who looks after it.</source>
        <translation>Ein Fund ist ein bekannter Name, kein Beweis. Drücken Sie darauf die Eingabetaste, um zu sehen, warum er gefunden wurde, und beachten Sie das Schild daneben: Ein genauer Pfad sagt viel, eine bloße Zeichenfolge kann eine harmlose Datei mit unglücklichem Namen sein. Nichts muss sofort geschehen. Sichern Sie zuerst ein Protokoll: Der Bericht lässt sich als PDF und als JSON sichern. Gehört der Mac einer Firma oder Schule, fragen Sie, wer ihn betreut.</translation>
    </message>
    <message>
        <source>If somebody may be watching you</source>
        <translation>Falls jemand Sie überwacht</translation>
    </message>
    <message>
        <source>Use another device to ask for help, one that this person has never had in their hands: what you do on the watched Mac may be seen, this program too. Do not confront them, and do not remove anything yet: whoever installed it may notice that it is gone, and it is evidence. Write down what you see, or keep the report on a disk that you alone have. A local advice centre, a support line for victims of violence or stalking, or the police can help you plan what comes next; find the number on the safer device. If you are in danger now, call your emergency number.</source>
        <translation>Bitten Sie von einem anderen Gerät aus um Hilfe, das diese Person nie in der Hand hatte: Was Sie auf dem überwachten Mac tun, ist vielleicht zu sehen, auch dieses Programm. Stellen Sie die Person nicht zur Rede, und entfernen Sie noch nichts: Wer es eingerichtet hat, merkt vielleicht, dass es fort ist, und es ist ein Beweis. Schreiben Sie auf, was Sie sehen, oder sichern Sie den Bericht auf einem Datenträger, den nur Sie haben. Eine Beratungsstelle in Ihrer Nähe, ein Hilfetelefon für Opfer von Gewalt oder Stalking oder die Polizei helfen Ihnen, das Weitere zu planen; suchen Sie die Nummer auf dem sichereren Gerät. Wenn Sie jetzt in Gefahr sind, wählen Sie den Notruf.</translation>
    </message>
    <message>
        <source>Who may watch</source>
        <translation>Wer zusehen kann</translation>
    </message>
    <message>
        <source>Under Tools, “Who May Watch” lists which programs were allowed to see the screen, the keys or all files, what starts by itself, and who may come in from elsewhere. These are facts that the Mac itself keeps, without a verdict; each group says what it means and where it is changed.</source>
        <translation>Unter Werkzeuge zeigt „Wer zusehen kann“, welche Programme Bildschirm, Tasten oder alle Dateien sehen dürfen, was von selbst startet und wer von anderswo hereinkommt. Das sind Tatsachen, die der Mac selbst festhält, ohne Urteil; jede Gruppe sagt, was sie bedeutet und wo man sie ändert.</translation>
    </message>
    <message>
        <source>Clear traces</source>
        <translation>Spuren löschen</translation>
    </message>
    <message>
        <source>What the words mean</source>
        <translation>Was die Wörter bedeuten</translation>
    </message>
    <message>
        <source>Finding: a file or folder whose place or name is known.
Evidence: how strongly that speaks; from exact path over known name in a launch folder and name fragment to bare substring.
Rule: what a place or name is compared with.
Launch folder: what lies in it starts by itself.
Deep scan: looks at every name, not in known places only.
Cannot be told, not known: Pryvane could not look, so it says neither yes nor no.
Incomplete: nothing was found, but not every place could be read.</source>
        <translation>Fund: eine Datei oder ein Ordner, dessen Ort oder Name bekannt ist.
Indiz: wie stark das spricht; vom genauen Pfad über Namen in Startordner und Namensteil bis zur bloßen Zeichenfolge.
Regel: womit ein Ort oder Name verglichen wird.
Startordner: Was darin liegt, startet von selbst.
Tiefenscan: sieht jeden Namen an, nicht nur bekannte Orte.
Nicht zu sagen, nicht bekannt: Pryvane konnte nicht nachsehen und sagt daher weder ja noch nein.
Unvollständig: Nichts wurde gefunden, aber nicht jeder Ort ließ sich lesen.</translation>
    </message>
    <message>
        <source>How Pryvane works</source>
        <translation>Wie Pryvane arbeitet</translation>
    </message>
    <message>
        <source>Privacy lists what browsers and the system keep, with the space it takes. The sum above the list is what could be cleared; a place that two groups share, such as a browser’s cache inside the system’s, counts only once in it. Nothing is ticked for you, and a preview shows each location first.</source>
        <translation>„Datenschutz“ zeigt, was Browser und System aufheben, mit dem Platz, den es belegt. Die Summe über der Liste ist, was gelöscht werden kann; ein Ort, den zwei Gruppen teilen, etwa der Zwischenspeicher eines Browsers in dem des Systems, zählt darin nur einmal. Nichts ist für Sie angekreuzt, und eine Vorschau zeigt zuerst jeden Ort.</translation>
    </message>
    <message>
        <source>The dashboard</source>
        <translation>Die Übersicht</translation>
    </message>
    <message>
        <source>Findings of a scan</source>
        <translation>Funde eines Scans</translation>
    </message>
    <message>
        <source>Who may watch, by group</source>
        <translation>Wer zusehen kann, nach Gruppen</translation>
    </message>
    <message>
        <source>Privacy, with its groups</source>
        <translation>Datenschutz mit seinen Gruppen</translation>
    </message>
    <message>
        <source>The list of reports</source>
        <translation>Die Liste der Berichte</translation>
    </message>
    <message>
        <source>While Pryvane is running it can scan every 30 minutes, and at a time of day of your choice between two dates. It never raises its window for that.
With “Also when Pryvane is closed” your system starts a quick scan at the times of the schedule while you are logged in and Pryvane is not running. Its report is kept with the others. When you switch it off, or the schedule, nothing of it stays behind.</source>
        <translation>Solange Pryvane läuft, kann es alle 30 Minuten scannen und zwischen zwei Tagen zu einer Uhrzeit Ihrer Wahl. Sein Fenster kommt dafür nie nach vorne.
Mit „Auch wenn Pryvane geschlossen ist“ startet Ihr System zu den Zeiten des Zeitplans einen Schnellscan, solange Sie angemeldet sind und Pryvane nicht läuft. Sein Bericht liegt bei den anderen. Schalten Sie das oder den Zeitplan aus, bleibt nichts davon zurück.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>This computer</source>
        <translation>Dieser Computer</translation>
    </message>
    <message>
        <source>Everyone</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>every user</source>
        <translation>alle Benutzer</translation>
    </message>
    <message>
        <source>user %1</source>
        <translation>Benutzer %1</translation>
    </message>
    <message>
        <source>Keep a record in this folder</source>
        <translation>Ein Protokoll in diesem Ordner sichern</translation>
    </message>
    <message>
        <source>The record is in %1.</source>
        <translation>Das Protokoll liegt in %1.</translation>
    </message>
    <message>
        <source>The record is not whole:%1</source>
        <translation>Das Protokoll ist nicht vollständig:%1</translation>
    </message>
    <message>
        <source>Export the reports to this folder</source>
        <translation>Die Berichte in diesen Ordner exportieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete this report</source>
        <translation>Diesen Bericht löschen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Show this report&apos;s findings</source>
        <translation>Die Funde dieses Berichts zeigen</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wann</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Mac and User</source>
        <translation>Mac und Benutzer</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Funde</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>not removed</source>
        <translation>nicht entfernt</translation>
    </message>
    <message>
        <source>still there</source>
        <translation>noch da</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>fort</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Ausgewählt</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Threat</source>
        <translation>Bedrohung</translation>
    </message>
    <message>
        <source>Evidence</source>
        <translation>Indiz</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>%1: %2, %3 &quot;%4&quot;</source>
        <translation>%1: %2, %3 „%4“</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Decision</source>
        <translation>Entscheidung</translation>
    </message>
    <message>
        <source>What for</source>
        <translation>Wofür</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>Wessen</translation>
    </message>
    <message>
        <source>On the disk</source>
        <translation>Auf dem Datenträger</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Detail</source>
        <translation>Einzelheit</translation>
    </message>
    <message>
        <source>Version, profile</source>
        <translation>Version, Profil</translation>
    </message>
    <message>
        <source>To be cleared</source>
        <translation>Zu löschen</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>Cannot be had back, so it is ticked by itself only.</source>
        <translation>Nicht wiederzubekommen, daher wird es nur einzeln angekreuzt.</translation>
    </message>
    <message>
        <source>What of it cannot be had back stays when it is ticked with others.</source>
        <translation>Was davon nicht wiederzubekommen ist, bleibt, wenn es zusammen mit anderem angekreuzt wird.</translation>
    </message>
    <message>
        <source>Not all of it could be looked at: %1.</source>
        <translation>Nicht alles davon konnte angesehen werden: %1.</translation>
    </message>
    <message>
        <source>There is nothing to clear.</source>
        <translation>Es gibt nichts zu löschen.</translation>
    </message>
    <message>
        <source>All browsers</source>
        <translation>Alle Browser</translation>
    </message>
    <message>
        <source>%1 is running</source>
        <translation>%1 läuft</translation>
    </message>
    <message>
        <source>can be cleared</source>
        <translation>kann gelöscht werden</translation>
    </message>
    <message>
        <source>What that means</source>
        <translation>Was das bedeutet</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Einträge</translation>
    </message>
    <message>
        <source>Cannot be had back</source>
        <translation>Nicht wiederzubekommen</translation>
    </message>
    <message>
        <source>The rest</source>
        <translation>Das Übrige</translation>
    </message>
    <message>
        <source>Forecast</source>
        <translation>Vorhersage</translation>
    </message>
    <message>
        <source>already gone</source>
        <translation>schon fort</translation>
    </message>
    <message>
        <source>To be removed</source>
        <translation>Zu entfernen</translation>
    </message>
    <message>
        <source>can be removed</source>
        <translation>kann entfernt werden</translation>
    </message>
    <message>
        <source>stays</source>
        <translation>bleibt</translation>
    </message>
    <message>
        <source>Look twice: %1</source>
        <translation>Zweimal hinsehen: %1</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>Filter löschen</translation>
    </message>
    <message>
        <source>On the disk: %1</source>
        <translation>Auf dem Datenträger: %1</translation>
    </message>
</context>
<context>
    <name>pryvane::AccessWindow</name>
    <message>
        <source>Welcome to Pryvane</source>
        <translation>Willkommen bei Pryvane</translation>
    </message>
    <message>
        <source>It will look at %1, %2.</source>
        <translation>Es wird %1 ansehen, %2.</translation>
    </message>
    <message>
        <source>What it looks at</source>
        <translation>Was es ansieht</translation>
    </message>
    <message>
        <source>The names and places of files, launch agents, extensions and applications. Contents are never read to find spyware.</source>
        <translation>Namen und Orte von Dateien, Startagenten, Erweiterungen und Anwendungen. Inhalte werden nie gelesen, um Spyware zu finden.</translation>
    </message>
    <message>
        <source>What leaves this computer</source>
        <translation>Was diesen Computer verlässt</translation>
    </message>
    <message>
        <source>One request for the maker&apos;s settings file, which carries nothing about you or this disk. Nothing else.</source>
        <translation>Eine Anfrage nach der Einstellungsdatei des Herstellers, die nichts über Sie oder diesen Datenträger enthält. Sonst nichts.</translation>
    </message>
    <message>
        <source>What it changes</source>
        <translation>Was es ändert</translation>
    </message>
    <message>
        <source>Nothing, unless you select a finding and confirm that it is to be removed.</source>
        <translation>Nichts, außer Sie wählen einen Fund aus und bestätigen, dass er entfernt werden soll.</translation>
    </message>
    <message>
        <source>Confirm Access</source>
        <translation>Zugriff bestätigen</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Anderes…</translation>
    </message>
    <message>
        <source>Open an Image…</source>
        <translation>Abbild öffnen…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>This home</source>
        <translation>Dieser Benutzerordner</translation>
    </message>
    <message>
        <source>Every home</source>
        <translation>Alle Benutzerordner</translation>
    </message>
    <message>
        <source>There is no folder %1 on this disk.</source>
        <translation>Auf diesem Datenträger gibt es keinen Ordner %1.</translation>
    </message>
    <message>
        <source>%1, and the places that all users share.</source>
        <translation>%1 und die Orte, die alle Benutzer teilen.</translation>
    </message>
    <message>
        <source>All of %1, and the places that all users share.</source>
        <translation>Alles in %1 und die Orte, die alle Benutzer teilen.</translation>
    </message>
    <message>
        <source>The whole disk</source>
        <translation>Der ganze Datenträger</translation>
    </message>
    <message>
        <source>Every home; a deep scan goes through every folder there is.</source>
        <translation>Alle Benutzerordner; ein Tiefenscan geht durch jeden Ordner, den es gibt.</translation>
    </message>
    <message>
        <source>What may it look at?</source>
        <translation>Was darf es ansehen?</translation>
    </message>
</context>
<context>
    <name>pryvane::BrowserPanelSheet</name>
    <message>
        <source>Quit these browsers first</source>
        <translation>Beenden Sie zuerst diese Browser</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>While a browser runs it keeps its files open, and something was found among them. Quit it, then retry. Nothing is removed until then.</source>
        <translation>Solange ein Browser läuft, hält er seine Dateien offen, und unter ihnen wurde etwas gefunden. Beenden Sie ihn und versuchen Sie es erneut. Bis dahin wird nichts entfernt.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>pryvane::CleaningPreviewSheet</name>
    <message>
        <source>What would be cleared</source>
        <translation>Was gelöscht würde</translation>
    </message>
    <message>
        <source>Items that would be cleared</source>
        <translation>Objekte, die gelöscht würden</translation>
    </message>
    <message>
        <source>List each location</source>
        <translation>Jeden Ort auflisten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Clear for good</source>
        <translation>Endgültig löschen</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Leave these out</source>
        <translation>Diese auslassen</translation>
    </message>
    <message>
        <source>Looking at what would go…</source>
        <translation>Es wird nachgesehen, was fortginge…</translation>
    </message>
    <message>
        <source>Nothing goes to the Trash: what is cleared is gone.</source>
        <translation>Nichts kommt in den Papierkorb: Was gelöscht ist, ist fort.</translation>
    </message>
    <message>
        <source>%1 cannot be had back once cleared.</source>
        <translation>%1 ist nach dem Löschen nicht wiederzubekommen.</translation>
    </message>
    <message>
        <source>%1 will go: %2, %3</source>
        <translation>Es gehen %1: %2, %3</translation>
    </message>
    <message>
        <source>Quit %1 first, then retry. A running browser keeps its files open, so they stay.</source>
        <translation>Beenden Sie zuerst %1 und versuchen Sie es erneut. Ein laufender Browser hält seine Dateien offen, sie bleiben also.</translation>
    </message>
</context>
<context>
    <name>pryvane::ClearedSheet</name>
    <message>
        <source>Item</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>Wessen</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Einträge</translation>
    </message>
    <message>
        <source>Freed</source>
        <translation>Freigegeben</translation>
    </message>
    <message>
        <source>Stayed</source>
        <translation>Geblieben</translation>
    </message>
    <message>
        <source>What was cleared</source>
        <translation>Was gelöscht wurde</translation>
    </message>
    <message>
        <source>The journal of removals keeps each location with what it took, and when it went.</source>
        <translation>Das Verzeichnis der Löschungen hält jeden Ort fest, mit dem, was er belegte, und wann er ging.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>pryvane::ComparisonSheet</name>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Threat</source>
        <translation>Bedrohung</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>%1 (%2, %3: %4)</source>
        <translation>%1 (%2, %3: %4)</translation>
    </message>
    <message>
        <source>%1 new, %2 gone, %3 in both</source>
        <translation>%1 neu, %2 fort, %3 in beiden</translation>
    </message>
    <message>
        <source>What changed</source>
        <translation>Was sich geändert hat</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>Filter by threat or location</source>
        <translation>Nach Bedrohung oder Ort filtern</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>fort</translation>
    </message>
    <message>
        <source>as before</source>
        <translation>wie zuvor</translation>
    </message>
</context>
<context>
    <name>pryvane::CoverageView</name>
    <message>
        <source>%1 signatures tested, %2 folders listed, %3 entries searched</source>
        <translation>%1 Signaturen geprüft, %2 Ordner aufgelistet, %3 Einträge durchsucht</translation>
    </message>
    <message>
        <source>%1 entries walked</source>
        <translation>%1 Einträge durchgegangen</translation>
    </message>
    <message>
        <source>%1 seconds</source>
        <translation>%1 Sekunden</translation>
    </message>
    <message>
        <source>The system volume was not looked at: %1 signatures left out</source>
        <translation>Das System-Volume wurde nicht angesehen: %1 Signaturen ausgelassen</translation>
    </message>
    <message>
        <source>    and %1 more</source>
        <translation>    und %1 weitere</translation>
    </message>
    <message>
        <source>Could not be read:</source>
        <translation>Nicht lesbar:</translation>
    </message>
    <message>
        <source>Applications that the list leaves out:</source>
        <translation>Anwendungen, die die Liste auslässt:</translation>
    </message>
    <message>
        <source>There is no home folder %1</source>
        <translation>Es gibt keinen Benutzerordner %1</translation>
    </message>
    <message>
        <source>What was looked at</source>
        <translation>Was angesehen wurde</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>pryvane::DashboardView</name>
    <message>
        <source>Look at Them</source>
        <translation>Funde ansehen</translation>
    </message>
    <message>
        <source>Deep scan</source>
        <translation>Tiefenscan</translation>
    </message>
    <message>
        <source>Look for spyware</source>
        <translation>Nach Spyware suchen</translation>
    </message>
    <message>
        <source>Real-time scan</source>
        <translation>Echtzeitscan</translation>
    </message>
    <message>
        <source>A quick scan every 30 minutes while Pryvane is running.</source>
        <translation>Ein Schnellscan alle 30 Minuten, solange Pryvane läuft.</translation>
    </message>
    <message>
        <source>Dock icon</source>
        <translation>Dock-Symbol</translation>
    </message>
    <message>
        <source>Show Pryvane among the open applications of the desktop.</source>
        <translation>Pryvane unter den offenen Anwendungen der Arbeitsfläche zeigen.</translation>
    </message>
    <message>
        <source>Start at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Start Pryvane when you log in.</source>
        <translation>Pryvane starten, wenn Sie sich anmelden.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Schedule…</source>
        <translation>Zeitplan…</translation>
    </message>
    <message>
        <source>Scheduled scan</source>
        <translation>Geplanter Scan</translation>
    </message>
    <message>
        <source>Not scanned yet</source>
        <translation>Noch nicht gescannt</translation>
    </message>
    <message>
        <source>A quick scan mostly takes less than a minute, and changes nothing on the disk.</source>
        <translation>Ein Schnellscan dauert meist weniger als eine Minute und ändert nichts auf dem Datenträger.</translation>
    </message>
    <message>
        <source>This disk cannot be told from others, so what earlier scans found is in the reports only.</source>
        <translation>Dieser Datenträger lässt sich nicht von anderen unterscheiden; was frühere Scans fanden, steht daher nur in den Berichten.</translation>
    </message>
    <message>
        <source>Last scan: %1</source>
        <translation>Letzter Scan: %1</translation>
    </message>
    <message>
        <source>The last scan found something</source>
        <translation>Der letzte Scan hat etwas gefunden</translation>
    </message>
    <message>
        <source>The last scan found nothing</source>
        <translation>Der letzte Scan hat nichts gefunden</translation>
    </message>
    <message>
        <source>A scan is running</source>
        <translation>Ein Scan läuft</translation>
    </message>
    <message>
        <source>No scan is scheduled.</source>
        <translation>Es ist kein Scan geplant.</translation>
    </message>
</context>
<context>
    <name>pryvane::FactsPage</name>
    <message numerus="yes">
        <source>and %n more places that could not be read</source>
        <translation>
            <numerusform>und %n weiterer Ort, der nicht gelesen werden konnte</numerusform>
            <numerusform>und %n weitere Orte, die nicht gelesen werden konnten</numerusform>
        </translation>
    </message>
    <message>
        <source>Reading what the disk says…</source>
        <translation>Es wird gelesen, was der Datenträger sagt…</translation>
    </message>
    <message>
        <source>This was not read. “Read again” tries once more.</source>
        <translation>Dies wurde nicht gelesen. „Erneut lesen“ versucht es noch einmal.</translation>
    </message>
    <message>
        <source>Nothing fits what was chosen above.</source>
        <translation>Nichts passt zu dem, was oben gewählt ist.</translation>
    </message>
    <message>
        <source>Nothing could be listed: not all places could be read.</source>
        <translation>Nichts konnte aufgeführt werden: Nicht alle Orte ließen sich lesen.</translation>
    </message>
    <message>
        <source>The places were read, and nothing of this is in them.</source>
        <translation>Die Orte wurden gelesen, und nichts davon steht darin.</translation>
    </message>
    <message>
        <source>What does “%1” mean?</source>
        <translation>Was bedeutet „%1“?</translation>
    </message>
    <message>
        <source>Reveal in File Viewer</source>
        <translation>In der Dateiverwaltung zeigen</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Copy All of It</source>
        <translation>Alles davon kopieren</translation>
    </message>
</context>
<context>
    <name>pryvane::FactsView</name>
    <message>
        <source>Filter by any word</source>
        <translation>Nach beliebigem Wort filtern</translation>
    </message>
    <message>
        <source>Only what is still there</source>
        <translation>Nur was noch da ist</translation>
    </message>
    <message>
        <source>Read again</source>
        <translation>Erneut lesen</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren…</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Berechtigungen</translation>
    </message>
    <message>
        <source>Start-up</source>
        <translation>Selbststart</translation>
    </message>
    <message>
        <source>Remote access</source>
        <translation>Fernzugriff</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>Wessen</translation>
    </message>
    <message>
        <source>Everyone</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>The whole Mac</source>
        <translation>Der ganze Mac</translation>
    </message>
    <message>
        <source>Show what was denied (%1)</source>
        <translation>Abgelehntes zeigen (%1)</translation>
    </message>
    <message>
        <source>Export this list</source>
        <translation>Diese Liste exportieren</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Text (*.txt)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
</context>
<context>
    <name>pryvane::FindingsPane</name>
    <message>
        <source>Findings</source>
        <translation>Funde</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Filter by threat or location</source>
        <translation>Nach Bedrohung oder Ort filtern</translation>
    </message>
    <message>
        <source>Group by</source>
        <translation>Gruppieren nach</translation>
    </message>
    <message>
        <source>No groups</source>
        <translation>Ohne Gruppen</translation>
    </message>
    <message>
        <source>Group by threat</source>
        <translation>Nach Bedrohung gruppieren</translation>
    </message>
    <message>
        <source>Group by folder</source>
        <translation>Nach Ordner gruppieren</translation>
    </message>
    <message>
        <source>Nothing fits the filter.</source>
        <translation>Nichts passt zum Filter.</translation>
    </message>
    <message>
        <source>%1 of %2 selected</source>
        <translation>%1 von %2 ausgewählt</translation>
    </message>
    <message>
        <source>Why was this found?</source>
        <translation>Warum wurde dies gefunden?</translation>
    </message>
    <message>
        <source>Reveal in File Viewer</source>
        <translation>In der Dateiverwaltung zeigen</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Pryvane looks at names only. What it says here rests on where the item lies and what it is called, not on what is inside.</source>
        <translation>Pryvane sieht nur Namen an. Was hier steht, beruht darauf, wo etwas liegt und wie es heißt, nicht darauf, was darin ist.</translation>
    </message>
</context>
<context>
    <name>pryvane::GroupList</name>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
</context>
<context>
    <name>pryvane::HelpWindow</name>
    <message>
        <source>Pryvane Help</source>
        <translation>Pryvane-Hilfe</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Anleitung</translation>
    </message>
</context>
<context>
    <name>pryvane::InventoryView</name>
    <message>
        <source>Inventory</source>
        <translation>Bestand</translation>
    </message>
    <message>
        <source>Filter by name or location</source>
        <translation>Nach Name oder Ort filtern</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Gather again</source>
        <translation>Erneut erfassen</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>All lists</source>
        <translation>Alle Listen</translation>
    </message>
    <message>
        <source>Gathering</source>
        <translation>Erfassung</translation>
    </message>
    <message>
        <source>What is installed around the browsers and started with the system. Being listed says nothing against it: nothing here is judged, and nothing is changed.</source>
        <translation>Was um die Browser herum installiert ist und mit dem System startet. Aufgeführt zu sein, spricht gegen nichts: Hier wird nichts beurteilt und nichts geändert.</translation>
    </message>
    <message>
        <source>Gathering: %1</source>
        <translation>Wird erfasst: %1</translation>
    </message>
    <message>
        <source>%1 entries in all</source>
        <translation>%1 Einträge insgesamt</translation>
    </message>
    <message>
        <source>%1 entries; not all lists were gathered</source>
        <translation>%1 Einträge; nicht alle Listen wurden erfasst</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Looking for what is installed…</source>
        <translation>Es wird nachgesehen, was installiert ist…</translation>
    </message>
    <message>
        <source>Nothing fits the filter.</source>
        <translation>Nichts passt zum Filter.</translation>
    </message>
    <message>
        <source>Nothing of this is installed.</source>
        <translation>Nichts davon ist installiert.</translation>
    </message>
    <message>
        <source>Nothing was gathered yet.</source>
        <translation>Noch wurde nichts erfasst.</translation>
    </message>
    <message>
        <source>Reveal in File Viewer</source>
        <translation>In der Dateiverwaltung zeigen</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Pfad kopieren</translation>
    </message>
</context>
<context>
    <name>pryvane::MainWindow</name>
    <message>
        <source>Looking at %1, %2</source>
        <translation>Angesehen wird %1, %2</translation>
    </message>
    <message>
        <source>Choose another volume or user</source>
        <translation>Ein anderes Volume oder einen anderen Benutzer wählen</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Ablage</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Erscheinungsbild</translation>
    </message>
</context>
<context>
    <name>pryvane::MenuBar</name>
    <message>
        <source>Open…</source>
        <translation>Öffnen…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>As the Desktop</source>
        <translation>Wie die Arbeitsfläche</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>More Contrast</source>
        <translation>Mehr Kontrast</translation>
    </message>
    <message>
        <source>Pryvane Help</source>
        <translation>Pryvane-Hilfe</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Ablage</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Find in List</source>
        <translation>In der Liste suchen</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Erscheinungsbild</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>pryvane::OpeningWindow</name>
    <message>
        <source>Unlock</source>
        <translation>Entsperren</translation>
    </message>
    <message>
        <source>Reading names</source>
        <translation>Namen werden gelesen</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The password does not unlock this disk.</source>
        <translation>Das Passwort entsperrt diesen Datenträger nicht.</translation>
    </message>
    <message>
        <source>The disk in this image is encrypted. Its password unlocks it.</source>
        <translation>Der Datenträger in diesem Abbild ist verschlüsselt. Sein Passwort entsperrt ihn.</translation>
    </message>
</context>
<context>
    <name>pryvane::PagesView</name>
    <message>
        <source>The pages as they will be printed</source>
        <translation>Die Seiten, wie sie gedruckt werden</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
</context>
<context>
    <name>pryvane::PlanSheet</name>
    <message>
        <source>%1 selected: %2 entries, %3</source>
        <translation>%1 ausgewählt: %2 Einträge, %3</translation>
    </message>
    <message>
        <source>; %1 cannot be removed as things are</source>
        <translation>; %1 können so nicht entfernt werden</translation>
    </message>
    <message>
        <source>What would be removed</source>
        <translation>Was entfernt würde</translation>
    </message>
    <message>
        <source>If somebody may be watching this Mac: removing destroys evidence of it, and whoever installed it may notice. Keep a record first, and think of your safety before you go on.</source>
        <translation>Falls jemand diesen Mac überwacht: Das Entfernen vernichtet Beweise dafür, und wer die Überwachung eingerichtet hat, merkt es vielleicht. Sichern Sie zuerst ein Protokoll, und denken Sie an Ihre Sicherheit, bevor Sie weitergehen.</translation>
    </message>
    <message>
        <source>Keep a Record First…</source>
        <translation>Zuerst Protokoll sichern…</translation>
    </message>
    <message>
        <source>Leave these out</source>
        <translation>Diese auslassen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Remove for good…</source>
        <translation>Endgültig entfernen…</translation>
    </message>
    <message>
        <source>Writes the report as a PDF and as JSON</source>
        <translation>Schreibt den Bericht als PDF und als JSON</translation>
    </message>
    <message>
        <source>Group by</source>
        <translation>Gruppieren nach</translation>
    </message>
    <message>
        <source>No groups</source>
        <translation>Ohne Gruppen</translation>
    </message>
    <message>
        <source>Group by rule</source>
        <translation>Nach Regel gruppieren</translation>
    </message>
    <message>
        <source>Group by folder</source>
        <translation>Nach Ordner gruppieren</translation>
    </message>
    <message>
        <source>Looking at what would go…</source>
        <translation>Es wird nachgesehen, was fortginge…</translation>
    </message>
    <message>
        <source>Nothing goes to a trash: what is removed is gone. Links are removed, never what they lead to.</source>
        <translation>Nichts kommt in einen Papierkorb: Was entfernt ist, ist fort. Verweise werden entfernt, nie das, wohin sie führen.</translation>
    </message>
    <message>
        <source>1 of these rests on a part of a name alone. It may well be something harmless, so it is not ticked: look at it first.</source>
        <translation>1 davon beruht nur auf einem Teil eines Namens. Es kann gut etwas Harmloses sein und ist daher nicht angekreuzt: Sehen Sie es zuerst an.</translation>
    </message>
    <message>
        <source>%1 of these rest on a part of a name alone. They may well be something harmless, so they are not ticked: look at them first.</source>
        <translation>%1 davon beruhen nur auf einem Teil eines Namens. Sie können gut etwas Harmloses sein und sind daher nicht angekreuzt: Sehen Sie sie zuerst an.</translation>
    </message>
</context>
<context>
    <name>pryvane::PreviewSheet</name>
    <message>
        <source>Print this report</source>
        <translation>Diesen Bericht drucken</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Preparing the pages…</source>
        <translation>Die Seiten werden vorbereitet…</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>The pages cannot be shown: %1</source>
        <translation>Die Seiten lassen sich nicht zeigen: %1</translation>
    </message>
</context>
<context>
    <name>pryvane::PrivacyPane</name>
    <message>
        <source>Items</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Preview…</source>
        <translation>Vorschau…</translation>
    </message>
    <message>
        <source>Clear…</source>
        <translation>Löschen…</translation>
    </message>
    <message>
        <source>Browser data, caches, logs and the Trash are listed here with the space they take, once they are measured.</source>
        <translation>Browserdaten, Zwischenspeicher, Protokolle und der Papierkorb stehen hier mit ihrem Platzbedarf, sobald sie gemessen sind.</translation>
    </message>
    <message>
        <source>Lists each location that would go</source>
        <translation>Führt jeden Ort auf, der fortginge</translation>
    </message>
    <message>
        <source>Asks once more before anything goes</source>
        <translation>Fragt noch einmal, bevor etwas fortgeht</translation>
    </message>
    <message>
        <source>%1 ticked</source>
        <translation>%1 angekreuzt</translation>
    </message>
    <message>
        <source>Nothing is ticked</source>
        <translation>Nichts ist angekreuzt</translation>
    </message>
    <message>
        <source>Point at an item to see what it holds.</source>
        <translation>Zeigen Sie auf ein Objekt, um zu sehen, was es enthält.</translation>
    </message>
    <message>
        <source>What stayed</source>
        <translation>Was geblieben ist</translation>
    </message>
    <message>
        <source>Why it stayed, and what to do</source>
        <translation>Warum es geblieben ist und was zu tun ist</translation>
    </message>
</context>
<context>
    <name>pryvane::RemoteDesktopCell</name>
    <message>
        <source>How to switch it off</source>
        <translation>Wie ausschalten?</translation>
    </message>
    <message>
        <source>Ignore from now on</source>
        <translation>Künftig übergehen</translation>
    </message>
    <message>
        <source>Opens Apple&apos;s article in the web browser</source>
        <translation>Öffnet Apples Artikel im Webbrowser</translation>
    </message>
    <message>
        <source>Apple Remote Desktop is set up</source>
        <translation>Apple Remote Desktop eingerichtet</translation>
    </message>
    <message>
        <source>Apple Remote Desktop is ignored</source>
        <translation>Apple Remote Desktop wird übergangen</translation>
    </message>
    <message>
        <source>Somebody may see and control this Mac from afar. It is switched off in the Mac&apos;s settings.</source>
        <translation>Jemand kann diesen Mac vielleicht aus der Ferne sehen und bedienen. Ausgeschaltet wird es in den Einstellungen des Macs.</translation>
    </message>
    <message>
        <source>Scans do not look for it. Untick the box, and the next one does.</source>
        <translation>Scans suchen nicht danach. Entfernen Sie das Häkchen, und der nächste tut es.</translation>
    </message>
</context>
<context>
    <name>pryvane::RemovalProgressView</name>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop the removal</source>
        <translation>Das Entfernen anhalten</translation>
    </message>
    <message>
        <source>Removal progress</source>
        <translation>Fortschritt des Entfernens</translation>
    </message>
    <message>
        <source>Removing: %1 of %2</source>
        <translation>Wird entfernt: %1 von %2</translation>
    </message>
</context>
<context>
    <name>pryvane::ReportBrowserView</name>
    <message>
        <source>Export this report</source>
        <translation>Diesen Bericht exportieren</translation>
    </message>
    <message>
        <source>%1 (*.%2)</source>
        <translation>%1 (*.%2)</translation>
    </message>
</context>
<context>
    <name>pryvane::ReportDetailsPane</name>
    <message>
        <source>%1 (%2 listed)</source>
        <translation>%1 (%2 aufgeführt)</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>Back to the reports</source>
        <translation>Zurück zu den Berichten</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken…</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>As %1…</source>
        <translation>Als %1…</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Löschen…</translation>
    </message>
    <message>
        <source>Findings:</source>
        <translation>Funde:</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>Beginn:</translation>
    </message>
    <message>
        <source>What stayed…</source>
        <translation>Was geblieben ist…</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>Entfernen…</translation>
    </message>
    <message>
        <source>This scan found nothing.</source>
        <translation>Dieser Scan hat nichts gefunden.</translation>
    </message>
</context>
<context>
    <name>pryvane::ReportListPane</name>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>No report fits the filter.</source>
        <translation>Kein Bericht passt zum Filter.</translation>
    </message>
    <message>
        <source>Reading the reports…</source>
        <translation>Die Berichte werden gelesen…</translation>
    </message>
    <message>
        <source>A scan is running. Its report comes at its end.</source>
        <translation>Ein Scan läuft. Sein Bericht kommt am Ende.</translation>
    </message>
    <message>
        <source>Search by kind, date, Mac or threat</source>
        <translation>Nach Art, Datum, Mac oder Bedrohung suchen</translation>
    </message>
    <message>
        <source>Which reports are shown</source>
        <translation>Welche Berichte gezeigt werden</translation>
    </message>
    <message>
        <source>All reports</source>
        <translation>Alle Berichte</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Sauber</translation>
    </message>
    <message>
        <source>Group by</source>
        <translation>Gruppieren nach</translation>
    </message>
    <message>
        <source>No groups</source>
        <translation>Ohne Gruppen</translation>
    </message>
    <message>
        <source>Group by Mac</source>
        <translation>Nach Mac gruppieren</translation>
    </message>
    <message>
        <source>Compares two selected reports, or the selected one with the one before it of the same Mac</source>
        <translation>Vergleicht zwei ausgewählte Berichte oder den ausgewählten mit dem vorigen desselben Macs</translation>
    </message>
    <message>
        <source>Scan Now</source>
        <translation>Jetzt scannen</translation>
    </message>
    <message>
        <source>No reports yet: every scan leaves one here.</source>
        <translation>Noch keine Berichte: Jeder Scan hinterlässt hier einen.</translation>
    </message>
    <message>
        <source>1 report</source>
        <translation>1 Bericht</translation>
    </message>
    <message>
        <source>%1 reports</source>
        <translation>%1 Berichte</translation>
    </message>
    <message>
        <source>, none of this disk</source>
        <translation>, keiner von diesem Datenträger</translation>
    </message>
    <message>
        <source>, %1 of this disk</source>
        <translation>, %1 von diesem Datenträger</translation>
    </message>
    <message>
        <source>Compare these two</source>
        <translation>Diese zwei vergleichen</translation>
    </message>
    <message>
        <source>Compare with previous</source>
        <translation>Mit vorigem vergleichen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Export These %1</source>
        <translation>Diese %1 exportieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>As %1…</source>
        <translation>Als %1…</translation>
    </message>
    <message>
        <source>Delete These %1…</source>
        <translation>Diese %1 löschen…</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Löschen…</translation>
    </message>
</context>
<context>
    <name>pryvane::ScanProgressView</name>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop the scan</source>
        <translation>Den Scan anhalten</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Fortschritt des Scans</translation>
    </message>
    <message numerus="yes">
        <source>%n found</source>
        <translation>
            <numerusform>%n gefunden</numerusform>
            <numerusform>%n gefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 entries</source>
        <translation>%1 Einträge</translation>
    </message>
    <message>
        <source>%1 entries a second</source>
        <translation>%1 Einträge je Sekunde</translation>
    </message>
    <message>
        <source>about %1 left</source>
        <translation>noch etwa %1</translation>
    </message>
</context>
<context>
    <name>pryvane::ScanView</name>
    <message>
        <source>Scan Now</source>
        <translation>Jetzt scannen</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>Entfernen…</translation>
    </message>
    <message>
        <source>What stayed…</source>
        <translation>Was geblieben ist…</translation>
    </message>
    <message>
        <source>View Report</source>
        <translation>Bericht ansehen</translation>
    </message>
    <message>
        <source>What was looked at</source>
        <translation>Was angesehen wurde</translation>
    </message>
    <message>
        <source>There was no scan: %1.</source>
        <translation>Es gab keinen Scan: %1.</translation>
    </message>
    <message>
        <source>The report of this scan is shown here but could not be stored: %1</source>
        <translation>Der Bericht dieses Scans steht hier, konnte aber nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Removing what you selected</source>
        <translation>Das Ausgewählte wird entfernt</translation>
    </message>
    <message>
        <source>Looking for spyware</source>
        <translation>Nach Spyware wird gesucht</translation>
    </message>
    <message>
        <source>Nothing found so far.</source>
        <translation>Bisher nichts gefunden.</translation>
    </message>
    <message>
        <source>This scan found nothing where it looked.</source>
        <translation>Dieser Scan hat dort, wo er nachsah, nichts gefunden.</translation>
    </message>
    <message>
        <source>Findings are listed here, each with the reason why it was found.</source>
        <translation>Hier stehen Funde, jeder mit dem Grund, aus dem er gefunden wurde.</translation>
    </message>
</context>
<context>
    <name>pryvane::ScheduleSheet</name>
    <message>
        <source>Scheduled scan</source>
        <translation>Geplanter Scan</translation>
    </message>
    <message>
        <source>Scan on a schedule</source>
        <translation>Nach Zeitplan scannen</translation>
    </message>
    <message>
        <source>While Pryvane is running, with its window or without.</source>
        <translation>Solange Pryvane läuft, mit Fenster oder ohne.</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Erster Tag</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Letzter Tag</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Time of day</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Also when Pryvane is closed</source>
        <translation>Auch wenn Pryvane geschlossen ist</translation>
    </message>
</context>
<context>
    <name>pryvane::ToolsStatus</name>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Measure again</source>
        <translation>Erneut messen</translation>
    </message>
    <message>
        <source>What went…</source>
        <translation>Was gelöscht wurde…</translation>
    </message>
    <message>
        <source>What stayed…</source>
        <translation>Was geblieben ist…</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Stop clearing</source>
        <translation>Löschen anhalten</translation>
    </message>
    <message>
        <source>Stop measuring</source>
        <translation>Messen anhalten</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>Measuring: %1 so far</source>
        <translation>Messung: %1 bisher</translation>
    </message>
    <message>
        <source>Measuring what can be cleared</source>
        <translation>Es wird gemessen, was gelöscht werden kann</translation>
    </message>
    <message>
        <source>What has been cleared stays cleared, even after a stop.</source>
        <translation>Was gelöscht ist, bleibt gelöscht, auch nach dem Anhalten.</translation>
    </message>
    <message>
        <source>Clearing what you ticked</source>
        <translation>Das Angekreuzte wird gelöscht</translation>
    </message>
    <message>
        <source>%1 can be cleared</source>
        <translation>%1 können gelöscht werden</translation>
    </message>
    <message>
        <source>There is nothing to clear</source>
        <translation>Es gibt nichts zu löschen</translation>
    </message>
    <message>
        <source>Nothing to clear was found</source>
        <translation>Nichts zu Löschendes wurde gefunden</translation>
    </message>
    <message>
        <source>Not every folder could be looked at; the items say which.</source>
        <translation>Nicht jeder Ordner konnte angesehen werden; bei den Objekten steht, welcher.</translation>
    </message>
    <message>
        <source>There are more profiles or folders than were looked at.</source>
        <translation>Es gibt mehr Profile oder Ordner, als angesehen wurden.</translation>
    </message>
    <message>
        <source>Tick what you want to be rid of. Nothing is ticked for you, and nothing goes before you have seen it.</source>
        <translation>Kreuzen Sie an, was Sie loswerden wollen. Nichts ist für Sie angekreuzt, und nichts geht fort, bevor Sie es gesehen haben.</translation>
    </message>
    <message>
        <source>All that was looked at is empty or not there.</source>
        <translation>Alles Angesehene ist leer oder nicht vorhanden.</translation>
    </message>
    <message>
        <source>Stopped: %1 measured</source>
        <translation>Angehalten: %1 gemessen</translation>
    </message>
    <message>
        <source>Not measured yet</source>
        <translation>Noch nicht gemessen</translation>
    </message>
    <message>
        <source>Groups that are not listed were not reached.</source>
        <translation>Gruppen, die nicht aufgeführt sind, wurden nicht erreicht.</translation>
    </message>
    <message>
        <source>Measuring reads sizes only, never what is in a file.</source>
        <translation>Beim Messen werden nur Größen gelesen, nie, was in einer Datei steht.</translation>
    </message>
    <message>
        <source>Looking for what is there</source>
        <translation>Es wird nachgesehen, was vorhanden ist</translation>
    </message>
    <message>
        <source>%1 of %2, %3 looked at</source>
        <translation>%1 von %2, %3 angesehen</translation>
    </message>
    <message>
        <source>%1, %2 cleared.</source>
        <translation>%1, %2 gelöscht.</translation>
    </message>
    <message>
        <source>%1 stayed.</source>
        <translation>%1 geblieben.</translation>
    </message>
    <message>
        <source>A place that two groups share is counted once.</source>
        <translation>Ein Ort, den zwei Gruppen teilen, zählt einmal.</translation>
    </message>
</context>
<context>
    <name>pryvane::ToolsView</name>
    <message>
        <source>Privacy</source>
        <translation>Datenschutz</translation>
    </message>
    <message>
        <source>Inventory</source>
        <translation>Bestand</translation>
    </message>
    <message>
        <source>Who May Watch</source>
        <translation>Wer zusehen kann</translation>
    </message>
</context>
<context>
    <name>pryvane::VolumeSheet</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Ordner wählen…</translation>
    </message>
    <message>
        <source>Choose File…</source>
        <translation>Datei wählen…</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>Entsperren</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Reading names</source>
        <translation>Namen werden gelesen</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>Datenträger</translation>
    </message>
    <message>
        <source>A folder where a Mac&apos;s disk is mounted stands for that Mac&apos;s root, and what is found there can be removed. A file is an image of a disk, or a list of its names: it is only read.</source>
        <translation>Ein Ordner, in dem der Datenträger eines Macs eingehängt ist, steht für das oberste Verzeichnis jenes Macs, und was dort gefunden wird, kann entfernt werden. Eine Datei ist ein Abbild eines Datenträgers oder eine Liste seiner Namen: Sie wird nur gelesen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Everyone</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>The disk in this image is encrypted. Its password unlocks it.</source>
        <translation>Der Datenträger in diesem Abbild ist verschlüsselt. Sein Passwort entsperrt ihn.</translation>
    </message>
    <message>
        <source>The password does not unlock this disk.</source>
        <translation>Das Passwort entsperrt diesen Datenträger nicht.</translation>
    </message>
    <message>
        <source>There is no folder &quot;Users&quot; with accounts here, so this may not be the root of a Mac&apos;s disk.</source>
        <translation>Hier gibt es keinen Ordner „Users“ mit Konten; dies ist vielleicht nicht das oberste Verzeichnis eines Mac-Datenträgers.</translation>
    </message>
</context>
<context>
    <name>pryvane::ui::Navigation</name>
    <message>
        <source>Screens</source>
        <translation>Ansichten</translation>
    </message>
</context>
<context>
    <name>pryvane::ui::ReasonsSheet</name>
    <message>
        <source>What could not be removed</source>
        <translation>Was nicht entfernt werden konnte</translation>
    </message>
    <message>
        <source>Why it stayed, and what to do</source>
        <translation>Warum es geblieben ist und was zu tun ist</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>pryvane::ui::Spinner</name>
    <message>
        <source>Working</source>
        <translation>In Arbeit</translation>
    </message>
</context>
<context>
    <name>pryvane::ui::TitleBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Maximise</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
</context>
</TS>
