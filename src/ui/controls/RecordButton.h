#pragma once

#include "ui/controls/ControlButton.h"

namespace kest {

/// The record control: a red disc with a microphone, and a ring round it while
/// a recording is on.
class RecordButton : public ControlButton
{
    Q_OBJECT
    Q_PROPERTY(bool onAir READ onAir WRITE setOnAir)
    Q_PROPERTY(bool held READ held WRITE setHeld)

public:
    explicit RecordButton(QWidget *parent = nullptr);

    /// A recording is on; then the button looks lit rather than disabled.
    bool onAir() const { return m_onAir; }
    void setOnAir(bool onAir);

    /// The recording is held: the ring stays, the disc fades.
    bool held() const { return m_held; }
    void setHeld(bool held);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor discColor() const;

    bool m_onAir = false;
    bool m_held = false;
};

} // namespace kest
