#include "ui/controls/ControlButton.h"

#include "ui/TextScale.h"
#include "ui/controls/Icons.h"

#include <QEvent>
#include <QKeySequence>
#include <QPainter>
#include <QStyle>

namespace kest {

namespace {

// All at the usual text size; see textScale.
constexpr int plainHeight = 32;
constexpr int leastTextMargin = 8;
constexpr int roundSize = 38;
constexpr int ghostSize = 24;
constexpr int sidePadding = 12;
constexpr int glyphSize = 18;
constexpr int iconGap = 7;
constexpr double plainRadius = 8.0;

/// The person moves by keyboard: only then is a focus ring of use. A disabled
/// control passes its focus on as if Tab had been pressed, so the reason of a
/// focus does not tell.
bool keyboardDriven = false;

QColor translucent(QColor color, double amount)
{
    color.setAlphaF(static_cast<float>(amount));
    return color;
}

/// An unset size counts as minus one.
QSize orNothing(const QSize &extra)
{
    return extra.expandedTo({0, 0});
}

/// Arrows along a line of text turn with the direction of reading. Playing does not, as time does not.
bool pointsAlongTheText(const QString &image)
{
    return image.startsWith(u"reply") || image.startsWith(u"disclosure-closed") || image == u"undo";
}

} // namespace

ControlButton::ControlButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ControlButton::setKind(Kind kind)
{
    m_kind = kind;
    updateGeometry();
    update();
}

void ControlButton::setImage(const QString &name)
{
    m_image = name;
    update();
}

void ControlButton::setAlternateImage(const QString &name)
{
    m_alternateImage = name;
    update();
}

void ControlButton::setKeys(const QString &keys)
{
    m_keys = keys;
    updateToolTip();
}

void ControlButton::setHint(const QString &hint)
{
    m_hint = hint;
    updateToolTip();
}

void ControlButton::updateToolTip()
{
    const QString keys = QKeySequence::fromString(m_keys, QKeySequence::PortableText).toString(QKeySequence::NativeText);
    setToolTip(keys.isEmpty() ? m_hint : tr("%1 (%2)", "what a button does, its keys").arg(m_hint, keys));
}

QSize ControlButton::sizeHint() const
{
    if (m_kind == Kind::Round)
        return QSize(scaledToText(roundSize), scaledToText(roundSize)) + orNothing(extraSize());
    if (m_kind == Kind::Ghost)
        return QSize(scaledToText(ghostSize), scaledToText(ghostSize)) + orNothing(extraSize());
    int width = 2 * sidePadding;
    if (!m_image.isEmpty())
        width += scaledToText(glyphSize);
    if (!text().isEmpty())
        width += textWidth() + (m_image.isEmpty() ? 0 : iconGap);
    // Only a font larger than the main window's needs more than the plain height.
    return QSize(width, qMax(plainHeight, fontMetrics().height() + leastTextMargin)) + orNothing(extraSize());
}

int ControlButton::textWidth() const
{
    return text().isEmpty() ? 0 : fontMetrics().size(Qt::TextSingleLine | Qt::TextShowMnemonic, text()).width();
}

QColor ControlButton::fillColor() const
{
    const QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
    if (m_kind == Kind::Primary && isEnabled()) {
        const QColor accent = palette().color(QPalette::Highlight);
        return isDown() ? mixed(accent, Qt::black, 0.18) : isHovered() ? mixed(accent, Qt::black, 0.08) : accent;
    }
    if (isDown())
        return translucent(ink, 0.2);
    if (isHovered())
        return translucent(ink, 0.13);
    if (m_kind == Kind::Ghost)
        return Qt::transparent;
    return translucent(ink, isEnabled() ? 0.08 : 0.04);
}

QColor ControlButton::inkColor() const
{
    const QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
    if (!isEnabled())
        return mixed(palette().color(QPalette::Window), ink, 0.42);
    if (m_kind == Kind::Primary)
        return palette().color(QPalette::HighlightedText);
    return m_kind == Kind::Ghost && !isHovered() ? mixed(palette().color(QPalette::Window), ink, 0.72) : ink;
}

double ControlButton::radius() const
{
    return m_kind == Kind::Round ? width() / 2.0 : plainRadius;
}

QString ControlButton::shownImage() const
{
    return isDown() && !m_alternateImage.isEmpty() ? m_alternateImage : m_image;
}

void ControlButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fillColor());
    painter.drawRoundedRect(QRectF(rect()), radius(), radius());
    paintContents(painter);
    // On the highlight itself a ring of its colour would vanish.
    if (m_kind == Kind::Primary && isEnabled())
        paintFocusRing(painter, radius(), inkColor(), 3.0);
    else
        paintFocusRing(painter, radius(), lineAccent(palette()), 1.0);
}

void ControlButton::paintContents(QPainter &painter) const
{
    const QString image = shownImage();
    const int textSize = textWidth();
    const int glyph = scaledToText(glyphSize);
    const int imageWidth = image.isEmpty() ? 0 : glyph + (textSize ? iconGap : 0);
    const int left = (width() - orNothing(extraSize()).width() - imageWidth - textSize) / 2;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    if (!image.isEmpty()) {
        const QPointF middle(mirrored ? width() - left - glyph / 2.0 : left + glyph / 2.0, height() / 2.0);
        const QTransform before = painter.transform();
        painter.translate(middle);
        if (mirrored && pointsAlongTheText(image))
            painter.scale(-1, 1);
        paintIconNamed(painter, QRectF(-glyph / 2.0, -glyph / 2.0, glyph, glyph), image, inkColor());
        painter.setTransform(before);
    }
    painter.setPen(inkColor());
    const int textLeft = mirrored ? width() - left - imageWidth - textSize : left + imageWidth;
    const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
    const int mnemonic = underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.drawText(QRect(textLeft, 0, textSize + 1, height()), Qt::AlignVCenter | Qt::TextSingleLine | mnemonic,
                     text());
}

void ControlButton::paintFocusRing(QPainter &painter, double ringRadius, const QColor &color, double inset) const
{
    if (!hasFocus() || !keyboardDriven)
        return;
    painter.setPen(QPen(color, 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), ringRadius - inset,
                            ringRadius - inset);
}

bool ControlButton::event(QEvent *event)
{
    if (event->type() == QEvent::KeyPress)
        keyboardDriven = true;
    else if (event->type() == QEvent::MouseButtonPress)
        keyboardDriven = false;
    return QAbstractButton::event(event);
}

void ControlButton::enterEvent(QEnterEvent *event)
{
    m_hovered = true;
    QAbstractButton::enterEvent(event);
    update();
}

void ControlButton::leaveEvent(QEvent *event)
{
    m_hovered = false;
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace kest
