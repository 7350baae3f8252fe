#!/usr/bin/env python3
"""Prints one table of the benchmarks' figures, each beside its reference from
the same run, out of the JSON files the benchmark programs wrote to a folder
(tools/bench.sh --table). A figure whose benchmark didn't run reads "-"."""
import json
import os
import pathlib
import platform
import sys

UNIT = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
runs = {}
for path in sorted(pathlib.Path(sys.argv[1]).glob("*.json")):
    try:
        found = json.loads(path.read_text()).get("benchmarks", [])
    except ValueError:
        print(f"{path}: not a benchmark report", file=sys.stderr)
        continue
    for run in found:
        if not run.get("error_occurred") and run.get("run_type", "iteration") == "iteration":
            runs[run["name"]] = run


def seconds(name, kind="real_time"):
    run = runs.get(name)
    return run[kind] * UNIT[run["time_unit"]] if run else None


def per_item(name):
    # CPU seconds an item: the rate is taken over CPU time unless the benchmark uses real time.
    run = runs.get(name)
    return 1 / run["items_per_second"] if run and run.get("items_per_second") else None


table = []


def add(what, figure, reference_name, reference, unit, scale):
    show = lambda v: f"{v * scale:.4g} {unit}" if v else "-"
    ratio = f"{figure / reference:.3g}" if figure and reference else "-"
    table.append((what, show(figure), f"{reference_name}: {show(reference)}", ratio))


add("frame drawing, 80x24 cells through drawCh", seconds("BM_DrawChScreen/real_time"),
    "batched floor", seconds("BM_BatchedScreen/real_time"), "ms", 1e3)
for grid in ("open", "random30", "maze"):
    add(f"path search, {grid} grid", seconds(f"BM_Paths/PathFind/{grid}", "cpu_time"),
        "libtcod A*", seconds(f"BM_Paths/libtcod/{grid}", "cpu_time"), "ms", 1e3)
small = per_item("BM_UpdateSolidMovers/100")
for n in (100, 1000, 10000):
    add(f"world update per moving object, N={n}", per_item(f"BM_UpdateSolidMovers/{n}"),
        "per object at N=100", small, "us", 1e6)
add("game frame, CPU, headless", per_item("BM_GameFrame"), "frame budget", 0.033, "ms", 1e3)
add("network, 4 KiB messages to another process",
    runs.get("BM_FramedMessages/4096/real_time", {}).get("bytes_per_second"), "64-byte messages",
    runs.get("BM_FramedMessages/64/real_time", {}).get("bytes_per_second"), "MB/s", 1e-6)
whole = [seconds(f"BM_{w}WholeObject") for w in ("Serialize", "Deserialize")]
position = [seconds(f"BM_{w}Position") for w in ("Serialize", "Deserialize")]
add("serialization, whole object out and in", sum(whole) if all(whole) else None,
    "position only", sum(position) if all(position) else None, "us", 1e6)

cpu = "unknown CPU"
try:
    for line in open("/proc/cpuinfo"):
        if line.startswith("model name"):
            cpu = line.split(":", 1)[1].strip()
            break
except OSError:
    pass
try:
    system = platform.freedesktop_os_release().get("PRETTY_NAME", platform.system())
except (AttributeError, OSError):
    system = platform.system()
print(f"Machine: {cpu}, {os.cpu_count()} cores, {system}\n")
heads = ("what", "figure", "reference, same run", "ratio")
widths = [max(len(r[i]) for r in table + [heads]) for i in range(4)]
line = lambda r: "| " + " | ".join(c.ljust(w) for c, w in zip(r, widths)) + " |"
print(line(heads))
print("|" + "|".join("-" * (w + 2) for w in widths) + "|")
for r in table:
    print(line(r))
