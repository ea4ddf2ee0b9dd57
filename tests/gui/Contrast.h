#pragma once

#include <QColor>
#include <QHash>
#include <QImage>

#include <algorithm>
#include <cmath>

namespace kest::test {

/// The relative luminance of WCAG 2.2, 0 to 1.
inline double luminance(const QColor &color)
{
    const auto linear = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The contrast ratio of WCAG 2.2, 1 to 21.
inline double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// What is drawn in a picture: its ground, which most of it shows, and the colour that stands out most from it.
struct Drawn {
    QColor ground;
    QColor ink;

    double ratio() const { return contrast(ground, ink); }
};

/// Colours of fewer than `least` pixels are the edges of something else.
inline Drawn drawnIn(const QImage &picture, int least)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    const auto most = std::max_element(counts.cbegin(), counts.cend());
    if (most == counts.cend())
        return {};
    Drawn drawn{.ground = QColor(most.key()), .ink = QColor(most.key())};
    for (auto each = counts.cbegin(); each != counts.cend(); ++each) {
        if (each.value() >= least && contrast(QColor(each.key()), drawn.ground) > drawn.ratio())
            drawn.ink = QColor(each.key());
    }
    return drawn;
}

} // namespace kest::test
