"""Counts the cards of a vCard file and their values, read by vobject."""

import sys

import vobject

cards = values = 0
with open(sys.argv[1], encoding="utf-8", newline="") as file:
    for card in vobject.readComponents(file, allowQP=True):
        cards += 1
        for line in card.getChildren():
            values += bool(line.value)
print(cards)
