#pragma once

#include <QApplication>

#include <functional>

namespace kest {

/// The application and its main loop.
///
/// An exception that rises to the loop is logged, and the loop goes on. However
/// the end is asked for (terminate, quit, a signal, the end of the session), it
/// comes through `terminate`. Closing the last window is not such a wish: who
/// owns the window decides.
class Application : public QApplication
{
    Q_OBJECT

public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

    /// Called once, before the loop ends; it may take its time. When it raises
    /// an exception, the end comes all the same.
    void setShouldTerminate(std::function<void()> shouldTerminate) { m_shouldTerminate = std::move(shouldTerminate); }

public Q_SLOTS:
    /// Ends the application: asks `shouldTerminate`, then leaves the main loop
    /// and all loops within it. A second call does nothing.
    void terminate();

protected:
    bool event(QEvent *event) override;

private:
    std::function<void()> m_shouldTerminate;
    bool m_terminating = false;
};

} // namespace kest
