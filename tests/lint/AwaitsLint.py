# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""No await that GCC 12 compiles into a double free or a wrong value.

GCC 12.2 silently miscompiles an await whose full expression holds an aggregate in braces, a lambda
with captures or ?:, and one that is the condition of an if, while or switch without a declaration.
This finds them by brackets, not by parsing, and flags a little too much rather than too little.
"""
import re

from Lint import lint

AWAIT = re.compile(r"(?<!\boperator )\bco_(?:await|yield)\b")
CONTROL = re.compile(r"\b(if|while|switch)\s*(?:constexpr\s*)?$")
SPECIFIER = re.compile(r"(?:\b(?:mutable|noexcept|const|override|final)|->[\w:<>,&*\s]+?)\s*$")
BLOCK = re.compile(r"(?:[;{})]|\b(?:else|try|do)|^)\s*$")
PAIRS = {")": "(", "]": "[", "}": "{"}


class Brackets:
    """Where each bracket of a source closes or opens, and which braces are bodies."""

    def __init__(self, code):
        self.code = code
        self.other = {}
        stack = []
        for place, char in enumerate(code):
            if char in "([{":
                stack.append(place)
            elif char in PAIRS and stack and code[stack[-1]] == PAIRS[char]:
                self.other[place] = stack.pop()
                self.other[self.other[place]] = place

    def introducer_before(self, end):
        """The [ of a lambda whose capture, parameters and specifiers end just before `end`."""
        end = self._before_specifiers(end)
        if end and self.code[end - 1] == ")":
            end = self._without_blanks(self.other.get(end - 1, 0))
        if not end or self.code[end - 1] != "]" or end - 1 not in self.other:
            return None
        start = self.other[end - 1]
        subscript = re.search(r"(?:[\w)\]]|\[)\s*$", self.code[:start][-40:])
        word = re.search(r"\b(?:return|co_return|co_await|co_yield)\s*$", self.code[:start][-40:])
        return None if subscript and not word else start

    def is_lambda_body(self, brace):
        return self.introducer_before(brace) is not None

    def is_block(self, brace):
        """Whether a { opens statements, rather than a list of values."""
        before = self.code[:self._before_specifiers(brace)]
        changed = len(before) != len(self.code[:brace].rstrip())
        return bool(changed or BLOCK.search(before[-200:])) or self.is_lambda_body(brace)

    def _without_blanks(self, end):
        while end and self.code[end - 1].isspace():
            end -= 1
        return end

    def _before_specifiers(self, end):
        end = self._without_blanks(end)
        while True:
            match = SPECIFIER.search(self.code, max(0, end - 120), end)
            if not match:
                return end
            end = self._without_blanks(match.start())


def start_of_expression(brackets, place):
    """Where the full expression around a place begins, and the control word it is the condition of."""
    code = brackets.code
    while place > 0:
        char = code[place - 1]
        if char == ";":
            break
        if char in PAIRS and place - 1 in brackets.other:
            opening = brackets.other[place - 1]
            if char == "}" and brackets.is_block(opening) and not brackets.is_lambda_body(opening):
                break
            place = opening
            continue
        if char == "(":
            control = CONTROL.search(code[max(0, place - 40):place - 1])
            if control:
                return place, control[1]
        if char == "{" and brackets.is_block(place - 1):
            break
        place -= 1
    return place, None


def end_of_expression(brackets, place):
    code = brackets.code
    while place < len(code) and code[place] != ";" and code[place] not in PAIRS:
        if code[place] in "([{":
            place = brackets.other.get(place, place)
        place += 1
    return place


def expression_at(brackets, place):
    """The full expression around a place, lambda bodies blanked, with its lambdas' captures."""
    start, control = start_of_expression(brackets, place)
    end = end_of_expression(brackets, start)
    text = list(brackets.code[start:end])
    captures = []
    for brace in range(start, end):
        if brackets.code[brace] == "{" and brace in brackets.other:
            introducer = brackets.introducer_before(brace)
            if introducer is not None and introducer >= start:
                captures.append(brackets.code[introducer + 1:brackets.other[introducer]].strip())
                text[brace - start:brackets.other[brace] + 1 - start] = (
                    " " * (brackets.other[brace] + 1 - brace))
    return "".join(text), control, captures


def faults(text, control, captures):
    declared = re.search(r"\w\s*=\s*[^=]", text.split("co_")[0] + " ")
    if control and not declared:
        yield f"{control} (co_await …)"
    if any(captures):
        yield "a lambda with captures in an await expression"
    if "{" in text:
        yield "braces in an await expression"
    if "?" in text:
        yield "?: in an await expression"


def check(tree):
    for source in tree.sources():
        brackets = Brackets(source.code)
        for match in AWAIT.finditer(source.code):
            for fault in faults(*expression_at(brackets, match.start())):
                yield source.at(match.start(), f"{fault}: GCC 12 miscompiles this. Name the value "
                                "first, then await it in a statement of its own")


def body(statements):
    return {"QuillbarCore/model/A.cpp": "Task<void> A::run() const {\n" + statements + "\n}\n"}


lint(check,
     bad=[body("if (co_await ready()) { go(); }"),
          body("while (co_await next()) {}"),
          body("switch (co_await kind()) {}"),
          body("if (!(co_await ready())) {}"),
          body("co_await take(Pair{1, 2});"),
          body("const auto x = co_await take({1, 2});"),
          body("co_return Pair{1, co_await two()};"),
          body("auto x = co_await run([this] { return 1; });"),
          body("auto x = co_await run([=]() mutable -> Task<int> { co_return 1; });"),
          body("auto x = co_await run([&](int i) { return i; });"),
          body("auto x = join([a] { return 1; }, co_await two());"),
          body("auto x = flag ? co_await one() : two;"),
          body("auto x = co_await (flag ? one() : two());"),
          body("for (;;) { co_yield Pair{1, 2}; }"),
          body("auto f = [this]() -> Task<int> { co_return co_await take(Pair{1, 2}); };")],
     good=[body("const auto ready = co_await isReady();\nif (ready) { go(); }"),
           body("while (auto v = co_await stream.next()) { use(*v); }"),
           body("if (auto v = co_await next(); v) {}"),
           body("auto p = Pair{1, 2};\nco_await take(p);"),
           body("for (;;) {\n    co_await one();\n}\nauto p = flag ? 1 : 2;"),
           body("auto f = [this]() -> Task<int> { co_return co_await one(); };"),
           body("auto f = [this] { return 1; };\nco_await take(f);"),
           body("scope.start([](A* a) -> Task<void> { co_await a->one(); }(this));"),
           body("try {\n    co_await one();\n} catch (const E& e) {\n    co_return;\n}"),
           body("[[maybe_unused]] const auto x = co_await take(list[0]);"),
           body('co_await say("{}?"); // if (co_await x)'),
           {"QuillbarCore/runtime/A.h": "auto operator co_await() && { return Awaiter{m_a}; }\n"}])
