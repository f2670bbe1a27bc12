"""Runs what bench/compare.sh has built and installed, and writes the measured parts of docs/performance.md.

Time is processor time (user and system) of the whole process, the median of several runs; slow ones are repeated less.
They are given priority over other work where that is allowed. Memory is the most that was resident.
"""

import argparse
import json
import os
import pathlib
import re
import signal
import statistics
import subprocess
import time

SIZES = (1_000, 10_000, 100_000)
GROWTH = (10_000, 100_000, 1_000_000)
PEERS = "bench/peers"
DOCUMENT = pathlib.Path("docs/performance.md")
IMAGES = pathlib.Path("docs/images")
ENOUGH = 3  # seconds in all, after which a run isn't repeated
PATIENCE = 300  # seconds of one run


class Failed(Exception):
    pass


def measure(command, runs):
    """Seconds of processor time, and MiB. Raises Failed with what the program said."""
    seconds, peak = [], 0
    note = f"{options.data}/time"
    for _ in range(runs):
        for old in pathlib.Path(options.data).glob("out*"):
            old.unlink()
        wrapped = ["nice", "-n", "-10", "time", "-f", "%M", "-o", note, *command]
        with open(f"{options.data}/said", "w+") as said:
            child = subprocess.Popen(wrapped, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=said,
                                     start_new_session=True)
            began = time.monotonic()
            while True:
                pid, status, usage = os.wait4(child.pid, os.WNOHANG)
                if pid:
                    break
                if time.monotonic() - began > PATIENCE:
                    os.killpg(child.pid, signal.SIGTERM)
                    os.wait4(child.pid, 0)
                    raise Failed(f"not done after {PATIENCE} s")
                time.sleep(0.002)
            child.returncode = os.waitstatus_to_exitcode(status)
            said.seek(0)
            words = [line for line in said.read().splitlines() if not line.startswith(("nice:", "Warning: "))]
        if child.returncode != 0:
            raise Failed(words[-1].strip() if words else f"exit code {child.returncode}")
        seconds.append(usage.ru_utime + usage.ru_stime)
        peak = max(peak, int(pathlib.Path(note).read_text().split()[-1]) / 1024)
        if sum(seconds) > ENOUGH:
            break
    return statistics.median(seconds), peak


