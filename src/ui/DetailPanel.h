#pragma once

#include "platform/FileURL.h"

#include <QObject>
#include <QString>

#include <optional>

class QLabel;

namespace Ui {
class MainWindow;
}

namespace kest {

/// The last recording in the lower part of the expanded window.
class DetailPanel : public QObject
{
    Q_OBJECT

public:
    /// `ui` outlives the panel.
    explicit DetailPanel(Ui::MainWindow &ui, QObject *parent = nullptr);

    /// A recording is under way, nothing is to be said of an earlier one.
    void showRecordingUnderWay(const FileURL &file);

    /// The recording is finished. `seconds` is its length; nothing while that is
    /// not known. A file that is not there any more counts as none.
    void showRecording(const FileURL &file, std::optional<double> seconds);

    /// The recording on show; empty when there is none.
    const FileURL &recording() const { return m_recording; }

private:
    void showFile(const FileURL &file, const QString &facts, bool playable);

    Ui::MainWindow &m_ui;
    FileURL m_recording;
};

} // namespace kest
