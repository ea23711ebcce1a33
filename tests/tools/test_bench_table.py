# SPDX-License-Identifier: BSD-3-Clause
"""Runs tools/bench-table on small results. The path of the program is the first argument."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1) if len(sys.argv) > 1 else "tools/bench-table"


def run(name, time, repetition=0, **more):
    return {"name": name, "run_name": name, "run_type": "iteration", "repetition_index": repetition,
            "real_time": time * 10, "cpu_time": time, "time_unit": "ns", **more}


def runs(name, times, **more):
    return [run(name, time, index, **more) for index, time in enumerate(times)]


class BenchTable(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)
        self.goals = {}
        self.output = ""

    def write(self, name, text):
        path = self.directory / name
        path.write_text(text, encoding="utf-8")
        return path

    def start(self, *results):
        paths = [self.write(f"result{index}.json", json.dumps({"context": {}, "benchmarks": result}))
                 for index, result in enumerate(results)]
        return self.start_files(paths, self.write("goals.json", json.dumps(self.goals)))

    def start_files(self, results, goals):
        return subprocess.run(
            [sys.executable, "-B", PROGRAM, "--goals", goals, "--json", self.directory / "table.json", *results],
            capture_output=True, encoding="utf-8", env={"PYTHONIOENCODING": "utf-8"}, check=False)

    def report(self, *results):
        process = self.start(*results)
        self.assertEqual(process.stderr, "")
        self.assertEqual(process.returncode, 0)
        self.output = process.stdout
        table = json.loads((self.directory / "table.json").read_text(encoding="utf-8"))
        return {entry["operation"]: entry for entry in table["operations"]}

    def failure(self, *results):
        process = self.start(*results)
        self.assertNotEqual(process.returncode, 0)
        self.assertEqual(process.stdout, "")
        self.assertFalse((self.directory / "table.json").exists())
        self.assertNotIn("Traceback", process.stderr)
        return process.stderr

    def line(self, start):
        return next(line.split() for line in self.output.splitlines() if line.startswith(start))

    def test_median_of_the_repetitions(self):
        entry = self.report(runs("Sum/ours", [40, 10, 900, 30, 20]))["Sum"]
        self.assertEqual(entry["ours"], 30)
        self.assertEqual(entry["repetitions"], 5)
        self.assertEqual(self.line("Sum"), ["Sum", "30.0", "ns"])

    def test_aggregates_are_no_repetitions(self):
        aggregate = run("Sum/ours_median", 5, run_type="aggregate")
        aggregate["run_name"] = "Sum/ours"
        self.assertEqual(self.report([*runs("Sum/ours", [7] * 3), aggregate])["Sum"]["repetitions"], 3)

    def test_limit_met_at_its_bound(self):
        self.goals = {"Sum": {"limit:add": {"at most": 1.5}}}
        comparison, = self.report(runs("Sum/ours", [30]), runs("Sum/limit:add", [20]))["Sum"]["comparisons"]
        self.assertEqual(comparison, {"kind": "limit", "name": "add", "figure": 20, "ratio": 1.5, "goal": 1.5,
                                      "met": True})
        self.assertEqual(self.line("Sum"), "Sum 30.0 ns add 20.0 ns 1.50× ≤ 1.5× met".split())
        self.assertIn("1 of 1 goals met", self.output)

    def test_limit_missed(self):
        self.goals = {"Sum": {"limit:add": {"at most": 1.4}}}
        self.assertFalse(self.report(runs("Sum/ours", [30]) + runs("Sum/limit:add", [20]))
                         ["Sum"]["comparisons"][0]["met"])
        self.assertIn("NOT MET", self.output)
        self.assertIn("0 of 1 goals met", self.output)

    def test_ratio_counts_as_it_is_shown(self):
        self.goals = {"Sum": {"limit:add": {"at most": 1}}, "Product": {"limit:add": {"at most": 1}}}
        report = self.report(runs("Sum/ours", [1004]) + runs("Sum/limit:add", [1000])
                             + runs("Product/ours", [1006]) + runs("Product/limit:add", [1000]))
        self.assertTrue(report["Sum"]["comparisons"][0]["met"])
        self.assertFalse(report["Product"]["comparisons"][0]["met"])

    def test_order_does_not_depend_on_that_of_the_runs(self):
        results = [run(name, 3) for name in ("Sum/peer:b", "Sum/ours", "Product/ours", "Sum/peer:a", "Sum/limit:c")]
        report = self.report(results)
        self.assertEqual(list(report), ["Product", "Sum"])
        self.assertEqual([entry["name"] for entry in report["Sum"]["comparisons"]], ["c", "a", "b"])

    def test_peer_met_at_its_bound(self):
        self.goals = {"Sum": {"peer:slow way": {"faster by": 20}}}
        comparison, = self.report(runs("Sum/ours", [30]) + runs("Sum/peer:slow way", [600]))["Sum"]["comparisons"]
        self.assertEqual((comparison["ratio"], comparison["met"]), (20, True))
        self.assertEqual(self.line("Sum"), "Sum 30.0 ns slow way 600 ns 20.00× ≥ 20× met".split())

    def test_peer_missed(self):
        self.goals = {"Sum": {"peer:slow": {"faster by": 20}}}
        self.assertFalse(self.report(runs("Sum/ours", [30]) + runs("Sum/peer:slow", [599]))
                         ["Sum"]["comparisons"][0]["met"])

    def test_comparison_without_goal_has_no_result(self):
        comparison, = self.report(runs("Sum/ours", [30]) + runs("Sum/peer:slow", [60]))["Sum"]["comparisons"]
        self.assertNotIn("met", comparison)
        self.assertIn("0 of 0 goals met", self.output)

    def test_allocations(self):
        self.goals = {"Sum": {"allocations": 1}, "Product": {"allocations": 1}}
        report = self.report(runs("Sum/ours", [3], allocations=1.0004) + runs("Product/ours", [3], allocations=1.01))
        self.assertTrue(report["Sum"]["allocations_met"])
        self.assertFalse(report["Product"]["allocations_met"])
        self.assertIn("1 of 2 goals met", self.output)

    def test_elapsed_time_where_the_benchmark_asks_for_it(self):
        report = self.report(runs("Copy/ours/real_time", [3]) + runs("Load/ours/iterations:1/manual_time", [4])
                             + runs("Sum/ours/min_time:0.1", [5]))
        self.assertEqual({name: entry["ours"] for name, entry in report.items()}, {"Copy": 30, "Load": 40, "Sum": 5})

    def test_time_units(self):
        entry = self.report(runs("Copy/ours", [3], time_unit="ms") + runs("Copy/limit:cp", [1500], time_unit="us"))
        self.assertEqual(entry["Copy"]["comparisons"][0]["ratio"], 2)
        self.assertEqual(self.line("Copy")[1:6], ["3.00", "ms", "cp", "1.50", "ms"])

    def test_figure_other_than_time(self):
        entry = self.report(runs("Size/ours", [1], figure=3000, label="bytes")
                            + runs("Size/limit:empty", [1], figure=2000, label="bytes"))["Size"]
        self.assertEqual((entry["ours"], entry["unit"]), (3000, "bytes"))
        self.assertEqual(entry["comparisons"][0]["ratio"], 1.5)
        self.assertEqual(self.line("Size")[:3], ["Size", "3,000", "bytes"])

    def test_too_few_repetitions_are_mentioned(self):
        self.report(runs("Sum/ours", [3] * 9))
        self.assertNotIn("not enough", self.output)
        self.report(runs("Sum/ours", [3] * 9) + runs("Sum/peer:slow", [3] * 8))
        self.assertIn("of 8 repetitions only", self.output)

    def test_bad_results(self):
        ours = runs("Sum/ours", [3])
        for results, complaint in (
                ([runs("Sum", [3])], "'Sum' is not named"),
                ([runs("Sum/ours/7", [3])], "'Sum/ours/7' is not named"),
                ([runs("Sum/peer:slow", [3])], "there is no 'Sum/ours'"),
                ([ours, ours], "'Sum/ours' is measured in"),
                ([runs("Sum/ours", [3], label="of bytes") + runs("Sum/ours", [3], figure=3, label="bytes")],
                 "is given in 'ns' and in 'bytes'"),
                ([runs("Sum/ours", [0])], "not above 0"),
                ([[run("Sum/ours", 3) | {"cpu_time": "3"}]], "has no number 'cpu_time'"),
                ([runs("Sum/ours", [3], time_unit="h")], "unknown time unit 'h'"),
                ([runs("Sum/ours", [3], error_occurred=True, error_message="it broke")], "failed: it broke"),
                ([runs("Sum/ours", [3], figure=3, label="bytes") + runs("Sum/limit:add", [3])], "but ours is in"),
        ):
            with self.subTest(complaint):
                message = self.failure(*results)
                self.assertIn(complaint, message)
                self.assertIn("result", message)

    def test_bad_goals(self):
        for goals, complaint in (
                ([], "no JSON object of operations"),
                ({"Sums": {}}, "no benchmark 'Sums/ours'"),
                ({"Sum": 3}, "are no JSON object"),
                ({"Sum": {"limit:subtract": {"at most": 1}}}, "goal for 'Sum/limit:subtract'"),
                ({"Sum": {"ours": {"at most": 1}}}, "goal for 'Sum/ours'"),
                ({"Sum": {"limit:add": {"faster by": 1}}}, 'form {"at most": <number>}'),
                ({"Sum": {"limit:add": {"at most": "1"}}}, "no number of 0 or more: 1"),
                ({"Sum": {"limit:add": {"at most": -1}}}, "no number of 0 or more: -1"),
                ({"Sum": {"allocations": 1}}, "does not count its allocations"),
        ):
            with self.subTest(complaint):
                self.goals = goals
                message = self.failure(runs("Sum/ours", [3]) + runs("Sum/limit:add", [3]))
                self.assertIn(complaint, message)
                self.assertIn("goals.json", message)

    def test_files_that_cannot_be_read(self):
        goals = self.write("goals.json", "{}")
        result = self.write("result.json", json.dumps({"benchmarks": runs("Sum/ours", [3])}))
        broken = self.write("broken.json", "{")
        other = self.write("other.json", "[]")
        missing = self.directory / "missing.json"
        for paths, goals_path, complaint in (
                ([missing], goals, "missing.json: No such file"),
                ([broken], goals, "broken.json: this is no JSON"),
                ([other], goals, "no result of Google Benchmark"),
                ([result], broken, "broken.json: this is no JSON"),
                ([result], missing, "missing.json: No such file"),
        ):
            with self.subTest(complaint):
                process = self.start_files(paths, goals_path)
                self.assertEqual(process.returncode, 1)
                self.assertIn(complaint, process.stderr)
                self.assertNotIn("Traceback", process.stderr)


if __name__ == "__main__":
    unittest.main()