def run(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def make_data():
    for size in SIZES:
        qzs = f"{options.data}/{size}.qzs"
        run(DATA, "qzs", str(size), qzs)
        for extension in ("vcf", "csv", "xml", "json"):
            run(ORVALE, "convert", "--no-verify", qzs, f"{options.data}/{size}.{extension}")


# ---- the comparison: a heading, its file, and the programs, Orvale's first

def comparisons():
    php, python = ["php", f"{PEERS}/sabre_count.php"], ["/usr/bin/python3"]
    out = f"{options.data}/out"
    abook = ["abook", "--convert", "--informat", "vcard", "--infile", "FILE", "--outformat"]
    return [
        ("vCard, reading", "vcf", [
            ("orvale info", [ORVALE, "info", "FILE"]),
            ("bare loop", [PEER, "bare-vcard", "FILE"]),
            ("abook (reads five kinds of values, decodes none)", [*abook, "abook", "--outfile", out]),
            ("PHP, sabre/vobject", [*php, "FILE"]),
            ("Python, vobject", [*python, f"{PEERS}/vobject_count.py", "FILE"]),
            ("gammu convertbackup", ["sh", "-c", f'gammu convertbackup "$0" {out}.vcf >&2', "FILE"]),
        ]),
        ("vCard into CSV", "vcf", [
            ("orvale convert", [ORVALE, "convert", "--force", "FILE", f"{out}.csv"]),
            ("orvale convert --no-verify", [ORVALE, "convert", "--force", "--no-verify", "FILE", f"{out}.csv"]),
            ("abook (five columns)", [*abook, "csv", "--outfile", out]),
            ("Python, vobject and csv", [*python, f"{PEERS}/vobject_to_csv.py", "FILE", out]),
        ]),
        ("XML, reading a phonebook suite", "xml", [
            ("orvale info", [ORVALE, "info", "FILE"]),
            ("bare libxml2, tree", [PEER, "libxml2-tree", "FILE"]),
            ("bare libxml2, SAX", [PEER, "libxml2-sax", "FILE"]),
            ("pugixml", [PEER, "pugixml", "FILE"]),
        ]),
        ("CSV, reading", "csv", [
            ("orvale info", [ORVALE, "info", "FILE"]),
            ("libcsv", [PEER, "libcsv", "FILE"]),
            ("Python, csv", [*python, f"{PEERS}/csv_count.py", "FILE"]),
        ]),
        ("JSON, reading", "json", [
            ("orvale info", [ORVALE, "info", "FILE"]),
            ("jq, counting the records", ["jq", ".records | length", "FILE"]),
        ]),
        ("Native file, reading", "qzs", [
            ("orvale info", [ORVALE, "info", "FILE"]),
            ("bare loop", [PEER, "bare-native", "FILE"]),
            ("cat", ["cat", "FILE"]),
        ]),
    ]


def compare():
    lines, curves = [], []
    for heading, extension, programs in comparisons():
        lines += ["", f"**{heading}**", "",
                  "| | 1 000 | 10 000 | 100 000 | records a second | time, Orvale's = 1 | memory |",
                  "| --- | ---: | ---: | ---: | ---: | ---: | ---: |"]
        own, panel = None, []
        for name, command in programs:
            times, peak, reason = [], 0, ""
            for size in SIZES:
                filled = [part.replace("FILE", f"{options.data}/{size}.{extension}") for part in command]
                try:
                    seconds, peak = measure(filled, runs=1 if options.quick else 7 if size < 100_000 else 5)
                    times.append((size, seconds))
                except Failed as failure:
                    reason = str(failure)
                    break
            print(heading, name, times, reason, flush=True)
            cells = [f"{seconds:.3f} s" for _, seconds in times]
            if reason:
                cells += [f"fails: “{reason}”"] + ["–"] * (len(SIZES) - len(times) - 1) + ["–"] * 3
            else:
                last = times[-1][1]
                own = own or last
                cells += [spaced(round(size_of(times) / last, -2)), f"{last / own:.2f}", f"{peak:.0f} MiB"]
            lines.append(f"| {name} | " + " | ".join(cells) + " |")
            panel.append((re.sub(r" \(.*\)", "", name), [(size, size / seconds) for size, seconds in times]))
        curves.append((heading, panel))
    return lines[1:], curves


def size_of(times):
    return times[-1][0]


def spaced(number):
    return f"{int(number):,}".replace(",", " ")


# ---- growth: what each streaming road takes up to a million records

def roads():
    """From and to, by the extension of the native file of a kind."""
    return [("qzs", "vcf"), ("vcf", "qzs"), ("qzs", "csv"), ("csv", "qzs"), ("qzs", "json"), ("json", "qzs"),
            ("cal", "json"), ("json", "cal"), ("sms", "json"), ("json", "sms"), ("eml", "json"), ("json", "eml")]


def grow():
    names = {"vcf": "vcard"}
    lines = ["| | 10 000 | 100 000 | 1 000 000 | memory |", "| --- | ---: | ---: | ---: | ---: |"]
    earlier = ["| | before | now | ratio |", "| --- | ---: | ---: | ---: |"]
    curves = []
    sizes = GROWTH[:2] if options.quick else GROWTH
    for source, target in roads():
        kind = target if source in ("json", "vcf", "csv") else source
        name = f"{names.get(source, source)} → {names.get(target, target)}"
        cells, points, peaks = [], [], []
        for size in sizes:
            if size > 100_000 and kind == "eml":  # ten gigabytes in all
                cells.append("–")
                continue
            native, file, out = (f"{options.data}/grow.{end}" for end in (kind, source, f"out.{target}"))
            run(DATA, kind, str(size), native)
            if source != kind:
                run(ORVALE, "convert", "--force", "--no-verify", native, file)
                os.remove(native)
            command = ["convert", "--force", file, out]
            runs = 1 if options.quick or size > 100_000 else 3
            seconds, peak = measure([ORVALE, *command], runs)
            if options.before and size == 100_000:
                was, _ = measure([options.before, *command], runs)
                earlier.append(f"| {name} | {was:.2f} s | {seconds:.2f} s | {seconds / was:.2f} |")
            cells.append(f"{seconds:.2f} s")
            points.append((size, size / seconds))
            peaks.append(peak)
            for path in (file, out):
                os.remove(path)
        print(name, cells, [f"{peak:.1f}" for peak in peaks], flush=True)
        span = sorted({f"{peak:.1f}" for peak in peaks}, key=float)
        lines.append(f"| {name} | " + " | ".join(cells) + f" | {' to '.join((span[0], span[-1])[:len(span)])} MiB |")
        curves.append((name, points))
    return lines, earlier, curves


# ---- the library by itself, by the benchmarks, and the start of the command

def bench(names, size):
    """The runs of the benchmarks of these names."""
    said = subprocess.run(["nice", "-n", "-10", BENCH, f"--benchmark_filter=^({'|'.join(names)})/{size}$",
                           "--benchmark_format=json", "--benchmark_min_time=0.1",
                           "--benchmark_enable_random_interleaving=true",
                           f"--benchmark_repetitions={1 if options.quick else 7}"],
                          check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    runs = {}
    for result in json.loads(said)["benchmarks"]:
        if result["run_type"] == "iteration":
            runs.setdefault(result["run_name"].rsplit("/", 1)[0], []).append(result)
    return runs


def milliseconds(runs):
    return statistics.median(result["cpu_time"] for result in runs) / 1000


def library():
    pairs = [("vCard, reading", "Read<CVCardFile, MakeContacts>", "Bare<CVCardFile, ReadKeyedLines>", "bare loop"),
             ("native contacts, reading", "Read<CQZSFile, MakeContacts>", "Bare<CQZSFile, ReadPrefixedTexts>",
              "bare loop")]
    pairs += [(f"{name} suite, opening", f"Open<{file}>", f"Bare<{file}>", "bare tree") for name, file in (
        ("phonebook", "CPBXMLFile, MakeContacts"), ("calendar", "CCDXMLFile, MakeItems"),
        ("message", "CSMSXMLFile, MakeMessages"), ("mail", "CMLXMLFile, MakeEmails"))]
    runs = bench([name for pair in pairs for name in pair[1:3]], 10_000)
    lines = ["| 10 000 records | Orvale | beside | time | memory |", "| --- | ---: | ---: | ---: | ---: |"]
    for name, own, other, what in pairs:
        mine, bare = (milliseconds(runs[each]) for each in (own, other))
        peaks = [runs[each][0].get("peak_MB") for each in (own, other)]
        memory = f"{peaks[0] / peaks[1]:.2f}" if peaks[0] else "–"
        lines.append(f"| {name} | {mine:.1f} ms | {what}, {bare:.1f} ms | {mine / bare:.2f} | {memory} |")
        print(lines[-1], flush=True)
    return lines


def whole():
    """A conversion beside the sum of what it has to do."""
    parts = ["Read<CVCardFile, MakeContacts>", "Write<CQZSFile, MakeContacts>"]
    runs = bench(parts, 100_000)
    reading, writing = (milliseconds(runs[part]) / 1000 for part in parts)
    command = [ORVALE, "convert", "--force", f"{options.data}/100000.vcf", f"{options.data}/out.qzs"]
    checked, _ = measure(command, 1 if options.quick else 7)
    plain, _ = measure([*command, "--no-verify"], 1 if options.quick else 7)
    least = reading + writing
    lines = ["| 100 000 contacts, vcard → qzs | time | ratio |", "| --- | ---: | ---: |",
             f"| reading {reading:.2f} s and writing {writing:.2f} s, by themselves | {least:.2f} s | 1.00 |",
             f"| `orvale convert --no-verify` | {plain:.2f} s | {plain / least:.2f} |",
             f"| `orvale convert` | {checked:.2f} s | {checked / least:.2f} |"]
    print("\n".join(lines), flush=True)
    return lines


def start():
    lines = ["| | processor time | memory |", "| --- | ---: | ---: |"]
    for command in (["--version"], ["info", "samples/contacts.qzs"], ["info", "samples/phonebook.xml"]):
        seconds, peak = measure([ORVALE, *command], runs=5 if options.quick else 31)
        idle, _ = measure(["true"], runs=5 if options.quick else 31)  # what measuring costs by itself
        lines.append(f"| `orvale {' '.join(command)}` | {1000 * (seconds - idle):.1f} ms | {peak:.1f} MiB |")
        print(lines[-1], flush=True)
    return lines


def machine():
    cpu = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text()).group(1)
    total = int(re.search(r"MemTotal:\s*(\d+)", pathlib.Path("/proc/meminfo").read_text()).group(1))
    system = re.search(r'PRETTY_NAME="(.*)"', pathlib.Path("/etc/os-release").read_text()).group(1)
    packages = ["abook", "gammu", "jq", "libcsv3", "libpugixml1v5", "libxml2", "php-sabre-vobject", "php8.2-cli",
                "python3-vobject", "python3"]
    found = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Version}, ", *packages], check=False,
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout.rstrip(", ")
    memory = round(total / 1024 / 1024)
    return [f"A machine with {os.cpu_count()} cores ({cpu.strip()}), {memory} GiB of memory, {system}; {found}."]


