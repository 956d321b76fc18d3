// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/cd_door.h"

#include <string>

#include "runtime/failure.h"

namespace corvane {
namespace {

// Of ImageList1.
constexpr std::int32_t kClosedPicture = 1;
constexpr std::int32_t kOpenPicture = 2;

}  // namespace

CdDoor::CdDoor(IWinMm& winmm, MessageLoop& loop, forms::Lazy<Form2>& main_window)
    : winmm_(winmm), loop_(loop), main_window_(main_window) {}

void CdDoor::ToggleCdDoor() {
    ResumeNext step;
    if (step.test([&] { return main_window_->CdDoorOpen; })) {
        step([&] { main_window_->Label1.SetCaption("Checking for CD"); });
        step([&] { loop_.DoEvents(); });  // the words are seen before the wait
        step([&] { Move("Set CDAudio Door Closed Wait"); });
        step([&] { main_window_->CdDoorOpen = false; });
        step([&] {
            main_window_->Picture1.SetPicture(main_window_->ImageList1.Picture(kClosedPicture));
        });
        step([&] { main_window_->Label1.SetCaption("Closed"); });
    } else {
        step([&] { Move("Set CDAudio Door Open Wait"); });
        step([&] { main_window_->CdDoorOpen = true; });
        step([&] {
            main_window_->Picture1.SetPicture(main_window_->ImageList1.Picture(kOpenPicture));
        });
        step([&] { main_window_->Label1.SetCaption("Opened"); });
    }
}

void CdDoor::Move(const char* command) {
    std::string reply = "0";  // no room is given for one, so nothing comes back
    winmm_.mciSendStringA(command, reply, 0, 0);
}

}  // namespace corvane
