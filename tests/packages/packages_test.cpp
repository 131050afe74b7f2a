// The packages of an operation and the book of transport agents, without a screen.

#include <gtest/gtest.h>

#include "header/packages.h"
#include "header/transportagents.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const QString operacion = u"OP 1"_s;
const QString entidadPersonal = u"PERSONAL"_s;
/// 3·5 + 0·4 + 5·3 + 0·2 + 0·7 + 0·6 + 0·5 + 0·4 + 0·3 + 1·2 = 32; 32 mod 11 = 10; 11 - 10 = 1.
const QString cuitValido = u"30500000011"_s;
const QDate hoyDePrueba(2026, 11, 21);

class Packages : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(u"insert into caratula (interno,factura8) values ('OP 1','N')"_s);
        ejecutar(u"insert into caratula (interno,factura8) values ('OTRA','N')"_s);
    }
    std::string guardado(const QString &columnas, const QString &cual = operacion) {
        return filas("select "_L1 + columnas + " from caratula where interno = '"_L1 + cual + "'"_L1)
            .toStdString();
    }
    static Bultos llenos() {
        Bultos b;
        b.TxtNroBultos = u"12"_s;
        b.TxtCodigo = u"05"_s;
        b.TxtTipo = u"B"_s;
        b.TxtPeso = u"1250,5"_s;
        b.TxtBultDesp = u"12"_s;
        b.TxtMarcaBul = u"S/M 'x'"_s;
        b.TxtVia = u"8"_s;
        b.TxtNomTrans = u"D'Artagnan"_s;
        b.TxtBandera = u"203"_s;
        b.TxtCuit = cuitValido;
        b.TxtNombreTrans = u"Naviera"_s;
        b.TxtVencimiento = u"5/12/26"_s;
        return b;
    }
    std::string ultimo() const {
        return registro.mensajes.empty() ? std::string() : registro.mensajes.back().texto.toStdString();
    }
};
EN_AMBOS_STORES(Packages);

TEST_P(Packages, EveryFieldIsWrittenAndComesBackAsItWasTyped) {
    ASSERT_TRUE(GuardarBultos(*ctx, operacion, llenos(), hoyDePrueba).ok);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(guardado(u"marcabul,bulnro,via,trans,bandera,cuittrans,factura9,factura10,bulcod,bultip,bulpes,"
                       "buldes,venemb"_s),
              "S/M 'x'|12|8|D'Artagnan|203|30500000011|1|Naviera|05|B|1250.5|12|05-12-26");
    EXPECT_EQ(guardado(u"factura9"_s, u"OTRA"_s), "<null>") << "no other operation";
    const Bultos b = CargarBultos(*ctx, operacion);
    EXPECT_TRUE(b.chTransBultos);
    EXPECT_EQ(b.TxtMarcaBul, u"S/M 'x'"_s);
    EXPECT_EQ(b.TxtPeso, u"1250.50"_s);
    EXPECT_EQ(b.TxtVencimiento, u"05/12/2026"_s);
    EXPECT_EQ(b.TxtNombreTrans, u"Naviera"_s);
}

TEST_P(Packages, AnUntickedBoxWritesOnlyItsMarkAndDiscardsWhatWasTyped) {
    Bultos b = llenos();
    b.chTransBultos = false;
    b.TxtVencimiento = u"nunca"_s;
    ASSERT_TRUE(GuardarBultos(*ctx, operacion, b, hoyDePrueba).ok);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimo(), "Eligio no transferir bultos, los datos no seran guardados");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(guardado(u"factura9,bulnro,marcabul,bulpes"_s), "1|<null>|<null>|<null>");
}

TEST_P(Packages, AnExpiryOfTodayIsRefusedAndOneOfTomorrowIsTaken) {
    Bultos b = llenos();
    b.TxtVencimiento = u"21/11/2026"_s;
    const Veredicto v = GuardarBultos(*ctx, operacion, b, hoyDePrueba);
    EXPECT_FALSE(v.ok);
    EXPECT_EQ(v.foco, u"TxtVencimiento"_s);
    EXPECT_EQ(ultimo(), "La fecha Vencimiento de Embarque debe ser superior a la del día.");
    EXPECT_EQ(guardado(u"factura9"_s), "<null>") << "nothing was written";
    b.TxtVencimiento = u"22-11-2026"_s;
    EXPECT_TRUE(GuardarBultos(*ctx, operacion, b, hoyDePrueba).ok);
    EXPECT_EQ(guardado(u"venemb"_s), "22-11-26");
}

TEST_P(Packages, AnExpiryThatIsNoDateIsRefused) {
    Bultos b = llenos();
    b.TxtVencimiento = u"31/02/2027"_s;
    EXPECT_EQ(GuardarBultos(*ctx, operacion, b, hoyDePrueba).foco, u"TxtVencimiento"_s);
    EXPECT_EQ(ultimo(), "En Vencimiendo de Embarque debe tener una fecha valida");
    EXPECT_EQ(guardado(u"factura9"_s), "<null>");
}

