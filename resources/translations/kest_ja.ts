<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>DBusMailConnection</name>
    <message>
        <source>Quit %1 first, then install the add-on.</source>
        <translation>先に %1 を終了してから、アドオンを追加してください。</translation>
    </message>
    <message>
        <source>The add-on could not be installed.</source>
        <translation>アドオンを追加できませんでした。</translation>
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
        <translation>録音</translation>
    </message>
    <message>
        <source>Record a message</source>
        <translation>メッセージを録音します</translation>
    </message>
    <message>
        <source>Recording Time</source>
        <translation>録音時間</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>録音を一時停止します</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Stop and keep the recording</source>
        <translation>停止して録音を残します</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>入力レベル</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>お知らせ</translation>
    </message>
    <message>
        <source>Input Device</source>
        <translation>入力デバイス</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>新規メッセージ</translation>
    </message>
    <message>
        <source>Put the recording into a new message</source>
        <translation>録音を新しいメッセージに添付します</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>返信</translation>
    </message>
    <message>
        <source>Answer the selected message with the recording</source>
        <translation>選択したメッセージに録音で返信します</translation>
    </message>
    <message>
        <source>Reply All</source>
        <translation>全員に返信</translation>
    </message>
    <message>
        <source>Answer the selected message, to everyone</source>
        <translation>選択したメッセージの全員に返信します</translation>
    </message>
    <message>
        <source>Optional Message</source>
        <translation>定型メッセージ</translation>
    </message>
    <message>
        <source>Send a prepared message instead of the recording</source>
        <translation>録音の代わりに定型メッセージを送ります</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>詳細を表示</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>詳細を表示</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>最後の録音</translation>
    </message>
    <message>
        <source>Last Recording</source>
        <translation>最後の録音</translation>
    </message>
    <message>
        <source>Length and Size</source>
        <translation>長さとサイズ</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダーを開く</translation>
    </message>
    <message>
        <source>Show the last recording in its folder</source>
        <translation>最後の録音をフォルダーで表示します</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>メール</translation>
    </message>
    <message>
        <source>Discard Recording</source>
        <translation>録音を破棄</translation>
    </message>
    <message>
        <source>Move the last recording to the trash</source>
        <translation>最後の録音をごみ箱に移動します</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>録音を再生します</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Playing Time</source>
        <translation>再生時間</translation>
    </message>
    <message>
        <source>Undo Discard</source>
        <translation>破棄を元に戻す</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Take the recording out of the trash again</source>
        <translation>録音をごみ箱から戻します</translation>
    </message>
    <message>
        <source>Listening Notice</source>
        <translation>再生のお知らせ</translation>
    </message>
