// Life of an operation: created, taken, given back, removed.

#include "operations/lifecycle.h"

#include <gtest/gtest.h>

#include <QLocale>

#include "operations/inputslink.h"
#include "tests/support/tienda.h"

namespace {

using L = QLatin1String;

const char *const tablasDeInternos[] = {"subitems", "groupsubitems", "item",      "liqcero",  "itemventaja",
                                        "itemref",  "itempresu",     "itemliq",   "iteminfo", "interno",
                                        "caratula", "facturas",      "prorrateo", "descargas"};

class Ciclo : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
    }
    void TearDown() override {
        Conexion::fijarTraza({});
        insumos::crearEnlace = {};
        QLocale::setDefault(anterior);
        EnAmbosStores::TearDown();
    }

    void crear(const char *clave) {
        ejecutar(L("insert into caratula (interno) values ('") + QString::fromUtf8(clave) + L("')"));
    }
    void bloquear(const char *clave, const char *pc) {
        ejecutar(L("insert into interno (interno,maquina,usuario,fecha) values ('") +
                 QString::fromUtf8(clave) + L("','") + L(pc) + L("','','2026-01-12 10:30:00')"));
    }
    QString bloqueos(const char *clave) {
        return filas(L("select maquina,usuario from interno where interno = '") + QString::fromUtf8(clave) +
                     L("'"));
    }
    QString ajuste(const QString &clave, const QString &nombre) const {
        return ctx->ajustes.Leer(QStringLiteral("ZENDRA"), clave, nombre, QStringLiteral("<nada>"));
    }
    /// One row of the operation in every table that hangs from it.
    void poblar(const char *clave) {
        for (const char *tabla : tablasDeInternos)
            ejecutar(L("insert into ") + L(tabla) + L(" (interno) values ('") + QString::fromUtf8(clave) +
                     L("')"));
        ejecutar(L("insert into idrel (interno) values ('") + QString::fromUtf8(clave) + L("')"));
        for (const char *tabla : {"hval", "hvalexp", "coment"})
            ejecutar(
                L("insert into ") + L(tabla) + L(" (interno) values ('") + QString::fromUtf8(clave) + L("')"),
                QStringLiteral("SYSTABLAS"));
    }
    QString cuantas(const char *tabla, const char *clave, const char *entidad = "INTERNOS") {
        return valor(L("select count(*) as n from ") + L(tabla) + L(" where interno = '") +
                         QString::fromUtf8(clave) + L("'"),
                     L(entidad));
    }

    QLocale anterior;
};

// ---- create

TEST_P(Ciclo, CreatingAsksForTheKeyAndWritesHeaderAndSettings) {
    registro.textos = {QStringLiteral("  Ñandú 1/26  ")};
    EXPECT_EQ(NuevoInterno(*ctx), QStringLiteral("Ñandú 1/26"));
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas[0].titulo, L("Crear nuevo interno"));
    EXPECT_EQ(registro.entradas[0].texto, QStringLiteral("Ingrese el nuevo número de INTERNO/CARPETA"));
    EXPECT_EQ(registro.entradas[0].inicial, L(""));
    EXPECT_EQ(filas(QStringLiteral("select interno,ONCCAHabilitado,factura8 from caratula")).toStdString(),
              "Ñandú 1/26|N|<null>");
    EXPECT_EQ(valor(QStringLiteral("select fechaalta from caratula")),
              QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd 00:00:00")));
    for (int n = 0; n < 8; ++n)
        EXPECT_EQ(ajuste(QStringLiteral("Ñandú 1/26"), L("FLAG") + QString::number(n)), L("1")) << n;
    EXPECT_EQ(ajuste(QStringLiteral("Ñandú 1/26"), QStringLiteral("COEFEXPO")), L("0"));
    EXPECT_EQ(ajuste(QStringLiteral("Ñandú 1/26"), QStringLiteral("DESC")), L("<nada>"));
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(cuantas("interno", "Ñandú 1/26"), L("0")) << "the new operation is not opened";
}

TEST_P(Ciclo, AnEmptyAnswerOrLeavingTheBoxStopsWithoutAWord) {
    registro.textos = {QStringLiteral("   "), std::nullopt};
    EXPECT_TRUE(NuevoInterno(*ctx).isEmpty());
    EXPECT_TRUE(NuevoInterno(*ctx).isEmpty());
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(valor(QStringLiteral("select count(*) as n from caratula")), L("0"));
}

