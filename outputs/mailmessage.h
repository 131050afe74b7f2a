#pragma once
// A message as today's mail readers want it.

#include <QByteArray>

#include "outputs/mail.h"

/// The whole message in MIME, lines ended by CR LF and no character above ASCII: headers (From, To, Subject,
/// Date, Message-ID), the plain text and the HTML as alternatives of each other, and the attachment behind
/// them. A text that is empty is made from the HTML. Line ends in what becomes a header turn into blanks.
QByteArray MensajeMime(const Correo &correo);
