#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""The rules of who may know whom, on small projects made for each test."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).resolve().parents[2] / "tools" / "check_includes"


def check(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        run = subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True, check=False)
        return run.returncode, run.stdout


class CheckIncludes(unittest.TestCase):
    def accepts(self, files):
        status, told = check(files)
        self.assertEqual(status, 0, told)

    def refuses(self, files, words):
        status, told = check(files)
        self.assertEqual(status, 1, told)
        self.assertIn(words, told)

    def test_an_include_may_go_down(self):
        self.accepts({"src/runtime/a.h": '#include "platform/b.h"\n', "src/platform/b.h": "#include <string>\n"})

    def test_an_include_may_not_go_up(self):
        self.refuses({"src/platform/a.h": '#include "runtime/b.h"\n', "src/runtime/b.h": ""},
                     "src/platform may not know src/runtime/b.h")

    def test_logic_never_knows_a_backend_or_the_engine(self):
        self.refuses({"src/core/a.h": '#include "linux/b.h"\n', "backends/linux/b.h": ""}, "may not know")
        self.refuses({"src/core/a.h": '#include "engine/b.h"\n', "engine/b.h": ""}, "may not know")

    def test_of_core_only_the_recogniser_is_a_ground_room(self):
        files = {"src/core/recogniser.h": "", "src/core/dispatch.h": ""}
        self.accepts({**files, "src/speech/a.h": '#include "core/recogniser.h"\n'})
        self.refuses({**files, "src/speech/a.h": '#include "core/dispatch.h"\n'}, "may not know")

    def test_the_engine_knows_two_headers_of_the_platform(self):
        files = {"src/platform/error.h": "", "src/platform/controls.h": ""}
        self.accepts({**files, "engine/a.h": '#include "platform/error.h"\n'})
        self.refuses({**files, "engine/a.h": '#include "platform/controls.h"\n'}, "may not know")

    def test_the_simulated_backend_does_not_know_the_engine(self):
        self.refuses({"engine/b.h": "", "backends/simulated/a.h": '#include "engine/b.h"\n'}, "may not know")

    def test_files_form_no_circle(self):
        self.refuses({"src/runtime/a.h": '#include "runtime/b.h"\n', "src/runtime/b.h": '#include "runtime/a.h"\n'},
                     "circle: ")

    def test_logic_uses_the_standard_library_alone(self):
        self.refuses({"src/core/a.h": "#include <unistd.h>\n"}, "standard library alone")

    def test_logic_has_no_threads_clocks_or_environment(self):
        for line in ("#include <thread>", "auto t = std::chrono::steady_clock::now();", 'getenv("HOME");'):
            self.refuses({"src/core/a.h": line + "\n"}, "no threads, clocks or environment")

    def test_an_include_of_nothing_is_told(self):
        self.refuses({"src/core/a.h": '#include "core/nothing.h"\n'}, "which is nowhere")

    def test_an_empty_folder_proves_nothing(self):
        self.assertEqual(check({})[0], 1)


if __name__ == "__main__":
    unittest.main()