TEST_P(Ciclo, AKeyThatDiffersOnlyInTrailingBlanksExistsAlready) {
    crear("A1");
    registro.textos = {QStringLiteral("A1   ")};
    EXPECT_TRUE(NuevoInterno(*ctx).isEmpty());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, QStringLiteral("El Código de interno ya existe."));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(cuantas("caratula", "A1"), L("1"));
}

TEST_P(Ciclo, AKeyInOtherCaseExistsAlready) {
    crear("Año1");
    EXPECT_FALSE(CrearInterno(*ctx, QStringLiteral("AÑO1")));
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(Ciclo, AKeyOf41CharactersCannotBeTyped) {
    registro.textos = {QString(41, QLatin1Char('k'))};
    EXPECT_EQ(NuevoInterno(*ctx), QString(40, QLatin1Char('k')));
    EXPECT_EQ(registro.entradas[0].maximo, 40);
}

TEST_P(Ciclo, AKeyWithAQuoteBreaksTheStatementAndIsToldWithTheEnginesWords) {
    EXPECT_FALSE(CrearInterno(*ctx, QStringLiteral("O'Higgins")));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(L("syntax error")))
        << registro.mensajes[0].texto.toStdString();
    EXPECT_EQ(valor(QStringLiteral("select count(*) as n from caratula")), L("0"));
}

// ---- open

TEST_P(Ciclo, OpeningTakesTheLockUnderThisWorkstationsName) {
    crear("A1");
    EXPECT_TRUE(AbrirSinPantalla(*ctx, QStringLiteral("A1")).abierta);
    EXPECT_EQ(bloqueos("A1").toStdString(), "PC1|");
    EXPECT_TRUE(valor(QStringLiteral("select fecha from interno"))
                    .startsWith(QDate::currentDate().toString(Qt::ISODate)));
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Ciclo, OpeningTwiceOnOneWorkstationWarnsAndTakesTheLockAnew) {
    crear("A1");
    ASSERT_TRUE(AbrirSinPantalla(*ctx, QStringLiteral("A1")).abierta);
    ASSERT_TRUE(AbrirSinPantalla(*ctx, QStringLiteral("A1")).abierta);
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(bloqueos("A1").toStdString(), "PC1|") << "one row";
}

TEST_P(Ciclo, AfterAScreenThatWasNotLeftByEscTheNextOpenTellsOfTheStaleLock) {
    crear("A1");
    bloquear("A1", " pc1 ");
    EXPECT_TRUE(ComprobarBloqueo(*ctx, QStringLiteral("A1")));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
              "El estado de INTERNO indica que el mismo esta abierto.\r\n\r\nSe procedera a cambiar el "
              "estado.\r\n\r\nUltimo Acceso: "
              "lunes, 12 de enero de 2026");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(cuantas("interno", "A1"), L("0"))
        << "broken; the lock is written again once the dashboard is loaded";
}

TEST_P(Ciclo, AnotherWorkstationsLockKeepsTheOperationClosedHoweverOld) {
    crear("A1");
    bloquear("A1", "Aduana-7");
    const Apertura a = AbrirSinPantalla(*ctx, QStringLiteral("A1"));
    EXPECT_FALSE(a.abierta);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
              "Este interno esta abierto por la PC: Aduana-7\r\n\r\nAccedido el lunes, 12 de enero de 2026");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(bloqueos("A1").toStdString(), "Aduana-7|") << "untouched";
}

TEST_P(Ciclo, AWorkstationThatNeverSawTheOperationShowsAllEightFlagsChecked) {
    EXPECT_EQ(LeerBanderas(*ctx, QStringLiteral("A1")), (BanderasDeOperacion{1, 1, 1, 1, 1, 1, 1, 1}));
}

TEST_P(Ciclo, EmptyFlagsCountAsCheckedAndOthersAsTheyStand) {
    ctx->ajustes.Guardar(QStringLiteral("ZENDRA"), QStringLiteral("A/1"), QStringLiteral("FLAG0"), {});
    ctx->ajustes.Guardar(QStringLiteral("ZENDRA"), QStringLiteral("A/1"), QStringLiteral("FLAG3"),
                         QStringLiteral("0"));
    EXPECT_EQ(LeerBanderas(*ctx, QStringLiteral("A/1")), (BanderasDeOperacion{1, 1, 1, 0, 1, 1, 1, 1}));
}

