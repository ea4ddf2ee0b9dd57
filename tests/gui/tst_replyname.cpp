#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "ui/controls/FileHandle.h"

#include <QDir>
#include <QFile>
#include <QIODevice>
#include <QLabel>
#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

const QString stem = QStringLiteral("2024-03-05_14-07-09");

} // namespace

/// The sender's name in the recording's file name, on real files.
class TestReplyName : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }
    QDir folder() { return QDir(m_house->delegate.recordings->path()); }
    QStringList files() { return folder().entryList(QDir::Files, QDir::Name); }

    void write(const QString &name, const QByteArray &content)
    {
        QFile file(folder().filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QByteArray read(const QString &name)
    {
        QFile file(folder().filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing there");
    }

    QString attachedName()
    {
        return m_house->mail.argumentsOf(u"InsertAttachment"_s).value(1).value<MailFile>().file.lastPathComponent();
    }

    void replyTo(const QVariant &sender)
    {
        m_house->mail.answers[u"ReplyTo"_s] = sender;
        m_house->click(u"Reply"_s);
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->settings->setBool(false, SettingsKeys::useASClass);
        m_house->settings->setBool(true, SettingsKeys::bIncudeReplyToInName);
        m_house->mail.answers[u"Selection"_s] = QStringList(u"/org/kest/Mail1/message/1"_s);
        m_house->mail.answers[u"Reply"_s] = u"/org/kest/Mail1/outgoing/7"_s;
        m_house->mail.answers[u"Content"_s] = u"> Lunch?"_s;
        m_house->openAndShow();
        m_house->record();
        m_house->click(u"Stop"_s);
    }

    void cleanup() { m_house.reset(); }

    void theRecordingGetsTheSendersName_data()
    {
        QTest::addColumn<QVariant>("sender");
        QTest::addColumn<QString>("name");
        QTest::newRow("name") << QVariant(u"Sales Desk <desk@example.org>"_s) << u"_Sales Desk.m4a"_s;
        QTest::newRow("no space before the bracket") << QVariant(u"Desk<desk@example.org>"_s) << u"_Des.m4a"_s;
        QTest::newRow("only an address") << QVariant(u"<d@example.org>"_s) << u"_<d@example.org>.m4a"_s;
        QTest::newRow("untrimmed") << QVariant(u" desk "_s) << u"_ desk .m4a"_s;
        QTest::newRow("none") << QVariant() << u"_(null).m4a"_s;
        QTest::newRow("not Latin") << QVariant(u"Анна 😀 <a@b>"_s) << u"_Анна 😀.m4a"_s;
    }

    void theRecordingGetsTheSendersName()
    {
        QFETCH(QVariant, sender);
        QFETCH(QString, name);
        const QByteArray spoken = read(stem + u".m4a"_s);
        replyTo(sender);
        QCOMPARE(attachedName(), stem + name);
        QCOMPARE(files(), QStringList(stem + name));
        QCOMPARE(read(stem + name), spoken);
        QVERIFY(m_house->alerts.shown.isEmpty());
        QVERIFY(!controller().recordingExists());
    }

    void aNameThatCannotBeGivenLeavesTheOldOneSilently_data()
    {
        QTest::addColumn<QString>("sender");
        QTest::newRow("a slash") << u"Sales/Desk <desk@example.org>"_s;
        QTest::newRow("too long") << QString(300, u'x') + u" <desk@example.org>"_s;
        QTest::newRow("half a character") << u"😀<desk@example.org>"_s;
        QTest::newRow("a NUL within") << u"Sales"_s + QChar() + u"Desk <desk@example.org>"_s;
    }

    void aNameThatCannotBeGivenLeavesTheOldOneSilently()
    {
        QFETCH(QString, sender);
        replyTo(sender);
        QCOMPARE(attachedName(), stem + u".m4a"_s);
        QCOMPARE(files(), QStringList(stem + u".m4a"_s));
        QVERIFY(m_house->alerts.shown.isEmpty());
        QVERIFY(!controller().recordingExists());
    }

    void aSlashNeverLeadsIntoAnotherFolder()
    {
        QVERIFY(folder().mkdir(stem + u"_Sales"_s));
        replyTo(u"Sales/../../Desk <desk@example.org>"_s);
        QCOMPARE(files(), QStringList(stem + u".m4a"_s));
        QCOMPARE(attachedName(), stem + u".m4a"_s);
    }

    void aFileOfThatNameIsNeverReplaced()
    {
        write(stem + u"_Ann.m4a"_s, "an earlier answer");
        replyTo(u"Ann <a@b>"_s);
        QCOMPARE(attachedName(), stem + u".m4a"_s);
        QCOMPARE(read(stem + u"_Ann.m4a"_s), QByteArray("an earlier answer"));
        QCOMPARE(files().size(), 2);
        QVERIFY(m_house->alerts.shown.isEmpty());
    }

    void withAPreparedMessageNothingIsRenamed_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("file") << u"song.ogg"_s;
        QTest::newRow("text") << u"hello.txt"_s;
    }

    void withAPreparedMessageNothingIsRenamed()
    {
        QFETCH(QString, name);
        m_house->writePrepared(name, "x");
        m_house->choosePrepared(name);
        replyTo(u"Ann <a@b>"_s);
        QVERIFY(m_house->mail.members().contains(u"MakeOutgoingMessage"_s));
        if (name == u"song.ogg")
            QCOMPARE(attachedName(), name);
        QCOMPARE(files(), QStringList(stem + u".m4a"_s));
        QVERIFY(!m_house->mail.members().contains(u"ReplyTo"_s));
        QVERIFY(controller().recordingExists());
    }

    void whenTheSettingIsOffTheSenderIsNotAsked()
    {
        m_house->settings->setBool(false, SettingsKeys::bIncudeReplyToInName);
        replyTo(u"Ann <a@b>"_s);
        QVERIFY(!m_house->mail.members().contains(u"ReplyTo"_s));
        QCOMPARE(files(), QStringList(stem + u".m4a"_s));
    }

    void theWindowShowsTheRecordingUnderItsNewName()
    {
        replyTo(u"Ann <a@b>"_s);
        const auto *name = controller().window()->findChild<QLabel *>(u"recordingNameField"_s);
        QCOMPARE(name->text(), stem + u"_Ann.m4a"_s);
        QCOMPARE(controller().window()->findChild<FileHandle *>()->file().path(), folder().filePath(stem + u"_Ann.m4a"_s));
    }

    void theRecorderStillNamesTheOldFile()
    {
        replyTo(u"Ann <a@b>"_s);
        QCOMPARE(controller().audioRecorder()->recordingURL().lastPathComponent(), stem + u".m4a"_s);
    }

    void theNextRecordingTakesNoNameThatIsInUse()
    {
        replyTo(u"Ann <a@b>"_s);
        m_house->record(); // in the same second by the clock
        m_house->click(u"Stop"_s);
        replyTo(u"Ann <a@b>"_s);
        QCOMPARE(files().size(), 2);
        QVERIFY(!controller().recordingExists());
    }

    void anyFileCanBeNamedSo()
    {
        write(u"a.b.wav"_s, "music");
        const FileURL file = m_house->delegate.recordings->appendingPathComponent(u"a.b.wav"_s);
        const FileURL named = controller().includeSender(u"Ann <a@b>"_s, file);
        QCOMPARE(named.lastPathComponent(), u"a.b_Ann.m4a"_s);
        QCOMPARE(read(u"a.b_Ann.m4a"_s), QByteArray("music"));
        QCOMPARE(controller().includeSender(u"Ann <a@b>"_s, file), file); // it is not there any more
    }
};

QTEST_MAIN(TestReplyName)
#include "tst_replyname.moc"
