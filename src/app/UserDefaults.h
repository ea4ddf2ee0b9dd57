#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QVariant>

#include <memory>

namespace kest {

/// The settings: what the person chose, on disk, over a layer of defaults that
/// is registered anew at every start and never written.
///
/// Values are read at the point of use and not kept by callers. Main thread.
class UserDefaults : public QObject
{
    Q_OBJECT

public:
    /// The settings in the file at `filePath`, which need not exist.
    explicit UserDefaults(const QString &filePath, QObject *parent = nullptr);
    ~UserDefaults() override;

    /// Adds to the registered layer; a later pair replaces an earlier one with
    /// the same key.
    void registerDefaults(const QList<std::pair<QString, QVariant>> &pairs);

    /// False when there is no value, or one that is no boolean.
    bool boolForKey(const QString &key) const;

    /// 0 when there is no value, or one that is no integer.
    qint64 integerForKey(const QString &key) const;

    /// The value, or an invalid variant when there is none.
    QVariant objectForKey(const QString &key) const;

    void setBool(bool value, const QString &forKey);

    /// Stores a value on disk before it returns. An invalid one removes the
    /// person's own value, so that the registered one shows again.
    void setObject(const QVariant &value, const QString &forKey);

Q_SIGNALS:
    void valueChanged(const QString &key);

    /// The settings could not be saved, or the file was damaged and was put
    /// aside. `message` is for the person. Each cause is told once.
    void troubleOccurred(const QString &message);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace kest
