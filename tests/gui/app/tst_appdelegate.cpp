#include "app/Application.h"
#include "app/SettingsTable.h"
#include "gui/app/AppHouse.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace kest;
using kest::test::AppHouse;

namespace {

const QString own = QStringLiteral("org.kest.Kest");
const QString tick = QStringLiteral("tick");

} // namespace

class TestAppDelegate : public QObject
{
    Q_OBJECT

    std::unique_ptr<AppHouse> m_house;

    void makeRecording(const QString &name) const
    {
        QFile file(m_house->recordings() + u'/' + name);
        QVERIFY(file.open(QFile::WriteOnly));
    }

    QStringList recordings() const
    {
        return QDir(m_house->recordings()).entryList(QDir::Files | QDir::Hidden);
    }

    /// The one that refreshes the microphone's name.
    QTimer &inputNameTimer() const
    {
        const auto timers = m_house->delegate->findChildren<QTimer *>();
        const auto timer = std::ranges::find_if(timers, [](QTimer *t) { return t->isActive() && !t->isSingleShot(); });
        if (timer == timers.end())
            qFatal("no timer refreshes the microphone's name");
        return **timer;
    }

    /// What makes the delegate look at the microphone's name: its timer, or an
    /// application that comes to the front.
    void updateBy(const QString &event) const
    {
        if (event != tick) {
            m_house->workspace().activate(event);
            return;
        }
        QSignalSpy ticks(&inputNameTimer(), &QTimer::timeout);
        inputNameTimer().setInterval(1);
        QTRY_VERIFY(!ticks.isEmpty());
        inputNameTimer().setInterval(30000);
    }

private Q_SLOTS:
    void init() { m_house = std::make_unique<AppHouse>(); }
    void cleanup() { m_house.reset(); }

    void launchingShowsTheOneWindow()
    {
        m_house->launch();
        QVERIFY(m_house->initialized);
        QVERIFY(m_house->isShown());
        const auto *controller = m_house->delegate->winController();
        m_house->workspace().activate(own);
        QCOMPARE(m_house->delegate->winController(), controller);
    }

    void bothFoldersResolveToTheDefaultOnes()
    {
        m_house->launch();
        Error error;
        QCOMPARE(m_house->delegate->recordingsDirectoryURLWithError(&error)->path(), m_house->recordings());
        QCOMPARE(m_house->delegate->attachmentsDirectoryURLWithError(&error)->lastPathComponent(),
                 QStringLiteral("Kest Optional Outgoing Messages"));
    }

    void interruptedRecordingsAreFinishedBeforeThereIsAWindow()
    {
        const auto before = static_cast<int>(QApplication::topLevelWidgets().size());
        m_house->launch();
        QCOMPARE(m_house->recorders().windowsThen, before);
        QCOMPARE(m_house->recorders().finishFolders, QList<FolderURL> { FolderURL::fromPath(m_house->recordings()) });
        QVERIFY(m_house->recorders().finishLimit > 0 && m_house->recorders().finishLimit <= 1000);
    }

    void whatRecordingNeedsIsLoadedAfterTheStart()
    {
        m_house->launch();
        QCOMPARE(m_house->preloadsInLaunch, 0);
        QTRY_COMPARE(m_house->recorders().preloads, 1);
    }

    void theInputNameIsShownAtLaunch()
    {
        m_house->launch();
        QTRY_COMPARE(m_house->inputName(), QStringLiteral("BM"));
        QCOMPARE(m_house->window().inputNameField()->toolTip(), QStringLiteral("Built-in Microphone"));
        QCOMPARE(m_house->delegate->oldInputName(), QStringLiteral("Built-in Microphone"));
        QCOMPARE(m_house->delegate->nameOfDefaultInputDevice(), QStringLiteral("Built-in Microphone"));
    }

    void theInputNameIsRefreshedEveryThirtySeconds()
    {
        m_house->launch();
        QCOMPARE(inputNameTimer().interval(), 30000);
        m_house->hardware().name = QStringLiteral("USB Headset");
        inputNameTimer().setInterval(1);
        QTRY_COMPARE(m_house->inputName(), QStringLiteral("UH"));
    }

    void theInputNameWaitsUntilTheRecordingIsStopped_data()
    {
        QTest::addColumn<bool>("paused");
        QTest::addColumn<QString>("firstUpdate");
        for (const bool paused : {false, true}) {
            for (const QString &first : {tick, own, mailApplicationIdentifier})
                QTest::addRow("%s, %s", paused ? "paused" : "running", qPrintable(first)) << paused << first;
        }
    }

