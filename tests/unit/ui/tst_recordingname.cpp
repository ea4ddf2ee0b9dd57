#include "ui/RecordingName.h"

#include <QTest>

using namespace kest;
using namespace Qt::StringLiterals;

/// The name that a recording gets from the sender of the message it answers.
class TestRecordingName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void senderName_data()
    {
        QTest::addColumn<QString>("sender");
        QTest::addColumn<QString>("name");
        const auto row = [](const char *what, const QString &sender, const QString &name) {
            QTest::newRow(what) << sender << name;
        };
        row("name and address", u"Sales Desk <desk@example.org>"_s, u"Sales Desk"_s);
        row("the unit in front of the bracket goes, whatever it is", u"Desk<desk@example.org>"_s, u"Des"_s);
        row("bracket at position 2", u"AB<a@b>"_s, u"A"_s);
        row("bracket at position 1 keeps everything", u"A<a@b>"_s, u"A<a@b>"_s);
        row("bracket at position 0 keeps everything", u"<desk@example.org>"_s, u"<desk@example.org>"_s);
        row("no bracket keeps everything, spaces too", u"  desk@example.org "_s, u"  desk@example.org "_s);
        row("the first bracket counts", u"A <b> <c@d>"_s, u"A"_s);
        row("trimmed of spaces and tabs at both ends", u"\t  Sales  Desk \t <a@b>"_s, u"Sales  Desk"_s);
        row("trimmed of every kind of space", u"\u00a0\u3000Ann\u2003 <a@b>"_s, u"Ann"_s);
        row("line breaks are not trimmed", u"\nAnn\n <a@b>"_s, u"\nAnn\n"_s);
        row("nothing but spaces", u"    <a@b>"_s, u""_s);
        row("empty", u""_s, u""_s);
        row("null", QString(), u"(null)"_s);
        row("the word null is not a null text", u"null"_s, u"null"_s);
        row("units, not characters", u"Ann \U0001F600 <a@b>"_s, u"Ann \U0001F600"_s);
        row("a cut within a pair leaves its first half", u"\U0001F600<a@b>"_s, QString(QChar(0xd83d)));
        row("a slash stays", u"A/B <a@b>"_s, u"A/B"_s);
        row("a percent sign stays", u"100 %1 <a@b>"_s, u"100 %1"_s);
    }

    void senderName()
    {
        QFETCH(QString, sender);
        QTEST(nameOfSender(sender), "name");
    }

    void fileName_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a recording") << "2024-03-05_14-07-09.m4a" << "2024-03-05_14-07-09_Ann.m4a";
        QTest::newRow("another extension") << "a.wav" << "a_Ann.m4a";
        QTest::newRow("no extension") << "a" << "a_Ann.m4a";
        QTest::newRow("only the last extension goes") << "a.b.m4a" << "a.b_Ann.m4a";
        QTest::newRow("a leading dot begins no extension") << ".m4a" << ".m4a_Ann.m4a";
        QTest::newRow("a dot at the end begins none") << "a." << "a._Ann.m4a";
        QTest::newRow("a percent sign is one") << "%1.m4a" << "%1_Ann.m4a";
    }

    void fileName()
    {
        QFETCH(QString, file);
        QTEST(recordingNameWithSender(file, QStringLiteral("Ann <a@b>")), "expected");
    }

    void aNullSenderShowsInTheFileName()
    {
        QCOMPARE(recordingNameWithSender(QStringLiteral("a.m4a"), QString()), QStringLiteral("a_(null).m4a"));
    }
};

QTEST_GUILESS_MAIN(TestRecordingName)
#include "tst_recordingname.moc"
