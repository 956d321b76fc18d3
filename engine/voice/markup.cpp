// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/markup.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "engine/voice/phones.h"
#include "engine/voice/tag.h"
#include "engine/voice/utf8.h"

namespace corvane::engine {
namespace {

constexpr int kMostSteps = 10;
constexpr int kFullVolume = 100;
// Elements in elements; what is opened deeper inside changes nothing.
constexpr std::size_t kDeepest = 200;

/// Sets a number by one attribute or adds to it by the other.
void Change(int& number, const Tag& tag, const std::string& absolute, const std::string& relative) {
    if (const auto value = tag.Number(absolute, -kMostSteps, kMostSteps)) number = *value;
    if (const auto value = tag.Number(relative, -2 * kMostSteps, 2 * kMostSteps))
        number = std::clamp(number + *value, -kMostSteps, kMostSteps);
}

void Change(Manner& manner, const Tag& tag) {
    if (tag.name == "emph") manner.emphasised = true;
    if (tag.name == "spell") manner.spelled = true;
    if (tag.name == "rate") Change(manner.rate, tag, "absspeed", "speed");
    if (tag.name == "pitch") Change(manner.pitch, tag, "absmiddle", "middle");
    if (tag.name == "volume")
        manner.volume = tag.Number("level", 0, kFullVolume).value_or(manner.volume);
}

class MarkupParser {
public:
    explicit MarkupParser(std::string_view text) : text_(text) {}

    std::vector<Span> Parse() {
        while (!text_.empty()) {
            if (const auto tag = ReadTag(text_)) {
                Finish();
                Apply(*tag);
            } else if (const auto entity = ReadEntity(text_)) {
                // A span of its own: its one character is several in the original.
                Finish();
                Say(entity->character, entity->length);
                Finish();
            } else {
                const std::size_t bytes = CharacterBytes(text_);
                Say(text_.substr(0, bytes), bytes);
            }
        }
        Finish();
        return std::move(spans_);
    }

private:
    struct Element {
        std::string name;
        Manner outside;  ///< what holds again behind it
    };

    void Apply(const Tag& tag) {
        if (tag.name == "silence" && tag.begins) {
            const auto duration = tag.Number("msec", 0, kLongestSilence).value_or(0);
            Stand({.kind = Span::Kind::silence,
                   .text = {},
                   .position = position_,
                   .length = 0,
                   .manner = {},
                   .silence = std::chrono::milliseconds(duration)});
        } else if (tag.name == "bookmark" && tag.begins) {
            if (const auto name = tag.Attribute("mark"); name && !name->empty())
                Stand({.kind = Span::Kind::bookmark,
                       .text = std::string(*name),
                       .position = position_,
                       .length = 0,
                       .manner = {},
                       .silence = {}});
        } else if (tag.name == "pron" && tag.begins) {
            Pronounce(tag);
            return;
        } else if (tag.begins && tag.ends) {
            ChangeAllThatFollows(tag);
        } else if (tag.begins && elements_.size() < kDeepest) {
            elements_.push_back({.name = tag.name, .outside = manner_});
            Change(manner_, tag);
        } else if (tag.ends && !tag.begins) {
            Close(tag.name);
        }
        Skip(tag.length);
    }

    void ChangeAllThatFollows(const Tag& tag) {
        if (tag.name == "emph" || tag.name == "spell") return;  // of nothing
        Change(manner_, tag);
        for (Element& element : elements_) Change(element.outside, tag);
    }

    void Close(const std::string& name) {
        const auto opened =
            std::find_if(elements_.rbegin(), elements_.rend(),
                         [&](const Element& element) { return element.name == name; });
        if (opened == elements_.rend()) return;
        manner_ = opened->outside;
        elements_.erase(std::prev(opened.base()), elements_.end());
    }

    void Pronounce(const Tag& tag) {
        std::string phonemes = PhonemesOf(tag.Attribute("sym").value_or(""));
        // With no phones that can be said, what stands there is read.
        const std::size_t content =
            phonemes.empty() || tag.ends ? 0 : ContentOfPronunciation(tag.length);
        Skip(tag.length);
        if (phonemes.empty()) return;
        Stand({.kind = Span::Kind::phonemes,
               .text = std::move(phonemes),
               .position = position_,
               .length = CharacterCount(text_.substr(0, content)),
               .manner = manner_,
               .silence = {}});
        Skip(content);
    }

    /// Bytes up to the end tag; 0 where there is none, so that it swallows nothing.
    std::size_t ContentOfPronunciation(std::size_t from) {
        if (pronunciation_never_ends_) return 0;
        for (std::size_t at = text_.find("</", from); at != std::string_view::npos;
             at = text_.find("</", at + 1)) {
            const auto tag = ReadTag(text_.substr(at));
            if (tag && tag->name == "pron") return at - from;
        }
        pronunciation_never_ends_ = true;
        return 0;
    }

    void Say(std::string_view character, std::size_t bytes) {
        if (span_.text.empty()) span_.position = position_;
        span_.text += character;
        Skip(bytes);
    }

    void Stand(Span span) { spans_.push_back(std::move(span)); }

    void Finish() {
        if (span_.text.empty()) return;
        span_.length = position_ - span_.position;
        span_.manner = manner_;
        spans_.push_back(std::exchange(span_, {}));
    }

    void Skip(std::size_t bytes) {
        position_ += CharacterCount(text_.substr(0, bytes));
        text_.remove_prefix(bytes);
    }

    std::string_view text_;
    std::size_t position_ = 0;
    Span span_;
    std::vector<Span> spans_;
    Manner manner_;
    std::vector<Element> elements_;
    bool pronunciation_never_ends_ = false;
};

}  // namespace

std::vector<Span> ParseMarkup(std::string_view text) {
    return MarkupParser(text).Parse();
}

std::vector<Span> PlainText(std::string_view text) {
    std::vector<Span> spans;
    if (!text.empty()) {
        Span& span = spans.emplace_back();
        span.text = text;
        span.length = CharacterCount(text);
    }
    return spans;
}

}  // namespace corvane::engine