</context>
<context>
    <name>PrefsSheet</name>
    <message>
        <source>Preferences</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>件名:</translation>
    </message>
    <message>
        <source>&amp;Subject</source>
        <translation>件名(&amp;S)</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>件名</translation>
    </message>
    <message>
        <source>&amp;Message text</source>
        <translation>本文(&amp;M)</translation>
    </message>
    <message>
        <source>Message Text</source>
        <translation>本文</translation>
    </message>
    <message>
        <source>Include the &amp;tagline, in replies too</source>
        <translation>結びの一文を入れる（返信にも）(&amp;T)</translation>
    </message>
    <message>
        <source>Include Tagline</source>
        <translation>結びの一文を入れる</translation>
    </message>
    <message>
        <source>A last line that says how the message was made</source>
        <translation>メッセージの作り方を伝える最後の一行</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>返信</translation>
    </message>
    <message>
        <source>&amp;Reply text</source>
        <translation>返信の本文(&amp;R)</translation>
    </message>
    <message>
        <source>Reply Text</source>
        <translation>返信の本文</translation>
    </message>
    <message>
        <source>Add the sender’s &amp;name to the recording’s file name</source>
        <translation>録音のファイル名に差出人の名前を付ける(&amp;N)</translation>
    </message>
    <message>
        <source>Include Sender&apos;s Name</source>
        <translation>差出人の名前を付ける</translation>
    </message>
    <message>
        <source>Send replies at &amp;once</source>
        <translation>返信をすぐに送信する(&amp;O)</translation>
    </message>
    <message>
        <source>Send Replies at Once</source>
        <translation>返信をすぐに送信する</translation>
    </message>
    <message>
        <source>Otherwise a reply opens in your mail application for you to look over</source>
        <translation>オフの場合、返信はメールソフトで開き、確認できます</translation>
    </message>
    <message>
        <source>&amp;Delete the message that I answered</source>
        <translation>返信したメッセージを削除する(&amp;D)</translation>
    </message>
    <message>
        <source>Delete Original</source>
        <translation>元のメッセージを削除</translation>
    </message>
    <message>
        <source>It goes where your mail application puts deleted messages</source>
        <translation>メールソフトが削除済みメッセージを置く場所に移動します</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>アカウント</translation>
    </message>
    <message>
        <source>Sending &amp;account</source>
        <translation>送信アカウント(&amp;A)</translation>
    </message>
    <message>
        <source>Sending Account</source>
        <translation>送信アカウント</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>アカウントを選択</translation>
    </message>
    <message>
        <source>List Accounts</source>
        <translation>アカウントを表示</translation>
    </message>
    <message>
        <source>Start your mail application and ask for its accounts</source>
        <translation>メールソフトを起動してアカウントを取得します</translation>
    </message>
    <message>
        <source>Mail &amp;back end</source>
        <translation>メール連携の方法(&amp;B)</translation>
    </message>
    <message>
        <source>Mail Back End</source>
        <translation>メール連携の方法</translation>
    </message>
    <message>
        <source>Direct – your mail application picks the account</source>
        <translation>直接 – アカウントはメールソフトが選びます</translation>
    </message>
    <message>
        <source>Script – sends from the account above</source>
        <translation>スクリプト – 上のアカウントから送信します</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>Recordings &amp;folder</source>
        <translation>録音フォルダー(&amp;F)</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>録音フォルダー</translation>
    </message>
    <message>
        <source>Not found – please choose one</source>
        <translation>見つかりません – 選択してください</translation>
    </message>
    <message>
        <source>Choose Recordings Folder</source>
        <translation>録音フォルダーを選択</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
    <message>
        <source>Choose another folder</source>
        <translation>別のフォルダーを選択します</translation>
    </message>
    <message>
        <source>Reveal Recordings Folder</source>
        <translation>録音フォルダーを表示</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Show it in the file browser</source>
        <translation>ファイルマネージャーで表示します</translation>
    </message>
    <message>
        <source>O&amp;ptional messages folder</source>
        <translation>定型メッセージのフォルダー(&amp;P)</translation>
    </message>
    <message>
        <source>Optional Messages Folder</source>
        <translation>定型メッセージのフォルダー</translation>
    </message>
    <message>
        <source>Choose Optional Messages Folder</source>
        <translation>定型メッセージのフォルダーを選択</translation>
    </message>
    <message>
        <source>Reveal Optional Messages Folder</source>
        <translation>定型メッセージのフォルダーを表示</translation>
    </message>
    <message>
        <source>Clean-up</source>
        <translation>クリーンアップ</translation>
    </message>
    <message>
        <source>Remove recordin&amp;gs</source>
        <translation>録音の削除(&amp;G)</translation>
    </message>
    <message>
        <source>Remove Recordings</source>
        <translation>録音の削除</translation>
    </message>
    <message>
        <source>All, whenever Kest quits</source>
        <translation>Kest の終了時にすべて</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>しない</translation>
    </message>
    <message>
        <source>After one day, when Kest quits</source>
        <translation>1 日後、Kest の終了時</translation>
    </message>
    <message>
        <source>After seven days, when Kest quits</source>
        <translation>7 日後、Kest の終了時</translation>
    </message>
    <message>
        <source>After 30 days, when Kest quits</source>
        <translation>30 日後、Kest の終了時</translation>
    </message>
    <message>
        <source>Move them to the tras&amp;h</source>
        <translation>ごみ箱に移動する(&amp;H)</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>ごみ箱に移動</translation>
    </message>
    <message>
        <source>Otherwise they are deleted for good</source>
        <translation>オフの場合は完全に削除されます</translation>
    </message>
    <message>
        <source>Preferences Notice</source>
        <translation>設定のお知らせ</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