// ---- close

TEST_P(Ciclo, ClosingStoresTheFlagsAndRemovesTheLock) {
    crear("A1");
    ASSERT_TRUE(AbrirSinPantalla(*ctx, QStringLiteral("A1")).abierta);
    GuardarYLiberar(*ctx, QStringLiteral("A1"), {1, 0, 1, 0, 1, 1, 1, 0}, std::nullopt);
    EXPECT_EQ(cuantas("interno", "A1"), L("0"));
    EXPECT_EQ(LeerBanderas(*ctx, QStringLiteral("A1")), (BanderasDeOperacion{1, 0, 1, 0, 1, 1, 1, 0}));
    EXPECT_EQ(ajuste(QStringLiteral("A1"), QStringLiteral("COEFEXPO")), L("<nada>"))
        << "its box was not enabled";
    GuardarYLiberar(*ctx, QStringLiteral("A1"), {}, 1);
    EXPECT_EQ(ajuste(QStringLiteral("A1"), QStringLiteral("COEFEXPO")), L("1"));
}

// ---- delete

TEST_P(Ciclo, DeletingRemovesEverythingButCommentsAndFoldedLines) {
    poblar("A1");
    poblar("A2");
    for (const char *nombre : {"FLAG0", "FLAG7", "COEFEXPO"})
        ctx->ajustes.Guardar(QStringLiteral("ZENDRA"), QStringLiteral("A1"), L(nombre), QStringLiteral("1"));
    ctx->ajustes.Guardar(QStringLiteral("ZENDRA"), QStringLiteral("PROCESOS"), QStringLiteral("A1"),
                         QStringLiteral("x"));
    registro.respuestas = {true};
    EXPECT_TRUE(EliminarInterno(*ctx, QStringLiteral("A1")));
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, L("Confirma eliminar el interno A1"));
    for (const char *tabla : tablasDeInternos) {
        EXPECT_EQ(cuantas(tabla, "A1"), L("0")) << tabla;
        EXPECT_EQ(cuantas(tabla, "A2"), L("1")) << tabla;
    }
    EXPECT_EQ(cuantas("hval", "A1", "SYSTABLAS"), L("0"));
    EXPECT_EQ(cuantas("hvalexp", "A1", "SYSTABLAS"), L("0"));
    EXPECT_EQ(cuantas("coment", "A1", "SYSTABLAS"), L("1"));
    EXPECT_EQ(cuantas("idrel", "A1"), L("1"));
    for (const char *nombre : {"FLAG0", "FLAG7", "COEFEXPO"})
        EXPECT_EQ(ajuste(QStringLiteral("A1"), L(nombre)), L("<nada>")) << nombre;
    EXPECT_EQ(ajuste(QStringLiteral("PROCESOS"), QStringLiteral("A1")), L("<nada>"));
}

TEST_P(Ciclo, TheDeletesAreSentInTheirOrderToTheirEntities) {
    QStringList sentencias;
    Conexion::fijarTraza(
        [&sentencias](const TrazaDeSentencia &t) { sentencias << t.entidad + L(": ") + t.sentencia; });
    ASSERT_TRUE(EliminarSinPreguntar(*ctx, QStringLiteral("A1")));
    Conexion::fijarTraza({});
    QStringList esperadas{QStringLiteral(
        "INTERNOS: select cancelaciones,idcatalogo,idarticulo,id from subitems where interno = 'A1'")};
    for (const char *tabla : tablasDeInternos)
        esperadas << L("INTERNOS: delete from ") + L(tabla) + L(" where interno = 'A1'");
    esperadas << QStringLiteral("SYSTABLAS: delete from hval where interno = 'A1'")
              << QStringLiteral("SYSTABLAS: delete from hvalexp where interno = 'A1'");
    EXPECT_EQ(sentencias.join(QLatin1Char('\n')).toStdString(),
              esperadas.join(QLatin1Char('\n')).toStdString());
}

TEST_P(Ciclo, TheBarStartsAtNoneOfTwentyAndEndsFull) {
    ASSERT_TRUE(EliminarSinPreguntar(*ctx, QStringLiteral("A1")));
    ASSERT_FALSE(registro.avances.empty());
    EXPECT_EQ(registro.avances.front().valor, 0);
    for (const Avance &a : registro.avances) {
        EXPECT_EQ(a.tipo, Avance::Tipo::Barra);
        EXPECT_EQ(a.maximo, 20);
    }
    EXPECT_EQ(registro.avances.back().valor, 20);
}

