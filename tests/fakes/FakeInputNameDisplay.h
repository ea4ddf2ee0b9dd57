#pragma once

#include "app/InputDeviceMonitor.h"

namespace kest {

/// Keeps what the input name field was given, and counts.
class FakeInputNameDisplay : public InputNameDisplay
{
public:
    bool recordingActive() const override { return recording; }
    void setInputNameToolTip(const QString &newToolTip) override
    {
        toolTip = newToolTip;
        ++touched;
    }
    void setInputNameText(const QString &newText) override
    {
        text = newText;
        ++touched;
    }

    bool recording = false;
    QString toolTip;
    QString text;
    int touched = 0;
};

} // namespace kest
