<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>DBusMailConnection</name>
    <message>
        <source>Quit %1 first, then install the add-on.</source>
        <translation>请先退出 %1，然后安装附加组件。</translation>
    </message>
    <message>
        <source>The add-on could not be installed.</source>
        <translation>无法安装附加组件。</translation>
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
        <translation>录音</translation>
    </message>
    <message>
        <source>Record a message</source>
        <translation>录制一条消息</translation>
    </message>
    <message>
        <source>Recording Time</source>
        <translation>录音时长</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>暂停录音</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Stop and keep the recording</source>
        <translation>停止并保留录音</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>首选项</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>输入音量</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Input Device</source>
        <translation>输入设备</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>新建邮件</translation>
    </message>
    <message>
        <source>Put the recording into a new message</source>
        <translation>将录音放入新邮件</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>回复</translation>
    </message>
    <message>
        <source>Answer the selected message with the recording</source>
        <translation>用录音回复选中的邮件</translation>
    </message>
    <message>
        <source>Reply All</source>
        <translation>全部回复</translation>
    </message>
    <message>
        <source>Answer the selected message, to everyone</source>
        <translation>回复选中邮件的所有人</translation>
    </message>
    <message>
        <source>Optional Message</source>
        <translation>预备消息</translation>
    </message>
    <message>
        <source>Send a prepared message instead of the recording</source>
        <translation>发送预备消息来代替录音</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>显示更多</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>显示更多</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>最近的录音</translation>
    </message>
    <message>
        <source>Last Recording</source>
        <translation>最近的录音</translation>
    </message>
    <message>
        <source>Length and Size</source>
        <translation>时长和大小</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Show the last recording in its folder</source>
        <translation>在文件夹中显示最近的录音</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>邮件</translation>
    </message>
    <message>
        <source>Discard Recording</source>
        <translation>丢弃录音</translation>
    </message>
    <message>
        <source>Move the last recording to the trash</source>
        <translation>将最近的录音移到回收站</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>播放录音</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Playing Time</source>
        <translation>播放时间</translation>
    </message>
    <message>
        <source>Undo Discard</source>
        <translation>撤销丢弃</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Take the recording out of the trash again</source>
        <translation>从回收站还原录音</translation>
    </message>
    <message>
        <source>Listening Notice</source>
        <translation>播放提示</translation>
    </message>
