#!/usr/bin/env python3
"""Draws maison.dxf, the ground floor of a house, beside this file. All lengths are millimetres; the origin is the
outer south-west corner of the house, north is up."""
import math
import pathlib

from dxf_ecrit import Dessin
from murs import Murs

d = Dessin()

# --- tables ---------------------------------------------------------------------------------------------------------

d.motif("CONTINUOUS", "trait continu")
d.motif("DASHED", "tirets __ __ __", 12, -6)
d.motif("HIDDEN", "petits tirets _ _ _", 6, -3)
d.motif("CENTER", "axe ____ _ ____ _", 32, -6, 6, -6)
d.motif("DASHDOT", "tiret point __ . __", 12, -6, 0, -6)
d.motif("DIVIDE", "tiret deux points __ . . __", 12, -6, 0, -6, 0, -6)
d.motif("PHANTOM", "tiret deux tirets ____ _ _ ____", 32, -6, 6, -6, 6, -6)

for nom, couleur, trait, poids in (
        ("MURS", 7, "CONTINUOUS", 50), ("CLOISONS", 9, "CONTINUOUS", 25), ("HACHURES", 8, "CONTINUOUS", 13),
        ("PORTES", 2, "CONTINUOUS", 18), ("FENETRES", 4, "CONTINUOUS", 18), ("ESCALIER", 40, "CONTINUOUS", 18),
        ("MOBILIER", 33, "CONTINUOUS", 18), ("CUISINE", 31, "CONTINUOUS", 18), ("SANITAIRES", 141, "CONTINUOUS", 18),
        ("CARRELAGE", 250, "CONTINUOUS", 9), ("TERRASSE", 251, "CONTINUOUS", 13), ("JARDIN", 94, "CONTINUOUS", 18),
        ("TOITURE", 171, "DASHED", 18), ("RESEAUX", 211, "HIDDEN", 18), ("ELECTRICITE", 50, "CONTINUOUS", 18),
        ("AXES", 1, "CENTER", 13), ("COUPE", 6, "DASHDOT", 35), ("LIMITE", 82, "PHANTOM", 18),
        ("COTES", 111, "CONTINUOUS", 13), ("PIECES", 7, "CONTINUOUS", 18), ("CADRE", 9, "CONTINUOUS", 35),
        ("CARTOUCHE", 7, "CONTINUOUS", 18), ("LEGENDE", 254, "CONTINUOUS", 18)):
    d.nouveau_calque(nom, couleur, trait, poids)

# --- blocks: doors and windows, one metre wide ----------------------------------------------------------------------

d.bloc("PORTE")  # hinge at the origin, the opening along x, the leaf open along y
d.rectangle(0, 0, 45, 1000)
d.arc(0, 0, 1000, 0.0, 90.0)

d.bloc("FENETRE")  # along x, in a wall from y 0 to 300
for y in (0, 300):
    d.ligne(0, y, 1000, y)
d.rectangle(0, 110, 1000, 80)
d.ligne(0, 150, 1000, 150)
d.rectangle(485, 100, 30, 100)

# --- blocks: furniture ----------------------------------------------------------------------------------------------

d.bloc("CHAISE")  # seat before the table: its front edge at the origin, the back away along -y
d.arrondi(-220, -430, 440, 430, 60)
d.lignes((-220, -400), (-200, -470, -0.12), (200, -470), (220, -400))

d.bloc("TABLE_REPAS")  # with six chairs
d.arrondi(-950, -450, 1900, 900, 90)
for x in (-560, 0, 560):
    d.insere("CHAISE", x, -380)
    d.insere("CHAISE", x, 380, 180.0)

d.bloc("CANAPE")  # back on y 0, seats along -y
d.arrondi(-1100, -900, 2200, 900, 110)
d.lignes((-900, -900), (-900, -230), (900, -230), (900, -900))
for x in (-300, 300):
    d.ligne(x, -230, x, -880)

d.bloc("FAUTEUIL")
d.arrondi(-430, -820, 860, 820, 110)
d.lignes((-270, -820), (-270, -220), (270, -220), (270, -820))

