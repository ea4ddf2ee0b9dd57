#include "ui/controls/PopUpAccessible.h"

#include "ui/controls/PopUpButton.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

namespace kest {

namespace {

/// A combo box with a fixed name; what is chosen is its value, and the selected
/// one of the list that is its child.
class PopUpAccessible : public QAccessibleWidget
{
public:
    explicit PopUpAccessible(PopUpButton *button)
        : QAccessibleWidget(button, QAccessible::ComboBox)
        , m_button(*button)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_button.currentText() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = m_button.view()->isVisible();
        return state;
    }

    int childCount() const override { return 1; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(m_button.view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *candidate) const override
    {
        return candidate->object() == m_button.view() ? 0 : -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        QAccessibleInterface *list = child(0);
        return m_button.view()->isVisible() && list->rect().contains(x, y) ? list : nullptr;
    }

    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString &action) override
    {
        if (action != showMenuAction())
            return QAccessibleWidget::doAction(action);
        m_button.view()->isVisible() ? m_button.hidePopup() : m_button.showPopup();
    }

private:
    PopUpButton &m_button;
};

QAccessibleInterface *makePopUpAccessible(const QString &, QObject *object)
{
    auto *button = qobject_cast<PopUpButton *>(object);
    return button ? new PopUpAccessible(button) : nullptr;
}

} // namespace

void installPopUpAccessible()
{
    QAccessible::installFactory(makePopUpAccessible); // once, however often it is called
}

} // namespace kest
