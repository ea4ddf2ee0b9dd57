<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>DBusMailConnection</name>
    <message>
        <source>Quit %1 first, then install the add-on.</source>
        <translation>Beenden Sie zuerst %1 und installieren Sie dann das Add-on.</translation>
    </message>
    <message>
        <source>The add-on could not be installed.</source>
        <translation>Das Add-on konnte nicht installiert werden.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Kest</source>
        <translation>Kest</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Record a message</source>
        <translation>Eine Nachricht aufnehmen</translation>
    </message>
    <message>
        <source>Recording Time</source>
        <translation>Aufnahmezeit</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Die Aufnahme anhalten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Stop and keep the recording</source>
        <translation>Beenden und die Aufnahme behalten</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>Eingangspegel</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Input Device</source>
        <translation>Eingabegerät</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>Neue Nachricht</translation>
    </message>
    <message>
        <source>Put the recording into a new message</source>
        <translation>Die Aufnahme in eine neue Nachricht einfügen</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Antworten</translation>
    </message>
    <message>
        <source>Answer the selected message with the recording</source>
        <translation>Die ausgewählte Nachricht mit der Aufnahme beantworten</translation>
    </message>
    <message>
        <source>Reply All</source>
        <translation>Allen antworten</translation>
    </message>
    <message>
        <source>Answer the selected message, to everyone</source>
        <translation>Die ausgewählte Nachricht beantworten, an alle</translation>
    </message>
    <message>
        <source>Optional Message</source>
        <translation>Vorbereitete Nachricht</translation>
    </message>
    <message>
        <source>Send a prepared message instead of the recording</source>
        <translation>Statt der Aufnahme eine vorbereitete Nachricht senden</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mehr anzeigen</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>Mehr anzeigen</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>Letzte Aufnahme</translation>
    </message>
    <message>
        <source>Last Recording</source>
        <translation>Letzte Aufnahme</translation>
    </message>
    <message>
        <source>Length and Size</source>
        <translation>Länge und Größe</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Show the last recording in its folder</source>
        <translation>Die letzte Aufnahme in ihrem Ordner anzeigen</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Discard Recording</source>
        <translation>Aufnahme verwerfen</translation>
    </message>
    <message>
        <source>Move the last recording to the trash</source>
        <translation>Die letzte Aufnahme in den Papierkorb verschieben</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>Die Aufnahme abspielen</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Playing Time</source>
        <translation>Abspielzeit</translation>
    </message>
    <message>
        <source>Undo Discard</source>
        <translation>Verwerfen rückgängig machen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Take the recording out of the trash again</source>
        <translation>Die Aufnahme wieder aus dem Papierkorb holen</translation>
    </message>
    <message>
        <source>Listening Notice</source>
        <translation>Hinweis zum Anhören</translation>
    </message>
