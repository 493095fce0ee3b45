"""Each house rule finds what breaks it and leaves alone what does not."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(TOP / "tools" / "lib"))

import house_rules  # noqa: E402
from cpp_functions import functions  # noqa: E402

CORE = "Packages/PlannerCore/Sources/PlannerCore/X.cpp"
MODEL = "Sources/Orvane/Model/X.cpp"
VIEW = "Sources/Orvane/Views/Cards/X.qml"
BOUND = "pragma ComponentBehavior: Bound\n"
LONG_FUNCTION = "void f() {\n" + "    g();\n" * house_rules.MAX_FUNCTION_LINES + "}\n"

# Rule, a file that breaks it and its text, a file that does not and its text.
CASES = [
    ("core_knows_no_qt", CORE, "#include <QString>\n", MODEL, "#include <QString>\n"),
    ("core_knows_no_qt", CORE, "#include <QtCore/qglobal.h>\n", CORE, "#include <queue>\n"),
    ("core_knows_no_qt", "Packages/PlannerCore/CMakeLists.txt", "find_package(Qt6)\n",
     "Sources/Orvane/CMakeLists.txt", "find_package(Qt6)\n"),
    ("details_stay_in_the_core", MODEL, "#include <PlannerCore/Detail/Json.h>\n",
     "Packages/PlannerCore/Tests/JsonTests.cpp", "#include <PlannerCore/Detail/Json.h>\n"),
    ("only_the_composition_root_knows_linux", MODEL, '#include "Platform/Linux/SystemClock.h"\n',
     "Sources/Orvane/App/main.cpp", '#include "Platform/Linux/SystemClock.h"\n'),
    ("platforms_are_told_apart_in_one_place", MODEL, "#ifdef Q_OS_LINUX\n",
     "Sources/Orvane/Platform/Linux/X.cpp", "#ifdef Q_OS_LINUX\n"),
    ("platforms_are_told_apart_in_one_place", MODEL, "#if defined(__linux__)\n", MODEL, "#if defined(DEBUG)\n"),
    ("components_know_no_model", "Sources/Orvane/Views/Components/X.qml",
     BOUND + "Item {\n    required property AppModel model\n}\n",
     "Sources/Orvane/Views/Components/X.qml", BOUND + "// Shown for an AppModel.\nItem {}\n"),
    ("components_know_no_model", "Sources/Orvane/Views/Components/X.h", '#include "Model/AppModel.h"\n',
     "Sources/Orvane/Views/ViewEngine.h", '#include "Model/AppModel.h"\n'),
    ("clocks_are_read_in_one_place", MODEL, "auto now = QDateTime::currentDateTime();\n",
     "Sources/Orvane/Platform/Linux/SystemClock.cpp", "auto now = QDateTime::currentDateTime();\n"),
    ("clocks_are_read_in_one_place", MODEL, "#include <QTimer>\n", MODEL, "// Not a QTimer.\n"),
    ("clocks_are_read_in_one_place", CORE, "auto t = std::chrono::steady_clock::now();\n",
     CORE, "std::chrono::sys_seconds t;\n"),
    ("clocks_are_read_in_one_place", VIEW, BOUND + "Item { property var t: new Date() }\n",
     VIEW, BOUND + "Item { property var t: new Date(0) }\n"),
    ("nothing_is_global", MODEL, "auto& model = AppModel::instance();\n", MODEL, "auto instances = 3;\n"),
    ("colours_live_in_the_palette", VIEW, BOUND + 'Rectangle { color: "#1f2621" }\n',
     "Sources/Orvane/Views/Components/Palette.qml", BOUND + 'QtObject { property color ink: "#1f2621" }\n'),
    ("colours_live_in_the_palette", MODEL, 'QColor c("#fff");\n', MODEL, 'QString heading("# Title");\n'),
    ("our_module_is_imported_under_a_name", VIEW, BOUND + "import Orvane\n", VIEW, BOUND + "import Orvane as Orvane\n"),
    ("our_module_is_imported_under_a_name", VIEW, BOUND + "import Orvane 1.0\n", VIEW, BOUND + "import QtQuick\n"),
    ("components_are_bound", VIEW, "ListView {\n    delegate: Item {}\n}\n",
     VIEW, BOUND + "ListView {\n    delegate: Item {}\n}\n"),
    ("components_are_bound", VIEW, "Component {\n    Item {}\n}\n", VIEW, "Item {}\n"),
    ("tests_never_sleep", "Tests/Orvane/XTests.cpp", "QTest::qWait(100);\n", "Tests/Orvane/XTests.cpp",
     "QTRY_VERIFY(done);\n"),
    ("tests_never_sleep", "Tests/EndToEnd/x.py", "time" ".sleep(1)\n", "Tests/EndToEnd/harness.py", "time" ".sleep(1)\n"),
    ("the_tree_speaks_for_itself", MODEL, "// See the Specificatio" + "n.\n", MODEL, "// XDG Base Directory Specificatio" + "n\n"),
    ("the_tree_speaks_for_itself", "README.md", "As Part 2" + ".4 says\n", "README.md", "Part of the store\n"),
    ("the_tree_speaks_for_itself", "tools/x", "cd /wor" + "k/main\n", "tools/x", "cd framework/main\n"),
    ("files_stay_short", MODEL, "\n" * (house_rules.MAX_CPP_LINES + 1), MODEL, "\n" * house_rules.MAX_CPP_LINES),
    ("files_stay_short", VIEW, BOUND + "\n" * house_rules.MAX_QML_LINES, VIEW, BOUND),
    ("functions_stay_short", MODEL, LONG_FUNCTION, MODEL, LONG_FUNCTION.replace("    g();\n", "", 3)),
]


def findings(path, text):
    """The names of the rules that a tree with this one file breaks."""
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder) / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)
        return house_rules.check(folder)


class HouseRules(unittest.TestCase):
    def test_each_rule_finds_what_breaks_it(self):
        for rule, path, text, _, _ in CASES:
            with self.subTest(rule=rule, text=text[:60]):
                found = findings(path, text)
                self.assertEqual([rule.replace("_", " ")], sorted({line.split(": ")[1] for line in found}))

    def test_each_rule_leaves_alone_what_keeps_it(self):
        for rule, _, _, path, text in CASES:
            with self.subTest(rule=rule, text=text[:60]):
                self.assertEqual([], findings(path, text))

    def test_no_rule_is_without_a_case(self):
        self.assertEqual({rule.__name__ for rule in house_rules.RULES}, {case[0] for case in CASES})

    def test_a_finding_names_the_line(self):
        self.assertTrue(findings(MODEL, "\n\n#include <QTimer>\n")[0].startswith(MODEL + ":3: "))

    def test_a_build_folder_is_not_looked_at(self):
        self.assertEqual([], findings("build/dev/x.cpp", "#include <QTimer>\n"))

    def test_the_command_fails_exactly_when_there_are_findings(self):
        for path, text, status in ((MODEL, "#ifdef Q_OS_MAC\n", 1), (MODEL, "int x;\n", 0)):
            with self.subTest(text=text), tempfile.TemporaryDirectory() as folder:
                file = Path(folder) / path
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
                done = subprocess.run([TOP / "tools" / "tidy", folder], capture_output=True, text=True, check=False)
                self.assertEqual(status, done.returncode, done.stdout)


class FunctionLengths(unittest.TestCase):
    def lengths(self, text):
        return {name: lines for name, _, lines in functions(text)}

    def test_a_constructor_with_braced_members_is_one_function(self):
        text = "A::A(int x)\n    : x_{x}, y_(x) {\n    f();\n}\n"
        self.assertEqual({"A::A": 4}, self.lengths(text))

    def test_members_inside_namespaces_and_classes_are_found(self):
        text = "namespace a {\nclass B : C {\n    void f() const override {\n        g();\n    }\n    int x{3};\n};\n}\n"
        self.assertEqual({"f": 3}, self.lengths(text))

    def test_lambdas_and_tables_are_no_functions_of_their_own(self):
        text = "const int t[] = {\n1,\n2};\nvoid f() {\n    g([] {\n        h();\n    });\n}\n"
        self.assertEqual({"f": 5}, self.lengths(text))

    def test_braces_in_texts_and_comments_do_not_count(self):
        text = 'void f() {\n    g("{{{", \'{\'); // {\n    /* { */\n}\nvoid h() {\n}\n'
        self.assertEqual({"f": 4, "h": 2}, self.lengths(text))

    def test_macros_that_define_tests_are_functions(self):
        self.assertEqual({"TEST": 3}, self.lengths("TEST(A, b) {\n    f();\n}\n"))


if __name__ == "__main__":
    unittest.main()
