#!/usr/bin/python3
"""Writes what stands in and around houses: a symbol on plan in each file of Sanitary, Kitchen, Furniture, Electrical and
Trees and site.

Millimetres of the real thing; what stands against a wall has its origin at the middle of its back, which is y = 0, and
lies above it; free-standing things have it at their middle. Electrical marks are as large as they are to be at 1:100.
"""

import math

import make_openings


def points(*values):
    return " ".join(f"{value:g}" for value in values)


def line(*values):
    return "  line " + points(*values)


def rectangle(left, low, right, high):
    return "  closed " + points(left, low, right, low, right, high, left, high)


def circle(x, y, radius):
    return "  circle " + points(x, y, radius)


def arc(x, y, radius, start, end):
    return "  arc " + points(x, y, radius, start, end)


# Against a wall.
def block(width, depth, back=0):
    return rectangle(-width / 2, back, width / 2, depth)


def inset(width, depth, rim):
    return rectangle(-width / 2 + rim, rim, width / 2 - rim, depth - rim)


def slot(left, low, right, high):
    """A rectangle whose upper end is half round."""
    radius = (right - left) / 2
    return [line(left, high - radius, left, low, right, low, right, high - radius),
            arc(left + radius, high - radius, radius, 0, 180)]


def burner_rows(width, depth, radius):
    return [circle(x * width / 4, depth / 2 + y * depth / 4, radius) for x in (-1, 1) for y in (-1, 1)]


# ---- Sanitary ----------------------------------------------------------------------------------------------------------

def sanitary():
    yield "WC cistern", [block(380, 180), *slot(-180, 180, 180, 670), *slot(-120, 240, 120, 610)]
    yield "WC wall hung", [*slot(-180, 0, 180, 540), *slot(-120, 90, 120, 490)]
    yield "Basin 560", [block(560, 420), *slot(-210, 90, 210, 380), circle(0, 60, 20)]
    yield "Basin corner", [line(0, 0, 500, 0, 500, 180), line(0, 0, 0, 500, 180, 500), line(180, 500, 500, 180),
                           circle(210, 210, 150), circle(210, 210, 20)]
    yield "Basin vanity 900", [block(900, 500), circle(0, 260, 190), circle(0, 260, 20)]
    yield "Bidet", [*slot(-180, 0, 180, 560), *slot(-125, 110, 125, 510), circle(0, 60, 20)]
    yield "Urinal", [block(360, 60), *slot(-160, 60, 160, 330), circle(0, 150, 25)]
    for length, width in ((1700, 700), (1800, 800)):
        yield f"Bath {length}x{width}", [block(length, width), inset(length, width, 60),
                                         circle(-length / 2 + 180, width / 2, 25)]
    for width, depth in ((800, 800), (900, 900), (900, 750)):
        yield f"Shower {width}x{depth}", [block(width, depth), line(-width / 2, 0, width / 2, depth),
                                          line(width / 2, 0, -width / 2, depth), circle(0, depth / 2, 45)]
    yield "Sink single", [block(600, 500), inset(600, 500, 70), circle(0, 250, 30)]
    yield "Sink with drainer", [block(1000, 500), rectangle(-440, 70, -20, 430), circle(-230, 250, 30),
                                *(line(60, y, 430, y) for y in range(110, 420, 60))]
    yield "Trough", [block(1000, 450), rectangle(-440, 60, -30, 390), rectangle(30, 60, 440, 390),
                     circle(-235, 225, 30), circle(235, 225, 30)]


# ---- Kitchen -----------------------------------------------------------------------------------------------------------

def appliance(width, depth, *inside):
    return [block(width, depth), line(-width / 2, depth - 40, width / 2, depth - 40), *inside]


