#include "mail/ScriptPlugin.h"

#include <QJSEngine>

namespace kest {

namespace {

ScriptException exceptionOf(const QJSValue &error)
{
    return {error.toString(), error.property(QStringLiteral("lineNumber")).toInt()};
}

class ModuleEngine final : public ScriptEngine
{
public:
    explicit ModuleEngine(const QList<ScriptImport> &imports)
    {
        QJSValue exports = m_engine.newObject();
        for (const ScriptImport &import : imports) {
            // Else the engine would delete what has no parent.
            QJSEngine::setObjectOwnership(import.object, QJSEngine::CppOwnership);
            const QJSValue object = m_engine.newQObject(import.object);
            exports.setProperty(import.name, import.method.isEmpty() ? object : object.property(import.method));
        }
        m_engine.registerModule(QStringLiteral("kest"), exports);
    }

    std::optional<ScriptException> importModule(const QString &path) override
    {
        m_module = m_engine.importModule(path);
        return m_module.isError() ? std::optional(exceptionOf(m_module)) : std::nullopt;
    }

    bool hasFunction(const QString &name) const override { return m_module.property(name).isCallable(); }

    QVariant call(const QString &name, const QVariantList &arguments,
                  std::optional<ScriptException> *exception) override
    {
        QJSValueList values;
        for (const QVariant &argument : arguments)
            values << m_engine.toScriptValue(argument);
        const QJSValue result = m_module.property(name).call(values);
        if (result.isError())
            *exception = exceptionOf(result);
        if (result.isArray())
            return result.toVariant().toList();
        if (!result.isString())
            return {};
        // The engine makes a null text of an empty one.
        const QString text = result.toString();
        return text.isNull() ? QStringLiteral("") : text;
    }

private:
    QJSEngine m_engine;
    QJSValue m_module;
};

class QtScriptPlugin final : public ScriptPlugin
{
public:
    std::unique_ptr<ScriptEngine> createEngine(const QList<ScriptImport> &imports) override
    {
        return std::make_unique<ModuleEngine>(imports);
    }
};

} // namespace

} // namespace kest

extern "C" Q_DECL_EXPORT kest::ScriptPlugin *kest_script_plugin_1()
{
    static kest::QtScriptPlugin plugin;
    return &plugin;
}
