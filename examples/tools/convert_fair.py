"""Convert Fair's extramarital affairs survey into examples/affairs/.

Source: fair.csv of Debian's python3-statsmodels package: comma-separated,
a heading line, 6366 cases.  The class is derived: "yes" when the affairs
measure is above zero, else "no".  The affairs measure itself stays in the
file as an excluded variable, since it gives the class away.  Both
occupation columns are code lists, written as labels and typed
categorical; the other columns are ordered and stay numerical.
Usage: python3 convert_fair.py [path/to/fair.csv]
"""

import csv
import os
import sys

from vardel_files import write_example

SOURCE = "/usr/lib/python3/dist-packages/statsmodels/datasets/fair/fair.csv"
HERE = os.path.dirname(os.path.abspath(__file__))

OCCUPATION = {
    "1": "student",
    "2": "farm_or_unskilled",
    "3": "white_collar",
    "4": "teach_nurse_skilled",
    "5": "managerial",
    "6": "professional",
}

NUMERIC = ["rate_marriage", "age", "yrs_married", "children", "religious", "educ"]
CATEGORICAL = ["occupation", "occupation_husb"]


def main():
    src = sys.argv[1] if len(sys.argv) > 1 else SOURCE
    with open(src, newline="") as f:
        reader = csv.reader(f)
        heading = next(reader)
        if heading != NUMERIC + CATEGORICAL + ["affairs"]:
            raise SystemExit("unexpected columns: %s" % heading)
        rows = []
        for rec in reader:
            *nums, occ, occ_h, affairs = rec
            had = "yes" if float(affairs) > 0 else "no"
            rows.append(nums + [OCCUPATION[occ], OCCUPATION[occ_h], affairs, had])
    variables = ([(n, "n") for n in NUMERIC] + [(c, "c") for c in CATEGORICAL]
                 + [("affairs", "x"), ("any_affair", "d")])
    write_example(os.path.join(HERE, "..", "affairs"), "affairs", variables, rows, "NA")


if __name__ == "__main__":
    main()