</context>
<context>
    <name>PulseRecorder</name>
    <message>
        <source>The recording cannot be made.</source>
        <translation>録音を作成できません。</translation>
    </message>
    <message>
        <source>This format is not served.</source>
        <translation>この形式には対応していません。</translation>
    </message>
</context>
<context>
    <name>WelcomeSheet</name>
    <message>
        <source>Welcome to Kest</source>
        <translation>Kest へようこそ</translation>
    </message>
    <message>
        <source>Speak, stop, and one click makes a mail of it.
If you like, see first that all is ready.</source>
        <translation>話して、止めて、ワンクリックでメールになります。
よろしければ、先に準備ができているか確かめてください。</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>マイク</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>メール</translation>
    </message>
    <message>
        <source>Both checks can be skipped.</source>
        <translation>どちらも省略できます。</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>始める</translation>
    </message>
    <message>
        <source>Go to the window to record in</source>
        <translation>録音するウィンドウに進みます</translation>
    </message>
</context>
<context>
    <name>kest</name>
    <message>
        <source>Stored recordings folder is missing or has been moved. You need to choose it again.</source>
        <translation>保存されている録音フォルダーがないか、移動されました。選択し直してください。</translation>
    </message>
    <message>
        <source>Stored recordings folder is missing</source>
        <translation>保存されている録音フォルダーがありません</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved. You need to choose it again.</source>
        <translation>保存されている録音フォルダーを取得できませんでした。選択し直してください。</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved</source>
        <translation>保存されている録音フォルダーを取得できませんでした</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing or has been moved. You need to choose it again.</source>
        <translation>保存されている定型メッセージのフォルダーがないか、移動されました。選択し直してください。</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing</source>
        <translation>保存されている定型メッセージのフォルダーがありません</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved. You need to choose it again.</source>
        <translation>保存されている定型メッセージのフォルダーを取得できませんでした。選択し直してください。</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved</source>
        <translation>保存されている定型メッセージのフォルダーを取得できませんでした</translation>
    </message>
    <message>
        <source>Spoken, not typed. Recorded with Kest.</source>
        <translation>文字ではなく声でお届けします。Kest で録音しました。</translation>
    </message>
    <message>
        <source>Sent in one click with Kest.</source>
        <translation>Kest からワンクリックで送信しました。</translation>
    </message>
    <message>
        <source>Your settings could not be saved (%1). They hold until you quit.</source>
        <translation>設定を保存できませんでした (%1)。終了するまで有効です。</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). Kest uses its defaults until you quit.</source>
        <translation>設定を読み込めませんでした (%1)。終了するまで既定値を使います。</translation>
    </message>
    <message>
        <source>The settings file was damaged. Kest uses its defaults until you quit.</source>
        <translation>設定ファイルが壊れていました。終了するまで既定値を使います。</translation>
    </message>
    <message>
        <source>The settings file was damaged and was put aside as “%1”. Kest starts with its defaults.</source>
        <translation>設定ファイルが壊れていたため「%1」として残しました。Kest は既定値で始まります。</translation>
    </message>
    <message>
        <source>--:--</source>
        <translation>--:--</translation>
    </message>
    <message>
        <source>The mail script could not be loaded.</source>
        <translation>メールスクリプトを読み込めませんでした。</translation>
    </message>
    <message>
        <source>The mail script lacks the operation %1.</source>
        <translation>メールスクリプトに操作 %1 がありません。</translation>
    </message>
    <message>
        <source>The mail script failed.</source>
        <translation>メールスクリプトが失敗しました。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No accounts were detected in Mail. You must have at least one account configured in order to create messages or reply to messages. Please ensure that you have an account configured, and try again.</source>
        <translation>メールソフトにアカウントが見つかりません。メッセージの作成や返信には、少なくとも 1 つのアカウントの設定が必要です。アカウントが設定されていることを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>No messages appear to be selected in Mail. Please select a message and try again.</source>
        <translation>メールソフトでメッセージが選択されていないようです。メッセージを選択して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Unable to Proceed</source>
        <translation>続行できません</translation>
    </message>
    <message>
        <source>it is too large for a message&apos;s text</source>
        <translation>メッセージの本文には大きすぎます</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>メッセージはもうありません。</translation>
    </message>
    <message>
        <source>The mail application did not understand the request.</source>
        <translation>メールソフトが要求を理解できませんでした。</translation>
    </message>
    <message>
        <source>Kest&apos;s add-on in the mail application does not answer. Check that it is installed and switched on, and try again.</source>
        <translation>メールソフトの Kest アドオンが応答しません。インストールされ、有効になっていることを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Kest and its add-on in the mail application are of different versions. Install the add-on that belongs to this version of Kest, and try again.</source>
        <translation>Kest とメールソフトのアドオンのバージョンが異なります。このバージョンの Kest に付属するアドオンをインストールして、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The mail application did not answer in time.</source>
        <translation>メールソフトが時間内に応答しませんでした。</translation>
    </message>
    <message>
        <source>The mail application cannot do this.</source>
        <translation>メールソフトはこの操作に対応していません。</translation>
    </message>
    <message>
        <source>The mail application could not do this.</source>
        <translation>メールソフトはこの操作を実行できませんでした。</translation>
    </message>
    <message>
        <source>The mail application is still busy with the last request.</source>
        <translation>メールソフトはまだ前の要求を処理しています。</translation>
    </message>
    <message>
        <source>Kest cannot reach the mail application, because there is no session bus.</source>
        <translation>セッションバスがないため、Kest はメールソフトに接続できません。</translation>
    </message>
    <message>
        <source>No mail application could be started. Install Thunderbird and Kest&apos;s add-on for it, and try again.</source>
        <translation>メールソフトを起動できませんでした。Thunderbird と Kest アドオンをインストールして、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The mail application does not answer Kest. Install Kest&apos;s add-on in it, and try again.</source>
        <translation>メールソフトが Kest に応答しません。Kest アドオンをインストールして、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The mail application went away before it was done.</source>
        <translation>メールソフトが完了前に終了しました。</translation>
    </message>
    <message>
        <source>The mail application&apos;s answer makes no sense to Kest.</source>
        <translation>メールソフトの応答を Kest が理解できません。</translation>
    </message>
    <message>
        <source>Kest is ending.</source>
        <translation>Kest は終了中です。</translation>
    </message>
    <message>
        <source>No mail application is connected.</source>
        <translation>メールソフトが接続されていません。</translation>
    </message>
    <message>
        <source>The file “%1” cannot be attached</source>
        <translation>ファイル「%1」を添付できません</translation>
    </message>
    <message>
        <source>No optional outgoing messages folder set</source>
        <translation>定型メッセージのフォルダーが未設定です</translation>
    </message>
    <message>
        <source>“%1” did not arrive whole.</source>
        <translation>「%1」は最後まで届きませんでした。</translation>
    </message>
    <message>
        <source>Thunderbird did not attach “%1”.</source>
        <translation>Thunderbird は「%1」を添付しませんでした。</translation>
    </message>
    <message>
        <source>Thunderbird has no account that can send mail.</source>
        <translation>Thunderbird に送信できるアカウントがありません。</translation>
    </message>
    <message>
        <source>The message was closed before it was sent.</source>
        <translation>メッセージは送信される前に閉じられました。</translation>
    </message>
    <message>
        <source>The message has no recipient.</source>
        <translation>メッセージに宛先がありません。</translation>
    </message>
    <message>
        <source>Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete.</source>
        <translation>Thunderbird はこのメッセージを送信できる状態にありません。オフラインか、アドレスが不完全な可能性があります。</translation>
    </message>
    <message>
        <source>Thunderbird could not send the message; it is still open there.</source>
        <translation>Thunderbird はメッセージを送信できませんでした。まだ Thunderbird で開いています。</translation>
    </message>
    <message>
        <source>Thunderbird has no window to show.</source>
        <translation>Thunderbird に表示できるウィンドウがありません。</translation>
    </message>
    <message>
        <source>Thunderbird says: %1</source>
        <translation>Thunderbird からのメッセージ: %1</translation>
    </message>
    <message>
        <source>%1 is busy with other requests.</source>
        <translation>%1 は他の要求を処理中です。</translation>
    </message>
    <message>
        <source>An attachment is not a regular file that can be read.</source>
        <translation>添付するものが、読み取れる通常のファイルではありません。</translation>
    </message>
    <message>
        <source>The attachments are larger than 2 GiB together, more than a mail can carry.</source>
        <translation>添付するものが合計 2 GiB を超えており、メールで送れる大きさではありません。</translation>
    </message>
    <message>
        <source>An attachment cannot be read: %1.</source>
        <translation>添付ファイルを読み取れません: %1</translation>
    </message>
    <message>
        <source>The add-on gave an answer that makes no sense.</source>
        <translation>アドオンから理解できない応答がありました。</translation>
    </message>
    <message>
        <source>Only Kest may do this, and the caller is not the Kest that runs.</source>
        <translation>これは Kest だけに許された操作で、呼び出し元は実行中の Kest ではありません。</translation>
    </message>
    <message>
        <source>The part of Kest that prepares mail could not be loaded. Please install Kest again.</source>
        <translation>メールを準備する Kest の部品を読み込めませんでした。Kest をもう一度インストールしてください。</translation>
    </message>
    <message>
        <source>The answer is too long to be passed on.</source>
        <translation>応答が長すぎるため、受け渡せません。</translation>
    </message>
    <message>
        <source>The reply was sent, but the original could not be deleted: %1</source>
        <translation>返信は送信されましたが、元のメッセージを削除できませんでした: %1</translation>
    </message>
    <message>
        <source>The reply is there, but the original could not be deleted: %1</source>
        <translation>返信は開いていますが、元のメッセージを削除できませんでした: %1</translation>
    </message>
    <message>
        <source>This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.</source>
        <translation>この返信は暗号化が必要ですが、「直接」ではできません。設定の「メール連携の方法」で「スクリプト」を選択してください。</translation>
    </message>
    <message>
        <source>The message may be there or be sent all the same. Look in the mail application before you try again.</source>
        <translation>それでもメッセージが作成または送信されている場合があります。もう一度試す前に、メールソフトで確認してください。</translation>
    </message>
