#pragma once

#include <QRect>
#include <QRectF>

namespace kest {

/// A window's frame in points, y upward from the bottom edge of the screen's
/// usable area: `y` is the frame's bottom edge.
struct WindowFrame {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    friend bool operator==(const WindowFrame &, const WindowFrame &) = default;
};

/// The two heights of a window that can be expanded, in points.
struct WindowHeights {
    double minHeight = 0.0;
    double expandedHeight = 0.0;
};

/// The frame to open with, made from the one that the layout file gives (which
/// is drawn expanded): the top edge stays.
WindowFrame initialFrame(WindowFrame frame, bool expanded, const WindowHeights &heights);

struct ToggledFrame {
    WindowFrame frame;
    bool expanded = false;
};

/// The frame after expanding a collapsed window, or collapsing an expanded one:
/// the top edge stays. A frame no higher than `minHeight` counts as collapsed.
ToggledFrame toggledFrame(WindowFrame frame, const WindowHeights &heights);

/// Between the y-up frame and a rectangle in screen coordinates (y downward).
/// `screen` is the usable area that the frame is measured in.
WindowFrame frameFromGeometry(const QRect &geometry, const QRect &screen);
QRect geometryFromFrame(const WindowFrame &frame, const QRect &screen);

} // namespace kest
