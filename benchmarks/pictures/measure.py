#!/usr/bin/python3
"""Measures how many QR codes korvoqr and zbarimg read in the same pictures.

For each condition it makes pictures of codes with a fault that grows from none to hopeless, and prints the share of
codes whose payload was read exactly, and the seconds that it took. scripts/bench --pictures builds the tool, installs
what this needs and runs it; the options are below.
"""

import argparse
import collections
import json
import math
import os
import random
import resource
import subprocess
import tempfile

import numpy
from PIL import Image, ImageDraw, ImageFilter

SOURCE = 6  # pixels of a module before the picture is taken
NAMES = ["KORVO CAFE", "Sharma Sweets", "BLUE HILL PHARMACY", "Old Town Bicycle Repair", "FRESH FISH", "Hotel Miramar"]
CITIES = ["MUMBAI", "Pune", "CHENNAI", "New Delhi", "KOCHI"]


def element(tag, value):
    return f"{tag}{len(value):02d}{value}"


def digits(draw, count):
    return "".join(draw.choice("0123456789") for _ in range(count))


def payload(draw, least=60, most=300):
    """A payload of a shop; accounts and references make it as long as the draw wants."""
    length = draw.randint(least, most)
    text = "000201010211" + element("02", digits(draw, 16))
    text += element("52", digits(draw, 4)) + "5303356" + "5802IN"
    text += element("59", draw.choice(NAMES)) + element("60", draw.choice(CITIES))
    for tag in range(26, 52):
        left = length - len(text) - 8
        if left < 9:
            break
        account = "0010A000000524" + element("01", "".join(draw.choices("abcdefghijkmnp0123456789.@-", k=50)))
        text += element(str(tag), account[: min(left - 4, 72)])
    text += "6304"
    crc = 0xFFFF
    for byte in text.encode():
        crc ^= byte << 8
        for _ in range(8):
            crc = ((crc << 1) ^ 0x1021 if crc & 0x8000 else crc << 1) & 0xFFFF
    return text + f"{crc:04X}"


def modules(text, level):
    """Which modules of the code and its quiet zone are dark."""
    drawing = subprocess.run(["qrencode", "-t", "ASCII", "-o", "-", "-m", "4", "-8", "-l", level], input=text.encode(),
                             stdout=subprocess.PIPE, check=True).stdout.decode().splitlines()
    return numpy.array([[character == "#" for character in line[::2]] for line in drawing])


def printed(code, draw):
    """The code in a printer's ink on paper, SOURCE pixels for each module."""
    ink, paper = draw.randint(15, 60), draw.randint(215, 245)
    return numpy.where(code, ink, paper).repeat(SOURCE, 0).repeat(SOURCE, 1).astype(numpy.uint8)


def solved(pairs):
    """The eight coefficients of the projection that takes each first point to its second."""
    rows, values = [], []
    for (x, y), (u, v) in pairs:
        rows += [[x, y, 1, 0, 0, 0, -u * x, -u * y], [0, 0, 0, x, y, 1, -v * x, -v * y]]
        values += [u, v]
    return numpy.linalg.solve(numpy.array(rows), numpy.array(values))


