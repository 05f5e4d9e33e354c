# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""With a low limit on open files, the program starts or exits with a message; it never hangs or crashes."""

import os
import resource
import shutil
import subprocess
import sys
import tempfile
import unittest

from timed import timely

# The files that the program needs in addition to its three streams.
NEEDED = 32
STREAMS = 3
MESSAGE = "it may have too few open files"
# The maximum time of a failed start, in seconds.
LONGEST_END = 1.0
# A program that still runs after this time, in seconds, has started.
STARTED = 2.0


class FewFiles(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tonalith-files-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.stage = os.path.join(self.folder, "stage")
        shutil.copytree(sys.argv[1], self.stage)

    def start(self, soft, hard):
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "HOME": self.folder, "ALSOFT_DRIVERS": "null"}
        return subprocess.Popen(
            [os.path.join(self.stage, "tonalith")], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.PIPE, text=True, env=environment, cwd=self.folder,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (soft, hard)))

    def require_start(self, soft, hard):
        with self.start(soft, hard) as program:
            try:
                with self.assertRaises(subprocess.TimeoutExpired, msg=f"it ended with {soft} files"):
                    program.wait(STARTED)
            finally:
                program.kill()

    def test_too_few_files_are_named_as_the_cause(self):
        for count in range(8, STREAMS + NEEDED):
            with self.subTest(files=count), self.start(count, count) as program:
                try:
                    _, output = program.communicate(timeout=timely(LONGEST_END))
                finally:
                    program.kill()
                self.assertEqual(program.returncode, 1, output)
                self.assertIn(MESSAGE, output)
                self.assertIn(f"the limit is {count},", output)

    def test_as_many_files_as_needed_are_enough(self):
        self.require_start(STREAMS + NEEDED, STREAMS + NEEDED)

    def test_a_limit_that_can_be_raised_is_raised(self):
        self.require_start(16, 256)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
