<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>DBusMailConnection</name>
    <message>
        <source>Quit %1 first, then install the add-on.</source>
        <translation>Cierre primero %1 y luego instale el complemento.</translation>
    </message>
    <message>
        <source>The add-on could not be installed.</source>
        <translation>No se pudo instalar el complemento.</translation>
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
        <translation>Grabar</translation>
    </message>
    <message>
        <source>Record a message</source>
        <translation>Grabar un mensaje</translation>
    </message>
    <message>
        <source>Recording Time</source>
        <translation>Tiempo de grabación</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Pausar la grabación</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Stop and keep the recording</source>
        <translation>Detener y conservar la grabación</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Preferencias</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>Nivel de entrada</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>Input Device</source>
        <translation>Dispositivo de entrada</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>Nuevo mensaje</translation>
    </message>
    <message>
        <source>Put the recording into a new message</source>
        <translation>Adjuntar la grabación a un mensaje nuevo</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Responder</translation>
    </message>
    <message>
        <source>Answer the selected message with the recording</source>
        <translation>Responder al mensaje seleccionado con la grabación</translation>
    </message>
    <message>
        <source>Reply All</source>
        <translation>Responder a todos</translation>
    </message>
    <message>
        <source>Answer the selected message, to everyone</source>
        <translation>Responder al mensaje seleccionado, a todos</translation>
    </message>
    <message>
        <source>Optional Message</source>
        <translation>Mensaje preparado</translation>
    </message>
    <message>
        <source>Send a prepared message instead of the recording</source>
        <translation>Enviar un mensaje preparado en lugar de la grabación</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mostrar más</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>Mostrar más</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>Última grabación</translation>
    </message>
    <message>
        <source>Last Recording</source>
        <translation>Última grabación</translation>
    </message>
    <message>
        <source>Length and Size</source>
        <translation>Duración y tamaño</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Ver en la carpeta</translation>
    </message>
    <message>
        <source>Show the last recording in its folder</source>
        <translation>Mostrar la última grabación en su carpeta</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>Correo</translation>
    </message>
    <message>
        <source>Discard Recording</source>
        <translation>Descartar la grabación</translation>
    </message>
    <message>
        <source>Move the last recording to the trash</source>
        <translation>Mover la última grabación a la papelera</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>Reproducir la grabación</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>Playing Time</source>
        <translation>Tiempo de reproducción</translation>
    </message>
    <message>
        <source>Undo Discard</source>
        <translation>Deshacer el descarte</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Take the recording out of the trash again</source>
        <translation>Sacar la grabación de la papelera</translation>
    </message>
    <message>
        <source>Listening Notice</source>
        <translation>Aviso de escucha</translation>
    </message>