</context>
<context>
    <name>PrefsSheet</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Betreff:</translation>
    </message>
    <message>
        <source>&amp;Subject</source>
        <translation>&amp;Betreff</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Betreff</translation>
    </message>
    <message>
        <source>&amp;Message text</source>
        <translation>&amp;Nachrichtentext</translation>
    </message>
    <message>
        <source>Message Text</source>
        <translation>Nachrichtentext</translation>
    </message>
    <message>
        <source>Include the &amp;tagline, in replies too</source>
        <translation>Schl&amp;usszeile anfügen, auch in Antworten</translation>
    </message>
    <message>
        <source>Include Tagline</source>
        <translation>Schlusszeile anfügen</translation>
    </message>
    <message>
        <source>A last line that says how the message was made</source>
        <translation>Eine letzte Zeile, die sagt, wie die Nachricht entstanden ist</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>Antworten</translation>
    </message>
    <message>
        <source>&amp;Reply text</source>
        <translation>Ant&amp;worttext</translation>
    </message>
    <message>
        <source>Reply Text</source>
        <translation>Antworttext</translation>
    </message>
    <message>
        <source>Add the sender’s &amp;name to the recording’s file name</source>
        <translation>Den Absen&amp;der im Dateinamen der Aufnahme nennen</translation>
    </message>
    <message>
        <source>Include Sender&apos;s Name</source>
        <translation>Absender im Dateinamen</translation>
    </message>
    <message>
        <source>Send replies at &amp;once</source>
        <translation>Antworten s&amp;ofort senden</translation>
    </message>
    <message>
        <source>Send Replies at Once</source>
        <translation>Antworten sofort senden</translation>
    </message>
    <message>
        <source>Otherwise a reply opens in your mail application for you to look over</source>
        <translation>Sonst öffnet sich eine Antwort in Ihrem Mailprogramm, damit Sie sie durchsehen können</translation>
    </message>
    <message>
        <source>&amp;Delete the message that I answered</source>
        <translation>Beantwortete Nachricht &amp;löschen</translation>
    </message>
    <message>
        <source>Delete Original</source>
        <translation>Original löschen</translation>
    </message>
    <message>
        <source>It goes where your mail application puts deleted messages</source>
        <translation>Sie kommt dorthin, wo Ihr Mailprogramm gelöschte Nachrichten ablegt</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>Sending &amp;account</source>
        <translation>Absende&amp;konto</translation>
    </message>
    <message>
        <source>Sending Account</source>
        <translation>Absendekonto</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>Konto auswählen</translation>
    </message>
    <message>
        <source>List Accounts</source>
        <translation>Konten auflisten</translation>
    </message>
    <message>
        <source>Start your mail application and ask for its accounts</source>
        <translation>Ihr Mailprogramm starten und nach seinen Konten fragen</translation>
    </message>
    <message>
        <source>Mail &amp;back end</source>
        <translation>&amp;Mailanbindung</translation>
    </message>
    <message>
        <source>Mail Back End</source>
        <translation>Mailanbindung</translation>
    </message>
    <message>
        <source>Direct – your mail application picks the account</source>
        <translation>Direkt – Ihr Mailprogramm wählt das Konto</translation>
    </message>
    <message>
        <source>Script – sends from the account above</source>
        <translation>Skript – sendet vom obigen Konto</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Recordings &amp;folder</source>
        <translation>Ordner für &amp;Aufnahmen</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>Ordner für Aufnahmen</translation>
    </message>
    <message>
        <source>Not found – please choose one</source>
        <translation>Nicht gefunden – bitte einen auswählen</translation>
    </message>
    <message>
        <source>Choose Recordings Folder</source>
        <translation>Ordner für Aufnahmen auswählen</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen…</translation>
    </message>
    <message>
        <source>Choose another folder</source>
        <translation>Einen anderen Ordner auswählen</translation>
    </message>
    <message>
        <source>Reveal Recordings Folder</source>
        <translation>Ordner für Aufnahmen anzeigen</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Show it in the file browser</source>
        <translation>In der Dateiverwaltung anzeigen</translation>
    </message>
    <message>
        <source>O&amp;ptional messages folder</source>
        <translation>Ordner für &amp;vorbereitete Nachrichten</translation>
    </message>
    <message>
        <source>Optional Messages Folder</source>
        <translation>Ordner für vorbereitete Nachrichten</translation>
    </message>
    <message>
        <source>Choose Optional Messages Folder</source>
        <translation>Ordner für vorbereitete Nachrichten auswählen</translation>
    </message>
    <message>
        <source>Reveal Optional Messages Folder</source>
        <translation>Ordner für vorbereitete Nachrichten anzeigen</translation>
    </message>
    <message>
        <source>Clean-up</source>
        <translation>Aufräumen</translation>
    </message>
    <message>
        <source>Remove recordin&amp;gs</source>
        <translation>Aufnahmen &amp;entfernen</translation>
    </message>
    <message>
        <source>Remove Recordings</source>
        <translation>Aufnahmen entfernen</translation>
    </message>
    <message>
        <source>All, whenever Kest quits</source>
        <translation>Alle, sobald Kest beendet wird</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>After one day, when Kest quits</source>
        <translation>Nach einem Tag, wenn Kest beendet wird</translation>
    </message>
    <message>
        <source>After seven days, when Kest quits</source>
        <translation>Nach sieben Tagen, wenn Kest beendet wird</translation>
    </message>
    <message>
        <source>After 30 days, when Kest quits</source>
        <translation>Nach 30 Tagen, wenn Kest beendet wird</translation>
    </message>
    <message>
        <source>Move them to the tras&amp;h</source>
        <translation>In den &amp;Papierkorb verschieben</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb verschieben</translation>
    </message>
    <message>
        <source>Otherwise they are deleted for good</source>
        <translation>Sonst werden sie endgültig gelöscht</translation>
    </message>
    <message>
        <source>Preferences Notice</source>
        <translation>Hinweis zu den Einstellungen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
</context>
<context>
    <name>PulseRecorder</name>
    <message>
        <source>The recording cannot be made.</source>
        <translation>Die Aufnahme kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>This format is not served.</source>
        <translation>Dieses Format wird nicht unterstützt.</translation>
    </message>
