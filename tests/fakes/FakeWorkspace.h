#pragma once

#include "platform/Workspace.h"

#include <QList>

namespace kest::test {

/// A desktop that opens everything and says what it is told to say.
class FakeWorkspace : public Workspace
{
    Q_OBJECT

public:
    using Workspace::Workspace;

    QString ownIdentifier() const override { return QStringLiteral("org.kest.Kest"); }

    bool openURL(const QUrl &url) override
    {
        opened.append(url);
        return opens;
    }

    void showNotice(const QString &title, const QString &text) override { notice = title + u'\n' + text; }
    void withdrawNotice() override { notice.clear(); }

    /// The person turned to that application.
    void activate(const QString &identifier) { Q_EMIT applicationActivated(identifier); }

    bool opens = true;
    QList<QUrl> opened;
    QString notice; ///< What stands there now; empty when nothing does.
};

} // namespace kest::test