</context>
<context>
    <name>PrefsSheet</name>
    <message>
        <source>Preferences</source>
        <translation>Preferencias</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensaje</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Asunto:</translation>
    </message>
    <message>
        <source>&amp;Subject</source>
        <translation>&amp;Asunto</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Asunto</translation>
    </message>
    <message>
        <source>&amp;Message text</source>
        <translation>Texto del &amp;mensaje</translation>
    </message>
    <message>
        <source>Message Text</source>
        <translation>Texto del mensaje</translation>
    </message>
    <message>
        <source>Include the &amp;tagline, in replies too</source>
        <translation>Incluir la &amp;línea final, también en las respuestas</translation>
    </message>
    <message>
        <source>Include Tagline</source>
        <translation>Incluir la línea final</translation>
    </message>
    <message>
        <source>A last line that says how the message was made</source>
        <translation>Una última línea que dice cómo se hizo el mensaje</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>Respuestas</translation>
    </message>
    <message>
        <source>&amp;Reply text</source>
        <translation>Texto de la &amp;respuesta</translation>
    </message>
    <message>
        <source>Reply Text</source>
        <translation>Texto de la respuesta</translation>
    </message>
    <message>
        <source>Add the sender’s &amp;name to the recording’s file name</source>
        <translation>Añadir el &amp;nombre del remitente al del archivo</translation>
    </message>
    <message>
        <source>Include Sender&apos;s Name</source>
        <translation>Añadir el nombre del remitente</translation>
    </message>
    <message>
        <source>Send replies at &amp;once</source>
        <translation>&amp;Enviar las respuestas de inmediato</translation>
    </message>
    <message>
        <source>Send Replies at Once</source>
        <translation>Enviar las respuestas de inmediato</translation>
    </message>
    <message>
        <source>Otherwise a reply opens in your mail application for you to look over</source>
        <translation>Si no, la respuesta se abre en su programa de correo para que la revise</translation>
    </message>
    <message>
        <source>&amp;Delete the message that I answered</source>
        <translation>Eliminar el mensaje resp&amp;ondido</translation>
    </message>
    <message>
        <source>Delete Original</source>
        <translation>Eliminar el original</translation>
    </message>
    <message>
        <source>It goes where your mail application puts deleted messages</source>
        <translation>Va a donde su programa de correo pone los mensajes eliminados</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Cuenta</translation>
    </message>
    <message>
        <source>Sending &amp;account</source>
        <translation>C&amp;uenta de envío</translation>
    </message>
    <message>
        <source>Sending Account</source>
        <translation>Cuenta de envío</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>Elija una cuenta</translation>
    </message>
    <message>
        <source>List Accounts</source>
        <translation>Ver cuentas</translation>
    </message>
    <message>
        <source>Start your mail application and ask for its accounts</source>
        <translation>Iniciar su programa de correo y pedirle sus cuentas</translation>
    </message>
    <message>
        <source>Mail &amp;back end</source>
        <translation>Modo de en&amp;vío</translation>
    </message>
    <message>
        <source>Mail Back End</source>
        <translation>Modo de envío</translation>
    </message>
    <message>
        <source>Direct – your mail application picks the account</source>
        <translation>Directo: su programa de correo elige la cuenta</translation>
    </message>
    <message>
        <source>Script – sends from the account above</source>
        <translation>Script: envía desde la cuenta de arriba</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Carpetas</translation>
    </message>
    <message>
        <source>Recordings &amp;folder</source>
        <translation>Carpeta de &amp;grabaciones</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>Carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Not found – please choose one</source>
        <translation>No encontrada: elija una</translation>
    </message>
    <message>
        <source>Choose Recordings Folder</source>
        <translation>Elegir la carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>Choose another folder</source>
        <translation>Elegir otra carpeta</translation>
    </message>
    <message>
        <source>Reveal Recordings Folder</source>
        <translation>Mostrar la carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Show it in the file browser</source>
        <translation>Mostrarla en el gestor de archivos</translation>
    </message>
    <message>
        <source>O&amp;ptional messages folder</source>
        <translation>Carpeta de mensajes &amp;preparados</translation>
    </message>
    <message>
        <source>Optional Messages Folder</source>
        <translation>Carpeta de mensajes preparados</translation>
    </message>
    <message>
        <source>Choose Optional Messages Folder</source>
        <translation>Elegir la carpeta de mensajes preparados</translation>
    </message>
    <message>
        <source>Reveal Optional Messages Folder</source>
        <translation>Mostrar la carpeta de mensajes preparados</translation>
    </message>
    <message>
        <source>Clean-up</source>
        <translation>Limpieza</translation>
    </message>
    <message>
        <source>Remove recordin&amp;gs</source>
        <translation>El&amp;iminar grabaciones</translation>
    </message>
    <message>
        <source>Remove Recordings</source>
        <translation>Eliminar grabaciones</translation>
    </message>
    <message>
        <source>All, whenever Kest quits</source>
        <translation>Todas, cada vez que se cierra Kest</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nunca</translation>
    </message>
    <message>
        <source>After one day, when Kest quits</source>
        <translation>Después de un día, al cerrar Kest</translation>
    </message>
    <message>
        <source>After seven days, when Kest quits</source>
        <translation>Después de siete días, al cerrar Kest</translation>
    </message>
    <message>
        <source>After 30 days, when Kest quits</source>
        <translation>Después de 30 días, al cerrar Kest</translation>
    </message>
    <message>
        <source>Move them to the tras&amp;h</source>
        <translation>Moverla&amp;s a la papelera</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mover a la papelera</translation>
    </message>
    <message>
        <source>Otherwise they are deleted for good</source>
        <translation>Si no, se eliminan definitivamente</translation>
    </message>
    <message>
        <source>Preferences Notice</source>
        <translation>Aviso de las preferencias</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
