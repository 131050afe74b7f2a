// What becomes of an operation whose key is taken, and of one that cannot come in.

#include "frame/base/values.h"
#include "header/automotive.h"
#include "operations/exchangefile.h"
#include "operations/operationrows.h"
#include "tests/exchange/oficinas.h"

using namespace Qt::StringLiterals;
using namespace intercambio;

namespace {

const QString unaImpo = u"IC-2026-0001"_s;
const QString unaExpo = u"EC-2026-0002"_s;

class Decisiones : public DosOficinas {
 protected:
    void SetUp() override {
        DosOficinas::SetUp();
        exportar({unaImpo, unaExpo}, en("dos.zop"));
    }
    Importacion importar(const std::map<QString, Plan> &plan, const std::function<bool()> &detener = {}) {
        return Importar(*ctx, en("dos.zop"), plan, detener);
    }
    QString cliente(const QString &clave) {
        return valor(u"select factura7 from caratula where interno = '%1'"_s.arg(clave));
    }
    /// Changes the operation of the store, so that it is told from that of the file.
    void cambiarla() {
        ejecutar(u"update caratula set factura7 = 'OTRO' where interno = 'IC-2026-0001'"_s);
        ejecutar(u"insert into subitems (interno) values ('IC-2026-0001')"_s);
        ejecutar(u"update coment set coment = 'otro' where interno = 'IC-2026-0001'"_s, u"SYSTABLAS"_s);
    }
};
EN_AMBOS_STORES(Decisiones);

TEST_P(Decisiones, TheContentsAreToldWithoutTouchingTheStore) {
    const ContenidoDeArchivo c = Mirar(*ctx, en("dos.zop"));
    EXPECT_EQ(c.defecto, QString());
    ASSERT_EQ(c.operaciones.size(), 2U);
    const OperacionEnArchivo &una = c.operaciones[0];
    EXPECT_EQ(una.clave, unaImpo);
    EXPECT_EQ(una.subregimen, u"IC04"_s);
    EXPECT_EQ(una.cliente, u"HIDRAULICA DEL PLATA S.A."_s);
    EXPECT_EQ(QString::number(una.lineas),
              valor(u"select count(*) as n from subitems where interno = 'IC-2026-0001'"_s));
    EXPECT_EQ(una.items, 0) << "it was not armed";
    EXPECT_GT(una.filas, una.lineas);
    EXPECT_EQ(c.operaciones[1].clave, unaExpo);
}

TEST_P(Decisiones, WhatIsLeftOutStaysAsItIs) {
    cambiarla();
    const QString antes = cuentas(*ctx, unaImpo);
    const Importacion r = importar({{unaImpo, {Decision::Omitir}}});
    EXPECT_EQ(r.resumen(), u"Se omitieron 2."_s);
    EXPECT_EQ(cuentas(*ctx, unaImpo), antes);
    EXPECT_EQ(cliente(unaImpo), u"OTRO"_s);
}

TEST_P(Decisiones, AReplacedOneIsThatOfTheFileAndNothingOfTheOldOneStays) {
    const QString antes = cuentas(*ctx, unaImpo);
    const QString comentario =
        valor(u"select coment from coment where interno = 'IC-2026-0001'"_s, u"SYSTABLAS"_s);
    cambiarla();
    ejecutar(u"insert into transferidas (interno,suma) values ('IC-2026-0001','x')"_s);
    GuardarAEC(*ctx, unaImpo, u"P"_s);
    const Importacion r = importar({{unaImpo, {Decision::Reemplazar}}});
    EXPECT_EQ(r.resumen(), u"Se reemplazó 1, se omitió 1."_s);
    EXPECT_EQ(cuentas(*ctx, unaImpo), antes);
    EXPECT_EQ(cliente(unaImpo), u"HIDRAULICA DEL PLATA S.A."_s);
    EXPECT_EQ(valor(u"select coment from coment where interno = 'IC-2026-0001'"_s, u"SYSTABLAS"_s),
              comentario);
    EXPECT_EQ(LeerAEC(*ctx, unaImpo), QString()) << "the answer was the other one's";
    exportar({unaImpo, unaExpo}, en("vuelta.zop"));
    EXPECT_EQ(expandido(en("dos.zop")), expandido(en("vuelta.zop")));
}

TEST_P(Decisiones, OneUnderAnotherKeyStandsBesideTheOldOneAndWasNeverHandedOver) {
    ejecutar(u"insert into transferidas (interno,suma) values ('IC-2026-0001','x')"_s);
    exportar({unaImpo, unaExpo}, en("dos.zop"));
    EXPECT_TRUE(Mirar(*ctx, en("dos.zop")).operaciones[0].transferida);
    const Importacion r = importar({{unaImpo, {Decision::OtraClave, u" NUEVA "_s}}});
    EXPECT_EQ(r.operaciones[0].destino, u"NUEVA"_s);
    EXPECT_EQ(r.resumen(), u"Se importó 1 operación, se omitió 1."_s);
    EXPECT_EQ(cuentas(*ctx, u"NUEVA"_s) + u",transferidas 1"_s, cuentas(*ctx, unaImpo));
    // Nothing of it names a line of the other.
    EXPECT_EQ(valor(u"select count(*) as n from groupsubitems g inner join subitems s on g.idsub = s.id "
                    "where g.interno = 'NUEVA' and s.interno <> 'NUEVA'"_s),
              u"0"_s);
}

TEST_P(Decisiones, AKeyThatIsTakenOrNoKeyIsRefusedAndNothingChanges) {
    const QString antes = cuentas(*ctx, unaImpo) + cuentas(*ctx, unaExpo);
    const std::pair<Plan, QString> casos[] = {
        {{Decision::Importar}, u"La operación IC-2026-0001 ya existe; elija otra clave o reemplácela."_s},
        {{Decision::OtraClave, u"ec-2026-0002"_s},
         u"La operación ec-2026-0002 ya existe; elija otra clave o reemplácela."_s},
        {{Decision::OtraClave, u"  "_s},
         u"La clave de una operación tiene entre 1 y 40 caracteres, sin apóstrofos ni caracteres de "
         "control; elija otra."_s},
        {{Decision::OtraClave, u"O'P"_s},
         u"La clave de una operación tiene entre 1 y 40 caracteres, sin apóstrofos ni caracteres de "
         "control; elija otra."_s},
        {{Decision::OtraClave, QString(41, u'K')},
         u"La clave de una operación tiene entre 1 y 40 caracteres, sin apóstrofos ni caracteres de "
         "control; elija otra."_s}};
    for (const auto &[plan, dice] : casos) {
        const Importacion r = importar({{unaImpo, plan}});
        EXPECT_EQ(r.operaciones[0].fin, Importada::Fin::Fallida);
        EXPECT_EQ(r.operaciones[0].aviso, u"No se importó la operación IC-2026-0001: "_s + dice);
        EXPECT_EQ(cuentas(*ctx, unaImpo) + cuentas(*ctx, unaExpo), antes);
    }
}

TEST_P(Decisiones, AFreeKeyIsTheNextNumberWithinFortyCharacters) {
    EXPECT_EQ(ClaveLibre(*ctx, unaImpo), u"IC-2026-0001-2"_s);
    EXPECT_EQ(ClaveLibre(*ctx, unaImpo, {u"ic-2026-0001-2"_s}), u"IC-2026-0001-3"_s);
    ejecutar(u"insert into caratula (interno) values ('IC-2026-0001-2')"_s);
    EXPECT_EQ(ClaveLibre(*ctx, unaImpo), u"IC-2026-0001-3"_s);
    EXPECT_EQ(ClaveLibre(*ctx, QString(40, u'K')), QString(38, u'K') + u"-2"_s);
}

TEST_P(Decisiones, OneThatIsOpenSomewhereIsNotReplacedAndOneOpenElsewhereIsNotExported) {
    ejecutar(u"insert into interno (interno,maquina) values ('IC-2026-0001','OTRA')"_s);
    cambiarla();
    const Importacion r = importar({{unaImpo, {Decision::Reemplazar}}});
    EXPECT_EQ(
        r.operaciones[0].aviso,
        u"No se importó la operación IC-2026-0001: La operación IC-2026-0001 está abierta por la PC OTRA; "
        "ciérrela y vuelva a importarla."_s);
    EXPECT_EQ(cliente(unaImpo), u"OTRO"_s);
    Exportacion e = Exportar(*ctx, {unaExpo, unaImpo}, en("otro.zop"));
    EXPECT_FALSE(e.hecho);
    EXPECT_EQ(e.aviso,
              u"El interno IC-2026-0001 está abierto por la PC OTRA; ciérrelo allá y vuelva a exportar."_s);
    EXPECT_EQ(bytesDe(en("otro.zop")), "<nada>");
    // This workstation's own dashboard writes nothing meanwhile.
    ejecutar(u"update interno set maquina = '%1'"_s.arg(ctx->PcName));
    EXPECT_TRUE(Exportar(*ctx, {unaImpo}, en("otro.zop")).hecho);
}

TEST_P(Decisiones, OneThatTheStockOfInputsKnowsIsNotReplaced) {
    const QString dice =
        u"No se importó la operación IC-2026-0001: La operación IC-2026-0001 tiene movimientos en el stock de insumos "
        "y no se reemplaza; impórtela con otra clave."_s;
    ejecutar(u"insert into stockmov (interno,idstock,descontado) values ('IC-2026-0001',1,2)"_s);
    EXPECT_EQ(importar({{unaImpo, {Decision::Reemplazar}}}).operaciones[0].aviso, dice);
    // Given back it is as if it had not taken.
    ejecutar(u"update stockmov set devuelta = "_s +
             ctx->DataManager.getDateFormatbyEntity(u"INTERNOS"_s, QDateTime::currentDateTime()));
    EXPECT_EQ(importar({{unaImpo, {Decision::Reemplazar}}}).operaciones[0].fin, Importada::Fin::Reemplazada);
    ejecutar(u"insert into stock (interno,idlinea) values ('IC-2026-0001',1)"_s);
    EXPECT_EQ(importar({{unaImpo, {Decision::Reemplazar}}}).operaciones[0].aviso, dice);
}

TEST_P(Decisiones, AFailureOfTheStoreHalfwayLeavesTheOldOneWholeAndTheOthersCome) {
    cambiarla();
    const QString antes = cuentas(*ctx, unaImpo);
    ejecutar(u"delete from caratula where interno = 'EC-2026-0002'"_s);
    // One row that the store does not take, behind all lines.
    ejecutar(u"create unique index uno_solo on facturas (interno,factura)"_s);
    QByteArray lineas = expandido(en("dos.zop"));
    lineas.truncate(lineas.lastIndexOf("{\"suma"));
    const qsizetype tabla = lineas.indexOf("\"tabla\":\"facturas\"");
    ASSERT_GT(tabla, 0);
    const qsizetype fila = lineas.indexOf('\n', tabla) + 1;
    const QByteArray factura = lineas.mid(fila, lineas.indexOf('\n', fila) - fila + 1);
    lineas.insert(fila, factura);
    const qsizetype cuenta = lineas.indexOf("\"filas\":") + 8;
    const qsizetype finDeCuenta = lineas.indexOf(',', cuenta) < 0
                                      ? lineas.indexOf('}', cuenta)
                                      : std::min(lineas.indexOf(',', cuenta), lineas.indexOf('}', cuenta));
    const int filas = lineas.mid(cuenta, finDeCuenta - cuenta).toInt();
    lineas.replace(cuenta, finDeCuenta - cuenta, QByteArray::number(filas + 1));
    comprimir(lineas, en("dos.zop"), true);
    const Importacion r = importar({{unaImpo, {Decision::Reemplazar}}, {unaExpo, {Decision::Importar}}});
    ASSERT_EQ(r.operaciones.size(), 2U) << r.defecto.toStdString();
    EXPECT_EQ(r.operaciones[0].fin, Importada::Fin::Fallida);
    EXPECT_EQ(cuentas(*ctx, unaImpo), antes);
    EXPECT_EQ(cliente(unaImpo), u"OTRO"_s);
    EXPECT_EQ(valor(u"select coment from coment where interno = 'IC-2026-0001'"_s, u"SYSTABLAS"_s),
              u"otro"_s);
    EXPECT_EQ(r.operaciones[1].fin, Importada::Fin::Importada);
}

TEST_P(Decisiones, RowsThatADeletionLeftUnderTheKeyDoNotMixWithTheNewOnes) {
    const QString antes = cuentas(*ctx, unaImpo);
    ejecutar(u"delete from caratula where interno = 'IC-2026-0001'"_s);
    EXPECT_EQ(importar({{unaImpo, {Decision::Importar}}}).operaciones[0].fin, Importada::Fin::Importada);
    EXPECT_EQ(cuentas(*ctx, unaImpo), antes);
}

TEST_P(Decisiones, TheUserStopsBetweenTwoOperations) {
    for (const QString &clave : {unaImpo, unaExpo})
        ejecutar(u"delete from caratula where interno = '%1'"_s.arg(clave));
    int preguntas = 0;
    const Importacion r = importar({{unaImpo, {Decision::Importar}}, {unaExpo, {Decision::Importar}}},
                                   [&preguntas] { return ++preguntas > 1; });
    EXPECT_EQ(r.resumen(), u"Se importó 1 operación, quedó 1 sin importar."_s);
    EXPECT_EQ(cliente(unaImpo), u"HIDRAULICA DEL PLATA S.A."_s);
    EXPECT_EQ(cliente(unaExpo), u"<nada>"_s);
}

TEST_P(Decisiones, AnOperationThatIsGoneLeavesNoFileAndAnEarlierFileStays) {
    const QByteArray antes = bytesDe(en("dos.zop"));
    const Exportacion e = Exportar(*ctx, {unaImpo, u"NO HAY"_s}, en("dos.zop"));
    EXPECT_FALSE(e.hecho);
    EXPECT_EQ(e.aviso, u"No se encontró el interno NO HAY; vuelva a buscarlo en la lista."_s);
    EXPECT_EQ(bytesDe(en("dos.zop")), antes);
    EXPECT_EQ(Exportar(*ctx, {}, en("dos.zop")).aviso, u"Elija al menos una operación para exportar."_s);
    EXPECT_TRUE(Exportar(*ctx, {unaImpo}, en("no/hay/x.zop")).aviso.contains(u"no existe; elija otra"_s));
}

TEST_P(Decisiones, TheExportTellsHowManyAndWhereAndTakesEachOnce) {
    const Exportacion e = Exportar(*ctx, {unaImpo, unaExpo, unaImpo}, en("tres.zop"));
    EXPECT_EQ(e.operaciones, 2);
    EXPECT_EQ(e.aviso, u"Se exportaron 2 operaciones en %1 (%2 bytes)."_s.arg(en("tres.zop"))
                           .arg(bytesDe(en("tres.zop")).size()));
    EXPECT_EQ(bytesDe(en("tres.zop")), bytesDe(en("dos.zop")));
    EXPECT_FALSE(registro.avances.empty());
}

}  // namespace
