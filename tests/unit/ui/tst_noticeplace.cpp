#include "ui/NoticePlace.h"

#include <QSignalSpy>
#include <QTest>

using kest::NoticePlace;
using Subject = kest::NoticePlace::Subject;

class TestNoticePlace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst()
    {
        const NoticePlace place;
        QVERIFY(place.text().isEmpty());
        QCOMPARE(place.subject(), Subject::Status);
    }

    void theMostUrgentIsShown()
    {
        NoticePlace place;
        for (const Subject subject : {Subject::Recording, Subject::Status, Subject::Progress, Subject::Settings,
                                      Subject::Hint})
            place.tell(subject, QString::number(static_cast<int>(subject)));
        for (const Subject subject : {Subject::Progress, Subject::Hint, Subject::Recording, Subject::Settings,
                                      Subject::Status}) {
            QCOMPARE(place.subject(), subject);
            QCOMPARE(place.text(), QString::number(static_cast<int>(subject)));
            place.withdraw(subject);
        }
        QVERIFY(place.text().isEmpty());
    }

    void anEmptyTextWithdraws()
    {
        NoticePlace place;
        place.tell(Subject::Recording, QStringLiteral("a"), QStringLiteral("more"));
        QCOMPARE(place.detail(), QStringLiteral("more"));
        place.tell(Subject::Recording, QString());
        QVERIFY(place.text().isEmpty());
        QVERIFY(place.detail().isEmpty());
    }

    void onlyChangesAreAnnounced()
    {
        NoticePlace place;
        QSignalSpy spy(&place, &NoticePlace::changed);
        place.tell(Subject::Status, QStringLiteral("a"));
        place.tell(Subject::Status, QStringLiteral("a"));
        place.withdraw(Subject::Hint);
        QCOMPARE(spy.size(), 1);
        place.tell(Subject::Status, QStringLiteral("a"), QStringLiteral("more"));
        QCOMPARE(spy.size(), 2);
    }

    void aNewTroubleTakesTheAnswerToAnEarlierCommandAway()
    {
        for (const Subject trouble : {Subject::Recording, Subject::Mail, Subject::Settings}) {
            NoticePlace place;
            place.tell(Subject::Hint, QStringLiteral("answer"));
            place.tell(trouble, QStringLiteral("trouble"));
            QCOMPARE(place.text(), QStringLiteral("trouble"));
        }
    }

    void anAnswerIsSeenThoughAnOlderTroubleStays()
    {
        NoticePlace place;
        place.tell(Subject::Recording, QStringLiteral("trouble"));
        place.tell(Subject::Hint, QStringLiteral("answer"));
        QCOMPARE(place.text(), QStringLiteral("answer"));
        place.withdraw(Subject::Hint);
        QCOMPARE(place.text(), QStringLiteral("trouble"));
    }

    void aHintGoesAwayByItself()
    {
        NoticePlace place;
        place.tell(Subject::Hint, QStringLiteral("a"));
        QTRY_VERIFY_WITH_TIMEOUT(place.text().isEmpty(), NoticePlace::hintDuration + 2000);
    }
};

QTEST_GUILESS_MAIN(TestNoticePlace)
#include "tst_noticeplace.moc"
