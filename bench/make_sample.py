#!/usr/bin/env python3
"""Writes a synthetic learning sample in VARDEL's format, deterministically.

usage: make_sample.py CASES FOLDER [--numerical 20] [--categorical 5]
                      [--classes 3] [--missing 0.0] [--seed 1]

The class depends on the first three numerical and the first categorical
predictor (so trees have tens of leaves); the rest are noise. With
--missing, that share of predictor cells is written as NA.
"""
import argparse
import os
import random


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("cases", type=int)
    ap.add_argument("folder")
    ap.add_argument("--numerical", type=int, default=20)
    ap.add_argument("--categorical", type=int, default=5)
    ap.add_argument("--classes", type=int, default=3)
    ap.add_argument("--missing", type=float, default=0.0)
    ap.add_argument("--seed", type=int, default=1)
    a = ap.parse_args()
    rng = random.Random(a.seed)
    os.makedirs(a.folder, exist_ok=True)
    with open(os.path.join(a.folder, "sample.dsc"), "w") as dsc:
        dsc.write("sample.dat\nNA\ncolumn name type\n")
        col = 0
        for j in range(a.numerical):
            col += 1
            dsc.write(f"{col} x{j + 1} n\n")
        for j in range(a.categorical):
            col += 1
            dsc.write(f"{col} c{j + 1} c\n")
        dsc.write(f"{col + 1} class d\n")
    with open(os.path.join(a.folder, "sample.dat"), "w") as dat:
        for _ in range(a.cases):
            x = [rng.gauss(0.0, 1.0) for _ in range(a.numerical)]
            c = [rng.randrange(6) for _ in range(a.categorical)]
            score = sum(x[:3]) + (0.8 * (c[0] % 3) if c else 0.0) + rng.gauss(0.0, 0.7)
            cls = min(a.classes - 1, max(0, int((score + 2.5) / 5.0 * a.classes)))
            cells = [f"{v:.3f}" for v in x] + [f"level{v}" for v in c]
            if a.missing > 0:
                cells = ["NA" if rng.random() < a.missing else v for v in cells]
            dat.write(" ".join(cells) + f" class{cls + 1}\n")
    with open(os.path.join(a.folder, "sample.in"), "w") as answers:
        answers.write("1\nsample.out\n1\nsample.dsc\n1\n")


if __name__ == "__main__":
    main()
