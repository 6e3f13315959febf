#!/usr/bin/env python3
"""Writes the reference values that the MATHLIB accuracy test checks against.

  tests/mathlib/math_reference_table.h  arguments and the correctly rounded results

Each result is worked out with mpmath at 2000 bits (enough to reduce even the largest
double by pi/2 exactly) and rounded to the nearest double, subnormals included, through an
exact fraction. The grid holds multiples of pi/2 and their neighbours, the doubles nearest to
far multiples, huge and tiny arguments, the ends of the ranges and a sweep between. Run from
the repository root (needs python3-mpmath):
    python3 scripts/gen_math_reference.py
"""
import math
import sys
from fractions import Fraction

import mpmath

mpmath.mp.prec = 2000
HALF_PI = 1.5707963267948966
MAX = sys.float_info.max
TINY = 5e-324


def rounded(v):
    """The double nearest to an mpf (ties to even), with overflow to infinity."""
    if mpmath.isnan(v):
        return math.nan
    if mpmath.isinf(v):
        return math.inf if v > 0 else -math.inf
    sign, man, exp, _ = mpmath.mpf(v)._mpf_
    value = Fraction(man) * Fraction(2) ** exp
    try:
        r = float(value)
    except OverflowError:
        r = math.inf
    return -r if sign else r


def near_multiples():
    """k pi/2 for small k, neighbours of some, and the doubles nearest to far multiples."""
    xs = [k * HALF_PI for k in range(-8, 9)]
    for k in (1, 2, 4, 7):
        xs += [math.nextafter(k * HALF_PI, math.inf), math.nextafter(-k * HALF_PI, -math.inf)]
    for e in (20, 30, 52, 60, 100, 500, 1000):
        xs.append(rounded(mpmath.mpf(2) ** e * mpmath.pi / 2))
    # The double that lies nearest to a multiple of pi/2 of them all.
    xs.append(6381956970095103.0 * 2.0 ** 797)
    return xs


HUGE = [2.0 ** 63, -2.0 ** 63, 2.0 ** 64, 1e15, 1e22, 2.0 ** 100, -1e300, 1e300, MAX, -MAX]
SMALL = [2.0 ** -26, -2.0 ** -27, 1e-8, 1e-300, 1e-310, TINY, -TINY]


def grid():
    """{function: [(x, y)]}"""
    sweep = [k / 2 for k in range(-10, 11) if k % 3 != 0]
    trig = near_multiples() + HUGE + SMALL + sweep
    unit = [k / 8 for k in range(-8, 9)] + [1 - 2.0 ** -53, -(1 - 2.0 ** -53), 1 - 2.0 ** -30,
                                             0.5 + 2.0 ** -40] + SMALL
    wide = [2.0 ** k for k in range(-30, 76, 15)] + [0.75, 3.0, 1e300, MAX] + SMALL
    hyper = [0.1, 0.17, 0.35, 1.0, 5.0, 19.0, 22.0, 23.0, 700.0, 709.78, 710.47, 710.48, -0.3,
             -3.0, -711.0] + SMALL
    exp = [-746.0, -745.2, -745.1, -744.5, -740.0, -708.5, -100.0, -1.0, -2.0 ** -30, 0.5,
           0.6931471805599453, 1.0, 10.0, 100.0, 700.0, 709.78, 709.79] + SMALL
    logs = [1.0, 2.0, 10.0, 1000.0, 1e22, 1e23, 0.1, 1 - 2.0 ** -53, 1 + 2.0 ** -52,
            0.7071067811865476, 1.4142135623730951, math.e, 3.0, 1e-300, 1e-310, TINY, MAX,
            2.0 ** -1022, 123456.789]
    pairs = [-3.5, -1e-300, 1e-300, 0.5, 2.0, 1e300, -MAX]
    pow_rows = [(0.75, -746.0), (2.0, 0.5), (10.0, 22.0), (10.0, -5.0), (1 + 2.0 ** -52, 2.0 ** 60),
                (0.5, 1074.0), (0.5, 1075.0), (2.0, -1074.5), (-8.0, 3.0), (-2.0, -3.0),
                (3.0, 1 / 3), (math.e, 709.0), (1e300, 1.02), (1e-300, 1.1), (TINY, 0.5),
                (1 - 2.0 ** -53, -2.0 ** 62), (7.0, 0.1), (123.0, -4.5), (0.999, 1e5),
                (1.0000001, -7e9), (MAX, 0.5), (2.0, 1023.0), (2.0, 1024.0), (-0.5, 1075.0)]
    mods = [(7.5, 2.0), (-7.5, 2.0), (1e300, 3.0), (-MAX, 1.1), (7 * TINY, 2 * TINY),
            (1.0, 0.1), (5e-310, 3e-320), (2.0 ** 1000, 2.0 ** -1000 * 3), (-0.0, 1.0)]
    g = {f: [(x, 0.0) for x in trig] for f in ("Sin", "Cos", "Tan")}
    g.update({f: [(x, 0.0) for x in unit] for f in ("ASin", "ACos")})
    g["ATan"] = [(x, 0.0) for x in wide + [-x for x in wide]]
    g.update({f: [(x, 0.0) for x in hyper] for f in ("SinH", "CosH", "TanH")})
    g["Exp"] = [(x, 0.0) for x in exp]
    g.update({f: [(x, 0.0) for x in logs] for f in ("Log", "Log10")})
    g["Sqrt"] = [(x, 0.0) for x in (2.0, 1e-310, TINY, MAX, 0.1, 1 - 2.0 ** -53)]
    g["ATan2"] = [(x, y) for x in pairs for y in pairs]
    g["Pow"] = pow_rows
    g["Mod"] = mods
    return g


