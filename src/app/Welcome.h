#pragma once

#include "app/WelcomeMarker.h"

#include <QObject>
#include <QPointer>

namespace kest {

class MainWindowController;
class UserDefaults;
class WelcomeSheet;
struct Platform;

/// Welcomes the person at the very first start, once. At every other start it
/// costs a look at the disk and nothing else. Main thread.
class Welcome : public QObject
{
    Q_OBJECT

public:
    /// `platform` and `defaults` must outlive the sheet.
    Welcome(Platform &platform, UserDefaults &defaults, WelcomeMarker marker, QObject *parent = nullptr);

    /// Shows the sheet over this window soon, if this is the first start. It owns
    /// the sheet.
    void showSoon(MainWindowController &window);

    /// Null before it is shown and after it was closed.
    WelcomeSheet *sheet() const;

    static constexpr int delay = 150; ///< ms; the window is painted by then.

private:
    void show(MainWindowController &window);
    void end();

    Platform &m_platform;
    UserDefaults &m_defaults;
    const WelcomeMarker m_marker;
    QPointer<WelcomeSheet> m_sheet;
};

} // namespace kest
