#include "platform/Workspace.h"
#include "platform/linux/desktop/FrontmostApplication.h"

#include <QElapsedTimer>
#include <QTest>

using namespace kest;
using Owner = FrontmostApplication::Owner;

namespace {

const QString own = QStringLiteral("org.kest.Kest");
const QString mail = QStringLiteral("com.apple.mail");

} // namespace

class TestFrontmostApplication : public QObject
{
    Q_OBJECT

    std::unique_ptr<FrontmostApplication> m_front;
    QStringList m_announced;

    static FrontmostApplication::ActiveWindow other(const QString &name) { return { Owner::Other, name }; }

private Q_SLOTS:
    void init()
    {
        m_front = std::make_unique<FrontmostApplication>(own);
        m_announced.clear();
        connect(m_front.get(), &FrontmostApplication::activated, this,
                [this](const QString &identifier) { m_announced << identifier; });
    }

    void nothingIsSaidBeforeWatchingBegins()
    {
        m_front->setOwnActive(true);
        m_front->setMailFocused(true);
        QVERIFY(m_announced.isEmpty());
        m_front->begin();
        QVERIFY(m_announced.isEmpty());
    }

    void theOwnApplicationIsAnnouncedAtOnceAndOnce()
    {
        m_front->begin();
        m_front->setOwnActive(true);
        m_front->setOwnActive(true);
        m_front->setActiveWindow(FrontmostApplication::ActiveWindow { Owner::Own, {} });
        QCOMPARE(m_announced, QStringList { own });
    }

    void goingToTheMailApplicationNeverMeansAnotherOne()
    {
        m_front->setOwnActive(true);
        m_front->begin();
        m_front->setOwnActive(false);
        m_front->setMailFocused(true);
        QTest::qWait(2 * int(FrontmostApplication::grace.count())); // nothing may follow, so there is nothing to wait for
        QCOMPARE(m_announced, QStringList { mail });
    }

    void nobodyInFrontForAWhileMeansAnotherApplication()
    {
        m_front->setMailFocused(true);
        m_front->begin();
        QElapsedTimer timer;
        timer.start();
        m_front->setMailFocused(false);
        QVERIFY(m_announced.isEmpty());
        QTRY_COMPARE(m_announced, QStringList { QString() });
        QVERIFY(timer.elapsed() >= FrontmostApplication::grace.count() - 5);
    }

    void anothersNameIsTold()
    {
        m_front->setOwnActive(true);
        m_front->begin();
        m_front->setActiveWindow(other(QStringLiteral("XClock")));
        QTRY_COMPARE(m_announced, QStringList { QStringLiteral("XClock") });
    }

    void theDisplayServerIsBelievedMoreThanTheMailApplication()
    {
        m_front->setActiveWindow(FrontmostApplication::ActiveWindow { Owner::Mail, {} });
        m_front->setMailFocused(true);
        m_front->begin();
        m_front->setActiveWindow(other(QStringLiteral("XClock"))); // and the mail application does not say a word
        QTRY_COMPARE(m_announced, QStringList { QStringLiteral("XClock") });
    }

    void whereTheDisplayServerNamesNoWindowTheOthersAreBelieved()
    {
        m_front->setActiveWindow(other(QStringLiteral("XClock")));
        m_front->begin();
        m_front->setActiveWindow({});
        m_front->setMailFocused(true); // a Wayland window, of which X11 knows nothing
        QCOMPARE(m_announced, QStringList { mail });
    }

    // At the start the program that Kest was started from is in front, and then for a moment nobody.
    void fromAnotherApplicationToNobodyIsNoChange()
    {
        m_front->setActiveWindow(other(QStringLiteral("XTerm")));
        m_front->begin();
        m_front->setActiveWindow({});
        QTest::qWait(2 * int(FrontmostApplication::grace.count())); // nothing may follow
        QVERIFY(m_announced.isEmpty());
        m_front->setOwnActive(true);
        QCOMPARE(m_announced, QStringList { own });
    }

    void comingBackWithinTheGraceIsNoChange()
    {
        m_front->setOwnActive(true);
        m_front->begin();
        m_front->setOwnActive(false);
        m_front->setOwnActive(true);
        QTest::qWait(2 * int(FrontmostApplication::grace.count())); // nothing may follow
        QVERIFY(m_announced.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestFrontmostApplication)
#include "tst_frontmostapplication.moc"