</context>
<context>
    <name>WelcomeSheet</name>
    <message>
        <source>Welcome to Kest</source>
        <translation>Willkommen bei Kest</translation>
    </message>
    <message>
        <source>Speak, stop, and one click makes a mail of it.
If you like, see first that all is ready.</source>
        <translation>Sprechen, anhalten – und ein Klick macht eine E-Mail daraus.
Wenn Sie mögen, prüfen Sie zuerst, ob alles bereit ist.</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Both checks can be skipped.</source>
        <translation>Beides können Sie überspringen.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Loslegen</translation>
    </message>
    <message>
        <source>Go to the window to record in</source>
        <translation>Zum Aufnahmefenster gehen</translation>
    </message>
</context>
<context>
    <name>kest</name>
    <message>
        <source>Stored recordings folder is missing or has been moved. You need to choose it again.</source>
        <translation>Der gespeicherte Ordner für Aufnahmen fehlt oder wurde verschoben. Bitte wählen Sie ihn erneut aus.</translation>
    </message>
    <message>
        <source>Stored recordings folder is missing</source>
        <translation>Der gespeicherte Ordner für Aufnahmen fehlt</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved. You need to choose it again.</source>
        <translation>Der gespeicherte Ordner für Aufnahmen konnte nicht gefunden werden. Bitte wählen Sie ihn erneut aus.</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved</source>
        <translation>Der gespeicherte Ordner für Aufnahmen konnte nicht gefunden werden</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing or has been moved. You need to choose it again.</source>
        <translation>Der gespeicherte Ordner für vorbereitete Nachrichten fehlt oder wurde verschoben. Bitte wählen Sie ihn erneut aus.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing</source>
        <translation>Der gespeicherte Ordner für vorbereitete Nachrichten fehlt</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved. You need to choose it again.</source>
        <translation>Der gespeicherte Ordner für vorbereitete Nachrichten konnte nicht gefunden werden. Bitte wählen Sie ihn erneut aus.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved</source>
        <translation>Der gespeicherte Ordner für vorbereitete Nachrichten konnte nicht gefunden werden</translation>
    </message>
    <message>
        <source>Spoken, not typed. Recorded with Kest.</source>
        <translation>Gesprochen, nicht getippt. Aufgenommen mit Kest.</translation>
    </message>
    <message>
        <source>Sent in one click with Kest.</source>
        <translation>Mit einem Klick gesendet mit Kest.</translation>
    </message>
    <message>
        <source>Your settings could not be saved (%1). They hold until you quit.</source>
        <translation>Ihre Einstellungen konnten nicht gespeichert werden (%1). Sie gelten, bis Sie Kest beenden.</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). Kest uses its defaults until you quit.</source>
        <translation>Ihre Einstellungen konnten nicht gelesen werden (%1). Kest verwendet bis zum Beenden seine Vorgaben.</translation>
    </message>
    <message>
        <source>The settings file was damaged. Kest uses its defaults until you quit.</source>
        <translation>Die Einstellungsdatei war beschädigt. Kest verwendet bis zum Beenden seine Vorgaben.</translation>
    </message>
    <message>
        <source>The settings file was damaged and was put aside as “%1”. Kest starts with its defaults.</source>
        <translation>Die Einstellungsdatei war beschädigt und wurde als „%1“ beiseitegelegt. Kest startet mit seinen Vorgaben.</translation>
    </message>
    <message>
        <source>--:--</source>
        <translation>--:--</translation>
    </message>
    <message>
        <source>The mail script could not be loaded.</source>
        <translation>Das Mailskript konnte nicht geladen werden.</translation>
    </message>
    <message>
        <source>The mail script lacks the operation %1.</source>
        <translation>Dem Mailskript fehlt die Funktion %1.</translation>
    </message>
    <message>
        <source>The mail script failed.</source>
        <translation>Das Mailskript ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No accounts were detected in Mail. You must have at least one account configured in order to create messages or reply to messages. Please ensure that you have an account configured, and try again.</source>
        <translation>Im Mailprogramm wurden keine Konten gefunden. Um Nachrichten zu erstellen oder zu beantworten, muss mindestens ein Konto eingerichtet sein. Bitte richten Sie ein Konto ein und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>No messages appear to be selected in Mail. Please select a message and try again.</source>
        <translation>Im Mailprogramm scheint keine Nachricht ausgewählt zu sein. Bitte wählen Sie eine Nachricht aus und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Unable to Proceed</source>
        <translation>Es geht so nicht weiter</translation>
    </message>
    <message>
        <source>it is too large for a message&apos;s text</source>
        <translation>sie ist zu groß für den Text einer Nachricht</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>Die Nachricht ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The mail application did not understand the request.</source>
        <translation>Das Mailprogramm hat die Anfrage nicht verstanden.</translation>
    </message>
    <message>
        <source>Kest&apos;s add-on in the mail application does not answer. Check that it is installed and switched on, and try again.</source>
        <translation>Das Kest-Add-on im Mailprogramm antwortet nicht. Prüfen Sie, ob es installiert und aktiviert ist, und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Kest and its add-on in the mail application are of different versions. Install the add-on that belongs to this version of Kest, and try again.</source>
        <translation>Kest und sein Add-on im Mailprogramm haben verschiedene Versionen. Installieren Sie das Add-on, das zu dieser Version von Kest gehört, und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The mail application did not answer in time.</source>
        <translation>Das Mailprogramm hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>The mail application cannot do this.</source>
        <translation>Das Mailprogramm kann das nicht.</translation>
    </message>
    <message>
        <source>The mail application could not do this.</source>
        <translation>Das Mailprogramm konnte das nicht ausführen.</translation>
    </message>
    <message>
        <source>The mail application is still busy with the last request.</source>
        <translation>Das Mailprogramm ist noch mit der letzten Anfrage beschäftigt.</translation>
    </message>
    <message>
        <source>Kest cannot reach the mail application, because there is no session bus.</source>
        <translation>Kest kann das Mailprogramm nicht erreichen, weil es keinen Sitzungsbus gibt.</translation>
    </message>
    <message>
        <source>No mail application could be started. Install Thunderbird and Kest&apos;s add-on for it, and try again.</source>
        <translation>Es konnte kein Mailprogramm gestartet werden. Installieren Sie Thunderbird und das Kest-Add-on dafür und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The mail application does not answer Kest. Install Kest&apos;s add-on in it, and try again.</source>
        <translation>Das Mailprogramm antwortet Kest nicht. Installieren Sie darin das Kest-Add-on und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The mail application went away before it was done.</source>
        <translation>Das Mailprogramm wurde beendet, bevor es fertig war.</translation>
    </message>
    <message>
        <source>The mail application&apos;s answer makes no sense to Kest.</source>
        <translation>Kest versteht die Antwort des Mailprogramms nicht.</translation>
    </message>
    <message>
        <source>Kest is ending.</source>
        <translation>Kest wird beendet.</translation>
    </message>
    <message>
        <source>No mail application is connected.</source>
        <translation>Kein Mailprogramm ist verbunden.</translation>
    </message>
    <message>
        <source>The file “%1” cannot be attached</source>
        <translation>Die Datei „%1“ kann nicht angehängt werden</translation>
    </message>
    <message>
        <source>No optional outgoing messages folder set</source>
        <translation>Kein Ordner für vorbereitete Nachrichten eingestellt</translation>
    </message>
    <message>
        <source>“%1” did not arrive whole.</source>
        <translation>„%1“ ist nicht vollständig angekommen.</translation>
    </message>
    <message>
        <source>Thunderbird did not attach “%1”.</source>
        <translation>Thunderbird hat „%1“ nicht angehängt.</translation>
    </message>
    <message>
        <source>Thunderbird has no account that can send mail.</source>
        <translation>Thunderbird hat kein Konto, das senden kann.</translation>
    </message>
    <message>
        <source>The message was closed before it was sent.</source>
        <translation>Die Nachricht wurde geschlossen, bevor sie gesendet war.</translation>
    </message>
    <message>
        <source>The message has no recipient.</source>
        <translation>Die Nachricht hat keinen Empfänger.</translation>
    </message>
    <message>
        <source>Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete.</source>
        <translation>Thunderbird bietet das Senden dieser Nachricht nicht an: Vielleicht ist es offline, oder eine Adresse ist unvollständig.</translation>
    </message>
    <message>
        <source>Thunderbird could not send the message; it is still open there.</source>
        <translation>Thunderbird konnte die Nachricht nicht senden; sie ist dort noch offen.</translation>
    </message>
    <message>
        <source>Thunderbird has no window to show.</source>
        <translation>Thunderbird hat kein Fenster, das es zeigen könnte.</translation>
    </message>
    <message>
        <source>Thunderbird says: %1</source>
        <translation>Thunderbird meldet: %1</translation>
    </message>
    <message>
        <source>%1 is busy with other requests.</source>
        <translation>%1 ist mit anderen Anfragen beschäftigt.</translation>
    </message>
    <message>
        <source>An attachment is not a regular file that can be read.</source>
        <translation>Ein Anhang ist keine gewöhnliche Datei, die gelesen werden kann.</translation>
    </message>
    <message>
        <source>The attachments are larger than 2 GiB together, more than a mail can carry.</source>
        <translation>Die Anhänge sind zusammen größer als 2 GiB, mehr, als eine E-Mail tragen kann.</translation>
    </message>
    <message>
        <source>An attachment cannot be read: %1.</source>
        <translation>Ein Anhang kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>The add-on gave an answer that makes no sense.</source>
        <translation>Das Add-on hat eine Antwort gegeben, die keinen Sinn ergibt.</translation>
    </message>
    <message>
        <source>Only Kest may do this, and the caller is not the Kest that runs.</source>
        <translation>Das darf nur Kest, und der Aufrufer ist nicht das laufende Kest.</translation>
    </message>
    <message>
        <source>The part of Kest that prepares mail could not be loaded. Please install Kest again.</source>
        <translation>Der Teil von Kest, der E-Mails vorbereitet, konnte nicht geladen werden. Bitte installieren Sie Kest neu.</translation>
    </message>
    <message>
        <source>The answer is too long to be passed on.</source>
        <translation>Die Antwort ist zu lang, um weitergegeben zu werden.</translation>
    </message>
    <message>
        <source>The reply was sent, but the original could not be deleted: %1</source>
        <translation>Die Antwort wurde gesendet, aber das Original konnte nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>The reply is there, but the original could not be deleted: %1</source>
        <translation>Die Antwort ist da, aber das Original konnte nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.</source>
        <translation>Diese Antwort muss verschlüsselt werden, und „Direkt“ kann das nicht. Bitte wählen Sie in den Einstellungen „Skript“ als Mailanbindung.</translation>
    </message>
    <message>
        <source>The message may be there or be sent all the same. Look in the mail application before you try again.</source>
        <translation>Die Nachricht ist vielleicht trotzdem da oder wird noch gesendet. Sehen Sie im Mailprogramm nach, bevor Sie es noch einmal versuchen.</translation>
    </message>
