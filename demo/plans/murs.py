"""Walls: rectangles less openings, as outlines that share no line, and their hatching."""


class Murs:
    """Cells of the grid that all edges make; a cell is wall when a wall covers it and no opening does."""

    def __init__(self, murs, ouvertures):
        self.murs, self.ouvertures = murs, ouvertures
        self.xs = sorted({v for r in murs + ouvertures for v in (r[0], r[2])})
        self.ys = sorted({v for r in murs + ouvertures for v in (r[1], r[3])})
        self.pleins = {(i, j) for i in range(len(self.xs) - 1) for j in range(len(self.ys) - 1) if self._plein(i, j)}

    def _plein(self, i, j):
        x, y = (self.xs[i] + self.xs[i + 1]) / 2, (self.ys[j] + self.ys[j + 1]) / 2
        dans = lambda r: r[0] < x < r[2] and r[1] < y < r[3]
        return any(map(dans, self.murs)) and not any(map(dans, self.ouvertures))

    def contours(self):
        """Closed outlines, the wall on their left."""
        bords = {}
        for i, j in self.pleins:
            for (di, dj), a, b in (((0, -1), (i, j), (i + 1, j)), ((1, 0), (i + 1, j), (i + 1, j + 1)),
                                   ((0, 1), (i + 1, j + 1), (i, j + 1)), ((-1, 0), (i, j + 1), (i, j))):
                if (i + di, j + dj) not in self.pleins:
                    bords.setdefault(a, []).append(b)
        while bords:
            yield self._contour(bords)

    def _contour(self, bords):
        depart = min(bords)
        noeuds = [depart]
        while True:
            ici = noeuds[-1]
            suivants = bords[ici]
            suivant = suivants.pop()
            if not suivants:
                del bords[ici]
            if suivant == depart:
                break
            noeuds.append(suivant)
        points = [(self.xs[i], self.ys[j]) for i, j in noeuds]
        droit = lambda a, b, c: (b[0] - a[0]) * (c[1] - b[1]) == (b[1] - a[1]) * (c[0] - b[0])
        return [p for k, p in enumerate(points) if not droit(points[k - 1], p, points[(k + 1) % len(points)])]

    def hachures(self, pas):
        """Segments at 45 degrees within the walls, `pas` apart along x."""
        debut = self.xs[0] - self.ys[-1]
        c = debut - debut % pas
        while c < self.xs[-1] - self.ys[0]:
            yield from self._hachure(c)
            c += pas

    def _hachure(self, c):
        """The line x - y = c."""
        coupes = sorted({y for y in self.ys} | {x - c for x in self.xs})
        ouvert = None
        for a, b in zip(coupes, coupes[1:]):
            milieu = (a + b) / 2
            dedans = self._dans(milieu + c, milieu)
            if dedans and ouvert is None:
                ouvert = a
            if not dedans and ouvert is not None:
                yield (ouvert + c, ouvert, a + c, a)
                ouvert = None
        if ouvert is not None:
            yield (ouvert + c, ouvert, coupes[-1] + c, coupes[-1])

    def _dans(self, x, y):
        i = next((k for k in range(len(self.xs) - 1) if self.xs[k] < x < self.xs[k + 1]), None)
        j = next((k for k in range(len(self.ys) - 1) if self.ys[k] < y < self.ys[k + 1]), None)
        return (i, j) in self.pleins

    def rectangles(self):
        """The wall as rectangles: rows of cells."""
        for j in range(len(self.ys) - 1):
            i = 0
            while i < len(self.xs) - 1:
                k = i
                while (k, j) in self.pleins:
                    k += 1
                if k > i:
                    yield self.xs[i], self.ys[j], self.xs[k], self.ys[j + 1]
                i = max(k, i + 1)
