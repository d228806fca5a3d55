"""Tagged groups: how values are written, by group code."""

_HANDLES = {5, 105, 1005, *range(320, 370), *range(390, 400), 480, 481}
_WIDE = {*range(90, 100), *range(420, 430), *range(440, 460), 1071}


def _is_real(code):
    return 10 <= code <= 59 or 110 <= code <= 149 or 210 <= code <= 239 or 1010 <= code <= 1059


def _real(value):
    text = f"{value:.6f}".rstrip("0")
    if text.endswith("."):
        text += "0"
    return "0.0" if text == "-0.0" else text


def _value(code, value):
    if code in _HANDLES:
        return f"{value:X}"
    if _is_real(code):
        return _real(value)
    if isinstance(value, int):
        return f"{value:9d}" if code in _WIDE else f"{value:6d}"
    return value


def encode(tags):
    """The bytes of a sequence of (code, value) pairs."""
    lines = []
    for code, value in tags:
        lines.append(f"{code:3d}")
        lines.append(_value(code, value))
    return ("\r\n".join(lines) + "\r\n").encode("utf-8")


def point(code, x, y, z=None):
    """Groups code, code + 10 and, for three coordinates, code + 20."""
    tags = [(code, x), (code + 10, y)]
    if z is not None:
        tags.append((code + 20, z))
    return tags
