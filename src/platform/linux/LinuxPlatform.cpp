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

/// Read once by Qt, in the environment. What the person set there stands.
struct X11Setting
{
    const char *name;
    const char *value;
    bool ours = false;
};

X11Setting x11Settings[] = {
    {"QT_QPA_PLATFORM", "xcb;wayland"},
    // With shared memory, each picture waits for the display server to be done with the one before. For the level meter, ten
    // times a second, that costs more than sending its few pixels.
    {"QT_XCB_NO_MITSHM", "1"},
};

} // namespace

void preferX11()
{
    for (X11Setting &setting : x11Settings) {
        setting.ours = qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet(setting.name);
        if (setting.ours)
            qputenv(setting.name, setting.value);
    }
}

void forgetX11Preference()
{
    for (const X11Setting &setting : x11Settings) {
        if (setting.ours)
            qunsetenv(setting.name);
    }
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
