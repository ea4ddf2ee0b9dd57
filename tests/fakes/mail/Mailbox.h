#pragma once

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QPair>
#include <QString>

namespace kest::test {

using Addresses = QList<QPair<QString, QString>>; // name and address

struct Attached {
    QString name;
    QByteArray bytes;
    quint64 index = 0; ///< As it was asked for.
};

/// A message that is being written.
struct Outgoing {
    QString subject;
    QString content;
    QString sender;
    bool visible = false;
    Addresses to;
    Addresses cc;
    Addresses bcc;
    QList<Attached> attachments; // in the order of the content

    /// At its index, in front of those that are there already; an index beyond
    /// the end of the content means the end.
    void insert(Attached attachment);
};

/// A message that lies in a folder, and what the reply to all of it looks like.
struct Received {
    QString subject;
    QString replyTo;
    QString quote;
    QString replySender;
    Addresses to; ///< The first is who wrote it: a plain reply goes there alone.
    Addresses cc;
    Addresses bcc;
};

/// All that the fake mail application holds.
struct Mailbox {
    QList<QStringList> accounts; // identifier, name, sender
    QMap<QString, Received> messages; // by object path
    QStringList selection;
    QStringList features;
    uint protocolVersion = 1;
    QMap<QString, Outgoing> outgoing; // by object path
    QStringList sent;                 // object paths
    QStringList deleted;              // object paths
    int activations = 0;
    int made = 0;

    /// A mailbox from what a test describes; keys that are absent keep what a
    /// plain account with one selected message would have.
    static Mailbox fromJson(const QJsonObject &description);

    /// Everything, for a test to look at.
    QJsonObject toJson() const;

    /// The path of the new outgoing message.
    QString add(const Outgoing &message);

    Outgoing replyTo(const Received &message, bool replyToAll) const;

    bool hasIdentity(const QString &sender) const;
    QString senderOfAccount(const QString &name) const;
};

} // namespace kest::test
