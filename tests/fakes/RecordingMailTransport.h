#pragma once

#include "platform/MailTransport.h"

#include <QHash>
#include <QList>

#include <functional>

namespace kest::test {

/// A mail application in the test's own process: notes every call and answers
/// each as it is told, or with nothing.
class RecordingMailTransport : public MailTransport
{
    Q_OBJECT

public:
    using MailTransport::MailTransport;

    MailReply call(const MailCall &call) override
    {
        calls.append(call);
        setBusy(true);
        if (whileBusy)
            whileBusy(call);
        setBusy(false);
        if (const auto error = failures.constFind(call.member); error != failures.constEnd())
            return {{}, *error};
        return {{answers.value(call.member)}, std::nullopt};
    }

    bool isBusy() const override { return m_busy; }

    void inquire(Starting starting, QObject *, std::function<void(const std::optional<Error> &)> told) override
    {
        inquiries.append(starting);
        if (holdInquiries)
            held.append(std::move(told));
        else
            told(hindrance);
    }

    void setBusy(bool busy)
    {
        m_busy = busy;
        Q_EMIT busyChanged(busy);
    }

    /// One account, so that the check passes, and a path for what is made.
    void answerAsUsual()
    {
        answers[QStringLiteral("Accounts")] = QVariantList{
            QStringList{QStringLiteral("a1"), QStringLiteral("Work"), QStringLiteral("Ann <ann@example.org>")}};
        answers[QStringLiteral("MakeOutgoingMessage")] = QStringLiteral("/org/kest/Mail1/outgoing/1");
        answers[QStringLiteral("NewMessage")] = QStringLiteral("/org/kest/Mail1/outgoing/1");
        answers[QStringLiteral("Features")] = QStringList{QStringLiteral("NewMessage")};
    }

    QStringList members() const
    {
        QStringList names;
        for (const MailCall &call : calls)
            names.append(call.member);
        return names;
    }

    /// The arguments of the last call of that name; empty when there was none.
    QVariantList argumentsOf(const QString &member) const
    {
        for (auto call = calls.crbegin(); call != calls.crend(); ++call) {
            if (call->member == member)
                return call->arguments;
        }
        return {};
    }

    QList<MailCall> calls;
    QHash<QString, QVariant> answers; ///< By member.
    QHash<QString, Error> failures;   ///< By member.
    std::function<void(const MailCall &)> whileBusy;

    QList<Starting> inquiries;
    std::optional<Error> hindrance; ///< What every inquiry is told.
    bool holdInquiries = false;     ///< Then they are not answered, and wait in `held`.
    QList<std::function<void(const std::optional<Error> &)>> held;

private:
    bool m_busy = false;
};

} // namespace kest::test
