#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "ui/Appearance.h"
#include "ui/controls/ControlButton.h"
#include "ui/controls/PullDownMenu.h"
#include "ui/controls/ReadoutField.h"

#include <QFile>
#include <QIODevice>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace kest;
using namespace kest::test;

/// The window itself: its controls' names, its texts, its menu, its ways out.
class TestMainWindow : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }
    QWidget &window() { return *controller().window(); }

    void prepareMessages(std::initializer_list<const char *> names)
    {
        for (const char *name : names) {
            QFile file(m_house->delegate.attachments->appendingNativePathComponent(name).path());
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
    }

    /// The menu's item with this title, as the next opening shows it.
    PullDownItem menuItem(const QString &title)
    {
        controller().menuNeedsUpdate();
        for (const PullDownItem &item : controller().attachmentsMenu()->items()) {
            if (item.title == title)
                return item;
        }
        return {};
    }

    void choose(const QString &title)
    {
        QCOMPARE(menuItem(title).title, title);
        controller().attachmentChosen(title);
    }

    QString faceImage() { return controller().attachmentsMenu()->image().name(); }

private Q_SLOTS:
    void init() { m_house = std::make_unique<WindowHouse>(); }
    void cleanup() { m_house.reset(); }

    void everyControlIsFoundByItsName_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"Record", "Pause", "Stop", "New Message", "Reply", "Reply All", "Optional Message",
                                 "Show More", "Preferences", "Help", "Recording Time", "Input Level", "Input Device",
                                 "Notice"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void everyControlIsFoundByItsName()
    {
        QFETCH(QString, name);
        m_house->openAndShow();
        QVERIFY(m_house->find(name)->isVisible());
    }

    void everyButtonHasATooltipAndAPlaceInTheTabOrder()
    {
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
        QStringList order;
        QWidget *start = m_house->find(QStringLiteral("Record"));
        for (QWidget *next = start->nextInFocusChain(); next != start; next = next->nextInFocusChain()) {
            if (next->focusPolicy() & Qt::TabFocus)
                order.append(next->accessibleName());
        }
        QCOMPARE(order, QString::fromLatin1("Pause,Stop,New Message,Reply,Reply All,Optional Message,Show Less,"
                                            "Play,Position,Undo Discard,Show in Folder,Discard Recording,"
                                            "Install Add-on,Preferences,Help")
                            .split(u','));
        const QList<ControlButton *> buttons = window().findChildren<ControlButton *>();
        for (const ControlButton *button : buttons)
            QVERIFY2(!button->toolTip().isEmpty(), qPrintable(button->objectName()));
    }

    void theLayoutNamesNothingThatIsNotThere()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("there is no")));
        m_house->open();
        QVERIFY(controller().mailASObject());
        QVERIFY(controller().mailController());
    }

    void theFocusIsOnNoTextAtFirst()
    {
        m_house->openAndShow();
        QVERIFY(!window().focusWidget() || !window().focusWidget()->inherits("QLineEdit"));
    }

    void textColours_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<bool>("light");
        QTest::newRow("unknown") << -1 << -1 << true;
        QTest::newRow("old") << 10 << 9 << true;
        QTest::newRow("from ten on") << 10 << 10 << false;
        QTest::newRow("generation of the layout") << 10 << 15 << false;
        QTest::newRow("only the minor number counts") << 11 << 3 << true;
        QTest::newRow("whatever the major one") << 9 << 12 << false;
    }

    void textColours()
    {
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(bool, light);
        m_house->processInfo.version.reset();
        if (major >= 0)
            m_house->processInfo.version = OperatingSystemVersion{major, minor, 0};
        m_house->open();
        for (const ReadoutField *field : {controller().timeField(), controller().inputNameField()}) {
            const QColor color = field->textColor();
            QCOMPARE(color.red() == 255 && color.green() == 255 && color.blue() == 255
                         && qRound(color.alphaF() * 100.0F) == 80,
                     light);
        }
    }

    void newColoursOfTheDesktopReachEveryText()
    {
        m_house->open();
        const QPalette before = QApplication::palette();
        QApplication::setPalette(darkPalette());
        QTRY_COMPARE(controller().timeField()->textColor(), darkPalette().color(QPalette::WindowText));
        QVERIFY(controller().inputNameField()->textColor().lightness() > 128);
        QVERIFY(window().findChild<QWidget *>(QStringLiteral("recordingCardHeading"))
                    ->palette().color(QPalette::WindowText).lightness() > 128);
        QApplication::setPalette(before);
        QTRY_COMPARE(controller().timeField()->textColor(), before.color(QPalette::WindowText));
    }

    void closingAsksForTheEnd()
    {
        m_house->openAndShow();
        QSignalSpy spy(&controller(), &MainWindowController::terminateRequested);
        window().close();
        QCOMPARE(spy.size(), 1);
    }

    void quitKeysCloseTheWindow()
    {
        m_house->openAndShow();
        QSignalSpy spy(&controller(), &MainWindowController::terminateRequested);
        QTest::keyClick(&window(), Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(spy.size(), 1);
    }

    void helpIsAskedFor()
    {
        m_house->openAndShow();
        QSignalSpy spy(&controller(), &MainWindowController::helpRequested);
        m_house->click(QStringLiteral("Help"));
        QTest::keyClick(&window(), Qt::Key_F1);
        QCOMPARE(spy.size(), 2);
    }

    void theSheetFlagIsAnnounced()
    {
        m_house->open();
        QSignalSpy spy(&controller(), &MainWindowController::sheetShowingChanged);
        controller().setSheetShowing(true);
        controller().setSheetShowing(true);
        QCOMPARE(spy, QList<QVariantList>({{true}}));
    }

    void settingsTroublesAreSaidInTheWindow()
    {
        m_house->openAndShow();
        Q_EMIT m_house->settings->troubleOccurred(QStringLiteral("The settings could not be saved."));
        QCOMPARE(m_house->notice(), QStringLiteral("The settings could not be saved."));
    }

    void waitingForTheMailApplicationIsSaid()
    {
        m_house->openAndShow();
        m_house->mail.setBusy(true);
        QCOMPARE(m_house->notice(), QStringLiteral("Waiting for the mail application…"));
        QVERIFY(!m_house->isEnabled(QStringLiteral("Record")));
        m_house->mail.setBusy(false);
        QCOMPARE(m_house->notice(), QStringLiteral("Ready to record"));
        QVERIFY(m_house->isEnabled(QStringLiteral("Record")));
    }

    void theExpandedPartTellsOfTheLastRecording()
    {
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
        m_house->click(QStringLiteral("Record"));
        QCOMPARE(m_house->find<ReadoutField>(QStringLiteral("Last Recording"))->text(),
                 QStringLiteral("2024-03-05_14-07-09.m4a"));
        m_house->recorders.last()->setCurrentTime(47.2);
        m_house->click(QStringLiteral("Stop"));
        QCOMPARE(m_house->find<ReadoutField>(QStringLiteral("Length and Size"))->text(),
                 QString::fromUtf8("0:47  ·  2.0 kB"));
    }

    void theButtonsOfAHiddenWindowDoNothing()
    {
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        prepareMessages({"c.m4a"});
        m_house->openAndShow();
        MailConnectionState state;
        state.kind = MailConnectionState::Kind::AddOnMissing;
        state.canInstall = true;
        m_house->connection.setState(state);
        m_house->click(QStringLiteral("Record"));
        m_house->click(QStringLiteral("Stop"));
        m_house->recorders.last()->finish();
        const int warmUps = m_house->recorders.warmUps;
        m_house->controller->orderOut();
        int pressed = 0;
        for (auto *button : m_house->controller->window()->findChildren<QAbstractButton *>()) {
            pressed += button->isEnabled();
            button->click(); // as a press over the accessibility bus ends
        }
        QVERIFY(pressed > 8);
        QCOMPARE(m_house->recorders.warmUps, warmUps);
        QCOMPARE(m_house->recorders.made.size(), 1);
        QCOMPARE(m_house->connection.installs, 0);
        QCOMPARE(QApplication::activePopupWidget(), nullptr);
        QVERIFY(!m_house->controller->sheetShowing());
        QVERIFY(m_house->controller->recordingExists());
    }

    void anEmptyRecordingIsNotOffered()
    {
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        m_house->recorders.finishDelay = -1;
        m_house->openAndShow();
        m_house->click(QStringLiteral("Record"));
        m_house->click(QStringLiteral("Stop"));
        m_house->recorders.last()->finish(false);
        QCOMPARE(m_house->find<ReadoutField>(QStringLiteral("Last Recording"))->text(), QStringLiteral("None yet"));
        QCOMPARE(m_house->controller->notices().text(),
                 QStringLiteral("Nothing was recorded: it was stopped before the first sound."));
        QVERIFY(!m_house->isEnabled(QStringLiteral("Show in Folder")));
    }

    void choosingAPreparedMessageEnablesTheCommands()
    {
        prepareMessages({"a:b.txt", "c.m4a"});
        m_house->openAndShow();
        QCOMPARE(faceImage(), QStringLiteral("attach"));
        choose(QStringLiteral("a/b.txt"));
        QCOMPARE(controller().attachmentName(), QStringLiteral("a:b.txt"));
        QCOMPARE(faceImage(), QStringLiteral("Tick"));
        QVERIFY(controller().canReplyOrCompose());
        QVERIFY(m_house->isEnabled(QStringLiteral("New Message")));
        QVERIFY(menuItem(QStringLiteral("a/b.txt")).checked);
        choose(QStringLiteral("c.m4a"));
        QCOMPARE(controller().attachmentName(), QStringLiteral("c.m4a"));
        QCOMPARE(faceImage(), QStringLiteral("Tick"));
        QVERIFY(!menuItem(QStringLiteral("a/b.txt")).checked);
    }

    void choosingTheSameTwiceWithdraws()
    {
        prepareMessages({"a.txt"});
        m_house->openAndShow();
        m_house->click(QStringLiteral("Record"));
        choose(QStringLiteral("a.txt"));
        choose(QStringLiteral("a.txt"));
        QVERIFY(controller().attachmentName().isNull());
        QCOMPARE(faceImage(), QStringLiteral("attach"));
        QVERIFY(!controller().canReplyOrCompose());
        QVERIFY(controller().recordingActive());
    }

    void withdrawingByACommandLeavesFlagAndCheckMark()
    {
        prepareMessages({"a.txt"});
        m_house->openAndShow();
        choose(QStringLiteral("a.txt"));
        QVERIFY(menuItem(QStringLiteral("a.txt")).checked);
        controller().removeAttachmentMenuSelection();
        QVERIFY(controller().attachmentsMenu()->items().constFirst().checked);
        QVERIFY(controller().canReplyOrCompose());
        QCOMPARE(faceImage(), QStringLiteral("attach"));
        QVERIFY(!menuItem(QStringLiteral("a.txt")).checked);
    }

    void aChosenFileThatDisappearsStaysChosen()
    {
        prepareMessages({"a.txt"});
        m_house->openAndShow();
        choose(QStringLiteral("a.txt"));
        QVERIFY(QFile::remove(m_house->delegate.attachments->appendingNativePathComponent("a.txt").path()));
        controller().menuNeedsUpdate();
        QCOMPARE(controller().attachmentName(), QStringLiteral("a.txt"));
        QVERIFY(controller().attachmentsMenu()->items().isEmpty());
    }

    void theMenuOpensUnderItsButton()
    {
        prepareMessages({"a.txt"});
        m_house->openAndShow();
        m_house->click(QStringLiteral("Optional Message"));
        QTRY_VERIFY(controller().attachmentsMenu()->isVisible());
        QTest::keyClick(controller().attachmentsMenu()->focusWidget(), Qt::Key_Down);
        QTest::keyClick(controller().attachmentsMenu()->focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(controller().attachmentName(), QStringLiteral("a.txt"));
    }

    void anEmptyFolderIsSaid()
    {
        m_house->openAndShow();
        m_house->click(QStringLiteral("Optional Message"));
        QCOMPARE(m_house->notice(), QStringLiteral("The folder of prepared messages is empty."));
        QVERIFY(!controller().attachmentsMenu()->isVisible());
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
