#include "app/UserDefaults.h"
#include "ui/Alert.h"
#include "ui/Bindings.h"
#include "ui/controls/ReadoutField.h"

#include <QEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>

using namespace kest;

namespace {

const QString hostile = QStringLiteral("<img src=\"/dev/zero\"><b>bold</b>");

} // namespace

/// Texts from outside (names of people, files, microphones, mail applications; what a mail says) show as they stand.
/// Markup in them would be drawn, and would have files read that nobody chose.
class TestMarkup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anAlertShowsItsTextsAsTheyStand()
    {
        QStringList shown;
        QTimer::singleShot(0, qApp, [&shown] {
            QWidget *box = QApplication::activeModalWidget();
            QVERIFY(box);
            const auto labels = box->findChildren<QLabel *>();
            for (const QLabel *label : labels) {
                if (!label->text().isEmpty()) {
                    shown.append(label->text());
                    QCOMPARE(label->textFormat(), Qt::PlainText);
                }
            }
            box->close();
        });
        AlertContent content;
        content.messageText = hostile;
        content.informativeText = hostile + hostile;
        content.buttons = {QStringLiteral("OK")};
        Alert().runModal(content);
        QCOMPARE(shown.count(hostile), 1);
        QCOMPARE(shown.count(hostile + hostile), 1);
    }

    void aLabelOfALayoutShowsItsTextAsItStands()
    {
        QObject target;
        const QTemporaryDir folder;
        UserDefaults settings(folder.filePath(QStringLiteral("settings.ini")));
        QWidget window;
        const QLabel label(&window);
        Bindings(target, settings).connectTree(window);
        QCOMPARE(label.textFormat(), Qt::PlainText);
    }

    void aTooltipShowsItsTextAsItStands_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QStringLiteral("a & b");
        QTest::newRow("markup") << hostile;
    }
    void aTooltipShowsItsTextAsItStands()
    {
        QFETCH(QString, text);
        ReadoutField field;
        field.setToolTip(text);
        field.resize(80, 20);
        field.show();
        QVERIFY(QTest::qWaitForWindowExposed(&field));
        QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), field.mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(&field, &event);
        const QString told = QToolTip::text(); // at once: it may go when windows come and go
        QTextDocument shown;
        if (Qt::mightBeRichText(told))
            shown.setHtml(told);
        else
            shown.setPlainText(told);
        QCOMPARE(shown.toPlainText(), text);
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
    }
};

QTEST_MAIN(TestMarkup)
#include "tst_markup.moc"
