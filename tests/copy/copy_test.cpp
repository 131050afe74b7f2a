// The copy of an operation under a new key.

#include <gtest/gtest.h>

#include <QDate>

#include "assembly/run.h"
#include "frame/base/values.h"
#include "frame/startup.h"
#include "operations/lifecycle.h"
#include "operations/oOperationCopy.h"
#include "operations/status.h"
#include "tests/support/tienda.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace {

const QString origen = u"ORIGINAL"_s;
const QString destino = u"LA COPIA"_s;

/// What a copy does not carry: where the original is open, what it put into the stock or took from it, and
/// that it was handed over.
const QStringList queQuedan{u"interno"_s, u"stock"_s, u"stockmov"_s, u"transferidas"_s};

/// Every table that a copy carries.
std::vector<const esquema::Tabla *> tablasDeOperacion() {
    std::vector<const esquema::Tabla *> lista;
    for (const esquema::Tabla &t : esquema::tablas())
        if (t.columna(u"interno") && !queQuedan.contains(t.nombre)) lista.push_back(&t);
    return lista;
}

bool nombraLinea(const esquema::Tabla &t, const QString &columna) {
    return (t.nombre == "groupsubitems"_L1 || t.nombre == "idrel"_L1) &&
           (columna == "idsub"_L1 || columna == "idroot"_L1);
}

/// The number of a taking of the stock, whose row stays with the original.
bool nombraToma(const esquema::Tabla &t, const QString &columna) {
    return t.nombre == "descargas"_L1 && columna == "idexportacion"_L1;
}

class Copia : public EnAmbosStores {
 protected:
    QString literal(const esquema::Tabla &t, const esquema::Columna &c, int fila) {
        switch (c.tipo) {
            case esquema::Tipo::Numero:
                return QString::number(fila * 100 + 0.1 + 0.2, 'g', 17);
            case esquema::Tipo::Fecha:
                return ctx->DataManager.getDateFormatbyEntity(
                    t.entidad, QDateTime(QDate(2024, 2, 29), QTime(23, 59, 58)));
            case esquema::Tipo::TextoNumerico:
                return fila == 0 ? u"'12.5'"_s : u"' suelto '"_s;
            default:
                // What a text may hold: quotes, line ends, letters of other alphabets, blanks at its ends.
                return u"' %1.%2 ''Ñandú'' \"Ω\"\r\n%3 '"_s.arg(t.nombre, c.nombre).arg(fila);
        }
    }
    /// Three rows of the operation in a table: two full ones and one of nulls (one full row of the header).
    void llenar(const esquema::Tabla &t, const QString &interno) {
        const int cuantas = t.nombre == "caratula"_L1 ? 1 : 3;
        for (int fila = 0; fila < cuantas; ++fila) {
            QStringList columnas;
            QStringList valores;
            for (const esquema::Columna &c : t.columnas) {
                if (c.tipo == esquema::Tipo::Generado) continue;
                const bool clave = c.nombre == "interno"_L1;
                if (fila == 2 && !clave) continue;
                columnas << c.nombre;
                if (clave)
                    valores << QLatin1Char('\'') + interno + QLatin1Char('\'');
                else if (nombraLinea(t, c.nombre))
                    valores << lineas(interno).at(fila);
                else if (nombraToma(t, c.nombre))
                    valores << u"0"_s;
                else
                    valores << literal(t, c, fila);
            }
            ejecutar(u"insert into %1 ("_s.arg(t.nombre) + columnas.join(QLatin1Char(',')) + u") values ("_s +
                         valores.join(QLatin1Char(',')) + u")"_s,
                     t.entidad);
        }
    }
    void llenarTodo(const QString &interno = origen) {
        llenar(*esquema::buscarTabla(u"subitems"), interno);
        for (const esquema::Tabla *t : tablasDeOperacion())
            if (t->nombre != "subitems"_L1) llenar(*t, interno);
    }
    /// The identities of an operation's lines, in order.
    QStringList lineas(const QString &interno) {
        return filas(u"select id from subitems where interno = '%1' order by id"_s.arg(interno))
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    /// The rows of a table, sorted; the key is left out, and identities of lines are told by their place.
    std::string contenido(const esquema::Tabla &t, const QString &interno,
                          const QStringList &sin = {u"interno"_s}) {
        const QStringList ids = lineas(interno);
        Recordset rs;
        Consultar(*ctx, t.entidad, u"select * from %1 where interno = '%2'"_s.arg(t.nombre, interno), rs);
        QStringList todas;
        for (; !rs.Eof(); rs.MoveNext()) {
            QStringList celdas;
            for (const esquema::Columna &c : t.columnas) {
                if (sin.contains(c.nombre)) continue;
                const QVariant v = rs.Fields(c.nombre).Value;
                QString texto = v.isNull() ? u"<null>"_s : EsNull(v);
                if (c.tipo == esquema::Tipo::Generado || nombraLinea(t, c.nombre))
                    texto = u"line %1"_s.arg(ids.indexOf(texto));
                celdas << c.nombre + QLatin1Char('=') + texto;
            }
            todas << celdas.join(QLatin1Char('|'));
        }
        todas.sort();
        return todas.join(QLatin1Char('\n')).toStdString();
    }
    int cuantas(const esquema::Tabla &t, const QString &interno) {
        return valor(u"select count(*) as n from %1 where interno = '%2'"_s.arg(t.nombre, interno), t.entidad)
            .toInt();
    }
    /// Every table of an operation in one text.
    std::string todo(const QString &interno) {
        std::string texto;
        for (const esquema::Tabla *t : tablasDeOperacion())
            texto += t->nombre.toStdString() + ":\n" + contenido(*t, interno) + "\n";
        return texto;
    }
    void soloCaratula(const QString &interno, const char *marca = "'N'") {
        ejecutar(u"insert into caratula (interno,idsubreg,factura8) values ('%1','IC01',%2)"_s.arg(
            interno, QLatin1String(marca)));
    }
    QString pedir(const std::optional<QString> &escrito) {
        registro = {};
        registro.textos = {escrito};
        return CopiarInterno(*ctx, origen);
    }
};

TEST_P(Copia, EveryTableOfTheOperationIsDuplicated) {
    llenarTodo();
    EXPECT_EQ(pedir(destino).toStdString(), destino.toStdString());
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_GE(tablasDeOperacion().size(), 18U);
    for (const esquema::Tabla *t : tablasDeOperacion()) {
        const QStringList sin{u"interno"_s, u"fechaalta"_s};
        EXPECT_GT(cuantas(*t, origen), 0) << t->nombre.toStdString();
        EXPECT_EQ(contenido(*t, origen, sin), contenido(*t, destino, sin)) << t->nombre.toStdString();
    }
}

TEST_P(Copia, TheOriginalAndOtherOperationsAreNotTouched) {
    llenarTodo();
    llenarTodo(u"OTRA"_s);
    const std::string antes = todo(origen) + todo(u"OTRA"_s);
    EXPECT_EQ(pedir(destino), destino);
    EXPECT_EQ(todo(origen) + todo(u"OTRA"_s), antes);
}

TEST_P(Copia, TheCopyTakesTheArmedMarkAsItStands) {
    for (const char *marca : {"'N'", "'S'", "null", "''"}) {
        ejecutar(u"delete from caratula"_s);
        soloCaratula(origen, marca);
        EXPECT_EQ(pedir(destino), destino);
        EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'LA COPIA'"_s),
                  valor(u"select factura8 from caratula where interno = 'ORIGINAL'"_s))
            << marca;
    }
}

