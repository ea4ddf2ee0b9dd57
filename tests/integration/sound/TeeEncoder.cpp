#include "TeeEncoder.h"

namespace kest::test {

namespace {

class TeeWriter final : public RecordingWriter
{
public:
    TeeWriter(std::unique_ptr<RecordingWriter> real, std::vector<float> &copy) : m_real(std::move(real)), m_copy(copy) { }

    std::optional<FileFailure> write(const float *samples, qsizetype count) override
    {
        m_copy.insert(m_copy.end(), samples, samples + count);
        return m_real->write(samples, count);
    }

    std::optional<FileFailure> close() override { return m_real->close(); }

private:
    std::unique_ptr<RecordingWriter> m_real;
    std::vector<float> &m_copy;
};

} // namespace

class TeeEncoder::Plugin final : public EncoderPlugin
{
public:
    Plugin(EncoderPlugin &real, std::vector<float> &copy) : m_real(real), m_copy(copy) { }

    std::unique_ptr<RecordingWriter> createWriter(int file, const EncoderFormat &format, FileFailure *failure) override
    {
        auto real = m_real.createWriter(file, format, failure);
        return real ? std::make_unique<TeeWriter>(std::move(real), m_copy) : nullptr;
    }

private:
    EncoderPlugin &m_real;
    std::vector<float> &m_copy;
};

TeeEncoder::TeeEncoder() = default;

TeeEncoder::~TeeEncoder() = default;

EncoderPlugin *TeeEncoder::load(QString *problem)
{
    EncoderPlugin *real = EncoderLoader::load(problem);
    if (real && !m_plugin)
        m_plugin = std::make_unique<Plugin>(*real, m_samples);
    return m_plugin.get();
}

} // namespace kest::test
