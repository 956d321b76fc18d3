// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/voice_words.h"

#include <array>

namespace corvane::linux_desktop {
namespace {

using Advice = VoiceSession::Advice;
using Outcome = VoiceSession::Outcome;

struct AdviceWords {
    Advice advice;
    QStyle::StandardPixmap picture;
    const char* words;
};

constexpr std::array kAdvice{
    AdviceWords{Advice::read, QStyle::SP_MessageBoxInformation,
                "Read the sentence aloud, as you usually speak."},
    AdviceWords{Advice::hearing, QStyle::SP_MediaVolume, "Listening…"},
    AdviceWords{Advice::checking, QStyle::SP_BrowserReload, "Checking what was read…"},
    AdviceWords{Advice::good, QStyle::SP_DialogApplyButton, "Well read. Here is the next one."},
    AdviceWords{Advice::good_but_loud, QStyle::SP_DialogApplyButton,
                "Well read, but too loud for the microphone: move back a little. Here is the next "
                "one."},
    AdviceWords{Advice::good_but_quiet, QStyle::SP_DialogApplyButton,
                "Well read, but very quiet: move closer to the microphone. Here is the next one."},
    AdviceWords{Advice::other, QStyle::SP_MessageBoxWarning,
                "That did not sound like this sentence. Please read all of it once more."},
    AdviceWords{Advice::too_loud, QStyle::SP_MessageBoxWarning,
                "That was too loud for the microphone. Move back a little, and read it once more."},
    AdviceWords{Advice::too_quiet, QStyle::SP_MessageBoxWarning,
                "That was too quiet to make out. Move closer to the microphone, and read it once "
                "more."},
    AdviceWords{Advice::unheard, QStyle::SP_MessageBoxWarning,
                "Nothing has been heard yet. Read the sentence aloud; if the bar below does not "
                "move while you speak, look at the microphone."},
    AdviceWords{Advice::no_signal, QStyle::SP_MessageBoxWarning,
                "No sound comes from the microphone. Is it plugged in and switched on? It goes on "
                "as soon as there is sound."},
    AdviceWords{Advice::skipped, QStyle::SP_MediaSkipForward,
                "Left out. Read this sentence aloud instead."},
    AdviceWords{Advice::given_up, QStyle::SP_MediaSkipForward,
                "That one did not work out, so it is left out. Read this sentence instead."},
    AdviceWords{Advice::unreadable, QStyle::SP_MessageBoxWarning,
                "The sentence that was asked for has no words that can be read, so it is left "
                "out. Read this one."},
    AdviceWords{Advice::undone, QStyle::SP_DialogApplyButton,
                "The last training was undone. Read on to train anew."},
};

const AdviceWords& RowOf(Advice advice) {
    return kAdvice.at(static_cast<std::size_t>(advice));
}

constexpr bool StandInTheirPlaces() {
    for (std::size_t i = 0; i < kAdvice.size(); ++i)
        if (static_cast<std::size_t>(kAdvice[i].advice) != i) return false;
    return kAdvice.back().advice == Advice::undone;
}
static_assert(StandInTheirPlaces());

/// In a person's words.
QString HowMuchBetter(double improvement) {
    constexpr double kMuch = 0.2;
    constexpr double kClear = 0.08;
    if (improvement >= kMuch) return QStringLiteral("much better");
    return improvement >= kClear ? QStringLiteral("clearly better")
                                 : QStringLiteral("a little better");
}

}  // namespace

QString WordsOf(Advice advice) {
    return QString::fromUtf8(RowOf(advice).words);
}

QString WishesOf(const VoiceSession::State& state) {
    switch (state.stage) {
        case VoiceSession::Stage::introduction:
        case VoiceSession::Stage::reading:
            return QStringLiteral(
                "You may also say “skip this sentence” or “cancel the training”.");
        case VoiceSession::Stage::over:
            if (state.can_save)
                return QStringLiteral(
                    "Say “try to save again”, or “close the window” to do without.");
            return state.can_undo ? QStringLiteral(
                                        "Say “close the window”, “train once more” or "
                                        "“undo the last training”.")
                                  : QStringLiteral("Say “close the window” or “train once more”.");
        case VoiceSession::Stage::training:
            break;
    }
    return {};
}

QStyle::StandardPixmap PictureOf(Advice advice) {
    return RowOf(advice).picture;
}

QString HeadlineOf(const VoiceSession::State& state) {
    if (state.can_save) return QStringLiteral("Your voice could not be saved.");
    switch (state.outcome) {
        case Outcome::learnt:
            return QStringLiteral("Your voice has been learnt.");
        case Outcome::no_help:
            return QStringLiteral("Nothing was changed.");
        case Outcome::too_few:
            return QStringLiteral("Too few sentences were read.");
        case Outcome::undone:
            return QStringLiteral("The training was undone.");
        case Outcome::failed:
            return QStringLiteral("The training did not succeed.");
        case Outcome::none:
            break;
    }
    return {};
}

QString ExplanationOf(const VoiceSession::State& state) {
    switch (state.outcome) {
        case Outcome::learnt:
            return QStringLiteral(
                       "You are understood %1: sentences that were held back to try it fit your "
                       "voice closer than before. From now on commands and dictation expect it.")
                .arg(HowMuchBetter(state.improvement));
        case Outcome::no_help:
            return QStringLiteral(
                "The training did not help on sentences that were held back to try it, so it was "
                "not kept. You are understood as before.");
        case Outcome::too_few:
            return QStringLiteral(
                       "At least %1 sentences have to be read well. Nothing was changed.")
                .arg(engine::VoiceTraining::kFewestSentences);
        case Outcome::undone:
            return QStringLiteral("You are understood as before the last training.");
        case Outcome::failed:
            return TroubleOf(state);
        case Outcome::none:
            break;
    }
    return {};
}

QString TroubleOf(const VoiceSession::State& state) {
    const QString failure = QString::fromStdString(state.failure);
    if (!state.can_save) return failure;
    return QStringLiteral(
               "%1. What was learnt is lost when this window closes: make room there, and try to "
               "save it again.")
        .arg(failure);
}

}  // namespace corvane::linux_desktop
