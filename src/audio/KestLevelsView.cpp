#include "audio/KestLevelsView.h"

#include <QPainter>

#include <algorithm>

namespace kest {

namespace {

constexpr float quietest = -70.0F; // dBFS
const QColor unlitColor = QColor::fromRgbF(2.0F / 3.0F, 2.0F / 3.0F, 2.0F / 3.0F);
const QColor litColor = QColor::fromRgbF(0.3F, 0.8F, 0.9F);

} // namespace

KestLevelsView::KestLevelsView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent); // what lies beneath need not be painted ten times a second
}

void KestLevelsView::updatePowerLevel(float level)
{
    level = std::max(quietest, level);
    level = std::min(0.0F, level);
    setPowerFraction((static_cast<double>(level) + 70.0) / 70.0);
}

void KestLevelsView::setPowerFraction(double fraction)
{
    const bool changed = !qFuzzyCompare(fraction + 1.0, m_powerFraction + 1.0);
    m_powerFraction = fraction;
    update();
    if (changed)
        Q_EMIT powerFractionChanged(fraction);
}

void KestLevelsView::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(rect(), unlitColor);
    // The border between the two parts may fall within a pixel.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(0.0, 0.0, m_powerFraction * width(), height()), litColor);
}

} // namespace kest
