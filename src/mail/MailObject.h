#pragma once

#include <QString>
#include <QVariantList>

namespace kest {

class MailApplication;

/// Where the calls to one object of the mail application go.
///
/// A value; the application outlives it. Without a path there is no object:
/// then nothing is sent, every result is empty, and the application's
/// `lastError` stays what it was.
struct MailObject {
    MailApplication *application = nullptr;
    QString interface;
    QString path;

    bool exists() const { return application && !path.isEmpty(); }

    /// The values of the answer; empty when the call failed.
    QVariantList call(const QString &member, const QVariantList &arguments = {}) const;

    /// The property's value; invalid when the call failed.
    QVariant read(const QString &property) const;

    void write(const QString &property, const QVariant &value) const;
};

} // namespace kest
