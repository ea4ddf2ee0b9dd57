#include "app/Application.h"

#include <QCoreApplication>
#include <QDialog>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <stdexcept>

using namespace kest;

class TestApplication : public QObject
{
    Q_OBJECT

    int m_asked = 0;

    // The exec of the application can be left only once, so every case has a process of its own.
    static Application *app() { return static_cast<Application *>(qApp); }

private Q_SLOTS:
    void anExceptionThatReachesTheLoopIsLoggedAndTheLoopGoesOn()
    {
        bool wentOn = false;
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("no second word")));
        QTimer::singleShot(0, this, [] { throw std::out_of_range("no second word"); });
        QTimer::singleShot(1, this, [&] { wentOn = true; });
        QTRY_VERIFY(wentOn);
    }

    void closingTheLastWindowDoesNotEnd() { QCOMPARE(QApplication::quitOnLastWindowClosed(), false); }

    // Leaves all loops, also that of a dialog, and asks once.
    void theEndIsAskedOnceAndLeavesEveryLoop()
    {
        // An exception in it does not keep the program from ending.
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("at the end: no thread")));
        app()->setShouldTerminate([this] {
            ++m_asked;
            throw std::runtime_error("no thread");
        });
        QDialog dialog;
        QTimer::singleShot(0, this, [&] {
            QTimer::singleShot(0, this, [] {
                QCoreApplication::quit();
                app()->terminate();
            });
            dialog.exec();
        });
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(m_asked, 1);
    }
};

int main(int argc, char **argv)
{
    Application application(argc, argv);
    TestApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_application.moc"
