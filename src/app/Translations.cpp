#include "app/Translations.h"

#include <QDir>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>

// Outside the namespace, as Qt asks for.
static void makeTranslationsKnown()
{
    Q_INIT_RESOURCE(translations);
}

namespace kest {

namespace {

const QString folder = QStringLiteral(":/translations");
const QString prefix = QStringLiteral("kest_");

/// "de", "pt_BR" and so on.
QStringList translations()
{
    makeTranslationsKnown();
    QStringList names = QDir(folder).entryList({prefix + QStringLiteral("*.qm")});
    for (QString &name : names)
        name = name.mid(prefix.size()).chopped(3);
    return names;
}

/// A tag that Qt does not know reads as the C locale, which is nobody's language.
bool serves(const QLocale &translation, const QLocale &wanted)
{
    return wanted.language() != QLocale::C && translation.language() == wanted.language()
        && translation.script() == wanted.script();
}

bool install(const QString &file, const QString &directory)
{
    auto *translator = new QTranslator(qGuiApp);
    if (translator->load(file, directory) && QCoreApplication::installTranslator(translator))
        return true;
    delete translator;
    return false;
}

} // namespace

QString translationFor(const QStringList &languages)
{
    const QStringList served = translations();
    for (const QString &tag : languages) {
        const QLocale wanted(tag);
        const auto found = std::find_if(served.cbegin(), served.cend(),
                                        [&](const QString &name) { return serves(QLocale(name), wanted); });
        if (found != served.cend())
            return *found;
    }
    return {};
}

void installTranslations(const QStringList &languages)
{
    const QString language = translationFor(languages);
    // Kest's last: of several translators the newest is asked first.
    if (language.isNull())
        return;
    install(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (install(prefix + language, folder))
        QGuiApplication::setLayoutDirection(QLocale(language).textDirection());
}

} // namespace kest
