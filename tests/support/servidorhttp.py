#!/usr/bin/python3
"""An HTTP server on a loopback port that the system chooses, encrypted when it is given a certificate.

Serves the files of a folder, and answers in odd ways below these paths:

    /codigo/NUMBER    that status, without a document
    /ir/ADDRESS       a redirection to it, with its escapes taken away; none: without saying where
    /ronda            a redirection to itself
    /calla            takes the question and says nothing
    /corta            half of the document that it announced, and hangs up
    /otro             what another kind of server says, and hangs up
    /gotea            a byte every 50 ms, without an end
    /grande           more than a document may have, without saying how much

Says its port on the first line of its output, and there too each question with its headers, as one line of JSON.
It ends when its input does, and so with the test that started it, however that one ends.
"""
import argparse
import http.server
import json
import os
import ssl
import sys
import threading
import time
import urllib.parse


class Handler(http.server.SimpleHTTPRequestHandler):
    def do_GET(self):
        print(json.dumps({"path": self.path, **dict(self.headers)}), flush=True)
        _, name, *rest = self.path.split("/", 2)
        odd = getattr(self, "odd_" + name, None)
        if odd:
            odd(urllib.parse.unquote(rest[0]) if rest else "")
        else:
            super().do_GET()

    def head(self, status, **headers):
        self.send_response(status)
        for name, value in headers.items():
            self.send_header(name, value)
        self.end_headers()

    def odd_codigo(self, number):
        self.head(int(number), **{"Content-Length": "0"})

    def odd_ir(self, address):
        self.head(302, **({"Location": address} if address else {}))

    def odd_ronda(self, _):
        self.head(302, Location="/ronda")

    def odd_calla(self, _):
        time.sleep(600)

    def odd_corta(self, _):
        self.head(200, **{"Content-Length": "100"})
        self.wfile.write(b"9</>https://exa")

    def odd_otro(self, _):
        self.wfile.write(b"220 mail.server ready\r\n")

    def odd_gotea(self, _):
        self.head(200)
        while True:
            self.wfile.write(b"9")
            self.wfile.flush()
            time.sleep(0.05)

    def odd_grande(self, _):
        self.head(200)
        for _ in range(100):
            self.wfile.write(b"9" * 1024)

    def log_message(self, format, *args):
        pass


class Server(http.server.ThreadingHTTPServer):
    def handle_error(self, request, client_address):
        # A client that leaves in the middle is what some of the tests are about.
        pass


parser = argparse.ArgumentParser()
parser.add_argument("folder")
parser.add_argument("--certificate")
parser.add_argument("--key")
options = parser.parse_args()
server = Server(("127.0.0.1", 0),
                lambda *args: Handler(*args, directory=options.folder))
if options.certificate:
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(options.certificate, options.key)
    # The handshake is the client's thread's, so that one that never speaks keeps nobody else waiting.
    server.socket = context.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)
print(server.server_port, flush=True)
threading.Thread(target=server.serve_forever, daemon=True).start()
sys.stdin.read()
os._exit(0)