</context>
<context>
    <name>PulseRecorder</name>
    <message>
        <source>The recording cannot be made.</source>
        <translation>No se puede hacer la grabación.</translation>
    </message>
    <message>
        <source>This format is not served.</source>
        <translation>Este formato no se admite.</translation>
    </message>
</context>
<context>
    <name>WelcomeSheet</name>
    <message>
        <source>Welcome to Kest</source>
        <translation>Bienvenido a Kest</translation>
    </message>
    <message>
        <source>Speak, stop, and one click makes a mail of it.
If you like, see first that all is ready.</source>
        <translation>Hable, detenga, y un clic lo convierte en un correo.
Si quiere, compruebe antes que todo está listo.</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Micrófono</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>Correo</translation>
    </message>
    <message>
        <source>Both checks can be skipped.</source>
        <translation>Puede omitir ambas cosas.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Empezar</translation>
    </message>
    <message>
        <source>Go to the window to record in</source>
        <translation>Ir a la ventana de grabación</translation>
    </message>
</context>
<context>
    <name>kest</name>
    <message>
        <source>Stored recordings folder is missing or has been moved. You need to choose it again.</source>
        <translation>La carpeta de grabaciones guardada no existe o se ha movido. Debe elegirla de nuevo.</translation>
    </message>
    <message>
        <source>Stored recordings folder is missing</source>
        <translation>La carpeta de grabaciones guardada no existe</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved. You need to choose it again.</source>
        <translation>No se pudo recuperar la carpeta de grabaciones guardada. Debe elegirla de nuevo.</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved</source>
        <translation>No se pudo recuperar la carpeta de grabaciones guardada</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing or has been moved. You need to choose it again.</source>
        <translation>La carpeta de mensajes preparados guardada no existe o se ha movido. Debe elegirla de nuevo.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing</source>
        <translation>La carpeta de mensajes preparados guardada no existe</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved. You need to choose it again.</source>
        <translation>No se pudo recuperar la carpeta de mensajes preparados guardada. Debe elegirla de nuevo.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved</source>
        <translation>No se pudo recuperar la carpeta de mensajes preparados guardada</translation>
    </message>
    <message>
        <source>Spoken, not typed. Recorded with Kest.</source>
        <translation>Hablado, no escrito. Grabado con Kest.</translation>
    </message>
    <message>
        <source>Sent in one click with Kest.</source>
        <translation>Enviado con un clic con Kest.</translation>
    </message>
    <message>
        <source>Your settings could not be saved (%1). They hold until you quit.</source>
        <translation>No se pudo guardar la configuración (%1). Vale hasta que cierre Kest.</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). Kest uses its defaults until you quit.</source>
        <translation>No se pudo leer la configuración (%1). Kest usa sus valores predeterminados hasta que lo cierre.</translation>
    </message>
    <message>
        <source>The settings file was damaged. Kest uses its defaults until you quit.</source>
        <translation>El archivo de configuración estaba dañado. Kest usa sus valores predeterminados hasta que lo cierre.</translation>
    </message>
    <message>
        <source>The settings file was damaged and was put aside as “%1”. Kest starts with its defaults.</source>
        <translation>El archivo de configuración estaba dañado y se apartó como «%1». Kest empieza con sus valores predeterminados.</translation>
    </message>
    <message>
        <source>--:--</source>
        <translation>--:--</translation>
    </message>
    <message>
        <source>The mail script could not be loaded.</source>
        <translation>No se pudo cargar el script de correo.</translation>
    </message>
    <message>
        <source>The mail script lacks the operation %1.</source>
        <translation>Al script de correo le falta la operación %1.</translation>
    </message>
    <message>
        <source>The mail script failed.</source>
        <translation>El script de correo ha fallado.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>No accounts were detected in Mail. You must have at least one account configured in order to create messages or reply to messages. Please ensure that you have an account configured, and try again.</source>
        <translation>No se ha encontrado ninguna cuenta en el programa de correo. Debe tener al menos una cuenta configurada para crear o responder mensajes. Asegúrese de tener una cuenta configurada e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>No messages appear to be selected in Mail. Please select a message and try again.</source>
        <translation>Parece que no hay ningún mensaje seleccionado en el programa de correo. Seleccione un mensaje e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Unable to Proceed</source>
        <translation>No se puede continuar</translation>
    </message>
    <message>
        <source>it is too large for a message&apos;s text</source>
        <translation>es demasiado grande para el texto de un mensaje</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>El mensaje ya no está.</translation>
    </message>
    <message>
        <source>The mail application did not understand the request.</source>
        <translation>El programa de correo no entendió la petición.</translation>
    </message>
    <message>
        <source>Kest&apos;s add-on in the mail application does not answer. Check that it is installed and switched on, and try again.</source>
        <translation>El complemento de Kest en el programa de correo no responde. Compruebe que está instalado y activado, e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Kest and its add-on in the mail application are of different versions. Install the add-on that belongs to this version of Kest, and try again.</source>
        <translation>Kest y su complemento en el programa de correo son de versiones distintas. Instale el complemento de esta versión de Kest e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The mail application did not answer in time.</source>
        <translation>El programa de correo no respondió a tiempo.</translation>
    </message>
    <message>
        <source>The mail application cannot do this.</source>
        <translation>El programa de correo no puede hacer esto.</translation>
    </message>
    <message>
        <source>The mail application could not do this.</source>
        <translation>El programa de correo no pudo hacerlo.</translation>
    </message>
    <message>
        <source>The mail application is still busy with the last request.</source>
        <translation>El programa de correo sigue ocupado con la última petición.</translation>
    </message>
    <message>
        <source>Kest cannot reach the mail application, because there is no session bus.</source>
        <translation>Kest no puede comunicarse con el programa de correo porque no hay bus de sesión.</translation>
    </message>
    <message>
        <source>No mail application could be started. Install Thunderbird and Kest&apos;s add-on for it, and try again.</source>
        <translation>No se pudo iniciar ningún programa de correo. Instale Thunderbird y el complemento de Kest e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The mail application does not answer Kest. Install Kest&apos;s add-on in it, and try again.</source>
        <translation>El programa de correo no responde a Kest. Instale en él el complemento de Kest e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The mail application went away before it was done.</source>
        <translation>El programa de correo se cerró antes de terminar.</translation>
    </message>
    <message>
        <source>The mail application&apos;s answer makes no sense to Kest.</source>
        <translation>Kest no entiende la respuesta del programa de correo.</translation>
    </message>
    <message>
        <source>Kest is ending.</source>
        <translation>Kest se está cerrando.</translation>
    </message>
    <message>
        <source>No mail application is connected.</source>
        <translation>No hay ningún programa de correo conectado.</translation>
    </message>
    <message>
        <source>The file “%1” cannot be attached</source>
        <translation>No se puede adjuntar el archivo «%1»</translation>
    </message>
    <message>
        <source>No optional outgoing messages folder set</source>
        <translation>No hay carpeta de mensajes preparados</translation>
    </message>
    <message>
        <source>“%1” did not arrive whole.</source>
        <translation>«%1» no ha llegado completo.</translation>
    </message>
    <message>
        <source>Thunderbird did not attach “%1”.</source>
        <translation>Thunderbird no ha adjuntado «%1».</translation>
    </message>
    <message>
        <source>Thunderbird has no account that can send mail.</source>
        <translation>Thunderbird no tiene ninguna cuenta que pueda enviar correo.</translation>
    </message>
    <message>
        <source>The message was closed before it was sent.</source>
        <translation>El mensaje se cerró antes de enviarse.</translation>
    </message>
    <message>
        <source>The message has no recipient.</source>
        <translation>El mensaje no tiene destinatario.</translation>
    </message>
    <message>
        <source>Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete.</source>
        <translation>Thunderbird no permite enviar este mensaje: puede que esté sin conexión o que una dirección esté incompleta.</translation>
    </message>
    <message>
        <source>Thunderbird could not send the message; it is still open there.</source>
        <translation>Thunderbird no pudo enviar el mensaje; sigue abierto allí.</translation>
    </message>
    <message>
        <source>Thunderbird has no window to show.</source>
        <translation>Thunderbird no tiene ninguna ventana que mostrar.</translation>
    </message>
    <message>
        <source>Thunderbird says: %1</source>
        <translation>Thunderbird dice: %1</translation>
    </message>
    <message>
        <source>%1 is busy with other requests.</source>
        <translation>%1 está ocupado con otras peticiones.</translation>
    </message>
    <message>
        <source>An attachment is not a regular file that can be read.</source>
        <translation>Un adjunto no es un archivo normal que se pueda leer.</translation>
    </message>
    <message>
        <source>The attachments are larger than 2 GiB together, more than a mail can carry.</source>
        <translation>Los adjuntos superan juntos los 2 GiB, más de lo que puede llevar un mensaje.</translation>
    </message>
    <message>
        <source>An attachment cannot be read: %1.</source>
        <translation>No se puede leer un adjunto: %1.</translation>
    </message>
    <message>
        <source>The add-on gave an answer that makes no sense.</source>
        <translation>El complemento dio una respuesta sin sentido.</translation>
    </message>
    <message>
        <source>Only Kest may do this, and the caller is not the Kest that runs.</source>
        <translation>Solo Kest puede hacer esto, y quien llama no es el Kest en ejecución.</translation>
    </message>
    <message>
        <source>The part of Kest that prepares mail could not be loaded. Please install Kest again.</source>
        <translation>No se pudo cargar la parte de Kest que prepara el correo. Instale Kest de nuevo.</translation>
    </message>
    <message>
        <source>The answer is too long to be passed on.</source>
        <translation>La respuesta es demasiado larga para transmitirla.</translation>
    </message>
    <message>
        <source>The reply was sent, but the original could not be deleted: %1</source>
        <translation>La respuesta se envió, pero no se pudo eliminar el original: %1</translation>
    </message>
    <message>
        <source>The reply is there, but the original could not be deleted: %1</source>
        <translation>La respuesta está ahí, pero no se pudo eliminar el original: %1</translation>
    </message>
    <message>
        <source>This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.</source>
        <translation>Esta respuesta debe ir cifrada, y «Directo» no puede hacerlo. Elija «Script» como modo de envío en las preferencias.</translation>
    </message>
    <message>
        <source>The message may be there or be sent all the same. Look in the mail application before you try again.</source>
        <translation>Puede que el mensaje esté allí o se envíe de todos modos. Compruébelo en el programa de correo antes de volver a intentarlo.</translation>
    </message>