TEST_P(Packages, AnEmptyExpiryIsWrittenAsNull) {
    ASSERT_TRUE(GuardarBultos(*ctx, operacion, llenos(), hoyDePrueba).ok);
    Bultos b = llenos();
    b.TxtVencimiento = u"  "_s;
    ASSERT_TRUE(GuardarBultos(*ctx, operacion, b, hoyDePrueba).ok);
    EXPECT_EQ(guardado(u"venemb"_s), "<null>");
}

TEST_P(Packages, AWeightThatIsNoNumberIsRefusedAndABlankOneIsZero) {
    Bultos b = llenos();
    b.TxtPeso = u"mucho"_s;
    EXPECT_EQ(GuardarBultos(*ctx, operacion, b, hoyDePrueba).foco, u"TxtPeso"_s);
    EXPECT_EQ(guardado(u"factura9"_s), "<null>");
    b.TxtPeso.clear();
    EXPECT_TRUE(GuardarBultos(*ctx, operacion, b, hoyDePrueba).ok);
    EXPECT_EQ(guardado(u"bulpes"_s), "0");
}

TEST_P(Packages, AnOperationNeverAnsweredStartsWithTheBoxTicked) {
    const Bultos b = CargarBultos(*ctx, operacion);
    EXPECT_TRUE(b.chTransBultos);
    EXPECT_EQ(b.TxtPeso, u"00.00"_s);
    EXPECT_TRUE(b.TxtVencimiento.isEmpty());
    ejecutar(u"update caratula set factura9 = 'N' where interno = 'OP 1'"_s);
    EXPECT_FALSE(CargarBultos(*ctx, operacion).chTransBultos);
}

TEST_P(Packages, ANumberWithAWrongCheckDigitNeverReachesTheStore) {
    std::vector<QString> sentencias;
    Conexion::fijarTraza([&sentencias](const TrazaDeSentencia &t) { sentencias.push_back(t.sentencia); });
    QString nombre = u"antes"_s;
    EXPECT_EQ(BuscarAgente(*ctx, u"30500000012"_s, nombre), BusquedaDeAgente::CuitInvalido);
    EXPECT_FALSE(GuardarAgente(*ctx, {u"30500000012"_s, u"Otro"_s}, {}).ok);
    Conexion::fijarTraza({});
    EXPECT_TRUE(sentencias.empty());
    EXPECT_TRUE(nombre.isEmpty());
    EXPECT_EQ(ultimo(), "CUIT Incorrecto, ingreselo nuevamente");
}

TEST_P(Packages, AnAgentIsAddedFoundChangedAndDeleted) {
    QString nombre;
    EXPECT_EQ(BuscarAgente(*ctx, cuitValido, nombre), BusquedaDeAgente::NoEncontrado);
    ASSERT_TRUE(GuardarAgente(*ctx, {cuitValido, u"Naviera d'Or"_s}, {}).ok);
    EXPECT_EQ(BuscarAgente(*ctx, cuitValido, nombre), BusquedaDeAgente::Encontrado);
    EXPECT_EQ(nombre, u"Naviera d'Or"_s);

    EXPECT_EQ(GuardarAgente(*ctx, {cuitValido, u"Otra"_s}, {}).foco, u"TxtCuit"_s);
    EXPECT_EQ(ultimo(), "El CUIT ingresado ya existe en el sistema");
    EXPECT_EQ(GuardarAgente(*ctx, {cuitValido, u" "_s}, cuitValido).foco, u"TxtNombre"_s);

    ASSERT_TRUE(GuardarAgente(*ctx, {cuitValido, u"Otra"_s}, cuitValido).ok);
    ASSERT_EQ(CargarAgentes(*ctx).size(), 1U);
    EXPECT_EQ(CargarAgentes(*ctx)[0].nombre, u"Otra"_s);

    registro.respuestas = {false, true, true};
    EXPECT_FALSE(EliminarAgente(*ctx, cuitValido)) << "No";
    EXPECT_EQ(registro.preguntas.back().texto, u"Confirma eliminar el Agente de Tranporte seleccionado"_s);
    EXPECT_TRUE(EliminarAgente(*ctx, cuitValido));
    EXPECT_FALSE(EliminarAgente(*ctx, cuitValido)) << "gone already";
    EXPECT_EQ(ultimo(), "0 cero registros eliminados");
}

TEST_P(Packages, AgentsComeByName) {
    ejecutar(u"insert into transporte (cuit,nombre) values ('2','Zeta')"_s, entidadPersonal);
    ejecutar(u"insert into transporte (cuit,nombre) values ('1','Alfa')"_s, entidadPersonal);
    const auto agentes = CargarAgentes(*ctx);
    ASSERT_EQ(agentes.size(), 2U);
    EXPECT_EQ(agentes[0].nombre, u"Alfa"_s);
}

}  // namespace
