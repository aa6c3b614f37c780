#!/usr/bin/env python3
"""A web server of many faults, on ports of its own of this machine.

  web_server.py FOLDER [CERTIFICATE KEY]

Prints the port of http and, with a certificate, that of https. What a path does, Site tells; any
other one is a file of FOLDER. FOLDER/requests gets a line for each path asked for.
"""
import http.server
import pathlib
import ssl
import sys
import threading

LIST = b"""<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>word</key><string>there</string></dict></plist>
"""
folder = pathlib.Path(sys.argv[1])
gone = threading.Event()


class Site(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        with open(folder / "requests", "a") as requests:
            requests.write(self.path + "\n")
        name, _, rest = self.path[1:].partition("/")
        try:
            getattr(self, "show_" + name, self.show_file)(rest)
        except OSError:
            pass  # the other side had enough

    def answer(self, content, status=200, kind="application/xml"):
        self.send_response(status)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(content)))
        self.end_headers()
        self.wfile.write(content)

    def redirect(self, address):
        self.send_response(302)
        self.send_header("Location", address)
        self.send_header("Content-Length", "0")
        self.end_headers()

    def show_file(self, _):
        path = folder / self.path[1:]
        self.answer(path.read_bytes()) if path.is_file() else self.answer(b"nothing", 404)

    def show_list(self, _):
        self.answer(LIST)

    def show_missing(self, _):
        self.answer(LIST, 404)

    def show_broken(self, _):
        self.answer(LIST, 500)

    def show_locked(self, _):
        self.send_response(401)
        self.send_header("WWW-Authenticate", 'Basic realm="locked"')
        self.send_header("Content-Length", str(len(LIST)))
        self.end_headers()
        self.wfile.write(LIST)

    def show_empty(self, _):
        self.answer(b"")

    def show_page(self, _):
        self.answer(b"<!DOCTYPE html><html><body><p>Sign in first.</body></html>", kind="text/html")

    def show_cut(self, _):
        self.send_response(200)
        self.send_header("Content-Length", str(2 * len(LIST)))
        self.end_headers()
        self.wfile.write(LIST)

    def show_hop(self, left):
        self.redirect("/list" if left == "0" else f"/hop/{int(left) - 1}")

    def show_circle(self, _):
        self.redirect("/circle")

    def show_to(self, address):
        self.redirect(address)

    def show_silent(self, _):
        gone.wait()

    def show_dripping(self, _):
        self.send_response(200)
        self.end_headers()
        for letter in LIST * 100:
            self.wfile.write(bytes([letter]))
            gone.wait(1)

    def show_announced(self, _):
        self.send_response(200)
        self.send_header("Content-Length", str(2 << 30))
        self.end_headers()
        self.pour()

    def show_endless(self, _):
        self.send_response(200)
        self.end_headers()
        self.pour()

    def pour(self):
        poured = 0
        try:
            while poured < 2 << 30:
                self.wfile.write(b" " * (1 << 16))
                poured += 1 << 16
        finally:
            (folder / "poured.new").write_text(str(poured))
            (folder / "poured.new").rename(folder / "poured")

    def log_message(self, *_):
        pass


class Server(http.server.ThreadingHTTPServer):
    def handle_error(self, *_):
        pass  # a handshake that the other side broke off


def start(certificate=None):
    server = Server(("127.0.0.1", 0), Site)
    if certificate:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(*certificate)
        server.socket = context.wrap_socket(server.socket, server_side=True)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.server_port


certificate = sys.argv[2:]
ports = [start()] + ([start(certificate)] if certificate else [])
print(" ".join(map(str, ports)), flush=True)
sys.stdin.read()
