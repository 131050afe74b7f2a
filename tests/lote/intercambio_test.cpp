// Operations out to a file and in from one by the batch program, also when it is killed on the way.

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

#include "operations/exchange.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class IntercambioEnLote : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }

    static QStringList orden(const Tienda &en, const QStringList &palabras, const char *respuestas = "[]") {
        return QStringList{u"--perfil"_s,     en.perfil(),
                           u"--ajustes"_s,    en.carpeta() + u"/lote.ini"_s,
                           u"--respuestas"_s, Escribir(en.carpeta(), u"respuestas.json"_s, respuestas)} +
               palabras;
    }
    Corrida lote(const QStringList &palabras, const char *respuestas = "[]") const {
        return Lote(tienda->carpeta(), orden(*tienda, palabras, respuestas));
    }
    QString archivo() const { return tienda->carpeta() + u"/dos.zop"_s; }
    Corrida exportar(const QStringList &claves) const {
        return lote(QStringList{u"exportar"_s} + claves + QStringList{u"--salida"_s, archivo()});
    }
    static QStringList fines(const Corrida &c) {
        QStringList todos;
        for (const QJsonObject &o : c.mensajes())
            if (o.value(u"tipo"_s) == u"operacion"_s)
                todos << o.value(u"interno"_s).toString() + u'>' + o.value(u"destino"_s).toString() + u' ' +
                             o.value(u"fin"_s).toString();
        return todos;
    }
    const QStringList dos{u"IC-2026-0001"_s, u"EC-2026-0002"_s};
};
EN_AMBOS_STORES(IntercambioEnLote);

TEST_P(IntercambioEnLote, TwoOperationsGoIntoAFileAndIntoAStoreOfTheOtherKind) {
    const Corrida ida = exportar(dos);
    EXPECT_EQ(ida.estado, 0) << ida.errores.toStdString();
    const QJsonObject r = ida.resultado();
    EXPECT_TRUE(r.value(u"exportado"_s).toBool());
    EXPECT_EQ(r.value(u"archivo"_s).toString(), archivo());
    EXPECT_EQ(r.value(u"operaciones"_s).toInt(), 2);
    EXPECT_EQ(r.value(u"bytes"_s).toInteger(), QFile(archivo()).size());
    EXPECT_GT(r.value(u"filas"_s).toInt(), 40);

    const Tienda otra(QLatin1String(GetParam()) == "SQL"_L1 ? u"ACCESS"_s : u"SQL"_s);
    const Corrida vuelta = Lote(otra.carpeta(), orden(otra, {u"importar"_s, archivo()}));
    EXPECT_EQ(vuelta.estado, 0) << vuelta.errores.toStdString();
    EXPECT_EQ(fines(vuelta), (QStringList{u"IC-2026-0001>IC-2026-0001 importada"_s,
                                          u"EC-2026-0002>EC-2026-0002 importada"_s}));
    EXPECT_EQ(vuelta.resultado().value(u"importadas"_s).toInt(), 2);
    EXPECT_EQ(vuelta.resultado().value(u"omitidas"_s).toInt(), 0);
    EXPECT_GT(vuelta.resultado().value(u"relacionadas"_s).toInt(), 2);
    Registro registro2;
    const auto ctx2 = otra.contexto(registro2);
    Recordset rs;
    Consultar(*ctx2, u"INTERNOS"_s, u"select count(*) as n from subitems where interno = 'IC-2026-0001'"_s,
              rs);
    EXPECT_EQ(QString::number(rs.Numero(u"n")),
              valor(u"select count(*) as n from subitems where interno = 'IC-2026-0001'"_s));
}

TEST_P(IntercambioEnLote, WhatIsThereIsAskedAboutOrDoneAsTheOptionSays) {
    exportar(dos);
    const QString titulo = u"Importar Operaciones: la operación IC-2026-0001 ya existe"_s;
    const Corrida callada = lote({u"importar"_s, archivo()});
    EXPECT_EQ(callada.estado, 0);
    EXPECT_EQ(callada.resultado().value(u"omitidas"_s).toInt(), 2) << "no answer leaves them as they are";
    ASSERT_FALSE(callada.mensajes().empty());
    EXPECT_EQ(callada.mensajes()[0].value(u"titulo"_s).toString(), titulo);
    EXPECT_EQ(callada.mensajes()[0].value(u"texto"_s).toString(), u"Omitir\nReemplazar\nNueva clave"_s);
    EXPECT_EQ(fines(lote({u"importar"_s, archivo()}, R"(["Reemplazar","Nueva clave"])")),
              (QStringList{u"IC-2026-0001>IC-2026-0001 reemplazada"_s,
                           u"EC-2026-0002>EC-2026-0002-2 importada"_s}));
    EXPECT_EQ(fines(lote({u"importar"_s, archivo(), u"--existentes"_s, u"nueva"_s})),
              (QStringList{u"IC-2026-0001>IC-2026-0001-2 importada"_s,
                           u"EC-2026-0002>EC-2026-0002-3 importada"_s}));
    EXPECT_EQ(fines(lote({u"importar"_s, archivo(), u"--existentes"_s, u"omitir"_s})),
              (QStringList{u"IC-2026-0001>IC-2026-0001 omitida"_s, u"EC-2026-0002>EC-2026-0002 omitida"_s}));
    EXPECT_EQ(lote({u"importar"_s, archivo(), u"--existentes"_s, u"reemplazar"_s})
                  .resultado()
                  .value(u"reemplazadas"_s)
                  .toInt(),
              2);
}

