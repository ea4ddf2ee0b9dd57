<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>DBusMailConnection</name>
    <message>
        <source>Quit %1 first, then install the add-on.</source>
        <translation>Quittez d’abord %1, puis installez le module.</translation>
    </message>
    <message>
        <source>The add-on could not be installed.</source>
        <translation>Le module n’a pas pu être installé.</translation>
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
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Record a message</source>
        <translation>Enregistrer un message</translation>
    </message>
    <message>
        <source>Recording Time</source>
        <translation>Durée de l’enregistrement</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Mettre l’enregistrement en pause</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stop and keep the recording</source>
        <translation>Arrêter et garder l’enregistrement</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>Niveau d’entrée</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Input Device</source>
        <translation>Périphérique d’entrée</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>Nouveau message</translation>
    </message>
    <message>
        <source>Put the recording into a new message</source>
        <translation>Joindre l’enregistrement à un nouveau message</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Répondre</translation>
    </message>
    <message>
        <source>Answer the selected message with the recording</source>
        <translation>Répondre au message sélectionné avec l’enregistrement</translation>
    </message>
    <message>
        <source>Reply All</source>
        <translation>Répondre à tous</translation>
    </message>
    <message>
        <source>Answer the selected message, to everyone</source>
        <translation>Répondre au message sélectionné, à tous</translation>
    </message>
    <message>
        <source>Optional Message</source>
        <translation>Message préparé</translation>
    </message>
    <message>
        <source>Send a prepared message instead of the recording</source>
        <translation>Envoyer un message préparé au lieu de l’enregistrement</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Afficher plus</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>Afficher plus</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>Dernier enregistrement</translation>
    </message>
    <message>
        <source>Last Recording</source>
        <translation>Dernier enregistrement</translation>
    </message>
    <message>
        <source>Length and Size</source>
        <translation>Durée et taille</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Ouvrir le dossier</translation>
    </message>
    <message>
        <source>Show the last recording in its folder</source>
        <translation>Afficher le dernier enregistrement dans son dossier</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>Courrier</translation>
    </message>
    <message>
        <source>Discard Recording</source>
        <translation>Supprimer l’enregistrement</translation>
    </message>
    <message>
        <source>Move the last recording to the trash</source>
        <translation>Mettre le dernier enregistrement à la corbeille</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>Lire l’enregistrement</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Playing Time</source>
        <translation>Temps de lecture</translation>
    </message>
    <message>
        <source>Undo Discard</source>
        <translation>Annuler la suppression</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Take the recording out of the trash again</source>
        <translation>Reprendre l’enregistrement dans la corbeille</translation>
    </message>
    <message>
        <source>Listening Notice</source>
        <translation>Information d’écoute</translation>
    </message>
