#include "fakes/FakeAudioFileRecorder.h"

#include <QFile>
#include <QTimer>

namespace kest::test {

FakeAudioFileRecorder::FakeAudioFileRecorder(const FileURL &url, const AudioRecorderSettings &settings,
                                             FakeAudioFileRecorderFactory &factory)
    : m_url(url)
    , m_settings(settings)
    , m_factory(factory)
{
}

FakeAudioFileRecorder::~FakeAudioFileRecorder()
{
    note(QStringLiteral("~"));
}

void FakeAudioFileRecorder::note(const QString &call)
{
    m_factory.calls.append(call);
}

void FakeAudioFileRecorder::setMeteringEnabled(bool enabled)
{
    note(enabled ? QStringLiteral("meteringOn") : QStringLiteral("meteringOff"));
}

void FakeAudioFileRecorder::createFile() const
{
    QFile file(m_url.path());
    if (file.open(QIODevice::WriteOnly))
        file.write(QByteArray(2048, 'a'));
}

bool FakeAudioFileRecorder::prepareToRecord()
{
    note(QStringLiteral("prepare"));
    if (m_factory.createsFiles)
        createFile();
    if (m_factory.troubleAtPrepare)
        Q_EMIT troubleOccurred(*m_factory.troubleAtPrepare, QString());
    return m_factory.createsFiles;
}

bool FakeAudioFileRecorder::record()
{
    note(QStringLiteral("record"));
    return true;
}

void FakeAudioFileRecorder::pause()
{
    note(QStringLiteral("pause"));
}

void FakeAudioFileRecorder::updateMeters()
{
    note(QStringLiteral("updateMeters"));
}

void FakeAudioFileRecorder::stop()
{
    note(QStringLiteral("stop"));
    if (m_finishing || m_finished)
        return;
    m_finishing = true;
    if (!m_factory.finishDelay)
        finish();
    else if (*m_factory.finishDelay >= 0)
        QTimer::singleShot(*m_factory.finishDelay, this, [this] { finish(); });
}

void FakeAudioFileRecorder::finish(bool kept)
{
    m_finishing = false;
    m_finished = true;
    note(QStringLiteral("finished"));
    Q_EMIT finished(kept);
}

std::unique_ptr<AudioFileRecorder> FakeAudioFileRecorderFactory::create(const FileURL &url,
                                                                        const AudioRecorderSettings &settings,
                                                                        Error *error)
{
    askedForError = askedForError || error;
    if (refuses)
        return nullptr;
    auto recorder = std::make_unique<FakeAudioFileRecorder>(url, settings, *this);
    made.append(recorder.get());
    return recorder;
}

} // namespace kest::test
