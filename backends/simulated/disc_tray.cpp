// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/disc_tray.h"

#include "runtime/text.h"

namespace corvane::simulated {
namespace {

using namespace std::chrono_literals;

constexpr auto kMoving = 3s;
constexpr std::uint32_t kNotUnderstood = 261;
constexpr std::uint32_t kNoDrive = 263;

}  // namespace

std::uint32_t DiscTray::mciSendStringA(const std::string& command, std::string& reply,
                                       std::uint32_t replyLength, HWND callback) {
    record_.Call("mciSendStringA", "\"" + command + "\" \"" + reply + "\" " +
                                       std::to_string(replyLength) + " " +
                                       std::to_string(callback));
    const std::string words = LCase(command);
    const bool to_open = words.starts_with("set cdaudio door open");
    if (!to_open && !words.starts_with("set cdaudio door closed")) return kNotUnderstood;
    if (!there_) return kNoDrive;
    if (words.ends_with(" wait") && open_ != to_open) queue_.Block(kMoving);
    open_ = to_open;
    return 0;
}

}  // namespace corvane::simulated
