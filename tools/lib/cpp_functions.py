"""Finds the functions of a C++ text and how long they are, without a compiler: good enough for code in
this project's format."""

import re

LITERAL_OR_COMMENT = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'',
    re.DOTALL)
NOT_A_FUNCTION = re.compile(r"\b(namespace|class|struct|union|enum|extern)\b[^()]*$")
NAME = re.compile(r"((?:[~\w]+::)*(?:operator\s*[^\s\w(]+(?:\(\))?|~?\w+))\s*\(")


def blank(text):
    """The text with comments and literals emptied, every line kept in its place."""
    return LITERAL_OR_COMMENT.sub(lambda found: re.sub(r"[^\n]", " ", found.group(0)), text)


def closing_brace(text, opening):
    depth = 0
    for position in range(opening, len(text)):
        if text[position] == "{":
            depth += 1
        elif text[position] == "}":
            depth -= 1
            if depth == 0:
                return position
    return len(text) - 1


def functions(text):
    """Yields (name, first line, number of lines) of each function body, its head included."""
    text = re.sub(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", lambda found: re.sub(r"[^\n]", " ", found.group(0)),
                  blank(text), flags=re.MULTILINE)
    position = head_start = 0
    while position < len(text):
        character = text[position]
        if character in ";}":
            head_start = position + 1
        elif character == "{":
            head = text[head_start:position]
            name = NAME.search(head)
            if NOT_A_FUNCTION.search(head) or not name or head.rstrip().endswith("="):
                if not NOT_A_FUNCTION.search(head):
                    position = closing_brace(text, position)  # an initialiser
                else:
                    head_start = position + 1
            else:
                end = closing_brace(text, position)
                follows = text[end + 1:].lstrip()[:1]
                if follows in (",", "{"):  # a member's braces before the constructor's body
                    position = end
                else:
                    start = head_start + len(head) - len(head.lstrip())
                    lines = text.count("\n", start, end) + 1
                    yield name.group(1), text.count("\n", 0, start) + 1, lines
                    position = end
                    head_start = end + 1
        position += 1