</context>
<context>
    <name>kest::AppDelegate</name>
    <message>
        <source>A message is being recorded</source>
        <translation>Se está grabando un mensaje</translation>
    </message>
    <message>
        <source>Kest’s recording is paused</source>
        <translation>La grabación de Kest está en pausa</translation>
    </message>
    <message>
        <source>Kest is still recording</source>
        <translation>Kest sigue grabando</translation>
    </message>
    <message>
        <source>Its window comes back when you turn to your mail, or start Kest again.</source>
        <translation>Su ventana vuelve cuando pasa a su correo o inicia Kest otra vez.</translation>
    </message>
    <message>
        <source>Kest’s recording has ended</source>
        <translation>La grabación de Kest ha terminado</translation>
    </message>
    <message>
        <source>Kest’s window comes back when you turn to your mail, or start Kest again.</source>
        <translation>La ventana de Kest vuelve cuando pasa a su correo o inicia Kest otra vez.</translation>
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
        <translation>Usada en un mensaje</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>Última grabación</translation>
    </message>
    <message>
        <source>This recording</source>
        <translation>Esta grabación</translation>
    </message>
    <message>
        <source>Moved to the trash</source>
        <translation>En la papelera</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Ninguna todavía</translation>
    </message>
    <message>
        <source>Drag it into another window</source>
        <translation>Arrástrela a otra ventana</translation>
    </message>
    <message>
        <source>Being recorded</source>
        <translation>Grabando</translation>
    </message>
    <message>
        <source>Pause Playing</source>
        <translation>Pausar la reproducción</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Pause playing</source>
        <translation>Pausar la reproducción</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>Reproducir la grabación</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>No se pudo mover a la papelera.</translation>
    </message>
    <message>
        <source>It could not be taken out of the trash.</source>
        <translation>No se pudo sacar de la papelera.</translation>
    </message>
