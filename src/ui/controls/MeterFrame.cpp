#include "ui/controls/MeterFrame.h"

#include "audio/KestLevelsView.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

namespace kest {

namespace {

constexpr double darkGlass = 0.3;
constexpr double markWidth = 2.0; // points

int luma(const QColor &color)
{
    return qGray(color.rgb());
}

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
    followLevel();
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
    paintGlass();
    return true;
}

void MeterFrame::followLevel()
{
    if (m_level || !(m_level = findChild<KestLevelsView *>()))
        return;
    connect(m_level, &KestLevelsView::powerFractionChanged, m_corners, qOverload<>(&QWidget::update));
}

void MeterFrame::paintGlass()
{
    QPainter painter(m_corners);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor window = palette().color(QPalette::Window);
    // The bar's colours are made for a light ground and would glare on a dark one.
    if (window.lightness() < 128) {
        painter.setOpacity(darkGlass);
        painter.fillRect(rect(), window);
        painter.setOpacity(1.0);
    }
    paintEndOfLevel(painter);
    painter.drawPixmap(0, 0, corners(window));
}

const QPixmap &MeterFrame::corners(const QColor &color)
{
    const QSize pixels = size() * devicePixelRatioF();
    if (m_cornerPicture.size() == pixels && m_cornerColor == color)
        return m_cornerPicture;
    m_cornerColor = color;
    m_cornerPicture = QPixmap(pixels);
    m_cornerPicture.setDevicePixelRatio(devicePixelRatioF());
    m_cornerPicture.fill(Qt::transparent);
    const double radius = height() / 2.0;
    QPainterPath bar;
    bar.addRoundedRect(QRectF(rect()), radius, radius);
    QPainterPath outside;
    outside.addRect(QRectF(rect()));
    QPainter painter(&m_cornerPicture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outside.subtracted(bar), color);
    return m_cornerPicture;
}

void MeterFrame::paintEndOfLevel(QPainter &painter) const
{
    if (!m_level || m_level->powerFraction() <= 0.0)
        return;
    const double end = m_level->x() + m_level->powerFraction() * m_level->width();
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    // Both colours of the bar are nearer to white than to black.
    painter.fillRect(QRectF(end - markWidth, 0.0, markWidth, height()), luma(window) < luma(text) ? window : text);
}

} // namespace kest