def reference(f, x, y):
    a, b = mpmath.mpf(x), mpmath.mpf(y)
    table = {
        "Sin": lambda: mpmath.sin(a), "Cos": lambda: mpmath.cos(a), "Tan": lambda: mpmath.tan(a),
        "ASin": lambda: mpmath.asin(a), "ACos": lambda: mpmath.acos(a),
        "ATan": lambda: mpmath.atan(a), "ATan2": lambda: mpmath.atan2(b, a),
        "SinH": lambda: mpmath.sinh(a), "CosH": lambda: mpmath.cosh(a),
        "TanH": lambda: mpmath.tanh(a), "Exp": lambda: mpmath.exp(a),
        "Log": lambda: mpmath.log(a), "Log10": lambda: mpmath.log10(a),
        "Sqrt": lambda: mpmath.sqrt(a), "Pow": lambda: mpmath.power(a, b),
    }
    if f == "Mod":
        return math.fmod(x, y)  # exact in any correct C library
    return rounded(table[f]())


def literal(d):
    if math.isinf(d):
        return "kInf" if d > 0 else "-kInf"
    if d == 0:
        return "-0.0" if math.copysign(1, d) < 0 else "0.0"
    mantissa, exponent = d.hex().split("p")
    return mantissa.rstrip("0").rstrip(".") + "p" + exponent


BINARY = ("ATan2", "Pow", "Mod")


def main():
    text = ("// Generated by scripts/gen_math_reference.py; do not edit.\n"
            "// MATHLIB arguments and the correctly rounded results, from mpmath at 2000 bits.\n"
            "#pragma once\n\n#include <limits>\n\nnamespace brelt::test {\n\n"
            "inline constexpr double kInf = std::numeric_limits<double>::infinity();\n\n"
            "struct UnaryRow {\n  double x, want;\n};\nstruct BinaryRow {\n  double x, y, want;\n};\n")
    count = 0
    for f, args in grid().items():
        binary = f in BINARY
        cells = []
        for x, y in args:
            want = reference(f, x, y)
            parts = [literal(x)] + ([literal(y)] if binary else []) + [literal(want)]
            cells.append("{" + ", ".join(parts) + "},")
        count += len(cells)
        text += f"\ninline constexpr {'BinaryRow' if binary else 'UnaryRow'} k{f}Rows[] = {{\n"
        line = ""
        for cell in cells:  # as many to a line as fit in 100 columns
            if line and len(line) + 1 + len(cell) > 96:
                text += "    " + line + "\n"
                line = ""
            line = (line + " " + cell) if line else cell
        text += "    " + line + "\n};\n"
    text += "\n}  // namespace brelt::test\n"
    path = "tests/mathlib/math_reference_table.h"
    with open(path, "w", encoding="ascii") as out:
        out.write(text)
    print(path, count, "rows", file=sys.stderr)


if __name__ == "__main__":
    main()
