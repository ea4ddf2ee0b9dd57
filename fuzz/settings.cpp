// The settings file: what is read can be written, and read again as the same.

#include "Target.h"
#include "app/SettingsFormat.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto settings = kest::readSettings(kest::fuzz::bytesOf(data, size));
    if (!settings)
        return 0;
    const auto again = kest::readSettings(kest::writeSettings(*settings));
    KEST_MUST(again);
    KEST_MUST(*again == *settings);
    return 0;
}
