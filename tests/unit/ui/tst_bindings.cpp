#include "app/UserDefaults.h"
#include "ui/Bindings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace kest;

/// What controls are bound to.
class Target : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool active MEMBER m_active NOTIFY activeChanged)
    Q_PROPERTY(bool ready MEMBER m_ready NOTIFY readyChanged)
    Q_PROPERTY(QString time MEMBER m_time NOTIFY timeChanged)
    Q_PROPERTY(QLabel *helper MEMBER m_helper)

public:
    int pressed = 0;
    QLabel *helper() const { return m_helper; }

public Q_SLOTS:
    void press() { ++pressed; }

Q_SIGNALS:
    void activeChanged();
    void readyChanged();
    void timeChanged();

private:
    bool m_active = false;
    bool m_ready = false;
    QString m_time = QStringLiteral("--:--");
    QLabel *m_helper = nullptr;
};

class TestBindings : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    std::unique_ptr<UserDefaults> m_settings;
    std::unique_ptr<Target> m_target;
    std::unique_ptr<Bindings> m_bindings;
    std::unique_ptr<QWidget> m_root;

    template <typename Control>
    Control *add(std::initializer_list<std::pair<const char *, QString>> properties)
    {
        auto *control = new Control(m_root.get());
        for (const auto &[name, value] : properties)
            control->setProperty(name, value);
        return control;
    }

    void connectAll() { m_bindings->connectTree(*m_root); }
    void set(const char *name, const QVariant &value) { m_target->setProperty(name, value); }

