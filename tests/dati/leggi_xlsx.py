#!/usr/bin/env python3
"""Prints the cells of the first worksheet of a workbook, one a line: "A1<TAB>value".

The tests of the export read their workbooks back with it. With --tipi each line also names
the cell's type as openpyxl reads it: "A1<TAB>s<TAB>value" (s text, n number, ...). Empty cells
are not printed; tabs, line ends and backslashes in values are written as \\t, \\n, \\r, \\\\.
"""
import sys

import openpyxl


def testo(valore):
    return (str(valore).replace("\\", "\\\\").replace("\t", "\\t")
            .replace("\n", "\\n").replace("\r", "\\r"))


def main():
    argomenti = sys.argv[1:]
    tipi = "--tipi" in argomenti
    file = [a for a in argomenti if a != "--tipi"]
    if len(file) != 1:
        print("uso: leggi_xlsx.py [--tipi] file.xlsx", file=sys.stderr)
        return 2
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    # Opened as a stream, so that openpyxl reads the workbook whatever its name ends with.
    with open(file[0], "rb") as f:
        foglio = openpyxl.load_workbook(f).worksheets[0]
    for riga in foglio.iter_rows():
        for cella in riga:
            if cella.value is None:
                continue
            if tipi:
                print(f"{cella.coordinate}\t{cella.data_type}\t{testo(cella.value)}")
            else:
                print(f"{cella.coordinate}\t{testo(cella.value)}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
