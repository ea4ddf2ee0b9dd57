#include "ui/Wording.h"

#include <QGuiApplication>
#include <QLocale>

#include <cmath>
#include <sys/stat.h>

namespace kest {

namespace {

// Bytes; see RecordingWarnings::sizes.
constexpr qint64 largestForMail = 18'000'000;

QString translated(const char *text)
{
    return QCoreApplication::translate("kest::Wording", text);
}

bool exists(const FileURL &url)
{
    struct stat status = {};
    return ::lstat(url.nativePath().constData(), &status) == 0;
}

} // namespace

QString isolated(const QString &name)
{
    constexpr QChar firstStrongIsolate(0x2068);
    constexpr QChar popDirectionalIsolate(0x2069);
    return QGuiApplication::isRightToLeft() ? firstStrongIsolate + name + popDirectionalIsolate : name;
}

QString wordsFor(RecordingTrouble trouble)
{
    switch (trouble) {
    case RecordingTrouble::NoSoundServer:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "No sound server answers, so nothing is recorded."));
    case RecordingTrouble::NoMicrophone:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "No microphone was found, so nothing is recorded."));
    case RecordingTrouble::MicrophoneLost:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The microphone went away. The recording is kept."));
    case RecordingTrouble::SoundServerLost:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The sound server ended. The recording is kept."));
    case RecordingTrouble::NoSound:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The microphone gives no sound. What it gave is kept."));
    case RecordingTrouble::DiskFull:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The disk is full. The recording so far is kept."));
    case RecordingTrouble::CannotWrite:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "Writing failed. What was recorded before is kept."));
    case RecordingTrouble::EncoderMissing:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The sound encoder is missing, so nothing is recorded."));
    }
    return {};
}

QString wordsForNothingKept(RecordingTrouble trouble)
{
    switch (trouble) {
    case RecordingTrouble::MicrophoneLost:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The microphone went away, so nothing is recorded."));
    case RecordingTrouble::SoundServerLost:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The sound server ended, so nothing is recorded."));
    case RecordingTrouble::NoSound:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The microphone gives no sound; nothing is recorded."));
    case RecordingTrouble::DiskFull:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The disk is full, so nothing is recorded."));
    case RecordingTrouble::CannotWrite:
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "The recording could not be written."));
    case RecordingTrouble::NoSoundServer:
    case RecordingTrouble::NoMicrophone:
    case RecordingTrouble::EncoderMissing:
        break;
    }
    return wordsFor(trouble);
}

QString wordsForEmptyRecording()
{
    return translated(QT_TRANSLATE_NOOP("kest::Wording", "Nothing was recorded: it was stopped before the first sound."));
}

// What it means comes first: a long name is cut off at the end of the line.
QString wordsFor(InputCondition condition, const QString &microphone)
{
    switch (condition) {
    case InputCondition::Silent:
        return microphone.isEmpty()
            ? translated(QT_TRANSLATE_NOOP("kest::Wording", "No sound. Is the microphone muted?"))
            : translated(QT_TRANSLATE_NOOP("kest::Wording", "No sound. Is “%1” muted?")).arg(isolated(microphone));
    case InputCondition::Clipping:
        return microphone.isEmpty()
            ? translated(QT_TRANSLATE_NOOP("kest::Wording", "Too loud. Sit back, or turn the microphone down."))
            : translated(QT_TRANSLATE_NOOP("kest::Wording", "Too loud. Sit back, or turn down “%1”.")).arg(isolated(microphone));
    case InputCondition::Unknown:
    case InputCondition::Heard:
        break;
    }
    return {};
}

QString wordsForSilentRecording()
{
    return translated(QT_TRANSLATE_NOOP("kest::Wording", "Nothing was heard in this recording."));
}

QString wordsForSize(qint64 size)
{
    const QString text = QLocale().formattedDataSize(size, 0, QLocale::DataSizeSIFormat);
    if (size < largestForMail)
        return translated(QT_TRANSLATE_NOOP("kest::Wording", "%1 by now. Many mail servers stop at 18 MB.")).arg(text);
    return translated(QT_TRANSLATE_NOOP("kest::Wording", "%1 by now. Many mail servers take no more.")).arg(text);
}

QString wordsForHandOver(qint64 done, qint64 total)
{
    const QLocale locale;
    return translated(QT_TRANSLATE_NOOP("kest::Wording", "Handing over: %1 of %2"))
        .arg(locale.formattedDataSize(done, 1, QLocale::DataSizeSIFormat),
             locale.formattedDataSize(total, 1, QLocale::DataSizeSIFormat));
}

QString recordingFileName(const QDateTime &start)
{
    return QLocale().toString(start, QStringLiteral("yyyy-MM-dd_HH-mm-ss")) + QStringLiteral(".m4a");
}

QString unusedRecordingFileName(const FolderURL &folder, const QDateTime &start)
{
    QDateTime moment = start;
    while (exists(folder.appendingPathComponent(recordingFileName(moment))))
        moment = moment.addSecs(1);
    return recordingFileName(moment);
}

QString lengthText(double seconds)
{
    const qint64 whole = std::llround(seconds);
    const qint64 hours = whole / 3600;
    const int minutes = static_cast<int>(whole / 60 % 60);
    const int rest = static_cast<int>(whole % 60);
    return hours > 0 ? QString::asprintf("%lld:%02d:%02d", static_cast<long long>(hours), minutes, rest)
                     : QString::asprintf("%d:%02d", minutes, rest);
}

} // namespace kest
