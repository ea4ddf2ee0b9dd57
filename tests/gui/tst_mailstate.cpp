#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "ui/MailStateView.h"
#include "ui/controls/ControlButton.h"

#include <QLabel>
#include <QTest>

using namespace kest;
using namespace kest::test;

using Kind = MailConnectionState::Kind;

namespace {

const QString thunderbird = QStringLiteral("Thunderbird");
const QString installAddOn = QStringLiteral("Install Add-on");

MailConnectionState missing(bool canInstall = true, bool mustQuitFirst = false)
{
    return {.kind = Kind::AddOnMissing,
            .application = thunderbird,
            .accounts = {},
            .version = {},
            .canInstall = canInstall,
            .mustQuitFirst = mustQuitFirst};
}

MailConnectionState standing(Kind kind, const QStringList &accounts = {}, const QString &version = {})
{
    return {.kind = kind, .application = thunderbird, .accounts = accounts, .version = version};
}

} // namespace

/// What the window says of the mail connection, and what it offers.
class TestMailState : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowHouse> m_house;

    MailStateView &view() const { return *m_house->controller->window()->findChild<MailStateView *>(); }
    QWidget *button() const { return m_house->find(installAddOn); }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    void everyStateHasItsWords_data()
    {
        QTest::addColumn<MailConnectionState>("state");
        QTest::addColumn<QString>("words");
        QTest::addColumn<bool>("offersToInstall");
        const auto row = [](const char *name, const MailConnectionState &state, const char *words, bool offers = false) {
            QTest::newRow(name) << state << QString::fromUtf8(words) << offers;
        };
        row("not looked", {}, "Not connected.");
        row("no mail application", standing(Kind::NoApplication), "No mail application was found. Kest needs Thunderbird.");
        row("another", {.kind = Kind::Unsupported, .application = QStringLiteral("Geary"), .accounts = {}, .version = {}},
            "Kest cannot talk to Geary yet. It needs Thunderbird.");
        row("no add-on", missing(), "Kest’s add-on is missing in Thunderbird.", true);
        row("no add-on, running", missing(true, true), "Kest’s add-on is missing. Quit Thunderbird to install it.", true);
        row("no add-on to install", missing(false), "Kest’s add-on is missing in Thunderbird. Help says how to get it.");
        row("not running", standing(Kind::NotRunning), "Not connected. Your first message starts Thunderbird.");
        row("not connected", standing(Kind::NotConnected),
            "Not connected. Restart Thunderbird, and see that Kest’s add-on is switched on.");
        row("silent", standing(Kind::Silent), "Kest’s add-on in Thunderbird does not answer. Restart Thunderbird.");
        row("other version", standing(Kind::OtherVersion, {}, QStringLiteral("0.0.9")),
            "Kest’s add-on in Thunderbird is version 0.0.9, this is " KEST_VERSION ". Restart Thunderbird.");
        row("unknown other version", standing(Kind::OtherVersion),
            "Kest’s add-on in Thunderbird is of another version. Restart Thunderbird.");
        row("connected", standing(Kind::Connected, {QStringLiteral("Home"), QStringLiteral("Work")}),
            "Connected to Thunderbird as Home.");
        row("connected, no account", standing(Kind::Connected), "Connected to Thunderbird.");
    }

    void everyStateHasItsWords()
    {
        QFETCH(MailConnectionState, state);
        QFETCH(QString, words);
        QFETCH(bool, offersToInstall);
        m_house->connection.setState(state);
        QCOMPARE(view().text(), words);
        QCOMPARE(button()->isVisible(), offersToInstall);
    }

    void theChosenAccountIsNamedWhileItIsThere()
    {
        m_house->connection.setState(standing(Kind::Connected, {QStringLiteral("Home"), QStringLiteral("Work")}));
        m_house->settings->setObject(QStringLiteral("Work"), SettingsKeys::emailAccountToUse);
        QCOMPARE(view().text(), QStringLiteral("Connected to Thunderbird as Work."));
        m_house->settings->setObject(QStringLiteral("Gone"), SettingsKeys::emailAccountToUse);
        QCOMPARE(view().text(), QStringLiteral("Connected to Thunderbird as Home."));
    }

    void theButtonInstallsOnceAndTheEndIsTold()
    {
        m_house->connection.setState(missing());
        m_house->click(installAddOn);
        m_house->click(installAddOn);
        QCOMPARE(m_house->connection.installs, 1);
        Q_EMIT m_house->connection.installEnded(QStringLiteral("Quit Thunderbird first, then install the add-on."));
        QCOMPARE(m_house->notice(), QStringLiteral("Quit Thunderbird first, then install the add-on."));
        m_house->click(installAddOn);
        QCOMPARE(m_house->connection.installs, 2);
        Q_EMIT m_house->connection.installEnded({});
        QCOMPARE(m_house->notice(), QStringLiteral("The add-on is installed."));
    }

    void theKeyboardReachesTheButton()
    {
        m_house->connection.setState(missing());
        for (int tab = 0; tab < 30 && !button()->hasFocus(); ++tab)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(button()->hasFocus());
        QTest::keyClick(button(), Qt::Key_Space);
        QCOMPARE(m_house->connection.installs, 1);
    }

    void theKeyboardPassesByAButtonThatIsNotThere()
    {
        m_house->connection.setState(standing(Kind::Connected, {QStringLiteral("Home")}));
        QWidget *const first = m_house->find(QStringLiteral("Record"));
        first->setFocus();
        QList<QWidget *> visited;
        do {
            visited.append(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (visited.size() < 30 && !visited.contains(QApplication::focusWidget()));
        QCOMPARE(QApplication::focusWidget(), first);
        QVERIFY(visited.contains(m_house->find(QStringLiteral("Help"))));
    }

    void aCollapsedWindowLooksAtNothing()
    {
        m_house->settings->setBool(false, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
        m_house->connection.looks = 0;
        QVERIFY(!view().isVisible());
        m_house->controller->windowToggleExpanded();
        QVERIFY(m_house->connection.looks > 0);
    }

    void allWordsFitIntoTheirPlace()
    {
        const auto *words = view().findChild<QLabel *>(QStringLiteral("mailStateField"));
        const int width = view().parentWidget()->width();
        const QList<MailConnectionState> states{
            missing(true, true), missing(false), standing(Kind::NotConnected),
            standing(Kind::OtherVersion, {}, QStringLiteral("10.20.30")),
            standing(Kind::Connected, {QStringLiteral("annabel.longname@department.example.org")})};
        for (const MailConnectionState &state : states) {
            m_house->connection.setState(state);
            const QRect card = view().parentWidget()->rect();
            QTRY_VERIFY(words->height() >= words->heightForWidth(words->width()));
            QTRY_VERIFY(card.contains(view().geometry()));
            QVERIFY(view().rect().contains(words->geometry()));
            QVERIFY(!button()->isVisible() || view().rect().contains(button()->geometry()));
            QCOMPARE(view().parentWidget()->width(), width);
        }
    }
};

QTEST_MAIN(TestMailState)
#include "tst_mailstate.moc"
