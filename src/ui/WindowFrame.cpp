#include "ui/WindowFrame.h"

namespace kest {

namespace {

/// A frame whose bottom edge would touch or leave the screen's stands on it.
WindowFrame keptOnScreen(WindowFrame frame)
{
    if (frame.y < 1.0)
        frame.y = 0.0;
    return frame;
}

} // namespace

WindowFrame initialFrame(WindowFrame frame, bool expanded, const WindowHeights &heights)
{
    frame.height = expanded ? heights.expandedHeight : heights.minHeight;
    if (!expanded)
        frame.y += heights.expandedHeight - heights.minHeight;
    return keptOnScreen(frame);
}

ToggledFrame toggledFrame(WindowFrame frame, const WindowHeights &heights)
{
    const double growth = heights.expandedHeight - heights.minHeight;
    const bool expands = heights.minHeight >= frame.height;
    frame.height = expands ? heights.expandedHeight : heights.minHeight;
    frame.y += expands ? -growth : growth;
    return {keptOnScreen(frame), expands};
}

WindowFrame frameFromGeometry(const QRect &geometry, const QRect &screen)
{
    return {.x = static_cast<double>(geometry.x() - screen.x()),
            .y = static_cast<double>(screen.y() + screen.height() - geometry.y() - geometry.height()),
            .width = static_cast<double>(geometry.width()),
            .height = static_cast<double>(geometry.height())};
}

QRect geometryFromFrame(const WindowFrame &frame, const QRect &screen)
{
    const double top = screen.y() + screen.height() - frame.y - frame.height;
    return QRectF(screen.x() + frame.x, top, frame.width, frame.height).toRect();
}

} // namespace kest
