#include "app/AppDelegate.h"
#include "app/Application.h"
#include "app/Translations.h"
#include "app/UserDefaults.h"
#include "app/Welcome.h"
#include "mail/ASMail.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/desktop/ColorSchemeWatch.h"
#include "platform/linux/desktop/SingleInstance.h"
#include "platform/linux/desktop/TerminationSignals.h"
#include "platform/linux/desktop/WaylandReturn.h"
#include "ui/Alert.h"
#include "ui/Appearance.h"
#include "ui/MainWindowController.h"

#include <QLocale>
#include <QStandardPaths>
#include <QTimer>

#include <csignal>
#include <cstdlib>

#include <malloc.h>
#include <unistd.h>

using namespace kest;

namespace {

// How long the end waits for a recording that is being finished. What takes longer is finished at the next start.
constexpr int finishWait = 5000; // ms

// How long a second start waits for the first one to come to the front, and for one that is about to end, which may
// finish a recording and clean up first.
constexpr std::chrono::milliseconds handOverLimit { 3000 };
constexpr std::chrono::milliseconds endedLimit { 15'000 };

// How long the end waits when there is nothing left that could be lost.
constexpr unsigned lastWait = 3; // seconds

// The window is painted by then.
constexpr int serveDelay = 100; // ms

// malloc keeps what an encoder once took: in each arena, of which there would be eight for each core, and among the large
// blocks, of which it serves ever larger ones from there once one of them was freed.
void haveMallocGiveBack()
{
#ifdef M_ARENA_MAX // GNU's
    ::mallopt(M_ARENA_MAX, 2);
    ::mallopt(M_MMAP_THRESHOLD, 128 * 1024); // bytes: its first value, and the last
#endif
}

QString settingsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/kest/settings.ini");
}

bool handedOver(SingleInstance &instance, int argc, char **argv)
{
    if (instance.isFirst())
        return false;
    const QCoreApplication application(argc, argv);
    return instance.handOver(handOverLimit, endedLimit);
}

/// Light at first; the desktop's answer does not keep the window waiting.
void followColorScheme(ColorSchemeWatch &watch)
{
    applyColorScheme(ColorScheme::NoPreference);
    QObject::connect(&watch, &ColorSchemeWatch::colorSchemeRead, qApp, [](uint scheme) {
        applyColorScheme(scheme == 1 ? ColorScheme::Dark : ColorScheme::Light);
    });
}

/// The sound server's library, whose thread is waited for, may hang.
void endSoon()
{
    std::signal(SIGALRM, [](int) { std::_Exit(EXIT_SUCCESS); });
    ::alarm(lastWait);
}

int run(Platform &platform, TerminationSignals &wishes, Application &application, SingleInstance &instance)
{
    const WelcomeMarker welcomed(settingsPath()); // before anything is written
    UserDefaults defaults(settingsPath());
    Alert alerts;
    ColorSchemeWatch colors;
    followColorScheme(colors);
    Welcome welcome(platform, defaults, welcomed);
    {
        AppDelegate delegate(platform, defaults, alerts);
        if (!AppDelegate::initialize(platform, defaults))
            return EXIT_FAILURE;
        application.setShouldTerminate([&] {
            instance.withdraw();
            alerts.stopShowing();
            delegate.applicationShouldTerminate();
        });
        QObject::connect(&delegate, &AppDelegate::terminateRequested, &application, &Application::terminate);
        QObject::connect(&wishes, &TerminationSignals::received, &application, &Application::terminate);
        QObject::connect(&instance, &SingleInstance::activated, &delegate, &AppDelegate::activate);
        WaylandReturn wayland;
        QObject::connect(&instance, &SingleInstance::activated, &wayland, &WaylandReturn::begin);
        delegate.applicationDidFinishLaunching();
        alerts.setWindow(delegate.winController()->window());
        welcome.showSoon(*delegate.winController());
        QTimer::singleShot(serveDelay, &instance, &SingleInstance::serve);
        application.exec();
    }
    platform.recorderFactory->waitForFinished(finishWait);
    return EXIT_SUCCESS;
}

int run(Application &application, SingleInstance &instance)
{
    TerminationSignals wishes; // the longest: a further signal is no reason to leave a recording unfinished
    Platform platform = makeLinuxPlatform();
    const int status = run(platform, wishes, application, instance);
    endSoon();
    return status;
}

} // namespace

int main(int argc, char **argv)
{
    SingleInstance instance;
    if (handedOver(instance, argc, argv))
        return EXIT_SUCCESS;
    haveMallocGiveBack();
    ASMail::loadScriptObjects();
    preferX11();
    Application application(argc, argv);
    forgetX11Preference();
    QApplication::setApplicationName(QStringLiteral("Kest"));
    QApplication::setApplicationVersion(QStringLiteral(KEST_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.kest.Kest"));
    installTranslations(QLocale::system().uiLanguages());
    return run(application, instance);
}
