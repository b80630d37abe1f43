#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Lets two vantor-servers share one PostgreSQL database, and ends them and it without warning.

    tests/support/with_postgres tests/server/two_servers.py PROGRAM [--seconds N]

1. Both servers start at once on an empty database.
2. A hundred wrong passwords over both are counted exactly, and the lock comes at its exact try.
3. Sixteen clients read and write for N seconds (10); in the middle one server is killed, and its clients go to
   the other one. No session is lost, and no request fails but those that the dead server was at.
4. Servers and PostgreSQL are killed in turn under writers. No confirmed write is lost.
5. PostgreSQL hangs: requests are refused within ten seconds, and served again when it goes on.
"""

import argparse
import http.client
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import threading
import time

BASE = "/Quorra/Brisent/Platform/V0"
ACCOUNTS = [("operator", "Vantor-operator-1"), ("supervisor", "Vantor-supervisor-1"),
            ("visitor", "Vantor-visitor-1")]
WITH_POSTGRES = pathlib.Path(__file__).parent.parent / "support" / "with_postgres"
POSTGRES = os.environ["VANTOR_TEST_POSTGRES"]
DATABASE = os.environ["VANTOR_TEST_DATABASE"]
PROXY = ["--proxy", "127.0.0.1", "--sample-accounts"]


class Failed(Exception):
    pass


def check(is_right, text):
    if not is_right:
        raise Failed(text)


class Server:
    def __init__(self, program, arguments, log):
        self.command = [program, *arguments]
        self.log = log
        self.begin()

    def begin(self):
        self.process = subprocess.Popen(self.command, stdout=subprocess.PIPE, stderr=self.log, text=True)
        self.port = 0

    def wait(self):
        line = self.process.stdout.readline()
        check("listening" in line, f"a server does not start: {self.command}")
        self.port = int(line.split()[-1])

    def kill(self):
        self.process.kill()
        self.process.wait()

    def start_again(self):
        self.begin()
        self.wait()


class Client:
    """One user's program: goes to the other server when its own is gone."""

    def __init__(self, servers, first, source):
        self.servers = servers
        self.current = first
        self.source = source
        self.session = ""
        self.connection = None
        self.changes = 0

    def send_once(self, method, path, body):
        if self.connection is None:
            port = self.servers[self.current].port
            self.connection = http.client.HTTPConnection("127.0.0.1", port, 20)
        # As a proxy sends it: its own word is the last one.
        headers = {"X-Forwarded-For": f"192.0.9.9, {self.source}"}
        if self.session:
            headers["Authorization"] = f"Bearer {self.session}"
        self.connection.request(method, BASE + path, json.dumps(body), headers)
        reply = self.connection.getresponse()
        return reply.status, json.loads(reply.read())["ResponseStatus"]

    def send(self, method, path, body):
        """Status and reply; status 0 when the connection broke off: the request may be done or not."""
        try:
            return self.send_once(method, path, body)
        except (OSError, http.client.HTTPException):
            self.connection.close()
            self.connection = None
            self.current = (self.current + 1) % len(self.servers)
            self.changes += 1
            return 0, {}

    def log_in(self, user, password):
        status, reply = self.send("POST", "/Session", {"LoginRequest": {"UserName": user, "PassWord": password}})
        self.session = reply.get("Data", {}).get("Session", "")
        return status, reply

    def write(self, key, text):
        return self.send("PUT", "/AdaptiveLayout",
                         {"AdaptiveLayoutRequest": {"Key": key, "Type": 1, "LayoutData": text}})[0]

    def read(self, key):
        status, reply = self.send("GET", "/AdaptiveLayout", {"AdaptiveLayoutRequest": {"Key": key, "Type": 1}})
        return status, reply.get("Data", {}).get("AdaptiveLayout", {}).get("LayoutData", "")


def in_threads(works):
    """Runs them all at once, and raises what one of them raises."""
    failures = []

    def guarded(work):
        try:
            work()
        except Exception as failure:  # pylint: disable=broad-except
            failures.append(failure)

    threads = [threading.Thread(target=guarded, args=(work,)) for work in works]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if failures:
        raise failures[0]


