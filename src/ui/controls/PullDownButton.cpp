#include "ui/controls/PullDownButton.h"

#include "ui/controls/Icons.h"

#include <QMenu>
#include <QPainter>

namespace kest {

namespace {

constexpr double chevronSize = 14.0;
constexpr int chevronSpace = 14;

} // namespace

PullDownButton::PullDownButton(QWidget *parent)
    : ControlButton(parent)
    , m_menu(new QMenu(this))
{
    QAction *face = m_menu->addAction(QString());
    face->setVisible(false);
    connect(face, &QAction::changed, this, QOverload<>::of(&QWidget::update));
    connect(this, &QAbstractButton::clicked, this, &PullDownButton::openMenu);
}

QString PullDownButton::shownImage() const
{
    return m_menu->actions().constFirst()->icon().name();
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
    // An open menu without an item would be a speck that swallows the next click.
    const QList<QAction *> items = m_menu->actions();
    const bool any = std::any_of(items.cbegin(), items.cend(), [](const QAction *item) { return item->isVisible(); });
    if (any)
        m_menu->popup(mapToGlobal(QPoint(0, height() + 2)));
}

} // namespace kest
