#!/usr/bin/env -S python3 -B
"""tools/mutate: the mutants that it makes of a source, and what it does with them. The last line is "N passed, N failed".

The builds are stand-ins: "cmake" takes a copied source that has no word BROKEN in it, and the suite passes as long as
the source says what the stand-in expects of it."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

ROOT = pathlib.Path(os.environ.get("ROOT") or pathlib.Path(__file__).resolve().parents[2])
sys.path.insert(0, str(ROOT / "tools"))

from mutation.mutants import enumerators_of, mutants_of  # noqa: E402
from mutation.tokens import Source  # noqa: E402


def changes(text):
    source = Source("src/x.cpp", text)
    return [(text[m.start:m.end], m.after) for m in mutants_of(source, enumerators_of([source]))]


def in_function(body):
    return changes("int f() {\n    " + body + "\n}\n")


class Tokens(unittest.TestCase):
    def test_operators_between_operands_change(self):
        self.assertEqual(in_function("return a < b || a == c;"), [("<", "<="), ("||", "&&"), ("==", "!=")])
        self.assertEqual(in_function("return a + b - c % d << e & f;"),
                         [("+", "-"), ("-", "+"), ("%", "*"), ("<<", ">>"), ("&", "|")])
        self.assertEqual(in_function("return a +\n        b;"), [("+", "-")])

    def test_signs_before_an_operand_go(self):
        self.assertEqual(in_function("return !a || -b;"), [("!", ""), ("||", "&&"), ("-", "")])
        self.assertEqual(in_function("return flags & ~a;"), [("&", "|"), ("~", "")])

    def test_brackets_of_templates_pointers_and_references_are_no_operators(self):
        self.assertEqual(changes("template <class T> void f(const std::vector<T*>& a, T&& b, T* c);"), [])
        self.assertEqual(in_function("return g<std::span<int>>(*a, &b)->*c;"), [])

    def test_numbers_grow_by_one_as_they_are_written(self):
        self.assertEqual(in_function("return 0 + 1'000 + 0xFFu + 2.5f;")[::2],
                         [("0", "1"), ("1'000", "1001"), ("0xFFu", "0x100u"), ("2.5f", "3.5f")])

    def test_a_virtual_function_without_a_body_stays_one(self):
        self.assertEqual(changes("struct S {\n    virtual void f() const = 0;\n};"), [])

    def test_words_turn_into_their_opposites(self):
        self.assertEqual(in_function("return std::min(True, false);"),
                         [("min", "max"), ("True", "False"), ("false", "true")])
        self.assertEqual(changes("const short True = x;"), [])

    def test_enumerators_turn_into_the_next_of_their_enumeration(self):
        declared = "enum Side { Top, Left };\nenum class Kind { Top, Other };\n"
        self.assertEqual(changes(declared + "int f() { return Left; }"), [("Left", "Top")])
        self.assertEqual(changes(declared + "int f() { return g(Kind::Top, Side::Top); }"),
                         [("Top", "Other"), ("Top", "Left")])
        self.assertEqual(changes(declared + "int f() { switch (x) { case Top: break; default: g(); } }"), [("g();", "{}")])

    def test_what_is_no_code_stays(self):
        self.assertEqual(in_function('// a < 1\n/* a < 1 */ return "a < 1 \\" + 2" \'+\' R"x(" < 1)x";'), [])
        self.assertEqual(changes("#include <a>\n#if A > 1 && \\\n    B > 2\n#endif\n  # define X 1 + 1\n"), [])

    def test_checks_stay(self):
        self.assertEqual(in_function("static_assert(a < 1);"), [])
        self.assertEqual(in_function("assert(a < 1);"), [])

    def test_a_loop_steps_in_its_direction(self):
        self.assertEqual(in_function("for (i = a; i != b; ++i) ++c;"),
                         [("!=", "=="), ("++", "--"), ("++c;", "{}")])

    def test_names_of_operators_and_destructors_stay(self):
        self.assertEqual(changes("struct S {\n    ~S();\n    bool operator == (S) const;\n};"), [])


class Statements(unittest.TestCase):
    def removed(self, body):
        return [before for before, after in in_function(body) if after == "{}"]

    def swapped(self, body):
        return [(before, after) for before, after in in_function(body) if before.count(";") == 2]

    def test_calls_and_assignments_go(self):
        self.assertEqual(self.removed("a.b(c); *d = e; f->g[h] = i; a::b<c>(d); delete j; return k;"),
                         ["a.b(c);", "*d = e;", "f->g[h] = i;", "a::b<c>(d);", "delete j;"])

    def test_declarations_stay(self):
        self.assertEqual(self.removed("int a = 0; std::vector<int> b(a); T* c = &a; const auto& [d, e] = b; "
                                      "auto f = g(); using h = int; T i{c, d, e, f}; return b(i);"), [])

    def test_guards_go(self):
        self.assertEqual(self.removed("const Clip clip(dc); Guard guard{a}; Guard used(b); return used.c;"),
                         ["const Clip clip(dc);", "Guard guard{a};"])

    def test_early_exits_go_but_not_the_last(self):
        self.assertEqual(self.removed("if (a) return b; while (c) { if (d) break; continue; } return e;"),
                         ["return b;", "break;", "continue;"])

    def test_nothing_goes_that_would_let_a_case_fall_through(self):
        self.assertEqual(self.removed("switch (a) { case b: c(); break; case d: return e; default: f(); } return g;"),
                         ["c();", "f();"])

    def test_statements_in_lambdas_and_nested_blocks_are_found(self):
        self.assertEqual(self.removed("a([&](int b) { c(b); return b; }); try { d(); } catch (...) { e(); } "
                                      "do { f(); } while (g); if (h) i(); else j(); return k;")[1:],
                         ["c(b);", "d();", "e();", "f();", "i();", "j();"])

    def test_statements_of_members_and_constructors_are_found(self):
        text = ("namespace n {\nclass C : public B {\npublic:\n    explicit C(int a) : B{a}, b_(a) { c(); }\n"
                "    auto d() const -> std::vector<int> { return e(); }\n    int f() const noexcept { g(); return h; }\n"
                "    int b_{};\n};\n}\n")
        self.assertEqual([before for before, after in changes(text) if after == "{}"], ["c();", "g();"])

    def test_what_says_that_an_argument_is_unused_stays(self):
        self.assertEqual(self.removed("static_cast<void>(a); static_cast<void>(b()); return c;"),
                         ["static_cast<void>(b());"])

    def test_neighbours_are_swapped_when_one_is_a_call(self):
        self.assertEqual(self.swapped("a();\n    b = c; d = e; return f;"),
                         [("a();\n    b = c;", "b = c;\n    a();")])
        self.assertEqual(self.swapped("if (a) b();\n    c(); return d;"), [])


class TheSourceItself(unittest.TestCase):
    def test_every_function_is_read(self):
        """Every mutant's place holds what its difference says, and hardly a file has none."""
        files = sorted((ROOT / "src").rglob("*.cpp"))
        sources = [Source(str(file), file.read_bytes().decode()) for file in files]
        enumerators = enumerators_of(sources)
        made = [mutants_of(source, enumerators) for source in sources]
        self.assertGreater(len(files), 50)
        self.assertLess(sum(not mutants for mutants in made), len(files) / 10)
        for mutant in (mutant for mutants in made for mutant in mutants):
            self.assertRegex(mutant.diff, r"\[-.*-\]\{\+.*\+\}")
            self.assertGreater(mutant.end, mutant.start)


