<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>DBusMailConnection</name>
    <message>
        <source>Quit %1 first, then install the add-on.</source>
        <translation>أغلق %1 أولًا ثم ثبّت الإضافة.</translation>
    </message>
    <message>
        <source>The add-on could not be installed.</source>
        <translation>تعذر تثبيت الإضافة.</translation>
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
        <translation>تسجيل</translation>
    </message>
    <message>
        <source>Record a message</source>
        <translation>تسجيل رسالة</translation>
    </message>
    <message>
        <source>Recording Time</source>
        <translation>مدة التسجيل</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>إيقاف مؤقت</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>إيقاف التسجيل مؤقتًا</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>إيقاف</translation>
    </message>
    <message>
        <source>Stop and keep the recording</source>
        <translation>إيقاف التسجيل والاحتفاظ به</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>التفضيلات</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>مساعدة</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>مستوى الإدخال</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>إشعار</translation>
    </message>
    <message>
        <source>Input Device</source>
        <translation>جهاز الإدخال</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>رسالة جديدة</translation>
    </message>
    <message>
        <source>Put the recording into a new message</source>
        <translation>وضع التسجيل في رسالة جديدة</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>رد</translation>
    </message>
    <message>
        <source>Answer the selected message with the recording</source>
        <translation>الرد على الرسالة المحددة بالتسجيل</translation>
    </message>
    <message>
        <source>Reply All</source>
        <translation>الرد على الكل</translation>
    </message>
    <message>
        <source>Answer the selected message, to everyone</source>
        <translation>الرد على الرسالة المحددة، إلى الجميع</translation>
    </message>
    <message>
        <source>Optional Message</source>
        <translation>رسالة جاهزة</translation>
    </message>
    <message>
        <source>Send a prepared message instead of the recording</source>
        <translation>إرسال رسالة جاهزة بدلًا من التسجيل</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>إظهار المزيد</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>إظهار المزيد</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>آخر تسجيل</translation>
    </message>
    <message>
        <source>Last Recording</source>
        <translation>آخر تسجيل</translation>
    </message>
    <message>
        <source>Length and Size</source>
        <translation>المدة والحجم</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>المجلد</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>إظهار في المجلد</translation>
    </message>
    <message>
        <source>Show the last recording in its folder</source>
        <translation>إظهار آخر تسجيل في مجلده</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>البريد</translation>
    </message>
    <message>
        <source>Discard Recording</source>
        <translation>حذف التسجيل</translation>
    </message>
    <message>
        <source>Move the last recording to the trash</source>
        <translation>نقل آخر تسجيل إلى المهملات</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>تشغيل</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>تشغيل التسجيل</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>الموضع</translation>
    </message>
    <message>
        <source>Playing Time</source>
        <translation>زمن التشغيل</translation>
    </message>
    <message>
        <source>Undo Discard</source>
        <translation>التراجع عن الحذف</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>تراجع</translation>
    </message>
    <message>
        <source>Take the recording out of the trash again</source>
        <translation>إعادة التسجيل من المهملات</translation>
    </message>
    <message>
        <source>Listening Notice</source>
        <translation>إشعار الاستماع</translation>
    </message>
