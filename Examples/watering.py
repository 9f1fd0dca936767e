#!/usr/bin/env python3
"""Says how much water the beds want today.

A bed loses what the sun takes and gains what the rain gives. The difference is what the can has to bring, but
never more than the soil can hold at once.
"""

from __future__ import annotations

import argparse
from dataclasses import dataclass


@dataclass(frozen=True)
class Bed:
    name: str
    area: float  # square metres
    thirst: float  # of a meadow's loss: 1.0 is a meadow, tomatoes drink more
    holds: float  # litres per square metre that do not run through


BEDS = [
    Bed("Lettuce", area=1.8, thirst=0.9, holds=9),
    Bed("Tomatoes", area=1.8, thirst=1.2, holds=14),
    Bed("Carrots", area=1.8, thirst=0.8, holds=6),
    Bed("Herbs", area=2.8, thirst=0.5, holds=5),
]


def loss(warmest: float, hours_of_sun: float) -> float:
    """Litres that a square metre of meadow loses in a day. A rule of thumb, good to a third."""
    return max(0.0, 0.12 * warmest + 0.18 * hours_of_sun)


def litres(bed: Bed, warmest: float, hours_of_sun: float, rain: float) -> float:
    """What the can has to bring to `bed`, rounded to half a litre."""
    wanted = loss(warmest, hours_of_sun) * bed.thirst - rain
    brought = min(max(wanted, 0.0), bed.holds) * bed.area
    return round(brought * 2) / 2


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--warmest", type=float, default=26, help="degrees Celsius")
    parser.add_argument("--sun", type=float, default=9, help="hours")
    parser.add_argument("--rain", type=float, default=0, help="litres per square metre")
    today = parser.parse_args()

    total = 0.0
    for bed in BEDS:
        amount = litres(bed, today.warmest, today.sun, today.rain)
        total += amount
        drops = "💧" * round(amount / 2)
        print(f"{bed.name:<10}{amount:>5.1f} l  {drops}")
    print(f"{'Together':<10}{total:>5.1f} l")


if __name__ == "__main__":
    main()
