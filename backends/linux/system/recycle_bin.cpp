// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/recycle_bin.h"

#include <QMessageBox>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "linux/launch/detached_process.h"
#include "linux/launch/program_search.h"
#include "linux/system/emptying_window.h"
#include "platform/shell32.h"

namespace corvane::linux_desktop {
namespace {

/// What both threads know of the work. The one that works may be left behind with it.
struct Work {
    Emptying emptying;
    std::promise<EmptyBinResult> result;
};

EmptyBinResult ResultOf(const Emptying& emptying, bool all_gone) {
    if (emptying.cancelled) return kBinCancelled;
    if (!all_gone) return kBinNotAllEmptied;
    return emptying.files_removed > 0 ? kBinEmptied : kBinWasEmpty;
}

std::future<EmptyBinResult> Start(const std::shared_ptr<Work>& work,
                                  const RecycleBin::FindPlaces& find_places,
                                  const std::string& root) {
    std::future<EmptyBinResult> done = work->result.get_future();
    std::thread([work, find_places, root] {
        const auto places = find_places(root);
        if (!places) return work->result.set_value(kNoSuchDrive);
        const bool all_gone = EmptyTrashes(*places, work->emptying);
        work->result.set_value(ResultOf(work->emptying, all_gone));
    }).detach();
    return done;
}

bool PersonAgrees() {
    QMessageBox question(QMessageBox::Warning, QStringLiteral("Recycle Bin"),
                         QStringLiteral("Delete all that is in the recycle bin for good?"),
                         QMessageBox::Yes | QMessageBox::No);
    question.setDefaultButton(QMessageBox::No);
    return question.exec() == QMessageBox::Yes;
}

/// By the desktop's own player, which knows whether the person wants to hear such sounds.
void PlaySoundOfEmptying() {
    const auto player =
        FindInvocation("canberra-gtk-play --id=trash-empty", SearchPlaces::OfEnvironment());
    if (player) static_cast<void>(StartDetached(*player, "/"));
}

}  // namespace

RecycleBin::RecycleBin(FindPlaces find_places) : find_places_(std::move(find_places)) {}

std::int32_t RecycleBin::Empty(HWND owner, const std::string& root, std::uint32_t flags) {
    constexpr std::chrono::seconds kWithoutWindow{1};
    if (busy_) return kBinIsBeingEmptied;
    busy_ = true;
    EmptyBinResult result = kBinCancelled;
    if ((flags & SHERB_NOCONFIRMATION) != 0 || PersonAgrees()) {
        const auto work = std::make_shared<Work>();
        std::future<EmptyBinResult> done = Start(work, find_places_, root);
        const auto is_done = [&](std::chrono::milliseconds patience) {
            return done.wait_for(patience) == std::future_status::ready;
        };
        if (!is_done(kWithoutWindow))
            WaitWithWindow(work->emptying, owner, [&] { return is_done({}); });
        result = is_done({}) ? done.get() : kBinCancelled;
        if (work->emptying.files_removed > 0) PlaySoundOfEmptying();
    }
    busy_ = false;
    return result;
}

}  // namespace corvane::linux_desktop