</context>
<context>
    <name>PrefsSheet</name>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Sujet :</translation>
    </message>
    <message>
        <source>&amp;Subject</source>
        <translation>&amp;Sujet</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Sujet</translation>
    </message>
    <message>
        <source>&amp;Message text</source>
        <translation>Texte du &amp;message</translation>
    </message>
    <message>
        <source>Message Text</source>
        <translation>Texte du message</translation>
    </message>
    <message>
        <source>Include the &amp;tagline, in replies too</source>
        <translation>Ajouter la &amp;ligne de fin, aux réponses aussi</translation>
    </message>
    <message>
        <source>Include Tagline</source>
        <translation>Ajouter la ligne de fin</translation>
    </message>
    <message>
        <source>A last line that says how the message was made</source>
        <translation>Une dernière ligne qui dit comment le message a été fait</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>Réponses</translation>
    </message>
    <message>
        <source>&amp;Reply text</source>
        <translation>Texte de la &amp;réponse</translation>
    </message>
    <message>
        <source>Reply Text</source>
        <translation>Texte de la réponse</translation>
    </message>
    <message>
        <source>Add the sender’s &amp;name to the recording’s file name</source>
        <translation>Ajouter le &amp;nom de l’expéditeur au nom du fichier</translation>
    </message>
    <message>
        <source>Include Sender&apos;s Name</source>
        <translation>Ajouter le nom de l’expéditeur</translation>
    </message>
    <message>
        <source>Send replies at &amp;once</source>
        <translation>Envoyer les réponses &amp;immédiatement</translation>
    </message>
    <message>
        <source>Send Replies at Once</source>
        <translation>Envoyer les réponses immédiatement</translation>
    </message>
    <message>
        <source>Otherwise a reply opens in your mail application for you to look over</source>
        <translation>Sinon, la réponse s’ouvre dans votre messagerie pour que vous la relisiez</translation>
    </message>
    <message>
        <source>&amp;Delete the message that I answered</source>
        <translation>Supprimer le message &amp;auquel j’ai répondu</translation>
    </message>
    <message>
        <source>Delete Original</source>
        <translation>Supprimer l’original</translation>
    </message>
    <message>
        <source>It goes where your mail application puts deleted messages</source>
        <translation>Il va là où votre messagerie met les messages supprimés</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Compte</translation>
    </message>
    <message>
        <source>Sending &amp;account</source>
        <translation>&amp;Compte d’envoi</translation>
    </message>
    <message>
        <source>Sending Account</source>
        <translation>Compte d’envoi</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>Choisissez un compte</translation>
    </message>
    <message>
        <source>List Accounts</source>
        <translation>Lister les comptes</translation>
    </message>
    <message>
        <source>Start your mail application and ask for its accounts</source>
        <translation>Démarrer votre messagerie et lui demander ses comptes</translation>
    </message>
    <message>
        <source>Mail &amp;back end</source>
        <translation>Mod&amp;e d’envoi</translation>
    </message>
    <message>
        <source>Mail Back End</source>
        <translation>Mode d’envoi</translation>
    </message>
    <message>
        <source>Direct – your mail application picks the account</source>
        <translation>Direct – votre messagerie choisit le compte</translation>
    </message>
    <message>
        <source>Script – sends from the account above</source>
        <translation>Script – envoie depuis le compte ci-dessus</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
    </message>
    <message>
        <source>Recordings &amp;folder</source>
        <translation>&amp;Dossier des enregistrements</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>Dossier des enregistrements</translation>
    </message>
    <message>
        <source>Not found – please choose one</source>
        <translation>Introuvable – veuillez en choisir un</translation>
    </message>
    <message>
        <source>Choose Recordings Folder</source>
        <translation>Choisir le dossier des enregistrements</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>Choose another folder</source>
        <translation>Choisir un autre dossier</translation>
    </message>
    <message>
        <source>Reveal Recordings Folder</source>
        <translation>Afficher le dossier des enregistrements</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>Show it in the file browser</source>
        <translation>L’afficher dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>O&amp;ptional messages folder</source>
        <translation>Dossier des messages &amp;préparés</translation>
    </message>
    <message>
        <source>Optional Messages Folder</source>
        <translation>Dossier des messages préparés</translation>
    </message>
    <message>
        <source>Choose Optional Messages Folder</source>
        <translation>Choisir le dossier des messages préparés</translation>
    </message>
    <message>
        <source>Reveal Optional Messages Folder</source>
        <translation>Afficher le dossier des messages préparés</translation>
    </message>
    <message>
        <source>Clean-up</source>
        <translation>Nettoyage</translation>
    </message>
    <message>
        <source>Remove recordin&amp;gs</source>
        <translation>Supprimer les enre&amp;gistrements</translation>
    </message>
    <message>
        <source>Remove Recordings</source>
        <translation>Supprimer les enregistrements</translation>
    </message>
    <message>
        <source>All, whenever Kest quits</source>
        <translation>Tous, chaque fois que Kest se ferme</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Jamais</translation>
    </message>
    <message>
        <source>After one day, when Kest quits</source>
        <translation>Après un jour, à la fermeture de Kest</translation>
    </message>
    <message>
        <source>After seven days, when Kest quits</source>
        <translation>Après sept jours, à la fermeture de Kest</translation>
    </message>
    <message>
        <source>After 30 days, when Kest quits</source>
        <translation>Après 30 jours, à la fermeture de Kest</translation>
    </message>
    <message>
        <source>Move them to the tras&amp;h</source>
        <translation>Les mettre à la cor&amp;beille</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mettre à la corbeille</translation>
    </message>
    <message>
        <source>Otherwise they are deleted for good</source>
        <translation>Sinon, ils sont supprimés définitivement</translation>
    </message>
    <message>
        <source>Preferences Notice</source>
        <translation>Information des préférences</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
</context>
<context>
    <name>PulseRecorder</name>
    <message>
        <source>The recording cannot be made.</source>
        <translation>L’enregistrement ne peut pas être fait.</translation>
    </message>
    <message>
        <source>This format is not served.</source>
        <translation>Ce format n’est pas pris en charge.</translation>
    </message>
