// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "calendar/form3_layout.h"
#include "platform/speech_api.h"
#include "runtime/forms/calendar.h"
#include "runtime/forms/form.h"
#include "runtime/nullable.h"
#include "runtime/numbers.h"

namespace corvane {

/// The calendar window: saying a month shows it, "close me" puts the window away. It listens by a
/// context of its own beside the main one, from its load until it is unloaded, hidden or not.
class Form3 final : public forms::Form {
public:
    Form3(IWindowToolkit& toolkit, MessageLoop& loop, ISpeechApi& speech);
    ~Form3() override;

    forms::Calendar Calendar1{*this, "Calendar1", kCalendar1};

    /// Full path of the grammar of months; must be there before the load.
    std::string CalendarGrammarFile;

    Nullable<ISpeechRecoContext> RC2;
    Nullable<ISpeechVoice> voice2;  // is never asked to speak
    Nullable<ISpeechRecoGrammar> Grammar2;
    Nullable<ISpeechGrammarRules> GrammarRules2;
    Long SpFlags;

private:
    void Form_Load();
    void Form_Resize();
    void Form_Unload();
    void init_calendar_rec(const std::string& myxfile);
    void RC2_Recognition(Long StreamNumber, const Variant& StreamPosition, Long RecognitionType,
                         ISpeechRecoResult& Result);

    ISpeechApi& speech_;
};

}  // namespace corvane
