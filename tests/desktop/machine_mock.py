#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""logind, and UDisks with one optical drive, that only remember; on the system bus of the environment.

usage: machine_mock.py serve   runs until it is ended
       machine_mock.py refuse  from now on both refuse
       machine_mock.py calls   prints what has been asked of them, one line each: METHOD ARGUMENT...
"""
import subprocess
import sys
import time

import dbus

LOGIND = ("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager")
DRIVE = ("org.freedesktop.UDisks2", "/org/freedesktop/UDisks2/block_devices/sr0",
         "org.freedesktop.UDisks2.Filesystem")
METHODS = [(LOGIND, "PowerOff", "b"), (LOGIND, "Reboot", "b"), (DRIVE, "Unmount", "a{sv}")]
REFUSAL = "raise dbus.exceptions.DBusException('no', name='org.freedesktop.DBus.Error.AccessDenied')"


def mock(part):
    name, path, _ = part
    return dbus.Interface(dbus.SystemBus().get_object(name, path), "org.freedesktop.DBus.Mock")


def answer_with(code):
    for part, method, signature in METHODS:
        mock(part).AddMethod(part[2], method, signature, "", code)


def serve():
    servers = [subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--system", *part]) for part in (LOGIND, DRIVE)]
    for name, _, _ in (LOGIND, DRIVE):
        while not dbus.SystemBus().name_has_owner(name):
            time.sleep(0.05)
    answer_with("")
    print("ready", flush=True)
    try:
        for server in servers:
            server.wait()
    finally:
        for server in servers:
            server.terminate()


def print_calls():
    for part in (LOGIND, DRIVE):
        for _, method, arguments in mock(part).GetCalls():
            print(method, *(bool(a) if isinstance(a, dbus.Boolean) else dict(a) for a in arguments))


def main():
    match sys.argv[1:]:
        case ["serve"]:
            serve()
        case ["refuse"]:
            answer_with(REFUSAL)
        case ["calls"]:
            print_calls()
        case _:
            print(__doc__.strip(), file=sys.stderr)
            return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())
