"""Turns a vCard file into CSV as a script would: read by vobject, written by the csv module."""

import csv
import sys

import vobject

NAMES = ("n", "fn", "tel", "email", "adr", "org", "note")
with open(sys.argv[1], encoding="utf-8", newline="") as source, open(sys.argv[2], "w", newline="") as target:
    writer = csv.writer(target)
    writer.writerow(NAMES)
    for card in vobject.readComponents(source, allowQP=True):
        writer.writerow(["; ".join(str(line.value).strip() for line in card.contents.get(name, ())) for name in NAMES])