</context>
<context>
    <name>PrefsSheet</name>
    <message>
        <source>Preferences</source>
        <translation>首选项</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>邮件</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>主题：</translation>
    </message>
    <message>
        <source>&amp;Subject</source>
        <translation>主题(&amp;S)</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>&amp;Message text</source>
        <translation>正文(&amp;M)</translation>
    </message>
    <message>
        <source>Message Text</source>
        <translation>正文</translation>
    </message>
    <message>
        <source>Include the &amp;tagline, in replies too</source>
        <translation>附上结尾语，回复中也附上(&amp;T)</translation>
    </message>
    <message>
        <source>Include Tagline</source>
        <translation>附上结尾语</translation>
    </message>
    <message>
        <source>A last line that says how the message was made</source>
        <translation>说明邮件如何制作的最后一行</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>回复</translation>
    </message>
    <message>
        <source>&amp;Reply text</source>
        <translation>回复正文(&amp;R)</translation>
    </message>
    <message>
        <source>Reply Text</source>
        <translation>回复正文</translation>
    </message>
    <message>
        <source>Add the sender’s &amp;name to the recording’s file name</source>
        <translation>在录音文件名中加入发件人姓名(&amp;N)</translation>
    </message>
    <message>
        <source>Include Sender&apos;s Name</source>
        <translation>加入发件人姓名</translation>
    </message>
    <message>
        <source>Send replies at &amp;once</source>
        <translation>立即发送回复(&amp;O)</translation>
    </message>
    <message>
        <source>Send Replies at Once</source>
        <translation>立即发送回复</translation>
    </message>
    <message>
        <source>Otherwise a reply opens in your mail application for you to look over</source>
        <translation>否则回复会在邮件程序中打开，供您检查</translation>
    </message>
    <message>
        <source>&amp;Delete the message that I answered</source>
        <translation>删除已回复的邮件(&amp;D)</translation>
    </message>
    <message>
        <source>Delete Original</source>
        <translation>删除原邮件</translation>
    </message>
    <message>
        <source>It goes where your mail application puts deleted messages</source>
        <translation>邮件会移到邮件程序存放已删除邮件的位置</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>账户</translation>
    </message>
    <message>
        <source>Sending &amp;account</source>
        <translation>发件账户(&amp;A)</translation>
    </message>
    <message>
        <source>Sending Account</source>
        <translation>发件账户</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>选择账户</translation>
    </message>
    <message>
        <source>List Accounts</source>
        <translation>列出账户</translation>
    </message>
    <message>
        <source>Start your mail application and ask for its accounts</source>
        <translation>启动邮件程序并读取其账户</translation>
    </message>
    <message>
        <source>Mail &amp;back end</source>
        <translation>发送方式(&amp;B)</translation>
    </message>
    <message>
        <source>Mail Back End</source>
        <translation>发送方式</translation>
    </message>
    <message>
        <source>Direct – your mail application picks the account</source>
        <translation>直接 – 由邮件程序选择账户</translation>
    </message>
    <message>
        <source>Script – sends from the account above</source>
        <translation>脚本 – 使用上面的账户发送</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Recordings &amp;folder</source>
        <translation>录音文件夹(&amp;F)</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>录音文件夹</translation>
    </message>
    <message>
        <source>Not found – please choose one</source>
        <translation>未找到 – 请选择</translation>
    </message>
    <message>
        <source>Choose Recordings Folder</source>
        <translation>选择录音文件夹</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>选择…</translation>
    </message>
    <message>
        <source>Choose another folder</source>
        <translation>选择其他文件夹</translation>
    </message>
    <message>
        <source>Reveal Recordings Folder</source>
        <translation>显示录音文件夹</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Show it in the file browser</source>
        <translation>在文件管理器中显示</translation>
    </message>
    <message>
        <source>O&amp;ptional messages folder</source>
        <translation>预备消息文件夹(&amp;P)</translation>
    </message>
    <message>
        <source>Optional Messages Folder</source>
        <translation>预备消息文件夹</translation>
    </message>
    <message>
        <source>Choose Optional Messages Folder</source>
        <translation>选择预备消息文件夹</translation>
    </message>
    <message>
        <source>Reveal Optional Messages Folder</source>
        <translation>显示预备消息文件夹</translation>
    </message>
    <message>
        <source>Clean-up</source>
        <translation>清理</translation>
    </message>
    <message>
        <source>Remove recordin&amp;gs</source>
        <translation>删除录音(&amp;G)</translation>
    </message>
    <message>
        <source>Remove Recordings</source>
        <translation>删除录音</translation>
    </message>
    <message>
        <source>All, whenever Kest quits</source>
        <translation>每次退出 Kest 时全部删除</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>从不</translation>
    </message>
    <message>
        <source>After one day, when Kest quits</source>
        <translation>一天后，退出 Kest 时</translation>
    </message>
    <message>
        <source>After seven days, when Kest quits</source>
        <translation>七天后，退出 Kest 时</translation>
    </message>
    <message>
        <source>After 30 days, when Kest quits</source>
        <translation>30 天后，退出 Kest 时</translation>
    </message>
    <message>
        <source>Move them to the tras&amp;h</source>
        <translation>移到回收站(&amp;H)</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>移到回收站</translation>
    </message>
    <message>
        <source>Otherwise they are deleted for good</source>
        <translation>否则将被永久删除</translation>
    </message>
    <message>
        <source>Preferences Notice</source>
        <translation>首选项提示</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
