#pragma once

#include "platform/linux/sound/boxes/Box.h"

#include <vector>

namespace kest {

/// Writes a file from its beginning in large pieces. One thread.
class OutputFile
{
public:
    /// `file` stays the caller's, its position untouched.
    explicit OutputFile(int file);

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
    qint64 m_position = 0;
    int m_error = 0;
};

} // namespace kest
