"""What a screen reader finds in the program that runs, asked by its own tools."""
import sys
import time

try:
    import pyatspi
except ImportError:
    sys.exit(77)

PATIENCE = 30  # seconds, for anything that must come
RETURN, F1 = 0xFF0D, 0xFFBE  # as symbols
ALT = 64  # as a key


def until(what, find):
    end = time.monotonic() + PATIENCE
    while True:
        try:
            found = find()
            if found:
                return found
        except Exception as failure:  # what was looked at may be gone
            found = failure
        if time.monotonic() > end:
            raise SystemExit(f"waited in vain for {what}: {found}\n" + tree(pyatspi.Registry.getDesktop(0)))
        time.sleep(0.02)


def tree(node, depth=0):
    text = f"{'  ' * depth}{node.getRoleName()}: {node.name!r}\n"
    return text + "".join(tree(child, depth + 1) for child in node if child is not None and depth < 6)


def window(title):
    return until(f"window {title}", lambda: next(
        w for app in pyatspi.Registry.getDesktop(0) if app.name.lower() == "plenair" for w in app
        if w is not None and w.name == title and w.getState().contains(pyatspi.STATE_SHOWING)))


def find(node, role, name):
    return until(f"{role} {name}", lambda: pyatspi.findDescendant(
        node, lambda n: n.getRoleName() == role and n.name == name))


def press(node):
    node.queryAction().doAction(0)


def expect(seen, wanted, what):
    if seen != wanted:
        raise SystemExit(f"{what}: {seen!r}, but should be {wanted!r}")


def key(symbol):
    pyatspi.Registry.generateKeyboardEvent(symbol, None, pyatspi.KEY_SYM)


def click(node, across, down):
    place = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    pyatspi.Registry.generateMouseEvent(place.x + int(place.width * across), place.y + int(place.height * down), "b1c")


def in_use(node):
    """The window, when it has the keyboard."""
    until(node.name + " in use", lambda: node.getState().contains(pyatspi.STATE_ACTIVE) and pyatspi.findDescendant(
        node, lambda control: control.getState().contains(pyatspi.STATE_FOCUSED)))
    return node


def choose(lite, menu, entry):
    in_use(lite)
    pyatspi.Registry.generateKeyboardEvent(ALT, None, pyatspi.KEY_PRESS)
    key(ord(menu[0].lower()))
    pyatspi.Registry.generateKeyboardEvent(ALT, None, pyatspi.KEY_RELEASE)
    item = find(lite, "menu item", entry)
    until("menu " + menu, lambda: item.getState().contains(pyatspi.STATE_SHOWING))
    key(ord(entry[0].lower()))


def rows(table):
    cells = table.queryTable()
    return [[cells.getAccessibleAt(row, column).name for column in range(cells.nColumns)]
            for row in range(cells.nRows)]


def check_lite(lite):
    expect(lite.getRoleName(), "frame", "role of the Lite window")
    for box, text in (("Flow Rate (L/s)", "300"), ("Height (mm)", "100")):
        find(lite, "text", box).queryEditableText().setTextContents(text)
    find(lite, "label", "row 2: no duct")
    key(RETURN)
    find(lite, "label", "row 2: very slender, above 8")
    table = find(lite, "table", "Rectangular ducts")
    expect(rows(table)[4], ["550", "150", "4.13", "0.69"], "the last row")
    find(lite, "image", "Wider ducts")
    key(F1)
    press(find(in_use(window("Plenair")), "push button", "OK"))


def check_solver(lite):
    choose(lite, "File", "Project Solver")
    solver = in_use(window("Plenair"))
    expect(solver.getRoleName(), "frame", "role of the solver")
    grid = find(solver, "list", "Network")
    expect(grid.childCount, 0, "ducts of an empty project")
    click(grid, 0.1, 0.1)
    until("the grid's focus", lambda: grid.getState().contains(pyatspi.STATE_FOCUSED))
    click(grid, 0.2, 0.1)
    until("a duct", lambda: grid.childCount == 1)
    connection = find(solver, "radio button", "Draw Duct Connection")
    press(connection)
    until("connections", lambda: connection.getState().contains(pyatspi.STATE_CHECKED))
    click(grid, 0.2, 0.2)
    until("a second duct", lambda: grid.childCount == 2)
    expect([f"{duct.getRoleName()} {duct.name}" for duct in grid],
           ["list item R1 rigid, from 4, 3 to 8, 3", "list item C2 connection, from 8, 3 to 8, 6"], "the ducts")
    press(find(solver, "check box", "View/Set Duct Parameters"))
    sheet = window("Duct Parameters")
    expect(sheet.getRoleName(), "frame", "role of the sheet")
    scroll_bar = find(sheet, "scroll bar", "Duct number")
    expect(scroll_bar.queryValue().maximumValue, 2, "the scroll bar's maximum")
    in_use(sheet)
    scroll_bar.queryComponent().grabFocus()
    until("the scroll bar's focus", lambda: scroll_bar.getState().contains(pyatspi.STATE_FOCUSED))


pyatspi.Registry.getDesktop(0).set_cache_mask(0)  # what counts is what is there now
lite_window = in_use(window("Plenair Lite"))
check_lite(lite_window)
check_solver(lite_window)
