# SPDX-License-Identifier: MIT
"""The table of the results."""

import datetime
import os
import pathlib
import re

BEGIN, END = "<!-- results: begin -->", "<!-- results: end -->"

# measurement, heading, the subject to compare with, budget as a text
ROWS = (
    ("summon", "hot key to painted menu, 998 clips, 10,000 snippets (ms)", "bare Qt popup", "p95 at most 1.5 times"),
    ("paste", "release of the pick key to received text (ms)", "bare XCB", "p95 at most 1.5 times"),
    ("search", "key in the search field to new list, 32,767 snippets of 1 KB (ms)", None, "p95 at most 16"),
    ("record main", "recording at the limit of 1,000, main thread (ms of processor)", None, "at most 5"),
    ("record all", "recording at the limit of 1,000, all threads (ms of processor)", None, "at most 20"),
    ("start", "start to live hot keys, 10,000 snippets (ms)", "bare Qt program", "at most 1.5 times"),
    ("wakeups", "wake-ups a second when idle", None, "at most 1.5"),
    ("memory", "memory when idle, 18 clips, 200 snippets (MB PSS)", "bare Qt program", "at most 1.4 times"),
)


def percentile(samples, share):
    ordered = sorted(samples)
    return ordered[min(len(ordered) - 1, round(share * (len(ordered) - 1)))]


def cell(samples):
    if not samples:
        return ""
    if len(samples) == 1:
        return f"{samples[0]:.1f}"
    return f"{percentile(samples, 0.5):.1f} / {percentile(samples, 0.95):.1f}"


def ratio(ours, theirs):
    if not theirs or percentile(theirs, 0.95) == 0:
        return ""
    return f"{percentile(ours, 0.95) / percentile(theirs, 0.95):.2f}"


def table(results):
    """p50 / p95 of every measurement, as a Markdown table."""
    lines = [
        f"{datetime.date.today()}, {os.cpu_count()} processors, p50 / p95:",
        "",
        "| what | bare XCB | bare Qt | Quillery | CopyQ | to the floor (p95) | to CopyQ (p95) | budget |",
        "| --- | ---: | ---: | ---: | ---: | ---: | ---: | --- |",
    ]
    for key, heading, floor, budget in ROWS:
        row = results[key]
        qt = row.get("bare Qt popup") or row.get("bare Qt program") or []
        ours, copyq = row["Quillery"], row.get("CopyQ", [])
        lines.append("| " + " | ".join([
            heading, cell(row.get("bare XCB", [])), cell(qt), cell(ours), cell(copyq),
            ratio(ours, row.get(floor, [])), ratio(ours, copyq), budget]) + " |")
    return "\n".join(lines)


def write_into(path: pathlib.Path, text):
    """Replaces what stands between the marks."""
    document = path.read_text()
    pattern = re.compile(f"{re.escape(BEGIN)}.*{re.escape(END)}", re.DOTALL)
    path.write_text(pattern.sub(lambda _match: f"{BEGIN}\n{text}\n{END}", document))
