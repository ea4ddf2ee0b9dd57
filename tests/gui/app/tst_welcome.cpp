#include "app/Welcome.h"
#include "gui/app/AppHouse.h"
#include "ui/WelcomeSheet.h"

#include <QAbstractButton>
#include <QFile>
#include <QTest>

using namespace kest;
using namespace kest::test;

/// When the welcome is shown by the application, and when never again.
class WelcomeTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<AppHouse> m_house;
    std::unique_ptr<Welcome> m_welcome;

    QString marker() const { return m_house->home.filePath(QStringLiteral("state/kest/welcomed")); }

    FakeMicrophoneTrial &trial() const
    {
        return static_cast<FakeMicrophoneTrial &>(*m_house->platform.microphoneTrial);
    }

    /// As the program's entry does.
    void start()
    {
        m_house->delegate.reset();
        m_welcome = std::make_unique<Welcome>(m_house->platform, *m_house->defaults,
                                              WelcomeMarker(m_house->settingsPath()));
        m_house->launch();
        m_welcome->showSoon(m_house->window());
    }

    /// Until everything that the start put off is done.
    void settle() const { QTRY_COMPARE(m_house->recorders().preloads, 1); }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<AppHouse>();
        qputenv("XDG_STATE_HOME", m_house->home.filePath(QStringLiteral("state")).toUtf8());
    }

    void cleanup()
    {
        m_house.reset();
        m_welcome.reset();
    }

    void theFirstStartShowsItAndTheNextOneDoesNot()
    {
        start();
        QTRY_VERIFY(m_welcome->sheet());
        QVERIFY(m_welcome->sheet()->isVisible());
        QVERIFY(!QFile::exists(marker()));
        m_welcome->sheet()->reject();
        QVERIFY(!m_welcome->sheet());
        QVERIFY(QFile::exists(marker()));
        m_house->recorders().preloads = 0;
        start();
        settle();
        QVERIFY(!m_welcome->sheet());
    }

    void itIsNoPreferencesSheet()
    {
        start();
        QTRY_VERIFY(m_welcome->sheet());
        QVERIFY(!m_house->window().sheetShowing());
        m_house->workspace().activate(QStringLiteral("org.example.Other"));
        QVERIFY(!m_house->isShown());
        QVERIFY(!m_welcome->sheet()->isVisible());
        m_house->workspace().activate(QStringLiteral("com.apple.mail"));
        QVERIFY(m_house->isShown());
        QVERIFY(m_welcome->sheet()->isVisible());
    }

    void aWindowThatWasHiddenMeanwhileShowsItWhenItComesBack()
    {
        start();
        m_house->workspace().activate(QStringLiteral("org.example.Other"));
        QTRY_VERIFY(m_welcome->sheet());
        QVERIFY(!m_welcome->sheet()->isVisible());
        m_house->delegate->activate();
        QVERIFY(m_welcome->sheet()->isVisible());
    }

    void aRecordingEndsItAndItsTrial()
    {
        start();
        QTRY_VERIFY(m_welcome->sheet());
        m_welcome->sheet()->findChild<QAbstractButton *>(QStringLiteral("trialButton"))->click();
        QVERIFY(trial().isListening());
        m_house->window().audioRecordingRecord(); // assistive technology reaches it behind the sheet too
        QVERIFY(!m_welcome->sheet());
        QVERIFY(!trial().isListening());
        QVERIFY(QFile::exists(marker()));
    }

    void whoeverRecordsAtOnceIsNotDisturbed()
    {
        start();
        m_house->window().audioRecordingRecord();
        settle();
        QVERIFY(!m_welcome->sheet());
        QVERIFY(QFile::exists(marker()));
    }

    void anEndWithoutAnAnswerWelcomesAgain()
    {
        start();
        QTRY_VERIFY(m_welcome->sheet());
        m_house->delegate->applicationShouldTerminate();
        start();
        QTRY_VERIFY(m_welcome->sheet());
        QVERIFY(!QFile::exists(marker()));
    }
};

QTEST_MAIN(WelcomeTest)
#include "tst_welcome.moc"
