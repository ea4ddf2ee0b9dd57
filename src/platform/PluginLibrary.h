#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace kest {

/// A plugin file of ours, loaded when it is first asked for and never unloaded.
///
/// One thread at a time.
class PluginLibrary
{
public:
    /// `file` is a name such as "kest-encoder.so"; it is looked for where this
    /// program lies and where it was installed. An absolute path is taken as it
    /// stands.
    explicit PluginLibrary(const QByteArray &file);

    /// The C function of that name; null when there is none, with the reason in
    /// `problem`.
    void *entry(const char *name, QString *problem);

private:
    void *load(const QByteArray &file, const char *name);

    const QList<QByteArray> m_candidates;
    void *m_entry = nullptr;
    QString m_problem;
};

} // namespace kest
