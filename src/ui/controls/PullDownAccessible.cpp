#include "ui/controls/PullDownAccessible.h"

#include "ui/controls/PullDownButton.h"
#include "ui/controls/PullDownMenu.h"

#include <QAccessibleWidget>

namespace kest {

namespace {

/// A button with one child, its menu, which shows only while it is open.
class PullDownAccessible : public QAccessibleWidget
{
public:
    explicit PullDownAccessible(PullDownButton *button)
        : QAccessibleWidget(button, QAccessible::ButtonMenu)
        , m_button(*button)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = m_button.menu()->isVisible();
        return state;
    }

    int childCount() const override { return 1; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(m_button.menu()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child && child->object() == m_button.menu() ? 0 : -1;
    }

    QStringList actionNames() const override { return QStringList(pressAction()) + QAccessibleWidget::actionNames(); }
    void doAction(const QString &name) override
    {
        if (name == pressAction())
            m_button.click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    PullDownButton &m_button;
};

/// The menu, which belongs to its button although it is a window.
class PullDownMenuAccessible : public QAccessibleWidget
{
public:
    explicit PullDownMenuAccessible(PullDownMenu *menu)
        : QAccessibleWidget(menu, QAccessible::PopupMenu)
    {
    }

    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(widget()->parentWidget());
    }
};

QAccessibleInterface *makePullDownAccessible(const QString &, QObject *object)
{
    if (auto *button = qobject_cast<PullDownButton *>(object))
        return new PullDownAccessible(button);
    auto *menu = qobject_cast<PullDownMenu *>(object);
    return menu ? new PullDownMenuAccessible(menu) : nullptr;
}

} // namespace

void installPullDownAccessible()
{
    QAccessible::installFactory(makePullDownAccessible); // once, however often it is called
}

} // namespace kest
