#include "ui/controls/PopUpButton.h"

#include "ui/TextScale.h"
#include "ui/controls/Icons.h"
#include "ui/controls/PopUpAccessible.h"

#include <QPainter>
#include <QWheelEvent>

namespace kest {

namespace {

constexpr int leastHeight = 28;
constexpr int textMargin = 8;
constexpr int sidePadding = 9;
constexpr double chevronSize = 14.0;
constexpr double radius = 6.0;

/// What may be left out of a long text, in average characters.
constexpr int leastCharacters = 14;

} // namespace

PopUpButton::PopUpButton(QWidget *parent)
    : QComboBox(parent)
{
    installPopUpAccessible();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

int PopUpButton::buttonHeight() const
{
    return qMax(leastHeight, fontMetrics().height() + textMargin);
}

QSize PopUpButton::sizeHint() const
{
    int widest = fontMetrics().horizontalAdvance(placeholderText());
    for (int item = 0; item < count(); ++item)
        widest = qMax(widest, fontMetrics().horizontalAdvance(itemText(item)));
    return {widest + 3 * sidePadding + scaledToText(chevronSize), buttonHeight()};
}

QSize PopUpButton::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * leastCharacters, buttonHeight()};
}

void PopUpButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = palette().color(QPalette::Window);
    const QColor ink = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    painter.setPen(hasFocus() ? QPen(lineAccent(palette()), 1.5)
                              : QPen(mixed(ground, ink, 0.18), 1.0));
    painter.setBrush(mixed(ground, ink, 0.08));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75), radius, radius);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int chevron = scaledToText(chevronSize);
    const int arrow = chevron + sidePadding;
    const QRect text = rect().adjusted(mirrored ? arrow : sidePadding, 0, mirrored ? -sidePadding : -arrow, 0);
    painter.setPen(currentIndex() < 0 ? mixed(ground, ink, 0.62) : ink);
    const QString shown = currentIndex() < 0 ? placeholderText() : currentText();
    // Absolute: else the painter mirrors it again in a program that reads from the right.
    const Qt::Alignment side = (mirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute;
    painter.drawText(text, static_cast<int>(Qt::AlignVCenter | side),
                     fontMetrics().elidedText(shown, Qt::ElideRight, text.width()));
    const double left = mirrored ? sidePadding - 2.0 : width() - chevron - sidePadding + 2.0;
    paintIconNamed(painter, QRectF(left, (height() - chevron) / 2.0, chevron, chevron),
                   QStringLiteral("chevron"), ink);
}

void PopUpButton::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace kest
