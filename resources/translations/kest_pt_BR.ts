<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>DBusMailConnection</name>
    <message>
        <source>Quit %1 first, then install the add-on.</source>
        <translation>Feche primeiro %1 e depois instale a extensão.</translation>
    </message>
    <message>
        <source>The add-on could not be installed.</source>
        <translation>Não foi possível instalar a extensão.</translation>
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
        <translation>Gravar</translation>
    </message>
    <message>
        <source>Record a message</source>
        <translation>Gravar uma mensagem</translation>
    </message>
    <message>
        <source>Recording Time</source>
        <translation>Tempo de gravação</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Pausar a gravação</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Parar</translation>
    </message>
    <message>
        <source>Stop and keep the recording</source>
        <translation>Parar e manter a gravação</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Preferências</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ajuda</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>Nível de entrada</translation>
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
        <translation>Nova mensagem</translation>
    </message>
    <message>
        <source>Put the recording into a new message</source>
        <translation>Anexar a gravação a uma nova mensagem</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Responder</translation>
    </message>
    <message>
        <source>Answer the selected message with the recording</source>
        <translation>Responder à mensagem selecionada com a gravação</translation>
    </message>
    <message>
        <source>Reply All</source>
        <translation>Responder a todos</translation>
    </message>
    <message>
        <source>Answer the selected message, to everyone</source>
        <translation>Responder à mensagem selecionada, para todos</translation>
    </message>
    <message>
        <source>Optional Message</source>
        <translation>Mensagem preparada</translation>
    </message>
    <message>
        <source>Send a prepared message instead of the recording</source>
        <translation>Enviar uma mensagem preparada em vez da gravação</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mostrar mais</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>Mostrar mais</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>Última gravação</translation>
    </message>
    <message>
        <source>Last Recording</source>
        <translation>Última gravação</translation>
    </message>
    <message>
        <source>Length and Size</source>
        <translation>Duração e tamanho</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Pasta</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Show the last recording in its folder</source>
        <translation>Mostrar a última gravação na pasta dela</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>E-mail</translation>
    </message>
    <message>
        <source>Discard Recording</source>
        <translation>Descartar a gravação</translation>
    </message>
    <message>
        <source>Move the last recording to the trash</source>
        <translation>Mover a última gravação para a lixeira</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproduzir</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>Reproduzir a gravação</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posição</translation>
    </message>
    <message>
        <source>Playing Time</source>
        <translation>Tempo de reprodução</translation>
    </message>
    <message>
        <source>Undo Discard</source>
        <translation>Desfazer o descarte</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Take the recording out of the trash again</source>
        <translation>Tirar a gravação da lixeira</translation>
    </message>
    <message>
        <source>Listening Notice</source>
        <translation>Aviso da reprodução</translation>
    </message>
