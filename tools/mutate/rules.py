"""Changes of one line of a rule file, written as docs/rule-language.md says.

What changes nothing is not offered: a rule that compares no letters in the other
mode, neighbours whose order no text glued of their pieces shows, a guard whose text is
a part of every rule in its block.
"""
import itertools
import re

from cpp import changed_unit

LITERAL = re.compile("⟨([^⟩]*)⟩")
MODE = re.compile(" (binary|ignore-case)")
CONDITION = re.compile("(not )?⟨([^⟩]*)⟩( binary| ignore-case)?|shorter than (\\d+)")
RANGE = re.compile(r"> (\d+)( down)? to (\d+)")
LIST = re.compile(r"(<\w+> in )([^,]*)")
VALUE = re.compile("⟨[^⟩]*⟩|[^ ⟨]+")
NUMBERED = r"\\u\{[0-9A-F]+\}"

# The lines of the file of names that all rule files share.
shared = []


def mutation(lines, at, rng, cases):
    """One random change at that line: what it is and the lines after it, or None."""
    kinds = CHANGES.get(kind_of(lines[at]), [])
    if kind_of(lines[at]) == "rule" and listed(lines, at, cases, "unreachable"):
        return None
    for change in rng.sample(kinds, len(kinds)):
        if change is swap and kind_of(lines[at + 1]) == "rule" and listed(lines, at + 1, cases, "unreachable"):
            continue
        same = SAME.get(change)
        if same and kind_of(lines[at]) == "rule" and listed(lines, at, cases, "same", same):
            continue
        changed = change(lines, at, rng)
        if changed:
            return changed
    return None


def kind_of(line):
    word = line.split(maxsplit=1)[0] if line.strip() else ""
    return "rule" if word.startswith("⟨") else word


def replaced(lines, at, *with_lines):
    return lines[:at] + list(with_lines) + lines[at + 1 :]


# Rules.


def drop(lines, at, rng):
    return "dropped " + kind_of(lines[at]), replaced(lines, at)


def flip_mode(lines, at, rng):
    """The other mode, for the rule or for one of a guard's conditions."""
    spots = list(CONDITION.finditer(lines[at])) if kind_of(lines[at]) == "when" else [arrow(lines[at])]
    spots = [spot for spot in spots if "⟨" in spot[0] and has_letters(lines, spot[0])]
    if not spots:
        return None
    spot = rng.choice(spots)
    end = spot.start() + spot[0].rindex("⟩") + 1
    rest = MODE.sub("", lines[at][end:], 1) if MODE.match(lines[at], end) else lines[at][end:]
    flipped = "binary" if mode_at(lines, at, end) == "ignore-case" else "ignore-case"
    changed = replaced(lines, at, lines[at][:end] + " " + flipped + rest)
    return ("compares " + flipped, changed) if not same_guard(lines, changed, at) else None


def change_literal(lines, at, rng):
    """One character of a literal cut, doubled or changed; not of a placeholder or a name."""
    spots = []
    unit = re.compile("|".join(["(‹\\w+›", *(f"<{name}>" for name in placeholders(lines))]) + f")|{NUMBERED}|.")
    for literal in LITERAL.finditer(lines[at][: family_start(lines[at])]):
        units = unit.finditer(lines[at], literal.start(1), literal.end(1))
        spots += [found for found in units if not found[1]]
    if not spots:
        return None
    spot = rng.choice(spots)
    text = rng.choice(["", spot[0] * 2] + changed_unit(spot[0]) * 2)
    changed = replaced(lines, at, lines[at][: spot.start()] + text + lines[at][spot.end() :])
    return ("changed literal", changed) if not same_guard(lines, changed, at) else None


def change_limit(lines, at, rng):
    found = re.search(r" first (\d+)", lines[at])
    if not found:
        return None
    k = int(found[1])
    text = rng.choice(["", f" first {k + 1}"] + [f" first {k - 1}"] * (k > 1))
    return "changed limit", replaced(lines, at, lines[at][: found.start()] + text + lines[at][found.end() :])


def swap(lines, at, rng):
    """The rule and the one on the next line."""
    if at + 1 == len(lines) or kind_of(lines[at + 1]) != "rule" or lines[at] == lines[at + 1]:
        return None
    if commute(lines, at, at + 1):
        return None
    return "swapped rules", lines[:at] + [lines[at + 1], lines[at]] + lines[at + 2 :]


def move_bound(lines, at, rng):
    """One end of a range by one, or one value of a list out."""
    start = family_start(lines[at])
    changed = []
    for found in RANGE.finditer(lines[at], start):
        for group, by in itertools.product((1, 3), (1, -1)):
            if int(found[group]) + by >= 0:
                place, end = found.span(group)
                changed.append(lines[at][:place] + str(int(found[group]) + by) + lines[at][end:])
    for found in LIST.finditer(lines[at], start):
        values = VALUE.findall(found[2])
        for value in values if len(values) > 1 else []:
            if values.count(value) == 1:
                kept = " ".join(other for other in values if other != value)
                changed.append(lines[at][: found.start(2)] + kept + lines[at][found.end(2) :])
    return ("moved family bound", replaced(lines, at, rng.choice(changed))) if changed else None