</context>
<context>
    <name>kest::MailStateView</name>
    <message>
        <source>Install Add-on</source>
        <translation>Instalar</translation>
    </message>
    <message>
        <source>Put Kest’s add-on into your Thunderbird profile</source>
        <translation>Poner el complemento de Kest en su perfil de Thunderbird</translation>
    </message>
    <message>
        <source>The add-on is installed.</source>
        <translation>El complemento está instalado.</translation>
    </message>
</context>
<context>
    <name>kest::MailWords</name>
    <message>
        <source>your mail application</source>
        <translation>su programa de correo</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Conectado a %1.</translation>
    </message>
    <message>
        <source>Connected to %1 as %2.</source>
        <translation>Conectado a %1 como %2.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1. Help says how to get it.</source>
        <translation>Falta el complemento de Kest en %1. La ayuda dice cómo obtenerlo.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing. Quit %1 to install it.</source>
        <translation>Falta el complemento de Kest. Cierre %1 para instalarlo.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1.</source>
        <translation>Falta el complemento de Kest en %1.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is of another version. Restart %1.</source>
        <translation>El complemento de Kest en %1 es de otra versión. Reinicie %1.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is version %2, this is %3. Restart %1.</source>
        <translation>El complemento de Kest en %1 es la versión %2; esta es la %3. Reinicie %1.</translation>
    </message>
    <message>
        <source>No mail application was found. Kest needs Thunderbird.</source>
        <translation>No se encontró ningún programa de correo. Kest necesita Thunderbird.</translation>
    </message>
    <message>
        <source>Kest cannot talk to %1 yet. It needs Thunderbird.</source>
        <translation>Kest aún no se entiende con %1. Necesita Thunderbird.</translation>
    </message>
    <message>
        <source>Not connected. Your first message starts %1.</source>
        <translation>Sin conexión. Su primer mensaje inicia %1.</translation>
    </message>
    <message>
        <source>Not connected. Restart %1, and see that Kest’s add-on is switched on.</source>
        <translation>Sin conexión. Reinicie %1 y active el complemento de Kest.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 does not answer. Restart %1.</source>
        <translation>El complemento de Kest en %1 no responde. Reinicie %1.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>Sin conexión.</translation>
    </message>
