#pragma once

#include <QLabel>

namespace kest {

/// A text field that only shows: the time, the input device, the notice.
/// Assistive technology reads its text beside its name. Text and tooltip show as
/// they stand: they may come from outside, and markup in them would load files.
class ReadoutField : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(bool tabular READ tabular WRITE setTabular)
    Q_PROPERTY(QString image READ image WRITE setImage)
    Q_PROPERTY(bool elided READ elided WRITE setElided)
    Q_PROPERTY(Qt::TextElideMode elideMode READ elideMode WRITE setElideMode)

public:
    explicit ReadoutField(QWidget *parent = nullptr);

    /// Every character stands in a cell as wide as the widest digit, so that a
    /// running time does not tremble.
    bool tabular() const { return m_tabular; }
    void setTabular(bool tabular);

    /// Name of an icon in front of the text, shown while there is a text.
    const QString &image() const { return m_image; }
    void setImage(const QString &name);

    /// A text that is too long ends in an ellipsis; its tooltip has all of it.
    bool elided() const { return m_elided; }
    void setElided(bool elided);

    /// Where the ellipsis stands; at the right unless set.
    Qt::TextElideMode elideMode() const { return m_elideMode; }
    void setElideMode(Qt::TextElideMode mode);

    void setTextColor(const QColor &color);
    QColor textColor() const { return palette().color(QPalette::WindowText); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void paintTabular();
    void paintPlain();
    int cellWidth() const;

    bool m_tabular = false;
    bool m_elided = false;
    Qt::TextElideMode m_elideMode = Qt::ElideRight;
    QString m_image;
};

} // namespace kest