    void theInputNameWaitsUntilTheRecordingIsStopped()
    {
        QFETCH(bool, paused);
        QFETCH(QString, firstUpdate);
        m_house->launch();
        QTRY_COMPARE(m_house->inputName(), QStringLiteral("BM"));
        m_house->window().audioRecordingRecord();
        if (paused)
            m_house->window().audioRecordingPauseResume();
        m_house->hardware().name = QStringLiteral("USB Headset");
        for (const QString &update : {tick, own, mailApplicationIdentifier}) {
            updateBy(update);
            QCOMPARE(m_house->inputName(), QStringLiteral("BM"));
        }
        m_house->window().audioRecordingStop();
        QCOMPARE(m_house->inputName(), QStringLiteral("BM"));
        updateBy(firstUpdate);
        QCOMPARE(m_house->inputName(), QStringLiteral("UH"));
    }

    void theWindowIsShownAndHiddenWithTheFrontmostApplication_data()
    {
        QTest::addColumn<QString>("identifier");
        QTest::addColumn<bool>("shown");
        QTest::newRow("this application") << own << true;
        QTest::newRow("the mail application") << "com.apple.mail" << true;
        QTest::newRow("another one") << "XTerm" << false;
        QTest::newRow("one without a name") << QString() << false;
        QTest::newRow("the mail application in other letters") << "com.apple.Mail" << false;
        QTest::newRow("a longer name") << "com.apple.mail.helper" << false;
    }

    void theWindowIsShownAndHiddenWithTheFrontmostApplication()
    {
        QFETCH(QString, identifier);
        QFETCH(bool, shown);
        m_house->launch();
        m_house->workspace().activate(identifier);
        QCOMPARE(m_house->isShown(), shown);
        m_house->window().orderOut();
        m_house->workspace().activate(identifier);
        QCOMPARE(m_house->isShown(), shown);
    }

    void comingBackRefreshesTheInputName()
    {
        m_house->launch();
        QTRY_COMPARE(m_house->inputName(), QStringLiteral("BM"));
        m_house->hardware().name = QStringLiteral("USB Headset");
        m_house->workspace().activate(QStringLiteral("XTerm"));
        QCOMPARE(m_house->inputName(), QStringLiteral("BM"));
        m_house->workspace().activate(own);
        QCOMPARE(m_house->inputName(), QStringLiteral("UH"));
    }

    void aHiddenWindowRefreshesNothingAndIsUpToDateWhenItComesBack()
    {
        m_house->launch();
        QTRY_COMPARE(m_house->inputName(), QStringLiteral("BM"));
        QTimer &timer = inputNameTimer();
        m_house->workspace().activate(QStringLiteral("XTerm"));
        QVERIFY(!timer.isActive());
        m_house->hardware().name = QStringLiteral("USB Headset");
        m_house->delegate->activate(); // without a word of the desktop's that it is in front
        QTRY_COMPARE(m_house->inputName(), QStringLiteral("UH"));
        QVERIFY(timer.isActive());
        QCOMPARE(timer.interval(), 30000);
    }

    void theWindowStaysWhileTheSheetIsShowing()
    {
        m_house->launch();
        m_house->window().setSheetShowing(true);
        m_house->workspace().activate(QStringLiteral("XTerm"));
        QVERIFY(m_house->isShown());
        m_house->window().setSheetShowing(false);
        m_house->workspace().activate(QStringLiteral("XTerm"));
        QVERIFY(!m_house->isShown());
    }

