#!/usr/bin/env python3
"""Whether script/check-docs finds what it is there for: each test plants one fault in a small tree
and expects the message that names it."""

import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parent.parent.parent / "script" / "check-docs"

SOUND = {
    "docs/images/map.png": "",
    "map/Map.cpp": "void Map::paint(int width)\n{\n    return draw(width);\n}\n",
    "tests/map/tst_Map.cpp": "",
    "docs/guide.md": "# Guide\n"
                     "[a link](../README.md#top) and <img src=\"images/map.png\">\n"
                     "`map/Map.cpp`, `images/map.png`, `map/`, `map/<Class>.cpp`, `Map.cpp`\n"
                     "`map/Map.cpp`: `Map::paint()`, shown by `tst_Map`\n"
                     "```\n`map/Lost.cpp` in an example\n```\n"
                     "`build/dev/bin/map`, `std::vector<int>`, [elsewhere](http://example.org/a)\n",
    "README.md": "# Top\n",
}


class CheckDocs(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name, text in SOUND.items():
            path = self.root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")

    def run_check(self):
        return subprocess.run([str(SCRIPT), str(self.root)], capture_output=True, text=True,
                              check=False)

    def plant(self, line):
        with open(self.root / "docs/guide.md", "a", encoding="utf-8") as guide:
            guide.write(line + "\n")

    def expect(self, *faults):
        result = self.run_check()
        wanted = [f"docs/guide.md:9: there is no {fault}" for fault in faults]
        self.assertEqual(result.stderr.splitlines(), wanted)
        self.assertEqual(result.returncode, 1)

    def test_a_sound_tree_passes(self):
        result = self.run_check()
        self.assertEqual(result.stderr, "")
        self.assertEqual(result.returncode, 0)

    def test_a_lost_link_and_a_lost_picture_are_told(self):
        self.plant('[gone](gone.md) <img src="images/gone.png">')
        self.expect("gone.md", "images/gone.png")

    def test_a_lost_path_is_told(self):
        self.plant("see `map/Gone.cpp`")
        self.expect("map/Gone.cpp")

    def test_a_pattern_that_nothing_fits_is_told(self):
        self.plant("see `map/<Class>_p.h`")
        self.expect("map/<Class>_p.h")

    def test_a_lost_folder_is_told(self):
        self.plant("see `maps/` and `map/window/`")
        self.expect("maps/", "map/window/")

    def test_a_lost_file_name_is_told(self):
        self.plant("see `Gone.cpp`")
        self.expect("Gone.cpp")

    def test_a_function_that_is_only_called_is_told(self):
        self.plant("`map/Map.cpp`: `draw()`")
        self.expect("draw() in map/Map.cpp")

    def test_a_lost_test_is_told(self):
        self.plant("held by tst_Gone::always")
        self.expect("tst_Gone")


if __name__ == "__main__":
    unittest.main()
