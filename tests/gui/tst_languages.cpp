#include "app/SettingsTable.h"
#include "fakes/FakeMicrophoneTrial.h"
#include "gui/CutTexts.h"
#include "gui/Languages.h"
#include "gui/WindowHouse.h"
#include "ui/WelcomeSheet.h"
#include "ui/Wording.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextLayout>

#include <cmath>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

const QStringList languages{u"ar"_s, u"de"_s, u"es"_s, u"fr"_s, u"ja"_s, u"pt_BR"_s, u"zh_CN"_s, pseudoLanguage};

/// The desktop's font has this size as long as it lives: 13 pixels are usual, 26 twice as large.
class DesktopFont
{
public:
    explicit DesktopFont(int pixels)
    {
        QFont font = m_before;
        font.setPixelSize(pixels);
        QApplication::setFont(font);
    }
    DesktopFont(const DesktopFont &) = delete;
    DesktopFont &operator=(const DesktopFont &) = delete;
    ~DesktopFont() { QApplication::setFont(m_before); }

private:
    QFont m_before = QApplication::font();
};

} // namespace

/// The window and its sheet in every language, and in one whose texts are longer than those of any.
class TestLanguages : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Speaking> m_speaking;
    std::unique_ptr<WindowHouse> m_house;

    void begin(const QString &language)
    {
        m_speaking = std::make_unique<Speaking>(language);
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
        m_house->controller->inputNameField()->setText(u"BM"_s);
    }

    QWidget *window() { return m_house->controller->window(); }
    template <typename Widget = QWidget> Widget *named(const QString &objectName)
    {
        return window()->findChild<Widget *>(objectName);
    }

    /// Whether the notice is shown as a whole.
    bool showsWholeNotice()
    {
        const auto *notice = named<ReadoutField>(u"noticeField"_s);
        return notice->sizeHint().width() <= notice->width();
    }

    /// What is cut in the window as it is, or what its notice loses.
    QString cutNow()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QStringList cut = cutTexts(*window()) + overlappingTexts(*window());
        if (!showsWholeNotice())
            cut.append(m_house->notice());
        return cut.join(u'\n');
    }

    static void addLanguages()
    {
        QTest::addColumn<QString>("language");
        for (const QString &language : languages)
            QTest::newRow(qPrintable(language)) << language;
    }

    static void addLanguagesAndSizes(std::initializer_list<int> sizes)
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<int>("pixels");
        for (const QString &language : QStringList(u"en"_s) + languages) {
            for (const int pixels : sizes)
                QTest::addRow("%s %d", qPrintable(language), pixels) << language << pixels;
        }
    }

