#include "app/SettingsTable.h"
#include "gui/CutTexts.h"
#include "gui/WindowHouse.h"
#include "ui/controls/ControlButton.h"
#include "ui/controls/ReadoutField.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

const QStringList namesInTabOrder{
    u"Subject"_s, u"Message Text"_s, u"Include Tagline"_s, u"Reply Text"_s, u"Include Sender's Name"_s,
    u"Send Replies at Once"_s, u"Delete Original"_s, u"Sending Account"_s, u"Mail Back End"_s,
    u"Choose Recordings Folder"_s, u"Reveal Recordings Folder"_s, u"Choose Optional Messages Folder"_s,
    u"Reveal Optional Messages Folder"_s, u"Remove Recordings"_s, u"Move to Trash"_s, u"Close"_s};

} // namespace

/// The preferences sheet: its life, its controls, its looks.
class TestPreferences : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }
    PreferencesWindowController &preferences() { return *controller().preferences(); }
    /// What another process would read.
    QVariant settingOnDisk(const QString &key)
    {
        const UserDefaults other(m_house->home.filePath(u"kest.ini"_s));
        return other.objectForKey(key);
    }

    static void retype(QPlainTextEdit *text, const QString &typed)
    {
        text->selectAll();
        QTest::keyClicks(text, typed);
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    // Its life

    void itIsASheetOverTheWindow()
    {
        const QDialog *sheet = m_house->openPreferences();
        QCOMPARE(sheet->windowModality(), Qt::WindowModal);
        QCOMPARE(sheet->windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Sheet));
        QCOMPARE(sheet->parentWidget(), controller().window());
        QVERIFY(controller().sheetShowing());
    }

    void nothingIsLoadedBeforeTheFirstShowing()
    {
        QVERIFY(!controller().preferences());
        QVERIFY(m_house->mail.inquiries.isEmpty());
    }

    void oneControllerServesTheWholeProcess()
    {
        QDialog *first = m_house->openPreferences();
        preferences().closePrefsSheet();
        QCOMPARE(m_house->openPreferences(), first);
        QCOMPARE(m_house->mail.inquiries.size(), 1);
        preferences().closePrefsSheet();
        {
            WindowHouse other;
            other.openAndShow();
            other.controller->showPrefsSheet();
            QVERIFY(!other.controller->preferences());
            QCOMPARE(first->parentWidget(), other.controller->window());
            QVERIFY(other.controller->sheetShowing());
            preferences().closePrefsSheet();
            QVERIFY(!other.controller->sheetShowing());
        }
        QCOMPARE(m_house->openPreferences(), first);
    }

    void everyWayOfClosingEndsTheSheet_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("Close") << 0;
        QTest::newRow("Escape") << 1;
        QTest::newRow("the window manager") << 2;
        QTest::newRow("Ctrl+W") << 3;
        QTest::newRow("its key") << 4;
    }

    void everyWayOfClosingEndsTheSheet()
    {
        QFETCH(int, way);
        QDialog *sheet = m_house->openPreferences();
        auto *subject = m_house->find<QLineEdit>(u"Subject"_s);
        subject->selectAll();
        QTest::keyClicks(subject, u"Half a sentence"_s);
        switch (way) {
        case 0: m_house->click(u"Close"_s); break;
        case 1: QTest::keyClick(sheet, Qt::Key_Escape); break;
        case 2: sheet->close(); break;
        case 3: QTest::keyClick(sheet, Qt::Key_W, Qt::ControlModifier); break;
        default: QTest::keyClick(sheet, Qt::Key_C, Qt::AltModifier); break;
        }
        QTRY_VERIFY(!sheet->isVisible());
        QVERIFY(!controller().sheetShowing());
        QVERIFY(!subject->hasFocus());
        QCOMPARE(settingOnDisk(SettingsKeys::tNewMessageSubject).toString(), u"Half a sentence"_s);
        QTRY_VERIFY(controller().window()->isActiveWindow());
    }

    void closingKeepsTheTextThatIsBeingTyped()
    {
        m_house->openPreferences();
        auto *text = m_house->find<QPlainTextEdit>(u"Message Text"_s);
        text->setFocus();
        retype(text, u"Just this"_s);
        preferences().closePrefsSheet();
        QCOMPARE(settingOnDisk(SettingsKeys::tNewMessageBody).toString(), u"Just this"_s);
        m_house->openPreferences();
        QCOMPARE(text->toPlainText(), u"Just this"_s);
    }

    void enterInTheSubjectDoesNotClose()
    {
        const QDialog *sheet = m_house->openPreferences();
        QTest::keyClick(m_house->find(u"Subject"_s), Qt::Key_Return);
        QVERIFY(sheet->isVisible());
    }

    void openingSelectsNothingThatTypingWouldReplace()
    {
        m_house->openPreferences();
        const auto *subject = m_house->find<QLineEdit>(u"Subject"_s);
        QVERIFY(subject->hasFocus());
        QVERIFY(!subject->hasSelectedText());
    }

    // Its controls

    void everyControlHasItsName()
    {
        m_house->openPreferences();
        QStringList names = namesInTabOrder;
        names << u"Recordings Folder"_s << u"Optional Messages Folder"_s << u"Preview"_s << u"Preferences Notice"_s;
        for (const QString &name : std::as_const(names)) {
            QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(m_house->find(name));
            QVERIFY2(accessible && accessible->text(QAccessible::Name) == name, qPrintable(name));
        }
    }

    void noTextIsNamedLikeAControl()
    {
        const QDialog *sheet = m_house->openPreferences();
        QStringList names;
        for (QWidget *widget : sheet->findChildren<QWidget *>()) {
            QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
            if (accessible && widget->isVisible())
                names.append(accessible->text(QAccessible::Name));
        }
        for (const QString &name : namesInTabOrder)
            QVERIFY2(names.count(name) == 1, qPrintable(name));
    }

    void tabGoesThroughEveryControlInReadingOrder()
    {
        QDialog *sheet = m_house->openPreferences();
        QStringList visited;
        for (int i = 0; i < namesInTabOrder.size(); ++i) {
            visited.append(sheet->focusWidget()->accessibleName());
            QTest::keyClick(sheet->focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(visited, namesInTabOrder);
        QCOMPARE(sheet->focusWidget()->accessibleName(), namesInTabOrder.first());
    }

    void everyLabelLeadsToItsControl()
    {
        QDialog *sheet = m_house->openPreferences();
        QHash<QChar, QString> taken;
        int buddies = 0;
        const auto take = [&](const QString &text) {
            const QKeySequence keys = QKeySequence::mnemonic(text);
            QVERIFY2(!keys.isEmpty(), qPrintable(text));
            const QChar letter = text.at(text.indexOf(u'&') + 1).toLower();
            QVERIFY2(!taken.contains(letter), qPrintable(text + u" and "_s + taken.value(letter)));
            taken.insert(letter, text);
        };
        for (const QLabel *label : sheet->findChildren<QLabel *>()) {
            if (!label->buddy())
                continue;
            ++buddies;
            take(label->text());
        }
        for (const QCheckBox *box : sheet->findChildren<QCheckBox *>())
            take(box->text());
        take(m_house->find<QAbstractButton>(u"Close"_s)->text());
        QCOMPARE(buddies, 8);
    }

    void aLabelsKeyGoesToItsControl()
    {
        QDialog *sheet = m_house->openPreferences();
        QTest::keyClick(sheet, Qt::Key_R, Qt::AltModifier);
        QCOMPARE(sheet->focusWidget()->accessibleName(), u"Reply Text"_s);
        QTest::keyClick(sheet, Qt::Key_F, Qt::AltModifier);
        QCOMPARE(sheet->focusWidget()->accessibleName(), u"Choose Recordings Folder"_s);
    }

    // What it looks like

    void coloursFollowTheGeneration_data()
    {
        QTest::addColumn<int>("minor");
        QTest::addColumn<bool>("light");
        QTest::newRow("not told") << -1 << true;
        QTest::newRow("0") << 0 << true;
        QTest::newRow("9") << 9 << true;
        QTest::newRow("10") << 10 << false;
        QTest::newRow("15") << 15 << false;
    }

    void coloursFollowTheGeneration()
    {
        QFETCH(int, minor);
        QFETCH(bool, light);
        // A major version above 10 makes no difference, on purpose.
        m_house->processInfo.version = minor < 0 ? std::nullopt : std::optional(OperatingSystemVersion{11, minor, 0});
        const QDialog *sheet = m_house->openPreferences();
        const QColor own = sheet->palette().color(QPalette::WindowText);
        PreferencesWindowController &prefs = preferences();
        for (const QWidget *widget : std::initializer_list<QWidget *>{
                 prefs.includeNameCheckbox(), prefs.includeTaglineCheckbox(), prefs.moveToTrashCheckbox(),
                 prefs.audioFolderLabel(), prefs.attachmentsLabel(), prefs.messageLabel(), prefs.replyLabel(),
                 prefs.removeSavedLabel()}) {
            const QColor color = widget->palette().color(QPalette::WindowText);
            QCOMPARE(color.alphaF() < 1.0F, light);
            QCOMPARE(color == QColor::fromRgbF(1.0F, 1.0F, 1.0F, 0.8F), light);
            QCOMPARE(color == own, !light);
        }
        QCOMPARE(prefs.pathField()->textColor() == QColor(Qt::black), light);
        QCOMPARE(prefs.attachmentsPathField()->textColor() == QColor(Qt::black), light);
    }

    void itFitsASmallScreenAndCutsNothing_data()
    {
        QTest::addColumn<int>("pixels");
        QTest::newRow("usual") << 13;
        QTest::newRow("large") << 20;
        QTest::newRow("very large") << 28;
    }

    void itFitsASmallScreenAndCutsNothing()
    {
        QFETCH(int, pixels);
        const QFont before = QApplication::font();
        QFont font = before;
        font.setPixelSize(pixels);
        QApplication::setFont(font);
        const auto restore = qScopeGuard([&] { QApplication::setFont(before); });
        const QDialog *sheet = m_house->openPreferences();
        QVERIFY2(sheet->width() <= qMin(1024, sheet->screen()->availableSize().width()), qPrintable(QString::number(sheet->width())));
        QVERIFY2(sheet->height() <= 728, qPrintable(QString::number(sheet->height())));
        QVERIFY(!sheet->findChild<QScrollArea *>()->horizontalScrollBar()->isVisible());
        QCOMPARE(cutTexts(*sheet).join(u'\n'), QString());
    }

    void atTheUsualSizeNothingNeedsScrolling()
    {
        const QDialog *sheet = m_house->openPreferences();
        const auto *area = sheet->findChild<QScrollArea *>();
        QVERIFY(!area->verticalScrollBar()->isVisible());
        QVERIFY(!area->horizontalScrollBar()->isVisible());
    }

    void troubleWithTheSettingsIsSaidOnTheSheet()
    {
        m_house->openPreferences();
        const auto *notice = m_house->find<ReadoutField>(u"Preferences Notice"_s);
        QVERIFY(notice->text().isEmpty());
        Q_EMIT m_house->settings->troubleOccurred(u"The settings could not be saved."_s);
        QCOMPARE(notice->text(), u"The settings could not be saved."_s);
        QVERIFY(notice->isVisible());
        QCOMPARE(m_house->notice(), notice->text());
    }
};

QTEST_MAIN(TestPreferences)
#include "tst_preferences.moc"
