#include "mail/Attachment.h"

namespace kest {

FileURL fileURLFromVariant(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<FileURL>())
        return value.value<FileURL>();
    return value.metaType() == QMetaType::fromType<QString>() ? FileURL::fromPath(value.toString()) : FileURL();
}

Attachment Attachment::initWithProperties(const QVariantMap &properties)
{
    return Attachment(fileURLFromVariant(properties.value(QStringLiteral("fileName"))));
}

} // namespace kest