TEST_P(IntercambioEnLote, OneThatCannotComeInEndsWithOneAndTheOthersCome) {
    exportar(dos);
    ejecutar(u"insert into interno (interno,maquina) values ('IC-2026-0001','OTRA')"_s);
    const Corrida c = lote({u"importar"_s, archivo(), u"--existentes"_s, u"reemplazar"_s});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(fines(c), (QStringList{u"IC-2026-0001>IC-2026-0001 fallida"_s,
                                     u"EC-2026-0002>EC-2026-0002 reemplazada"_s}));
    EXPECT_EQ(
        c.textos().first(),
        u"No se importó la operación IC-2026-0001: La operación IC-2026-0001 está abierta por la PC OTRA; "
        "ciérrela y vuelva a importarla."_s);
}

TEST_P(IntercambioEnLote, AFileThatIsNoGoodAndAKeyThatIsGoneAreOneMessage) {
    Escribir(tienda->carpeta(), u"dos.zop"_s, "cualquier cosa");
    const Corrida malo = lote({u"importar"_s, archivo()});
    EXPECT_EQ(malo.estado, 1);
    EXPECT_EQ(malo.textos(),
              QStringList{u"El archivo %1 no es de operaciones exportadas por este programa; elija "
                          "otro archivo."_s.arg(archivo())});
    const Corrida ida = exportar({u"IC-2026-0001"_s, u"NO HAY"_s});
    EXPECT_EQ(ida.estado, 1);
    EXPECT_FALSE(ida.resultado().value(u"exportado"_s).toBool());
    EXPECT_EQ(ida.textos(),
              QStringList{u"No se encontró el interno NO HAY; vuelva a buscarlo en la lista."_s});
    EXPECT_EQ(lote({u"exportar"_s, u"IC-2026-0001"_s}).estado, 2);
    EXPECT_EQ(lote({u"exportar"_s, u"--salida"_s, archivo()}).estado, 2);
    const Corrida mal = lote({u"importar"_s, archivo(), u"--existentes"_s, u"borrar"_s});
    EXPECT_EQ(mal.estado, 2);
    EXPECT_TRUE(mal.errores.contains(u"\"borrar\" no es omitir, reemplazar ni nueva"_s))
        << mal.errores.toStdString();
}

// However far it had come: the old one whole, or the new one whole.
TEST_P(IntercambioEnLote, AnImportThatIsKilledLeavesNoHalfOfAnOperation) {
    constexpr int lineas = 1500;
    const QString clave = u"LARGA"_s;
    QStringList sentencias{u"insert into caratula (interno,factura7) values ('LARGA','NUEVO')"_s};
    for (int n = 1; n <= lineas; ++n) {
        sentencias << u"insert into subitems (interno,descripcion) values ('LARGA','línea %1')"_s.arg(n);
        sentencias << u"insert into itemliq (interno,iditem) values ('LARGA',%1)"_s.arg(n);
    }
    {
        EscrituraLigera ligera(ctx->conexion(u"INTERNOS"_s));
        ctx->conexion(u"INTERNOS"_s).EjecutarSeguidas(sentencias);
    }
    ejecutar(u"insert into coment (interno,coment) values ('LARGA','NUEVO')"_s, u"SYSTABLAS"_s);
    ASSERT_EQ(exportar({clave}).estado, 0);
    const auto vieja = [this] {
        for (const char *tabla : {"subitems", "itemliq", "facturas", "caratula"})
            ejecutar(u"delete from %1 where interno = 'LARGA'"_s.arg(QLatin1String(tabla)));
        ejecutar(u"insert into caratula (interno,factura7) values ('LARGA','VIEJO')"_s);
        ejecutar(u"insert into subitems (interno) values ('LARGA')"_s);
        ejecutar(u"insert into facturas (interno,factura) values ('LARGA','F1')"_s);
        ejecutar(u"update coment set coment = 'VIEJO' where interno = 'LARGA'"_s, u"SYSTABLAS"_s);
    };
    const auto estado = [this] {
        QStringList partes{valor(u"select factura7 from caratula where interno = 'LARGA'"_s),
                           valor(u"select coment from coment where interno = 'LARGA'"_s, u"SYSTABLAS"_s)};
        for (const char *tabla : {"subitems", "itemliq", "facturas", "caratula"})
            partes << valor(
                u"select count(*) as n from %1 where interno = 'LARGA'"_s.arg(QLatin1String(tabla)));
        return partes.join(u' ');
    };
    const QString entera = u"NUEVO NUEVO 1500 1500 0 1"_s;
    const QString anterior = u"VIEJO VIEJO 1 0 1 1"_s;
    int matadas = 0;
    // Each time a little later, until it comes to its end ahead of the kill.
    for (int milisegundos = 10; milisegundos < 20000; milisegundos += 5 + milisegundos / 5) {
        vieja();
        ASSERT_EQ(estado(), anterior);
        const auto proceso =
            EmpezarLote(tienda->carpeta(),
                        orden(*tienda, {u"importar"_s, archivo(), u"--existentes"_s, u"reemplazar"_s}));
        const bool termino = proceso->waitForFinished(milisegundos);
        if (!termino) {
            proceso->kill();
            proceso->waitForFinished();
            ++matadas;
        }
        const QString despues = estado();
        EXPECT_TRUE(despues == anterior || despues == entera)
            << milisegundos << ": " << despues.toStdString();
        if (!termino) continue;
        EXPECT_EQ(despues, entera);
        break;
    }
    EXPECT_GT(matadas, 3);
}

}  // namespace
