// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What programs of the session copy for each other. Each kind of desktop session has its own way
/// to do it.
namespace corvane::linux_desktop {

/// What was copied in one of the forms in which it is offered.
struct CopiedForm {
    std::string name;  ///< what it is asked for by, such as "UTF8_STRING" or "text/html"
    std::string type;  ///< what it then calls itself: mostly the same
    std::string bytes;
    friend bool operator==(const CopiedForm&, const CopiedForm&) = default;
};
using Copied = std::vector<CopiedForm>;

/// Text in all the forms in which programs ask for it. What Latin-1 lacks is "?" in the old one.
[[nodiscard]] Copied CopiedText(std::u32string_view text);

class Clipboard {
public:
    enum class Keeper {
        Nobody,
        OurProgram,  ///< one of our own windows; only its loop could answer
        OtherProgram,
    };

    virtual ~Clipboard() = default;

    /// Who keeps what was copied last.
    [[nodiscard]] virtual Keeper FindKeeper() = 0;

    /// Asks the other program that keeps it for its text, as UTF-8 with the line ends of that
    /// program. Nothing when it has no text, or has not handed all of it over within `patience`.
    [[nodiscard]] virtual std::optional<std::string> ReadText(
        std::chrono::milliseconds patience) = 0;

    /// How often something was copied since this was created, by any program.
    [[nodiscard]] virtual std::uint32_t Copies() = 0;
};

}  // namespace corvane::linux_desktop
