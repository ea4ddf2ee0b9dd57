// A text file of the optional folder, in whatever encoding.

#include "Target.h"
#include "mail/PlainText.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = kest::plainText(kest::fuzz::bytesOf(data, size));
    KEST_MUST(!text.contains(u'\r'));
    KEST_MUST(text.size() <= qsizetype(size) + 1);
    return 0;
}