</context>
<context>
    <name>PulseRecorder</name>
    <message>
        <source>The recording cannot be made.</source>
        <translation>无法录音。</translation>
    </message>
    <message>
        <source>This format is not served.</source>
        <translation>不支持此格式。</translation>
    </message>
</context>
<context>
    <name>WelcomeSheet</name>
    <message>
        <source>Welcome to Kest</source>
        <translation>欢迎使用 Kest</translation>
    </message>
    <message>
        <source>Speak, stop, and one click makes a mail of it.
If you like, see first that all is ready.</source>
        <translation>说话、停止，一键就成为邮件。
如果愿意，可以先看看是否一切就绪。</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>麦克风</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>邮件</translation>
    </message>
    <message>
        <source>Both checks can be skipped.</source>
        <translation>这两项都可以跳过。</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Go to the window to record in</source>
        <translation>进入录音窗口</translation>
    </message>
</context>
<context>
    <name>kest</name>
    <message>
        <source>Stored recordings folder is missing or has been moved. You need to choose it again.</source>
        <translation>已保存的录音文件夹不存在或已被移动。请重新选择。</translation>
    </message>
    <message>
        <source>Stored recordings folder is missing</source>
        <translation>已保存的录音文件夹不存在</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved. You need to choose it again.</source>
        <translation>无法取得已保存的录音文件夹。请重新选择。</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved</source>
        <translation>无法取得已保存的录音文件夹</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing or has been moved. You need to choose it again.</source>
        <translation>已保存的预备消息文件夹不存在或已被移动。请重新选择。</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing</source>
        <translation>已保存的预备消息文件夹不存在</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved. You need to choose it again.</source>
        <translation>无法取得已保存的预备消息文件夹。请重新选择。</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved</source>
        <translation>无法取得已保存的预备消息文件夹</translation>
    </message>
    <message>
        <source>Spoken, not typed. Recorded with Kest.</source>
        <translation>用声音代替打字。由 Kest 录制。</translation>
    </message>
    <message>
        <source>Sent in one click with Kest.</source>
        <translation>由 Kest 一键发送。</translation>
    </message>
    <message>
        <source>Your settings could not be saved (%1). They hold until you quit.</source>
        <translation>无法保存设置 (%1)。它们在退出前有效。</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). Kest uses its defaults until you quit.</source>
        <translation>无法读取设置 (%1)。退出前 Kest 使用默认值。</translation>
    </message>
    <message>
        <source>The settings file was damaged. Kest uses its defaults until you quit.</source>
        <translation>设置文件已损坏。退出前 Kest 使用默认值。</translation>
    </message>
    <message>
        <source>The settings file was damaged and was put aside as “%1”. Kest starts with its defaults.</source>
        <translation>设置文件已损坏，已另存为“%1”。Kest 以默认值启动。</translation>
    </message>
    <message>
        <source>--:--</source>
        <translation>--:--</translation>
    </message>
    <message>
        <source>The mail script could not be loaded.</source>
        <translation>无法加载邮件脚本。</translation>
    </message>
    <message>
        <source>The mail script lacks the operation %1.</source>
        <translation>邮件脚本缺少操作 %1。</translation>
    </message>
    <message>
        <source>The mail script failed.</source>
        <translation>邮件脚本失败。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>No accounts were detected in Mail. You must have at least one account configured in order to create messages or reply to messages. Please ensure that you have an account configured, and try again.</source>
        <translation>在邮件程序中未找到账户。要创建或回复邮件，必须至少设置一个账户。请确认已设置账户，然后重试。</translation>
    </message>
    <message>
        <source>No messages appear to be selected in Mail. Please select a message and try again.</source>
        <translation>邮件程序中似乎没有选中邮件。请选择一封邮件，然后重试。</translation>
    </message>
    <message>
        <source>Unable to Proceed</source>
        <translation>无法继续</translation>
    </message>
    <message>
        <source>it is too large for a message&apos;s text</source>
        <translation>作为邮件正文太大</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>该邮件已不存在。</translation>
    </message>
    <message>
        <source>The mail application did not understand the request.</source>
        <translation>邮件程序无法理解该请求。</translation>
    </message>
    <message>
        <source>Kest&apos;s add-on in the mail application does not answer. Check that it is installed and switched on, and try again.</source>
        <translation>邮件程序中的 Kest 附加组件没有响应。请检查它是否已安装并启用，然后重试。</translation>
    </message>
    <message>
        <source>Kest and its add-on in the mail application are of different versions. Install the add-on that belongs to this version of Kest, and try again.</source>
        <translation>Kest 与邮件程序中的附加组件版本不同。请安装与此版本 Kest 配套的附加组件，然后重试。</translation>
    </message>
    <message>
        <source>The mail application did not answer in time.</source>
        <translation>邮件程序没有及时响应。</translation>
    </message>
    <message>
        <source>The mail application cannot do this.</source>
        <translation>邮件程序不支持此操作。</translation>
    </message>
    <message>
        <source>The mail application could not do this.</source>
        <translation>邮件程序未能完成此操作。</translation>
    </message>
    <message>
        <source>The mail application is still busy with the last request.</source>
        <translation>邮件程序仍在处理上一个请求。</translation>
    </message>
    <message>
        <source>Kest cannot reach the mail application, because there is no session bus.</source>
        <translation>没有会话总线，Kest 无法连接邮件程序。</translation>
    </message>
    <message>
        <source>No mail application could be started. Install Thunderbird and Kest&apos;s add-on for it, and try again.</source>
        <translation>无法启动邮件程序。请安装 Thunderbird 及其 Kest 附加组件，然后重试。</translation>
    </message>
    <message>
        <source>The mail application does not answer Kest. Install Kest&apos;s add-on in it, and try again.</source>
        <translation>邮件程序没有响应 Kest。请在其中安装 Kest 附加组件，然后重试。</translation>
    </message>
    <message>
        <source>The mail application went away before it was done.</source>
        <translation>邮件程序在完成前退出了。</translation>
    </message>
    <message>
        <source>The mail application&apos;s answer makes no sense to Kest.</source>
        <translation>Kest 无法理解邮件程序的响应。</translation>
    </message>
    <message>
        <source>Kest is ending.</source>
        <translation>Kest 正在退出。</translation>
    </message>
    <message>
        <source>No mail application is connected.</source>
        <translation>没有连接邮件程序。</translation>
    </message>
    <message>
        <source>The file “%1” cannot be attached</source>
        <translation>无法附加文件“%1”</translation>
    </message>
    <message>
        <source>No optional outgoing messages folder set</source>
        <translation>未设置预备消息文件夹</translation>
    </message>
    <message>
        <source>“%1” did not arrive whole.</source>
        <translation>“%1”未能完整送达。</translation>
    </message>
    <message>
        <source>Thunderbird did not attach “%1”.</source>
        <translation>Thunderbird 未附加“%1”。</translation>
    </message>
    <message>
        <source>Thunderbird has no account that can send mail.</source>
        <translation>Thunderbird 中没有可以发送邮件的账户。</translation>
    </message>
    <message>
        <source>The message was closed before it was sent.</source>
        <translation>邮件在发送前被关闭了。</translation>
    </message>
    <message>
        <source>The message has no recipient.</source>
        <translation>邮件没有收件人。</translation>
    </message>
    <message>
        <source>Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete.</source>
        <translation>Thunderbird 无法发送此邮件：可能处于脱机状态，或某个地址不完整。</translation>
    </message>
    <message>
        <source>Thunderbird could not send the message; it is still open there.</source>
        <translation>Thunderbird 无法发送该邮件；邮件仍在其中打开着。</translation>
    </message>
    <message>
        <source>Thunderbird has no window to show.</source>
        <translation>Thunderbird 没有可显示的窗口。</translation>
    </message>
    <message>
        <source>Thunderbird says: %1</source>
        <translation>Thunderbird 提示：%1</translation>
    </message>
    <message>
        <source>%1 is busy with other requests.</source>
        <translation>%1 正忙于处理其他请求。</translation>
    </message>
    <message>
        <source>An attachment is not a regular file that can be read.</source>
        <translation>有附件不是可读取的普通文件。</translation>
    </message>
    <message>
        <source>The attachments are larger than 2 GiB together, more than a mail can carry.</source>
        <translation>附件合计超过 2 GiB，超出了一封邮件所能承载的大小。</translation>
    </message>
    <message>
        <source>An attachment cannot be read: %1.</source>
        <translation>无法读取附件：%1。</translation>
    </message>
    <message>
        <source>The add-on gave an answer that makes no sense.</source>
        <translation>附加组件给出了无法理解的回应。</translation>
    </message>
    <message>
        <source>Only Kest may do this, and the caller is not the Kest that runs.</source>
        <translation>只有 Kest 可以这样做，而调用者并非正在运行的 Kest。</translation>
    </message>
    <message>
        <source>The part of Kest that prepares mail could not be loaded. Please install Kest again.</source>
        <translation>无法加载 Kest 中准备邮件的部分。请重新安装 Kest。</translation>
    </message>
    <message>
        <source>The answer is too long to be passed on.</source>
        <translation>应答过长，无法传递。</translation>
    </message>
    <message>
        <source>The reply was sent, but the original could not be deleted: %1</source>
        <translation>回复已发送，但无法删除原邮件：%1</translation>
    </message>
    <message>
        <source>The reply is there, but the original could not be deleted: %1</source>
        <translation>回复已打开，但无法删除原邮件：%1</translation>
    </message>
    <message>
        <source>This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.</source>
        <translation>此回复必须加密，而“直接”方式无法做到。请在首选项中将发送方式设为“脚本”。</translation>
    </message>
    <message>
        <source>The message may be there or be sent all the same. Look in the mail application before you try again.</source>
        <translation>邮件可能仍已创建或发送。重试之前，请先在邮件程序中查看。</translation>
    </message>
