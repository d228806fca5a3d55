"""The layers of a DXF text, read by neither of the programs that are measured."""

from dataclasses import dataclass

# Generated drawings are of version 2004, whose texts are in the code page that their head names.
ENCODING = "cp1252"


@dataclass
class Layer:
    name: str = ""
    flags: int = 0
    color: int = 7
    linetype: str = ""

    @property
    def frozen(self):
        return bool(self.flags & 1)

    @property
    def locked(self):
        return bool(self.flags & 4)

    @property
    def on(self):
        return self.color >= 0


def groups(path):
    with open(path, encoding=ENCODING, newline="\n") as file:
        for code in file:
            yield int(code), next(file).strip("\r\n")


def layers(path):
    """In the order of the file. Reads no further than the end of the layer table."""
    found, inside, previous = [], False, None
    for code, value in groups(path):
        if previous == (0, "TABLE") and code == 2:
            inside = value == "LAYER"
        elif inside and code == 0:
            if value == "ENDTAB":
                return found
            found.append(Layer())
        elif found and code == 2:
            found[-1].name = value
        elif found and code == 70:
            found[-1].flags = int(value)
        elif found and code == 62:
            found[-1].color = int(value)
        elif found and code == 6:
            found[-1].linetype = value
        previous = code, value
    return found


def entity_count(path):
    """Records of the section ENTITIES."""
    count, inside, previous = 0, False, None
    for code, value in groups(path):
        if previous == (0, "SECTION"):
            inside = value == "ENTITIES"
        elif inside and code == 0:
            if value == "ENDSEC":
                return count
            count += 1
        previous = code, value
    return count
