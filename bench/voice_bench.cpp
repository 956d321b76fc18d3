// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// The voice as it is heard: run it under tools/virtual-desktop, whose speaker it records.
//
// usage: voice_bench words | first-sound | purge | memory
//   words        a text of 200 words is read; each word's event against the word in the recording,
//                which PocketSphinx aligns with the text, or, behind a pause, against the end of
//                the pause. One line a word, then the summary.
//   first-sound  from Speak to the first sound in the recording, 40 times
//   purge        from a purging Speak to the last sound in the recording, 40 times
//   memory       resident memory over 1,000 sentences that are heard out

#include <pocketsphinx.h>
#include <sphinxbase/err.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "engine/audio/pulse_capture.h"
#include "engine/voice/voice.h"

namespace {

using namespace corvane;
using Clock = std::chrono::steady_clock;
using std::chrono_literals::operator""ms;

constexpr std::int32_t kFlags = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;
// A null sink hands its monitor each block when it begins to play it: the recording is ahead of
// what is heard by as much. (pactl list sinks: configured latency.)
constexpr double kSinkBlock = 20;  // ms
constexpr int kLoud = 200;         // amplitude; the speaker's silence is digital

// Two hundred words, all of them in the dictionary.
constexpr std::string_view kText =
    "It was the best of times, and the worst of times. When I was a child, my father took me to "
    "the "
    "harbor every Sunday morning, and we watched the ships that came in from all over the world. "
    "\"Don't go near the water,\" he always said, but of course I did. One day a very old captain "
    "asked us whether we would like to see his ship. He showed us the engine, the kitchen and the "
    "little cabin where he had slept for thirty years. On the wall there was a map of the islands, "
    "with a red line for each of his journeys. I counted eleven of them. He told me that the sea "
    "is "
    "never the same on two days, and that nobody who has learned to listen to it can live in a "
    "house "
    "again. We drank hot tea from heavy white cups; outside, the birds were shouting and somebody "
    "was "
    "painting the deck. In the evening we walked home along the river without a word. My mother "
    "asked "
    "what we had seen, and I could not find an answer, because everything was still moving in my "
    "head. Even now I remember the smell of that ship, and the quiet voice of the man.";

/// What the speaker plays, with the time of each sample.
class Recording {
public:
    Recording() : thread_([this] { Run(); }) {
        while (Size() == 0) std::this_thread::sleep_for(5ms);
    }
    ~Recording() {
        speaker_.Interrupt();
        thread_.join();
    }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    std::size_t Size() {
        const std::lock_guard lock(mutex_);
        return samples_.size();
    }

    std::vector<std::int16_t> From(std::size_t sample) {
        const std::lock_guard lock(mutex_);
        return {samples_.begin() + static_cast<std::ptrdiff_t>(sample), samples_.end()};
    }

    /// A block arrives late or in time, never early: the earliest one tells when it began.
    double TimeOf(std::size_t sample) {
        const std::lock_guard lock(mutex_);
        return began_ + kSinkBlock + static_cast<double>(sample) * 1000.0 / engine::kSampleRate;
    }

    static double Now() {
        return std::chrono::duration<double, std::milli>(Clock::now().time_since_epoch()).count();
    }

    /// Waits until what sounds now is recorded.
    void CatchUp() {
        const double now = Now();
        while (TimeOf(Size()) < now + 20) std::this_thread::sleep_for(5ms);
    }

private:
    void Run() {
        std::array<std::int16_t, engine::kSampleRate / 200> block{};
        while (const std::size_t count = speaker_.Read(block)) {
            const double now = Now();
            const std::lock_guard lock(mutex_);
            samples_.insert(samples_.end(), block.begin(),
                            block.begin() + static_cast<std::ptrdiff_t>(count));
            const double length =
                static_cast<double>(samples_.size()) * 1000.0 / engine::kSampleRate;
            began_ = std::min(began_, now - length);
        }
    }

