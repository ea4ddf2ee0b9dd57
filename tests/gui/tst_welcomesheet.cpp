#include "audio/KestLevelsView.h"
#include "fakes/FakeMicrophoneTrial.h"
#include "gui/WindowHouse.h"
#include "ui/MailStateView.h"
#include "ui/MicrophoneTrialView.h"
#include "ui/WelcomeSheet.h"
#include "ui/controls/ReadoutField.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using namespace kest;
using namespace kest::test;

namespace {

const QString invitation = QStringLiteral("Press the button and speak. Nothing is recorded.");
const QString notYet = QStringLiteral("Nothing heard yet. Say something.");
const QString areHeard = QStringLiteral("You are heard.");

} // namespace

/// The welcome over the main window: the microphone's trial, the mail's state, and how it ends.
class WelcomeSheetTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowHouse> m_house;
    std::unique_ptr<FakeMicrophoneTrial> m_trial;
    std::unique_ptr<WelcomeSheet> m_sheet;

    template <typename Widget>
    Widget &part(const char *objectName) const
    {
        auto *found = m_sheet->findChild<Widget *>(QString::fromLatin1(objectName));
        if (!found)
            qFatal("the sheet has no %s", objectName);
        return *found;
    }

    QAbstractButton &tryButton() const { return part<QAbstractButton>("trialButton"); }
    QString words() const { return part<MicrophoneTrialView>("trialView").text(); }
    void press(QAbstractButton &button) const { QTest::mouseClick(&button, Qt::LeftButton); }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
        m_trial = std::make_unique<FakeMicrophoneTrial>();
        m_sheet = std::make_unique<WelcomeSheet>(
            WelcomeSheet::Dependencies{*m_trial, m_house->connection, *m_house->settings}, m_house->controller->window());
        m_sheet->begin();
        QTRY_COMPARE_WITH_TIMEOUT(QApplication::activeWindow(), m_sheet.get(), 30000);
    }

    void cleanup()
    {
        m_sheet.reset();
        m_trial.reset();
        m_house.reset();
    }

    // The microphone

    void itOpensTheMicrophoneOnlyWhenTheButtonIsPressed()
    {
        QCOMPARE(part<ReadoutField>("trialNameField").text(), QStringLiteral("Built-in Microphone"));
        QCOMPARE(words(), invitation);
        QCOMPARE(m_trial->starts, 0);
        press(tryButton());
        QCOMPARE(m_trial->starts, 1);
        QCOMPARE(words(), notYet);
        press(tryButton());
        QVERIFY(!m_trial->isListening());
        QCOMPARE(words(), invitation);
    }

    void whoeverSpeaksIsHeardInBarAndWords()
    {
        m_trial->heard = -20.0F;
        press(tryButton());
        QTRY_COMPARE(words(), areHeard);
        QVERIFY(part<KestLevelsView>("trialLevelsView").powerFraction() > 0.5);
        QCOMPARE(m_house->recorders.made.size(), 0);
        press(tryButton());
        QCOMPARE(words(), QStringLiteral("You were heard."));
        QCOMPARE(part<KestLevelsView>("trialLevelsView").powerFraction(), 0.0);
    }

    void aQuietRoomIsNotSpeech()
    {
        m_trial->heard = -52.0F;
        press(tryButton());
        QSignalSpy readings(&part<KestLevelsView>("trialLevelsView"), &KestLevelsView::powerFractionChanged);
        for (int reading = 0; reading < 2 * MicrophoneTrialView::readingsHeard; ++reading) {
            m_trial->heard = -52.0F - static_cast<float>(reading); // each of them moves the bar
            QTRY_COMPARE(readings.size(), reading + 1);
        }
        QCOMPARE(words(), notYet);
    }

    void aForgottenMicrophoneIsClosed()
    {
        part<MicrophoneTrialView>("trialView").setTimeLimit(std::chrono::milliseconds(1));
        press(tryButton());
        QTRY_VERIFY(!m_trial->isListening());
        QCOMPARE(words(), QStringLiteral("Nothing was heard. Is the microphone muted?"));
        QCOMPARE(tryButton().text(), QStringLiteral("Try the Microphone"));
        QCOMPARE(MicrophoneTrialView::timeLimit, std::chrono::seconds(30));
    }

    void everyTroubleHasItsWords_data()
    {
        QTest::addColumn<RecordingTrouble>("trouble");
        QTest::addColumn<QString>("said");
        QTest::newRow("none") << RecordingTrouble::NoMicrophone
                              << QStringLiteral("No microphone was found. Plug one in and try again.");
        QTest::newRow("lost") << RecordingTrouble::MicrophoneLost
                              << QStringLiteral("The microphone went away. Plug it in and try again.");
        QTest::newRow("no server") << RecordingTrouble::NoSoundServer
                                   << QStringLiteral("No sound server answers. Try again in a moment.");
        QTest::newRow("server lost") << RecordingTrouble::SoundServerLost
                                     << QStringLiteral("No sound server answers. Try again in a moment.");
        QTest::newRow("no sound") << RecordingTrouble::NoSound
                                  << QStringLiteral("The microphone gives no sound. Try again, or choose another one.");
    }

    void everyTroubleHasItsWords()
    {
        QFETCH(RecordingTrouble, trouble);
        QFETCH(QString, said);
        press(tryButton());
        m_trial->fail(trouble);
        QCOMPARE(words(), said);
        press(tryButton());
        QCOMPARE(m_trial->starts, 2);
        QCOMPARE(words(), notYet);
    }

    void withoutAMicrophoneItSaysSoUntilThereIsOne()
    {
        m_trial->name.clear();
        m_sheet->hide();
        m_sheet = std::make_unique<WelcomeSheet>(
            WelcomeSheet::Dependencies{*m_trial, m_house->connection, *m_house->settings}, m_house->controller->window());
        m_sheet->begin();
        QTRY_COMPARE_WITH_TIMEOUT(part<ReadoutField>("trialNameField").text(), QStringLiteral("No microphone found"), 30000);
        m_trial->name = QStringLiteral("USB Headset");
        QTRY_COMPARE(part<ReadoutField>("trialNameField").text(), QStringLiteral("USB Headset"));
    }

    void hidingTheWindowClosesTheMicrophoneAndShowingItDoesNotOpenIt()
    {
        press(tryButton());
        m_house->controller->orderOut();
        QVERIFY(!m_sheet->isVisible());
        QVERIFY(!m_trial->isListening());
        tryButton().click(); // as another program may
        QCOMPARE(m_trial->starts, 1);
        m_house->controller->orderFront();
        QVERIFY(m_sheet->isVisible());
        QVERIFY(!m_trial->isListening());
        QCOMPARE(words(), invitation);
    }

    // The mail

    void theMailConnectionIsSaidAndItsAddOnOffered()
    {
        m_house->connection.setState({.kind = MailConnectionState::Kind::AddOnMissing,
                                      .application = QStringLiteral("Thunderbird"),
                                      .accounts = {},
                                      .version = {},
                                      .canInstall = true,
                                      .mustQuitFirst = false});
        QCOMPARE(part<MailStateView>("mailStateView").text(), QStringLiteral("Kest’s add-on is missing in Thunderbird."));
        auto &install = part<QAbstractButton>("installAddOnButton");
        QTRY_VERIFY(m_sheet->rect().contains(install.mapTo(m_sheet.get(), install.rect().bottomRight())));
        press(install);
        QCOMPARE(m_house->connection.installs, 1);
        Q_EMIT m_house->connection.installEnded({});
        QCOMPARE(part<QLabel>("closingWords").text(), QStringLiteral("The add-on is installed."));
    }

    // How it ends

    void startEscapeAndTheCloseKeysEndIt_data()
    {
        QTest::addColumn<std::function<void()>>("end");
        QTest::newRow("Start") << std::function<void()>([this] { press(part<QAbstractButton>("startButton")); });
        QTest::newRow("Escape") << std::function<void()>(
            [this] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); });
        QTest::newRow("the keyboard on Start") << std::function<void()>(
            [this] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space); });
        QTest::newRow("close") << std::function<void()>([this] { m_sheet->close(); });
    }

    void startEscapeAndTheCloseKeysEndIt()
    {
        QFETCH(std::function<void()>, end);
        QSignalSpy finished(m_sheet.get(), &QDialog::finished);
        press(tryButton());
        part<QAbstractButton>("startButton").setFocus();
        end();
        QCOMPARE(finished.size(), 1);
        QVERIFY(!m_sheet->isVisible());
        QVERIFY(!m_trial->isListening());
        QTRY_COMPARE_WITH_TIMEOUT(QApplication::activeWindow(), m_house->controller->window(), 30000);
        m_house->controller->orderOut();
        m_house->controller->orderFront();
        QVERIFY(!m_sheet->isVisible());
    }

    void theKeyboardReachesEverythingAndBeginsAtStart()
    {
        m_house->connection.setState({.kind = MailConnectionState::Kind::AddOnMissing,
                                      .application = QStringLiteral("Thunderbird"),
                                      .accounts = {},
                                      .version = {},
                                      .canInstall = true,
                                      .mustQuitFirst = false});
        QVERIFY(part<QAbstractButton>("startButton").hasFocus());
        for (const char *next : {"trialButton", "installAddOnButton", "startButton"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(next));
        }
    }

    void theKeyboardGoesRoundAlsoWithoutTheAddOnsButton()
    {
        for (const char *next : {"trialButton", "startButton", "trialButton"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(next));
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("startButton"));
    }

    void assistiveTechnologyHearsWhatItIsFor()
    {
        QAccessibleInterface *sheet = QAccessible::queryAccessibleInterface(m_sheet.get());
        QCOMPARE(sheet->text(QAccessible::Name), QStringLiteral("Welcome to Kest"));
        QVERIFY(sheet->text(QAccessible::Description).contains(QStringLiteral("Both checks can be skipped.")));
        const QList<QAbstractButton *> buttons = m_sheet->findChildren<QAbstractButton *>();
        for (const QAbstractButton *button : buttons)
            QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
    }
};

QTEST_MAIN(WelcomeSheetTest)
#include "tst_welcomesheet.moc"
