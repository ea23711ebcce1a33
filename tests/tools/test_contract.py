# SPDX-License-Identifier: BSD-3-Clause
"""Gives tools/contract tables with an error in them and checks that it names the error.

usage: test_contract.py TOOL EMULATOR CONTRACT PROBE LIBRARY"""

import importlib.machinery
import importlib.util
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

TOOL, EMULATOR, CONTRACT, PROBE, LIBRARY = sys.argv[1:6]
del sys.argv[1:6]

loader = importlib.machinery.SourceFileLoader("contract", TOOL)
tool = importlib.util.module_from_spec(importlib.util.spec_from_loader("contract", loader))
loader.exec_module(tool)

LINES = pathlib.Path(CONTRACT).read_text(encoding="utf-8").splitlines()
FOUND, COMPILED, ARCHITECTURE = tool.extract(PROBE, LIBRARY, EMULATOR)


class FakeLibrary:
    """The library with other tables of one class."""

    def __init__(self, name, change):
        self.name = name
        self.change = change

    def classes(self):
        return COMPILED.classes()

    def tables(self, name):
        tables = [(offset, list(entries)) for offset, entries in COMPILED.tables(name)]
        return self.change(tables) if name == self.name else tables


def block(name):
    """Returns where the block of a type begins and ends."""
    begin = next(i for i, line in enumerate(LINES) if re.match(rf"[a-z ]+ {name}( : .*)?$", line))
    return begin, next((i for i in range(begin + 1, len(LINES)) if not LINES[i].startswith(" ")), len(LINES))


def altered(name, old, new):
    """Returns the contract with a text in the block of one type replaced; it must be there once."""
    begin, end = block(name)
    text = "\n".join(LINES[begin:end])
    assert text.count(old) == 1, f"'{old}' is {text.count(old)} times in the block of {name}"
    return [*LINES[:begin], *text.replace(old, new).splitlines(), *LINES[end:]]


def difference(lines, library=COMPILED):
    return tool.first_difference(tool.parse_contract(lines, "contract.txt"), FOUND, library, ARCHITECTURE)


def here(with64, with32):
    return with64 if ARCHITECTURE == 64 else with32


