"""Writing and reading VARDEL's description and data files.

A description file holds the data file's name, the missing-value code, a
heading line, then one line per variable: column number, name, type.  The
data file holds one case per line, values separated by blanks.
"""

import os
import re

TOKEN_MAX = 21          # longest value or variable name the reader keeps
DATA_NAME_MAX = 80      # longest data file name
TYPES = ("d", "n", "c", "x")

# A bare token must survive list-directed reading unchanged: no blanks,
# commas, slashes, quotes, or a '*' that would read as a repeat count.
_BARE = re.compile(r"^[^\s,/'\"*]+$")


def check_token(tok, what):
    if not tok or len(tok) > TOKEN_MAX or not _BARE.match(tok):
        raise ValueError("%s %r cannot be written as a bare token" % (what, tok))
    return tok


def write_example(folder, stem, variables, rows, missing):
    """Write <stem>.dat and <stem>.dsc into folder.

    variables: list of (name, type) in column order.
    rows: list of lists of strings, one per case, same order as variables.
    missing: the missing-value code, written in place of None values.
    """
    if sum(1 for _, t in variables if t == "d") != 1:
        raise ValueError("exactly one class variable (type d) is needed")
    for name, vtype in variables:
        check_token(name, "variable name")
        if vtype not in TYPES:
            raise ValueError("variable %s has type %r" % (name, vtype))
    check_token(missing, "missing-value code")
    data_name = stem + ".dat"
    if len(data_name) > DATA_NAME_MAX:
        raise ValueError("data file name too long")

    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, data_name), "w", newline="\n") as f:
        for row in rows:
            if len(row) != len(variables):
                raise ValueError("case has %d values, want %d" % (len(row), len(variables)))
            out = []
            for (name, _), v in zip(variables, row):
                out.append(missing if v is None else check_token(v, "value of " + name))
            f.write(" ".join(out) + "\n")
    with open(os.path.join(folder, stem + ".dsc"), "w", newline="\n") as f:
        f.write(data_name + "\n")
        f.write(missing + "\n")
        f.write("column  varname  vartype\n")
        for i, (name, vtype) in enumerate(variables, start=1):
            f.write("%d %s %s\n" % (i, name, vtype))


def split_tokens(line):
    """Split a record into tokens separated by blanks or commas; quotes
    (single or double) may enclose a token holding blanks or commas."""
    toks = []
    i, n = 0, len(line)
    while i < n:
        ch = line[i]
        if ch in " \t,\r\n":
            i += 1
            continue
        if ch in "'\"":
            j = line.find(ch, i + 1)
            if j < 0:
                raise ValueError("unclosed quote in %r" % line)
            toks.append(line[i + 1:j])
            i = j + 1
        else:
            j = i
            while j < n and line[j] not in " \t,\r\n":
                j += 1
            toks.append(line[i:j])
            i = j
    return toks


def read_example(dsc_path):
    """Read a description file and its data file back.

    Returns (missing, variables, rows) with variables as (name, type) in
    column order and rows as lists of tokens, each cut to TOKEN_MAX.
    """
    with open(dsc_path) as f:
        text = f.read()
    if not text.endswith("\n"):
        raise ValueError("%s does not end with a newline" % dsc_path)
    lines = text.split("\n")[:-1]
    data_name = split_tokens(lines[0])[0]
    missing = split_tokens(lines[1])[0][:TOKEN_MAX]
    entries = []
    for line in lines[3:]:
        toks = split_tokens(line)
        if not toks:
            continue
        entries.append((int(toks[0]), toks[1][:TOKEN_MAX], toks[2][:3]))
    entries.sort(key=lambda e: e[0])
    variables = [(name, vtype) for _, name, vtype in entries]

    data_path = os.path.join(os.path.dirname(dsc_path), data_name)
    rows = []
    with open(data_path) as f:
        for line in f:
            toks = split_tokens(line)
            if toks:
                rows.append([t[:TOKEN_MAX] for t in toks])
    return missing, variables, rows