</context>
<context>
    <name>kest::AppDelegate</name>
    <message>
        <source>A message is being recorded</source>
        <translation>正在录制消息</translation>
    </message>
    <message>
        <source>Kest’s recording is paused</source>
        <translation>Kest 的录音已暂停</translation>
    </message>
    <message>
        <source>Kest is still recording</source>
        <translation>Kest 仍在录音</translation>
    </message>
    <message>
        <source>Its window comes back when you turn to your mail, or start Kest again.</source>
        <translation>当您切换到邮件或再次启动 Kest 时，窗口会重新出现。</translation>
    </message>
    <message>
        <source>Kest’s recording has ended</source>
        <translation>Kest 的录音已结束</translation>
    </message>
    <message>
        <source>Kest’s window comes back when you turn to your mail, or start Kest again.</source>
        <translation>当您切换到邮件或再次启动 Kest 时，Kest 的窗口会重新出现。</translation>
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
        <translation>已用于邮件</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>最近的录音</translation>
    </message>
    <message>
        <source>This recording</source>
        <translation>当前录音</translation>
    </message>
    <message>
        <source>Moved to the trash</source>
        <translation>已移到回收站</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>暂无</translation>
    </message>
    <message>
        <source>Drag it into another window</source>
        <translation>可拖到其他窗口</translation>
    </message>
    <message>
        <source>Being recorded</source>
        <translation>正在录音</translation>
    </message>
    <message>
        <source>Pause Playing</source>
        <translation>暂停播放</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Pause playing</source>
        <translation>暂停播放</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>播放录音</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>无法移到回收站。</translation>
    </message>
    <message>
        <source>It could not be taken out of the trash.</source>
        <translation>无法从回收站还原。</translation>
    </message>
