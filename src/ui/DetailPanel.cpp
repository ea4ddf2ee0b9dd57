#include "ui/DetailPanel.h"

#include "ui/Wording.h"
#include "ui_MainWindow.h"

#include <QDir>
#include <QLocale>

#include <sys/stat.h>

namespace kest {

namespace {

/// Bytes; nothing when there is no such file.
std::optional<qint64> fileSize(const FileURL &file)
{
    struct stat status = {};
    if (file.isEmpty() || ::stat(file.nativePath().constData(), &status) != 0)
        return std::nullopt;
    return status.st_size;
}

/// The file's folder for people, the home folder as "~".
QString folderText(const FileURL &file)
{
    if (file.isEmpty())
        return {};
    const QString folder = file.deletingLastPathComponent().displayPath();
    const QString home = QDir::homePath();
    return folder == home || folder.startsWith(home + u'/') ? u'~' + folder.mid(home.size()) : folder;
}

} // namespace

DetailPanel::DetailPanel(Ui::MainWindow &ui, QObject *parent)
    : QObject(parent)
    , m_ui(ui)
{
    showFile({}, {}, false);
}

void DetailPanel::showFile(const FileURL &file, const QString &facts, bool playable)
{
    m_recording = file;
    m_ui.recordingCardHeading->setText(tr("Last recording"));
    m_ui.recordingNameField->setText(file.isEmpty() ? tr("None yet") : file.lastPathComponent());
    m_ui.recordingNameField->setToolTip(file.displayPath());
    m_ui.recordingFactsField->setText(facts);
    m_ui.recordingFolderField->setText(folderText(file));
    m_ui.listenButton->setEnabled(playable);
    m_ui.showInFolderButton->setEnabled(!file.isEmpty());
}

void DetailPanel::showRecordingUnderWay(const FileURL &file)
{
    showFile(file, tr("Being recorded"), false);
    m_ui.recordingCardHeading->setText(tr("This recording"));
}

void DetailPanel::showRecording(const FileURL &file, std::optional<double> seconds)
{
    const std::optional<qint64> size = fileSize(file);
    if (!size)
        return showFile({}, {}, false);
    QStringList facts;
    if (seconds)
        facts.append(lengthText(*seconds));
    facts.append(QLocale().formattedDataSize(*size, 1, QLocale::DataSizeSIFormat));
    showFile(file, facts.join(QStringLiteral("  ·  ")), true);
}

} // namespace kest
