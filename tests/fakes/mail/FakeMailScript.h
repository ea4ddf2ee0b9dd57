#pragma once

#include "fakes/mail/FakeMailApplication.h"

#include <QObject>

namespace kest::test {

/// How a test talks to the fake: org.kest.Test.Script at /org/kest/Test.
class FakeMailScript : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kest.Test.Script")

public:
    explicit FakeMailScript(FakeMailApplication &application) : m_application(application) {}

public Q_SLOTS:
    /// Begins anew with this mailbox (a JSON object, see Mailbox::fromJson), an
    /// empty log and no troubles.
    void Configure(const QString &description);

    /// At the call with this number from now on (the next is 1): "fail" (detail:
    /// an error's last word, a space, a sentence), "delay" (detail:
    /// milliseconds), "progress" (the same, telling of a file's progress
    /// meanwhile), "hang", "garble" (detail: "texts" for an array of them),
    /// "vanish" before it is done,
    /// "vanish-unanswered" once it is done, "vanish-after" the answer, "kill"
    /// (detail: another process's id) in place of an answer.
    void At(uint number, const QString &action, const QString &detail);

    /// The calls so far: a JSON array of "Interface.Member".
    QString Log() const;

    /// The mailbox as it is now, a JSON object.
    QString State() const;

    void EmitFocus(bool gained) const;

private:
    FakeMailApplication &m_application;
};

} // namespace kest::test
