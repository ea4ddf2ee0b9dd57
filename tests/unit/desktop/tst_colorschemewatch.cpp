#include "platform/linux/desktop/ColorSchemeWatch.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QSignalSpy>
#include <QTest>

using namespace kest;

/// The part of the settings portal that is asked.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    uint scheme = 1;

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key) const
    {
        Q_UNUSED(group)
        Q_UNUSED(key)
        // Wrapped twice, as the real one does.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);
};

class TestColorSchemeWatch : public QObject
{
    Q_OBJECT

private:
    FakePortal m_portal;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));

    void serve()
    {
        QVERIFY(m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), &m_portal,
                                     QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        QVERIFY(m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }

private Q_SLOTS:
    void cleanup()
    {
        m_bus.unregisterService(QStringLiteral("org.freedesktop.portal.Desktop"));
        m_bus.unregisterObject(QStringLiteral("/org/freedesktop/portal/desktop"));
    }

    void theDesktopsWishIsRead()
    {
        serve();
        const ColorSchemeWatch watch;
        QSignalSpy read(&watch, &ColorSchemeWatch::colorSchemeRead);
        QVERIFY(read.isEmpty()); // nobody waited
        QTRY_COMPARE(read, QList<QVariantList>({{1U}}));
    }

    void aChangedMindIsHeard()
    {
        serve();
        const ColorSchemeWatch watch;
        QSignalSpy read(&watch, &ColorSchemeWatch::colorSchemeRead);
        QTRY_COMPARE(read.size(), 1);
        Q_EMIT m_portal.SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                                       QDBusVariant(2U));
        QTRY_COMPARE(read.size(), 2);
        QCOMPARE(read.last().first().toUInt(), 2U);
        Q_EMIT m_portal.SettingChanged(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("color-scheme"),
                                       QDBusVariant(QStringLiteral("x")));
        Q_EMIT m_portal.SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                                       QDBusVariant(1U));
        QTRY_COMPARE(read.size(), 3);
        QCOMPARE(read.last().first().toUInt(), 1U);
    }

    void withoutAPortalNothingIsSaid()
    {
        const ColorSchemeWatch watch;
        QSignalSpy read(&watch, &ColorSchemeWatch::colorSchemeRead);
        auto *call = watch.findChild<QDBusPendingCallWatcher *>();
        QVERIFY(call);
        QTRY_VERIFY(call->isFinished());
        QCoreApplication::processEvents();
        QVERIFY(read.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestColorSchemeWatch)
#include "tst_colorschemewatch.moc"
