#include "ui/controls/SeenClick.h"

#include <QAbstractButton>

#include <memory>

namespace kest {

void onSeenClick(QAbstractButton &button, QObject *context, std::function<void()> clicked)
{
    const auto isSeen = [&button] { return canBeSeen(*button.window()); };
    const auto wasSeen = std::make_shared<bool>(false);
    QObject::connect(&button, &QAbstractButton::pressed, context, [isSeen, wasSeen] { *wasSeen = isSeen(); });
    QObject::connect(&button, &QAbstractButton::clicked, context, [isSeen, wasSeen, clicked = std::move(clicked)] {
        if (*wasSeen && isSeen())
            clicked();
    });
}

bool canBeSeen(const QWidget &widget)
{
    // To Qt a minimized window is visible, and so are the sheets that go with it.
    for (const QWidget *part = &widget; part; part = part->parentWidget())
        if (part->isWindow() && part->isMinimized())
            return false;
    return widget.isVisible();
}

} // namespace kest