private Q_SLOTS:
    void init()
    {
        static int number = 0;
        m_settings = std::make_unique<UserDefaults>(m_folder.filePath(QStringLiteral("%1.ini").arg(++number)));
        m_target = std::make_unique<Target>();
        m_bindings = std::make_unique<Bindings>(*m_target, *m_settings);
        m_root = std::make_unique<QWidget>();
    }

    void cleanup()
    {
        m_root.reset();
        m_bindings.reset();
    }

    void aButtonCallsItsAction()
    {
        auto *button = add<QPushButton>({{"action", QStringLiteral("press")}});
        connectAll();
        m_root->show();
        button->click();
        QCOMPARE(m_target->pressed, 1);
        QVERIFY(m_bindings->isComplete());
    }

    void aButtonOfAHiddenWindowDoesNothing()
    {
        auto *button = add<QPushButton>({{"action", QStringLiteral("press")}});
        connectAll();
        m_root->show();
        m_root->hide();
        button->click();
        QCOMPARE(m_target->pressed, 0);
    }

    void aButtonOfAMinimizedWindowDoesNothing()
    {
        auto *button = add<QPushButton>({{"action", QStringLiteral("press")}});
        connectAll();
        m_root->showMinimized();
        button->click();
        QCOMPARE(m_target->pressed, 0);
        m_root->showNormal();
        button->click();
        QCOMPARE(m_target->pressed, 1);
    }

    void aButtonOfASheetOfAMinimizedWindowDoesNothing()
    {
        auto *button = add<QPushButton>({{"action", QStringLiteral("press")}});
        connectAll();
        QWidget main;
        m_root->setParent(&main, Qt::Sheet);
        main.showMinimized();
        m_root->show();
        button->click();
        QCOMPARE(m_target->pressed, 0);
        main.showNormal();
        button->click();
        QCOMPARE(m_target->pressed, 1);
        m_root->setParent(nullptr);
    }

    // A press from outside lasts a while before it clicks.
    void aPressOnAHiddenWindowDoesNothingWhenItIsShownMeanwhile()
    {
        auto *button = add<QPushButton>({{"action", QStringLiteral("press")}});
        connectAll();
        QSignalSpy clicked(button, &QAbstractButton::clicked);
        m_root->show();
        m_root->hide();
        button->animateClick();
        m_root->show();
        QTRY_COMPARE(clicked.size(), 1);
        QCOMPARE(m_target->pressed, 0);
        button->animateClick();
        QTRY_COMPARE(m_target->pressed, 1);
    }

    void aMenuItemCallsItsAction()
    {
        auto *item = add<QAction>({{"action", QStringLiteral("press")}});
        connectAll();
        item->trigger();
        QCOMPARE(m_target->pressed, 1);
    }

    void aChoiceOfThePersonsCallsItsAction()
    {
        auto *choice = add<QComboBox>({{"action", QStringLiteral("press")}});
        choice->addItems({QStringLiteral("a"), QStringLiteral("b")});
        connectAll();
        choice->setCurrentIndex(1);
        QCOMPARE(m_target->pressed, 0);
        QTest::keyClick(choice, Qt::Key_Up);
        QCOMPARE(m_target->pressed, 1);
    }

    void anUnknownNameIsAMistake_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QString>("value");
        QTest::newRow("action") << QByteArray("action") << "nothingOfTheKind";
        QTest::newRow("target's property") << QByteArray("bound") << "text=nothingOfTheKind";
        QTest::newRow("control's property") << QByteArray("bound") << "nothingOfTheKind=time";
        QTest::newRow("condition") << QByteArray("enabledWhen") << "nothingOfTheKind";
    }

    void anUnknownNameIsAMistake()
    {
        QFETCH(QByteArray, property);
        QFETCH(QString, value);
        add<QPushButton>({})->setProperty(property.constData(), value);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("there is no")));
        connectAll();
        QVERIFY(!m_bindings->isComplete());
    }

    void keysClickTheEnabledControl()
    {
        auto *button = add<QPushButton>({{"action", QStringLiteral("press")}, {"keys", QStringLiteral("Ctrl+R")},
                                         {"enabledWhen", QStringLiteral("active")}});
        button->setText(QStringLiteral("x"));
        connectAll();
        m_root->show();
        m_root->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_root.get()));
        QTest::keyClick(m_root.get(), Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(m_target->pressed, 0);
        set("active", true);
        QTest::keyClick(m_root.get(), Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(m_target->pressed, 1);
    }

    void changedKeysReplaceTheOldOnes()
    {
        auto *button = add<QPushButton>({{"action", QStringLiteral("press")}, {"keys", QStringLiteral("Right")}});
        connectAll();
        button->setProperty("keys", QStringLiteral("Left"));
        m_bindings->setKeys(*button);
        m_root->show();
        m_root->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_root.get()));
        QTest::keyClick(m_root.get(), Qt::Key_Right);
        QCOMPARE(m_target->pressed, 0);
        QTest::keyClick(m_root.get(), Qt::Key_Left);
        QCOMPARE(m_target->pressed, 1);
    }

    void aControlFollowsTheTarget()
    {
        auto *label = add<QLabel>({{"bound", QStringLiteral("text=time")}});
        connectAll();
        QCOMPARE(label->text(), QStringLiteral("--:--"));
        set("time", QStringLiteral("00:07"));
        QCOMPARE(label->text(), QStringLiteral("00:07"));
    }

    void theTargetFollowsTheControl()
    {
        auto *edit = add<QLineEdit>({{"bound", QStringLiteral("text=time")}});
        connectAll();
        edit->setText(QStringLiteral("12:00"));
        QCOMPARE(m_target->property("time").toString(), QStringLiteral("12:00"));
    }

    void severalPropertiesAreBoundAtOnce()
    {
        auto *box = add<QCheckBox>({{"bound", QStringLiteral("checked=active; text = time")}});
        connectAll();
        set("active", true);
        set("time", QStringLiteral("now"));
        QVERIFY(box->isChecked());
        QCOMPARE(box->text(), QStringLiteral("now"));
    }

    void enabled_data()
    {
        QTest::addColumn<bool>("active");
        QTest::addColumn<bool>("ready");
        QTest::addColumn<bool>("any");
        QTest::addColumn<bool>("not_");
        QTest::newRow("neither") << false << false << false << true;
        QTest::newRow("one") << true << false << true << false;
        QTest::newRow("other") << false << true << true << true;
        QTest::newRow("both") << true << true << true << false;
    }

    void enabled()
    {
        QFETCH(bool, active);
        QFETCH(bool, ready);
        auto *any = add<QPushButton>({{"enabledWhen", QStringLiteral("active ready")}});
        auto *unless = add<QPushButton>({{"disabledWhen", QStringLiteral("active")}});
        auto *both = add<QPushButton>({{"enabledWhen", QStringLiteral("ready")},
                                       {"disabledWhen", QStringLiteral("active")}});
        connectAll();
        set("active", active);
        set("ready", ready);
        QTEST(any->isEnabled(), "any");
        QTEST(unless->isEnabled(), "not_");
        QCOMPARE(both->isEnabled(), ready && !active);
    }

    void aCheckBoxEditsItsSetting()
    {
        m_settings->registerDefaults({{QStringLiteral("bX"), true}});
        auto *box = add<QCheckBox>({{"settingsKey", QStringLiteral("bX")}});
        connectAll();
        QVERIFY(box->isChecked());
        box->click();
        QVERIFY(!m_settings->boolForKey(QStringLiteral("bX")));
        m_settings->setBool(true, QStringLiteral("bX"));
        QVERIFY(box->isChecked());
    }

    void textsEditTheirSettings()
    {
        auto *line = add<QLineEdit>({{"settingsKey", QStringLiteral("tLine")}});
        auto *page = add<QPlainTextEdit>({{"settingsKey", QStringLiteral("tPage")}});
        connectAll();
        QTest::keyClicks(line, QStringLiteral("one"));
        page->setPlainText(QStringLiteral("a\nb"));
        QCOMPARE(m_settings->objectForKey(QStringLiteral("tLine")).toString(), QStringLiteral("one"));
        QCOMPARE(m_settings->objectForKey(QStringLiteral("tPage")).toString(), QStringLiteral("a\nb"));
    }

    void anotherPropertyCanBeNamed()
    {
        auto *choice = add<QComboBox>({{"settingsKey", QStringLiteral("iX")},
                                       {"settingsProperty", QStringLiteral("currentIndex")}});
        choice->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        m_settings->setObject(2, QStringLiteral("iX"));
        connectAll();
        QCOMPARE(choice->currentIndex(), 2);
        choice->setCurrentIndex(1);
        QCOMPARE(m_settings->integerForKey(QStringLiteral("iX")), 1);
    }

    void showingASettingDoesNotStoreIt()
    {
        m_settings->registerDefaults({{QStringLiteral("tX"), QStringLiteral("default")}});
        auto *line = add<QLineEdit>({{"settingsKey", QStringLiteral("tX")}});
        QSignalSpy stored(m_settings.get(), &UserDefaults::valueChanged);
        connectAll();
        QCOMPARE(line->text(), QStringLiteral("default"));
        QCOMPARE(stored.size(), 0);
    }

    void aValueThatAControlCannotShowIsNotStoredInItsPlace()
    {
        auto *choice = add<QComboBox>({{"settingsKey", QStringLiteral("iX")},
                                       {"settingsProperty", QStringLiteral("currentIndex")}});
        choice->addItem(QStringLiteral("a"));
        connectAll();
        m_settings->setObject(7, QStringLiteral("iX"));
        QCOMPARE(choice->currentIndex(), -1);
        QCOMPARE(m_settings->integerForKey(QStringLiteral("iX")), 7);
    }

    void theRootMakesTheInstancesThatItNames()
    {
        m_root->setProperty("helper", QStringLiteral("Helper"));
        m_bindings->registerClass(QStringLiteral("Helper"),
                                  [](QObject *owner) { return new QLabel(static_cast<QWidget *>(owner)); });
        connectAll();
        QVERIFY(m_target->helper());
        QCOMPARE(m_target->helper()->parent(), m_root.get());
        QVERIFY(m_bindings->isComplete());
    }
};

QTEST_MAIN(TestBindings)
#include "tst_bindings.moc"
