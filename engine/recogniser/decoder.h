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

#include "engine/grammar/word_graph.h"

struct ps_decoder_s;

namespace corvane::engine {

/// One piece of a decoded path: a word, or a filler such as silence or breath.
struct PathSegment {
    static constexpr int kFiller = -1;

    int word = kFiller;   ///< index into the graph's words
    int first_frame = 0;  ///< frames of 10 ms from the beginning of the utterance
    int last_frame = 0;
    double acoustic =
        0.0;  ///< sum over its frames of how far it lies below the best sound there is
};

/// The best way through the graph; empty when nothing in it was said.
using Path = std::vector<PathSegment>;

/// The search for the best path, on PocketSphinx. For one thread at a time.
class Decoder {
public:
    /// Loads the acoustic model in this folder; raises kAutomationError when that fails.
    explicit Decoder(const std::string& acoustic_model);
    ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

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
    [[nodiscard]] Path CurrentPath();
    [[nodiscard]] std::string Teach(const WordGraph::Word& word);

    struct FreeDecoder {
        void operator()(ps_decoder_s* decoder) const;
    };
    std::unique_ptr<ps_decoder_s, FreeDecoder> decoder_;
    std::map<std::string, int> spellings_;  ///< number of each spelling ever taught
    std::set<std::string> taught_;
    std::map<std::string, int> graph_words_;  ///< the decoder's word to the graph's index
    bool searchable_ = false;
    bool live_ = false;
};

}  // namespace corvane::engine
