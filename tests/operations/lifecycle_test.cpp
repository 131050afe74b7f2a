// Life of an operation: created, taken, given back, removed.

#include "operations/lifecycle.h"

#include <gtest/gtest.h>

#include <QLocale>

#include "tests/support/insumos.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

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
        QLocale::setDefault(anterior);
        EnAmbosStores::TearDown();
    }

    void crear(const char *clave) {
        ejecutar("insert into caratula (interno) values ('"_L1 + QString::fromUtf8(clave) + "')"_L1);
    }
    void bloquear(const char *clave, const char *pc) {
        ejecutar("insert into interno (interno,maquina,usuario,fecha) values ('"_L1 +
                 QString::fromUtf8(clave) + "','"_L1 + L(pc) + "','','2026-01-12 10:30:00')"_L1);
    }
    QString bloqueos(const char *clave) {
        return filas("select maquina,usuario from interno where interno = '"_L1 + QString::fromUtf8(clave) +
                     "'"_L1);
    }
    QString ajuste(const QString &clave, const QString &nombre) const {
        return ctx->ajustes.Leer(u"ZENDRA"_s, clave, nombre, u"<nada>"_s);
    }
    /// One row of the operation in every table that hangs from it.
    void poblar(const char *clave) {
        for (const char *tabla : tablasDeInternos)
            ejecutar("insert into "_L1 + L(tabla) + " (interno) values ('"_L1 + QString::fromUtf8(clave) +
                     "')"_L1);
        ejecutar("insert into idrel (interno) values ('"_L1 + QString::fromUtf8(clave) + "')"_L1);
        for (const char *tabla : {"hval", "hvalexp", "coment"})
            ejecutar(
                "insert into "_L1 + L(tabla) + " (interno) values ('"_L1 + QString::fromUtf8(clave) + "')"_L1,
                u"SYSTABLAS"_s);
    }
    QString cuantas(const char *tabla, const char *clave, const char *entidad = "INTERNOS") {
        return valor("select count(*) as n from "_L1 + L(tabla) + " where interno = '"_L1 +
                         QString::fromUtf8(clave) + "'"_L1,
                     L(entidad));
    }

    QLocale anterior;
};

// ---- create

TEST_P(Ciclo, CreatingAsksForTheKeyAndWritesHeaderAndSettings) {
    registro.textos = {u"  Ñandú 1/26  "_s};
    EXPECT_EQ(NuevoInterno(*ctx), u"Ñandú 1/26"_s);
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas[0].titulo, "Crear nuevo interno"_L1);
    EXPECT_EQ(registro.entradas[0].texto, u"Ingrese el nuevo número de INTERNO/CARPETA"_s);
    EXPECT_EQ(registro.entradas[0].inicial, ""_L1);
    EXPECT_EQ(filas(u"select interno,ONCCAHabilitado,factura8 from caratula"_s).toStdString(),
              "Ñandú 1/26|N|<null>");
    EXPECT_EQ(valor(u"select fechaalta from caratula"_s),
              QDate::currentDate().toString(u"yyyy-MM-dd 00:00:00"_s));
    for (int n = 0; n < 8; ++n)
        EXPECT_EQ(ajuste(u"Ñandú 1/26"_s, "FLAG"_L1 + QString::number(n)), "1"_L1) << n;
    EXPECT_EQ(ajuste(u"Ñandú 1/26"_s, u"COEFEXPO"_s), "0"_L1);
    EXPECT_EQ(ajuste(u"Ñandú 1/26"_s, u"DESC"_s), "<nada>"_L1);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(cuantas("interno", "Ñandú 1/26"), "0"_L1) << "the new operation is not opened";
}

TEST_P(Ciclo, AnEmptyAnswerOrLeavingTheBoxStopsWithoutAWord) {
    registro.textos = {u"   "_s, std::nullopt};
    EXPECT_TRUE(NuevoInterno(*ctx).isEmpty());
    EXPECT_TRUE(NuevoInterno(*ctx).isEmpty());
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(valor(u"select count(*) as n from caratula"_s), "0"_L1);
}

