#pragma once

#include "platform/FileURL.h"
#include "ui/controls/ReadoutField.h"

namespace kest {

/// A file's name, by which the file can be dragged into another window. What is
/// dropped is a copy: the file stays.
class FileHandle : public ReadoutField
{
    Q_OBJECT

public:
    using ReadoutField::ReadoutField;

    /// The file behind the name; empty: nothing can be dragged.
    void setFile(const FileURL &file);
    const FileURL &file() const { return m_file; }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void drag();

    FileURL m_file;
    QPoint m_pressedAt;
};

} // namespace kest