TEST_P(Copia, ACopyOfAnOperationThatWaitsForItsAssemblyIsAssembled) {
    soloCaratula(origen, "'S'");
    pedir(destino);
    OpcionesDeArmado opciones;
    EXPECT_EQ(PrepararArmado(*ctx, destino, {}, opciones), PasoDeArmado::Armar);
}

TEST_P(Copia, TheCopyWasCreatedToday) {
    const QString alta = u"select fechaalta from caratula where interno = 'LA COPIA'"_s;
    soloCaratula(origen);
    pedir(destino);
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, alta, rs));
    EXPECT_EQ(AFecha(rs.Fields(0).Value).date(), QDate::currentDate());
    // The process keeps the day on which it was started.
    ejecutar(u"delete from caratula where interno = 'LA COPIA'"_s);
    ctx->TodayInternos =
        ctx->DataManager.getDateFormatbyEntity(u"INTERNOS"_s, QDate(2026, 3, 1).startOfDay());
    pedir(destino);
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, alta, rs));
    EXPECT_EQ(AFecha(rs.Fields(0).Value).date(), QDate(2026, 3, 1));
}

TEST_P(Copia, LinesHaveIdentitiesOfTheirOwnAndGroupsAndLinksFollow) {
    llenarTodo();
    pedir(destino);
    const QStringList viejas = lineas(origen);
    const QStringList nuevas = lineas(destino);
    ASSERT_EQ(nuevas.size(), 3);
    for (const QString &id : nuevas) EXPECT_FALSE(viejas.contains(id));
    EXPECT_EQ(filas(u"select idsub from groupsubitems where interno = 'LA COPIA' and idsub is "
                    "not null order by idsub"_s),
              nuevas.first(2).join(QLatin1Char('\n')));
    EXPECT_EQ(filas(u"select idroot,idsub from idrel where interno = 'LA COPIA' and idsub is "
                    "not null order by idsub"_s),
              nuevas[0] + QLatin1Char('|') + nuevas[0] + QLatin1Char('\n') + nuevas[1] + QLatin1Char('|') +
                  nuevas[1]);
}

