#include "ui/Appearance.h"

#include "ui/controls/Icons.h"

#include <QApplication>
#include <QStyle>

namespace kest {

namespace {

struct Colors {
    QColor window;
    QColor text;
    QColor base;
    QColor button;
    QColor accent;
};

QPalette paletteOf(const Colors &colors)
{
    QPalette palette(colors.text, colors.button, mixed(colors.button, Qt::white, 0.4),
                     mixed(colors.button, Qt::black, 0.5), mixed(colors.button, Qt::black, 0.25), colors.text,
                     Qt::white, colors.base, colors.window);
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, colors.accent);
    palette.setColor(QPalette::AlternateBase, mixed(colors.base, colors.text, 0.04));
    palette.setColor(QPalette::ToolTipBase, colors.base);
    palette.setColor(QPalette::ToolTipText, colors.text);
    palette.setColor(QPalette::PlaceholderText, mixed(colors.base, colors.text, 0.5));
    const QColor faint = mixed(colors.window, colors.text, 0.4);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

/// The style's own palette is what an application has that no theme has coloured.
bool colouredByTheme()
{
    const QPalette bare = QApplication::style()->standardPalette();
    const QPalette present = QApplication::palette();
    constexpr std::array telling{QPalette::Window, QPalette::WindowText, QPalette::Base, QPalette::Button,
                                 QPalette::Highlight};
    return std::any_of(telling.begin(), telling.end(),
                       [&](QPalette::ColorRole role) { return bare.color(role) != present.color(role); });
}

} // namespace

QPalette lightPalette()
{
    return paletteOf({QColor(0xf7, 0xf7, 0xf8), QColor(0x1d, 0x1d, 0x1f), Qt::white, QColor(0xec, 0xec, 0xee),
                      QColor(0x1f, 0x78, 0xb4)});
}

QPalette darkPalette()
{
    return paletteOf({QColor(0x26, 0x26, 0x29), QColor(0xf2, 0xf2, 0xf4), QColor(0x1c, 0x1c, 0x1e),
                      QColor(0x39, 0x39, 0x3d), QColor(0x27, 0x79, 0xb6)});
}

QPalette subdued(QPalette palette)
{
    palette.setColor(QPalette::WindowText,
                     mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.68));
    return palette;
}

void applyColorScheme(ColorScheme scheme)
{
    static bool ours = false;
    if (!ours && colouredByTheme())
        return;
    ours = true;
    QApplication::setPalette(scheme == ColorScheme::Dark ? darkPalette() : lightPalette());
}

} // namespace kest
