#!/usr/bin/env python3
"""dessine_quartier.py N [--graine G]: a DXF drawing of exactly N entities on standard output, in millimetres.

A district of houses on a square grid, each with walls, doors, windows, furniture, floors of hatch lines, names, axes and
dimensions; layers, colours, line types and weights as in a plan. The same N and seed give the same file. Lines are
written as they are made: memory does not grow with N.
"""
import argparse
import math
import random
import sys

from dxf_ecrit import Dessin

PAR_MAISON = 270  # entities, about
PARCELLE = 22000.0
PIECES = ("CUISINE", "SEJOUR", "CHAMBRE", "BUREAU", "BAIN", "ENTREE", "ATELIER", "CELLIER")


def tables():
    """Header, layers, line types and blocks, up to where the entities begin."""
    d = Dessin()
    d.motif("CENTER", "axe", 1250, -250, 250, -250)
    d.motif("HIDDEN", "cache", 250, -125)
    d.motif("DASHED", "tirets", 500, -250)
    for nom, couleur, trait, poids in (
            ("PARCELLES", 8, "DASHED", 25), ("MURS", 7, "CONTINUOUS", 50), ("CLOISONS", 9, "CONTINUOUS", 25),
            ("PORTES", 30, "CONTINUOUS", 18), ("FENETRES", 4, "CONTINUOUS", 18), ("SOLS", 34, "CONTINUOUS", 9),
            ("MOBILIER", 94, "CONTINUOUS", 13), ("SANITAIRE", 140, "CONTINUOUS", 13), ("ARBRES", 82, "CONTINUOUS", 13),
            ("AXES", 1, "CENTER", 13), ("TOITURE", 6, "HIDDEN", 18), ("COTES", 3, "CONTINUOUS", 9),
            ("TEXTES", 2, "CONTINUOUS", 13), ("POTEAUX", 251, "CONTINUOUS", 13)):
        d.nouveau_calque(nom, couleur, trait, poids)
    d.bloc("CHAISE")
    d.rectangle(-220.0, -220.0, 440.0, 440.0)
    d.ligne(-220.0, 180.0, 220.0, 180.0)
    d.modele()
    texte = d.fichier()
    return texte[:texte.rindex("  0\r\nENDSEC")]


