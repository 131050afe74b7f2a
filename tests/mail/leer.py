#!/usr/bin/python3
"""Reads a message as mail readers do and says as JSON what it found."""
import email
import email.policy
import json
import sys

with open(sys.argv[1], "rb") as file:
    raw = file.read()
message = email.message_from_bytes(raw, policy=email.policy.default)


def part(p):
    said = {"type": p.get_content_type(), "disposition": p.get_content_disposition(),
            "defects": [str(d) for d in p.defects]}
    if p.is_multipart():
        said["parts"] = [part(q) for q in p.iter_parts()]
        return said
    said["encoding"] = p["content-transfer-encoding"]
    said["charset"] = p.get_content_charset()
    said["filename"] = p.get_filename()
    if p.get_content_maintype() == "text":
        said["text"] = p.get_content().replace("\r\n", "\n")
    else:
        said["hex"] = p.get_content().hex()
    return said


headers = {name.lower(): str(value) for name, value in message.items()}
date = message["date"].datetime if message["date"] else None
json.dump({"headers": headers, "date": date.timestamp() if date else None,
           "ascii": all(byte < 128 for byte in raw),
           "longest": max(len(line) for line in raw.split(b"\r\n")),
           "bare": raw.replace(b"\r\n", b"").count(b"\n"),
           "body": part(message)}, sys.stdout)
