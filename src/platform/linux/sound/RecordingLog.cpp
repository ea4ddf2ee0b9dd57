#include "platform/linux/sound/RecordingLog.h"

namespace kest {

Q_LOGGING_CATEGORY(logRecording, "kest.recording")

} // namespace kest
