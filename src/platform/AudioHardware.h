#pragma once

#include <QString>
#include <QtGlobal>

namespace kest {

/// Address of one property of an audio object: three 32-bit four-character
/// codes or numbers.
struct AudioPropertyAddress {
    quint32 selector = 0;
    quint32 scope = 0;
    quint32 element = 0;
};

/// Asks the audio hardware. Answers come from what the sound server last
/// announced, so no call waits for the server.
class AudioHardware
{
public:
    virtual ~AudioHardware() = default;

    /// The object identifier stored under `address` of `object`. Returns the
    /// status: 0 for success, else an error code and `value` is untouched.
    virtual qint32 propertyData(quint32 object, const AudioPropertyAddress &address, quint32 *value) = 0;

    /// As above, for a property that is a text.
    virtual qint32 propertyData(quint32 object, const AudioPropertyAddress &address, QString *value) = 0;
};

} // namespace kest
