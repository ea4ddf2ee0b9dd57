#include "ui/MainWindowAccessible.h"

#include "audio/KestLevelsView.h"

#include <QAccessibleWidget>

namespace kest {

namespace {

class LevelAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit LevelAccessible(KestLevelsView *view)
        : QAccessibleWidget(view, QAccessible::ProgressBar)
        , m_view(*view)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }

    QVariant currentValue() const override { return qRound(m_view.powerFraction() * 100.0); }
    void setCurrentValue(const QVariant &) override { } // a meter is only read
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    KestLevelsView &m_view;
};

QAccessibleInterface *makeMainWindowAccessible(const QString &, QObject *object)
{
    if (auto *level = qobject_cast<KestLevelsView *>(object))
        return new LevelAccessible(level);
    auto *widget = qobject_cast<QWidget *>(object);
    // A plain widget that is a window would be taken for a mere container of others.
    const bool isMainWindow = widget && widget->isWindow() && widget->metaObject() == &QWidget::staticMetaObject
        && widget->windowType() == Qt::Window;
    return isMainWindow ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

} // namespace

void installMainWindowAccessible()
{
    QAccessible::installFactory(makeMainWindowAccessible); // once, however often it is called
}

} // namespace kest