</context>
<context>
    <name>kest::MainWindowController</name>
    <message>
        <source>The folder of prepared messages does not answer.</source>
        <translation>La carpeta de mensajes preparados no responde.</translation>
    </message>
    <message>
        <source>The folder of prepared messages is empty.</source>
        <translation>La carpeta de mensajes preparados está vacía.</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mostrar más</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>Mostrar menos</translation>
    </message>
    <message>
        <source>There is no recording to send yet.</source>
        <translation>Todavía no hay grabación que enviar.</translation>
    </message>
    <message>
        <source>Finishing the recording…</source>
        <translation>Terminando la grabación…</translation>
    </message>
    <message>
        <source>The recording is still being finished. Please try again.</source>
        <translation>La grabación aún no está lista. Inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The mail application cannot be reached</source>
        <translation>No se puede acceder al programa de correo</translation>
    </message>
    <message>
        <source>Waiting for the mail application…</source>
        <translation>Esperando al programa de correo…</translation>
    </message>
    <message>
        <source>Ready to record</source>
        <translation>Listo para grabar</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Grabando</translation>
    </message>
    <message>
        <source>“%1” is ready to send</source>
        <translation>«%1» está listo para enviar</translation>
    </message>
    <message>
        <source>Recorded, ready to send</source>
        <translation>Grabado, listo para enviar</translation>
    </message>
    <message>
        <source>Directory not found</source>
        <translation>Carpeta no encontrada</translation>
    </message>
    <message>
        <source>You need to go into Preferences and choose the directory recordings should be saved to.</source>
        <translation>Abra las preferencias y elija la carpeta donde se guardarán las grabaciones.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reanudar</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Go on recording</source>
        <translation>Seguir grabando</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Pausar la grabación</translation>
    </message>
    <message>
        <source>The reply could not be made. Please try again.</source>
        <translation>No se pudo crear la respuesta. Inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>There was no recording to attach.</source>
        <translation>No había ninguna grabación que adjuntar.</translation>
    </message>