# Guards.


def change_guard(lines, at, rng):
    """A condition negated or dropped; the guard with its last one."""
    conditions = list(CONDITION.finditer(lines[at]))
    asked = rng.choice(conditions)
    if asked[4] or rng.random() < 0.5:
        if asked[4]:
            text = f"shorter than {int(asked[4]) + rng.choice((1, -1))}"
        else:
            text = asked[0].removeprefix("not ") if asked[1] else "not " + asked[0]
        line = lines[at][: asked.start()] + text + lines[at][asked.end() :]
        return "negated condition", replaced(lines, at, line)
    if implied(lines, at, asked):
        return None
    if len(conditions) == 1:
        end = block_end(lines, at)
        return "dropped guard", lines[:at] + lines[at + 1 : end] + lines[end + 1 :]
    kept = " and ".join(other[0] for other in conditions if other is not asked)
    return "dropped condition", replaced(lines, at, re.match(r"\s*when ", lines[at])[0] + kept)


def block_end(lines, at):
    depth = 1
    while depth > 0:
        at += 1
        opens = kind_of(lines[at]) in ("when", "for")
        depth += 1 if opens else -1 if lines[at].strip() == "end" else 0
    return at


def implied(lines, at, asked):
    """Whether no rule in the block can fire where the condition is not met."""
    if asked[1] or asked[4]:
        return False
    ignoring = mode_at(lines, at, asked.start() + asked[0].index("⟩") + 1) == "ignore-case"
    for inner in range(at + 1, block_end(lines, at)):
        if kind_of(lines[inner]) == "scan":
            return False
        if kind_of(lines[inner]) != "rule":
            continue
        find = LITERAL.search(lines[inner])[1]
        if not ignoring and mode_at(lines, inner, arrow(lines[inner]).end()) == "ignore-case":
            return False
        if (asked[2].lower() not in find.lower()) if ignoring else (asked[2] not in find):
            return False
    return True


def same_guard(lines, changed, at):
    """Whether the changed guard lets the same texts be changed as before."""
    if kind_of(lines[at]) != "when":
        return False
    pairs = zip(CONDITION.finditer(lines[at]), CONDITION.finditer(changed[at]))
    return all(a[0] == b[0] or (implied(lines, at, a) and implied(changed, at, b)) for a, b in pairs)


# What rules compare.


def arrow(line):
    """Find, arrow and replacement."""
    return re.search("⟨[^⟩]*⟩ -> ⟨[^⟩]*⟩", line)


def mode_at(lines, at, end):
    """The mode of what ends there: its own or the chain's."""
    own = MODE.match(lines[at], end)
    if own:
        return own[1]
    chain = next(line for line in reversed(lines[:at]) if line.startswith("chain "))
    return "ignore-case" if re.match(r"chain \w+ ignore-case", chain) else "binary"


def family_start(line):
    """Where the families of a line begin, or its end."""
    found = arrow(line)
    place = line.find(" for <", found.end() if found else 0)
    return 0 if line.split(maxsplit=1)[0] == "for" else place if place >= 0 else len(line)


def placeholders(lines):
    names = set()
    for line in lines:
        if kind_of(line) in ("rule", "for"):
            names.update(re.findall(r"<(\w+)> (?:in|\d)", line[family_start(line) :]))
    return sorted(names)


def texts(lines):
    """The texts of the names that a file declares or shares, but for sentinels."""
    known = {}
    for line in shared + lines:
        if kind_of(line) == "let":
            known[line.split()[1]] = spelt(LITERAL.search(line)[1], known)
    return known


def spelt(text, known):
    """A literal with its names put in, in plain spaces and line ends."""
    text = re.sub("‹(\\w+)›", lambda name: known.get(name[1], name[0]), text)
    return text.replace("␣", " ").replace("⏎", "␍␊")


def has_letters(lines, text):
    """Whether the first literal of a text is spelt with letters that have two cases."""
    names = "|".join(["‹\\w+›"] + [f"<{name}>" for name in placeholders(lines)])
    found = re.sub(names, "", spelt(LITERAL.search(text)[1], texts(lines)))
    return found.upper() != found.lower()


def values_in(tail, known):
    """The values of the families that the end of a line names."""
    values = {}
    for name, start, down, stop in re.findall(r"<(\w+)> (\d+)( down)? to (\d+)", tail):
        low, high = sorted((int(start), int(stop)))
        values[name] = [str(number) for number in range(low, high + 1)]
    for name, listed in re.findall(r"<(\w+)> in ([^,]*)", tail):
        values[name] = [spelt(value.strip("⟨⟩"), known) for value in VALUE.findall(listed)]
    return values


