#include "ui/controls/PullDownMenu.h"

#include "ui/controls/PullDownItems.h"

#include <QKeyEvent>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace kest {

namespace {

constexpr int mostRowsShown = 20;
constexpr int widestTitle = 420; // device-independent pixels; a longer one is shortened in its middle
constexpr int titlesMeasured = 16;
constexpr int gap = 2; // between button and menu

QListView *makeList(PullDownItems *items, QWidget *parent)
{
    auto *list = new QListView(parent);
    list->setModel(items);
    list->setItemDelegate(new PullDownItemDelegate(list));
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    list->setFrameShape(QFrame::NoFrame);
    list->setMouseTracking(true);
    return list;
}

} // namespace

PullDownMenu::PullDownMenu(QWidget *button)
    : QFrame(button, Qt::Popup)
    , m_button(button)
    , m_items(new PullDownItems(this))
    , m_list(makeList(m_items, this))
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(m_list);
    setFocusProxy(m_list);
    m_list->installEventFilter(this);
    m_list->viewport()->installEventFilter(this);
    connect(m_list, &QAbstractItemView::clicked, this, &PullDownMenu::choose);
}

void PullDownMenu::setImage(const QIcon &image)
{
    m_image = image;
    Q_EMIT imageChanged();
}

const QList<PullDownItem> &PullDownMenu::items() const
{
    return m_items->items();
}

void PullDownMenu::setItems(QList<PullDownItem> items)
{
    m_items->setItems(std::move(items));
}

void PullDownMenu::popup()
{
    if (items().isEmpty())
        return;
    Q_EMIT aboutToShow();
    m_list->setAccessibleName(m_button->accessibleName());
    setGeometry(place());
    show();
    m_list->setFocus(Qt::PopupFocusReason); // goes to the first item by itself
    const auto checked = std::find_if(items().cbegin(), items().cend(), [](const auto &item) { return item.checked; });
    m_list->setCurrentIndex(checked == items().cend() ? QModelIndex()
                                                      : m_items->index(static_cast<int>(checked - items().cbegin())));
}

// Those with the most characters: to measure all would take longer than all the rest.
int PullDownMenu::widthOfTitles() const
{
    QList<const QString *> longest;
    longest.reserve(items().size());
    for (const PullDownItem &item : items())
        longest.append(&item.title);
    const auto measured = std::min<qsizetype>(titlesMeasured, longest.size());
    std::partial_sort(longest.begin(), longest.begin() + measured, longest.end(),
                      [](const QString *one, const QString *other) { return one->size() > other->size(); });
    int width = 0;
    for (const QString *title : longest.first(measured))
        width = std::max(width, m_list->fontMetrics().horizontalAdvance(shownTitle(*title)));
    return std::min(width, widestTitle);
}

QRect PullDownMenu::place() const
{
    const QSize item = PullDownItemDelegate::sizeOf(*m_list, widthOfTitles());
    const auto rows = static_cast<int>(std::min<qsizetype>(items().size(), mostRowsShown));
    const QRect screen = m_button->screen()->availableGeometry();
    const QRect button(m_button->mapToGlobal(QPoint()), m_button->size());
    const int below = screen.bottom() - button.bottom() - gap;
    const int above = button.top() - screen.top() - gap;
    const QMargins frame = layout()->contentsMargins() + contentsMargins();
    const int wanted = rows * item.height() + frame.top() + frame.bottom();
    const bool under = wanted <= below || below >= above;
    const int height = std::min(wanted, under ? below : above);
    const int bar = m_list->verticalScrollBar()->sizeHint().width();
    const int width = std::min(item.width() + frame.left() + frame.right() + bar, screen.width());
    const int left = layoutDirection() == Qt::RightToLeft ? button.right() + 1 - width : button.left();
    return {std::clamp(left, screen.left(), screen.right() + 1 - width),
            under ? button.bottom() + 1 + gap : button.top() - gap - height, width, height};
}

bool PullDownMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_list && (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride))
        return isOurs(*static_cast<QKeyEvent *>(event));
    // Where the pointer moves, not where it lies: a list scrolled by keys passes under it.
    if (watched == m_list->viewport() && event->type() == QEvent::MouseMove)
        m_list->setCurrentIndex(m_list->indexAt(static_cast<QMouseEvent *>(event)->position().toPoint()));
    return QFrame::eventFilter(watched, event);
}

bool PullDownMenu::isOurs(QKeyEvent &event)
{
    const bool pressed = event.type() == QEvent::KeyPress;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (pressed)
            choose(m_list->currentIndex());
        break;
    case Qt::Key_Escape:
        if (pressed)
            close();
        break;
    case Qt::Key_Up:
    case Qt::Key_End:
        // By itself the list goes to its first item from nowhere.
        if (m_list->currentIndex().isValid())
            return false;
        if (pressed)
            m_list->setCurrentIndex(m_items->index(static_cast<int>(items().size()) - 1));
        break;
    default: return false;
    }
    event.accept();
    return true;
}

// A press outside closes; on the button it does nothing more, or it would open the menu again at once.
void PullDownMenu::mousePressEvent(QMouseEvent *event)
{
    const QRect button(m_button->mapToGlobal(QPoint()), m_button->size());
    setAttribute(Qt::WA_NoMouseReplay, button.contains(event->globalPosition().toPoint()));
    QFrame::mousePressEvent(event);
}

void PullDownMenu::choose(const QModelIndex &index)
{
    if (!index.isValid() || !items().at(index.row()).enabled)
        return;
    const QString title = items().at(index.row()).title;
    close();
    Q_EMIT triggered(title);
}

} // namespace kest
