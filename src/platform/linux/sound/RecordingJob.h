#pragma once

#include "platform/AudioFileRecorder.h"
#include "platform/linux/sound/CaptureSession.h"
#include "platform/linux/sound/EncoderLoader.h"
#include "platform/linux/sound/RecordingFile.h"
#include "platform/linux/sound/RecordingJournal.h"

#include <atomic>
#include <functional>
#include <memory>

namespace kest {

/// Brings one capture into its file: encodes while it lasts, then finishes the
/// file. Runs on a thread of its own and owns all it uses, so it comes to its
/// end also when the recorder, or the window, is gone.
class RecordingJob
{
public:
    struct Parts {
        std::shared_ptr<CaptureSession> capture;
        std::shared_ptr<EncoderLoader> encoders;
        std::unique_ptr<RecordingJournal::Entry> entry; ///< Announces `file`; null when that could not be done.
        RecordingFile file;
        EncoderFormat format;
        std::shared_ptr<std::atomic<qint64>> fileSize; ///< Bytes; kept up to date while it is written.
        std::function<void(RecordingTrouble trouble, const QString &detail)> troubleOccurred; ///< On the job's thread.
        /// On the job's thread, once, last. The file is at `url` now.
        std::function<void(bool kept, const FileURL &url)> finished;
    };

    explicit RecordingJob(Parts parts) : m_parts(std::move(parts)) { }

    /// The whole work; returns when the file is closed for good.
    void run();

    /// In place of `run`, where there is no thread for it: leaves nothing.
    void cancel();

private:
    void encode();
    bool openWriter();
    void writeFailed(const FileFailure &failure);
    bool finish();

    Parts m_parts;
    std::unique_ptr<RecordingWriter> m_writer;
    qint64 m_written = 0; // samples
    bool m_failed = false;
};

} // namespace kest
