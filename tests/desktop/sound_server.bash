# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# A sound server of the test's own, with the speaker and the microphone of the virtual desktop, which
# may come and go. To be sourced behind helpers.bash.

sound_server=
room=
export PULSE_SERVER=unix:$scratch/sound
sed "s#socket=.*#socket=$scratch/sound#" "$PULSE_RUNTIME_PATH/script.pa" > "$scratch/script.pa"

end_all() {
    kill_sound_server
    clean_up
}
trap end_all EXIT

# There is a microphone, and in the room there is nobody.
microphone_is_there() { [[ $(pactl get-default-source 2> /dev/null) == corvane_capture ]]; }

start_sound_server() {
    # The desktop's own server holds the name on its bus.
    DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere pulseaudio -n -F "$scratch/script.pa" --daemonize=no \
        --use-pid-file=no --exit-idle-time=-1 --high-priority=no --realtime=no \
        > "$scratch/sound.txt" 2>&1 &
    sound_server=$!
    expect "the sound server is there" wait_until 20 microphone_is_there
    "$tools/room-noise" 2> /dev/null &
    room=$!
}

kill_sound_server() {
    [[ -n $sound_server ]] || return 0
    kill -KILL "$sound_server" 2> /dev/null || true
    wait "$sound_server" "$room" 2> /dev/null || true
    sound_server=
    # What is left of it would keep its successor from the place.
    rm -f "$scratch/sound"
}