class Quartier:
    """Writes entities until there are enough of them."""

    def __init__(self, sortie, nombre, graine):
        self.ecrit, self.reste, self.hasard = sortie.write, nombre, random.Random(graine)

    def pose(self, genre, calque, corps, options=""):
        if self.reste > 0:
            self.reste -= 1
            self.ecrit(f"0\n{genre}\n8\n{calque}\n{options}{corps}")

    def ligne(self, calque, x1, y1, x2, y2, options=""):
        self.pose("LINE", calque, f"10\n{x1:.1f}\n20\n{y1:.1f}\n11\n{x2:.1f}\n21\n{y2:.1f}\n", options)

    def contour(self, calque, points, fermee=1, options=""):
        sommets = "".join(f"10\n{x:.1f}\n20\n{y:.1f}\n" for x, y in points)
        self.pose("LWPOLYLINE", calque, f"90\n{len(points)}\n70\n{fermee}\n{sommets}", options)

    def rectangle(self, calque, x, y, l, h, options=""):
        self.contour(calque, ((x, y), (x + l, y), (x + l, y + h), (x, y + h)), 1, options)

    def cercle(self, calque, x, y, r):
        self.pose("CIRCLE", calque, f"10\n{x:.1f}\n20\n{y:.1f}\n40\n{r:.1f}\n")

    def arc(self, calque, x, y, r, a, b):
        self.pose("ARC", calque, f"10\n{x:.1f}\n20\n{y:.1f}\n40\n{r:.1f}\n50\n{a}\n51\n{b}\n")

    def texte(self, calque, x, y, h, texte):
        self.pose("TEXT", calque, f"10\n{x:.1f}\n20\n{y:.1f}\n40\n{h:.1f}\n1\n{texte}\n")

    # --- houses ---------------------------------------------------------------------------------------------------

    def porte(self, x, y, l):
        self.ligne("PORTES", x, y, x, y + l)
        self.arc("PORTES", x, y, l, 0, 90)

    def sol(self, x, y, l, h):
        """Boards or tiles, each its own line, as an exploded hatch has them."""
        pas = self.hasard.choice((180, 250, 300, 400))
        for i in range(1, int(l / pas)):
            self.ligne("SOLS", x + i * pas, y, x + i * pas, y + h)
        if self.hasard.random() < 0.5:
            for i in range(1, int(h / pas)):
                self.ligne("SOLS", x, y + i * pas, x + l, y + i * pas, "62\n35\n" if i % 2 else "")

    def meubles(self, x, y, l, h):
        for _ in range(self.hasard.randrange(3, 9)):
            u, v = x + self.hasard.random() * l * 0.7, y + self.hasard.random() * h * 0.7
            genre = self.hasard.randrange(6)
            if genre == 0:
                self.cercle("MOBILIER", u, v, 300 + 400 * self.hasard.random())
            elif genre == 1:
                self.rectangle("MOBILIER", u, v, 1600, 900)
                self.rectangle("MOBILIER", u + 50, v + 50, 1500, 800, "62\n95\n")
            elif genre == 2:
                self.pose("INSERT", "MOBILIER", f"2\nCHAISE\n10\n{u:.1f}\n20\n{v:.1f}\n50\n{self.hasard.randrange(360)}\n")
            elif genre == 3:
                self.pose("ELLIPSE", "SANITAIRE",
                          f"10\n{u:.1f}\n20\n{v:.1f}\n11\n350\n21\n0\n40\n0.6\n41\n0\n42\n{2 * math.pi:.6f}\n")
            elif genre == 4:
                self.rectangle("SANITAIRE", u, v, 600, 500)
                self.cercle("SANITAIRE", u + 300, v + 250, 40)
            else:
                self.ligne("MOBILIER", u, v, u + 1200, v)
                self.ligne("MOBILIER", u, v, u, v + 400)

    def piece(self, x, y, l, h):
        self.rectangle("CLOISONS", x, y, l, h)
        self.sol(x, y, l, h)
        self.porte(x + 300, y, 830)
        self.meubles(x, y, l, h)
        self.texte("TEXTES", x + l * 0.3, y + h * 0.5, 250, self.hasard.choice(PIECES))
        self.texte("TEXTES", x + l * 0.3, y + h * 0.5 - 400, 180, f"{l * h / 1e6:.2f} m2")

    def facades(self, x, y, l, h):
        for dx, dy in ((0, 0), (300, 300)):
            self.rectangle("MURS", x + dx, y + dy, l - 2 * dx, h - 2 * dy)
        for i in range(5):
            u = x + l * (i + 0.3) / 5
            for v in (y, y + h - 300):
                self.rectangle("FENETRES", u, v, 1200, 300)
                self.ligne("FENETRES", u, v + 150, u + 1200, v + 150)
        self.rectangle("TOITURE", x - 500, y - 500, l + 1000, h + 1000)
        for u in (x, x + l):
            for v in (y, y + h):
                self.pose("SOLID", "POTEAUX", "".join(
                    f"{10 + i}\n{u + a:.1f}\n{20 + i}\n{v + b:.1f}\n"
                    for i, (a, b) in enumerate(((-150, -150), (150, -150), (-150, 150), (150, 150)))))

    def reperes(self, x, y, l, h):
        for u in (x, x + l):
            self.ligne("AXES", u, y - 2000, u, y + h + 2000)
        for v in (y, y + h):
            self.ligne("AXES", x - 2000, v, x + l + 2000, v, "62\n5\n")
        self.ligne("COTES", x, y - 1500, x + l, y - 1500)
        self.texte("COTES", x + l * 0.45, y - 1400, 200, f"{l / 1000:.2f}")
        self.pose("POINT", "COTES", f"10\n{x:.1f}\n20\n{y - 1500:.1f}\n")

    def maison(self, x, y):
        l, h = 11000 + 4000 * self.hasard.random(), 9000 + 3000 * self.hasard.random()
        u, v = x + 3000 + 1000 * self.hasard.random(), y + 3500
        self.rectangle("PARCELLES", x, y, PARCELLE, PARCELLE)
        self.facades(u, v, l, h)
        colonnes, rangees = self.hasard.choice(((2, 2), (3, 2), (3, 3), (4, 2)))
        for i in range(colonnes):
            for j in range(rangees):
                self.piece(u + 400 + i * (l - 800) / colonnes, v + 400 + j * (h - 800) / rangees,
                           (l - 800) / colonnes - 120, (h - 800) / rangees - 120)
        self.reperes(u, v, l, h)
        for _ in range(self.hasard.randrange(4)):
            self.cercle("ARBRES", x + 1500 + 18000 * self.hasard.random(), y + 1200, 900)


def main():
    arguments = argparse.ArgumentParser(description="A DXF drawing of N entities on standard output.")
    arguments.add_argument("n", type=int)
    arguments.add_argument("--graine", type=int, default=1)
    a = arguments.parse_args()
    if a.n < 1:
        arguments.error("n must be 1 or more")
    sys.stdout.write(tables())
    quartier = Quartier(sys.stdout, a.n, a.graine)
    cote = max(1, math.isqrt(a.n // PAR_MAISON))
    maison = 0
    while quartier.reste > 0:
        quartier.maison(maison % cote * PARCELLE, maison // cote * PARCELLE)
        maison += 1
    sys.stdout.write("0\nENDSEC\n0\nEOF\n")


if __name__ == "__main__":
    main()
