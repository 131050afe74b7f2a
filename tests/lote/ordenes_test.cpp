// The commands of the batch program, on the demonstration operations of both stores.

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QJsonArray>

#include "frame/startup.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Ordenes : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        configurar("IVARIN=21\r\nIVARNI=10,5\r\n");
    }
    bool conDemostracion() const override { return true; }

    QString en(const char *nombre) const { return tienda->carpeta() + QLatin1Char('/') + L(nombre); }
    /// The configuration file that goes with the profile.
    void configurar(const QByteArray &general) const {
        const QByteArray carpeta = tienda->carpeta().toUtf8() + '/';
        Escribir(tienda->carpeta(), u"Prueba.perfil.cfg"_s,
                 "[BASESERVER]\r\nINTERNO=" + carpeta + "\r\nPERSONAL=" + carpeta + "\r\nNCM=" + carpeta +
                     "\r\nESTADO=" + carpeta + "\r\n[BASELOCAL]\r\nUSUARIO=" + carpeta + "\r\n[GENERAL]\r\n" +
                     general);
    }
    Corrida lote(const QStringList &orden, const char *respuestas = "", const char *opciones = "") const {
        QStringList argumentos{"--perfil", tienda->perfil(), "--ajustes", en("lote.ini")};
        if (*respuestas != '\0')
            argumentos << "--respuestas" << Escribir(tienda->carpeta(), u"respuestas.json"_s, respuestas);
        if (*opciones != '\0')
            argumentos << "--opciones" << Escribir(tienda->carpeta(), u"opciones.json"_s, opciones);
        const Corrida c = Lote(tienda->carpeta(), argumentos + orden);
        EXPECT_EQ(c.errores, QString());
        EXPECT_TRUE(c.ilegibles.isEmpty()) << c.ilegibles.join('\n').toStdString();
        EXPECT_FALSE(c.lineas.empty());
        EXPECT_EQ(c.resultado().value("resultado"_L1).toString(), orden[0]);
        EXPECT_EQ(c.resultado().value("estado"_L1).toInt(), c.estado);
        return c;
    }
    /// Sets the armed mark and arms.
    Corrida armar(const char *clave, const char *respuestas = "", const char *opciones = "") {
        ejecutar("update caratula set factura8 = 'S' where interno = '"_L1 + L(clave) + "'"_L1);
        const Corrida c = lote({"armar", L(clave)}, respuestas, opciones);
        EXPECT_EQ(c.estado, 0) << c.textos().join('\n').toStdString();
        EXPECT_EQ(c.resultado().value("armado"_L1).toString(), "SI"_L1);
        return c;
    }
    int cuantas(const char *tabla, const char *clave, const char *cola = "") {
        return valor("select count(*) as n from "_L1 + L(tabla) + " where interno = '"_L1 + L(clave) +
                     "'"_L1 + L(cola))
            .toInt();
    }
};

TEST_P(Ordenes, ArmingEndsWithItsResultAndGivesTheOperationBack) {
    const Corrida c = lote({"armar", "IC-2026-0001"});
    EXPECT_EQ(c.estado, 0);
    const QJsonObject r = c.resultado();
    EXPECT_EQ(r.value("interno"_L1).toString(), "IC-2026-0001"_L1);
    EXPECT_EQ(r.value("armado"_L1).toString(), "SI"_L1);
    EXPECT_TRUE(r.value("corrida"_L1).toBool());
    EXPECT_EQ(r.value("grupos"_L1).toInt(), cuantas("groupsubitems", "IC-2026-0001"));
    EXPECT_EQ(r.value("items"_L1).toInt(), cuantas("item", "IC-2026-0001", " and id<>0"));
    EXPECT_GT(r.value("items"_L1).toInt(), 0);
    EXPECT_GT(cuantas("itemliq", "IC-2026-0001"), 0);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IC-2026-0001'"_s), "N"_L1);
    EXPECT_EQ(cuantas("interno", "IC-2026-0001"), 0) << "the lock is given back";
}