def kitchen():
    for width in (300, 400, 500, 600, 1000):
        yield f"Base unit {width}", appliance(width, 600)
    yield "Hob 600", [block(600, 600), inset(600, 600, 40), *burner_rows(600, 600, 85)]
    yield "Oven 600", appliance(600, 600, rectangle(-240, 60, 240, 480))
    yield "Fridge 600", [block(600, 650), line(-300, 600, 300, 600), line(-300, 0, 300, 600), line(300, 0, -300, 600)]
    yield "Dishwasher 600", appliance(600, 600, circle(0, 290, 200))
    yield "Washing machine 600", appliance(600, 600, circle(0, 290, 200), circle(0, 290, 140))


# ---- Furniture -----------------------------------------------------------------------------------------------------------

def bed(width, length=1900):
    pillows = 1 if width < 1300 else 2
    pillow = min(600, (width - 100 * (pillows + 1)) / pillows)
    gap = (width - pillow * pillows) / (pillows + 1)
    starts = [-width / 2 + gap + n * (pillow + gap) for n in range(pillows)]
    return [block(width, length), line(-width / 2, 620, width / 2, 620),
            *(rectangle(x, 80, x + pillow, 450) for x in starts)]


def sofa(seats):
    width = 600 * seats + 300
    return [block(width, 850), line(-width / 2 + 150, 850, -width / 2 + 150, 220, width / 2 - 150, 220, width / 2 - 150, 850),
            *(line(-width / 2 + 150 + 600 * n, 220, -width / 2 + 150 + 600 * n, 850) for n in range(1, seats))]


def chair(x, y, angle):
    """A chair whose back is turned to the angle."""
    c, s = math.cos(math.radians(angle)), math.sin(math.radians(angle))
    corners = [(-200, -210), (200, -210), (200, 210), (-200, 210)]
    place = [round(value, 3) for dx, dy in corners for value in (x + dx * c - dy * s, y + dx * s + dy * c)]
    back = [round(value, 3) for dx, dy in ((150, -210), (150, 210)) for value in (x + dx * c - dy * s, y + dx * s + dy * c)]
    return ["  closed " + points(*place), line(*back)]


def round_table(diameter, seats):
    lines = [circle(0, 0, diameter / 2)]
    for n in range(seats):
        angle = 360 * n / seats
        reach = diameter / 2 + 230
        lines += chair(reach * math.cos(math.radians(angle)), reach * math.sin(math.radians(angle)), angle)
    return lines


def square_table(length, width, a_side):
    lines = [rectangle(-length / 2, -width / 2, length / 2, width / 2)]
    for n in range(a_side):
        x = length * ((n + 0.5) / a_side - 0.5)
        lines += chair(x, width / 2 + 230, 90) + chair(x, -width / 2 - 230, 270)
    return lines