def photographed(source, module, draw, turn=0.0, tilt=0.0):
    """The paper on a table, turned and tilted by degrees, module pixels wide in the middle."""
    height, width = source.shape
    scale = 2 * module / SOURCE  # twice the resolution, halved at the end
    turn, tilt, axis = math.radians(turn), math.radians(tilt), draw.uniform(0, 2 * math.pi)
    distance = 1.8 * max(width, height)
    points = []
    for x, y in ((0, 0), (width, 0), (width, height), (0, height)):
        x, y = x - width / 2, y - height / 2
        along, across = x * math.cos(axis) + y * math.sin(axis), y * math.cos(axis) - x * math.sin(axis)
        depth = distance / (distance + across * math.sin(tilt))
        along, across = along * depth, across * math.cos(tilt) * depth
        x, y = along * math.cos(axis) - across * math.sin(axis), along * math.sin(axis) + across * math.cos(axis)
        points.append((scale * (x * math.cos(turn) - y * math.sin(turn)),
                       scale * (x * math.sin(turn) + y * math.cos(turn))))
    left, top = min(x for x, _ in points), min(y for _, y in points)
    margin = draw.uniform(10, 60)
    size = tuple(2 * math.ceil((max(p[i] for p in points) - min(p[i] for p in points)) / 2 + margin) for i in (0, 1))
    points = [(x - left + margin, y - top + margin) for x, y in points]
    back = solved(zip(points, ((0, 0), (width, 0), (width, height), (0, height))))
    mask = Image.fromarray(numpy.full_like(source, 255)).transform(size, Image.PERSPECTIVE, back, Image.BILINEAR)
    paper = Image.fromarray(source).transform(size, Image.PERSPECTIVE, back, Image.BICUBIC)
    small = Image.fromarray(numpy.array([[draw.randint(60, 190) for _ in range(6)] for _ in range(6)], numpy.uint8))
    table = small.resize(size, Image.BICUBIC)
    table.paste(paper, (0, 0), mask)
    return table.resize((size[0] // 2, size[1] // 2), Image.BOX)


def blurred(picture, radius):
    return picture.filter(ImageFilter.GaussianBlur(radius))


def shaken(picture, length, draw):
    """Moved in one direction while the picture was taken."""
    values, total = numpy.asarray(picture, float), 0.0
    steps, angle = max(1, math.ceil(2 * length)), draw.uniform(0, 2 * math.pi)
    for i in range(steps):
        shift = length * (i / steps - 0.5)
        total = total + numpy.roll(values, (round(shift * math.sin(angle)), round(shift * math.cos(angle))), (0, 1))
    return Image.fromarray((total / steps).astype(numpy.uint8))


def noisy(picture, deviation, grain):
    values = numpy.asarray(picture, float)
    return Image.fromarray((values + grain.normal(0, deviation, values.shape)).clip(0, 255).astype(numpy.uint8))


def lit(picture, strength, draw):
    """Light that falls off to one side, the edge of a shadow, and a lamp that the paper reflects."""
    values = numpy.asarray(picture, float)
    height, width = values.shape
    y, x = numpy.mgrid[0:height, 0:width] / max(height, width)
    angle = draw.uniform(0, 2 * math.pi)
    ramp = x * math.cos(angle) + y * math.sin(angle)
    ramp = (ramp - ramp.min()) / (ramp.max() - ramp.min())
    light = 1 - 0.985 * strength * ramp
    shadow = (x * math.cos(angle + 1.9) + y * math.sin(angle + 1.9)) > draw.uniform(-0.2, 0.4)
    light = numpy.where(shadow, light * (1 - 0.9 * strength * draw.random()), light)
    lamp = numpy.exp(-((x - draw.random()) ** 2 + (y - draw.random()) ** 2) / 0.03)
    values = values * light + 400 * strength * draw.random() * lamp
    return Image.fromarray(values.clip(0, 255).astype(numpy.uint8))


def with_logo(source, share, draw):
    """A shop's sign over the centre; its side is a share of the code's."""
    picture = Image.fromarray(source)
    side, middle = share * (source.shape[0] - 8 * SOURCE), source.shape[0] / 2
    box = [middle - side / 2, middle - side / 2, middle + side / 2, middle + side / 2]
    pen = ImageDraw.Draw(picture)
    pen.rounded_rectangle(box, side / 6, fill=draw.randint(200, 255))
    pen.ellipse([middle - side / 3, middle - side / 3, middle + side / 3, middle + side / 3], fill=draw.randint(0, 160))
    pen.rectangle([middle - side / 5, middle - side / 12, middle + side / 5, middle + side / 12], fill=240)
    return numpy.asarray(picture)


def torn(source, strength, draw):
    """A torn edge, or something over a part: its depth is a share of the code's side."""
    picture = Image.fromarray(source)
    pen = ImageDraw.Draw(picture)
    side, quiet = source.shape[0], 4 * SOURCE
    depth, colour = strength * (side - 2 * quiet), draw.randint(90, 200)
    if draw.random() < 0.5:
        edge = [(x, quiet + depth * draw.uniform(0.6, 1.0)) for x in range(0, side + 1, 4 * SOURCE)]
        pen.polygon([(0, 0), *edge, (side, edge[-1][1]), (side, 0)], fill=colour)
    else:
        x, y = (draw.uniform(quiet, side - quiet) for _ in range(2))
        pen.ellipse([x - depth, y - depth * 0.7, x + depth, y + depth * 0.7], fill=colour)
    return numpy.rot90(numpy.asarray(picture), draw.randint(0, 3)).copy()


def one_code(condition, strength, draw, grain):
    text = payload(draw)
    source = printed(modules(text, draw.choice("LMQH")), draw)
    module, turn, tilt = draw.uniform(2.5, 7), draw.gauss(0, 4), abs(draw.gauss(0, 6))
    if condition == "logo":
        source = with_logo(source, 0.5 * strength, draw)
    elif condition == "tear":
        source = torn(source, 0.35 * strength, draw)
    elif condition == "inversion":
        source = 255 - source
    elif condition == "angle":
        module, turn = 5 - 3.8 * strength, draw.uniform(0, 360)
    elif condition == "perspective":
        tilt = 78 * strength
    picture = photographed(source, module, draw, turn, tilt)
    if condition == "blur":
        strong = 1.5 * strength * module
        picture = blurred(picture, 0.6 * strong) if draw.random() < 0.6 else shaken(picture, 1.6 * strong, draw)
    elif condition == "light":
        picture = lit(picture, strength, draw)
    elif condition == "inversion":
        picture = blurred(picture, 0.6 * strength * module)
    deviation = {"noise": 3 + 110 * strength, "inversion": 3 + 30 * strength}.get(condition, 3)
    return [text], noisy(blurred(picture, 0.4), deviation, grain)


def sheet(strength, draw, grain):
    """2 by 2 to 6 by 6 stickers of one size, each with its own text."""
    count = draw.randint(2, 6)
    texts = [payload(draw, 60, 160) for _ in range(count * count)]
    codes = [printed(modules(text, draw.choice("LMQH")), draw) for text in texts]
    cell = max(code.shape[0] for code in codes) + SOURCE * draw.randint(0, 12)
    source = numpy.full((count * cell, count * cell), 240, numpy.uint8)
    for i, code in enumerate(codes):
        side = code.shape[0]
        top, left = (i // count * cell + (cell - side) // 2, i % count * cell + (cell - side) // 2)
        source[top : top + side, left : left + side] = code
    picture = photographed(source, 4.5 - 3.0 * strength, draw, draw.gauss(0, 3), abs(draw.gauss(0, 8)))
    return texts, noisy(blurred(picture, 0.4), 3 + 15 * strength * draw.random(), grain)


CONDITIONS = ["noise", "blur", "angle", "perspective", "light", "logo", "tear", "inversion", "sheets"]


def make_pictures(condition, count, seed, folder):
    """The payloads of each picture by the name of its file."""
    wanted = {}
    for i in range(count):
        draw = random.Random(f"{seed} {condition} {i}")
        grain = numpy.random.default_rng(draw.getrandbits(64))
        strength = i / max(1, count - 1)
        texts, picture = (sheet(strength, draw, grain) if condition == "sheets"
                          else one_code(condition, strength, draw, grain))
        file = os.path.join(folder, f"{condition}-{i:03d}.jpg")
        picture.save(file, quality=90)
        wanted[file] = texts
    return wanted


def seconds_of_children():
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


def read_by_korvoqr(tool, files):
    command = [tool, "explain", "--format", "json", "--image", *files]
    output = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    read = collections.defaultdict(list)
    for line in output.decode().splitlines():
        row = json.loads(line)
        if "payload" in row:
            read[row["file"]].append(row["payload"])
    return read


def read_by_zbar(files):
    return {file: subprocess.run(["zbarimg", "--raw", "-q", file], stdout=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL).stdout.decode().splitlines()
            for file in files}


def measured(read, wanted):
    begin = seconds_of_children()
    texts = read(wanted)
    rights = {file: sum((collections.Counter(wanted[file]) & collections.Counter(texts.get(file, []))).values())
              for file in wanted}
    extra = sum(len(texts.get(file, [])) for file in wanted) - sum(rights.values())
    return rights, extra, seconds_of_children() - begin


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tool", help="the path of korvoqr")
    parser.add_argument("--seed", default="1")
    parser.add_argument("--count", type=int, default=200, help="pictures for each condition")
    parser.add_argument("--conditions", nargs="+", default=CONDITIONS, choices=CONDITIONS)
    parser.add_argument("--keep", help="a folder for the pictures, with a list of those that zbar alone read")
    options = parser.parse_args()
    print(f"{'':12} {'codes':>6} {'korvoqr':>8} {'zbarimg':>8} {'wrong':>6} {'s/picture':>10} {'zbarimg':>8}")
    total = [0, 0, 0]
    with tempfile.TemporaryDirectory() as temporary:
        folder = options.keep or temporary
        os.makedirs(folder, exist_ok=True)
        for condition in options.conditions:
            wanted = make_pictures(condition, options.count, options.seed, folder)
            ours, wrong, seconds = measured(lambda files: read_by_korvoqr(options.tool, files), wanted)
            theirs, _, their_seconds = measured(read_by_zbar, wanted)
            if options.keep:
                with open(os.path.join(folder, condition + ".txt"), "w", encoding="utf-8") as file:
                    file.writelines(f"{name} {ours[name]} {theirs[name]} of {len(wanted[name])}\n" for name in wanted)
            counts = [sum(len(texts) for texts in wanted.values()), sum(ours.values()), sum(theirs.values())]
            total = [a + b for a, b in zip(total, counts)]
            print(f"{condition:12} {counts[0]:6} {counts[1] / counts[0]:8.1%} {counts[2] / counts[0]:8.1%} {wrong:6} "
                  f"{seconds / len(wanted):10.3f} {their_seconds / len(wanted):8.3f}", flush=True)
    print(f"{'all':12} {total[0]:6} {total[1] / total[0]:8.1%} {total[2] / total[0]:8.1%}")


if __name__ == "__main__":
    main()
