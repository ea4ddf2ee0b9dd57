#include "mail/PlainText.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringDecoder>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

namespace {

struct Mark {
    QByteArray bytes;
    QStringConverter::Encoding encoding;
};

// Longer marks first: UTF-32's begins with UTF-16's.
const QList<Mark> &marks()
{
    static const QList<Mark> list{{QByteArray::fromHex("fffe0000"), QStringConverter::Utf32LE},
                                  {QByteArray::fromHex("0000feff"), QStringConverter::Utf32BE},
                                  {QByteArray::fromHex("efbbbf"), QStringConverter::Utf8},
                                  {QByteArray::fromHex("fffe"), QStringConverter::Utf16LE},
                                  {QByteArray::fromHex("feff"), QStringConverter::Utf16BE}};
    return list;
}

// Western text in UTF-16 has a zero in nearly every unit; no other text has any.
std::optional<QStringConverter::Encoding> unmarkedUtf16(const QByteArray &bytes)
{
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    qsizetype zeros[2] = {0, 0};
    for (qsizetype at = 0; at < bytes.size(); ++at)
        zeros[at % 2] += bytes[at] == 0;
    const qsizetype units = bytes.size() / 2;
    if (zeros[1] * 2 > units && zeros[0] == 0)
        return QStringConverter::Utf16LE;
    if (zeros[0] * 2 > units && zeros[1] == 0)
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

QString decoded(const QByteArray &bytes)
{
    for (const Mark &mark : marks()) {
        if (bytes.startsWith(mark.bytes))
            return QStringDecoder(mark.encoding).decode(bytes.mid(mark.bytes.size()));
    }
    if (const auto encoding = unmarkedUtf16(bytes))
        return QStringDecoder(*encoding).decode(bytes);
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

Error readError(int number)
{
    const QString words = qt_error_string(number);
    return {posixErrorDomain, number, words, words};
}

Error tooLargeError()
{
    return {kestErrorDomain, 0, QCoreApplication::translate("kest", "it is too large for a message's text"), {}};
}

// Not blocking, because the name may be a pipe's by now.
int openedRegularFile(const FileURL &file, Error *error)
{
    const int descriptor = ::open(file.nativePath().constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat status = {};
    if (descriptor < 0 || ::fstat(descriptor, &status) != 0) {
        handBack(error, readError(errno));
    } else if (!S_ISREG(status.st_mode)) {
        handBack(error, readError(S_ISDIR(status.st_mode) ? EISDIR : EINVAL));
    } else if (status.st_size > largestTextFile) {
        handBack(error, tooLargeError());
    } else {
        return descriptor;
    }
    if (descriptor >= 0)
        ::close(descriptor);
    return -1;
}

} // namespace

QString plainText(const QByteArray &bytes)
{
    QString text = decoded(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

std::optional<QString> plainTextOfFile(const FileURL &file, Error *error)
{
    const int descriptor = openedRegularFile(file, error);
    if (descriptor < 0)
        return std::nullopt;
    QFile contents;
    if (!contents.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        handBack(error, readError(EIO));
        return std::nullopt;
    }
    const QByteArray bytes = contents.read(largestTextFile);
    if (contents.error() != QFileDevice::NoError) {
        handBack(error, readError(EIO));
        return std::nullopt;
    }
    return plainText(bytes);
}

} // namespace kest
