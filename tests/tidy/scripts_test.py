"""What ./run and ./test do before anything is built: waiting for another apt-get, and showing how far they are."""

import fcntl
import os
import pathlib
import pty
import shutil
import subprocess
import tempfile
import threading
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class ScriptsTest(unittest.TestCase):
    """Functions of scripts/common.sh in an empty folder, with programs of its own before those of the machine."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "bin").mkdir()

    def program(self, name, text):
        path = self.folder / "bin" / name
        path.write_text("#!/bin/sh\n" + text + "\n", encoding="utf-8")
        path.chmod(0o755)

    def run_shell(self, line, **more):
        environment = dict(os.environ, PATH=f"{self.folder}/bin:{os.environ['PATH']}", TZ_APT_PAUSE="0.1", **more)
        return subprocess.run(["bash", "-c", f'. "{ROOT}/scripts/common.sh"; {line}'], cwd=self.folder, text=True,
                              env=environment, capture_output=True, check=False, timeout=60)

    def on_terminal(self, line):
        """What a terminal at standard error is sent."""
        reader, writer = pty.openpty()
        process = subprocess.Popen(["bash", "-c", f'. "{ROOT}/scripts/common.sh"; {line}'], cwd=self.folder,
                                   env=dict(os.environ, PATH=f"{self.folder}/bin:{os.environ['PATH']}"),
                                   stdout=subprocess.PIPE, stderr=writer)
        os.close(writer)
        process.communicate(timeout=60)
        text = b""
        try:
            while piece := os.read(reader, 4096):
                text += piece
        except OSError:
            pass  # nobody holds the other end any more
        os.close(reader)
        return text.decode()


class WaitingTest(ScriptsTest):
    def setUp(self):
        super().setUp()
        self.program("dpkg-query", "exit 1")  # nothing is installed
        self.program("sudo", 'exec "$@"')
        (self.folder / "list.txt").write_text("zip\n", encoding="utf-8")

    def apt_get(self, words):
        """An apt-get that finds the lock of its first word held for three calls, as apt says it, then does as told."""
        self.program("apt-get", f"""
case " $* " in
  *" update "*) lock=/var/lib/apt/lists/lock ;;
  *) lock=/var/lib/dpkg/lock-frontend ;;
esac
count=$(cat calls 2>/dev/null || echo 0)
echo $((count + 1)) >calls
if [ "$count" -lt 3 ]; then
  echo "E: Could not get lock $lock. It is held by process 4711 (apt-get)" >&2
  exit 100
fi
{words}""")

    def test_another_apt_get_is_waited_for(self):
        self.apt_get("exit 0")
        done = self.run_shell("install_without_cluster() { apt install \"$@\"; }; install_packages list.txt")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stderr.count("waiting"), 1, "said once: " + done.stderr)
        self.assertIn("held by process 4711 (apt-get)", done.stderr)
        self.assertNotIn("password", done.stderr)

    def test_the_dpkg_lock_is_waited_for(self):
        self.apt_get("exit 0")
        done = self.run_shell("apt install zip")
        self.assertEqual((done.returncode, done.stderr.count("waiting")), (0, 1), done.stderr)

    def test_a_failure_tells_its_reason(self):
        self.apt_get('echo "E: Unable to locate package zip" >&2; exit 100')
        done = self.run_shell("install_without_cluster() { apt install \"$@\"; }; install_packages list.txt")
        self.assertEqual(done.returncode, 1)
        self.assertIn("E: Unable to locate package zip", done.stderr)
        self.assertNotIn("password", done.stderr)

    @unittest.skipUnless(shutil.which("apt-get"), "no apt-get")
    def test_the_real_locks_are_waited_for(self):
        """apt-get itself, over folders of its own in which a lock is held for a while."""
        state = self.folder / "state"
        for folder in (state / "lists/partial", self.folder / "cache/archives/partial", self.folder / "etc"):
            folder.mkdir(parents=True)
        (state / "status").touch()
        (self.folder / "apt.conf").write_text(
            f'Dir::State "{state}"; Dir::State::status "{state}/status"; Dir::Cache "{self.folder}/cache";'
            f'Dir::Etc "{self.folder}/etc"; APT::Sandbox::User "{os.environ.get("USER", "root")}";', encoding="utf-8")
        for words, lock in (("update", state / "lists/lock"), ("install", state / "lock-frontend")):
            with open(lock, "w", encoding="utf-8") as held:
                fcntl.lockf(held, fcntl.LOCK_EX)
                release = threading.Timer(1, held.close)
                release.start()
                done = self.run_shell(f"apt {words}", APT_CONFIG=str(self.folder / "apt.conf"))
                release.join()
            self.assertEqual((done.returncode, done.stderr.count("waiting")), (0, 1), done.stderr)


class ProgressTest(ScriptsTest):
    def setUp(self):
        super().setUp()
        self.program("cmake", 'mkdir -p build/x && touch build/x/build.ninja; echo "-- Configuring done"')
        self.program("ninja", """
if [ -f made ]; then echo "ninja: no work to do."; exit 0; fi
touch made
echo "[1/2] Building CXX object src/CMakeFiles/a.dir/data/value.cpp.o"
echo "[2/2] Linking CXX executable src/tzassistant"
""")

    def test_a_terminal_shows_how_far_a_build_is(self):
        shown = self.on_terminal("build x all")
        self.assertIn("\r\x1b[K[1/2] Building CXX object value.cpp.o", shown)
        self.assertIn("\r\x1b[K[2/2] Linking CXX executable tzassistant", shown)
        self.assertTrue(shown.rstrip().split("\r\x1b[K")[-1].startswith("Built build/x in"), "the line was not wiped")
        self.assertEqual(self.on_terminal("build x all"), "", "nothing was built, and something is said")

    def test_elsewhere_nothing_is_shown(self):
        done = self.run_shell("build x all")
        self.assertNotIn("\x1b", done.stderr)
        self.assertNotIn("[1/2]", done.stderr)
        self.assertIn("[1/2]", (self.folder / "build/x.log").read_text(encoding="utf-8"))
        self.assertEqual(self.run_shell("build x all").stderr, "")

    def test_a_build_that_fails_is_a_failure(self):
        self.program("ninja", 'echo "[1/2] Building"; echo "a.cpp:1: error: no"; exit 1')
        done = self.run_shell("build x all")
        self.assertEqual(done.returncode, 1)
        self.assertIn("a.cpp:1: error: no", done.stderr)


if __name__ == "__main__":
    unittest.main()
