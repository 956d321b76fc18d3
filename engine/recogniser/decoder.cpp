// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/decoder.h"

#include <pocketsphinx.h>
#include <sphinxbase/err.h>

#include <string_view>

#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr const char* kSearchName = "commands";

cmd_ln_t* MakeConfiguration(const std::string& acoustic_model) {
    // Wide beams: a grammar is small, and a pruned command is lost. All senones are computed, since
    // the score of a segment is to lie below the best sound there is, not below the best in the
    // graph. Silence is left in: the endpointer has cut it already.
    return cmd_ln_init(nullptr, ps_args(), TRUE,                 //
                       "-hmm", acoustic_model.c_str(),           //
                       "-logfn", "/dev/null",                    //
                       "-dictcase", "yes",                       //
                       "-beam", "1e-80", "-pbeam", "1e-80",      //
                       "-wbeam", "1e-60", "-compallsen", "yes",  //
                       "-remove_silence", "no",                  //
                       "-dither", "yes", "-seed", "1", nullptr);
}

}  // namespace

void Decoder::FreeDecoder::operator()(ps_decoder_s* decoder) const {
    ps_free(decoder);
}

Decoder::Decoder(const std::string& acoustic_model) {
    err_set_logfp(nullptr);
    cmd_ln_t* configuration = MakeConfiguration(acoustic_model);
    if (configuration != nullptr) decoder_.reset(ps_init(configuration));
    cmd_ln_free_r(configuration);
    if (!decoder_)
        throw RuntimeError(kAutomationError,
                           "The acoustic model can't be loaded from " + acoustic_model);
}

Decoder::~Decoder() {
    EndLive();
}

// The decoder knows words by numbers, "spelling@rule", so that no spelling can clash with the
// notation of its dictionary, and one spelling stays apart in two rules.
std::string Decoder::Teach(const WordGraph::Word& word) {
    const int number =
        spellings_.try_emplace(word.spelling, static_cast<int>(spellings_.size())).first->second;
    std::string name = std::to_string(number) + "@" + std::to_string(word.rule);
    if (!taught_.insert(name).second) return name;
    int way = 1;
    for (const std::string& phones : word.pronunciations) {
        const std::string entry = way == 1 ? name : name + "(" + std::to_string(way) + ")";
        if (ps_add_word(decoder_.get(), entry.c_str(), phones.c_str(), FALSE) >= 0) ++way;
    }
    return name;
}

void Decoder::SetGraph(const WordGraph& graph) {
    EndLive();
    graph_words_.clear();
    searchable_ = !graph.arcs.empty();
    if (!searchable_) return;

    const auto weight = static_cast<float32>(cmd_ln_float_r(ps_get_config(decoder_.get()), "-lw"));
    const std::unique_ptr<fsg_model_t, int (*)(fsg_model_t*)> fsg(
        fsg_model_init(kSearchName, ps_get_logmath(decoder_.get()), weight, graph.states),
        fsg_model_free);
    fsg->start_state = WordGraph::kStart;
    fsg->final_state = WordGraph::kFinal;
    std::vector<int> ids;
    for (std::size_t i = 0; i < graph.words.size(); ++i) {
        const std::string name = Teach(graph.words[i]);
        ids.push_back(fsg_model_word_add(fsg.get(), name.c_str()));
        graph_words_.emplace(name, static_cast<int>(i));
    }
    for (const WordGraph::Arc& arc : graph.arcs) {
        if (arc.word == WordGraph::kNoWord)
            fsg_model_null_trans_add(fsg.get(), arc.from, arc.to, 0);
        else
            fsg_model_trans_add(fsg.get(), arc.from, arc.to, 0,
                                ids[static_cast<std::size_t>(arc.word)]);
    }
    glist_free(fsg_model_null_trans_closure(fsg.get(), nullptr));
    searchable_ = ps_set_fsg(decoder_.get(), kSearchName, fsg.get()) == 0 &&
                  ps_set_search(decoder_.get(), kSearchName) == 0;
}

void Decoder::BeginLive() {
    EndLive();
    live_ =
        searchable_ && ps_start_stream(decoder_.get()) == 0 && ps_start_utt(decoder_.get()) == 0;
}

void Decoder::FeedLive(std::span<const std::int16_t> samples) {
    if (live_) ps_process_raw(decoder_.get(), samples.data(), samples.size(), FALSE, FALSE);
}

Path Decoder::LivePath() {
    return live_ ? CurrentPath() : Path{};
}

void Decoder::EndLive() {
    if (live_) ps_end_utt(decoder_.get());
    live_ = false;
}

Path Decoder::Decode(std::span<const std::int16_t> utterance) {
    EndLive();
    if (!searchable_ || utterance.empty()) return {};
    // A fresh stream: what was heard earlier has no say in how noise is taken out.
    if (ps_start_stream(decoder_.get()) != 0 || ps_start_utt(decoder_.get()) != 0) return {};
    ps_process_raw(decoder_.get(), utterance.data(), utterance.size(), FALSE, TRUE);
    ps_end_utt(decoder_.get());
    return CurrentPath();
}

Path Decoder::CurrentPath() {
    int32 score = 0;
    if (ps_get_hyp(decoder_.get(), &score) == nullptr) return {};
    Path path;
    for (ps_seg_t* segment = ps_seg_iter(decoder_.get()); segment != nullptr;
         segment = ps_seg_next(segment)) {
        const std::string_view said = ps_seg_word(segment);
        if (said == "(NULL)") continue;
        PathSegment piece;
        int32 acoustic = 0;
        int32 language = 0;
        int32 backoff = 0;
        ps_seg_prob(segment, &acoustic, &language, &backoff);
        ps_seg_frames(segment, &piece.first_frame, &piece.last_frame);
        piece.acoustic = acoustic;
        if (const auto word = graph_words_.find(std::string(said.substr(0, said.find('('))));
            word != graph_words_.end())
            piece.word = word->second;
        path.push_back(piece);
    }
    return path;
}

}  // namespace corvane::engine
