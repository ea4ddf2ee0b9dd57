#include "platform/linux/sound/PulseHardware.h"

#include "platform/linux/sound/PulseContext.h"

namespace kest {

namespace {

constexpr quint32 fourCharacters(const char (&code)[5])
{
    return quint32(uchar(code[0])) << 24 | quint32(uchar(code[1])) << 16 | quint32(uchar(code[2])) << 8
        | quint32(uchar(code[3]));
}

constexpr quint32 systemObject = 1;
constexpr quint32 defaultInputDevice = fourCharacters("dIn ");
constexpr quint32 objectName = fourCharacters("lnam");

// Sources are numbered from 0; 0 is no object and 1 is the system.
constexpr quint32 firstDevice = 2;

constexpr qint32 success = 0;
constexpr auto notRunning = qint32(fourCharacters("stop"));
constexpr auto badObject = qint32(fourCharacters("!obj"));
constexpr auto badDevice = qint32(fourCharacters("!dev"));
constexpr auto unknownProperty = qint32(fourCharacters("who?"));

} // namespace

PulseHardware::PulseHardware(std::shared_ptr<PulseContext> context) : m_context(std::move(context)) { }

PulseHardware::~PulseHardware() = default;

qint32 PulseHardware::propertyData(quint32 object, const AudioPropertyAddress &address, quint32 *value)
{
    if (object != systemObject || address.selector != defaultInputDevice)
        return unknownProperty;
    const PulseSources known = m_context->sources();
    if (!known.connected)
        return notRunning;
    const auto microphone = known.microphone();
    if (!microphone)
        return badDevice;
    *value = microphone->index + firstDevice;
    return success;
}

qint32 PulseHardware::propertyData(quint32 object, const AudioPropertyAddress &address, QString *value)
{
    if (address.selector != objectName)
        return unknownProperty;
    const PulseSources known = m_context->sources();
    if (!known.connected)
        return notRunning;
    const PulseSource *source = object >= firstDevice ? known.find(object - firstDevice) : nullptr;
    if (!source)
        return badObject;
    *value = QString::fromStdString(source->description);
    return success;
}

} // namespace kest
