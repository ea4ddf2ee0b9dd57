#include "mail/ASMail.h"
#include "unit/mail/MailBackEndTest.h"

#include <QFile>
#include <QIODevice>
#include <QRegularExpression>
#include <QTest>

using kest::ASMail;
using kest::FileURL;
using namespace Qt::StringLiterals;

namespace {

const QString noAccountChosen = QStringLiteral("*none found*");
const QString systemsScript = QStringLiteral(":/ASMail.mjs");

/// Whether a library is in this process's memory.
bool isLoaded(const QByteArray &library)
{
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
}

} // namespace

/// The script engine lies in a plugin: when it is loaded, and what happens when it cannot be.
class TestMailEngine : public kest::test::MailBackEndTest<ASMail>
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        startFake();
        ASMail::loadScriptObjects();
    }

    void init() { makeBackEnd(); }

    // The first of all, because what is loaded stays.
    void itIsLoadedWhenItIsInSightAndNotBefore()
    {
        QVERIFY(m_mail);
        QVERIFY(!isLoaded("kest-script.so") && !isLoaded("libQt6Qml"));
        m_mail->preload();
        QTRY_VERIFY_WITH_TIMEOUT(isLoaded("kest-script.so") && isLoaded("libQt6Qml"), 30000);
        QVERIFY(m_fake.log().isEmpty());
        QVERIFY(m_mail->retrieveEmailAccounts());
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void anOperationNeedNotWaitUntilItWasLoadedInAdvance()
    {
        QVERIFY(m_mail->retrieveEmailAccounts());
        m_mail->preload(); // too late, and no harm
        QVERIFY(m_mail->retrieveEmailAccounts());
    }

    void withoutTheEngineEveryOperationIsEmptyAndSaysSo()
    {
        ASMail mail(*m_transport, m_alerts, systemsScript, nullptr, "/nowhere/kest-script.so");
        mail.preload(); // says nothing yet
        for (int operation = 0; operation < 4; ++operation)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"could not be loaded.*nowhere"_s));
        mail.mailNewMessageWithSubject(u"s"_s, u"b"_s, QVariantList{m_first.path()}, 1, noAccountChosen);
        QCOMPARE(m_alerts.shown.size(), 1);
        mail.mailReplyAppendingBodyText(u"b"_s, {}, {}, 0, noAccountChosen);
        QCOMPARE(m_alerts.shown.size(), 2);
        QVERIFY(mail.mailReplyGetSender().isNull());
        QCOMPARE(m_alerts.shown.size(), 3);
        QVERIFY(!mail.retrieveEmailAccounts());
        QCOMPARE(m_alerts.shown.size(), 4);
        for (const kest::AlertContent &alert : std::as_const(m_alerts.shown)) {
            QVERIFY(alert.messageText.contains(u"install Kest again"));
            QVERIFY2(alert.informativeText.contains(u"/nowhere/kest-script.so"), "the reason is told");
        }
        QVERIFY(m_fake.log().isEmpty());
    }

    void engineThatComesBackIsUsed()
    {
        const FileURL file = m_files.write("kest-script.so", "no library");
        ASMail mail(*m_transport, m_alerts, systemsScript, nullptr, QFile::encodeName(file.path()));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"could not be loaded"_s));
        QVERIFY(!mail.retrieveEmailAccounts());
        const QString plugin = qEnvironmentVariable("KEST_BUILD_DIR") + u"/lib/kest-script.so"_s;
        QVERIFY(QFile::remove(file.path()) && QFile::link(plugin, file.path()));
        QVERIFY(mail.retrieveEmailAccounts());
        QCOMPARE(m_alerts.shown.size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestMailEngine)
#include "tst_mailengine.moc"
