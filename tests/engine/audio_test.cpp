// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

#include "engine/audio/memory_source.h"
#include "engine/audio/pulse_capture.h"
#include "engine/audio/sample_queue.h"
#include "engine/audio/wav_file.h"
#include "platform/error.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

std::string Bytes(std::uint32_t number, std::size_t bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i) & 0xFF);
    return text;
}

std::string Chunk(const std::string& name, const std::string& content) {
    return name + Bytes(static_cast<std::uint32_t>(content.size()), 4) + content +
           (content.size() % 2 == 1 ? std::string(1, '\0') : "");
}

std::string Format(std::uint32_t coding, std::uint32_t channels, std::uint32_t rate,
                   std::uint32_t bits) {
    return Chunk("fmt ", Bytes(coding, 2) + Bytes(channels, 2) + Bytes(rate, 4) +
                             Bytes(rate * channels * bits / 8, 4) + Bytes(channels * bits / 8, 2) +
                             Bytes(bits, 2));
}

std::string Wav(const std::string& chunks) {
    return "RIFF" + Bytes(static_cast<std::uint32_t>(chunks.size() + 4), 4) + "WAVE" + chunks;
}

const std::string kSound = Chunk("data", Bytes(1, 2) + Bytes(0xFFFE, 2));

TEST(WavFile, GivesItsSamples) {
    EXPECT_EQ(ParseWav(Wav(Format(1, 1, 16000, 16) + kSound)), (std::vector<std::int16_t>{1, -2}));
}

TEST(WavFile, ChunksThatAreNoSoundArePassedOver) {
    EXPECT_EQ(ParseWav(Wav(Chunk("LIST", "odd") + Format(1, 1, 16000, 16) + kSound)).size(), 2U);
}

TEST(WavFile, CutShortGivesWhatIsThere) {
    const std::string whole = Wav(Format(1, 1, 16000, 16) + kSound);
    EXPECT_EQ(ParseWav(whole.substr(0, whole.size() - 1)), std::vector<std::int16_t>{1});
}

TEST(WavFile, WhatWasWrittenReadsBack) {
    const testing::TemporaryFile file;
    const std::vector<std::int16_t> samples{0, 1, -2, 32767, -32768};
    WriteWavFile(file.Path(), samples, kSampleRate);
    EXPECT_EQ(ReadWavFile(file.Path()), samples);
    EXPECT_THROW(WriteWavFile("/nowhere/at/all.wav", samples, kSampleRate), RuntimeError);
}

TEST(WavFile, OtherKindsAreRefused) {
    for (const std::string& other :
         {std::string("MP3"), Wav(""), Wav(kSound), Wav(Chunk("fmt ", "short") + kSound),
          Wav(Format(1, 1, 16000, 16)), Wav(Format(7, 1, 16000, 8) + kSound),
          Wav(Format(1, 1, 16000, 12) + kSound), Wav(Format(1, 1, 16000, 64) + kSound),
          Wav(Format(3, 1, 16000, 16) + kSound), Wav(Format(1, 0, 16000, 16) + kSound),
          Wav(Format(1, 9, 16000, 16) + kSound), Wav(Format(1, 1, 0, 16) + kSound),
          Wav(Format(1, 1, 3999, 16) + kSound), Wav(Format(1, 1, 192001, 16) + kSound),
          Wav(Format(0xFFFE, 1, 16000, 16) + kSound)})
        EXPECT_THROW((void)ParseWav(other), RuntimeError) << other;
}

TEST(WavFile, SaysWhyItIsRefused) {
    try {
        (void)ParseWav(Wav(Format(7, 1, 8000, 8) + kSound));
        ADD_FAILURE() << "it was read";
    } catch (const RuntimeError& error) {
        EXPECT_STREQ(error.what(), "Not a usable WAV file: its sound is compressed (coding 7)");
    }
}

/// Half of full scale and back, in any way to write a sample.
struct Written {
    const char* what;
    std::uint32_t coding;
    std::uint32_t bits;
    std::string samples;
};

