#include "ui/controls/MeterFrame.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

namespace kest {

namespace {

constexpr double darkGlass = 0.3;

} // namespace

MeterFrame::MeterFrame(QWidget *parent)
    : QWidget(parent)
    , m_corners(new QWidget(this))
{
    m_corners->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_corners->installEventFilter(this);
}

void MeterFrame::showEvent(QShowEvent *event)
{
    m_corners->raise();
    QWidget::showEvent(event);
}

void MeterFrame::resizeEvent(QResizeEvent *event)
{
    m_corners->setGeometry(rect());
    QWidget::resizeEvent(event);
}

bool MeterFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_corners || event->type() != QEvent::Paint)
        return QWidget::eventFilter(watched, event);
    const double radius = height() / 2.0;
    QPainterPath bar;
    bar.addRoundedRect(QRectF(rect()), radius, radius);
    QPainterPath outside;
    outside.addRect(QRectF(rect()));
    QPainter painter(m_corners);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor window = palette().color(QPalette::Window);
    painter.fillPath(outside.subtracted(bar), window);
    // The bar's colours are made for a light ground and would glare on a dark one.
    if (window.lightness() < 128) {
        painter.setOpacity(darkGlass);
        painter.fillRect(rect(), window);
    }
    return true;
}

} // namespace kest
