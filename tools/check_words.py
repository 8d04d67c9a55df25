#!/usr/bin/env python3
"""Compares the words of RTF documents four ways, by hand:

    tools/check_words.py build/release/bin/quillary FILE...

the plain text against that of unrtf (a Debian package), the page of to-html
against the plain text, and the plain text of that page's RTF (to-rtf) against
the page. Prints a row for each document that lost words.
"""
import collections
import html
import re
import subprocess
import sys

BREAKS = re.compile(r"<br>|</?(td|tr|p|li|ul|center|table)\b[^>]*>", re.I)


def words(text):
    return collections.Counter(re.findall(r"\w+", text))


def output(*command, text=""):
    return subprocess.run(command, input=text.encode(), capture_output=True).stdout.decode("utf8", "replace")


def page_words(page):
    body = BREAKS.sub(" ", page[page.find("<BODY") :])
    return words(html.unescape(re.sub(r"<[^>]*>", "", body)))


def peer_words(file):
    text = output("unrtf", "--nopict", "--text", file)
    return words(text[text.find("-----------------") :])


def main(program, files):
    total = collections.Counter()
    for file in files:
        text = words(output(program, "to-text", file))
        from_peer = peer_words(file) - text
        page = output(program, "to-html", file)
        on_page = page_words(page)
        lost = {
            "not in the text": from_peer,
            "not on the page": text - on_page,
            "not in its RTF": on_page - words(output(program, "to-text", text=output(program, "to-rtf", text=page))),
        }
        total.update(words=text.total(), **{name: missing.total() for name, missing in lost.items()})
        if any(lost.values()):
            print(file, {name: dict(missing.most_common(8)) for name, missing in lost.items() if missing})
    print(f"{total['words']} words", {name: total[name] for name in total if name != "words"})


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
