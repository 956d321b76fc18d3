// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/model_definition.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>

namespace corvane::engine {
namespace {

constexpr std::uint16_t kNone = std::numeric_limits<std::uint16_t>::max();
constexpr std::size_t kPositions = 4;
constexpr std::size_t kTreeNodeSize = 8;
constexpr std::string_view kByteOrderMark = "BMDF";  // of a machine of our own byte order

// The file's records. Its own header describes them in words.
struct Counts {
    std::int32_t phones, phones_and_triphones, states, lone_senones, senones, transitions,
        sequences, context, tree_nodes, silence;
};
struct Entry {
    std::int32_t sequence, transition;
    std::uint8_t position, phone, before, after;  // of a triphone
};

/// Takes values off the front of a file's bytes.
class Bytes {
public:
    explicit Bytes(std::string_view rest) : rest_(rest) {}

    [[nodiscard]] bool Skip(std::size_t count) {
        if (count > rest_.size()) return false;
        rest_.remove_prefix(count);
        return true;
    }
    template <class Value>
    [[nodiscard]] bool Take(Value& value) {
        if (sizeof value > rest_.size()) return false;
        std::memcpy(&value, rest_.data(), sizeof value);
        return Skip(sizeof value);
    }
    [[nodiscard]] bool TakeText(std::string& text) {
        const std::size_t end = rest_.find('\0');
        if (end == std::string_view::npos) return false;
        text = rest_.substr(0, end);
        return Skip(end + 1);
    }
    [[nodiscard]] std::size_t Left() const { return rest_.size(); }

private:
    std::string_view rest_;
};

bool TakeHeader(Bytes& bytes, Counts& counts) {
    std::array<char, 4> mark{};
    std::int32_t version = 0;
    std::int32_t description = 0;
    return bytes.Take(mark) && std::string_view(mark.data(), mark.size()) == kByteOrderMark &&
           bytes.Take(version) && bytes.Take(description) && description >= 0 &&
           bytes.Skip(static_cast<std::size_t>(description)) && bytes.Take(counts) &&
           counts.phones > 0 && counts.phones <= std::numeric_limits<std::uint8_t>::max() &&
           counts.phones_and_triphones >= counts.phones &&
           counts.states == static_cast<std::int32_t>(ModelDefinition::kStates) &&
           counts.senones > 0 && counts.sequences > 0 && counts.sequences < kNone &&
           counts.tree_nodes >= 0 && counts.silence >= 0 && counts.silence < counts.phones;
}

}  // namespace

std::optional<ModelDefinition> ModelDefinition::Load(const std::string& acoustic_model) {
    std::ifstream file(acoustic_model + "/mdef", std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    Bytes bytes(content);
    Counts counts{};
    if (!TakeHeader(bytes, counts)) return std::nullopt;

    ModelDefinition definition;
    definition.senones_ = static_cast<std::size_t>(counts.senones);
    definition.silence_ = static_cast<std::size_t>(counts.silence);
    definition.names_.resize(static_cast<std::size_t>(counts.phones));
    const std::size_t before_names = bytes.Left();
    for (std::string& name : definition.names_)
        if (!bytes.TakeText(name)) return std::nullopt;
    // Filled up to a multiple of four bytes; then a search tree of the triphones.
    const std::size_t padding = (4 - (before_names - bytes.Left()) % 4) % 4;
    if (!bytes.Skip(padding + static_cast<std::size_t>(counts.tree_nodes) * kTreeNodeSize))
        return std::nullopt;

    const std::size_t phones = definition.Phones();
    definition.triphones_.assign(kPositions * phones * phones * phones, kNone);
    for (std::int32_t i = 0; i < counts.phones_and_triphones; ++i) {
        Entry entry{};
        if (!bytes.Take(entry) || entry.sequence < 0 || entry.sequence >= counts.sequences)
            return std::nullopt;
        const auto sequence = static_cast<std::uint16_t>(entry.sequence);
        if (i < counts.phones) {
            definition.alone_.push_back(sequence);
            continue;
        }
        if (entry.position >= kPositions ||
            std::max({entry.phone, entry.before, entry.after}) >= static_cast<std::uint8_t>(phones))
            return std::nullopt;
        definition.triphones_[definition.Slot(entry.before, entry.phone, entry.after,
                                              static_cast<Position>(entry.position))] = sequence;
    }

    std::int32_t senones_in_sequences = 0;
    if (!bytes.Take(senones_in_sequences)) return std::nullopt;
    definition.sequences_.resize(static_cast<std::size_t>(counts.sequences));
    for (States& states : definition.sequences_)
        if (!bytes.Take(states) || std::ranges::max(states) >= definition.senones_)
            return std::nullopt;
    return definition;
}

std::optional<std::size_t> ModelDefinition::Phone(std::string_view name) const {
    const auto found = std::ranges::find(names_, name);
    if (found == names_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - names_.begin());
}

std::size_t ModelDefinition::Slot(std::size_t before, std::size_t phone, std::size_t after,
                                  Position position) const {
    const std::size_t phones = names_.size();
    return ((static_cast<std::size_t>(position) * phones + phone) * phones + before) * phones +
           after;
}

ModelDefinition::States ModelDefinition::Alone(std::size_t phone) const {
    return sequences_[alone_[phone]];
}

ModelDefinition::States ModelDefinition::Between(std::size_t before, std::size_t phone,
                                                 std::size_t after, Position position) const {
    const std::uint16_t sequence = triphones_[Slot(before, phone, after, position)];
    return sequence == kNone ? Alone(phone) : sequences_[sequence];
}

}  // namespace corvane::engine
