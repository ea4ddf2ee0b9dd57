#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class WelcomeSheet;
}

namespace kest {

class MailConnection;
class MicrophoneTrial;
class UserDefaults;

/// What a person sees first, a sheet over the main window: whether they are
/// heard, and how the mail application is connected. Start and Escape end it,
/// whatever was tried.
///
/// It hides and comes back with the main window, whose child it is, and finishes
/// once (`QDialog::finished`). Main thread.
class WelcomeSheet : public QDialog
{
    Q_OBJECT

public:
    /// All must outlive the sheet.
    struct Dependencies {
        MicrophoneTrial &microphoneTrial;
        MailConnection &mailConnection;
        UserDefaults &userDefaults;
    };

    WelcomeSheet(const Dependencies &dependencies, QWidget *window);
    ~WelcomeSheet() override;

    /// Comes up over the window, at once or when that is shown.
    void begin();

    void done(int result) override;

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applyFonts();
    void applyColors();
    void fit();
    void showQuietly();
    void tell(const QString &words);

    std::unique_ptr<Ui::WelcomeSheet> m_ui;
};

} // namespace kest