</context>
<context>
    <name>kest::AppDelegate</name>
    <message>
        <source>A message is being recorded</source>
        <translation>メッセージを録音しています</translation>
    </message>
    <message>
        <source>Kest’s recording is paused</source>
        <translation>Kest の録音は一時停止中です</translation>
    </message>
    <message>
        <source>Kest is still recording</source>
        <translation>Kest は録音を続けています</translation>
    </message>
    <message>
        <source>Its window comes back when you turn to your mail, or start Kest again.</source>
        <translation>メールに切り替えるか、Kest をもう一度起動すると、ウィンドウが戻ります。</translation>
    </message>
    <message>
        <source>Kest’s recording has ended</source>
        <translation>Kest の録音が終わりました</translation>
    </message>
    <message>
        <source>Kest’s window comes back when you turn to your mail, or start Kest again.</source>
        <translation>メールに切り替えるか、Kest をもう一度起動すると、Kest のウィンドウが戻ります。</translation>
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
        <translation>メッセージに使用済み</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>最後の録音</translation>
    </message>
    <message>
        <source>This recording</source>
        <translation>この録音</translation>
    </message>
    <message>
        <source>Moved to the trash</source>
        <translation>ごみ箱に移動しました</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>まだありません</translation>
    </message>
    <message>
        <source>Drag it into another window</source>
        <translation>別のウィンドウにドラッグできます</translation>
    </message>
    <message>
        <source>Being recorded</source>
        <translation>録音中</translation>
    </message>
    <message>
        <source>Pause Playing</source>
        <translation>再生を一時停止</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Pause playing</source>
        <translation>再生を一時停止します</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>録音を再生します</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>ごみ箱に移動できませんでした。</translation>
    </message>
    <message>
        <source>It could not be taken out of the trash.</source>
        <translation>ごみ箱から戻せませんでした。</translation>
    </message>
