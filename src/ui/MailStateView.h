#pragma once

#include <QWidget>

class QLabel;

namespace kest {

class ControlButton;
class MailConnection;
class UserDefaults;

/// How things stand with the mail application, in words, and the button that
/// mends them where one can. Looks whenever it comes into view, and when the
/// person turns to its window.
class MailStateView : public QWidget
{
    Q_OBJECT

public:
    explicit MailStateView(QWidget *parent = nullptr);

    /// Shows this connection, with the account that the settings name. Both must
    /// outlive the view. Call once.
    void watch(MailConnection &connection, UserDefaults &settings);

    QString text() const;

    /// For the tab order; not always shown. The view itself takes no focus: one that hands it on to a hidden button would
    /// hold the keyboard there.
    QWidget *button() const;

Q_SIGNALS:
    /// Installing the add-on has ended; `words` say how.
    void installTold(const QString &words);

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showState();
    void breakLines();
    void look();
    void install();
    void installEnded(const QString &problem);

    QLabel *m_words;
    ControlButton *m_button;
    MailConnection *m_connection = nullptr; // null until `watch`
    UserDefaults *m_settings = nullptr;
};

} // namespace kest