</context>
<context>
    <name>kest::MailStateView</name>
    <message>
        <source>Install Add-on</source>
        <translation>安装附加组件</translation>
    </message>
    <message>
        <source>Put Kest’s add-on into your Thunderbird profile</source>
        <translation>将 Kest 附加组件放入您的 Thunderbird 配置文件夹</translation>
    </message>
    <message>
        <source>The add-on is installed.</source>
        <translation>附加组件已安装。</translation>
    </message>
</context>
<context>
    <name>kest::MailWords</name>
    <message>
        <source>your mail application</source>
        <translation>邮件程序</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>已连接 %1。</translation>
    </message>
    <message>
        <source>Connected to %1 as %2.</source>
        <translation>已连接 %1，使用 %2。</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1. Help says how to get it.</source>
        <translation>%1 中缺少 Kest 附加组件。获取方法见帮助。</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing. Quit %1 to install it.</source>
        <translation>缺少 Kest 附加组件。请退出 %1 后安装。</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1.</source>
        <translation>%1 中缺少 Kest 附加组件。</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is of another version. Restart %1.</source>
        <translation>%1 中的 Kest 附加组件版本不同。请重启 %1。</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is version %2, this is %3. Restart %1.</source>
        <translation>%1 中的 Kest 附加组件版本为 %2，本程序为 %3。请重启 %1。</translation>
    </message>
    <message>
        <source>No mail application was found. Kest needs Thunderbird.</source>
        <translation>未找到邮件程序。Kest 需要 Thunderbird。</translation>
    </message>
    <message>
        <source>Kest cannot talk to %1 yet. It needs Thunderbird.</source>
        <translation>Kest 尚不支持 %1，需要 Thunderbird。</translation>
    </message>
    <message>
        <source>Not connected. Your first message starts %1.</source>
        <translation>未连接。第一封邮件会启动 %1。</translation>
    </message>
    <message>
        <source>Not connected. Restart %1, and see that Kest’s add-on is switched on.</source>
        <translation>未连接。请重启 %1，并启用 Kest 附加组件。</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 does not answer. Restart %1.</source>
        <translation>%1 中的 Kest 附加组件没有响应。请重启 %1。</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>未连接。</translation>
    </message>
