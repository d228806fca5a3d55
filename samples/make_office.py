#!/usr/bin/env python3
"""Writes office.dxf, the sample drawing: the second floor of an office building on two sheets.

Usage: make_office.py [FILE]     (default: office.dxf beside this program)

The file is the same on every run.
"""

import sys
from pathlib import Path

from office.annotation import draw_annotation
from office.blocks import define_symbols
from office.drawing import Drawing
from office.fitout import draw_fitout
from office.layer_data import add_layer_data
from office.layers import office_layers
from office.services import draw_services
from office.sheets import draw_sheets
from office.shell import draw_shell


def make_office():
    drawing = Drawing(office_layers())
    drawing.extents = (-4300, -4800, 48400, 19300)
    define_symbols(drawing)
    draw_shell(drawing)
    draw_fitout(drawing)
    draw_services(drawing)
    draw_annotation(drawing)
    draw_sheets(drawing)
    add_layer_data(drawing)
    return drawing


def main():
    target = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).with_name("office.dxf")
    make_office().write(target)


if __name__ == "__main__":
    main()
