#include "ui/PlaybackWording.h"

#include <QTest>

using namespace kest;

/// Times and words of the place for listening.
class TestPlaybackWording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void positions_data()
    {
        QTest::addColumn<double>("position");
        QTest::addColumn<double>("length");
        QTest::addColumn<QString>("text");
        QTest::newRow("start") << 0.0 << 12.0 << "0:00";
        QTest::newRow("a second counts when it has passed") << 2.99 << 12.0 << "0:02";
        QTest::newRow("full minute") << 60.0 << 75.0 << "1:00";
        QTest::newRow("before the end") << 11.6 << 11.7 << "0:11";
        QTest::newRow("the end is the length as it is told") << 11.7 << 11.7 << "0:12";
        QTest::newRow("hours where the length has them") << 65.0 << 10805.0 << "0:01:05";
        QTest::newRow("in the last hour") << 10800.0 << 10805.0 << "3:00:00";
        QTest::newRow("at its end") << 10805.0 << 10805.0 << "3:00:05";
        QTest::newRow("nothing") << 0.0 << 0.0 << "0:00";
    }

    void positions()
    {
        QFETCH(double, position);
        QFETCH(double, length);
        QFETCH(QString, text);
        QCOMPARE(positionText(position, length), text);
    }

    void thePlaceIsToldWithTheLength()
    {
        QCOMPARE(positionOfLengthText(3.2, 12.0), QStringLiteral("0:03 of 0:12"));
    }

    void everyTroubleHasWordsOfItsOwn()
    {
        QSet<QString> seen;
        for (int trouble = int(PlaybackTrouble::FileMissing); trouble <= int(PlaybackTrouble::NoProgress); ++trouble) {
            const QString words = wordsFor(PlaybackTrouble(trouble));
            QVERIFY(!words.isEmpty() && words.size() <= 40);
            seen.insert(words);
        }
        QCOMPARE(seen.size(), 8);
    }
};

QTEST_GUILESS_MAIN(TestPlaybackWording)
#include "tst_playbackwording.moc"
