#include "upgrade/schema.h"

#include <gtest/gtest.h>

#include <QSet>

using namespace Qt::StringLiterals;

using esquema::Tipo;

namespace {

struct Hogar {
    const char *entidad;
    const char *tablas;
};

const Hogar hogares[] = {
    {"INTERNOS",
     "caratula subitems groupsubitems item itemliq itemventaja iteminfo liqcero sysflag idrel descargas "
     "facturas "
     "prorrateo itempresu itemref interno version stock stockmov transferidas certorigen "
     "divisas conpresu referencias conceptos unidrel tax tipoemb "
     "codemb "
     "via puertos estadomercaderia unidades"},
    {"SYSTABLAS",
     "sta aduana condiciondeventa pais motivo motivos mottmp bancos coment ean hval hvalexp diemchina "
     "informacion "
     "ventajas lista oncca_acuerdo oncca_categoria oncca_cortes oncca_elaborador oncca_especie oncca_faneador "
     "oncca_mecoorgbio oncca_res3106 oncca_sispro"},
    {"NCM",
     "ncm sufidos control_fecha lnapifechadedatos lnapiposicionesafectadas lnapiaclaraciones letrasncm "
     "letras"},
    {"CATALOGOS", "catarticulos articulo_ventaja"},
    {"PERSONAL", "clientes despadu vendedor transporte tabla ventajasrel"},
    {"USUARIO", "dest impuestos_internos"},
};

TEST(Schema, EveryTableHasItsOneHome) {
    std::size_t total = 0;
    for (const Hogar &h : hogares) {
        const QStringList nombres = QString::fromLatin1(h.tablas).split(QLatin1Char(' '));
        total += static_cast<std::size_t>(nombres.size());
        for (const QString &nombre : nombres) {
            const esquema::Tabla *tabla = esquema::buscarTabla(nombre);
            ASSERT_NE(tabla, nullptr) << nombre.toStdString();
            EXPECT_EQ(tabla->entidad.toStdString(), h.entidad) << nombre.toStdString();
        }
    }
    EXPECT_EQ(esquema::tablas().size(), total);
}

TEST(Schema, NamesAreLowerCaseAndColumnsAreNotRepeated) {
    for (const esquema::Tabla &tabla : esquema::tablas()) {
        EXPECT_EQ(tabla.nombre, tabla.nombre.toLower());
        QSet<QString> vistas;
        for (const esquema::Columna &c : tabla.columnas) {
            EXPECT_EQ(c.nombre, c.nombre.toLower()) << tabla.nombre.toStdString();
            EXPECT_FALSE(vistas.contains(c.nombre))
                << tabla.nombre.toStdString() << "." << c.nombre.toStdString();
            vistas.insert(c.nombre);
        }
        EXPECT_FALSE(tabla.columnas.empty()) << tabla.nombre.toStdString();
    }
}

TEST(Schema, TheNomenclatureHasSeventyOneTextColumns) {
    const esquema::Tabla *ncm = esquema::buscarTabla(u"NCM");
    ASSERT_NE(ncm, nullptr);
    ASSERT_EQ(ncm->columnas.size(), 71U);
    EXPECT_EQ(ncm->columnas.front().nombre, u"001"_s);
    EXPECT_EQ(ncm->columnas.back().nombre, u"071"_s);
    for (const esquema::Columna &c : ncm->columnas) EXPECT_EQ(c.tipo, Tipo::Texto) << c.nombre.toStdString();
}

TEST(Schema, EveryTableOfAnOperationIsFoundByItsKeyFirst) {
    for (const esquema::Tabla &tabla : esquema::tablas()) {
        if (tabla.columna(u"interno") == nullptr) continue;
        bool encontrado = false;
        for (const esquema::Indice &i : tabla.indices)
            encontrado = encontrado || i.columnas.front() == "interno"_L1;
        EXPECT_TRUE(encontrado) << tabla.nombre.toStdString();
    }
}

TEST(Schema, ColumnsThatMayHoldStrayTextAreTexts) {
    const esquema::Tabla *lineas = esquema::buscarTabla(u"subitems");
    ASSERT_NE(lineas, nullptr);
    for (const char *nombre : {"insumostemp", "insumosacons", "ajusteincluir", "ajustededucir"}) {
        const esquema::Columna *c = lineas->columna(QString::fromLatin1(nombre));
        ASSERT_NE(c, nullptr) << nombre;
        EXPECT_EQ(c->tipo, Tipo::TextoNumerico) << nombre;
    }
    EXPECT_EQ(esquema::buscarTabla(u"descargas")->columna(u"iditem")->tipo, Tipo::TextoNumerico);
    EXPECT_EQ(lineas->columna(u"id")->tipo, Tipo::Generado);
}

}  // namespace