</context>
<context>
    <name>WelcomeSheet</name>
    <message>
        <source>Welcome to Kest</source>
        <translation>Bienvenue dans Kest</translation>
    </message>
    <message>
        <source>Speak, stop, and one click makes a mail of it.
If you like, see first that all is ready.</source>
        <translation>Parlez, arrêtez, et un clic en fait un e-mail.
Si vous voulez, vérifiez d’abord que tout est prêt.</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Microphone</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>Courrier</translation>
    </message>
    <message>
        <source>Both checks can be skipped.</source>
        <translation>Vous pouvez passer ces deux étapes.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Commencer</translation>
    </message>
    <message>
        <source>Go to the window to record in</source>
        <translation>Aller à la fenêtre d’enregistrement</translation>
    </message>
</context>
<context>
    <name>kest</name>
    <message>
        <source>Stored recordings folder is missing or has been moved. You need to choose it again.</source>
        <translation>Le dossier des enregistrements mémorisé est absent ou a été déplacé. Vous devez le choisir de nouveau.</translation>
    </message>
    <message>
        <source>Stored recordings folder is missing</source>
        <translation>Le dossier des enregistrements mémorisé est absent</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved. You need to choose it again.</source>
        <translation>Le dossier des enregistrements mémorisé n’a pas pu être retrouvé. Vous devez le choisir de nouveau.</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved</source>
        <translation>Le dossier des enregistrements mémorisé n’a pas pu être retrouvé</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing or has been moved. You need to choose it again.</source>
        <translation>Le dossier des messages préparés mémorisé est absent ou a été déplacé. Vous devez le choisir de nouveau.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing</source>
        <translation>Le dossier des messages préparés mémorisé est absent</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved. You need to choose it again.</source>
        <translation>Le dossier des messages préparés mémorisé n’a pas pu être retrouvé. Vous devez le choisir de nouveau.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved</source>
        <translation>Le dossier des messages préparés mémorisé n’a pas pu être retrouvé</translation>
    </message>
    <message>
        <source>Spoken, not typed. Recorded with Kest.</source>
        <translation>Parlé, pas tapé. Enregistré avec Kest.</translation>
    </message>
    <message>
        <source>Sent in one click with Kest.</source>
        <translation>Envoyé en un clic avec Kest.</translation>
    </message>
    <message>
        <source>Your settings could not be saved (%1). They hold until you quit.</source>
        <translation>Vos réglages n’ont pas pu être enregistrés (%1). Ils valent jusqu’à la fermeture.</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). Kest uses its defaults until you quit.</source>
        <translation>Vos réglages n’ont pas pu être lus (%1). Kest utilise ses valeurs par défaut jusqu’à la fermeture.</translation>
    </message>
    <message>
        <source>The settings file was damaged. Kest uses its defaults until you quit.</source>
        <translation>Le fichier de réglages était endommagé. Kest utilise ses valeurs par défaut jusqu’à la fermeture.</translation>
    </message>
    <message>
        <source>The settings file was damaged and was put aside as “%1”. Kest starts with its defaults.</source>
        <translation>Le fichier de réglages était endommagé et a été mis de côté sous le nom « %1 ». Kest démarre avec ses valeurs par défaut.</translation>
    </message>
    <message>
        <source>--:--</source>
        <translation>--:--</translation>
    </message>
    <message>
        <source>The mail script could not be loaded.</source>
        <translation>Le script de messagerie n’a pas pu être chargé.</translation>
    </message>
    <message>
        <source>The mail script lacks the operation %1.</source>
        <translation>L’opération %1 manque dans le script de messagerie.</translation>
    </message>
    <message>
        <source>The mail script failed.</source>
        <translation>Le script de messagerie a échoué.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No accounts were detected in Mail. You must have at least one account configured in order to create messages or reply to messages. Please ensure that you have an account configured, and try again.</source>
        <translation>Aucun compte n’a été trouvé dans la messagerie. Au moins un compte doit être configuré pour créer des messages ou y répondre. Vérifiez qu’un compte est configuré, puis réessayez.</translation>
    </message>
    <message>
        <source>No messages appear to be selected in Mail. Please select a message and try again.</source>
        <translation>Aucun message ne semble sélectionné dans la messagerie. Sélectionnez un message, puis réessayez.</translation>
    </message>
    <message>
        <source>Unable to Proceed</source>
        <translation>Impossible de continuer</translation>
    </message>
    <message>
        <source>it is too large for a message&apos;s text</source>
        <translation>il est trop grand pour le texte d’un message</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>Le message n’est plus là.</translation>
    </message>
    <message>
        <source>The mail application did not understand the request.</source>
        <translation>La messagerie n’a pas compris la demande.</translation>
    </message>
    <message>
        <source>Kest&apos;s add-on in the mail application does not answer. Check that it is installed and switched on, and try again.</source>
        <translation>Le module de Kest dans la messagerie ne répond pas. Vérifiez qu’il est installé et activé, puis réessayez.</translation>
    </message>
    <message>
        <source>Kest and its add-on in the mail application are of different versions. Install the add-on that belongs to this version of Kest, and try again.</source>
        <translation>Kest et son module dans la messagerie sont de versions différentes. Installez le module qui correspond à cette version de Kest, puis réessayez.</translation>
    </message>
    <message>
        <source>The mail application did not answer in time.</source>
        <translation>La messagerie n’a pas répondu à temps.</translation>
    </message>
    <message>
        <source>The mail application cannot do this.</source>
        <translation>La messagerie ne sait pas faire cela.</translation>
    </message>
    <message>
        <source>The mail application could not do this.</source>
        <translation>La messagerie n’a pas pu le faire.</translation>
    </message>
    <message>
        <source>The mail application is still busy with the last request.</source>
        <translation>La messagerie est encore occupée par la demande précédente.</translation>
    </message>
    <message>
        <source>Kest cannot reach the mail application, because there is no session bus.</source>
        <translation>Kest ne peut pas joindre la messagerie, car il n’y a pas de bus de session.</translation>
    </message>
    <message>
        <source>No mail application could be started. Install Thunderbird and Kest&apos;s add-on for it, and try again.</source>
        <translation>Aucune messagerie n’a pu être démarrée. Installez Thunderbird et le module de Kest, puis réessayez.</translation>
    </message>
    <message>
        <source>The mail application does not answer Kest. Install Kest&apos;s add-on in it, and try again.</source>
        <translation>La messagerie ne répond pas à Kest. Installez-y le module de Kest, puis réessayez.</translation>
    </message>
    <message>
        <source>The mail application went away before it was done.</source>
        <translation>La messagerie s’est fermée avant d’avoir fini.</translation>
    </message>
    <message>
        <source>The mail application&apos;s answer makes no sense to Kest.</source>
        <translation>Kest ne comprend pas la réponse de la messagerie.</translation>
    </message>
    <message>
        <source>Kest is ending.</source>
        <translation>Kest se ferme.</translation>
    </message>
    <message>
        <source>No mail application is connected.</source>
        <translation>Aucune messagerie n’est connectée.</translation>
    </message>
    <message>
        <source>The file “%1” cannot be attached</source>
        <translation>Le fichier « %1 » ne peut pas être joint</translation>
    </message>
    <message>
        <source>No optional outgoing messages folder set</source>
        <translation>Aucun dossier de messages préparés</translation>
    </message>
    <message>
        <source>“%1” did not arrive whole.</source>
        <translation>« %1 » n’est pas arrivé en entier.</translation>
    </message>
    <message>
        <source>Thunderbird did not attach “%1”.</source>
        <translation>Thunderbird n’a pas joint « %1 ».</translation>
    </message>
    <message>
        <source>Thunderbird has no account that can send mail.</source>
        <translation>Thunderbird n’a aucun compte qui puisse envoyer du courrier.</translation>
    </message>
    <message>
        <source>The message was closed before it was sent.</source>
        <translation>Le message a été fermé avant d’être envoyé.</translation>
    </message>
    <message>
        <source>The message has no recipient.</source>
        <translation>Le message n’a pas de destinataire.</translation>
    </message>
    <message>
        <source>Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete.</source>
        <translation>Thunderbird ne propose pas d’envoyer ce message : il est peut-être hors connexion, ou une adresse est incomplète.</translation>
    </message>
    <message>
        <source>Thunderbird could not send the message; it is still open there.</source>
        <translation>Thunderbird n’a pas pu envoyer le message ; il y est encore ouvert.</translation>
    </message>
    <message>
        <source>Thunderbird has no window to show.</source>
        <translation>Thunderbird n’a aucune fenêtre à afficher.</translation>
    </message>
    <message>
        <source>Thunderbird says: %1</source>
        <translation>Thunderbird signale : %1</translation>
    </message>
    <message>
        <source>%1 is busy with other requests.</source>
        <translation>%1 est occupé par d’autres demandes.</translation>
    </message>
    <message>
        <source>An attachment is not a regular file that can be read.</source>
        <translation>Une pièce jointe n’est pas un fichier ordinaire lisible.</translation>
    </message>
    <message>
        <source>The attachments are larger than 2 GiB together, more than a mail can carry.</source>
        <translation>Les pièces jointes dépassent ensemble 2 Gio, plus qu’un message ne peut en transporter.</translation>
    </message>
    <message>
        <source>An attachment cannot be read: %1.</source>
        <translation>Une pièce jointe ne peut pas être lue : %1.</translation>
    </message>
    <message>
        <source>The add-on gave an answer that makes no sense.</source>
        <translation>Le module complémentaire a donné une réponse qui n’a pas de sens.</translation>
    </message>
    <message>
        <source>Only Kest may do this, and the caller is not the Kest that runs.</source>
        <translation>Seul Kest peut faire cela, et l’appelant n’est pas le Kest en cours d’exécution.</translation>
    </message>
    <message>
        <source>The part of Kest that prepares mail could not be loaded. Please install Kest again.</source>
        <translation>La partie de Kest qui prépare le courrier n’a pas pu être chargée. Veuillez réinstaller Kest.</translation>
    </message>
    <message>
        <source>The answer is too long to be passed on.</source>
        <translation>La réponse est trop longue pour être transmise.</translation>
    </message>
    <message>
        <source>The reply was sent, but the original could not be deleted: %1</source>
        <translation>La réponse a été envoyée, mais l’original n’a pas pu être supprimé : %1</translation>
    </message>
    <message>
        <source>The reply is there, but the original could not be deleted: %1</source>
        <translation>La réponse est là, mais l’original n’a pas pu être supprimé : %1</translation>
    </message>
    <message>
        <source>This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.</source>
        <translation>Cette réponse doit être chiffrée, et « Direct » ne le peut pas. Choisissez « Script » comme mode d’envoi dans les préférences.</translation>
    </message>
    <message>
        <source>The message may be there or be sent all the same. Look in the mail application before you try again.</source>
        <translation>Le message est peut-être là malgré tout, ou sera envoyé. Vérifiez dans la messagerie avant de réessayer.</translation>
    </message>
