// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/audio/audio_source.h"
#include "engine/user_profile.h"
#include "linux/training/voice_session.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QScrollArea;

namespace corvane::linux_desktop {

class LevelMeter;
class StatusLine;

/// Has somebody read sentences aloud and trains a profile to the voice. It listens while it is
/// shown.
class VoicePage final : public QWidget {
public:
    struct Means {
        /// A microphone that is the caller's alone; called for each training.
        std::function<std::unique_ptr<engine::AudioSource>()> open_microphone;
        std::vector<std::string> sentences;  ///< to be read, at least one
        std::function<void()> changed;       ///< called when something else can be done
        std::function<void()> leave;         ///< called when somebody says so
    };

    /// profile: outlives the page.
    VoicePage(engine::UserProfile& profile, Means means);
    ~VoicePage() override;
    VoicePage(const VoicePage&) = delete;
    VoicePage& operator=(const VoicePage&) = delete;

    [[nodiscard]] VoiceSession::Stage Stage() const { return session_->Now().stage; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeButtons();
    void LayOut();
    void Begin();
    void BeginAnew();
    void Show(const VoiceSession::State& state);
    void FollowStage(const VoiceSession::State& state);
    void ShowSentence(const VoiceSession::State& state);
    void ShowProgress(const VoiceSession::State& state);
    void ShowStatus(const VoiceSession::State& state);
    void ShowButtons(const VoiceSession::State& state);

    engine::UserProfile& profile_;
    Means means_;
    /// Stage, and whether something can be saved.
    std::pair<VoiceSession::Stage, bool> shown_{VoiceSession::Stage::introduction, false};

    QLabel* introduction_;
    QLabel* number_;
    QProgressBar* progress_;
    QScrollArea* card_;
    QLabel* sentence_;
    StatusLine* status_;
    QLabel* wishes_;
    LevelMeter* meter_;
    QPushButton* start_;
    QPushButton* again_;
    QPushButton* skip_;
    QPushButton* anew_;
    QPushButton* undo_;
    QPushButton* save_;

    std::unique_ptr<VoiceSession> session_;
};

}  // namespace corvane::linux_desktop
