// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as the kernel's tables of mounts and of routes: drives, trash and the network's card
// are found in them, or not.

#include <cstddef>
#include <cstdint>
#include <string>

#include "linux/system/default_route.h"
#include "linux/system/drives.h"
#include "linux/system/mounts.h"
#include "linux/system/trash_places.h"
#include "require.h"

using namespace corvane::linux_desktop;
using corvane::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const auto drives = DrivesOf(text, {.floppies = {"/dev/fd0"}, .optical = {"/dev/sr0"}});
    char last = 0;
    for (const Drive& drive : drives) {
        Require(drive.letter > last && drive.letter <= 'Z', "letters rise");
        last = drive.letter;
    }
    for (const std::string root : {"", "C:\\", "d:\\"}) {
        const TrashMap map{
            .mountinfo = text, .drives = drives, .home_trash = "/h/Trash", .person = 1};
        const auto places = TrashPlacesOf(map, root);
        Require(places.has_value() || root == "d:\\", "the root always has its place");
        if (!places) continue;
        Require(places->tops.size() <= MountsOf(text).size(), "a mount has one trash");
    }
    const std::string::size_type half = size / 2;
    if (const auto device = DefaultRouteOf(text.substr(0, half), text.substr(half)))
        Require(!device->empty() && device->find(' ') == std::string::npos, "a card has a name");
    return 0;
}
