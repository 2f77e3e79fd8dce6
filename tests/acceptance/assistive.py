"""Assistive technology in a scenario: finds the instrument through AT-SPI and uses it as a screen reader does.

    assistive.py value NAME          prints the number of the control with this name
    assistive.py words NAME          prints its value in words
    assistive.py set NAME NUMBER     sets it
    assistive.py act NAME ACTION     runs one of its actions: Press, Toggle, Increase ...
    assistive.py focus NAME          gives it the focus
    assistive.py watch NAME SECONDS  prints the numbers that are told to have changed, until one has
    assistive.py unnamed             prints the controls of all windows that have no name, and then how many controls there are
"""
import sys
import time

import pyatspi

PROGRAM = "marvolin"
FOR_HANDS = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_SLIDER, pyatspi.ROLE_DIAL, pyatspi.ROLE_PAGE_TAB,
}


def program():
    """The instrument; waits until it has told the registry."""
    end = time.monotonic() + 10
    while time.monotonic() < end:
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.name.startswith(PROGRAM):
                return application
        time.sleep(0.1)
    sys.exit("the program is not there")


def everything(below):
    yield below
    for child in below:
        if child is not None:
            yield from everything(child)


def control(name):
    for found in everything(program()):
        if found.name == name:
            return found
    sys.exit("no control " + name)


def act(found, wanted):
    actions = found.queryAction()
    for number in range(actions.nActions):
        if actions.getName(number).lower() == wanted.lower():
            return actions.doAction(number)
    sys.exit("no action " + wanted + " but " + ", ".join(actions.getName(n) for n in range(actions.nActions)))


def watch(name, seconds):
    end = time.monotonic() + seconds

    def heard(event):
        if event.source.name != name:
            return
        print(event.source.queryValue().currentValue, flush=True)
        pyatspi.Registry.stop()

    def look():
        if time.monotonic() > end:
            pyatspi.Registry.stop()
        return True

    from gi.repository import GLib
    GLib.timeout_add(100, look)
    pyatspi.Registry.registerEventListener(heard, "object:property-change:accessible-value")
    print("ready", flush=True)
    pyatspi.Registry.start()


def main(what, *arguments):
    if what == "value":
        print(control(arguments[0]).queryValue().currentValue)
    elif what == "words":
        print(control(arguments[0]).description)
    elif what == "set":
        control(arguments[0]).queryValue().currentValue = float(arguments[1])
    elif what == "act":
        act(control(arguments[0]), arguments[1])
    elif what == "focus":
        control(arguments[0]).queryComponent().grabFocus()
    elif what == "watch":
        watch(arguments[0], float(arguments[1]))
    elif what == "unnamed":
        controls = [found for found in everything(program()) if found.getRole() in FOR_HANDS]
        for found in controls:
            if not found.name:
                print(found.getRoleName(), found.getApplication().name)
        print("controls", len(controls))
    else:
        sys.exit(__doc__)


main(*sys.argv[1:])
