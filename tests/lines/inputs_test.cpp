// The inputs link, through a double that answers true and false.

#include <gtest/gtest.h>

#include "tests/lines/lineas.h"

using namespace Qt::StringLiterals;

namespace {

class Insumos : public Lineas {
 protected:
    void SetUp() override {
        Lineas::SetUp();
        insumos::crearEnlace = [this] {
            insumos::Enlace e;
            e.EstadoConexion = [this] { return conectado; };
            e.ConectarDB = [this](const QString &clave) { externo = clave; };
            e.Mostrar = [this] { return eleccion; };
            e.AgregarInsumo = [this](const insumos::Toma &toma, double &cif) {
                tomas.push_back(toma);
                cif = 12.75;
                return acepta;
            };
            e.EliminarInsumo = [this](const QString &, const QString &catalogo, const QString &articulo,
                                      qint64 subitem) {
                devueltos << u"%1/%2/%3"_s.arg(catalogo, articulo).arg(subitem);
                return acepta;
            };
            return e;
        };
        abrirCon("EC02");
        eleccion = insumos::Eleccion{"INS01", "P-1", "Bomba", posBomba, "07", "10,5", "203", "AA01-AB(X 1)-"};
    }

    /// A line taken from the link, ready to be saved: 24 pumps at 10.5.
    void elegirLinea() {
        ASSERT_TRUE(SelectINSUMOS(*ctx, s));
        s.campos.TxtCantidad = "24";
        s.campos.TxtValorsobreestadistica = "24";
        CalcularFob(*ctx, s);
        s.campos.TxtFobTotal = "252.00";
    }

    bool conectado = true;
    bool acepta = true;
    QString externo;
    std::optional<insumos::Eleccion> eleccion;
    std::vector<insumos::Toma> tomas;
    QStringList devueltos;
};

TEST_P(Insumos, TheFieldsTakeWhatWasChosen) {
    ASSERT_TRUE(SelectINSUMOS(*ctx, s));
    EXPECT_EQ(externo, interno);
    const CamposSubItem &c = s.campos;
    EXPECT_EQ(c.TxtIdCatalogo.toStdString(), "INS01");
    EXPECT_EQ(c.txtIdArticulo.toStdString(), "P-1");
    EXPECT_EQ(c.TxtDescArticulos.toStdString(), "Bomba");
    EXPECT_EQ(c.TxtUnitario.toStdString(), "10.5");
    EXPECT_EQ(c.LbCodigoEstadistica.toStdString(), "07") << "ENTER ran on the position";
    EXPECT_EQ(c.LbDescUnidad.toStdString(), "UNIDAD") << "and on the unit";
    EXPECT_EQ(c.TxtIdpais.toStdString(), "203");
    EXPECT_EQ(c.txtSufijos.toStdString(), "AA01-AB(X 1)-");
    EXPECT_TRUE(s.articuloFijo);
    EXPECT_TRUE(s.VincularDatos);
}

TEST_P(Insumos, AnotherRegimeADeadLinkOrALeftListTakeNothing) {
    conectado = false;
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    conectado = true;
    eleccion.reset();
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    abrirCon("IC04");
    eleccion = insumos::Eleccion{};
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    EXPECT_EQ(s.campos.txtIdArticulo.toStdString(), "");
    EXPECT_FALSE(s.VincularDatos);
}

TEST_P(Insumos, AnAcceptedLineTakesItsValueAndItsMark) {
    elegirLinea();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("idcatalogo,idarticulo,insumostemp,cancelaciones"), "INS01|P-1|12.75|OK");
    ASSERT_EQ(tomas.size(), 1U);
    EXPECT_EQ(tomas[0].CATNRO.toStdString(), "INS01");
    EXPECT_EQ(tomas[0].PRDNRO.toStdString(), "P-1");
    EXPECT_EQ(tomas[0].Interno, interno);
    EXPECT_EQ(tomas[0].SUBITEM, grabacion.id);
    EXPECT_EQ(tomas[0].PRDCAN.toStdString(), "24.00");
}

// On an inputs regime, an insert that the link refuses leaves no row, and the user sees no separate message.
TEST_P(Insumos, ARefusedLineLeavesNoRowAndNoMessage) {
    elegirLinea();
    acepta = false;
    EXPECT_FALSE(grabar());
    EXPECT_TRUE(grabacion.rechazada);
    EXPECT_EQ(cuantas(), 0);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(s.lbDIF.toStdString(), "1000.00");
}

TEST_P(Insumos, ARefusalTakesOnlyTheNewLineOfTheArticle) {
    elegirLinea();
    ASSERT_TRUE(grabar());
    const qint64 primera = grabacion.id;
    elegirLinea();
    acepta = false;
    EXPECT_FALSE(grabar());
    EXPECT_EQ(linea("id"), std::to_string(primera));
}

TEST_P(Insumos, AFlaggedLineIsStoredWithItsMark) {
    eleccion->ERR = true;
    abrirCon("IC04");  // no inputs are taken here, so the mark stays as inserted
    s.marcaERR = true;
    llenarBomba();
    ASSERT_TRUE(grabar());
    EXPECT_EQ(linea("cancelaciones"), "ERR");
    EXPECT_TRUE(tomas.empty());
}

TEST_P(Insumos, TheFlagOfTheChosenRowIsTaken) {
    eleccion->ERR = true;
    ASSERT_TRUE(SelectINSUMOS(*ctx, s));
    EXPECT_TRUE(s.marcaERR);
}

TEST_P(Insumos, WithoutTheLibraryALineIsPlain) {
    insumos::crearEnlace = nullptr;
    abrirCon("EC02");
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    llenarBomba();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("cancelaciones,insumostemp"), "|0");
}

TEST_P(Insumos, DeletingGivesTheInputsBack) {
    elegirLinea();
    ASSERT_TRUE(grabar());
    const qint64 id = grabacion.id;
    acepta = false;
    registro.respuestas = {true, true};
    EXPECT_FALSE(EliminarSubItem(*ctx, s, id));
    EXPECT_EQ(ultimoMensaje(), "Error en eliminar la relacion con insumos");
    EXPECT_EQ(cuantas(), 1);
    acepta = true;
    EXPECT_TRUE(EliminarSubItem(*ctx, s, id));
    EXPECT_EQ(cuantas(), 0);
    EXPECT_EQ(devueltos.back(), u"INS01/P-1/%1"_s.arg(id));
}

EN_AMBOS_STORES(Insumos);

}  // namespace
