#pragma once

#include "fakes/RecordingAlertPresenter.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "support/FakeMail.h"
#include "unit/mail/MailTestFiles.h"

#include <QObject>

#include <memory>

namespace kest::test {

/// What every test of a mail back end stands on: the fake mail application on a
/// real bus, two files to attach, and a new back end for each test function.
template<typename BackEnd>
class MailBackEndTest : public QObject
{
protected:
    /// For initTestCase.
    void startFake(const QByteArray &secondName = "second.m4a")
    {
        m_fake.start();
        m_first = m_files.write("first.m4a", "first bytes");
        m_second = m_files.write(secondName, "second bytes");
    }

    /// For init.
    void makeBackEnd()
    {
        m_fake.configure();
        m_alerts.shown.clear();
        m_transport = std::make_unique<DBusMailTransport>();
        m_mail = std::make_unique<BackEnd>(*m_transport, m_alerts);
    }

    MailTestFiles m_files;
    FileURL m_first;
    FileURL m_second;
    FakeMail m_fake;
    RecordingAlertPresenter m_alerts;
    std::unique_ptr<DBusMailTransport> m_transport;
    std::unique_ptr<BackEnd> m_mail;
};

} // namespace kest::test
