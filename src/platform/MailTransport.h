#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

#include <QObject>
#include <QString>
#include <QVariantList>

#include <functional>
#include <optional>

namespace kest {

/// One scripting call: a method of an object that the mail application offers,
/// or the reading ("Get") or writing ("Set") of one of its properties. The
/// vocabulary is resources/org.kest.Mail1.xml.
///
/// Arguments, and the values of a MailReply, are plain: an object path is a
/// QString, a list of them a QStringList, a structure of texts a QStringList,
/// a list of structures a QVariantList, an index a quint64. A descriptor is a
/// MailFile; a list of name and descriptor is a QVariantList of MailFile.
struct MailCall {
    QString objectPath; ///< "/org/kest/Mail1" or an object under it.
    QString interface;  ///< "org.kest.Mail1.Application", ".Message", ".OutgoingMessage".
    QString member;     ///< The method's or property's name.
    enum class Kind { Method, ReadProperty, WriteProperty } kind = Kind::Method;
    QVariantList arguments;
};

/// A file that travels with a call: opened by the transport, sent as a
/// descriptor, so the mail application never sees a path.
struct MailFile {
    FileURL file;

    /// What the attachment is called: the file's name. Bytes that are no UTF-8
    /// become U+FFFD, and a name that grows beyond the 255 bytes of a file name
    /// by that is cut, but for its extension.
    QString name() const;
};

/// The answer to one call. `error` is set when the call failed; then `values`
/// is empty.
struct MailReply {
    QVariantList values;
    std::optional<Error> error;
};

/// Carries scripting calls to the mail application.
///
/// Lives on the main thread. A call returns when the mail application answered
/// or the time limit passed; meanwhile the window paints but takes no input,
/// and no second call can begin (it fails at once). When no mail application
/// serves the interface, the first call starts one and waits for it.
class MailTransport : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual MailReply call(const MailCall &call) = 0;

    /// True while a call is under way.
    virtual bool isBusy() const = 0;

    /// Whether an inquiry starts a mail application when none serves the
    /// interface.
    enum class Starting { Never, WhereNone };

    /// Finds out in the background whether a mail application answers, so that
    /// the next call will not keep the person waiting. `told` is called once,
    /// on the main thread, unless `context` is destroyed first: with nothing
    /// when one answers, else with what is in the way. It may be called before
    /// this returns.
    virtual void inquire(Starting starting, QObject *context,
                         std::function<void(const std::optional<Error> &hindrance)> told) = 0;

Q_SIGNALS:
    void busyChanged(bool busy);

    /// A long hand-over moves on, in bytes.
    void handOverProgressed(qint64 done, qint64 total);

    /// The mail application's windows gained or lost the keyboard focus.
    void mailApplicationFocusGained();
    void mailApplicationFocusLost();

    /// A mail application began or ceased to serve the interface.
    void mailApplicationAppeared(const QString &name);
    void mailApplicationVanished();

    /// A call failed for a reason that would fail every other call too: no mail
    /// application, no add-on in it, halves of different versions, no bus.
    /// `error` says in words what the person can do.
    void mailApplicationUnreachable(const kest::Error &error);
};

} // namespace kest

Q_DECLARE_METATYPE(kest::MailFile)