TEST_P(Copia, ALinkToALineThatIsGoneNamesNone) {
    soloCaratula(origen);
    ejecutar(u"insert into subitems (interno) values ('ORIGINAL')"_s);
    ejecutar(u"insert into idrel (interno,idroot,idsub) values ('ORIGINAL',%1,9999)"_s.arg(
        lineas(origen).first()));
    EXPECT_EQ(pedir(destino), destino);
    EXPECT_EQ(filas(u"select idroot,idsub from idrel where interno = 'LA COPIA'"_s),
              lineas(destino).first() + u"|0"_s);
}

TEST_P(Copia, WhatTheOriginalTookFromTheStockIsNotTheCopys) {
    soloCaratula(origen);
    ejecutar(
        u"insert into subitems (interno,cancelaciones,insumostemp) "
        "values ('ORIGINAL','OK','12.75')"_s);
    ejecutar(u"insert into subitems (interno,cancelaciones,insumostemp) values ('ORIGINAL','','3')"_s);
    ejecutar(u"insert into stockmov (interno,idstock,descontado) values ('ORIGINAL',1,2)"_s);
    ejecutar(u"insert into descargas (interno,cantidad,idexportacion) values ('ORIGINAL',1,%1)"_s.arg(
        valor(u"select id from stockmov"_s)));
    // Of elsewhere: with a number that no taking has, and with none.
    ejecutar(u"insert into descargas (interno,cantidad,idexportacion) values ('ORIGINAL',3,7777)"_s);
    ejecutar(
        u"insert into groupsubitems (interno,cancelaciones,insumostemp) values ('ORIGINAL','OK',12.75)"_s);
    ejecutar(u"insert into item (interno,id,cancelaciones,insumostemp) values ('ORIGINAL',1,'OK',12.75)"_s);
    ejecutar(u"insert into descargas (interno,cantidad,idexportacion) values ('ORIGINAL',2,null)"_s);
    ejecutar(u"insert into transferidas (interno,suma) values ('ORIGINAL','abc')"_s);
    EXPECT_EQ(pedir(destino), destino);
    EXPECT_EQ(
        filas(u"select cancelaciones,insumostemp from subitems where interno = 'LA COPIA' order by id"_s),
        u"|0\n|3"_s);
    EXPECT_EQ(filas(u"select cantidad from descargas where interno = 'LA COPIA'"_s), u"3\n2"_s);
    for (const char *tabla : {"groupsubitems", "item"})
        EXPECT_EQ(filas(u"select cancelaciones,insumostemp from %1 where interno = 'LA COPIA'"_s.arg(
                      QLatin1String(tabla))),
                  u"|0"_s);
    EXPECT_EQ(valor(u"select count(*) as n from transferidas where interno = 'LA COPIA'"_s), u"0"_s);
    // Its items were made with those inputs.
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'LA COPIA'"_s), u"S"_s);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'ORIGINAL'"_s), u"N"_s);
}

TEST_P(Copia, TheLockStaysWithTheOriginal) {
    soloCaratula(origen);
    ejecutar(u"insert into interno (interno,maquina,usuario) values ('ORIGINAL','PC9','')"_s);
    EXPECT_EQ(pedir(destino), destino);
    EXPECT_EQ(filas(u"select interno,maquina from interno"_s), u"ORIGINAL|PC9"_s);
}

TEST_P(Copia, TheNewKeyIsAskedLikeThatOfANewOperation) {
    soloCaratula(origen);
    EXPECT_EQ(pedir(destino), destino);
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas[0].titulo.toStdString(), "Copiar interno");
    EXPECT_EQ(registro.entradas[0].texto.toStdString(), "Ingrese el nuevo número de INTERNO/CARPETA");
    EXPECT_EQ(registro.entradas[0].maximo, 40);
    EXPECT_TRUE(registro.entradas[0].inicial.isEmpty());
}

TEST_P(Copia, TheNewKeyIsTrimmed) {
    soloCaratula(origen);
    EXPECT_EQ(pedir(u"  LA COPIA "_s), destino);
    EXPECT_EQ(valor(u"select count(*) as n from caratula where interno = 'LA COPIA'"_s), u"1"_s);
}

TEST_P(Copia, ACancelledOrEmptyKeyCopiesNothingAndSaysNothing) {
    soloCaratula(origen);
    for (const auto &escrito :
         {std::optional<QString>(), std::optional<QString>(QString()), std::optional<QString>("   ")}) {
        EXPECT_TRUE(pedir(escrito).isEmpty());
        EXPECT_TRUE(registro.mensajes.empty());
        EXPECT_EQ(valor(u"select count(*) as n from caratula"_s), u"1"_s);
    }
}

