"""What differs between two drawings, worked out with ezdxf alone: the same answer as `zu compare --json`, in sets."""
import math

import ezdxf

CONNECTION_LAYER, TOLERANCE = "_ZU_CONNECT", 0.1


def texts(entity, application):
    return tuple(v for c, v in entity.get_xdata(application) if c == 1000) if entity.has_xdata(application) else ()


def near(values):
    return tuple(round(v, 6) + 0.0 for v in values)


class Element:
    def __init__(self, insert):
        d = insert.dxf
        self.handle, self.block, self.insert = d.handle, d.name.lower(), insert
        self.position = tuple(d.insert)
        self.values = {"rotation": near([d.rotation % 360]), "scale": near((d.xscale, d.yscale, d.zscale)),
                       "layer": d.layer, "link": (texts(insert, "ZU_LINK") or (None,))[0]}
        self.record = texts(insert, "ZU_ATTR")
        header = self.record[0].split("|") if self.record else ["", "", ""]
        self.values.update(name=header[1] or None, mark=header[2] or None)
        self.values.update(t.split("|")[:2] for t in self.record[1:])
        self.place = (self.block, near(self.position), self.values["rotation"], self.values["scale"])

    def points(self):
        if self.insert.block() is None:
            return
        for point in self.insert.block().query("POINT"):
            if point.dxf.layer.upper() == CONNECTION_LAYER:
                base = self.insert.block().block.dxf.base_point
                local = point.dxf.location - ezdxf.math.Vec3(base.x, base.y)
                d, r = self.insert.dxf, math.radians(self.insert.dxf.rotation)
                x, y = local.x * d.xscale, local.y * d.yscale
                yield (d.insert.x + x * math.cos(r) - y * math.sin(r), d.insert.y + x * math.sin(r) + y * math.cos(r))


class Plan:
    def __init__(self, path):
        self.doc = ezdxf.readfile(path)
        self.elements = {e.dxf.handle: Element(e) for e in self.doc.modelspace().query("INSERT")}
        self.others = {e.dxf.handle: self.content(e) for layout in self.doc.blocks for e in layout
                       if e.dxf.handle not in self.elements}
        self.groups = {name: [e.dxf.handle for e in group] for name, group in self.doc.groups}

    @staticmethod
    def content(entity):
        attributes = {k: v for k, v in entity.dxfattribs().items() if k not in ("handle", "owner")}
        points = list(entity.get_points()) if entity.dxftype() == "LWPOLYLINE" else None
        return entity.dxftype(), sorted((k, str(v)) for k, v in attributes.items()), points, getattr(entity, "text", None)

    def joints(self):
        cells = {}
        for element in self.elements.values():
            for x, y in element.points():
                cells.setdefault((math.floor(x), math.floor(y)), []).append((x, y, element.handle))
        for (i, j), points in cells.items():
            near_points = [p for k in (-1, 0, 1) for m in (-1, 0, 1) for p in cells.get((i + k, j + m), ())]
            for x, y, a in points:
                for u, v, b in near_points:
                    if a != b and math.hypot(x - u, y - v) <= TOLERANCE:
                        yield frozenset((a, b))


def differences(first, second):
    a, b = Plan(first), Plan(second)
    same = {h: h for h, e in b.elements.items() if h in a.elements and a.elements[h].block == e.block}
    known = {}
    for h, e in a.elements.items():
        if h not in same:
            known.setdefault((e.place, e.record), []).append(h)
    for h, e in b.elements.items():
        if h not in same and known.get((e.place, e.record)):
            same[h] = known[e.place, e.record].pop(0)
    was = {old: new for new, old in same.items()}
    named = {**{h: h for h in a.others if h in b.others}, **was}
    old_joints = {frozenset(named.get(h, h) for h in joint) for joint in a.joints()}
    new_joints = set(b.joints())
    moved, changed, groups = {}, {}, {}
    for h, old in same.items():
        e, o = b.elements[h], a.elements[old]
        if near(e.position) != near(o.position):
            moved[h] = (old, near(o.position), near(e.position))
        values = {k: (o.values.get(k), e.values.get(k)) for k in {**o.values, **e.values}
                  if o.values.get(k) != e.values.get(k)}
        if values:
            changed[h] = (old, values)
    for name in {**a.groups, **b.groups}:
        old = {named.get(h, h) for h in a.groups.get(name, ())}
        new = set(b.groups.get(name, ()))
        if old != new:
            groups[name] = (new - old, old - new)
    return {"added": set(b.elements) - set(same), "removed": set(a.elements) - set(was), "moved": moved,
            "changed": changed, "groups": groups, "made": new_joints - old_joints, "broken": old_joints - new_joints,
            "other": (set(b.others) - set(a.others), set(a.others) - set(b.others),
                      {h for h, c in b.others.items() if h in a.others and a.others[h] != c})}