private Q_SLOTS:
    void cleanup()
    {
        m_house.reset();
        m_speaking.reset();
    }

    void theWindowCutsNothing_data() { addLanguagesAndSizes({13, 26}); }

    void theWindowCutsNothing()
    {
        QFETCH(QString, language);
        QFETCH(int, pixels);
        const DesktopFont desktop(pixels);
        const int scale = pixels / 13;
        begin(language);
        QCOMPARE(m_house->find<QAbstractButton>(u"Reply All"_s)->text() == u"Reply All"_s, language == u"en"_s);
        QCOMPARE(QFontInfo(m_house->find(u"Reply All"_s)->font()).pixelSize(), pixels);
        QCOMPARE(window()->height(), 141 * scale);
        QCOMPARE(cutNow(), QString());
        m_house->record();
        QCOMPARE(cutNow(), QString());
        m_house->controller->audioRecordingPauseResume();
        QCOMPARE(cutNow(), QString());
        m_house->controller->audioRecordingStop();
        QCOMPARE(cutNow(), QString());
        Q_EMIT m_house->mail.mailApplicationAppeared(u"Thunderbird"_s);
        m_house->controller->windowToggleExpanded();
        // Where a point is one and a half pixels, the window manager may leave a fraction of one.
        const int left = qFuzzyIsNull(std::fmod(window()->devicePixelRatio(), 1.0)) ? 0 : 1;
        QTRY_VERIFY_WITH_TIMEOUT(qAbs(window()->height() - 321 * scale) <= left, 60000);
        QCOMPARE(cutNow(), QString());
        m_house->player.read(40.0, QList<float>(512, 0.3F));
        QCOMPARE(cutNow(), QString());
        Q_EMIT m_house->mail.mailApplicationVanished();
        QCOMPARE(cutNow(), QString());
    }

    void theSheetCutsNothing_data()
    {
        addLanguagesAndSizes({13, 20, 26});
    }

    void theSheetCutsNothing()
    {
        QFETCH(QString, language);
        QFETCH(int, pixels);
        const DesktopFont desktop(pixels);
        begin(language);
        const QDialog *sheet = m_house->openPreferences();
        QVERIFY2(sheet->width() <= sheet->screen()->availableSize().width(), qPrintable(QString::number(sheet->width())));
        const auto *scroll = sheet->findChild<QScrollArea *>();
        QVERIFY2(!scroll->horizontalScrollBar()->isVisible(),
                 qPrintable(QStringLiteral("%1 wanted, %2 there").arg(scroll->widget()->minimumSizeHint().width())
                                .arg(scroll->viewport()->width())));
        QCOMPARE((cutTexts(*sheet) + overlappingTexts(*sheet)).join(u'\n'), QString());
    }

    void theWelcomeCutsNothing_data() { addLanguages(); }

    void theWelcomeCutsNothing()
    {
        QFETCH(QString, language);
        begin(language);
        m_house->connection.setState({.kind = MailConnectionState::Kind::AddOnMissing,
                                      .application = u"Thunderbird"_s,
                                      .accounts = {},
                                      .version = {},
                                      .canInstall = true,
                                      .mustQuitFirst = true});
        FakeMicrophoneTrial trial;
        WelcomeSheet sheet({trial, m_house->connection, *m_house->settings}, window());
        sheet.begin();
        QVERIFY(QTest::qWaitForWindowExposed(&sheet, 30000));
        QTRY_COMPARE(cutTexts(sheet).join(u'\n'), QString());
        sheet.findChild<QAbstractButton *>(u"trialButton"_s)->click();
        QTRY_COMPARE(cutTexts(sheet).join(u'\n'), QString());
        trial.fail(RecordingTrouble::NoMicrophone);
        QTRY_COMPARE(cutTexts(sheet).join(u'\n'), QString());
    }

    void troublesAndWarningsFitTheirLine_data() { addLanguages(); }

    void troublesAndWarningsFitTheirLine()
    {
        QFETCH(QString, language);
        begin(language);
        QStringList words{wordsForSilentRecording(), wordsForSize(5'000'000), wordsForSize(18'000'000),
                          wordsFor(InputCondition::Silent, {}), wordsFor(InputCondition::Clipping, {})};
        for (int trouble = 0; trouble <= static_cast<int>(RecordingTrouble::EncoderMissing); ++trouble)
            words << wordsFor(RecordingTrouble(trouble)) << wordsForNothingKept(RecordingTrouble(trouble));
        QStringList tooLong;
        for (const QString &each : std::as_const(words)) {
            m_house->controller->notices().tell(NoticePlace::Subject::Recording, each);
            QVERIFY(!each.isEmpty());
            QCOMPARE(m_house->notice(), each);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
            if (!showsWholeNotice())
                tooLong.append(each);
        }
        QCOMPARE(tooLong.join(u'\n'), QString());
    }

    void accessibleNamesAreTranslatedToo()
    {
        begin(u"de"_s);
        QCOMPARE(named(u"replyAllButton"_s)->accessibleName(), u"Allen antworten"_s);
        QCOMPARE(named(u"pauseResumeButton"_s)->accessibleName(), u"Pause"_s);
        m_house->record();
        m_house->controller->audioRecordingPauseResume();
        QCOMPARE(named(u"pauseResumeButton"_s)->accessibleName(), u"Fortsetzen"_s);
    }

    void aLetterOfTheLabelReachesItsControl()
    {
        begin(u"de"_s);
        QDialog *sheet = m_house->openPreferences();
        QTest::keyClick(sheet, Qt::Key_W, Qt::AltModifier);
        QCOMPARE(sheet->focusWidget()->objectName(), u"replyText"_s);
        QTest::keyClick(sheet, Qt::Key_S, Qt::AltModifier);
        QTRY_VERIFY(!sheet->isVisible());
    }

    void whatThePersonSendsStaysAsItIs()
    {
        begin(u"de"_s);
        QCOMPARE(m_house->settings->objectForKey(SettingsKeys::tNewMessageSubject).toString(),
                 u"A voice email from (your name here)"_s);
        QVERIFY(m_house->settings->objectForKey(SettingsKeys::tReplyBody).toString().startsWith(u"Dear friend,"_s));
    }

    void arabicIsLaidOutFromTheRight()
    {
        begin(u"ar"_s);
        const auto left = [&](const QString &name) { return named(name)->mapTo(window(), QPoint()).x(); };
        QVERIFY(left(u"recordButton"_s) > left(u"timeField"_s));
        QVERIFY(left(u"timeField"_s) > left(u"stopButton"_s));
        QVERIFY(left(u"stopButton"_s) > left(u"preferencesButton"_s));
        QVERIFY(left(u"newMessageButton"_s) > left(u"replyButton"_s));
        QVERIFY(left(u"replyButton"_s) > left(u"replyAllButton"_s));
        QVERIFY(left(u"replyAllButton"_s) > left(u"disclosureTriangle"_s));
    }

    void inArabicAnAddressStandsTogether()
    {
        begin(u"ar"_s);
        m_house->controller->windowToggleExpanded();
        const QString address = u"anna@example.org"_s;
        m_house->connection.setState({.kind = MailConnectionState::Kind::Connected, .application = u"Thunderbird"_s,
                                      .accounts = {address}, .version = {}});
        auto *label = named<QLabel>(u"mailStateField"_s);
        QVERIFY(label->text().contains(u'\u2068' + address + u'\u2069'));
        QTextLayout layout(label->text(), label->font());
        layout.setTextOption(QTextOption(Qt::AlignRight));
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
            line.setLineWidth(label->width());
        layout.endLayout();
        const auto first = static_cast<int>(label->text().indexOf(address));
        const QTextLine line = layout.lineForTextPosition(first);
        const int last = first + static_cast<int>(address.size()) - 1;
        QCOMPARE(layout.lineForTextPosition(last).lineNumber(), line.lineNumber());
        // Its outer edges belong to the Arabic beside it as well.
        for (int place = first + 1; place < last; ++place)
            QVERIFY2(line.cursorToX(place) < line.cursorToX(place + 1), qPrintable(label->text().mid(first, place - first)));
    }

    void anAddressWiderThanALineIsBrokenAtItsSeams()
    {
        begin(u"de"_s);
        m_house->controller->windowToggleExpanded();
        m_house->connection.setState({.kind = MailConnectionState::Kind::Connected, .application = u"Thunderbird"_s,
                                      .accounts = {u"anna.von.der.lerche.im.wald@mail.example.org"_s}, .version = {}});
        const auto *label = named<QLabel>(u"mailStateField"_s);
        QVERIFY(label->text().contains(u"\u200bmail."_s));
        QCOMPARE(cutNow(), QString());
    }

    void inArabicTimeAndLevelStillGoFromLeftToRight()
    {
        begin(u"ar"_s);
        m_house->record();
        m_house->clock.advance(61.0);
        m_house->recorders.last()->setCurrentTime(61.0);
        m_house->recorders.last()->setAveragePower(0, -35.0F); // half of the bar
        m_house->controller->audioRecordingUpdateTimeWithTimer();
        QCOMPARE(m_house->controller->timeField()->text(), u"01:01"_s);
        const QImage arabic = m_house->controller->timeField()->grab().toImage();
        const QImage bar = named(u"levelsView"_s)->grab().toImage();
        QVERIFY(bar.pixelColor(bar.width() / 4, bar.height() / 2) != bar.pixelColor(bar.width() * 3 / 4, bar.height() / 2));
        QVERIFY(bar.pixelColor(bar.width() / 4, bar.height() / 2).saturation() > 50); // lit on the left
        // The same digits stand at the same places as from left to right.
        m_house->controller->timeField()->setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(arabic, m_house->controller->timeField()->grab().toImage());
    }
};

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
