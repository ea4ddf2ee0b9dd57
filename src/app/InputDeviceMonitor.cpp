#include "app/InputDeviceMonitor.h"

#include "platform/AudioHardware.h"

#include <QLoggingCategory>
#include <QStringList>

#include <stdexcept>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcInputDevice, "kest.inputdevice")

constexpr quint32 fourCharacterCode(const char (&code)[5])
{
    quint32 value = 0;
    for (int at = 0; at < 4; ++at)
        value = value << 8 | static_cast<unsigned char>(code[at]);
    return value;
}

constexpr quint32 systemObject = 1;
constexpr quint32 defaultInputDevice = fourCharacterCode("dIn ");
constexpr AudioPropertyAddress defaultInputDeviceAddress {defaultInputDevice, fourCharacterCode("glob"), 0};

// The element is the selector's code again, not the main element 0: deliberate, and what the hardware's side expects.
constexpr AudioPropertyAddress deviceNameAddress {fourCharacterCode("lnam"), fourCharacterCode("inpt"),
                                                  defaultInputDevice};

QString firstCharacters(const QString &text, int count)
{
    qsizetype end = 0;
    for (; count > 0 && end < text.size(); --count)
        end += text[end].isHighSurrogate() && end + 1 < text.size() && text[end + 1].isLowSurrogate() ? 2 : 1;
    return text.left(end);
}

} // namespace

QString abbreviatedInputName(const QString &name)
{
    const QStringList pieces = name.split(QLatin1Char(' '), Qt::KeepEmptyParts);
    if (!pieces.isEmpty() && !pieces.first().isEmpty()) {
        if (pieces.size() < 2)
            throw std::out_of_range("the input device's name has no second word");
        if (!pieces[1].isEmpty())
            return firstCharacters(pieces[0], 1) + firstCharacters(pieces[1], 1);
    }
    return firstCharacters(name, 2);
}

InputDeviceMonitor::InputDeviceMonitor(AudioHardware &hardware, InputNameField field)
    : m_hardware(hardware), m_field(std::move(field))
{
}

void InputDeviceMonitor::updateInputName()
{
    if (m_field.recordingActive())
        return;
    const std::optional<QString> name = nameOfDefaultInputDevice();
    if (!m_oldInputName.isNull() && name == m_oldInputName)
        return;
    m_field.setToolTip(name.value_or(QString()));
    m_field.setStringValue(name ? abbreviatedInputName(*name) : QString());
    m_oldInputName = name.value_or(QString());
}

std::optional<QString> InputDeviceMonitor::nameOfDefaultInputDevice() const
{
    quint32 device = 0;
    if (const qint32 status = m_hardware.propertyData(systemObject, defaultInputDeviceAddress, &device)) {
        qCWarning(lcInputDevice, "Error %d retreiving default input device", status);
        return {};
    }
    QString name;
    if (const qint32 status = m_hardware.propertyData(device, deviceNameAddress, &name)) {
        qCWarning(lcInputDevice, "Error %d retreiving default input device's name", status);
        return {};
    }
    return name.isNull() ? QStringLiteral("") : name; // null stands for no name at all
}

} // namespace kest
