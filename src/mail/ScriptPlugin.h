#pragma once

#include <QList>
#include <QString>
#include <QVariantList>

#include <memory>
#include <optional>

class QObject;

namespace kest {

/// What a script threw.
struct ScriptException {
    QString text; ///< In the engine's words or the script's own.
    int line = 0; ///< Of the script, from 1; 0 when it is not known.
};

/// Something that scripts import from "kest" by its name.
struct ScriptImport {
    QString name;
    QObject *object = nullptr; ///< Stays the caller's, and outlives the engine.
    QString method;            ///< One of the object's invokable methods; empty: the object itself.
};

/// An engine with the one script that it runs. Main thread.
class ScriptEngine
{
public:
    virtual ~ScriptEngine() = default;

    /// Reads and runs the ECMAScript module in the file `path`, which may be a
    /// resource. Called once, first. What it threw, or why it could not be read.
    virtual std::optional<ScriptException> importModule(const QString &path) = 0;

    /// Whether the module exports a function of that name.
    virtual bool hasFunction(const QString &name) const = 0;

    /// What the function returned: a text, which is never null, or a list.
    /// Invalid when it returned anything else, or threw `exception`. A null
    /// pointer among the arguments is the script's null.
    virtual QVariant call(const QString &name, const QVariantList &arguments,
                          std::optional<ScriptException> *exception) = 0;
};

/// The door to the script engine's libraries, which pull in those for networks.
/// They are big, so they live in a plugin that is loaded when a message is in
/// sight, not when the program starts.
class ScriptPlugin
{
public:
    virtual ~ScriptPlugin() = default;

    virtual std::unique_ptr<ScriptEngine> createEngine(const QList<ScriptImport> &imports) = 0;
};

/// Name of the C function by which the plugin hands out its ScriptPlugin, which
/// lives as long as the process. The name carries the interface's generation.
inline constexpr char scriptPluginEntry[] = "kest_script_plugin_1";
using ScriptPluginEntry = ScriptPlugin *(*)();

} // namespace kest