class Differences(unittest.TestCase):
    def expect(self, name, old, new, message):
        self.assertEqual(difference(altered(name, old, new)), message)

    def test_none(self):
        self.assertIsNone(difference(LINES))

    def test_members(self):
        bits = f"({ARCHITECTURE}-bit)"
        first = "    member     44    4   24    4  int rangeNumber\n"
        second = "    member     48    4   28    4  int eichDigit\n"
        self.expect("MesswertData", first + second, second + first,
                    "MesswertData: member 6 is `int rangeNumber`, the contract says `int eichDigit`")
        self.expect("MesswertData", second, "    member     52    4   32    4  int eichDigit\n",
                    f"MesswertData: member 7 `int eichDigit` is at offset {here(48, 28)}, "
                    f"the contract says {here(52, 32)} {bits}")
        self.expect("MesswertData", "  88    4   64    4  int reg", "  88    8   64    8  int reg",
                    f"MesswertData: member 19 `int registerNumber` is of size 4, the contract says 8 {bits}")
        self.expect("MesswertData", "int registerNumber", "unsigned int registerNumber",
                    "MesswertData: member 19 is `int registerNumber`, the contract says `unsigned int registerNumber`")
        self.expect("MesswertData", second, "", "MesswertData: member 7 is `int eichDigit`, the contract says "
                    "`int decimals`")
        self.expect("CommandParameter", "  QString parameter", "  QString parameter\n"
                    "    member     16    8    8    4  QString more",
                    "CommandParameter: member 3 is missing, the contract says `QString more`")
        self.expect("CommandParameter", "\n    member      8    8    4    4  QString parameter", "",
                    "CommandParameter: member 2 is `QString parameter`, the contract does not list it")

    def test_other_architecture(self):
        self.assertIsNone(difference(altered("MesswertData", *here(
            ("  88    4   64    4  int", "  88    4   99    9  int"),
            ("  88    4   64    4  int", "  99    9   64    4  int")))))

    def test_objects_and_bases(self):
        bits = f"({ARCHITECTURE}-bit)"
        self.expect("Error", "object     32    4   32    4", "object     36    4   36    4",
                    f"Error: the size is 32, the contract says 36 {bits}")
        self.expect("Error", "object     32    4   32    4", "object     32    8   32    8",
                    f"Error: the alignment is 4, the contract says 8 {bits}")
        self.expect("Error", "  trivially copyable", "",
                    "Error: this is trivially copyable, the contract says otherwise")
        self.expect("ActionBase", "QObject, IAction", "IAction, QObject",
                    "ActionBase: the bases: `QObject, IAction`, the contract says `IAction, QObject`")
        self.expect("ActionBase", "base       16         8", "base       24        12",
                    f"ActionBase: the base IAction is at offset {here(16, 8)}, the contract says {here(24, 12)} {bits}")
        self.expect("IActionToggle", "interface", "class",
                    "IActionToggle: this is of the kind `interface`, the contract says `class`")

    def test_virtual_operations(self):
        toggle = "    virtual int toggleIndex() const\n"
        last = "    virtual int maxToggleIndex() const"
        self.expect("IActionToggle", toggle + last, last + "\n" + toggle,
                    "IActionToggle: virtual operation 2 is `int toggleIndex() const`, the contract says "
                    "`int maxToggleIndex() const`")
        self.expect("IActionToggle", toggle, "", "IActionToggle: virtual operation 2 is `int toggleIndex() const`, "
                    "the contract says `int maxToggleIndex() const`")
        self.expect("IActionToggle", "\n" + last, "", "IActionToggle: virtual operation 3 is "
                    "`int maxToggleIndex() const`, the contract does not list it")
        self.expect("IActionToggle", last, last + "\n    virtual void reset()", "IActionToggle: virtual operation 4 is "
                    "missing, the contract says `void reset()`")
        self.expect("IActionToggle", toggle, "    virtual int toggleIndex()\n", "IActionToggle: virtual operation 2 is "
                    "`int toggleIndex() const`, the contract says `int toggleIndex()`")
        self.expect("TriggerBase", "getName() const = 0", "getName() const", "TriggerBase: virtual operation 1 is "
                    "`QString getName() const = 0`, the contract says `QString getName() const`")

    def test_meta_object(self):
        self.expect("WarnInfo", "bool levellingRequiredVisible read", "bool levelingRequiredVisible read",
                    "WarnInfo: property 3 is `2 bool levellingRequiredVisible read notify "
                    "levellingRequiredVisibleChanged`, the contract says `2 bool levelingRequiredVisible read notify "
                    "levellingRequiredVisibleChanged`")
        self.expect("MesswertInfo", "allVisible read write", "allVisible read",
                    "MesswertInfo: property 25 is `24 bool allVisible read write notify allVisibleChanged`, "
                    "the contract says `24 bool allVisible read notify allVisibleChanged`")
        self.expect("ActionBase", "signal 1 workDone(QVariant data)", "signal 1 workDone(QVariant result)",
                    "ActionBase: signal 2 is `1 workDone(QVariant data)`, the contract says "
                    "`1 workDone(QVariant result)`")
        self.expect("PluginBase", "\n    slot 6 onDoPrint()", "",
                    "PluginBase: slot 6 is `6 onDoPrint()`, the contract does not list it")
        self.expect("PluginBase", "slot 6 onDoPrint()", "slot 6 onDoPrint()\n    invokable 7 warnInfo()",
                    "PluginBase: invokable operation 1 is missing, the contract says `7 warnInfo()`")
        self.expect("PluginBase", "slot 6 onDoPrint()", "slot 6 onDoPrint() protected",
                    "PluginBase: slot 6 is `6 onDoPrint()`, the contract says `6 onDoPrint() protected`")
        self.expect("QObject", "_q_reregisterTimers(void*) private", "_q_reregisterTimers(void*)",
                    "QObject: slot 2 is `4 _q_reregisterTimers(void*) private`, the contract says "
                    "`4 _q_reregisterTimers(void*)`")
        self.expect("CategorySort", "metaenum 0 CategoryOrder", "metaenum 0 Order", "CategorySort: enumeration of the "
                    "meta-object 1 is `0 CategoryOrder`, the contract says `0 Order`")
        self.expect("WarnInfo", "Brimvale::WarnInfo", "WarnInfo",
                    "WarnInfo: the metaobject is Brimvale::WarnInfo, the contract says WarnInfo")

    def test_identifiers(self):
        self.expect("IPlugin", "Brimvale.Plugin.IPlugin", "Brimvale.Plugin.IPlugin/1.0",
                    "IPlugin: the identifier is Brimvale.Plugin.IPlugin, the contract says Brimvale.Plugin.IPlugin/1.0")
        self.expect("IPlugin", '    identifier "Brimvale.Plugin.IPlugin"\n', "", "IPlugin: the identifier is "
                    "Brimvale.Plugin.IPlugin, the contract says that there is none")
        self.expect("IActionToggle", "    virtual ~", '    identifier "IActionToggle"\n    virtual ~',
                    "IActionToggle: the identifier is missing, the contract says IActionToggle")

    def test_enumerations(self):
        self.expect("ILoadChange::LoadChangeMode", "Percent = 1", "Percent = 4", "ILoadChange::LoadChangeMode: "
                    "enumerator 2 is `Percent = 1`, the contract says `Percent = 4`")
        self.expect("UnitDef::UnitEnableFlag", "unsigned short", "unsigned int", "UnitDef::UnitEnableFlag: "
                    "the integer: `unsigned short`, the contract says `unsigned int`")

    def test_types(self):
        begin, end = block("WorkflowStep")
        self.assertEqual(difference([*LINES[:begin], *LINES[end:]]),
                         "WorkflowStep: a public header declares it, but the contract does not list it")
        self.assertEqual(difference([*LINES, "record Nothing", "    object 1 1 1 1"]),
                         "Nothing: the contract lists it, but no public header declares it")

    def test_every_line_counts(self):
        for number, line in enumerate(LINES):
            if line.startswith("    ") and not line.lstrip().startswith("#"):
                with self.subTest(line=number + 1, text=line):
                    try:
                        self.assertIsNotNone(difference(LINES[:number] + LINES[number + 1:]))
                    except tool.BadInput:
                        pass

    def test_every_number_counts(self):
        for number, line in enumerate(LINES):
            words = re.match(r"    (object|base|member)((?: +\d+)+)", line)
            if words:
                count = len(words[2].split()) // 2
                for column in range(count) if ARCHITECTURE == 64 else range(count, 2 * count):
                    parts = line.split()
                    parts[1 + column] = str(int(parts[1 + column]) + 1)
                    with self.subTest(line=number + 1, column=column):
                        self.assertIn(f"{ARCHITECTURE}-bit", str(difference(
                            [*LINES[:number], "    " + " ".join(parts), *LINES[number + 1:]])))