</context>
<context>
    <name>kest::AppDelegate</name>
    <message>
        <source>A message is being recorded</source>
        <translation>Un message est en cours d’enregistrement</translation>
    </message>
    <message>
        <source>Kest’s recording is paused</source>
        <translation>L’enregistrement de Kest est en pause</translation>
    </message>
    <message>
        <source>Kest is still recording</source>
        <translation>Kest enregistre toujours</translation>
    </message>
    <message>
        <source>Its window comes back when you turn to your mail, or start Kest again.</source>
        <translation>Sa fenêtre revient quand vous passez à votre messagerie ou relancez Kest.</translation>
    </message>
    <message>
        <source>Kest’s recording has ended</source>
        <translation>L’enregistrement de Kest est terminé</translation>
    </message>
    <message>
        <source>Kest’s window comes back when you turn to your mail, or start Kest again.</source>
        <translation>La fenêtre de Kest revient quand vous passez à votre messagerie ou relancez Kest.</translation>
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
        <translation>Utilisé dans un message</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>Dernier enregistrement</translation>
    </message>
    <message>
        <source>This recording</source>
        <translation>Cet enregistrement</translation>
    </message>
    <message>
        <source>Moved to the trash</source>
        <translation>Mis à la corbeille</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Aucun pour l’instant</translation>
    </message>
    <message>
        <source>Drag it into another window</source>
        <translation>Faites-le glisser dans une autre fenêtre</translation>
    </message>
    <message>
        <source>Being recorded</source>
        <translation>En cours</translation>
    </message>
    <message>
        <source>Pause Playing</source>
        <translation>Suspendre la lecture</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Pause playing</source>
        <translation>Suspendre la lecture</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>Lire l’enregistrement</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>Mise à la corbeille impossible.</translation>
    </message>
    <message>
        <source>It could not be taken out of the trash.</source>
        <translation>Reprise dans la corbeille impossible.</translation>
    </message>
