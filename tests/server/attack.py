#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Attacks a vantor-server of its own on loopback, and looks after one normal user meanwhile.

    attack.py PROGRAM [--patience SECONDS] [--memory MB]

Each attack is bounded in count and time. It fails when a request that expects an answer waits longer than the
patience (default 1 s), when the normal user does, or when the server's memory grows by more than MB (64).
"""

import argparse
import json
import pathlib
import socket
import subprocess
import sys
import tempfile
import threading
import time

BASE = "/Quorra/Brisent/Platform/V0"
STRANGER = "127.0.0.9"  # so that the locks of the stranger's address are not the user's
MB = 1 << 20


# Requests that never reach our code.
REFUSED_BY_THE_LIBRARY = ("a giant head", "no version", "no HTTP", "two lengths")


class Server:
    def __init__(self, program, folder):
        seed = pathlib.Path(folder, "seed.csv")
        seed.write_text("Airport,Note\r\n" + "Gate,calm\r\n" * 100, encoding="utf-8")
        self.log = open(pathlib.Path(folder, "log"), "w+", encoding="utf-8")
        self.process = subprocess.Popen([program, "--data", folder, "--seed", str(seed)],
                                        stdout=subprocess.PIPE, stderr=self.log, text=True)
        self.port = int(self.process.stdout.readline().split()[-1])

    def memory(self):
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text(encoding="ascii")
        return int(status.split("VmRSS:")[1].split()[0]) * 1024

    def connect(self, source, patience):
        return socket.create_connection(("127.0.0.1", self.port), patience, (source, 0))


def request(method, path, body=b"", session="", extra=b""):
    head = f"{method} {path} HTTP/1.1\r\nHost: x\r\nContent-Length: {len(body)}\r\n".encode()
    if session:
        head += f"Authorization: bearer {session}\r\n".encode()
    return head + extra + b"\r\n" + body


def read_reply(connection):
    """Status and body of one reply; status 0 when the server closed the connection."""
    data = b""
    while b"\r\n\r\n" not in data:
        piece = connection.recv(65536)
        if not piece:
            return 0, b""
        data += piece
    head, _, body = data.partition(b"\r\n\r\n")
    length = next((int(line.split(b":")[1]) for line in head.split(b"\r\n")
                   if line.lower().startswith(b"content-length:")), 0)
    while len(body) < length:
        piece = connection.recv(65536)
        if not piece:
            return 0, b""
        body += piece
    return int(head.split()[1]), body


class User(threading.Thread):
    """Writes and reads a layout on a new connection, again and again."""

    def __init__(self, server, limit):
        super().__init__(daemon=True)
        self.server, self.limit, self.session = server, limit, ""
        self.worst, self.turns, self.faults, self.is_over = 0.0, 0, [], False
        login = {"LoginRequest": {"UserName": "operator", "PassWord": "Vantor-operator-1"}}
        self.session = json.loads(self.turn("POST", "/Session", login))["ResponseStatus"]["Data"]["Session"]

    def turn(self, method, path, body):
        begin = time.monotonic()
        with self.server.connect("127.0.0.1", 30) as connection:
            connection.sendall(request(method, BASE + path, json.dumps(body).encode(), self.session))
            status, text = read_reply(connection)
        self.worst = max(self.worst, time.monotonic() - begin)
        if status != 200:
            self.faults.append(f"the normal user got status {status}")
        return text

    def run(self):
        while not self.is_over:
            self.turns += 1
            layout = {"AdaptiveLayoutRequest": {"Key": "k", "Type": 1, "LayoutData": str(self.turns)}}
            try:
                self.turn("PUT", "/AdaptiveLayout", layout)
            except OSError as fault:
                self.faults.append(f"the normal user: {fault}")
            time.sleep(0.01)


def login_body(password):
    return json.dumps({"LoginRequest": {"UserName": "operator", "PassWord": password}}).encode()


def code_request(user):
    body = f"<VerificationCodeImageRequest><UserName>{user}</UserName></VerificationCodeImageRequest>"
    return request("GET", BASE + "/VerificationCodeImage", body.encode())


ATTRIBUTES = b"<a " + b" ".join(b"a%d=''" % i for i in range(40000)) + b"/>"
XML = {
    "40,000 attributes": ATTRIBUTES,
    "1,000 attributes": b"<a " + b" ".join(b"a%d=''" % i for i in range(1000)) + b"/>",
    "many elements with attributes": b"<r>" + (b"<a " + b" ".join(b"a%d=''" % i for i in range(60)) + b"/>") * 25
                                     + b"</r>",
    "deep elements": b"<a>" * 5000,
    "entities": b"<!DOCTYPE a [" + b"".join(b"<!ENTITY e%d '%s'>" % (i, b"&e%d;" % (i - 1) * 10 if i else b"x" * 99)
                                            for i in range(20)) + b"]><a>&e19;</a>",
    "an external entity": b"<!DOCTYPE a [<!ENTITY b SYSTEM 'file:///etc/passwd'>]><a>&b;</a>",
    "a long name": b"<" + b"a" * 15000 + b"/>",
}
JSON = {
    "deep arrays": b'{"a":' + b"[" * 15000,
    "a member twice": b'{"LoginRequest":{"UserName":"operator","UserName":"x","PassWord":"y"}}',
    "a zero byte": b'{}\0{"LoginRequest":1}',
    "a number without end": b'{"a":' + b"9" * 15000 + b"}",
    "no UTF-8": b'{"a":"\xff\xfe"}',
}


def answered(server, patience, name, payload, wanted):
    """Sends one request and wants one of the statuses."""
    begin = time.monotonic()
    with server.connect(STRANGER, 30) as connection:
        try:
            connection.sendall(payload)
        except OSError:
            pass  # refused before all was sent
        try:
            status, body = read_reply(connection)
        except ConnectionError:
            status, body = 0, b""
    taken = time.monotonic() - begin
    if status not in wanted:
        return f"{name}: status {status}"
    if taken > patience:
        return f"{name}: answered after {taken:.2f} s"
    if status and status != 200 and b"ErrorCode" not in body and name not in REFUSED_BY_THE_LIBRARY:
        return f"{name}: a reply without error words"
    return None


def single_requests():
    for name, body in (*XML.items(), *JSON.items()):
        yield name, request("POST", BASE + "/Session", body), (400, 413)
    long_path = BASE + "/" + "x" * 4000
    fields = b"".join(b"X%d: y\r\n" % i for i in range(150))
    yield "a long path", request("GET", long_path), (414,)
    yield "many header fields", request("GET", BASE + "/Session", extra=fields), (431,)
    yield "long header fields", request("GET", BASE + "/Session", extra=b"X: " + b"y" * 20000 + b"\r\n"), (431,)
    yield "a giant head", request("GET", "/", extra=b"X: " + b"y" * 300000 + b"\r\n"), (0, 431)
    yield "a body of 8 GB", b"PUT / HTTP/1.1\r\nHost: x\r\nContent-Length: 8589934592\r\n\r\n", (413,)
    yield "two lengths", request("POST", BASE + "/Session", b"{}", extra=b"Content-Length: 9\r\n"), (0, 400, 413)
    yield "no HTTP", b"\x16\x03\x01\x02\x00\x01\x00\r\n\r\n", (0, 400)
    yield "no version", b"GET /\r\n\r\n", (0, 400, 404, 505)
    yield "a stranger's layout", request("PUT", BASE + "/AdaptiveLayout", b"x" * 2 * MB), (413,)


def hold(server, count, payload, pause):
    """Opens connections, sends each the payload and leaves them open for a while."""
    connections = []
    try:
        for _ in range(count):
            connection = server.connect(STRANGER, 5)
            connections.append(connection)
            connection.setblocking(False)
            try:
                connection.send(payload)
            except OSError:
                pass
        time.sleep(pause)
    except OSError:
        pass
    for connection in connections:
        connection.close()


def flood(server, count, payload):
    """So many whole requests, each answered, on connections of ten."""
    for _ in range(count // 10):
        with server.connect(STRANGER, 30) as connection:
            for _ in range(10):
                connection.sendall(payload)
                read_reply(connection)


def crowds(server):
    upload = (f"PUT {BASE}/AdaptiveLayout HTTP/1.1\r\nHost: x\r\nContent-Length: {2 * MB}\r\n\r\n").encode()
    yield "idle connections", lambda: hold(server, 400, b"", 2)
    yield "half a head", lambda: hold(server, 400, b"GET / HTTP/1.1\r\nHost: x\r\nX: ", 2)
    yield "half a body", lambda: hold(server, 400, upload + b"x" * 100000, 2)
    yield "unread replies", lambda: hold(server, 200, code_request("stranger") * 20, 2)
    yield "codes", lambda: [flood(server, 100, code_request(f"stranger{i}")) for i in range(10)]
    yield "guesses", lambda: flood(server, 60, request("POST", BASE + "/Session", login_body("guess")))
    yield "pipelined", lambda: hold(server, 20, request("GET", BASE + "/Session") * 200, 1)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("--patience", type=float, default=1.0)
    parser.add_argument("--memory", type=int, default=64)
    options = parser.parse_args()
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        server = Server(options.program, folder)
        user = User(server, options.patience)
        user.start()
        time.sleep(0.5)
        before = most = server.memory()
        for name, payload, wanted in single_requests():
            fault = answered(server, options.patience, name, payload, wanted)
            faults += [fault] if fault else []
            most = max(most, server.memory())
        for name, attack in crowds(server):
            user.worst = 0.0
            attack()
            most = max(most, server.memory())
            print(f"{name}: the user waited at most {user.worst * 1000:.0f} ms")
            if user.worst > options.patience:
                faults.append(f"{name}: the normal user waited {user.worst:.2f} s")
        user.is_over = True
        user.join(60)
        faults += sorted(set(user.faults))
        if most - before > options.memory * MB:
            faults.append(f"memory grew by {(most - before) / MB:.0f} MB")
        if server.process.poll() is not None:
            faults.append("the server has ended")
        begin = time.monotonic()
        server.process.terminate()
        if server.process.wait(30) != 0:
            faults.append("the server did not end well")
        print(f"{user.turns} turns of the user, memory +{(most - before) / MB:.1f} MB, "
              f"end after {time.monotonic() - begin:.2f} s")
    for fault in faults:
        print("FAULT", fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
