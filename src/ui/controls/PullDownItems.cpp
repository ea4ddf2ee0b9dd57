#include "ui/controls/PullDownItems.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionMenuItem>

namespace kest {

namespace {

constexpr char16_t controlPictures = 0x2400; // the Unicode block of this name follows ASCII's controls
constexpr char16_t pictureOfDelete = 0x2421;
constexpr char16_t pictureOfNewLine = 0x2424;

// The formatting characters of the Unicode Bidirectional Algorithm, chapter 2.
bool turnsTheOrder(char16_t unit)
{
    return unit == 0x061c || unit == 0x200e || unit == 0x200f || (unit >= 0x202a && unit <= 0x202e)
        || (unit >= 0x2066 && unit <= 0x2069);
}

char16_t shownUnit(char16_t unit)
{
    if (unit < 0x20)
        return char16_t(controlPictures + unit);
    if (unit == 0x7f)
        return pictureOfDelete;
    if (unit == 0x2028 || unit == 0x2029)
        return pictureOfNewLine;
    const bool hidden = (unit >= 0x80 && unit < 0xa0) || turnsTheOrder(unit) || QChar::isSurrogate(unit);
    return hidden ? char16_t(QChar::ReplacementCharacter) : unit;
}

QStyleOptionMenuItem menuItemOption(const QWidget &list)
{
    QStyleOptionMenuItem item;
    item.initFrom(&list);
    item.font = list.font();
    item.fontMetrics = list.fontMetrics();
    item.menuItemType = QStyleOptionMenuItem::Normal;
    item.checkType = QStyleOptionMenuItem::NonExclusive;
    item.menuHasCheckableItems = true;
    item.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    return item;
}

} // namespace

QString shownTitle(const QString &title)
{
    QString shown = title;
    for (qsizetype at = 0; at < shown.size(); ++at) {
        const bool pair = shown[at].isHighSurrogate() && at + 1 < shown.size() && shown[at + 1].isLowSurrogate();
        if (pair)
            ++at;
        else
            shown[at] = shownUnit(shown[at].unicode());
    }
    return shown;
}

void PullDownItems::setItems(QList<PullDownItem> items)
{
    beginResetModel();
    m_items = std::move(items);
    endResetModel();
}

int PullDownItems::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant PullDownItems::data(const QModelIndex &index, int role) const
{
    const PullDownItem &item = m_items.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: return shownTitle(item.title);
    case Qt::CheckStateRole: return item.enabled ? QVariant(item.checked ? Qt::Checked : Qt::Unchecked) : QVariant();
    default: return {};
    }
}

Qt::ItemFlags PullDownItems::flags(const QModelIndex &index) const
{
    if (!m_items.at(index.row()).enabled)
        return Qt::ItemNeverHasChildren;
    // Not checkable by the person: choosing an item is more than checking it.
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

QSize PullDownItemDelegate::sizeOf(const QWidget &list, int titleWidth)
{
    const QStyleOptionMenuItem item = menuItemOption(list);
    return list.style()->sizeFromContents(QStyle::CT_MenuItem, &item, {titleWidth, list.fontMetrics().height()}, &list);
}

QString PullDownItemDelegate::fitted(const QWidget &list, const QString &title, int itemWidth)
{
    // Of a wide one: styles make narrow items wider than they need be.
    constexpr int wide = 1000;
    const int room = itemWidth - (sizeOf(list, wide).width() - wide);
    return list.fontMetrics().elidedText(title, Qt::ElideMiddle, room);
}

void PullDownItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionMenuItem item = menuItemOption(*option.widget);
    item.rect = option.rect;
    item.menuRect = option.widget->rect();
    const bool enabled = index.flags() & Qt::ItemIsEnabled;
    item.state.setFlag(QStyle::State_Enabled, enabled);
    item.state.setFlag(QStyle::State_Selected, enabled && option.state & QStyle::State_Selected);
    item.palette.setCurrentColorGroup(enabled ? QPalette::Active : QPalette::Disabled);
    item.checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    // A single "&" would mark a letter to press.
    item.text = fitted(*option.widget, index.data().toString(), option.rect.width());
    item.text.replace(u'&', QStringLiteral("&&"));
    option.widget->style()->drawControl(QStyle::CE_MenuItem, &item, painter, option.widget);
}

QSize PullDownItemDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return sizeOf(*option.widget, 0);
}

} // namespace kest