</context>
<context>
    <name>kest::MailStateView</name>
    <message>
        <source>Install Add-on</source>
        <translation>Installer</translation>
    </message>
    <message>
        <source>Put Kest’s add-on into your Thunderbird profile</source>
        <translation>Mettre le module de Kest dans votre profil Thunderbird</translation>
    </message>
    <message>
        <source>The add-on is installed.</source>
        <translation>Le module est installé.</translation>
    </message>
</context>
<context>
    <name>kest::MailWords</name>
    <message>
        <source>your mail application</source>
        <translation>votre messagerie</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Connecté à %1.</translation>
    </message>
    <message>
        <source>Connected to %1 as %2.</source>
        <translation>Connecté à %1 en tant que %2.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1. Help says how to get it.</source>
        <translation>Le module de Kest manque dans %1. L’aide dit comment l’obtenir.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing. Quit %1 to install it.</source>
        <translation>Le module de Kest manque. Quittez %1 pour l’installer.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1.</source>
        <translation>Le module de Kest manque dans %1.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is of another version. Restart %1.</source>
        <translation>Le module de Kest dans %1 est d’une autre version. Redémarrez %1.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is version %2, this is %3. Restart %1.</source>
        <translation>Le module de Kest dans %1 est en version %2, ici %3. Redémarrez %1.</translation>
    </message>
    <message>
        <source>No mail application was found. Kest needs Thunderbird.</source>
        <translation>Aucune messagerie trouvée. Kest a besoin de Thunderbird.</translation>
    </message>
    <message>
        <source>Kest cannot talk to %1 yet. It needs Thunderbird.</source>
        <translation>Kest ne sait pas encore parler à %1. Il faut Thunderbird.</translation>
    </message>
    <message>
        <source>Not connected. Your first message starts %1.</source>
        <translation>Non connecté. Votre premier message démarre %1.</translation>
    </message>
    <message>
        <source>Not connected. Restart %1, and see that Kest’s add-on is switched on.</source>
        <translation>Non connecté. Redémarrez %1 et activez le module de Kest.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 does not answer. Restart %1.</source>
        <translation>Le module de Kest dans %1 ne répond pas. Redémarrez %1.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>Non connecté.</translation>
    </message>