</context>
<context>
    <name>kest::AppDelegate</name>
    <message>
        <source>A message is being recorded</source>
        <translation>Eine Nachricht wird aufgenommen</translation>
    </message>
    <message>
        <source>Kest’s recording is paused</source>
        <translation>Die Aufnahme mit Kest ist angehalten</translation>
    </message>
    <message>
        <source>Kest is still recording</source>
        <translation>Kest nimmt weiter auf</translation>
    </message>
    <message>
        <source>Its window comes back when you turn to your mail, or start Kest again.</source>
        <translation>Das Fenster kommt zurück, wenn Sie zu Ihrer E-Mail wechseln oder Kest noch einmal starten.</translation>
    </message>
    <message>
        <source>Kest’s recording has ended</source>
        <translation>Die Aufnahme mit Kest ist beendet</translation>
    </message>
    <message>
        <source>Kest’s window comes back when you turn to your mail, or start Kest again.</source>
        <translation>Das Fenster von Kest kommt zurück, wenn Sie zu Ihrer E-Mail wechseln oder Kest noch einmal starten.</translation>
    </message>
</context>
<context>
    <name>kest::ControlButton</name>
    <message>
        <source>%1 (%2)</source>
        <comment>what a button does, its keys</comment>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>kest::ListeningPanel</name>
    <message>
        <source>Used for a message</source>
        <translation>In einer Nachricht verwendet</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>Letzte Aufnahme</translation>
    </message>
    <message>
        <source>This recording</source>
        <translation>Diese Aufnahme</translation>
    </message>
    <message>
        <source>Moved to the trash</source>
        <translation>Im Papierkorb</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Noch keine</translation>
    </message>
    <message>
        <source>Drag it into another window</source>
        <translation>Ziehen Sie sie in ein anderes Fenster</translation>
    </message>
    <message>
        <source>Being recorded</source>
        <translation>Wird aufgenommen</translation>
    </message>
    <message>
        <source>Pause Playing</source>
        <translation>Wiedergabe anhalten</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Pause playing</source>
        <translation>Die Wiedergabe anhalten</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>Die Aufnahme abspielen</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>In den Papierkorb ging es nicht.</translation>
    </message>
    <message>
        <source>It could not be taken out of the trash.</source>
        <translation>Aus dem Papierkorb ging es nicht.</translation>
    </message>
