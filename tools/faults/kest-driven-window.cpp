// The main window over a real bus, with a recording that is there already; one command a line on standard input:
//
//     take sending|showing        a new window, and a recording in it      ->  taken
//     again                       another recording in the same window     ->  taken
//     press script|own NAME       presses the control of that name         ->  a JSON object, see `pressed`
//
// Arguments: the limits for a call, for the start of a mail application, and for the call after one that was not answered in
// time, in milliseconds.

#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "platform/linux/mail/DBusMailTransport.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

class Driven : public QObject
{
    Q_OBJECT

public:
    explicit Driven(const DBusMailTransport::Limits &limits) : m_limits(limits), m_input(STDIN_FILENO, QSocketNotifier::Read)
    {
        if (!m_in.open(stdin, QIODevice::ReadOnly | QIODevice::Unbuffered))
            qFatal("no standard input");
        connect(&m_input, &QSocketNotifier::activated, this, [this] { takeCommand(); });
    }

private:
    void takeCommand()
    {
        m_input.setEnabled(false); // one at a time, also while a command waits in an event loop
        const QString line = QString::fromUtf8(m_in.readLine().trimmed());
        if (line.isEmpty())
            return QCoreApplication::quit();
        if (line.startsWith(u"take "_s))
            take(line == u"take sending"_s);
        else if (line == u"again"_s)
            again();
        else
            press(line.section(u' ', 1, 1) == u"script"_s, line.section(u' ', 2));
        m_input.setEnabled(true);
    }

    void take(bool sending)
    {
        m_house.reset();
        m_content.clear();
        m_mail = std::make_unique<DBusMailTransport>(m_limits);
        m_house = std::make_unique<WindowHouse>();
        m_house->otherMail = m_mail.get();
        m_house->settings->setBool(sending, SettingsKeys::bSendReplies);
        m_house->settings->setBool(true, SettingsKeys::bDeleteOriginals);
        m_house->openAndShow();
        again();
    }

    void again()
    {
        m_house->clock.advance(60);
        m_house->click(u"Record"_s);
        m_house->click(u"Stop"_s);
        const QByteArray before = std::exchange(m_content, recordings());
        say(m_content.size() > before.size() ? "taken" : "nothing taken");
    }

    void press(bool script, const QString &control)
    {
        m_house->settings->setBool(script, SettingsKeys::useASClass);
        m_house->alerts.shown.clear();
        QElapsedTimer elapsed;
        elapsed.start();
        QString exception;
        try {
            m_house->click(control);
        } catch (const std::exception &caught) {
            exception = QString::fromUtf8(caught.what());
        }
        pressed(double(elapsed.elapsed()) / 1000, exception);
    }

    /// How long it took, what was said, and how things stand now.
    void pressed(double seconds, const QString &exception)
    {
        const MainWindowController &controller = *m_house->controller;
        const QString alert = m_house->alerts.shown.isEmpty() ? QString() : m_house->alerts.shown.first().messageText;
        const QJsonObject told{{u"seconds"_s, seconds},
                               {u"exception"_s, exception},
                               {u"alerts"_s, m_house->alerts.shown.size()},
                               {u"alert"_s, alert},
                               {u"busy"_s, controller.busy()},
                               {u"enabled"_s, m_house->isEnabled(u"Record"_s)},
                               {u"recordingExists"_s, controller.recordingExists()},
                               {u"fileIntact"_s, recordings() == m_content}};
        say(QJsonDocument(told).toJson(QJsonDocument::Compact));
    }

    /// Names and bytes.
    QByteArray recordings() const
    {
        QByteArray all;
        const QDir folder(m_house->delegate.recordings->path());
        for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
            QFile file(folder.filePath(name));
            if (file.open(QIODevice::ReadOnly))
                all += name.toUtf8() + '\0' + file.readAll();
        }
        return all;
    }

    static void say(const QByteArray &what)
    {
        std::printf("%s\n", what.constData());
        std::fflush(stdout);
    }

    const DBusMailTransport::Limits m_limits;
    QFile m_in;
    QSocketNotifier m_input;
    std::unique_ptr<DBusMailTransport> m_mail;
    std::unique_ptr<WindowHouse> m_house;
    QByteArray m_content;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc != 4)
        qFatal("usage: kest-driven-window ANSWER START AGAIN");
    const std::chrono::milliseconds answer(std::atoi(argv[1]));
    const std::chrono::milliseconds start(std::atoi(argv[2]));
    const std::chrono::milliseconds again(std::atoi(argv[3]));
    Driven driven({.answer = answer, .start = start, .startAgain = start, .answerAgain = again});
    return QApplication::exec();
}

#include "kest-driven-window.moc"
