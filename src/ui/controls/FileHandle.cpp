#include "ui/controls/FileHandle.h"

#include "platform/FileAddress.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>

namespace kest {

void FileHandle::setFile(const FileURL &file)
{
    m_file = file;
    setCursor(file.isEmpty() ? Qt::ArrowCursor : Qt::OpenHandCursor);
}

void FileHandle::mousePressEvent(QMouseEvent *event)
{
    m_pressedAt = event->pos();
}

void FileHandle::mouseMoveEvent(QMouseEvent *event)
{
    const bool far = (event->pos() - m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (event->buttons() & Qt::LeftButton && far && !m_file.isEmpty())
        drag();
}

void FileHandle::drag()
{
    auto *contents = new QMimeData; // the drag's
    contents->setUrls({addressOf(m_file)});
    auto *drag = new QDrag(this); // Qt's
    drag->setMimeData(contents);
    drag->setPixmap(grab());
    drag->exec(Qt::CopyAction);
}

} // namespace kest
