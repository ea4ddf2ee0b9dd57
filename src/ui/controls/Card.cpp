#include "ui/controls/Card.h"

#include "ui/controls/Icons.h"

#include <QPainter>

namespace kest {

namespace {

constexpr double radius = 10.0;

}

void Card::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.045));
    painter.drawRoundedRect(QRectF(rect()), radius, radius);
}

} // namespace kest
