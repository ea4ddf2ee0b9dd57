#include "app/UserDefaults.h"

#include "app/SettingsFile.h"
#include "platform/FileURL.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QSet>

#include <cerrno>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcSettings, "kest.settings")

// The form in which a value is kept; invalid for a type that settings do not have.
QVariant normalised(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return value;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return value.toLongLong();
    default:
        return {};
    }
}

bool same(const QVariant &a, const QVariant &b)
{
    return a.typeId() == b.typeId() && a == b;
}

bool isNumber(const QVariant &value)
{
    return value.typeId() == QMetaType::Bool || value.typeId() == QMetaType::LongLong;
}

QString cannotSave(const Error &error)
{
    return QCoreApplication::translate("kest", "Your settings could not be saved (%1). "
                                               "They hold until you quit.").arg(error.failureReason);
}

QString cannotRead(const Error &error)
{
    return QCoreApplication::translate("kest", "Your settings could not be read (%1). "
                                               "Kest uses its defaults until you quit.").arg(error.failureReason);
}

QString putAsideAs(const std::optional<QByteArray> &aside)
{
    if (!aside)
        return QCoreApplication::translate("kest", "The settings file was damaged. Kest uses its defaults until you quit.");
    const QString name = FileURL::fromNativePath(*aside).displayPath();
    return QCoreApplication::translate("kest", "The settings file was damaged and was put aside as “%1”. "
                                               "Kest starts with its defaults.").arg(name);
}

} // namespace

struct UserDefaults::Private {
    Private(UserDefaults *owner, const QString &path) : q(owner), file(FileURL::fromPath(path).nativePath()) {}

    void ensureLoaded();
    SettingsMap values() const;
    void change(const QString &key, const QVariant &value);
    void save();
    std::optional<SettingsMap> write(Error *error);
    void putDamagedAside();
    void tell(const QString &cause, const QString &message);
    void forgetSaveTroubles();

    UserDefaults *q;
    SettingsFile file;
    bool loaded = false;
    SettingsMap stored;              // what the file said when it was last read or written
    SettingsMap pending;             // set but not on disk yet; invalid means removed
    SettingsMap registered;
    QSet<QString> told;
};

void UserDefaults::Private::ensureLoaded()
{
    if (loaded)
        return;
    loaded = true;
    const auto contents = file.read();
    stored = contents.settings;
    if (contents.outcome == SettingsFile::Outcome::Damaged)
        putDamagedAside();
    if (contents.outcome == SettingsFile::Outcome::Unreadable)
        tell(QStringLiteral("unreadable"), cannotRead(contents.error));
}

SettingsMap UserDefaults::Private::values() const
{
    SettingsMap all = registered;
    all.insert(stored);
    for (auto waiting = pending.begin(); waiting != pending.end(); ++waiting)
        all.insert(waiting.key(), waiting->isValid() ? *waiting : registered.value(waiting.key()));
    return all;
}

void UserDefaults::Private::change(const QString &key, const QVariant &value)
{
    if (pending.isEmpty() && same(stored.value(key), value))
        return;
    pending.insert(key, value);
    save();
}

void UserDefaults::Private::save()
{
    if (pending.isEmpty())
        return;
    Error error;
    auto written = write(&error);
    if (!written && error.code == EBADMSG) {
        putDamagedAside();
        written = write(&error);
    }
    if (!written) {
        tell(QStringLiteral("save %1").arg(error.code), cannotSave(error));
        return;
    }
    stored = *written;
    pending.clear();
    forgetSaveTroubles();
}

std::optional<SettingsMap> UserDefaults::Private::write(Error *error)
{
    const auto applyPending = [this](SettingsMap &settings) {
        for (auto waiting = pending.begin(); waiting != pending.end(); ++waiting) {
            if (waiting->isValid())
                settings.insert(waiting.key(), *waiting);
            else
                settings.remove(waiting.key());
        }
    };
    return file.update(applyPending, error);
}

void UserDefaults::Private::putDamagedAside()
{
    tell(QStringLiteral("damaged"), putAsideAs(file.putAside()));
}

// A cause that has gone may come back, and is news again then.
void UserDefaults::Private::forgetSaveTroubles()
{
    told.removeIf([](const QString &cause) { return cause.startsWith(QStringLiteral("save ")); });
}

void UserDefaults::Private::tell(const QString &cause, const QString &message)
{
    if (told.contains(cause))
        return;
    told.insert(cause);
    qCWarning(lcSettings, "%s (%s)", qUtf8Printable(message), file.nativePath().constData());
    Q_EMIT q->troubleOccurred(message);
}

UserDefaults::UserDefaults(const QString &filePath, QObject *parent)
    : QObject(parent), d(std::make_unique<Private>(this, filePath))
{
}

UserDefaults::~UserDefaults()
{
    const QSignalBlocker nobodyListens(this);
    d->save(); // the disk may have room again
}

void UserDefaults::registerDefaults(const QList<std::pair<QString, QVariant>> &pairs)
{
    for (const auto &[key, value] : pairs)
        d->registered.insert(key, normalised(value));
}

bool UserDefaults::boolForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    return isNumber(value) && value.toLongLong() != 0;
}

qint64 UserDefaults::integerForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    return isNumber(value) ? value.toLongLong() : 0;
}

QVariant UserDefaults::objectForKey(const QString &key) const
{
    d->ensureLoaded();
    return d->values().value(key);
}

void UserDefaults::setBool(bool value, const QString &forKey)
{
    setObject(value, forKey);
}

void UserDefaults::setObject(const QVariant &value, const QString &forKey)
{
    const QVariant kept = normalised(value);
    if (value.isValid() && !kept.isValid()) {
        qCWarning(lcSettings, "No setting can hold a %s", value.typeName());
        return;
    }
    d->ensureLoaded();
    const SettingsMap before = d->values();
    d->change(forKey, kept);
    const SettingsMap after = d->values();
    // Another process may have written meanwhile, so more than the one key can be new.
    QSet<QString> keys(before.keyBegin(), before.keyEnd());
    keys.unite({ after.keyBegin(), after.keyEnd() });
    for (const QString &key : std::as_const(keys)) {
        if (!same(before.value(key), after.value(key)))
            Q_EMIT valueChanged(key);
    }
}

} // namespace kest
