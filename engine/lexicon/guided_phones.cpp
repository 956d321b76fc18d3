// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lexicon/guided_phones.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace corvane::engine {
namespace {

// Chosen on words that four voices said, whose guess was right, wrong or missing. A vowel is sooner
// another vowel than it is a consonant.
constexpr double kOtherVowel = 110.0;
constexpr double kOtherConsonant = 150.0;
constexpr double kOtherKind = 250.0;
constexpr double kMissing = 180.0;
constexpr double kAdded = 260.0;
constexpr double kWithoutGuess = 120.0;

// A breath, a click of the tongue.
constexpr double kNoise = 120.0;

constexpr std::array<std::string_view, 15> kVowels{"AA", "AE", "AH", "AO", "AW", "AY", "EH", "ER",
                                                   "EY", "IH", "IY", "OW", "OY", "UH", "UW"};

constexpr double kImpossible = -1e12;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// A phone of a way through the utterance, and the one before it.
struct Link {
    std::size_t phone = 0;
    std::size_t before = kNone;
};

/// The best way to be somewhere, and the last phone of it that was finished.
struct Way {
    double score = kImpossible;
    std::size_t finished = kNone;
};

/// The search, by the place in the guess that has been reached and the phone that is being said.
class Search {
public:
    Search(const ModelDefinition& model, const PhoneString& guess)
        : model_(model),
          guess_(guess),
          states_((guess.size() + 1) * model.Phones()),
          reached_(guess.size() + 1) {
        reached_.front().score = 0.0;
        PassOverMissing();
        for (std::size_t phone = 0; phone < model.Phones(); ++phone)
            senones_.push_back(model.Alone(phone));
        is_vowel_.resize(model.Phones());
        for (const std::string_view vowel : kVowels)
            if (const auto phone = model.Phone(vowel)) is_vowel_[*phone] = true;
    }

    void Take(std::span<const std::int16_t> costs) {
        std::vector<Way> reached(reached_.size());
        std::vector<std::size_t> said(reached_.size());
        for (std::size_t place = 0; place < reached_.size(); ++place)
            for (std::size_t phone = 0; phone < senones_.size(); ++phone) {
                States& states = states_[place * senones_.size() + phone];
                const Way entry = Entry(place, phone);
                for (std::size_t i = states.size(); i-- > 0;) {
                    const Way& before = i == 0 ? entry : states[i - 1];
                    if (before.score > states[i].score) states[i] = before;
                    states[i].score -= costs[senones_[phone][i]];
                }
                if (states.back().score <= reached[place].score) continue;
                reached[place] = states.back();
                said[place] = phone;
            }
        for (std::size_t place = 0; place < reached.size(); ++place) {
            if (reached[place].score <= kImpossible / 2) continue;
            links_.push_back({.phone = said[place], .before = reached[place].finished});
            reached[place].finished = links_.size() - 1;
        }
        reached_ = std::move(reached);
        PassOverMissing();
    }

    [[nodiscard]] HeardPhones Result() const {
        HeardPhones heard{.phones = {}, .score = reached_.back().score};
        for (std::size_t at = reached_.back().finished; at != kNone; at = links_[at].before)
            if (!IsNoPhone(links_[at].phone)) heard.phones.push_back(links_[at].phone);
        std::ranges::reverse(heard.phones);
        return heard;
    }

private:
    using States = std::array<Way, ModelDefinition::kStates>;

    [[nodiscard]] bool IsNoPhone(std::size_t phone) const {
        return phone == model_.Silence() || model_.IsNoise(phone);
    }

    [[nodiscard]] double CostInPlaceOf(std::size_t guessed, std::size_t phone) const {
        if (guessed == phone) return 0.0;
        if (is_vowel_[guessed] != is_vowel_[phone]) return kOtherKind;
        return is_vowel_[phone] ? kOtherVowel : kOtherConsonant;
    }

    /// The best way to begin that phone so that the place is reached with it.
    [[nodiscard]] Way Entry(std::size_t place, std::size_t phone) const {
        if (IsNoPhone(phone)) {
            // Around the word alone: stillness in the midst of it is the beginning of a stop.
            Way around = reached_[place];
            if (place != 0 && place != guess_.size()) return {};
            if (phone != model_.Silence()) around.score -= kNoise;
            return around;
        }
        Way added = reached_[place];
        added.score -= guess_.empty() ? kWithoutGuess : kAdded;
        if (place == 0) return added;
        Way guessed = reached_[place - 1];
        guessed.score -= CostInPlaceOf(guess_[place - 1], phone);
        return guessed.score > added.score ? guessed : added;
    }

    void PassOverMissing() {
        for (std::size_t place = 1; place < reached_.size(); ++place) {
            const double without = reached_[place - 1].score - kMissing;
            if (without > reached_[place].score)
                reached_[place] = {.score = without, .finished = reached_[place - 1].finished};
        }
    }

    const ModelDefinition& model_;
    const PhoneString& guess_;
    std::vector<ModelDefinition::States> senones_;
    std::vector<bool> is_vowel_;
    std::vector<States> states_;  ///< by place and phone
    std::vector<Way> reached_;    ///< by place: the best way to have finished a phone there
    std::vector<Link> links_;
};

}  // namespace

HeardPhones HearPhones(const SenoneScores& scores, const ModelDefinition& model,
                       const PhoneString& guess) {
    if (scores.Frames() == 0) return {};
    Search search(model, guess);
    for (std::size_t frame = 0; frame < scores.Frames(); ++frame) search.Take(scores.Frame(frame));
    return search.Result();
}

}  // namespace corvane::engine
