#include "platform/PluginLibrary.h"

#include <QCoreApplication>
#include <QFile>

#include <dlfcn.h>
#include <unistd.h>

namespace kest {

namespace {

QList<QByteArray> placesOf(const QByteArray &file)
{
    if (file.startsWith('/'))
        return {file};
    const QByteArray program = QFile::encodeName(QCoreApplication::applicationDirPath());
    return {program + "/../lib/" + file, program + "/../" KEST_PLUGIN_DIR "/" + file,
            QByteArray(KEST_INSTALLED_PLUGIN_DIR "/") + file};
}

} // namespace

PluginLibrary::PluginLibrary(const QByteArray &file) : m_candidates(placesOf(file)) { }

void *PluginLibrary::entry(const char *name, QString *problem)
{
    for (const QByteArray &file : m_candidates) {
        if (m_entry)
            break;
        m_entry = load(file, name);
    }
    if (!m_entry)
        *problem = m_problem;
    return m_entry;
}

void *PluginLibrary::load(const QByteArray &file, const char *name)
{
    // Never closed: the libraries behind it do not unload cleanly, and are wanted again.
    void *library = dlopen(file.constData(), RTLD_NOW | RTLD_LOCAL);
    void *found = library ? dlsym(library, name) : nullptr;
    // The reason that counts is that of the file which is there.
    if (!found && (m_problem.isEmpty() || access(file.constData(), F_OK) == 0))
        m_problem = QString::fromLocal8Bit(dlerror());
    return found;
}

} // namespace kest
