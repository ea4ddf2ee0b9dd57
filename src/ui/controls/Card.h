#pragma once

#include <QWidget>

namespace kest {

/// A quiet rounded ground for things that belong together.
class Card : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace kest
