#include "fakes/RecordingMailTransport.h"
#include "platform/linux/desktop/LinuxWorkspace.h"

#include <QCoreApplication>
#include <QTest>
#include <QWindow>

using namespace kest;
using kest::test::RecordingMailTransport;

// Without a display server that tells: by Qt and the mail application alone.
class TestLinuxWorkspace : public QObject
{
    Q_OBJECT

    RecordingMailTransport m_mail;
    std::unique_ptr<LinuxWorkspace> m_workspace;
    QStringList m_activated;

private Q_SLOTS:
    void init()
    {
        m_workspace = std::make_unique<LinuxWorkspace>(m_mail);
        m_activated.clear();
        connect(m_workspace.get(), &Workspace::applicationActivated, this,
                [this](const QString &identifier) { m_activated << identifier; });
        QCoreApplication::processEvents(); // watching begins
    }

    void theMailApplicationsFocusSignalsAreFollowed()
    {
        Q_EMIT m_mail.mailApplicationFocusGained();
        QCOMPARE(m_activated, QStringList { mailApplicationIdentifier });
        Q_EMIT m_mail.mailApplicationFocusLost();
        QTRY_COMPARE(m_activated, (QStringList { mailApplicationIdentifier, QString() }));
    }

    void movingBetweenItsWindowsIsNoChange()
    {
        Q_EMIT m_mail.mailApplicationFocusGained();
        Q_EMIT m_mail.mailApplicationFocusLost();
        Q_EMIT m_mail.mailApplicationFocusGained();
        QTest::qWait(2 * int(FrontmostApplication::grace.count())); // nothing may follow
        QCOMPARE(m_activated, QStringList { mailApplicationIdentifier });
    }

    void aMailApplicationThatVanishesIsNoLongerInFront()
    {
        Q_EMIT m_mail.mailApplicationFocusGained();
        Q_EMIT m_mail.mailApplicationVanished();
        QTRY_COMPARE(m_activated, (QStringList { mailApplicationIdentifier, QString() }));
    }

    void theOwnWindowsFocusIsTheOwnApplication()
    {
        QWindow window;
        window.show();
        window.requestActivate();
        QTRY_COMPARE(m_activated, QStringList { m_workspace->ownIdentifier() });
        QCOMPARE(m_workspace->ownIdentifier(), QStringLiteral("org.kest.Kest"));
    }
};

QTEST_MAIN(TestLinuxWorkspace)
#include "tst_linuxworkspace.moc"
