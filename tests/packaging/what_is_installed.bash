#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# What an installation gives the desktop, read as the desktop reads it.
# usage: what_is_installed.bash BUILD_FOLDER
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../desktop/helpers.bash"

build=$1
person="$scratch/home/a person/.local"
root=$scratch/root

command_of() { sed -n 's/^Exec=//p' "$1"; }
icons_have_their_size() {
    local icon size
    for icon in "$1"/share/icons/hicolor/*x*/apps/corvane.png; do
        size=$(basename "${icon%/apps/*}")
        equal "$(identify -format '%wx%h' "$icon")" "$size" || return 1
    done
}
holds() { grep -qx "$1" "$2"; }

cmake --install "$build" --prefix "$person" > /dev/null
DESTDIR=$root cmake --install "$build" --prefix /usr > /dev/null

for tree in "$person" "$root/usr"; do
    expect "the menu's entry is valid" \
        equal "$(desktop-file-validate "$tree/share/applications/corvane.desktop")" ""
    expect "the software catalogue's is, too" \
        appstreamcli validate --no-net "$tree/share/metainfo/local.corvane.corvane.metainfo.xml"
    expect "icons have the sizes of their folders" icons_have_their_size "$tree"
    expect "there is one for each size" \
        test -e "$tree/share/icons/hicolor/16x16/apps/corvane.png" -a \
        -e "$tree/share/icons/hicolor/512x512/apps/corvane.png" -a \
        -e "$tree/share/icons/hicolor/scalable/apps/corvane.svg"
    expect "there is a manual page" test -s "$tree/share/man/man1/corvane.1"
done

for autostart in "$person/etc/xdg/autostart" "$root/etc/xdg/autostart"; do
    expect "the entry for the session's start is valid" \
        equal "$(desktop-file-validate "$autostart/corvane.desktop")" ""
    expect "it is switched off" holds "Hidden=true" "$autostart/corvane.desktop"
done

expect "for all people the program is found by its name" \
    equal "$(command_of "$root/usr/share/applications/corvane.desktop")" corvane
expect "for one it is named in full" \
    equal "$(command_of "$person/share/applications/corvane.desktop")" "\"$person/bin/corvane\""
expect "both entries start the same" \
    equal "$(command_of "$person/etc/xdg/autostart/corvane.desktop")" "\"$person/bin/corvane\""

# As the README says it.
HOME=${person%/.local} bash -c "$(sed -n '/^(cd ~\/.local /,/)$/p' "$here/../../README.md")"
expect "nothing is left of it when it is removed" equal "$(find "$person" ! -type d)" ""

odd='/odd/100% $sure'
DESTDIR=$root cmake --install "$build" --prefix "$odd" > /dev/null
expect "a name full of signs is written so that desktops read it" \
    equal "$(command_of "$root$odd/share/applications/corvane.desktop")" \
    '"/odd/100%% \\$sure/bin/corvane"'
expect "that entry is valid" \
    equal "$(desktop-file-validate "$root$odd/share/applications/corvane.desktop")" ""
