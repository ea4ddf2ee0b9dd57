#pragma once

#include "platform/MailTransport.h"

#include <QByteArray>
#include <QDBusMessage>
#include <QVariantList>

#include <optional>

namespace kest {

/// D-Bus types of one member of org.kest.Mail1: what goes in and what comes
/// out. A property has its type in `out`, also for writing.
struct MailSignature {
    const char *interface;
    const char *member;
    bool isProperty;
    const char *in;
    const char *out;
};

/// All members, as resources/org.kest.Mail1.xml has them.
const QList<MailSignature> &mailSignatures();

/// Null when the interface has no such member.
const MailSignature *mailSignature(const MailCall &call);

/// The message's arguments in the types of the bus, with the files opened for
/// reading. Nothing when an argument does not fit or a file cannot be opened;
/// then `error` says why.
std::optional<QVariantList> busArguments(const MailSignature &signature, const MailCall &call, Error *error);

/// The plain values of an answer. Nothing when it has other types than the
/// interface says.
std::optional<QVariantList> plainValues(const MailSignature &signature, const QDBusMessage &answer);

} // namespace kest