</context>
<context>
    <name>kest::MainWindowController</name>
    <message>
        <source>The folder of prepared messages does not answer.</source>
        <translation>Le dossier des messages préparés ne répond pas.</translation>
    </message>
    <message>
        <source>The folder of prepared messages is empty.</source>
        <translation>Le dossier des messages préparés est vide.</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Afficher plus</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>Afficher moins</translation>
    </message>
    <message>
        <source>There is no recording to send yet.</source>
        <translation>Il n’y a pas encore d’enregistrement à envoyer.</translation>
    </message>
    <message>
        <source>Finishing the recording…</source>
        <translation>Finalisation de l’enregistrement…</translation>
    </message>
    <message>
        <source>The recording is still being finished. Please try again.</source>
        <translation>L’enregistrement n’est pas encore prêt. Veuillez réessayer.</translation>
    </message>
    <message>
        <source>The mail application cannot be reached</source>
        <translation>La messagerie est injoignable</translation>
    </message>
    <message>
        <source>Waiting for the mail application…</source>
        <translation>En attente de la messagerie…</translation>
    </message>
    <message>
        <source>Ready to record</source>
        <translation>Prêt à enregistrer</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement en cours</translation>
    </message>
    <message>
        <source>“%1” is ready to send</source>
        <translation>« %1 » est prêt à être envoyé</translation>
    </message>
    <message>
        <source>Recorded, ready to send</source>
        <translation>Enregistré, prêt à être envoyé</translation>
    </message>
    <message>
        <source>Directory not found</source>
        <translation>Dossier introuvable</translation>
    </message>
    <message>
        <source>You need to go into Preferences and choose the directory recordings should be saved to.</source>
        <translation>Ouvrez les préférences et choisissez le dossier où les enregistrements doivent être sauvegardés.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reprendre</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Go on recording</source>
        <translation>Continuer l’enregistrement</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Mettre l’enregistrement en pause</translation>
    </message>
    <message>
        <source>The reply could not be made. Please try again.</source>
        <translation>La réponse n’a pas pu être créée. Veuillez réessayer.</translation>
    </message>
    <message>
        <source>There was no recording to attach.</source>
        <translation>Il n’y avait pas d’enregistrement à joindre.</translation>
    </message>
