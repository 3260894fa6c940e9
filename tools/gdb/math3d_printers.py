"""GDB's view of math3d: native values by their meaning, references with their counts, script objects with their values.

    (gdb) source tools/gdb/math3d_printers.py

A debug build loads it by itself; docs/debugging.md says what GDB wants for that. `print/r` shows the plain members.
"""

import math
import re
import struct

import gdb
import gdb.printing


def number(value):
    """The shortest decimal text that reads as the same float."""
    single = float(value)
    for digits in range(1, 10):
        shortest = float("%.*g" % (digits, single))
        if struct.pack("f", shortest) == struct.pack("f", single):
            break
    return repr(shortest).removesuffix(".0")


def numbers(values):
    return ", ".join(number(value) for value in values)


def members(value, names):
    return [float(value[name]) for name in names.split()]


def without_qualifiers(type_):
    if type_.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
        type_ = type_.target()
    return type_.unqualified().strip_typedefs()


def short_name(type_):
    """Without namespaces and arguments: Matrix, LuaVector3."""
    return str(type_.unqualified()).split("<")[0].split("::")[-1].lstrip("_")


def text_behind(pointer):
    """Of what a pointer leads to, as the class that the object has, not the base that the pointer names.

    The class is read off the name of the object's virtual table: that works too where the library has no debug
    information, with the name as all that can be said.
    """
    address = int(pointer)
    words = gdb.lookup_type("unsigned long").pointer()
    table = int(gdb.Value(address).cast(words).dereference())
    symbol = gdb.execute("info symbol %d" % table, to_string=True)
    symbol = re.match(r"vtable for (.*) \+ %d( |$)" % (2 * words.sizeof), symbol)
    if not symbol:
        return text_of(pointer.dereference())
    try:
        type_ = gdb.lookup_type(symbol.group(1))
        if not type_.fields():
            raise gdb.error("incomplete")
    except gdb.error:
        return "%s at 0x%x (its library has no debug information)" % (symbol.group(1), address)
    return text_of(pointer.cast(type_.pointer()).dereference())


# Native values


def tuple_text(names):
    return lambda value: "(%s)" % numbers(members(value, names))


def rotation_text(value):
    """Components, and the turn that a unit quaternion is."""
    x, y, z, w = members(value, "x y z w")
    text = "(%s)" % numbers((x, y, z, w))
    sine = math.sqrt(x * x + y * y + z * z)
    if not abs(sine * sine + w * w - 1) < 1e-4:
        return text + ", not unit"
    if sine < 1e-6:
        return text + ", no turn"
    degrees = math.degrees(2 * math.atan2(sine, w))
    axis = ", ".join("%.4g" % (component / sine) for component in (x, y, z))
    return "%s, %.4g deg about (%s)" % (text, degrees, axis)


def axis_angle_text(value):
    angle = float(value["angle"])
    return "%s rad (%.4g deg) about %s" % (number(angle), math.degrees(angle), text_of(value["axis"]))


def rows_text(size, names):
    """A matrix row by row, each behind its name, the columns under each other."""

    def text(value):
        elements = [number(value["elements"][i]) for i in range(size * size)]
        widths = [max(map(len, elements[column::size])) for column in range(size)]
        lines = [short_name(value.type)]
        for i, name in enumerate(names):
            row = elements[i * size : (i + 1) * size]
            lines.append("  %-11s  %s" % (name, "  ".join(element.rjust(width) for element, width in zip(row, widths))))
        return "\n".join(lines)

    return text


def rect_text(value):
    left, top, right, bottom = members(value, "left top right bottom")
    return "(%s) to (%s), size (%s)" % (
        numbers((left, top)), numbers((right, bottom)), numbers((right - left, bottom - top)))


def rect_offset_text(value):
    return "left %s, top %s, right %s, bottom %s" % tuple(number(n) for n in members(value, "left top right bottom"))


def color32_text(value):
    a, r, g, b = (int(value[name]) for name in "argb")
    return "#%02X%02X%02X%02X (r %d, g %d, b %d, a %d)" % (a, r, g, b, r, g, b, a)


def color_f_text(value):
    return "r %s, g %s, b %s, a %s" % tuple(number(n) for n in members(value, "r g b a"))


def plane_text(value):
    return "dot(p, %s) == %s" % (text_of(value["normal"]), number(value["dist"]))


def ray_text(value):
    return "%s + t * %s" % (text_of(value["origin"]), text_of(value["direction"]))


def aabb_text(value):
    low, high = (members(value[corner], "x y z") for corner in ("min", "max"))
    bound = 0.5 * (2 - 2**-23) * 2.0**127  # half of the largest float
    if low == [bound] * 3 and high == [-bound] * 3:
        return "empty, as built"
    tag = int(value["tag"])
    return "%smin (%s), max (%s), half_extents %s%s" % (
        "inside out: " if any(a > b for a, b in zip(low, high)) else "",
        numbers(low), numbers(high), text_of(value["half_extents"]), "" if tag == 1 else ", tag %d" % tag)


