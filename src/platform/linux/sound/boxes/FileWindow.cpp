#include "platform/linux/sound/boxes/FileWindow.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

FileWindow::FileWindow(int file) : m_file(file), m_buffer(mostBytes)
{
    struct stat status = {};
    if (fstat(file, &status) < 0)
        m_error = errno;
    else
        m_size = quint64(std::max<off_t>(status.st_size, 0));
}

Bytes FileWindow::at(quint64 position, size_t length)
{
    if (position >= m_size)
        return {};
    length = size_t(std::min<quint64>({length, mostBytes, m_size - position}));
    if (position < m_position || position + length > m_position + m_filled)
        fill(position);
    if (m_error || position >= m_position + m_filled)
        return {};
    const Bytes filled(m_buffer.data(), m_filled);
    const Bytes wanted = filled.subspan(size_t(position - m_position));
    return wanted.first(std::min(length, wanted.size()));
}

void FileWindow::fill(quint64 position)
{
    m_position = position;
    m_filled = 0;
    while (m_filled < mostBytes && !m_error) {
        const ssize_t count = pread(m_file, m_buffer.data() + m_filled, mostBytes - m_filled,
                                    off_t(position + m_filled));
        if (count == 0)
            break;
        if (count > 0)
            m_filled += size_t(count);
        else if (errno != EINTR)
            m_error = errno;
    }
}

} // namespace kest
