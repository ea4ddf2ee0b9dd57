#include "mail/MailObject.h"

#include "mail/MailApplication.h"

namespace kest {

QVariantList MailObject::call(const QString &member, const QVariantList &arguments) const
{
    if (!exists())
        return {};
    return application->sendEvent({path, interface, member, MailCall::Kind::Method, arguments});
}

QVariant MailObject::read(const QString &property) const
{
    if (!exists())
        return {};
    return application->sendEvent({path, interface, property, MailCall::Kind::ReadProperty, {}}).value(0);
}

void MailObject::write(const QString &property, const QVariant &value) const
{
    if (exists())
        application->sendEvent({path, interface, property, MailCall::Kind::WriteProperty, {value}});
}

} // namespace kest
