#!/usr/bin/env python3
"""Makes the drawings of the example project, the same bytes at every run.

    tools/make_example.py [FOLDER]          FOLDER: default examples/panel

motor-1.dxf    power circuits of seven motors         AC1032, UTF-8
motor-2.dxf    their control circuits                 AC1015, ANSI_932
terminals.dxf  terminal plan, drawn at scale 2        R12, ANSI_1252 with \\U+ escapes
"""

import sys
from pathlib import Path

from dxf_writer import (BASE, BOTTOM, CENTER, LEFT, MID, MIDDLE, RIGHT, TOP, Drawing, arc, attribute, circle, definition,
                        insert, line, polyline, rectangle, text)

SHEET = (420.0, 297.0)
MOTORS = [
    ("送風機 No.1", "Blower No.1", "2.2kW", "CV 2sq-4C"),
    ("送風機 No.2", "Blower No.2", "2.2kW", "CV 2sq-4C"),
    ("冷却水ポンプ", "Cooling water pump", "5.5kW", "CV 5.5sq-4C"),
    ("給水ポンプ", "Feed water pump", "3.7kW", "CV 3.5sq-4C"),
    ("コンベヤ", "Conveyor", "1.5kW", "CV 2sq-4C"),
    ("攪拌機", "Agitator", "0.75kW", "CV 2sq-4C"),
    ("排気ファン", "Exhaust fan", "0.4kW", "CV 2sq-4C"),
]
PHASES = "UVW"
PITCH = 7.0


class Symbol:
    """A block: its strokes, and its attributes as (tag, prompt, x, y, height, mode, layer)."""

    def __init__(self, name, strokes, attributes):
        self.name, self.strokes, self.attributes = name, strokes, attributes

    def definition(self):
        return [*self.strokes, *(definition(layer, tag, prompt, "", x, y, height, mode)
                                 for tag, prompt, x, y, height, mode, layer in self.attributes)]

    def place(self, x, y, values, scale=1.0):
        texts = [attribute(layer, tag, values.get(tag, ""), x + dx * scale, y + dy * scale, height * scale, 0, mode)
                 for tag, _, dx, dy, height, mode, layer in self.attributes]
        return insert("SYMBOL", self.name, x, y, texts, scale)


def name_at(x, y, mode=(RIGHT, MID)):
    return ("NAME", "Device tag", x, y, 3.0, mode, "SYMBOL")


def wire_numbers(*places, mode=(LEFT, BASE)):
    return [(f"SENBAN{i}", f"Wire number {i}", x, y, 2.0, mode, "WIRENO") for i, (x, y) in enumerate(places, 1)]


def three_poles(strokes_of_pole):
    return [stroke for i in range(3) for stroke in strokes_of_pole((i - 1) * PITCH)]


def power_symbols():
    breaker = three_poles(lambda x: [line("0", x, 0, x, -3), line("0", x, -12, x - 2.5, -4.5), line("0", x, -12, x, -15),
                                     *polyline("0", [(x - 1, -2), (x + 1, -4)]), *polyline("0", [(x - 1, -4), (x + 1, -2)])])
    contactor = three_poles(lambda x: [line("0", x, 0, x, -4), arc("0", x, -5, 1, 270, 90), line("0", x, -12, x - 2.5, -5),
                                       line("0", x, -12, x, -15)])
    overload = three_poles(lambda x: polyline("0", [(x, 0), (x, -4), (x + 1.5, -4), (x + 1.5, -8), (x, -8), (x, -12)]))
    outgoing = [((i - 1) * PITCH + 0.6, -19.0) for i in range(3)]
    return [
        Symbol("MCCB", breaker + [line("0", -9, -8, 6, -8)], [name_at(-11, -7), *wire_numbers(*outgoing)]),
        Symbol("MC3P", contactor + [line("0", -8.5, -8.5, 5.5, -8.5)], [name_at(-11, -7), *wire_numbers(*outgoing)]),
        Symbol("THR3P", overload + rectangle("0", -9.5, -9.5, 19, 7),
               [name_at(-11, -6), *wire_numbers(*((x, -16.0) for x, _ in outgoing))]),
        Symbol("MOTOR", [circle("0", 0, -10, 8), text("0", 0, -8, "M", 4, mode=(CENTER, BASE)),
                         text("0", 0, -14, "3~", 3, mode=(CENTER, BASE)), line("0", -7, 0, -7, -6.13), line("0", 0, 0, 0, -2),
                         line("0", 7, 0, 7, -6.13)],
               [name_at(-10, -10), ("CAP", "Rated power", 0, -21, 2.5, (CENTER, TOP), "CMNT")]),
        Symbol("TB", [circle("0", 0, 0, 1.2), line("0", -0.9, -0.9, 0.9, 0.9)],
               [("NAME", "Terminal", 0, -2, 1.6, (CENTER, TOP), "SYMBOL"), *wire_numbers((0.6, 3.0))]),
    ]


