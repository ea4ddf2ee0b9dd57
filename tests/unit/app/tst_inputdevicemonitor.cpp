#include "app/InputDeviceMonitor.h"
#include "fakes/FakeAudioHardware.h"
#include "fakes/FakeInputNameField.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <QTimer>

#include <stdexcept>

using namespace kest;

namespace {

// Catches what rises to the event loop, as the program's own application object does.
class CatchingApplication : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        try {
            return QCoreApplication::notify(receiver, event);
        } catch (const std::out_of_range &) {
            ++rangeErrors;
            return false;
        }
    }

    int rangeErrors = 0;
};

} // namespace

class TestInputDeviceMonitor : public QObject
{
    Q_OBJECT

    FakeAudioHardware m_hardware;
    FakeInputNameField m_field;
    std::unique_ptr<InputDeviceMonitor> m_monitor;

    void show(const QString &name)
    {
        m_hardware.name = name;
        m_monitor->updateInputName();
    }

private Q_SLOTS:
    void init()
    {
        m_hardware = FakeAudioHardware();
        m_field = FakeInputNameField();
        m_monitor = std::make_unique<InputDeviceMonitor>(m_hardware, m_field.field());
    }

    void abbreviates_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("abbreviation");
        QTest::newRow("two words") << u"Built-in Microphone"_qs << u"BM"_qs;
        QTest::newRow("only the first two words count") << u"MacBook Pro Microphone"_qs << u"MP"_qs;
        QTest::newRow("a space first") << u" USB Mic"_qs << u" U"_qs;
        QTest::newRow("two spaces between") << u"USB  Mic"_qs << u"US"_qs;
        QTest::newRow("a space last") << u"Mic "_qs << u"Mi"_qs;
        QTest::newRow("one letter and a space") << u"M "_qs << u"M "_qs;
        QTest::newRow("one character is shown whole") << u" "_qs << u" "_qs;
        QTest::newRow("two spaces") << u"  "_qs << u"  "_qs;
        QTest::newRow("nothing") << u""_qs << u""_qs;
        QTest::newRow("one-letter words") << u"A B"_qs << u"AB"_qs;
        QTest::newRow("only spaces divide") << u"USB\u00a0Audio\tInterface Mic"_qs << u"UM"_qs;
        QTest::newRow("surrogate pairs stay whole") << u"\U0001F3A4 \U0001F50AMic"_qs << u"\U0001F3A4\U0001F50A"_qs;
        QTest::newRow("pairs in the first two characters") << u" \U0001F3A4Mic"_qs << u" \U0001F3A4"_qs;
    }

    void abbreviates()
    {
        QFETCH(QString, name);
        QTEST(abbreviatedInputName(name), "abbreviation");
    }

    void aNameOfOneWordHasNoAbbreviation()
    {
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, abbreviatedInputName(u"Microphone"_qs));
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, abbreviatedInputName(u"M"_qs));
    }

    void asksForTheDefaultInputDeviceAndItsName()
    {
        m_hardware.name = u"USB Mic"_qs;
        QCOMPARE(m_monitor->nameOfDefaultInputDevice(), std::optional(u"USB Mic"_qs));
        QCOMPARE(m_hardware.questions.size(), 2);
        const auto &device = m_hardware.questions[0];
        QCOMPARE(device.object, 1u);
        QCOMPARE(device.address.selector, 0x64496e20u); // 'dIn '
        QCOMPARE(device.address.scope, 0x676c6f62u);    // 'glob'
        QCOMPARE(device.address.element, 0u);
        const auto &name = m_hardware.questions[1];
        QCOMPARE(name.object, 42u);
        QCOMPARE(name.address.selector, 0x6c6e616du); // 'lnam'
        QCOMPARE(name.address.scope, 0x696e7074u);    // 'inpt'
        QCOMPARE(name.address.element, 1682533920u);  // the selector's code again, not 0
    }

    void showsTheNameWholeAndAbbreviated()
    {
        QVERIFY(m_monitor->oldInputName().isNull());
        show(u"Built-in Microphone"_qs);
        QCOMPARE(m_field.toolTip, u"Built-in Microphone"_qs);
        QCOMPARE(m_field.text, u"BM"_qs);
        QCOMPARE(m_monitor->oldInputName(), u"Built-in Microphone"_qs);
    }

    void theSameNameTwiceLeavesTheFieldUntouched()
    {
        show(u"Built-in Microphone"_qs);
        show(u"Built-in Microphone"_qs);
        QCOMPARE(m_field.touched, 2);
    }

    void anEmptyNameIsRememberedAsWell()
    {
        show(u""_qs);
        show(u""_qs);
        QCOMPARE(m_field.touched, 2);
        QVERIFY(m_monitor->oldInputName().isEmpty() && !m_monitor->oldInputName().isNull());
    }

    void aNameThatDiffersOnlyInCaseIsAnother()
    {
        show(u"USB mic"_qs);
        show(u"USB Mic"_qs);
        QCOMPARE(m_field.text, u"UM"_qs);
    }

    void aChangeWhileRecordingShowsAtTheFirstUpdateAfterIt()
    {
        show(u"Built-in Microphone"_qs);
        const auto asked = m_hardware.questions.size();
        m_field.recording = true; // stays so while paused
        show(u"USB Mic"_qs);
        show(u"USB Mic"_qs);
        QCOMPARE(m_field.text, u"BM"_qs);
        QCOMPARE(m_field.toolTip, u"Built-in Microphone"_qs);
        QCOMPARE(m_hardware.questions.size(), asked);
        m_field.recording = false;
        m_monitor->updateInputName();
        QCOMPARE(m_field.text, u"UM"_qs);
        QCOMPARE(m_field.toolTip, u"USB Mic"_qs);
    }

    void aOneCharacterNameIsShownWhole()
    {
        show(u" "_qs);
        QCOMPARE(m_field.text, u" "_qs);
        QCOMPARE(m_field.toolTip, u" "_qs);
    }

    void aOneWordNameSetsTheToolTipAndLeavesTheText()
    {
        show(u"Built-in Microphone"_qs);
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, show(u"Microphone"_qs));
        QCOMPARE(m_field.toolTip, u"Microphone"_qs);
        QCOMPARE(m_field.text, u"BM"_qs);
        QCOMPARE(m_monitor->oldInputName(), u"Built-in Microphone"_qs);
    }

    void aOneWordNameRisesToTheEventLoopAtEachUpdate()
    {
        auto *application = static_cast<CatchingApplication *>(QCoreApplication::instance());
        application->rangeErrors = 0;
        m_hardware.name = u"Microphone"_qs;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [this] { m_monitor->updateInputName(); });
        timer.start(1);
        QTRY_VERIFY(application->rangeErrors >= 3);
        timer.stop();
        QCOMPARE(m_field.toolTip, u"Microphone"_qs);
        QCOMPARE(m_field.text, QString());
        QVERIFY(m_monitor->oldInputName().isNull());
    }

    void aTwoWordNameAfterAOneWordNameIsShownAgain()
    {
        show(u"Built-in Microphone"_qs);
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, show(u"Microphone"_qs));
        show(u"USB Mic"_qs);
        QCOMPARE(m_field.text, u"UM"_qs);
    }

    void backToTheRememberedNameAfterAOneWordNameTouchesNothing()
    {
        show(u"Built-in Microphone"_qs);
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, show(u"Microphone"_qs));
        const int touched = m_field.touched;
        show(u"Built-in Microphone"_qs);
        QCOMPARE(m_field.touched, touched); // deliberate: the comparison is with the remembered name alone
    }

    void noDeviceIsLoggedAndClearsTheField()
    {
        show(u"Built-in Microphone"_qs);
        m_hardware.deviceStatus = -7;
        QTest::ignoreMessage(QtWarningMsg, "Error -7 retreiving default input device");
        m_monitor->updateInputName();
        QCOMPARE(m_field.toolTip, QString());
        QCOMPARE(m_field.text, QString());
        QVERIFY(m_monitor->oldInputName().isNull());
    }

    void aDeviceWithoutANameIsLoggedAndClearsTheField()
    {
        show(u"Built-in Microphone"_qs);
        m_hardware.nameStatus = 560947818;
        QTest::ignoreMessage(QtWarningMsg, "Error 560947818 retreiving default input device's name");
        m_monitor->updateInputName();
        QCOMPARE(m_field.toolTip, QString());
        QCOMPARE(m_field.text, QString());
        QVERIFY(m_monitor->oldInputName().isNull());
    }

    void theNameIsShownAgainWhenTheDeviceIsBack()
    {
        show(u"Built-in Microphone"_qs);
        m_hardware.deviceStatus = 1;
        QTest::ignoreMessage(QtWarningMsg, "Error 1 retreiving default input device");
        m_monitor->updateInputName();
        m_hardware.deviceStatus = 0;
        m_monitor->updateInputName();
        QCOMPARE(m_field.text, u"BM"_qs);
    }
};

int main(int argc, char **argv)
{
    CatchingApplication application(argc, argv);
    TestInputDeviceMonitor test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_inputdevicemonitor.moc"
