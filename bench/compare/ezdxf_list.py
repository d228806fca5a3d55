"""The layers of a drawing as CSV, with python3-ezdxf."""

import csv
import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1])
writer = csv.writer(sys.stdout, lineterminator="\n")
writer.writerow(["name", "on", "freeze", "locked", "linetype"])
for layer in sorted(drawing.layers, key=lambda layer: layer.dxf.name.lower()):
    answers = ("yes" if answer else "no" for answer in (layer.is_on(), layer.is_frozen(), layer.is_locked()))
    writer.writerow([layer.dxf.name, *answers, layer.dxf.linetype])