def control_symbols():
    wires = [(-9.0, 0.8), (3.5, 0.8)]
    tag = ("NAME", "Device tag", 0, 6.5, 2.5, (CENTER, BASE), "SYMBOL")
    coil = [("NAME", "Device tag", 0, 0, 2.0, (MIDDLE, BASE), "SYMBOL"), *wire_numbers((-13.0, 0.8), (6.0, 0.8))]
    ends = [line("0", -6, 0, -2.5, 0), line("0", 2.5, 0, 6, 0)]
    return [
        Symbol("PB_A", [*ends, line("0", -2.5, 1.5, 2.5, 1.5), line("0", 0, 1.5, 0, 4.5), line("0", -1.5, 4.5, 1.5, 4.5)],
               [tag, *wire_numbers(*wires)]),
        Symbol("PB_B", [*ends, line("0", -2.5, -0.8, 2.5, -0.8), line("0", 0, -0.8, 0, 4.5), line("0", -1.5, 4.5, 1.5, 4.5)],
               [tag, *wire_numbers(*wires)]),
        Symbol("RY_A", [*ends, line("0", -2.5, 0, 2, 2.5)], [tag, *wire_numbers(*wires)]),
        Symbol("THR_B", [*ends, line("0", -2.5, 0, 3, 1.8), line("0", 2.5, 0, 2.5, 2.2), *rectangle("0", -1, 2.6, 2, 2)],
               [tag, *wire_numbers(*wires)]),
        Symbol("COIL", [circle("0", 0, 0, 5), line("0", -6, 0, -5, 0), line("0", 5, 0, 6, 0)], coil),
        Symbol("LAMP", [circle("0", 0, 0, 4), line("0", -2.83, -2.83, 2.83, 2.83), line("0", -2.83, 2.83, 2.83, -2.83),
                        line("0", -6, 0, -4, 0), line("0", 4, 0, 6, 0)], [tag, *wire_numbers((-11.0, 0.8), (5.0, 0.8))]),
    ]


def terminal_symbols():
    return [Symbol("TBLOCK", [*rectangle("0", -12, -4, 24, 8), circle("0", -8, 0, 1.2), circle("0", 8, 0, 1.2),
                              line("0", -22, 0, -12, 0), line("0", 12, 0, 22, 0)],
                   [("NAME", "Terminal", 0, 0, 3.0, (CENTER, MID), "SYMBOL"),
                    ("SENBAN1", "Wire number, inside", -13, 0.8, 2.2, (RIGHT, BOTTOM), "WIRENO"),
                    ("SENBAN2", "Wire number, outside", 13, 0.8, 2.2, (LEFT, BOTTOM), "WIRENO"),
                    ("SENBAN3", "Cable core", 13, -0.8, 1.8, (LEFT, TOP), "WIRENO")])]


