"""Read every example back the way VARDEL reads it and check it against
counts taken from the original sources.

Run from anywhere: python3 examples/tools/check_examples.py
Prints one line per example and a closing 'N passed, N failed' line.
"""

import os
import sys
from collections import Counter

from vardel_files import TOKEN_MAX, read_example

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.join(HERE, "..")

# cases per class, and missing values per variable, in the sources
EXPECTED = {
    "iris": {
        "classes": {"setosa": 50, "versicolor": 50, "virginica": 50},
        "missing": {},
        "types": "nnnnd",
    },
    "penguins": {
        "classes": {"Adelie": 152, "Chinstrap": 68, "Gentoo": 124},
        "missing": {"bill_length_mm": 2, "bill_depth_mm": 2,
                    "flipper_length_mm": 2, "body_mass_g": 2, "sex": 11},
        "types": "dcnnnncn",
    },
    "anes96": {
        "classes": {"Clinton": 551, "Dole": 393},
        "missing": {},
        "types": "nnnnncncnd",
    },
    "affairs": {
        "classes": {"no": 4313, "yes": 2053},
        "missing": {},
        "types": "nnnnnnccxd",
    },
}

# Fisher's published species means of the four iris measurements
IRIS_MEANS = {
    "setosa": (5.006, 3.428, 1.462, 0.246),
    "versicolor": (5.936, 2.770, 4.260, 1.326),
    "virginica": (6.588, 2.974, 5.552, 2.026),
}


def check(name, want):
    dsc = os.path.join(ROOT, name, name + ".dsc")
    missing, variables, rows = read_example(dsc)
    problems = []
    folder = sorted(os.listdir(os.path.join(ROOT, name)))
    if folder != sorted([name + ".dsc", name + ".dat"]):
        problems.append("folder holds %s" % folder)
    with open(os.path.join(ROOT, name, name + ".dat"), "rb") as f:
        if not f.read().endswith(b"\n"):
            problems.append("data file does not end with a newline")

    types = "".join(t for _, t in variables)
    if types != want["types"]:
        problems.append("types %s, want %s" % (types, want["types"]))
    names = [n for n, _ in variables]
    if len(set(names)) != len(names) or any(len(n) > TOKEN_MAX for n in names):
        problems.append("variable names not unique or too long")

    cls = types.index("d")
    counts = Counter()
    miss = Counter()
    for i, row in enumerate(rows, start=1):
        if len(row) != len(variables):
            problems.append("case %d has %d values, want %d" % (i, len(row), len(variables)))
            continue
        for (vname, vtype), v in zip(variables, row):
            if v == missing:
                miss[vname] += 1
            elif vtype in "nx":
                try:
                    float(v)
                except ValueError:
                    problems.append("case %d: %s=%r is not a number" % (i, vname, v))
        counts[row[cls]] += 1
    if dict(counts) != want["classes"]:
        problems.append("class counts %s, want %s" % (dict(counts), want["classes"]))
    if dict(miss) != want["missing"]:
        problems.append("missing counts %s, want %s" % (dict(miss), want["missing"]))

    if name == "iris":
        for species, means in IRIS_MEANS.items():
            cases = [r for r in rows if r[cls] == species]
            got = tuple(round(sum(float(r[j]) for r in cases) / len(cases), 3)
                        for j in range(4))
            if got != means:
                problems.append("%s means %s, want %s" % (species, got, means))
    return problems


def main():
    passed = failed = 0
    for name, want in EXPECTED.items():
        problems = check(name, want)
        if problems:
            failed += 1
            print("FAIL %s" % name)
            for p in problems[:10]:
                print("  " + p)
        else:
            passed += 1
            print("ok   %s" % name)
    print("%d passed, %d failed" % (passed, failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
