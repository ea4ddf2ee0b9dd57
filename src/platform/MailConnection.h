#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace kest {

/// How things stand between Kest and the mail application.
struct MailConnectionState {
    enum class Kind {
        Unknown,       ///< Nobody has looked yet.
        NoApplication, ///< No mail application is installed.
        Unsupported,   ///< The desktop's mail application is one that Kest has no add-on for.
        AddOnMissing,  ///< Kest's add-on is not in it.
        NotRunning,    ///< All is there; the first message starts it.
        NotConnected,  ///< It runs with the add-on, which has not come up or is switched off.
        Silent,        ///< Its helper is there but its add-on does not answer.
        OtherVersion,  ///< What is in it is of another version than this program.
        Connected,
    };

    Kind kind = Kind::Unknown;
    QString application;        ///< For people: "Thunderbird"; empty when not known.
    QStringList accounts;       ///< Names of those that can send, the default one first; where connected.
    QString version;            ///< Of what is in it, where that is another; may be empty.
    bool canInstall = false;    ///< `installAddOn` can put the add-on in.
    bool mustQuitFirst = false; ///< It runs: it is to be quitted before.

    friend bool operator==(const MailConnectionState &, const MailConnectionState &) = default;
};

/// Watches how things stand, without starting the mail application and without
/// waking up by itself: it hears who comes and goes on the bus.
///
/// Main thread.
class MailConnection : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual const MailConnectionState &state() const = 0;

    /// The person looks at it now: finds out what nobody announces (whether the
    /// add-on is installed). Reads a few small files.
    virtual void look() = 0;

    /// Puts the add-on into the person's own mail application, because they asked
    /// for it. `installEnded` follows.
    virtual void installAddOn() = 0;

Q_SIGNALS:
    void changed();

    /// `problem` is empty when the add-on is there now, else what was in the way.
    void installEnded(const QString &problem);
};

} // namespace kest
