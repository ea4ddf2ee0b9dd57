#include "app/LocalizedStrings.h"

#include <QTest>

using namespace kest;

class TestLocalizedStrings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyWithoutATranslationShowsItself()
    {
        QCOMPARE(localizedString(QStringLiteral("--:--")), QStringLiteral("--:--"));
        QCOMPARE(localizedString(QStringLiteral("No such “key”")), QStringLiteral("No such “key”"));
    }

    void theTaglinesNameKest()
    {
        QVERIFY(localizedString(taglineKey).contains(QStringLiteral("Kest")));
        QVERIFY(localizedString(textTaglineKey).contains(QStringLiteral("Kest")));
        QVERIFY(localizedString(taglineKey) != localizedString(textTaglineKey));
    }
};

QTEST_GUILESS_MAIN(TestLocalizedStrings)
#include "tst_localizedstrings.moc"