# ---- plots and the document

def plot(panels, file, smallest):
    """Records a second against size; a panel is a heading and its curves, of which the first is Orvale's if there are
    several panels."""
    rows = (len(panels) + 1) // 2
    script = [f"set terminal svg size 1000,{max(360 * rows, 520)} font 'sans,12' background 'white'",
              f"set output '{file}'", f"set multiplot layout {rows},{min(2, len(panels))}",
              "set logscale xy", "set xlabel 'records' offset 0,0.6", "set ylabel 'records a second'", "set grid", "set key below",
              "set format x '%.0s%c'", "set format y '%.0s%c'", f"set xrange [{smallest * 0.8}:*]"]
    for heading, curves in panels:
        drawn = [(name, points) for name, points in curves if points]
        for index, (_, points) in enumerate(drawn):
            script += [f"$curve{index} << END", *(f"{x} {y:.0f}" for x, y in points), "END"]
        script.append(f"set title \"{heading}\"")
        width = [3 if index == 0 and len(panels) > 1 else 1.5 for index in range(len(drawn))]
        script.append("plot " + ", ".join(
            f"$curve{index} with linespoints pt {index + 1} ps 0.7 lw {width[index]} title \"{name}\""
            for index, (name, _) in enumerate(drawn)))
    script.append("unset multiplot")
    subprocess.run(["gnuplot"], input="\n".join(script) + "\n", text=True, check=True)