</context>
<context>
    <name>kest::MailStateView</name>
    <message>
        <source>Install Add-on</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Put Kest’s add-on into your Thunderbird profile</source>
        <translation>Das Kest-Add-on in Ihr Thunderbird-Profil einsetzen</translation>
    </message>
    <message>
        <source>The add-on is installed.</source>
        <translation>Das Add-on ist installiert.</translation>
    </message>
</context>
<context>
    <name>kest::MailWords</name>
    <message>
        <source>your mail application</source>
        <translation>Ihr Mailprogramm</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Verbunden: %1.</translation>
    </message>
    <message>
        <source>Connected to %1 as %2.</source>
        <translation>Verbunden: %1, als %2.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1. Help says how to get it.</source>
        <translation>%1: Das Kest-Add-on fehlt. Woher es kommt, sagt die Hilfe.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing. Quit %1 to install it.</source>
        <translation>Das Kest-Add-on fehlt. Zum Installieren %1 beenden.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1.</source>
        <translation>%1: Das Kest-Add-on fehlt.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is of another version. Restart %1.</source>
        <translation>%1: Das Kest-Add-on hat eine andere Version. Bitte %1 neu starten.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is version %2, this is %3. Restart %1.</source>
        <translation>%1: Das Kest-Add-on hat Version %2, Kest hat %3. Bitte %1 neu starten.</translation>
    </message>
    <message>
        <source>No mail application was found. Kest needs Thunderbird.</source>
        <translation>Kein Mailprogramm gefunden. Kest braucht Thunderbird.</translation>
    </message>
    <message>
        <source>Kest cannot talk to %1 yet. It needs Thunderbird.</source>
        <translation>%1 versteht sich noch nicht mit Kest. Nötig ist Thunderbird.</translation>
    </message>
    <message>
        <source>Not connected. Your first message starts %1.</source>
        <translation>Nicht verbunden. Ihre erste Nachricht startet %1.</translation>
    </message>
    <message>
        <source>Not connected. Restart %1, and see that Kest’s add-on is switched on.</source>
        <translation>Nicht verbunden. Bitte %1 neu starten und das Kest-Add-on einschalten.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 does not answer. Restart %1.</source>
        <translation>%1: Das Kest-Add-on antwortet nicht. Bitte %1 neu starten.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>Nicht verbunden.</translation>
    </message>
