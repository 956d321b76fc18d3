// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::engine {

/// Which senones make up which phone: the acoustic model's table of phones and triphones.
class ModelDefinition {
public:
    static constexpr std::size_t kStates = 3;
    using States = std::array<std::uint16_t, kStates>;  ///< senones, in the order of time

    enum class Position : std::uint8_t { inside, first, last, only };  ///< of a phone in its word

    /// Reads the file "mdef" of a model's folder; nothing if it is not a binary definition of
    /// phones of three states.
    [[nodiscard]] static std::optional<ModelDefinition> Load(const std::string& acoustic_model);

    [[nodiscard]] std::size_t Senones() const { return senones_; }
    /// Number of phones, those of silence and noise included.
    [[nodiscard]] std::size_t Phones() const { return names_.size(); }
    [[nodiscard]] std::size_t Silence() const { return silence_; }
    /// Is it a sound that no word is made of?
    [[nodiscard]] bool IsNoise(std::size_t phone) const { return names_[phone].front() == '+'; }
    [[nodiscard]] const std::string& Name(std::size_t phone) const { return names_[phone]; }
    /// Nothing if the model has no such phone.
    [[nodiscard]] std::optional<std::size_t> Phone(std::string_view name) const;

    /// A phone whatever stands beside it.
    [[nodiscard]] States Alone(std::size_t phone) const;
    /// A phone between two others; as it is alone if the model has no such triphone.
    [[nodiscard]] States Between(std::size_t before, std::size_t phone, std::size_t after,
                                 Position position) const;

private:
    [[nodiscard]] std::size_t Slot(std::size_t before, std::size_t phone, std::size_t after,
                                   Position position) const;

    std::vector<std::string> names_;
    std::size_t senones_ = 0;
    std::size_t silence_ = 0;
    std::vector<std::uint16_t> triphones_;  ///< by slot: index into sequences_, or kNone
    std::vector<std::uint16_t> alone_;      ///< by phone: index into sequences_
    std::vector<States> sequences_;
};

}  // namespace corvane::engine
