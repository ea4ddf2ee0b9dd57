#include "ui/controls/MeterFrame.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

namespace kest {

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
    painter.fillPath(outside.subtracted(bar), palette().color(QPalette::Window));
    return true;
}

} // namespace kest
