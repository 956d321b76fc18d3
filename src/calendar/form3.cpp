// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "calendar/form3.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "runtime/failure.h"

namespace corvane {
namespace {

constexpr WindowDescription kForm3{.name = "Form3",
                                   .caption = "Calendar",
                                   .client_width = 4680,
                                   .client_height = 3195,
                                   .controls = kForm3Controls,
                                   .border = BorderStyle::Sizable};

constexpr std::int32_t kInterests =
    SRERecognition + SREHypothesis + SREInterference + SREAudioLevel;
static_assert(kInterests == 66608);

constexpr std::int32_t kSpFlags = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;
static_assert(kSpFlags == 11);

/// The rules that show a month, in the order of the months.
constexpr auto kMonths =
    std::to_array<std::string_view>({"January", "February", "March", "April", "May", "June", "July",
                                     "August", "September", "October", "November", "December"});

}  // namespace

Form3::Form3(IWindowToolkit& toolkit, MessageLoop& loop, ISpeechApi& speech)
    : Form(toolkit, loop, kForm3), speech_(speech) {
    Load = [this] { Form_Load(); };
    Resize = [this] { Form_Resize(); };
    Unload = [this] { Form_Unload(); };
}

Form3::~Form3() {
    // Somebody may still hold the context, and its queued events must not reach a window that has
    // gone.
    if (!RC2.empty()) RC2->Advise({});
}

void Form3::Form_Load() {
    Calendar1.SetTop(0);
    Calendar1.SetLeft(0);
    init_calendar_rec(CalendarGrammarFile);
    voice2 = speech_.CreateSpVoice();
    SpFlags = kSpFlags;
}

void Form3::init_calendar_rec(const std::string& myxfile) {
    ResumeNext step;
    Nullable<ISpeechGrammarRule> rule;
    step([&] {
        RC2 = speech_.CreateSpSharedRecoContext();
        SpeechRecoContextEvents events;
        events.Recognition = [this](std::int32_t number, const Variant& position, std::int32_t type,
                                    const std::shared_ptr<ISpeechRecoResult>& result) {
            RC2_Recognition(number, position, type, *result);
        };
        RC2->Advise(std::move(events));
    });
    step([&] { Grammar2 = RC2->CreateGrammar(0); });
    step([&] { Grammar2->CmdLoadFromFile(myxfile, SLODynamic); });
    step([&] { GrammarRules2 = Grammar2->Rules(); });
    step([&] {
        const Long count = GrammarRules2->Count();
        for (Long i = 0; i < count; i += 1) step([&] { rule = GrammarRules2->Item(i.rep()); });
    });
    // No rule bears an Id, and Id 0 activates every rule marked active. Without a rule nothing is
    // asked for.
    step([&] { Grammar2->CmdSetRuleIdState(rule->Id(), SGDSActive); });
    step([&] { RC2->SetEventInterests(kInterests); });
    // There is no voice yet, so this fails each time, deliberately: voice2 never speaks and keeps
    // no interests.
    step([&] { voice2->SetEventInterests(SVEAudioLevel); });
}

// Any confidence will do, nothing is logged, spoken or discarded.
void Form3::RC2_Recognition(Long /*StreamNumber*/, const Variant& /*StreamPosition*/,
                            Long /*RecognitionType*/, ISpeechRecoResult& Result) {
    ResumeNext step;
    std::string PhraseText;  // held and not used
    std::string RuleName;
    step([&] { PhraseText = Result.PhraseInfo()->GetText(0, -1, true); });
    step([&] { RuleName = Result.PhraseInfo()->Rule()->Name(); });
    if (RuleName == "close me") {
        step([&] { Hide(); });
        return;
    }
    const auto* month = std::ranges::find(kMonths, RuleName);
    if (month != kMonths.end()) step([&] { Calendar1.SetMonth(month - kMonths.begin() + 1); });
}

void Form3::Form_Resize() {
    // Of the outer sizes, deliberately: the calendar has the window's corner, and the factors leave
    // its margin.
    Calendar1.SetWidth(0.98F * Width());
    Calendar1.SetHeight(0.9F * Height());
}

// Without an engine there is no grammar, and closing the window is an error that nothing traps.
void Form3::Form_Unload() {
    Grammar2->CmdSetRuleIdState(0, SGDSInactive);
}

}  // namespace corvane
