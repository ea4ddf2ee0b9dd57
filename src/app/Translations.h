#pragma once

#include <QString>
#include <QStringList>

namespace kest {

/// The translation that serves the first of `languages` that is served at all:
/// "de", "pt_BR"; "en" where English comes first. Null when none is served.
///
/// `languages` are BCP 47 tags, best first, as QLocale::uiLanguages() gives
/// them. What counts is language and script: a person from Portugal or Austria
/// gets what there is for Brazil or Germany, Traditional Chinese does not get
/// Simplified.
QString translationFor(const QStringList &languages);

/// Puts Kest's texts and Qt's own into the first of `languages` that there is a
/// translation for, and lays the windows out in its direction. English is in
/// the program; without any translation it stays as it is. Qt's own texts stay
/// English where its translations are not installed.
///
/// Once, after the application object and before the first window. The
/// translators belong to the application object.
void installTranslations(const QStringList &languages);

} // namespace kest
