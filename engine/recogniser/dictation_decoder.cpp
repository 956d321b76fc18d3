// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/dictation_decoder.h"

#include <pocketsphinx.h>
#include <sphinxbase/err.h>

#include <string_view>

#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr const char* kPersonalSearch = "personal";

cmd_ln_t* MakeConfiguration(const DictationModel& model) {
    // One pass with few words and states kept open: as exact as the library's three passes on what
    // was measured, in two thirds of the time. Silence is left in: the endpointer has cut it
    // already.
    return cmd_ln_init(nullptr, ps_args(), TRUE,              //
                       "-hmm", model.acoustic_model.c_str(),  //
                       "-dict", model.dictionary.c_str(),     //
                       "-lm", model.language_model.c_str(),   //
                       "-logfn", "/dev/null",                 //
                       "-fwdflat", "no", "-bestpath", "yes",  //
                       "-maxhmmpf", "3000", "-maxwpf", "10",  //
                       "-pl_window", "5",                     //
                       "-remove_silence", "no",               //
                       "-dither", "yes", "-seed", "1", nullptr);
}

/// Sentence marks, silences and noises have names such as "<s>" and "[NOISE]".
bool IsWord(std::string_view name) {
    return !name.empty() && name.front() != '<' && name.front() != '[' && name.front() != '(' &&
           name.front() != '+';
}

}  // namespace

void DictationDecoder::FreeDecoder::operator()(ps_decoder_s* decoder) const {
    ps_free(decoder);
}

DictationDecoder::DictationDecoder(const DictationModel& model) {
    err_set_logfp(nullptr);
    if (cmd_ln_t* configuration = MakeConfiguration(model)) {
        decoder_.reset(ps_init(configuration));
        cmd_ln_free_r(configuration);
    }
    if (!decoder_)
        throw RuntimeError(kAutomationError, "Dictation can't be loaded from " +
                                                 model.language_model + " and " + model.dictionary);
    // It would still write something without.
    if (model.voice) (void)UseTransform(*decoder_, *model.voice);
    if (model.personal.Empty()) return;
    ngram_model_t* const general = ps_get_lm(decoder_.get(), ps_get_search(decoder_.get()));
    const Ngrams mixed =
        Personalised(Ngrams(ngram_model_retain(general)), model.personal, *decoder_);
    if (ps_set_lm(decoder_.get(), kPersonalSearch, mixed.get()) == 0)
        ps_set_search(decoder_.get(), kPersonalSearch);
}

DictationDecoder::~DictationDecoder() {
    EndLive();
}

bool DictationDecoder::StartUtterance() {
    return ps_start_stream(decoder_.get()) == 0 && ps_start_utt(decoder_.get()) == 0;
}

void DictationDecoder::BeginLive() {
    EndLive();
    live_ = StartUtterance();
}

void DictationDecoder::FeedLive(std::span<const std::int16_t> samples) {
    if (live_) ps_process_raw(decoder_.get(), samples.data(), samples.size(), FALSE, FALSE);
}

DictatedText DictationDecoder::LiveText() {
    DictatedText text = live_ ? CurrentText() : DictatedText{};
    text.certainty = 0.0;
    return text;
}

void DictationDecoder::EndLive() {
    if (live_) ps_end_utt(decoder_.get());
    live_ = false;
}

DictatedText DictationDecoder::Decode(std::span<const std::int16_t> utterance) {
    EndLive();
    if (utterance.empty() || !StartUtterance()) return {};
    ps_process_raw(decoder_.get(), utterance.data(), utterance.size(), FALSE, TRUE);
    ps_end_utt(decoder_.get());
    return CurrentText();
}

DictatedText DictationDecoder::CurrentText() {
    int32 score = 0;
    if (ps_get_hyp(decoder_.get(), &score) == nullptr) return {};
    DictatedText text;
    double certainty = 0.0;
    for (ps_seg_t* segment = ps_seg_iter(decoder_.get()); segment != nullptr;
         segment = ps_seg_next(segment)) {
        const std::string_view said = ps_seg_word(segment);
        if (!IsWord(said)) continue;
        int first = 0;
        int last = 0;
        ps_seg_frames(segment, &first, &last);
        if (text.words.empty()) text.first_frame = first;
        text.last_frame = last;
        int32 acoustic = 0;
        int32 language = 0;
        int32 backoff = 0;
        certainty += logmath_exp(ps_get_logmath(decoder_.get()),
                                 ps_seg_prob(segment, &acoustic, &language, &backoff));
        // "read(2)" is another way to say "read".
        text.words.emplace_back(said.substr(0, said.find('(')));
    }
    if (!text.words.empty()) text.certainty = certainty / static_cast<double>(text.words.size());
    return text;
}

}  // namespace corvane::engine
