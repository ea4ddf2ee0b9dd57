#include "ui/controls/ReadoutField.h"

#include "ui/TextScale.h"
#include "ui/controls/Icons.h"
#include "ui/controls/ReadoutAccessible.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace kest {

namespace {

constexpr int glyphSize = 14;
constexpr int iconGap = 3;
const QString widestTime = QStringLiteral("00:00");

bool isFromRightToLeft(QChar character)
{
    return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
}

/// Names of files, sizes and paths run from left to right in every language; a sentence of a language that does not has its
/// letters in it.
Qt::LayoutDirection directionOf(const QString &text, Qt::LayoutDirection ofField)
{
    const bool isPath = text.startsWith(u'/') || text.startsWith(u'~');
    return isPath || std::none_of(text.cbegin(), text.cend(), isFromRightToLeft) ? Qt::LeftToRight : ofField;
}

} // namespace

ReadoutField::ReadoutField(QWidget *parent)
    : QLabel(parent)
{
    installReadoutAccessible();
    setTextFormat(Qt::PlainText);
}

void ReadoutField::setTabular(bool tabular)
{
    m_tabular = tabular;
    updateGeometry();
    update();
}

void ReadoutField::setImage(const QString &name)
{
    m_image = name;
    updateGeometry();
    update();
}

void ReadoutField::setElided(bool elided)
{
    m_elided = elided;
    updateGeometry();
    update();
}

void ReadoutField::setElideMode(Qt::TextElideMode mode)
{
    m_elideMode = mode;
    update();
}

void ReadoutField::setTextColor(const QColor &color)
{
    QPalette changed = palette();
    changed.setColor(QPalette::WindowText, color);
    setPalette(changed);
}

int ReadoutField::cellWidth() const
{
    int widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = qMax(widest, fontMetrics().horizontalAdvance(QChar(digit)));
    return widest;
}

QSize ReadoutField::sizeHint() const
{
    const int height = fontMetrics().height();
    if (m_tabular)
        return {cellWidth() * static_cast<int>(qMax(text().size(), widestTime.size())), height};
    const int image = m_image.isEmpty() || text().isEmpty() ? 0 : scaledToText(glyphSize) + iconGap;
    return {fontMetrics().horizontalAdvance(text()) + image, height};
}

QSize ReadoutField::minimumSizeHint() const
{
    return m_elided ? QSize(0, fontMetrics().height()) : sizeHint();
}

bool ReadoutField::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !Qt::mightBeRichText(toolTip()))
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), Qt::convertFromPlainText(toolTip()), this);
    return true;
}

void ReadoutField::paintEvent(QPaintEvent *)
{
    if (m_tabular)
        paintTabular();
    else
        paintPlain();
}

void ReadoutField::paintTabular()
{
    QPainter painter(this);
    const QString shown = text();
    const bool placeholder = std::none_of(shown.cbegin(), shown.cend(), [](QChar each) { return each.isDigit(); });
    painter.setPen(textColor());
    painter.setOpacity(placeholder ? 0.5 : 1.0);
    const int cell = cellWidth();
    // What is no digit is narrower and needs no whole cell.
    const int narrow = qRound(cell * 0.6);
    int x = 0;
    for (const QChar character : shown) {
        const int width = character.isDigit() ? cell : narrow;
        painter.drawText(QRect(x, 0, width, height()), Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip,
                         QString(character));
        x += width;
    }
}

void ReadoutField::paintPlain()
{
    if (text().isEmpty())
        return;
    QPainter painter(this);
    QRect place = rect();
    if (!m_image.isEmpty()) {
        const bool mirrored = layoutDirection() == Qt::RightToLeft;
        const int glyph = scaledToText(glyphSize);
        paintIconNamed(painter, QRectF(mirrored ? width() - glyph : 0, (height() - glyph) / 2.0, glyph, glyph),
                       m_image, textColor());
        place.adjust(mirrored ? 0 : glyph + iconGap, 0, mirrored ? -glyph - iconGap : 0, 0);
    }
    painter.setPen(textColor());
    painter.setLayoutDirection(directionOf(text(), layoutDirection()));
    const QString shown = m_elided ? fontMetrics().elidedText(text(), m_elideMode, place.width()) : text();
    painter.drawText(place, static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) | Qt::TextSingleLine,
                     shown);
}

} // namespace kest
