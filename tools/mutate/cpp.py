"""Changes of one line of C++."""
import re

SWAPS = {
    "comparison": (r" (<=|>=|==|!=|<|>) ", {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}),
    "logic": (r" (&&|\|\|) ", {"&&": "||", "||": "&&"}),
    "arithmetic": (r" ([+-]) \d+\b", {"+": "-", "-": "+"}),
    "truth": (r"\b(true|false)\b", {"true": "false", "false": "true"}),
    "jump": (r"^\s*(?:.*\) )?(break|continue);", {"break": "", "continue": "break"}),
}
CONSTANT = re.compile(r"(?: [+-] |\breturn )(\d+)\b")
CONDITION = re.compile(r"\b(?:if|while) \(")
CALL = re.compile(r"^\s*(?!return\b|if\b|while\b|for\b|static_assert\b)[\w:.>-]+\(.*\);$")
ASSIGNMENT = re.compile(r"^\s*(?:[\w:.>\[\]*()-]+ (?:[-+|&]?=) .*|[+-]{2}[\w:.>-]+|[\w:.>-]+[+-]{2});$")
WHOLE_LINE = re.compile(r"(?:[;{}:]|^)\s*(?://.*)?$")
LITERAL = re.compile(r"""u(?:"((?:\\.|[^"\\])*)"|'((?:\\.|[^'\\])*)')""")
QUOTED = re.compile(r"""//.*|"(?:\\.|[^"\\])*"|(?<!\d)'(?:\\.|[^'\\])*'""")


def mutation(lines, at, rng):
    """One random change at that line: what it is and the lines after it, or None."""
    line = lines[at]
    if re.match(r"\s*(?://|#|namespace\b|using\b)", line):
        return None
    kinds = list(changes(lines, at, rng).items())
    if not kinds:
        return None
    kind, changed = rng.choice(kinds)
    return kind, lines[:at] + [rng.choice(changed)] + lines[at + 1 :]


def changes(lines, at, rng):
    """The changed lines that are possible, by kind."""
    line = lines[at]
    # Quotations and comments are not looked into, so that they hold no operators.
    code = QUOTED.sub(lambda match: "`" * len(match[0]), line)
    found = {}

    def add(kind, start, end, text):
        found.setdefault(kind, []).append(line[:start] + text + line[end:])

    for kind, (pattern, swaps) in SWAPS.items():
        for match in re.finditer(pattern, code):
            if not changes_nothing(lines, at, match[1]):
                add(kind, *match.span(1), swaps[match[1]])
    for match in CONSTANT.finditer(code):
        for by in (1, -1):
            if int(match[1]) + by >= 0:
                add("constant", *match.span(1), str(int(match[1]) + by))
    for match in CONDITION.finditer(code):
        end = closing(code, match.end())
        if end and not re.search(";| = ", code[match.end() : end]):
            add("negated condition", match.end(), end, "!(" + line[match.end() : end] + ")")
    # A text is reserved room for speed only.
    if (CALL.match(code) or ASSIGNMENT.match(code)) and ".reserve(" not in code.lower():
        if at > 0 and (WHOLE_LINE.search(lines[at - 1]) or lines[at - 1].endswith(")")):
            indent = len(line) - len(line.lstrip())
            add("dropped statement", indent, len(line), ";")
    for match in LITERAL.finditer(line):
        which = 1 if match[1] is not None else 2
        units = [unit for unit in re.finditer(r"\\x[0-9a-fA-F]+|\\.|.", match[which])]
        if units and code[match.start() + 1] == "`":
            unit = rng.choice(units)
            start = match.start(which) + unit.start()
            longer = [] if which == 2 else [""] if is_set(lines, at) else ["", unit[0] * 2]
            for text in changed_unit(unit[0]) + longer:
                add("literal", start, start + len(unit[0]), text)
    return found


def changes_nothing(lines, at, word):
    """Whether a swap of that word of the line is known to make no difference."""
    # After the last break of a switch the switch ends; cases are indented by four more than their switch.
    if word == "break" and lines[at].strip() == "break;":
        return at + 1 < len(lines) and re.fullmatch(" " * (len(lines[at]) - len("break;") - 4) + "}", lines[at + 1])
    # By one unit, a text is refused that grows beyond what any document makes of it.
    return word in (">", ">=") and re.search(r"\blimits::k\w+Units\b|\bthrow LimitReached\b", lines[at])


def is_set(lines, at):
    """Whether the text on that line is a set of characters to search for: in it a character counts once."""
    declared = re.search(r"\b(k\w+) =", lines[at])
    used = f"_of({declared[1]}" if declared else ""
    return "_of(" in lines[at] or (declared and any(used in line for line in lines))


def changed_unit(unit):
    """The neighbour of a letter or digit."""
    if unit.isascii() and unit.isdigit():
        return [str((int(unit) + 1) % 10)]
    if unit.isascii() and unit.isalpha():
        return [chr(ord(unit) + 1) if unit not in "zZ" else chr(ord(unit) - 1)]
    return []


def closing(code, start):
    """Where the parenthesis closes that opens in front of `start`, or None."""
    depth = 1
    for at in range(start, len(code)):
        depth += {"(": 1, ")": -1}.get(code[at], 0)
        if depth == 0:
            return at
    return None