</context>
<context>
    <name>kest::MessagePreview</name>
    <message>
        <source>Text of the Message</source>
        <translation>Texte du message</translation>
    </message>
</context>
<context>
    <name>kest::MicrophoneTrialView</name>
    <message>
        <source>Press the button and speak. Nothing is recorded.</source>
        <translation>Appuyez sur le bouton et parlez. Rien n’est enregistré.</translation>
    </message>
    <message>
        <source>Nothing heard yet. Say something.</source>
        <translation>On n’entend rien pour l’instant. Dites quelque chose.</translation>
    </message>
    <message>
        <source>You are heard.</source>
        <translation>On vous entend.</translation>
    </message>
    <message>
        <source>You were heard.</source>
        <translation>On vous a entendu.</translation>
    </message>
    <message>
        <source>Nothing was heard. Is the microphone muted?</source>
        <translation>On n’a rien entendu. Le microphone est-il coupé ?</translation>
    </message>
    <message>
        <source>Microphone Name</source>
        <translation>Nom du microphone</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>Niveau d’entrée</translation>
    </message>
    <message>
        <source>No microphone was found. Plug one in and try again.</source>
        <translation>Aucun microphone trouvé. Branchez-en un et réessayez.</translation>
    </message>
    <message>
        <source>The microphone went away. Plug it in and try again.</source>
        <translation>Le microphone a disparu. Branchez-le et réessayez.</translation>
    </message>
    <message>
        <source>No sound server answers. Try again in a moment.</source>
        <translation>Aucun serveur de son ne répond. Réessayez dans un instant.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. Try again, or choose another one.</source>
        <translation>Le microphone ne donne aucun son. Réessayez, ou choisissez-en un autre.</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Aucun microphone</translation>
    </message>
    <message>
        <source>Stop Listening</source>
        <translation>Ne plus écouter</translation>
    </message>
    <message>
        <source>Try the Microphone</source>
        <translation>Essayer le microphone</translation>
    </message>
    <message>
        <source>Close the microphone</source>
        <translation>Fermer le microphone</translation>
    </message>
    <message>
        <source>Open the microphone and show its level</source>
        <translation>Ouvrir le microphone et montrer son niveau</translation>
    </message>
</context>
<context>
    <name>kest::PlaybackWording</name>
    <message>
        <source>The file is not there any more.</source>
        <translation>Le fichier n’est plus là.</translation>
    </message>
    <message>
        <source>The file cannot be read as sound.</source>
        <translation>Le fichier n’est pas lisible comme son.</translation>
    </message>
    <message>
        <source>The sound decoder is missing.</source>
        <translation>Le décodeur audio est absent.</translation>
    </message>
    <message>
        <source>No sound server answers.</source>
        <translation>Aucun serveur audio ne répond.</translation>
    </message>
    <message>
        <source>No loudspeaker was found.</source>
        <translation>Aucun haut-parleur trouvé.</translation>
    </message>
    <message>
        <source>The loudspeaker went away.</source>
        <translation>Le haut-parleur a disparu.</translation>
    </message>
    <message>
        <source>The sound server ended.</source>
        <translation>Le serveur audio s’est arrêté.</translation>
    </message>
    <message>
        <source>The sound server takes no sound.</source>
        <translation>Le serveur audio n’accepte aucun son.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
</context>
<context>
    <name>kest::PreferencesWindowController</name>
    <message>
        <source>Asking your mail application…</source>
        <translation>Interrogation de votre messagerie…</translation>
    </message>
    <message>
        <source>Waiting for your mail application…</source>
        <translation>En attente de votre messagerie…</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>Choisissez un compte</translation>
    </message>
    <message>
        <source>Your mail application has no account that can send.</source>
        <translation>Votre messagerie n’a aucun compte capable d’envoyer.</translation>
    </message>
    <message>
        <source>Until you choose, your mail application’s default account is used.</source>
        <translation>Sans choix de votre part, le compte par défaut de votre messagerie est utilisé.</translation>
    </message>
    <message>
        <source>“%1” is not there now, so the default account is used.</source>
        <translation>« %1 » n’est pas là en ce moment : le compte par défaut est utilisé.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Choisir</translation>
    </message>
    <message>
        <source>That folder cannot be used. The old one stays.</source>
        <translation>Ce dossier ne peut pas être utilisé. L’ancien reste.</translation>
    </message>
    <message>
        <source>Kest may not write to that folder.</source>
        <translation>Kest n’a pas le droit d’écrire dans ce dossier.</translation>
    </message>
    <message>
        <source>Nothing here can show that folder.</source>
        <translation>Aucun programme ne peut afficher ce dossier.</translation>
    </message>
    <message>
        <source>sender’s name</source>
        <translation>nom de l’expéditeur</translation>
    </message>
    <message>
        <source>Preview of a reply</source>
        <translation>Aperçu d’une réponse</translation>
    </message>
    <message>
        <source>Preview of a new message</source>
        <translation>Aperçu d’un nouveau message</translation>
    </message>
    <message>
        <source>Re: the subject of the message</source>
        <translation>Re: sujet du message</translation>
    </message>