TEST_P(Ciclo, AnyAnswerButYesRemovesNothing) {
    poblar("A1");
    EXPECT_FALSE(EliminarInterno(*ctx, QStringLiteral("A1")));
    EXPECT_EQ(cuantas("caratula", "A1"), L("1"));
}

TEST_P(Ciclo, AnEmptyKeyIsNotDeleted) {
    poblar("");
    registro.respuestas = {true};
    EXPECT_FALSE(EliminarInterno(*ctx, QStringLiteral("  ")));
    EXPECT_EQ(cuantas("caratula", ""), L("1"));
}

TEST_P(Ciclo, AnOperationThatAnotherWorkstationHoldsIsDeletedAllTheSame) {
    crear("A1");
    bloquear("A1", "Aduana-7");
    registro.respuestas = {true};
    EXPECT_TRUE(EliminarInterno(*ctx, QStringLiteral("A1")));
    EXPECT_EQ(cuantas("caratula", "A1"), L("0"));
    EXPECT_EQ(cuantas("interno", "A1"), L("0"));
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Ciclo, ADeleteThatFailsOnItsWayKeepsWhatItDidAndRunsToItsEndWhenRepeated) {
    poblar("A1");
    ejecutar(QStringLiteral("alter table itemliq rename to escondida"));
    EXPECT_FALSE(EliminarSinPreguntar(*ctx, QStringLiteral("A1")));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(cuantas("item", "A1"), L("0"));
    EXPECT_EQ(cuantas("caratula", "A1"), L("1"));
    ejecutar(QStringLiteral("alter table escondida rename to itemliq"));
    EXPECT_TRUE(EliminarSinPreguntar(*ctx, QStringLiteral("A1")));
    EXPECT_EQ(cuantas("caratula", "A1"), L("0"));
    EXPECT_EQ(cuantas("itemliq", "A1"), L("0"));
}

TEST_P(Ciclo, WithoutTheInputsLibraryALineWithInputsStopsTheDeletionBeforeAnyRow) {
    poblar("A1");
    ejecutar(QStringLiteral("update subitems set cancelaciones = 'OK' where interno = 'A1'"));
    EXPECT_FALSE(EliminarSinPreguntar(*ctx, QStringLiteral("A1")));
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(cuantas("subitems", "A1"), L("1"));
    EXPECT_EQ(cuantas("caratula", "A1"), L("1"));
}

TEST_P(Ciclo, InputsAreGivenBackLineByLineAndARefusalIsNotLookedAt) {
    for (const char *estado : {"OK", "", "ok "})
        ejecutar(L("insert into subitems (interno,cancelaciones,idcatalogo,idarticulo) values ('A1','") +
                 L(estado) + L("','CAT','ART')"));
    const QString id =
        valor(QStringLiteral("select id from subitems where cancelaciones = 'OK' order by id"));
    QStringList pedidos;
    int enlaces = 0;
    insumos::crearEnlace = [&] {
        ++enlaces;
        insumos::Enlace enlace;
        enlace.EliminarInsumo = [&pedidos](const QString &interno, const QString &catalogo,
                                           const QString &articulo, qint64 linea) {
            pedidos << interno + QLatin1Char('|') + catalogo + QLatin1Char('|') + articulo +
                           QLatin1Char('|') + QString::number(linea);
            return false;
        };
        return enlace;
    };
    EXPECT_TRUE(EliminarSinPreguntar(*ctx, QStringLiteral("A1")));
    EXPECT_EQ(enlaces, 1);
    EXPECT_EQ(pedidos.join(QLatin1Char(';')).toStdString(), (L("A1|CAT|ART|") + id).toStdString());
    EXPECT_EQ(cuantas("subitems", "A1"), L("0"));
}

TEST_P(Ciclo, TheKindOfASubregimeIsReadByItsOwnStatement) {
    ejecutar(QStringLiteral("insert into sta (id,cstaimpexp) values ('IC04','I')"),
             QStringLiteral("SYSTABLAS"));
    EXPECT_EQ(getTypeOPfromSubReg(*ctx, QStringLiteral("IC04")), L("I"));
    EXPECT_EQ(getTypeOPfromSubReg(*ctx, QStringLiteral("XX99")), L(""));
}

EN_AMBOS_STORES(Ciclo);

}  // namespace