</context>
<context>
    <name>kest::MessagePreview</name>
    <message>
        <source>Text of the Message</source>
        <translation>Texto del mensaje</translation>
    </message>
</context>
<context>
    <name>kest::MicrophoneTrialView</name>
    <message>
        <source>Press the button and speak. Nothing is recorded.</source>
        <translation>Pulse el botón y hable. No se graba nada.</translation>
    </message>
    <message>
        <source>Nothing heard yet. Say something.</source>
        <translation>Aún no se oye nada. Diga algo.</translation>
    </message>
    <message>
        <source>You are heard.</source>
        <translation>Se le oye.</translation>
    </message>
    <message>
        <source>You were heard.</source>
        <translation>Se le ha oído.</translation>
    </message>
    <message>
        <source>Nothing was heard. Is the microphone muted?</source>
        <translation>No se ha oído nada. ¿Está silenciado el micrófono?</translation>
    </message>
    <message>
        <source>Microphone Name</source>
        <translation>Nombre del micrófono</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>Nivel de entrada</translation>
    </message>
    <message>
        <source>No microphone was found. Plug one in and try again.</source>
        <translation>No se encontró micrófono. Conecte uno e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The microphone went away. Plug it in and try again.</source>
        <translation>El micrófono ya no está. Conéctelo e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>No sound server answers. Try again in a moment.</source>
        <translation>Ningún servidor de sonido responde. Inténtelo de nuevo en un momento.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. Try again, or choose another one.</source>
        <translation>El micrófono no da sonido. Inténtelo de nuevo o elija otro.</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>No hay micrófono</translation>
    </message>
    <message>
        <source>Stop Listening</source>
        <translation>Dejar de escuchar</translation>
    </message>
    <message>
        <source>Try the Microphone</source>
        <translation>Probar el micrófono</translation>
    </message>
    <message>
        <source>Close the microphone</source>
        <translation>Cerrar el micrófono</translation>
    </message>
    <message>
        <source>Open the microphone and show its level</source>
        <translation>Abrir el micrófono y mostrar su nivel</translation>
    </message>
</context>
<context>
    <name>kest::PlaybackWording</name>
    <message>
        <source>The file is not there any more.</source>
        <translation>El archivo ya no está.</translation>
    </message>
    <message>
        <source>The file cannot be read as sound.</source>
        <translation>El archivo no se puede leer como sonido.</translation>
    </message>
    <message>
        <source>The sound decoder is missing.</source>
        <translation>Falta el decodificador de sonido.</translation>
    </message>
    <message>
        <source>No sound server answers.</source>
        <translation>Ningún servidor de sonido responde.</translation>
    </message>
    <message>
        <source>No loudspeaker was found.</source>
        <translation>No se encontró ningún altavoz.</translation>
    </message>
    <message>
        <source>The loudspeaker went away.</source>
        <translation>El altavoz desapareció.</translation>
    </message>
    <message>
        <source>The sound server ended.</source>
        <translation>El servidor de sonido terminó.</translation>
    </message>
    <message>
        <source>The sound server takes no sound.</source>
        <translation>El servidor de sonido no acepta sonido.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
</context>
<context>
    <name>kest::PreferencesWindowController</name>
    <message>
        <source>Asking your mail application…</source>
        <translation>Consultando su programa de correo…</translation>
    </message>
    <message>
        <source>Waiting for your mail application…</source>
        <translation>Esperando a su programa de correo…</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>Elija una cuenta</translation>
    </message>
    <message>
        <source>Your mail application has no account that can send.</source>
        <translation>Su programa de correo no tiene ninguna cuenta que pueda enviar.</translation>
    </message>
    <message>
        <source>Until you choose, your mail application’s default account is used.</source>
        <translation>Hasta que elija, se usa la cuenta predeterminada de su programa de correo.</translation>
    </message>
    <message>
        <source>“%1” is not there now, so the default account is used.</source>
        <translation>«%1» no está ahora, así que se usa la cuenta predeterminada.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Elegir</translation>
    </message>
    <message>
        <source>That folder cannot be used. The old one stays.</source>
        <translation>Esa carpeta no se puede usar. Se mantiene la anterior.</translation>
    </message>
    <message>
        <source>Kest may not write to that folder.</source>
        <translation>Kest no puede escribir en esa carpeta.</translation>
    </message>
    <message>
        <source>Nothing here can show that folder.</source>
        <translation>Ningún programa puede mostrar esa carpeta.</translation>
    </message>
    <message>
        <source>sender’s name</source>
        <translation>nombre del remitente</translation>
    </message>
    <message>
        <source>Preview of a reply</source>
        <translation>Vista previa de una respuesta</translation>
    </message>
    <message>
        <source>Preview of a new message</source>
        <translation>Vista previa de un mensaje nuevo</translation>
    </message>
    <message>
        <source>Re: the subject of the message</source>
        <translation>Re: asunto del mensaje</translation>
    </message>
