#pragma once

#include "platform/linux/sound/boxes/Box.h"

#include <vector>

namespace kest {

/// Reads a file front to back in large pieces, and hands out small ones. The
/// memory is the same whatever the file says of itself. One thread.
class FileWindow
{
public:
    static constexpr size_t mostBytes = 512 * 1024;

    /// `file` stays the caller's, its position untouched. What is appended
    /// to it afterwards is not seen.
    explicit FileWindow(int file);

    /// Bytes in the file.
    quint64 size() const { return m_size; }

    /// Up to `length` bytes (at most `mostBytes`) from `position` on; fewer at the
    /// end of the file, none after an error. Valid until the next call.
    Bytes at(quint64 position, size_t length);

    /// The errno of the read that failed; 0 while none did.
    int error() const { return m_error; }

private:
    void fill(quint64 position);

    const int m_file;
    quint64 m_size = 0;
    std::vector<uchar> m_buffer;
    quint64 m_position = 0; // of the buffer's first byte in the file
    size_t m_filled = 0;
    int m_error = 0;
};

} // namespace kest
