#pragma once

#include "platform/AudioHardware.h"

#include <QList>

namespace kest {

/// Audio hardware with one input device, that keeps what it was asked.
class FakeAudioHardware : public AudioHardware
{
public:
    struct Question {
        quint32 object;
        AudioPropertyAddress address;
    };

    qint32 propertyData(quint32 object, const AudioPropertyAddress &address, quint32 *value) override
    {
        questions.append({object, address});
        if (deviceStatus == 0)
            *value = device;
        return deviceStatus;
    }

    qint32 propertyData(quint32 object, const AudioPropertyAddress &address, QString *value) override
    {
        questions.append({object, address});
        if (nameStatus == 0)
            *value = name;
        return nameStatus;
    }

    quint32 device = 42;
    QString name;
    qint32 deviceStatus = 0;
    qint32 nameStatus = 0;
    QList<Question> questions;
};

} // namespace kest
