// Runs a target over every file of the folders that are named, without libFuzzer: what once found something, and the
// seeds, are tried with every compiler and in every test run.

#include "Target.h"

#include <QDirIterator>
#include <QFile>

int main(int argc, char *argv[])
{
    int tried = 0;
    for (int index = 1; index < argc; ++index) {
        QDirIterator files(QFile::decodeName(argv[index]), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            KEST_MUST(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.constData()), size_t(bytes.size()));
            ++tried;
        }
    }
    std::printf("%d inputs\n", tried);
    return tried > 0 ? 0 : 1;
}