CHECKOUT = ("tools/mutate", "tools/mutation", "scripts/lib")
SOURCE = "bool f(int a, int b) {\n    return a < b;\n}\n"
KILLED = "killed by core [native]"
SHOWN = "src/base/f.cpp:2: return a [-<-]{+<=+} b;"


class Command(unittest.TestCase):
    """The command in a checkout of one source and one suite. "build" and "test" are what its stand-ins run in the copy;
    only the native build has to do with the source."""

    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp(dir=os.getcwd()))
        self.addCleanup(shutil.rmtree, self.root)
        self.copy = self.root / "build/mutate"
        for path in CHECKOUT:
            self.take(path)
        self.write("src/base/f.cpp", SOURCE)
        self.write("tests/suites/core.suite", "builds = native\nprogram = tests/core_tests\n")
        self.build, self.test = "true", "grep -q 'a < b' src/base/f.cpp"
        self.programs()

    def take(self, path):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        (shutil.copytree if (ROOT / path).is_dir() else shutil.copy)(ROOT / path, target)

    def write(self, path, text):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text)
        return target

    def edit(self, path, before, after):
        text = (self.root / path).read_text()
        self.assertIn(before, text)
        self.write(path, text.replace(before, after))

    def program(self, name, *lines):
        text = "\n".join(["#!/usr/bin/env bash", f'cd "{self.copy}"', *lines]) + "\n"
        self.write(f"build/bin/{name}", text).chmod(0o755)

    def programs(self):
        self.program("cmake", "preset=${*: -1}", f"tests=build/$preset/tests; build() {{ {self.build}; }}",
                     '[[ $* != *--preset* ]] || { mkdir -p $tests; ln -sf ../../../../bin/core_tests $tests; exit; }',
                     "build || { echo 'ninja: build stopped: subcommand failed.'; exit 1; }")
        self.program("ninja", "case $* in *native*inputs*core_tests) echo f.o ;;",
                     r"*native*deps) printf 'f.o: #deps 1, deps mtime 1 (VALID)\n    ../../src/base/f.cpp\n\n' ;; esac")
        self.program("core_tests", f"if {self.test}; then",
                     "    echo '[doctest] test cases: 1 | 1 passed | 0 failed | 0 skipped'", "else",
                     "    echo '[doctest] test cases: 1 | 0 passed | 1 failed | 0 skipped'; exit 1", "fi")
        self.program("wine", "[[ $1 != --version ]] || echo wine-8.0")
        self.program("wineboot", 'mkdir -p "$WINEPREFIX/drive_c"; touch "$WINEPREFIX/user.reg"')
        self.program("wineserver")

    def start(self, *arguments):
        self.programs()
        environment = {**os.environ, "PATH": f"{self.root}/build/bin:{os.environ['PATH']}"}
        return subprocess.Popen([self.root / "tools/mutate", *arguments], env=environment, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def mutate(self, *arguments):
        process = self.start(*arguments)
        output = process.communicate(timeout=100)[0]
        return process.returncode, output

    def expect(self, status, *parts, arguments=()):
        found, output = self.mutate(*arguments)
        for part in parts:
            self.assertIn(part, output)
        self.assertEqual(found, status, output)
        return output

    def copied_source(self):
        copy = self.copy / "src/base/f.cpp"
        return copy.read_text() if copy.exists() else SOURCE

    def wait_for(self, condition, process):
        end = time.monotonic() + 60
        while not condition():
            self.assertIsNone(process.poll())
            self.assertLess(time.monotonic(), end)
            time.sleep(0.05)

    # Verdicts

    def test_a_mutant_that_a_suite_notices_is_killed(self):
        output = self.expect(0, "Without a mutant: core [native]", f"[1/1] {KILLED}, ", SHOWN, "1 killed")
        self.assertNotIn("Survivors", output)

    def test_a_mutant_that_no_suite_notices_survives(self):
        self.test = "true"
        self.expect(1, "[1/1] SURVIVED, ", f"Survivors:\n  {SHOWN}\n", "1 SURVIVED")

    def test_a_mutant_that_the_compiler_refuses_is_no_survivor(self):
        self.build, self.test = "! grep -q '<=' src/base/f.cpp", "true"
        self.expect(0, "[1/1] does not compile for native, ", "1 does not compile")

    def test_a_mutant_that_does_not_end_is_no_survivor(self):
        self.edit("tools/mutation/trial.py", "30 + 4 *", "1 +")
        self.test = "! grep -q '<=' src/base/f.cpp || exec sleep 60"
        self.expect(0, "[1/1] timed out in core [native], ", "1 timed out")

    def test_a_build_that_does_not_end_says_nothing_of_the_compiler(self):
        self.edit("tools/mutation/workplace.py", "LONGEST_BUILD = 1800", "LONGEST_BUILD = 8")
        self.build = "! grep -q '<=' src/base/f.cpp || exec sleep 60"
        self.expect(0, "[1/1] timed out in core [native], ", "1 timed out")

    def test_every_mutant_is_judged_by_itself(self):
        self.write("src/base/f.cpp", "bool f(int a, int b) {\n    return a < b && a != b;\n}\n")
        self.test = "grep -qe 'a < b.*a != b' -e 'a < b ||' src/base/f.cpp"
        self.expect(1, f"[1/3] {KILLED}", "[2/3] SURVIVED", f"[3/3] {KILLED}", "1 SURVIVED, 2 killed")

    # What is refused

    def test_a_suite_that_fails_without_a_mutant_is_refused(self):
        self.test = "false"
        self.expect(2, "core [native] fails without a mutant")

    def test_a_source_that_does_not_compile_is_refused(self):
        self.build = "false"
        self.expect(2, "FAILED: Building native")

    def test_a_build_that_breaks_by_itself_is_no_verdict(self):
        self.build = "! grep -q '<=' src/base/f.cpp || { echo 'cannot fork'; exit 1; }"
        self.expect(2, "building broke for another reason", "cannot fork")

    def test_a_second_one_at_a_time_is_refused(self):
        self.test = "! grep -q '<=' src/base/f.cpp || exec sleep 60"
        first = self.start()
        self.wait_for(lambda: self.copied_source() != SOURCE, first)
        self.expect(2, "another tools/mutate is at work")
        first.send_signal(signal.SIGINT)
        first.communicate(timeout=60)

    def test_unknown_arguments_are_refused(self):
        for wrong in (["--bogus"], ["--sample", "0"], ["--sample", "x"], ["--at", "f.cpp"], ["f.cpp"]):
            self.expect(2, "usage: tools/mutate", arguments=wrong)
        self.expect(0, "usage: tools/mutate", arguments=["--help"])

    def test_nothing_to_judge_is_refused(self):
        self.expect(2, "there is no such mutant", arguments=["--file", "g.cpp"])

    # The checkout

    def test_the_checkout_is_only_read(self):
        before = sorted((file, file.stat().st_mtime_ns) for file in (self.root / "src").rglob("*"))
        self.expect(0)
        self.assertEqual(sorted((file, file.stat().st_mtime_ns) for file in (self.root / "src").rglob("*")), before)
        self.assertEqual(self.copied_source(), SOURCE)

    def test_the_copy_follows_the_checkout(self):
        self.write("src/base/g.cpp", SOURCE)
        self.expect(1, "[2/2]")
        (self.root / "src/base/g.cpp").unlink()
        self.write("src/base/f.cpp", SOURCE.replace("bool", "auto"))
        self.expect(0, "[1/1]")
        self.assertFalse((self.copy / "src/base/g.cpp").exists())
        self.assertEqual(self.copied_source(), SOURCE.replace("bool", "auto"))

    def test_a_copy_is_new_however_old_its_original_is(self):
        os.utime(self.write("CMakeLists.txt", ""), (1, 1))
        self.expect(0)
        self.assertGreater((self.copy / "CMakeLists.txt").stat().st_mtime, 1)

    def test_the_suites_are_measured_once(self):
        self.expect(0)
        self.assertNotIn("Without a mutant", self.expect(0, KILLED))
        self.write("tests/base/fTest.cpp", "changed")
        self.expect(0, "Without a mutant")

    # Interruptions

    def interrupt(self, kind):
        pid = self.root / "build/pid"
        pid.unlink(missing_ok=True)
        self.test = f"! grep -q '<=' src/base/f.cpp || {{ echo $$ >{pid}.new; mv {pid}.new {pid}; exec sleep 60; }}"
        process = self.start()
        self.wait_for(pid.exists, process)
        process.send_signal(kind)
        output = process.communicate(timeout=60)[0]
        self.test = "grep -q 'a < b' src/base/f.cpp"
        return process.returncode, output, int(pid.read_text())

    def test_an_interruption_leaves_nothing_behind(self):
        for kind in (signal.SIGINT, signal.SIGTERM):
            status, output, suite = self.interrupt(kind)
            self.assertEqual(status, 130, output)
            self.assertRaises(ProcessLookupError, os.kill, suite, 0)
            self.assertIn("Interrupted\nnone was judged", output)
            self.assertEqual(self.copied_source(), SOURCE)

    def test_a_sudden_end_leaves_nothing_that_matters(self):
        os.kill(self.interrupt(signal.SIGKILL)[2], signal.SIGKILL)
        self.assertNotEqual(self.copied_source(), SOURCE)
        self.expect(0, KILLED, "1 killed")
        self.assertEqual(self.copied_source(), SOURCE)

    # The choice

    def test_the_list_needs_no_build(self):
        self.assertEqual(self.mutate("--list"), (0, f"{SHOWN}\n"))
        self.assertFalse(self.copy.exists())

    def test_files_and_lines_choose(self):
        self.write("src/png/g.cpp", SOURCE + SOURCE)
        listed = {arguments: self.mutate("--list", *arguments)[1].count("\n")
                  for arguments in ((), ("--file", "src/png/*"), ("--file", "f.cpp"), ("--file", "f.cpp", "--file", "g.cpp"),
                                    ("--at", "g.cpp:5"), ("--at", "src/png/g.cpp:2"))}
        self.assertEqual(list(listed.values()), [3, 2, 1, 3, 1, 1])

    def test_a_seed_draws_the_same_again(self):
        self.write("src/base/f.cpp", "".join(SOURCE.replace("f(", f"f{i}(") for i in range(30)))
        drawn = self.mutate("--list", "--sample", "5")[1]
        seed = drawn.splitlines()[0].rsplit(" ", 1)[1]
        self.assertEqual(drawn.count("\n"), 6)
        self.assertEqual(self.mutate("--list", "--sample", "5", "--seed", seed)[1], drawn)
        self.assertNotEqual(self.mutate("--list", "--sample", "5", "--seed", seed + "1")[1].splitlines()[1:],
                            drawn.splitlines()[1:])


if __name__ == "__main__":
    suite = unittest.defaultTestLoader.loadTestsFromModule(sys.modules[__name__])
    result = unittest.TextTestRunner(stream=sys.stdout).run(suite)
    failed = len(result.failures) + len(result.errors)
    print(f"{result.testsRun - failed} passed, {failed} failed")
    sys.exit(0 if failed == 0 and result.testsRun > 0 else 1)
