#include "fakes/mail/FakeMailScript.h"

#include <QJsonDocument>

namespace kest::test {

void FakeMailScript::Configure(const QString &description)
{
    m_application.mailbox = Mailbox::fromJson(QJsonDocument::fromJson(description.toUtf8()).object());
    m_application.log = {};
    m_application.troubles.clear();
    m_application.calls = 0;
}

void FakeMailScript::At(uint number, const QString &action, const QString &detail)
{
    m_application.troubles.insert(m_application.calls + static_cast<int>(number), {action, detail});
}

QString FakeMailScript::Log() const
{
    return QString::fromUtf8(QJsonDocument(m_application.log).toJson(QJsonDocument::Compact));
}

QString FakeMailScript::State() const
{
    return QString::fromUtf8(QJsonDocument(m_application.mailbox.toJson()).toJson(QJsonDocument::Compact));
}

void FakeMailScript::EmitFocus(bool gained) const
{
    m_application.emitSignal(gained ? QStringLiteral("FocusGained") : QStringLiteral("FocusLost"));
}

} // namespace kest::test
