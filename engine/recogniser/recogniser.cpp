// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/recogniser.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "engine/recogniser/spoken_marks.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

/// Of what is to be expected: the latest ones. A book has fewer.
constexpr std::size_t kMostSentences = 20'000;

}  // namespace

Recogniser::Recogniser(const DictationModel& model, AudioSource& source, Reporter::Post post,
                       Reporter::Unmatched unmatched, std::shared_ptr<UserProfile> profile,
                       std::shared_ptr<EngineDialogs> dialogs)
    : model_(model),
      profile_(std::move(profile)),
      dialogs_(std::move(dialogs)),
      lexicon_(Dictionary(model.dictionary)),
      post_(post),
      reporter_(post, std::move(unmatched)),
      dictation_(std::make_unique<Dictation>(model, reporter_)),
      listener_(std::make_unique<Listener>(std::make_unique<Decoder>(model.acoustic_model), source,
                                           *dictation_, reporter_,
                                           SoundFeedback(audience_, std::move(post)))) {
    profile_->OnChange([this] { ProfileChanged(); });
    ProfileChanged();
}

Recogniser::~Recogniser() {
    profile_->OnChange({});
}

void Recogniser::ProfileChanged() {
    model_.voice = profile_->Voice();
    model_.personal.words = profile_->Words();
    lexicon_.SetUserWords(model_.personal.words);
    if (dictation_) dictation_->Use(model_, {});
    RulesChanged();
}

void Recogniser::Adapt(const std::string& text, std::weak_ptr<RecogniserClient> client) {
    if (!dictation_) return;
    const std::vector<std::string> fresh = SentencesOf(text);
    std::vector<std::string>& known = model_.personal.sentences;
    known.insert(known.end(), fresh.begin(), fresh.end());
    if (known.size() > kMostSentences)
        known.erase(known.begin(), known.end() - static_cast<std::ptrdiff_t>(kMostSentences));
    profile_->LearnNewWords(fresh);
    dictation_->Use(model_, [post = post_, client = std::move(client)] {
        post([client] {
            if (const auto told = client.lock()) told->Adapted();
        });
    });
}

/// Nothing is recognised while this is there.
class Recogniser::Pause {
public:
    explicit Pause(Recogniser& recogniser) : recogniser_(recogniser) {
        if (recogniser_.dialogs_shown_++ == 0 && recogniser_.listener_)
            recogniser_.listener_->Pause();
    }
    ~Pause() {
        if (--recogniser_.dialogs_shown_ == 0 && recogniser_.listener_)
            recogniser_.listener_->Resume();
    }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

private:
    Recogniser& recogniser_;
};

void Recogniser::Show(std::uint32_t parent, const std::string& title, const std::string& dialog,
                      const std::string& data) {
    const Pause pause(*this);
    if (dialogs_ && dialog == "UserTraining")
        dialogs_->UserTraining(parent, title, data, *profile_);
    else if (dialogs_ && dialog == "AddRemoveWord")
        dialogs_->AddRemoveWord(parent, title, data, *profile_);
    else
        throw RuntimeError(kAutomationError, "This engine does not offer " + dialog);
}

void Recogniser::Join(std::weak_ptr<RecogniserClient> client) {
    audience_->Join(std::move(client));
    // It may be about to take another's place: its rules are awaited before that one goes.
    RulesChanged();
}

void Recogniser::RulesChanged() {
    if (!listener_) return;
    auto vocabulary = std::make_shared<Vocabulary>();
    std::vector<const GrammarRule*> rules;
    bool dictation_loaded = false;
    for (const auto& client : audience_->Clients()) {
        client->AddActiveRules(rules);
        for (std::size_t i = vocabulary->rules.size(); i < rules.size(); ++i)
            vocabulary->rules.push_back({.name = rules[i]->name, .target = client});
        const DictationState dictates = client->Dictates();
        dictation_loaded = dictation_loaded || dictates != DictationState::none;
        if (dictates == DictationState::active) {
            vocabulary->dictating = true;
            vocabulary->dictation_target = client;
        }
        vocabulary->holds_from = std::max(vocabulary->holds_from, client->RulesDue());
    }
    if (vocabulary->dictating) {
        for (const GrammarRule& rule : dictation_phrases_.rules) {
            rules.push_back(&rule);
            vocabulary->rules.push_back(
                {.name = rule.name, .target = vocabulary->dictation_target, .of_dictation = true});
        }
    }
    vocabulary->voice = model_.voice;
    vocabulary->graph = CompileGraph(rules, lexicon_);
    dictation_->Want(dictation_loaded);
    listener_->SetVocabulary(std::move(vocabulary));
}

void Recogniser::PrepareDictation() {
    if (!dictation_) return;
    dictation_->CheckModel();
    if (!dictation_phrases_.rules.empty()) return;
    dictation_phrases_ = DictationPhrases();
    lexicon_.Learn(dictation_phrases_);
}

void Recogniser::InterestsChanged() {
    if (!listener_) return;
    const std::int32_t interests = audience_->Interests();
    listener_->SetInterests(interests);
    if (interests != 0) listener_->Start();
}

void Recogniser::WaitForEndOfStream() {
    if (!listener_) return;
    listener_->WaitForEndOfStream();
    dictation_->WaitUntilWritten();
}

void Recogniser::Stop() {
    listener_.reset();
    dictation_.reset();
}

}  // namespace corvane::engine