</context>
<context>
    <name>kest::MainWindowController</name>
    <message>
        <source>The folder of prepared messages does not answer.</source>
        <translation>预备消息文件夹没有响应。</translation>
    </message>
    <message>
        <source>The folder of prepared messages is empty.</source>
        <translation>预备消息文件夹是空的。</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>显示更多</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>显示更少</translation>
    </message>
    <message>
        <source>There is no recording to send yet.</source>
        <translation>还没有可发送的录音。</translation>
    </message>
    <message>
        <source>Finishing the recording…</source>
        <translation>正在完成录音…</translation>
    </message>
    <message>
        <source>The recording is still being finished. Please try again.</source>
        <translation>录音尚未完成。请重试。</translation>
    </message>
    <message>
        <source>The mail application cannot be reached</source>
        <translation>无法连接邮件程序</translation>
    </message>
    <message>
        <source>Waiting for the mail application…</source>
        <translation>正在等待邮件程序…</translation>
    </message>
    <message>
        <source>Ready to record</source>
        <translation>可以录音</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暂停</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>正在录音</translation>
    </message>
    <message>
        <source>“%1” is ready to send</source>
        <translation>“%1”可以发送</translation>
    </message>
    <message>
        <source>Recorded, ready to send</source>
        <translation>已录好，可以发送</translation>
    </message>
    <message>
        <source>Directory not found</source>
        <translation>未找到文件夹</translation>
    </message>
    <message>
        <source>You need to go into Preferences and choose the directory recordings should be saved to.</source>
        <translation>请打开首选项，选择保存录音的文件夹。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Go on recording</source>
        <translation>继续录音</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>暂停录音</translation>
    </message>
    <message>
        <source>The reply could not be made. Please try again.</source>
        <translation>无法创建回复。请重试。</translation>
    </message>
    <message>
        <source>There was no recording to attach.</source>
        <translation>没有可附加的录音。</translation>
    </message>
</context>
<context>
    <name>kest::MessagePreview</name>
    <message>
        <source>Text of the Message</source>
        <translation>消息正文</translation>
    </message>
