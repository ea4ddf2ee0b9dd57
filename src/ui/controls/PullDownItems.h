#pragma once

#include "ui/controls/PullDownMenu.h"

#include <QAbstractListModel>
#include <QStyledItemDelegate>

namespace kest {

/// The items of a PullDownMenu after its first one, as its list asks for them.
class PullDownItems : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    const QList<PullDownItem> &items() const { return m_items; }
    void setItems(QList<PullDownItem> items);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    QList<PullDownItem> m_items;
};

/// Draws them as the style draws a menu's items.
class PullDownItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The size of an item with a title of this width.
    static QSize sizeOf(const QWidget &list, int titleWidth);

    /// What of the title fits an item of this width; its middle is left out.
    static QString fitted(const QWidget &list, const QString &title, int itemWidth);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace kest
