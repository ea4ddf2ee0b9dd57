#include "mail/MessageDraft.h"

#include <QFile>
#include <QIODevice>
#include <QTemporaryDir>
#include <QTest>

using kest::Error;
using kest::FileURL;
using kest::MessageDraft;

using namespace Qt::StringLiterals;

namespace {

const std::optional<QString> tagline = u"Spoken with Kest"_s;
const std::optional<QString> textTagline = u"Sent with Kest"_s;

} // namespace

class TestMessageDraft : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(m_folder.isValid()); }

    void recordingGoesBehindTheTextAndItsBlankLineBeforeTheTagline()
    {
        const auto draft = MessageDraft::forRecording(u"Hi"_s, tagline, FileURL::fromPath(u"/r/a.m4a"_s));
        QCOMPARE(draft.messageCase, MessageDraft::Case::Recording);
        QCOMPARE(draft.body, u"Hi\n\nSpoken with Kest"_s);
        QCOMPARE(draft.insertionIndex, 4u);
        QVERIFY(draft.attachment == FileURL::fromPath(u"/r/a.m4a"_s));
    }

    void emptyTextWithoutTaglineIsTwoLineFeeds()
    {
        const auto draft = MessageDraft::forRecording({}, {}, FileURL::fromPath(u"/r/a.m4a"_s));
        QCOMPARE(draft.body, u"\n\n"_s);
        QCOMPARE(draft.insertionIndex, 2u);
    }

    void missingRecordingAttachesNothing()
    {
        QVERIFY(!MessageDraft::forRecording(u"Hi"_s, tagline, {}).attachment);
    }

    void lengthsCountUtf16Units()
    {
        QCOMPARE(MessageDraft::forRecording(u"\U0001F399é"_s, tagline, {}).insertionIndex, 5u);
        QCOMPARE(MessageDraft::forText(u"\U0001F399"_s, {}).insertionIndex, 3u);
    }

    void textFileBecomesTheBodyWithTheTextTagline()
    {
        const auto draft = MessageDraft::forChosenFile(written(u"hello.txt"_s, "Hello"), tagline, textTagline);
        QCOMPARE(draft.messageCase, MessageDraft::Case::Text);
        QCOMPARE(draft.body, u"Hello\n\nSent with Kest"_s);
        QCOMPARE(draft.insertionIndex, 6u);
        QVERIFY(!draft.attachment);
    }

    void textFileWithoutTaglineEndsInTwoLineFeeds()
    {
        QCOMPARE(MessageDraft::forChosenFile(written(u"hello.txt"_s, "Hello"), {}, {}).body, u"Hello\n\n"_s);
    }

    void extensionDecidesBetweenTextAndFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isText");
        QTest::newRow("lower case") << u"notes.txt"_s << true;
        QTest::newRow("upper case") << u"NOTES.TXT"_s << true;
        QTest::newRow("longer") << u"notes.text"_s << false;
        QTest::newRow("rich text") << u"notes.rtf"_s << false;
        QTest::newRow("none") << u"txt"_s << false;
        QTest::newRow("audio") << u"hello.m4a"_s << false;
        QTest::newRow("not the last") << u"notes.txt.gz"_s << false;
    }

    void extensionDecidesBetweenTextAndFile()
    {
        QFETCH(QString, name);
        QFETCH(bool, isText);
        const FileURL file = written(name, "x");
        const auto draft = MessageDraft::forChosenFile(file, tagline, textTagline);
        QCOMPARE(draft.messageCase == MessageDraft::Case::Text, isText);
        QCOMPARE(draft.attachment.has_value(), !isText);
    }

    void fileWithTaglineHasFourLineFeedsAndGoesInAtOne()
    {
        const FileURL file = FileURL::fromPath(u"/f/a.m4a"_s);
        const auto draft = MessageDraft::forChosenFile(file, tagline, textTagline);
        QCOMPARE(draft.messageCase, MessageDraft::Case::File);
        QCOMPARE(draft.body, u"\n\n\n\nSpoken with Kest"_s);
        QCOMPARE(draft.insertionIndex, 1u);
        QVERIFY(draft.attachment == file);
    }

    void fileWithoutTaglineHasTwoLineFeeds()
    {
        const auto draft = MessageDraft::forChosenFile(FileURL::fromPath(u"/f/a.m4a"_s), {}, {});
        QCOMPARE(draft.body, u"\n\n"_s);
        QCOMPARE(draft.insertionIndex, 1u);
    }

    void missingFolderMakesTheFileCaseWithoutAttachment()
    {
        const auto draft = MessageDraft::forChosenFile({}, tagline, textTagline);
        QCOMPARE(draft.messageCase, MessageDraft::Case::File);
        QCOMPARE(draft.body, u"\n\n\n\nSpoken with Kest"_s);
        QVERIFY(!draft.attachment);
    }

    void unreadableTextFileIsReplacedByASentence()
    {
        const FileURL file = FileURL::fromPath(m_folder.path() + u"/gone %1.txt"_s);
        const auto draft = MessageDraft::forChosenFile(file, tagline, textTagline);
        const QString sentence = u"The file '"_s + file.path() + u"' could not be read (No such file or directory)."_s;
        QCOMPARE(draft.messageCase, MessageDraft::Case::Text);
        QCOMPARE(draft.body, sentence + u"\n\nSent with Kest"_s);
        QCOMPARE(draft.insertionIndex, static_cast<quint64>(sentence.size()) + 1);
    }

    void missingDescriptionIsWrittenAsNull()
    {
        QCOMPARE(kest::unreadableFileSentence(FileURL::fromPath(u"/a.txt"_s), Error()),
                 u"The file '/a.txt' could not be read ((null))."_s);
    }

private:
    FileURL written(const QString &name, const QByteArray &bytes)
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test's file");
        return FileURL::fromPath(file.fileName());
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestMessageDraft)
#include "tst_messagedraft.moc"