</context>
<context>
    <name>kest::StatusItem</name>
    <message>
        <source>Show Kest</source>
        <translation>Mostrar Kest</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Detener la grabación</translation>
    </message>
    <message>
        <source>Quit Kest</source>
        <translation>Salir de Kest</translation>
    </message>
    <message>
        <source>Kest – paused</source>
        <translation>Kest – en pausa</translation>
    </message>
    <message>
        <source>Kest – recording</source>
        <translation>Kest – grabando</translation>
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
        <translation>Ningún servidor de sonido responde; no se graba nada.</translation>
    </message>
    <message>
        <source>No microphone was found, so nothing is recorded.</source>
        <translation>No se encontró micrófono; no se graba nada.</translation>
    </message>
    <message>
        <source>The microphone went away. The recording is kept.</source>
        <translation>El micrófono desapareció. La grabación se conserva.</translation>
    </message>
    <message>
        <source>The sound server ended. The recording is kept.</source>
        <translation>El servidor de sonido terminó. La grabación se conserva.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. What it gave is kept.</source>
        <translation>El micrófono no da sonido. Lo grabado se conserva.</translation>
    </message>
    <message>
        <source>The disk is full. The recording so far is kept.</source>
        <translation>El disco está lleno. Lo grabado se conserva.</translation>
    </message>
    <message>
        <source>Writing failed. What was recorded before is kept.</source>
        <translation>Falló la escritura. Lo grabado antes se conserva.</translation>
    </message>
    <message>
        <source>The sound encoder is missing, so nothing is recorded.</source>
        <translation>Falta el codificador de sonido; no se graba nada.</translation>
    </message>
    <message>
        <source>The microphone went away, so nothing is recorded.</source>
        <translation>El micrófono desapareció; no se grabó nada.</translation>
    </message>
    <message>
        <source>The sound server ended, so nothing is recorded.</source>
        <translation>El servidor de sonido terminó; no se grabó nada.</translation>
    </message>
    <message>
        <source>The microphone gives no sound; nothing is recorded.</source>
        <translation>El micrófono no da sonido; no se graba nada.</translation>
    </message>
    <message>
        <source>The disk is full, so nothing is recorded.</source>
        <translation>El disco está lleno; no se graba nada.</translation>
    </message>
    <message>
        <source>The recording could not be written.</source>
        <translation>No se pudo escribir la grabación.</translation>
    </message>
    <message>
        <source>No sound. Is the microphone muted?</source>
        <translation>No hay sonido. ¿Está silenciado el micrófono?</translation>
    </message>
    <message>
        <source>No sound. Is “%1” muted?</source>
        <translation>No hay sonido. ¿Está silenciado «%1»?</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn the microphone down.</source>
        <translation>Demasiado alto. Aléjese o baje el micrófono.</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn down “%1”.</source>
        <translation>Demasiado alto. Aléjese o baje «%1».</translation>
    </message>
    <message>
        <source>Nothing was heard in this recording.</source>
        <translation>No se oyó nada en esta grabación.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers stop at 18 MB.</source>
        <translation>Ya %1. Muchos servidores no pasan de 18 MB.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers take no more.</source>
        <translation>Ya %1. Muchos servidores no aceptan más.</translation>
    </message>
    <message>
        <source>Handing over: %1 of %2</source>
        <translation>Entregando: %1 de %2</translation>
    </message>
    <message>
        <source>Nothing was recorded: it was stopped before the first sound.</source>
        <translation>No se grabó nada: se detuvo antes del primer sonido.</translation>
    </message>
</context>
</TS>
