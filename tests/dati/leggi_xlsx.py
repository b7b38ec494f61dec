#!/usr/bin/env python3
"""Prints the cells of the first worksheet of a workbook, one a line: "A1<TAB>value".

The tests of the export read their workbooks back with it. With --tipi each line also names
the cell's type as openpyxl reads it: "A1<TAB>s<TAB>value" (s text, n number, ...). Empty cells
are not printed; tabs, line ends and backslashes in values are written as \\t, \\n, \\r, \\\\.
With --impaginazione the layout of the sheet follows the cells: "!riquadro<TAB>A4" names the
top left cell of the frozen panes ("-" when none is frozen), and "!larghezza<TAB>B<TAB>12.7" the
width of each column that has one of its own.
"""
import sys

import openpyxl
from openpyxl.utils import get_column_letter


def testo(valore):
    return (str(valore).replace("\\", "\\\\").replace("\t", "\\t")
            .replace("\n", "\\n").replace("\r", "\\r"))


def main():
    argomenti = sys.argv[1:]
    tipi = "--tipi" in argomenti
    impaginazione = "--impaginazione" in argomenti
    file = [a for a in argomenti if a not in ("--tipi", "--impaginazione")]
    if len(file) != 1:
        print("uso: leggi_xlsx.py [--tipi] [--impaginazione] file.xlsx", file=sys.stderr)
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
    if impaginazione:
        print(f"!riquadro\t{foglio.freeze_panes or '-'}")
        # A width read from the file may stand for a range of columns.
        larghezze = {}
        for dimensione in foglio.column_dimensions.values():
            if dimensione.customWidth and dimensione.width:
                for indice in range(dimensione.min, dimensione.max + 1):
                    larghezze[indice] = dimensione.width
        for indice in sorted(larghezze):
            print(f"!larghezza\t{get_column_letter(indice)}\t{larghezze[indice]:g}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
