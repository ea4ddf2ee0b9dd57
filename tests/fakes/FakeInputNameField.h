#pragma once

#include "app/InputDeviceMonitor.h"

namespace kest {

/// Keeps what the input name field was given, and counts.
struct FakeInputNameField {
    /// To be worked by a monitor; this object must outlive it.
    InputNameField field()
    {
        return {[this] { return recording; },
                [this](const QString &newToolTip) { toolTip = newToolTip, ++touched; },
                [this](const QString &newText) { text = newText, ++touched; }};
    }

    bool recording = false;
    QString toolTip;
    QString text;
    int touched = 0;
};

} // namespace kest
