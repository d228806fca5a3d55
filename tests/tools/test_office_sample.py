"""The sample drawing: it is what its program writes, other programs can read it, and it holds the layer data
that it is there to show."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

try:
    import ezdxf
except ImportError:
    print("skipped: python3-ezdxf is not installed")
    sys.exit(77)

SAMPLES = Path(sys.argv.pop(1)) / "samples"
OFFICE = SAMPLES / "office.dxf"
POINTERS = {*range(320, 370), *range(390, 400)}


def read_records(path):
    """Every record as a list of (code, value), its type first."""
    lines = path.read_bytes().decode("utf-8").split("\r\n")
    records = []
    for code, value in zip(lines[0::2], lines[1::2]):
        if int(code) == 0:
            records.append([])
        records[-1].append((int(code), value))
    return records


def handle_of(record):
    return next((value for code, value in record if code in (5, 105)), None)


def values(record, wanted):
    return [value for code, value in record if code == wanted]


class OfficeSample(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.drawing = ezdxf.readfile(OFFICE)
        cls.records = read_records(OFFICE)
        cls.by_handle = {handle_of(record): record for record in cls.records if record[0][1] not in ("SECTION",)}

    def dictionary(self, handle):
        """Keys and records of a dictionary."""
        record = self.by_handle[handle]
        self.assertEqual(record[0][1], "DICTIONARY")
        links = [value for code, value in record[record.index((281, "     1")) :] if code in (350, 360)]
        return {key: self.by_handle[link] for key, link in zip(values(record, 3), links)}

    def extension(self, record):
        start = record.index((102, "{ACAD_XDICTIONARY")) if (102, "{ACAD_XDICTIONARY") in record else None
        return self.dictionary(record[start + 1][1]) if start is not None else {}

    def layer_record(self, name):
        return next(r for r in self.records if r[0][1] == "LAYER" and (2, name) in r)

    def test_it_is_what_its_program_writes(self):
        with tempfile.TemporaryDirectory() as folder:
            again = Path(folder) / "office.dxf"
            subprocess.run([sys.executable, "-B", SAMPLES / "make_office.py", again], check=True)
            self.assertEqual(again.read_bytes(), OFFICE.read_bytes())

    def test_another_program_finds_nothing_to_repair(self):
        auditor = self.drawing.audit()
        self.assertEqual([entry.message for entry in auditor.errors + auditor.fixes], [])

    def test_handles_are_unique_below_the_seed_and_every_pointer_has_a_target(self):
        header = next(r for r in self.records if (9, "$HANDSEED") in r)
        seed = header[header.index((9, "$HANDSEED")) + 1][1]
        handles = [handle_of(record) for record in self.records if record is not header and handle_of(record)]
        self.assertEqual(len(handles), len(set(handles)))
        self.assertLess(max(int(handle, 16) for handle in handles), int(seed, 16))
        known = {*handles, "0"}
        lost = [(r[0][1], code, value) for r in self.records for code, value in r if code in POINTERS and value not in known]
        self.assertEqual(lost, [])

    def test_its_layers_differ_in_every_property(self):
        layers = list(self.drawing.layers)
        self.assertTrue(55 <= len(layers) <= 70, len(layers))
        for words, having in {
            "off": [layer for layer in layers if layer.is_off()],
            "frozen": [layer for layer in layers if layer.is_frozen()],
            "locked": [layer for layer in layers if layer.is_locked()],
            "frozen in new viewports": [layer for layer in layers if layer.dxf.flags & 2],
            "not plotted": [layer for layer in layers if layer.dxf.plot == 0],
            "true colour": [layer for layer in layers if layer.rgb],
            "transparent": [layer for layer in layers if layer.transparency > 0],
            "described": [layer for layer in layers if layer.description],
        }.items():
            self.assertGreaterEqual(len(having), 2, words)
            self.assertLess(len(having), len(layers), words)
        self.assertGreaterEqual(len({layer.dxf.linetype for layer in layers}), 6)
        self.assertGreaterEqual(len({layer.dxf.lineweight for layer in layers}), 8)

    def test_the_index_beside_a_true_colour_is_the_nearest_one(self):
        sys.path.insert(0, str(SAMPLES))
        from office.palette import nearest_index

        for layer in self.drawing.layers:
            if layer.rgb:
                self.assertEqual(abs(layer.dxf.color), nearest_index(layer.rgb), layer.dxf.name)

    def test_nearly_every_layer_is_drawn_on(self):
        used = {entity.dxf.layer for block in self.drawing.blocks for entity in block}
        unused = {layer.dxf.name for layer in self.drawing.layers} - used
        self.assertEqual(unused, {"A-WALL-DEMO", "Defpoints"})

    def test_the_plan_is_a_real_one(self):
        model = self.drawing.modelspace()
        self.assertGreater(len(model), 1500)
        doors = model.query("INSERT").filter(lambda insert: insert.dxf.name.startswith("DOOR-1010"))
        self.assertGreaterEqual(len(doors), 10)
        rooms = {tag.get_attrib_text("NUMBER") for tag in model.query('INSERT[layer=="A-AREA-IDEN"]')}
        self.assertEqual(rooms, {f"2.{number:02}" for number in range(1, 22)})

    def test_both_sheets_have_viewports_that_show_different_layers(self):
        names = self.drawing.layout_names_in_taborder()
        self.assertEqual(names, ["Model", "A-201 Floor plan", "E-201 Lighting and power"])
        for name, count in zip(names[1:], (4, 3)):
            viewports = self.drawing.layout(name).query("VIEWPORT")
            self.assertEqual(len(viewports), count)
            hidden = [frozenset(viewport.frozen_layers) for viewport in viewports]
            self.assertEqual(hidden[0], frozenset())
            self.assertEqual(len(set(hidden)), count)
            self.assertTrue(all(len(each) > 5 for each in hidden[1:]))

    def test_one_viewport_shows_walls_in_a_colour_of_its_own(self):
        lighting = self.drawing.layout("E-201 Lighting and power").query("VIEWPORT")[1].dxf.handle
        for name in ("A-WALL-EXTR", "A-WALL-CORE", "A-WALL-PRTN"):
            overrides = self.drawing.layers.get(name).get_vp_overrides()
            self.assertTrue(overrides.has_overrides(lighting), name)
            self.assertEqual(overrides.get_rgb(lighting), (0x8A, 0x90, 0x96))
        weights = self.drawing.layers.get("A-WALL-CORE").get_vp_overrides()
        self.assertEqual(weights.get_lineweight(lighting), 18)

    def test_filters_hang_where_other_programs_look_for_them(self):
        table = next(r for r in self.records if r[0] == (0, "TABLE") and (2, "LAYER") in r)
        filters = self.dictionary(handle_of(self.extension(table)["ACLYDICTIONARY"]))
        names = {values(record, 300)[0]: record for record in filters.values()}
        self.assertEqual(
            list(names),
            ["Building shell", "For the furniture supplier", "Electrical", "Not plotted", "Locked or off"],
        )
        self.assertEqual(values(names["Electrical"], 1), ["AcLyLayerFilter"])
        self.assertEqual(values(names["Electrical"], 301), ['NAME=="E-*"'])
        children = self.dictionary(handle_of(self.extension(names["Building shell"])["ACLYDICTIONARY"]))
        self.assertEqual([values(record, 300)[0] for record in children.values()], ["Walls", "Thick lines"])
        walls = next(record for record in children.values() if values(record, 300) == ["Walls"])
        members = walls[walls.index((300, "Walls")) + 1 :]
        self.assertEqual(
            {values(self.by_handle[handle], 2)[0] for _, handle in members},
            {layer.dxf.name for layer in self.drawing.layers if layer.dxf.name.startswith("A-WALL")},
        )

    def test_some_layers_are_not_reconciled(self):
        def mark(name):
            record = self.extension(self.layer_record(name)).get("ADSK_XREC_LAYER_RECONCILED")
            return record and int(values(record, 290)[0])

        self.assertEqual([mark(name) for name in ("A-DOOR", "A-WALL-DEMO", "E-DATA-WLAN", "Defpoints")], [1, 0, None, None])
        evaluation = next(r for r in self.records if r[0][1] == "DICTIONARYVAR" and (1, "1") in r)
        self.assertIn("LAYEREVAL", dict(self.variable_names())[handle_of(evaluation)])

    def variable_names(self):
        for record in self.records:
            if record[0][1] == "DICTIONARY" and (3, "LAYEREVAL") in record:
                for (code, key), (_, handle) in zip(record, record[1:]):
                    if code == 3:
                        yield handle, key

    def test_states_list_every_layer(self):
        table = next(r for r in self.records if r[0] == (0, "TABLE") and (2, "LAYER") in r)
        states = self.dictionary(handle_of(self.extension(table)["ACAD_LAYERSTATES"]))
        self.assertEqual(list(states), ["Architecture", "Services"])
        for state in states.values():
            self.assertEqual(len(values(state, 90)), len(self.drawing.layers))


if __name__ == "__main__":
    unittest.main(verbosity=2)
