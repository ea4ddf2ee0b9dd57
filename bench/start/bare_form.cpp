// The peer that start-up is compared with: as many of Qt's own controls as Kest's window has, with their texts, and nothing
// behind them. What it costs more than bare_window is the price of showing any text at all: fonts, style, layout.

#include "ui_bare_form.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    Ui::BareForm form;
    form.setupUi(&window);
    window.show();
    return QApplication::exec();
}
