#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "ui/MessagePreview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

/// What the preferences sheet writes, and the preview of it.
class TestPreferencesSettings : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    QVariant setting(const QString &key) { return m_house->settings->objectForKey(key); }

    /// What another process would read.
    QVariant settingOnDisk(const QString &key)
    {
        const UserDefaults other(m_house->home.filePath(u"kest.ini"_s));
        return other.objectForKey(key);
    }

    QString preview() { return m_house->find<MessagePreview>(u"Preview"_s)->text(); }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    // What is written

    void textsAreWrittenAtEveryKey_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("key");
        QTest::newRow("subject") << u"Subject"_s << SettingsKeys::tNewMessageSubject;
        QTest::newRow("message") << u"Message Text"_s << SettingsKeys::tNewMessageBody;
        QTest::newRow("reply") << u"Reply Text"_s << SettingsKeys::tReplyBody;
    }

    void textsAreWrittenAtEveryKey()
    {
        QFETCH(QString, name);
        QFETCH(QString, key);
        m_house->openPreferences();
        QWidget *field = m_house->find(name);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Delete);
        QCOMPARE(settingOnDisk(key), QVariant(QString()));
        QTest::keyClicks(field, u"Hi"_s);
        QCOMPARE(settingOnDisk(key).toString(), u"Hi"_s);
        QTest::keyClick(field, Qt::Key_Backspace);
        QCOMPARE(settingOnDisk(key).toString(), u"H"_s);
    }

    void checkBoxesAreWrittenAtOnce_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("key");
        QTest::newRow("tagline") << u"Include Tagline"_s << SettingsKeys::bIncludeTagline;
        QTest::newRow("sender's name") << u"Include Sender's Name"_s << SettingsKeys::bIncudeReplyToInName;
        QTest::newRow("send at once") << u"Send Replies at Once"_s << SettingsKeys::bSendReplies;
        QTest::newRow("delete") << u"Delete Original"_s << SettingsKeys::bDeleteOriginals;
        QTest::newRow("trash") << u"Move to Trash"_s << SettingsKeys::bTrashNotDelete;
    }

    void checkBoxesAreWrittenAtOnce()
    {
        QFETCH(QString, name);
        QFETCH(QString, key);
        const bool before = m_house->settings->boolForKey(key);
        m_house->openPreferences();
        auto *box = m_house->find<QCheckBox>(name);
        QCOMPARE(box->isChecked(), before);
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(settingOnDisk(key), QVariant(!before));
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(settingOnDisk(key), QVariant(before));
    }

    void choicesAreWrittenAtOnce_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("items");
        QTest::newRow("age") << u"Remove Recordings"_s << SettingsKeys::iWhenToDelete << 4;
        QTest::newRow("back end") << u"Mail Back End"_s << SettingsKeys::useASClass << 2;
    }

    void choicesAreWrittenAtOnce()
    {
        QFETCH(QString, name);
        QFETCH(QString, key);
        QFETCH(int, items);
        m_house->openPreferences();
        auto *choice = m_house->find<QComboBox>(name);
        QCOMPARE(choice->count(), items);
        QCOMPARE(choice->currentIndex(), m_house->settings->integerForKey(key));
        QTest::keyClick(choice, Qt::Key_Home);
        for (int item = 1; item < items; ++item) {
            QTest::keyClick(choice, Qt::Key_Down);
            QCOMPARE(settingOnDisk(key).toInt(), item);
        }
    }

    void theBackEndIsReadAsTheChoiceSays()
    {
        m_house->openPreferences();
        auto *choice = m_house->find<QComboBox>(u"Mail Back End"_s);
        QTest::keyClick(choice, Qt::Key_Home);
        QVERIFY(!m_house->settings->boolForKey(SettingsKeys::useASClass));
        QTest::keyClick(choice, Qt::Key_End);
        QVERIFY(m_house->settings->boolForKey(SettingsKeys::useASClass));
    }

    void anAgeThatIsNotListedIsToldAndKept()
    {
        m_house->settings->setObject(4, SettingsKeys::iWhenToDelete);
        m_house->openPreferences();
        const auto *choice = m_house->find<QComboBox>(u"Remove Recordings"_s);
        QCOMPARE(choice->currentIndex(), -1);
        QVERIFY(choice->placeholderText().startsWith(u"All"));
        m_house->settings->setObject(-1, SettingsKeys::iWhenToDelete);
        m_house->settings->setObject(5, SettingsKeys::iWhenToDelete);
        QCOMPARE(setting(SettingsKeys::iWhenToDelete).toInt(), 5);
    }

    void theWheelChangesNoChoice()
    {
        m_house->openPreferences();
        auto *choice = m_house->find<QComboBox>(u"Remove Recordings"_s);
        const QPointF middle = QRectF(choice->rect()).center();
        QWheelEvent wheel(middle, choice->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(choice, &wheel);
        QCOMPARE(choice->currentIndex(), 0);
    }

    // The preview

    void thePreviewFollowsTheTyping()
    {
        m_house->settings->setObject(u"Hi"_s, SettingsKeys::tNewMessageBody);
        m_house->settings->setObject(u"Spoken"_s, SettingsKeys::tNewMessageSubject);
        m_house->openPreferences();
        const QString tagline = localizedString(taglineKey);
        QCOMPARE(preview(), u"Spoken\n\nHi\n\n[2024-03-05_14-07-09.m4a]"_s + tagline);
        QTest::keyClicks(m_house->find(u"Subject"_s), u"!"_s);
        m_house->find<QPlainTextEdit>(u"Message Text"_s)->moveCursor(QTextCursor::End);
        QTest::keyClicks(m_house->find(u"Message Text"_s), u"gh"_s);
        m_house->find<QCheckBox>(u"Include Tagline"_s)->click();
        QCOMPARE(preview(), u"Spoken!\n\nHigh\n\n[2024-03-05_14-07-09.m4a]"_s);
        QCOMPARE(m_house->find(u"Preview"_s)->accessibleDescription(), preview());
    }

    void thePreviewTurnsToTheReplyThatIsWritten()
    {
        m_house->settings->setObject(u"Yes"_s, SettingsKeys::tReplyBody);
        m_house->settings->setBool(false, SettingsKeys::bIncludeTagline);
        m_house->openPreferences();
        m_house->find(u"Reply Text"_s)->setFocus();
        QVERIFY2(preview().endsWith(u"Yes\n\n[2024-03-05_14-07-09.m4a]"_s), qPrintable(preview()));
        m_house->find<QCheckBox>(u"Include Sender's Name"_s)->click();
        QVERIFY2(preview().endsWith(u"[2024-03-05_14-07-09_sender’s name.m4a]"_s), qPrintable(preview()));
        m_house->find(u"Message Text"_s)->setFocus();
        QVERIFY(!preview().contains(u"Yes"));
    }
};

QTEST_MAIN(TestPreferencesSettings)
#include "tst_preferencessettings.moc"