</context>
<context>
    <name>PrefsSheet</name>
    <message>
        <source>Preferences</source>
        <translation>Preferências</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensagem</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Assunto:</translation>
    </message>
    <message>
        <source>&amp;Subject</source>
        <translation>&amp;Assunto</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Assunto</translation>
    </message>
    <message>
        <source>&amp;Message text</source>
        <translation>Texto da &amp;mensagem</translation>
    </message>
    <message>
        <source>Message Text</source>
        <translation>Texto da mensagem</translation>
    </message>
    <message>
        <source>Include the &amp;tagline, in replies too</source>
        <translation>Incluir a &amp;linha final, também nas respostas</translation>
    </message>
    <message>
        <source>Include Tagline</source>
        <translation>Incluir a linha final</translation>
    </message>
    <message>
        <source>A last line that says how the message was made</source>
        <translation>Uma última linha que diz como a mensagem foi feita</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>Respostas</translation>
    </message>
    <message>
        <source>&amp;Reply text</source>
        <translation>Texto da &amp;resposta</translation>
    </message>
    <message>
        <source>Reply Text</source>
        <translation>Texto da resposta</translation>
    </message>
    <message>
        <source>Add the sender’s &amp;name to the recording’s file name</source>
        <translation>Adicionar o &amp;nome do remetente ao nome do arquivo</translation>
    </message>
    <message>
        <source>Include Sender&apos;s Name</source>
        <translation>Adicionar o nome do remetente</translation>
    </message>
    <message>
        <source>Send replies at &amp;once</source>
        <translation>&amp;Enviar as respostas imediatamente</translation>
    </message>
    <message>
        <source>Send Replies at Once</source>
        <translation>Enviar as respostas imediatamente</translation>
    </message>
    <message>
        <source>Otherwise a reply opens in your mail application for you to look over</source>
        <translation>Caso contrário, a resposta abre no seu programa de e-mail para você revisar</translation>
    </message>
    <message>
        <source>&amp;Delete the message that I answered</source>
        <translation>Excluir a mensagem respon&amp;dida</translation>
    </message>
    <message>
        <source>Delete Original</source>
        <translation>Excluir a original</translation>
    </message>
    <message>
        <source>It goes where your mail application puts deleted messages</source>
        <translation>Ela vai para onde seu programa de e-mail coloca as mensagens excluídas</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Pré-visualização</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Conta</translation>
    </message>
    <message>
        <source>Sending &amp;account</source>
        <translation>C&amp;onta de envio</translation>
    </message>
    <message>
        <source>Sending Account</source>
        <translation>Conta de envio</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>Escolha uma conta</translation>
    </message>
    <message>
        <source>List Accounts</source>
        <translation>Listar contas</translation>
    </message>
    <message>
        <source>Start your mail application and ask for its accounts</source>
        <translation>Iniciar seu programa de e-mail e pedir as contas dele</translation>
    </message>
    <message>
        <source>Mail &amp;back end</source>
        <translation>Modo de en&amp;vio</translation>
    </message>
    <message>
        <source>Mail Back End</source>
        <translation>Modo de envio</translation>
    </message>
    <message>
        <source>Direct – your mail application picks the account</source>
        <translation>Direto – seu programa de e-mail escolhe a conta</translation>
    </message>
    <message>
        <source>Script – sends from the account above</source>
        <translation>Script – envia da conta acima</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Pastas</translation>
    </message>
    <message>
        <source>Recordings &amp;folder</source>
        <translation>Pasta das &amp;gravações</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>Pasta das gravações</translation>
    </message>
    <message>
        <source>Not found – please choose one</source>
        <translation>Não encontrada – escolha uma</translation>
    </message>
    <message>
        <source>Choose Recordings Folder</source>
        <translation>Escolher a pasta das gravações</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Escolher…</translation>
    </message>
    <message>
        <source>Choose another folder</source>
        <translation>Escolher outra pasta</translation>
    </message>
    <message>
        <source>Reveal Recordings Folder</source>
        <translation>Mostrar a pasta das gravações</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Show it in the file browser</source>
        <translation>Mostrar no gerenciador de arquivos</translation>
    </message>
    <message>
        <source>O&amp;ptional messages folder</source>
        <translation>Pasta das mensagens &amp;preparadas</translation>
    </message>
    <message>
        <source>Optional Messages Folder</source>
        <translation>Pasta das mensagens preparadas</translation>
    </message>
    <message>
        <source>Choose Optional Messages Folder</source>
        <translation>Escolher a pasta das mensagens preparadas</translation>
    </message>
    <message>
        <source>Reveal Optional Messages Folder</source>
        <translation>Mostrar a pasta das mensagens preparadas</translation>
    </message>
    <message>
        <source>Clean-up</source>
        <translation>Limpeza</translation>
    </message>
    <message>
        <source>Remove recordin&amp;gs</source>
        <translation>Remover gravaçõe&amp;s</translation>
    </message>
    <message>
        <source>Remove Recordings</source>
        <translation>Remover gravações</translation>
    </message>
    <message>
        <source>All, whenever Kest quits</source>
        <translation>Todas, sempre que o Kest fechar</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nunca</translation>
    </message>
    <message>
        <source>After one day, when Kest quits</source>
        <translation>Depois de um dia, ao fechar o Kest</translation>
    </message>
    <message>
        <source>After seven days, when Kest quits</source>
        <translation>Depois de sete dias, ao fechar o Kest</translation>
    </message>
    <message>
        <source>After 30 days, when Kest quits</source>
        <translation>Depois de 30 dias, ao fechar o Kest</translation>
    </message>
    <message>
        <source>Move them to the tras&amp;h</source>
        <translation>Mover para a lixe&amp;ira</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mover para a lixeira</translation>
    </message>
    <message>
        <source>Otherwise they are deleted for good</source>
        <translation>Caso contrário, são excluídas definitivamente</translation>
    </message>
    <message>
        <source>Preferences Notice</source>
        <translation>Aviso das preferências</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fechar</translation>
    </message>
