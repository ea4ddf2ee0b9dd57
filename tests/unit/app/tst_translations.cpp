#include "app/Translations.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTest>
#include <QTranslator>

using namespace kest;
using namespace Qt::StringLiterals;

class TestTranslations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstLanguageThatIsThereIsTaken_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("taken");
        QTest::newRow("German") << QStringList{u"de"_s, u"de-Latn-DE"_s, u"de-DE"_s} << u"de"_s;
        QTest::newRow("of Austria") << QStringList{u"de-AT"_s, u"de-Latn-AT"_s} << u"de"_s;
        QTest::newRow("of Egypt") << QStringList{u"ar-EG"_s} << u"ar"_s;
        QTest::newRow("of Mexico") << QStringList{u"es-MX"_s} << u"es"_s;
        QTest::newRow("of Canada") << QStringList{u"fr-CA"_s} << u"fr"_s;
        QTest::newRow("Japanese") << QStringList{u"ja-JP"_s} << u"ja"_s;
        QTest::newRow("of Brazil") << QStringList{u"pt-BR"_s} << u"pt_BR"_s;
        QTest::newRow("of Portugal") << QStringList{u"pt-PT"_s} << u"pt_BR"_s;
        QTest::newRow("Simplified") << QStringList{u"zh-CN"_s} << u"zh_CN"_s;
        QTest::newRow("of Singapore") << QStringList{u"zh-SG"_s} << u"zh_CN"_s;
        QTest::newRow("Traditional") << QStringList{u"zh-TW"_s} << QString();
        QTest::newRow("the second") << QStringList{u"eo"_s, u"fr"_s, u"de"_s} << u"fr"_s;
        QTest::newRow("English before German") << QStringList{u"en-GB"_s, u"de"_s} << u"en"_s;
        QTest::newRow("unknown before German") << QStringList{u"xx"_s, u"C"_s, u"de"_s} << u"de"_s;
        QTest::newRow("none") << QStringList{u"C"_s} << QString();
        QTest::newRow("nothing") << QStringList() << QString();
    }

    void theFirstLanguageThatIsThereIsTaken()
    {
        QFETCH(QStringList, languages);
        QFETCH(QString, taken);
        QCOMPARE(translationFor(languages), taken);
    }

    void onlyTheOneLanguageIsLoaded()
    {
        installTranslations({u"xx"_s});
        QCOMPARE(QCoreApplication::translate("kest", "OK"), u"OK"_s);
        QCOMPARE(qApp->findChildren<QTranslator *>().size(), 0);
        installTranslations({u"ar"_s, u"de"_s});
        QCOMPARE(QCoreApplication::translate("kest", "OK"), u"موافق"_s);
        QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
        for (const QTranslator *translator : qApp->findChildren<QTranslator *>())
            QVERIFY2(translator->language().startsWith(u"ar"_s), qPrintable(translator->language()));
    }

    void qtsOwnTextsFollow()
    {
        // What the test before put in.
        QVERIFY(QCoreApplication::translate("QPlatformTheme", "Cancel") != u"Cancel"_s);
    }
};

QTEST_MAIN(TestTranslations)
#include "tst_translations.moc"