</context>
<context>
    <name>kest::MainWindowController</name>
    <message>
        <source>The folder of prepared messages does not answer.</source>
        <translation>Der Ordner mit den vorbereiteten Nachrichten antwortet nicht.</translation>
    </message>
    <message>
        <source>The folder of prepared messages is empty.</source>
        <translation>Der Ordner mit den vorbereiteten Nachrichten ist leer.</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mehr anzeigen</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>Weniger anzeigen</translation>
    </message>
    <message>
        <source>There is no recording to send yet.</source>
        <translation>Es gibt noch keine Aufnahme zum Senden.</translation>
    </message>
    <message>
        <source>Finishing the recording…</source>
        <translation>Aufnahme wird fertiggestellt…</translation>
    </message>
    <message>
        <source>The recording is still being finished. Please try again.</source>
        <translation>Die Aufnahme wird noch fertiggestellt. Bitte erneut versuchen.</translation>
    </message>
    <message>
        <source>The mail application cannot be reached</source>
        <translation>Das Mailprogramm ist nicht erreichbar</translation>
    </message>
    <message>
        <source>Waiting for the mail application…</source>
        <translation>Warten auf das Mailprogramm…</translation>
    </message>
    <message>
        <source>Ready to record</source>
        <translation>Bereit zur Aufnahme</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme läuft</translation>
    </message>
    <message>
        <source>“%1” is ready to send</source>
        <translation>„%1“ ist bereit zum Senden</translation>
    </message>
    <message>
        <source>Recorded, ready to send</source>
        <translation>Aufgenommen, bereit zum Senden</translation>
    </message>
    <message>
        <source>Directory not found</source>
        <translation>Ordner nicht gefunden</translation>
    </message>
    <message>
        <source>You need to go into Preferences and choose the directory recordings should be saved to.</source>
        <translation>Bitte öffnen Sie die Einstellungen und wählen Sie den Ordner aus, in dem Aufnahmen gespeichert werden sollen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Go on recording</source>
        <translation>Weiter aufnehmen</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Die Aufnahme anhalten</translation>
    </message>
    <message>
        <source>The reply could not be made. Please try again.</source>
        <translation>Die Antwort konnte nicht erstellt werden. Bitte erneut versuchen.</translation>
    </message>
    <message>
        <source>There was no recording to attach.</source>
        <translation>Es gab keine Aufnahme zum Anhängen.</translation>
    </message>
