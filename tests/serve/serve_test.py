#!/usr/bin/env python3
"""Holds `kelmora-host serve` against clients of all kinds: serve_test.py KELMORA_HOST. Exits 0 when all is well."""

import contextlib
import http.client
import json
import os
import pathlib
import re
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
HOST = ["kelmora-host"]
JSON = {"Content-Type": "application/json"}
RADIO = (ROOT / "examples/radio.json").read_text()


class Server:
    """The program, serving on a port of its own; its log is in a file."""

    def __init__(self, *arguments):
        self.log = tempfile.TemporaryFile("w+")
        self.process = subprocess.Popen(
            [*HOST, "serve", "--port", "0", *arguments], stdout=subprocess.PIPE, stderr=self.log, text=True)
        self.first_line = self.process.stdout.readline()
        found = re.fullmatch(r"kelmora-host serves http://127\.0\.0\.1:([0-9]+)/ until Ctrl-C\n", self.first_line)
        if not found:
            self.process.kill()
            raise AssertionError(f"first line {self.first_line!r}, {self.said()}")
        self.port = int(found[1])

    def said(self):
        self.log.seek(0)
        return self.log.read()

    def end(self, number=signal.SIGTERM):
        """Sends a signal and returns the exit status."""
        if self.process.poll() is None:
            self.process.send_signal(number)
        try:
            return self.process.wait(30)
        finally:
            self.process.kill()
            self.process.stdout.close()

    def connection(self, timeout=60):
        return http.client.HTTPConnection("127.0.0.1", self.port, timeout=timeout)

    def ask(self, method, path, body=None, headers=None):
        """The answer and its body, on a connection of its own."""
        with contextlib.closing(self.connection()) as connection:
            connection.request(method, path, body, headers or {})
            answer = connection.getresponse()
            return answer, answer.read()

    def raw(self, data, timeout=60):
        """All that comes for these bytes."""
        with socket.create_connection(("127.0.0.1", self.port), timeout) as client:
            client.sendall(data)
            received = b""
            while part := client.recv(65536):
                received += part
            return received


