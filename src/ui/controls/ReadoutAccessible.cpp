#include "ui/controls/ReadoutAccessible.h"

#include "ui/controls/ReadoutField.h"

#include <QAccessibleWidget>

namespace kest {

namespace {

/// A label whose text is reachable as text; a plain label's name hides it.
class ReadoutAccessible : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit ReadoutAccessible(ReadoutField *field)
        : QAccessibleWidget(field, QAccessible::StaticText)
        , m_field(*field)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString told = kind == QAccessible::Value ? m_field.text() : QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && told.isEmpty() ? m_field.text() : told; // a plain label is its text
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }

    QString text(int start, int end) const override { return m_field.text().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(m_field.text().size()); }

    // Shown whole, never edited: no selection, no cursor, nothing to scroll to.
    void selection(int, int *start, int *end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override { }
    void removeSelection(int) override { }
    void setSelection(int, int, int) override { }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override { }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint &) const override { return -1; }
    void scrollToSubstring(int, int) override { }
    QString attributes(int, int *start, int *end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    ReadoutField &m_field;
};

QAccessibleInterface *makeReadoutAccessible(const QString &, QObject *object)
{
    auto *field = qobject_cast<ReadoutField *>(object);
    return field ? new ReadoutAccessible(field) : nullptr;
}

} // namespace

void installReadoutAccessible()
{
    QAccessible::installFactory(makeReadoutAccessible); // once, however often it is called
}

} // namespace kest
