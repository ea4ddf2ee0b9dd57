#include "ui/ListeningPanel.h"

#include "platform/Error.h"
#include "platform/FileAddress.h"
#include "platform/Trash.h"
#include "ui/Announcement.h"
#include "ui/PlaybackWording.h"
#include "ui/Wording.h"
#include "ui/controls/SeenClick.h"
#include "ui_MainWindow.h"

#include <QDir>
#include <QEvent>
#include <QFont>
#include <QLocale>

#include <sys/stat.h>

#include <utility>

namespace kest {

namespace {

constexpr int positionMilliseconds = 40;

/// Bytes; nothing when there is no such file.
std::optional<qint64> fileSize(const FileURL &file)
{
    struct stat status = {};
    if (file.isEmpty() || ::stat(file.nativePath().constData(), &status) != 0)
        return std::nullopt;
    return status.st_size;
}

/// A font that is not needed at the start takes a part of the time until the first picture.
void setWeight(QWidget &field, QFont::Weight weight)
{
    if (field.font().weight() == weight)
        return;
    QFont weighted; // with nothing but the weight: the rest is the window's
    weighted.setWeight(weight);
    field.setFont(weighted);
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

ListeningPanel::ListeningPanel(Ui::MainWindow &ui, AudioFilePlayer &player, Trash &trash, QObject *parent)
    : QObject(parent)
    , m_ui(ui)
    , m_player(player)
    , m_trash(trash)
{
    connectControls();
    connectPlayer();
    showRecording({}, std::nullopt);
}

void ListeningPanel::connectControls()
{
    m_ui.detailPanel->installEventFilter(this);
    onSeenClick(*m_ui.playButton, this, [this] { playOrPause(); });
    onSeenClick(*m_ui.discardButton, this, [this] { discard(); });
    onSeenClick(*m_ui.undoDiscardButton, this, [this] { undoDiscard(); });
    onSeenClick(*m_ui.showInFolderButton, this,
                [this] { Q_EMIT openURLRequested(addressOf(m_recording.deletingLastPathComponent())); });
    connect(m_ui.waveformView, &WaveformView::seekRequested, &m_player, &AudioFilePlayer::seek);
    connect(m_ui.waveformView, &WaveformView::positionShown, this,
            [this](double seconds) { m_ui.positionField->setText(positionText(seconds, m_ui.waveformView->length())); });
}

void ListeningPanel::connectPlayer()
{
    m_positionTimer.setInterval(positionMilliseconds);
    m_positionTimer.callOnTimeout(this, [this] { m_ui.waveformView->setPosition(m_player.position()); });
    connect(&m_player, &AudioFilePlayer::playingChanged, this, &ListeningPanel::playingChanged);
    connect(&m_player, &AudioFilePlayer::waveformRead, m_ui.waveformView, &WaveformView::setPeaks);
    connect(&m_player, &AudioFilePlayer::opened, this, [this](double seconds) {
        m_seconds = seconds;
        m_ui.waveformView->setLength(seconds);
        m_ui.waveformView->setPosition(m_player.position());
        updateFacts();
        update();
    });
    connect(&m_player, &AudioFilePlayer::troubleOccurred, this,
            [this](PlaybackTrouble trouble, const QString &detail) { tell(wordsFor(trouble), detail); });
}

void ListeningPanel::showRecordingUnderWay(const FileURL &file)
{
    m_recording = file;
    m_seconds.reset();
    setState(State::UnderWay);
}

void ListeningPanel::showRecording(const FileURL &file, std::optional<double> seconds)
{
    const bool there = fileSize(file).has_value();
    m_recording = there ? file : FileURL();
    m_seconds = seconds;
    setState(there ? State::Ready : State::Nothing);
    openWhenSeen();
}

void ListeningPanel::showUsed()
{
    m_used = m_state == State::Ready;
    updateHeading();
}

void ListeningPanel::showMoved(const FileURL &to)
{
    const bool used = m_used;
    showRecording(to, m_seconds);
    m_used = used;
    updateHeading();
}

void ListeningPanel::setBusy(bool busy)
{
    m_busy = busy;
    update();
}

/// Whatever was known of an earlier recording is forgotten.
void ListeningPanel::setState(State state)
{
    m_player.close();
    m_opened = false;
    m_inTrash = {};
    m_used = false;
    m_state = state;
    m_ui.waveformView->setPeaks({});
    m_ui.waveformView->setLength(0.0);
    m_ui.waveformView->setPosition(0.0);
    tell({}, {});
    updateHeading();
    updateFacts();
    update();
}

bool ListeningPanel::isUsable() const
{
    return m_state == State::Ready && !m_busy && m_ui.detailPanel->isVisible();
}

void ListeningPanel::update()
{
    const bool usable = isUsable();
    if (!usable)
        m_player.pause();
    const bool discarded = isDiscarded();
    m_ui.playButton->setEnabled(usable && m_seconds != 0.0);
    m_ui.waveformView->setEnabled(usable);
    m_ui.discardButton->setEnabled(usable);
    m_ui.showInFolderButton->setEnabled(!m_recording.isEmpty() && !discarded && m_ui.detailPanel->isVisible());
    m_ui.undoDiscardButton->setEnabled(discarded && !m_busy && m_ui.detailPanel->isVisible());
    m_ui.undoDiscardButton->setVisible(discarded);
    m_ui.playButton->setVisible(!discarded);
    m_ui.waveformPlace->setVisible(!discarded);
    m_ui.recordingNameField->setFile(m_state == State::Ready ? m_recording : FileURL());
}

void ListeningPanel::updateHeading()
{
    QString heading = m_used ? tr("Used for a message") : tr("Last recording");
    if (m_state == State::UnderWay)
        heading = tr("This recording");
    else if (isDiscarded())
        heading = tr("Moved to the trash");
    m_ui.recordingCardHeading->setText(heading);
    setWeight(*m_ui.recordingNameField, m_recording.isEmpty() ? QFont::Normal : QFont::DemiBold);
    m_ui.recordingNameField->setText(m_recording.isEmpty() ? tr("None yet") : m_recording.lastPathComponent());
    const QString hint = m_state == State::Ready ? u'\n' + tr("Drag it into another window") : QString();
    m_ui.recordingNameField->setToolTip(m_recording.isEmpty() ? QString() : m_recording.displayPath() + hint);
    m_ui.recordingFolderField->setText(folderText(m_recording));
}

void ListeningPanel::updateFacts()
{
    QStringList facts;
    if (m_state == State::UnderWay)
        facts.append(tr("Being recorded"));
    if (m_state == State::Ready && m_seconds)
        facts.append(lengthText(*m_seconds));
    if (const auto size = fileSize(m_recording); size && m_state == State::Ready)
        facts.append(QLocale().formattedDataSize(*size, 1, QLocale::DataSizeSIFormat));
    m_ui.recordingFactsField->setText(facts.join(QStringLiteral("  ·  ")));
    m_ui.positionField->setVisible(m_state == State::Ready);
}

/// A person who keeps the window small pays nothing for waveforms.
void ListeningPanel::openWhenSeen()
{
    if (m_state != State::Ready || m_opened || !m_ui.detailPanel->isVisible())
        return;
    m_opened = true;
    m_player.open(m_recording);
}

bool ListeningPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show)
        openWhenSeen();
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
        update();
    return QObject::eventFilter(watched, event);
}

void ListeningPanel::playOrPause()
{
    tell({}, {});
    if (m_player.isPlaying())
        m_player.pause();
    else
        m_player.play();
}

void ListeningPanel::playingChanged(bool playing)
{
    playing ? m_positionTimer.start() : m_positionTimer.stop();
    m_ui.waveformView->setPosition(m_player.position());
    m_ui.playButton->setImage(playing ? QStringLiteral("pause") : QStringLiteral("resume"));
    m_ui.playButton->setAccessibleName(playing ? tr("Pause Playing") : tr("Play"));
    m_ui.playButton->setHint(playing ? tr("Pause playing") : tr("Play the recording"));
}

void ListeningPanel::discard()
{
    Error error;
    FileURL inTrash;
    m_player.pause();
    if (!m_trash.trashItem(m_recording, &error, &inTrash))
        return tell(tr("It could not be moved to the trash."), error.description);
    const bool hadFocus = m_ui.discardButton->hasFocus();
    const bool used = m_used;
    setState(State::Discarded);
    m_inTrash = inTrash;
    m_used = used; // for Undo
    if (hadFocus)
        m_ui.undoDiscardButton->setFocus(Qt::OtherFocusReason);
    Q_EMIT this->discarded();
}

void ListeningPanel::undoDiscard()
{
    Error error;
    if (!m_trash.putBack(m_inTrash, m_recording, &error))
        return tell(tr("It could not be taken out of the trash."), error.description);
    const bool hadFocus = m_ui.undoDiscardButton->hasFocus();
    const bool used = m_used;
    showRecording(m_recording, m_seconds);
    m_used = used;
    updateHeading();
    if (hadFocus)
        m_ui.playButton->setFocus(Qt::OtherFocusReason);
    Q_EMIT restored();
}

/// In the place of the folder; empty: there is nothing to be said.
void ListeningPanel::tell(const QString &words, const QString &detail)
{
    ReadoutField *field = m_ui.playbackNoticeField;
    field->setText(words);
    field->setToolTip(detail.isEmpty() ? words : words + u'\n' + detail);
    field->setVisible(!words.isEmpty());
    m_ui.recordingFolderField->setVisible(words.isEmpty());
    announce(*field, words, Politeness::Assertive);
}

} // namespace kest
