#pragma once

#include "platform/linux/sound/EncoderPlugin.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <mutex>

namespace kest {

/// Loads the encoder plugin once, when it is first wanted.
///
/// Loading takes some tens of milliseconds and pulls in many libraries, so it
/// happens on a worker thread. Any thread; a second caller waits for the first.
class EncoderLoader
{
public:
    /// Looks for the plugin where this program lies and where it was installed.
    EncoderLoader();

    /// For tests: a plugin file elsewhere.
    explicit EncoderLoader(QByteArray pluginFile);
    virtual ~EncoderLoader() = default;
    EncoderLoader(const EncoderLoader &) = delete;
    EncoderLoader &operator=(const EncoderLoader &) = delete;

    /// The plugin, which stays loaded; null when it cannot be had, with the
    /// reason in `problem`.
    virtual EncoderPlugin *load(QString *problem);

private:
    EncoderPlugin *open(const QByteArray &file);

    const QList<QByteArray> m_candidates;
    std::mutex m_mutex;
    EncoderPlugin *m_plugin = nullptr;
    QString m_problem;
};

} // namespace kest