def title_block():
    strokes = [*rectangle("0", -150, 0, 150, 24), line("0", -150, 12, 0, 12), line("0", -60, 0, -60, 24), line("0", -25, 0, -25, 24)]
    tags = [("TITLE", "Title", -105, 18, 4.0), ("DWGNO", "Drawing number", -42.5, 18, 3.0), ("SHEET", "Sheet", -12.5, 18, 3.0),
            ("CLIENT", "Client", -105, 6, 3.0), ("DATE", "Date", -42.5, 6, 2.5), ("SCALE", "Scale", -12.5, 6, 2.5)]
    return Symbol("TITLE_A3", strokes, [(tag, prompt, x, y, h, (CENTER, MID), "FRAME") for tag, prompt, x, y, h in tags])


def new_sheet(release, code_page, scale, symbols):
    drawing = Drawing(release, code_page, scale, (SHEET[0] * scale, SHEET[1] * scale))
    for name, colour, locked in (("FRAME", 8, True), ("SYMBOL", 3, False), ("WIRE", 2, False), ("WIRENO", 4, False),
                                 ("CMNT", 7, False), ("JCMNT", 7, False), ("ECMNT", 7, False), ("AUX", 9, False)):
        drawing.layer(name, colour, locked)
    drawing.style("KANJI", font="extfont.shx", big_font="extfont2.shx", width=0.9)
    drawing.style("FIX3", height=3.0 * scale, width=0.8)
    drawing.style("TATE", flags=4)
    for symbol in [*symbols, title_block()]:
        drawing.block(symbol.name, symbol.definition())
    return drawing


def frame(drawing, title, number, sheet):
    s = drawing.scale
    width, height = drawing.size
    drawing.add(*rectangle("FRAME", 5 * s, 5 * s, width - 10 * s, height - 10 * s),
                *rectangle("FRAME", 10 * s, 10 * s, width - 20 * s, height - 20 * s))
    for i in range(8):
        x = (10 + 50 * i) * s
        drawing.add(line("FRAME", x, 5 * s, x, 10 * s), line("FRAME", x, height - 10 * s, x, height - 5 * s),
                    text("FRAME", x + 25 * s, height - 7.5 * s, str(i + 1), 2.5 * s, mode=(CENTER, MID)))
    for i, letter in enumerate("ABCDE"):
        y = height - (10 + 55.4 * i) * s
        drawing.add(line("FRAME", 5 * s, y, 10 * s, y), line("FRAME", width - 10 * s, y, width - 5 * s, y),
                    text("FRAME", 7.5 * s, y - 27.7 * s, letter, 2.5 * s, mode=(CENTER, MID)))
    values = {"TITLE": title, "DWGNO": number, "SHEET": f"{sheet}/3", "CLIENT": "第2工場 動力盤 MP-1", "DATE": "2024-04-01",
              "SCALE": "NTS"}
    drawing.add(title_block_insert(values, width - 10 * s, 10 * s, s))


def title_block_insert(values, x, y, scale):
    placed = title_block().place(x, y, values, scale)
    placed.layer = "FRAME"
    return placed


def power_feeder(drawing, symbols, index, x):
    name, _, power, cable = MOTORS[index]
    n = index + 1
    numbers = lambda prefix: {f"SENBAN{i + 1}": f"{prefix[i]}{n}" for i in range(3)}
    for i in range(3):
        pole = x + (i - 1) * PITCH
        bus = 262 - 5 * i
        drawing.add(circle("WIRE", pole, bus, 0.6), line("WIRE", pole, bus, pole, 240), line("WIRE", pole, 225, pole, 215),
                    line("WIRE", pole, 200, pole, 190), line("WIRE", pole, 178, pole, 161.2), line("WIRE", pole, 158.8, pole, 140))
        drawing.add(symbols["TB"].place(pole, 160, {"NAME": f"X{3 * index + i + 1:03d}", "SENBAN1": f"{PHASES[i]}{n}"}))
    drawing.add(symbols["MCCB"].place(x, 240, {"NAME": f"MCCB{n}", **numbers(["R1", "S1", "T1"])}),
                symbols["MC3P"].place(x, 215, {"NAME": f"MC{n}", **numbers(["R2", "S2", "T2"])}),
                symbols["THR3P"].place(x, 190, {"NAME": f"THR{n}", **numbers(PHASES)}),
                symbols["MOTOR"].place(x, 140, {"NAME": f"M{n}", "CAP": power}))
    drawing.add(text("CMNT", x, 105, name, 3.5, mode=(CENTER, TOP), style="KANJI", width=0.9),
                text("CMNT", x + 9.8, 143, cable, 2.0, rotation=90), text("AUX", x, 98, f"TB1-{n}", 2.0, mode=(CENTER, TOP)))


