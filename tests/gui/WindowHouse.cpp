#include "gui/WindowHouse.h"

#include "app/SettingsTable.h"
#include "ui/controls/ReadoutField.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QIODevice>
#include <QTest>

namespace kest::test {

namespace {

std::optional<FolderURL> folderOrError(const std::optional<FolderURL> &folder, Error *error)
{
    if (!folder)
        handBack(error, {kestErrorDomain, 11000, QStringLiteral("no folder"), {}});
    return folder;
}

} // namespace

std::optional<FolderURL> FakeDelegate::recordingsDirectoryURLWithError(Error *error)
{
    return folderOrError(recordings, error);
}

std::optional<FolderURL> FakeDelegate::attachmentsDirectoryURLWithError(Error *error)
{
    return folderOrError(attachments, error);
}

WindowHouse::WindowHouse()
    : settings(std::make_unique<UserDefaults>(home.filePath(QStringLiteral("kest.ini"))))
{
    qRegisterMetaType<RecordingTrouble>();
    delegate.recordings = folder(QStringLiteral("Kest"));
    delegate.attachments = folder(QStringLiteral("Kest Optional Outgoing Messages"));
    settings->registerDefaults(defaultsToRegister({}, {}));
    mail.answerAsUsual();
}

WindowHouse::~WindowHouse() = default;

FolderURL WindowHouse::folder(const QString &name) const
{
    QDir(home.path()).mkpath(name);
    return FileURL::fromPath(home.filePath(name));
}

void WindowHouse::open()
{
    controller.reset();
    controller = std::make_unique<MainWindowController>(MainWindowDependencies{
        .clock = clock,
        .processInfo = processInfo,
        .recorderFactory = recorders,
        .player = player,
        .mailTransport = otherMail ? *otherMail : mail,
        .mailConnection = otherConnection ? *otherConnection : connection,
        .alertPresenter = alerts,
        .userDefaults = *settings,
        .delegate = otherDelegate ? *otherDelegate : delegate,
        .folderContents = folderContents,
        .trash = trash,
        .bookmarkStore = bookmarks,
        .workspace = workspace,
        .beep = [this] { ++beeps; },
        .finishTimeLimit = finishTimeLimit,
    });
}

void WindowHouse::openAndShow()
{
    open();
    controller->showWindow();
    if (!QTest::qWaitForWindowActive(controller->window(), 30000))
        qFatal("the window did not become active");
}

QWidget *WindowHouse::widgetNamed(const QString &accessibleName) const
{
    // Tests name controls in English, whatever language the window speaks.
    const QByteArray source = accessibleName.toUtf8();
    const QStringList names{QCoreApplication::translate("MainWindow", source.constData()),
                            QCoreApplication::translate("PrefsSheet", source.constData())};
    QList<QWidget *> found = controller->window()->findChildren<QWidget *>();
    found.removeIf([&](const QWidget *widget) { return !names.contains(widget->accessibleName()); });
    if (found.size() != 1)
        qFatal("%lld controls are named %ls", static_cast<long long>(found.size()), qUtf16Printable(accessibleName));
    return found.first();
}

QDialog *WindowHouse::openPreferences() const
{
    click(QStringLiteral("Preferences"));
    QDialog *sheet = controller->preferences()->window();
    // Not qWaitForWindowActive: a window over an active one counts as active for it.
    if (!QTest::qWaitFor([&] { return QApplication::activeWindow() == sheet; }))
        qFatal("the preferences did not become active");
    return sheet;
}

void WindowHouse::click(const QString &accessibleName) const
{
    QTest::mouseClick(find(accessibleName), Qt::LeftButton);
}

QString WindowHouse::notice() const
{
    return find<ReadoutField>(QStringLiteral("Notice"))->text();
}

void WindowHouse::record() const
{
    click(QStringLiteral("Record"));
    controller->audioRecordingUpdateTimeWithTimer();
}

void WindowHouse::writePrepared(const QString &name, const QByteArray &content) const
{
    QFile file(delegate.attachments->appendingPathComponent(name).path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void WindowHouse::choosePrepared(const QString &name) const
{
    controller->setAttachmentName(name);
    controller->setCanReplyOrCompose(true);
}

} // namespace kest::test
