#pragma once

#include "app/Translations.h"

#include <QApplication>
#include <QTranslator>

namespace kest::test {

/// The language that nobody speaks; see tests/support/pseudo_language.py.
inline const QString pseudoLanguage = QStringLiteral("pseudo");

/// The process speaks another language as long as this lives. Windows that are made meanwhile should be gone before.
class Speaking
{
public:
    explicit Speaking(const QString &language)
    {
        if (language != pseudoLanguage) {
            installTranslations({QString(language).replace(u'_', u'-')});
            return;
        }
        auto *translator = new QTranslator(qApp);
        if (!translator->load(qEnvironmentVariable("KEST_BUILD_DIR") + QStringLiteral("/tests/gui/kest_pseudo.qm")))
            qFatal("there is no pseudo-language");
        QCoreApplication::installTranslator(translator);
    }
    Speaking(const Speaking &) = delete;
    Speaking &operator=(const Speaking &) = delete;

    ~Speaking()
    {
        qDeleteAll(qApp->findChildren<QTranslator *>(Qt::FindDirectChildrenOnly));
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    }
};

} // namespace kest::test
