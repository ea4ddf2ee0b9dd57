#include "mail/PlainText.h"

#include "platform/BoundedLookUps.h"
#include "platform/FileDescriptor.h"

#include <QCoreApplication>
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

// Windows-1252 where it differs from ISO 8859-1, from 0x80 on; the five bytes that it leaves free stay as they are, as
// the WHATWG Encoding Standard has it.
constexpr char16_t windows1252[] = u"\u20ac\u0081\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152"
                                   u"\u008d\u017d\u008f\u0090\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122"
                                   u"\u0161\u203a\u0153\u009d\u017e\u0178";

QString fromWindows1252(const QByteArray &bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar &character : text) {
        if (character >= QChar(0x80) && character <= QChar(0x9f))
            character = windows1252[character.unicode() - 0x80];
    }
    return text;
}

QString decoded(const QByteArray &bytes)
{
    for (const Mark &mark : marks()) {
        if (bytes.startsWith(mark.bytes))
            return QStringDecoder(mark.encoding).decode(bytes.mid(mark.bytes.size()));
    }
    if (const auto encoding = unmarkedUtf16(bytes))
        return QStringDecoder(*encoding).decode(bytes);
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : fromWindows1252(bytes);
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

Error wordsFor(int errorNumber)
{
    return errorNumber == EFBIG ? tooLargeError() : readError(errorNumber);
}

// 0 for a regular file that is not too large, else why not, as an errno.
int refusal(int descriptor)
{
    struct stat status = {};
    if (descriptor < 0 || ::fstat(descriptor, &status) != 0)
        return errno;
    if (!S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return status.st_size > largestTextFile ? EFBIG : 0;
}

BoundedLookUps::Outcome<QByteArray> contentsOf(const QByteArray &path)
{
    // Not blocking, because the name may be a pipe's or a device's; not following, because it may be a link's by now, to
    // a file that nobody chose.
    const FileDescriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW));
    if (const int reason = refusal(file.get()))
        return {{}, reason};
    QByteArray bytes;
    char block[65536];
    ssize_t count = 0;
    while ((count = ::read(file.get(), block, sizeof block)) > 0) {
        bytes.append(block, count);
        if (bytes.size() > largestTextFile) // it grew meanwhile
            return {{}, EFBIG};
    }
    if (count < 0)
        return {{}, errno};
    return {bytes};
}

} // namespace

QString plainText(const QByteArray &bytes)
{
    QString text = decoded(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
}

std::optional<QString> plainTextOfFile(const FileURL &file, Error *error, std::chrono::milliseconds longestWait)
{
    const QByteArray path = file.nativePath();
    const auto contents = BoundedLookUps(longestWait).run(path, [path] { return contentsOf(path); });
    if (contents.value)
        return plainText(*contents.value);
    handBack(error, wordsFor(contents.errorNumber));
    return std::nullopt;
}

} // namespace kest
