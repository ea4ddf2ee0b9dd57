#pragma once

#include "platform/MicrophoneTrial.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class QLabel;

namespace kest {

class ControlButton;
class KestLevelsView;
class ReadoutField;

/// The microphone's name, and a button to see whether one is heard: a level bar
/// that moves, and words. The microphone is open only from a press of the button
/// until the next one, a trouble, half a minute, or until nobody can see the
/// view any more.
class MicrophoneTrialView : public QWidget
{
    Q_OBJECT

public:
    /// What counts as heard: the level of speech, for longer than a click or a
    /// knock on the table lasts.
    static constexpr float audible = -45.0F;                      ///< dBFS, RMS of 100 ms.
    static constexpr int readingsHeard = 4;                       ///< So many in a row.
    static constexpr std::chrono::milliseconds interval{50};      ///< From one reading to the next.
    static constexpr std::chrono::milliseconds timeLimit{30'000}; ///< A forgotten microphone is closed.

    explicit MicrophoneTrialView(QWidget *parent = nullptr);
    ~MicrophoneTrialView() override;

    /// Tries this microphone; it must outlive the view. Call once.
    void watch(MicrophoneTrial &trial);

    /// Closes the microphone, if it is open. What was said so far stays.
    void stop();

    QString text() const;

    /// Another limit than `timeLimit`.
    void setTimeLimit(std::chrono::milliseconds limit) { m_limitTimer.setInterval(limit); }

protected:
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void startOrStop();
    void start();
    void takeReading();
    void tellTrouble(RecordingTrouble trouble);
    void limitReached();
    void showName();
    void showButton();
    void say(const QString &words);
    void sayAloud(const QString &words);

    ReadoutField *m_name;
    KestLevelsView *m_levels;
    QLabel *m_words;
    ControlButton *m_button;
    MicrophoneTrial *m_trial = nullptr; // null until `watch`
    QTimer m_readings;
    QTimer m_limitTimer;
    QTimer m_nameTimer;
    QElapsedTimer m_nameless; // since the view is seen without a name
    int m_loudReadings = 0;
    bool m_heard = false;
};

} // namespace kest
