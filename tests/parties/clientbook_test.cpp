// The book of clients.

#include "header/ClientBook.h"

#include <gtest/gtest.h>

#include "frame/base/numbers.h"
#include "frame/picklist.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using ClientBook::Ficha;

class LibroDeClientes : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->SeparadorDecimal = QLatin1Char(',');
        ejecutar(u"insert into ventajas (id,descripcion) values ('BIENCAPITAL','Bien de capital')"_s,
                 u"SYSTABLAS"_s);
        ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values ('IC04','Consumo','I')"_s,
                 u"SYSTABLAS"_s);
    }
    static Ficha ficha() {
        Ficha f = ClientBook::Nueva();
        f.cuit = u"30-12345678-1"_s;
        f.nombre = u" Aceros d'Oro S.A. "_s;
        f.domicilio = u"Calle 9 Nº 3"_s;
        f.email = u"comex@aceros.example"_s;
        f.regalias = u"3,5"_s;
        f.ajxvinc_4102 = u"1.25"_s;
        f.eximgan = true;
        f.eximganvalor = u"50"_s;
        f.eximganvalortemp = QString();
        f.ivaareduccionvalor = u"25"_s;
        f.ivaareduccionvalortemp = u"100"_s;
        f.cvdi = true;
        f.ingbru = u"2,5"_s;
        f.ExcepLAPIAEC = true;
        f.ventajas = {{u"IC04"_s, u"84"_s, u"BIENCAPITAL"_s},
                      {QString(), u"8409.91.12.100G"_s, u"BIENCAPITAL"_s}};
        return f;
    }
    std::string clientes() {
        return filas(
                   u"select cuit,nombre,domicilio,email,regalias,ajxvinc_4102,eximgan,"
                   "eximganvalor,eximganvalortemp,ivaareduccion,ivaareduccionvalor,"
                   "ivaareduccionvalortemp,cvdi,ingbru,ExcepLAPIAEC from clientes"_s,
                   personal)
            .toStdString();
    }
    std::string ventajas() {
        return filas(u"select cuit,idSubRegimen,NCM,idventaja from VentajasRel"_s, personal).toStdString();
    }
    void operacion(const char *interno) {
        ejecutar(u"insert into caratula (interno,cuitcliente) values ('%1','30123456781')"_s.arg(
            QString::fromUtf8(interno)));
    }
    const QString personal = u"PERSONAL"_s;
    const QString cuit = u"30123456781"_s;
};

TEST_P(LibroDeClientes, ANewClientIsStoredWithEveryColumnAndItsAdvantages) {
    EXPECT_FALSE(ClientBook::Guardar(*ctx, ficha(), true).has_value());
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(
        clientes(),
        "30123456781|Aceros d'Oro S.A.|Calle 9 Nº 3|comex@aceros.example|3.5|1.25|S|50|0|N|25|100|S|2.5|S");
    EXPECT_EQ(ventajas(), "30123456781|IC04|84|BIENCAPITAL\n30123456781||8409.91.12.100G|BIENCAPITAL");

    const auto leida = ClientBook::Leer(*ctx, cuit);
    ASSERT_TRUE(leida.has_value());
    EXPECT_EQ(leida->nombre.toStdString(), "Aceros d'Oro S.A.");
    EXPECT_EQ(leida->regalias.toStdString(), "3,5");
    EXPECT_EQ(leida->eximganvalortemp.toStdString(), "0");
    EXPECT_TRUE(leida->eximgan);
    EXPECT_FALSE(leida->ivaareduccion);
    EXPECT_TRUE(leida->cvdi);
    EXPECT_TRUE(leida->ExcepLAPIAEC);
    EXPECT_EQ(leida->ventajas, ficha().ventajas);
    // What was read may be stored again as it is.
    EXPECT_TRUE(ClientBook::Revisar(*ctx, *leida, false).empty());
}

