#pragma once

#include <QColor>
#include <QPixmap>
#include <QWidget>

class QPainter;

namespace kest {

class KestLevelsView;

/// A glass over the level meter that is laid out in it: rounds its ends, dims it on a dark ground, and marks where the lit
/// part ends with a line, since the bar's two colours differ in hue more than in brightness.
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
    void followLevel();
    void paintGlass();
    const QPixmap &corners(const QColor &color);
    void paintEndOfLevel(QPainter &painter) const;

    QWidget *m_corners;
    KestLevelsView *m_level = nullptr; ///< Null until one was laid out here and shown.
    QPixmap m_cornerPicture;           ///< Painted ten times a second while a recording runs, so it is kept.
    QColor m_cornerColor;
};

} // namespace kest
