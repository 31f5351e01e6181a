"""The measurements as a text that a person reads."""

import statistics

import rows

WIDTHS = (37, 9, 9, 22, 9, 6, 14, 13)
HEADINGS = ("operation", "median", "least", "floor", "", "ratio", "limit", "aim")


def duration(seconds):
    for unit, scale, highest in (("ns", 1e9, 10e-6), ("us", 1e6, 1e-3), ("ms", 1e3, 1.0)):
        if seconds < highest:
            number = seconds * scale
            return f"{number:.1f} {unit}" if number < 10 else f"{number:,.0f} {unit}"
    return f"{seconds:.2f} s"


def weight(count):
    return f"{count:,.0f} B"


def line(cells):
    texts = [f"{cell:<{width}}" if index in (0, 3) else f"{cell:>{width}}"
             for index, (cell, width) in enumerate(zip(cells, WIDTHS))]
    return "  ".join(texts).rstrip()


def growth_line(cells):
    return f"{cells[0]:<{WIDTHS[0]}}" + "".join(f"{cell:>11}" for cell in cells[1:])


def ratio_of(samples, row):
    """How many times the floor: by rounds, where both were measured in the same ones."""
    ours, floor = samples[row.key], samples[row.floor]
    if len(ours) == len(floor):
        return statistics.median(a / b for a, b in zip(ours, floor))
    return statistics.median(ours) / statistics.median(floor)


def judged(text, within, good, bad):
    return f"{text}  {good if within else bad}"


def result(samples, row):
    """A row with its figures: what the table prints and --json writes."""
    if row.key not in samples:
        return None
    median = statistics.median(samples[row.key]) * row.items
    values = {"title": row.title, "median": median, "least": min(samples[row.key]) * row.items}
    if row.floor in samples:
        values |= {"floor": statistics.median(samples[row.floor]) * row.items, "floor_title": row.floor_title,
                   "ratio": ratio_of(samples, row)}
    if row.most:
        values |= {"limit": duration(row.most), "within_limit": median <= row.most}
    if row.most_ratio:
        values |= {"limit": f"{row.most_ratio:g}x", "within_limit": values["ratio"] <= row.most_ratio}
    if row.aim:
        values |= {"aim": row.aim, "within_aim": median <= row.aim}
    return values


def printed(values):
    floor = ("", "", "")
    if "ratio" in values:
        floor = (values["floor_title"], duration(values["floor"]), f"{values['ratio']:.1f}x")
    limit = judged(values["limit"], values["within_limit"], "ok  ", "OVER") if "limit" in values else ""
    aim = judged(duration(values["aim"]), values["within_aim"], "met", "---") if "aim" in values else ""
    return line((values["title"], duration(values["median"]), duration(values["least"]), *floor, limit, aim))


def scaling(samples, entries):
    """Lines of cost an item at each size, and how much the largest costs of the smallest."""
    for title, key in entries:
        found = [samples.get(f"{key}/{size}") for size in rows.SIZES]
        if all(found):
            costs = [statistics.median(seconds) for seconds in found]
            yield title, costs, costs[-1] / costs[0]


def count_text(counted):
    """The instructions of each operation beside the aim."""
    def cells(title, count, aim):
        return f"{title:<{WIDTHS[0]}}  {count:>12}  {aim:>14}"

    lines = [cells("from Python", "instructions", "aim")]
    lines += [cells(row.title, f"{counted[row.key]:,.0f}", judged(f"{row.aim:,}", counted[row.key] <= row.aim, "met", "---"))
              for row in rows.INSTRUCTIONS]
    return "\n".join(lines) + "\n"


def text(python, native):
    lines = []

    def section(title):
        lines.extend(["", title, "-" * len(title)])

    def operations(title, samples, entries):
        section(title)
        lines.append(line(HEADINGS))
        lines.extend(printed(values) for values in (result(samples, row) for row in entries) if values)

    def floors(title, samples, entries):
        section(title)
        lines.extend(line((name, duration(statistics.median(samples[key])), duration(min(samples[key]))))
                     for name, key in entries if key in samples)

    def growth(title, samples, entries, shown=duration):
        section(title)
        lines.append(growth_line(("", *(f"{size:,}" for size in rows.SIZES), "growth")))
        for name, costs, factor in scaling(samples, entries):
            lines.append(growth_line((name, *map(shown, costs), f"{factor:.2f}x")))

    if python:
        operations("From Python", python, rows.PYTHON)
        growth("From Python, 1,000 to 100,000", python, rows.PYTHON_SCALING)
        floors("Floors of Python, in the same rounds", python, rows.PYTHON_FLOORS)
    if native:
        operations("From C++", native, rows.NATIVE)
        growth("From C++, 1,000 to 100,000", native, rows.NATIVE_SCALING)
        growth("Memory of an entry in an undo list of 1,000 to 100,000", native, rows.NATIVE_MEMORY, weight)
        floors("Floors of Qt, in the same run", native, rows.NATIVE_FLOORS)
    return "\n".join(lines[1:]) + "\n"