TEST_P(Ciclo, AKeyThatDiffersOnlyInTrailingBlanksExistsAlready) {
    crear("A1");
    registro.textos = {u"A1   "_s};
    EXPECT_TRUE(NuevoInterno(*ctx).isEmpty());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"El Código de interno ya existe."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(cuantas("caratula", "A1"), "1"_L1);
}

TEST_P(Ciclo, AKeyInOtherCaseExistsAlready) {
    crear("Año1a");
    EXPECT_FALSE(CrearInterno(*ctx, u"AñO1A"_s));
    EXPECT_EQ(registro.mensajes.size(), 1U);
    // The case of a letter that is not English is known to a server alone.
    EXPECT_EQ(CrearInterno(*ctx, u"AÑO1A"_s), GetParam() == std::string("ACCESS"));
}

TEST_P(Ciclo, AKeyOf41CharactersCannotBeTyped) {
    registro.textos = {QString(41, QLatin1Char('k'))};
    EXPECT_EQ(NuevoInterno(*ctx), QString(40, QLatin1Char('k')));
    EXPECT_EQ(registro.entradas[0].maximo, 40);
}

TEST_P(Ciclo, AKeyWithAQuoteOrAControlCharacterIsRefusedInOneSentence) {
    for (const QString &clave : {u"O'Higgins"_s, u"x', null, 'S') --"_s, u"A\tB"_s, u"A\nB"_s, u"A\u2028B"_s,
                                 u"A\u202eB"_s, u"A\a"_s, QString(QChar(0xD83D)), u"  "_s}) {
        registro.mensajes.clear();
        EXPECT_FALSE(CrearInterno(*ctx, clave));
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        EXPECT_EQ(registro.mensajes[0].texto,
                  u"La clave de una operación tiene entre 1 y 40 caracteres, sin apóstrofos ni caracteres de "
                  "control; elija otra."_s);
    }
    EXPECT_EQ(valor(u"select count(*) as n from caratula"_s), "0"_L1);
    for (const QString &clave : {u"a\\b"_s, u"a;b--c/*d*/"_s, u"%_[x]"_s, u"🚢 Ñandú"_s}) {
        EXPECT_TRUE(CrearInterno(*ctx, clave));
        EXPECT_TRUE(AbrirSinPantalla(*ctx, clave).abierta);
    }
    EXPECT_EQ(valor(u"select count(*) as n from caratula"_s), "4"_L1);
}

// ---- open

TEST_P(Ciclo, OpeningTakesTheLockUnderThisWorkstationsName) {
    crear("A1");
    EXPECT_TRUE(AbrirSinPantalla(*ctx, u"A1"_s).abierta);
    EXPECT_EQ(bloqueos("A1").toStdString(), "PC1|");
    EXPECT_TRUE(valor(u"select fecha from interno"_s).startsWith(QDate::currentDate().toString(Qt::ISODate)));
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Ciclo, OpeningTwiceOnOneWorkstationWarnsAndTakesTheLockAnew) {
    crear("A1");
    ASSERT_TRUE(AbrirSinPantalla(*ctx, u"A1"_s).abierta);
    ASSERT_TRUE(AbrirSinPantalla(*ctx, u"A1"_s).abierta);
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(bloqueos("A1").toStdString(), "PC1|") << "one row";
}

TEST_P(Ciclo, AfterAScreenThatWasNotLeftByEscTheNextOpenTellsOfTheStaleLock) {
    crear("A1");
    bloquear("A1", " pc1 ");
    EXPECT_TRUE(ComprobarBloqueo(*ctx, u"A1"_s));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
              "El estado de INTERNO indica que el mismo esta abierto.\r\n\r\nSe procedera a cambiar el "
              "estado.\r\n\r\nUltimo Acceso: "
              "lunes, 12 de enero de 2026");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(cuantas("interno", "A1"), "0"_L1)
        << "broken; the lock is written again once the dashboard is loaded";
}

TEST_P(Ciclo, AnotherWorkstationsLockKeepsTheOperationClosedHoweverOld) {
    crear("A1");
    bloquear("A1", "Aduana-7");
    const Apertura a = AbrirSinPantalla(*ctx, u"A1"_s);
    EXPECT_FALSE(a.abierta);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
              "Este interno esta abierto por la PC: Aduana-7\r\n\r\nAccedido el lunes, 12 de enero de 2026");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(bloqueos("A1").toStdString(), "Aduana-7|") << "untouched";
}

