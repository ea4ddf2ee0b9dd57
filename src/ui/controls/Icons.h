#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QRectF>
#include <QString>

class QPainter;

namespace kest {

/// The application's own icon of this name, in the palette's text colour where
/// the drawing leaves its colour open. Drawn when it is first painted, sharp at
/// any size and scale. `QIcon::name` gives the name back; a name that does not
/// exist gives an empty icon.
QIcon iconNamed(const QString &name);

/// Draws that icon with `color` into `rect`.
void paintIconNamed(QPainter &painter, const QRectF &rect, const QString &name, const QColor &color);

/// `amount` (0 to 1) of `over` on top of `under`.
QColor mixed(const QColor &under, const QColor &over, double amount);

/// The palette's highlight as lines and bars show it: on a dark ground lighter, so that it stands out from that (3 to 1) as
/// white letters stand out from the highlight itself (4.5 to 1; WCAG 2.2, 1.4.3 and 1.4.11).
QColor lineAccent(const QPalette &palette);

} // namespace kest