def values_at(lines, at, known):
    """The values of every placeholder in force at a rule: its own and those of the blocks around it."""
    values = values_in(lines[at][family_start(lines[at]) :], known)
    depth = 0
    for line in reversed(lines[:at]):
        if kind_of(line) in ("stage", "chain"):
            break
        if line.strip() == "end":
            depth += 1
        elif kind_of(line) in ("when", "for"):
            if depth == 0 and kind_of(line) == "for":
                values.update(values_in(line, known))
            depth = max(depth - 1, 0)
    return values


def written_out(literals, values):
    """The literals, for each value of each placeholder in them."""
    used = [name for name in values if any(f"<{name}>" in literal for literal in literals)]
    for chosen in itertools.product(*(values[name] for name in used)):
        written = list(literals)
        for name, value in zip(used, chosen):
            written = [literal.replace(f"<{name}>", value) for literal in written]
        yield written


def expanded(lines, at):
    """Find and replacement of every rule that a line is written out to."""
    known = texts(lines)
    pair = [spelt(literal, known) for literal in LITERAL.findall(arrow(lines[at])[0])]
    return list(written_out(pair, values_at(lines, at, known)))


def listed(lines, at, cases, verdict, change=""):
    """Whether the case file says of every rule of that line that it never fires, or that a change of it is none."""
    stage = next(i for i in range(at, -1, -1) if kind_of(lines[i]) == "stage")
    chain = next(line for line in reversed(lines[:stage]) if kind_of(line) == "chain")
    entry = f"{verdict} {chain.split()[1]}/{lines[stage].split()[1]} "
    known = texts([])
    named = set()
    for line in cases:
        if line.startswith(entry):
            find = LITERAL.search(line)
            if line[find.end() :].split()[0] == change or not change:
                for (written,) in written_out([spelt(find[1], known)], values_in(line[find.end() :], known)):
                    named.add(written)
    own = finds(lines, at)
    if not own <= named or change:
        return own <= named
    # Of rules with one find text the first is the one that fires.
    end = next((i for i in range(at, len(lines)) if kind_of(lines[i]) in ("stage", "chain")), len(lines))
    alike = [i for i in range(stage, end) if kind_of(lines[i]) == "rule" and finds(lines, i) & own]
    return alike == [at] or alike[0] < at


def finds(lines, at):
    return {find for find, _ in expanded(lines, at)}


def commute(lines, one, other):
    """Whether the order of two rules makes no difference, or none that a text glued of their pieces shows."""
    pairs = list(itertools.product(expanded(lines, one), expanded(lines, other)))
    modes = [mode_at(lines, at, arrow(lines[at]).end()) for at in (one, other)]
    return all(untouched(*pair) or (len(pairs) <= 4 and agree(*pair, modes)) for pair in pairs)


def untouched(rule, other):
    """Whether neither rule can make or spoil what the other finds."""

    def touch(a, b):
        return a in b or b in a or any(a[-n:] == b[:n] or b[-n:] == a[:n] for n in range(1, min(len(a), len(b))))

    (find, put), (other_find, other_put) = (tuple(text.lower() for text in pair) for pair in (rule, other))
    if not put or not other_put:
        return False
    return not (touch(find, other_find) or touch(put, other_find) or touch(other_put, find))


def agree(rule, other, modes):
    """Whether both orders give the same over each find text between beginnings and ends of find texts."""
    finds = [rule[0], other[0]]
    fronts = sorted({find[:n] for find in finds for n in range(len(find) + 1)})
    backs = sorted({find[n:] for find in finds for n in range(len(find) + 1)})
    # The front of a find text, whole or cut, stands before what is replaced, its end after that, and
    # a cut find text over the next one shares their common characters.
    for front, middle, back in itertools.product(fronts, overlapped(finds), backs):
        text = front + middle + back
        if replaced_by(replaced_by(text, rule, modes[0]), other, modes[1]) != replaced_by(
            replaced_by(text, other, modes[1]), rule, modes[0]
        ):
            return False
    return True


def overlapped(finds):
    """The find texts, and each two of them over each other's edge."""
    texts = set(finds)
    for a, b in itertools.product(finds, finds):
        texts.update(a + b[n:] for n in range(1, min(len(a), len(b))) if a[-n:].lower() == b[:n].lower())
    return sorted(texts)


def replaced_by(text, rule, mode):
    find, put = rule
    if mode == "binary":
        return text.replace(find, put)
    return re.sub(re.escape(find), lambda _: put, text, flags=re.IGNORECASE)


# What the case files call a change that makes no difference.
SAME = {drop: "dropped", flip_mode: "flipped", change_limit: "unlimited"}
CHANGES = {
    "rule": [drop, flip_mode, change_literal, change_limit, swap, move_bound],
    "when": [flip_mode, change_literal, change_guard],
    "for": [move_bound],
    "let": [change_literal],
    "scan": [drop],
}
