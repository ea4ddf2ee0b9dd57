#include "ui/Alert.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace kest {

namespace {

QMessageBox::Icon iconOf(AlertContent::Style style)
{
    switch (style) {
    case AlertContent::Style::Informational:
        return QMessageBox::Information;
    case AlertContent::Style::Critical:
        return QMessageBox::Critical;
    case AlertContent::Style::Warning:
        break;
    }
    return QMessageBox::Warning;
}

} // namespace

int Alert::runModal(const AlertContent &content)
{
    if (!m_shows)
        return 0;
    QMessageBox box(iconOf(content.style), QString(), content.messageText, QMessageBox::NoButton, m_window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(content.informativeText);
    // The text may quote a mail, a name, a mail application: markup in it must not load files.
    const auto labels = box.findChildren<QLabel *>();
    for (QLabel *label : labels)
        label->setTextFormat(Qt::PlainText);
    QList<QAbstractButton *> buttons;
    for (const QString &title : content.buttons)
        buttons.append(box.addButton(title, QMessageBox::AcceptRole));
    if (!buttons.isEmpty()) {
        box.setDefaultButton(static_cast<QPushButton *>(buttons.first()));
        box.setEscapeButton(buttons.last());
    }
    box.exec();
    return static_cast<int>(qMax<qsizetype>(0, buttons.indexOf(box.clickedButton())));
}

} // namespace kest
