#!/usr/bin/env python3
"""Checks an installed Tablewright: the program with its application folder, the launcher,
the desktop entry, the icons and the AppStream metainfo.

    check_layout.py PREFIX --app-source APP [--webpane | --no-webpane]
                    [--install-from BUILD --cmake CMAKE]

With --install-from, PREFIX is emptied, the build is installed into it first, and removed
again when everything is in order. Prints every fault found and exits 1 if there is any.
"""

import argparse
import filecmp
import os
import shutil
import struct
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

APP_ID = "org.example.Tablewright"
APP_DIR = "lib/tablewright"
ICON_SIZES = (16, 24, 32, 48, 64, 128, 256)
LESSON_PAGES = 29
PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"


class Report:
    def __init__(self):
        self.faults = []

    def check(self, condition, fault):
        if not condition:
            self.faults.append(fault)
        return condition


def png_size(path):
    """Width and height from the PNG's IHDR chunk, or None if it is no PNG."""
    with open(path, "rb") as png:
        head = png.read(24)
    if len(head) < 24 or head[:8] != PNG_SIGNATURE or head[12:16] != b"IHDR":
        return None
    return struct.unpack(">II", head[16:24])


def is_wave(path):
    with open(path, "rb") as wav:
        head = wav.read(12)
    return head[:4] == b"RIFF" and head[8:12] == b"WAVE"


def check_application_folder(report, prefix, app_source, webpane):
    app = os.path.join(prefix, APP_DIR)
    program = os.path.join(app, "tablewright")
    report.check(os.path.isfile(program) and os.access(program, os.X_OK),
                 f"no executable program at {program}")
    sound = os.path.join(app, "tablewright_sound.so")
    report.check(os.path.isfile(sound), f"sound module missing: {sound}")
    module = os.path.join(app, "tablewright_webpane.so")
    if webpane:
        report.check(os.path.isfile(module), f"lesson pane module missing: {module}")
    else:
        report.check(not os.path.exists(module), f"module installed though not built: {module}")

    html = os.path.join(app, "html")
    source_html = os.path.join(app_source, "html")
    installed = set(os.listdir(html)) if os.path.isdir(html) else set()
    expected = set(os.listdir(source_html))
    for name in sorted(expected - installed):
        report.check(False, f"lesson file not installed: html/{name}")
    pages = [name for name in installed if name.endswith(".html")]
    report.check(len(pages) == LESSON_PAGES,
                 f"{len(pages)} lesson pages installed, {LESSON_PAGES} expected")
    report.check("style.css" in installed, "html/style.css not installed")
    for name in sorted(installed & expected):
        report.check(filecmp.cmp(os.path.join(html, name), os.path.join(source_html, name),
                                 shallow=False), f"html/{name} differs from the source")

    for sound in ("yes.wav", "no.wav"):
        path = os.path.join(app, "wavs", sound)
        report.check(os.path.isfile(path) and is_wave(path), f"no wave file at {path}")

    table = os.path.join(app, "169.txt")
    report.check(os.path.isfile(table) and filecmp.cmp(
        table, os.path.join(app_source, "169.txt"), shallow=False),
                 f"169.txt missing or not the source's: {table}")
    return program


def check_launcher(report, prefix, program):
    launcher = os.path.join(prefix, "bin", "tablewright")
    if not report.check(os.access(launcher, os.X_OK), f"no executable launcher at {launcher}"):
        return
    # The program looks for its files beside its resolved executable.
    report.check(os.path.realpath(launcher) == os.path.realpath(program),
                 f"{launcher} does not lead to {program}")
    if os.path.islink(launcher):
        report.check(not os.path.isabs(os.readlink(launcher)),
                     f"{launcher} links by an absolute path, so a moved prefix breaks it")


def desktop_entry(path):
    entry = {}
    with open(path, encoding="utf-8") as desktop:
        for line in desktop:
            key, sep, value = line.strip().partition("=")
            if sep and not line.startswith("#"):
                entry.setdefault(key, value)
    return entry


def check_desktop_entry(report, prefix):
    path = os.path.join(prefix, "share", "applications", APP_ID + ".desktop")
    if not report.check(os.path.isfile(path), f"no desktop entry at {path}"):
        return None
    entry = desktop_entry(path)
    report.check(entry.get("Name") == "Tablewright", "desktop entry: Name is not Tablewright")
    report.check(entry.get("Icon") == APP_ID, f"desktop entry: Icon is not {APP_ID}")
    command = entry.get("Exec", "").split(" ")[0]
    report.check(os.path.isfile(os.path.join(prefix, "bin", command)),
                 f"desktop entry: Exec {command!r} is not installed in bin")
    categories = entry.get("Categories", "").split(";")
    report.check({"Education", "Game", "CardGame"} <= set(categories),
                 f"desktop entry: Categories {entry.get('Categories')!r}")
    return path


def check_icons(report, prefix):
    for size in ICON_SIZES:
        path = os.path.join(prefix, "share", "icons", "hicolor", f"{size}x{size}", "apps",
                            APP_ID + ".png")
        if report.check(os.path.isfile(path), f"icon missing: {path}"):
            actual = png_size(path)
            report.check(actual == (size, size),
                         f"icon {path} is {actual}, not {size} x {size} pixels")


def check_metainfo(report, prefix):
    path = os.path.join(prefix, "share", "metainfo", APP_ID + ".metainfo.xml")
    if not report.check(os.path.isfile(path), f"no metainfo at {path}"):
        return None
    root = ElementTree.parse(path).getroot()
    report.check(root.findtext("id") == APP_ID, f"metainfo: id is not {APP_ID}")
    report.check(root.findtext("launchable") == APP_ID + ".desktop",
                 "metainfo: launchable is not the installed desktop entry")
    return path


def run_validator(report, command):
    """Runs a validator if it is installed; its findings are printed either way."""
    if shutil.which(command[0]) is None:
        print(f"skipped: {command[0]} is not installed")
        return
    result = subprocess.run(command, capture_output=True, text=True, check=False)
    output = (result.stdout + result.stderr).strip()
    print(f"$ {' '.join(command)}\n{output or '(no output)'}")
    report.check(result.returncode == 0, f"{command[0]} failed with status {result.returncode}")


def install(build, cmake, prefix):
    shutil.rmtree(prefix, ignore_errors=True)
    result = subprocess.run([cmake, "--install", build, "--prefix", prefix],
                            capture_output=True, text=True, check=False)
    if result.returncode != 0:
        print(result.stdout + result.stderr)
        sys.exit(f"cmake --install failed with status {result.returncode}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("prefix")
    parser.add_argument("--app-source", required=True)
    parser.add_argument("--webpane", action=argparse.BooleanOptionalAction, required=True)
    parser.add_argument("--install-from")
    parser.add_argument("--cmake", default="cmake")
    args = parser.parse_args()
    prefix = os.path.abspath(args.prefix)
    if args.install_from:
        install(args.install_from, args.cmake, prefix)

    report = Report()
    program = check_application_folder(report, prefix, args.app_source, args.webpane)
    check_launcher(report, prefix, program)
    desktop = check_desktop_entry(report, prefix)
    check_icons(report, prefix)
    metainfo = check_metainfo(report, prefix)
    if desktop:
        run_validator(report, ["desktop-file-validate", desktop])
    if metainfo:
        run_validator(report, ["appstreamcli", "validate", "--no-net", metainfo])

    for fault in report.faults:
        print("FAULT:", fault)
    if report.faults:
        return 1
    print(f"layout complete under {prefix}")
    if args.install_from:
        shutil.rmtree(prefix, ignore_errors=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