TEST_P(LibroDeClientes, AChangeReachesThatClientAlone) {
    ejecutar(u"insert into clientes (cuit,nombre) values ('27223344556','OTRO')"_s, personal);
    ejecutar(u"insert into VentajasRel (cuit,idventaja) values ('27223344556','BIENCAPITAL')"_s, personal);
    ClientBook::Guardar(*ctx, ficha(), true);
    Ficha f = *ClientBook::Leer(*ctx, cuit);
    f.nombre = u"ACEROS NUEVOS"_s;
    f.eximgan = false;
    f.ventajas.pop_back();
    EXPECT_FALSE(ClientBook::Guardar(*ctx, f, false).has_value());
    EXPECT_EQ(clientes(),
              "27223344556|OTRO|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>|"
              "<null>|<null>\n"
              "30123456781|ACEROS NUEVOS|Calle 9 Nº 3|comex@aceros.example|3.5|1.25|N|50|0|N|25|100|S|2.5|S");
    EXPECT_EQ(ventajas(), "27223344556|<null>|<null>|BIENCAPITAL\n30123456781|IC04|84|BIENCAPITAL");
}

TEST_P(LibroDeClientes, AWrongTaxNumberIsRefusedWithAClearMessage) {
    struct Caso {
        const char *cuit;
        const char *mensaje;
    };
    const Caso casos[] = {
        {"", "Falta el CUIT del cliente, ingréselo para guardar."},
        {"3012345678", "El CUIT 3012345678 no tiene 11 dígitos, corríjalo."},
        {"3012345678A", "El CUIT 3012345678A no tiene 11 dígitos, corríjalo."},
        {"30123456782", "El dígito verificador del CUIT 30123456782 no es correcto, revise el número."},
        {"30-12345678-2", "El dígito verificador del CUIT 30123456782 no es correcto, revise el número."},
    };
    for (const Caso &c : casos) {
        registro.mensajes.clear();
        Ficha f = ficha();
        f.cuit = QString::fromUtf8(c.cuit);
        const auto falta = ClientBook::Guardar(*ctx, f, true);
        ASSERT_TRUE(falta.has_value()) << c.cuit;
        EXPECT_EQ(falta->campo.toStdString(), "cuit");
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto.toStdString(), c.mensaje);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    }
    EXPECT_EQ(clientes(), "");
    EXPECT_EQ(ventajas(), "");
}

TEST_P(LibroDeClientes, ATaxNumberThatIsKeptIsNotAddedTwice) {
    ClientBook::Guardar(*ctx, ficha(), true);
    const auto falta = ClientBook::Guardar(*ctx, ficha(), true);
    ASSERT_TRUE(falta.has_value());
    EXPECT_EQ(falta->mensaje.toStdString(),
              "Ya existe un cliente con el CUIT 30123456781, búsquelo en la lista para modificarlo.");
    EXPECT_EQ(valor(u"select count(*) from clientes"_s, personal).toStdString(), "1");
}

