#pragma once

#include "platform/linux/sound/DefaultSourceCheck.h"
#include "platform/linux/sound/PulseSource.h"
#include "platform/linux/sound/PulseThread.h"

#include <QString>

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace kest {

/// Hears about the connection. Called on the PulseThread.
class PulseContextListener
{
public:
    virtual ~PulseContextListener() = default;

    /// What is known about the sources is new, or known for the first time.
    virtual void sourcesChanged() = 0;

    /// The server cannot be reached, or no longer.
    virtual void contextLost() = 0;
};

/// The connection to the sound server.
///
/// Connects in the background soon after it is made, notices what the server
/// announces, and connects anew after a server died. `sources` may be called
/// from any thread and answers at once; everything else is for the PulseThread.
class PulseContext
{
public:
    /// `applicationName` is what the desktop's sound settings show; `pluginFile`,
    /// as PluginLibrary takes it, has libpulse.
    PulseContext(QString applicationName, const QByteArray &pluginFile);
    ~PulseContext();
    PulseContext(const PulseContext &) = delete;
    PulseContext &operator=(const PulseContext &) = delete;

    PulseThread &thread() { return m_thread; }

    /// Any thread: what the server last announced.
    PulseSources sources() const;

    void addListener(std::shared_ptr<PulseContextListener> listener);
    void removeListener(const PulseContextListener *listener);

    /// Connects now, if there is no connection. `contextLost` follows at once where
    /// libpulse cannot be loaded.
    void ensureConnected();

    /// Asks for the sources afresh; `sourcesChanged` follows.
    void refresh();

    /// Why libpulse could not be loaded, in the system's words; empty where it was.
    QString problem() const { return m_problem; }

    bool isReady() const { return m_ready; }
    bool isConnecting() const { return m_context && !m_ready; }

    /// The server is gone, and `contextLost` has yet to follow.
    bool isFailing() const;

    /// For streams; null while there is no connection.
    pa_context *handle() const { return m_context; }
    const PulseFunctions &pulse() const { return m_thread.pulse(); }

private:
    using Listeners = std::vector<std::shared_ptr<PulseContextListener>>;

    void connectToServer(pa_context_flags_t flags);
    void stateChanged();
    void lost();
    void tellLost();
    void drop();
    void takeNews();
    void takeCheckedDefault(const std::string &defaultSource);
    void requestServerInfo();
    void takeServerInfo(const pa_server_info *info);
    void takeSource(const pa_source_info *info);
    void publish();
    void forget(pa_operation *operation);
    void endRefresh();

    const QString m_applicationName;
    mutable std::mutex m_mutex; // guards m_published, for the length of a copy
    PulseSources m_published;
    PulseSources m_collected; // being gathered
    Listeners m_listeners;
    QString m_problem;
    pa_context *m_context = nullptr;
    bool m_ready = false;
    bool m_refreshing = false;
    bool m_refreshAgain = false;
    int m_retryMilliseconds = 0;
    bool m_isPipeWire = false;
    bool m_askingLate = false;
    std::string m_lastToldDefault;            // by this connection
    std::optional<std::string> m_toldDefault; // what was told when it was checked; null: never checked
    std::string m_checkedDefault;             // stands in its place
    DefaultSourceCheck m_defaultCheck{[this](const std::string &name) { takeCheckedDefault(name); }};
    std::unique_ptr<PulseTimer> m_retry;
    std::unique_ptr<PulseTimer> m_askAgain;
    PulseThread m_thread; // last: it ends before what its tasks use
};

} // namespace kest