d.bloc("LIT")  # head on y 0
d.rectangle(-800, -2000, 1600, 2000)
for x in (-730, 50):
    d.arrondi(x, -560, 680, 430, 90)
d.lignes((-800, -760), (800, -760))
d.spline((-800, -760), (-500, -900), (-250, -640), (150, -880), (420, -660), (800, -800))
d.ligne(-800, -1020, 800, -1020)

d.bloc("CHEVET")
d.rectangle(-220, -400, 440, 400)
d.cercle(0, -200, 110)
d.point(0, -200)

d.bloc("ETAGERE")  # one metre of shelves
d.rectangle(0, -340, 1000, 340)
d.ligne(0, -340, 1000, 0)
d.ligne(0, 0, 1000, -340)

d.bloc("BUREAU")  # desk with its chair
d.arrondi(-800, -700, 1600, 700, 40)
d.arrondi(-350, -230, 700, 190, 20)
d.rectangle(-230, -480, 460, 170)
d.insere("CHAISE", 0, -640)

d.bloc("FEUILLE")
d.spline((0, 0), (120, 90), (330, 120), (460, 0))
d.spline((0, 0), (120, -90), (330, -120), (460, 0))
d.ligne(0, 0, 380, 0)

d.bloc("PLANTE")
d.cercle(0, 0, 130)
for k in range(9):
    d.insere("FEUILLE", 0, 0, 40.0 * k, 0.9 if k % 2 else 0.62, 0.9 if k % 2 else 0.7)

d.bloc("ARBRE")
d.boucle(*[((1000 if k % 2 else 860) * math.cos(k * math.pi / 9), (1000 if k % 2 else 860) * math.sin(k * math.pi / 9))
           for k in range(18)])
d.cercle(0, 0, 90)
for k in range(9):
    a = 2 * math.pi * k / 9
    d.lignes((150 * math.cos(a), 150 * math.sin(a)), (560 * math.cos(a + 0.12), 560 * math.sin(a + 0.12)))
    for s in (-0.22, 0.3):
        d.ligne(430 * math.cos(a + 0.09), 430 * math.sin(a + 0.09), 700 * math.cos(a + s), 700 * math.sin(a + s))

# --- blocks: kitchen and bath ---------------------------------------------------------------------------------------

d.bloc("PLAQUE")  # four rings
d.arrondi(0, 0, 580, 510, 25)
for x, y, r in ((150, 140, 95), (150, 370, 70), (430, 140, 70), (430, 370, 95)):
    d.cercle(x, y, r)
    d.cercle(x, y, r * 0.45)

d.bloc("EVIER")
d.arrondi(0, 0, 1000, 480, 40)
d.arrondi(40, 50, 420, 360, 70)
d.cercle(250, 230, 28)
for k in range(6):
    d.ligne(540, 80 + 62 * k, 950, 80 + 62 * k)
d.lignes((500, 455), (500, 330, 1.0), (470, 330), (470, 440))

d.bloc("FRIGO")
d.rectangle(0, 0, 600, 600)
d.ligne(0, 45, 600, 45)
d.texte(300, 320, 150, "F", place="milieu")

d.bloc("LAVE_LINGE")
d.arrondi(0, 0, 600, 600, 30)
d.cercle(300, 300, 200)
d.arc(300, 300, 150, 20.0, 110.0)

d.bloc("WC")  # cistern on y 0
d.arrondi(-190, -180, 380, 180, 30)
d.ellipse(0, -430, 0, -250, 0.74)
d.ellipse(0, -440, 0, -180, 0.68)
d.cercle(0, -90, 30)

d.bloc("LAVABO")  # against y 0
d.lignes((-280, 0), (-280, -300), (-180, -460, 0.3), (180, -460), (280, -300), (280, 0))
d.ellipse(0, -250, 200, 0, 0.72)
d.cercle(0, -250, 22)
d.cercle(0, -60, 26)

d.bloc("BAIGNOIRE")  # one end on y 0, along -y
d.rectangle(-375, -1700, 750, 1700)
d.contour((-300, -90), (-300, -1320), (-300, -1330, 0.9), (300, -1330), (300, -90), (220, -70), (-220, -70))
d.cercle(0, -230, 30)
d.cercle(0, -110, 22)

