#pragma once

#include "platform/AudioFileRecorder.h"

#include <QDateTime>
#include <QString>

namespace kest {

/// A name or an address for its place in a sentence: where the window runs from right to left it is isolated (U+2068, U+2069),
/// so that the marks round it and its own stay where they belong; else as it is.
QString isolated(const QString &name);

/// What happened to the recording, in calm words that fit one line.
QString wordsFor(RecordingTrouble trouble);

/// The same when the trouble came before anything of the recording was in its
/// file, so that nothing is kept.
QString wordsForNothingKept(RecordingTrouble trouble);

/// Stop came before the microphone gave anything, and nothing was wrong.
QString wordsForEmptyRecording();

/// What is wrong with what is heard, and what helps; empty where nothing is.
/// `microphone` may be empty.
QString wordsFor(InputCondition condition, const QString &microphone);

/// For a recording in which nothing was ever heard.
QString wordsForSilentRecording();

/// A recording under way has `size` bytes by now.
QString wordsForSize(qint64 size);

/// "1.2 MB of 4.8 MB handed to the mail application"; bytes.
QString wordsForHandOver(qint64 done, qint64 total);

/// The name of a recording that starts at `start`: "2024-03-05_14-07-09.m4a" in
/// the digits of the person's locale.
QString recordingFileName(const QDateTime &start);

/// The same, for the first second from `start` on whose name is still free in
/// `folder`: two recordings that begin within one second must not share a file.
QString unusedRecordingFileName(const FolderURL &folder, const QDateTime &start);

/// A length in seconds as "0:07" or "1:02:09".
QString lengthText(double seconds);

} // namespace kest
