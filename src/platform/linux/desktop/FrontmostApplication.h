#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

namespace kest {

/// Puts together what several witnesses say about which application is in
/// front, and announces changes.
///
/// The display server's word counts most, where it names a window; else this
/// application's own word, else the mail application's. When none of them
/// claims the front for 250 ms, another application has it. What is so when
/// watching begins is no change. Main thread.
class FrontmostApplication : public QObject
{
    Q_OBJECT

public:
    enum class Owner { Own, Mail, Other };

    /// The window in front, by the display server.
    struct ActiveWindow {
        Owner owner = Owner::Other;
        QString application; ///< Another application's own name.
    };

    explicit FrontmostApplication(const QString &ownIdentifier, QObject *parent = nullptr);

    /// Nobody in front for so long means another application.
    static constexpr std::chrono::milliseconds grace { 250 };

    void setOwnActive(bool active);
    void setMailFocused(bool focused);

    /// Nothing where the display server names no window, or there is none to ask.
    void setActiveWindow(const std::optional<ActiveWindow> &window);

    /// Takes the present state as known.
    void begin();

Q_SIGNALS:
    /// As Workspace::applicationActivated has it.
    void activated(const QString &identifier);

private:
    void consider();
    void announce();
    QString identifier() const;
    Owner owner() const;

    const QString m_ownIdentifier;
    bool m_ownActive = false;
    bool m_mailFocused = false;
    std::optional<ActiveWindow> m_window;
    bool m_begun = false;
    QString m_announced;
    QTimer m_graceTimer;
};

} // namespace kest