d.bloc("LUMINAIRE")
d.cercle(0, 0, 110)
for a in (45, 135):
    c, s = 110 * math.cos(math.radians(a)), 110 * math.sin(math.radians(a))
    d.ligne(-c, -s, c, s)
d.point(0, 0)

d.bloc("CARREAU")  # lower and left edge of a tile of one metre
d.lignes((0, 1000), (0, 0), (1000, 0))

d.bloc("DALLE")
d.rectangle(15, 15, 970, 970)

d.bloc("NORD")
d.cercle(0, 0, 420)
d.solide((0, 620), (-190, -330), (0, -180))
d.lignes((0, 620), (190, -330), (0, -180))
d.texte(0, 700, 260, "N", place="centre")

d.bloc("NIVEAU")
d.cercle(0, 0, 130)
d.solide((0, 0), (130, 0), (92, 92), (0, 130))
d.solide((0, 0), (-130, 0), (-92, -92), (0, -130))
d.lignes((-220, 0), (220, 0))
d.ligne(0, -220, 0, 220)

d.modele()

# --- walls ----------------------------------------------------------------------------------------------------------

L, H = 13600, 9200  # outside
PORTEURS = [(0, 0, L, 300), (0, 8900, L, H), (0, 0, 300, H), (13300, 0, L, H), (7000, 0, 7200, H)]
CLOISONS = [(300, 5200, 7000, 5300), (7200, 5200, 13300, 5300), (4100, 5300, 4200, 8900), (10500, 300, 10600, 5200),
            (9300, 6300, 13300, 6400), (9300, 6300, 9400, 8900), (10500, 6400, 10600, 8900)]

# x, y, width, angle of windows; the corner from which x runs along the wall and y to the outside, or inside.
FENETRES = [(8100, 0, 1400, 0), (11200, 0, 1200, 0), (1400, 8900, 1500, 0), (7700, 8900, 900, 0), (300, 1800, 1800, 90),
            (13600, 1600, 1200, 90), (13600, 7600, 700, 90)]
BAIE = (2000, 0, 5200, 300)
PORTES_PORTEURS = [(5150, 8900, 6100, 9200), (7000, 5350, 7200, 6250)]
PORTES_CLOISONS = [(4900, 5200, 6300, 5300), (3000, 5200, 4000, 5300), (4100, 6000, 4200, 6830),
                   (9500, 5200, 10330, 5300), (10800, 5200, 11630, 5300), (9600, 6300, 10330, 6400),
                   (10900, 6300, 11730, 6400)]


def trou(x, y, l, angle):
    return (x, y, x + l, y + 300) if angle == 0 else (x - 300, y, x, y + l)


porteurs = Murs(PORTEURS, [trou(*f) for f in FENETRES] + [BAIE] + PORTES_PORTEURS)
d.sur("MURS")
for contour in porteurs.contours():
    d.contour(*contour)
d.sur("HACHURES")
for segment in porteurs.hachures(150):
    d.ligne(*segment)

cloisons = Murs(CLOISONS, PORTES_CLOISONS)
d.sur("CLOISONS", couleur=8)
for x1, y1, x2, y2 in cloisons.rectangles():
    d.solide((x1, y1), (x2, y1), (x2, y2), (x1, y2))
d.sur("CLOISONS")
for contour in cloisons.contours():
    d.contour(*contour)

# The bow: an arc of wall before the opening, glazed between two piers.
XB, YB, RE, RI = 3600, 1200, 2000, 1700
demi = math.sqrt(RI ** 2 - 900 ** 2)
b_int = math.tan(math.asin(demi / RI) / 2)
d.sur("MURS")
d.contour((2000, 0, 0.5), (5200, 0), (5200, 300), (XB + demi, 300, -b_int), (XB - demi, 300), (2000, 300))
d.sur("FENETRES")
for r in (1810, 1850, 1890):
    d.arc(XB, YB, float(r), 226.0, 314.0)
for a in (226, 248, 270, 292, 314):
    c, s = math.cos(math.radians(a)), math.sin(math.radians(a))
    d.contour(*[(XB + r * c - e * s, YB + r * s + e * c) for r, e in ((1790, -25), (1910, -25), (1910, 25), (1790, 25))])