</context>
<context>
    <name>PrefsSheet</name>
    <message>
        <source>Preferences</source>
        <translation>التفضيلات</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>الرسالة</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>الموضوع:</translation>
    </message>
    <message>
        <source>&amp;Subject</source>
        <translation>ال&amp;موضوع</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>الموضوع</translation>
    </message>
    <message>
        <source>&amp;Message text</source>
        <translation>ن&amp;ص الرسالة</translation>
    </message>
    <message>
        <source>Message Text</source>
        <translation>نص الرسالة</translation>
    </message>
    <message>
        <source>Include the &amp;tagline, in replies too</source>
        <translation>إدراج ال&amp;عبارة الختامية، وفي الردود أيضًا</translation>
    </message>
    <message>
        <source>Include Tagline</source>
        <translation>إدراج العبارة الختامية</translation>
    </message>
    <message>
        <source>A last line that says how the message was made</source>
        <translation>سطر أخير يذكر كيف أُنشئت الرسالة</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>الردود</translation>
    </message>
    <message>
        <source>&amp;Reply text</source>
        <translation>نص ال&amp;رد</translation>
    </message>
    <message>
        <source>Reply Text</source>
        <translation>نص الرد</translation>
    </message>
    <message>
        <source>Add the sender’s &amp;name to the recording’s file name</source>
        <translation>إ&amp;ضافة اسم المرسل إلى اسم ملف التسجيل</translation>
    </message>
    <message>
        <source>Include Sender&apos;s Name</source>
        <translation>إضافة اسم المرسل</translation>
    </message>
    <message>
        <source>Send replies at &amp;once</source>
        <translation>إرسال الردود &amp;فورًا</translation>
    </message>
    <message>
        <source>Send Replies at Once</source>
        <translation>إرسال الردود فورًا</translation>
    </message>
    <message>
        <source>Otherwise a reply opens in your mail application for you to look over</source>
        <translation>وإلا فسيُفتح الرد في برنامج البريد لتراجعه</translation>
    </message>
    <message>
        <source>&amp;Delete the message that I answered</source>
        <translation>&amp;حذف الرسالة التي رددت عليها</translation>
    </message>
    <message>
        <source>Delete Original</source>
        <translation>حذف الرسالة الأصلية</translation>
    </message>
    <message>
        <source>It goes where your mail application puts deleted messages</source>
        <translation>تنتقل إلى حيث يضع برنامج البريد الرسائل المحذوفة</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>معاينة</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>الحساب</translation>
    </message>
    <message>
        <source>Sending &amp;account</source>
        <translation>ح&amp;ساب الإرسال</translation>
    </message>
    <message>
        <source>Sending Account</source>
        <translation>حساب الإرسال</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>اختر حسابًا</translation>
    </message>
    <message>
        <source>List Accounts</source>
        <translation>عرض الحسابات</translation>
    </message>
    <message>
        <source>Start your mail application and ask for its accounts</source>
        <translation>تشغيل برنامج البريد وطلب حساباته</translation>
    </message>
    <message>
        <source>Mail &amp;back end</source>
        <translation>&amp;طريقة الإرسال</translation>
    </message>
    <message>
        <source>Mail Back End</source>
        <translation>طريقة الإرسال</translation>
    </message>
    <message>
        <source>Direct – your mail application picks the account</source>
        <translation>مباشر – يختار برنامج البريد الحساب</translation>
    </message>
    <message>
        <source>Script – sends from the account above</source>
        <translation>نص برمجي – يرسل من الحساب أعلاه</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>المجلدات</translation>
    </message>
    <message>
        <source>Recordings &amp;folder</source>
        <translation>مجلد ال&amp;تسجيلات</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>مجلد التسجيلات</translation>
    </message>
    <message>
        <source>Not found – please choose one</source>
        <translation>غير موجود – يُرجى اختيار مجلد</translation>
    </message>
    <message>
        <source>Choose Recordings Folder</source>
        <translation>اختيار مجلد التسجيلات</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>اختيار…</translation>
    </message>
    <message>
        <source>Choose another folder</source>
        <translation>اختيار مجلد آخر</translation>
    </message>
    <message>
        <source>Reveal Recordings Folder</source>
        <translation>إظهار مجلد التسجيلات</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>إظهار</translation>
    </message>
    <message>
        <source>Show it in the file browser</source>
        <translation>إظهاره في مدير الملفات</translation>
    </message>
    <message>
        <source>O&amp;ptional messages folder</source>
        <translation>مجلد الرسائل ال&amp;جاهزة</translation>
    </message>
    <message>
        <source>Optional Messages Folder</source>
        <translation>مجلد الرسائل الجاهزة</translation>
    </message>
    <message>
        <source>Choose Optional Messages Folder</source>
        <translation>اختيار مجلد الرسائل الجاهزة</translation>
    </message>
    <message>
        <source>Reveal Optional Messages Folder</source>
        <translation>إظهار مجلد الرسائل الجاهزة</translation>
    </message>
    <message>
        <source>Clean-up</source>
        <translation>التنظيف</translation>
    </message>
    <message>
        <source>Remove recordin&amp;gs</source>
        <translation>إ&amp;زالة التسجيلات</translation>
    </message>
    <message>
        <source>Remove Recordings</source>
        <translation>إزالة التسجيلات</translation>
    </message>
    <message>
        <source>All, whenever Kest quits</source>
        <translation>كلها، عند كل إنهاء لـKest</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>أبدًا</translation>
    </message>
    <message>
        <source>After one day, when Kest quits</source>
        <translation>بعد يوم واحد، عند إنهاء Kest</translation>
    </message>
    <message>
        <source>After seven days, when Kest quits</source>
        <translation>بعد سبعة أيام، عند إنهاء Kest</translation>
    </message>
    <message>
        <source>After 30 days, when Kest quits</source>
        <translation>بعد 30 يومًا، عند إنهاء Kest</translation>
    </message>
    <message>
        <source>Move them to the tras&amp;h</source>
        <translation>&amp;نقلها إلى المهملات</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>نقل إلى المهملات</translation>
    </message>
    <message>
        <source>Otherwise they are deleted for good</source>
        <translation>وإلا فستُحذف نهائيًا</translation>
    </message>
    <message>
        <source>Preferences Notice</source>
        <translation>إشعار التفضيلات</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>إ&amp;غلاق</translation>
    </message>
