#pragma once

#include "platform/linux/sound/boxes/Box.h"

#include <vector>

namespace kest {

/// Writes a file front to back in large pieces. One thread.
class OutputFile
{
public:
    /// `file` stays the caller's, its own position untouched. The first byte
    /// goes to `position`.
    explicit OutputFile(int file, quint64 position = 0);

    void append(Bytes bytes);

    /// Writes what is still held back.
    void flush();

    /// The errno of the first write that failed, after which nothing more is
    /// written; 0 while none did.
    int error() const { return m_error; }

private:
    void write(Bytes bytes);

    const int m_file;
    std::vector<uchar> m_held;
    quint64 m_position;
    int m_error = 0;
};

} // namespace kest
