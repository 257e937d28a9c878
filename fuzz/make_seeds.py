#!/usr/bin/env python3
"""Writes the seed corpus: a loaded chart (price bars, volume, an indicator,
a second panel) followed by random operations, so that mutations start from
the states real data builds. Byte layouts follow FuzzDriver::step()."""
import os
import random
import sys

out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "corpus")
os.makedirs(out, exist_ok=True)

OHLC, VOLUME, MA, BAND, POSITION, BUY, SELL = 2, 3, 4, 5, 6, 7, 8


def add_series(name, panel_code):
    # op, name, utf8 flag, type, panel, two ignored longs, bool
    return bytes([4, name, 0, 0, panel_code, 0, 0, 0])


def feed(count, step, price, with_value, seed):
    return bytes([50, 1, count & 0xff, count >> 8, step, 6, step,
                  price & 0xff, price >> 8, with_value]) + seed.to_bytes(4, "little")


def position_line(name, price):
    # op, panel 0, price, count, id, flag, text, two flags
    return bytes([33, 1, 100, price & 0xff, price >> 8, 1, name, 0, 100, 0, 0])


rng = random.Random(20261122)
for i in range(24):
    prefix = add_series(OHLC, 1) + feed(rng.randrange(50, 1000), i % 6, rng.randrange(100, 8000),
                                        i % 2, rng.getrandbits(32))
    if i % 3 == 0:
        prefix += add_series(VOLUME, 3) + add_series(MA, 1)
    if i % 4 == 1:
        prefix += position_line(POSITION, 2000) + position_line(BUY, 2100) + position_line(SELL, 1900)
    tail = bytes(rng.getrandbits(8) for _ in range(rng.randrange(64, 1500)))
    with open(os.path.join(out, "seed-%02d" % i), "wb") as f:
        f.write(prefix + tail)

# Drawing sessions: the same loaded charts, then tails in which most
# operation bytes pick the drawing tool operations (64..67).
draw_rng = random.Random(20270112)
for i in range(6):
    prefix = add_series(OHLC, 1) + feed(draw_rng.randrange(100, 600), 0, 3000, 0,
                                        draw_rng.getrandbits(32))
    if i % 2:
        prefix += add_series(MA, 1) + add_series(VOLUME, 3)
    tail = bytes(draw_rng.choice([64, 64, 65, 66, 67, 144, 145]) if draw_rng.random() < 0.35
                 else draw_rng.getrandbits(8) for _ in range(draw_rng.randrange(200, 1200)))
    with open(os.path.join(out, "seed-draw-%02d" % i), "wb") as f:
        f.write(prefix + tail)

# Panels moved among feeds, navigation and drags (operations 76 and 77) on a
# loaded three-panel chart. Arguments are drawn mostly from the two
# operation codes themselves, so that whatever an operation reads, the next
# one is likely one of them again.
rng = random.Random(20261123)
for i in range(6):
    prefix = (add_series(OHLC, 1) + add_series(VOLUME, 3) + add_series(MA, 5)
              + feed(rng.randrange(100, 600), i % 6, rng.randrange(100, 8000), 1,
                     rng.getrandbits(32))
              + position_line(BUY, 2100))
    tail = bytes(rng.choice([76, 77, 76, 77, rng.randrange(0, 256)])
                 for _ in range(rng.randrange(200, 600)))
    with open(os.path.join(out, "moves-%02d" % i), "wb") as f:
        f.write(prefix + tail)
