#pragma once

#include <QFrame>
#include <QIcon>
#include <QList>
#include <QString>

class QListView;
class QModelIndex;

namespace kest {

class PullDownItems;

/// One item of a PullDownMenu.
struct PullDownItem {
    QString title;        ///< As given, any characters; shown as `shownTitle()` has it.
    bool checked = false; ///< With a check mark.
    bool enabled = true;  ///< False: only to be read, never chosen.

    friend bool operator==(const PullDownItem &, const PullDownItem &) = default;
};

/// The title as it can stand on one line: line feeds, tabs and other controls
/// as their pictures, and what would turn the order of the letters round or is
/// no character at all as U+FFFD.
QString shownTitle(const QString &title);

/// A menu that opens under a button, of any number of items.
///
/// It looks like the style's menus, but it is a list: only what is seen is
/// measured and drawn, so that ten thousand items open like ten. It has a scroll
/// bar, the keys of a list, and finds an item by the first letters typed. A
/// QMenu measures every item before it opens and lays what does not fit beside
/// it, beyond the screen.
///
/// Its first item stands only on the button's face and is an image; the list
/// has those after it. Main thread.
class PullDownMenu : public QFrame
{
    Q_OBJECT

public:
    /// A popup of `button`, which owns it.
    explicit PullDownMenu(QWidget *button);

    /// The first item's image. `QIcon::name` gives its name back.
    const QIcon &image() const { return m_image; }
    void setImage(const QIcon &image);

    /// All items after the first one.
    const QList<PullDownItem> &items() const;
    void setItems(QList<PullDownItem> items);

    /// Opens under the button, or above it where there is more room. Does
    /// nothing without an item: an open menu without any would be a speck that
    /// swallows the next click.
    void popup();

Q_SIGNALS:
    void imageChanged();
    void aboutToShow();

    /// A person chose the item with this title; the menu is closed.
    void triggered(const QString &title);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    bool isOurs(QKeyEvent &event);
    void choose(const QModelIndex &index);
    int widthOfTitles() const;
    QRect place() const;

    QWidget *m_button;
    QIcon m_image;
    PullDownItems *m_items;
    QListView *m_list;
};

} // namespace kest
