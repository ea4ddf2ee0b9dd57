#pragma once

class QFont;

namespace kest {

/// The size of the window's running text at the usual text sizes of desktops, in pixels.
inline constexpr int usualTextPixels = 13;

/// How much larger than usual the window's texts and its two heights are drawn, for a desktop whose font is this. 1 up to 15
/// pixels, which is as large as desktops make it by themselves (11 points at 96 dots an inch); beyond that the person wants
/// large text, and gets it. In thirds, so that both heights stay whole pixels; at most 3.
double textScale(const QFont &desktopFont);

/// The running text of what lies over the window and can grow: the desktop's font, but no smaller than the window's.
QFont sheetFont(QFont desktopFont);

/// A measure of the window's design, in points, at the text scale of this process.
int scaledToText(double points);

} // namespace kest
