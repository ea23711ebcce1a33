#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Writes the recordings of this folder anew; with --check only compares them and exits 1 when one differs.

They are made up, with whole-number arithmetic and a fixed seed, so that every run writes the same bytes:

filling.csv  80 s of a 0.1 g scale at irregular 4 to 6 readings a second: drift below zero, the vessel
             touched, an ingredient of 5 g, a steady flow, and at rest on 48.2 g.
formulation.csv  96 s of a 0.1 g scale at the same rate: a vessel of 84.6 g, then three components poured in one
             after the other, 60.2 g, 12.7 g of which 0.6 g are taken out again, and 28.1 g, each with a rest.
fast.csv     12 s of a 0.01 g scale at exactly 100 readings a second: a load of 150 g put on at 2 s and
             taken off at 8 s, with settling and noise.
coarse.csv   10 s of a scale that writes whole grams only, lines ended by CR LF, a blank line at the end.
"""

import sys
from pathlib import Path


class Random:
    """A linear congruential generator: its numbers are part of the recordings."""

    def __init__(self, seed):
        self.state = seed

    def below(self, limit):
        self.state = (self.state * 1664525 + 1013904223) % 2**32
        return (self.state >> 8) * limit >> 24


def decimal(number, places):
    """Whole-number steps of 10^-places as a scale writes them: without superfluous zeros."""
    sign = "-" if number < 0 else ""
    digits = str(abs(number)).rjust(places + 1, "0")
    whole, fraction = digits[:len(digits) - places], digits[len(digits) - places:].rstrip("0")
    return sign + whole + ("." + fraction if fraction else "")


def seconds(ms):
    return f"{ms // 1000}.{ms % 1000:03d}"


def filling():
    random = Random(1)
    time, lines = 60, []
    while time <= 80000:
        if time < 30000:
            tenths = -(time // 2500)  # slow drift
            if 12000 <= time < 13500:
                tenths += (3, 6, 9, 5, 2)[random.below(5)]  # the vessel is touched
        elif time < 34000:
            tenths = -11 + 50  # the ingredient
        elif time < 70000:
            tenths = 39 + (time - 34000) * 443 // 36000  # the flow
        else:
            tenths = 482
        if time < 72000:
            tenths += (-1, 0, 0, 0, 0, 1)[random.below(6)]
        lines.append(f"{seconds(time)},{decimal(tenths, 1)}")
        time += 170 + random.below(80)
    return "time_s,weight_g\n" + "\n".join(lines) + "\n"


def formulation():
    # From a time on: the weight to which is poured until the time after.
    course = ((0, 0), (4000, 0), (4200, 846), (10000, 846), (28000, 846 + 540), (36000, 846 + 602),
              (44000, 1448), (50000, 1448 + 127), (56000, 1575), (56800, 1575 - 6), (64000, 1569),
              (80000, 1569 + 281), (96000, 1850))
    random = Random(3)
    time, lines = 60, []
    while time <= 96000:
        (begin, low), (end, high) = next(pair for pair in zip(course, course[1:]) if pair[1][0] >= time)
        tenths = low + (high - low) * (time - begin) // (end - begin)
        if low != high:
            tenths += (-1, 0, 0, 0, 1)[random.below(5)]
        lines.append(f"{seconds(time)},{decimal(tenths, 1)}")
        time += 170 + random.below(80)
    return "time_s,weight_g\n" + "\n".join(lines) + "\n"


def fast():
    random = Random(2)
    lines = []
    for number in range(1201):
        time = number * 10
        load = 15000 if 2000 <= time < 8000 else 0
        since = time - (8000 if time >= 8000 else 2000)
        # Settling: the distance halves every 60 ms.
        distance = 0
        if since >= 0:
            distance = 15000 >> min(30, since // 60)
        weight = load - distance if load else distance
        weight += (-1, 0, 0, 0, 0, 0, 0, 1)[random.below(8)] if distance == 0 else 0
        lines.append(f"{seconds(time)},{weight // 100 if weight >= 0 else '-' + str(-weight // 100)}"
                     f".{abs(weight) % 100:02d}")
    return "time_s,weight_g\n" + "\n".join(lines) + "\n"


def coarse():
    lines = ["time_s,weight_g"]
    for number in range(41):
        lines.append(f"{seconds(number * 250)},{0 if number < 12 else 250}")
    return "\r\n".join(lines) + "\r\n\r\n"


def main():
    check = sys.argv[1:] == ["--check"]
    if sys.argv[1:] and not check:
        sys.exit(f"usage: {sys.argv[0]} [--check]")
    differing = 0
    for name, text in (("filling.csv", filling()), ("formulation.csv", formulation()),
                       ("fast.csv", fast()), ("coarse.csv", coarse())):
        path = Path(__file__).parent / name
        if not check:
            path.write_bytes(text.encode("ascii"))
        elif not path.is_file() or path.read_bytes() != text.encode("ascii"):
            print(f"{path} is not what this script writes; run it without --check.", file=sys.stderr)
            differing += 1
    sys.exit(1 if differing else 0)


if __name__ == "__main__":
    main()
