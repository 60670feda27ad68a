"""Finds the mutants of a source file by clang's syntax tree and writes the file with all of them in it."""

import dataclasses
import json
import re
import subprocess
from pathlib import Path
from typing import Any

Node = dict[str, Any]

# The function in mutation_switch.h that has an operator's mutants, how many they are, and what they are.
BINARY = {
    "<": ("less", ("<=", ">=")),
    "<=": ("lessEqual", ("<", ">")),
    ">": ("greater", (">=", "<=")),
    ">=": ("greaterEqual", (">", "<")),
    "==": ("equal", ("!=",)),
    "!=": ("unequal", ("==",)),
    "+": ("plus", ("-",)),
    "-": ("minus", ("+",)),
    "*": ("times", ("/",)),
    "/": ("over", ("*",)),
    "%": ("rest", ("*",)),
    "&": ("both", ("|",)),
    "|": ("any", ("&",)),
    "<<": ("toLeft", (">>",)),
    ">>": ("toRight", ("<<",)),
}
COMPARISONS = ("<", "<=", ">", ">=", "==", "!=")
STEPS = {("++", False): "up", ("--", False): "down", ("++", True): "upAfter", ("--", True): "downAfter"}
WHOLE = re.compile(r"(const )?((unsigned |signed )?(int|long|long long|short|char)|std::size_t)$")


@dataclasses.dataclass
class Mutant:
    number: int
    file: str
    line: int
    column: int
    group: str
    change: str


@dataclasses.dataclass
class Edit:
    """Text around a range of the source, or in its place."""

    begin: int
    end: int
    depth: int
    before: str
    after: str


class File:
    def __init__(self, path: Path, name: str) -> None:
        self.name = name
        self.bytes = path.read_bytes()
        self.edits: list[Edit] = []
        self.replaced: list[tuple[int, int, str]] = []
        self.done: set[tuple[int, int, str]] = set()

    def text(self, begin: int, end: int) -> str:
        return self.bytes[begin:end].decode()

    def place(self, offset: int) -> tuple[int, int]:
        before = self.bytes[:offset]
        return before.count(b"\n") + 1, offset - (before.rfind(b"\n") + 1) + 1

    def written(self) -> str:
        """The file with its edits, outer ones around inner ones."""
        pieces: list[tuple[int, int, int, int, int, str]] = []
        for edit in self.edits:
            # At one place what ends comes before what begins.
            pieces.append((edit.begin, 1, -edit.end, edit.depth, edit.begin, edit.before))
            pieces.append((edit.end, 0, -edit.begin, -edit.depth, edit.end, edit.after))
        for begin, end, text in self.replaced:
            pieces.append((begin, 2, 0, 0, end, text))
        pieces.sort()
        out = []
        at = 0
        for begin, _, _, _, end, text in pieces:
            out.append(self.text(at, begin))
            out.append(text)
            at = max(end, begin)
        out.append(self.text(at, len(self.bytes)))
        return '#include "mutation_switch.h"\n' + "".join(out)


