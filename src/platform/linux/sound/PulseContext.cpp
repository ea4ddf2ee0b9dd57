#include "platform/linux/sound/PulseContext.h"

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(logSound, "kest.sound")

// Loading libpulse would take as much from the window that is being painted meanwhile as it takes itself.
constexpr int restMilliseconds = 50;

// A server that was restarted is back within a second; one that is not there at all is asked ever more rarely.
constexpr int firstRetryMilliseconds = 500;
constexpr int lastRetryMilliseconds = 30'000;

// When PipeWire is asked anew after the last of its news: soon, and when a session manager under load is done too.
constexpr int soonMilliseconds = 250;
constexpr int lateMilliseconds = 2'000;

std::string textOf(const char *announced)
{
    return announced ? announced : std::string();
}

} // namespace

PulseContext::PulseContext(QString applicationName, const QByteArray &pluginFile)
    : m_applicationName(std::move(applicationName)), m_thread(pluginFile)
{
    m_thread.post([this] {
        m_retry = std::make_unique<PulseTimer>(m_thread, [this] { connectToServer(PA_CONTEXT_NOAUTOSPAWN); });
        m_askAgain = std::make_unique<PulseTimer>(m_thread, [this] {
            m_defaultCheck.start(m_thread);
            if (!std::exchange(m_askingLate, true))
                m_askAgain->setSingleShot(lateMilliseconds);
        });
        m_thread.runUnlessLoaded(restMilliseconds, [this] { ensureConnected(); });
    });
}

PulseContext::~PulseContext()
{
    m_thread.post([this] {
        m_thread.forgetUnlessLoaded();
        tellLost();
        m_listeners.clear();
        drop();
        m_retry.reset();
        m_askAgain.reset();
    });
}

PulseSources PulseContext::sources() const
{
    const std::lock_guard lock(m_mutex);
    return m_published;
}

void PulseContext::addListener(std::shared_ptr<PulseContextListener> listener)
{
    m_listeners.push_back(std::move(listener));
}

void PulseContext::removeListener(const PulseContextListener *listener)
{
    std::erase_if(m_listeners, [listener](const auto &other) { return other.get() == listener; });
}

void PulseContext::ensureConnected()
{
    if (m_context)
        return;
    m_problem.clear();
    if (m_thread.load(&m_problem))
        return connectToServer(PA_CONTEXT_NOFLAGS);
    qCWarning(logSound, "libpulse could not be loaded: %ls", qUtf16Printable(m_problem));
    tellLost();
}

bool PulseContext::isFailing() const
{
    return m_context && pulse().context_get_state(m_context) != PA_CONTEXT_READY;
}

void PulseContext::forget(pa_operation *operation)
{
    if (operation)
        pulse().operation_unref(operation);
}

void PulseContext::connectToServer(pa_context_flags_t flags)
{
    m_retry->cancel();
    pa_proplist *properties = pulse().proplist_new();
    const QByteArray name = m_applicationName.toUtf8();
    pulse().proplist_sets(properties, PA_PROP_APPLICATION_NAME, name.constData());
    pulse().proplist_sets(properties, PA_PROP_APPLICATION_ID, "org.kest.Kest");
    pulse().proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "org.kest.Kest");
    m_context = pulse().context_new_with_proplist(m_thread.api(), name.constData(), properties);
    pulse().proplist_free(properties);
    pulse().context_set_state_callback(
        m_context, [](pa_context *, void *self) { static_cast<PulseContext *>(self)->stateChanged(); }, this);
    pulse().context_set_subscribe_callback(
        m_context,
        [](pa_context *, pa_subscription_event_type_t, uint32_t, void *self) {
            static_cast<PulseContext *>(self)->takeNews();
        },
        this);
    if (pulse().context_connect(m_context, nullptr, flags, nullptr) < 0)
        lost();
}

