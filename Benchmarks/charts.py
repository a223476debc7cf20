# SPDX-License-Identifier: Apache-2.0
"""Charts as SVG, for pages that are read as files: no script, no font to be fetched, a background of their own."""
import html
import math

COLOURS = ['#1b6ca8', '#e07b39', '#4a9b6e', '#a44a6b', '#8a7a2b', '#6a5acd', '#4d4d4d', '#c23b3b', '#2f9aa0']
WIDTH, ROW, LEFT, RIGHT, TOP = 760, 18, 150, 90, 44
PLOT_HEIGHT, BOTTOM = 320, 48


def text(x, y, words, anchor='start', size=12, weight='normal'):
    return '<text x="%.1f" y="%.1f" text-anchor="%s" font-size="%d" font-weight="%s">%s</text>' % (
        x, y, anchor, size, weight, html.escape(words))


def line(x1, y1, x2, y2, colour='#dddddd'):
    return '<line x1="%.1f" y1="%.1f" x2="%.1f" y2="%.1f" stroke="%s"/>' % (x1, y1, x2, y2, colour)


def picture(height, title, parts):
    head = ('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 %d %d" width="%d" height="%d" font-family="sans-serif" '
            'fill="#222222">' % (WIDTH, height, WIDTH, height))
    ground = '<rect width="%d" height="%d" fill="#ffffff"/>' % (WIDTH, height)
    return '\n'.join([head, ground, text(WIDTH / 2, 22, title, 'middle', 15, 'bold'), *parts, '</svg>']) + '\n'


def number(value):
    """Three digits that matter."""
    if value >= 100:
        return '%.0f' % value
    return ('%.3g' if value >= 0.01 or value == 0 else '%.1g') % value


def ticks(least, most):
    """The powers of ten that hold everything between."""
    first, last = math.floor(math.log10(least)), math.ceil(math.log10(most))
    return [10.0 ** power for power in range(first, max(last, first + 1) + 1)]


class Scale:
    """From values to places, by the logarithm."""

    def __init__(self, values, start, end):
        self.ticks = ticks(min(values), max(values))
        self.start, self.end = start, end

    def __call__(self, value):
        low, high = math.log10(self.ticks[0]), math.log10(self.ticks[-1])
        return self.start + (self.end - self.start) * (math.log10(value) - low) / (high - low)


def bars(title, unit, groups, first):
    """A bar for each value of {group: {name: value}}, on one scale of powers of ten; those of `first` have a colour of
    their own."""
    values = [value for group in groups.values() for value in group.values()]
    scale = Scale(values, LEFT, WIDTH - RIGHT)
    parts, y = [], TOP
    height = TOP + sum(len(group) * ROW + 26 for group in groups.values()) + 30
    for tick in scale.ticks:
        parts.append(line(scale(tick), TOP - 6, scale(tick), height - 34))
        parts.append(text(scale(tick), height - 18, '%s %s' % (number(tick), unit), 'middle', 11))
    for group, members in groups.items():
        parts.append(text(LEFT - 8, y + 12, group, 'end', 12, 'bold'))
        y += ROW
        for name, value in members.items():
            parts.append('<rect x="%d" y="%.1f" width="%.1f" height="%d" fill="%s"/>' % (
                LEFT, y, max(scale(value) - LEFT, 1), ROW - 4, COLOURS[0] if name == first else '#b9c4cc'))
            parts.append(text(LEFT - 8, y + 11, name, 'end', 11))
            parts.append(text(scale(value) + 6, y + 11, number(value), size=11))
            y += ROW
        y += 8
    return picture(height, title, parts)


def points(title, across, upwards, series, joined=False):
    """The pairs of {name: [(x, y), ...]} over two scales of powers of ten, joined by lines or not."""
    pairs = [pair for values in series.values() for pair in values]
    bottom = TOP + PLOT_HEIGHT
    xs = Scale([x for x, _ in pairs], 70, WIDTH - 150)
    ys = Scale([y for _, y in pairs], bottom, TOP)
    parts = []
    for tick in xs.ticks:
        parts += [line(xs(tick), TOP, xs(tick), bottom), text(xs(tick), bottom + 16, number(tick), 'middle', 11)]
    for tick in ys.ticks:
        parts += [line(70, ys(tick), WIDTH - 150, ys(tick)), text(64, ys(tick) + 4, number(tick), 'end', 11)]
    parts += [text(WIDTH / 2 - 40, bottom + 36, across, 'middle'), text(70, TOP - 8, upwards)]
    for index, (name, values) in enumerate(series.items()):
        colour, y = COLOURS[index % len(COLOURS)], TOP + 16 + index * 20
        places = [(xs(a), ys(b)) for a, b in sorted(values)]
        if joined:
            parts.append('<polyline fill="none" stroke="%s" stroke-width="2" points="%s"/>' % (
                colour, ' '.join('%.1f,%.1f' % place for place in places)))
        parts += ['<circle cx="%.1f" cy="%.1f" r="%s" fill="%s" fill-opacity="0.7"/>' % (*place, 4 if joined else 2.5, colour)
                  for place in places]
        parts += ['<circle cx="%d" cy="%d" r="5" fill="%s"/>' % (WIDTH - 134, y - 4, colour), text(WIDTH - 124, y, name)]
    return picture(bottom + BOTTOM, title, parts)
