"""The colour index table, as far as it is needed: the nearest index of a true colour."""

_FIRST = [(255, 0, 0), (255, 255, 0), (0, 255, 0), (0, 255, 255), (0, 0, 255), (255, 0, 255), (255, 255, 255),
          (128, 128, 128), (192, 192, 192)]
_GREYS = [51, 91, 132, 173, 214, 255]
_VALUES = [1.0, 0.8, 0.6, 0.5, 0.3]


def _hue(index):
    value = _VALUES[index % 10 // 2]
    least = value / 2 if index % 2 else 0.0
    step = index // 10 - 1
    rise = (value - least) * (step % 4) / 4
    high, low, up, down = (int(255 * share + 1e-9) for share in (value, least, least + rise, value - rise))
    return [(high, up, low), (down, high, low), (low, high, up), (low, down, high), (up, low, high), (high, low, down)][
        step // 4
    ]


_TABLE = _FIRST + [_hue(index) for index in range(10, 250)] + [(grey, grey, grey) for grey in _GREYS]


def nearest_index(rgb):
    """1 to 255, by squared distance; the lowest wins ties."""
    distances = [sum((a - b) ** 2 for a, b in zip(rgb, colour)) for colour in _TABLE]
    return distances.index(min(distances)) + 1