</context>
<context>
    <name>PulseRecorder</name>
    <message>
        <source>The recording cannot be made.</source>
        <translation>Não é possível fazer a gravação.</translation>
    </message>
    <message>
        <source>This format is not served.</source>
        <translation>Este formato não é aceito.</translation>
    </message>
</context>
<context>
    <name>WelcomeSheet</name>
    <message>
        <source>Welcome to Kest</source>
        <translation>Boas-vindas ao Kest</translation>
    </message>
    <message>
        <source>Speak, stop, and one click makes a mail of it.
If you like, see first that all is ready.</source>
        <translation>Fale, pare, e um clique faz disso um e-mail.
Se quiser, veja antes se está tudo pronto.</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Microfone</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>E-mail</translation>
    </message>
    <message>
        <source>Both checks can be skipped.</source>
        <translation>Você pode pular as duas coisas.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Começar</translation>
    </message>
    <message>
        <source>Go to the window to record in</source>
        <translation>Ir para a janela de gravação</translation>
    </message>
</context>
<context>
    <name>kest</name>
    <message>
        <source>Stored recordings folder is missing or has been moved. You need to choose it again.</source>
        <translation>A pasta das gravações armazenada não existe ou foi movida. Escolha-a novamente.</translation>
    </message>
    <message>
        <source>Stored recordings folder is missing</source>
        <translation>A pasta das gravações armazenada não existe</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved. You need to choose it again.</source>
        <translation>Não foi possível recuperar a pasta das gravações armazenada. Escolha-a novamente.</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved</source>
        <translation>Não foi possível recuperar a pasta das gravações armazenada</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing or has been moved. You need to choose it again.</source>
        <translation>A pasta das mensagens preparadas armazenada não existe ou foi movida. Escolha-a novamente.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing</source>
        <translation>A pasta das mensagens preparadas armazenada não existe</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved. You need to choose it again.</source>
        <translation>Não foi possível recuperar a pasta das mensagens preparadas armazenada. Escolha-a novamente.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved</source>
        <translation>Não foi possível recuperar a pasta das mensagens preparadas armazenada</translation>
    </message>
    <message>
        <source>Spoken, not typed. Recorded with Kest.</source>
        <translation>Falado, não digitado. Gravado com o Kest.</translation>
    </message>
    <message>
        <source>Sent in one click with Kest.</source>
        <translation>Enviado com um clique com o Kest.</translation>
    </message>
    <message>
        <source>Your settings could not be saved (%1). They hold until you quit.</source>
        <translation>Não foi possível salvar as configurações (%1). Elas valem até você fechar o Kest.</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). Kest uses its defaults until you quit.</source>
        <translation>Não foi possível ler as configurações (%1). O Kest usa os padrões até ser fechado.</translation>
    </message>
    <message>
        <source>The settings file was damaged. Kest uses its defaults until you quit.</source>
        <translation>O arquivo de configurações estava danificado. O Kest usa os padrões até ser fechado.</translation>
    </message>
    <message>
        <source>The settings file was damaged and was put aside as “%1”. Kest starts with its defaults.</source>
        <translation>O arquivo de configurações estava danificado e foi guardado como “%1”. O Kest começa com os padrões.</translation>
    </message>
    <message>
        <source>--:--</source>
        <translation>--:--</translation>
    </message>
    <message>
        <source>The mail script could not be loaded.</source>
        <translation>Não foi possível carregar o script de e-mail.</translation>
    </message>
    <message>
        <source>The mail script lacks the operation %1.</source>
        <translation>Falta a operação %1 no script de e-mail.</translation>
    </message>
    <message>
        <source>The mail script failed.</source>
        <translation>O script de e-mail falhou.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No accounts were detected in Mail. You must have at least one account configured in order to create messages or reply to messages. Please ensure that you have an account configured, and try again.</source>
        <translation>Nenhuma conta foi encontrada no programa de e-mail. É preciso ter pelo menos uma conta configurada para criar ou responder mensagens. Verifique se há uma conta configurada e tente novamente.</translation>
    </message>
    <message>
        <source>No messages appear to be selected in Mail. Please select a message and try again.</source>
        <translation>Parece que nenhuma mensagem está selecionada no programa de e-mail. Selecione uma mensagem e tente novamente.</translation>
    </message>
    <message>
        <source>Unable to Proceed</source>
        <translation>Não é possível continuar</translation>
    </message>
    <message>
        <source>it is too large for a message&apos;s text</source>
        <translation>é grande demais para o texto de uma mensagem</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>A mensagem não existe mais.</translation>
    </message>
    <message>
        <source>The mail application did not understand the request.</source>
        <translation>O programa de e-mail não entendeu o pedido.</translation>
    </message>
    <message>
        <source>Kest&apos;s add-on in the mail application does not answer. Check that it is installed and switched on, and try again.</source>
        <translation>A extensão do Kest no programa de e-mail não responde. Verifique se está instalada e ativada e tente novamente.</translation>
    </message>
    <message>
        <source>Kest and its add-on in the mail application are of different versions. Install the add-on that belongs to this version of Kest, and try again.</source>
        <translation>O Kest e sua extensão no programa de e-mail são de versões diferentes. Instale a extensão desta versão do Kest e tente novamente.</translation>
    </message>
    <message>
        <source>The mail application did not answer in time.</source>
        <translation>O programa de e-mail não respondeu a tempo.</translation>
    </message>
    <message>
        <source>The mail application cannot do this.</source>
        <translation>O programa de e-mail não consegue fazer isso.</translation>
    </message>
    <message>
        <source>The mail application could not do this.</source>
        <translation>O programa de e-mail não conseguiu fazer isso.</translation>
    </message>
    <message>
        <source>The mail application is still busy with the last request.</source>
        <translation>O programa de e-mail ainda está ocupado com o último pedido.</translation>
    </message>
    <message>
        <source>Kest cannot reach the mail application, because there is no session bus.</source>
        <translation>O Kest não alcança o programa de e-mail porque não há barramento de sessão.</translation>
    </message>
    <message>
        <source>No mail application could be started. Install Thunderbird and Kest&apos;s add-on for it, and try again.</source>
        <translation>Não foi possível iniciar um programa de e-mail. Instale o Thunderbird e a extensão do Kest e tente novamente.</translation>
    </message>
    <message>
        <source>The mail application does not answer Kest. Install Kest&apos;s add-on in it, and try again.</source>
        <translation>O programa de e-mail não responde ao Kest. Instale nele a extensão do Kest e tente novamente.</translation>
    </message>
    <message>
        <source>The mail application went away before it was done.</source>
        <translation>O programa de e-mail fechou antes de terminar.</translation>
    </message>
    <message>
        <source>The mail application&apos;s answer makes no sense to Kest.</source>
        <translation>O Kest não entende a resposta do programa de e-mail.</translation>
    </message>
    <message>
        <source>Kest is ending.</source>
        <translation>O Kest está fechando.</translation>
    </message>
    <message>
        <source>No mail application is connected.</source>
        <translation>Nenhum programa de e-mail está conectado.</translation>
    </message>
    <message>
        <source>The file “%1” cannot be attached</source>
        <translation>Não é possível anexar o arquivo “%1”</translation>
    </message>
    <message>
        <source>No optional outgoing messages folder set</source>
        <translation>Nenhuma pasta de mensagens preparadas definida</translation>
    </message>
    <message>
        <source>“%1” did not arrive whole.</source>
        <translation>“%1” não chegou por inteiro.</translation>
    </message>
    <message>
        <source>Thunderbird did not attach “%1”.</source>
        <translation>O Thunderbird não anexou “%1”.</translation>
    </message>
    <message>
        <source>Thunderbird has no account that can send mail.</source>
        <translation>O Thunderbird não tem nenhuma conta que possa enviar e-mails.</translation>
    </message>
    <message>
        <source>The message was closed before it was sent.</source>
        <translation>A mensagem foi fechada antes de ser enviada.</translation>
    </message>
    <message>
        <source>The message has no recipient.</source>
        <translation>A mensagem não tem destinatário.</translation>
    </message>
    <message>
        <source>Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete.</source>
        <translation>O Thunderbird não permite enviar esta mensagem: ele pode estar offline ou um endereço pode estar incompleto.</translation>
    </message>
    <message>
        <source>Thunderbird could not send the message; it is still open there.</source>
        <translation>O Thunderbird não conseguiu enviar a mensagem; ela continua aberta nele.</translation>
    </message>
    <message>
        <source>Thunderbird has no window to show.</source>
        <translation>O Thunderbird não tem nenhuma janela para mostrar.</translation>
    </message>
    <message>
        <source>Thunderbird says: %1</source>
        <translation>O Thunderbird diz: %1</translation>
    </message>
    <message>
        <source>%1 is busy with other requests.</source>
        <translation>%1 está ocupado com outras solicitações.</translation>
    </message>
    <message>
        <source>An attachment is not a regular file that can be read.</source>
        <translation>Um anexo não é um arquivo comum que possa ser lido.</translation>
    </message>
    <message>
        <source>The attachments are larger than 2 GiB together, more than a mail can carry.</source>
        <translation>Os anexos somam mais de 2 GiB, mais do que uma mensagem pode levar.</translation>
    </message>
    <message>
        <source>An attachment cannot be read: %1.</source>
        <translation>Um anexo não pode ser lido: %1.</translation>
    </message>
    <message>
        <source>The add-on gave an answer that makes no sense.</source>
        <translation>O complemento deu uma resposta que não faz sentido.</translation>
    </message>
    <message>
        <source>Only Kest may do this, and the caller is not the Kest that runs.</source>
        <translation>Somente o Kest pode fazer isso, e quem chama não é o Kest em execução.</translation>
    </message>
    <message>
        <source>The part of Kest that prepares mail could not be loaded. Please install Kest again.</source>
        <translation>Não foi possível carregar a parte do Kest que prepara o e-mail. Instale o Kest novamente.</translation>
    </message>
    <message>
        <source>The answer is too long to be passed on.</source>
        <translation>A resposta é longa demais para ser repassada.</translation>
    </message>
    <message>
        <source>The reply was sent, but the original could not be deleted: %1</source>
        <translation>A resposta foi enviada, mas não foi possível excluir a original: %1</translation>
    </message>
    <message>
        <source>The reply is there, but the original could not be deleted: %1</source>
        <translation>A resposta está aberta, mas não foi possível excluir a original: %1</translation>
    </message>
    <message>
        <source>This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.</source>
        <translation>Esta resposta precisa ser criptografada, e “Direto” não consegue fazer isso. Escolha “Script” como modo de envio nas preferências.</translation>
    </message>
    <message>
        <source>The message may be there or be sent all the same. Look in the mail application before you try again.</source>
        <translation>A mensagem pode estar lá ou ser enviada mesmo assim. Verifique no programa de e-mail antes de tentar novamente.</translation>
    </message>
