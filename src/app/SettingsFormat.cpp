#include "app/SettingsFormat.h"

#include <algorithm>

namespace kest {

namespace {

constexpr QByteArrayView groupLine = "[General]";
constexpr QByteArrayView bytesBegin = "@Bytes(";

bool needsEscape(QChar unit)
{
    return unit.unicode() < 0x20 || unit.unicode() == 0x7f || unit.isSurrogate() || unit.unicode() == 0xfeff;
}

QString quoted(const QString &text)
{
    QString result = QStringLiteral("\"");
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar unit = text[at];
        const bool pair = unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (pair)
            result += text.mid(at++, 2);
        else if (unit == u'\n')
            result += QStringLiteral("\\n");
        else if (unit == u'"' || unit == u'\\')
            result += u'\\' + QString(unit);
        else if (needsEscape(unit))
            result += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
        else
            result += unit;
    }
    return result + u'"';
}

// One escaped character of `text`, from after the backslash at `at`; moves `at` to its last character.
std::optional<QChar> unescaped(const QString &text, qsizetype &at)
{
    if (at + 1 >= text.size())
        return {};
    const QChar kind = text[++at];
    if (kind == u'n')
        return QChar(u'\n');
    if (kind == u'"' || kind == u'\\')
        return kind;
    if (kind != u'u' || at + 4 >= text.size())
        return {};
    bool ok = false;
    const ushort unit = text.mid(at + 1, 4).toUShort(&ok, 16);
    at += 4;
    return ok ? std::optional(QChar(unit)) : std::nullopt;
}

std::optional<QVariant> readText(const QString &value)
{
    if (value.size() < 2 || !value.endsWith(u'"'))
        return {};
    const QString inner = value.mid(1, value.size() - 2);
    QString text;
    for (qsizetype at = 0; at < inner.size(); ++at) {
        if (inner[at] == u'"')
            return {};
        const auto unit = inner[at] == u'\\' ? unescaped(inner, at) : std::optional(inner[at]);
        if (!unit)
            return {};
        text += *unit;
    }
    return text;
}

std::optional<QVariant> readBytes(const QByteArray &value)
{
    if (!value.endsWith(')'))
        return {};
    const auto encoded = value.mid(bytesBegin.size(), value.size() - bytesBegin.size() - 1);
    auto decoded = QByteArray::fromBase64Encoding(encoded, QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional<QVariant>(*decoded) : std::nullopt;
}

std::optional<QVariant> readValue(const QByteArray &value)
{
    if (value == "true" || value == "false")
        return value == "true";
    if (value.startsWith('"'))
        return readText(QString::fromUtf8(value));
    if (value.startsWith(bytesBegin))
        return readBytes(value);
    bool ok = false;
    const qint64 number = value.toLongLong(&ok);
    return ok ? std::optional<QVariant>(number) : std::nullopt;
}

QByteArray writeValue(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? "true" : "false";
    case QMetaType::LongLong:
        return QByteArray::number(value.toLongLong());
    case QMetaType::QByteArray:
        return bytesBegin.toByteArray() + value.toByteArray().toBase64() + ')';
    default:
        return quoted(value.toString()).toUtf8();
    }
}

bool isKey(QByteArrayView key)
{
    return !key.isEmpty() && std::ranges::all_of(key, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    });
}

} // namespace

QByteArray writeSettings(const SettingsMap &settings)
{
    QByteArray text = "# The settings of Kest, one on a line. Kest writes this file anew with every change.\n";
    text += groupLine.toByteArray() + '\n';
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        text += setting.key().toUtf8() + '=' + writeValue(setting.value()) + '\n';
    return text;
}

std::optional<SettingsMap> readSettings(const QByteArray &text)
{
    if (!text.isValidUtf8())
        return {};
    SettingsMap settings;
    bool inGroup = false;
    const auto lines = text.split('\n');
    for (const QByteArray &line : lines) {
        const QByteArray trimmed = line.trimmed();
        const auto equals = trimmed.indexOf('=');
        if (trimmed.isEmpty() || trimmed.startsWith('#') || trimmed.startsWith(';'))
            continue;
        if (trimmed == groupLine) {
            inGroup = true;
            continue;
        }
        const auto key = trimmed.left(qMax<qsizetype>(equals, 0)).trimmed();
        const auto value = readValue(trimmed.mid(equals + 1).trimmed());
        if (!inGroup || equals < 0 || !isKey(key) || !value)
            return {};
        settings.insert(QString::fromUtf8(key), *value);
    }
    return inGroup ? std::optional(settings) : std::nullopt;
}

} // namespace kest
