#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "ui/controls/ReadoutField.h"

#include <QFile>
#include <QIODevice>
#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

/// Discard and its Undo, with a real trash.
class TestDiscard : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }
    FakeAudioFilePlayer &player() { return m_house->player; }
    bool isEnabled(const char *name) { return m_house->isEnabled(QString::fromLatin1(name)); }
    void click(const char *name) { m_house->click(QString::fromLatin1(name)); }
    QString text(const char *name) { return m_house->find<ReadoutField>(QString::fromLatin1(name))->text(); }
    QString heading() { return controller().window()->findChild<QLabel *>(u"recordingCardHeading"_s)->text(); }
    QString file() { return controller().audioRecorder()->recordingURL().path(); }

    void recordAndStop()
    {
        m_house->record();
        m_house->recorders.last()->setCurrentTime(12.0);
        click("Stop");
        player().read(12.0);
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    void discardMovesItToTheTrashAndTheWindowHasNone()
    {
        recordAndStop();
        click("Discard Recording");
        QVERIFY(!QFile::exists(file()));
        QVERIFY(!controller().recordingExists());
        QVERIFY(!isEnabled("New Message"));
        QCOMPARE(controller().recordingTime(), u"--:--"_s);
        QCOMPARE(m_house->notice(), u"Ready to record"_s);
        QCOMPARE(heading(), u"Moved to the trash"_s);
        QVERIFY(!m_house->find(u"Play"_s)->isVisible());
        QVERIFY(player().file().isEmpty());
    }

    void undoBringsItBackUnderItsName()
    {
        recordAndStop();
        click("Discard Recording");
        click("Undo Discard");
        QVERIFY(QFile::exists(file()));
        QVERIFY(controller().recordingExists());
        QVERIFY(isEnabled("New Message"));
        QCOMPARE(m_house->notice(), u"Recorded, ready to send"_s);
        QCOMPARE(heading(), u"Last recording"_s);
        QVERIFY(!m_house->find(u"Undo Discard"_s)->isVisible());
        player().read(12.0);
        click("Play");
        QVERIFY(player().isPlaying());
        click("New Message");
        QCOMPARE(heading(), u"Used for a message"_s);
    }

    void undoOfAUsedRecordingDoesNotOfferItForSending()
    {
        recordAndStop();
        click("New Message");
        click("Discard Recording");
        click("Undo Discard");
        QVERIFY(!controller().recordingExists());
        QCOMPARE(heading(), u"Used for a message"_s);
    }

    void aPreparedMessageIsSentWithoutTheDiscardedRecording()
    {
        recordAndStop();
        click("Discard Recording");
        m_house->writePrepared(u"a.txt"_s, "Hello");
        m_house->choosePrepared(u"a.txt"_s);
        click("New Message");
        QVERIFY(m_house->alerts.shown.isEmpty());
        QCOMPARE(heading(), u"Moved to the trash"_s);
        QVERIFY(isEnabled("Undo Discard"));
    }

    void aCommandThatWantsTheDiscardedRecordingSaysThatThereIsNone()
    {
        recordAndStop();
        click("Discard Recording");
        controller().mailComposeNewMessage();
        QCOMPARE(m_house->notice(), u"There is no recording to send yet."_s);
        QVERIFY(m_house->alerts.shown.isEmpty());
    }

    void theNextRecordingEndsTheOfferToUndo()
    {
        recordAndStop();
        click("Discard Recording");
        m_house->record();
        QVERIFY(!m_house->find(u"Undo Discard"_s)->isVisible());
        m_house->recorders.last()->setCurrentTime(5.0);
        click("Stop");
        QVERIFY(controller().recordingExists());
        QCOMPARE(heading(), u"Last recording"_s);
    }

    void aTakenNameIsSaidAndTheFileStaysInTheTrash()
    {
        recordAndStop();
        click("Discard Recording");
        QFile other(file());
        QVERIFY(other.open(QIODevice::WriteOnly));
        other.write("other");
        other.close();
        click("Undo Discard");
        QCOMPARE(text("Listening Notice"), u"It could not be taken out of the trash."_s);
        QVERIFY(isEnabled("Undo Discard"));
        QVERIFY(QFile::remove(file()));
        click("Undo Discard");
        QVERIFY(controller().recordingExists());
    }

    void aVanishedFileCannotBeDiscardedAndThatIsSaid()
    {
        recordAndStop();
        QVERIFY(QFile::remove(file()));
        click("Discard Recording");
        QCOMPARE(text("Listening Notice"), u"It could not be moved to the trash."_s);
        QVERIFY(controller().recordingExists());
    }

    void theFocusGoesFromDiscardToUndoAndOn()
    {
        recordAndStop();
        m_house->find(u"Discard Recording"_s)->setFocus();
        QTest::keyClick(m_house->find(u"Discard Recording"_s), Qt::Key_Space);
        QCOMPARE(controller().window()->focusWidget(), m_house->find(u"Undo Discard"_s));
        QTest::keyClick(m_house->find(u"Undo Discard"_s), Qt::Key_Space);
        QCOMPARE(controller().window()->focusWidget(), m_house->find(u"Play"_s));
    }
};

QTEST_MAIN(TestDiscard)
#include "tst_discard.moc"
