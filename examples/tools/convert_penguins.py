"""Convert the Palmer penguins table into examples/penguins/.

Source: extdata/penguins.csv of Debian's r-cran-palmerpenguins package:
a comma-separated table with a heading line, missing values written NA.
The columns are kept in their order, so the class (species) comes first.
Usage: python3 convert_penguins.py [path/to/penguins.csv]
"""

import csv
import os
import sys

from vardel_files import write_example

SOURCE = "/usr/lib/R/site-library/palmerpenguins/extdata/penguins.csv"
HERE = os.path.dirname(os.path.abspath(__file__))

TYPES = {
    "species": "d",
    "island": "c",
    "bill_length_mm": "n",
    "bill_depth_mm": "n",
    "flipper_length_mm": "n",
    "body_mass_g": "n",
    "sex": "c",
    "year": "n",
}


def main():
    src = sys.argv[1] if len(sys.argv) > 1 else SOURCE
    with open(src, newline="") as f:
        reader = csv.reader(f)
        heading = next(reader)
        if heading != list(TYPES):
            raise SystemExit("unexpected columns: %s" % heading)
        rows = [[None if v == "NA" else v for v in rec] for rec in reader]
    write_example(os.path.join(HERE, "..", "penguins"), "penguins",
                  list(TYPES.items()), rows, "NA")


if __name__ == "__main__":
    main()
