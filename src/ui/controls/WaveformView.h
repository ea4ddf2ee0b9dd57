#pragma once

#include <QList>
#include <QWidget>

#include <optional>

namespace kest {

/// The shape of a recording, and the place in it that is heard: shows it, and
/// lets the person choose another one by pointer or keyboard. For assistive
/// technology a slider in seconds.
///
/// Knows no player. Time runs from left to right in every language.
class WaveformView : public QWidget
{
    Q_OBJECT

public:
    explicit WaveformView(QWidget *parent = nullptr);

    /// Equal parts of the recording, full scale 1; empty: not known (yet).
    void setPeaks(const QList<float> &peaks);

    /// Seconds; 0: nothing to seek in.
    void setLength(double seconds);
    double length() const { return m_length; }

    /// Seconds. While the person drags, the place under the pointer stands.
    void setPosition(double seconds);
    double position() const { return m_position; }

    /// "0:03 of 0:12".
    QString valueText() const;

    /// How far an arrow key goes, in seconds.
    double step() const;

    /// As if the person had chosen it.
    void choose(double seconds);

    QSize sizeHint() const override { return {160, 44}; }
    QSize minimumSizeHint() const override { return {40, 30}; }

Q_SIGNALS:
    /// The person chose a place, in seconds; once for every drag, at its end.
    void seekRequested(double seconds);

    /// The place on show, also while it is being dragged.
    void positionShown(double seconds);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    std::optional<double> goalOf(const QKeyEvent &event) const;
    double secondsAt(const QPointF &place) const;
    double xOf(double seconds) const;
    void show(double seconds);
    void tellAssistants();
    void paintBars(QPainter &painter, const QColor &color) const;
    float loudness(int bar, int bars) const;

    QList<float> m_peaks;
    double m_length = 0.0;
    double m_position = 0.0;
    bool m_dragging = false;
    bool m_keyboard = false; // the focus came by keyboard
};

} // namespace kest
