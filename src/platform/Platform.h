#pragma once

#include "platform/AudioFilePlayer.h"
#include "platform/AudioFileRecorder.h"
#include "platform/AudioHardware.h"
#include "platform/BookmarkStore.h"
#include "platform/Clock.h"
#include "platform/FolderContents.h"
#include "platform/MailConnection.h"
#include "platform/MailTransport.h"
#include "platform/MicrophoneTrial.h"
#include "platform/ProcessInfo.h"
#include "platform/SleepHold.h"
#include "platform/Trash.h"
#include "platform/Workspace.h"

#include <memory>

namespace kest {

/// Everything that the application asks of the system it runs on. Made once by
/// the program's entry and outliving all who use it. No member is null.
struct Platform {
    std::unique_ptr<Clock> clock;
    std::unique_ptr<ProcessInfo> processInfo;
    std::unique_ptr<BookmarkStore> bookmarkStore;
    std::unique_ptr<FolderContents> folderContents;
    std::unique_ptr<Trash> trash;
    std::unique_ptr<SleepHold> sleepHold;
    std::unique_ptr<AudioHardware> audioHardware;
    std::unique_ptr<AudioFileRecorderFactory> recorderFactory;
    std::unique_ptr<AudioFilePlayer> player;
    std::unique_ptr<MicrophoneTrial> microphoneTrial;
    std::unique_ptr<MailTransport> mailTransport;
    std::unique_ptr<MailConnection> mailConnection; // hears of what the transport hears
    std::unique_ptr<Workspace> workspace; // watches the mail transport, so it goes first
};

} // namespace kest
