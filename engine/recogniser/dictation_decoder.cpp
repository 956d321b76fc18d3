// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/dictation_decoder.h"

#include <pocketsphinx.h>
#include <sphinxbase/ckd_alloc.h>
#include <sphinxbase/err.h>
#include <sphinxbase/feat.h>
#include <sphinxbase/ngram_model.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string_view>
#include <utility>

#include "engine/recogniser/levelled.h"
#include "engine/recogniser/spoken_marks.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr const char* kLive = "live";
constexpr const char* kWhole = "whole";

/// The library counts the scores of the n-gram search in units this much smaller.
constexpr double kScoreUnit = 1024.0;

cmd_ln_t* MakeConfiguration(const DictationModel& model) {
    // Silence is left in: the endpointer has cut it already. No dither, whose random numbers all
    // decoders of a process share: Levelled adds a noise that is always the same.
    return cmd_ln_init(nullptr, ps_args(), TRUE,              //
                       "-hmm", model.acoustic_model.c_str(),  //
                       "-dict", model.dictionary.c_str(),     //
                       "-logfn", "/dev/null",                 //
                       "-compallsen", "yes",                  //
                       "-bestpath", "yes",                    //
                       "-pl_window", "5",                     //
                       "-remove_silence", "no",               //
                       "-dither", "no", nullptr);
}

/// The live pass keeps few words and states open and is the only one; what is written in the end
/// is worth a second pass over what the first one kept.
void Narrow(cmd_ln_t* configuration, bool narrow) {
    cmd_ln_set_boolean_r(configuration, "-fwdflat", narrow ? FALSE : TRUE);
    cmd_ln_set_int_r(configuration, "-maxhmmpf", narrow ? 3000 : 10000);
    cmd_ln_set_int_r(configuration, "-maxwpf", narrow ? 10 : 20);
}

Ngrams ReadLanguageModel(cmd_ln_t* configuration, const std::string& file, logmath_t* logarithms) {
    return Ngrams(ngram_model_read(configuration, file.c_str(), NGRAM_AUTO, logarithms));
}

[[noreturn]] void RaiseFor(const std::string& file) {
    throw RuntimeError(kAutomationError, "Dictation can't be loaded from " + file);
}

/// Sentence marks, silences and noises have names such as "<s>" and "[NOISE]".
bool IsWord(std::string_view name) {
    return !name.empty() && name.front() != '<' && name.front() != '[' && name.front() != '(' &&
           name.front() != '+';
}

/// How the mark's name is said by the decoder's dictionary; empty when that lacks a word of it.
std::string PhonesOf(ps_decoder_t* decoder, const SpokenMark& mark) {
    std::string phones;
    std::istringstream words{std::string(mark.sound)};
    for (std::string word; words >> word;) {
        const std::unique_ptr<char, void (*)(void*)> sound(ps_lookup_word(decoder, word.c_str()),
                                                           ckd_free);
        if (!sound) return {};
        phones += (phones.empty() ? "" : " ") + std::string(sound.get());
    }
    return phones;
}

/// The n-grams know where a sentence may end. A mark is foreseen there, the more so the larger its
/// share. (A word more beside the others would be no way: the library looks the words behind it up
/// outside its memory.)
void ForeseeMarks(ngram_model_t* ngrams, double language_weight) {
    std::vector<std::string> tokens;
    std::vector<float32> weights;
    for (const SpokenMark& mark : SpokenMarks()) {
        tokens.emplace_back(mark.token);
        weights.push_back(static_cast<float32>(std::pow(mark.share, language_weight)));
    }
    std::vector<char*> names;
    for (std::string& token : tokens) names.push_back(token.data());
    ngram_model_add_class(ngrams, "</s>", 1.0F, names.data(), weights.data(),
                          static_cast<int32>(names.size()));
}

}  // namespace

