#include "ui/controls/SeenClick.h"

#include <QAbstractButton>

#include <memory>

namespace kest {

void onSeenClick(QAbstractButton &button, QObject *context, std::function<void()> clicked)
{
    const auto isSeen = [&button] { return button.window()->isVisible(); };
    const auto wasSeen = std::make_shared<bool>(false);
    QObject::connect(&button, &QAbstractButton::pressed, context, [isSeen, wasSeen] { *wasSeen = isSeen(); });
    QObject::connect(&button, &QAbstractButton::clicked, context, [isSeen, wasSeen, clicked = std::move(clicked)] {
        if (*wasSeen && isSeen())
            clicked();
    });
}

} // namespace kest
