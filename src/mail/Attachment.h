#pragma once

#include "platform/FileURL.h"

#include <QObject>
#include <QVariantMap>

namespace kest {

/// A file to attach: an object of the scripting class "attachment". Exists only
/// here until it is inserted into a message's characters.
class Attachment
{
    Q_GADGET

public:
    Attachment() = default;
    explicit Attachment(FileURL fileName) : m_fileName(std::move(fileName)) {}

    /// Reads the property "fileName": a FileURL, or a path as FileURL::path()
    /// gives it.
    static Attachment initWithProperties(const QVariantMap &properties);

    const FileURL &fileName() const { return m_fileName; }

private:
    FileURL m_fileName;
};

/// The file that `value` names: a FileURL or a path text; else no location.
FileURL fileURLFromVariant(const QVariant &value);

} // namespace kest
