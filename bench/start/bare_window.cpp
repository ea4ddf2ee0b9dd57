// The peer that start-up is compared with: the least a Qt Widgets program can do to show a window of Kest's size.

#include <QApplication>
#include <QWidget>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.resize(420, 141);
    window.show();
    return QApplication::exec();
}
