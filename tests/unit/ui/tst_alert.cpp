#include "ui/Alert.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

using namespace kest;

class TestAlert : public QObject
{
    Q_OBJECT

    const AlertContent m_content{QStringLiteral("Unable to Proceed"), {}, {QStringLiteral("Yes"), QStringLiteral("No")}};

private Q_SLOTS:
    void theAnswerIsTheButtonThatWasPressed()
    {
        QTimer::singleShot(0, this, [] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            box->buttons().at(1)->click();
        });
        QCOMPARE(Alert().runModal(m_content), 1);
    }

    void onceTheProgramEndsNoneIsShown()
    {
        Alert alert;
        alert.stopShowing();
        bool loopRan = false;
        QTimer::singleShot(0, this, [&] {
            loopRan = true;
            if (auto *box = QApplication::activeModalWidget())
                box->close();
        });
        QCOMPARE(alert.runModal(m_content), 0);
        QVERIFY(!loopRan);
    }
};

QTEST_MAIN(TestAlert)
#include "tst_alert.moc"