void CheckDictationModel(const DictationModel& model) {
    for (const std::string& file : {model.dictionary, model.acoustic_model + "/mdef"})
        if (!std::ifstream(file)) RaiseFor(file);
    // The n-grams are read for real: nothing less tells whether they are any.
    err_set_logfp(nullptr);
    const std::unique_ptr<cmd_ln_t, int (*)(cmd_ln_t*)> configuration(
        cmd_ln_init(nullptr, ps_args(), TRUE, "-logfn", "/dev/null", nullptr), cmd_ln_free_r);
    const std::unique_ptr<logmath_t, int (*)(logmath_t*)> logarithms(logmath_init(1.0001, 0, 1),
                                                                     logmath_free);
    if (!ReadLanguageModel(configuration.get(), model.language_model, logarithms.get()))
        RaiseFor(model.language_model);
}

void DictationDecoder::FreeDecoder::operator()(ps_decoder_s* decoder) const {
    ps_free(decoder);
}

DictationDecoder::DictationDecoder(const DictationModel& model) {
    err_set_logfp(nullptr);
    if (cmd_ln_t* configuration = MakeConfiguration(model)) {
        decoder_.reset(ps_init(configuration));
        cmd_ln_free_r(configuration);
    }
    if (!decoder_) RaiseFor(model.acoustic_model + " and " + model.dictionary);
    // It would still write something without. All searches judge sounds by the same voice.
    if (model.voice) (void)UseTransform(*decoder_, *model.voice);
    LoadSearches(model);
}

DictationDecoder::~DictationDecoder() {
    EndLive();
}

void DictationDecoder::LoadSearches(const DictationModel& model) {
    TeachMarks();
    cmd_ln_t* const configuration = ps_get_config(decoder_.get());
    Ngrams ngrams =
        ReadLanguageModel(configuration, model.language_model, ps_get_logmath(decoder_.get()));
    if (!ngrams) RaiseFor(model.language_model);
    ngrams = Personalised(std::move(ngrams), model.personal, *decoder_);
    ForeseeMarks(ngrams.get(), cmd_ln_float_r(configuration, "-lw"));
    for (const char* search : {kLive, kWhole}) {
        Narrow(configuration, search == kLive);
        if (ps_set_lm(decoder_.get(), search, ngrams.get()) != 0) RaiseFor(model.language_model);
    }
}

void DictationDecoder::TeachMarks() {
    for (const SpokenMark& mark : SpokenMarks()) {
        const std::string phones = PhonesOf(decoder_.get(), mark);
        if (!phones.empty())
            ps_add_word(decoder_.get(), std::string(mark.token).c_str(), phones.c_str(), FALSE);
    }
}

// A fresh stream: what was heard earlier has no say in how noise is taken out.
bool DictationDecoder::StartUtterance(const char* search) {
    return ps_set_search(decoder_.get(), search) == 0 && ps_start_stream(decoder_.get()) == 0 &&
           ps_start_utt(decoder_.get()) == 0;
}

void DictationDecoder::BeginLive() {
    EndLive();
    live_ = StartUtterance(kLive);
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
    // A live pass leaves the library normalising by what was heard so far, for good.
    ps_get_feat(decoder_.get())->cmn = CMN_BATCH;
    if (utterance.empty() || !StartUtterance(kWhole)) return {};
    const std::vector<std::int16_t> levelled = Levelled(utterance);
    ps_process_raw(decoder_.get(), levelled.data(), levelled.size(), FALSE, TRUE);
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
        int32 acoustic = 0;
        int32 language = 0;
        int32 backoff = 0;
        const int32 posterior = ps_seg_prob(segment, &acoustic, &language, &backoff);
        text.acoustic += acoustic / kScoreUnit;
        const std::string_view said = ps_seg_word(segment);
        if (!IsWord(said)) continue;
        // "read(2)" is another way to say "read".
        DictatedText::Word word{.text = std::string(said.substr(0, said.find('(')))};
        ps_seg_frames(segment, &word.first_frame, &word.last_frame);
        text.words.push_back(std::move(word));
        certainty += logmath_exp(ps_get_logmath(decoder_.get()), posterior);
    }
    if (!text.words.empty()) text.certainty = certainty / static_cast<double>(text.words.size());
    return text;
}

}  // namespace corvane::engine