def query(url, statement):
    return subprocess.run(["psql", "-qAtX", "-v", "ON_ERROR_STOP=1", "-c", statement, url], check=True,
                          capture_output=True, text=True).stdout.strip()


def guess(servers, url, limit, user, network):
    """A hundred tries for one user: one at each server from each of fifty addresses."""
    query(url, f"UPDATE setting SET value = {limit} WHERE name = 'IPLock/FailCount'")
    codes = []

    def work(first):
        for address in range(first, 50, 10):
            for server in range(2):
                client = Client(servers, server, f"192.0.{network}.{address + 1}")
                codes.append(client.log_in(user, "wrong")[1]["ErrorCode"])

    in_threads([lambda first=first: work(first) for first in range(10)])
    counted = int(query(url, f"SELECT failures FROM attempt WHERE address = '' AND name = '{user}'"))
    right = Client(servers, 0, f"192.0.{network}.99").log_in(user, dict(ACCOUNTS)[user])
    return counted, right[1]["ErrorCode"] == 41050, codes


def guesses_are_counted(servers, url):
    counted, locked, codes = guess(servers, url, 1000, "supervisor", 1)
    check(counted == 100 and not locked, f"100 tries are counted as {counted}, locked: {locked}")
    check(all(code in (40850, 310) for code in codes), f"codes {sorted(set(codes))}")
    counted, locked, codes = guess(servers, url, 5, "visitor", 2)
    refused = 100 - counted
    check(counted == 50 and locked, f"with the lock at 50, {counted} are counted, locked: {locked}")
    check(codes.count(41050) >= refused, f"{codes.count(41050)} of {refused} were refused")
    query(url, "DELETE FROM attempt")
    print("100 wrong passwords over both: counted as 100; with the lock at 50, as 50, then locked")


def log_in(client, number):
    status, reply = client.log_in(*ACCOUNTS[number % 3])
    check(client.session, f"login: {status} {reply}")


def nobody_loses_a_session(servers, seconds):
    is_killed = threading.Event()
    counts = [0] * 16
    clients = [Client(servers, number % 2, f"192.0.3.{number + 1}") for number in range(16)]

    def work(number):
        client = clients[number]
        while time.monotonic() < end:
            key = f"client {number} key {counts[number] % 50}"
            for ask in (lambda: client.write(key, key), lambda: client.read(key)[0]):
                status = ask()
                if status == 0:
                    check(is_killed.is_set(), "a connection broke off, and no server was killed")
                    status = ask()
                check(status == 200, f"client {number}: status {status}")
                counts[number] += 1

    def kill():
        time.sleep(seconds / 2)
        is_killed.set()
        servers[0].kill()

    in_threads([lambda number=number: log_in(clients[number], number) for number in range(16)])
    end = time.monotonic() + seconds
    in_threads([lambda number=number: work(number) for number in range(16)] + [kill])
    changes = [client.changes for client in clients]
    check(all(change <= 1 for change in changes) and sum(changes) == 8, f"changes of server: {changes}")
    servers[0].start_again()
    print(f"16 clients: {sum(counts)} requests in {seconds} s, {sum(counts) / seconds:.0f}/s; 8 changed the server")


def postmaster():
    return int(pathlib.Path(POSTGRES, "data", "postmaster.pid").read_text(encoding="ascii").split()[0])


def kill_postgres():
    os.kill(postmaster(), signal.SIGKILL)
    for _ in range(50):  # its children end when they notice
        if subprocess.run([WITH_POSTGRES, "--start", POSTGRES], check=False, capture_output=True).returncode == 0:
            return
        time.sleep(0.2)
    raise Failed("PostgreSQL does not start again")


