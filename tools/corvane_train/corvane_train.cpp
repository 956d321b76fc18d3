// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Trains the engine to a voice by sound files, or tells what is to be read; see
// docs/training.md.

#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "engine/adaptation/reading_sentences.h"
#include "engine/adaptation/speaker_transform.h"
#include "engine/adaptation/voice_training.h"
#include "engine/audio/wav_file.h"
#include "engine/speech_engine.h"
#include "platform/error.h"

namespace {

using corvane::engine::ReadingVerdict;
using Clock = std::chrono::steady_clock;

/// By ReadingVerdict.
constexpr std::array kVerdicts{"good", "other", "nothing", "no words"};

double Seconds(Clock::time_point since) {
    return std::chrono::duration<double>(Clock::now() - since).count();
}

/// list: lines of a sound file, a tab and what is read in it.
bool Train(std::istream& list, const std::string& kept) {
    const corvane::SpeechEngineConfig config;
    const auto begin = Clock::now();
    corvane::engine::VoiceTraining training(config.acoustic_model, config.dictionary);
    for (std::string line; std::getline(list, line);) {
        const std::size_t tab = line.find('\t');
        if (tab == std::string::npos) continue;
        const std::string file = line.substr(0, tab);
        const ReadingVerdict verdict =
            training.Read(line.substr(tab + 1), corvane::engine::ReadWavFile(file));
        std::printf("%s\t%s\n", kVerdicts.at(static_cast<std::size_t>(verdict)), line.c_str());
    }
    const corvane::engine::TrainingResult result = training.Train();
    std::printf("sentences %zu, before %.3f, after %.3f, %s, %.1f s\n", training.Sentences(),
                result.before, result.after, result.transform ? "helps" : "does not help",
                Seconds(begin));
    if (!result.transform) return false;
    std::ofstream(kept) << corvane::engine::WriteTransform(
        *result.transform, corvane::engine::MarkOfModel(config.acoustic_model));
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--sentences") {
        for (const std::string_view sentence : corvane::engine::kReadingSentences)
            std::cout << sentence << '\n';
        return 0;
    }
    if (argc != 3) {
        std::cerr << "usage: corvane-train LIST FILE\n       corvane-train --sentences\n";
        return 2;
    }
    try {
        std::ifstream list(argv[1]);
        return Train(list, argv[2]) ? 0 : 1;
    } catch (const corvane::RuntimeError& error) {
        std::cerr << "corvane-train: " << error.what() << '\n';
        return 1;
    }
}