</context>
<context>
    <name>kest::MessagePreview</name>
    <message>
        <source>Text of the Message</source>
        <translation>Text der Nachricht</translation>
    </message>
</context>
<context>
    <name>kest::MicrophoneTrialView</name>
    <message>
        <source>Press the button and speak. Nothing is recorded.</source>
        <translation>Knopf drücken und sprechen. Aufgenommen wird nichts.</translation>
    </message>
    <message>
        <source>Nothing heard yet. Say something.</source>
        <translation>Noch ist nichts zu hören. Sagen Sie etwas.</translation>
    </message>
    <message>
        <source>You are heard.</source>
        <translation>Sie sind zu hören.</translation>
    </message>
    <message>
        <source>You were heard.</source>
        <translation>Sie waren zu hören.</translation>
    </message>
    <message>
        <source>Nothing was heard. Is the microphone muted?</source>
        <translation>Nichts war zu hören. Ist das Mikrofon stumm?</translation>
    </message>
    <message>
        <source>Microphone Name</source>
        <translation>Name des Mikrofons</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>Eingangspegel</translation>
    </message>
    <message>
        <source>No microphone was found. Plug one in and try again.</source>
        <translation>Kein Mikrofon gefunden. Schließen Sie eines an und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The microphone went away. Plug it in and try again.</source>
        <translation>Das Mikrofon ist weg. Schließen Sie es an und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>No sound server answers. Try again in a moment.</source>
        <translation>Kein Sound-Server antwortet. Versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. Try again, or choose another one.</source>
        <translation>Das Mikrofon liefert keinen Ton. Versuchen Sie es noch einmal oder wählen Sie ein anderes.</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Kein Mikrofon gefunden</translation>
    </message>
    <message>
        <source>Stop Listening</source>
        <translation>Nicht mehr zuhören</translation>
    </message>
    <message>
        <source>Try the Microphone</source>
        <translation>Mikrofon ausprobieren</translation>
    </message>
    <message>
        <source>Close the microphone</source>
        <translation>Das Mikrofon schließen</translation>
    </message>
    <message>
        <source>Open the microphone and show its level</source>
        <translation>Das Mikrofon öffnen und seinen Pegel zeigen</translation>
    </message>
</context>
<context>
    <name>kest::PlaybackWording</name>
    <message>
        <source>The file is not there any more.</source>
        <translation>Die Datei ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The file cannot be read as sound.</source>
        <translation>Die Datei ist als Ton nicht lesbar.</translation>
    </message>
    <message>
        <source>The sound decoder is missing.</source>
        <translation>Der Audio-Decoder fehlt.</translation>
    </message>
    <message>
        <source>No sound server answers.</source>
        <translation>Kein Audioserver antwortet.</translation>
    </message>
    <message>
        <source>No loudspeaker was found.</source>
        <translation>Kein Lautsprecher gefunden.</translation>
    </message>
    <message>
        <source>The loudspeaker went away.</source>
        <translation>Der Lautsprecher ist weg.</translation>
    </message>
    <message>
        <source>The sound server ended.</source>
        <translation>Der Audioserver wurde beendet.</translation>
    </message>
    <message>
        <source>The sound server takes no sound.</source>
        <translation>Der Audioserver nimmt keinen Ton an.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>kest::PreferencesWindowController</name>
    <message>
        <source>Asking your mail application…</source>
        <translation>Ihr Mailprogramm wird gefragt…</translation>
    </message>
    <message>
        <source>Waiting for your mail application…</source>
        <translation>Warten auf Ihr Mailprogramm…</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>Konto auswählen</translation>
    </message>
    <message>
        <source>Your mail application has no account that can send.</source>
        <translation>Ihr Mailprogramm hat kein Konto, das senden kann.</translation>
    </message>
    <message>
        <source>Until you choose, your mail application’s default account is used.</source>
        <translation>Bis Sie wählen, wird das Standardkonto Ihres Mailprogramms verwendet.</translation>
    </message>
    <message>
        <source>“%1” is not there now, so the default account is used.</source>
        <translation>„%1“ ist gerade nicht da, deshalb wird das Standardkonto verwendet.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>That folder cannot be used. The old one stays.</source>
        <translation>Dieser Ordner ist nicht verwendbar. Der alte bleibt.</translation>
    </message>
    <message>
        <source>Kest may not write to that folder.</source>
        <translation>Kest darf in diesen Ordner nicht schreiben.</translation>
    </message>
    <message>
        <source>Nothing here can show that folder.</source>
        <translation>Kein Programm kann diesen Ordner anzeigen.</translation>
    </message>
    <message>
        <source>sender’s name</source>
        <translation>Name des Absenders</translation>
    </message>
    <message>
        <source>Preview of a reply</source>
        <translation>Vorschau einer Antwort</translation>
    </message>
    <message>
        <source>Preview of a new message</source>
        <translation>Vorschau einer neuen Nachricht</translation>
    </message>
    <message>
        <source>Re: the subject of the message</source>
        <translation>Re: Betreff der Nachricht</translation>
    </message>
