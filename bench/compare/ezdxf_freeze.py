"""Freezes the layers whose names hold a dash and end in an even digit, with python3-ezdxf."""

import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1])
for layer in drawing.layers:
    name = layer.dxf.name
    if "-" in name and name[-1] in "02468":
        layer.freeze()
drawing.saveas(sys.argv[2])
