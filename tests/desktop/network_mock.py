#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""A network that does what it is told, on the buses of the environment.

usage: network_mock.py serve                     runs until it is ended
       network_mock.py set STATE TYPE ACTIVATING  NetworkManager's number of the state, the type of
                                                  the connection in use, and of the one being set
                                                  up ("" for none)
       network_mock.py proxy ADDRESS              what the desktop's settings say: direct:// for none
"""
import subprocess
import sys
import time

import dbus

NAME = "org.freedesktop.NetworkManager"
PATH = "/org/freedesktop/NetworkManager"
ACTIVATING = PATH + "/ActiveConnection/2"
PORTAL = "org.freedesktop.portal.Desktop"
PORTAL_PATH = "/org/freedesktop/portal/desktop"
RESOLVER = "org.freedesktop.portal.ProxyResolver"
MOCK = "org.freedesktop.DBus.Mock"


def mock(bus, name, path):
    return dbus.Interface(bus.get_object(name, path), MOCK)


def wait_for(bus, name):
    while not bus.name_has_owner(name):
        time.sleep(0.05)


def serve():
    servers = [
        subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--system", NAME, PATH, NAME]),
        subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--session", PORTAL, PORTAL_PATH, RESOLVER]),
    ]
    wait_for(dbus.SystemBus(), NAME)
    wait_for(dbus.SessionBus(), PORTAL)
    manager = mock(dbus.SystemBus(), NAME, PATH)
    manager.AddProperties(NAME, {
        "State": dbus.UInt32(20),
        "PrimaryConnectionType": "",
        "ActivatingConnection": dbus.ObjectPath("/"),
    })
    manager.AddObject(ACTIVATING, NAME + ".Connection.Active", {"Type": ""}, [])
    set_proxy("direct://")
    print("ready", flush=True)
    try:
        for server in servers:
            server.wait()
    finally:
        for server in servers:
            server.terminate()


def set_network(state, kind, activating):
    bus = dbus.SystemBus()
    mock(bus, NAME, ACTIVATING).UpdateProperties(NAME + ".Connection.Active", {"Type": activating})
    # One by one: the mock cannot update a path among others.
    manager = dbus.Interface(bus.get_object(NAME, PATH), dbus.PROPERTIES_IFACE)
    manager.Set(NAME, "State", dbus.UInt32(int(state)))
    manager.Set(NAME, "PrimaryConnectionType", kind)
    manager.Set(NAME, "ActivatingConnection", dbus.ObjectPath(ACTIVATING if activating else "/"))


def set_proxy(address):
    mock(dbus.SessionBus(), PORTAL, PORTAL_PATH).AddMethod(RESOLVER, "Lookup", "s", "as", f"ret = [{address!r}]")


def main():
    match sys.argv[1:]:
        case ["serve"]:
            serve()
        case ["set", state, kind, activating]:
            set_network(state, kind, activating)
        case ["proxy", address]:
            set_proxy(address)
        case _:
            print(__doc__.strip(), file=sys.stderr)
            return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())
