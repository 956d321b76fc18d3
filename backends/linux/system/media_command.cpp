// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/media_command.h"

#include <cctype>
#include <iterator>
#include <sstream>
#include <vector>

namespace corvane::linux_desktop {
namespace {

std::vector<std::string> SmallWordsOf(const std::string& command) {
    std::string text = command;
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

}  // namespace

MediaResult ParseDoorCommand(const std::string& command, DoorCommand& door) {
    const std::vector<std::string> words = SmallWordsOf(command);
    if (words.empty() || words[0] != "set") return kMediaUnknownCommand;
    if (words.size() < 2 || words[1] != "cdaudio") return kMediaUnknownDevice;
    if (words.size() < 3) return kMediaMissingParameter;
    if (words[2] != "door") return kMediaUnknownKeyword;
    if (words.size() < 4) return kMediaMissingParameter;
    DoorCommand read{.open = words[3] == "open", .wait = false};
    if (!read.open && words[3] != "closed") return kMediaUnknownKeyword;
    for (std::size_t i = 4; i < words.size(); ++i) {
        if (words[i] == "wait")
            read.wait = true;
        else if (words[i] != "notify")
            return kMediaUnknownKeyword;
    }
    door = read;
    return kMediaDone;
}

}  // namespace corvane::linux_desktop
