#include "platform/linux/mail/DefaultMailApplication.h"

#include <QDir>
#include <QProcess>

#include <csignal>
#include <linux/close_range.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

// A "%" and a letter stand for files or names that we have none of; "%%" is a "%".
QString withoutFieldCodes(const QString &word)
{
    QString text;
    for (qsizetype at = 0; at < word.size(); ++at) {
        if (word[at] != u'%')
            text += word[at];
        else if (++at < word.size() && word[at] == u'%')
            text += u'%';
    }
    return text;
}

// Runs in the child, between fork and exec: only what is safe there.
void forgetParent()
{
    ::syscall(SYS_close_range, 3U, ~0U, CLOSE_RANGE_CLOEXEC);
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

// Some describe this process to who started it, the others are set by this program for itself.
QProcessEnvironment environmentForOthers()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "GIO_LAUNCHED_DESKTOP_FILE",
                             "GIO_LAUNCHED_DESKTOP_FILE_PID", "NOTIFY_SOCKET", "LISTEN_FDS", "LISTEN_PID",
                             "INVOCATION_ID", "JOURNAL_STREAM", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    return environment;
}

} // namespace

QStringList commandOfExecKey(const QString &exec)
{
    QStringList words;
    QString word;
    bool isQuoted = false;
    bool hasWord = false;
    const auto finishWord = [&] {
        const bool isFieldCode = !isQuoted && word.size() == 2 && word[0] == u'%' && word[1] != u'%';
        if (hasWord && !isFieldCode)
            words.append(withoutFieldCodes(word));
        word.clear();
        hasWord = false;
    };
    for (qsizetype at = 0; at < exec.size(); ++at) {
        if (exec[at] == u'"') {
            isQuoted = !isQuoted;
            hasWord = true;
        } else if (exec[at] == u' ' && !isQuoted) {
            finishWord();
        } else {
            if (exec[at] == u'\\' && isQuoted && at + 1 < exec.size())
                ++at;
            word += exec[at];
            hasWord = true;
        }
    }
    finishWord();
    return words;
}

bool startDetached(const InstalledMailApplication &application)
{
    QProcess process;
    process.setProgram(application.command.first());
    process.setArguments(application.command.mid(1));
    process.setWorkingDirectory(QDir::homePath());
    process.setProcessEnvironment(environmentForOthers());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier(forgetParent);
    return process.startDetached();
}

} // namespace kest
