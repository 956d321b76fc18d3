// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/feature_extractor.h"

#include <pocketsphinx.h>
#include <sphinxbase/ckd_alloc.h>
#include <sphinxbase/err.h>
#include <sphinxbase/fe.h>
#include <sphinxbase/feat.h>

#include <algorithm>

#include "engine/recogniser/levelled.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

struct FreeCepstra {
    void operator()(mfcc_t** cepstra) const { ckd_free_2d(cepstra); }
};
using Cepstra = std::unique_ptr<mfcc_t*, FreeCepstra>;

Cepstra MakeCepstra(std::int32_t frames, int size) {
    return Cepstra(static_cast<mfcc_t**>(ckd_calloc_2d(
        static_cast<std::size_t>(frames), static_cast<std::size_t>(size), sizeof(mfcc_t))));
}

bool HasTheStreams(feat_t* features) {
    if (feat_dimension1(features) != static_cast<int>(kStreams)) return false;
    const auto* lengths = feat_stream_lengths(features);
    return std::all_of(lengths, lengths + kStreams,
                       [](auto length) { return static_cast<std::size_t>(length) == kStreamSize; });
}

}  // namespace

void FeatureExtractor::FreeDecoder::operator()(ps_decoder_s* decoder) const {
    ps_free(decoder);
}

// A decoder that never decodes: only it reads the settings that lie beside the model.
FeatureExtractor::FeatureExtractor(const std::string& acoustic_model) {
    err_set_logfp(nullptr);
    if (cmd_ln_t* configuration = cmd_ln_init(
            nullptr, ps_args(), TRUE, "-hmm", acoustic_model.c_str(), "-logfn", "/dev/null",
            "-remove_silence", "no", "-dither", "yes", "-seed", "1", nullptr)) {
        decoder_.reset(ps_init(configuration));
        cmd_ln_free_r(configuration);
    }
    if (!decoder_)
        throw RuntimeError(kAutomationError,
                           "The acoustic model can't be loaded from " + acoustic_model);
}

std::vector<FeatureFrame> FeatureExtractor::Extract(std::span<const std::int16_t> utterance) const {
    fe_t* front_end = ps_get_fe(decoder_.get());
    feat_t* features = ps_get_feat(decoder_.get());
    if (utterance.empty() || !HasTheStreams(features)) return {};

    const std::vector<std::int16_t> levelled = Levelled(utterance);
    const std::int16_t* sound = levelled.data();
    std::size_t left = levelled.size();
    std::int32_t frames = 0;
    if (fe_process_frames(front_end, nullptr, &left, nullptr, &frames, nullptr) < 0) return {};
    const Cepstra cepstra = MakeCepstra(frames + 1, fe_get_output_size(front_end));
    fe_start_stream(front_end);
    fe_start_utt(front_end);
    left = levelled.size();
    if (fe_process_frames(front_end, &sound, &left, cepstra.get(), &frames, nullptr) < 0) return {};
    std::int32_t tail = 0;
    fe_end_utt(front_end, cepstra.get()[frames], &tail);
    frames += tail;
    if (frames <= 0) return {};

    mfcc_t*** made = feat_array_alloc(features, frames);
    const std::int32_t count =
        feat_s2mfc2feat_live(features, cepstra.get(), &frames, TRUE, TRUE, made);
    std::vector<FeatureFrame> extracted(static_cast<std::size_t>(std::max(count, 0)));
    for (std::size_t frame = 0; frame < extracted.size(); ++frame)
        for (std::size_t stream = 0; stream < kStreams; ++stream)
            std::copy_n(made[frame][stream], kStreamSize, extracted[frame][stream].begin());
    feat_array_free(made);
    return extracted;
}

}  // namespace corvane::engine
