#pragma once

#include <QtGlobal>

#include <unistd.h>
#include <utility>

namespace kest {

/// Owns one open file descriptor and closes it.
class FileDescriptor
{
public:
    FileDescriptor() = default;

    /// Takes over `fd`; a negative one means that nothing is open.
    explicit FileDescriptor(int fd) : m_fd(fd) {}
    FileDescriptor(FileDescriptor &&other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~FileDescriptor() { close(); }
    Q_DISABLE_COPY(FileDescriptor)

    bool isOpen() const { return m_fd >= 0; }
    int get() const { return m_fd; }

    /// Closes early. False, with errno set, when the system reports that what
    /// was written did not all arrive.
    bool close() { return m_fd < 0 || ::close(std::exchange(m_fd, -1)) == 0; }

private:
    int m_fd = -1;
};

} // namespace kest