</context>
<context>
    <name>kest::MailStateView</name>
    <message>
        <source>Install Add-on</source>
        <translation>アドオンを追加</translation>
    </message>
    <message>
        <source>Put Kest’s add-on into your Thunderbird profile</source>
        <translation>Kest アドオンを Thunderbird のプロファイルに追加します</translation>
    </message>
    <message>
        <source>The add-on is installed.</source>
        <translation>アドオンを追加しました。</translation>
    </message>
</context>
<context>
    <name>kest::MailWords</name>
    <message>
        <source>your mail application</source>
        <translation>メールソフト</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>%1 に接続済み。</translation>
    </message>
    <message>
        <source>Connected to %1 as %2.</source>
        <translation>%1 に接続済み（%2）。</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1. Help says how to get it.</source>
        <translation>%1 に Kest アドオンがありません。入手方法はヘルプにあります。</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing. Quit %1 to install it.</source>
        <translation>Kest アドオンがありません。%1 を終了して追加してください。</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1.</source>
        <translation>%1 に Kest アドオンがありません。</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is of another version. Restart %1.</source>
        <translation>%1 の Kest アドオンは別のバージョンです。%1 を再起動してください。</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is version %2, this is %3. Restart %1.</source>
        <translation>%1 の Kest アドオンはバージョン %2、Kest は %3 です。%1 を再起動してください。</translation>
    </message>
    <message>
        <source>No mail application was found. Kest needs Thunderbird.</source>
        <translation>メールソフトが見つかりません。Thunderbird が必要です。</translation>
    </message>
    <message>
        <source>Kest cannot talk to %1 yet. It needs Thunderbird.</source>
        <translation>%1 にはまだ対応していません。Thunderbird が必要です。</translation>
    </message>
    <message>
        <source>Not connected. Your first message starts %1.</source>
        <translation>未接続。最初のメッセージで %1 が起動します。</translation>
    </message>
    <message>
        <source>Not connected. Restart %1, and see that Kest’s add-on is switched on.</source>
        <translation>未接続。%1 を再起動し、Kest アドオンを有効にしてください。</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 does not answer. Restart %1.</source>
        <translation>%1 の Kest アドオンが応答しません。%1 を再起動してください。</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>未接続。</translation>
    </message>
