#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/desktop/FreedesktopTrash.h"
#include "platform/linux/desktop/LinuxBookmarkStore.h"
#include "platform/linux/desktop/LinuxProcessInfo.h"
#include "platform/linux/desktop/LinuxWorkspace.h"
#include "platform/linux/desktop/PosixFolderContents.h"
#include "platform/linux/desktop/SleepInhibitor.h"
#include "platform/linux/desktop/SystemClock.h"
#include "platform/linux/mail/DBusMailConnection.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "platform/linux/sound/PulseSound.h"

namespace kest {

namespace {

constexpr char platformVariable[] = "QT_QPA_PLATFORM";
bool preferenceIsOurs = false;

} // namespace

void preferX11()
{
    preferenceIsOurs = !qEnvironmentVariableIsSet(platformVariable) && qEnvironmentVariableIsSet("DISPLAY");
    if (preferenceIsOurs)
        qputenv(platformVariable, "xcb;wayland");
}

void forgetX11Preference()
{
    if (preferenceIsOurs)
        qunsetenv(platformVariable);
}

Platform makeLinuxPlatform()
{
    Platform platform;
    platform.clock = std::make_unique<SystemClock>();
    platform.processInfo = std::make_unique<LinuxProcessInfo>();
    platform.bookmarkStore = std::make_unique<LinuxBookmarkStore>();
    platform.folderContents = std::make_unique<PosixFolderContents>();
    platform.trash = std::make_unique<FreedesktopTrash>();
    platform.sleepHold = std::make_unique<SleepInhibitor>();
    PulseSound sound = makePulseSound();
    platform.audioHardware = std::move(sound.audioHardware);
    platform.recorderFactory = std::move(sound.recorderFactory);
    platform.player = std::move(sound.player);
    platform.microphoneTrial = std::move(sound.microphoneTrial);
    auto mailTransport = std::make_unique<DBusMailTransport>();
    platform.mailConnection = std::make_unique<DBusMailConnection>(mailTransport->services());
    platform.mailTransport = std::move(mailTransport);
    platform.workspace = std::make_unique<LinuxWorkspace>(*platform.mailTransport);
    return platform;
}

} // namespace kest
