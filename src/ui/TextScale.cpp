#include "ui/TextScale.h"

#include <QApplication>
#include <QFontInfo>

#include <algorithm>

namespace kest {

namespace {

constexpr int largestUsualPixels = 15;
constexpr int mostThirds = 9;

} // namespace

double textScale(const QFont &desktopFont)
{
    const int pixels = QFontInfo(desktopFont).pixelSize();
    if (pixels <= largestUsualPixels)
        return 1.0;
    return std::min(qRound(3.0 * pixels / usualTextPixels), mostThirds) / 3.0;
}

QFont sheetFont(QFont desktopFont)
{
    desktopFont.setPixelSize(std::max(usualTextPixels, QFontInfo(desktopFont).pixelSize()));
    return desktopFont;
}

int scaledToText(double points)
{
    return qRound(points * textScale(QApplication::font()));
}

} // namespace kest