class Library(unittest.TestCase):
    """The tables in the library are not what the headers declare."""

    def expect(self, name, change, message):
        self.assertEqual(difference(LINES, FakeLibrary(name, change)), message)

    @staticmethod
    def swapped(tables, table, slot):
        entries = tables[table][1]
        entries[slot], entries[slot + 1] = entries[slot + 1], entries[slot]
        return tables

    def test_tables(self):
        self.expect("WarnInfo", lambda tables: [],
                    "WarnInfo: the library has 0 tables of virtual operations, 1 are declared")
        self.expect("ActionBase", lambda tables: [tables[0], (4, tables[1][1])],
                    f"ActionBase as IAction: the library's table is that of offset 4, the base is at {here(16, 8)}")
        self.expect("WarnInfo", lambda tables: [(0, tables[0][1][:-1])],
                    "WarnInfo: the library's table has 11 slots, 12 are declared")

    def test_slots(self):
        self.expect("ActionBase", lambda tables: self.swapped(tables, 0, 16),
                    "ActionBase: slot 16 of the library's table is to hold `uid() const` "
                    "(_ZNK8Brimvale10ActionBase3uidEv), but holds _ZN8Brimvale10ActionBase6setUidE7QString")
        self.expect("ActionBase", lambda tables: self.swapped(tables, 1, 4),
                    "ActionBase as IAction: slot 4 of the library's table is to hold `uid() const` "
                    "(_ZNK8Brimvale10ActionBase3uidEv), but holds "
                    f"_ZThn{here(16, 8)}_NK8Brimvale10ActionBase7getRankEv")
        self.expect("WarnInfo", lambda tables: self.swapped(tables, 0, 3),
                    "WarnInfo: slot 3 of the library's table is to hold `~` (_ZN8Brimvale8WarnInfoD1Ev), "
                    "but holds _ZN8Brimvale8WarnInfoD0Ev")


