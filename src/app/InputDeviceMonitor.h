#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace kest {

class AudioHardware;

/// Where the name of the input device is shown, as its owner lets it be worked.
struct InputNameField {
    /// True from the start of a recording until it is stopped, pauses included.
    std::function<bool()> recordingActive;
    std::function<void(const QString &)> setToolTip;
    std::function<void(const QString &)> setStringValue;
};

/// One or two characters that stand for a device's name: the initials of its
/// first two words, words being what lies between single spaces. With an empty
/// first or second word, the first two characters of the name, or all of a
/// shorter one. A character is never half of a surrogate pair.
///
/// Throws std::out_of_range for a name of one word without any space:
/// deliberate, see `InputDeviceMonitor::updateInputName`.
QString abbreviatedInputName(const QString &name);

/// Shows which microphone a recording would use. Somebody calls
/// `updateInputName` from time to time; nothing is watched in between.
///
/// Main thread.
class InputDeviceMonitor
{
public:
    /// `hardware` must outlive this object. All of `field` must be set.
    InputDeviceMonitor(AudioHardware &hardware, InputNameField field);

    /// Shows the default input device's name: whole as the tooltip, abbreviated
    /// as the text. Does nothing during a recording, and touches nothing when
    /// the name is the one shown last. Without a name both are cleared.
    ///
    /// A name of one word lets std::out_of_range rise to the event loop, which
    /// logs it: the tooltip is then set, and the text and the remembered name
    /// are as they were, so that each later update does the same again.
    void updateInputName();

    /// The default input device's name, or nothing, with the reason logged.
    std::optional<QString> nameOfDefaultInputDevice() const;

    /// The name shown last; null before the first and after a failed query,
    /// empty but not null when the device's name is empty.
    QString oldInputName() const { return m_oldInputName; }
    void setOldInputName(const QString &name) { m_oldInputName = name; }

private:
    AudioHardware &m_hardware;
    InputNameField m_field;
    QString m_oldInputName;
};

} // namespace kest