# --- windows and doors ----------------------------------------------------------------------------------------------

d.sur("FENETRES")
for x, y, l, angle in FENETRES:
    d.insere("FENETRE", x, y, float(angle), l / 1000)

d.sur("PORTES")
for x, y, l, angle, sx, sy in (
        (6100, 8900, 950, 180, 1, 1), (4900, 5200, 700, 0, 1, -1), (6300, 5200, 700, 180, 1, 1),
        (4100, 6000, 830, 90, 1, 1), (10330, 5200, 830, 180, 1, 1), (11630, 5200, 830, 180, 1, 1),
        (9600, 6400, 730, 0, 1, 1), (11730, 6400, 830, 0, -1, 1)):
    k = l / 1000
    d.insere("PORTE", x, y, float(angle), sx * k, sy * k)
d.sur("PORTES", trait="HIDDEN")
for x1, y1, x2, y2 in ((7000, 5350, 7000, 6250), (7200, 5350, 7200, 6250), (3000, 5200, 4000, 5200),
                       (3000, 5300, 4000, 5300)):
    d.ligne(x1, y1, x2, y2)
d.sur("PORTES")
for y in (8900, 9200):
    d.ligne(5150, y, 6100, y)

# --- stairs: two flights and a landing ------------------------------------------------------------------------------

d.sur("ESCALIER")
d.rectangle(8200, 6400, 100, 1750)
for k in range(8):
    y = 6400 + 250 * k
    d.ligne(7200, y, 8200, y)
d.ligne(8300, 8150, 9300, 8150)
for k in range(4, 7):
    y = 6400 + 250 * k
    d.ligne(8300, y, 9300, y)
d.lignes((8300, 7080), (8680, 7250), (8720, 7060), (8870, 7330), (8910, 7150), (9300, 7320))
d.sur("ESCALIER", trait="HIDDEN")
for k in range(1, 4):
    y = 6400 + 250 * k
    d.ligne(8300, y, 9300, y)
d.ligne(8300, 6400, 9300, 6400)
d.sur("ESCALIER")
d.cercle(7700, 6400, 45)
d.lignes((7700, 6445), (7700, 8350, -math.tan(math.pi / 8)), (7900, 8550), (8600, 8550, -math.tan(math.pi / 8)),
         (8800, 8350), (8800, 7560))
d.solide((8800, 7400), (8745, 7570), (8855, 7570))
d.texte(8250, 8230, 120, "17 h. 17,6 cm", place="centre", largeur=0.9)

# --- furniture ------------------------------------------------------------------------------------------------------

d.sur("MOBILIER")
d.insere("CANAPE", 420, 2700, 90.0)
d.insere("FAUTEUIL", 3620, 3150, -72.0)
d.insere("FAUTEUIL", 3620, 2150, -108.0)
d.arrondi(1800, 2250, 650, 900, 60)
d.ellipse(2125, 2700, 0, 330, 0.6)
d.insere("TABLE_REPAS", 5650, 2600, 90.0)
d.insere("ETAGERE", 400, 5200, 0.0, 1.15, 1.0, colonnes=2, pas_x=1150.0)
d.insere("LIT", 7230, 2650, 90.0)
d.insere("CHEVET", 7230, 3720, 90.0)
d.insere("CHEVET", 7230, 1580, 90.0)
d.insere("BUREAU", 13250, 2200, -90.0)
d.insere("ETAGERE", 10620, 500, 90.0, 1.0, -1.0, colonnes=3, pas_x=1000.0)
d.insere("FAUTEUIL", 12930, 4830, -45.0, 0.95, 0.95)
d.rectangle(7250, 4600, 2100, 580)
d.sur("MOBILIER", trait="HIDDEN")
d.ligne(7250, 4890, 9350, 4890)
d.sur("MOBILIER", couleur=35)
d.rectangle(1250, 1250, 2900, 2900)
d.rectangle(1340, 1340, 2720, 2720)
d.sur("MOBILIER")
for k in range(11):
    x = 7340 + 190 * k
    d.ligne(x, 4690, x + (35 if k % 2 else -25), 5090)