    engine::PulseCapture speaker_{"voice_bench"};
    std::mutex mutex_;
    std::vector<std::int16_t> samples_;
    double began_ = 1e300;
    std::thread thread_;
};

struct Told {
    double time;
    std::function<void()> message;
};

/// A voice that notes when it told of something.
struct NotedVoice {
    std::mutex mutex;
    std::vector<Told> told;
    engine::Voice voice{"voice_bench", [this](std::function<void()> message) {
                            const std::lock_guard lock(mutex);
                            told.push_back({Recording::Now(), std::move(message)});
                        }};
};

struct TextWord {
    std::string text;
    bool behind_pause = true;
};

std::vector<TextWord> Words(std::string_view text) {
    std::vector<TextWord> words(1);
    bool pause = true;
    for (const char c : text) {
        if (std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '\'') {
            words.back().text += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            words.back().behind_pause = std::exchange(pause, false) || words.back().behind_pause;
        } else {
            if (!words.back().text.empty()) words.push_back({.text = {}, .behind_pause = false});
            pause = pause || c != ' ';
        }
    }
    if (words.back().text.empty()) words.pop_back();
    return words;
}

/// The end of the pause that is next to a time, both in ms. The aligner likes to give a pause to
/// the word behind it.
double EndOfPause(const std::vector<std::int16_t>& sound, double time) {
    constexpr std::size_t kMillisecond = engine::kSampleRate / 1000;
    constexpr int kQuiet = 40;
    constexpr double kShortest = 90;
    double best = time;
    double best_distance = 600;
    double begin = 0;
    for (std::size_t ms = 0; ms * kMillisecond < sound.size(); ++ms) {
        const auto frame = std::span(sound).subspan(
            ms * kMillisecond, std::min(kMillisecond, sound.size() - ms * kMillisecond));
        if (std::ranges::all_of(frame, [](int sample) { return std::abs(sample) <= kQuiet; }))
            continue;
        const auto at = static_cast<double>(ms);
        const double distance = time < begin ? begin - time : std::max(0.0, time - at);
        if (at - begin >= kShortest && distance < best_distance) {
            best_distance = distance;
            best = at;
        }
        begin = at + 1;
    }
    return best;
}

/// Where each word begins in the sound, in ms: the text is the only sentence of the grammar.
std::vector<double> Align(const std::vector<TextWord>& words,
                          const std::vector<std::int16_t>& sound) {
    std::string grammar = "#JSGF V1.0;\ngrammar text;\npublic <text> =";
    for (const TextWord& word : words) grammar += " " + word.text;
    grammar += ";\n";
    err_set_logfp(nullptr);
    const std::string model(CORVANE_MODEL_FOLDER);
    cmd_ln_t* config = cmd_ln_init(
        nullptr, ps_args(), TRUE, "-hmm", (model + "/en-us/en-us").c_str(), "-dict",
        (model + "/en-us/cmudict-en-us.dict").c_str(), "-remove_silence", "no", "-beam", "1e-150",
        "-pbeam", "1e-150", "-wbeam", "1e-100", "-logfn", "/dev/null", nullptr);
    ps_decoder_t* decoder = ps_init(config);
    std::vector<double> begins;
    if (decoder != nullptr && ps_set_jsgf_string(decoder, "text", grammar.c_str()) == 0 &&
        ps_set_search(decoder, "text") == 0 && ps_start_utt(decoder) == 0) {
        ps_process_raw(decoder, sound.data(), sound.size(), FALSE, TRUE);
        ps_end_utt(decoder);
        for (ps_seg_t* segment = ps_seg_iter(decoder); segment != nullptr;
             segment = ps_seg_next(segment)) {
            int first = 0;
            int last = 0;
            ps_seg_frames(segment, &first, &last);
            const std::string_view word = ps_seg_word(segment);
            if (!word.starts_with('<') && !word.starts_with('[') && !word.starts_with('('))
                begins.push_back(first * 10.0);
        }
    }
    ps_free(decoder);
    cmd_ln_free_r(config);
    return begins;
}

void PrintSummary(const char* what, std::vector<double> figures) {
    std::ranges::sort(figures);
    const auto at = [&](double share) {
        return figures[static_cast<std::size_t>(share * static_cast<double>(figures.size() - 1))];
    };
    std::printf("%s: %zu, least %.1f, median %.1f, 95 %% %.1f, most %.1f ms\n", what,
                figures.size(), figures.front(), at(0.5), at(0.95), figures.back());
}

int BenchWords() {
    Recording recording;
    NotedVoice noted;
    const std::size_t from = recording.Size();
    std::this_thread::sleep_for(300ms);
    noted.voice.SetEventInterests(SVEWordBoundary);
    noted.voice.Speak(std::string(kText), kFlags);
    if (!noted.voice.WaitUntilDone(180'000)) return 1;
    recording.CatchUp();

    double time = 0;
    std::vector<double> told;
    noted.voice.Advise({.Word = [&](std::int32_t, const Variant&, std::int32_t,
                                    std::int32_t) { told.push_back(time); },
                        .EndStream = {},
                        .AudioLevel = {},
                        .Bookmark = {}});
    for (const Told& event : noted.told) {
        time = event.time;
        event.message();
    }
    const auto words = Words(kText);
    const auto sound = recording.From(from);
    auto begins = Align(words, sound);
    if (begins.size() != words.size() || told.size() != words.size()) {
        std::fprintf(stderr, "%zu words, %zu events, %zu aligned\n", words.size(), told.size(),
                     begins.size());
        return 1;
    }
    std::vector<double> off;
    std::vector<double> late_behind_pauses;
    std::vector<double> late_in_speech;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i].behind_pause) begins[i] = EndOfPause(sound, begins[i]);
        const double late = told[i] - recording.TimeOf(from) - begins[i];
        off.push_back(std::abs(late));
        (words[i].behind_pause ? late_behind_pauses : late_in_speech).push_back(late);
        std::printf("%s\t%s\t%.0f\t%+.0f\n", words[i].text.c_str(),
                    words[i].behind_pause ? "pause" : "speech", begins[i], late);
    }
    PrintSummary("event behind its word, behind a pause", late_behind_pauses);
    PrintSummary("event behind its word, in the flow of speech", late_in_speech);
    PrintSummary("event off its word", off);
    std::printf("within 80 ms: %td of %zu\n",
                std::ranges::count_if(off, [](double ms) { return ms <= 80; }), off.size());
    return 0;
}

