#pragma once

#include <QComboBox>

namespace kest {

/// A choice of one among several, drawn as the other buttons are. While nothing
/// is chosen it shows its placeholder, fainter.
///
/// The wheel does not change it: a wheel that scrolls the window must not alter
/// a choice that happens to pass under the pointer.
class PopUpButton : public QComboBox
{
    Q_OBJECT

public:
    explicit PopUpButton(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    int buttonHeight() const;
};

} // namespace kest
