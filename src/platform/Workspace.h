#pragma once

#include <QObject>
#include <QUrl>

namespace kest {

/// Logical identifier of the desktop's mail application, whichever it is.
inline const QString mailApplicationIdentifier = QStringLiteral("com.apple.mail");

/// The desktop round the application.
class Workspace : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// This application's own identifier, for example "org.kest.Kest".
    virtual QString ownIdentifier() const = 0;

    /// Opens a web page or shows a folder in the desktop's own program. False
    /// when the desktop has none.
    virtual bool openURL(const QUrl &url) = 0;

    /// Tells the person something while the window is hidden, as the desktop's
    /// notices do; a later one takes the place of an earlier one. Returns at
    /// once; where the desktop shows no notices, nothing happens.
    virtual void showNotice(const QString &title, const QString &text) = 0;

    /// Takes the notice away again, when it still stands.
    virtual void withdrawNotice() = 0;

Q_SIGNALS:
    /// An application came to the front. `identifier` is `ownIdentifier()`,
    /// `mailApplicationIdentifier`, another application's own name, or empty
    /// when only that it is neither of the first two is known.
    void applicationActivated(const QString &identifier);
};

} // namespace kest
