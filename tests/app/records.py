"""Drawings as bare records, to damage them and to see what a repair changes."""


class Drawing:
    """Objects in file order, each a list of [group code, value]."""

    def __init__(self, path):
        with open(path, "rb") as f:
            lines = f.read().split(b"\n")
        self.objects = []
        for code, value in zip(lines[0::2], lines[1::2]):
            if code.strip() == b"0":
                self.objects.append([])
            self.objects[-1].append([code, value])

    def save(self, path):
        with open(path, "wb") as f:
            for records in self.objects:
                for code, value in records:
                    f.write(code + b"\n" + value + b"\n")

    def at(self, handle):
        return next(records for records in self.objects if handle_of(records) == handle)

    def by_handle(self):
        return {handle_of(records): records for records in self.objects if handle_of(records)}


def handle_of(records):
    if text(records[0]) == "SECTION":  # records of the header belong to no object
        return None
    return next((value.strip().decode() for code, value in records if code.strip() in (b"5", b"105")), None)


def places(records, code, value=None):
    """Indexes of the records with the code (and the value)."""
    return [i for i, r in enumerate(records) if int(r[0]) == code and value in (None, text(r))]


def text(record):
    return record[1].strip().decode("utf-8", "surrogateescape")


def record(like, code, value):
    """A record with the line ends of another."""
    end = b"\r" if like[1].endswith(b"\r") else b""
    return [b"%3d" % code + end, value.encode() + end]


def insert(records, place, code, value):
    records.insert(place, record(records[0], code, value))


def xdata(records, application):
    """Index of the first and of the last value of an application."""
    first = places(records, 1001, application)[0] + 1
    last = first
    while last < len(records) and int(records[last][0]) not in (0, 1001):
        last += 1
    return first, last
