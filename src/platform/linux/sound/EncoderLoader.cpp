#include "platform/linux/sound/EncoderLoader.h"

#include <QCoreApplication>
#include <QFile>

#include <dlfcn.h>
#include <unistd.h>

namespace kest {

namespace {

constexpr char pluginName[] = "/kest-encoder.so";

QList<QByteArray> usualPlaces()
{
    const QByteArray program = QFile::encodeName(QCoreApplication::applicationDirPath());
    return {program + "/../lib" + pluginName, program + "/../" KEST_PLUGIN_DIR + pluginName,
            QByteArray(KEST_INSTALLED_PLUGIN_DIR) + pluginName};
}

} // namespace

EncoderLoader::EncoderLoader() : m_candidates(usualPlaces()) { }

EncoderLoader::EncoderLoader(QByteArray pluginFile) : m_candidates{std::move(pluginFile)} { }

EncoderPlugin *EncoderLoader::load(QString *problem)
{
    const std::lock_guard lock(m_mutex);
    for (const QByteArray &file : m_candidates) {
        if (m_plugin)
            break;
        m_plugin = open(file);
    }
    if (!m_plugin)
        *problem = m_problem;
    return m_plugin;
}

EncoderPlugin *EncoderLoader::open(const QByteArray &file)
{
    // Never closed: the libraries behind it do not unload cleanly, and the next recording wants them again.
    void *library = dlopen(file.constData(), RTLD_NOW | RTLD_LOCAL);
    void *entry = library ? dlsym(library, encoderPluginEntry) : nullptr;
    if (!entry) {
        // The reason that counts is that of the file which is there.
        if (m_problem.isEmpty() || access(file.constData(), F_OK) == 0)
            m_problem = QString::fromLocal8Bit(dlerror());
        return nullptr;
    }
    return reinterpret_cast<EncoderPluginEntry>(entry)();
}

} // namespace kest
