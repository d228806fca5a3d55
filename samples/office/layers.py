"""The layers of the office building: one row each."""

from dataclasses import dataclass, field

from .palette import nearest_index


@dataclass
class Layer:
    name: str
    colour: object  # an index, or "#rrggbb"
    linetype: str
    lineweight: int  # hundredths of a millimetre; -3 is "default"
    description: str
    state: frozenset = frozenset()  # of "off", "frozen", "locked", "noplot", "newvp"
    transparency: int = 0  # per cent
    handle: int = 0
    xdict: int = 0
    overrides: dict = field(default_factory=dict)

    @property
    def rgb(self):
        if not isinstance(self.colour, str):
            return None
        return tuple(int(self.colour[i : i + 2], 16) for i in (1, 3, 5))

    @property
    def index(self):
        return self.colour if self.rgb is None else nearest_index(self.rgb)

    @property
    def packed_transparency(self):
        return 0x02000000 + 255 * (100 - self.transparency) // 100 if self.transparency else 0


_ROWS = """
0                | 7       | Continuous | -3 |                                              |
Defpoints        | 7       | Continuous | -3 |                                              | noplot
A-ANNO-DIMS      | #7f9fbf | Continuous | 13 | Dimensions                                   |
A-ANNO-NOTE      | 7       | Continuous | 18 | General notes and legends                    |
A-ANNO-NPLT      | 241     | Continuous | 9  | Working notes, never plotted                 | noplot
A-ANNO-SECT      | 1       | PHANTOM    | 35 | Section lines                                |
A-ANNO-SYMB      | 7       | Continuous | 18 | North arrow, section marks                   |
A-ANNO-TTLB      | 7       | Continuous | 25 | Sheet frame and title block                  |
A-ANNO-TTLB-TEXT | #3f7fbf | Continuous | 18 | Title block texts                            |
A-ANNO-VPRT      | 8       | Continuous | 9  | Viewport borders                             | noplot
A-AREA-BNDY      | #b07fd0 | DASHED2    | 13 | Room boundaries for the area schedule        | noplot off locked
A-AREA-FILL      | 151     | Continuous | 0  | Room fill by use                             | frozen newvp, 80
A-AREA-IDEN      | 7       | Continuous | 18 | Room numbers, names and areas                |
A-CLNG-GRID      | #9aa8b5 | Continuous | 9  | Suspended ceiling, 600 x 600                 | frozen
A-DOOR           | 30      | Continuous | 25 | Door leaves                                  |
A-DOOR-IDEN      | 31      | Continuous | 13 | Door numbers                                 | off
A-DOOR-SWNG      | 33      | Continuous | 9  | Door swings                                  |
A-EQPM           | #b98a52 | Continuous | 18 | Copiers, refrigerators, servers              |
A-FLOR-EVTR      | #c77f2a | Continuous | 25 | Lifts                                        |
A-FLOR-PATT      | #a9b4bd | Continuous | 0  | Tile pattern                                 | locked
A-FLOR-STRS      | #a08f45 | Continuous | 18 | Stairs, treads and handrails                 |
A-FURN-CHAR      | #8fae6a | Continuous | 13 | Chairs                                       |
A-FURN-DESK      | #a9c47f | Continuous | 18 | Desks and tables                             |
A-FURN-PLNT      | 94      | Continuous | 9  | Plants                                       |
A-FURN-STOR      | #7f9a5a | Continuous | 18 | Cupboards, shelves, lockers                  |
A-GLAZ           | 150     | Continuous | 25 | Window frames and glass                      |
A-GLAZ-SILL      | 153     | Continuous | 13 | Sills                                        |
A-WALL-CORE      | 7       | Continuous | 50 | Concrete walls of the core, 250 mm           |
A-WALL-DEMO      | 20      | DASHED     | 25 | Walls to be taken down; none on this floor   | frozen noplot newvp
A-WALL-EXTR      | 7       | Continuous | 50 | Outer walls, 365 mm                          |
A-WALL-GLAZ      | 140     | Continuous | 25 | Glass partitions, 100 mm                     |
A-WALL-PATT      | #6e7378 | Continuous | 5  | Hatching of cut walls                        |
A-WALL-PRTN      | #868d94 | Continuous | 35 | Partitions, 125 and 150 mm                   |
A-WALL-TOIL      | #8f979e | Continuous | 18 | Toilet cubicles                              |
E-DATA           | 200     | Continuous | 18 | Data outlets                                 |
E-DATA-WLAN      | 191     | Continuous | 18 | Wireless access points                       |
E-LITE           | #c9961a | Continuous | 18 | Luminaires                                   |
E-LITE-CIRC      | #a98a3a | DASHED2    | 9  | Lighting circuits                            |
E-LITE-EMER      | 3       | Continuous | 25 | Escape signs and emergency lights            |
E-LITE-SWCH      | 42      | Continuous | 18 | Switches                                     |
E-POWR-FLOR      | 220     | Continuous | 18 | Floor boxes                                  |
E-POWR-OUTL      | 210     | Continuous | 18 | Socket outlets                               |
E-POWR-PANL      | 6       | Continuous | 35 | Distribution boards                          |
E-POWR-TRAY      | #b080a8 | HIDDEN     | 13 | Cable trays in the ceiling                   |
F-DETC           | 10      | Continuous | 18 | Smoke detectors                              |
F-ESCP           | #18a558 | DASHDOT    | 50 | Escape routes                                | , 50
F-EXTI           | 1       | Continuous | 25 | Fire extinguishers                           |
F-SPRN           | 12      | Continuous | 13 | Sprinklers                                   | frozen
F-WALL-RATE      | #e0442c | DASHED     | 70 | Fire compartment lines                       | noplot, 25
M-DIFF           | #3f9db0 | Continuous | 18 | Air outlets                                  | off
M-DUCT-RETN      | 34      | Continuous | 25 | Return air                                   | off
M-DUCT-SUPP      | #4f9fc8 | Continuous | 25 | Supply air                                   | off
M-PIPE-HEAT      | 11      | HIDDEN     | 18 | Heating pipes                                | off
M-RADI           | 21      | Continuous | 18 | Radiators                                    |
P-FIXT-SANR      | 142     | Continuous | 18 | Sanitary fixtures                            |
P-PIPE-COLD      | 5       | Continuous | 25 | Cold water                                   |
P-PIPE-DRAN      | #8a6d3b | DASHED     | 35 | Waste water                                  | off
P-PIPE-HOTW      | 1       | CENTER2    | 25 | Hot water                                    |
S-BEAM           | #b8860b | HIDDEN     | 18 | Downstand beams                              | off locked
S-COLS           | 7       | Continuous | 60 | Columns, 350 x 350                           |
S-COLS-PATT      | 252     | Continuous | 0  | Column fill                                  |
S-GRID           | #9c7a5b | CENTER     | 9  | Grid lines                                   | locked
S-GRID-IDEN      | #c09a75 | Continuous | 18 | Grid bubbles                                 |
S-SLAB-EDGE      | 14      | PHANTOM    | 25 | Edge of the slab                             | frozen
S-SLAB-OPEN      | 15      | DASHDOT    | 18 | Openings in the slab                         |
"""


def _row(line):
    name, colour, linetype, weight, description, state = (cell.strip() for cell in line.split("|"))
    words, _, transparency = state.partition(",")
    return Layer(
        name=name,
        colour=colour if colour.startswith("#") else int(colour),
        linetype=linetype,
        lineweight=int(weight),
        description=description,
        state=frozenset(words.split()),
        transparency=int(transparency or 0),
    )


def office_layers():
    """Name to Layer, in table order."""
    return {layer.name: layer for layer in map(_row, filter(None, _ROWS.splitlines()))}
