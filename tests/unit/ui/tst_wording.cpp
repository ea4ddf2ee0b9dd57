#include "ui/Wording.h"

#include <QDateTime>
#include <QFile>
#include <QIODevice>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>

using namespace kest;

class TestWording : public QObject
{
    Q_OBJECT

private:
    const QDateTime m_start{QDate(2024, 3, 5), QTime(4, 7, 9)};

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void aRecordingIsNamedForItsStart()
    {
        QCOMPARE(recordingFileName(m_start), QStringLiteral("2024-03-05_04-07-09.m4a"));
    }

    void theNameHasTheLocalesDigits()
    {
        QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
        QCOMPARE(recordingFileName(m_start), QString::fromUtf8("٢٠٢٤-٠٣-٠٥_٠٤-٠٧-٠٩.m4a"));
    }

    void aNameThatIsTakenMovesOnByASecond()
    {
        const QTemporaryDir folder;
        const FolderURL url = FileURL::fromPath(folder.path());
        QCOMPARE(unusedRecordingFileName(url, m_start), recordingFileName(m_start));
        for (int second = 0; second < 2; ++second) {
            QFile file(folder.filePath(recordingFileName(m_start.addSecs(second))));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QCOMPARE(unusedRecordingFileName(url, m_start), QStringLiteral("2024-03-05_04-07-11.m4a"));
    }

    void length_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << 0.0 << "0:00";
        QTest::newRow("rounded") << 6.6 << "0:07";
        QTest::newRow("rounded to a minute") << 59.6 << "1:00";
        QTest::newRow("an hour") << 3729.0 << "1:02:09";
    }

    void length()
    {
        QFETCH(double, seconds);
        QTEST(lengthText(seconds), "text");
    }

    void everyTroubleHasShortWords()
    {
        for (int trouble = 0; trouble <= static_cast<int>(RecordingTrouble::EncoderMissing); ++trouble) {
            const auto value = static_cast<RecordingTrouble>(trouble);
            for (const QString &words : {wordsFor(value), wordsForNothingKept(value)}) {
                QVERIFY(words.endsWith(u'.'));
                QVERIFY2(words.size() <= 60, qPrintable(words));
            }
        }
    }

    void theHandOverIsCountedInBytes()
    {
        QCOMPARE(wordsForHandOver(1500000, 30000000), QStringLiteral("Handing over: 1.5 MB of 30.0 MB"));
    }
};

QTEST_GUILESS_MAIN(TestWording)
#include "tst_wording.moc"