</context>
<context>
    <name>PulseRecorder</name>
    <message>
        <source>The recording cannot be made.</source>
        <translation>لا يمكن إجراء التسجيل.</translation>
    </message>
    <message>
        <source>This format is not served.</source>
        <translation>هذه الصيغة غير مدعومة.</translation>
    </message>
</context>
<context>
    <name>WelcomeSheet</name>
    <message>
        <source>Welcome to Kest</source>
        <translation>مرحبًا بك في Kest</translation>
    </message>
    <message>
        <source>Speak, stop, and one click makes a mail of it.
If you like, see first that all is ready.</source>
        <translation>تحدّث ثم أوقف، وبنقرة واحدة يصبح كلامك رسالة بريد.
يمكنك أن تتأكد أولًا من أن كل شيء جاهز.</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>الميكروفون</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>البريد</translation>
    </message>
    <message>
        <source>Both checks can be skipped.</source>
        <translation>يمكن تخطي الاثنين.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>ابدأ</translation>
    </message>
    <message>
        <source>Go to the window to record in</source>
        <translation>الانتقال إلى نافذة التسجيل</translation>
    </message>
</context>
<context>
    <name>kest</name>
    <message>
        <source>Stored recordings folder is missing or has been moved. You need to choose it again.</source>
        <translation>مجلد التسجيلات المحفوظ غير موجود أو نُقل. عليك اختياره من جديد.</translation>
    </message>
    <message>
        <source>Stored recordings folder is missing</source>
        <translation>مجلد التسجيلات المحفوظ غير موجود</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved. You need to choose it again.</source>
        <translation>تعذر العثور على مجلد التسجيلات المحفوظ. عليك اختياره من جديد.</translation>
    </message>
    <message>
        <source>Stored recordings folder could not be retrieved</source>
        <translation>تعذر العثور على مجلد التسجيلات المحفوظ</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing or has been moved. You need to choose it again.</source>
        <translation>مجلد الرسائل الجاهزة المحفوظ غير موجود أو نُقل. عليك اختياره من جديد.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder is missing</source>
        <translation>مجلد الرسائل الجاهزة المحفوظ غير موجود</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved. You need to choose it again.</source>
        <translation>تعذر العثور على مجلد الرسائل الجاهزة المحفوظ. عليك اختياره من جديد.</translation>
    </message>
    <message>
        <source>Stored optional attachments folder could not be retrieved</source>
        <translation>تعذر العثور على مجلد الرسائل الجاهزة المحفوظ</translation>
    </message>
    <message>
        <source>Spoken, not typed. Recorded with Kest.</source>
        <translation>رسالة منطوقة لا مكتوبة. سُجلت باستخدام Kest.</translation>
    </message>
    <message>
        <source>Sent in one click with Kest.</source>
        <translation>أُرسلت بنقرة واحدة باستخدام Kest.</translation>
    </message>
    <message>
        <source>Your settings could not be saved (%1). They hold until you quit.</source>
        <translation>تعذر حفظ إعداداتك (%1). ستبقى سارية حتى تنهي البرنامج.</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). Kest uses its defaults until you quit.</source>
        <translation>تعذرت قراءة إعداداتك (%1). يستخدم Kest القيم الافتراضية حتى تنهيه.</translation>
    </message>
    <message>
        <source>The settings file was damaged. Kest uses its defaults until you quit.</source>
        <translation>ملف الإعدادات تالف. يستخدم Kest القيم الافتراضية حتى تنهيه.</translation>
    </message>
    <message>
        <source>The settings file was damaged and was put aside as “%1”. Kest starts with its defaults.</source>
        <translation>كان ملف الإعدادات تالفًا فنُحّي باسم «%1». يبدأ Kest بالقيم الافتراضية.</translation>
    </message>
    <message>
        <source>--:--</source>
        <translation>--:--</translation>
    </message>
    <message>
        <source>The mail script could not be loaded.</source>
        <translation>تعذر تحميل نص البريد البرمجي.</translation>
    </message>
    <message>
        <source>The mail script lacks the operation %1.</source>
        <translation>نص البريد البرمجي تنقصه العملية %1.</translation>
    </message>
    <message>
        <source>The mail script failed.</source>
        <translation>فشل نص البريد البرمجي.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
    <message>
        <source>No accounts were detected in Mail. You must have at least one account configured in order to create messages or reply to messages. Please ensure that you have an account configured, and try again.</source>
        <translation>لم يُعثر على أي حساب في برنامج البريد. يجب إعداد حساب واحد على الأقل لإنشاء الرسائل أو الرد عليها. يُرجى التأكد من إعداد حساب ثم المحاولة مرة أخرى.</translation>
    </message>
    <message>
        <source>No messages appear to be selected in Mail. Please select a message and try again.</source>
        <translation>يبدو أنه لا توجد رسالة محددة في برنامج البريد. يُرجى تحديد رسالة ثم المحاولة مرة أخرى.</translation>
    </message>
    <message>
        <source>Unable to Proceed</source>
        <translation>تتعذر المتابعة</translation>
    </message>
    <message>
        <source>it is too large for a message&apos;s text</source>
        <translation>حجمه أكبر من أن يكون نص رسالة</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>لم تعد الرسالة موجودة.</translation>
    </message>
    <message>
        <source>The mail application did not understand the request.</source>
        <translation>لم يفهم برنامج البريد الطلب.</translation>
    </message>
    <message>
        <source>Kest&apos;s add-on in the mail application does not answer. Check that it is installed and switched on, and try again.</source>
        <translation>إضافة Kest في برنامج البريد لا تستجيب. تأكد من تثبيتها وتفعيلها ثم حاول مرة أخرى.</translation>
    </message>
    <message>
        <source>Kest and its add-on in the mail application are of different versions. Install the add-on that belongs to this version of Kest, and try again.</source>
        <translation>إصدار Kest يختلف عن إصدار إضافته في برنامج البريد. ثبّت الإضافة التابعة لهذا الإصدار من Kest ثم حاول مرة أخرى.</translation>
    </message>
    <message>
        <source>The mail application did not answer in time.</source>
        <translation>لم يستجب برنامج البريد في الوقت المحدد.</translation>
    </message>
    <message>
        <source>The mail application cannot do this.</source>
        <translation>لا يستطيع برنامج البريد فعل ذلك.</translation>
    </message>
    <message>
        <source>The mail application could not do this.</source>
        <translation>تعذر على برنامج البريد فعل ذلك.</translation>
    </message>
    <message>
        <source>The mail application is still busy with the last request.</source>
        <translation>ما زال برنامج البريد مشغولًا بالطلب السابق.</translation>
    </message>
    <message>
        <source>Kest cannot reach the mail application, because there is no session bus.</source>
        <translation>لا يستطيع Kest الوصول إلى برنامج البريد لعدم وجود ناقل جلسة.</translation>
    </message>
    <message>
        <source>No mail application could be started. Install Thunderbird and Kest&apos;s add-on for it, and try again.</source>
        <translation>تعذر تشغيل أي برنامج بريد. ثبّت Thunderbird وإضافة Kest له ثم حاول مرة أخرى.</translation>
    </message>
    <message>
        <source>The mail application does not answer Kest. Install Kest&apos;s add-on in it, and try again.</source>
        <translation>برنامج البريد لا يستجيب لـKest. ثبّت إضافة Kest فيه ثم حاول مرة أخرى.</translation>
    </message>
    <message>
        <source>The mail application went away before it was done.</source>
        <translation>أُغلق برنامج البريد قبل أن ينتهي.</translation>
    </message>
    <message>
        <source>The mail application&apos;s answer makes no sense to Kest.</source>
        <translation>لم يفهم Kest رد برنامج البريد.</translation>
    </message>
    <message>
        <source>Kest is ending.</source>
        <translation>يجري إنهاء Kest.</translation>
    </message>
    <message>
        <source>No mail application is connected.</source>
        <translation>لا يوجد برنامج بريد متصل.</translation>
    </message>
    <message>
        <source>The file “%1” cannot be attached</source>
        <translation>لا يمكن إرفاق الملف «%1»</translation>
    </message>
    <message>
        <source>No optional outgoing messages folder set</source>
        <translation>لم يُحدَّد مجلد للرسائل الجاهزة</translation>
    </message>
    <message>
        <source>“%1” did not arrive whole.</source>
        <translation>لم يصل «%1» كاملاً.</translation>
    </message>
    <message>
        <source>Thunderbird did not attach “%1”.</source>
        <translation>لم يُرفق Thunderbird الملف «%1».</translation>
    </message>
    <message>
        <source>Thunderbird has no account that can send mail.</source>
        <translation>لا يوجد في Thunderbird حساب يمكنه إرسال البريد.</translation>
    </message>
    <message>
        <source>The message was closed before it was sent.</source>
        <translation>أُغلقت الرسالة قبل إرسالها.</translation>
    </message>
    <message>
        <source>The message has no recipient.</source>
        <translation>ليس للرسالة مستلم.</translation>
    </message>
    <message>
        <source>Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete.</source>
        <translation>لا يتيح Thunderbird إرسال هذه الرسالة: ربما كان غير متصل، أو كان أحد العناوين ناقصًا.</translation>
    </message>
    <message>
        <source>Thunderbird could not send the message; it is still open there.</source>
        <translation>تعذّر على Thunderbird إرسال الرسالة؛ وهي ما زالت مفتوحة فيه.</translation>
    </message>
    <message>
        <source>Thunderbird has no window to show.</source>
        <translation>ليس لدى Thunderbird نافذة لعرضها.</translation>
    </message>
    <message>
        <source>Thunderbird says: %1</source>
        <translation>يقول Thunderbird: %1</translation>
    </message>
    <message>
        <source>%1 is busy with other requests.</source>
        <translation>%1 مشغول بطلبات أخرى.</translation>
    </message>
    <message>
        <source>An attachment is not a regular file that can be read.</source>
        <translation>أحد المرفقات ليس ملفًا عاديًا يمكن قراءته.</translation>
    </message>
    <message>
        <source>The attachments are larger than 2 GiB together, more than a mail can carry.</source>
        <translation>المرفقات معًا أكبر من 2 غيغابايت، أي أكثر مما يمكن أن تحمله رسالة.</translation>
    </message>
    <message>
        <source>An attachment cannot be read: %1.</source>
        <translation>تعذّرت قراءة أحد المرفقات: %1.</translation>
    </message>
    <message>
        <source>The add-on gave an answer that makes no sense.</source>
        <translation>أعطت الإضافة جوابًا غير مفهوم.</translation>
    </message>
    <message>
        <source>Only Kest may do this, and the caller is not the Kest that runs.</source>
        <translation>لا يُسمح بهذا إلا لـ Kest، والطالب ليس Kest الذي يعمل الآن.</translation>
    </message>
    <message>
        <source>The part of Kest that prepares mail could not be loaded. Please install Kest again.</source>
        <translation>تعذّر تحميل جزء Kest الذي يُعِدّ البريد. يُرجى تثبيت Kest من جديد.</translation>
    </message>
    <message>
        <source>The answer is too long to be passed on.</source>
        <translation>الردّ أطول من أن يُمرَّر.</translation>
    </message>
    <message>
        <source>The reply was sent, but the original could not be deleted: %1</source>
        <translation>أُرسل الرد، لكن تعذّر حذف الرسالة الأصلية: %1</translation>
    </message>
    <message>
        <source>The reply is there, but the original could not be deleted: %1</source>
        <translation>الرد موجود، لكن تعذّر حذف الرسالة الأصلية: %1</translation>
    </message>
    <message>
        <source>This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.</source>
        <translation>يجب تشفير هذا الرد، و«مباشر» لا يستطيع ذلك. اختر «نص برمجي» طريقةً للإرسال في التفضيلات.</translation>
    </message>
    <message>
        <source>The message may be there or be sent all the same. Look in the mail application before you try again.</source>
        <translation>ربما تكون الرسالة هناك أو أُرسلت رغم ذلك. تحقّق في برنامج البريد قبل أن تحاول مرة أخرى.</translation>
    </message>
