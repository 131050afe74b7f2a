#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include "frame/config.h"
#include "frame/startup.h"
#include "operations/browser.h"
#include "subitems/SuffixChecker.h"
#include "tests/support/tienda.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

namespace {

const char *const operacionesDeMuestra[] = {"IC-2026-0001",  "EC-2026-0002", "IT-2026-0003", "DJAI-2026-0004",
                                            "ICR-2026-0005", "EC-2026-0006", "IT-2026-0007", "EC-2026-0008"};

/// The check digit of a tax number: digits 10 to 1 times 2 to 7, round and round; 11 less the rest of
/// dividing by 11.
bool cuitValido(const QString &cuit) {
    if (cuit.size() != 11) return false;
    int suma = 0;
    int peso = 2;
    for (int i = 9; i >= 0; --i) {
        suma += cuit.at(i).digitValue() * peso;
        peso = peso == 7 ? 2 : peso + 1;
    }
    const int resto = suma % 11;
    return cuit.at(10).digitValue() == (resto < 2 ? resto : 11 - resto);
}

class Demostracion : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    int cuenta(const QString &desde, const QString &entidad = u"INTERNOS"_s) {
        return valor(u"select count(*) as n from "_s + desde, entidad).toInt();
    }
    QStringList columna(const QString &sql, const QString &entidad = u"INTERNOS"_s) {
        return filas(sql, entidad).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
};

TEST_P(Demostracion, TheCodesOfAnOfficeAreThere) {
    EXPECT_GE(cuenta("sta", "SYSTABLAS"), 25);
    EXPECT_EQ(cuenta("sta where cstaimpexp not in ('I','E') or cstaimpexp is null", "SYSTABLAS"), 0);
    EXPECT_GE(cuenta("ncm", "NCM"), 150);
    EXPECT_GE(cuenta("catarticulos", "CATALOGOS"), 40);
    EXPECT_GE(cuenta("dest", "USUARIO"), 10);
    for (const char *tabla : {"aduana", "pais", "condiciondeventa", "motivo", "motivos", "mottmp", "bancos",
                              "informacion", "ventajas", "lista", "diemchina"})
        EXPECT_GT(cuenta(QLatin1String(tabla), "SYSTABLAS"), 0) << tabla;
    for (const char *tabla : {"divisas", "unidades", "unidrel", "estadomercaderia", "tipoemb", "codemb",
                              "via", "puertos", "conceptos", "conpresu", "referencias"})
        EXPECT_GT(cuenta(QLatin1String(tabla)), 0) << tabla;
    for (const char *tabla : {"clientes", "despadu", "vendedor", "transporte", "ventajasrel"})
        EXPECT_GT(cuenta(QLatin1String(tabla), "PERSONAL"), 0) << tabla;
    for (const char *tabla : {"control_fecha", "lnapifechadedatos", "lnapiposicionesafectadas",
                              "lnapiaclaraciones", "letras", "letrasncm"})
        EXPECT_GT(cuenta(QLatin1String(tabla), "NCM"), 0) << tabla;
}

TEST_P(Demostracion, EveryLetterOfAPositionSaysWhatItMeans) {
    EXPECT_EQ(cuenta("letrasncm where letra <> '' and letra not in (select letra from letras)", "NCM"), 0);
    EXPECT_EQ(cuenta("letras where descripcion = '' or descripcion is null", "NCM"), 0);
}

TEST_P(Demostracion, TheConceptCatalogueHoldsEveryCodeOfTheCalculator) {
    for (const char *codigo :
         {"010", "011", "015", "016", "020", "032", "041", "059", "061", "062", "065", "415", "417",
          "422", "424", "500", "501", "520", "601", "611", "852", "854", "856", "866", "900"})
        EXPECT_EQ(cuenta(u"tax where ctax = '%1' and ctaxpog in ('P','G','C') and ltaxabr <> ''"_s.arg(
                      QLatin1String(codigo))),
                  1)
            << codigo;
}

TEST_P(Demostracion, TaxNumbersHaveTheirCheckDigit) {
    for (const char *tabla : {"clientes", "despadu", "transporte"})
        for (const QString &cuit : columna(u"select cuit from "_s + QLatin1String(tabla), "PERSONAL"))
            EXPECT_TRUE(cuitValido(cuit)) << tabla << " " << cuit.toStdString();
}

TEST_P(Demostracion, ThePositionsSpreadOverManyChaptersAndKeysAreWhole) {
    QSet<QString> capitulos;
    for (const QString &fila : columna("select [001]+ '.' +[002] + [003] as ncm from ncm", "NCM")) {
        EXPECT_EQ(fila.size(), 15) << fila.toStdString();
        capitulos.insert(fila.left(2));
    }
    EXPECT_GE(capitulos.size(), 20);
    EXPECT_EQ(cuenta("ncm where [012] is null or [012] = ''", "NCM"), 0);
    for (const QString &sim : columna("select distinct sim from sufidos", "NCM"))
        EXPECT_EQ(sim.size(), 14) << sim.toStdString();
    // Units of the nomenclature are units of the code table.
    for (const QString &unidad : columna("select distinct [012] from ncm", "NCM"))
        EXPECT_EQ(cuenta(u"unidades where id = '%1'"_s.arg(unidad)), 1) << unidad.toStdString();
}

TEST_P(Demostracion, EightOperationsStandComplete) {
    EXPECT_EQ(cuenta("caratula"), 8);
    for (const char *clave : operacionesDeMuestra) {
        const QString donde = u"interno = '%1'"_s.arg(QLatin1String(clave));
        Recordset c;
        ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select * from caratula where " + donde, c)) << clave;
        const QString regimen = c.Texto(u"idsubreg");
        EXPECT_EQ(c.Texto(u"factura8"), u"S"_s) << clave;
        EXPECT_EQ(valor("select sum(fob) as total from subitems where " + donde).toDouble(),
                  c.Numero(u"fobdivisas"))
            << clave;
        EXPECT_GT(c.Numero(u"fobdivisas"), 0) << clave;
        EXPECT_EQ(cuenta(u"dest where subreg = '%1'"_s.arg(regimen), "USUARIO"), 1) << clave;
        const QString tipo = valor(u"select cstaimpexp from sta where id = '%1'"_s.arg(regimen), "SYSTABLAS");
        EXPECT_TRUE(tipo == "I"_L1 || tipo == "E"_L1) << clave;
        for (const char *campo :
             {"idaduana", "cuitcliente", "cuitdespaduana", "fobcoddivisas", "idcondiciondeventa"})
            EXPECT_FALSE(c.Texto(QString::fromLatin1(campo)).isEmpty()) << clave << " " << campo;
        EXPECT_GT(c.Numero(u"fobdivcambio"), 0) << clave;
        if (tipo == "I"_L1 && regimen != "DJAI"_L1) {
            for (const char *campo : {"fletecoddivisas", "segurocoddivisas", "idvendedor"})
                EXPECT_FALSE(c.Texto(QString::fromLatin1(campo)).isEmpty()) << clave << " " << campo;
            for (const char *campo : {"fletedivisas", "fletedivcambio", "segurodivisas", "segurodivcambio"})
                EXPECT_GT(c.Numero(QString::fromLatin1(campo)), 0) << clave << " " << campo;
        }
        EXPECT_EQ(cuenta(u"clientes where cuit = '%1'"_s.arg(c.Texto(u"cuitcliente")), "PERSONAL"), 1)
            << clave;
        EXPECT_EQ(cuenta(u"despadu where cuit = '%1'"_s.arg(c.Texto(u"cuitdespaduana")), "PERSONAL"), 1)
            << clave;
        for (const char *divisa : {"fobcoddivisas", "fletecoddivisas", "segurocoddivisas"})
            if (const QString codigo = c.Texto(QString::fromLatin1(divisa)); !codigo.isEmpty()) {
                EXPECT_EQ(cuenta(u"divisas where id = '%1'"_s.arg(codigo)), 1) << clave << " " << divisa;
            }
        EXPECT_EQ(filas("select factura from facturas where " + donde + " order by orden").replace('\n', ','),
                  c.Texto(u"factura1"))
            << clave;
    }
}

TEST_P(Demostracion, EveryLineIsCoherentAndItsSuffixesAreValid) {
    Recordset l;
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select * from subitems order by id", l));
    for (; !l.Eof(); l.MoveNext()) {
        const std::string que =
            (l.Texto(u"interno") + QLatin1Char(' ') + l.Texto(u"idarticulo")).toStdString();
        EXPECT_NEAR(l.Numero(u"cantidad") * l.Numero(u"preciounitario"), l.Numero(u"fob"), 1e-9) << que;
        const QString ncm = l.Texto(u"ncm");
        Recordset n;
        ASSERT_TRUE(Consultar(
            *ctx, "NCM",
            u"select [012],[020] from ncm where [001] = '%1' and [002] = '%2' and [003] = '%3'"_s.arg(
                ncm.left(10), ncm.mid(11, 3), ncm.right(1)),
            n))
            << que;
        EXPECT_EQ(l.Texto(u"estadistica"), n.Texto(u"012")) << que;
        EXPECT_EQ(l.Texto(u"deresp"), n.Texto(u"020")) << que;
        EXPECT_EQ(SuffixCheckerClass(*ctx).Validar(ncm, l.Texto(u"sufijos")), 0)
            << que << " " << l.Texto(u"sufijos").toStdString();
        EXPECT_EQ(cuenta(u"pais where id = '%1'"_s.arg(l.Texto(u"idpais")), "SYSTABLAS"), 1) << que;
        EXPECT_EQ(cuenta(u"catarticulos where idcatalogo = '%1' and idarticulo = '%2'"_s.arg(
                             l.Texto(u"idcatalogo"), l.Texto(u"idarticulo")),
                         "CATALOGOS"),
                  1)
            << que;
        if (const QString codigo = l.Texto(u"codprorrateo"); !codigo.isEmpty()) {
            EXPECT_EQ(cuenta(u"prorrateo where interno = '%1' and codigo = '%2'"_s.arg(l.Texto(u"interno"),
                                                                                       codigo)),
                      1)
                << que;
        }
    }
}

TEST_P(Demostracion, ArticlesHaveValidSuffixesAndPositions) {
    Recordset a;
    ASSERT_TRUE(Consultar(*ctx, "CATALOGOS", "select * from catarticulos", a));
    for (; !a.Eof(); a.MoveNext())
        EXPECT_EQ(SuffixCheckerClass(*ctx).Validar(a.Texto(u"ncm"), a.Texto(u"sufijos")), 0)
            << a.Texto(u"idarticulo").toStdString();
}

TEST_P(Demostracion, TheConsumptionImportIsTheOnePromised) {
    const QString donde = u"interno = 'IC-2026-0001'"_s;
    EXPECT_EQ(cuenta("subitems where " + donde), 25);
    EXPECT_EQ(filas("select fobcoddivisas,fletecoddivisas,segurocoddivisas from caratula where " + donde)
                  .toStdString(),
              "060|DOL|021");
    EXPECT_EQ(cuenta("subitems where kgneto = 0 and " + donde), 7);
    // What the lines without kilos weigh is missing from the sum, and the header tells it.
    EXPECT_GT(valor("select dckgneto from caratula where " + donde).toDouble(),
              valor("select sum(kgneto) as k from subitems where " + donde).toDouble());
    // Lines that fold: fewer prices and suffixes than lines.
    EXPECT_EQ(columna("select ncm,sufijos,preciounitario from subitems where " + donde +
                      " group by ncm,sufijos,preciounitario")
                  .size(),
              20);
    EXPECT_EQ(filas("select codigo,valor from prorrateo where " + donde).toStdString(), "EMB|420");
}

TEST_P(Demostracion, TheOthersAreOfTheirKind) {
    EXPECT_EQ(cuenta("caratula where idsubreg = 'EC01' and idpaisdestino <> ''"), 2);
    EXPECT_EQ(cuenta("caratula where idsubreg = 'IT01' and motivodestsuspensiva = 'DTO.1439/96'"), 2);
    EXPECT_GT(cuenta("subitems where interno = 'ICR-2026-0005' and left(itfiller,9) = 'LISTA:314'"), 0);
    EXPECT_GT(cuenta("subitems where interno = 'ICR-2026-0005' and lapi = 'S'"), 0);
    EXPECT_EQ(cuenta("subitems where interno = 'DJAI-2026-0004' and (descripcion_maria is null or "
                     "descripcion_maria = '')"),
              0);
    EXPECT_EQ(cuenta("caratula where idsubreg = 'DJAI' and djai_fecha_emb_aprox is not null"), 1);
    Recordset r;
    ASSERT_TRUE(
        Consultar(*ctx, "INTERNOS", "select distinct ncm from subitems where interno = 'ICR-2026-0005'", r));
    for (; !r.Eof(); r.MoveNext()) {
        const QString ncm = r.Texto(u"ncm");
        EXPECT_EQ(valor(u"select [028] from ncm where [001] = '%1' and [002] = '%2' and [003] = '%3'"_s.arg(
                            ncm.left(10), ncm.mid(11, 3), ncm.right(1)),
                        "NCM")
                      .toStdString(),
                  "*")
            << ncm.toStdString();
    }
}

TEST_P(Demostracion, TheConfigurationShowsEveryOperationAndBothVatRates) {
    const QString archivo = ArchivoDelPerfil(tienda->perfil());
    QFile::remove(archivo);
    ctx->DataManager.CloseAllDataConnection();
    const actualizacion::Resultado r = actualizacion::CargarDemostracion(tienda->perfil());
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios, QStringList{u"se creó la configuración %1"_s.arg(archivo)});
    QFile escrito(archivo);
    ASSERT_TRUE(escrito.open(QIODevice::ReadOnly));
    EXPECT_EQ(
        QString::fromUtf8(escrito.readAll()).split(QRegularExpression(u"[\r\n]+"_s), Qt::SkipEmptyParts),
        (QStringList{"[GENERAL]", "IVARIN=21", "IVARNI=10.5", "OPERACIONESMOSTRARTODO=S"}));
    // As a program that starts on this profile finds it, with more operations than a page of the list.
    for (int n = 0; n < 60; ++n) ejecutar(u"insert into caratula (interno) values ('Z%1')"_s.arg(n));
    AppContext nuevo;
    nuevo.ajustes = Ajustes(tienda->carpeta() + "/otros.ini");
    nuevo.dialogos = DialogosDePrueba(registro);
    ASSERT_TRUE(nuevo.DataManager.usarPerfil(tienda->perfil()));
    Arrancar(nuevo);
    EXPECT_TRUE(nuevo.opciones.OperacionesMostrarTODO);
    const std::vector<FilaDeInterno> lista = LeerInternos(nuevo, {});
    ASSERT_EQ(lista.size(), 68U);
    EXPECT_EQ(lista[4].Interno, u"IC-2026-0001"_s);
}

TEST_P(Demostracion, AConfigurationThatIsThereStays) {
    const QString archivo = ArchivoDelPerfil(tienda->perfil());
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write("[GENERAL]\r\nIVARIN=19\r\n");
    f.close();
    ctx->DataManager.CloseAllDataConnection();
    const actualizacion::Resultado r = actualizacion::CargarDemostracion(tienda->perfil());
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios, QStringList());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("[GENERAL]\r\nIVARIN=19\r\n"));
}

TEST_P(Demostracion, ASecondLoadLeavesWhatIsThere) {
    ejecutar("delete from subitems where interno = 'EC-2026-0002'");
    const int lineas = cuenta("subitems");
    ctx->DataManager.CloseAllDataConnection();
    const actualizacion::Resultado r = actualizacion::CargarDemostracion(tienda->perfil());
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios, QStringList());
    EXPECT_EQ(cuenta("subitems"), lineas);
    EXPECT_EQ(cuenta("caratula"), 8);
}

EN_AMBOS_STORES(Demostracion);

}  // namespace
