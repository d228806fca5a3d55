"""Outlines of walls: unions of rectangles with openings cut out."""

from bisect import bisect_left


def rectangle(x0, y0, x1, y1):
    """A rectangle whatever the order of its corners."""
    return (min(x0, x1), min(y0, y1), max(x0, x1), max(y0, y1))


def corners(box):
    x0, y0, x1, y1 = box
    return [(x0, y0), (x1, y0), (x1, y1), (x0, y1)]


def _filled_cells(solid, holes):
    xs = sorted({x for box in solid + holes for x in (box[0], box[2])})
    ys = sorted({y for box in solid + holes for y in (box[1], box[3])})
    cells = set()

    def mark(box, act):
        for i in range(bisect_left(xs, box[0]), bisect_left(xs, box[2])):
            for j in range(bisect_left(ys, box[1]), bisect_left(ys, box[3])):
                act((i, j))

    for box in solid:
        mark(box, cells.add)
    for box in holes:
        mark(box, cells.discard)
    return xs, ys, cells


def _border_steps(cells):
    """Unit steps around the cells with the inside to the left: start to ends."""
    steps = {}
    for i, j in sorted(cells):
        for (di, dj), start, end in (
            ((0, -1), (i, j), (i + 1, j)),
            ((1, 0), (i + 1, j), (i + 1, j + 1)),
            ((0, 1), (i + 1, j + 1), (i, j + 1)),
            ((-1, 0), (i, j + 1), (i, j)),
        ):
            if (i + di, j + dj) not in cells:
                steps.setdefault(start, []).append(end)
    return steps


def _next(steps, previous, at):
    """Where two loops touch in a point, turn left: the loops stay apart."""
    ends = steps[at]
    if len(ends) > 1 and previous is not None:
        dx, dy = at[0] - previous[0], at[1] - previous[1]
        left = (at[0] - dy, at[1] + dx)
        if left in ends:
            ends.remove(left)
            return left
    return ends.pop(0)


def outlines(solid, holes=()):
    """Closed outlines, as lists of corners, of the union of boxes without the holes; outer ones run
    counter-clockwise, inner ones clockwise."""
    xs, ys, cells = _filled_cells(list(solid), list(holes))
    steps = _border_steps(cells)
    loops = []
    while steps:
        start = min(steps)
        loop, previous, at = [], None, start
        while True:
            following = _next(steps, previous, at)
            if not steps[at]:
                del steps[at]
            loop.append(at)
            previous, at = at, following
            if at == start:
                break
        loops.append([(xs[i], ys[j]) for i, j in _without_straight(loop)])
    return loops


def _without_straight(loop):
    """Drops the points in which the outline does not turn."""
    count = len(loop)
    return [
        loop[k]
        for k in range(count)
        if (loop[k - 1][0] == loop[k][0]) != (loop[k][0] == loop[(k + 1) % count][0])
    ]


def steps_between(start, end, spacing):
    """Evenly spread positions from start to end, about `spacing` apart, half a gap from either end."""
    count = max(1, round((end - start) / spacing))
    gap = (end - start) / count
    return [start + gap * (k + 0.5) for k in range(count)]
