#include "app/AppDelegate.h"
#include "app/Application.h"
#include "app/UserDefaults.h"
#include "mail/ASMail.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/desktop/TerminationSignals.h"
#include "ui/Alert.h"

#include <QStandardPaths>

using namespace kest;

namespace {

// How long the end waits for a recording that is being finished. What takes longer is finished at the next start.
constexpr int finishWait = 5000; // ms

QString settingsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/kest/settings.ini");
}

int run(Application &application)
{
    Platform platform = makeLinuxPlatform();
    UserDefaults defaults(settingsPath());
    Alert alerts;
    {
        AppDelegate delegate(platform, defaults, alerts);
        if (!AppDelegate::initialize(platform, defaults))
            return EXIT_FAILURE;
        application.setShouldTerminate([&delegate] { delegate.applicationShouldTerminate(); });
        QObject::connect(&delegate, &AppDelegate::terminateRequested, &application, &Application::terminate);
        TerminationSignals wishes;
        QObject::connect(&wishes, &TerminationSignals::received, &application, &Application::terminate);
        delegate.applicationDidFinishLaunching();
        application.exec();
    }
    platform.recorderFactory->waitForFinished(finishWait);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv)
{
    ASMail::loadScriptObjects();
    preferX11();
    Application application(argc, argv);
    forgetX11Preference();
    QApplication::setApplicationName(QStringLiteral("Kest"));
    QApplication::setApplicationVersion(QStringLiteral(KEST_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.kest.Kest"));
    return run(application);
}
