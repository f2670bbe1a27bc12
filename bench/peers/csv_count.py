"""Counts the records of a CSV file, read by the csv module."""

import csv
import sys

with open(sys.argv[1], encoding="utf-8", newline="") as file:
    print(sum(1 for _ in csv.DictReader(file)))
