#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""A network that does what it is told, on the buses of the environment.

usage: network_mock.py serve                     runs until it is ended
       network_mock.py set STATE TYPE ACTIVATING  NetworkManager's number of the state, the type of
                                                  the connection in use, and of the one being set
                                                  up ("" for none)
       network_mock.py proxy ADDRESS              what the desktop's settings say: direct:// for none
       network_mock.py profile NUMBER TYPE AUTOCONNECT LAST_USED OUTCOME
                                                  a connection that can be activated; AUTOCONNECT is
                                                  yes, no or unsaid, OUTCOME answers, busy, silent or
                                                  stalls, which is answers with nobody saying anything
                                                  for three seconds; TYPE may be bluetooth:dun,
                                                  pppoe:PARENT, or end with @CARD
       network_mock.py stands NUMBER...           the profiles that are active from now on
       network_mock.py calls METHOD               prints the arguments of each call of it, a line each
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
PROFILE = PATH + "/Settings/"
PROFILE_ACTIVE = PATH + "/ActiveConnection/of"
DEVICE = PATH + "/Devices/"
ACTIVE = NAME + ".Connection.Active"

# Run by the mock for calls: "self" is its manager. Profiles and what they have become have their
# number in common.
LIST = f"ret = [dbus.ObjectPath(p) for p in sorted(objects) if p.startswith({PROFILE!r})]"
SHOW = f"""
def show(manager, objects=objects):
    standing = [p for p in sorted(objects) if p.startswith({PROFILE_ACTIVE!r})
                and objects[p].props[{ACTIVE!r}]['State'] in (1, 2, 3)]
    up = [p for p in standing if objects[p].props[{ACTIVE!r}]['State'] == 2]
    props = manager.props[{NAME!r}]
    props['ActiveConnections'] = dbus.Array([dbus.ObjectPath(p) for p in standing], signature='o')
    props['PrimaryConnection'] = dbus.ObjectPath(up[-1] if up else '/')
    props['PrimaryConnectionType'] = objects[up[-1]].props[{ACTIVE!r}]['Type'] if up else ''
    props['State'] = dbus.UInt32(70 if up else 20)
"""
LATER = """
def later(active, state, manager, milliseconds, show=show):
    def change():
        active['State'] = dbus.UInt32(state)
        show(manager)
        return False
    from gi.repository import GLib
    GLib.timeout_add(milliseconds, change)
"""
ACTIVATE = SHOW + LATER + f"""
ret = dbus.ObjectPath({PROFILE_ACTIVE!r} + args[0].rsplit('/', 1)[1])
active = objects[ret].props[{ACTIVE!r}]
active['State'] = dbus.UInt32(1)
show(self)
outcome = dict(answers=2, busy=4, silent=1, stalls=2)[str(active['Outcome'])]
later(active, outcome, self, 300)
if active['Outcome'] == 'stalls':
    import time
    from gi.repository import GLib
    GLib.timeout_add(50, lambda sleep=time.sleep: sleep(3))
"""
DEACTIVATE = SHOW + LATER + f"""
active = objects[args[0]].props[{ACTIVE!r}]
active['State'] = dbus.UInt32(3)
show(self)
later(active, 4, self, 300)
"""
STANDS = SHOW + f"""
for path in objects:
    if path.startswith({PROFILE_ACTIVE!r}):
        up = path.removeprefix({PROFILE_ACTIVE!r}) in args[0]
        objects[path].props[{ACTIVE!r}]['State'] = dbus.UInt32(2 if up else 4)
show(self)
"""


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
        "PrimaryConnection": dbus.ObjectPath("/"),
        "ActivatingConnection": dbus.ObjectPath("/"),
        "ActiveConnections": dbus.Array([], signature="o"),
    })
    manager.AddMethod(NAME, "ActivateConnection", "ooo", "o", ACTIVATE)
    manager.AddMethod(NAME, "DeactivateConnection", "o", "", DEACTIVATE)
    manager.AddMethod(NAME, "Stands", "as", "", STANDS)
    manager.AddObject(PATH + "/Settings", NAME + ".Settings", {}, [("ListConnections", "", "ao", LIST)])
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


def add_profile(number, kind, autoconnect, last_used, outcome):
    kind, _, card = kind.partition("@")
    kind, _, profile = kind.partition(":")
    connection = {"type": kind, "id": "profile " + number, "timestamp": int(last_used)}
    if autoconnect != "unsaid":
        connection["autoconnect"] = autoconnect == "yes"
    if card:
        connection["interface-name"] = card
    settings = {"connection": connection}
    if profile:
        settings[kind] = {"parent" if kind == "pppoe" else "type": profile}
    code = f"ret = {settings!r}"
    manager = mock(dbus.SystemBus(), NAME, PATH)
    devices = [dbus.ObjectPath(DEVICE + number)] if card else []
    if card:
        manager.AddObject(DEVICE + number, NAME + ".Device", {"Interface": card}, [])
    manager.AddObject(PROFILE + number, NAME + ".Settings.Connection", {},
                      [("GetSettings", "", "a{sa{sv}}", code)])
    manager.AddObject(PROFILE_ACTIVE + number, ACTIVE, {
        "Type": kind,
        "Connection": dbus.ObjectPath(PROFILE + number),
        "Devices": dbus.Array(devices, signature="o"),
        "State": dbus.UInt32(4),
        "Outcome": outcome,
    }, [])


def print_calls(method):
    for _, arguments in mock(dbus.SystemBus(), NAME, PATH).GetMethodCalls(method):
        print(*arguments)


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
        case ["profile", number, kind, autoconnect, last_used, outcome]:
            add_profile(number, kind, autoconnect, last_used, outcome)
        case ["stands", *numbers]:
            dbus.Interface(dbus.SystemBus().get_object(NAME, PATH), NAME).Stands(dbus.Array(numbers, signature="s"))
        case ["calls", method]:
            print_calls(method)
        case _:
            print(__doc__.strip(), file=sys.stderr)
            return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())
