"""Convert the 1996 American National Election Study extract into
examples/anes96/.

Source: anes96.csv of Debian's python3-statsmodels package: tab-separated,
a heading line of quoted names, all values integer codes.  Party
identification and education are code lists, written here as labels and
typed categorical; the 1-7 left/right scales and the income bracket are
ordered and stay numerical.  The vote code becomes Clinton or Dole.
Usage: python3 convert_anes96.py [path/to/anes96.csv]
"""

import os
import sys

from vardel_files import write_example

SOURCE = "/usr/lib/python3/dist-packages/statsmodels/datasets/anes96/anes96.csv"
HERE = os.path.dirname(os.path.abspath(__file__))

PID = {
    "0": "strong_democrat",
    "1": "weak_democrat",
    "2": "indep_democrat",
    "3": "independent",
    "4": "indep_republican",
    "5": "weak_republican",
    "6": "strong_republican",
}
EDUC = {
    "1": "grades_1_to_8",
    "2": "some_high_school",
    "3": "high_school_graduate",
    "4": "some_college",
    "5": "college_degree",
    "6": "masters_degree",
    "7": "phd",
}
VOTE = {"0": "Clinton", "1": "Dole"}

# source column -> (name written, type, code map or None)
COLUMNS = [
    ("popul", "popul", "n", None),
    ("TVnews", "TVnews", "n", None),
    ("selfLR", "selfLR", "n", None),
    ("ClinLR", "ClinLR", "n", None),
    ("DoleLR", "DoleLR", "n", None),
    ("PID", "party_id", "c", PID),
    ("age", "age", "n", None),
    ("educ", "educ", "c", EDUC),
    ("income", "income", "n", None),
    ("vote", "vote", "d", VOTE),
]


def main():
    src = sys.argv[1] if len(sys.argv) > 1 else SOURCE
    with open(src) as f:
        lines = [ln.split() for ln in f if ln.strip()]
    heading = [h.strip("'") for h in lines[0]]
    if heading != [c[0] for c in COLUMNS]:
        raise SystemExit("unexpected columns: %s" % heading)
    rows = []
    for rec in lines[1:]:
        rows.append([codes[v] if codes else v
                     for v, (_, _, _, codes) in zip(rec, COLUMNS)])
    write_example(os.path.join(HERE, "..", "anes96"), "anes96",
                  [(name, t) for _, name, t, _ in COLUMNS], rows, "?")


if __name__ == "__main__":
    main()
