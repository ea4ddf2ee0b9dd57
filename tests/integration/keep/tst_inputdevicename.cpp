#include "app/InputDeviceMonitor.h"
#include "fakes/FakeInputNameField.h"
#include "platform/linux/sound/PulseSound.h"
#include "support/VirtualMicrophone.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>

#include <stdexcept>

using namespace kest;
using kest::test::tellSoundServer;

namespace {

constexpr int patience = 60'000; // ms

} // namespace

// Each test finds the server with one microphone, the default: "Built-in Microphone".
class TestInputDeviceName : public QObject
{
    Q_OBJECT

    const QString m_microphone = u"kest_microphone"_qs;
    PulseSound m_sound; // there once QtTest has set the environment, which libpulse reads on its thread
    FakeInputNameField m_field;
    std::unique_ptr<InputDeviceMonitor> m_monitor;

    static void addSource(const QString &name, const QString &description)
    {
        tellSoundServer("add_source", {{u"name"_qs, name}, {u"description"_qs, description}});
    }
    static void removeSource(const QString &name) { tellSoundServer("remove_source", {{u"name"_qs, name}}); }
    static void choose(const QString &name) { tellSoundServer("set_default", {{u"name"_qs, name}}); }

    // The protocol that PipeWire serves has no request for it: there the microphone is plugged in again.
    void rename(const QString &description)
    {
        if (qgetenv("KEST_TEST_SOUND") == "pulseaudio") {
            tellSoundServer("rename", {{u"name"_qs, m_microphone}, {u"description"_qs, description}});
            return;
        }
        removeSource(m_microphone);
        addSource(m_microphone, description);
        choose(m_microphone);
    }

    // The server's news arrive when they arrive.
    bool shows(const QString &toolTip, const QString &text)
    {
        m_monitor->updateInputName();
        return m_field.toolTip == toolTip && m_field.text == text;
    }

private Q_SLOTS:
    void initTestCase() { m_sound = makePulseSound(); }

    void init()
    {
        m_field = FakeInputNameField();
        m_monitor = std::make_unique<InputDeviceMonitor>(*m_sound.audioHardware, m_field.field());
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
    }

    void theSameMicrophoneLeavesTheFieldUntouched()
    {
        const int touched = m_field.touched;
        m_monitor->updateInputName();
        QCOMPARE(m_field.touched, touched);
    }