class ServeTest(unittest.TestCase):
    def setUp(self):
        self.server = Server()

    def tearDown(self):
        status = self.server.end()
        said = self.server.said()
        self.server.log.close()
        self.assertEqual(status, 0, said[-10000:])

    def status(self, *arguments):
        return self.server.ask(*arguments)[0].status

    def bytes_of(self, path):
        answer, body = self.server.ask("GET", path)
        self.assertEqual(answer.status, 200, path)
        return body

    def test_shows_what_the_terminal_shows(self):
        listed = json.loads(self.bytes_of("/api/v1/resources"))
        self.assertGreater(len(listed), 50)
        for row in listed:
            name = row["resource"]
            if row["directions"] == "write-only" or row["shape"] == "8 raw bytes":
                continue
            shown = subprocess.run([*HOST, "show", name], capture_output=True, check=True).stdout
            self.assertEqual(self.bytes_of(f"/api/v1/gateway/{name}") + b"\n", shown, name)

    def test_says_of_a_document_what_the_terminal_says(self):
        for example in ["wireless-lossy.json", "wireless.json"]:
            path = ROOT / "examples" / example
            checked = subprocess.run([*HOST, "check", "--json", "wireless", path], capture_output=True, check=False)
            said = json.loads(checked.stdout)
            del said["file"]
            answer, body = self.server.ask("POST", "/api/v1/check/wireless", path.read_bytes(), JSON)
            self.assertEqual(json.loads(body), said)
            self.assertEqual(answer.status, 200)

    def test_takes_every_example(self):
        listed = json.loads(self.bytes_of("/api/v1/resources"))
        taken = 0
        for row in listed:
            name = row["resource"]
            ids = json.loads(self.bytes_of(f"/api/v1/ids/{name}"))
            path = ROOT / "examples" / f"{name}.json"
            if row["directions"] == "read-only" or row["shape"] == "8 raw bytes" or not path.exists() or not ids:
                continue
            target = f"/api/v1/gateway/{name}/{ids[0].replace('/', '%2F')}"
            answer, body = self.server.ask("PUT", target, path.read_bytes(), JSON)
            self.assertEqual(answer.status, 200, (name, body))
            written = json.loads(body)
            self.assertTrue(written["committed"])
            if row["directions"] == "both":
                self.assertEqual(json.loads(self.bytes_of(target)), written["record"], name)
            taken += 1
        self.assertGreater(taken, 40)

    def test_refuses_foreign_hosts_and_origins(self):
        for host in ["evil.example", f"evil.example:{self.server.port}", "localhost", f"127.0.0.2:{self.server.port}"]:
            self.assertEqual(self.status("GET", "/api/v1/resources", None, {"Host": host}), 403, host)
        for origin in ["http://evil.example", "null", f"https://localhost:{self.server.port}"]:
            self.assertEqual(self.status("POST", "/api/v1/state:reset", None, {"Origin": origin}), 403, origin)
        own = f"http://localhost:{self.server.port}"
        self.assertEqual(self.status("POST", "/api/v1/state:reset", None, {"Origin": own}), 204)

    def test_listens_on_the_loopback_interface_alone(self):
        with open("/proc/net/tcp", encoding="ascii") as table:
            listening = [row.split()[1] for row in list(table)[1:] if row.split()[3] == "0A"]
        port = f"{self.server.port:04X}"
        self.assertEqual([address for address in listening if address.endswith(":" + port)], ["0100007F:" + port])

    def test_gets_at_no_file_by_a_tricky_path(self):
        host = f"Host: localhost:{self.server.port}\r\nConnection: close\r\n\r\n".encode()
        for path in [b"/../../../etc/passwd", b"/page/../../etc/passwd", b"/docs/../../../../etc/passwd",
                     b"/docs/..%2f..%2f..%2fetc%2fpasswd", b"/docs/%2e%2e/%2e%2e/etc/passwd", b"/docs//etc/passwd",
                     b"/docs/%2fetc%2fpasswd", b"/page/%00", b"/docs/index.html%00.txt", b"/schemas/..%2fREADME.md",
                     b"/page/\xff\xfe", b"/docs/..\\..\\etc\\passwd", b"/%", b"/%zz", b"/page/\x00",
                     b"http://localhost/docs/", b"*"]:
            received = self.server.raw(b"GET " + path + b" HTTP/1.1\r\n" + host)
            self.assertRegex(received[:20], rb"^HTTP/1.1 40[04] ", path)
            self.assertNotIn(b"root:", received)
        for length in [8000, 9000, 30000, 200000]:
            received = self.server.raw(b"GET /" + b"x" * length + b" HTTP/1.1\r\n" + host)
            self.assertRegex(received[:20], rb"^HTTP/1.1 4(04|14|31) ", length)

    def test_takes_no_large_body(self):
        large = b"[" + b" " * 10_000_000 + b"]"
        answer, body = self.server.ask("PUT", "/api/v1/gateway/radio/radio1", large, JSON)
        self.assertEqual(answer.status, 413, body)
        self.assertEqual(answer.getheader("Content-Type"), "application/problem+json")
        chunks = (b" " * 65536 for _ in range(160))
        answer, _ = self.server.ask("POST", "/api/v1/check/radio", chunks, JSON)
        self.assertEqual(answer.status, 413)
        self.assertEqual(self.status("GET", "/api/v1/ids/radio"), 200)

    def test_cuts_off_slow_senders_who_block_nobody(self):
        def trickle(head):
            """Sends a byte of an endless request every tenth of a second; how long that went, and what came."""
            begin = time.monotonic()
            with socket.create_connection(("127.0.0.1", self.server.port), 60) as client:
                client.sendall(head)
                client.settimeout(0.1)
                received = b""
                while time.monotonic() - begin < 30:
                    try:
                        client.sendall(b"x")
                        if part := client.recv(65536):
                            received += part
                            continue
                        break
                    except TimeoutError:
                        continue
                    except OSError:
                        break
            ends.append((time.monotonic() - begin, received))

        ends = []
        body = (f"PUT /api/v1/gateway/radio/radio1 HTTP/1.1\r\nHost: localhost:{self.server.port}\r\n"
                "Content-Type: application/json\r\nContent-Length: 100000\r\n\r\n").encode()
        slow = [threading.Thread(target=trickle, args=(head,)) for head in [b"GET /", body] * 50]
        for thread in slow:
            thread.start()
        time.sleep(0.5)
        for _ in range(20):
            begin = time.monotonic()
            self.assertEqual(self.status("GET", "/api/v1/gateway/radio"), 200)
            self.assertLess(time.monotonic() - begin, 2)
        for thread in slow:
            thread.join()
        self.assertEqual(len(ends), 100)
        self.assertLess(max(seconds for seconds, _ in ends), 20)
        self.assertTrue(any(received.startswith(b"HTTP/1.1 408 ") for _, received in ends))

    def test_loses_nothing_of_200_requests_at_once(self):
        """100 writers of one record by turns, each with the tag that it knows; 100 readers, who see whole records."""
        target = "/api/v1/gateway/qos/0"
        template = '{"enabled": true, "global_download": %d, "global_upload": %d}'
        self.assertEqual(self.status("PUT", target, template % (0, 0), JSON), 200)
        start = threading.Barrier(200)
        faults = []
        seen = {}  # by tag, what was read with it
        lock = threading.Lock()

        def note(tag, body):
            with lock:
                if seen.setdefault(tag, body) != body:
                    faults.append(f"two bodies of {tag}")

        def read_record():
            answer, body = self.server.ask("GET", target)
            record = json.loads(body)
            if answer.status != 200 or record["global_download"] != record["global_upload"]:
                faults.append(f"{answer.status} {body!r}")
            note(answer.getheader("ETag"), body)
            return answer.getheader("ETag"), record["global_upload"]

        def guarded(work):
            def run():
                try:
                    start.wait(60)
                    work()
                except Exception as error:  # pylint: disable=broad-except # told below
                    faults.append(repr(error))
            return run

        @guarded
        def write():
            for _ in range(1000):
                tag, count = read_record()
                body = template % (count + 1, count + 1)
                answer, text = self.server.ask("PUT", target, body, {**JSON, "If-Match": tag})
                if answer.status == 200:
                    record = json.loads(text)["record"]
                    if record["global_upload"] != count + 1:
                        faults.append(f"written {count + 1}, {text!r}")
                    return
                if answer.status != 412:
                    faults.append(f"{answer.status} {text!r}")
                    return
            faults.append("never came to write")

        @guarded
        def read():
            for turn in range(5):
                read_record()
                answer, body = self.server.ask("GET", "/api/v1/gateway/qos")
                if answer.status != 200 or not isinstance(json.loads(body), list):
                    faults.append(f"{answer.status} {body!r}")
                answer, body = self.server.ask("POST", "/api/v1/check/qos", template % (turn, turn), JSON)
                if answer.status != 200 or json.loads(body)["result"] != "lossless":
                    faults.append(f"{answer.status} {body!r}")
                answer, body = self.server.ask("GET", "/api/v1/resources/qos")
                if answer.status != 200 or json.loads(body)["resource"] != "qos":
                    faults.append(f"{answer.status} {body!r}")

        threads = [threading.Thread(target=work) for work in [write, read] * 100]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(faults, [])
        record = json.loads(self.bytes_of(target))
        self.assertEqual((record["global_download"], record["global_upload"]), (100, 100))

    def test_answers_nonsense_and_lives_on(self):
        for nonsense in [b"\x16\x03\x01\x02\x00\r\n\r\n", b"\r\n\r\n\r\n", b"GET / HTTP/1.1\r\nHost\r\n\r\n",
                         b"PRI * HTTP/2.0\r\n\r\nSM\r\n\r\n", b"G" * 100000, b"\x00" * 100,
                         b"POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nzzz\r\n"]:
            with socket.create_connection(("127.0.0.1", self.server.port), 60) as client:
                client.sendall(nonsense)
                client.shutdown(socket.SHUT_WR)
                with contextlib.suppress(OSError):
                    while client.recv(65536):
                        pass
        self.assertEqual(self.status("GET", "/api/v1/ids/radio"), 200)

    def test_logs_no_query_and_no_body(self):
        self.status("PUT", "/api/v1/gateway/radio/radio1?dryRun=true", RADIO, JSON)
        self.status("GET", "/api/v1/ids/radio?secret=hunter2")
        self.server.end()
        lines = sorted(self.server.said().splitlines())  # in the order in which they were done
        self.assertEqual(len(lines), 2)
        self.assertRegex(lines[0], r"\AGET /api/v1/ids/radio 400 \d+ ms\Z")
        self.assertRegex(lines[1], r"\APUT /api/v1/gateway/radio/radio1 200 \d+ ms\Z")