TEST_P(Ordenes, AnArmedOperationIsNotArmedAgainUnlessForced) {
    armar("IT-2026-0003");
    ejecutar(u"update item set descripcion = 'marca' where interno = 'IT-2026-0003'"_s);
    Corrida c = lote({"armar", "IT-2026-0003"});
    EXPECT_EQ(c.resultado().value("armado"_L1).toString(), "SI"_L1);
    EXPECT_FALSE(c.resultado().value("corrida"_L1).toBool());
    EXPECT_GT(cuantas("item", "IT-2026-0003", " and descripcion = 'marca'"), 0) << "untouched";
    c = lote({"armar", "IT-2026-0003", "--forzar"});
    EXPECT_TRUE(c.resultado().value("corrida"_L1).toBool());
    EXPECT_EQ(cuantas("item", "IT-2026-0003", " and descripcion = 'marca'"), 0);
}

TEST_P(Ordenes, RecalculatingWritesTheDutiesAndTellsTheTotals) {
    armar("IC-2026-0001", "", R"({"ARMARITEM":1})");
    const Corrida c = lote({"liquidar", "IC-2026-0001"});
    EXPECT_EQ(c.estado, 0);
    // Item 3, screws: base 703.9494 (604.80 euros at 1.085, freight 39.08, insurance 6.82 at 1.27). Duty of
    // 25 % 175.99, statistics of 3 % 21.12, VAT of 21 % on 901.0594: 189.22.
    EXPECT_EQ(filas(u"select idconceptos,total from itemliq where interno = 'IC-2026-0001' and "
                    "iditem = 3 and idconceptos in ('010','011','415') order by idconceptos"_s)
                  .toStdString(),
              "010|175.99\n011|21.12\n415|189.22");
    // What is told in the workstation's separator is what the rows hold.
    const QJsonObject fin = c.resultado();
    const auto dicho = [](const QJsonValue &v) { return v.toString().replace(',', '.').toDouble(); };
    for (const char *concepto : {"010", "011", "415"}) {
        double suma = 0;
        for (const QJsonValue &v : fin.value("conceptos"_L1).toArray())
            if (v.toObject().value("numero"_L1).toString() == L(concepto))
                suma += dicho(v.toObject().value("total"_L1));
        EXPECT_NEAR(suma,
                    valor("select sum(total) as t from itemliq where interno = 'IC-2026-0001' and iditem <> "
                          "'0' and idconceptos = '"_L1 +
                          L(concepto) + "'"_L1)
                        .toDouble(),
                    0.005)
            << concepto;
    }
    double total = 0;
    for (const QJsonValue &v : fin.value("conceptos"_L1).toArray())
        total += dicho(v.toObject().value("total"_L1));
    EXPECT_NEAR(dicho(fin.value("totalP"_L1)), total, 0.005) << "an import to consumption pays everything";
    EXPECT_EQ(fin.value("totalG"_L1).toString(), "00,00"_L1);
    EXPECT_EQ(fin.value("totalC"_L1).toString(), "00,00"_L1);
    EXPECT_EQ(cuantas("interno", "IC-2026-0001"), 0);
}

TEST_P(Ordenes, RecalculatingAnOperationWithoutItemsLeavesTheFourBaseRowsAndNothingElse) {
    ejecutar(u"insert into liqcero (interno, idconcepto, valor) values ('IC-2026-0001', '010', 5)"_s);
    const Corrida c = lote({"liquidar", "IC-2026-0001"});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.textos(), QStringList());
    EXPECT_EQ(
        filas(u"select idconcepto,valor from liqcero where interno = 'IC-2026-0001' order by idconcepto"_s)
            .toStdString(),
        "###ajded|0\n###ajinc|0\n###baseimp|0\n###baseiva|0");
    EXPECT_EQ(cuantas("item", "IC-2026-0001"), 0);
    EXPECT_EQ(cuantas("itemliq", "IC-2026-0001"), 0);
    EXPECT_EQ(c.resultado().value("totalP"_L1).toString(), "00,00"_L1);
    EXPECT_EQ(c.resultado().value("baseImponible"_L1).toString(), "00,00"_L1);
    EXPECT_TRUE(c.resultado().value("conceptos"_L1).toArray().isEmpty());
    EXPECT_EQ(cuantas("interno", "IC-2026-0001"), 0) << "the lock is given back";
}