TEST_P(LibroDeClientes, BadValuesAreToldFieldByField) {
    struct Caso {
        const char *campo;
        std::function<void(Ficha &)> estropear;
        const char *mensaje;
    };
    const auto texto = [](QString Ficha::*campo, const char *valor) {
        return [campo, valor](Ficha &f) { f.*campo = QString::fromUtf8(valor); };
    };
    const Caso casos[] = {
        {"nombre", texto(&Ficha::nombre, "  "), "Falta el nombre del cliente, ingréselo para guardar."},
        {"email", texto(&Ficha::email, "comex.aceros"),
         "El correo comex.aceros no es una dirección válida, corríjalo."},
        {"regalias", texto(&Ficha::regalias, "tres"),
         "El porcentaje de regalías no es un número, corríjalo."},
        {"ajxvinc_4102", texto(&Ficha::ajxvinc_4102, "-1"),
         "El porcentaje de ajuste por vinculación debe estar entre 0 y 100, corríjalo."},
        {"eximganvalor", texto(&Ficha::eximganvalor, "100,01"),
         "El porcentaje de exención de ganancias debe estar entre 0 y 100, corríjalo."},
        {"eximganvalortemp", texto(&Ficha::eximganvalortemp, "x"),
         "El porcentaje temporal de exención de ganancias no es un número, corríjalo."},
        {"ivaareduccionvalor", texto(&Ficha::ivaareduccionvalor, "1.000,00"),
         "El porcentaje de reducción de IVA adicional no es un número, corríjalo."},
        {"ivaareduccionvalortemp", texto(&Ficha::ivaareduccionvalortemp, "101"),
         "El porcentaje temporal de reducción de IVA adicional debe estar entre 0 y 100, corríjalo."},
        {"ingbru", texto(&Ficha::ingbru, "2,5%"),
         "El porcentaje de ingresos brutos no es un número, corríjalo."},
        {"ventajas", [](Ficha &f) { f.ventajas[1].idventaja.clear(); },
         "Falta el código de la ventaja en la fila 2 de ventajas, corríjala o quítela."},
        {"ventajas", [](Ficha &f) { f.ventajas[0].idventaja = u"NADA"_s; },
         "La ventaja NADA no existe en la fila 1 de ventajas, corríjala o quítela."},
        {"ventajas", [](Ficha &f) { f.ventajas[0].idSubRegimen = u"ZZ99"_s; },
         "El subrégimen ZZ99 no existe en la fila 1 de ventajas, corríjala o quítela."},
        {"ventajas", [](Ficha &f) { f.ventajas[1].NCM = u"84x"_s; },
         "84x no es el comienzo de una posición en la fila 2 de ventajas, corríjala o quítela."},
        {"ventajas", [](Ficha &f) { f.ventajas[1] = f.ventajas[0]; },
         "La ventaja BIENCAPITAL está repetida en la fila 2 de ventajas, corríjala o quítela."},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.mensaje);
        registro.mensajes.clear();
        Ficha f = ficha();
        c.estropear(f);
        const auto falta = ClientBook::Guardar(*ctx, f, true);
        ASSERT_TRUE(falta.has_value());
        EXPECT_EQ(falta->campo.toStdString(), c.campo);
        EXPECT_EQ(falta->mensaje.toStdString(), c.mensaje);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto.toStdString(), c.mensaje);
    }
    EXPECT_EQ(clientes(), "");
}

TEST_P(LibroDeClientes, BeginningsOfPositionsAreTakenAtAnyLength) {
    for (const char *ncm :
         {"", "84", "8409", "8409.", "8409.91", "8409.91.12", "8409.91.12.100", "8409.91.12.100G"}) {
        Ficha f = ficha();
        f.ventajas = {{QString(), QString::fromUtf8(ncm), u"BIENCAPITAL"_s}};
        EXPECT_TRUE(ClientBook::Revisar(*ctx, f, true).empty()) << ncm;
    }
}

TEST_P(LibroDeClientes, EveryFaultIsListedInTheOrderOfTheFields) {
    Ficha f = ficha();
    f.cuit.clear();
    f.nombre.clear();
    f.ingbru = u"x"_s;
    f.ventajas[0].idventaja.clear();
    QStringList campos;
    for (const auto &falta : ClientBook::Revisar(*ctx, f, true)) campos << falta.campo;
    EXPECT_EQ(campos.join(u' ').toStdString(), "cuit nombre ingbru ventajas");
}

TEST_P(LibroDeClientes, TheListIsSortedAndSearchedByNameAndByNumber) {
    const char *const nombres[] = {"Ñandú", "aceros", "NORD"};
    const char *const cuits[] = {"3", "2", "1"};
    for (int i = 0; i < 3; ++i)
        ejecutar(u"insert into clientes (cuit,nombre) values ('%1','%2')"_s.arg(
                     QString::fromUtf8(cuits[i]), QString::fromUtf8(nombres[i])),
                 personal);
    const auto porNombre = ClientBook::Listar(*ctx);
    EXPECT_EQ(ClientBook::Nombres(porNombre).join(u'|').toStdString(), "aceros|NORD|Ñandú");
    EstadoDeLista busqueda(ClientBook::Nombres(porNombre));
    busqueda.Escribir(u"nor"_s);
    EXPECT_EQ(busqueda.actual, 1);
    EXPECT_EQ(ClientBook::Cuits(ClientBook::Listar(*ctx, ClientBook::Orden::Cuit)).join(u'|').toStdString(),
              "1|2|3");
}