</context>
<context>
    <name>kest::MicrophoneTrialView</name>
    <message>
        <source>Press the button and speak. Nothing is recorded.</source>
        <translation>按下按钮并说话。不会录音。</translation>
    </message>
    <message>
        <source>Nothing heard yet. Say something.</source>
        <translation>还没有听到声音。请说点什么。</translation>
    </message>
    <message>
        <source>You are heard.</source>
        <translation>听到您了。</translation>
    </message>
    <message>
        <source>You were heard.</source>
        <translation>已听到您的声音。</translation>
    </message>
    <message>
        <source>Nothing was heard. Is the microphone muted?</source>
        <translation>没有听到声音。麦克风静音了吗？</translation>
    </message>
    <message>
        <source>Microphone Name</source>
        <translation>麦克风名称</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>输入音量</translation>
    </message>
    <message>
        <source>No microphone was found. Plug one in and try again.</source>
        <translation>未找到麦克风。请接上一个再试。</translation>
    </message>
    <message>
        <source>The microphone went away. Plug it in and try again.</source>
        <translation>麦克风断开了。请接上再试。</translation>
    </message>
    <message>
        <source>No sound server answers. Try again in a moment.</source>
        <translation>声音服务器没有响应。请稍后再试。</translation>
    </message>
    <message>
        <source>The microphone gives no sound. Try again, or choose another one.</source>
        <translation>麦克风没有声音。请重试，或选择另一个。</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>没有麦克风</translation>
    </message>
    <message>
        <source>Stop Listening</source>
        <translation>停止聆听</translation>
    </message>
    <message>
        <source>Try the Microphone</source>
        <translation>试试麦克风</translation>
    </message>
    <message>
        <source>Close the microphone</source>
        <translation>关闭麦克风</translation>
    </message>
    <message>
        <source>Open the microphone and show its level</source>
        <translation>打开麦克风并显示音量</translation>
    </message>
</context>
<context>
    <name>kest::PlaybackWording</name>
    <message>
        <source>The file is not there any more.</source>
        <translation>文件已不存在。</translation>
    </message>
    <message>
        <source>The file cannot be read as sound.</source>
        <translation>无法将文件作为声音读取。</translation>
    </message>
    <message>
        <source>The sound decoder is missing.</source>
        <translation>缺少声音解码器。</translation>
    </message>
    <message>
        <source>No sound server answers.</source>
        <translation>声音服务器没有响应。</translation>
    </message>
    <message>
        <source>No loudspeaker was found.</source>
        <translation>未找到扬声器。</translation>
    </message>
    <message>
        <source>The loudspeaker went away.</source>
        <translation>扬声器已断开。</translation>
    </message>
    <message>
        <source>The sound server ended.</source>
        <translation>声音服务器已停止。</translation>
    </message>
    <message>
        <source>The sound server takes no sound.</source>
        <translation>声音服务器不接收声音。</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
</context>
<context>
    <name>kest::PreferencesWindowController</name>
    <message>
        <source>Asking your mail application…</source>
        <translation>正在询问邮件程序…</translation>
    </message>
    <message>
        <source>Waiting for your mail application…</source>
        <translation>正在等待邮件程序…</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>选择账户</translation>
    </message>
    <message>
        <source>Your mail application has no account that can send.</source>
        <translation>邮件程序没有可用于发送的账户。</translation>
    </message>
    <message>
        <source>Until you choose, your mail application’s default account is used.</source>
        <translation>在您选择之前，使用邮件程序的默认账户。</translation>
    </message>
    <message>
        <source>“%1” is not there now, so the default account is used.</source>
        <translation>“%1”现在不存在，因此使用默认账户。</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>That folder cannot be used. The old one stays.</source>
        <translation>无法使用该文件夹。保留原来的。</translation>
    </message>
    <message>
        <source>Kest may not write to that folder.</source>
        <translation>Kest 无权写入该文件夹。</translation>
    </message>
    <message>
        <source>Nothing here can show that folder.</source>
        <translation>没有程序可以显示该文件夹。</translation>
    </message>
    <message>
        <source>sender’s name</source>
        <translation>发件人姓名</translation>
    </message>
    <message>
        <source>Preview of a reply</source>
        <translation>回复预览</translation>
    </message>
    <message>
        <source>Preview of a new message</source>
        <translation>新邮件预览</translation>
    </message>
    <message>
        <source>Re: the subject of the message</source>
        <translation>Re: 邮件主题</translation>
    </message>
