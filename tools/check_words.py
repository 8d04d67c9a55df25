#!/usr/bin/env python3
"""Compares the words of RTF documents three ways, by hand:

    tools/check_words.py build/release/bin/quillary FILE...

the plain text against that of unrtf (a Debian package), and the page of to-html
against the plain text. Prints a row for each document that lost words.
"""
import collections
import html
import re
import subprocess
import sys

BREAKS = re.compile(r"<br>|</?(td|tr|p|li|ul|center|table)\b[^>]*>", re.I)


def words(text):
    return collections.Counter(re.findall(r"\w+", text))


def output(*command):
    return subprocess.run(command, capture_output=True).stdout.decode("utf8", "replace")


def page_words(program, file):
    page = output(program, "to-html", file)
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
        on_page = text - page_words(program, file)
        total.update(words=text.total(), peer=from_peer.total(), page=on_page.total())
        if from_peer or on_page:
            print(file, "not in the text:", dict(from_peer.most_common(8)), "not on the page:", dict(on_page.most_common(8)))
    print(f"{total['words']} words; the peer has {total['peer']} others, the page lacks {total['page']}")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
