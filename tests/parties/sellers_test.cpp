// The book of sellers.

#include <gtest/gtest.h>

#include "frame/picklist.h"
#include "header/parties.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class Vendedores : public EnAmbosStores {
 protected:
    void agregar(const char *codigo, const char *nombre) {
        ejecutar(
            u"insert into vendedor (codigo,nombre,domicilio,paisdelexportador,nivel) values "
            "('%1','%2','Calle 1','438','VINCULADO')"_s.arg(QString::fromUtf8(codigo),
                                                            QString::fromUtf8(nombre)),
            personal);
    }
    std::string todos() {
        return filas(u"select codigo,nombre,domicilio,paisdelexportador,nivel from vendedor"_s, personal)
            .toStdString();
    }
    std::string ultimoMensaje() const {
        return registro.mensajes.empty() ? "<none>" : registro.mensajes.back().texto.toStdString();
    }
    const QString personal = u"PERSONAL"_s;
    const Vendedor nuevo{u"V9"_s, u"O'Hara & Cía"_s, u"Rue d'Or 3"_s, u"412"_s, {}};
};

TEST_P(Vendedores, AKnownCodeIsFoundWithoutAWord) {
    agregar("V1", "NORD");
    QString nombre;
    EXPECT_TRUE(BuscarVendedor(*ctx, u"V1"_s, nombre, {}));
    EXPECT_EQ(nombre.toStdString(), "NORD");
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(registro.preguntas.empty());
}

TEST_P(Vendedores, AnEmptyCodeIsToldAndSendsNothing) {
    const Traza traza;
    QString nombre = u"old"_s;
    EXPECT_FALSE(BuscarVendedor(*ctx, QString(), nombre, {}));
    EXPECT_EQ(ultimoMensaje(), "Falta Codigo de Vendedor para realizar la busqueda.");
    EXPECT_TRUE(nombre.isEmpty());
    EXPECT_EQ(traza.texto(), "");
}

TEST_P(Vendedores, AnUnknownCodeIsOfferedToBeAddedAndThenFound) {
    QString abierto;
    const auto alta = [&](const QString &codigo) {
        abierto = codigo;
        agregar("V7", "AGREGADO");
    };
    QString nombre;
    EXPECT_FALSE(BuscarVendedor(*ctx, u"V7"_s, nombre, alta));
    EXPECT_TRUE(abierto.isEmpty());
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "No se encontro este codigo en la lista de VENDEDORES.\r\nDesea AGREGARLO a la lista");

    registro.respuestas = {true};
    EXPECT_TRUE(BuscarVendedor(*ctx, u"V7"_s, nombre, alta));
    EXPECT_EQ(abierto.toStdString(), "V7");
    EXPECT_EQ(nombre.toStdString(), "AGREGADO");
}

TEST_P(Vendedores, TheAddScreenLeftWithoutSavingFindsNothing) {
    registro.respuestas = {true};
    QString nombre;
    EXPECT_FALSE(BuscarVendedor(*ctx, u"V7"_s, nombre, [](const QString &) {}));
    EXPECT_TRUE(nombre.isEmpty());
}

TEST_P(Vendedores, ANewSellerIsStoredAsTyped) {
    const Traza traza;
    EXPECT_EQ(GuardarVendedor(*ctx, nuevo, false), GuardadoDeVendedor::Guardado);
    EXPECT_EQ(traza.texto(),
              "PERSONAL|select count(1) as cont from vendedor where codigo = 'V9'\n"
              "PERSONAL|insert into vendedor (codigo,nombre,domicilio, paisdelexportador) values "
              "('V9','O''Hara & Cía','Rue d''Or 3','412')");
    EXPECT_EQ(ultimoMensaje(), "Datos ingresados correctamente.");
    EXPECT_EQ(todos(), "V9|O'Hara & Cía|Rue d'Or 3|412|<null>");
    const auto leido = CargarVendedor(*ctx, u"v9"_s);
    ASSERT_TRUE(leido.has_value());
    EXPECT_EQ(leido->nombre.toStdString(), "O'Hara & Cía");
    EXPECT_EQ(leido->paisdelexportador.toStdString(), "412");
    EXPECT_FALSE(CargarVendedor(*ctx, u"V8"_s).has_value());
}

TEST_P(Vendedores, ACodeThatExistsIsNotAddedTwice) {
    agregar("V9", "PRIMERO");
    EXPECT_EQ(GuardarVendedor(*ctx, nuevo, false), GuardadoDeVendedor::CodigoRepetido);
    EXPECT_EQ(ultimoMensaje(), "El codigo ya existe.!");
    EXPECT_EQ(todos(), "V9|PRIMERO|Calle 1|438|VINCULADO");
}

TEST_P(Vendedores, AChangeKeepsTheCodeAndWhatTheScreenDoesNotShow) {
    agregar("V9", "PRIMERO");
    agregar("V1", "OTRO");
    const Traza traza;
    EXPECT_EQ(GuardarVendedor(*ctx, nuevo, true), GuardadoDeVendedor::Guardado);
    EXPECT_EQ(traza.texto(),
              "PERSONAL|update vendedor set nombre = 'O''Hara & Cía', domicilio = 'Rue d''Or 3', "
              "paisdelexportador = '412' where codigo = 'V9'");
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(todos(), "V9|O'Hara & Cía|Rue d'Or 3|412|VINCULADO\nV1|OTRO|Calle 1|438|VINCULADO");
}