</context>
<context>
    <name>kest::StatusItem</name>
    <message>
        <source>Show Kest</source>
        <translation>显示 Kest</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>停止录音</translation>
    </message>
    <message>
        <source>Quit Kest</source>
        <translation>退出 Kest</translation>
    </message>
    <message>
        <source>Kest – paused</source>
        <translation>Kest – 已暂停</translation>
    </message>
    <message>
        <source>Kest – recording</source>
        <translation>Kest – 正在录音</translation>
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
        <translation>声音服务器没有响应，无法录音。</translation>
    </message>
    <message>
        <source>No microphone was found, so nothing is recorded.</source>
        <translation>未找到麦克风，无法录音。</translation>
    </message>
    <message>
        <source>The microphone went away. The recording is kept.</source>
        <translation>麦克风已断开。录音已保留。</translation>
    </message>
    <message>
        <source>The sound server ended. The recording is kept.</source>
        <translation>声音服务器已停止。录音已保留。</translation>
    </message>
    <message>
        <source>The microphone gives no sound. What it gave is kept.</source>
        <translation>麦克风没有声音。之前的录音已保留。</translation>
    </message>
    <message>
        <source>The disk is full. The recording so far is kept.</source>
        <translation>磁盘已满。已录部分已保留。</translation>
    </message>
    <message>
        <source>Writing failed. What was recorded before is kept.</source>
        <translation>写入失败。之前的录音已保留。</translation>
    </message>
    <message>
        <source>The sound encoder is missing, so nothing is recorded.</source>
        <translation>缺少声音编码器，无法录音。</translation>
    </message>
    <message>
        <source>The microphone went away, so nothing is recorded.</source>
        <translation>麦克风已断开，没有录音。</translation>
    </message>
    <message>
        <source>The sound server ended, so nothing is recorded.</source>
        <translation>声音服务器已停止，没有录音。</translation>
    </message>
    <message>
        <source>The microphone gives no sound; nothing is recorded.</source>
        <translation>麦克风没有声音，没有录音。</translation>
    </message>
    <message>
        <source>The disk is full, so nothing is recorded.</source>
        <translation>磁盘已满，没有录音。</translation>
    </message>
    <message>
        <source>The recording could not be written.</source>
        <translation>无法写入录音。</translation>
    </message>
    <message>
        <source>No sound. Is the microphone muted?</source>
        <translation>没有声音。麦克风静音了吗？</translation>
    </message>
    <message>
        <source>No sound. Is “%1” muted?</source>
        <translation>没有声音。“%1”静音了吗？</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn the microphone down.</source>
        <translation>声音太大。请离远一点，或调低麦克风。</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn down “%1”.</source>
        <translation>声音太大。请离远一点，或调低“%1”。</translation>
    </message>
    <message>
        <source>Nothing was heard in this recording.</source>
        <translation>此录音中没有听到声音。</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers stop at 18 MB.</source>
        <translation>已有 %1。许多邮件服务器上限为 18 MB。</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers take no more.</source>
        <translation>已有 %1。许多邮件服务器不再接收更大的邮件。</translation>
    </message>
    <message>
        <source>Handing over: %1 of %2</source>
        <translation>正在移交：%1 / %2</translation>
    </message>
    <message>
        <source>Nothing was recorded: it was stopped before the first sound.</source>
        <translation>没有录到内容：在第一个声音之前就停止了。</translation>
    </message>
</context>
</TS>
