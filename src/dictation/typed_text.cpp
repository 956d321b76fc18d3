// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/typed_text.h"

#include <algorithm>

#include "runtime/text.h"

namespace corvane {

TypedText::TypedText(ILanguageRuntime& runtime) : runtime_(runtime) {}

void TypedText::Begin() {
    typed_ = 0;
}

void TypedText::Write(const ResumeNext& step, const std::string& text) {
    step([&] {
        runtime_.SendKeys(KeysOf(text), true);
        typed_ += Len(text);
    });
}

void TypedText::BreakLine(const ResumeNext& step) {
    step([&] {
        runtime_.SendKeys("{ENTER}", true);
        typed_ += 1;
    });
}

void TypedText::Backspace(const ResumeNext& step) {
    TakeBack(step, 1);
}

void TypedText::Scratch(const ResumeNext& step, const std::string& phrase) {
    TakeBack(step, Len(phrase) + 1);
}

void TypedText::Clear(const ResumeNext& step) {
    if (typed_ > 0) TakeBack(step, typed_);
}

IDictationTarget::Words TypedText::PrintPage(const ResumeNext& step) {
    step([&] { runtime_.SendKeys("^p", true); });
    return Words::Spent;
}

void TypedText::TakeBack(const ResumeNext& step, Long characters) {
    step([&] {
        std::string keys;
        for (Long i = 0; i < characters; i += 1) keys += "{BS}";
        runtime_.SendKeys(keys, true);
        typed_ = std::max(Long(0), typed_ - characters);
    });
}

std::string KeysOf(std::string_view text) {
    constexpr std::string_view kMeaningful = "+^%~(){}[]";
    std::string keys;
    for (const char character : text) {
        if (kMeaningful.find(character) == std::string_view::npos)
            keys += character;
        else
            keys.append("{").append(1, character).append("}");
    }
    return keys;
}

}  // namespace corvane
