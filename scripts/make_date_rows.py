#!/usr/bin/env python3
"""Writes tests/data/date_sums.txt and tests/data/duration_orders.txt.

Usage: scripts/make_date_rows.py tests/data

The results come from Python's own calendar, with nothing of the library in between. The values are
drawn with a fixed seed, so that a new run writes the same files.
"""

import calendar
import datetime
import pathlib
import random
import sys

draw = random.Random(1696)
REFERENCES = [datetime.datetime(*date) for date in
              ((1696, 9, 1), (1697, 2, 1), (1903, 3, 1), (1903, 7, 1))]
EPOCH = datetime.datetime(1970, 1, 1)


class Span:
    def __init__(self, negative, months, delta):
        self.negative, self.months, self.delta = negative, months, delta

    def text(self):
        years, months = divmod(self.months, 12)
        return ("-" if self.negative else "") + "P" + fields((years, "Y"), (months, "M")) \
            + delta_text(self.delta, empty=self.months == 0)

    def added_to(self, start):
        sign = -1 if self.negative else 1
        months = start.year * 12 + start.month - 1 + sign * self.months
        year, month = months // 12, months % 12 + 1
        if not 1 <= year <= 9999:
            raise OverflowError
        day = min(start.day, calendar.monthrange(year, month)[1])
        return start.replace(year=year, month=month, day=day) + sign * self.delta


def fields(*pairs):
    return "".join(f"{value}{name}" for value, name in pairs if value)


def fraction(microseconds):
    return f".{microseconds:06}".rstrip("0") if microseconds else ""


def delta_text(delta, empty):
    minutes, seconds = divmod(delta.seconds, 60)
    hours, minutes = divmod(minutes, 60)
    text = fields((hours, "H"), (minutes, "M"))
    if seconds or delta.microseconds or (empty and not text and not delta.days):
        text += f"{seconds}{fraction(delta.microseconds)}S"
    return fields((delta.days, "D")) + ("T" + text if text else "")


def difference_text(a, b):
    return ("-" if a < b else "") + "P" + delta_text(abs(a - b), empty=True)


def date_text(value):
    return value.replace(microsecond=0).isoformat() + fraction(value.microsecond)


def random_date():
    year = draw.choice((draw.randrange(2, 9999), draw.randrange(1890, 2110)))
    month = draw.choice((draw.randrange(1, 13), 2, 12))
    last = calendar.monthrange(year, month)[1]
    day = draw.choice((draw.randrange(1, last + 1), last, 1))
    second = draw.choice((0, 86399, draw.randrange(86400)))
    microsecond = draw.choice((0, 0, 500000, 1, draw.randrange(10**6)))
    return datetime.datetime(year, month, day) + datetime.timedelta(
        seconds=second, microseconds=microsecond)


def random_span():
    months = draw.choice((0, 0, draw.randrange(1, 13), draw.randrange(1, 5000)))
    days = draw.choice((0, 1, draw.randrange(400), draw.randrange(100000)))
    microseconds = draw.choice((0, 1, draw.randrange(86400 * 10**6)))
    seconds = draw.choice((0, 1, draw.randrange(86400)))
    delta = datetime.timedelta(days, seconds, microseconds)
    return Span(draw.random() < 0.5, months, delta)


def date_row():
    a, b, span = random_date(), random_date(), random_span()
    total = span.added_to(a)
    minutes = draw.randrange(60)
    hours = draw.randrange(-23, 24)
    zone = datetime.timedelta(minutes=abs(hours) * 60 + minutes) * (-1 if hours < 0 else 1)
    zone_text = f"{'-' if hours < 0 else '+'}{abs(hours):02}:{minutes:02}"
    utc = (a - zone).replace(microsecond=a.microsecond)
    seconds = (a.replace(microsecond=0) - EPOCH) // datetime.timedelta(seconds=1)
    return "\t".join(map(str, (
        date_text(a), span.text(), date_text(total), date_text(b), difference_text(a, b),
        a.timetuple().tm_yday, a.isoweekday() % 7 + 1, seconds, zone_text, date_text(utc))))


def order(a, b):
    sums = [(a.added_to(start), b.added_to(start)) for start in REFERENCES]
    results = {(left > right) - (left < right) for left, right in sums}
    return {0: "=", -1: "<", 1: ">"}[results.pop()] if len(results) == 1 else "?"


def order_row():
    months = draw.randrange(1, 60)
    days = max(0, months * 30 + draw.randrange(-2, months // 2 + 4))
    negative = draw.random() < 0.3
    a = Span(negative, months, datetime.timedelta(draw.choice((0, 1, 30))))
    b = Span(negative and draw.random() < 0.9, draw.choice((0, 0, 1)),
             datetime.timedelta(days, draw.choice((0, 3600))))
    if draw.random() < 0.5:
        a, b = b, a
    return "\t".join((a.text(), order(a, b), b.text()))


def write(path, heading, make_row, count):
    rows = []
    while len(rows) < count:
        try:
            rows.append(make_row())
        except OverflowError:  # beyond Python's calendar
            pass
    path.write_text("# " + heading + "\n" + "\n".join(rows) + "\n")


def main():
    folder = pathlib.Path(sys.argv[1])
    write(folder / "date_sums.txt",
          "a, duration, a + duration, b, a - b, day of the year and of the week of a, seconds since"
          " 1970, zone, a of the zone in UTC", date_row, 200)
    write(folder / "duration_orders.txt", "a, order, b", order_row, 150)


if __name__ == "__main__":
    main()
