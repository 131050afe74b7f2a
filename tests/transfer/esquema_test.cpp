// The schema: what it refuses, and that table, schema and description speak of the same things.

#include <gtest/gtest.h>

#include <QFile>
#include <QSet>
#include <QXmlStreamReader>

#include "tests/transfer/operacion.h"

using namespace Qt::StringLiterals;

namespace {

class EsquemaDeEnvio : public OperacionParaEnviar {};
EN_AMBOS_STORES(EsquemaDeEnvio);

struct CambioDelDocumento {
    const char *de;
    const char *a;
    const char *defecto;  ///< the beginning of what is told
};
const CambioDelDocumento cambiosDelDocumento[] = {
    {R"(<item numero="2")", R"(<item numero="1")", "un número se repite o falta (línea "},
    {R"(<subitem numero="2")", R"(<subitem numero="1")", "un número se repite o falta (línea "},
    {R"(<item numero="2")", "<item", "falta un dato obligatorio (línea "},
    {R"(obligacion="G")", R"(obligacion="X")", "un valor no es de los admitidos (línea "},
    {R"(fob="60.00")", R"(fob="60.005")", "un número tiene decimales de más (línea "},
    {R"(fob="60.00")", R"(fob="6,00")", "un valor no es de su tipo (línea "},
    {R"(fob="60.00")", R"(fob="6.0e1")", "un valor no es de su tipo (línea "},
    {R"(fechaEmbarque="2026-01-02")", R"(fechaEmbarque="02/01/2026")", "un valor no es de su tipo (línea "},
    {R"(version="1.0" i)", R"(version="2.0" i)", "un valor no tiene la forma que debe (línea "},
    {R"(interno="A1")", R"(interno="")", "un dato está vacío (línea "},
    {"<operacion>", "<nuevo/><operacion>", "hay un elemento de más o fuera de su lugar (línea "},
    {R"(moneda="DOL")", R"(moneda="DOL" nuevo="1")", "hay un dato de más (línea "},
    {"urn:zendra:declaracion:1", "urn:zendra:declaracion:2", "no es el documento de una declaración (línea "},
    {"</items>", "", "no es un documento XML bien formado (línea "},
};

TEST_P(EsquemaDeEnvio, WhatBreaksTheFormIsToldInSpanishWithItsLine) {
    const QByteArray bueno = documento();
    for (const CambioDelDocumento &c : cambiosDelDocumento) {
        QByteArray malo = bueno;
        ASSERT_TRUE(malo.contains(c.de)) << c.de;
        malo.replace(c.de, c.a);
        const QString defecto = DefectoDelDocumento(malo);
        EXPECT_TRUE(defecto.startsWith(QString::fromUtf8(c.defecto)))
            << c.de << " -> " << c.a << ": " << defecto.toStdString();
    }
    EXPECT_EQ(DefectoDelDocumento(bueno), QString());
    EXPECT_NE(DefectoDelDocumento({}), QString());
}

TEST_P(EsquemaDeEnvio, NothingOutsideTheDocumentIsRead) {
    const QString secreto = carpeta(u"secreto.txt"_s);
    QFile f(secreto);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("SECRETO");
    f.close();
    QByteArray malo = documento();
    malo.replace("<declaracion", "<!DOCTYPE declaracion [<!ENTITY e SYSTEM \"file://" + secreto.toUtf8() +
                                     "\">]>\n<declaracion");
    malo.replace("3 CAJAS", "&e;");
    EXPECT_EQ(DefectoDelDocumento(malo), u"trae una definición de tipo de documento, que no se admite"_s);
}

/// Every name that the schema gives to an element or an attribute.
QSet<QString> nombresDelEsquema() {
    QSet<QString> nombres;
    QXmlStreamReader xml(EsquemaDeDeclaracion());
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement &&
            (xml.name() == "element"_L1 || xml.name() == "attribute"_L1))
            nombres << xml.attributes().value("name"_L1).toString();
    EXPECT_FALSE(xml.hasError());
    return nombres;
}

TEST(EsquemaYDescripcion, EveryValueOfTheTableIsInTheSchema) {
    const QSet<QString> nombres = nombresDelEsquema();
    EXPECT_GT(nombres.size(), 100);
    for (const ParteDeDeclaracion &parte : PartesDeDeclaracion()) {
        EXPECT_TRUE(nombres.contains(QLatin1String(parte.elemento))) << parte.elemento;
        for (const DatoDeParte &dato : parte.datos) {
            EXPECT_TRUE(nombres.contains(QLatin1String(dato.nombre))) << parte.elemento << "/" << dato.nombre;
            EXPECT_TRUE(*dato.grupo == '\0' || nombres.contains(QLatin1String(dato.grupo))) << dato.grupo;
        }
    }
}

QString descripcionDelDocumento() {
    QFile f(CarpetaDeFuentes() + u"/docs/transferencia.md"_s);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

TEST(EsquemaYDescripcion, EveryNameOfTheSchemaIsInItsDescription) {
    const QString texto = descripcionDelDocumento();
    QStringList faltan;
    for (const QString &nombre : nombresDelEsquema())
        if (!nombre.isEmpty() && !texto.contains(u'`' + nombre + u'`')) faltan << nombre;
    faltan.sort();
    EXPECT_EQ(faltan.join(u' ').toStdString(), "");
}

TEST(EsquemaYDescripcion, EveryColumnOfTheTableIsInTheDescriptionBesideItsName) {
    const QStringList lineas = descripcionDelDocumento().split(u'\n');
    for (const ParteDeDeclaracion &parte : PartesDeDeclaracion())
        for (const DatoDeParte &dato : parte.datos) {
            const QString nombre = u"| `%1` |"_s.arg(QLatin1String(dato.nombre));
            const QString columna = u"`%1.%2`"_s.arg(QLatin1String(parte.tabla), QLatin1String(dato.columna));
            const bool esta = std::any_of(lineas.begin(), lineas.end(), [&](const QString &linea) {
                return linea.contains(nombre) && linea.contains(columna);
            });
            EXPECT_TRUE(esta) << nombre.toStdString() << " " << columna.toStdString();
        }
}

}  // namespace