</context>
<context>
    <name>kest::StatusItem</name>
    <message>
        <source>Show Kest</source>
        <translation>Kest anzeigen</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>Quit Kest</source>
        <translation>Kest beenden</translation>
    </message>
    <message>
        <source>Kest – paused</source>
        <translation>Kest – angehalten</translation>
    </message>
    <message>
        <source>Kest – recording</source>
        <translation>Kest – nimmt auf</translation>
    </message>
    <message>
        <source>Kest</source>
        <translation>Kest</translation>
    </message>
</context>
<context>
    <name>kest::Wording</name>
    <message>
        <source>No sound server answers, so nothing is recorded.</source>
        <translation>Kein Audioserver antwortet; nichts wird aufgenommen.</translation>
    </message>
    <message>
        <source>No microphone was found, so nothing is recorded.</source>
        <translation>Kein Mikrofon gefunden; nichts wird aufgenommen.</translation>
    </message>
    <message>
        <source>The microphone went away. The recording is kept.</source>
        <translation>Das Mikrofon ist weg. Die Aufnahme bleibt erhalten.</translation>
    </message>
    <message>
        <source>The sound server ended. The recording is kept.</source>
        <translation>Der Audioserver endete. Die Aufnahme bleibt erhalten.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. What it gave is kept.</source>
        <translation>Das Mikrofon liefert keinen Ton. Das Bisherige bleibt.</translation>
    </message>
    <message>
        <source>The disk is full. The recording so far is kept.</source>
        <translation>Der Datenträger ist voll. Das Bisherige bleibt erhalten.</translation>
    </message>
    <message>
        <source>Writing failed. What was recorded before is kept.</source>
        <translation>Schreiben fehlgeschlagen. Das Bisherige bleibt erhalten.</translation>
    </message>
    <message>
        <source>The sound encoder is missing, so nothing is recorded.</source>
        <translation>Der Audio-Encoder fehlt; nichts wird aufgenommen.</translation>
    </message>
    <message>
        <source>The microphone went away, so nothing is recorded.</source>
        <translation>Das Mikrofon ist weg; nichts wurde aufgenommen.</translation>
    </message>
    <message>
        <source>The sound server ended, so nothing is recorded.</source>
        <translation>Der Audioserver endete; nichts wurde aufgenommen.</translation>
    </message>
    <message>
        <source>The microphone gives no sound; nothing is recorded.</source>
        <translation>Das Mikrofon liefert keinen Ton; nichts wird aufgenommen.</translation>
    </message>
    <message>
        <source>The disk is full, so nothing is recorded.</source>
        <translation>Der Datenträger ist voll; nichts wird aufgenommen.</translation>
    </message>
    <message>
        <source>The recording could not be written.</source>
        <translation>Die Aufnahme konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>No sound. Is the microphone muted?</source>
        <translation>Kein Ton. Ist das Mikrofon stumm?</translation>
    </message>
    <message>
        <source>No sound. Is “%1” muted?</source>
        <translation>Kein Ton. Ist „%1“ stumm?</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn the microphone down.</source>
        <translation>Zu laut. Mehr Abstand, oder Mikrofon leiser stellen.</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn down “%1”.</source>
        <translation>Zu laut. Mehr Abstand, oder „%1“ leiser stellen.</translation>
    </message>
    <message>
        <source>Nothing was heard in this recording.</source>
        <translation>In dieser Aufnahme war nichts zu hören.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers stop at 18 MB.</source>
        <translation>Schon %1. Viele Mailserver nehmen höchstens 18 MB.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers take no more.</source>
        <translation>Schon %1. Viele Mailserver nehmen nicht mehr an.</translation>
    </message>
    <message>
        <source>Handing over: %1 of %2</source>
        <translation>Übergabe: %1 von %2</translation>
    </message>
    <message>
        <source>Nothing was recorded: it was stopped before the first sound.</source>
        <translation>Nichts wurde aufgenommen: Vor dem ersten Ton wurde angehalten.</translation>
    </message>
</context>
</TS>
