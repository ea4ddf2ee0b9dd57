#pragma once

#include <QWidget>

namespace kest {

/// Rounds the ends of the plain bar that is laid out in it, and dims it on a
/// dark ground: a glass lies over it.
class MeterFrame : public QWidget
{
    Q_OBJECT

public:
    explicit MeterFrame(QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_corners;
};

} // namespace kest
