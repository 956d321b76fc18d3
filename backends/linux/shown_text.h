// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::linux_desktop {

/// The system's text that a control shows. A log is handed over whole with each of its lines, so
/// what was added last is found without counting all that stands before it.
class ShownText {
public:
    explicit ShownText(std::string text = {});

    [[nodiscard]] const std::string& text() const { return text_; }

    /// Takes another text. If it is the old one with something behind it, that addition, which is
    /// valid until the next change; nothing if the control must show all of it anew.
    std::optional<std::string_view> Replace(const std::string& text);

    /// As the function of that name for the whole text.
    [[nodiscard]] int ControlPosition(std::int32_t position) const;

private:
    /// One place in the text, in bytes, in the system's characters and in the control's units.
    struct Place {
        std::size_t bytes = 0;
        std::int32_t characters = 0;
        int units = 0;
    };

    std::string text_;
    Place addition_;  // where the last addition begins
};

}  // namespace corvane::linux_desktop
