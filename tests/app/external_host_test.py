"""The library is configured for a stand-in kit, which holds the host's interface and a library of stubs, and compiles on it
without anything of the embedded host: external_host_test.py SOURCE COMPILER"""
import glob
import json
import os
import subprocess
import sys
import tempfile

SOURCE, COMPILER = sys.argv[1:]
# One source that needs the database, one that needs the framework with its windows, and the module's own entries.
COMPILED = ("dbservices/existence", "attributes/views/apply", "frame/module")


def write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def make_kit(folder):
    """Headers that lead to those of the interface, of which none lies below zuhost/, and a library of stubs."""
    for pattern in ("*/include/*.h", "*/*/include/*.h"):
        for header in glob.glob(os.path.join(SOURCE, "host", pattern)):
            if "/without_windows/" not in header and "/on_windows/" not in header:
                write(os.path.join(folder, "include", os.path.basename(header)), '#include "%s"\n' % header)
    for rules in ("zuhost/platform/export.h", "zuhost/platform/system_rules.h"):
        write(os.path.join(folder, "include", rules), '#include "%s/host/platform/posix/include/%s"\n' % (SOURCE, rules))
    write(os.path.join(folder, "stubs.cpp"), 'extern "C" void kitStub() {}\n')
    subprocess.run([COMPILER, "-shared", "-fPIC", folder + "/stubs.cpp", "-o", folder + "/libhost.so"], check=True)


def configure(build, *options):
    return subprocess.run(["cmake", "-S", SOURCE, "-B", build, "-G", "Ninja", "-DCMAKE_CXX_COMPILER=" + COMPILER,
                           "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-DZU_HOST=external", *options], capture_output=True, text=True)


with tempfile.TemporaryDirectory() as work:
    failed = configure(work + "/none")
    assert failed.returncode != 0 and "ZU_HOST_INCLUDE" in failed.stderr, failed.stderr
    kit, build = work + "/kit", work + "/build"
    make_kit(kit)
    done = configure(build, "-DZU_HOST_INCLUDE=%s/include" % kit, "-DZU_HOST_LIBRARIES=%s/libhost.so" % kit)
    assert done.returncode == 0, done.stderr
    with open(build + "/compile_commands.json", encoding="utf-8") as file:
        commands = json.load(file)
    compiled = {os.path.relpath(entry["file"], SOURCE) for entry in commands}
    wanted = {os.path.relpath(path, SOURCE) for path in glob.glob(SOURCE + "/src/**/*.cpp", recursive=True)}
    assert wanted <= compiled, sorted(wanted - compiled)
    assert not [entry for entry in commands if "/host/" in entry["command"] or "/host/" in entry["file"]]
    assert "libhost.so" in open(build + "/build.ninja", encoding="utf-8").read()
    objects = ["src/CMakeFiles/zucomn_objects.dir/%s.cpp.o" % name for name in COMPILED]
    subprocess.run(["ninja", "-C", build, *objects], check=True, stdout=subprocess.DEVNULL)
print("%d sources are compiled for the kit" % len(wanted))