TEST_P(Copia, ANewKeyThatIsTakenIsRefusedAndNothingChanges) {
    llenarTodo();
    llenarTodo(u"TOMADA"_s);
    const std::string antes = todo(origen) + todo(u"TOMADA"_s);
    // Its own key, another's, one with other case, one with blanks at its ends.
    for (const char *clave : {"ORIGINAL", "TOMADA", "tomada", " TOMADA  "}) {
        EXPECT_TRUE(pedir(QString::fromLatin1(clave)).isEmpty()) << clave;
        ASSERT_EQ(registro.mensajes.size(), 1U) << clave;
        EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "El Código de interno ya existe.");
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        EXPECT_EQ(todo(origen) + todo(u"TOMADA"_s), antes) << clave;
    }
    EXPECT_THROW(oOperationCopy::Copiar(*ctx, origen, u"TOMADA"_s), Falla);
    EXPECT_EQ(todo(origen) + todo(u"TOMADA"_s), antes);
}

TEST_P(Copia, RowsThatADeletionLeftUnderTheNewKeyDoNotMixWithTheCopy) {
    llenarTodo();
    llenarTodo(destino);
    ejecutar(u"delete from caratula where interno = 'LA COPIA'"_s);
    EXPECT_EQ(pedir(destino), destino);
    for (const esquema::Tabla *t : tablasDeOperacion())
        EXPECT_EQ(cuantas(*t, destino), cuantas(*t, origen)) << t->nombre.toStdString();
}

TEST_P(Copia, AnOperationThatIsGoneIsToldAndNothingIsMade) {
    EXPECT_TRUE(pedir(destino).isEmpty());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
              "El interno ORIGINAL ya no existe: vuelva a buscarlo en la lista.");
    EXPECT_EQ(valor(u"select count(*) as n from caratula"_s), u"0"_s);
}

TEST_P(Copia, AFailureHalfwayShowsTheStoresWordsAndLeavesNoOperation) {
    llenarTodo();
    ejecutar(u"drop table itemliq"_s);
    EXPECT_TRUE(pedir(destino).isEmpty());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes[0].texto.contains("itemliq"_L1));
    EXPECT_EQ(valor(u"select count(*) as n from caratula where interno = 'LA COPIA'"_s), u"0"_s);
    EXPECT_EQ(valor(u"select count(*) as n from caratula where interno = 'ORIGINAL'"_s), u"1"_s);
}

TEST_P(Copia, AKeyWithAQuoteIsRefusedWithoutHarm) {
    soloCaratula(origen);
    EXPECT_TRUE(pedir(u"O'P"_s).isEmpty());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_FALSE(registro.mensajes[0].texto.isEmpty());
    EXPECT_EQ(valor(u"select count(*) as n from caratula"_s), u"1"_s);
}

class CopiaDeDemostracion : public Copia {
 protected:
    bool conDemostracion() const override { return true; }
    void armar(const QString &interno) {
        ctx->ChequeoArmado = u"SI"_s;
        EXPECT_TRUE(Generar(*ctx, interno, {.ARMARITEM = 2, .modo = ModoDescripcion::Maria}));
        EXPECT_EQ(ctx->ChequeoArmado.toStdString(), "SI") << interno.toStdString();
    }
};

TEST_P(CopiaDeDemostracion, ACopyAssemblesIntoTheItemsOfTheOriginal) {
    for (const char *clave : {"IC-2026-0001", "EC-2026-0002", "DJAI-2026-0004"}) {
        const QString interno = QLatin1String(clave);
        const QString copia = u"COPIA-"_s + interno;
        armar(interno);
        // Of an armed operation: the copy brings its items along, and gets them anew.
        oOperationCopy::Copiar(*ctx, interno, copia);
        for (const char *tabla : {"groupsubitems", "idrel", "item", "itemliq", "itemventaja", "iteminfo"})
            EXPECT_EQ(contenido(*esquema::buscarTabla(QString::fromLatin1(tabla)), interno),
                      contenido(*esquema::buscarTabla(QString::fromLatin1(tabla)), copia))
                << clave << " " << tabla;
        armar(copia);
        for (const char *tabla :
             {"subitems", "groupsubitems", "idrel", "item", "itemliq", "itemventaja", "iteminfo"})
            EXPECT_EQ(contenido(*esquema::buscarTabla(QString::fromLatin1(tabla)), interno),
                      contenido(*esquema::buscarTabla(QString::fromLatin1(tabla)), copia))
                << clave << " " << tabla;
    }
}

EN_AMBOS_STORES(Copia);
EN_AMBOS_STORES(CopiaDeDemostracion);

}  // namespace
