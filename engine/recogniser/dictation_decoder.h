// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/adaptation/speaker_transform.h"
#include "engine/lexicon/personal_ngrams.h"

struct ps_decoder_s;

namespace corvane::engine {

/// Where free dictation finds what it needs.
struct DictationModel {
    std::string acoustic_model;  ///< a folder
    std::string dictionary;
    std::string language_model;                       ///< n-grams of the dictionary's words
    std::shared_ptr<const SpeakerTransform> voice{};  ///< empty: one like the acoustic model's
    PersonalText personal{};  ///< words and sentences of the user's, beside everybody's
};

/// Raises kAutomationError when something of the model can't be read, or its n-grams are none.
void CheckDictationModel(const DictationModel& model);

/// Text that was said, and how sure that is.
struct DictatedText {
    struct Word {
        std::string text;     ///< as in the dictionary, or the token of a mark (spoken_marks.h)
        int first_frame = 0;  ///< from the beginning of the utterance, 10 ms each
        int last_frame = 0;
    };
    std::vector<Word> words;
    /// Mean posterior probability of the words among all readings the search has kept; 0 while the
    /// utterance is not over.
    double certainty = 0.0;
    /// How far its sounds lie below the best there are, summed over the utterance's frames; to be
    /// compared with a Path's.
    double acoustic = 0.0;
};

/// The search for any text at all, by an n-gram model, on PocketSphinx. Takes about 120 MB and a
/// quarter of a second to load. For one thread at a time.
class DictationDecoder {
public:
    /// Raises kAutomationError when something of the model can't be loaded.
    explicit DictationDecoder(const DictationModel& model);
    ~DictationDecoder();
    DictationDecoder(const DictationDecoder&) = delete;
    DictationDecoder& operator=(const DictationDecoder&) = delete;

    /// Decodes as the sound arrives, less exactly than the whole utterance: in one pass, and at the
    /// beginning of a session without the voice's mean.
    void BeginLive();
    void FeedLive(std::span<const std::int16_t> samples);
    [[nodiscard]] DictatedText LiveText();
    void EndLive();

    /// Decodes a whole utterance: the same one gives the same text, whatever was heard before.
    /// Breaks off a live one.
    [[nodiscard]] DictatedText Decode(std::span<const std::int16_t> utterance);

private:
    void LoadSearches(const DictationModel& model);
    void TeachMarks();
    [[nodiscard]] bool StartUtterance(const char* search);
    [[nodiscard]] DictatedText CurrentText();

    struct FreeDecoder {
        void operator()(ps_decoder_s* decoder) const;
    };
    std::unique_ptr<ps_decoder_s, FreeDecoder> decoder_;
    bool live_ = false;
};

}  // namespace corvane::engine
