"""The house rules: what a compiler does not check. Each rule is a function from a file to findings, and
`check` runs all of them over a source tree."""

import re
from dataclasses import dataclass
from pathlib import Path

from cpp_functions import blank, functions

MAX_CPP_LINES = 400
MAX_QML_LINES = 250
MAX_FUNCTION_LINES = 60

# Files and functions ("file: function") that may be longer, each with the reason.
LONGER = {}

SKIPPED_FOLDERS = {".git", "build", ".cache", "__pycache__"}
CPP = {".h", ".cpp"}
TEXT = {".h", ".cpp", ".qml", ".md", ".txt", ".py", ".sh", ".json", ".cmake", ".supp", ".svg", ".in", ".xml",
        ".yml", ".desktop", ".service", ""}


@dataclass(frozen=True)
class Source:
    """One file: its path below the top folder and its text."""
    path: str
    text: str

    @property
    def suffix(self):
        return Path(self.path).suffix

    def below(self, *folders):
        return any(self.path.startswith(folder + "/") for folder in folders)


def matches(source, pattern, text=None):
    """Yields (line number, matched text) for each match of `pattern`."""
    text = source.text if text is None else text
    for found in re.finditer(pattern, text, re.MULTILINE):
        yield text.count("\n", 0, found.start()) + 1, found.group(0).strip()


def code_of(source):
    """The text without comments and literals; QML's strings and comments have C++'s form."""
    return blank(source.text)


def core_knows_no_qt(source):
    """PlannerCore builds and runs without Qt."""
    if not source.below("Packages/PlannerCore"):
        return
    if source.suffix in CPP:
        yield from matches(source, r"^\s*#\s*include\s*[<\"](?:Q[A-Z]|Qt)[^>\"]*[>\"]")
    elif source.path.endswith("CMakeLists.txt"):
        yield from matches(source, r"\bQt6\b")


def details_stay_in_the_core(source):
    """Detail/ is the core's own: included only inside PlannerCore."""
    if source.suffix in CPP and not source.below("Packages/PlannerCore"):
        yield from matches(source, r"^\s*#\s*include\s*[<\"][^>\"]*Detail/[^>\"]*[>\"]")


def only_the_composition_root_knows_linux(source):
    """Only App/ includes Platform/Linux/; the tests of its parts may, too."""
    if source.suffix in CPP and not source.below("Sources/Orvane/App", "Sources/Orvane/Platform/Linux", "Tests"):
        yield from matches(source, r"^\s*#\s*include\s*[<\"][^>\"]*Platform/Linux/[^>\"]*[>\"]")


def platforms_are_told_apart_in_one_place(source):
    """Conditions on the operating system stand only in Platform/Linux/."""
    if source.suffix in CPP and not source.below("Sources/Orvane/Platform/Linux"):
        yield from matches(source, r"\bQ_OS_\w+|^\s*#\s*(?:el)?if.*\b(?:__linux__|__unix__|_WIN32|__APPLE__)\b.*")


def components_know_no_model(source):
    """Components/ are leaves: they import no model."""
    if source.below("Sources/Orvane/Views/Components"):
        models = "AppModel|SettingsModel|FocusController|TaskListModel|NavigationModel|PanelState"
        yield from matches(source, rf"#\s*include\s*[<\"]Model/[^>\"]*|\b(?:{models})\b",
                           source.text if source.suffix in CPP else code_of(source))


def clocks_are_read_in_one_place(source):
    """Clocks are read and timers made only under Platform/; everybody else is given a Clock."""
    if source.below("Sources/Orvane/Platform") or not source.below("Sources", "Packages/PlannerCore/Sources"):
        return
    if source.suffix in CPP:
        yield from matches(source, r"\bQDateTime::current\w+|\bQDate::currentDate|\bQTime::currentTime"
                                   r"|\bQTimer\b|\bQElapsedTimer\b|\b\w+_clock::now\b|\bclock_gettime\b"
                                   r"|\bgettimeofday\b|\btime\((?:nullptr|NULL|0)\)", code_of(source))
    elif source.suffix == ".qml":
        yield from matches(source, r"\bnew Date\(\)|\bDate\.now\(\)", code_of(source))


def nothing_is_global(source):
    """There are no singletons to reach for."""
    if source.suffix in CPP:
        yield from matches(source, r"\binstance\s*\(\s*\)", code_of(source))