d.rectangle(4230, 7300, 380, 1500)
d.ligne(4230, 7300, 4610, 8800)
d.sur("JARDIN")
d.insere("PLANTE", 6450, 850, 10.0)
d.insere("PLANTE", 800, 800, 25.0, 0.8, 0.8)
d.insere("PLANTE", 6560, 8560, 0.0, 0.55, 0.55)

# --- kitchen and bath -----------------------------------------------------------------------------------------------

d.sur("CUISINE")
d.lignes((3450, 8900), (3450, 8280), (920, 8280), (920, 5450), (300, 5450))
d.insere("FRIGO", 3480, 8280, 0.0, 1.0, 1.0)
d.insere("EVIER", 1560, 8350)
d.insere("PLAQUE", 880, 6350, 90.0)
d.arrondi(1900, 6450, 1450, 800, 60)
for x in (2250, 2950):
    d.cercle(x, 6230, 170)
d.sur("CUISINE", trait="HIDDEN")
d.rectangle(320, 6250, 540, 780)
d.lignes((300, 8560), (620, 8560), (620, 7250), (300, 7250))

d.sur("CARRELAGE")
d.insere("CARREAU", 10600, 6400, 0.0, 0.3, 0.3, colonnes=9, rangees=8, pas_x=300.0, pas_y=300.0)
d.insere("CARREAU", 9400, 6400, 0.0, 0.22, 0.25, colonnes=5, rangees=10, pas_x=220.0, pas_y=250.0)
d.sur("SANITAIRES")
d.insere("BAIGNOIRE", 12910, 8130)
d.insere("LAVABO", 11080, 8900, 0.0, 1.0, 1.0, colonnes=2, pas_x=800.0)
d.rectangle(10640, 8380, 1680, 520)
d.insere("LAVE_LINGE", 12650, 8260)
d.insere("WC", 9950, 8880)
d.insere("LAVABO", 9400, 7500, 90.0, 0.65, 0.6)

# --- roof, networks, lights -----------------------------------------------------------------------------------------

d.sur("TOITURE")
d.contour((-500, -500), (1737, -500, 0.0), (1737, -500, 0.46), (5463, -500), (L + 500, -500), (L + 500, H + 500),
          (-500, H + 500))

d.sur("RESEAUX")
d.lignes((9950, 8400), (9950, 8720), (10550, 8720), (10550, 9500), (12400, 9500), (14350, 9500), (14350, 8500))
d.lignes((11080, 8650), (11080, 9500))
d.lignes((2060, 8600), (2060, 9650), (10550, 9650), (10550, 9500))
d.sur("RESEAUX", trait="CONTINUOUS")
d.rectangle(14150, 8100, 400, 400)
d.ligne(14150, 8100, 14550, 8500)
d.ligne(14150, 8500, 14550, 8100)
d.texte(14660, 8230, 150, "Regard EU %%c 100")

d.sur("ELECTRICITE")
for x, y in ((2960, 2680), (5650, 2600), (2600, 6850), (5600, 6400), (9600, 3000), (11900, 3000), (10230, 7230),
             (11550, 8050), (9000, 5800), (12300, 5800)):
    d.insere("LUMINAIRE", x, y)

# --- terrace and garden ---------------------------------------------------------------------------------------------

d.sur("TERRASSE")
d.insere("DALLE", 400, -2900, 0.0, 0.5, 0.5, colonnes=13, rangees=4, pas_x=500.0, pas_y=500.0)
d.insere("DALLE", 400, -900, 0.0, 0.5, 0.45, colonnes=3, rangees=2, pas_x=500.0, pas_y=450.0)
d.insere("DALLE", 5400, -900, 0.0, 0.5, 0.45, colonnes=3, rangees=2, pas_x=500.0, pas_y=450.0)
d.rectangle(400, -2900, 6500, 2900)
d.sur("JARDIN")
d.insere("ARBRE", 8900, -1750, 12.0, 1.0, 1.0)
d.insere("ARBRE", 11800, -1500, 70.0, 0.72, 0.72)
d.insere("ARBRE", 15600, 5400, 40.0, 1.1, 1.1)
for k in range(7):
    d.insere("PLANTE", 7300 + 480 * k + 60 * (k % 2), -330 + 50 * (k % 3), 37.0 * k, 0.42, 0.42)