</context>
<context>
    <name>kest::AppDelegate</name>
    <message>
        <source>A message is being recorded</source>
        <translation>Uma mensagem está sendo gravada</translation>
    </message>
    <message>
        <source>Kest’s recording is paused</source>
        <translation>A gravação do Kest está em pausa</translation>
    </message>
    <message>
        <source>Kest is still recording</source>
        <translation>O Kest continua gravando</translation>
    </message>
    <message>
        <source>Its window comes back when you turn to your mail, or start Kest again.</source>
        <translation>A janela volta quando você vai para o seu e-mail ou inicia o Kest de novo.</translation>
    </message>
    <message>
        <source>Kest’s recording has ended</source>
        <translation>A gravação do Kest terminou</translation>
    </message>
    <message>
        <source>Kest’s window comes back when you turn to your mail, or start Kest again.</source>
        <translation>A janela do Kest volta quando você vai para o seu e-mail ou inicia o Kest de novo.</translation>
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
        <translation>Usada em uma mensagem</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>Última gravação</translation>
    </message>
    <message>
        <source>This recording</source>
        <translation>Esta gravação</translation>
    </message>
    <message>
        <source>Moved to the trash</source>
        <translation>Movida para a lixeira</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Nenhuma ainda</translation>
    </message>
    <message>
        <source>Drag it into another window</source>
        <translation>Arraste-a para outra janela</translation>
    </message>
    <message>
        <source>Being recorded</source>
        <translation>Gravando</translation>
    </message>
    <message>
        <source>Pause Playing</source>
        <translation>Pausar a reprodução</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproduzir</translation>
    </message>
    <message>
        <source>Pause playing</source>
        <translation>Pausar a reprodução</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>Reproduzir a gravação</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>Não foi possível mover para a lixeira.</translation>
    </message>
    <message>
        <source>It could not be taken out of the trash.</source>
        <translation>Não foi possível tirar da lixeira.</translation>
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
        <translation>Colocar a extensão do Kest no seu perfil do Thunderbird</translation>
    </message>
    <message>
        <source>The add-on is installed.</source>
        <translation>A extensão está instalada.</translation>
    </message>