def furniture():
    for width in (900, 1070, 1370, 1520, 1830):
        yield f"Bed {width}", bed(width)
    for width in (1200, 1800):
        yield f"Wardrobe {width}", [block(width, 600), line(-width / 2, 300, width / 2, 300),
                                    *(line(x, 80, x, 520) for x in range(-width // 2 + 100, width // 2, 150))]
    yield "Armchair", sofa(1)
    yield "Sofa 2 seats", sofa(2)
    yield "Sofa 3 seats", sofa(3)
    yield "Coffee table", [rectangle(-600, -300, 600, 300)]
    yield "Table round 4", round_table(1000, 4)
    yield "Table round 6", round_table(1400, 6)
    yield "Table 6 seats", square_table(1800, 900, 3)
    yield "Desk 1200", [block(1200, 600), *chair(0, 780, 90)]
    yield "Desk 1600", [block(1600, 800), rectangle(250, 40, 760, 760), *chair(-250, 980, 90)]


# ---- Electrical ----------------------------------------------------------------------------------------------------------

def socket():
    return [line(0, 0, 0, 150), arc(0, 300, 150, 180, 360), line(-150, 300, 150, 300)]


def switch(*arms):
    lines = [circle(0, 0, 60)]
    for angle in arms:
        c, s = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        lines.append(line(*(round(v, 3) for v in (60 * c, 60 * s, 330 * c, 330 * s, 330 * c + 90 * s, 330 * s - 90 * c))))
    return lines


def cross(radius):
    reach = round(radius * math.sqrt(0.5), 3)
    return [line(-reach, -reach, reach, reach), line(-reach, reach, reach, -reach)]


def boxed(*inside):
    return [rectangle(-150, 0, 150, 300), *inside]


def electrical():
    yield "Socket", socket()
    yield "Socket double", [*socket(), line(0, 300, 0, 420), line(-90, 420, 90, 420)]
    yield "Socket switched", [*socket(), line(0, 300, 120, 450)]
    yield "Switch 1-way", switch(60)
    yield "Switch 2-way", switch(60, 240)
    yield "Switch intermediate", switch(60, 120, 240, 300)
    yield "Light", cross(150)
    yield "Light ceiling", [circle(0, 0, 150), *cross(150)]
    yield "Light wall", [line(-150, 0, 150, 0), line(0, 0, 0, 120), *(["  line " + points(-106, 120, 106, 332),
                                                                    "  line " + points(-106, 332, 106, 120)])]
    yield "Light fluorescent", [line(-600, 0, 600, 0), line(-600, -90, -600, 90), line(600, -90, 600, 90)]
    yield "Distribution board", [rectangle(-300, 0, 300, 200), line(-300, 0, 300, 200)]
    yield "Telephone", boxed(line(-150, 150, 150, 150), line(0, 150, 0, 0))
    yield "Data outlet", boxed(line(-150, 0, 0, 300, 150, 0))
    yield "Smoke alarm", [circle(0, 0, 150), circle(0, 0, 50), line(-150, 0, -50, 0), line(50, 0, 150, 0)]


# ---- Trees and site --------------------------------------------------------------------------------------------------------

def tree(diameter):
    """A crown of lobes round a trunk."""
    radius, lobes = diameter / 2, max(8, diameter // 500)
    lobe = radius * math.sin(math.pi / lobes) / (1 + math.sin(math.pi / lobes))
    ring = radius - lobe
    lines = [circle(0, 0, max(75, diameter / 40))]
    for n in range(lobes):
        angle = 360 * n / lobes
        x, y = ring * math.cos(math.radians(angle)), ring * math.sin(math.radians(angle))
        half = 90 + 180 / lobes
        lines.append(arc(round(x, 3), round(y, 3), round(lobe, 3), round((angle - half) % 360, 3), round((angle + half) % 360, 3)))
    return lines


def car():
    body = "  closed " + points(-2250, -900, 2150, -900, 2400, -650, 2400, 650, 2150, 900, -2250, 900, -2400, 700, -2400, -700)
    return [body, "  closed " + points(500, -760, 1150, -680, 1150, 680, 500, 760), rectangle(-1900, -680, -1350, 680),
            line(-1350, -760, 500, -760), line(-1350, 760, 500, 760)]


def scale_bar():
    bar = [rectangle(0, 0, 5000, 200)]
    bar += [line(1000 * n, 0, 1000 * n, 200) for n in range(1, 5)]
    return bar + [line(1000 * n, 100, 1000 * n + 1000, 100) for n in (0, 2, 4)]


def site():
    for diameter in (3000, 4000, 5000, 6000, 8000, 10000):
        yield f"Tree {diameter // 1000} m", tree(diameter)
    yield "Shrub", tree(1200)
    yield "Car", car()
    yield "Person", [circle(0, 0, 100), "  closed " + points(-250, -60, -180, -130, 180, -130, 250, -60, 180, 110, -180, 110)]
    yield "North point", [circle(0, 0, 900), line(0, -900, 0, 900, -400, -700, 0, -350, 400, -700, 0, 900)]
    yield "Scale bar 5 m", scale_bar()


FOLDERS = {"Sanitary": sanitary, "Kitchen": kitchen, "Furniture": furniture, "Electrical": electrical, "Trees and site": site}


def files():
    for folder, family in FOLDERS.items():
        for name, lines in family():
            yield f"{folder}/{name}.sym", [f"symbol {name.replace(chr(32), chr(95))}", *lines]


if __name__ == "__main__":
    make_openings.write(files(), "make_furnishings.py")
