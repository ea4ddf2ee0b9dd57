#include "ui/PlaybackWording.h"

#include "ui/Wording.h"

#include <QCoreApplication>

#include <cmath>

namespace kest {

namespace {

constexpr double hour = 3600.0;

QString translated(const char *text)
{
    return QCoreApplication::translate("kest::PlaybackWording", text);
}

} // namespace

QString wordsFor(PlaybackTrouble trouble)
{
    switch (trouble) {
    case PlaybackTrouble::FileMissing:
        return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "The file is not there any more."));
    case PlaybackTrouble::Unreadable:
        return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "The file cannot be read as sound."));
    case PlaybackTrouble::DecoderMissing:
        return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "The sound decoder is missing."));
    case PlaybackTrouble::NoSoundServer:
        return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "No sound server answers."));
    case PlaybackTrouble::NoOutput:
        return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "No loudspeaker was found."));
    case PlaybackTrouble::OutputLost:
        return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "The loudspeaker went away."));
    case PlaybackTrouble::SoundServerLost:
        return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "The sound server ended."));
    case PlaybackTrouble::NoProgress:
        return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "The sound server takes no sound."));
    }
    return {};
}

QString positionText(double position, double length)
{
    const double shown = position >= length ? length : std::floor(position);
    return length >= hour && shown < hour ? QStringLiteral("0:") + lengthText(shown + hour).mid(2) : lengthText(shown);
}

QString positionOfLengthText(double position, double length)
{
    return translated(QT_TRANSLATE_NOOP("kest::PlaybackWording", "%1 of %2"))
        .arg(positionText(position, length), lengthText(length));
}

} // namespace kest
