#include "ui/MessagePreview.h"

#include "mail/MessageDraft.h"
#include "ui/TextScale.h"
#include "ui/controls/Icons.h"
#include "ui/controls/ReadoutField.h"

#include <QEvent>
#include <QFrame>
#include <QPainter>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

namespace kest {

namespace {

constexpr int glyphSize = 14;
constexpr int chipPadding = 8;
constexpr int platePadding = 6;

// The texts of a fresh installation are seen whole.
constexpr int leastLines = 7;

constexpr double sheetRadius = 6.0;

/// The recording as a small plate with a paper clip.
QImage attachmentPlate(const QString &name, const QFont &font, const QPalette &palette, double scale)
{
    const QFontMetrics metrics(font);
    const int glyph = scaledToText(glyphSize);
    const QSize size(metrics.horizontalAdvance(name) + glyph + 2 * chipPadding + 4, metrics.height() + platePadding);
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette.color(QPalette::Text);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.18));
    painter.drawRoundedRect(QRectF(QPointF(), QSizeF(size)), 6.0, 6.0);
    paintIconNamed(painter, QRectF(chipPadding - 1, (size.height() - glyph) / 2.0, glyph, glyph),
                   QStringLiteral("attach"), ink);
    painter.setPen(ink);
    painter.setFont(font);
    painter.drawText(QRect(chipPadding + glyph + 3, 0, size.width(), size.height()), Qt::AlignVCenter, name);
    return image;
}

} // namespace

MessagePreview::MessagePreview(QWidget *parent)
    : QWidget(parent)
    , m_subject(new ReadoutField(this))
    , m_line(new QWidget(this))
    , m_body(new QTextEdit(this))
{
    setAutoFillBackground(false);
    m_subject->setElided(true);
    m_subject->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_line->setFixedHeight(1);
    m_line->setAutoFillBackground(true);
    m_body->setAccessibleName(tr("Text of the Message"));
    m_body->setReadOnly(true);
    m_body->setFrameShape(QFrame::NoFrame);
    m_body->setFocusPolicy(Qt::NoFocus);
    m_body->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_body->viewport()->setAutoFillBackground(false);
    m_body->document()->setDocumentMargin(0);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 10);
    layout->setSpacing(8);
    layout->addWidget(m_subject);
    layout->addWidget(m_line);
    layout->addWidget(m_body, 1);
    applyFont();
    applyColors();
}

void MessagePreview::show(const QString &subject, const MessageDraft &draft)
{
    const auto place = static_cast<qsizetype>(draft.insertionIndex);
    m_subject->setText(subject);
    m_subject->setToolTip(subject);
    m_before = draft.body.left(place);
    m_after = draft.body.mid(place);
    m_attachment = draft.attachment ? draft.attachment->lastPathComponent() : QString();
    m_text = subject + QStringLiteral("\n\n") + m_before + (m_attachment.isEmpty() ? QString() : u'[' + m_attachment + u']') + m_after;
    setAccessibleDescription(m_text);
    fill();
}

void MessagePreview::fill()
{
    m_body->clear();
    QTextCursor cursor(m_body->document());
    cursor.insertText(m_before);
    if (!m_attachment.isEmpty())
        insertRecording(cursor);
    cursor.insertText(m_after);
    m_body->verticalScrollBar()->setValue(0);
}

void MessagePreview::insertRecording(QTextCursor &cursor)
{
    cursor.insertImage(attachmentPlate(m_attachment, font(), palette(), devicePixelRatioF()),
                       QStringLiteral("recording"));
    // What follows it in the message stands on a line of its own, as mail applications show attachments.
    if (!m_after.isEmpty())
        cursor.insertBlock();
}

void MessagePreview::applyColors()
{
    const QColor ink = palette().color(QPalette::Text);
    QPalette line = palette();
    line.setColor(QPalette::Window, mixed(palette().color(QPalette::Base), ink, 0.12));
    m_line->setPalette(line);
    m_subject->setTextColor(ink);
    fill();
}

void MessagePreview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()), sheetRadius, sheetRadius);
}

void MessagePreview::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        applyFont();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        applyColors();
}

void MessagePreview::applyFont()
{
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    m_subject->setFont(bold);
    m_body->setMinimumHeight(fontMetrics().lineSpacing() * leastLines + platePadding + 2);
}

} // namespace kest