TEST_P(Ciclo, AWorkstationThatNeverSawTheOperationShowsAllEightFlagsChecked) {
    EXPECT_EQ(LeerBanderas(*ctx, u"A1"_s), (BanderasDeOperacion{1, 1, 1, 1, 1, 1, 1, 1}));
}

TEST_P(Ciclo, EmptyFlagsCountAsCheckedAndOthersAsTheyStand) {
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"A/1"_s, u"FLAG0"_s, {});
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"A/1"_s, u"FLAG3"_s, u"0"_s);
    EXPECT_EQ(LeerBanderas(*ctx, u"A/1"_s), (BanderasDeOperacion{1, 1, 1, 0, 1, 1, 1, 1}));
}

// ---- close

TEST_P(Ciclo, ClosingStoresTheFlagsAndRemovesTheLock) {
    crear("A1");
    ASSERT_TRUE(AbrirSinPantalla(*ctx, u"A1"_s).abierta);
    GuardarYLiberar(*ctx, u"A1"_s, {1, 0, 1, 0, 1, 1, 1, 0}, std::nullopt);
    EXPECT_EQ(cuantas("interno", "A1"), "0"_L1);
    EXPECT_EQ(LeerBanderas(*ctx, u"A1"_s), (BanderasDeOperacion{1, 0, 1, 0, 1, 1, 1, 0}));
    EXPECT_EQ(ajuste(u"A1"_s, u"COEFEXPO"_s), "<nada>"_L1) << "its box was not enabled";
    GuardarYLiberar(*ctx, u"A1"_s, {}, 1);
    EXPECT_EQ(ajuste(u"A1"_s, u"COEFEXPO"_s), "1"_L1);
}

// ---- delete

TEST_P(Ciclo, DeletingRemovesEverythingButCommentsAndFoldedLines) {
    poblar("A1");
    poblar("A2");
    for (const char *nombre : {"FLAG0", "FLAG7", "COEFEXPO"})
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"A1"_s, L(nombre), u"1"_s);
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"PROCESOS"_s, u"A1"_s, u"x"_s);
    registro.respuestas = {true};
    EXPECT_TRUE(EliminarInterno(*ctx, u"A1"_s));
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, "Confirma eliminar el interno A1"_L1);
    for (const char *tabla : tablasDeInternos) {
        EXPECT_EQ(cuantas(tabla, "A1"), "0"_L1) << tabla;
        EXPECT_EQ(cuantas(tabla, "A2"), "1"_L1) << tabla;
    }
    EXPECT_EQ(cuantas("hval", "A1", "SYSTABLAS"), "0"_L1);
    EXPECT_EQ(cuantas("hvalexp", "A1", "SYSTABLAS"), "0"_L1);
    EXPECT_EQ(cuantas("coment", "A1", "SYSTABLAS"), "1"_L1);
    EXPECT_EQ(cuantas("idrel", "A1"), "1"_L1);
    for (const char *nombre : {"FLAG0", "FLAG7", "COEFEXPO"})
        EXPECT_EQ(ajuste(u"A1"_s, L(nombre)), "<nada>"_L1) << nombre;
    EXPECT_EQ(ajuste(u"PROCESOS"_s, u"A1"_s), "<nada>"_L1);
}

TEST_P(Ciclo, TheDeletesAreSentInTheirOrderToTheirEntities) {
    QStringList sentencias;
    Conexion::fijarTraza(
        [&sentencias](const TrazaDeSentencia &t) { sentencias << t.entidad + ": "_L1 + t.sentencia; });
    ASSERT_TRUE(EliminarSinPreguntar(*ctx, u"A1"_s));
    Conexion::fijarTraza({});
    QStringList esperadas{
        u"INTERNOS: select cancelaciones,idcatalogo,idarticulo,id from subitems where interno = 'A1'"_s};
    for (const char *tabla : tablasDeInternos)
        esperadas << "INTERNOS: delete from "_L1 + L(tabla) + " where interno = 'A1'"_L1;
    esperadas << u"SYSTABLAS: delete from hval where interno = 'A1'"_s
              << u"SYSTABLAS: delete from hvalexp where interno = 'A1'"_s;
    // What this system keeps beside them goes behind the last of them.
    ASSERT_GE(sentencias.size(), esperadas.size());
    sentencias.resize(esperadas.size());
    EXPECT_EQ(sentencias.join(QLatin1Char('\n')).toStdString(),
              esperadas.join(QLatin1Char('\n')).toStdString());
}

