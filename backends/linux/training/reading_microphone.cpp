// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/reading_microphone.h"

#include <array>
#include <utility>

namespace corvane::linux_desktop {
namespace {

using engine::Endpointer;

constexpr int kFramesPerLevel = Endpointer::kFramesPerSecond / 10;

/// A microphone always has some noise: nothing at all is a cable, a switch or a server.
constexpr int kSilentWithoutSignal = 30;

}  // namespace

ReadingMicrophone::ReadingMicrophone(std::unique_ptr<engine::AudioSource> source, Events events)
    : source_(std::move(source)), events_(std::move(events)), thread_([this] { Run(); }) {}

ReadingMicrophone::~ReadingMicrophone() {
    source_->Interrupt();
    thread_.join();
}

void ReadingMicrophone::Run() {
    std::array<std::int16_t, Endpointer::kFrameSamples> frame{};
    std::size_t filled = 0;
    while (const std::size_t count = source_->Read(std::span(frame).subspan(filled))) {
        filled += count;
        if (filled < frame.size()) continue;
        filled = 0;
        Hear(frame);
    }
    // A source that has come to its end is a microphone that is gone.
    TellSignal(false);
}

void ReadingMicrophone::Hear(std::span<const std::int16_t> frame) {
    if (const std::uint32_t turn = turn_; turn != known_turn_) {
        known_turn_ = turn;
        catcher_.Drop();
    }
    Measure(frame);
    switch (catcher_.Push(frame)) {
        case engine::ReadingCatcher::Event::began:
            return TellInTurn(events_.Began);
        case engine::ReadingCatcher::Event::denied:
            return TellInTurn(events_.Denied);
        case engine::ReadingCatcher::Event::ended:
            return TellInTurn(
                [tell = events_.Ended, reading = catcher_.Caught()] { tell(reading); });
        case engine::ReadingCatcher::Event::none:
            return;
    }
}

void ReadingMicrophone::Measure(std::span<const std::int16_t> frame) {
    power_.Add(frame);
    if (++frames_ < kFramesPerLevel) return;
    const double mean_square = power_.MeanSquare();
    frames_ = 0;
    power_ = {};
    silent_ = mean_square == 0.0 ? silent_ + 1 : 0;
    if (silent_ == 0) TellSignal(true);
    if (silent_ >= kSilentWithoutSignal) TellSignal(false);
    Tell([tell = events_.Level, level = engine::AudioLevel(engine::Decibels(mean_square))] {
        tell(level);
    });
}

void ReadingMicrophone::TellSignal(bool there) {
    if (std::exchange(signal_, there) == there) return;
    Tell([tell = events_.Signal, there] { tell(there); });
}

void ReadingMicrophone::Tell(std::function<void()> message) {
    QMetaObject::invokeMethod(&here_, std::move(message), Qt::QueuedConnection);
}

void ReadingMicrophone::TellInTurn(std::function<void()> message) {
    Tell([this, turn = known_turn_, message = std::move(message)] {
        if (turn == turn_) message();
    });
}

}  // namespace corvane::linux_desktop
