#pragma once

#include <QList>
#include <QPainterPath>
#include <QWidget>

namespace kest {

/// The level meter: a plain bar whose left part is lit. Told levels by its
/// owner; knows no recorder and takes no input.
class KestLevelsView : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(quint64 dotCount READ dotCount WRITE setDotCount)
    Q_PROPERTY(quint64 whiteDotCount READ whiteDotCount WRITE setWhiteDotCount)
    Q_PROPERTY(double dotWidth READ dotWidth WRITE setDotWidth)
    Q_PROPERTY(double dotOffset READ dotOffset WRITE setDotOffset)
    Q_PROPERTY(double powerFraction READ powerFraction WRITE setPowerFraction NOTIFY powerFractionChanged)

public:
    explicit KestLevelsView(QWidget *parent = nullptr);

    /// `level` in dBFS. -70 and below leave the bar unlit, 0 and above light all
    /// of it; linear in decibels between.
    void updatePowerLevel(float level);

    /// The lit share of the width, 0.0 to 1.0.
    double powerFraction() const { return m_powerFraction; }
    void setPowerFraction(double fraction);

    /// Kept for a meter of dots. No drawing depends on them.
    quint64 dotCount() const { return m_dotCount; }
    void setDotCount(quint64 count) { m_dotCount = count; }
    quint64 whiteDotCount() const { return m_whiteDotCount; }
    void setWhiteDotCount(quint64 count) { m_whiteDotCount = count; }
    double dotWidth() const { return m_dotWidth; }
    void setDotWidth(double width) { m_dotWidth = width; }
    double dotOffset() const { return m_dotOffset; }
    void setDotOffset(double offset) { m_dotOffset = offset; }
    const QList<QPainterPath> &bezierArray() const { return m_bezierArray; }
    void setBezierArray(const QList<QPainterPath> &paths) { m_bezierArray = paths; }

Q_SIGNALS:
    void powerFractionChanged(double fraction);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    quint64 m_dotCount = 0;
    quint64 m_whiteDotCount = 0;
    double m_dotWidth = 0.0;
    double m_dotOffset = 0.0;
    QList<QPainterPath> m_bezierArray;
    double m_powerFraction = 0.0;
};

} // namespace kest