</context>
<context>
    <name>kest::MainWindowController</name>
    <message>
        <source>The folder of prepared messages does not answer.</source>
        <translation>定型メッセージのフォルダーが応答しません。</translation>
    </message>
    <message>
        <source>The folder of prepared messages is empty.</source>
        <translation>定型メッセージのフォルダーは空です。</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>詳細を表示</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>詳細を隠す</translation>
    </message>
    <message>
        <source>There is no recording to send yet.</source>
        <translation>送信する録音がまだありません。</translation>
    </message>
    <message>
        <source>Finishing the recording…</source>
        <translation>録音を仕上げています…</translation>
    </message>
    <message>
        <source>The recording is still being finished. Please try again.</source>
        <translation>録音の仕上げ中です。もう一度お試しください。</translation>
    </message>
    <message>
        <source>The mail application cannot be reached</source>
        <translation>メールソフトに接続できません</translation>
    </message>
    <message>
        <source>Waiting for the mail application…</source>
        <translation>メールソフトを待っています…</translation>
    </message>
    <message>
        <source>Ready to record</source>
        <translation>録音できます</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>録音中</translation>
    </message>
    <message>
        <source>“%1” is ready to send</source>
        <translation>「%1」を送信できます</translation>
    </message>
    <message>
        <source>Recorded, ready to send</source>
        <translation>録音済み、送信できます</translation>
    </message>
    <message>
        <source>Directory not found</source>
        <translation>フォルダーが見つかりません</translation>
    </message>
    <message>
        <source>You need to go into Preferences and choose the directory recordings should be saved to.</source>
        <translation>設定を開いて、録音の保存先フォルダーを選択してください。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>再開</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Go on recording</source>
        <translation>録音を再開します</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>録音を一時停止します</translation>
    </message>
    <message>
        <source>The reply could not be made. Please try again.</source>
        <translation>返信を作成できませんでした。もう一度お試しください。</translation>
    </message>
    <message>
        <source>There was no recording to attach.</source>
        <translation>添付する録音がありませんでした。</translation>
    </message>
