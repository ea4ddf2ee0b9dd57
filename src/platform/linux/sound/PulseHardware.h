#pragma once

#include "platform/AudioHardware.h"

#include <memory>

namespace kest {

class PulseContext;

/// Answers from what the sound server last announced. Any thread; never waits.
class PulseHardware final : public AudioHardware
{
public:
    explicit PulseHardware(std::shared_ptr<PulseContext> context);
    ~PulseHardware() override;

    qint32 propertyData(quint32 object, const AudioPropertyAddress &address, quint32 *value) override;
    qint32 propertyData(quint32 object, const AudioPropertyAddress &address, QString *value) override;

private:
    const std::shared_ptr<PulseContext> m_context;
};

} // namespace kest
