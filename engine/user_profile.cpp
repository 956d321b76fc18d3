// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/user_profile.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <utility>

#include "engine/grammar/lexicon.h"
#include "platform/error.h"

namespace corvane::engine {

UserProfile::UserProfile(Places places, Complain complain)
    : places_(std::move(places)),
      voice_(places_.folder, places_.acoustic_model, complain),
      words_(places_.folder, complain),
      complain_(std::move(complain)) {}

UserProfile::MakeTraining UserProfile::TrainingMaker() const {
    return [places = places_, words = words_.All(), voice = voice_.Present()] {
        return std::make_unique<VoiceTraining>(places.acoustic_model, places.dictionary, words,
                                               voice);
    };
}

UserProfile::MakePhoneWriter UserProfile::PhoneWriterMaker() const {
    return [model = places_.acoustic_model, voice = voice_.Present()] {
        return std::make_unique<PhoneWriter>(model, voice);
    };
}

UserProfile::MakeChoice UserProfile::ChoiceMaker(std::vector<std::string> phrases) const {
    return [places = places_, voice = voice_.Present(), phrases = std::move(phrases)] {
        return std::make_unique<SpokenChoice>(places.acoustic_model, places.dictionary, phrases,
                                              voice);
    };
}

void UserProfile::KeepVoice(const SpeakerTransform& transform) {
    voice_.Keep(transform);
    Changed();
}

void UserProfile::UndoVoice() {
    voice_.Undo();
    Changed();
}

WaysToSay UserProfile::WaysFor(const std::string& word) const {
    if (!IsWordToLearn(word)) return {};
    Lexicon lexicon{Dictionary(places_.dictionary)};
    lexicon.Learn(Phrase{word});
    return lexicon.Pronunciations(word);
}

void UserProfile::LearnNewWords(const std::vector<std::string>& sentences) {
    std::set<std::string> words;
    for (const std::string& sentence : sentences) {
        std::istringstream rest(sentence);
        for (std::string word; rest >> word;)
            if (!words_.All().contains(word)) words.insert(word);
    }
    if (words.empty()) return;
    const Dictionary dictionary(places_.dictionary);
    for (const auto& [word, ways] : dictionary.Find(words)) words.erase(word);
    Lexicon lexicon(dictionary);
    lexicon.Learn(Phrase(words.begin(), words.end()));
    WordsAndWays fresh;
    for (const std::string& word : words)
        if (const WaysToSay& ways = lexicon.Pronunciations(word);
            !ways.empty() && std::ranges::all_of(ways, ArePhones))
            fresh.emplace(word, ways);
    if (fresh.empty()) return;
    try {
        words_.Add(fresh);
    } catch (const RuntimeError& error) {
        if (complain_) complain_(error.what());
        return;
    }
    Changed();
}

void UserProfile::AddWord(const std::string& word, const WaysToSay& ways) {
    words_.Add(word, ways);
    Changed();
}

void UserProfile::RemoveWord(const std::string& word) {
    words_.Remove(word);
    Changed();
}

void UserProfile::Changed() const {
    // A copy: it may be exchanged meanwhile.
    if (const auto changed = changed_) changed();
}

}  // namespace corvane::engine