</context>
<context>
    <name>kest::AppDelegate</name>
    <message>
        <source>A message is being recorded</source>
        <translation>يجري تسجيل رسالة</translation>
    </message>
    <message>
        <source>Kest’s recording is paused</source>
        <translation>تسجيل Kest متوقف مؤقتًا</translation>
    </message>
    <message>
        <source>Kest is still recording</source>
        <translation>ما زال Kest يسجل</translation>
    </message>
    <message>
        <source>Its window comes back when you turn to your mail, or start Kest again.</source>
        <translation>تعود نافذته عندما تنتقل إلى بريدك أو تشغّل Kest من جديد.</translation>
    </message>
    <message>
        <source>Kest’s recording has ended</source>
        <translation>انتهى تسجيل Kest</translation>
    </message>
    <message>
        <source>Kest’s window comes back when you turn to your mail, or start Kest again.</source>
        <translation>تعود نافذة Kest عندما تنتقل إلى بريدك أو تشغّل Kest من جديد.</translation>
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
        <translation>استُخدم في رسالة</translation>
    </message>
    <message>
        <source>Last recording</source>
        <translation>آخر تسجيل</translation>
    </message>
    <message>
        <source>This recording</source>
        <translation>هذا التسجيل</translation>
    </message>
    <message>
        <source>Moved to the trash</source>
        <translation>نُقل إلى المهملات</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>لا شيء بعد</translation>
    </message>
    <message>
        <source>Drag it into another window</source>
        <translation>اسحبه إلى نافذة أخرى</translation>
    </message>
    <message>
        <source>Being recorded</source>
        <translation>قيد التسجيل</translation>
    </message>
    <message>
        <source>Pause Playing</source>
        <translation>إيقاف التشغيل مؤقتًا</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>تشغيل</translation>
    </message>
    <message>
        <source>Pause playing</source>
        <translation>إيقاف التشغيل مؤقتًا</translation>
    </message>
    <message>
        <source>Play the recording</source>
        <translation>تشغيل التسجيل</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>تعذر نقله إلى المهملات.</translation>
    </message>
    <message>
        <source>It could not be taken out of the trash.</source>
        <translation>تعذرت إعادته من المهملات.</translation>
    </message>
