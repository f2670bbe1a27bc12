#!/usr/bin/env python3
"""gcov for gcovr: branches that only an exception on its way reaches are marked "throw", like the ways into them.

g++ takes lists of arguments apart again where an exception passes through, with loops and tests of its own. gcov knows
such blocks and tells them with --all-blocks; gcovr knows nothing of blocks, and would count their branches.
"""
import re
import subprocess
import sys

run = subprocess.run(["gcov", "--all-blocks", *sys.argv[1:]], stdout=subprocess.PIPE, text=True)
print(run.stdout, end="")
for name in re.findall(r"^Creating '(.*)'$", run.stdout, re.MULTILINE):
    with open(name, encoding="utf-8", errors="replace") as file:
        lines = file.readlines()
    with open(name, "w", encoding="utf-8") as file:
        exceptional = False
        for line in lines:
            block = re.match(r" *(\S+): *\d+-block +\d+$", line)
            if block:
                exceptional = block[1].startswith("$")
                continue
            if exceptional and line.startswith("branch "):
                line = re.sub(r"(branch +\d+) .*", r"\1 taken 0% (throw)", line)
            file.write(line)
sys.exit(run.returncode)
