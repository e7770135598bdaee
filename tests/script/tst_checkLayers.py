#!/usr/bin/env python3
"""Whether script/check-layers finds what it is there for: each test plants one fault in a small
tree and expects the message that names it."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parent.parent.parent / "script" / "check-layers"

# A tree without a fault. It uses every exception, since an unused one is a fault.
SOUND = {
    "vobase/CMakeLists.txt": "vt_add_library(vobase\n    SOURCES VOString.cpp\n"
                             "    HEADERS VOString.h)\n",
    "vobase/VOString.h": '#include "vobase/vobase_export.h"\n#include <string>\n',
    "vomap/CMakeLists.txt": "# Records (and ramps).\nvt_add_library(vomap\n"
                            "    SOURCES VOScheme.cpp files/Reader_p.h\n"
                            "    HEADERS\n        VOScheme.h\n        rgb_color.h\n"
                            "    LINK vobase Qt5::Core)\n",
    "vomap/rgb_color.h": "#pragma once\n",
    "vomap/VOScheme.h": '#include "vobase/VOString.h"\n#include <QString>\n',
    "vomap/VOScheme.cpp": '#include "vomap/VOScheme.h"\n#include "vomap/generate/even_p.h"\n',
    "vomap/VOColorSchemeManager.cpp": '#include "vomap/files/Reader_p.h"\n'
                                      '#include "vomap/store/Store_p.h"\n',
    "vomap/VOColorSchemeMoves.cpp": '#include "vomap/store/Store_p.h"\n',
    "vomap/VOStoreHistory.cpp": '#include "vomap/files/Reader_p.h"\n'
                                '#include "vomap/store/Store_p.h"\n',
    "vomap/generate/even_p.h": '#include "vomap/rgb_color.h"\n#include <vector>\n',
    "vomap/files/Reader_p.h": '#include "vomap/VOScheme.h"\n#include <QByteArray>\n',
    "vomap/store/Store_p.h": '#include "vomap/files/Reader_p.h"\n#include <QtCore/QFile>\n',
    "colorscheme/CMakeLists.txt": "vt_add_library(vtcontrolcolorscheme\n    FOLDER colorscheme\n"
                                  "    SOURCES editor/rows_p.h\n"
                                  "    HEADERS editor/Editor.h manager/VTLineEditWidget.h\n"
                                  "    LINK vomap Qt5::Widgets)\n",
    "colorscheme/editor/Editor.h": '#include "colorscheme/vtcontrolcolorscheme_export.h"\n'
                                   "#include <QDialog>\n",
    "colorscheme/editor/Editor.cpp": '#include "colorscheme/editor/Editor.h"\n\n'
                                     '#include "colorscheme/editor/rows_p.h"\n'
                                     '#include "ui_Editor.h"\n',
    "colorscheme/editor/rows_p.h": "#pragma once\n",
    "colorscheme/forms/Editor.ui": "<header>colorscheme/manager/VTLineEditWidget.h</header>\n",
    "colorscheme/manager/VTLineEditWidget.h": "#include <QWidget>\n",
    "colorscheme/manager/Manager.cpp": '#include "colorscheme/editor/Editor.h"\n',
    "colorscheme/picker/Picker.cpp": '#include "colorscheme/editor/Editor.h"\n',
    "apps/mapviewer/layers/Layer.h": "#include <QPainterPath>\n",
    "apps/mapviewer/map/Map.cpp": '#include "apps/mapviewer/layers/Layer.h"\n#include <QWidget>\n',
    "tests/vomap/files/tst_reader.cpp": '#include "vomap/files/Reader_p.h"\n#include <QtTest>\n'
                                        '#include "tst_reader.moc"\n',
}


class CheckLayers(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name, text in SOUND.items():
            self.write(name, text)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def plant(self, name, line):
        """Puts a line behind the first one of a file."""
        first, *rest = SOUND.get(name, "#pragma once\n").splitlines()
        self.write(name, "\n".join([first, line, *rest]) + "\n")

    def run_check(self):
        return subprocess.run([sys.executable, str(SCRIPT), str(self.root)],
                              capture_output=True, text=True, check=False)

    def expect(self, *messages):
        """The check fails with these messages and no others."""
        result = self.run_check()
        self.assertEqual(result.stderr.splitlines(), list(messages))
        self.assertEqual(result.returncode, 1)

    def expect_fault(self, name, include, text):
        self.plant(name, f"#include {include}")
        self.expect(f"{name}:2: {text}")

    def test_a_sound_tree_passes(self):
        result = self.run_check()
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_a_tree_without_sources_does_not_pass(self):
        for path in [*self.root.rglob("*.h"), *self.root.rglob("*.cpp")]:
            path.unlink()
        self.assertIn("no sources found", self.run_check().stderr)

    def test_a_lower_library_may_not_use_a_higher_one(self):
        self.expect_fault("vobase/VOString.h", '"vomap/VOScheme.h"',
                          "vobase may not use vomap/VOScheme.h")

    def test_a_library_may_not_use_a_test(self):
        self.write("tests/support/Store.h", "#pragma once\n")
        self.expect_fault("vomap/VOScheme.cpp", '"tests/support/Store.h"',
                          "vomap may not use tests/support/Store.h")

    def test_a_library_may_not_use_an_application(self):
        self.expect_fault("colorscheme/picker/Picker.cpp", '"apps/mapviewer/layers/Layer.h"',
                          "colorscheme/picker may not use apps/mapviewer/layers/Layer.h")

    def test_generators_know_no_record(self):
        self.expect_fault("vomap/generate/even_p.h", '"vomap/VOScheme.h"',
                          "vomap/generate may not use vomap/VOScheme.h")

    def test_files_do_not_know_the_store(self):
        self.expect_fault("vomap/files/Reader_p.h", '"vomap/store/Store_p.h"',
                          "vomap/files may not use vomap/store/Store_p.h")

    def test_only_the_store_interface_uses_the_files(self):
        self.expect_fault("vomap/VOScheme.cpp", '"vomap/files/Reader_p.h"',
                          "vomap may not use vomap/files/Reader_p.h")

    def test_the_editor_does_not_know_the_manager(self):
        self.write("colorscheme/manager/View.h", "#pragma once\n")
        self.expect_fault("colorscheme/editor/Editor.cpp", '"colorscheme/manager/View.h"',
                          "colorscheme/editor may not use colorscheme/manager/View.h")

    def test_the_form_of_the_editor_does_not_know_the_manager(self):
        self.write("colorscheme/manager/View.h", "#pragma once\n")
        self.write("colorscheme/forms/Editor.ui",
                   '<header location="global">colorscheme/manager/View.h</header>\n'
                   "<header>colorscheme/manager/VTLineEditWidget.h</header>\n")
        self.expect("colorscheme/editor/Editor.cpp:4: "
                    "colorscheme/editor may not use colorscheme/manager/View.h")

    def test_manager_and_picker_do_not_know_each_other(self):
        self.expect_fault("colorscheme/picker/Picker.cpp",
                          '"colorscheme/manager/VTLineEditWidget.h"',
                          "colorscheme/picker may not use colorscheme/manager/VTLineEditWidget.h")

    def test_the_layers_of_the_map_do_not_know_the_map(self):
        self.write("apps/mapviewer/map/Map.h", "#pragma once\n")
        self.expect_fault("apps/mapviewer/layers/Layer.h", '"apps/mapviewer/map/Map.h"',
                          "apps/mapviewer/layers may not use apps/mapviewer/map/Map.h")

    def test_inner_headers_stay_inside_their_library(self):
        self.write("vomap/rows_p.h", "#pragma once\n")
        self.expect_fault("colorscheme/editor/Editor.cpp", '"vomap/rows_p.h"',
                          "vomap/rows_p.h is for vomap alone")

    def test_an_installed_header_does_without_inner_ones(self):
        self.expect_fault("colorscheme/editor/Editor.h", '"colorscheme/editor/rows_p.h"',
                          "this header is installed, colorscheme/editor/rows_p.h is not")

    def test_an_inner_header_is_not_installed(self):
        self.write("vomap/CMakeLists.txt",
                   SOUND["vomap/CMakeLists.txt"].replace("rgb_color.h", "rgb_color.h rows_p.h"))
        self.expect("vomap/rows_p.h: is installed and named as an inner header")

    def test_a_host_uses_installed_headers_only(self):
        self.write("vomap/forUs.h", "#pragma once\n")
        self.expect_fault("apps/mapviewer/map/Map.cpp", '"vomap/forUs.h"',
                          "hosts do not get vomap/forUs.h")

    def test_the_records_do_without_drawing(self):
        self.expect_fault("vomap/VOScheme.h", "<QColor>", "vomap may not use QtGui: <QColor>")

    def test_a_module_may_stand_in_the_include(self):
        self.expect_fault("vomap/VOScheme.h", "<QtGui/QColor>",
                          "vomap may not use QtGui: <QtGui/QColor>")

    def test_the_string_does_without_the_toolkit(self):
        self.expect_fault("vobase/VOString.h", "<QString>", "vobase may not use QtCore: <QString>")

    def test_layers_do_without_widgets(self):
        self.expect_fault("apps/mapviewer/layers/Layer.h", "<QWidget>",
                          "apps/mapviewer/layers may not use QtWidgets: <QWidget>")

    def test_a_header_that_the_toolkit_lacks_is_told(self):
        self.expect_fault("vomap/VOScheme.h", "<QNothing>", "<QNothing> is no header of the toolkit")

    def test_an_include_starts_at_the_root(self):
        self.expect_fault("colorscheme/editor/Editor.cpp", '"Editor.h"',
                          'no "Editor.h" below the root of the repository')

    def test_a_test_includes_from_the_root_too(self):
        self.write("tests/vomap/files/samples.h", "#pragma once\n")
        self.expect_fault("tests/vomap/files/tst_reader.cpp", '"samples.h"',
                          'no "samples.h" below the root of the repository')

    def test_an_included_file_exists(self):
        self.expect_fault("vomap/VOScheme.cpp", '"vomap/VOGone.h"',
                          'no "vomap/VOGone.h" below the root of the repository')

    def test_the_form_of_an_include_exists(self):
        self.expect_fault("colorscheme/manager/Manager.cpp", '"ui_Gone.h"',
                          'no form for "ui_Gone.h"')

    def test_a_form_names_headers_that_exist(self):
        self.write("colorscheme/forms/Editor.ui",
                   "<header>VTLineEditWidget.h</header>\n" + SOUND["colorscheme/forms/Editor.ui"])
        self.expect("colorscheme/editor/Editor.cpp:4: "
                    "Editor.ui names VTLineEditWidget.h, which does not exist")

    def test_an_include_with_blanks_is_seen(self):
        self.plant("vobase/VOString.h", ' \t#  include   "vomap/VOScheme.h"')
        self.expect("vobase/VOString.h:2: vobase may not use vomap/VOScheme.h")

    def test_every_folder_has_a_row(self):
        self.write("vomap/extra/new.h", "#pragma once\n")
        self.expect("vomap/extra/new.h:1: the folder vomap/extra has no row in ROOMS")

    def test_a_library_lists_its_headers(self):
        self.write("vobase/CMakeLists.txt", "vt_add_library(vobase SOURCES VOString.cpp)\n")
        faults = self.run_check().stderr.splitlines()
        self.assertIn("vobase/CMakeLists.txt: lists no HEADERS", faults)

    def test_an_exception_that_nothing_needs_is_told(self):
        self.write("vomap/VOColorSchemeManager.cpp", '#include "vomap/files/Reader_p.h"\n')
        self.expect("EXCEPTIONS: nothing needs vomap/VOColorSchemeManager.cpp -> vomap/store")


if __name__ == "__main__":
    unittest.main()
