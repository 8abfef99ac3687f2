#!/usr/bin/env python3
"""Writes tests/data/integers.txt and tests/data/decimals.txt.

Usage: scripts/make_number_rows.py tests/data

The results come from Python's own integers, with nothing of the library in between. The numbers
are drawn with a fixed seed, so that a new run writes the same files.
"""

import math
import pathlib
import random
import sys

PLACES = 30
LIMB = 10**9
draw = random.Random(16)


def truncated(dividend, divisor):
    quotient = abs(dividend) // abs(divisor)
    return quotient if (dividend < 0) == (divisor < 0) else -quotient


def random_integer(digits):
    style = draw.randrange(4)
    if style == 0:
        value = 10**digits - draw.randrange(3)
    elif style == 1:
        value = 10 ** draw.randrange(digits) * draw.randrange(1, 1000)
    else:
        value = draw.randrange(10 ** (digits - 1), 10**digits)
    return value * draw.choice((1, -1))


def integer_row(a, b):
    quotient = truncated(a, b)
    fields = (a, b, a + b, a - b, a * b, quotient, a - quotient * b, math.isqrt(abs(a)))
    return "\t".join(map(str, fields))


def integer_rows():
    for longest in (3, 20, 40, 80):
        for _ in range(25):
            yield random_integer(draw.randint(1, longest)), random_integer(draw.randint(1, longest))
    for limbs in (2, 3, 5, 12):  # one below a multiple: an estimated quotient digit is too large
        for factor in (draw.randrange(2, LIMB), random_integer(30)):
            divisor = draw.randrange(LIMB ** (limbs - 1) * 600000000, LIMB**limbs)
            yield abs(factor) * divisor - 1, divisor
    for limbs in (1, 2, 6, 7):  # borrows and carries through all limbs, also past the inline ones
        yield LIMB**limbs, 1
        yield LIMB**limbs - 1, LIMB**limbs
        yield LIMB**limbs - 1, 1
    yield random_integer(400), random_integer(190)


def text_of(unscaled, places):
    """The digits of unscaled / 10**places, with a point only before a fraction that is not zero."""
    if unscaled % 10**places == 0:
        return str(truncated(unscaled, 10**places))
    digits = str(abs(unscaled)).rjust(places + 1, "0")
    return ("-" if unscaled < 0 else "") + digits[:-places] + "." + digits[-places:]


def kept(unscaled, places):
    """Without zeros at the end; then at most PLACES places, a half toward zero."""
    while places > 1 and unscaled % 10 == 0:
        unscaled, places = unscaled // 10, places - 1
    if places <= PLACES:
        return text_of(unscaled, places)
    unit = 10 ** (places - PLACES)
    rounded, rest = divmod(abs(unscaled), unit)
    rounded += 2 * rest > unit
    return text_of(rounded if unscaled > 0 else -rounded, PLACES)


def exact(unscaled, places):
    while places > 1 and unscaled % 10 == 0:
        unscaled, places = unscaled // 10, places - 1
    return text_of(unscaled, places)


def random_decimal():
    return random_integer(draw.randint(1, 34)), draw.randint(1, PLACES)


def arithmetic_row():
    (a, p), (b, q) = random_decimal(), random_decimal()
    aligned_a, aligned_b = a * 10**q, b * 10**p
    guarded = truncated(aligned_a * 10 ** (PLACES + 2), aligned_b)
    return (text_of(a, p), text_of(b, q), exact(aligned_a + aligned_b, p + q),
            exact(aligned_a - aligned_b, p + q), kept(a * b, p + q), kept(guarded, PLACES + 2))


def reading_row():
    a, places = random_integer(draw.randint(1, 60)), draw.randint(1, 55)
    exponent = draw.randint(-45, 45)
    text = text_of(a, places) + draw.choice("eE") + draw.choice(("%d", "%+d")) % exponent
    if exponent >= 0:
        return text, kept(a * 10**exponent, places)
    surplus = max(places - exponent - (PLACES + 2), 0)
    return text, kept(truncated(a, 10**surplus), places - exponent - surplus)


def rounding_row():
    a, places = random_integer(draw.randint(1, 12)), draw.randint(1, 12)
    if draw.randrange(2):
        a = a * 10 + draw.choice((5, -5))
        places += 1
    count = draw.randint(0, 12)
    scale = max(places, count + 1)
    total = abs(a) * 10 ** (scale - places) + 5 * 10 ** (scale - count - 1)
    while scale > 1 and total % 10 == 0:
        total, scale = total // 10, scale - 1
    digits = str(total).rjust(scale + 1, "0")
    text = ("-" if a < 0 else "") + digits[:-scale] + "." + digits[-scale:][:count]
    return text_of(a, places), str(count), text


def write(path, comment, rows):
    path.write_text("# %s\n" % comment + "\n".join(rows) + "\n")


def main(folder):
    write(folder / "integers.txt", "a, b, a+b, a-b, a*b, a/b, a%b, root of |a|",
          [integer_row(a, b) for a, b in integer_rows()])
    write(folder / "decimals.txt", "a, b, a+b, a-b, a*b, a/b; text, value; value, places, text",
          ["\t".join(row()) for row in (arithmetic_row, reading_row, rounding_row)
           for _ in range(80)])


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
