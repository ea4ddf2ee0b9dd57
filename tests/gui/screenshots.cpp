// Shows the window in one of its states and saves what it looks like:
//
//     screenshots FOLDER [light|dark [LANGUAGE]]
//
// LANGUAGE is "de", "pt_BR", … or "pseudo". One picture per state, at the scale that QT_SCALE_FACTOR asks for; FONT_PIXELS in the environment sets the size of
// the desktop's font.

#include "app/SettingsTable.h"
#include "fakes/FakeMicrophoneTrial.h"
#include "gui/Languages.h"
#include "gui/WindowHouse.h"
#include "ui/Appearance.h"
#include "ui/WelcomeSheet.h"
#include "ui/controls/ReadoutField.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QScreen>
#include <QTest>

using namespace kest;
using namespace kest::test;

namespace {

struct Studio {
    WindowHouse house;
    QDir folder;
    QString suffix;

    void take(const QString &name)
    {
        QTest::qWait(400); // the window slides to its height
        house.controller->window()->grab().save(folder.filePath(name + suffix + QStringLiteral(".png")));
    }

    void record()
    {
        house.controller->audioRecordingRecord();
        house.clock.advance(47.0);
        house.recorders.last()->setCurrentTime(47.0);
        house.recorders.last()->setAveragePower(0, -21.0F);
        house.controller->audioRecordingUpdateTimeWithTimer();
    }

    void connectMail()
    {
        house.connection.setState({.kind = MailConnectionState::Kind::Connected,
                                   .application = QStringLiteral("Thunderbird"),
                                   .accounts = {QStringLiteral("anna@example.org")},
                                   .version = {}});
    }

    void takeSheet(const QString &name)
    {
        QTest::qWait(200);
        house.controller->preferences()->window()->grab().save(folder.filePath(name + suffix + QStringLiteral(".png")));
    }

    /// The preferences: as they are at first, with all chosen, without a mail application, with a trouble.
    void takePreferences()
    {
        house.mail.hindrance = Error{{}, 0, QStringLiteral("No mail application is connected."), {}};
        house.openPreferences();
        takeSheet(QStringLiteral("preferences-alone"));
        house.mail.answers[QStringLiteral("Accounts")] =
            QVariantList{QStringList{QStringLiteral("1"), QStringLiteral("Anna’s mail"), QStringLiteral("a@example.org")},
                         QStringList{QStringLiteral("2"), QStringLiteral("Club"), QStringLiteral("b@example.org")}};
        house.mail.hindrance.reset();
        Q_EMIT house.mail.mailApplicationAppeared(QStringLiteral("Thunderbird"));
        takeSheet(QStringLiteral("preferences-unchosen"));
        house.find<QComboBox>(QStringLiteral("Sending Account"))->setCurrentIndex(1);
        house.controller->preferences()->doChoosDefaultAccount();
        takeSheet(QStringLiteral("preferences"));
        QTest::qWait(100);
        QGuiApplication::primaryScreen()->grabWindow(0).save(
            folder.filePath(QStringLiteral("preferences-screen") + suffix + QStringLiteral(".png")));
        house.find<QCheckBox>(QStringLiteral("Include Sender's Name"))->click();
        house.find(QStringLiteral("Reply Text"))->setFocus();
        Q_EMIT house.settings->troubleOccurred(QStringLiteral("The settings cannot be saved: Read-only file system."));
        takeSheet(QStringLiteral("preferences-reply"));
        house.controller->preferences()->closePrefsSheet();
    }

    /// The welcome: as it comes up, heard, without add-on and microphone, and where it stands on the screen.
    void takeWelcome()
    {
        connectMail();
        FakeMicrophoneTrial trial;
        WelcomeSheet sheet({trial, house.connection, *house.settings}, house.controller->window());
        const auto takeIt = [&](const QString &name) {
            QTest::qWait(500); // the bar and its words
            sheet.grab().save(folder.filePath(name + suffix + QStringLiteral(".png")));
        };
        sheet.begin();
        takeIt(QStringLiteral("welcome"));
        trial.heard = -24.0F;
        sheet.findChild<QAbstractButton *>(QStringLiteral("trialButton"))->click();
        takeIt(QStringLiteral("welcome-heard"));
        QGuiApplication::primaryScreen()->grabWindow(0).save(
            folder.filePath(QStringLiteral("welcome-screen") + suffix + QStringLiteral(".png")));
        house.connection.setState({.kind = MailConnectionState::Kind::AddOnMissing,
                                   .application = QStringLiteral("Thunderbird"),
                                   .accounts = {},
                                   .version = {},
                                   .canInstall = true,
                                   .mustQuitFirst = true});
        trial.fail(RecordingTrouble::NoSound);
        sheet.findChild<QAbstractButton *>(QStringLiteral("trialButton"))->setFocus(Qt::TabFocusReason);
        takeIt(QStringLiteral("welcome-trouble"));
        sheet.reject();
    }

