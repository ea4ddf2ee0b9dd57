#include "BusValues.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QJsonObject>

namespace kest {

using namespace Qt::StringLiterals;

struct Texts2 {
    QString first;
    QString second;
};

struct Texts3 {
    QString first;
    QString second;
    QString third;
};

static QDBusArgument &operator<<(QDBusArgument &argument, const Texts2 &texts)
{
    argument.beginStructure();
    argument << texts.first << texts.second;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, Texts2 &texts)
{
    argument.beginStructure();
    argument >> texts.first >> texts.second;
    argument.endStructure();
    return argument;
}

static QDBusArgument &operator<<(QDBusArgument &argument, const Texts3 &texts)
{
    argument.beginStructure();
    argument << texts.first << texts.second << texts.third;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, Texts3 &texts)
{
    argument.beginStructure();
    argument >> texts.first >> texts.second >> texts.third;
    argument.endStructure();
    return argument;
}

} // namespace kest

Q_DECLARE_METATYPE(kest::Texts2)
Q_DECLARE_METATYPE(kest::Texts3)

namespace kest {

namespace {

// Beyond this a double, which is what JSON has, no longer counts exactly; as an index it means the end.
constexpr quint64 largestExact = (quint64(1) << 53) - 1;

class Reader
{
public:
    Reader(QList<QDBusUnixFileDescriptor> &files, int firstFile)
        : m_files(files)
        , m_firstFile(firstFile)
    {
    }

    QJsonValue value(const QVariant &variant)
    {
        if (variant.metaType() == QMetaType::fromType<QDBusArgument>())
            return complex(variant.value<QDBusArgument>());
        if (variant.metaType() == QMetaType::fromType<QDBusObjectPath>())
            return variant.value<QDBusObjectPath>().path();
        if (variant.metaType() == QMetaType::fromType<QDBusUnixFileDescriptor>())
            return file(variant.value<QDBusUnixFileDescriptor>());
        if (variant.metaType() == QMetaType::fromType<QDBusVariant>())
            return value(variant.value<QDBusVariant>().variant());
        if (variant.metaType() == QMetaType::fromType<bool>())
            return variant.toBool();
        if (variant.metaType() == QMetaType::fromType<quint64>())
            return static_cast<qint64>(qMin(variant.toULongLong(), largestExact));
        return QJsonValue::fromVariant(variant);
    }

private:
    QJsonValue complex(const QDBusArgument &argument)
    {
        QJsonArray values;
        const bool isStructure = argument.currentType() == QDBusArgument::StructureType;
        isStructure ? argument.beginStructure() : argument.beginArray();
        while (!argument.atEnd())
            values += argument.currentType() == QDBusArgument::BasicType ? value(argument.asVariant())
                                                                        : complex(argument);
        isStructure ? argument.endStructure() : argument.endArray();
        return values;
    }

    QJsonValue file(const QDBusUnixFileDescriptor &descriptor)
    {
        m_files += descriptor;
        return QJsonObject {{u"file"_s, m_firstFile + static_cast<int>(m_files.size()) - 1}};
    }

    QList<QDBusUnixFileDescriptor> &m_files;
    int m_firstFile;
};

/// One path that is none would make the whole reply impossible to send.
QVariant objectPaths(const QJsonArray &array, bool valid)
{
    QList<QDBusObjectPath> paths;
    for (const QJsonValue &entry : array) {
        paths += QDBusObjectPath(entry.toString());
        valid = valid && !paths.last().path().isEmpty();
    }
    return valid ? QVariant::fromValue(paths) : QVariant();
}

template<typename Element, typename Make>
QVariant list(const QJsonValue &value, Make make)
{
    QList<Element> elements;
    const QJsonArray array = value.toArray();
    for (const QJsonValue &entry : array)
        elements += make(entry);
    return value.isArray() ? QVariant::fromValue(elements) : QVariant();
}

} // namespace

QJsonArray toJson(const QVariantList &arguments, QList<QDBusUnixFileDescriptor> &files, int firstFile)
{
    Reader reader(files, firstFile);
    QJsonArray values;
    for (const QVariant &argument : arguments)
        values += reader.value(argument);
    return values;
}

QVariant fromJson(const QJsonValue &value, const QString &signature)
{
    if (signature == "s"_L1)
        return value.isString() ? QVariant(value.toString()) : QVariant();
    if (signature == "b"_L1)
        return value.isBool() ? QVariant(value.toBool()) : QVariant();
    if (signature == "u"_L1)
        return value.isDouble() ? QVariant(static_cast<quint32>(value.toInteger())) : QVariant();
    if (signature == "o"_L1) {
        const QDBusObjectPath path(value.toString());
        return path.path().isEmpty() ? QVariant() : QVariant::fromValue(path);
    }
    if (signature == "as"_L1)
        return value.isArray() ? QVariant(value.toVariant().toStringList()) : QVariant();
    if (signature == "ao"_L1)
        return objectPaths(value.toArray(), value.isArray());
    if (signature == "a(ss)"_L1)
        return list<Texts2>(value, [](const QJsonValue &pair) {
            return Texts2 {pair[0].toString(), pair[1].toString()};
        });
    if (signature == "a(sss)"_L1)
        return list<Texts3>(value, [](const QJsonValue &three) {
            return Texts3 {three[0].toString(), three[1].toString(), three[2].toString()};
        });
    return {};
}

void registerBusTypes()
{
    qDBusRegisterMetaType<Texts2>();
    qDBusRegisterMetaType<QList<Texts2>>();
    qDBusRegisterMetaType<Texts3>();
    qDBusRegisterMetaType<QList<Texts3>>();
}

} // namespace kest