def put(text, name, lines):
    begin, end = f"<!-- measured: {name} -->", "<!-- end -->"
    at = text.index(begin) + len(begin)
    return text[:at] + "\n\n" + "\n".join(lines) + "\n\n" + text[text.index(end, at):]


parser = argparse.ArgumentParser()
parser.add_argument("--build", required=True)
parser.add_argument("--data", required=True)
parser.add_argument("--before")
parser.add_argument("--quick", action="store_true")
options = parser.parse_args()
ORVALE = f"{options.build}/src/orvale"
BENCH = f"{options.build}/bench/orvale_bench"
DATA = f"{options.build}/bench/orvale_bench_data"
PEER = f"{options.build}/bench/orvale_bench_peers"

make_data()
parts = {"machine": machine(), "start": start(), "library": library(), "whole": whole()}
parts["comparison"], panels = compare()
parts["growth"], earlier, growth = grow()
if options.before:
    parts["before"] = earlier
if not options.quick:
    IMAGES.mkdir(exist_ok=True)
    plot(panels, IMAGES / "comparison.svg", SIZES[0])
    plot([("orvale convert, with the reading back", growth)], IMAGES / "growth.svg", GROWTH[0])
    document = DOCUMENT.read_text()
    for name, lines in parts.items():
        document = put(document, name, lines)
    DOCUMENT.write_text(document)