    /// Made up as speech looks: words, and pauses between them.
    static QList<float> spokenPeaks()
    {
        QList<float> peaks;
        for (int part = 0; part < 512; ++part) {
            const double word = qMax(0.0, std::sin(part * 0.09) * std::sin(part * 0.017 + 0.6));
            const double syllable = 0.55 + 0.45 * std::sin(part * 0.83);
            peaks.append(static_cast<float>(0.004 + 0.5 * word * syllable));
        }
        return peaks;
    }

    void recordToTheEnd(double seconds)
    {
        record();
        house.recorders.last()->setCurrentTime(seconds);
        house.controller->audioRecordingStop();
        house.player.read(seconds, spokenPeaks());
    }

    /// The place to listen, in all its states.
    void takeListening()
    {
        connectMail();
        house.controller->windowToggleExpanded();
        take(QStringLiteral("listening-none"));
        recordToTheEnd(47.2);
        take(QStringLiteral("listening"));
        house.find(QStringLiteral("Play"))->setFocus(Qt::TabFocusReason);
        house.player.play();
        house.player.setPosition(18.6);
        take(QStringLiteral("listening-playing"));
        QTest::keyClick(house.find(QStringLiteral("Position")), Qt::Key_Right);
        house.find(QStringLiteral("Position"))->setFocus(Qt::TabFocusReason);
        take(QStringLiteral("listening-focus"));
        house.controller->window()->setLayoutDirection(Qt::RightToLeft);
        take(QStringLiteral("listening-right-to-left"));
        house.controller->window()->unsetLayoutDirection();
        house.player.fail(PlaybackTrouble::OutputLost);
        take(QStringLiteral("listening-trouble"));
        house.controller->mailComposeNewMessage();
        take(QStringLiteral("listening-used"));
        house.click(QStringLiteral("Discard Recording"));
        take(QStringLiteral("listening-discarded"));
        recordToTheEnd(3 * 3600 + 5);
        house.player.play();
        house.player.setPosition(65);
        take(QStringLiteral("listening-hours"));
        house.controller->windowToggleExpanded();
    }

    /// The one for the front page: a recording that is listened to before it is sent.
    void takePortrait()
    {
        house.delegate.recordings = FileURL::fromPath(QDir::homePath() + QStringLiteral("/Music/Kest"));
        QDir().mkpath(house.delegate.recordings->path());
        house.settings->setBool(true, SettingsKeys::bWindowExpanded);
        house.openAndShow();
        house.controller->inputNameField()->setText(QStringLiteral("BM"));
        connectMail();
        recordToTheEnd(47.2);
        house.player.play();
        house.player.setPosition(18.6);
        take(QStringLiteral("portrait"));
    }

    void takeAll()
    {
        house.openAndShow();
        house.controller->inputNameField()->setText(QStringLiteral("BM"));
        take(QStringLiteral("idle"));
        record();
        take(QStringLiteral("recording"));
        Q_EMIT house.recorders.last()->inputConditionChanged(InputCondition::Silent, QStringLiteral("Built-in Microphone"));
        take(QStringLiteral("silent"));
        Q_EMIT house.recorders.last()->inputConditionChanged(InputCondition::Clipping, QStringLiteral("Family 17h/19h HD Audio Controller Analog Stereo"));
        take(QStringLiteral("too-loud"));
        Q_EMIT house.recorders.last()->inputConditionChanged(InputCondition::Heard, {});
        house.controller->audioRecordingPauseResume();
        take(QStringLiteral("paused"));
        house.controller->audioRecordingStop();
        take(QStringLiteral("stopped"));
        connectMail();
        house.controller->windowToggleExpanded();
        take(QStringLiteral("stopped-expanded"));
        house.connection.setState({.kind = MailConnectionState::Kind::AddOnMissing,
                                   .application = QStringLiteral("Thunderbird"),
                                   .accounts = {},
                                   .version = {},
                                   .canInstall = true,
                                   .mustQuitFirst = true});
        take(QStringLiteral("add-on-missing"));
        record();
        Q_EMIT house.recorders.last()->troubleOccurred(RecordingTrouble::MicrophoneLost, QStringLiteral("USB Microphone"));
        take(QStringLiteral("notice-expanded"));
        house.controller->windowToggleExpanded();
        take(QStringLiteral("notice"));
    }
};

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (const int pixels = qEnvironmentVariableIntValue("FONT_PIXELS")) {
        QFont font = QApplication::font();
        font.setPixelSize(pixels);
        QApplication::setFont(font);
    }
    const QString language = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
    const Speaking speaking(language);
    Studio studio;
    studio.folder = QDir(QString::fromLocal8Bit(argv[1]));
    studio.folder.mkpath(QStringLiteral("."));
    const bool dark = argc > 2 && qstrcmp(argv[2], "dark") == 0;
    studio.suffix = (language.isEmpty() ? QString() : u'-' + language) + (dark ? QStringLiteral("-dark") : QString());
    applyColorScheme(dark ? ColorScheme::Dark : ColorScheme::Light);
    studio.takeAll();
    studio.takeListening();
    studio.takePreferences();
    studio.takeWelcome();
    studio.takePortrait();
    return 0;
}
