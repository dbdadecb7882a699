"""Finds the functions of a C++ text by its braces: no parser, but it holds for code in one format.

Outside functions a brace opens a namespace, a type, an initializer or a function's body. It is a body when the words
since the last ';', '{' or '}' have a parameter list and do not begin a type.
"""

import re

SCOPE = re.compile(r"\b(namespace|class|struct|union|enum|extern)\b")
NO_PART = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*|\b(?:public|private|protected)\s*:(?!:)", re.M)
TEMPLATE = re.compile(r"\btemplate\s*<[^<>]*(?:<[^<>]*>[^<>]*)*>")


def kind_of(head):
    """'scope', 'body' or 'other' for the words before a brace."""
    words = TEMPLATE.sub("", head)
    if "(" not in words:
        return "scope" if SCOPE.search(words) else "other"
    before_parameters = words.split("(")[0]
    if "=" in before_parameters and "operator" not in before_parameters:
        return "other"  # an initializer, perhaps one with a call in it
    if SCOPE.search(before_parameters) and not re.search(r"\w\s+[\w:~]+\s*$", before_parameters):
        return "scope"
    return "body"


def name_of(head):
    match = re.search(r"([\w:~]+|operator[^\w\s(]+)\s*\(", TEMPLATE.sub("", head))
    return match[1] if match else head.strip()[:40]


def lengths(code):
    """Yields (first line, name, number of lines) per function of a text whose comments and strings are blanked."""
    code = NO_PART.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), code)
    kinds, head_start = [], 0
    body_start, body_name, body_depth = 0, "", None
    for match in re.finditer(r"[{};]", code):
        mark, place = match.group(), match.start()
        outside = body_depth is None
        if mark == "{":
            kind = kind_of(code[head_start:place]) if outside and all(k == "scope" for k in kinds) else "other"
            if kind == "body":
                head = code[head_start:place]
                body_start = head_start + len(head) - len(head.lstrip())
                body_name, body_depth = name_of(head), len(kinds)
            kinds.append(kind)
        elif mark == "}" and kinds:
            kinds.pop()
            if body_depth == len(kinds):
                yield (code.count("\n", 0, body_start) + 1, body_name, code.count("\n", body_start, place) + 1)
                body_depth = None
        head_start = place + 1
