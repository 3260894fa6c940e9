"""Run by GDB: stops the program at stop_here, prints what the functions there say, and compares. And as the program's
types are at hand: the natvis file may name only types and members that there are.

The expectations stand in the source: see values.cpp. Exit status 77 says that processes may not be debugged here.
"""

import os
import re
import sys
from xml.etree import ElementTree

import gdb

source = os.environ["MATH3D_DEBUGGER_SOURCE"]
tools = os.environ["MATH3D_DEBUGGER_TOOLS"]


def leave(status, message):
    print(message)
    sys.stdout.flush()
    gdb.execute("kill" if gdb.selected_inferior().pid else "echo")
    gdb.execute("quit %d" % status)


def expectations():
    """By function: pairs of an expression and its text."""
    by_function, function = {}, None
    for line in open(source, encoding="utf-8"):
        start = re.match(r"\w.* (\w+)\(.*\{$", line)
        if start:
            function = by_function.setdefault(start.group(1), [])
        expected = re.match(r"  // (\w+) => (.*)$", line)
        more = re.match(r"  //\|(.*)$", line)
        if expected:
            function.append([expected.group(1), expected.group(2)])
        elif more:
            function[-1][1] += "\n" + more.group(1)
    return {name: pairs for name, pairs in by_function.items() if pairs}


def unknown_in_natvis():
    """What the natvis file names and the program has not: types, and members in its expressions."""
    unknown = []
    space = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"
    for entry in ElementTree.parse(tools + "/math3d.natvis").getroot().iter(space + "Type"):
        type_ = instance_of(entry.get("Name"))
        if type_ is None:
            unknown.append("no type is a %s" % entry.get("Name"))
            continue
        for node in entry.iter():
            if node.get("Optional") or node is entry:
                continue
            expressions = [node.get("Condition") or ""]
            text = (node.text or "").strip()
            expressions += re.findall(r"\{([^}]*)\}", text) if node.tag == space + "DisplayString" else [text]
            for expression in expressions:
                for path in re.findall(r"[A-Za-z_][\w.]*", re.sub(r",(\[(\w+)\]|\w+)$", r" \2", expression)):
                    if not has_member(type_, path):
                        unknown.append("%s has no %s, in {%s}" % (type_, path, expression))
    return unknown


def instance_of(name):
    """Some type of the program that a name with * for its arguments stands for."""
    for argument in ("float", "zeph::binding::Object", "zeph::math3d::_Vector3<float>", "zeph::math3d::_Matrix<float>",
                     "8", "8ul"):
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


def loaded():
    return "math3d" in gdb.execute("info pretty-printer", to_string=True).split()


def main():
    for setting in ("pagination off", "width 0", "disable-randomization off", "confirm off", "debuginfod enabled off"):
        try:
            gdb.execute("set " + setting)
        except gdb.error:
            pass  # an older GDB knows no debuginfod
    gdb.execute("break stop_here")
    try:
        gdb.execute("run", to_string=True)
    except gdb.error as problem:
        return 77, "skipped: no process may be debugged here (%s)" % problem

    failures, count = [], 0
    if not loaded():
        failures.append("the printers are not loaded with the library, by its name")
    gdb.execute("source %s/gdb/math3d_printers.py" % tools)

    left = expectations()
    while left:
        try:
            gdb.execute("up", to_string=True)
            function = gdb.selected_frame().name().split("::")[-1].split("(")[0]
        except gdb.error as problem:
            return 1, "not stopped where there is something to print: %s; left are %s" % (problem, list(left))
        for expression, expected in left.pop(function, []):
            printed = gdb.execute("print " + expression, to_string=True)
            printed = re.sub(r"^\$\d+ = (\(.*?[&*]\) )?", "", printed).rstrip("\n")
            printed = re.sub(r"\b0x[0-9a-f]+", "ADDRESS", printed)
            count += 1
            if printed != expected:
                failures.append("print %s\n  got      %s\n  expected %s" % (expression, printed, expected))
        if not left:
            failures += unknown_in_natvis()
        gdb.execute("continue", to_string=True)
    if failures:
        return 1, "\n".join(failures)
    return 0, "%d values print as expected" % count


try:
    status, message = main()
except Exception as problem:  # GDB would print it and go on
    status, message = 1, "%s: %s" % (type(problem).__name__, problem)
leave(status, message)