def motor_1():
    symbols = {symbol.name: symbol for symbol in power_symbols()}
    drawing = new_sheet("AC1032", "ANSI_1252", 1.0, symbols.values())
    frame(drawing, "動力回路図", "MP1-E-001", 1)
    for i, phase in enumerate("RST"):
        y = 262 - 5 * i
        drawing.add(line("WIRE", 24, y, 400, y), text("CMNT", 22, y, phase, 3.0, mode=(RIGHT, MID)))
    drawing.add(text("CMNT", 24, 272, "主電源 AC200V 3φ 60Hz", 3.5, style="KANJI", width=0.9),
                text("ECMNT", 24, 266.5, "MAIN POWER SUPPLY", 2.5))
    for index in range(len(MOTORS)):
        power_feeder(drawing, symbols, index, 56 + 52 * index)
    notes = ["注記", "1. 線番は端子台側を基準とする。", "2. 接地線は緑色 IV 2sq とする。", "3. モーター容量は銘板による。"]
    for i, note in enumerate(notes):
        drawing.add(text("JCMNT", 20, 70 - 6 * i, note, 3.0, style="KANJI"))
    for i in range(3):
        drawing.add(text("CMNT", 130 + 12 * i, 70, f"X{i + 1:03d}", 2.5, mode=(CENTER, MID)))
    drawing.add(text("ECMNT", 130, 76, "SPARE TERMINALS", 2.0), text("CMNT", 200, 84, "1FFF", 2.5), text("CMNT", 220, 84, "000.15", 2.5))
    drawing.add(text("JCMNT", 400, 80, "盤内配線", 3.0, style="TATE"))
    return drawing


def control_rung(drawing, symbols, index, y):
    name = MOTORS[index][0]
    n, wire = index + 1, 10 * (index + 1)
    place = lambda kind, x, yy, tag, left, right: drawing.add(
        symbols[kind].place(x, yy, {"NAME": tag, "SENBAN1": left, "SENBAN2": right}))
    place("PB_B", 70, y, f"PB{2 * n}", "P01", str(wire))
    place("PB_A", 110, y, f"PB{2 * n - 1}", str(wire), str(wire + 1))
    place("RY_A", 110, y - 12, f"MC{n}", str(wire), str(wire + 1))
    place("THR_B", 160, y, f"THR{n}", str(wire + 1), str(wire + 2))
    place("COIL", 210, y, f"MC{n}", str(wire + 2), "N01")
    place("RY_A", 285, y, f"MC{n}", "P01", str(wire + 3))
    place("LAMP", 335, y, f"GL{n}", str(wire + 3), "N01")
    for a, b in ((40, 64), (76, 104), (116, 154), (166, 204), (216, 250), (262, 279), (291, 329), (341, 370)):
        drawing.add(line("WIRE", a, y, b, y))
    drawing.add(*polyline("WIRE", [(95, y), (95, y - 12), (104, y - 12)]), *polyline("WIRE", [(116, y - 12), (125, y - 12), (125, y)]),
                *(circle("WIRE", x, y, 0.6) for x in (40, 95, 125, 250, 262, 370)))
    drawing.add(text("CMNT", 374, y, name, 2.5, mode=(LEFT, MID), style="KANJI", width=0.8),
                text("AUX", 20, y, f"{n:02d}", 2.5, mode=(LEFT, MID)))


