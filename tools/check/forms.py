"""Forms: one class, one name, layouts only, and every control reachable by keyboard and by a screen
reader. Line numbers are those where a control begins."""

import sys
import xml.parsers.expat
from dataclasses import dataclass, field

import common

INPUTS = {
    "QLineEdit", "QTextEdit", "QPlainTextEdit", "QTextBrowser", "QComboBox", "QFontComboBox",
    "QSpinBox", "QDoubleSpinBox", "QDateEdit", "QTimeEdit", "QDateTimeEdit", "QCalendarWidget",
    "QListView", "QListWidget", "QTreeView", "QTreeWidget", "QTableView", "QTableWidget",
    "QSlider", "QScrollBar", "QDial",
}
BUTTONS = {"QPushButton", "QToolButton", "QCheckBox", "QRadioButton", "QCommandLinkButton"}
CONTROLS = INPUTS | BUTTONS


@dataclass
class Node:
    """One element of a form."""
    tag: str
    attributes: dict
    line: int
    text: str = ""
    children: list = field(default_factory=list)

    def all(self, *tags):
        for child in self.children:
            if child.tag in tags:
                yield child
            yield from child.all(*tags)

    def child(self, tag):
        return next((child for child in self.children if child.tag == tag), None)

    def value_of(self, name):
        """The text of a property's value; None when it is not set."""
        for child in self.children:
            if child.tag == "property" and child.attributes.get("name") == name:
                return child.children[0].text.strip() if child.children else ""
        return None

    @property
    def name(self):
        return self.attributes.get("name", "")


def parse(source):
    """The form's root element. Raises ExpatError."""
    top = Node("", {}, 0)
    open_nodes = [top]
    parser = xml.parsers.expat.ParserCreate()

    def start(tag, attributes):
        node = Node(tag, attributes, parser.CurrentLineNumber)
        open_nodes[-1].children.append(node)
        open_nodes.append(node)

    def characters(data):
        open_nodes[-1].text += data

    parser.StartElementHandler = start
    parser.EndElementHandler = lambda tag: open_nodes.pop()
    parser.CharacterDataHandler = characters
    parser.Parse(source, True)
    return top.children[0]


def check_names(form, stem):
    declared = form.child("class")
    main = form.child("widget")
    if declared is None or main is None:
        yield form.line, "has no class or no widget"
        return
    if declared.text.strip() != stem:
        yield declared.line, f"the class is {declared.text.strip()}, the file {stem}"
    if main.name != stem:
        yield main.line, f"the form itself is named {main.name}, the file {stem}"
    seen = set()
    for node in form.all("widget", "layout", "spacer", "action", "actiongroup", "buttongroup"):
        if node.name in seen:
            yield node.line, f"the name {node.name} stands twice"
        seen.add(node.name)


def check_geometry(form):
    main = form.child("widget")
    for widget in form.all("widget"):
        for node in widget.children:
            if node.tag == "property" and node.name == "geometry" and widget is not main:
                yield node.line, f"{widget.name} has a fixed place: use a layout"


def ancestor_class(form, widget):
    """The Qt class of a widget, promoted ones by what they extend."""
    name = widget.attributes.get("class", "")
    for custom in form.all("customwidget"):
        declared, extends = custom.child("class"), custom.child("extends")
        if declared is not None and declared.text.strip() == name and extends is not None:
            return extends.text.strip()
    return name


def check_controls(form):
    buddies = {label.value_of("buddy") for label in form.all("widget")} - {None}
    stops = {stop.text.strip() for stop in form.all("tabstop")}
    focusable = []
    for widget in form.all("widget"):
        kind = ancestor_class(form, widget)
        if kind not in CONTROLS:
            continue
        named = bool(widget.value_of("accessibleName"))
        if kind in INPUTS and not named and widget.name not in buddies:
            yield widget.line, f"{widget.name} has neither a label as its buddy nor an accessible name"
        if kind in BUTTONS and not named and not widget.value_of("text"):
            yield widget.line, f"{widget.name} has neither a text nor an accessible name"
        if widget.value_of("focusPolicy") not in ("Qt::NoFocus", "NoFocus") and kind != "QScrollBar":
            focusable.append(widget)
    if len(focusable) > 1:
        for widget in focusable:
            if widget.name not in stops:
                yield widget.line, f"{widget.name} is not in the tab order"
    names = {widget.name for widget in form.all("widget")}
    for label in form.all("widget"):
        buddy = label.value_of("buddy")
        if buddy and buddy not in names:
            yield label.line, f"{label.name} has the buddy {buddy}, which is not there"


def check(root):
    findings = []
    for path in common.files(root, ".ui"):
        try:
            form = parse((root / path).read_bytes())
        except xml.parsers.expat.ExpatError as error:
            findings.append((path, error.lineno, "is not well-formed XML"))
            continue
        for finding in (*check_names(form, path.stem), *check_geometry(form), *check_controls(form)):
            findings.append((path, *finding))
    return findings


if __name__ == "__main__":
    sys.exit(common.report(check(common.root_from_arguments())))