TEST_P(Ordenes, CheckingTellsTheDifferencesAsAReport) {
    armar("IC-2026-0001");
    Corrida c = lote({"comprobar", "IC-2026-0001"});
    EXPECT_EQ(c.estado, 0);
    EXPECT_FALSE(c.resultado().value("diferencias"_L1).toBool());
    EXPECT_TRUE(c.mensajes().empty());
    ejecutar(u"update item set idpais = '999' where interno = 'IC-2026-0001' and id = 1"_s);
    c = lote({"comprobar", "IC-2026-0001"});
    EXPECT_EQ(c.estado, 0);
    EXPECT_TRUE(c.resultado().value("diferencias"_L1).toBool());
    ASSERT_EQ(c.mensajes().size(), 1U);
    EXPECT_EQ(c.mensajes()[0].value("tipo"_L1).toString(), "informe"_L1);
    EXPECT_EQ(c.mensajes()[0].value("titulo"_L1).toString(),
              "Zendra v3 - Reporte de Diferencias Encontradas."_L1);
    EXPECT_TRUE(c.textos()[0].contains("ITEM=999"_L1)) << c.textos()[0].toStdString();
}

TEST_P(Ordenes, CreatingWritesHeaderAndSettingsAndRefusesAKeyThatExists) {
    Corrida c = lote({"crear", " Ñandú/1 "});
    EXPECT_EQ(c.estado, 0);
    EXPECT_TRUE(c.resultado().value("creado"_L1).toBool());
    EXPECT_EQ(c.resultado().value("interno"_L1).toString(), u"Ñandú/1"_s);
    EXPECT_EQ(valor(u"select ONCCAHabilitado from caratula where interno = 'Ñandú/1'"_s), "N"_L1);
    EXPECT_EQ(Ajustes(en("lote.ini")).Leer(u"ZENDRA"_s, u"Ñandú/1"_s, u"FLAG7"_s), "1"_L1);
    c = lote({"crear", "ÑaNDú/1"});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList{u"El Código de interno ya existe."_s});
    EXPECT_FALSE(c.resultado().value("creado"_L1).toBool());
}

TEST_P(Ordenes, DeletingAsksAndOnlyYesRemoves) {
    for (const char *respuestas : {"", R"(["No"])", R"(["Tal vez"])"}) {
        const Corrida c = lote({"borrar", "IT-2026-0003"}, respuestas);
        EXPECT_EQ(c.estado, 0);
        EXPECT_FALSE(c.resultado().value("borrado"_L1).toBool());
        EXPECT_EQ(c.textos(), QStringList{u"Confirma eliminar el interno IT-2026-0003"_s});
    }
    EXPECT_EQ(cuantas("caratula", "IT-2026-0003"), 1);
    const Corrida c = lote({"borrar", "IT-2026-0003"}, R"(["Si"])");
    EXPECT_EQ(c.estado, 0);
    EXPECT_TRUE(c.resultado().value("borrado"_L1).toBool());
    EXPECT_EQ(cuantas("caratula", "IT-2026-0003"), 0);
    EXPECT_EQ(cuantas("subitems", "IT-2026-0003"), 0);
    EXPECT_EQ(cuantas("caratula", "IC-2026-0001"), 1);
}

TEST_P(Ordenes, ListingGivesEveryOperationALine) {
    configurar("OPERACIONESMOSTRARTODO=N\r\n");
    for (int n = 0; n < 60; ++n) ejecutar(u"insert into caratula (interno) values ('Z%1')"_s.arg(n));
    const Corrida c = lote({"listar"});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value("cantidad"_L1).toInt(), 68) << "the fifty of the screen are the screen's";
    ASSERT_EQ(c.mensajes().size(), 68U);
    for (const QJsonObject &o : c.mensajes()) EXPECT_EQ(o.value("tipo"_L1).toString(), "operacion"_L1);
    const QJsonObject o = c.mensajes()[4];
    EXPECT_EQ(o.value("interno"_L1).toString(), "IC-2026-0001"_L1);
    EXPECT_EQ(o.value("clase"_L1).toString(), "Importacion"_L1);
    EXPECT_EQ(o.value("subregimen"_L1).toString(), "IC04"_L1);
    EXPECT_EQ(o.value("cliente"_L1).toString(), "HIDRAULICA DEL PLATA S.A."_L1);
    EXPECT_TRUE(o.value("detalle"_L1).toString().endsWith("Creado : lunes, 12 de enero de 2026"_L1));
    EXPECT_EQ(Ajustes(en("lote.ini")).Leer(u"ZENDRA"_s, u"APLICACION"_s, u"INTERNO_NRO"_s, u"<nada>"_s),
              "<nada>"_L1)
        << "what the browser looked for last is the browser's";
}