    void aDeviceNameOfOneWordKeepsNothingElseFromStarting()
    {
        m_house->hardware().name = QStringLiteral("Microphone");
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("exception was raised")));
        m_house->launch();
        QTRY_COMPARE(m_house->window().inputNameField()->toolTip(), QStringLiteral("Microphone"));
        m_house->workspace().activate(QStringLiteral("XTerm"));
        QVERIFY(!m_house->isShown());
    }

    void afterADeviceNameOfOneWordTheNextTickShowsTheNextName()
    {
        m_house->launch();
        QTRY_COMPARE(m_house->inputName(), QStringLiteral("BM"));
        QTimer ticks;
        connect(&ticks, &QTimer::timeout, m_house->delegate.get(), &AppDelegate::timeToUpdateInputName);
        m_house->hardware().name = QStringLiteral("Microphone");
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("exception was raised")));
        ticks.start(5);
        QTRY_COMPARE(m_house->window().inputNameField()->toolTip(), QStringLiteral("Microphone"));
        QCOMPARE(m_house->inputName(), QStringLiteral("BM"));
        QCOMPARE(m_house->delegate->oldInputName(), QStringLiteral("Built-in Microphone"));
        m_house->hardware().name = QStringLiteral("USB Mic");
        QTRY_COMPARE(m_house->inputName(), QStringLiteral("UM"));
    }

    void closingTheWindowAsksForTheEnd()
    {
        m_house->launch();
        QSignalSpy wishes(m_house->delegate.get(), &AppDelegate::terminateRequested);
        m_house->window().window()->close();
        QCOMPARE(wishes.count(), 1);
        QCOMPARE(m_house->delegate->applicationShouldTerminateAfterLastWindowClosed(), false);
    }

    void theEndIsNowAndActivationIsNoLongerHeard()
    {
        m_house->launch();
        QCOMPARE(int(m_house->delegate->applicationShouldTerminate()), 1);
        m_house->workspace().activate(QStringLiteral("XTerm"));
        QVERIFY(m_house->isShown());
    }

    void endingWithZeroRemovesNoFile()
    {
        m_house->launch();
        makeRecording(QStringLiteral("a.m4a"));
        m_house->delegate->applicationShouldTerminate();
        QCOMPARE(recordings(), QStringList { QStringLiteral("a.m4a") });
    }

    void endingWithAnyOtherValueCleansUpBeforeItAnswers()
    {
        m_house->launch();
        m_house->defaults->setObject(-1, SettingsKeys::iWhenToDelete);
        m_house->defaults->setBool(false, SettingsKeys::bTrashNotDelete);
        makeRecording(QStringLiteral("a.m4a"));
        makeRecording(QStringLiteral("note.txt"));
        m_house->delegate->applicationShouldTerminate();
        QCOMPARE(recordings(), QStringList { QStringLiteral("note.txt") });
    }

    // Finished files take the place of unfinished ones: one that does so after the clean-up would be back in the folder.
    void recordingsAreFinishedBeforeTheCleanUp()
    {
        m_house->launch();
        m_house->defaults->setObject(4, SettingsKeys::iWhenToDelete);
        m_house->window().audioRecordingRecord();
        bool stopped = false;
        m_house->recorders().whileFinishing = [&] {
            stopped = m_house->recorders().calls.contains(QStringLiteral("stop"));
            makeRecording(QStringLiteral("late.m4a"));
        };
        m_house->delegate->applicationShouldTerminate();
        QVERIFY(stopped);
        QCOMPARE(recordings(), QStringList());
        QVERIFY(m_house->recorders().finishedWait > 0 && m_house->recorders().finishedWait <= 5000);
    }

    void withoutACleanUpTheEndWaitsForNoFile()
    {
        m_house->launch();
        m_house->delegate->applicationShouldTerminate();
        QCOMPARE(m_house->recorders().finishedWait, -1);
    }

    void helpOpensAWebPage()
    {
        m_house->launch();
        m_house->delegate->openHelp();
        QCOMPARE(m_house->workspace().opened.size(), 1);
        QVERIFY(m_house->workspace().opened[0].scheme().startsWith(QStringLiteral("http")));
        m_house->workspace().opens = false;
        QTest::ignoreMessage(QtWarningMsg, "No program opens the help page");
        m_house->delegate->openHelp();
    }

    void aDamagedSettingsFileIsSaidInTheWindow()
    {
        QVERIFY(QDir().mkpath(QFileInfo(m_house->settingsPath()).path()));
        QFile file(m_house->settingsPath());
        QVERIFY(file.open(QFile::WriteOnly) && file.write("nonsense") > 0);
        file.close();
        m_house->launch();
        QVERIFY(m_house->window().notices().text().contains(QStringLiteral("damaged")));
    }

    void withoutFoldersThereAreNoSettings()
    {
        QVERIFY(QDir().mkpath(m_house->home.filePath(QStringLiteral("Music"))));
        QFile file(m_house->recordings());
        QVERIFY(file.open(QFile::WriteOnly));
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("^Error creating ~/Music/Kest : ")));
        QVERIFY(!AppDelegate::initialize(m_house->platform, *m_house->defaults));
        QVERIFY(!m_house->defaults->objectForKey(SettingsKeys::bIncludeTagline).isValid());
    }
};

// In the application that catches what rises to its loop.
int main(int argc, char **argv)
{
    Application application(argc, argv);
    TestAppDelegate test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_appdelegate.moc"
