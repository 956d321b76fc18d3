// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/decoder.h"

#include <pocketsphinx.h>
#include <sphinxbase/ckd_alloc.h>
#include <sphinxbase/err.h>
#include <sphinxbase/feat.h>

#include <string_view>
#include <utility>

#include "engine/recogniser/endpointer.h"
#include "engine/recogniser/levelled.h"
#include "engine/recogniser/phone_evidence.h"
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

/// Frames that the decoder makes of so many samples, and a few to be sure.
constexpr std::size_t FramesOf(std::size_t samples) {
    return samples / Endpointer::kFrameSamples + 8;
}

// The longest utterance there is, and its leading frames.
constexpr std::size_t kLongestLiveFrames =
    Endpointer::kLongestFrames + Endpointer::kLeadingFrames + 100;

/// The phones of one of the decoder's words.
std::string PhonesOf(ps_decoder_t* decoder, const char* word) {
    const std::unique_ptr<char, void (*)(void*)> phones(ps_lookup_word(decoder, word), ckd_free);
    return phones ? phones.get() : "";
}

}  // namespace

void Decoder::FreeDecoder::operator()(ps_decoder_s* decoder) const {
    ps_free(decoder);
}

Decoder::Decoder(const std::string& acoustic_model)
    : acoustic_model_(acoustic_model), definition_(ModelDefinition::Load(acoustic_model)) {
    err_set_logfp(nullptr);
    if (definition_) log_.emplace(definition_->Senones());
    Load();
    if (!decoder_)
        throw RuntimeError(kAutomationError,
                           "The acoustic model can't be loaded from " + acoustic_model);
}

Decoder::~Decoder() {
    EndLive();
}

void Decoder::Load() {
    decoder_.reset();
    taught_.clear();
    cmd_ln_t* configuration = MakeConfiguration(acoustic_model_);
    if (configuration == nullptr) return;
    if (log_) cmd_ln_set_str_r(configuration, "-senlogdir", log_->Folder().c_str());
    decoder_.reset(ps_init(configuration));
    cmd_ln_free_r(configuration);
    if (decoder_ && voice_) (void)UseTransform(*decoder_, *voice_);
}

// A decoder that can't take the voice goes on with the one it has, which is better than none.
void Decoder::SetVoice(std::shared_ptr<const SpeakerTransform> voice) {
    if (voice == voice_) return;
    EndLive();
    voice_ = std::move(voice);
    if (decoder_) (void)UseTransform(*decoder_, voice_ ? *voice_ : SpeakerTransform::Identity());
}

// The decoder knows words by numbers, "spelling@use", so that no spelling can clash with the
// notation of its dictionary, and one spelling stays apart in two rules. A graph that differs a
// little from the last one has little to teach.
std::string Decoder::Teach(const WordGraph::Word& word, int use) {
    // Said otherwise than before, as by a new choice of the user, it is another word.
    std::string key = word.spelling;
    for (const std::string& phones : word.pronunciations) key += "\n" + phones;
    const int number =
        spellings_.try_emplace(key, static_cast<int>(spellings_.size())).first->second;
    std::string name = std::to_string(number) + "@" + std::to_string(use);
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
    graph_ = graph;
    if (definition_) rivals_.emplace(graph_, *definition_);
    Search();
}

void Decoder::Search() {
    graph_words_.clear();
    searchable_ = decoder_ && !graph_.arcs.empty();
    if (!searchable_) return;

    const auto weight = static_cast<float32>(cmd_ln_float_r(ps_get_config(decoder_.get()), "-lw"));
    const std::unique_ptr<fsg_model_t, int (*)(fsg_model_t*)> fsg(
        fsg_model_init(kSearchName, ps_get_logmath(decoder_.get()), weight, graph_.states),
        fsg_model_free);
    fsg->start_state = WordGraph::kStart;
    fsg->final_state = WordGraph::kFinal;
    std::vector<int> ids(graph_.words.size());
    std::map<std::string, int> uses;
    for (std::size_t i = 0; i < graph_.words.size(); ++i) {
        const WordGraph::Word& word = graph_.words[i];
        if (!word.searched) continue;
        const std::string name = Teach(word, uses[word.spelling]++);
        ids[i] = fsg_model_word_add(fsg.get(), name.c_str());
        graph_words_.emplace(name, static_cast<int>(i));
    }
    for (const WordGraph::Arc& arc : graph_.arcs) {
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

// False when the utterance can't be started even without a log; it must not be fed then.
bool Decoder::StartUtterance(std::size_t frames) {
    // A fresh stream: what was heard earlier has no say in how noise is taken out.
    const auto start = [this] {
        return ps_start_stream(decoder_.get()) == 0 && ps_start_utt(decoder_.get()) == 0;
    };
    if (log_) {
        if (log_->Begin(frames, start)) return true;
        // No memory for the log. To be heard is worth more than to be judged well.
        ps_end_utt(decoder_.get());
        log_.reset();
        Load();
        Search();
    }
    return searchable_ && start();
}

void Decoder::BeginLive() {
    EndLive();
    live_ = searchable_ && StartUtterance(kLongestLiveFrames);
    live_samples_ = 0;
}

void Decoder::FeedLive(std::span<const std::int16_t> samples) {
    if (!live_) return;
    live_samples_ += samples.size();
    if (FramesOf(live_samples_) > kLongestLiveFrames) return EndLive();
    ps_process_raw(decoder_.get(), samples.data(), samples.size(), FALSE, FALSE);
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
    // A live pass leaves the library normalising by what was heard so far, for good.
    if (decoder_) ps_get_feat(decoder_.get())->cmn = CMN_BATCH;
    if (!searchable_ || utterance.empty() || !StartUtterance(FramesOf(utterance.size()))) return {};
    const std::vector<std::int16_t> levelled = Levelled(utterance);
    ps_process_raw(decoder_.get(), levelled.data(), levelled.size(), FALSE, TRUE);
    ps_end_utt(decoder_.get());
    Path path = CurrentPath();
    Judge(path);
    return path;
}

/// Finds out how well the path fits, and how much worse another would.
void Decoder::Judge(Path& path) const {
    std::vector<int> words;
    for (const PathSegment& segment : path)
        if (segment.word != PathSegment::kFiller) words.push_back(segment.word);
    if (!log_ || words.empty()) return;
    const auto scores = log_->Read();
    if (!scores || scores->Frames() == 0) return;
    path.evidence = EvidenceOf(path.segments, *scores, *definition_);
    path.rivals = rivals_->Margins(words, *scores);
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
            word != graph_words_.end()) {
            piece.word = word->second;
            piece.phones = PhonesOf(decoder_.get(), ps_seg_word(segment));
        }
        path.segments.push_back(std::move(piece));
    }
    AttributeToRule(path);
    return path;
}

void Decoder::AttributeToRule(Path& path) const {
    std::vector<int> words;
    for (const PathSegment& segment : path)
        if (segment.word != PathSegment::kFiller) words.push_back(segment.word);
    graph_.Attribute(words);
    auto word = words.begin();
    for (PathSegment& segment : path.segments)
        if (segment.word != PathSegment::kFiller) segment.word = *word++;
}

}  // namespace corvane::engine