for k in range(3):
    d.ellipse(5620 + 130 * (k % 2), 9480 + 330 * k, 230, 30, 0.52)
d.sur("TERRASSE")
d.rectangle(5000, 9200, 1250, 180)
d.sur("LIMITE")
d.ligne(17600, -900, 17600, 10300)
d.texte(17520, 5600, 150, "Limite de propri\u00e9t\u00e9", 90.0)

# --- axes, section, levels ------------------------------------------------------------------------------------------


def axe(lettre, x1, y1, x2, y2):
    d.sur("AXES").ligne(x1, y1, x2, y2)
    l = math.hypot(x2 - x1, y2 - y1)
    cx, cy = x1 - 230 * (x2 - x1) / l, y1 - 230 * (y2 - y1) / l
    d.sur("AXES", trait="CONTINUOUS").cercle(cx, cy, 230)
    d.sur("AXES", couleur=7).texte(cx, cy, 220, lettre, place="milieu")


for lettre, x in (("A", 150), ("B", 7100), ("C", 13450)):
    axe(lettre, x, 9950, x, -600)
for lettre, y in (("1", 150), ("2", 5250), ("3", 9050)):
    axe(lettre, -2350, y, 14400, y)

d.sur("COUPE")
d.ligne(-650, 6560, 14250, 6560)
d.sur("COUPE", trait="CONTINUOUS", poids=70)
for x, s in ((-650, -1), (14250, 1)):
    d.ligne(x, 6560, x + s * 330, 6560)
    d.sur("COUPE", trait="CONTINUOUS")
    d.solide((x + s * 260, 6850), (x + s * 190, 6600), (x + s * 330, 6600))
    d.texte(x + s * 260, 6930, 240, "A", place="centre")
    d.sur("COUPE", trait="CONTINUOUS", poids=70)


def niveau(x, y, texte):
    d.sur("COTES").insere("NIVEAU", x, y, 0.0, 0.75, 0.75)
    d.texte(x + 210, y + 40, 150, texte)


niveau(2250, 4250, "%%p0,00")
niveau(700, -3120, "-0,15")
d.sur("TERRASSE", couleur=254).texte(2350, -3180, 160, "Terrasse, pente 1%%d")

# --- dimensions: lines, arrow heads and texts -----------------------------------------------------------------------


def fleche(x, y, angle):
    c, s = math.cos(angle), math.sin(angle)
    d.solide((x, y), (x - 150 * c + 42 * s, y - 150 * s - 42 * c), (x - 150 * c - 42 * s, y - 150 * s + 42 * c))


def cote(p, q, ecart, attache=0, hauteur=170):
    """Between two points of a chain along x or y, its line at distance ecart from p."""
    vertical = p[0] == q[0]
    nx, ny = (1, 0) if vertical else (0, 1)
    angle = math.pi / 2 if vertical else 0.0
    a, b = ((x + nx * ecart, y + ny * ecart) for x, y in (p, q))
    signe = math.copysign(1, ecart)
    for (x, y), (u, v) in ((p, a), (q, b)):
        d.ligne(x + nx * signe * attache, y + ny * signe * attache, u + nx * signe * 90, v + ny * signe * 90)
    d.ligne(*a, *b)
    fleche(*a, angle + math.pi)
    fleche(*b, angle)
    longueur = math.hypot(q[0] - p[0], q[1] - p[1])
    texte = f"{longueur / 1000:.2f}".replace(".", ",")
    x, y = (a[0] + b[0]) / 2, (a[1] + b[1]) / 2
    d.texte(x - (60 if vertical else 0), y + (0 if vertical else 60), hauteur, texte,
            90.0 if vertical else 0.0, place="centre")


d.sur("COTES")
for x, y in zip((0, 2000, 5200, 7000, 7200, 8100, 9500, 11200, 12400), (2000, 5200, 7000, 7200, 8100, 9500, 11200, 12400, L)):
    if y - x > 300:
        cote((x, -2950), (y, -2950), -720, 60)
