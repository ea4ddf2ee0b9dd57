#include "ui/MailStateView.h"

#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/MailConnection.h"
#include "ui/MailWords.h"
#include "ui/controls/ControlButton.h"
#include "ui/controls/SeenClick.h"

#include <QEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace kest {

namespace {

constexpr int gap = 6; // points

QString chosenAccount(const UserDefaults &settings)
{
    const QString account = settings.objectForKey(SettingsKeys::emailAccountToUse).toString();
    return account == noAccountChosen ? QString() : account;
}

/// The same words, but a line may end inside of one that is wider than a line: a long address. One that fits stays together.
QString breakable(const QString &words, const QFontMetrics &metrics, int width)
{
    constexpr QChar zeroWidthSpace(0x200B);
    static const QRegularExpression seam(QStringLiteral("(?<=[@._-])(?=\\w)"));
    QStringList list = words.split(u' ');
    for (QString &word : list) {
        if (metrics.horizontalAdvance(word) > width)
            word.replace(seam, zeroWidthSpace);
    }
    return list.join(u' ');
}

} // namespace

MailStateView::MailStateView(QWidget *parent)
    : QWidget(parent)
    , m_words(new QLabel(this))
    , m_button(new ControlButton(this))
{
    m_words->setObjectName(QStringLiteral("mailStateField"));
    m_words->setWordWrap(true);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setMinimumWidth(1); // a long account's name must not widen the card
    m_button->setObjectName(QStringLiteral("installAddOnButton"));
    m_button->setText(tr("Install Add-on"));
    m_button->setAccessibleName(tr("Install Add-on"));
    m_button->setHint(tr("Put Kest’s add-on into your Thunderbird profile"));
    m_button->hide();
    onSeenClick(*m_button, this, [this] { install(); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    layout->addWidget(m_words);
    layout->addWidget(m_button, 0, Qt::AlignLeft);
}

void MailStateView::watch(MailConnection &connection, UserDefaults &settings)
{
    m_connection = &connection;
    m_settings = &settings;
    connect(&connection, &MailConnection::changed, this, &MailStateView::showState);
    connect(&connection, &MailConnection::installEnded, this, &MailStateView::installEnded);
    connect(&settings, &UserDefaults::valueChanged, this, [this](const QString &key) {
        if (key == SettingsKeys::emailAccountToUse)
            showState();
    });
    showState();
    look();
}

QWidget *MailStateView::button() const
{
    return m_button;
}

QString MailStateView::text() const
{
    return m_words->accessibleName();
}

bool MailStateView::event(QEvent *event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate)
        look();
    return QWidget::event(event);
}

void MailStateView::look()
{
    if (m_connection && isVisible())
        m_connection->look();
}

void MailStateView::showState()
{
    const QString words = wordsFor(m_connection->state(), chosenAccount(*m_settings));
    m_words->setAccessibleName(words);
    breakLines();
    m_words->setToolTip(words);
    m_button->setVisible(offersToInstall(m_connection->state()));
}

void MailStateView::breakLines()
{
    m_words->setText(breakable(text(), m_words->fontMetrics(), width()));
}

void MailStateView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    breakLines();
}

void MailStateView::install()
{
    m_button->setEnabled(false);
    m_connection->installAddOn();
}

void MailStateView::installEnded(const QString &problem)
{
    m_button->setEnabled(true);
    Q_EMIT installTold(problem.isEmpty() ? tr("The add-on is installed.") : problem);
}

} // namespace kest
