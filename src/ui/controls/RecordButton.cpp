#include "ui/controls/RecordButton.h"

#include "ui/TextScale.h"
#include "ui/controls/Icons.h"

#include <QPainter>

namespace kest {

namespace {

constexpr int diameter = 48;
constexpr double ringWidth = 2.0;
constexpr double ringGap = 2.0;
constexpr double glyphSize = 22.0;
const QColor red(0xe5, 0x48, 0x4d);

} // namespace

RecordButton::RecordButton(QWidget *parent)
    : ControlButton(parent)
{
    setImage(QStringLiteral("record"));
}

void RecordButton::setOnAir(bool onAir)
{
    m_onAir = onAir;
    update();
}

void RecordButton::setHeld(bool held)
{
    m_held = held;
    update();
}

QSize RecordButton::sizeHint() const
{
    return {scaledToText(diameter), scaledToText(diameter)};
}

QColor RecordButton::discColor() const
{
    if (isDown())
        return mixed(red, Qt::black, 0.18);
    if (isHovered())
        return mixed(red, Qt::white, 0.1);
    if (m_onAir && m_held)
        return mixed(palette().color(QPalette::Window), red, 0.55);
    if (isEnabled() || m_onAir)
        return red;
    return mixed(palette().color(QPalette::Window), red, 0.4);
}

void RecordButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double inset = m_onAir ? ringWidth + ringGap : 0.0;
    if (m_onAir) {
        painter.setPen(QPen(red, ringWidth));
        painter.drawEllipse(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(discColor());
    painter.drawEllipse(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
    const double glyph = scaledToText(glyphSize);
    const QPointF corner((width() - glyph) / 2.0, (height() - glyph) / 2.0);
    paintIconNamed(painter, QRectF(corner, QSizeF(glyph, glyph)), shownImage(), Qt::white);
    paintFocusRing(painter, width() / 2.0, Qt::white, 3.0);
}

} // namespace kest