def motor_2():
    symbols = {symbol.name: symbol for symbol in control_symbols()}
    drawing = new_sheet("AC1015", "ANSI_932", 1.0, symbols.values())
    frame(drawing, "制御回路図", "MP1-E-002", 2)
    for x, label in ((40, "P01"), (250, "N01"), (262, "P01"), (370, "N01")):
        drawing.add(line("WIRE", x, 50, x, 268), text("CMNT", x, 270, label, 2.5, mode=(CENTER, BASE)))
    drawing.add(text("CMNT", 40, 278, "制御電源 AC100V 表示回路", 3.5, style="KANJI"), text("ECMNT", 262, 278, "INDICATION", 2.5))
    for index in range(len(MOTORS)):
        control_rung(drawing, symbols, index, 255 - 29 * index)
    drawing.add(text("JCMNT", 45, 44, "予備接点: ソ表能十 ＭＣ１～ＭＣ７", 3.0, style="KANJI"), text("CMNT", 200, 44, "Ｘ００１", 2.5))
    return drawing


def terminal_strip(drawing, symbol, strip, x):
    s = drawing.scale
    drawing.add(text("CMNT", x * s, 272 * s, f"TB{strip}", 4.0 * s, mode=(CENTER, BASE)),
                text("ECMNT", (x - 13) * s, 266 * s, "PANEL", 2.0 * s, mode=(RIGHT, BASE)),
                text("ECMNT", (x + 13) * s, 266 * s, "FIELD", 2.0 * s))
    for row in range(21):
        n = 21 * (strip - 1) + row + 1
        motor, phase = divmod(row, 3)
        wire = f"{PHASES[phase]}{motor + 1}" if strip == 1 else str(10 * (motor + 1) + phase)
        y = 258 - 9.5 * row
        drawing.add(symbol.place(x * s, y * s, {"NAME": f"X{n:03d}", "SENBAN1": wire, "SENBAN2": wire,
                                                "SENBAN3": f"C{motor + 1}-{phase + 1}"}, s))
        if phase == 0:
            drawing.add(text("CMNT", (x + 26) * s, y * s, MOTORS[motor][1], 2.0 * s), *polyline(
                "WIRE", [((x + 22) * s, y * s), ((x + 24) * s, y * s), ((x + 24) * s, (y - 19) * s), ((x + 22) * s, (y - 19) * s)]))


def terminals():
    symbols = terminal_symbols()
    drawing = new_sheet("R12", "ANSI_1252", 2.0, symbols)
    frame(drawing, "端子台図 TERMINALS", "MP1-E-003", 3)
    terminal_strip(drawing, symbols[0], 1, 60)
    terminal_strip(drawing, symbols[0], 2, 180)
    s = drawing.scale
    drawing.add(text("ECMNT", 290 * s, 272 * s, "CABLE LIST", 4.0 * s, style="FIX3", width=0.8))
    for i, (_, name, power, cable) in enumerate(MOTORS):
        y = (262 - 8 * i) * s
        drawing.add(line("FRAME", 290 * s, y - 2 * s, 400 * s, y - 2 * s), text("CMNT", 292 * s, y, f"C{i + 1}", 2.5 * s),
                    text("CMNT", 304 * s, y, name, 2.5 * s, width=0.9), text("CMNT", 352 * s, y, cable, 2.5 * s),
                    text("CMNT", 398 * s, y, power, 2.5 * s, mode=(RIGHT, BASE)))
    for i in range(3):
        drawing.add(text("CMNT", (292 + 14 * i) * s, 180 * s, f"X{901 + i}", 2.5 * s))
    return drawing


def main():
    here = Path(__file__).resolve().parent.parent
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else here / "examples" / "panel"
    folder.mkdir(parents=True, exist_ok=True)
    for name, make in (("motor-1", motor_1), ("motor-2", motor_2), ("terminals", terminals)):
        make().save(folder / f"{name}.dxf")


if __name__ == "__main__":
    main()
