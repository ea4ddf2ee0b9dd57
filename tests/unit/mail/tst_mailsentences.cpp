#include "app/Translations.h"
#include "platform/linux/mail/MailErrors.h"

#include <QDBusMessage>
#include <QElapsedTimer>
#include <QTest>
#include <QTranslator>

using namespace kest;
using namespace Qt::StringLiterals;

namespace {

QString told(const QString &english)
{
    QElapsedTimer now;
    now.start();
    return mailError(QDBusError(QDBusMessage::createError(u"org.kest.Mail1.Error.Failed"_s, english)), now,
                     std::chrono::minutes(2))
        .description;
}

} // namespace

/// What the add-on and the helper say in English, in the language of the window.
class TestMailSentences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        qDeleteAll(qApp->findChildren<QTranslator *>(Qt::FindDirectChildrenOnly));
    }

    void areToldInThePersonsLanguage_data()
    {
        QTest::addColumn<QString>("english");
        QTest::addColumn<QString>("german");
        QTest::newRow("a sentence") << u"The message has no recipient."_s << u"Die Nachricht hat keinen Empfänger."_s;
        QTest::newRow("with a name at its beginning")
            << u"“2026-03-01.m4a” did not arrive whole."_s << u"„2026-03-01.m4a“ ist nicht vollständig angekommen."_s;
        QTest::newRow("with another program's words at its end")
            << u"Thunderbird says: 100%1 sure."_s << u"Thunderbird meldet: 100%1 sure."_s;
        QTest::newRow("with words in the middle")
            << u"An attachment cannot be read: Input/output error."_s
            << u"Ein Anhang kann nicht gelesen werden: Input/output error."_s;
        QTest::newRow("nobody's") << u"The sky is falling."_s << u"The sky is falling."_s;
    }

    void areToldInThePersonsLanguage()
    {
        QFETCH(QString, english);
        QFETCH(QString, german);
        installTranslations({u"de"_s});
        QCOMPARE(told(english), german);
    }

    void areLeftAsTheyAreInEnglish()
    {
        QCOMPARE(told(u"“a%1b” did not arrive whole."_s), u"“a%1b” did not arrive whole."_s);
    }
};

QTEST_MAIN(TestMailSentences)
#include "tst_mailsentences.moc"
