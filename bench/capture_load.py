#!/usr/bin/env python3
"""Usage: bench/capture_load.py PROGRAM [SECONDS [SOURCES [LINES-A-SECOND]]]

What the capture carries: SOURCES switches on TCP that send at once (50, 100 lines a second each, for
60 s), then one file at full speed. Prints what was kept, how late lines got into the store, and what
memory the capture took. Ends with 1 when a line is missing.
"""
import os
import socket
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time

program = sys.argv[1]
seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 60
sources = int(sys.argv[3]) if len(sys.argv) > 3 else 50
rate = int(sys.argv[4]) if len(sys.argv) > 4 else 100
project = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))
layout = f"{project}/switches/panasonic-kx"
with open(layout + "/capture.txt", "rb") as capture:
    LINES = [line + b"\r\n" for line in capture.read().split(b"\n") if not line.startswith(b"# ")]


def memory(pid):
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        return next(int(line.split()[1]) for line in status if line.startswith("VmRSS"))


def send(server, count):
    connection, _ = server.accept()
    begin = time.time()
    for i in range(count):
        connection.sendall(LINES[i % len(LINES)])
        late = begin + i / rate - time.time()
        if late > 0:
            time.sleep(late)
    connection.close()


def kept(store):
    return store.execute("SELECT COUNT(*) FROM lineas").fetchone()[0]


def many(folder):
    servers = []
    for _ in range(sources):
        server = socket.socket()
        server.bind(("127.0.0.1", 0))
        server.listen()
        servers.append(server)
    path = os.path.join(folder, "carga.db")
    capture = subprocess.Popen(
        [program, "captura", "--almacen", path,
         *[f"s{i}={layout}@tcp:127.0.0.1:{s.getsockname()[1]}" for i, s in enumerate(servers)]],
        stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    senders = [threading.Thread(target=send, args=(s, rate * seconds)) for s in servers]
    for sender in senders:
        sender.start()
    sizes = []
    while any(sender.is_alive() for sender in senders):
        time.sleep(seconds / 6)
        sizes.append(memory(capture.pid))
    time.sleep(2)
    capture.terminate()
    code = capture.wait()
    there = kept(sqlite3.connect(path))
    sent = sources * rate * seconds
    print(f"{sources} sources, {rate} lines a second each, {seconds} s: {there} of {sent} lines "
          f"kept, ended with {code}; memory in KB: {sizes}")
    return there == sent and code == 0


def one(folder):
    path = os.path.join(folder, "una.txt")
    count = 500000
    with open(path, "wb") as file:
        for i in range(count):
            file.write(LINES[i % len(LINES)])
    begin = time.time()
    subprocess.run([program, "captura", "--almacen", path + ".db", "--hasta-el-fin",
                    f"una={layout}@archivo:{path}"], check=True, stdin=subprocess.DEVNULL)
    took = time.time() - begin
    there = kept(sqlite3.connect(path + ".db"))
    times = os.times()
    print(f"one source: {there} of {count} lines, {there / took:.0f} a second "
          f"({(times.children_user + times.children_system):.1f} s of CPU in all)")
    return there == count


with tempfile.TemporaryDirectory() as work:
    sys.exit(0 if all([many(work), one(work)]) else 1)
