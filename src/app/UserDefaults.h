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
/// Values are read at the point of use and not kept by callers. What cannot be
/// saved holds until the end and is saved with the next change, or at the end,
/// when that works again. Two processes may share the file: a change of one key
/// keeps what the other one wrote under other keys. Main thread.
class UserDefaults : public QObject
{
    Q_OBJECT

public:
    /// The settings in the file at `filePath`, an absolute path; neither file
    /// nor folder need exist. The file is read at the first use of a value, so
    /// connect to `troubleOccurred` before that.
    explicit UserDefaults(const QString &filePath, QObject *parent = nullptr);
    ~UserDefaults() override;

    /// Adds to the registered layer; a later pair replaces an earlier one with
    /// the same key.
    void registerDefaults(const QList<std::pair<QString, QVariant>> &pairs);

    /// False when there is no value, or one that is neither a boolean nor a
    /// number; a number is true when it is not 0.
    bool boolForKey(const QString &key) const;

    /// 0 when there is no value, or one that is neither an integer nor a
    /// boolean; true is 1.
    qint64 integerForKey(const QString &key) const;

    /// The value (bool, qint64, QString or QByteArray), or an invalid variant
    /// when there is none.
    QVariant objectForKey(const QString &key) const;

    void setBool(bool value, const QString &forKey);

    /// Stores a value on disk before it returns. An invalid one removes the
    /// person's own value, so that the registered one shows again. Other types
    /// than those above are refused and logged.
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
