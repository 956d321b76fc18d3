#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

status_of() {
    local status=0
    "$tools/virtual-desktop" "$@" > "$scratch/output" 2> "$scratch/message" || status=$?
    echo "$status"
}

expect "success" equal "$(status_of true)" 0
expect "a failure" equal "$(status_of bash -c 'exit 7')" 7
expect "an end by a signal" equal "$(status_of bash -c 'kill -KILL $$')" 137
expect "no such command" equal "$(status_of /no/such/command)" 127
expect "no command" equal "$(status_of)" 2
expect "arguments stay apart" equal "$(status_of printf '%s|' 'a b' c)" 0
expect "arguments arrive" equal "$(< "$scratch/output")" "a b|c|"