</context>
<context>
    <name>kest::MailStateView</name>
    <message>
        <source>Install Add-on</source>
        <translation>تثبيت الإضافة</translation>
    </message>
    <message>
        <source>Put Kest’s add-on into your Thunderbird profile</source>
        <translation>وضع إضافة Kest في ملفك الشخصي في Thunderbird</translation>
    </message>
    <message>
        <source>The add-on is installed.</source>
        <translation>ثُبِّتت الإضافة.</translation>
    </message>
</context>
<context>
    <name>kest::MailWords</name>
    <message>
        <source>your mail application</source>
        <translation>برنامج البريد</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>متصل بـ%1.</translation>
    </message>
    <message>
        <source>Connected to %1 as %2.</source>
        <translation>متصل بـ%1 باسم %2.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1. Help says how to get it.</source>
        <translation>إضافة Kest غير موجودة في %1. تشرح المساعدة كيفية الحصول عليها.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing. Quit %1 to install it.</source>
        <translation>إضافة Kest غير موجودة. أغلق %1 لتثبيتها.</translation>
    </message>
    <message>
        <source>Kest’s add-on is missing in %1.</source>
        <translation>إضافة Kest غير موجودة في %1.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is of another version. Restart %1.</source>
        <translation>إضافة Kest في %1 من إصدار آخر. أعد تشغيل %1.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 is version %2, this is %3. Restart %1.</source>
        <translation>إضافة Kest في %1 إصدارها %2، وهذا %3. أعد تشغيل %1.</translation>
    </message>
    <message>
        <source>No mail application was found. Kest needs Thunderbird.</source>
        <translation>لم يُعثر على برنامج بريد. يحتاج Kest إلى Thunderbird.</translation>
    </message>
    <message>
        <source>Kest cannot talk to %1 yet. It needs Thunderbird.</source>
        <translation>لا يستطيع Kest التعامل مع %1 بعد. يحتاج إلى Thunderbird.</translation>
    </message>
    <message>
        <source>Not connected. Your first message starts %1.</source>
        <translation>غير متصل. أول رسالة لك تشغّل %1.</translation>
    </message>
    <message>
        <source>Not connected. Restart %1, and see that Kest’s add-on is switched on.</source>
        <translation>غير متصل. أعد تشغيل %1 وتأكد من تفعيل إضافة Kest.</translation>
    </message>
    <message>
        <source>Kest’s add-on in %1 does not answer. Restart %1.</source>
        <translation>إضافة Kest في %1 لا تستجيب. أعد تشغيل %1.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>غير متصل.</translation>
    </message>
