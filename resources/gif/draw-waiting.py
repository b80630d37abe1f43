#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the waiting animation: a ring that thins out towards its tail and turns once a second.

Needs rsvg-convert and ImageMagick's convert. GIF knows no half-transparent pixels, so the tail fades
by growing thin, and the one colour stands out on light and on dark alike.
"""
import math
import pathlib
import subprocess
import tempfile

SIDE = 96
FRAMES = 24
DELAY_CENTISECONDS = 4
COLOUR = "#3D84F5"
OUTER_RADIUS = 43
HEAD_WIDTH = 13
SWEEP_DEGREES = 300
STEPS = 72


def point(radius, degrees):
    angle = math.radians(degrees)
    return f"{SIDE / 2 + radius * math.cos(angle):.2f},{SIDE / 2 + radius * math.sin(angle):.2f}"


def ring(turn):
    outer, inner = [], []
    for step in range(STEPS + 1):
        share = step / STEPS
        half = (1 + (HEAD_WIDTH - 1) * share) / 2
        degrees = turn + SWEEP_DEGREES * share
        middle = OUTER_RADIUS - HEAD_WIDTH / 2
        outer.append(point(middle + half, degrees))
        inner.append(point(middle - half, degrees))
    head_x, head_y = point(OUTER_RADIUS - HEAD_WIDTH / 2, turn + SWEEP_DEGREES).split(",")
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{SIDE}" height="{SIDE}">'
            f'<polygon fill="{COLOUR}" points="{" ".join(outer + inner[::-1])}"/>'
            f'<circle fill="{COLOUR}" cx="{head_x}" cy="{head_y}" r="{HEAD_WIDTH / 2}"/></svg>')


def main():
    target = pathlib.Path(__file__).parent / "Waiting_M_4.gif"
    with tempfile.TemporaryDirectory() as folder:
        frames = []
        for frame in range(FRAMES):
            picture = pathlib.Path(folder) / f"{frame:02}.png"
            subprocess.run(["rsvg-convert", "-o", picture], check=True,
                           input=ring(360 * frame / FRAMES).encode())
            frames.append(picture)
        subprocess.run(["convert", "-dispose", "Background", "-delay", str(DELAY_CENTISECONDS),
                        "-loop", "0", *frames, "-channel", "A", "-threshold", "50%", "+channel",
                        target], check=True)


if __name__ == "__main__":
    main()
