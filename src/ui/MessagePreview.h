#pragma once

#include <QWidget>

class QTextCursor;
class QTextEdit;

namespace kest {

struct MessageDraft;
class ReadoutField;

/// Shows what a message will look like: its subject, its text, and the
/// recording at its place in the text. Made from the draft that is sent, so it
/// cannot differ from it.
///
/// Assistive technology reads all of it as the description.
class MessagePreview : public QWidget
{
    Q_OBJECT

public:
    explicit MessagePreview(QWidget *parent = nullptr);

    void show(const QString &subject, const MessageDraft &draft);
    using QWidget::show;

    /// All that is shown, in words; the attachment as its name in brackets.
    const QString &text() const { return m_text; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fill();
    void applyFont();
    void applyColors();
    void insertRecording(QTextCursor &cursor);

    ReadoutField *m_subject;
    QWidget *m_line;
    QTextEdit *m_body;
    QString m_before;
    QString m_after;
    QString m_attachment;
    QString m_text;
};

} // namespace kest