</context>
<context>
    <name>kest::MainWindowController</name>
    <message>
        <source>The folder of prepared messages does not answer.</source>
        <translation>مجلد الرسائل الجاهزة لا يستجيب.</translation>
    </message>
    <message>
        <source>The folder of prepared messages is empty.</source>
        <translation>مجلد الرسائل الجاهزة فارغ.</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>إظهار المزيد</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>إظهار أقل</translation>
    </message>
    <message>
        <source>There is no recording to send yet.</source>
        <translation>لا يوجد تسجيل لإرساله بعد.</translation>
    </message>
    <message>
        <source>Finishing the recording…</source>
        <translation>جارٍ إنهاء التسجيل…</translation>
    </message>
    <message>
        <source>The recording is still being finished. Please try again.</source>
        <translation>ما زال التسجيل قيد الإنهاء. يُرجى المحاولة مرة أخرى.</translation>
    </message>
    <message>
        <source>The mail application cannot be reached</source>
        <translation>يتعذر الوصول إلى برنامج البريد</translation>
    </message>
    <message>
        <source>Waiting for the mail application…</source>
        <translation>في انتظار برنامج البريد…</translation>
    </message>
    <message>
        <source>Ready to record</source>
        <translation>جاهز للتسجيل</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>متوقف مؤقتًا</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>جارٍ التسجيل</translation>
    </message>
    <message>
        <source>“%1” is ready to send</source>
        <translation>«%1» جاهز للإرسال</translation>
    </message>
    <message>
        <source>Recorded, ready to send</source>
        <translation>سُجِّلت وجاهزة للإرسال</translation>
    </message>
    <message>
        <source>Directory not found</source>
        <translation>المجلد غير موجود</translation>
    </message>
    <message>
        <source>You need to go into Preferences and choose the directory recordings should be saved to.</source>
        <translation>عليك فتح التفضيلات واختيار المجلد الذي تُحفظ فيه التسجيلات.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>استئناف</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>إيقاف مؤقت</translation>
    </message>
    <message>
        <source>Go on recording</source>
        <translation>متابعة التسجيل</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>إيقاف التسجيل مؤقتًا</translation>
    </message>
    <message>
        <source>The reply could not be made. Please try again.</source>
        <translation>تعذر إنشاء الرد. يُرجى المحاولة مرة أخرى.</translation>
    </message>
    <message>
        <source>There was no recording to attach.</source>
        <translation>لم يكن هناك تسجيل لإرفاقه.</translation>
    </message>
