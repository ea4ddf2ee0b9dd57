#pragma once

#include "platform/MailConnection.h"

namespace kest::test {

/// A connection that stands as it is told, and counts what it is asked.
class FakeMailConnection : public MailConnection
{
    Q_OBJECT

public:
    using MailConnection::MailConnection;

    const MailConnectionState &state() const override { return m_state; }
    void look() override { ++looks; }
    void installAddOn() override { ++installs; }

    void setState(const MailConnectionState &state)
    {
        m_state = state;
        Q_EMIT changed();
    }

    int looks = 0;
    int installs = 0;

private:
    MailConnectionState m_state;
};

} // namespace kest::test
