// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/program_search.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "linux/launch/command_line.h"
#include "linux/launch/desktop_entry.h"
#include "linux/launch/path_lookup.h"

namespace corvane::linux_desktop {
namespace {

namespace fs = std::filesystem;

std::string Variable(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

std::vector<fs::path> Folders(const std::string& list, const fs::path& below = {}) {
    std::vector<fs::path> folders;
    std::istringstream parts(list);
    for (std::string folder; std::getline(parts, folder, ':');)
        // A relative one depends on where we happen to be: PATH and the data folders may not have
        // it.
        if (fs::path(folder).is_absolute()) folders.push_back(fs::path(folder) / below);
    return folders;
}

bool IsWindowsProgram(const fs::path& file) {
    std::array<char, 2> start{};
    std::ifstream(file, std::ios::binary).read(start.data(), start.size());
    return start == std::array{'M', 'Z'};
}

/// Looks for one program under the given places.
class ProgramSearch {
public:
    explicit ProgramSearch(const SearchPlaces& places) : places_(places) {}

    [[nodiscard]] std::optional<Invocation> Find(const std::string& program) const {
        // In front of the file itself: some desktops make their entries executable.
        if (auto found = FindEntryFile(program)) return found;
        if (auto found = FindFile(program)) return found;
        if (HasFolder(program)) return std::nullopt;
        return FindEntry(program);
    }

private:
    static bool HasFolder(const std::string& program) {
        return program.find('/') != std::string::npos;
    }

    /// The names that a program may have here.
    static std::vector<std::string> Spellings(const std::string& program) {
        std::vector<std::string> spellings{program};
        if (EndsIgnoringCase(program, ".exe"))
            spellings.push_back(program.substr(0, program.size() - 4));
        return spellings;
    }

    [[nodiscard]] std::optional<Invocation> FindFile(const std::string& program) const {
        for (const std::string& spelling : Spellings(program)) {
            if (spelling.empty() || spelling.ends_with('/')) continue;
            if (HasFolder(spelling)) {
                if (auto found = Runnable(spelling)) return found;
                continue;
            }
            for (const fs::path& folder : places_.programs)
                if (auto found = Runnable(folder / spelling)) return found;
        }
        return std::nullopt;
    }

    [[nodiscard]] std::optional<Invocation> Runnable(const fs::path& path) const {
        const auto file = FindIgnoringCase(path);
        std::error_code ignored;
        if (!file || !fs::is_regular_file(*file, ignored)) return std::nullopt;
        const std::string full = fs::absolute(*file, ignored).string();
        if (IsWindowsProgram(full)) {
            for (const fs::path& folder : places_.programs)
                if (::access((folder / "wine").c_str(), X_OK) == 0)
                    return Invocation{(folder / "wine").string(), full};
            return std::nullopt;
        }
        if (::access(full.c_str(), X_OK) != 0) return std::nullopt;
        return Invocation{full};
    }

    [[nodiscard]] std::optional<Invocation> FindEntryFile(const std::string& program) const {
        if (!HasFolder(program)) return std::nullopt;
        for (const std::string& spelling : Spellings(program)) {
            if (!EndsIgnoringCase(spelling, ".desktop")) continue;
            const auto file = FindIgnoringCase(spelling);
            std::error_code ignored;
            if (file && fs::is_regular_file(*file, ignored)) return FromEntryFile(*file);
        }
        return std::nullopt;
    }

    [[nodiscard]] std::optional<Invocation> FromEntryFile(const fs::path& file) const {
        std::ifstream stream(file, std::ios::binary);
        const std::string content(std::istreambuf_iterator<char>(stream), {});
        const auto entry = ReadDesktopEntry(content);
        return entry ? InvocationOf(*entry) : std::nullopt;
    }

    [[nodiscard]] std::optional<Invocation> FindEntry(const std::string& id) const {
        for (const std::string& spelling : Spellings(id))
            for (const fs::path& folder : places_.applications) {
                const auto file = FindIgnoringCase(folder / (spelling + ".desktop"));
                if (!file) continue;
                // The first folder that has the id decides, even if it only hides the entry.
                return FromEntryFile(*file);
            }
        return std::nullopt;
    }

    [[nodiscard]] std::optional<Invocation> InvocationOf(const DesktopEntry& entry) const {
        auto invocation = FindFile(entry.command.front());
        if (!invocation) return std::nullopt;
        invocation->insert(invocation->end(), entry.command.begin() + 1, entry.command.end());
        if (!entry.terminal) return invocation;
        auto terminal = FindFile("x-terminal-emulator");
        if (!terminal) return std::nullopt;
        terminal->push_back("-e");
        terminal->insert(terminal->end(), invocation->begin(), invocation->end());
        return terminal;
    }

    const SearchPlaces& places_;
};

}  // namespace

SearchPlaces SearchPlaces::OfEnvironment() {
    const std::string home = Variable("HOME", "/");
    SearchPlaces places;
    places.programs = Folders(Variable("PATH", "/usr/local/bin:/usr/bin:/bin"));
    places.applications = Folders(Variable("XDG_DATA_HOME", home + "/.local/share") + ":" +
                                      Variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"),
                                  "applications");
    return places;
}

std::optional<Invocation> FindInvocation(const std::string& line, const SearchPlaces& places) {
    const ProgramSearch search(places);
    for (const CommandReading& reading : ReadCommandLine(line)) {
        auto invocation = search.Find(reading.program);
        if (!invocation) continue;
        const auto arguments = ArgumentsOf(reading.rest);
        invocation->insert(invocation->end(), arguments.begin(), arguments.end());
        return invocation;
    }
    return std::nullopt;
}

}  // namespace corvane::linux_desktop