TEST_P(Vendedores, WithoutCodeOrNameNothingIsSaved) {
    Vendedor v = nuevo;
    v.codigo.clear();
    const Traza traza;
    EXPECT_EQ(GuardarVendedor(*ctx, v, false), GuardadoDeVendedor::FaltaCodigo);
    v = nuevo;
    v.nombre = u"  "_s;
    EXPECT_EQ(GuardarVendedor(*ctx, v, true), GuardadoDeVendedor::FaltaNombre);
    EXPECT_EQ(traza.texto(), "");
    EXPECT_EQ(registro.mensajes.size(), 2U);
}

TEST_P(Vendedores, TheListIsSortedAsAskedAndSearchedAsOneTypes) {
    agregar("V2", "Ñandú Textil");
    agregar("V3", "ACEROS");
    agregar("V1", "Nordpumpen");
    const auto porNombre = CargarVendedores(*ctx, OrdenDeVendedores::Nombre);
    EXPECT_EQ(NombresDeVendedores(porNombre).join(u'|').toStdString(), "ACEROS|Nordpumpen|Ñandú Textil");
    const auto porCodigo = CargarVendedores(*ctx, OrdenDeVendedores::Codigo);
    EXPECT_EQ(CodigosDeVendedores(porCodigo).join(u'|').toStdString(), "V1|V2|V3");
    EXPECT_EQ(porCodigo[0].domicilio.toStdString(), "Calle 1");
    EXPECT_EQ(porCodigo[0].nivel.toStdString(), "VINCULADO");
    EstadoDeLista busqueda(NombresDeVendedores(porNombre));
    busqueda.Escribir(u"nord"_s);
    EXPECT_EQ(busqueda.actual, 1);

    EXPECT_EQ(OrdenDeVendedoresElegido(*ctx), OrdenDeVendedores::Codigo);
    ctx->opciones.VendedorOrderxNombre = true;
    EXPECT_EQ(OrdenDeVendedoresElegido(*ctx), OrdenDeVendedores::Nombre);
}

TEST_P(Vendedores, AnEmptyBookIsTold) {
    EXPECT_TRUE(CargarVendedores(*ctx, OrdenDeVendedores::Nombre).empty());
    EXPECT_EQ(ultimoMensaje(), "No hay vendedores en la Base");
}

TEST_P(Vendedores, DeletingAsksNothingAndTakesOneSeller) {
    agregar("V1", "UNO");
    agregar("V2", "DOS");
    EXPECT_EQ(EliminarVendedor(*ctx, u"V1"_s), 1);
    EXPECT_EQ(todos(), "V2|DOS|Calle 1|438|VINCULADO");
    EXPECT_TRUE(registro.preguntas.empty());
}

TEST_P(Vendedores, CountriesAreListedByCode) {
    const QString systablas = u"SYSTABLAS"_s;
    ejecutar(u"insert into pais (id,descripcion) values ('203','BRASIL')"_s, systablas);
    ejecutar(u"insert into pais (id,descripcion) values ('200','ARGENTINA')"_s, systablas);
    const auto paises = CargarPais(*ctx);
    ASSERT_EQ(paises.size(), 2U);
    EXPECT_EQ(paises[0].vista.toStdString(), "200 - ARGENTINA");
    EXPECT_EQ(paises[0].id.toStdString(), "200");
    EXPECT_EQ(paises[1].id.toStdString(), "203");
}

TEST_P(Vendedores, TheListAnswersWhatItLeftChosen) {
    QString codigo = u"old"_s;
    QString nombre;
    VendedorElegido() = {u"V0"_s, u"stale"_s};
    // Left with ESC: the choice of another time does not count.
    EXPECT_FALSE(ListarVendedores([] {}, codigo, nombre));
    EXPECT_EQ(codigo.toStdString(), "old");
    EXPECT_TRUE(ListarVendedores([] { VendedorElegido() = {u"V1"_s, u"NORD"_s}; }, codigo, nombre));
    EXPECT_EQ(codigo.toStdString(), "V1");
    EXPECT_EQ(nombre.toStdString(), "NORD");
}

TEST_P(Vendedores, ACountryIsNeverStoredInSmallLetters) {
    Vendedor v = nuevo;
    v.paisdelexportador = u"br"_s;
    ASSERT_EQ(GuardarVendedor(*ctx, v, false), GuardadoDeVendedor::Guardado);
    EXPECT_EQ(valor(u"select paisdelexportador from vendedor"_s, personal), u"BR"_s);
    v.paisdelexportador = u"cl"_s;
    ASSERT_EQ(GuardarVendedor(*ctx, v, true), GuardadoDeVendedor::Guardado);
    EXPECT_EQ(valor(u"select paisdelexportador from vendedor"_s, personal), u"CL"_s);
}

EN_AMBOS_STORES(Vendedores);

}  // namespace
