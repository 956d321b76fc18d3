// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "engine/adaptation/speaker_transform.h"
#include "engine/grammar/word_graph.h"
#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/phrase_rivals.h"
#include "engine/recogniser/senone_log.h"

struct ps_decoder_s;

namespace corvane::engine {

/// One piece of a decoded path: a word, or a filler such as silence or breath.
struct PathSegment {
    static constexpr int kFiller = -1;

    int word = kFiller;   ///< index into the graph's words
    int first_frame = 0;  ///< frames of 10 ms from the beginning of the utterance
    int last_frame = 0;
    double acoustic =
        0.0;             ///< sum over its frames of how far it lies below the best sound there is
    std::string phones;  ///< the word's pronunciation, parted by blanks
};

/// How the phones of a path hold against the utterance. Scores are means over frames in hundreds of
/// the decoder's unit; ranks count the phones that would fit better in a phone's place.
struct PhoneEvidence {
    double over_loop = 0.0;  ///< the path's score less that of the best string of phones
    double mean_rank = 0.0;
    double short_share = 0.0;      ///< share of phones of at most three frames
    double worst_quarter = 0.0;    ///< mean score of the worst quarter of the phones
    double mean_fit = 0.0;         ///< mean score of the phones
    double phones = 0.0;           ///< how many there are
    double worst_word_rank = 0.0;  ///< the worst word's mean of ln(1 + rank)
    double worst_phone = 0.0;      ///< the worst phone's score less the string's there, a sum
    double spread = 0.0;           ///< how far below the best sound all phones lie: less in noise
};

/// The best way through the graph; empty when nothing in it was said.
struct Path {
    std::vector<PathSegment> segments;
    // Of a whole utterance, where they could be had:
    std::optional<PhoneEvidence> evidence;
    std::optional<RivalMargins> rivals;

    [[nodiscard]] auto begin() const { return segments.begin(); }
    [[nodiscard]] auto end() const { return segments.end(); }
};

/// The search for the best path, on PocketSphinx. For one thread at a time.
class Decoder {
public:
    /// Loads the acoustic model in this folder; raises kAutomationError when that fails.
    explicit Decoder(const std::string& acoustic_model);
    ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    /// From now on this voice is expected; empty: one of the model's. Breaks off a live utterance.
    void SetVoice(std::shared_ptr<const SpeakerTransform> voice);

    /// From now on this graph is searched. Breaks off a live utterance.
    void SetGraph(const WordGraph& graph);

    /// Decodes as the sound arrives. Its features are less exact than those of the whole utterance.
    void BeginLive();
    void FeedLive(std::span<const std::int16_t> samples);
    [[nodiscard]] Path LivePath();
    void EndLive();

    /// Decodes a whole utterance: only a path to the graph's end counts. Breaks off a live one.
    [[nodiscard]] Path Decode(std::span<const std::int16_t> utterance);

private:
    void Load();
    void Judge(Path& path) const;
    [[nodiscard]] bool StartUtterance(std::size_t frames);
    [[nodiscard]] Path CurrentPath();
    void AttributeToRule(Path& path) const;
    [[nodiscard]] std::string Teach(const WordGraph::Word& word, int use);
    void Search();

    struct FreeDecoder {
        void operator()(ps_decoder_s* decoder) const;
    };
    std::string acoustic_model_;
    std::optional<ModelDefinition> definition_;
    std::optional<SenoneLog> log_;  ///< empty where there can be none
    std::unique_ptr<ps_decoder_s, FreeDecoder> decoder_;
    std::shared_ptr<const SpeakerTransform> voice_;
    WordGraph graph_;
    std::optional<PhraseRivals> rivals_;    ///< of the graph, where there is a log
    std::map<std::string, int> spellings_;  ///< number of each spelling and its ways ever taught
    std::set<std::string> taught_;
    std::map<std::string, int> graph_words_;  ///< the decoder's word to the graph's index
    bool searchable_ = false;
    bool live_ = false;
    std::size_t live_samples_ = 0;
};

}  // namespace corvane::engine