</context>
<context>
    <name>kest::MailWords</name>
    <message>
        <source>your mail application</source>
        <translation>seu programa de e-mail</translation>
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
        <translation>Falta a extensão do Kest em %1. A ajuda diz como obtê-la.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing. Quit %1 to install it.</source>
        <translation>Falta a extensão do Kest. Feche %1 para instalá-la.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1.</source>
        <translation>Falta a extensão do Kest em %1.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is of another version. Restart %1.</source>
        <translation>A extensão do Kest em %1 é de outra versão. Reinicie %1.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is version %2, this is %3. Restart %1.</source>
        <translation>A extensão do Kest em %1 é a versão %2; esta é a %3. Reinicie %1.</translation>
    </message>
    <message>
        <source>No mail application was found. Kest needs Thunderbird.</source>
        <translation>Nenhum programa de e-mail encontrado. O Kest precisa do Thunderbird.</translation>
    </message>
    <message>
        <source>Kest cannot talk to %1 yet. It needs Thunderbird.</source>
        <translation>O Kest ainda não funciona com %1. Ele precisa do Thunderbird.</translation>
    </message>
    <message>
        <source>Not connected. Your first message starts %1.</source>
        <translation>Sem conexão. Sua primeira mensagem inicia %1.</translation>
    </message>
    <message>
        <source>Not connected. Restart %1, and see that Kest’s add-on is switched on.</source>
        <translation>Sem conexão. Reinicie %1 e ative a extensão do Kest.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 does not answer. Restart %1.</source>
        <translation>A extensão do Kest em %1 não responde. Reinicie %1.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>Sem conexão.</translation>
    </message>
