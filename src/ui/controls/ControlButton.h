#pragma once

#include <QAbstractButton>

namespace kest {

/// A push button that draws itself from the palette, so that it looks the same
/// under every style: an icon, a caption, or both.
class ControlButton : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(Kind kind READ kind WRITE setKind)
    Q_PROPERTY(QString image READ image WRITE setImage)
    Q_PROPERTY(QString alternateImage READ alternateImage WRITE setAlternateImage)
    Q_PROPERTY(QString keys READ keys WRITE setKeys)
    Q_PROPERTY(QString hint READ hint WRITE setHint)

public:
    enum class Kind {
        Plain,   ///< A quiet filled button.
        Primary, ///< The next step: filled with the palette's highlight.
        Round,   ///< A quiet filled circle, icon only.
        Ghost,   ///< Nothing but its icon until the pointer is over it.
    };
    Q_ENUM(Kind)

    explicit ControlButton(QWidget *parent = nullptr);

    Kind kind() const { return m_kind; }
    void setKind(Kind kind);

    /// Name of the icon; empty for none.
    const QString &image() const { return m_image; }
    void setImage(const QString &name);

    /// Name of the icon while the button is held down; empty: the same one.
    const QString &alternateImage() const { return m_alternateImage; }
    void setAlternateImage(const QString &name);

    /// The key sequence that clicks the button (portable text). The button only
    /// shows it; whoever connects the keys reads it here.
    const QString &keys() const { return m_keys; }
    void setKeys(const QString &keys);

    /// The tooltip without its shortcut.
    const QString &hint() const { return m_hint; }
    void setHint(const QString &hint);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

    virtual QString shownImage() const;
    virtual QSize extraSize() const { return {}; }

    QColor fillColor() const;
    QColor inkColor() const;
    bool isHovered() const { return m_hovered && isEnabled(); }
    /// A ring of `color`, `inset` points within the edge, while the keyboard has the focus here.
    void paintFocusRing(QPainter &painter, double radius, const QColor &color, double inset) const;

private:
    void paintContents(QPainter &painter) const;
    int textWidth() const;
    void updateToolTip();
    double radius() const;

    Kind m_kind = Kind::Plain;
    QString m_image;
    QString m_alternateImage;
    QString m_keys;
    QString m_hint;
    bool m_hovered = false;
};

} // namespace kest
