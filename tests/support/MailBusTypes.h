#pragma once

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QList>
#include <QString>

namespace kest::test {

/// The structure "(ss)".
struct TextPair {
    QString first;
    QString second;
};

/// The structure "(sss)".
struct TextTriple {
    QString first;
    QString second;
    QString third;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const TextPair &texts)
{
    argument.beginStructure();
    argument << texts.first << texts.second;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument &operator>>(const QDBusArgument &argument, TextPair &texts)
{
    argument.beginStructure();
    argument >> texts.first >> texts.second;
    argument.endStructure();
    return argument;
}

inline QDBusArgument &operator<<(QDBusArgument &argument, const TextTriple &texts)
{
    argument.beginStructure();
    argument << texts.first << texts.second << texts.third;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument &operator>>(const QDBusArgument &argument, TextTriple &texts)
{
    argument.beginStructure();
    argument >> texts.first >> texts.second >> texts.third;
    argument.endStructure();
    return argument;
}

inline void registerMailBusTypes()
{
    qDBusRegisterMetaType<TextPair>();
    qDBusRegisterMetaType<TextTriple>();
    qDBusRegisterMetaType<QList<TextPair>>();
    qDBusRegisterMetaType<QList<TextTriple>>();
}

} // namespace kest::test