class RunningTest(unittest.TestCase):
    def run_host(self, *arguments):
        return subprocess.run([*HOST, "serve", *arguments], capture_output=True, text=True, timeout=60, check=False)

    def test_ends_at_ctrl_c_with_connections_open(self):
        for number in [signal.SIGINT, signal.SIGTERM]:
            server = Server()
            idle = socket.create_connection(("127.0.0.1", server.port), 60)
            half = socket.create_connection(("127.0.0.1", server.port), 60)
            half.sendall(b"GET / HTTP/1.1\r\nHo")
            time.sleep(0.2)
            begin = time.monotonic()
            self.assertEqual(server.end(number), 0)
            self.assertLess(time.monotonic() - begin, 4)
            idle.close()
            half.close()
            server.log.close()

    def test_says_that_a_port_is_in_use(self):
        server = Server()
        ended = self.run_host("--port", str(server.port))
        self.assertEqual((ended.returncode, ended.stdout), (4, ""))
        self.assertRegex(ended.stderr, rf"\Akelmora-host: error: port {server.port} of 127\.0\.0\.1: Address already in use;")
        self.assertEqual(server.end(), 0)
        server.log.close()

    def test_is_given_sensible_arguments(self):
        for arguments in [["--port", "65536"], ["--port", "-1"], ["--port", "x"], ["--state", ""], ["--port"], ["radio"]]:
            ended = self.run_host(*arguments)
            self.assertEqual((ended.returncode, ended.stdout), (2, ""), arguments)
            self.assertRegex(ended.stderr, r"\Akelmora-host: error: .+; see kelmora-host serve --help\n\Z")
        self.assertEqual(self.run_host("--state", "/nowhere", "--port", "0").returncode, 4)

    def test_begins_with_a_folder_of_documents(self):
        with tempfile.TemporaryDirectory() as folder:
            def put(path, text):
                (pathlib.Path(folder) / path).parent.mkdir(parents=True, exist_ok=True)
                (pathlib.Path(folder) / path).write_text(text)

            put("radio/radio1.json", RADIO)
            put("radio/new%2Fone.json", RADIO)
            put("radio/radio0.json", (ROOT / "examples/radio-missing-power.json").read_text())
            put("wireless/wlan0.json", (ROOT / "examples/wireless-lossy.json").read_text())
            put("raido/radio0.json", RADIO)
            server = Server("--state", folder)
            said = server.said()
            self.assertIn(f"{folder}/radio/radio0.json:1:1: error: /power: power field not found", said)
            self.assertIn(f"{folder}/wireless/wlan0.json:5:13: warning: /ssid: 47 bytes sent, 32 kept [cut]", said)
            self.assertIn(f'{folder}/raido: error: no resource "raido"; similar: radio', said)
            self.assertEqual(json.loads(server.ask("GET", "/api/v1/ids/radio")[1]), ["radio0", "radio1", "new/one"])
            for path in ["radio1", "new%2Fone"]:
                record = json.loads(server.ask("GET", f"/api/v1/gateway/radio/{path}")[1])
                self.assertEqual(record["power"], 50)
            before = server.ask("GET", "/api/v1/gateway/radio")[1]
            self.assertEqual(server.ask("DELETE", "/api/v1/gateway/radio/radio1")[0].status, 204)
            self.assertNotEqual(server.ask("GET", "/api/v1/gateway/radio")[1], before)
            self.assertEqual(server.ask("POST", "/api/v1/state:reset")[0].status, 204)
            self.assertEqual(server.ask("GET", "/api/v1/gateway/radio")[1], before)
            self.assertEqual(server.end(), 0)
            server.log.close()

    def test_lets_pages_of_another_origin_ask_where_that_is_allowed(self):
        server = Server("--cors-origin", "http://localhost:3000")
        answer, _ = server.ask("GET", "/api/v1/ids/radio", None, {"Origin": "http://localhost:3000"})
        self.assertEqual(answer.getheader("Access-Control-Allow-Origin"), "http://localhost:3000")
        self.assertEqual(server.ask("GET", "/api/v1/ids/radio", None, {"Origin": "http://localhost:3001"})[0].status, 403)
        self.assertEqual(server.end(), 0)
        server.log.close()


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit("usage: serve_test.py KELMORA_HOST [OPTION-OF-UNITTEST...]")
    HOST[:] = [os.path.abspath(sys.argv[1])]
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
