"""The listings of the sample drawings, compared with results computed by a separate program."""
import resource
import subprocess
import tempfile

from program import ZU, check, expected, run, run_json, sample


def near(a, b):
    return len(a) == len(b) and all(abs(x - y) < 1e-6 for x, y in zip(a, b))


def check_elements(drawing, wanted):
    elements = run_json("elements", drawing)
    check([e["handle"] for e in elements] == [w["handle"] for w in wanted["elements"]], "elements and their order")
    for e, w in zip(elements, wanted["elements"]):
        where = "element " + e["handle"]
        for key in ("block", "code", "link_kind", "layer", "locked", "groups"):
            check(e[key] == w[key], "%s: %s %r instead of %r" % (where, key, e[key], w[key]))
        check(near(e["origin"], w["origin"]), where + ": origin")
        check(len(e["connection_points"]) == len(w["connect"]), where + ": number of connection points")
        check(all(near(p, q) for p, q in zip(e["connection_points"], w["connect"])), where + ": connection points")
    routes = run_json("elements", drawing, "--routes")
    check(len(routes) == sum(w["code"] != 100 for w in wanted["elements"]), "route elements")


def check_attributes(drawing, wanted):
    for w in wanted["elements"]:
        rows = run_json("attributes", drawing, w["handle"])
        stored = w["attributes"] or [""]
        header = (stored[0].split("|") + ["", "", ""])[1:3]
        items = [s.split("|")[:6] for s in stored[1:]]
        check([r[:2] + r[3:] for r in rows] == [header + i for i in items], "attributes of " + w["handle"])


def check_groups(drawing, wanted):
    groups = run_json("groups", drawing)
    check(len(groups) == len(wanted["groups"]), "number of groups")
    by_handle = {g["handle"]: g for g in groups}
    for w in wanted["groups"]:
        g = by_handle[w["handle"]]
        check((g["name"], g["number"], g["members"]) == (w["name"], w["number"], w["members"]), "group " + w["name"])


def check_connected(drawing, wanted):
    """All searches of one group and filter in one run of the program."""
    searches = {}
    for case in wanted["connect"]:
        searches.setdefault((case["group"], case["filter"]), []).append(case)
    for (group, kind), cases in searches.items():
        found = run_json("connected", drawing, "--all", "--group", group, "--kind", str(kind))
        for case in cases:
            joined = case["result"] if case["rc"] == 0 else []
            check(found[case["element"]] == joined, "joined to %s in %s, kind %d" % (case["element"], group, kind))


for name in ("office-floor", "office-floor-932"):
    drawing = sample("drawings/%s.dxf" % name)
    wanted = expected(name + ".json")
    check_elements(drawing, wanted)
    check_attributes(drawing, wanted)
    check_groups(drawing, wanted)
    check_connected(drawing, wanted)
run("elements", sample("drawings/missing.dxf"), status=1)
run("attributes", sample("drawings/office-floor.dxf"), "FFFFFF", status=1)
run("connected", sample("drawings/office-floor.dxf"), "183", status=1)
run("elements", status=2)
run("nonsense", status=2)
with open("/dev/full", "w") as full:
    lost = subprocess.run([ZU, "elements", sample("drawings/office-floor.dxf")], stdout=full, stderr=subprocess.PIPE)
    check(lost.returncode == 1 and lost.stderr, "output that can't be written is reported")
for name in (".", "missing.dxf", "system/master.ini"):
    run("part", sample(name), status=1)
table = sample("system/ZuConfig.ini")
run("table", table, "--separator", "", status=2)
run("table", table, "--skip", "-1", status=2)
print("listings agree")


def failure(*arguments, memory=resource.RLIM_INFINITY):
    """Standard error of a command that must fail."""
    limit = lambda: resource.setrlimit(resource.RLIMIT_AS, (memory, memory))
    done = subprocess.run([ZU, *arguments], capture_output=True, text=True, preexec_fn=limit)
    check(done.returncode == 1, "status %d of %r" % (done.returncode, arguments))
    return done.stderr


# Faults are warnings, and errors on request.
with tempfile.NamedTemporaryFile("w", suffix=".dxf") as file:
    file.write("0\nSECTION\n2\nENTITIES\n0\nMLINE\n340\nStandard\n0\nENDSEC\n0\nEOF\n")
    file.flush()
    problem = 'group code 340: "Standard" is not a handle\n'
    done = subprocess.run([ZU, "elements", file.name], capture_output=True, text=True)
    check((done.returncode, done.stderr) == (0, file.name + ":8: warning: " + problem), "a warning")
    check(failure("elements", "--strict", file.name) == "zu: " + file.name + ":8: " + problem, "--strict")
    file.truncate(1 << 32)
    # The address sanitizer reserves more than any limit.
    if b"__asan_init" not in open(ZU, "rb").read():
        check("zu: " + file.name + ": " in failure("groups", file.name, memory=1 << 31), "memory names the file")
check("/dev/zero: endless" in failure("groups", "/dev/zero"), "a device without an end")
check("/dev/zero: is a device" in failure("attributes", "--settings", "/dev/zero", "x", "1"), "settings")