class Program(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)

    def run_tool(self, *arguments):
        return subprocess.run([TOOL, "--emulator", EMULATOR, *arguments], capture_output=True, encoding="utf-8",
                              check=False)

    def failure(self, *arguments):
        process = self.run_tool(*arguments)
        self.assertNotEqual(process.returncode, 0)
        self.assertEqual(process.stdout, "")
        self.assertNotIn("Traceback", process.stderr)
        return process.stderr.strip()

    def table(self, text):
        path = self.directory / "table.txt"
        path.write_text(text, encoding="utf-8")
        return path

    def test_what_is_printed_is_a_table(self):
        process = self.run_tool(PROBE, LIBRARY)
        self.assertEqual(process.stderr, "")
        self.assertEqual(process.returncode, 0)
        self.assertIsNone(difference(process.stdout.splitlines()))

    def test_first_difference_is_printed(self):
        lines = altered("IPlugin", "IPlugin\"", "IPlugin/1.0\"")
        path = self.table("\n".join(lines))
        self.assertEqual(self.failure("--check", path, PROBE, LIBRARY),
                         f"{LIBRARY} is not what {path} says:\nIPlugin: the identifier is Brimvale.Plugin.IPlugin, "
                         "the contract says Brimvale.Plugin.IPlugin/1.0")

    def test_bad_tables(self):
        for text, message in {
            "": ": there is no type in it",
            "    virtual ~": ":1: this line belongs to no type",
            "klass X": ":1: 'klass X' begins no type",
            "class X : Y": ":1: the base Y is to stand before X",
            "record X\nrecord X": ":2: X is here a second time",
            "record X\n    object 1 1": ":2: 4 numbers are expected: 2 for 64 bits, 2 for 32 bits",
            "record X\n    object 1 1 1 one": ":2: 4 numbers are expected",
            "record X\n    object 1 1 1 1 trivial": ":2: 'trivial' is not understood",
            "record X\n    object 1 1 1 1\n    object 2 1 2 1": ":3: X has the line `object` already",
            "class X\n    identifier \"A\"\n    identifier \"B\"": ":3: X has the line `identifier` already",
            "class X\n    metaobject \"A\"\n    metaobject \"B\"": ":3: X has the line `metaobject` already",
            "class A\nclass B\nclass X : A, B\n    base 8 4 B\n    base 4 8 B": ":5: X has the line `base B` already",
            "record X\n    base 8 4 Y": ":2: 'Y' is none of the bases of X",
            "record X\n    virtuel ~": ":2: 'virtuel' begins no line of a class",
            "class X\n    signal 1 changed()": ":2: the signal 0 of X is expected here",
            "class X\n    signal 0 changed()\n    slot 0 change()": ":3: the slot 1 of X is expected here",
            "class X\n    identifier X": ":2: the identifier is to stand between quotes",
            "enum X : int\n    One": ":2: 'One' is no enumerator",
        }.items():
            with self.subTest(text=text):
                path = self.table(text)
                self.assertIn(f"tools/contract: {path}{message}", self.failure("--check", path, PROBE, LIBRARY))

    def test_bad_files(self):
        missing = self.directory / "missing"
        text = self.table("text")
        self.assertEqual(self.failure("--check", missing, PROBE, LIBRARY),
                         f"tools/contract: {missing}: No such file or directory")
        self.assertEqual(self.failure(missing, LIBRARY), f"tools/contract: {missing}: No such file or directory")
        self.assertEqual(self.failure(PROBE, text), f"tools/contract: {text}: this is no ELF file")
        self.assertIn("give the program that the target contract_probe builds", self.failure(LIBRARY, LIBRARY))


if __name__ == "__main__":
    unittest.main()
