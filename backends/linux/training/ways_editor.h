// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "engine/audio/audio_source.h"
#include "engine/user_profile.h"
#include "linux/training/reading_microphone.h"
#include "linux/training/worker.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace corvane::linux_desktop {

class LevelMeter;

/// In which a person chooses how a word is said: from ways that are offered, written sound by
/// sound, or taken from a recording.
class WaysEditor final : public QWidget {
public:
    struct Means {
        /// See WordsPage::Means.
        std::function<void(const std::string& phones)> say;
        std::function<void()> hush;
        std::function<std::unique_ptr<engine::AudioSource>()> open_microphone;
        /// Told what a person should know; with `trouble` it went wrong.
        std::function<void(const QString& line, bool trouble)> tell;
    };

    /// profile: outlives the editor.
    WaysEditor(engine::UserProfile& profile, Means means);
    ~WaysEditor() override;
    WaysEditor(const WaysEditor&) = delete;
    WaysEditor& operator=(const WaysEditor&) = delete;

    /// Shows the ways of a word, those that are in use and others that may be.
    void Show(const engine::WaysToSay& used, const engine::WaysToSay& others);

    /// The ways that are ticked. Only to be used when there is no Problem.
    [[nodiscard]] engine::WaysToSay Chosen() const;
    /// Why they can't be used, for people; empty if they can.
    [[nodiscard]] QString Problem() const;

    /// Lets go of the microphone; what was recorded and is still being written down is dropped.
    void StopRecording();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void MakeParts();
    void LayOut();
    QListWidgetItem* AddWay(const QString& phones, bool used);
    void FollowChoice();
    void Write(const QString& text);
    void Insert(const QString& sound);
    void Hear();
    void Hush();
    void Record();
    void LetGoOfMicrophone();
    void Recorded(const engine::ReadingCatcher::Reading& reading);
    void TakeDown(const std::string& phones);

    Means means_;
    engine::UserProfile& profile_;
    QListWidget* ways_;
    QPushButton* hear_;
    QPushButton* record_;
    QPushButton* other_;
    LevelMeter* meter_;
    QLineEdit* sounds_;
    QLabel* complaint_;
    QWidget* palette_;
    QTimer patience_;                                ///< with someone who says nothing
    std::unique_ptr<ReadingMicrophone> microphone_;  ///< while it records
    bool signal_ = true;                             ///< of the microphone
    engine::UserVoice::Transform written_voice_;     ///< in which the last recording was written
    std::shared_ptr<engine::PhoneWriter> writer_;    ///< from the first recording on; the worker's
    int turn_ = 0;  ///< another one when what has been recorded counts no more
    Worker worker_;
};

}  // namespace corvane::linux_desktop
