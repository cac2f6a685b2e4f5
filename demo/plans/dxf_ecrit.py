"""A small writer of DXF drawings: what the sample plan needs, in millimetres."""
import math


class Dessin:
    """Collects layers, blocks and entities; `texte` gives the file."""

    def __init__(self):
        self.calques, self.motifs, self.blocs = {}, {}, {}
        self.entites = []
        self.ou = self.entites
        self.calque = "0"
        self.options = {}

    # --- tables ---------------------------------------------------------------------------------------------------

    def motif(self, nom, description, *tirets):
        self.motifs[nom] = (description, tirets)

    def nouveau_calque(self, nom, couleur, trait="CONTINUOUS", poids=13):
        self.calques[nom] = (couleur, trait, poids)

    def sur(self, calque, **options):
        """What follows goes to this layer; options: couleur, trait, poids of its own."""
        self.calque, self.options = calque, options
        return self

    def bloc(self, nom, base=(0, 0)):
        """What follows goes into this block, until `modele`."""
        self.blocs[nom] = (base, [])
        self.ou = self.blocs[nom][1]
        return self.sur("0", couleur=0)

    def modele(self):
        self.ou = self.entites

    # --- entities -------------------------------------------------------------------------------------------------

    def ajoute(self, genre, *paires):
        commun = [(8, self.calque)]
        commun += [(code, self.options[nom]) for code, nom in ((6, "trait"), (62, "couleur"), (370, "poids"))
                   if nom in self.options]
        self.ou.append([(0, genre)] + commun + list(paires))

    def ligne(self, x1, y1, x2, y2):
        self.ajoute("LINE", (10, x1), (20, y1), (11, x2), (21, y2))

    def lignes(self, *points):
        """Open polyline; a third number of a point is the bulge of the arc to the next one."""
        self.polyligne(points, False)

    def contour(self, *points):
        self.polyligne(points, True)

    def polyligne(self, points, fermee):
        paires = [(90, len(points)), (70, 1 if fermee else 0)]
        for p in points:
            paires += [(10, p[0]), (20, p[1])] + ([(42, p[2])] if len(p) > 2 else [])
        self.ajoute("LWPOLYLINE", *paires)

    def rectangle(self, x, y, l, h):
        self.contour((x, y), (x + l, y), (x + l, y + h), (x, y + h))

    def arrondi(self, x, y, l, h, r):
        """Rectangle with rounded corners."""
        b = math.tan(math.pi / 8)
        self.contour((x + r, y), (x + l - r, y, b), (x + l, y + r), (x + l, y + h - r, b), (x + l - r, y + h),
                     (x + r, y + h, b), (x, y + h - r), (x, y + r, b))

    def cercle(self, x, y, r):
        self.ajoute("CIRCLE", (10, x), (20, y), (40, r))

    def arc(self, x, y, r, a, b):
        self.ajoute("ARC", (10, x), (20, y), (40, r), (50, a), (51, b))

    def ellipse(self, x, y, mx, my, ratio, a=0.0, b=2 * math.pi):
        self.ajoute("ELLIPSE", (10, x), (20, y), (11, mx), (21, my), (40, ratio), (41, a), (42, b))

    def spline(self, *poles, degre=3, poids=None):
        n = len(poles)
        noeuds = [0.0] * (degre + 1) + [float(i) for i in range(1, n - degre)] + [float(n - degre)] * (degre + 1)
        paires = [(70, 8), (71, degre), (72, len(noeuds)), (73, n), (74, 0)] + [(40, k) for k in noeuds]
        if poids:
            paires += [(41, w) for w in poids]
        for x, y in poles:
            paires += [(10, x), (20, y), (30, 0)]
        self.ajoute("SPLINE", *paires)

    def boucle(self, *poles):
        """Closed smooth curve guided by points: a periodic cubic."""
        n, p = len(poles), 3
        tour = list(poles) + list(poles[:p])
        noeuds = [float(i) for i in range(len(tour) + p + 1)]
        paires = [(70, 11), (71, p), (72, len(noeuds)), (73, len(tour)), (74, 0)] + [(40, k) for k in noeuds]
        for x, y in tour:
            paires += [(10, x), (20, y), (30, 0)]
        self.ajoute("SPLINE", *paires)

    def point(self, x, y):
        self.ajoute("POINT", (10, x), (20, y))

    def solide(self, *p):
        """Filled triangle or quadrangle, corners in turn."""
        p = list(p) + [p[-1]] * (4 - len(p))
        ordre = (p[0], p[1], p[3], p[2])
        self.ajoute("SOLID", *[paire for i, (x, y) in enumerate(ordre) for paire in ((10 + i, x), (20 + i, y))])

    def texte(self, x, y, h, texte, angle=0.0, place="gauche", largeur=1.0):
        """place: gauche, centre, droite (on the baseline) or milieu (both ways)."""
        justification = {"gauche": 0, "centre": 1, "droite": 2, "milieu": 4}[place]
        paires = [(10, x), (20, y), (40, h), (1, texte), (50, angle), (41, largeur)]
        if justification:
            paires += [(72, justification), (11, x), (21, y)]
        self.ajoute("TEXT", *paires)

    def paragraphe(self, x, y, h, texte, place=5, largeur=0.0):
        """place: 1 top left ... 5 middle ... 9 bottom right."""
        self.ajoute("MTEXT", (10, x), (20, y), (40, h), (41, largeur), (71, place), (72, 1), (1, texte))

    def insere(self, nom, x, y, angle=0.0, sx=1.0, sy=1.0, colonnes=1, rangees=1, pas_x=0.0, pas_y=0.0):
        paires = [(2, nom), (10, x), (20, y), (41, sx), (42, sy), (50, angle)]
        if colonnes * rangees > 1:
            paires += [(70, colonnes), (71, rangees), (44, pas_x), (45, pas_y)]
        self.ajoute("INSERT", *paires)

    # --- file -----------------------------------------------------------------------------------------------------

    def fichier(self):
        sections = [("HEADER", self._entete()), ("TABLES", self._tables()), ("BLOCKS", self._blocs()),
                    ("ENTITIES", [paire for e in self.entites for paire in e])]
        paires = []
        for nom, contenu in sections:
            paires += [(0, "SECTION"), (2, nom)] + contenu + [(0, "ENDSEC")]
        paires.append((0, "EOF"))
        return "".join(f"{code:3d}\r\n{self._valeur(v)}\r\n" for code, v in paires)

    @staticmethod
    def _valeur(v):
        if isinstance(v, float):
            return f"{v:.6f}".rstrip("0").rstrip(".") if abs(v) > 5e-7 else "0"
        return str(v)

    @staticmethod
    def _entete():
        return [(9, "$ACADVER"), (1, "AC1015"), (9, "$DWGCODEPAGE"), (3, "ANSI_1252"), (9, "$INSUNITS"), (70, 4)]

    def _tables(self):
        r = [(0, "TABLE"), (2, "LTYPE"), (70, len(self.motifs))]
        for nom, (description, tirets) in self.motifs.items():
            r += [(0, "LTYPE"), (2, nom), (70, 0), (3, description), (72, 65), (73, len(tirets)),
                  (40, float(sum(abs(t) for t in tirets)))] + [(49, float(t)) for t in tirets]
        r += [(0, "ENDTAB"), (0, "TABLE"), (2, "LAYER"), (70, len(self.calques))]
        for nom, (couleur, trait, poids) in self.calques.items():
            r += [(0, "LAYER"), (2, nom), (70, 0), (62, couleur), (6, trait), (370, poids)]
        return r + [(0, "ENDTAB")]

    def _blocs(self):
        r = []
        for nom, (base, entites) in self.blocs.items():
            r += [(0, "BLOCK"), (8, "0"), (2, nom), (70, 0), (10, base[0]), (20, base[1]), (3, nom)]
            r += [paire for e in entites for paire in e] + [(0, "ENDBLK"), (8, "0")]
        return r