    void anotherChosenMicrophoneIsShown()
    {
        addSource(u"usb"_qs, u"USB  Mic"_qs);
        choose(u"usb"_qs);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"USB  Mic"_qs, u"US"_qs), patience);
        choose(m_microphone);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
        removeSource(u"usb"_qs);
    }

    void anAddedMicrophoneThatIsNotChosenChangesNothing()
    {
        addSource(u"usb"_qs, u"USB Mic"_qs);
        QVERIFY(shows(u"Built-in Microphone"_qs, u"BM"_qs));
        choose(u"usb"_qs); // the news of it bring the news of its arrival
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"USB Mic"_qs, u"UM"_qs), patience);
        choose(m_microphone);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
        removeSource(u"usb"_qs);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
    }

    void aRenamedMicrophoneIsShownByItsNewName()
    {
        rename(u"Desk Stand Microphone"_qs);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Desk Stand Microphone"_qs, u"DS"_qs), patience);
        rename(u"Built-in Microphone"_qs);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
    }

    void aMicrophoneOfOneWordSetsTheToolTipAndRaises()
    {
        addSource(u"plain"_qs, u"Microphone"_qs);
        choose(u"plain"_qs);
        bool raised = false;
        const auto raises = [&] {
            try {
                m_monitor->updateInputName();
            } catch (const std::out_of_range &) {
                raised = true;
            }
            return raised;
        };
        QTRY_VERIFY_WITH_TIMEOUT(raises(), patience);
        QCOMPARE(m_field.toolTip, u"Microphone"_qs);
        QCOMPARE(m_field.text, u"BM"_qs);
        QCOMPARE(m_monitor->oldInputName(), u"Built-in Microphone"_qs);
        addSource(u"other"_qs, u"Other Mic"_qs);
        choose(u"other"_qs);
        QTRY_VERIFY_WITH_TIMEOUT((raises(), m_field.text == u"OM"_qs), patience);
        choose(m_microphone);
        // PipeWire's session manager may name the one before once more.
        QTRY_VERIFY_WITH_TIMEOUT((raises(), m_field.toolTip == u"Built-in Microphone"_qs), patience);
        QCOMPARE(m_field.text, u"BM"_qs);
        removeSource(u"plain"_qs);
        removeSource(u"other"_qs);
    }

    void aChangeDuringARecordingIsShownAfterIt()
    {
        addSource(u"usb"_qs, u"USB Mic"_qs);
        FakeInputNameField watcherField;
        InputDeviceMonitor watcher(*m_sound.audioHardware, watcherField.field());
        m_field.recording = true;
        choose(u"usb"_qs);
        QTRY_VERIFY_WITH_TIMEOUT((watcher.updateInputName(), watcherField.text == u"UM"_qs), patience);
        QVERIFY(shows(u"Built-in Microphone"_qs, u"BM"_qs));
        m_field.recording = false;
        QVERIFY(shows(u"USB Mic"_qs, u"UM"_qs));
        choose(m_microphone);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
        removeSource(u"usb"_qs);
    }

    void whenTheMicrophoneIsUnpluggedTheOneThatIsLeftIsShown()
    {
        addSource(u"usb"_qs, u"USB Mic"_qs);
        choose(u"usb"_qs);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"USB Mic"_qs, u"UM"_qs), patience);
        removeSource(u"usb"_qs);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
    }

    // PipeWire's server forgets now and then to tell that the default source is another one.
    void aMicrophonePluggedInAgainAndAgainIsShownEachTime()
    {
        for (int round = 0; round < 20; ++round) {
            removeSource(m_microphone);
            QTRY_VERIFY_WITH_TIMEOUT((m_monitor->updateInputName(), m_field.toolTip.isEmpty()), patience);
            addSource(m_microphone, u"Built-in Microphone"_qs);
            choose(m_microphone);
            QTRY_VERIFY2_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), qPrintable(u"round %1"_qs.arg(round)), patience);
        }
    }

    void whileTheServerIsStuckAnUpdateReturnsAtOnce()
    {
        tellSoundServer("stall");
        QElapsedTimer timer;
        timer.start();
        const bool same = shows(u"Built-in Microphone"_qs, u"BM"_qs); // a wait for the server would not end here
        const auto taken = timer.elapsed();
        tellSoundServer("resume");
        QVERIFY(same);
        QVERIFY2(taken < 1000, "the window is never blocked for more than a second");
    }

    void withoutAnyMicrophoneTheFieldIsEmptyUntilOneComes()
    {
        removeSource(m_microphone);
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^Error -?[0-9]+ retreiving default input device$"_qs));
        QTRY_VERIFY_WITH_TIMEOUT(shows(QString(), QString()), patience);
        QVERIFY(m_monitor->oldInputName().isNull());
        addSource(m_microphone, u"Built-in Microphone"_qs);
        choose(m_microphone);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
    }

    // Last: the server that comes back is a new one.
    void withoutAServerTheFieldIsEmptyUntilItIsBack()
    {
        tellSoundServer("kill");
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^Error -?[0-9]+ retreiving default input device$"_qs));
        QTRY_VERIFY_WITH_TIMEOUT(shows(QString(), QString()), patience);
        tellSoundServer("restart_with_microphone");
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Built-in Microphone"_qs, u"BM"_qs), patience);
    }
};

QTEST_GUILESS_MAIN(TestInputDeviceName)
#include "tst_inputdevicename.moc"