TEST_P(Ordenes, AKeyThatIsNotThereIsToldByEveryCommandThatNeedsIt) {
    for (const char *comando : {"armar", "liquidar", "comprobar", "borrar"}) {
        const Corrida c = lote({L(comando), "NO-HAY"});
        EXPECT_EQ(c.estado, 1) << comando;
        ASSERT_EQ(c.textos().size(), 1) << comando;
        EXPECT_TRUE(c.textos()[0].contains("NO-HAY"_L1)) << c.textos()[0].toStdString();
        EXPECT_EQ(cuantas("interno", "NO-HAY"), 0) << comando;
    }
}

TEST_P(Ordenes, EveryMessageAndQuestionIsALineWithItsFiveMembers) {
    const QStringList miembros{"icono", "respuesta", "texto", "tipo", "titulo"};
    int vistos = 0;
    for (const char *clave : {"EC-2026-0002", "DJAI-2026-0004", "ICR-2026-0005"}) {
        for (const QJsonObject &o : armar(clave).mensajes()) {
            EXPECT_EQ(o.keys(), miembros) << clave;
            ++vistos;
        }
    }
    EXPECT_GE(vistos, 6);
    const std::vector<QJsonObject> liquidada = lote({"liquidar", "ICR-2026-0005"}).mensajes();
    ASSERT_EQ(liquidada.size(), 1U);
    EXPECT_EQ(liquidada[0].value("tipo"_L1).toString(), "pregunta"_L1);
    EXPECT_EQ(liquidada[0].value("titulo"_L1).toString(), u" Régimen Automotriz"_s);
    EXPECT_EQ(liquidada[0].value("respuesta"_L1).toString(), "No"_L1);
    EXPECT_EQ(liquidada[0].value("opciones"_L1).toArray().size(), 2);
}

TEST_P(Ordenes, AnswersAreConsumedInOrderAndBehindTheLastStandNoAndTheEmptyText) {
    // The automotive import types its number in one box; nothing behind it asks.
    Corrida c = armar("ICR-2026-0005", R"(["26001ICR3000123A","Si"])");
    QStringList dichas;
    for (const QJsonObject &o : c.mensajes())
        if (!o.value("respuesta"_L1).isNull()) dichas << o.value("respuesta"_L1).toString();
    EXPECT_EQ(dichas.join('|').toStdString(), "26001ICR3000123A");
    c = armar("ICR-2026-0005");
    dichas.clear();
    for (const QJsonObject &o : c.mensajes())
        if (!o.value("respuesta"_L1).isNull()) dichas << o.value("respuesta"_L1).toString();
    EXPECT_EQ(dichas.join('|').toStdString(), "");
    EXPECT_EQ(dichas.size(), 1);

    c = armar("EC-2026-0002", R"(["Si"])");
    ASSERT_EQ(c.mensajes().size(), 1U);
    EXPECT_EQ(c.mensajes()[0].value("respuesta"_L1).toString(), "Si"_L1);
    c = armar("EC-2026-0002");
    EXPECT_EQ(c.mensajes()[0].value("respuesta"_L1).toString(), "No"_L1);
}

TEST_P(Ordenes, TheAutomotiveAnswerIsKeptAndNotAskedAgain) {
    armar("ICR-2026-0005");
    EXPECT_EQ(lote({"liquidar", "ICR-2026-0005"}, R"(["R"])").mensajes().size(), 1U);
    EXPECT_EQ(lote({"liquidar", "ICR-2026-0005"}).mensajes().size(), 0U);
}

TEST_P(Ordenes, AnotherWorkstationsLockStopsTheWorkAndAStaleOneOfThisDoesNot) {
    ejecutar(
        u"insert into interno (interno,maquina,usuario,fecha) values ('IT-2026-0003',"
        "'ADUANA-7','','2026-01-12 10:30:00')"_s);
    for (const char *comando : {"armar", "liquidar"}) {
        const Corrida c = lote({L(comando), "IT-2026-0003"});
        EXPECT_EQ(c.estado, 1) << comando;
        EXPECT_EQ(c.textos(),
                  QStringList{"Este interno esta abierto por la PC: ADUANA-7\r\n\r\nAccedido el lunes, 12 de "
                              "enero de 2026"});
    }
    EXPECT_EQ(cuantas("item", "IT-2026-0003"), 0);
    EXPECT_EQ(cuantas("interno", "IT-2026-0003"), 1) << "the lock stays";
    ejecutar("update interno set maquina = '"_L1 + NombreDeLaPC() + "'"_L1);
    const Corrida c = lote({"armar", "IT-2026-0003"});
    EXPECT_EQ(c.estado, 0);
    ASSERT_FALSE(c.textos().isEmpty());
    EXPECT_TRUE(c.textos()[0].startsWith("El estado de INTERNO indica que el mismo esta abierto."_L1));
    EXPECT_EQ(cuantas("interno", "IT-2026-0003"), 0);
}

