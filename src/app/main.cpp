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

using namespace kest;

namespace {

// How long the end waits for a recording that is being finished. What takes longer is finished at the next start.
constexpr int finishWait = 5000; // ms

// How long a second start waits for the first one to come to the front.
constexpr std::chrono::milliseconds handOverLimit { 3000 };

// The window is painted by then.
constexpr int serveDelay = 100; // ms

QString settingsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/kest/settings.ini");
}

bool handedOver(SingleInstance &instance, int argc, char **argv)
{
    if (instance.isFirst())
        return false;
    const QCoreApplication application(argc, argv);
    return instance.handOver(handOverLimit);
}

/// Light at first; the desktop's answer does not keep the window waiting.
void followColorScheme(ColorSchemeWatch &watch)
{
    applyColorScheme(ColorScheme::NoPreference);
    QObject::connect(&watch, &ColorSchemeWatch::colorSchemeRead, qApp, [](uint scheme) {
        applyColorScheme(scheme == 1 ? ColorScheme::Dark : ColorScheme::Light);
    });
}

int run(Application &application, SingleInstance &instance)
{
    Platform platform = makeLinuxPlatform();
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
        application.setShouldTerminate([&delegate] { delegate.applicationShouldTerminate(); });
        QObject::connect(&delegate, &AppDelegate::terminateRequested, &application, &Application::terminate);
        TerminationSignals wishes;
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

} // namespace

int main(int argc, char **argv)
{
    SingleInstance instance;
    if (handedOver(instance, argc, argv))
        return EXIT_SUCCESS;
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