</context>
<context>
    <name>kest::MessagePreview</name>
    <message>
        <source>Text of the Message</source>
        <translation>メッセージの本文</translation>
    </message>
</context>
<context>
    <name>kest::MicrophoneTrialView</name>
    <message>
        <source>Press the button and speak. Nothing is recorded.</source>
        <translation>ボタンを押して話してください。録音はされません。</translation>
    </message>
    <message>
        <source>Nothing heard yet. Say something.</source>
        <translation>まだ何も聞こえません。何か話してください。</translation>
    </message>
    <message>
        <source>You are heard.</source>
        <translation>聞こえています。</translation>
    </message>
    <message>
        <source>You were heard.</source>
        <translation>聞こえました。</translation>
    </message>
    <message>
        <source>Nothing was heard. Is the microphone muted?</source>
        <translation>何も聞こえませんでした。マイクがミュートになっていませんか？</translation>
    </message>
    <message>
        <source>Microphone Name</source>
        <translation>マイクの名前</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>入力レベル</translation>
    </message>
    <message>
        <source>No microphone was found. Plug one in and try again.</source>
        <translation>マイクが見つかりません。つないで、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The microphone went away. Plug it in and try again.</source>
        <translation>マイクがなくなりました。つないで、もう一度お試しください。</translation>
    </message>
    <message>
        <source>No sound server answers. Try again in a moment.</source>
        <translation>サウンドサーバーが応答しません。少ししてから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The microphone gives no sound. Try again, or choose another one.</source>
        <translation>マイクから音が来ません。もう一度試すか、別のマイクを選んでください。</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>マイクがありません</translation>
    </message>
    <message>
        <source>Stop Listening</source>
        <translation>聞くのをやめる</translation>
    </message>
    <message>
        <source>Try the Microphone</source>
        <translation>マイクを試す</translation>
    </message>
    <message>
        <source>Close the microphone</source>
        <translation>マイクを閉じます</translation>
    </message>
    <message>
        <source>Open the microphone and show its level</source>
        <translation>マイクを開いて音量を表示します</translation>
    </message>
</context>
<context>
    <name>kest::PlaybackWording</name>
    <message>
        <source>The file is not there any more.</source>
        <translation>ファイルはもうありません。</translation>
    </message>
    <message>
        <source>The file cannot be read as sound.</source>
        <translation>ファイルを音声として読めません。</translation>
    </message>
    <message>
        <source>The sound decoder is missing.</source>
        <translation>音声デコーダーがありません。</translation>
    </message>
    <message>
        <source>No sound server answers.</source>
        <translation>サウンドサーバーが応答しません。</translation>
    </message>
    <message>
        <source>No loudspeaker was found.</source>
        <translation>スピーカーが見つかりません。</translation>
    </message>
    <message>
        <source>The loudspeaker went away.</source>
        <translation>スピーカーが外れました。</translation>
    </message>
    <message>
        <source>The sound server ended.</source>
        <translation>サウンドサーバーが終了しました。</translation>
    </message>
    <message>
        <source>The sound server takes no sound.</source>
        <translation>サウンドサーバーが音を受け付けません。</translation>
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
        <translation>メールソフトに問い合わせています…</translation>
    </message>
    <message>
        <source>Waiting for your mail application…</source>
        <translation>メールソフトを待っています…</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>アカウントを選択</translation>
    </message>
    <message>
        <source>Your mail application has no account that can send.</source>
        <translation>メールソフトに送信できるアカウントがありません。</translation>
    </message>
    <message>
        <source>Until you choose, your mail application’s default account is used.</source>
        <translation>選択するまで、メールソフトの既定のアカウントを使います。</translation>
    </message>
    <message>
        <source>“%1” is not there now, so the default account is used.</source>
        <translation>「%1」が今はないため、既定のアカウントを使います。</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>That folder cannot be used. The old one stays.</source>
        <translation>そのフォルダーは使えません。元のままにします。</translation>
    </message>
    <message>
        <source>Kest may not write to that folder.</source>
        <translation>Kest はそのフォルダーに書き込めません。</translation>
    </message>
    <message>
        <source>Nothing here can show that folder.</source>
        <translation>そのフォルダーを表示できるものがありません。</translation>
    </message>
    <message>
        <source>sender’s name</source>
        <translation>差出人の名前</translation>
    </message>
    <message>
        <source>Preview of a reply</source>
        <translation>返信のプレビュー</translation>
    </message>
    <message>
        <source>Preview of a new message</source>
        <translation>新規メッセージのプレビュー</translation>
    </message>
    <message>
        <source>Re: the subject of the message</source>
        <translation>Re: メッセージの件名</translation>
    </message>
