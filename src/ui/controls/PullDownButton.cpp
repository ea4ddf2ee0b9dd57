#include "ui/controls/PullDownButton.h"

#include "ui/controls/Icons.h"
#include "ui/controls/PullDownAccessible.h"
#include "ui/controls/PullDownMenu.h"
#include "ui/controls/SeenClick.h"

#include <QPainter>

namespace kest {

namespace {

constexpr double chevronSize = 14.0;
constexpr int chevronSpace = 14;

} // namespace

PullDownButton::PullDownButton(QWidget *parent)
    : ControlButton(parent)
    , m_menu(new PullDownMenu(this))
{
    installPullDownAccessible();
    connect(m_menu, &PullDownMenu::imageChanged, this, QOverload<>::of(&QWidget::update));
    onSeenClick(*this, this, [this] { openMenu(); });
}

QString PullDownButton::shownImage() const
{
    return m_menu->image().name();
}

QSize PullDownButton::extraSize() const
{
    return {chevronSpace, 0};
}

void PullDownButton::paintEvent(QPaintEvent *event)
{
    ControlButton::paintEvent(event);
    QPainter painter(this);
    const double x = layoutDirection() == Qt::RightToLeft ? 7.0 : width() - chevronSize - 7.0;
    paintIconNamed(painter, QRectF(x, (height() - chevronSize) / 2.0, chevronSize, chevronSize),
                   QStringLiteral("chevron"), inkColor());
}

void PullDownButton::openMenu()
{
    Q_EMIT menuNeedsUpdate();
    m_menu->popup();
}

} // namespace kest