TEST_P(Ordenes, AStoreThatFailsOnTheWayIsAMessageAndStatusOneAndTheLockIsGivenBack) {
    ejecutar(u"alter table iteminfo rename to escondida"_s);
    Corrida c = lote({"armar", "IT-2026-0003"});
    EXPECT_EQ(c.estado, 1);
    ASSERT_FALSE(c.mensajes().empty());
    EXPECT_EQ(c.mensajes().back().value("icono"_L1).toString(), "critico"_L1);
    EXPECT_TRUE(c.textos().last().contains("iteminfo"_L1)) << c.textos().last().toStdString();
    EXPECT_EQ(cuantas("interno", "IT-2026-0003"), 0);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IT-2026-0003'"_s), "S"_L1)
        << "still to be armed";
    ejecutar(u"alter table escondida rename to iteminfo"_s);
    c = lote({"armar", "IT-2026-0003"});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value("armado"_L1).toString(), "SI"_L1);

    ejecutar(u"alter table liqcero rename to escondida"_s);
    c = lote({"liquidar", "IT-2026-0003"});
    EXPECT_EQ(c.estado, 1);
    EXPECT_FALSE(c.textos().isEmpty());
    EXPECT_EQ(cuantas("interno", "IT-2026-0003"), 0);
}

TEST_P(Ordenes, AKeyWithAQuoteIsRefusedInOneSentence) {
    for (const char *comando : {"armar", "borrar"}) {
        const Corrida c = lote({L(comando), "x' or '1'='1"}, R"(["Si"])");
        EXPECT_EQ(c.estado, 1) << comando;
        EXPECT_EQ(c.textos(),
                  QStringList(u"El código \"x' or '1'='1\" tiene un apóstrofo, que un código no lleva; "
                              "quítelo y vuelva a intentar."_s))
            << comando;
    }
    const Corrida c = lote({"crear", "O'Higgins"});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(),
              QStringList(u"La clave de una operación tiene entre 1 y 40 caracteres, sin apóstrofos ni "
                          "caracteres de control; elija otra."_s));
}

TEST_P(Ordenes, SettingsElsewhereTouchNothingOfTheUsers) {
    lote({"crear", "N1"});
    armar("IC-2026-0001");
    lote({"liquidar", "IC-2026-0001"});
    lote({"borrar", "N1"}, R"(["Si"])");
    lote({"listar"});
    const auto archivos = [this] {
        QStringList todos;
        for (QDirIterator d(en("casa"), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
             d.hasNext();)
            todos << d.next();
        return todos;
    };
    EXPECT_TRUE(archivos().isEmpty()) << archivos().join('\n').toStdString();
    EXPECT_TRUE(QFile::exists(en("lote.ini")));
    // Without the option it is the user's own area.
    const Corrida c = Lote(tienda->carpeta(), {"--perfil", tienda->perfil(), "crear", "N2"});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(archivos().size(), 1) << archivos().join('\n').toStdString();
}

TEST_P(Ordenes, TheTraceTellsTimeRowsEntityAndText) {
    const Corrida c = Lote(tienda->carpeta(), {"--perfil", tienda->perfil(), "--ajustes", en("lote.ini"),
                                               "--traza", en("traza.txt"), "comprobar", "IC-2026-0001"});
    EXPECT_EQ(c.estado, 0);
    QFile f(en("traza.txt"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QStringList lineas = QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts);
    ASSERT_FALSE(lineas.isEmpty());
    int cabeceras = 0;
    for (const QString &linea : lineas) {
        const QStringList partes = linea.split('\t');
        ASSERT_EQ(partes.size(), 4) << linea.toStdString();
        EXPECT_GE(partes[0].toLongLong(), 0);
        if (partes[3].startsWith("Select DCPaisOrigen"_L1)) {
            ++cabeceras;
            EXPECT_EQ(partes[2], "INTERNOS"_L1);
            EXPECT_EQ(partes[1], "1"_L1);
        }
    }
    EXPECT_EQ(cabeceras, 1);
}

EN_AMBOS_STORES(Ordenes);

}  // namespace