TEST_P(Ciclo, TheBarStartsAtNoneOfTwentyAndEndsFull) {
    ASSERT_TRUE(EliminarSinPreguntar(*ctx, u"A1"_s));
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
    EXPECT_FALSE(EliminarInterno(*ctx, u"A1"_s));
    EXPECT_EQ(cuantas("caratula", "A1"), "1"_L1);
}

TEST_P(Ciclo, AnEmptyKeyIsNotDeleted) {
    poblar("");
    registro.respuestas = {true};
    EXPECT_FALSE(EliminarInterno(*ctx, u"  "_s));
    EXPECT_EQ(cuantas("caratula", ""), "1"_L1);
}

TEST_P(Ciclo, AnOperationThatAnotherWorkstationHoldsIsDeletedAllTheSame) {
    crear("A1");
    bloquear("A1", "Aduana-7");
    registro.respuestas = {true};
    EXPECT_TRUE(EliminarInterno(*ctx, u"A1"_s));
    EXPECT_EQ(cuantas("caratula", "A1"), "0"_L1);
    EXPECT_EQ(cuantas("interno", "A1"), "0"_L1);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Ciclo, ADeleteThatFailsOnItsWayKeepsWhatItDidAndRunsToItsEndWhenRepeated) {
    poblar("A1");
    ejecutar(u"alter table itemliq rename to escondida"_s);
    EXPECT_FALSE(EliminarSinPreguntar(*ctx, u"A1"_s));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(cuantas("item", "A1"), "0"_L1);
    EXPECT_EQ(cuantas("caratula", "A1"), "1"_L1);
    ejecutar(u"alter table escondida rename to itemliq"_s);
    EXPECT_TRUE(EliminarSinPreguntar(*ctx, u"A1"_s));
    EXPECT_EQ(cuantas("caratula", "A1"), "0"_L1);
    EXPECT_EQ(cuantas("itemliq", "A1"), "0"_L1);
}

TEST_P(Ciclo, WithoutTheInputsLibraryALineWithInputsStopsTheDeletionBeforeAnyRow) {
    poblar("A1");
    ejecutar(u"update subitems set cancelaciones = 'OK' where interno = 'A1'"_s);
    EXPECT_FALSE(EliminarSinPreguntar(*ctx, u"A1"_s));
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(cuantas("subitems", "A1"), "1"_L1);
    EXPECT_EQ(cuantas("caratula", "A1"), "1"_L1);
}

TEST_P(Ciclo, InputsAreGivenBackLineByLineAndARefusalIsNotLookedAt) {
    for (const char *estado : {"OK", "", "ok "})
        ejecutar("insert into subitems (interno,cancelaciones,idcatalogo,idarticulo) values ('A1','"_L1 +
                 L(estado) + "','CAT','ART')"_L1);
    const QString id = valor(u"select id from subitems where cancelaciones = 'OK' order by id"_s);
    LibreriaDeInsumos libreria;
    libreria.acepta = false;
    EXPECT_TRUE(EliminarSinPreguntar(*ctx, u"A1"_s));
    EXPECT_EQ(libreria.enlaces, 1);
    EXPECT_EQ(libreria.pedidos("EliminarInsumo"), ("A1|CAT|ART|"_L1 + id).toStdString());
    EXPECT_EQ(cuantas("subitems", "A1"), "0"_L1);
}

TEST_P(Ciclo, TheKindOfASubregimeIsReadByItsOwnStatement) {
    ejecutar(u"insert into sta (id,cstaimpexp) values ('IC04','I')"_s, u"SYSTABLAS"_s);
    EXPECT_EQ(getTypeOPfromSubReg(*ctx, u"IC04"_s), "I"_L1);
    EXPECT_EQ(getTypeOPfromSubReg(*ctx, u"XX99"_s), ""_L1);
}

EN_AMBOS_STORES(Ciclo);

}  // namespace
