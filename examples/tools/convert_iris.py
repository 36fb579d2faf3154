"""Convert the iris measurements from JSON into examples/iris/.

Source: iris.json of Debian's python3-vega-datasets package, a list of
records {sepalLength, sepalWidth, petalLength, petalWidth, species}.
Usage: python3 convert_iris.py [path/to/iris.json]
"""

import json
import os
import sys

from vardel_files import write_example

SOURCE = "/usr/lib/python3/dist-packages/vega_datasets/_data/iris.json"
HERE = os.path.dirname(os.path.abspath(__file__))

FIELDS = [
    ("sepalLength", "sepal_length", "n"),
    ("sepalWidth", "sepal_width", "n"),
    ("petalLength", "petal_length", "n"),
    ("petalWidth", "petal_width", "n"),
    ("species", "species", "d"),
]


def main():
    src = sys.argv[1] if len(sys.argv) > 1 else SOURCE
    with open(src) as f:
        records = json.load(f)
    rows = []
    for rec in records:
        # repr of a float read from JSON gives back the shortest text, i.e.
        # the one-decimal figure as published.
        rows.append([repr(float(rec[k])) if t == "n" else rec[k] for k, _, t in FIELDS])
    write_example(os.path.join(HERE, "..", "iris"), "iris",
                  [(name, t) for _, name, t in FIELDS], rows, "NA")


if __name__ == "__main__":
    main()
