#include "platform/BoundedLookUps.h"

#include <QTest>

#include <semaphore>

using namespace kest;
using namespace std::chrono_literals;

class TestBoundedLookUps : public QObject
{
    Q_OBJECT

    using Outcome = BoundedLookUps::Outcome<int>;

private Q_SLOTS:
    void anAnswerInTimeIsHandedOn()
    {
        BoundedLookUps lookUps(10s);
        const Outcome found = lookUps.run("a", [] { return Outcome { 7 }; });
        QCOMPARE(found.value, 7);
        const Outcome failed = lookUps.run("a", [] { return Outcome { {}, EACCES }; });
        QVERIFY(!failed.value);
        QCOMPARE(failed.errorNumber, EACCES);
    }

    void oneThatHangsIsLeftAndNotAskedAgainUntilItAnswers()
    {
        BoundedLookUps lookUps(100ms);
        auto gate = std::make_shared<std::binary_semaphore>(0);
        auto asked = std::make_shared<std::atomic<int>>(0);
        const auto work = [gate, asked] {
            ++*asked;
            gate->acquire();
            gate->release();
            return Outcome { 1 };
        };
        QCOMPARE(lookUps.run("a", work).errorNumber, ETIMEDOUT); // nobody opens the gate, so it was left
        QCOMPARE(lookUps.run("a", work).errorNumber, ETIMEDOUT);
        QCOMPARE(asked->load(), 1);
        QCOMPARE(lookUps.run("b", [] { return Outcome { 2 }; }).value, 2);
        gate->release();
        QTRY_COMPARE(lookUps.run("a", work).value, 1);
    }
};

QTEST_GUILESS_MAIN(TestBoundedLookUps)
#include "tst_boundedlookups.moc"
