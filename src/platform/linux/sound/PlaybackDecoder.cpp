#include "platform/linux/sound/PlaybackDecoder.h"

#include <array>
#include <cmath>

namespace kest {

void PlaybackDecoder::run()
{
    PlaybackFailure failure;
    const auto sound = SoundFile::open(file, *decoders, &failure);
    if (!sound)
        return buffer->fail(failure);
    opened(sound->version(), sound->seconds());
    SoundReader &reader = sound->reader();
    if (const auto failed = reader.seek(std::llround(from * reader.sampleRate())))
        return buffer->fail({PlaybackTrouble::Unreadable, failed->detail});
    buffer->begin(reader.sampleRate());
    std::array<float, 2048> samples;
    FileFailure broken;
    qsizetype count = 0;
    while ((count = reader.read(samples.data(), samples.size(), &broken)) > 0) {
        if (!buffer->write(samples.data(), count))
            return;
    }
    if (count < 0)
        buffer->fail({PlaybackTrouble::Unreadable, broken.detail});
    else
        buffer->end();
}

} // namespace kest