bool IsLoud(std::int16_t sample) {
    return std::abs(sample) > kLoud;
}

int BenchFirstSound() {
    Recording recording;
    NotedVoice noted;
    std::vector<double> delays;
    for (int i = 0; i < 40; ++i) {
        const std::size_t from = recording.Size();
        const double begun = Recording::Now();
        noted.voice.Speak("Open the window.", kFlags);
        if (!noted.voice.WaitUntilDone(5000)) return 1;
        recording.CatchUp();
        const auto sound = recording.From(from);
        const auto first = std::ranges::find_if(sound, IsLoud);
        if (first == sound.end()) return 1;
        delays.push_back(recording.TimeOf(from + static_cast<std::size_t>(first - sound.begin())) -
                         begun);
        std::this_thread::sleep_for(100ms);
    }
    PrintSummary("Speak to first sound", delays);
    return 0;
}

int BenchPurge() {
    Recording recording;
    NotedVoice noted;
    std::vector<double> delays;
    for (int i = 0; i < 40; ++i) {
        const std::size_t from = recording.Size();
        noted.voice.Speak("All of our eleven yellow owls are awake every early morning.", kFlags);
        std::this_thread::sleep_for(600ms + i * 7ms);
        const double purged = Recording::Now();
        noted.voice.Speak("", kFlags);
        std::this_thread::sleep_for(300ms);
        recording.CatchUp();
        const auto sound = recording.From(from);
        const auto last = std::find_if(sound.rbegin(), sound.rend(), IsLoud);
        if (last == sound.rend()) return 1;
        delays.push_back(recording.TimeOf(from + static_cast<std::size_t>(sound.rend() - last)) -
                         purged);
    }
    PrintSummary("purge to last sound", delays);
    return 0;
}

/// In kB.
long ResidentMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:")) return std::atol(line.c_str() + 6);
    return 0;
}

int BenchMemory() {
    engine::Voice voice("voice_bench", [](const std::function<void()>& message) { message(); });
    std::int64_t words = 0;
    voice.Advise(
        {.Word = [&words](std::int32_t, const Variant&, std::int32_t, std::int32_t) { ++words; },
         .EndStream = {},
         .AudioLevel = {},
         .Bookmark = {}});
    voice.SetEventInterests(SVEWordBoundary | SVEEndInputStream | SVEAudioLevel);
    for (int i = 0; i <= 1000; ++i) {
        if (i % 100 == 0) std::printf("%d sentences\t%ld kB\n", i, ResidentMemory());
        voice.Speak("<rate absspeed=\"10\">Go <emph>on</emph> " + std::to_string(i) + "</rate>",
                    kFlags);
        if (!voice.WaitUntilDone(20'000)) return 1;
    }
    return words > 2000 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    setenv("PULSE_SOURCE", "corvane_speaker.monitor", 1);
    const std::string_view what = argc == 2 ? argv[1] : "";
    if (what == "words") return BenchWords();
    if (what == "first-sound") return BenchFirstSound();
    if (what == "purge") return BenchPurge();
    if (what == "memory") return BenchMemory();
    std::fputs("usage: voice_bench words | first-sound | purge | memory\n", stderr);
    return 2;
}