</context>
<context>
    <name>kest::MainWindowController</name>
    <message>
        <source>The folder of prepared messages does not answer.</source>
        <translation>A pasta das mensagens preparadas não responde.</translation>
    </message>
    <message>
        <source>The folder of prepared messages is empty.</source>
        <translation>A pasta das mensagens preparadas está vazia.</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mostrar mais</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>Mostrar menos</translation>
    </message>
    <message>
        <source>There is no recording to send yet.</source>
        <translation>Ainda não há gravação para enviar.</translation>
    </message>
    <message>
        <source>Finishing the recording…</source>
        <translation>Finalizando a gravação…</translation>
    </message>
    <message>
        <source>The recording is still being finished. Please try again.</source>
        <translation>A gravação ainda não está pronta. Tente novamente.</translation>
    </message>
    <message>
        <source>The mail application cannot be reached</source>
        <translation>O programa de e-mail está inacessível</translation>
    </message>
    <message>
        <source>Waiting for the mail application…</source>
        <translation>Aguardando o programa de e-mail…</translation>
    </message>
    <message>
        <source>Ready to record</source>
        <translation>Pronto para gravar</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Em pausa</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Gravando</translation>
    </message>
    <message>
        <source>“%1” is ready to send</source>
        <translation>“%1” está pronto para envio</translation>
    </message>
    <message>
        <source>Recorded, ready to send</source>
        <translation>Gravado, pronto para enviar</translation>
    </message>
    <message>
        <source>Directory not found</source>
        <translation>Pasta não encontrada</translation>
    </message>
    <message>
        <source>You need to go into Preferences and choose the directory recordings should be saved to.</source>
        <translation>Abra as preferências e escolha a pasta onde as gravações serão salvas.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Retomar</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Go on recording</source>
        <translation>Continuar gravando</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Pausar a gravação</translation>
    </message>
    <message>
        <source>The reply could not be made. Please try again.</source>
        <translation>Não foi possível criar a resposta. Tente novamente.</translation>
    </message>
    <message>
        <source>There was no recording to attach.</source>
        <translation>Não havia gravação para anexar.</translation>
    </message>