def nullable_text(value):
    return str(value["value"].format_string()) if value["has_value"] else "none"


def limited_text(value):
    size = int(value["size"])
    characters = bytes(int(value["text"][i]) & 0xFF for i in range(size)).decode("utf-8", "backslashreplace")
    return '"%s", %d of at most %d bytes' % (characters, size, value["text"].type.sizeof)


# References and script objects


def count_of(shared):
    """The strong count that a std::shared_ptr<int> leads to; None when it is empty."""
    names = [field.name for field in shared.type.strip_typedefs().fields()]
    for name in ("_M_ptr", "__ptr_"):
        try:
            pointer = shared[name]
        except gdb.error:
            continue
        return int(pointer.dereference()) if int(pointer) else None
    raise gdb.error("unknown std::shared_ptr with %s" % names)


def auto_ref_text(value):
    count = count_of(value["m_count"])
    address = int(value["m_object"])
    if count is None or not address:
        return "empty"
    if count < 1:
        return "not alive, strong count %d, was at 0x%x" % (count, address)
    return "alive, strong count %d, at 0x%x: %s" % (count, address, text_behind(value["m_object"]))


def object_text(value):
    return "Object of %s" % value["m_type_name"].string()


def generic_text(value):
    """Integer, Number, Str: their value."""
    return "%s %s" % (short_name(value.type), value["value"].format_string())


def script_object_text(value):
    name = short_name(value.type)
    try:
        identity = int(value["object_id"])
        name += " (id %d)" % identity if identity else " (no id)"
    except gdb.error:
        pass  # only wrapped values have one
    return "%s: %s" % (name, text_of(value["m_value"]))


# Which text is whose


NATIVE = {
    "zeph::math3d::_Point2": tuple_text("x y"),
    "zeph::math3d::_Vector3": tuple_text("x y z"),
    "zeph::math3d::Vector4": tuple_text("x y z w"),
    "zeph::math3d::_Rotation": rotation_text,
    "zeph::math3d::AxisAngle": axis_angle_text,
    "zeph::math3d::_Matrix": rows_text(4, ("right", "up", "forward", "translation")),
    "zeph::math3d::Matrix33": rows_text(3, ("right", "up", "forward")),
    "zeph::math3d::_Rect": rect_text,
    "zeph::math3d::RectOffset": rect_offset_text,
    "zeph::math3d::Color32": color32_text,
    "zeph::math3d::ColorF": color_f_text,
    "zeph::math3d::_Plane": plane_text,
    "zeph::math3d::Ray": ray_text,
    "zeph::AABB": aabb_text,
    "zeph::binding::Nullable": nullable_text,
    "zeph::binding::LimitedText": limited_text,
    "zeph::binding::AutoRef": auto_ref_text,
    "zeph::binding::Object": object_text,
    "zeph::binding::Integer": generic_text,
    "zeph::binding::Number": generic_text,
    "zeph::binding::Str": generic_text,
    "zeph::binding::None": lambda value: "None",
    "zeph::binding::Table": lambda value: "Table",
    "zeph::binding::Tuple": lambda value: "Tuple",
}
SCRIPT_OBJECTS = ("zeph::binding::DummyScriptObject", "zeph::binding::WrappedScriptObject")


def is_script_object(type_):
    """Is the class below one of the two bases of script objects, or one of these?"""
    if type_.code != gdb.TYPE_CODE_STRUCT:
        return False
    if str(type_).split("<")[0] in SCRIPT_OBJECTS:
        return True
    return any(field.is_base_class and is_script_object(field.type.strip_typedefs()) for field in type_.fields())


class Printer:
    def __init__(self, value, text):
        self.value = value
        self.text = text

    def to_string(self):
        try:
            return self.text(self.value)
        except (gdb.error, ValueError, KeyError) as problem:
            return "<%s>" % problem  # memory that cannot be read, or a library of another make


def printer_of(value):
    type_ = without_qualifiers(value.type)
    if type_.code != gdb.TYPE_CODE_STRUCT or type_.name is None:
        return None
    text = NATIVE.get(type_.name.split("<")[0])
    if text is None and is_script_object(type_):
        text = script_object_text
    return Printer(value, text) if text else None


def text_of(value):
    printer = printer_of(value)
    return printer.to_string() if printer else value.format_string()


class Printers(gdb.printing.PrettyPrinter):
    def __init__(self):
        super().__init__("math3d")

    def __call__(self, value):
        return printer_of(value)


gdb.printing.register_pretty_printer(gdb.current_objfile(), Printers(), replace=True)
