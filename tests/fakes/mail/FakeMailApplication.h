#pragma once

#include "fakes/mail/Mailbox.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QJsonArray>
#include <QMap>

#include <optional>

namespace kest::test {

/// A mail application that offers org.kest.Mail1 and does what a test tells it:
/// it can fail, wait, hang, answer nonsense or vanish at the n-th call.
class FakeMailApplication : public QDBusVirtualObject
{
    Q_OBJECT

public:
    explicit FakeMailApplication(const QDBusConnection &bus);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    void emitSignal(const QString &name, const QVariantList &arguments = {}) const;

    /// What is to happen at one call.
    struct Trouble {
        QString action;
        QString detail;
    };

    Mailbox mailbox;
    QJsonArray log;
    QMap<int, Trouble> troubles; ///< By number of the call, counted from 1.
    int calls = 0;

private:
    struct Request {
        QString path;
        QString interface; ///< Its last word.
        QString member;
        QVariantList arguments;
        enum Kind { Method, Get, Set, GetAll } kind = Method;
    };

    /// Values, or the last word of an error's name and a sentence.
    struct Outcome {
        QVariantList values;
        QString errorName = {};
        QString errorWords = {};
    };

    static Request requestFrom(const QDBusMessage &message);
    static bool isWellFormed(const Request &request, const QDBusMessage &message);
    bool countsAsCall(const Request &request) const;

    Outcome carryOut(const Request &request);

    /// Outlives this process, for who wants to know what was done before it went.
    static void writeDown(const Request &request);
    Outcome forApplication(const Request &request);
    Outcome forMessage(const Request &request);
    Outcome forOutgoing(const Request &request);
    Outcome applicationProperty(const QString &name) const;
    Outcome outgoingProperty(const Outgoing &message, const QString &name) const;
    Outcome setOutgoingProperty(Outgoing &message, const QString &name, const QVariant &value) const;
    Outcome allProperties(const Request &request);
    Outcome newMessage(const QVariantList &arguments);
    Outcome reply(const QVariantList &arguments);
    bool attachAll(Outgoing &message, const QVariant &files, quint64 index) const;
    std::optional<QByteArray> contents(int descriptor) const;

    QDBusConnection m_bus;
};

} // namespace kest::test
