import copy
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import qzfileshared as qz

MACHINE = """<?xml version="1.0" encoding="UTF-8"?>
<ApplicationSettings><jobs><processors dt="int">8</processors></jobs></ApplicationSettings>
"""


class Scene(unittest.TestCase):
    """A user and a working directory of the test's own."""

    def setUp(self):
        scene = tempfile.TemporaryDirectory()
        self.addCleanup(scene.cleanup)
        self.root = pathlib.Path(scene.name)
        environment = dict(os.environ)
        directory = os.getcwd()
        self.addCleanup(lambda: (os.environ.clear(), os.environ.update(environment)))
        self.addCleanup(os.chdir, directory)
        os.environ.update(
            HOME=scene.name, HALCYRA=scene.name, HALCYRA_QZPREF_SANDBOX=scene.name,
            HALCYRA_MACHINE_PREFERENCE=str(self.root / "machine.xml"),
            HALCYRA_SITE_PREFERENCE=str(self.root / "site.xml"))
        os.chdir(scene.name)
        qz.set_search_path(".")


class PreferencesTest(Scene):
    def test_values_come_back_by_their_type(self):
        values = [True, False, 0, -(2**31), 2**31 - 1, 0.1, -1e300, " x ", "Wärme in Öl", "3"]
        with qz.Preferences(qz.Product.ATELIO) as preferences:
            for number, value in enumerate(values):
                preferences[f"types/k{number}"] = value
        with qz.Preferences(qz.Product.ATELIO) as preferences:
            for number, value in enumerate(values):
                with self.subTest(value=value):
                    found = preferences[f"types/k{number}"]
                    self.assertEqual(found, value)
                    self.assertIs(type(found), type(value))
            self.assertEqual(preferences.values(bool, "types"), {"k0": True, "k1": False})
            self.assertEqual(preferences.values(str, "types")["k8"], "Wärme in Öl")
            self.assertEqual(preferences.values(float, "types"), {"k5": 0.1, "k6": -1e300})

    def test_what_cannot_be_stored_is_refused(self):
        with qz.Preferences(qz.Product.ATELIO) as preferences:
            preferences["a/b"] = 1
            refused = [
                ("a/b", "text", qz.PreferenceError, "a key keeps its type"),
                ("a/c", 2**31, OverflowError, "beyond 32 bits"),
                ("a/c", None, TypeError, "no type of a preference"),
                ("a/c", "x\0y", ValueError, "a NUL would end the text"),
                ("1a/c", 1, qz.PreferenceError, "a key that is no XML name"),
            ]
            with qz.capture_messages():
                for key, value, error, why in refused:
                    with self.subTest(why), self.assertRaises(error):
                        preferences[key] = value
            self.assertEqual(preferences["a/b"], 1)
            self.assertNotIn("a/c", preferences)

    def test_a_missing_key(self):
        with qz.Preferences(qz.Product.ATELIO) as preferences:
            with self.assertRaises(KeyError) as failure:
                preferences["no/key"]
            self.assertEqual(failure.exception.code, qz.ErrorCode.KEY_NOT_FOUND)
            self.assertEqual(str(failure.exception), "no/key: key not found")
            self.assertEqual(preferences.get("no/key", 7), 7)
            with self.assertRaises(KeyError):
                del preferences["no/key"]

    def test_listings_leave_the_groups_as_they_were(self):
        with qz.Preferences(qz.Product.ATELIO) as preferences:
            preferences["g/h/n"] = 5
            with preferences.group("g"):
                self.assertEqual(preferences.values(int, "none"), {})
                with qz.capture_messages():
                    self.assertEqual(preferences.values(int, "1 bad"), {"h/n": 5})
                self.assertEqual(preferences.current_group, "g")
                self.assertEqual(preferences["h/n"], 5)
            self.assertEqual(preferences.current_group, "")
            self.assertEqual(preferences.subgroups(), ["g", "g/h"])
            self.assertEqual(preferences.subgroups(1), ["g"])
            self.assertEqual(preferences.remove_group("g"), 1)

    def test_layers(self):
        (self.root / "machine.xml").write_text(MACHINE)
        with qz.Preferences(qz.Product.ATELIO) as preferences:
            self.assertEqual(preferences["jobs/processors"], 8)
            preferences["jobs/processors"] = 4
            other = next(p for p in qz.Platform if p.name.lower() != sys.platform)
            with preferences.platform(other):
                preferences["jobs/processors"] = 2
            self.assertEqual(preferences["jobs/processors"], 4)
            preferences.sync()
            self.assertEqual(qz.explain(qz.Product.ATELIO, "jobs/processors")["winner"], "user")
            del preferences["jobs/processors"]
            self.assertEqual(preferences["jobs/processors"], 8)
        self.assertEqual(qz.explain(qz.Product.ATELIO, "no/key")["winner"], "not found")
        with self.assertRaises(qz.PreferenceError):
            qz.explain(99, "no/key")

    def test_closed_and_unknown(self):
        preferences = qz.Preferences(qz.Product.TARVEX)
        with self.assertRaises(TypeError):
            copy.copy(preferences)
        preferences.close()
        preferences.close()
        with self.assertRaises(ValueError):
            preferences["a"]
        with self.assertRaises(qz.PreferenceError) as failure:
            qz.Preferences(99)
        self.assertEqual(failure.exception.code, qz.ErrorCode.UNKNOWN_PRODUCT)


