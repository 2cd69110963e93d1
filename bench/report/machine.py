#!/usr/bin/env python3
"""Describes the machine and the versions of a run as JSON, for docs/performance.md."""

import json
import os
import platform
import subprocess

RIVALS = {
    "Google Benchmark": "libbenchmark-dev",
    "Protocol Buffers": "libprotobuf-dev",
    "Avro C": "libavro-dev",
    "Cap'n Proto": "libcapnp-dev",
    "msgpack-cxx": "libmsgpack-cxx-dev",
    "HDF5": "libhdf5-dev",
    "FlatBuffers": "libflatbuffers-dev",
    "numpy": "python3-numpy",
    "Wine": "wine",
}


def first_line(*command):
    """The first line that a command prints; empty where it cannot be run."""
    try:
        return subprocess.run(command, capture_output=True, text=True, check=True).stdout.splitlines()[0]
    except (OSError, subprocess.CalledProcessError, IndexError):
        return ""


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        for line in file:
            if line.startswith("model name"):
                return line.split(":", 1)[1].strip()
    return platform.machine()


def gigabytes():
    return round(os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30)


def system():
    return platform.freedesktop_os_release()["PRETTY_NAME"]


def main():
    facts = {
        "Processor": f"{processor()}, {os.cpu_count()} cores",
        "Memory": f"{gigabytes()} GB",
        "System": f"{system()}, Linux {platform.release().split("-")[0]}",
        "Compiler": first_line("g++", "--version"),
    }
    for name, package in RIVALS.items():
        version = first_line("dpkg-query", "-W", "-f=${Version}\n", package)
        if version:
            facts[name] = version
    print(json.dumps(facts, indent=1))


if __name__ == "__main__":
    main()
