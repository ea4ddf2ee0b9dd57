#include "ui/controls/WaveformAccessible.h"

#include "ui/controls/WaveformView.h"

#include <QAccessibleWidget>

namespace kest {

namespace {

/// Its value in seconds, and in words as its description: the bridge hands on
/// no value text.
class WaveformAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit WaveformAccessible(WaveformView *view)
        : QAccessibleWidget(view, QAccessible::Slider)
        , m_view(*view)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value || kind == QAccessible::Description ? m_view.valueText()
                                                                              : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return m_view.position(); }
    void setCurrentValue(const QVariant &value) override
    {
        if (m_view.isEnabled() && m_view.length() > 0.0)
            m_view.choose(value.toDouble());
    }
    QVariant maximumValue() const override { return m_view.length(); }
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override { return m_view.step(); }

private:
    WaveformView &m_view;
};

QAccessibleInterface *makeWaveformAccessible(const QString &, QObject *object)
{
    auto *view = qobject_cast<WaveformView *>(object);
    return view ? new WaveformAccessible(view) : nullptr;
}

} // namespace

void installWaveformAccessible()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeWaveformAccessible);
        return true;
    }();
    Q_UNUSED(installed)
}

} // namespace kest