</context>
<context>
    <name>kest::MessagePreview</name>
    <message>
        <source>Text of the Message</source>
        <translation>نص الرسالة</translation>
    </message>
</context>
<context>
    <name>kest::MicrophoneTrialView</name>
    <message>
        <source>Press the button and speak. Nothing is recorded.</source>
        <translation>اضغط الزر وتحدّث. لا يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>Nothing heard yet. Say something.</source>
        <translation>لم يُسمع شيء بعد. قل شيئًا.</translation>
    </message>
    <message>
        <source>You are heard.</source>
        <translation>صوتك مسموع.</translation>
    </message>
    <message>
        <source>You were heard.</source>
        <translation>سُمع صوتك.</translation>
    </message>
    <message>
        <source>Nothing was heard. Is the microphone muted?</source>
        <translation>لم يُسمع شيء. هل الميكروفون مكتوم؟</translation>
    </message>
    <message>
        <source>Microphone Name</source>
        <translation>اسم الميكروفون</translation>
    </message>
    <message>
        <source>Input Level</source>
        <translation>مستوى الإدخال</translation>
    </message>
    <message>
        <source>No microphone was found. Plug one in and try again.</source>
        <translation>لم يُعثر على ميكروفون. وصّل واحدًا وحاول مجددًا.</translation>
    </message>
    <message>
        <source>The microphone went away. Plug it in and try again.</source>
        <translation>انقطع الميكروفون. وصّله وحاول مجددًا.</translation>
    </message>
    <message>
        <source>No sound server answers. Try again in a moment.</source>
        <translation>لا يستجيب أي خادم صوت. حاول مجددًا بعد لحظة.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. Try again, or choose another one.</source>
        <translation>لا يعطي الميكروفون صوتًا. حاول مجددًا أو اختر غيره.</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>لا يوجد ميكروفون</translation>
    </message>
    <message>
        <source>Stop Listening</source>
        <translation>إيقاف الاستماع</translation>
    </message>
    <message>
        <source>Try the Microphone</source>
        <translation>تجربة الميكروفون</translation>
    </message>
    <message>
        <source>Close the microphone</source>
        <translation>إغلاق الميكروفون</translation>
    </message>
    <message>
        <source>Open the microphone and show its level</source>
        <translation>فتح الميكروفون وإظهار مستواه</translation>
    </message>
</context>
<context>
    <name>kest::PlaybackWording</name>
    <message>
        <source>The file is not there any more.</source>
        <translation>لم يعد الملف موجودًا.</translation>
    </message>
    <message>
        <source>The file cannot be read as sound.</source>
        <translation>لا يمكن قراءة الملف كصوت.</translation>
    </message>
    <message>
        <source>The sound decoder is missing.</source>
        <translation>مفكك ترميز الصوت غير موجود.</translation>
    </message>
    <message>
        <source>No sound server answers.</source>
        <translation>لا يستجيب أي خادم صوت.</translation>
    </message>
    <message>
        <source>No loudspeaker was found.</source>
        <translation>لم يُعثر على مكبر صوت.</translation>
    </message>
    <message>
        <source>The loudspeaker went away.</source>
        <translation>اختفى مكبر الصوت.</translation>
    </message>
    <message>
        <source>The sound server ended.</source>
        <translation>توقف خادم الصوت.</translation>
    </message>
    <message>
        <source>The sound server takes no sound.</source>
        <translation>خادم الصوت لا يقبل الصوت.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 من %2</translation>
    </message>
</context>
<context>
    <name>kest::PreferencesWindowController</name>
    <message>
        <source>Asking your mail application…</source>
        <translation>جارٍ سؤال برنامج البريد…</translation>
    </message>
    <message>
        <source>Waiting for your mail application…</source>
        <translation>في انتظار برنامج البريد…</translation>
    </message>
    <message>
        <source>Choose an account</source>
        <translation>اختر حسابًا</translation>
    </message>
    <message>
        <source>Your mail application has no account that can send.</source>
        <translation>لا يوجد في برنامج البريد حساب يمكنه الإرسال.</translation>
    </message>
    <message>
        <source>Until you choose, your mail application’s default account is used.</source>
        <translation>إلى أن تختار، يُستخدم الحساب الافتراضي لبرنامج البريد.</translation>
    </message>
    <message>
        <source>“%1” is not there now, so the default account is used.</source>
        <translation>«%1» غير موجود الآن، لذلك يُستخدم الحساب الافتراضي.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>اختيار</translation>
    </message>
    <message>
        <source>That folder cannot be used. The old one stays.</source>
        <translation>لا يمكن استخدام هذا المجلد. يبقى المجلد السابق.</translation>
    </message>
    <message>
        <source>Kest may not write to that folder.</source>
        <translation>لا يُسمح لـKest بالكتابة في هذا المجلد.</translation>
    </message>
    <message>
        <source>Nothing here can show that folder.</source>
        <translation>لا يوجد برنامج هنا يمكنه إظهار هذا المجلد.</translation>
    </message>
    <message>
        <source>sender’s name</source>
        <translation>اسم المرسل</translation>
    </message>
    <message>
        <source>Preview of a reply</source>
        <translation>معاينة رد</translation>
    </message>
    <message>
        <source>Preview of a new message</source>
        <translation>معاينة رسالة جديدة</translation>
    </message>
    <message>
        <source>Re: the subject of the message</source>
        <translation>Re: موضوع الرسالة</translation>
    </message>