void PulseContext::stateChanged()
{
    const pa_context_state_t state = pulse().context_get_state(m_context);
    if (state == PA_CONTEXT_READY) {
        m_ready = true;
        m_retryMilliseconds = 0;
        const auto facilities = pa_subscription_mask_t(PA_SUBSCRIPTION_MASK_SOURCE | PA_SUBSCRIPTION_MASK_SERVER);
        forget(pulse().context_subscribe(m_context, facilities, nullptr, nullptr));
        refresh();
    } else if (!PA_CONTEXT_IS_GOOD(state)) {
        lost();
    }
}

void PulseContext::lost()
{
    if (!m_context)
        return;
    qCInfo(logSound, "No connection to the sound server: %s", pulse().strerror(pulse().context_errno(m_context)));
    drop();
    {
        const std::lock_guard lock(m_mutex);
        m_published = {};
    }
    m_retryMilliseconds = std::clamp(m_retryMilliseconds * 2, firstRetryMilliseconds, lastRetryMilliseconds);
    m_retry->setSingleShot(m_retryMilliseconds);
    tellLost();
}

void PulseContext::tellLost()
{
    for (const auto &listener : Listeners(m_listeners))
        listener->contextLost();
}

void PulseContext::drop()
{
    m_ready = m_refreshing = m_refreshAgain = false;
    m_toldDefault.reset();
    m_askAgain->cancel();
    m_defaultCheck.cancel();
    if (pa_context *context = std::exchange(m_context, nullptr)) {
        pulse().context_set_state_callback(context, nullptr, nullptr);
        pulse().context_set_subscribe_callback(context, nullptr, nullptr);
        pulse().context_disconnect(context);
        pulse().context_unref(context);
    }
}

void PulseContext::takeNews()
{
    refresh();
    if (!m_isPipeWire)
        return;
    m_askingLate = false;
    m_askAgain->setSingleShot(soonMilliseconds);
}

void PulseContext::takeCheckedDefault(const std::string &defaultSource)
{
    m_toldDefault = m_lastToldDefault;
    m_checkedDefault = defaultSource;
    refresh();
}

void PulseContext::refresh()
{
    if (!m_ready)
        return;
    m_refreshAgain = m_refreshing;
    if (!m_refreshing)
        requestServerInfo();
}

void PulseContext::requestServerInfo()
{
    m_refreshing = true;
    m_collected = {};
    forget(pulse().context_get_server_info(
        m_context,
        [](pa_context *, const pa_server_info *info, void *self) {
            static_cast<PulseContext *>(self)->takeServerInfo(info);
        },
        this));
}

void PulseContext::takeServerInfo(const pa_server_info *info)
{
    if (!m_context)
        return;
    if (!info)
        return endRefresh();
    m_collected.connected = true;
    m_isPipeWire = textOf(info->server_name).find("PipeWire") != std::string::npos;
    m_lastToldDefault = textOf(info->default_source_name);
    m_collected.defaultSource = m_toldDefault == m_lastToldDefault ? m_checkedDefault : m_lastToldDefault;
    m_collected.defaultSink = textOf(info->default_sink_name);
    forget(pulse().context_get_source_info_list(
        m_context,
        [](pa_context *, const pa_source_info *source, int end, void *self) {
            auto *context = static_cast<PulseContext *>(self);
            if (end < 0)
                context->endRefresh(); // half a list would look like microphones that went away
            else if (end > 0)
                context->publish();
            else
                context->takeSource(source);
        },
        this));
}

void PulseContext::takeSource(const pa_source_info *info)
{
    PulseSource source;
    source.index = info->index;
    source.name = textOf(info->name);
    source.description = textOf(info->description);
    source.channels = info->channel_map;
    source.isMonitor = info->monitor_of_sink != PA_INVALID_INDEX;
    source.monitorOf = info->monitor_of_sink;
    source.monitorOfName = textOf(info->monitor_of_sink_name);
    m_collected.sources.push_back(std::move(source));
}

void PulseContext::publish()
{
    if (!m_context)
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_published = m_collected;
    }
    for (const auto &listener : Listeners(m_listeners))
        listener->sourcesChanged();
    endRefresh();
}

void PulseContext::endRefresh()
{
    m_refreshing = false;
    if (m_context && std::exchange(m_refreshAgain, false))
        refresh();
}

} // namespace kest