</context>
<context>
    <name>kest::MessagePreview</name>
    <message>
        <source>Text of the Message</source>
        <translation>Texto da mensagem</translation>
    </message>
</context>
<context>
    <name>kest::MicrophoneTrialView</name>
    <message>
        <source>Press the button and speak. Nothing is recorded.</source>
        <translation>Aperte o botão e fale. Nada é gravado.</translation>
    </message>
    <message>
        <source>Nothing heard yet. Say something.</source>
        <translation>Ainda não se ouve nada. Diga algo.</translation>
    </message>
    <message>
        <source>You are heard.</source>
        <translation>Dá para ouvir você.</translation>
    </message>
    <message>
        <source>You were heard.</source>
        <translation>Deu para ouvir você.</translation>
    </message>
    <message>
        <source>Nothing was heard. Is the microphone muted?</source>
        <translation>Não se ouviu nada. O microfone está mudo?</translation>
    </message>
    <message>
        <source>Microphone Name</source>
        <translation>Nome do microfone</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>Nível de entrada</translation>
    </message>
    <message>
        <source>No microphone was found. Plug one in and try again.</source>
        <translation>Nenhum microfone encontrado. Conecte um e tente de novo.</translation>
    </message>
    <message>
        <source>The microphone went away. Plug it in and try again.</source>
        <translation>O microfone sumiu. Conecte-o e tente de novo.</translation>
    </message>
    <message>
        <source>No sound server answers. Try again in a moment.</source>
        <translation>Nenhum servidor de som responde. Tente de novo daqui a pouco.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. Try again, or choose another one.</source>
        <translation>O microfone não dá som. Tente de novo ou escolha outro.</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Nenhum microfone</translation>
    </message>
    <message>
        <source>Stop Listening</source>
        <translation>Parar de ouvir</translation>
    </message>
    <message>
        <source>Try the Microphone</source>
        <translation>Testar o microfone</translation>
    </message>
    <message>
        <source>Close the microphone</source>
        <translation>Fechar o microfone</translation>
    </message>
    <message>
        <source>Open the microphone and show its level</source>
        <translation>Abrir o microfone e mostrar seu nível</translation>
    </message>
</context>
<context>
    <name>kest::PlaybackWording</name>
    <message>
        <source>The file is not there any more.</source>
        <translation>O arquivo não existe mais.</translation>
    </message>
    <message>
        <source>The file cannot be read as sound.</source>
        <translation>O arquivo não pode ser lido como som.</translation>
    </message>
    <message>
        <source>The sound decoder is missing.</source>
        <translation>Falta o decodificador de áudio.</translation>
    </message>
    <message>
        <source>No sound server answers.</source>
        <translation>Nenhum servidor de áudio responde.</translation>
    </message>
    <message>
        <source>No loudspeaker was found.</source>
        <translation>Nenhum alto-falante encontrado.</translation>
    </message>
    <message>
        <source>The loudspeaker went away.</source>
        <translation>O alto-falante sumiu.</translation>
    </message>
    <message>
        <source>The sound server ended.</source>
        <translation>O servidor de áudio parou.</translation>
    </message>
    <message>
        <source>The sound server takes no sound.</source>
        <translation>O servidor de áudio não aceita som.</translation>
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
        <translation>Consultando seu programa de e-mail…</translation>
    </message>
    <message>
        <source>Waiting for your mail application…</source>
        <translation>Aguardando seu programa de e-mail…</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>Escolha uma conta</translation>
    </message>
    <message>
        <source>Your mail application has no account that can send.</source>
        <translation>Seu programa de e-mail não tem conta que possa enviar.</translation>
    </message>
    <message>
        <source>Until you choose, your mail application’s default account is used.</source>
        <translation>Até você escolher, a conta padrão do seu programa de e-mail é usada.</translation>
    </message>
    <message>
        <source>“%1” is not there now, so the default account is used.</source>
        <translation>“%1” não está disponível agora; a conta padrão é usada.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Escolher</translation>
    </message>
    <message>
        <source>That folder cannot be used. The old one stays.</source>
        <translation>Essa pasta não pode ser usada. A anterior permanece.</translation>
    </message>
    <message>
        <source>Kest may not write to that folder.</source>
        <translation>O Kest não pode gravar nessa pasta.</translation>
    </message>
    <message>
        <source>Nothing here can show that folder.</source>
        <translation>Nenhum programa pode mostrar essa pasta.</translation>
    </message>
    <message>
        <source>sender’s name</source>
        <translation>nome do remetente</translation>
    </message>
    <message>
        <source>Preview of a reply</source>
        <translation>Pré-visualização de uma resposta</translation>
    </message>
    <message>
        <source>Preview of a new message</source>
        <translation>Pré-visualização de uma nova mensagem</translation>
    </message>
    <message>
        <source>Re: the subject of the message</source>
        <translation>Re: assunto da mensagem</translation>
    </message>