</context>
<context>
    <name>kest::StatusItem</name>
    <message>
        <source>Show Kest</source>
        <translation>إظهار Kest</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>إيقاف التسجيل</translation>
    </message>
    <message>
        <source>Quit Kest</source>
        <translation>إنهاء Kest</translation>
    </message>
    <message>
        <source>Kest – paused</source>
        <translation>Kest – متوقف مؤقتًا</translation>
    </message>
    <message>
        <source>Kest – recording</source>
        <translation>Kest – يسجل</translation>
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
        <translation>لا يستجيب أي خادم صوت، لذا لا يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>No microphone was found, so nothing is recorded.</source>
        <translation>لم يُعثر على ميكروفون، لذا لا يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>The microphone went away. The recording is kept.</source>
        <translation>اختفى الميكروفون. التسجيل محفوظ.</translation>
    </message>
    <message>
        <source>The sound server ended. The recording is kept.</source>
        <translation>توقف خادم الصوت. التسجيل محفوظ.</translation>
    </message>
    <message>
        <source>The microphone gives no sound. What it gave is kept.</source>
        <translation>لا يعطي الميكروفون صوتًا. ما سُجِّل محفوظ.</translation>
    </message>
    <message>
        <source>The disk is full. The recording so far is kept.</source>
        <translation>القرص ممتلئ. ما سُجِّل حتى الآن محفوظ.</translation>
    </message>
    <message>
        <source>Writing failed. What was recorded before is kept.</source>
        <translation>فشلت الكتابة. ما سُجِّل قبل ذلك محفوظ.</translation>
    </message>
    <message>
        <source>The sound encoder is missing, so nothing is recorded.</source>
        <translation>مُرمِّز الصوت غير موجود، لذا لا يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>The microphone went away, so nothing is recorded.</source>
        <translation>اختفى الميكروفون، لذا لم يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>The sound server ended, so nothing is recorded.</source>
        <translation>توقف خادم الصوت، لذا لم يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>The microphone gives no sound; nothing is recorded.</source>
        <translation>لا يعطي الميكروفون صوتًا؛ لم يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>The disk is full, so nothing is recorded.</source>
        <translation>القرص ممتلئ، لذا لم يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>The recording could not be written.</source>
        <translation>تعذرت كتابة التسجيل.</translation>
    </message>
    <message>
        <source>No sound. Is the microphone muted?</source>
        <translation>لا يوجد صوت. هل الميكروفون مكتوم؟</translation>
    </message>
    <message>
        <source>No sound. Is “%1” muted?</source>
        <translation>لا يوجد صوت. هل «%1» مكتوم؟</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn the microphone down.</source>
        <translation>الصوت عالٍ جدًا. ابتعد قليلًا أو اخفض الميكروفون.</translation>
    </message>
    <message>
        <source>Too loud. Sit back, or turn down “%1”.</source>
        <translation>الصوت عالٍ جدًا. ابتعد قليلًا أو اخفض «%1».</translation>
    </message>
    <message>
        <source>Nothing was heard in this recording.</source>
        <translation>لم يُسمع شيء في هذا التسجيل.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers stop at 18 MB.</source>
        <translation>%1 حتى الآن. خوادم كثيرة تتوقف عند 18 ميغابايت.</translation>
    </message>
    <message>
        <source>%1 by now. Many mail servers take no more.</source>
        <translation>%1 حتى الآن. خوادم كثيرة لا تقبل أكثر.</translation>
    </message>
    <message>
        <source>Handing over: %1 of %2</source>
        <translation>جارٍ التسليم: %1 من %2</translation>
    </message>
    <message>
        <source>Nothing was recorded: it was stopped before the first sound.</source>
        <translation>لم يُسجَّل شيء: أُوقف التسجيل قبل أول صوت.</translation>
    </message>
</context>
</TS>