def colours_live_in_the_palette(source):
    """Hex colours stand only in Palette.qml."""
    if source.below("Sources") and source.suffix in CPP | {".qml"} \
            and source.path != "Sources/Orvane/Views/Components/Palette.qml":
        yield from matches(source, r"[\"']#(?:[0-9a-fA-F]{3,4}|[0-9a-fA-F]{6}|[0-9a-fA-F]{8})[\"']")


def our_module_is_imported_under_a_name(source):
    """Unqualified, our Palette would be taken for Qt Quick's type of that name."""
    if source.suffix == ".qml":
        yield from matches(source, r"^[ \t]*import[ \t]+Orvane(?:[ \t]+[\d.]+)?[ \t]*$")


def components_are_bound(source):
    """Delegates name what they use: a view with components in it declares ComponentBehavior: Bound."""
    if source.suffix == ".qml" and source.below("Sources") \
            and re.search(r"\bdelegate:|\bComponent\s*\{|\bsourceComponent:", source.text) \
            and not re.search(r"^pragma ComponentBehavior: Bound$", source.text, re.MULTILINE):
        yield 1, "pragma ComponentBehavior: Bound is missing"


def tests_never_sleep(source):
    """A test waits for a condition; only the end-to-end harness polls, and a benchmark lets things settle."""
    if not source.below("Tests", "Packages/PlannerCore/Tests") or source.path == "Tests/EndToEnd/harness.py":
        return
    if source.below("Tests/Bench"):
        return
    if source.suffix in CPP:
        yield from matches(source, r"\bsleep_(?:for|until)\b|\bqSleep\b|\bqWait\(|\b(?:u|nano)sleep\(|\bQThread::\w*sleep", code_of(source))
    elif source.suffix == ".py":
        yield from matches(source, r"\btime\.sleep\b")


def the_tree_speaks_for_itself(source):
    """Nothing refers to a text or a place that a reader of this tree does not have. A published format by
    its proper name, capitals and all, is none of these. (The brackets keep this list from finding
    itself.)"""
    yield from matches(source, r"\bspecificatio[n]s?\b|\b(?:[Tt]he|[Oo]ur|[Tt]his) Specificatio[n]")
    yield from matches(source, r"(?i)\bspec\.m[d]\b|\bdesign\.m[d]\b|\bPart \d+\.[\d]"
                               r"|/wor[k]/|\btokens\.m[d]\b|\bissue #?\d[\d]*\b|\bacceptance criteri[a]")


def files_stay_short(source):
    """A file that grows past its limit has more than one subject."""
    limit = {".qml": MAX_QML_LINES, ".h": MAX_CPP_LINES, ".cpp": MAX_CPP_LINES}.get(source.suffix)
    lines = source.text.count("\n")
    if limit and lines > limit and source.path not in LONGER:
        yield limit, f"{lines} lines, at most {limit}"


def functions_stay_short(source):
    """A function is read at one glance."""
    if source.suffix not in CPP:
        return
    for name, line, lines in functions(source.text):
        if lines > MAX_FUNCTION_LINES and f"{source.path}: {name}" not in LONGER:
            yield line, f"{name} has {lines} lines, at most {MAX_FUNCTION_LINES}"


RULES = (
    core_knows_no_qt, details_stay_in_the_core, only_the_composition_root_knows_linux,
    platforms_are_told_apart_in_one_place, components_know_no_model, clocks_are_read_in_one_place,
    nothing_is_global, colours_live_in_the_palette, our_module_is_imported_under_a_name, components_are_bound,
    tests_never_sleep, the_tree_speaks_for_itself, files_stay_short, functions_stay_short,
)


def sources(top):
    """Yields the text files below the folder `top`."""
    for path in sorted(Path(top).rglob("*")):
        below = path.relative_to(top)
        if SKIPPED_FOLDERS.intersection(below.parts) or not path.is_file() or path.suffix not in TEXT:
            continue
        try:
            text = path.read_bytes().decode()
        except UnicodeDecodeError:
            continue  # a test's or a fuzz target's input
        yield Source(below.as_posix(), text)


def check(top):
    """The findings in the tree below `top`, a line of text each."""
    return [f"{source.path}:{line}: {rule.__name__.replace('_', ' ')}: {what}"
            for source in sources(top) for rule in RULES for line, what in rule(source)]