TEST_P(LibroDeClientes, DeletingAsksFirstAndTakesTheAdvantagesToo) {
    ClientBook::Guardar(*ctx, ficha(), true);
    EXPECT_FALSE(ClientBook::Borrar(*ctx, cuit));
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "¿Elimina el cliente Aceros d'Oro S.A. (CUIT 30123456781) y sus ventajas?");
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_NE(clientes(), "");
    registro.respuestas = {true};
    EXPECT_TRUE(ClientBook::Borrar(*ctx, cuit));
    EXPECT_EQ(clientes(), "");
    EXPECT_EQ(ventajas(), "");
    // Nobody left to delete: no question.
    EXPECT_FALSE(ClientBook::Borrar(*ctx, cuit));
    EXPECT_EQ(registro.preguntas.size(), 2U);
}

TEST_P(LibroDeClientes, AClientUsedByOperationsIsNotDeletedWithoutAQuestionThatSaysSo) {
    ClientBook::Guardar(*ctx, ficha(), true);
    operacion("OP1");
    EXPECT_FALSE(ClientBook::Borrar(*ctx, cuit));
    operacion("OP2");
    EXPECT_FALSE(ClientBook::Borrar(*ctx, cuit));
    ASSERT_EQ(registro.preguntas.size(), 2U);
    EXPECT_EQ(
        registro.preguntas[0].texto.toStdString(),
        "El cliente Aceros d'Oro S.A. (CUIT 30123456781) está usado por una operación.\r\nSi lo elimina, "
        "esa operación queda sin los datos de su cliente.\r\n¿Lo elimina de todos modos?");
    EXPECT_EQ(
        registro.preguntas[1].texto.toStdString(),
        "El cliente Aceros d'Oro S.A. (CUIT 30123456781) está usado por 2 operaciones.\r\nSi lo elimina, "
        "esas operaciones quedan sin los datos de su cliente.\r\n¿Lo elimina de todos modos?");
    EXPECT_EQ(registro.preguntas[1].icono, Icono::Exclamacion);
    EXPECT_TRUE(registro.preguntas[1].porDefectoNo);
    EXPECT_NE(clientes(), "");
    registro.respuestas = {true};
    EXPECT_TRUE(ClientBook::Borrar(*ctx, cuit));
    EXPECT_EQ(clientes(), "");
    EXPECT_EQ(valor(u"select count(*) from caratula where cuitcliente = '30123456781'"_s).toStdString(), "2");
}

TEST_P(LibroDeClientes, TheCatalogueOfAdvantagesIsListedByDescription) {
    ejecutar(u"insert into ventajas (id,descripcion) values ('AAA','Zeta')"_s, u"SYSTABLAS"_s);
    const auto catalogo = ClientBook::CatalogoDeVentajas(*ctx);
    ASSERT_EQ(catalogo.size(), 2U);
    EXPECT_EQ(catalogo[0].id.toStdString(), "BIENCAPITAL");
    EXPECT_EQ(catalogo[1].descripcion.toStdString(), "Zeta");
}

EN_AMBOS_STORES(LibroDeClientes);

class LibroDeLaDemostracion : public EnAmbosStores {
    bool conDemostracion() const override { return true; }
};

TEST_P(LibroDeLaDemostracion, EveryClientOfTheDemonstrationPassesItsOwnChecks) {
    const auto filas = ClientBook::Listar(*ctx);
    ASSERT_GE(filas.size(), 8U);
    for (const auto &fila : filas) {
        EXPECT_TRUE(CUITValido(fila.cuit)) << fila.cuit.toStdString();
        const auto ficha = ClientBook::Leer(*ctx, fila.cuit);
        ASSERT_TRUE(ficha.has_value());
        for (const auto &falta : ClientBook::Revisar(*ctx, *ficha, false))
            ADD_FAILURE() << fila.cuit.toStdString() << ": " << falta.mensaje.toStdString();
    }
}

EN_AMBOS_STORES(LibroDeLaDemostracion);

}  // namespace