class MessagesTest(Scene):
    def test_captures_nest(self):
        with qz.capture_messages() as outer:
            qz.throw(-1, qz.Level.FATAL, "100 % before")
            with qz.capture_messages(level=qz.Level.DEBUG) as inner:
                qz.throw(-1, qz.Level.DEBUG, "inside")
            qz.throw(-1, qz.Level.DEBUG, "too low again")
            qz.throw(-1, qz.Level.WARNING, "after")
        self.assertEqual(outer, ["FATAL 100 % before", "WARNING after"])
        self.assertEqual(inner, ["DEBUG inside"])

    def test_standard_error_is_silent_meanwhile_only(self):
        program = ("import qzfileshared as qz\n"
                   "with qz.capture_messages():\n"
                   "    qz.throw(-1, 5, 'during')\n"
                   "qz.throw(-1, 5, 'after')\n")
        run = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True)
        self.assertEqual((run.returncode, run.stderr), (0, "FATAL after"))

    def test_a_handler_of_ones_own(self):
        messages = []
        with qz.ErrorHandler(messages.append, prefix="mesher: ") as handler:
            self.assertTrue(handler.throw(qz.Level.WARNING, "flat"))
            self.assertTrue(handler.throw(qz.Level.INFO, "unseen"))
            self.assertEqual(handler.max_level, qz.Level.WARNING)
            handler.level = qz.Level.INFO
            handler.throw(qz.Level.INFO, "seen")
        self.assertEqual(messages, ["mesher: WARNING flat", "mesher: INFO seen"])
        self.assertFalse(handler.throw(qz.Level.FATAL, "closed"))

    def test_a_function_that_raises_fails_the_throw(self):
        with qz.ErrorHandler(lambda message: 1 / 0) as handler:
            self.assertFalse(handler.throw(qz.Level.FATAL, "x"))
        with self.assertRaises(ValueError):
            qz.ErrorHandler(prefix="x" * 512)


class FilesTest(Scene):
    def test_lookup(self):
        (self.root / "a").mkdir()
        (self.root / "a" / "Größe.dat").touch()
        qz.set_search_path("a", "C:\\b")
        qz.add_to_search_path("c")
        self.assertEqual(qz.search_path(), ["a", "C:\\b", "c"])
        path = qz.find("Größe.dat")
        self.assertEqual(path, "a\\Größe.dat")
        self.assertTrue(os.path.exists(qz.native_path(path)))
        self.assertIsNone(qz.find("none"))
        self.assertFalse(qz.exists("Größe.dat", directory=True))
        self.assertTrue(qz.exists(self.root, directory=True))
        with self.assertRaises(ValueError), qz.capture_messages():
            qz.add_to_search_path("")

    def test_expansion(self):
        os.environ["QZ_TEST"] = "b"
        self.assertEqual(qz.expand("$QZ_TEST/c"), "b/c")
        self.assertEqual(qz.expand(pathlib.Path("~/c")), f"{self.root}/c")
        with qz.capture_messages() as messages, self.assertRaises(LookupError):
            qz.expand("~no_such_user/x")
        self.assertIn("no_such_user", messages[0])


if __name__ == "__main__":
    unittest.main()
