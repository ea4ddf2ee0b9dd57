#pragma once

#include "platform/AlertPresenter.h"

#include <QList>

#include <functional>

namespace kest::test {

/// Keeps the alerts that it is given, and dismisses each at once.
class RecordingAlertPresenter : public AlertPresenter
{
public:
    int runModal(const AlertContent &content) override
    {
        shown.append(content);
        if (whenShown)
            whenShown();
        return 0;
    }

    QList<AlertContent> shown;
    std::function<void()> whenShown; ///< Runs while the alert stands.
};

} // namespace kest::test
