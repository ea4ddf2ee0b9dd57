#pragma once

#include <QString>

#include <optional>

namespace kest {

class AudioHardware;

/// Where the name of the input device is shown. The main window's side
/// implements it.
class InputNameDisplay
{
public:
    virtual ~InputNameDisplay() = default;

    /// True from the start of a recording until it is stopped, pauses included.
    virtual bool recordingActive() const = 0;

    virtual void setInputNameToolTip(const QString &toolTip) = 0;
    virtual void setInputNameText(const QString &text) = 0;
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
    /// Both must outlive this object.
    InputDeviceMonitor(AudioHardware &hardware, InputNameDisplay &display);

    /// Shows the default input device's name: whole as the tooltip, abbreviated
    /// as the text. Does nothing during a recording, and touches nothing when
    /// the name is the one shown last. Without a name both are cleared.
    ///
    /// A name of one word lets std::out_of_range rise to the event loop, which
    /// logs it: the tooltip is then set, and the text and the remembered name
    /// are as they were, so that each later update does the same again.
    void updateInputName();

    /// The default input device's name, or nothing, with the reason logged.
    std::optional<QString> nameOfDefaultInputDevice();

    /// The name shown last; nothing before the first and after a failed query.
    const std::optional<QString> &oldInputName() const { return m_oldInputName; }

private:
    AudioHardware &m_hardware;
    InputNameDisplay &m_display;
    std::optional<QString> m_oldInputName;
};

} // namespace kest