class Rewriter:
    """Walks the syntax trees of sources; files are mutated where they are named by `wanted`."""

    def __init__(self, root: Path, wanted: set[str]) -> None:
        self.root = root
        self.wanted = wanted
        self.files: dict[str, File] = {}
        self.mutants: list[Mutant] = []
        self.constants: set[str] = set()  # ids, in this tree, of whole numbers that are constexpr
        self.last_file = ""
        self.depth = 0

    def take(self, source: str, flags: list[str]) -> None:
        command = ["clang++-14", *flags, "-fsyntax-only", "-w", "-Xclang", "-ast-dump=json"]
        command += ["-Xclang", "-ast-dump-filter=vireon", str(self.root / source)]
        dump = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        decoder = json.JSONDecoder()
        at = 0
        self.constants.clear()
        while at < len(dump):
            node, at = decoder.raw_decode(dump, at)
            while at < len(dump) and dump[at].isspace():
                at += 1
            self.last_file = ""
            self.locate(node)
            self.declaration(node)

    # Where nodes are: a file is only said where it differs from the last one said.

    def locate(self, node: Any) -> None:
        if isinstance(node, list):
            for each in node:
                self.locate(each)
        elif isinstance(node, dict):
            for key, value in node.items():
                if key in ("loc", "begin", "end", "spellingLoc", "expansionLoc") and isinstance(value, dict):
                    if "file" in value:
                        self.last_file = value["file"]
                    if "offset" in value:
                        value["file"] = self.last_file
                    self.locate({k: v for k, v in value.items() if isinstance(v, dict) and k.endswith("Loc")})
                elif key in ("range", "inner"):
                    self.locate(value)

    def span(self, node: Node) -> tuple[File, int, int] | None:
        bounds = node.get("range", {})
        begin, end = bounds.get("begin", {}), bounds.get("end", {})
        if "offset" not in begin or "offset" not in end or begin["file"] != end["file"]:
            return None
        try:
            name = str(Path(begin["file"]).relative_to(self.root))
        except ValueError:
            return None
        if name not in self.wanted:
            return None
        if name not in self.files:
            self.files[name] = File(self.root / name, name)
        return self.files[name], begin["offset"], end["offset"] + end["tokLen"]

    def new(self, file: File, offset: int, group: str, changes: tuple[str, ...]) -> int:
        line, column = file.place(offset)
        first = len(self.mutants) + 1
        for change in changes:
            self.mutants.append(Mutant(len(self.mutants) + 1, file.name, line, column, group, change))
        return first

    def once(self, file: File, begin: int, end: int, what: str) -> bool:
        if (begin, end, what) in file.done:
            return False
        file.done.add((begin, end, what))
        return True

    def wrap(self, file: File, begin: int, end: int, before: str, after: str) -> None:
        self.depth += 1
        file.edits.append(Edit(begin, end, self.depth, before, after))

    # Declarations.

    def declaration(self, node: Node) -> None:
        kind = node.get("kind", "")
        children = [child for child in node.get("inner", []) if child.get("kind")]
        if kind in ("EnumDecl", "StaticAssertDecl", "TypeAliasDecl", "ParmVarDecl", "UsingDecl", "BuiltinTemplateDecl"):
            return
        if kind == "VarDecl":
            self.variable(node, children)
        elif kind == "FieldDecl":
            for child in children:
                self.expression(child)
        elif kind == "CXXConstructorDecl":
            for child in children:
                if child["kind"] == "CXXCtorInitializer":
                    for inner in child.get("inner", []):
                        if inner.get("kind") != "CXXDefaultInitExpr":
                            self.expression(inner)
                elif child["kind"] == "CompoundStmt":
                    self.statement(child)
        elif kind.endswith("Decl"):
            if node.get("isImplicit") or node.get("explicitlyDefaulted"):
                return
            for child in children:
                if child["kind"].endswith("Decl"):
                    self.declaration(child)
                elif child["kind"] == "CompoundStmt":
                    self.statement(child)

    def variable(self, node: Node, children: list[Node]) -> None:
        type_name = node.get("type", {}).get("desugaredQualType", node.get("type", {}).get("qualType", ""))
        if node.get("constexpr"):
            if WHOLE.match(type_name) or type_name == "const double":
                self.constants.add(node["id"])
                return  # mutated where it is used
            place = self.span(node)
            # A member's constant may be part of a type.
            if not place or "static" in place[0].text(place[1], place[2])[:12]:
                return
            file, begin, end = place
            word = file.bytes.find(b"constexpr", begin, end)
            if word >= 0 and self.once(file, word, word + 9, "constexpr"):
                file.replaced.append((word, word + 9, "const"))
        if re.match(r"^(const )?char ?\[", type_name):
            return
        for child in children:
            self.expression(child)

    # Statements.

    def statement(self, node: Node) -> None:
        kind = node.get("kind", "")
        inner = [child for child in node.get("inner", []) if child.get("kind")]
        if kind == "CompoundStmt":
            for child in inner:
                self.statement(child)
        elif kind == "DeclStmt":
            for child in inner:
                self.declaration(child)
        elif kind in ("IfStmt", "WhileStmt", "SwitchStmt"):
            if node.get("isConstexpr"):
                return
            self.controlled(kind, node, inner)
        elif kind == "DoStmt":
            self.statement(inner[0])
            self.condition(inner[1])
        elif kind == "ForStmt":
            start, _, condition, step, body = node["inner"]
            if start.get("kind"):
                (self.statement if start["kind"].endswith("Stmt") else self.expression)(start)
            if condition.get("kind"):
                self.condition(condition)
            if step.get("kind"):
                self.expression(step)
            self.statement(body)
        elif kind == "CXXForRangeStmt":
            everything = node["inner"]
            for declared in everything[1].get("inner", []):
                for child in declared.get("inner", []):
                    self.expression(child)
            self.statement(everything[-1])
        elif kind in ("CaseStmt", "DefaultStmt", "LabelStmt"):
            self.statement(inner[-1])
        elif kind in ("CXXTryStmt", "CXXCatchStmt"):
            for child in inner:
                if child["kind"].endswith("Stmt"):
                    self.statement(child)
        elif kind == "ReturnStmt":
            for child in inner:
                self.expression(child)
        elif kind in ("BreakStmt", "ContinueStmt", "NullStmt", "GotoStmt", ""):
            return
        else:
            self.removable(node)
            self.expression(node)

    def controlled(self, kind: str, node: Node, inner: list[Node]) -> None:
        rest = list(inner)
        if node.get("hasInit"):
            self.statement(rest.pop(0))
        if node.get("hasVar"):
            self.statement(rest.pop(0))
            rest.pop(0)  # the variable as a condition
        elif kind == "SwitchStmt":
            condition = rest.pop(0)
            if WHOLE.match(condition.get("type", {}).get("qualType", "")) and (place := self.span(condition)):
                file, begin, end = place
                if self.once(file, begin, end, "switch"):
                    first = self.new(file, begin, "switch", ("one more", "one less"))
                    self.wrap(file, begin, end, f"mutation::number({first}, ", ")")
            self.expression(condition)
        else:
            self.condition(rest.pop(0))
        for child in rest:
            self.statement(child)

    def condition(self, node: Node) -> None:
        """A condition is turned round, unless its own operator is."""
        own = node
        while own.get("kind") in ("ImplicitCastExpr", "ParenExpr", "ExprWithCleanups"):
            own = own["inner"][0]
        place = self.span(node)
        comparison = own.get("kind") in ("BinaryOperator", "CXXOperatorCallExpr", "CXXRewrittenBinaryOperator") and (
            own.get("opcode") in COMPARISONS or own["kind"] != "BinaryOperator"
        )
        if place and not comparison and own.get("kind") != "CXXBoolLiteralExpr":
            file, begin, end = place
            if self.once(file, begin, end, "condition"):
                first = self.new(file, begin, "condition", ("turned round",))
                self.wrap(file, begin, end, f"mutation::on({first}) != bool(", ")")
        self.expression(node)

    def removable(self, node: Node) -> None:
        own = node
        while own.get("kind") in ("ExprWithCleanups", "ImplicitCastExpr", "CXXBindTemporaryExpr"):
            own = own["inner"][0]
        removes = own.get("kind") in ("CallExpr", "CXXMemberCallExpr", "CXXOperatorCallExpr", "CompoundAssignOperator")
        removes = removes or (own.get("kind") == "BinaryOperator" and own.get("opcode") == "=")
        place = self.span(node)
        if removes and place and self.once(place[0], place[1], place[2], "statement"):
            file, begin, end = place
            first = self.new(file, begin, "statement", ("left out",))
            self.wrap(file, begin, end, f"mutation::on({first}) ? void() : void(", ")")

    # Expressions.

    def expression(self, node: Node, negated: bool = False) -> None:
        kind = node.get("kind", "")
        inner = [child for child in node.get("inner", []) if child.get("kind")]
        if kind in ("ConstantExpr", "CXXDefaultArgExpr", "CXXDefaultInitExpr", "UserDefinedLiteral", "TypeTraitExpr"):
            return
        if kind.endswith("Stmt"):
            self.statement(node)
            return
        if kind == "LambdaExpr":
            for child in inner[1:]:
                self.expression(child)
            return
        if kind.endswith("Decl"):
            return
        place = self.span(node)
        if place:
            self.mutate(kind, node, inner, *place)
        for child in inner:
            self.expression(child)

    def mutate(self, kind: str, node: Node, inner: list[Node], file: File, begin: int, end: int) -> None:
        if "expansionLoc" in node["range"]["begin"] or not self.once(file, begin, end, kind):
            return
        if kind == "BinaryOperator":
            self.binary(node, inner, file, begin, end)
        elif kind in ("CXXOperatorCallExpr", "CXXRewrittenBinaryOperator"):
            self.overloaded(node, file, begin, end)
        elif kind == "CompoundAssignOperator" and node["opcode"] in ("+=", "-="):
            function, change = ("add", "-=") if node["opcode"] == "+=" else ("subtract", "+=")
            self.call(function, "step", (change,), inner, (file, begin, end), node["opcode"])
        elif kind == "UnaryOperator":
            self.unary(node, inner, file, begin, end)
        elif kind == "ConditionalOperator":
            self.turned(inner[0])
        elif kind == "IntegerLiteral":
            first = self.new(file, begin, "constant", ("one more", "one less"))
            self.wrap(file, begin, end, f"mutation::number({first}, ", ")")
        elif kind == "DeclRefExpr" and node.get("referencedDecl", {}).get("id") in self.constants:
            first = self.new(file, begin, "constant", ("one more", "one less"))
            self.wrap(file, begin, end, f"mutation::number({first}, ", ")")
        elif kind == "FloatingLiteral":
            first = self.new(file, begin, "constant", ("one more",))
            self.wrap(file, begin, end, f"mutation::fraction({first}, ", ")")
        elif kind == "CXXBoolLiteralExpr":
            first = self.new(file, begin, "truth", ("the other",))
            self.wrap(file, begin, end, f"mutation::truth({first}, ", ")")
        elif kind == "CharacterLiteral" and node.get("type", {}).get("qualType") == "char":
            first = self.new(file, begin, "text", ("another character",))
            self.wrap(file, begin, end, f"mutation::character({first}, ", ")")
        elif kind == "StringLiteral" and file.text(begin, end) != '""':
            first = self.new(file, begin, "text", ("a character changed",))
            self.wrap(file, begin, end, f"mutation::text<{first}>(", ")")

    def turned(self, condition: Node) -> None:
        place = self.span(condition)
        own = condition
        while own.get("kind") in ("ImplicitCastExpr", "ParenExpr"):
            own = own["inner"][0]
        if own.get("opcode") in COMPARISONS or own.get("kind") in ("CXXOperatorCallExpr", "CXXRewrittenBinaryOperator"):
            return
        if place and self.once(*place, "condition"):
            file, begin, end = place
            first = self.new(file, begin, "condition", ("turned round",))
            self.wrap(file, begin, end, f"(mutation::on({first}) != bool(", "))")

    def binary(self, node: Node, inner: list[Node], file: File, begin: int, end: int) -> None:
        operator = node["opcode"]
        left, right = inner
        if operator in ("&&", "||"):
            left_place, right_place = self.span(left), self.span(right)
            if not left_place or not right_place:
                return
            other = "||" if operator == "&&" else "&&"
            first = self.new(file, begin, "logic", (other, "without the left", "without the right"))
            # By De Morgan: with all three turned round, one operator is the other.
            self.wrap(file, begin, end, f"(mutation::on({first}) != (", "))")
            keeps = "||" if operator == "&&" else "&& !"
            for part, (_, start, stop) in ((1, left_place), (2, right_place)):
                without = f"mutation::on({first + part})"
                self.wrap(file, start, stop, f"((mutation::on({first}) != bool(", f")) {keeps}{without})")
            return
        if operator not in BINARY:
            return
        types = [side.get("type", {}).get("qualType", "") for side in inner]
        if operator not in COMPARISONS and any("*" in name or "[" in name for name in types):
            return
        function, changes = BINARY[operator]
        group = "comparison" if operator in COMPARISONS else "arithmetic"
        self.call(function, group, changes, inner, (file, begin, end), operator)

    def call(
        self,
        function: str,
        group: str,
        changes: tuple[str, ...],
        sides: list[Node],
        place: tuple[File, int, int],
        operator: str,
    ) -> None:
        """Makes `left operator right` a call of the function that has the operator's mutants."""
        file, begin, end = place
        left_place, right_place = self.span(sides[0]), self.span(sides[1])
        if not left_place or not right_place:
            return
        between = file.text(left_place[2], right_place[1])
        if between.strip() != operator:
            return
        first = self.new(file, left_place[2] + between.index(operator), group, changes)
        self.wrap(file, begin, end, f"mutation::{function}({first}, ", ")")
        at = left_place[2] + between.index(operator)
        file.replaced.append((at, at + len(operator), ","))

    def overloaded(self, node: Node, file: File, begin: int, end: int) -> None:
        inner = node.get("inner", [])
        if node["kind"] == "CXXRewrittenBinaryOperator":
            while inner and inner[0].get("kind") != "CXXOperatorCallExpr":
                inner = inner[0].get("inner", [])
            inner = inner[0].get("inner", []) if inner else []
        if len(inner) != 3:
            return
        places = [self.span(side) for side in inner[1:]]
        if not places[0] or not places[1]:
            return
        operator = file.text(places[0][2], places[1][1]).strip()
        if operator not in COMPARISONS:
            return
        if not self.once(file, begin, end, "overloaded"):
            return
        function, changes = BINARY[operator]
        self.call(function, "comparison", changes, inner[1:], (file, begin, end), operator)

    def unary(self, node: Node, inner: list[Node], file: File, begin: int, end: int) -> None:
        operator = node["opcode"]
        place = self.span(inner[0])
        if not place:
            return
        if operator in ("++", "--"):
            after = node.get("isPostfix", False)
            at = end - 2 if after else begin
            if file.text(at, at + 2) != operator:
                return
            first = self.new(file, at, "step", ("--" if operator == "++" else "++",))
            self.wrap(file, begin, end, f"mutation::{STEPS[operator, after]}({first}, ", ")")
            file.replaced.append((at, at + 2, ""))
        elif operator == "-" and inner[0].get("kind") not in ("IntegerLiteral", "FloatingLiteral"):
            first = self.new(file, begin, "arithmetic", ("without -",))
            self.wrap(file, begin, end, f"(mutation::on({first}) ? +({file.text(place[1], place[2])}) : ", ")")
        elif operator == "!" and file.text(begin, begin + 2) != "!=":
            first = self.new(file, begin, "condition", ("without !",))
            self.wrap(file, begin, end, f"(mutation::on({first}) != ", ")")

