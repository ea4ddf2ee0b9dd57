// An entry of the list of unfinished recordings, as a crash or somebody else may have left it.

#include "Target.h"
#include "platform/linux/sound/RecordingFinisher.h"
#include "platform/linux/sound/RecordingJournal.h"

#include <QFile>
#include <QTemporaryDir>

using namespace kest;

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/kest-XXXXXX"));
    QFile file(folder.filePath(QStringLiteral("entry.json")));
    KEST_MUST(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(reinterpret_cast<const char *>(data), qint64(size));
    file.close();
    const auto entries = RecordingJournal(QFile::encodeName(folder.path())).interrupted();
    KEST_MUST(entries.size() <= 1);
    for (const auto &entry : entries) {
        KEST_MUST(entry->file().nativePath().startsWith('/'));
        KEST_MUST(entry->ageInDays() == 0);
    }
    KEST_MUST(file.exists() == !entries.empty());
    KEST_MUST(file.open(QIODevice::ReadOnly) == !entries.empty());
    if (file.isOpen())
        (void)isFragmented(file.handle());
    return 0;
}