def confirmed_writes_stay(servers, rounds):
    """Each writer has keys of its own, and writes a number that grows."""
    stop = threading.Event()
    written = []
    clients = [Client(servers, number % 2, f"192.0.4.{number + 1}") for number in range(8)]
    in_threads([lambda number=number: log_in(clients[number], number) for number in range(8)])
    refused = [0]

    def work(number):
        client = clients[number]
        confirmed, tried = {}, {}
        written.append((number, confirmed, tried))
        value = 0
        while not stop.is_set():
            value += 1
            key = f"writer {number} key {value % 20}"
            tried[key] = value
            status = client.write(key, str(value))
            check(status in (0, 200, 503), f"writer {number}: status {status}")
            if status == 200:
                confirmed[key] = value
            else:
                refused[0] += 1
                time.sleep(0.02)

    def kill():
        try:
            for turn in range(rounds):
                time.sleep(0.7)
                if turn % 2 == 0:
                    kill_postgres()
                else:
                    server = servers[turn // 2 % 2]
                    server.kill()
                    server.start_again()
            time.sleep(1)
        finally:
            stop.set()

    in_threads([lambda number=number: work(number) for number in range(8)] + [kill])
    count = 0
    for number, confirmed, tried in written:
        reader = Client(servers, 0, f"192.0.5.{number + 1}")
        log_in(reader, number)
        for key, value in confirmed.items():
            status, text = reader.read(key)
            check(status == 200 and value <= int(text or 0) <= tried[key],
                  f"{key}: {value} was confirmed, {text!r} is there (status {status})")
            count += value
    check(count > 0, "nothing was written")
    print(f"{rounds} kills under 8 writers: no confirmed write lost ({refused[0]} were refused or broke off)")


def a_hanging_database_is_told(servers):
    clients = [Client(servers, number % 2, f"192.0.6.{number + 1}") for number in range(8)]
    in_threads([lambda number=number: log_in(clients[number], number) for number in range(8)])
    children = subprocess.run(["pgrep", "-P", str(postmaster())], check=True, capture_output=True, text=True).stdout
    hanging = [postmaster(), *map(int, children.split())]

    def work(number):
        begin = time.monotonic()
        status = clients[number].write("key", "text") if number < 4 else clients[number].read("key")[0]
        check(status == 503 and time.monotonic() - begin < 10, f"status {status} of a hanging database")

    try:
        for pid in hanging:
            os.kill(pid, signal.SIGSTOP)
        in_threads([lambda number=number: work(number) for number in range(8)])
    finally:
        for pid in hanging:
            os.kill(pid, signal.SIGCONT)
    end = time.monotonic() + 10
    while [client.write("key", "text") for client in clients] != [200] * 8:
        check(time.monotonic() < end, "the servers are not back")
        time.sleep(0.1)
    print("a hanging PostgreSQL: requests are refused, and served when it goes on")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--seconds", type=int, default=10)
    parser.add_argument("--rounds", type=int, default=6)
    options = parser.parse_args()
    url = f"{DATABASE}/two_servers_{os.getpid()}"
    query(f"{DATABASE}/postgres", f"CREATE DATABASE {url.rsplit('/', 1)[1]}")
    with tempfile.TemporaryDirectory() as folder, open(pathlib.Path(folder, "log"), "w+", encoding="utf-8") as log:
        seed = pathlib.Path(folder, "seed.csv")
        seed.write_text("Airport,Note\r\n" + "Gate,calm\r\n" * 100, encoding="utf-8")
        servers = [Server(options.program, ["--database", url, "--seed", str(seed), *PROXY], log) for _ in range(2)]
        try:
            for server in servers:
                server.wait()
            print("both servers started at once on an empty database")
            guesses_are_counted(servers, url)
            nobody_loses_a_session(servers, options.seconds)
            confirmed_writes_stay(servers, options.rounds)
            a_hanging_database_is_told(servers)
        except Failed as failure:
            log.seek(0)
            print("".join(log.readlines()[-30:]), file=sys.stderr)
            sys.exit(f"FAILED: {failure}")
        finally:
            for server in servers:
                server.kill()


if __name__ == "__main__":
    main()