</context>
<context>
    <name>kest::StatusItem</name>
    <message>
        <source>Show Kest</source>
        <translation>Kest を表示</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>録音を停止</translation>
    </message>
    <message>
        <source>Quit Kest</source>
        <translation>Kest を終了</translation>
    </message>
    <message>
        <source>Kest – paused</source>
        <translation>Kest – 一時停止中</translation>
    </message>
    <message>
        <source>Kest – recording</source>
        <translation>Kest – 録音中</translation>
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
        <translation>サウンドサーバーが応答せず、録音されません。</translation>
    </message>
    <message>
        <source>No microphone was found, so nothing is recorded.</source>
        <translation>マイクが見つからず、録音されません。</translation>
    </message>
    <message>
        <source>The microphone went away. The recording is kept.</source>
        <translation>マイクが外れました。録音は残っています。</translation>
    </message>
    <message>
        <source>The sound server ended. The recording is kept.</source>
        <translation>サウンドサーバーが終了しました。録音は残っています。</translation>
    </message>
    <message>
        <source>The microphone gives no sound. What it gave is kept.</source>
        <translation>マイクから音が来ません。それまでの録音は残っています。</translation>
    </message>
    <message>
        <source>The disk is full. The recording so far is kept.</source>
        <translation>ディスクがいっぱいです。ここまでの録音は残っています。</translation>
    </message>
    <message>
        <source>Writing failed. What was recorded before is kept.</source>
        <translation>書き込みに失敗しました。それまでの録音は残っています。</translation>
    </message>
    <message>
        <source>The sound encoder is missing, so nothing is recorded.</source>
        <translation>音声エンコーダーがなく、録音されません。</translation>
    </message>
    <message>
        <source>The microphone went away, so nothing is recorded.</source>
        <translation>マイクが外れたため、録音されません。</translation>
    </message>
    <message>
        <source>The sound server ended, so nothing is recorded.</source>
        <translation>サウンドサーバーが終了し、録音されません。</translation>
    </message>
    <message>
        <source>The microphone gives no sound; nothing is recorded.</source>
        <translation>マイクから音が来ないため、録音されません。</translation>
    </message>
    <message>
        <source>The disk is full, so nothing is recorded.</source>
        <translation>ディスクがいっぱいで、録音されません。</translation>
    </message>
    <message>
        <source>The recording could not be written.</source>
        <translation>録音を書き込めませんでした。</translation>
    </message>
    <message>
        <source>No sound. Is the microphone muted?</source>
        <translation>音が入っていません。マイクがミュートになっていませんか？</translation>
    </message>
    <message>
        <source>No sound. Is “%1” muted?</source>
        <translation>音が入っていません。「%1」がミュートになっていませんか？</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn the microphone down.</source>
        <translation>音が大きすぎます。離れるか、マイクを下げてください。</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn down “%1”.</source>
        <translation>音が大きすぎます。離れるか、「%1」を下げてください。</translation>
    </message>
    <message>
        <source>Nothing was heard in this recording.</source>
        <translation>この録音には音が入っていません。</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers stop at 18 MB.</source>
        <translation>現在 %1。多くのメールサーバーは 18 MB までです。</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers take no more.</source>
        <translation>現在 %1。これ以上は多くのメールサーバーが受け取りません。</translation>
    </message>
    <message>
        <source>Handing over: %1 of %2</source>
        <translation>受け渡し中: %1 / %2</translation>
    </message>
    <message>
        <source>Nothing was recorded: it was stopped before the first sound.</source>
        <translation>何も録音されていません。最初の音の前に停止しました。</translation>
    </message>
</context>
</TS>
