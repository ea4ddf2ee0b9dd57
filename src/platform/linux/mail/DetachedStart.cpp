#include "platform/linux/mail/DefaultMailApplication.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

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

// Some describe this process to who started it, the other is set by this program for itself.
bool isMeantForOthers(const char *variable)
{
    for (const char *name : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "GIO_LAUNCHED_DESKTOP_FILE",
                             "GIO_LAUNCHED_DESKTOP_FILE_PID", "NOTIFY_SOCKET", "LISTEN_FDS", "LISTEN_PID",
                             "INVOCATION_ID", "JOURNAL_STREAM", "QT_QPA_PLATFORM"}) {
        const size_t length = std::strlen(name);
        if (std::strncmp(variable, name, length) == 0 && variable[length] == '=')
            return false;
    }
    return true;
}

std::vector<char *> environmentForOthers()
{
    std::vector<char *> variables;
    for (char **variable = environ; *variable; ++variable) {
        if (isMeantForOthers(*variable))
            variables.push_back(*variable);
    }
    variables.push_back(nullptr);
    return variables;
}

// What the new process begins with, by posix_spawn(3): QProcess passes on every descriptor that is not close-on-exec and
// every ignored signal.
class FreshStart
{
public:
    FreshStart()
    {
        ::posix_spawn_file_actions_init(&m_actions);
        ::posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_adddup2(&m_actions, STDOUT_FILENO, STDERR_FILENO);
        ::posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
        ::posix_spawn_file_actions_addchdir_np(&m_actions, QFile::encodeName(QDir::homePath()).constData());
        ::posix_spawnattr_init(&m_attributes);
        sigset_t signals;
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&m_attributes, &signals);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&m_attributes, &signals);
        ::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }

    ~FreshStart()
    {
        ::posix_spawnattr_destroy(&m_attributes);
        ::posix_spawn_file_actions_destroy(&m_actions);
    }

    FreshStart(const FreshStart &) = delete;
    FreshStart &operator=(const FreshStart &) = delete;

    /// Its process id, or nothing.
    std::optional<pid_t> run(std::vector<char *> &words) const
    {
        pid_t process = 0;
        std::vector<char *> environment = environmentForOthers();
        if (::posix_spawnp(&process, words[0], &m_actions, &m_attributes, words.data(), environment.data()) != 0)
            return std::nullopt;
        return process;
    }

private:
    posix_spawn_file_actions_t m_actions = {};
    posix_spawnattr_t m_attributes = {};
};

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
    QList<QByteArray> texts;
    for (const QString &word : application.command)
        texts.append(QFile::encodeName(word));
    std::vector<char *> words;
    for (QByteArray &text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    const std::optional<pid_t> process = FreshStart().run(words);
    if (!process)
        return false;
    // It is our child until we end, so somebody has to take its end.
    std::thread([child = *process] { ::waitpid(child, nullptr, 0); }).detach();
    return true;
}

} // namespace kest
