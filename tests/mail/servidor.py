#!/usr/bin/python3
"""A mail server of the distribution on a loopback port that the system chooses.

Says its port on the first line of its output and keeps each message it takes as FOLDER/N.eml. It ends when its
input does, and so with the test that started it, however that one ends.
"""
import argparse
import asyncio
import pathlib
import ssl
import sys

from aiosmtpd.smtp import SMTP, AuthResult

# What is said to a recipient.
RECIPIENTS = {
    "llena": "452 4.2.2 Mailbox full",
    "excedida": "552 Mailbox over quota",
    "nadie": "550 5.1.1 No such user",
}
# What is said to a message for a recipient.
MESSAGES = {
    "tarde": "552 5.2.2 Mailbox full",
    "dudosa": "552 Too much",
}


class Handler:
    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.taken = 0

    async def handle_RCPT(self, server, session, envelope, address, options):
        name = address.split("@")[0]
        if name in RECIPIENTS:
            return RECIPIENTS[name]
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        name = envelope.rcpt_tos[0].split("@")[0]
        if name == "nunca":
            await asyncio.sleep(600)
        if name in MESSAGES:
            return MESSAGES[name]
        self.taken += 1
        (self.folder / f"{self.taken}.eml").write_bytes(envelope.content)
        (self.folder / f"{self.taken}.sobre").write_text(
            f"{envelope.mail_from} {' '.join(envelope.rcpt_tos)}", encoding="utf-8")
        return "250 OK"


def login(user, password):
    def check(server, session, envelope, mechanism, data):
        good = data.login == user.encode() and data.password == password.encode()
        return AuthResult(success=good, handled=False)

    return check


async def serve(options):
    loop = asyncio.get_running_loop()
    context = None
    if options.certificate:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(options.certificate, options.key)
    words = {"data_size_limit": options.size, "hostname": "servidor.prueba", "loop": loop}
    if options.user:
        words.update(authenticator=login(options.user, options.password), auth_required=True,
                     auth_require_tls=not options.tls)
    if context and not options.tls:
        words.update(tls_context=context, require_starttls=True)
    handler = Handler(options.folder)
    server = await loop.create_server(lambda: SMTP(handler, **words), "127.0.0.1", 0,
                                      ssl=context if options.tls else None)
    print(server.sockets[0].getsockname()[1], flush=True)
    await loop.run_in_executor(None, sys.stdin.read)
    server.close()


parser = argparse.ArgumentParser()
parser.add_argument("folder")
parser.add_argument("--certificate")
parser.add_argument("--key")
parser.add_argument("--tls", action="store_true")
parser.add_argument("--user")
parser.add_argument("--password")
parser.add_argument("--size", type=int, default=1 << 25)
asyncio.run(serve(parser.parse_args()))
