"""Run by GDB: at each stop in stop_here, prints what the function above says, and compares with what stands there: see
values.cpp. And as the program's types are at hand, the natvis file may name only types and members that there are.

Exit status 77 says that processes may not be debugged here.
"""

import os
import re
import sys
from xml.etree import ElementTree

import gdb

source = os.environ["MATH3D_DEBUGGER_SOURCE"]
tools = os.environ["MATH3D_DEBUGGER_TOOLS"]
ARGUMENTS = ("float", "zeph::binding::Object", "zeph::math3d::_Vector3<float>", "zeph::math3d::_Matrix<float>",
             "8", "8ul")


def expectations():
    """By function: pairs of an expression and its text."""
    by_function, pairs = {}, []
    for line in open(source, encoding="utf-8"):
        if start := re.match(r"\w.* (\w+)\(.*\{$", line):
            pairs = by_function.setdefault(start[1], [])
        elif expected := re.match(r"  // (\w+) => (.*)$", line):
            pairs.append([expected[1], expected[2]])
        elif more := re.match(r"  //\|(.*)$", line):
            pairs[-1][1] += "\n" + more[1]
    return {name: pairs for name, pairs in by_function.items() if pairs}


def wrong_values(pairs):
    for expression, expected in pairs:
        printed = gdb.execute("print " + expression, to_string=True)
        printed = re.sub(r"^\$\d+ = (\(.*?[&*]\) )?", "", printed).rstrip("\n")
        printed = re.sub(r"\b0x[0-9a-f]+", "ADDRESS", printed)
        if printed != expected:
            yield "print %s\n  got      %s\n  expected %s" % (expression, printed, expected)


def instance_of(name):
    """Some type of the program that a name with * for its arguments stands for."""
    for argument in ARGUMENTS:
        try:
            return gdb.lookup_type(name.replace("*", argument))
        except gdb.error:
            pass
    return None


def has_member(type_, path):
    first, _, rest = path.partition(".")
    for field in type_.strip_typedefs().fields():
        if field.name == first:
            return not rest or has_member(field.type, rest)
        if field.is_base_class and has_member(field.type, path):
            return True
    return False


def unknown_in_natvis():
    space = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"
    for entry in ElementTree.parse(tools + "/math3d.natvis").getroot().iter(space + "Type"):
        type_ = instance_of(entry.get("Name"))
        if type_ is None:
            yield "no type is a %s" % entry.get("Name")
            continue
        for node in entry.iter():
            text = (node.text or "").strip()
            expressions = re.findall(r"\{([^}]*)\}", text) if node.tag == space + "DisplayString" else [text]
            for expression in [] if node.get("Optional") else [node.get("Condition") or ""] + expressions:
                for path in re.findall(r"[A-Za-z_][\w.]*", re.sub(r",(\[(\w+)\]|\w+)$", r" \2", expression)):
                    if not has_member(type_, path):
                        yield "%s has no %s, in {%s}" % (type_, path, expression)


def main():
    for setting in ("pagination off", "width 0", "disable-randomization off", "confirm off"):
        gdb.execute("set " + setting)
    gdb.execute("break stop_here", to_string=True)
    try:
        gdb.execute("run", to_string=True)
    except gdb.error as problem:
        return 77, "skipped: no process may be debugged here (%s)" % problem

    mistakes = []
    if "math3d" not in gdb.execute("info pretty-printer", to_string=True).split():
        mistakes.append("the printers are not loaded with the library, by its name")
    gdb.execute("source %s/gdb/math3d_printers.py" % tools)
    left = expectations()
    while left:
        gdb.execute("up", to_string=True)
        function = gdb.selected_frame().name().split("::")[-1].split("(")[0]
        mistakes += wrong_values(left.pop(function))
        if left:
            gdb.execute("continue", to_string=True)
    mistakes += unknown_in_natvis()
    gdb.execute("kill", to_string=True)
    return (1, "\n".join(mistakes)) if mistakes else (0, "all print as expected")


try:
    status, message = main()
except Exception as problem:  # GDB would print it and go on
    status, message = 1, "%s: %s" % (type(problem).__name__, problem)
print(message)
sys.stdout.flush()
gdb.execute("quit %d" % status)