TEST(WavFile, SamplesOfAnySizeAreScaledToSixteenBits) {
    for (const Written& written :
         {Written{"8 bits", 1, 8, Bytes(0xC0, 1) + Bytes(0x40, 1)},
          Written{"16 bits", 1, 16, Bytes(0x4000, 2) + Bytes(0xC000, 2)},
          Written{"24 bits", 1, 24, Bytes(0x400000, 3) + Bytes(0xC00000, 3)},
          Written{"32 bits", 1, 32, Bytes(0x40000000, 4) + Bytes(0xC0000000, 4)},
          Written{"32 bits, real", 3, 32, Bytes(0x3F000000, 4) + Bytes(0xBF000000, 4)},
          Written{"64 bits, real", 3, 64,
                  Bytes(0, 4) + Bytes(0x3FE00000, 4) + Bytes(0, 4) + Bytes(0xBFE00000, 4)}})
        EXPECT_EQ(ParseWav(Wav(Format(written.coding, 1, 16000, written.bits) +
                               Chunk("data", written.samples))),
                  (std::vector<std::int16_t>{16384, -16384}))
            << written.what;
}

TEST(WavFile, RealSamplesThatAreTooLargeOrNoNumbersDoNoHarm) {
    const std::string samples = Bytes(0x41200000, 4) + Bytes(0x7FC00000, 4) + Bytes(0xFF800000, 4);
    EXPECT_EQ(ParseWav(Wav(Format(3, 1, 16000, 32) + Chunk("data", samples))),
              (std::vector<std::int16_t>{32767, 0, 0}));
}

TEST(WavFile, ChannelsAreMixed) {
    const std::string samples = Bytes(1000, 2) + Bytes(3000, 2);
    EXPECT_EQ(ParseWav(Wav(Format(1, 2, 16000, 16) + Chunk("data", samples))),
              std::vector<std::int16_t>{2000});
}

TEST(WavFile, ExtensibleFormatIsWhatItsSubformatSays) {
    const auto extensible = [](std::uint32_t subformat) {
        const std::string plain = Format(0xFFFE, 1, 16000, 16).substr(8);
        return Chunk("fmt ", plain + Bytes(22, 2) + Bytes(16, 2) + Bytes(4, 4) +
                                 Bytes(subformat, 2) + std::string(14, '\0'));
    };
    EXPECT_EQ(ParseWav(Wav(extensible(1) + kSound)).size(), 2U);
    EXPECT_THROW((void)ParseWav(Wav(extensible(7) + kSound)), RuntimeError);
}

TEST(MemorySource, ComesToItsEnd) {
    MemorySource source({1, 2, 3});
    std::array<std::int16_t, 2> block{};
    EXPECT_EQ(source.Read(block), 2U);
    EXPECT_EQ(source.Read(block), 1U);
    EXPECT_EQ(block[0], 3);
    EXPECT_EQ(source.Read(block), 0U);
}

TEST(SampleQueue, LosesTheOldestSoundWhenNobodyTakesIt) {
    SampleQueue queue(3);
    queue.Push(std::array<std::int16_t, 5>{1, 2, 3, 4, 5});
    std::array<std::int16_t, 5> block{};
    EXPECT_EQ(queue.Pop(block), 3U);
    EXPECT_EQ(block[0], 3);
}

TEST(SampleQueue, ClosingWakesWhoeverWaits) {
    SampleQueue queue(3);
    std::thread waiting([&queue] {
        std::array<std::int16_t, 1> block{};
        EXPECT_EQ(queue.Pop(block), 0U);
    });
    queue.Close();
    waiting.join();
}

TEST(PulseCapture, WithoutAServerItDeliversSilenceInItsOwnTime) {
    setenv("PULSE_SERVER", "unix:/nowhere/pulse", 1);
    PulseCapture capture("test");
    const auto begin = std::chrono::steady_clock::now();
    std::vector<std::int16_t> heard;
    std::array<std::int16_t, 1600> block{};
    while (heard.size() < 2 * std::size_t{kSampleRate})
        heard.insert(heard.end(), block.begin(),
                     block.begin() + static_cast<std::ptrdiff_t>(capture.Read(block)));
    EXPECT_EQ(std::ranges::count(heard, 0), std::ssize(heard));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(900));
}

TEST(PulseCapture, InterruptedItIsAtItsEnd) {
    setenv("PULSE_SERVER", "unix:/nowhere/pulse", 1);
    PulseCapture capture("test");
    std::thread waiting([&capture] {
        std::array<std::int16_t, 1> block{};
        while (capture.Read(block) != 0) {
        }
    });
    capture.Interrupt();
    waiting.join();
}

}  // namespace
}  // namespace corvane::engine
