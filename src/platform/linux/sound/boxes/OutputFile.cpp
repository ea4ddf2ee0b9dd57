#include "platform/linux/sound/boxes/OutputFile.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace kest {

namespace {

constexpr size_t pieceBytes = 1024 * 1024;

} // namespace

OutputFile::OutputFile(int file, quint64 position) : m_file(file), m_position(position)
{
    m_held.reserve(pieceBytes);
}

void OutputFile::append(Bytes bytes)
{
    while (!bytes.empty() && !m_error) {
        const Bytes fitting = bytes.first(std::min(bytes.size(), pieceBytes - m_held.size()));
        m_held.insert(m_held.end(), fitting.begin(), fitting.end());
        bytes = bytes.subspan(fitting.size());
        if (m_held.size() == pieceBytes)
            flush();
    }
}

void OutputFile::flush()
{
    write(m_held);
    m_held.clear();
}

void OutputFile::write(Bytes bytes)
{
    while (!bytes.empty() && !m_error) {
        const ssize_t count = pwrite(m_file, bytes.data(), bytes.size(), off_t(m_position));
        if (count < 0 && errno != EINTR)
            m_error = errno;
        if (count > 0) {
            m_position += quint64(count);
            bytes = bytes.subspan(size_t(count));
        }
    }
}

} // namespace kest
