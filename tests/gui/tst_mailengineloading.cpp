#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"

#include <QFile>
#include <QIODevice>
#include <QTest>

using namespace kest;
using namespace kest::test;

namespace {

/// Whether the script engine is in this process's memory. Once it is, it stays.
bool engineIsLoaded()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libQt6Qml");
}

} // namespace

/// When the window has the engine of the mail script loaded.
class TestMailEngineLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theEngineIsLoadedWhileARecordingRuns()
    {
        WindowHouse house;
        house.settings->setBool(true, SettingsKeys::useASClass);
        house.openAndShow();
        QVERIFY2(!engineIsLoaded(), "a window that only waits does without");
        house.record();
        QTRY_VERIFY_WITH_TIMEOUT(engineIsLoaded(), 30000);
        QVERIFY2(house.mail.members().isEmpty(), "nothing was asked of the mail application");
        house.click(QStringLiteral("New Message"));
        QVERIFY(house.mail.members().contains(QStringLiteral("NewMessage")));
        QVERIFY(house.alerts.shown.isEmpty());
    }
};

QTEST_MAIN(TestMailEngineLoading)
#include "tst_mailengineloading.moc"
