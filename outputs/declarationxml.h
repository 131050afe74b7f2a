#pragma once
// The document: a declaration as XML, and what a document has to look like.

#include <QByteArray>
#include <QString>

struct Declaracion;

/// The namespace; its last word is the number before the point of the version.
inline const QString espacioDeDeclaracion = QStringLiteral("urn:zendra:declaracion:1");
/// The version of the form. A new value behind the point only adds what may be absent.
inline const QString versionDeDeclaracion = QStringLiteral("1.0");

/// The document, UTF-8 with "\n" at line ends. The same declaration gives the same bytes: no clock, no
/// machine and no path is in it.
QByteArray DocumentoDe(const Declaracion &d);

/// The schema that documents are validated against; it is part of the program. Raises Falla when it is not.
QByteArray EsquemaDeDeclaracion();

/// What is wrong with a document, one Spanish sentence with its line; empty for a valid one. Nothing outside
/// `documento` is read, whatever it refers to.
QString DefectoDelDocumento(const QByteArray &documento);