</context>
<context>
    <name>kest::StatusItem</name>
    <message>
        <source>Show Kest</source>
        <translation>Mostrar o Kest</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Parar a gravação</translation>
    </message>
    <message>
        <source>Quit Kest</source>
        <translation>Sair do Kest</translation>
    </message>
    <message>
        <source>Kest – paused</source>
        <translation>Kest – em pausa</translation>
    </message>
    <message>
        <source>Kest – recording</source>
        <translation>Kest – gravando</translation>
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
        <translation>Nenhum servidor de áudio responde; nada é gravado.</translation>
    </message>
    <message>
        <source>No microphone was found, so nothing is recorded.</source>
        <translation>Nenhum microfone encontrado; nada é gravado.</translation>
    </message>
    <message>
        <source>The microphone went away. The recording is kept.</source>
        <translation>O microfone sumiu. A gravação foi mantida.</translation>
    </message>
    <message>
        <source>The sound server ended. The recording is kept.</source>
        <translation>O servidor de áudio parou. A gravação foi mantida.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. What it gave is kept.</source>
        <translation>O microfone não dá som. O que veio antes foi mantido.</translation>
    </message>
    <message>
        <source>The disk is full. The recording so far is kept.</source>
        <translation>O disco está cheio. O que foi gravado foi mantido.</translation>
    </message>
    <message>
        <source>Writing failed. What was recorded before is kept.</source>
        <translation>Falha na escrita. O que foi gravado antes foi mantido.</translation>
    </message>
    <message>
        <source>The sound encoder is missing, so nothing is recorded.</source>
        <translation>Falta o codificador de áudio; nada é gravado.</translation>
    </message>
    <message>
        <source>The microphone went away, so nothing is recorded.</source>
        <translation>O microfone sumiu; nada foi gravado.</translation>
    </message>
    <message>
        <source>The sound server ended, so nothing is recorded.</source>
        <translation>O servidor de áudio parou; nada foi gravado.</translation>
    </message>
    <message>
        <source>The microphone gives no sound; nothing is recorded.</source>
        <translation>O microfone não dá som; nada é gravado.</translation>
    </message>
    <message>
        <source>The disk is full, so nothing is recorded.</source>
        <translation>O disco está cheio; nada é gravado.</translation>
    </message>
    <message>
        <source>The recording could not be written.</source>
        <translation>Não foi possível gravar em disco.</translation>
    </message>
    <message>
        <source>No sound. Is the microphone muted?</source>
        <translation>Sem som. O microfone está mudo?</translation>
    </message>
    <message>
        <source>No sound. Is “%1” muted?</source>
        <translation>Sem som. “%1” está mudo?</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn the microphone down.</source>
        <translation>Alto demais. Afaste-se ou abaixe o microfone.</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn down “%1”.</source>
        <translation>Alto demais. Afaste-se ou abaixe “%1”.</translation>
    </message>
    <message>
        <source>Nothing was heard in this recording.</source>
        <translation>Nada foi ouvido nesta gravação.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers stop at 18 MB.</source>
        <translation>Já são %1. Muitos servidores param em 18 MB.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers take no more.</source>
        <translation>Já são %1. Muitos servidores não aceitam mais.</translation>
    </message>
    <message>
        <source>Handing over: %1 of %2</source>
        <translation>Entregando: %1 de %2</translation>
    </message>
    <message>
        <source>Nothing was recorded: it was stopped before the first sound.</source>
        <translation>Nada foi gravado: a gravação parou antes do primeiro som.</translation>
    </message>
</context>
</TS>