</context>
<context>
    <name>kest::StatusItem</name>
    <message>
        <source>Show Kest</source>
        <translation>Afficher Kest</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
    <message>
        <source>Quit Kest</source>
        <translation>Quitter Kest</translation>
    </message>
    <message>
        <source>Kest – paused</source>
        <translation>Kest – en pause</translation>
    </message>
    <message>
        <source>Kest – recording</source>
        <translation>Kest – enregistrement</translation>
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
        <translation>Aucun serveur audio ne répond ; rien n’est enregistré.</translation>
    </message>
    <message>
        <source>No microphone was found, so nothing is recorded.</source>
        <translation>Aucun microphone trouvé ; rien n’est enregistré.</translation>
    </message>
    <message>
        <source>The microphone went away. The recording is kept.</source>
        <translation>Le microphone a disparu. L’enregistrement est gardé.</translation>
    </message>
    <message>
        <source>The sound server ended. The recording is kept.</source>
        <translation>Le serveur audio s’est arrêté. L’enregistrement est gardé.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. What it gave is kept.</source>
        <translation>Le microphone ne donne plus de son. Le reste est gardé.</translation>
    </message>
    <message>
        <source>The disk is full. The recording so far is kept.</source>
        <translation>Le disque est plein. Ce qui est enregistré est gardé.</translation>
    </message>
    <message>
        <source>Writing failed. What was recorded before is kept.</source>
        <translation>Échec de l’écriture. Ce qui précède est gardé.</translation>
    </message>
    <message>
        <source>The sound encoder is missing, so nothing is recorded.</source>
        <translation>L’encodeur audio est absent ; rien n’est enregistré.</translation>
    </message>
    <message>
        <source>The microphone went away, so nothing is recorded.</source>
        <translation>Le microphone a disparu ; rien n’est enregistré.</translation>
    </message>
    <message>
        <source>The sound server ended, so nothing is recorded.</source>
        <translation>Le serveur audio s’est arrêté ; rien n’est enregistré.</translation>
    </message>
    <message>
        <source>The microphone gives no sound; nothing is recorded.</source>
        <translation>Le microphone ne donne aucun son ; rien n’est enregistré.</translation>
    </message>
    <message>
        <source>The disk is full, so nothing is recorded.</source>
        <translation>Le disque est plein ; rien n’est enregistré.</translation>
    </message>
    <message>
        <source>The recording could not be written.</source>
        <translation>L’enregistrement n’a pas pu être écrit.</translation>
    </message>
    <message>
        <source>No sound. Is the microphone muted?</source>
        <translation>Aucun son. Le microphone est-il coupé ?</translation>
    </message>
    <message>
        <source>No sound. Is “%1” muted?</source>
        <translation>Aucun son. « %1 » est-il coupé ?</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn the microphone down.</source>
        <translation>Trop fort. Reculez, ou baissez le microphone.</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn down “%1”.</source>
        <translation>Trop fort. Reculez, ou baissez « %1 ».</translation>
    </message>
    <message>
        <source>Nothing was heard in this recording.</source>
        <translation>Rien n’a été entendu dans cet enregistrement.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers stop at 18 MB.</source>
        <translation>Déjà %1. Beaucoup de serveurs s’arrêtent à 18 Mo.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers take no more.</source>
        <translation>Déjà %1. Beaucoup de serveurs n’acceptent pas plus.</translation>
    </message>
    <message>
        <source>Handing over: %1 of %2</source>
        <translation>Transmission : %1 sur %2</translation>
    </message>
    <message>
        <source>Nothing was recorded: it was stopped before the first sound.</source>
        <translation>Rien n’a été enregistré : arrêt avant le premier son.</translation>
    </message>
</context>
</TS>
