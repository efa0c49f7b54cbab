"""Runs the benchmarks and writes the report.

usage: report.py <brisel_benchmarks> <output folder> [--filter=<regular expression of rows>]

Every entry of goals.toml becomes a row of report.json and report.md:
    name    the row                               ours    our figure
    peers   each peer's figure                    limit   the greatest figure that passes, or null
    ratio   ours / peer, by peer                  goal    the greatest ratio that passes, by peer
    pass    whether ours keeps limit and goals    unit    "ns", "instructions" or "allocations"
Figures are medians of seven repetitions, interleaved at random: processor time of one thread, or real time where the
job asks for it (threads, processes). Instructions are counted by callgrind, less those of an empty loop; allocations by
the job itself.
"""

import json
import os
import re
import subprocess
import sys
import tempfile
import tomllib
from collections import defaultdict
from pathlib import Path
from statistics import median

REPETITIONS = 7
TURNS = (2_000, 6_000)
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
# What Google Benchmark appends to a name.
SUFFIX = re.compile(r"(/(real_time|manual_time|process_time|threads:\d+|iterations:\d+))+$")


def measure_times(program, jobs):
    """{job: {variant: [nanoseconds of each repetition]}}, the allocations likewise, and what the machine was."""
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        subprocess.run([program, f"--benchmark_filter=^({'|'.join(map(re.escape, jobs))})/",
                        "--benchmark_enable_random_interleaving=true", f"--benchmark_repetitions={REPETITIONS}",
                        f"--benchmark_out={out.name}", "--benchmark_out_format=json"], check=True)
        answer = json.load(out)
    times, allocations = (defaultdict(lambda: defaultdict(list)) for _ in range(2))
    for run in answer["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        if run.get("error_occurred"):
            sys.exit(f"{run['name']}: {run['error_message']}")
        job, variant = SUFFIX.sub("", run["name"]).rsplit("/", 1)
        clock = "real_time" if re.search(r"/(real|manual)_time|/threads:", run["name"]) else "cpu_time"
        times[job][variant].append(run[clock] * NANOSECONDS[run["time_unit"]])
        if "allocations" in run:
            allocations[job][variant].append(run["allocations"])
    return times, allocations, answer["context"]


def variants_of(program, job):
    listing = subprocess.run([program, "--benchmark_list_tests"], check=True, text=True, capture_output=True).stdout
    names = [SUFFIX.sub("", line) for line in listing.splitlines()]
    return [name.rsplit("/", 1)[1] for name in names if name.rsplit("/", 1)[0] == job]


def count_instructions(program, name):
    """Instructions of one turn: the difference of two runs, so that set-up does not count."""
    totals = []
    for turns in TURNS:
        with tempfile.NamedTemporaryFile() as out:
            result = subprocess.run(
                ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out.name}", program,
                 f"--benchmark_filter=^{re.escape(name)}(/|$)"],
                env={**os.environ, "BRISEL_ITERATIONS": str(turns)}, text=True, capture_output=True)
        found = re.search(r"Collected : (\d+)", result.stderr)
        if result.returncode or not found:
            sys.exit(f"{name}: callgrind failed:\n{result.stderr}")
        totals.append(int(found.group(1)))
    return (totals[1] - totals[0]) / (TURNS[1] - TURNS[0])


def judged(name, demand, figures, unit):
    """One row, from the figure of each variant."""
    if "ours" not in figures:
        sys.exit(f"{name}: nothing measured under the name {name}/ours")
    ours, peers = figures["ours"], {peer: figure for peer, figure in figures.items() if peer != "ours"}
    goal, limit = demand.get("goal", {}), demand.get("limit")
    if missing := (goal.keys() | demand.get("stretch", {}).keys()) - peers.keys():
        sys.exit(f"{name}: no such peer: {', '.join(missing)}")
    ratio = {peer: ours / figure for peer, figure in peers.items() if figure > 0}
    kept = all(ratio.get(peer, float("inf")) <= most for peer, most in goal.items())
    return {"name": name, "about": demand.get("about", ""), "unit": unit, "ours": ours, "peers": peers, "limit": limit,
            "ratio": ratio, "goal": goal, "stretch": demand.get("stretch", {}),
            "pass": kept and (limit is None or ours <= limit)}


def measured_rows(program, goals):
    measures = {name: demand.get("measure", "time") for name, demand in goals.items()}
    timed = {demand.get("job", name) for name, demand in goals.items() if measures[name] != "instructions"}
    times, allocations, machine = measure_times(program, sorted(timed)) if timed else ({}, {}, {})
    empty_loop = None
    rows = []
    for name, demand in goals.items():
        job, measure = demand.get("job", name), measures[name]
        if measure == "instructions":
            if empty_loop is None:
                empty_loop = count_instructions(program, "loop/nothing")
            figures = {variant: count_instructions(program, f"{job}/{variant}") - empty_loop
                       for variant in variants_of(program, job)}
        else:
            found = {"time": times, "allocations": allocations}[measure]
            figures = {variant: median(runs) for variant, runs in found.get(job, {}).items()}
        rows.append(judged(name, demand, figures, "ns" if measure == "time" else measure))
    return rows, machine


def figure_text(figure, unit):
    if unit == "instructions":
        return f"{figure:.1f} instr"
    if unit == "allocations":
        return f"{figure:g} allocations"
    for name, size in (("ms", 1e6), ("us", 1e3)):
        if figure >= size:
            return f"{figure / size:.3g} {name}"
    return f"{figure:.3g} ns"


def markdown(rows, machine):
    lines = ["# Benchmarks", "",
             f"{machine.get('num_cpus', '?')} processors at {machine.get('mhz_per_cpu', '?')} MHz, "
             f"{machine.get('date', '')}. Medians of {REPETITIONS} repetitions, interleaved at random.", "",
             "| job | ours | peer | ratio | goal | stretch | |", "|---|---|---|---|---|---|---|"]
    for row in rows:
        title, ours = f"{row['name']}: {row['about']}", figure_text(row["ours"], row["unit"])
        verdict = "kept" if row["pass"] else "**missed**"
        if row["limit"] is not None:
            ours += f" (limit {row['limit']})"
        for peer, figure in row["peers"].items() or {"": None}.items():
            cells = [figure_text(figure, row["unit"]) + f" {peer}" if peer else "",
                     f"{row['ratio'][peer]:.2f}" if peer in row["ratio"] else "",
                     f"{row['goal'][peer]:.2f}" if peer in row["goal"] else "",
                     f"{row['stretch'][peer]:.2f}" if peer in row["stretch"] else ""]
            lines.append(f"| {title} | {ours} | {' | '.join(cells)} | {verdict} |")
            title = ours = verdict = ""
    missed = [row["name"] for row in rows if not row["pass"]]
    return "\n".join([*lines, "", f"Missed: {', '.join(missed)}." if missed else "All goals are kept.", ""])


if __name__ == "__main__":
    program, folder = str(Path(sys.argv[1]).resolve()), Path(sys.argv[2])
    wanted = next((option.split("=", 1)[1] for option in sys.argv[3:] if option.startswith("--filter=")), "")
    goals = tomllib.loads((Path(__file__).parent / "goals.toml").read_text())
    rows, machine = measured_rows(program, {name: goal for name, goal in goals.items() if re.search(wanted, name)})
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "report.json").write_text(json.dumps({"machine": machine, "rows": rows}, indent=2) + "\n")
    (folder / "report.md").write_text(markdown(rows, machine))
    print(markdown(rows, machine))
