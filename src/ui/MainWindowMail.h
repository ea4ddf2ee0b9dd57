#pragma once

// What the mail commands of MainWindowController share. Included by its own source files only.

#include "ui/MainWindowController.h"

#include <optional>

namespace kest {

/// While it lives, a command is running and no other can begin.
class MainWindowController::BusyScope
{
public:
    explicit BusyScope(MainWindowController &controller);
    ~BusyScope();

    BusyScope(const BusyScope &) = delete;
    BusyScope &operator=(const BusyScope &) = delete;

private:
    MainWindowController &m_controller;
};

/// What every message takes from the settings, read anew for every command.
struct MainWindowController::MailSettings {
    bool useASClass = false;
    QString accountName;
    QString body;
    bool includeTagline = false;

    /// The setting's account, or the marker that none was chosen.
    static QString accountNameIn(const UserDefaults &defaults);

    /// The localized text of the key, when taglines are wanted.
    std::optional<QString> tagline(const QString &key) const;

    MessageDraft draftOf(const std::optional<FileURL> &recording) const;
};

} // namespace kest
