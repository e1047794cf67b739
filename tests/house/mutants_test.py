#!/usr/bin/env python3
"""The changes that scripts/mutants makes: each operator yields what it should, and nothing where it should not."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

from trust import covered, floors, operators, sample, tokens, verdicts  # noqa: E402


def changed(kind, source):
    """What a source becomes by each change of a kind."""
    return [change.apply(source) for change in operators.changes_in(source) if change.kind == kind]


class Operators(unittest.TestCase):
    def test_comparisons_move_by_one_step_and_templates_stay(self):
        self.assertEqual(changed("comparison", "x = a < b;"), ["x = a <= b;"])
        self.assertEqual(changed("comparison", "x = a == b;"), ["x = a != b;"])
        self.assertEqual(changed("comparison", "std::vector<int> a; template <typename T> T f(); b->c <=> d;"), [])
        self.assertEqual(changed("comparison", "bool operator<(const A& a, const A& b);"), [])

    def test_conditions_always_or_never_hold(self):
        self.assertEqual(changed("condition", "if (a(b)) c();"), ["if ((a(b)) && false) c();", "if ((a(b)) || true) c();"])
        self.assertEqual(changed("condition", "while (a) b();"), ["while ((a) && false) b();"])
        self.assertEqual(changed("condition", "for (;a(x, y); ) b();"), ["for (;(a(x, y)) && false; ) b();"])
        self.assertEqual(changed("condition", "for (const int a : b) c();"), [])
        self.assertEqual(changed("condition", "if (const auto a = b()) c();"), [])
        self.assertEqual(changed("condition", "if (auto a = b(); a) c();"),
                         ["if (auto a = b(); (a) && false) c();", "if (auto a = b(); (a) || true) c();"])
        self.assertEqual(changed("condition", "if constexpr (a) b();"), [])

    def test_connectives_change_places_and_negations_go(self):
        self.assertEqual(changed("condition", "return a && b;"), ["return a || b;"])
        self.assertEqual(changed("condition", "void f(A&& a);"), [])
        self.assertEqual(changed("condition", "return !a;"), ["return a;"])

    def test_constants_are_one_more_and_one_less_in_their_own_form(self):
        self.assertEqual(changed("constant", "f(7);"), ["f(6);", "f(8);"])
        self.assertEqual(changed("constant", "f(0U);"), ["f(1U);"])
        self.assertEqual(changed("constant", "f(0x0F, 1'000);"),
                         ["f(0x10, 1'000);", "f(0xe, 1'000);", "f(0x0F, 1001);", "f(0x0F, 999);"])
        self.assertEqual(changed("constant", "return true;"), ["return false;"])
        self.assertEqual(changed("constant", "f(u'a');"), ["f(u'b');"])
        self.assertEqual(changed("constant", r"f(u'\\');"), ["f(u'_');"])
        self.assertEqual(changed("constant", "a = b + 1.5;"), ["a = b - 1.5;"])

    def test_texts_get_another_end_and_empty_ones_stay(self):
        self.assertEqual(changed("text", r'f(u"say \"no\"", u"");'), [r'f(u"say \"no\"~", u"");'])

    def test_calls_and_assignments_and_jumps_are_left_out_and_declarations_are_not(self):
        self.assertEqual(changed("call", "{ a.b(c)->d(e); }"), ["{ ; }"])
        self.assertEqual(changed("call", "{ if (a) b(); }"), ["{ if (a) ; }"])
        self.assertEqual(changed("call", "{ A b(c); return d(); x = f(); }"), [])
        self.assertEqual(changed("call", "{ f([] { g(); }); }"), ["{ ; }", "{ f([] { ; }); }"])
        self.assertEqual(changed("statement", "{ a.b[2] = c(); int d = 1; }"), ["{ ; int d = 1; }"])
        self.assertEqual(changed("statement", "switch (a) { case k::b: c = 1; break; }"),
                         ["switch (a) { case k::b: ; break; }", "switch (a) { case k::b: c = 1; ; }"])
        self.assertEqual(changed("statement", "for (i = 0; i < 3; i = f()) return;"), ["for (i = 0; i < 3; i = f()) ;"])
        self.assertEqual(changed("statement", "return a;"), [])

    def test_comments_and_directives_and_raw_texts_are_no_code(self):
        source = '// a == 1\n#define A 1 == \\\n  2\n/* 3 */ auto a = R"x(4 == "5")x";\n'
        self.assertEqual(operators.changes_in(source), [])

    def test_tables_of_constants_count_as_reached(self):
        source = ("constexpr int kA[] = {\n    1,\n};\nconstexpr int F(int a) {\n  return a == 1;\n}\n"
                  "constexpr int kB = 2;\nconstexpr A kC{3};\n")
        self.assertEqual(operators.table_lines(source), {1, 2, 3, 7, 8})


class Sample(unittest.TestCase):
    SOURCE = "void F() {\n  if (a == 1) g();\n  h();\n}\nvoid G() { h(); }\n"

    def mutants(self, path="rules/a.cpp", covered_lines=(2, 3, 5)):
        return sample.mutants_of(path, self.SOURCE, set(covered_lines).__contains__)

    def test_only_reached_lines_change(self):
        self.assertEqual({mutant.line for mutant in self.mutants(covered_lines=(3,))}, {3})

    def test_a_mutant_keeps_its_name_when_lines_come_before_it(self):
        later = sample.mutants_of("rules/a.cpp", "\n\n" + self.SOURCE, {4, 5, 7}.__contains__)
        self.assertEqual([mutant.name for mutant in self.mutants()], [mutant.name for mutant in later])
        self.assertEqual(len({mutant.name for mutant in later}), len(later))

    def test_the_seed_decides_the_order_and_floors_take_turns(self):
        both = self.mutants() + self.mutants("values/b.cpp")
        order = sample.in_order(both, 1)
        self.assertEqual(order, sample.in_order(both[::-1], 1))
        self.assertNotEqual(order, sample.in_order(both, 2))
        self.assertEqual([floors.floor_of(mutant.path) for mutant in order[:4]], ["values", "rules", "values", "rules"])
        self.assertEqual(sorted(both), sorted(order))


class Verdicts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = pathlib.Path(folder.name) / "verdicts.jsonl"
        self.mutants = sample.mutants_of("rules/a.cpp", Sample.SOURCE, {2}.__contains__)

    def test_what_was_judged_outlives_a_run_that_was_killed_while_writing(self):
        kept = verdicts.Verdicts(self.file)
        kept.add(self.mutants[0], "survived", "")
        kept.add(self.mutants[0], "caught", "rules_test")
        with self.file.open("a") as file:
            file.write('{"mutant": "rul')
        again = verdicts.Verdicts(self.file)
        self.assertEqual(again.of(self.mutants[0]), ("caught", "rules_test"))
        again.add(self.mutants[1], "survived", "")
        self.assertEqual(verdicts.Verdicts(self.file).of(self.mutants[1]), ("survived", ""))

    def test_the_report_shows_survivors_that_nobody_explained(self):
        kept = verdicts.Verdicts(self.file)
        first, second, third = self.mutants[:3]
        kept.add(first, "caught", "rules_test")
        kept.add(second, "survived", "")
        kept.add(third, "survived", "")
        shown = []
        share = verdicts.report([first, second, third], kept, {(third.path, third.before, third.after): "why"}, shown.append)
        self.assertAlmostEqual(share, 1 / 3)
        self.assertIn("+ " + second.after, "\n".join(shown))
        self.assertNotIn("+ " + third.after, "\n".join(shown).splitlines())

    def test_reasons_are_read_and_halves_of_them_refused(self):
        self.file.write_text("# for readers\n\na.cpp\n- x == 1\n+ x != 1\nIt is\nthe same.\n")
        self.assertEqual(verdicts.accepted(self.file), {("a.cpp", "x == 1", "x != 1"): "It is the same."})
        self.file.write_text("a.cpp\n- x\n+ y\n")
        self.assertRaises(ValueError, verdicts.accepted, self.file)

    def test_reasons_that_are_kept_are_of_lines_that_stand(self):
        for path, before, _ in verdicts.accepted():
            lines = [line.strip() for line in (floors.HOUSE / path).read_text().splitlines()]
            self.assertIn(before, lines, path)


class Floors(unittest.TestCase):
    def test_a_floor_is_tested_by_its_own_programs_and_those_above(self):
        programs = ["tests/app/flow_test", "tests/base/base_test", "tests/house/house_test", "tests/simulator/simulator_test",
                    "tests/ui_unit/ui_test", "tests/rules/rules_test", "bench/config_bench"]
        self.assertEqual(floors.tests_for("rules", programs),
                         ["tests/rules/rules_test", "tests/ui_unit/ui_test", "tests/app/flow_test", "tests/simulator/simulator_test"])

    def test_sources_of_the_other_platform_stand_on_no_floor(self):
        self.assertEqual(floors.floor_of("platform/host/focus.cpp"), "platform")
        self.assertIsNone(floors.floor_of("platform/win32/focus.cpp"))
        self.assertIn("base/format.cpp", floors.sources())


class Coverage(unittest.TestCase):
    def test_decisions_are_found_on_their_lines(self):
        self.assertEqual(covered.decisions_by_line("f(a);\nif (a && b)\n  c(x ? 1 : 2);\n"), {2: ["if", "&&"], 3: ["?"]})

    def test_lines_that_stayed_are_reached_wherever_they_stand_now(self):
        known = covered.Covered({"a.cpp": {"source": "a\nb\nc\n", "lines": [1, 3]}})
        self.assertEqual(known.lines("a.cpp", "a\nb\nc\n"), {1, 3})
        self.assertEqual(known.lines("a.cpp", "new\nb\nother\nc\n"), {4})
        self.assertEqual(known.lines("b.cpp", "a\n"), set())

    def test_branches_of_the_compiler_are_not_counted(self):
        def branch(count, fallthrough=False, throw=False):
            return {"count": count, "fallthrough": fallthrough, "throw": throw}

        call = [branch(3, fallthrough=True), branch(0, throw=True)]
        decision = [branch(2, fallthrough=True), branch(1)]
        half_taken = [branch(0, fallthrough=True), branch(3)]
        never_taken = [branch(0, fallthrough=True), branch(0)]
        self.assertEqual(covered.own_branches(call + decision, ["if"]), [2, 1])
        self.assertEqual(covered.own_branches(call + decision, []), [])
        self.assertEqual(covered.own_branches(half_taken + call + never_taken, ["if"]), [0, 3])
        self.assertEqual(covered.own_branches(half_taken + never_taken, ["if", "&&"]), [0, 3, 0, 0])
        self.assertEqual(covered.own_branches(decision + half_taken, ["||"]), [2, 1, 0, 3])

    def test_every_source_can_be_taken_apart(self):
        for path in floors.sources():
            source = (floors.HOUSE / path).read_text(encoding="utf-8")
            for token in tokens.tokens_of(source):
                self.assertEqual(source[token.start : token.end], token.text)


if __name__ == "__main__":
    unittest.main()
