"""The time of one attribute access of the Python package, beside that of a class bound by hand."""

import statistics
import timeit

import by_hand
import lwconfig

COUNT = 100_000
STATEMENTS = ("x.DependantCount", "x.Name", "x.DependantCount = 7")


def nanoseconds(statement, thing):
    runs = timeit.repeat(statement, globals={"x": thing}, number=COUNT, repeat=9)
    return statistics.median(runs) / COUNT * 1e9


layout, bound = lwconfig.PageLayout(), by_hand.Layout()
layout.Name = bound.Name
for statement in STATEMENTS:
    base, own = nanoseconds(statement, bound), nanoseconds(statement, layout)
    print(f"{'python/' + statement:<44} {own:11.1f} ns {own / base:10.2f} of one bound by hand (aim: at most 2)")
