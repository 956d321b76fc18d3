#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""A logind that only remembers, on the system bus of the environment.

usage: power_mock.py serve   runs until it is ended
       power_mock.py refuse  from now on it refuses
       power_mock.py calls   prints what has been asked of it, one line each: METHOD ARGUMENT...
"""
import subprocess
import sys
import time

import dbus

NAME = "org.freedesktop.login1"
PATH = "/org/freedesktop/login1"
MANAGER = NAME + ".Manager"
MOCK = "org.freedesktop.DBus.Mock"


def logind():
    return dbus.Interface(dbus.SystemBus().get_object(NAME, PATH), MOCK)


def serve():
    server = subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind"])
    while not dbus.SystemBus().name_has_owner(NAME):
        time.sleep(0.05)
    print("ready", flush=True)
    try:
        server.wait()
    finally:
        server.terminate()


def refuse():
    for method in ("PowerOff", "Reboot"):
        logind().AddMethod(MANAGER, method, "b", "", "raise dbus.exceptions.DBusException("
                           "'not permitted', name='org.freedesktop.DBus.Error.AccessDenied')")


def calls():
    for _, method, arguments in logind().GetCalls():
        if method in ("PowerOff", "Reboot"):
            print(method, *(bool(argument) for argument in arguments))


def main():
    match sys.argv[1:]:
        case ["serve"]:
            serve()
        case ["refuse"]:
            refuse()
        case ["calls"]:
            calls()
        case _:
            print(__doc__.strip(), file=sys.stderr)
            return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())