cote((0, -2950), (L, -2950), -1160, 60, 190)
for x, y in zip((0, 1800, 3600, 5200), (1800, 3600, 5200, H)):
    cote((-560, x), (-560, y), -620, 60)
cote((-560, 0), (-560, H), -1080, 60, 190)
cote((300, 1050), (7000, 1050), 0)
cote((7200, 900), (10500, 900), 0)
cote((10600, 900), (13300, 900), 0)
cote((4550, 300), (4550, 5200), 0)
cote((11200, 300), (11200, 5200), 0)

# --- rooms ----------------------------------------------------------------------------------------------------------

d.sur("PIECES")
for x, y, nom, surface in (
        (3550, 4680, "S\u00e9jour", "32,8"), (2350, 7780, "Cuisine", "13,7"), (5600, 7550, "Entr\u00e9e", "10,1"),
        (9300, 3900, "Chambre", "16,2"), (12050, 3950, "Biblioth\u00e8que", "13,2"), (10700, 5800, "D\u00e9gagement", "6,1")):
    d.paragraphe(x, y, 210, f"{nom}\\P{surface} m\u00b2")
d.paragraphe(11500, 7560, 170, "Salle d'eau\\P6,8 m\u00b2")
d.paragraphe(10060, 7690, 150, "WC\\P2,8 m\u00b2")
d.texte(3050, 6790, 130, "%%u\u00celot", place="centre")
d.texte(600, 5560, 110, "Four", place="centre")

# --- sheet, title block, legend -------------------------------------------------------------------------------------

X0, Y0, X1, Y1 = -3000, -4450, 18000, 10400
d.sur("CADRE", poids=70)
d.rectangle(X0, Y0, X1 - X0, Y1 - Y0)
d.sur("CADRE")
d.rectangle(X0 - 200, Y0 - 200, X1 - X0 + 400, Y1 - Y0 + 400)

d.sur("CARTOUCHE")
XC, YC = 13900, Y0
d.rectangle(XC, YC, X1 - XC, 3300)
for y in (600, 1200, 1800, 2500):
    d.ligne(XC, YC + y, X1, YC + y)
d.ligne(XC + 2050, YC, XC + 2050, YC + 1200)
d.texte(XC + 150, YC + 2800, 300, "MAISON CHEVREUIL", largeur=0.95)
d.texte(XC + 150, YC + 2030, 230, "Plan du rez-de-chauss\u00e9e")
d.texte(XC + 150, YC + 1420, 160, "Ma\u00eetre d'ouvrage : famille Lef\u00e8vre")
for (x, y), nom, texte in (((0, 600), "\u00c9chelle", "1:50"), ((2050, 600), "Unit\u00e9", "mm, cotes en m"),
                           ((0, 0), "Dessinateur", "H. Gar\u00e7on"),
                           ((2050, 0), "Planche", "A-01")):
    d.sur("CARTOUCHE", couleur=9).texte(XC + x + 110, YC + y + 400, 110, nom)
    d.sur("CARTOUCHE").texte(XC + x + 110, YC + y + 120, 180, texte)

d.sur("LEGENDE")
XL, YL = 14900, 3300
d.texte(XL, YL, 190, "L\u00e9gende")
for k, (calque, nom) in enumerate((("MURS", "Mur porteur"), ("TOITURE", "Avant-toit"), ("RESEAUX", "\u00c9vacuation"),
                                   ("AXES", "Axe"), ("COUPE", "Coupe A-A"), ("LIMITE", "Limite"),
                                   ("FENETRES", "Menuiserie"))):
    y = YL - 380 - 330 * k
    d.sur(calque).ligne(XL, y, XL + 1000, y)
    d.sur("LEGENDE").texte(XL + 1200, y - 75, 150, nom)
d.sur("LEGENDE").insere("NORD", 16750, 8700, -18.0, 0.9, 0.9)

if __name__ == "__main__":
    cible = pathlib.Path(__file__).with_name("maison.dxf")
    cible.write_bytes(d.fichier().encode("latin-1"))
    print(f"{cible.name}: {len(d.entites)} entites, {len(d.blocs)} blocs, {len(d.calques)} calques")
