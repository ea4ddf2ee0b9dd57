// Opens the menu of prepared messages over a folder, and a bare QMenu with as many items; prints the milliseconds of
// each from the click to the first paint: "ours peer" a line.
//
//     menu_bench FOLDER RUNS

#include "ui/OptionalAttachmentsMenu.h"
#include "ui/controls/PullDownButton.h"
#include "ui/controls/PullDownMenu.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QMenu>

#include <cstdio>

using namespace kest;

namespace {

class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QObject *watched) { watched->installEventFilter(this); }

    void wait() const
    {
        while (!m_painted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_painted |= event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_painted = false;
};

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double openOurs(PullDownButton &button)
{
    const PaintWatch watch(button.menu()->findChild<QListView *>()->viewport());
    QElapsedTimer timer;
    timer.start();
    button.click();
    watch.wait();
    const double taken = milliseconds(timer);
    button.menu()->close();
    return taken;
}

double openPeer(QWidget &button, const QStringList &names)
{
    QMenu menu(&button);
    const PaintWatch watch(&menu);
    QElapsedTimer timer;
    timer.start();
    for (const QString &name : names)
        menu.addAction(name)->setCheckable(true);
    menu.popup(button.mapToGlobal(QPoint(0, button.height())));
    watch.wait();
    const double taken = milliseconds(timer);
    menu.close();
    return taken;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const FolderURL folder = FileURL::fromPath(application.arguments().value(1));
    const int runs = application.arguments().value(2).toInt();
    QWidget window;
    window.resize(300, 200);
    PullDownButton button(&window);
    button.setGeometry(10, 10, 60, 30);
    BoundedLookUps lookUps(std::chrono::seconds(60));
    QObject::connect(&button, &PullDownButton::menuNeedsUpdate, &button,
                     [&] { fillOptionalAttachmentsMenu(*button.menu(), folder, QString(), lookUps); });
    window.show();
    const QStringList names = regularFilesIn(folder).value.value_or(QStringList());
    for (int run = 0; run <= runs; ++run) { // the first one warms fonts and style
        const double ours = openOurs(button);
        const double peer = openPeer(button, names);
        if (run > 0)
            std::printf("%.2f %.2f\n", ours, peer);
    }
    return 0;
}
