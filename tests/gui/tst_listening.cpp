#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "ui/controls/ControlButton.h"
#include "ui/controls/FileHandle.h"
#include "ui/controls/WaveformView.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

/// The place to be sure before sending, with a player that does as it is told.
class TestListening : public QObject
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
    WaveformView *waveform() { return m_house->find<WaveformView>(u"Position"_s); }

    /// A recording of that many seconds, stopped, finished and read.
    void recordAndStop(double seconds = 12.0)
    {
        m_house->record();
        m_house->recorders.last()->setCurrentTime(seconds);
        click("Stop");
        player().read(seconds, {0.1F, 0.5F, 0.2F});
    }

    void seekTo(double seconds)
    {
        const QPoint place(qRound((waveform()->width() - 4) * seconds / waveform()->length()) + 2, 10);
        QTest::mouseClick(waveform(), Qt::LeftButton, {}, place);
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    void withoutARecordingNothingIsOffered()
    {
        for (const char *name : {"Play", "Position", "Discard Recording", "Show in Folder", "Undo Discard"})
            QVERIFY2(!isEnabled(name), name);
        QVERIFY(!m_house->find(u"Undo Discard"_s)->isVisible());
        QCOMPARE(text("Last Recording"), u"None yet"_s);
    }

    void whileRecordingNothingIsOffered()
    {
        m_house->record();
        for (const char *name : {"Play", "Position", "Discard Recording"})
            QVERIFY2(!isEnabled(name), name);
        QCOMPARE(text("Length and Size"), u"Being recorded"_s);
        QVERIFY(player().opens.isEmpty());
    }

    void aFinishedRecordingCanBePlayedAndPaused()
    {
        recordAndStop();
        QCOMPARE(player().file(), controller().audioRecorder()->recordingURL());
        click("Play");
        QVERIFY(player().isPlaying());
        click("Pause Playing");
        QVERIFY(!player().isPlaying());
        QVERIFY(isEnabled("Play"));
    }

    void thePositionFollowsWhatIsHeard()
    {
        recordAndStop();
        QCOMPARE(text("Playing Time"), u"0:00"_s);
        click("Play");
        player().setPosition(3.4);
        QTRY_COMPARE(text("Playing Time"), u"0:03"_s);
        QCOMPARE(waveform()->valueText(), u"0:03 of 0:12"_s);
        player().end();
        QCOMPARE(text("Playing Time"), u"0:12"_s);
        QVERIFY(isEnabled("Play"));
    }

    void aClickOnTheWaveformSeeks()
    {
        recordAndStop();
        seekTo(6.0);
        QVERIFY(qAbs(player().position() - 6.0) < 0.2);
        QVERIFY(!player().isPlaying());
    }

    void draggingSeeksOnceAtItsEnd()
    {
        recordAndStop();
        click("Play");
        QSignalSpy seeks(waveform(), &WaveformView::seekRequested);
        QTest::mousePress(waveform(), Qt::LeftButton, {}, QPoint(5, 10));
        QTest::mouseMove(waveform(), QPoint(60, 10));
        player().setPosition(1.0);
        QVERIFY(waveform()->position() > 2.0); // the pointer's place stands
        QVERIFY(seeks.isEmpty());
        QTest::mouseRelease(waveform(), Qt::LeftButton, {}, QPoint(waveform()->width() - 1, 10));
        QCOMPARE(seeks.size(), 1);
        QCOMPARE(player().position(), 12.0);
    }

    void keysSeek_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<double>("goal");
        QTest::newRow("right") << int(Qt::Key_Right) << 6.6;
        QTest::newRow("left") << int(Qt::Key_Left) << 5.4;
        QTest::newRow("up") << int(Qt::Key_Up) << 6.6;
        QTest::newRow("down") << int(Qt::Key_Down) << 5.4;
        QTest::newRow("page up") << int(Qt::Key_PageUp) << 8.4;
        QTest::newRow("page down") << int(Qt::Key_PageDown) << 3.6;
        QTest::newRow("home") << int(Qt::Key_Home) << 0.0;
        QTest::newRow("end") << int(Qt::Key_End) << 12.0;
    }

    void keysSeek()
    {
        QFETCH(int, key);
        QFETCH(double, goal);
        recordAndStop();
        waveform()->choose(6.0);
        waveform()->setFocus(Qt::TabFocusReason);
        QTest::keyClick(waveform(), Qt::Key(key));
        QCOMPARE(player().position(), goal);
    }

    void timeRunsFromLeftToRightInEveryLanguage()
    {
        m_house->controller->window()->setLayoutDirection(Qt::RightToLeft);
        recordAndStop();
        QCOMPARE(waveform()->layoutDirection(), Qt::LeftToRight);
        waveform()->choose(6.0);
        QTest::keyClick(waveform(), Qt::Key_Right);
        QVERIFY(player().position() > 6.0);
    }

    void assistantsFindASliderWithWords()
    {
        recordAndStop();
        waveform()->setPosition(3.0);
        QAccessibleInterface *slider = QAccessible::queryAccessibleInterface(waveform());
        QCOMPARE(slider->role(), QAccessible::Slider);
        QCOMPARE(slider->text(QAccessible::Name), u"Position"_s);
        QCOMPARE(slider->text(QAccessible::Value), u"0:03 of 0:12"_s);
        QCOMPARE(slider->text(QAccessible::Description), u"0:03 of 0:12"_s);
        QCOMPARE(slider->valueInterface()->maximumValue().toDouble(), 12.0);
        slider->valueInterface()->setCurrentValue(9.0);
        QCOMPARE(player().position(), 9.0);
    }

    void recordStopsThePlayingFirst()
    {
        recordAndStop();
        click("Play");
        QStringList order;
        connect(&player(), &AudioFilePlayer::playingChanged, this,
                [&](bool playing) { order.append(playing ? u"plays"_s : u"stopped, recorders: %1"_s.arg(m_house->recorders.made.size())); });
        click("Record");
        QCOMPARE(order, QStringList(u"stopped, recorders: 1"_s));
        QVERIFY(player().file().isEmpty());
        QVERIFY(controller().recordingActive());
    }

    void playingChangesNoState()
    {
        recordAndStop();
        const QString time = controller().recordingTime();
        QSignalSpy active(&controller(), &MainWindowController::recordingActiveChanged);
        QSignalSpy exists(&controller(), &MainWindowController::recordingExistsChanged);
        QSignalSpy can(&controller(), &MainWindowController::canReplyOrComposeChanged);
        QSignalSpy times(&controller(), &MainWindowController::recordingTimeChanged);
        click("Play");
        seekTo(6.0);
        player().end();
        QCOMPARE(active.size() + exists.size() + can.size() + times.size(), 0);
        QCOMPARE(controller().recordingTime(), time);
    }

    void whatIsNotOnTheScreenDoesNotPlay()
    {
        recordAndStop();
        click("Play");
        controller().windowToggleExpanded();
        QTRY_VERIFY(!player().isPlaying());
        QTest::keyClick(controller().window(), Qt::Key_L, Qt::ControlModifier);
        QVERIFY(!player().isPlaying());
    }

    void aSmallWindowReadsNoRecording()
    {
        controller().windowToggleExpanded();
        QTRY_VERIFY(!controller().window()->findChild<QWidget *>(u"detailPanel"_s)->isVisible());
        m_house->record();
        click("Stop");
        QVERIFY(player().opens.isEmpty());
        controller().windowToggleExpanded();
        QCOMPARE(player().opens.size(), 1);
    }

    void aCommandStopsThePlayingAndKeepsTheRecording()
    {
        recordAndStop();
        click("Play");
        bool discardable = true;
        m_house->mail.whileBusy = [&](const MailCall &) { discardable = discardable && isEnabled("Discard Recording"); };
        click("New Message");
        QVERIFY(!player().isPlaying());
        QVERIFY(!discardable);
        QVERIFY(isEnabled("Discard Recording"));
    }

    void aRecordingThatWasUsedIsStillOffered()
    {
        recordAndStop();
        QCOMPARE(heading(), u"Last recording"_s);
        click("New Message");
        QCOMPARE(heading(), u"Used for a message"_s);
        QVERIFY(!controller().recordingExists());
        click("Play");
        QVERIFY(player().isPlaying());
    }

    void everyTroubleIsSaidInWords_data()
    {
        QTest::addColumn<PlaybackTrouble>("trouble");
        QTest::addColumn<QString>("words");
        QTest::newRow("missing") << PlaybackTrouble::FileMissing << u"The file is not there any more."_s;
        QTest::newRow("unreadable") << PlaybackTrouble::Unreadable << u"The file cannot be read as sound."_s;
        QTest::newRow("decoder") << PlaybackTrouble::DecoderMissing << u"The sound decoder is missing."_s;
        QTest::newRow("no server") << PlaybackTrouble::NoSoundServer << u"No sound server answers."_s;
        QTest::newRow("no output") << PlaybackTrouble::NoOutput << u"No loudspeaker was found."_s;
        QTest::newRow("output lost") << PlaybackTrouble::OutputLost << u"The loudspeaker went away."_s;
        QTest::newRow("server lost") << PlaybackTrouble::SoundServerLost << u"The sound server ended."_s;
        QTest::newRow("stalled") << PlaybackTrouble::NoProgress << u"The sound server takes no sound."_s;
    }

    void everyTroubleIsSaidInWords()
    {
        QFETCH(PlaybackTrouble, trouble);
        QFETCH(QString, words);
        recordAndStop();
        click("Play");
        player().fail(trouble);
        QCOMPARE(text("Listening Notice"), words);
        QVERIFY(m_house->find(u"Listening Notice"_s)->isVisible());
        QVERIFY(m_house->find(u"Listening Notice"_s)->toolTip().contains(u"what the system says"_s));
        QVERIFY(isEnabled("Play"));
        click("Play");
        QVERIFY(!m_house->find(u"Listening Notice"_s)->isVisible());
        QVERIFY(player().isPlaying());
    }

    void nothingToHearIsNotPlayed()
    {
        recordAndStop(0.0);
        QVERIFY(!isEnabled("Play"));
        QVERIFY(isEnabled("Discard Recording"));
        QTest::keyClick(waveform(), Qt::Key_Right);
        QCOMPARE(player().position(), 0.0);
    }

    void theFolderIsShown()
    {
        recordAndStop();
        QSignalSpy opened(&controller(), &MainWindowController::openURLRequested);
        click("Show in Folder");
        QCOMPARE(opened.takeFirst().first().toUrl(), QUrl::fromLocalFile(m_house->delegate.recordings->path()));
    }

    void theNameCarriesTheFileForDragging()
    {
        auto *handle = m_house->find<FileHandle>(u"Last Recording"_s);
        QVERIFY(handle->file().isEmpty());
        recordAndStop();
        QCOMPARE(handle->file(), controller().audioRecorder()->recordingURL());
        click("Discard Recording");
        QVERIFY(handle->file().isEmpty());
    }
};

QTEST_MAIN(TestListening)
#include "tst_listening.moc"
