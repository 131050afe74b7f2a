// The lines of an operation by the batch program: what changes them all, and which of them a filter shows.

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include "subitems/linebulk.h"
#include "subitems/linefilters.h"
#include "tests/support/claves.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class LineasEnLote : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(u"update caratula set factura8 = 'N' where interno = 'IC-2026-0001'"_s);
    }

    Corrida lote(const QStringList &orden) const {
        return Lote(tienda->carpeta(), QStringList{u"--perfil"_s, tienda->perfil(), u"--ajustes"_s,
                                                   tienda->carpeta() + "/lote.ini"_L1} +
                                           orden);
    }
    Corrida masivo(const QStringList &orden, const QByteArray &respuestas = "[]") const {
        return lote(
            QStringList{u"masivo"_s, importacion} + orden +
            QStringList{u"--respuestas"_s, Escribir(tienda->carpeta(), u"respuestas.json"_s, respuestas)});
    }
    /// The articles of the lines that a filter tells, with their numbers.
    std::string filtradas(const QStringList &orden) const {
        const Corrida c = lote(QStringList{u"filtrar"_s, importacion} + orden);
        EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
        QStringList todas;
        for (const QJsonObject &linea : c.mensajes()) {
            EXPECT_EQ(linea.value("tipo"_L1).toString(), u"linea"_s);
            todas << linea.value("linea"_L1).toString() + u' ' + linea.value("articulo"_L1).toString();
        }
        EXPECT_EQ(c.resultado().value("lineas"_L1).toInt(), todas.size());
        return todas.join(u", "_s).toStdString();
    }
    static constexpr const char *sinKilos =
        "0001 NP-0750, 0002 NP-1100, 0014 MA-10, 0015 LT-120, 0020 MT-1500, 0021 MR-0750, 0025 NP-0750";
    std::string cuantas(const char *condicion, const QString &interno = importacion) {
        return valor(u"select count(*) as n from subitems where interno = '%1' and %2"_s.arg(interno,
                                                                                             L(condicion)))
            .toStdString();
    }
};
EN_AMBOS_STORES(LineasEnLote);

TEST_P(LineasEnLote, AFilterTellsItsLinesWithTheirNumbersInTheOperation) {
    const Corrida c = lote({u"filtrar"_s, importacion, u"posicion"_s, u"8413.70.10.200R"_s});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.errores.toStdString(), "");
    ASSERT_EQ(c.mensajes().size(), 1U);
    QJsonObject linea = c.mensajes()[0];
    EXPECT_GT(linea.take("id"_L1).toInt(), 0);
    EXPECT_EQ(linea, (QJsonObject{{u"tipo"_s, u"linea"_s},
                                  {u"linea"_s, u"0003"_s},
                                  {u"posicion"_s, u"8413.70.10.200R"_s},
                                  {u"unidad"_s, u"07"_s},
                                  {u"cantidad"_s, 4},
                                  {u"kgneto"_s, 154},
                                  {u"preciounitario"_s, 512},
                                  {u"fob"_s, 2048},
                                  {u"articulo"_s, u"NP-4000"_s},
                                  {u"factura"_s, u"NP-88120"_s}}))
        << QJsonDocument(linea).toJson().toStdString();
    EXPECT_EQ(c.resultado(), (QJsonObject{{u"resultado"_s, u"filtrar"_s},
                                          {u"interno"_s, importacion},
                                          {u"filtro"_s, 7},
                                          {u"muestra"_s, u"Por posición arancelaria: 8413.70.10.200R"_s},
                                          {u"lineas"_s, 1},
                                          {u"estado"_s, 0}}))
        << QJsonDocument(c.resultado()).toJson().toStdString();
}

TEST_P(LineasEnLote, ANumberANameAndAValueChooseTheLines) {
    ejecutar(u"update subitems set idpais = '' where interno = 'IC-2026-0001' and idarticulo = 'NP-1100'"_s);
    EXPECT_EQ(filtradas({u"4"_s}), "0002 NP-1100");
    EXPECT_EQ(filtradas({u"SIN-PAIS"_s}), "0002 NP-1100");
    EXPECT_EQ(filtradas({u"2"_s}), sinKilos) << "no net kilos";
    EXPECT_EQ(filtradas({u"descripcion"_s, u"bomba%400"_s}), "0003 NP-4000");
    EXPECT_EQ(filtradas({u"17"_s, u"np'0750"_s}), "") << "its apostrophe is removed";
    EXPECT_EQ(filtradas({u"17"_s, u"'nordpumpen np 0750'"_s}), "0001 NP-0750, 0025 NP-0750");
    EXPECT_EQ(filtradas({u"12"_s, u"%"_s}), "") << "a code is no pattern";
}

TEST_P(LineasEnLote, TheLinesComeInTheOrderOfTheOption) {
    const QString opciones = Escribir(tienda->carpeta(), u"o.json"_s, R"({"SbtMostrarAsc": true})");
    EXPECT_EQ(
        filtradas({u"sin-kilos"_s, u"--opciones"_s, opciones}),
        "0025 NP-0750, 0021 MR-0750, 0020 MT-1500, 0015 LT-120, 0014 MA-10, 0002 NP-1100, 0001 NP-0750");
}

TEST_P(LineasEnLote, EveryFilterAnswersAsItsModule) {
    for (const FiltroDeLineas &f : FiltrosDeLineas()) {
        QStringList orden{u"filtrar"_s, importacion, L(f.nombre)};
        if (f.pideValor()) orden << u"4"_s;
        const Corrida c = lote(orden);
        EXPECT_EQ(c.estado, 0) << f.nombre << c.errores.toStdString();
        QStringList ids;
        for (const QJsonObject &linea : c.mensajes()) ids << QString::number(linea.value("id"_L1).toInt());
        QStringList delModulo;
        for (const FilaSubItem &fila : GetRsSubtiems(*ctx, importacion, CondicionDe(FiltroCon(f, u"4"_s))))
            delModulo << QString::number(fila.id);
        EXPECT_EQ(ids, delModulo) << f.nombre;
        EXPECT_EQ(c.resultado().value("filtro"_L1).toInt(), f.numero);
    }
    // A line's position either is known and without the mark, or not.
    EXPECT_EQ(lote({u"filtrar"_s, importacion, u"14"_s}).mensajes().size() +
                  lote({u"filtrar"_s, importacion, u"15"_s}).mensajes().size(),
              25U);
}

TEST_P(LineasEnLote, AnOperationThatAnotherWorkstationHoldsIsFilteredAndNotChanged) {
    ejecutar(u"insert into interno (interno,maquina,usuario) values ('IC-2026-0001','OTRA','X')"_s);
    EXPECT_EQ(filtradas({u"2"_s}), sinKilos);
    const Corrida c = masivo({u"VariarPaisOrigen"_s}, R"(["Si"])");
    EXPECT_EQ(c.estado, 1);
    ASSERT_FALSE(c.textos().isEmpty());
    EXPECT_TRUE(c.textos()[0].contains(u"OTRA"_s)) << c.textos()[0].toStdString();
    EXPECT_EQ(c.resultado().value("cambiado"_L1), false);
    EXPECT_EQ(cuantas("idpais = ''"), "0");
    EXPECT_EQ(valor(u"select maquina from interno where interno = 'IC-2026-0001'"_s), u"OTRA"_s);
}

TEST_P(LineasEnLote, AnOperationThatIsNotThereIsTold) {
    for (const QStringList &orden : {QStringList{u"filtrar"_s, u"NO-HAY"_s, u"4"_s},
                                     {u"masivo"_s, u"NO-HAY"_s, u"EstablecerFiller"_s, u"X"_s}}) {
        const Corrida c = lote(orden);
        EXPECT_EQ(c.estado, 1);
        EXPECT_EQ(c.textos(),
                  QStringList{u"No se encontró el interno NO-HAY; revise la clave o créelo primero."_s});
    }
}

TEST_P(LineasEnLote, AChangeWithAQuestionIsDoneOnAYesAlone) {
    const Corrida no = masivo({u"VariarPaisOrigen"_s});
    EXPECT_EQ(no.estado, 0);
    EXPECT_EQ(no.resultado().value("cambiado"_L1), false);
    EXPECT_FALSE(no.resultado().contains("lineas"_L1));
    EXPECT_EQ(cuantas("idpais = ''"), "0");
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IC-2026-0001'"_s), u"N"_s);

    const Corrida si = masivo({u"variarpaisorigen"_s}, R"(["Si"])");
    EXPECT_EQ(si.textos(),
              QStringList{u"Confirma vaciar el campo Pais Origen en todos los articulos cargados?"_s});
    EXPECT_EQ(si.resultado(), (QJsonObject{{u"resultado"_s, u"masivo"_s},
                                           {u"interno"_s, importacion},
                                           {u"cambio"_s, u"VariarPaisOrigen"_s},
                                           {u"cambiado"_s, true},
                                           {u"lineas"_s, 25},
                                           {u"estado"_s, 0}}))
        << QJsonDocument(si.resultado()).toJson().toStdString();
    EXPECT_EQ(cuantas("idpais = ''"), "25");
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IC-2026-0001'"_s), u"S"_s)
        << "to be armed again";
    EXPECT_EQ(valor(u"select count(*) as n from interno"_s), u"0"_s) << "given back";
}

TEST_P(LineasEnLote, AChangeWithAValueAsksNothing) {
    const Corrida c = masivo({u"EstablecerPaisDeOrigen"_s, u" 310 "_s});
    EXPECT_EQ(c.estado, 0);
    EXPECT_TRUE(c.mensajes().empty());
    EXPECT_EQ(c.resultado().value("lineas"_L1).toInt(), 25);
    EXPECT_EQ(cuantas("idpais = '310'"), "25");
    masivo({u"EstablecerFiller"_s, u"O'Brien"_s});
    EXPECT_EQ(cuantas("itfiller = 'O''Brien'"), "25");
    masivo({u"EstablecerPaisDeProcedencia"_s, u"438"_s});
    EXPECT_EQ(cuantas("idpaisproc = '438'"), "25");
    EXPECT_EQ(cuantas("(idpais = '310' or itfiller = 'O''Brien')", exportacion), "0");
}

TEST_P(LineasEnLote, KilosAreSetToZeroWithWhatIsMeasuredInThem) {
    // Of the demonstration: lines in kilograms have their statistics in them.
    const std::string enKilos = cuantas("estadistica = '01' and valorrelacionestadistica > 0");
    EXPECT_NE(enKilos, "0");
    const std::string enOtras = cuantas("estadistica <> '01' and valorrelacionestadistica > 0");
    EXPECT_EQ(masivo({u"SetearKilosCero"_s}, R"(["Si"])").resultado().value("lineas"_L1).toInt(), 25);
    EXPECT_EQ(cuantas("kgneto = 0"), "25");
    EXPECT_EQ(cuantas("estadistica = '01' and valorrelacionestadistica > 0"), "0");
    EXPECT_EQ(cuantas("estadistica <> '01' and valorrelacionestadistica > 0"), enOtras);
    EXPECT_EQ(cuantas("deresp = '01' and valorderesp <> 0"), "0");
}

TEST_P(LineasEnLote, WithoutLinesNothingIsChangedAndNothingIsToBeArmed) {
    ejecutar(u"delete from subitems where interno = 'IC-2026-0001'"_s);
    const Corrida c = masivo({u"VaciarFiller"_s}, R"(["Si"])");
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value("lineas"_L1).toInt(-1), 0);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IC-2026-0001'"_s), u"N"_s);
    EXPECT_EQ(filtradas({u"16"_s}), "");
}

TEST(LineasEnLotePedidas, AWrongUseIsOneSentence) {
    const QTemporaryDir dir;
    const QString p = dir.filePath(u"p.ini"_s);
    struct Caso {
        QStringList argumentos;
        QString dice;
    };
    const Caso casos[] = {
        {{u"masivo"_s}, u"Falta CLAVE (la clave de una operación)"_s},
        {{u"masivo"_s, u"A1"_s}, u"Falta ACCION (el cambio, por su nombre)"_s},
        {{u"masivo"_s, u"A1"_s, u"Vaciar"_s},
         u"ACCION no sirve: \"Vaciar\" no es uno de los cambios (SetearKilosCero, VariarPaisOrigen, "
         "VaciarFiller, VaciarIdProrrateo, EstablecerFiller, EstablecerPaisDeOrigen, "
         "EstablecerPaisDeProcedencia)"_s},
        {{u"masivo"_s, u"A1"_s, u"EstablecerFiller"_s},
         u"Falta VALOR: el cambio EstablecerFiller lo lleva"_s},
        {{u"masivo"_s, u"A1"_s, u"EstablecerFiller"_s, u" "_s},
         u"Falta VALOR: el cambio EstablecerFiller lo lleva"_s},
        {{u"masivo"_s, u"A1"_s, u"VaciarFiller"_s, u"X"_s},
         u"Sobra \"X\": el cambio VaciarFiller no lleva valor"_s},
        {{u"filtrar"_s, u"A1"_s}, u"Falta FILTRO (el filtro, por su número o su nombre)"_s},
        {{u"filtrar"_s, u"A1"_s, u"18"_s},
         u"FILTRO no sirve: \"18\" no es uno de los filtros (1 a 17: con-kilos, sin-kilos, con-pais, "
         "sin-pais, con-estado, sin-estado, posicion, posicion-incompleta, sin-sufijos, sin-estadistica, "
         "sufijos-vacios, pais, descripcion, con-lapi, sin-lapi, fuera-del-nomenclador, sufijos)"_s},
        {{u"filtrar"_s, u"A1"_s, u"7"_s}, u"Falta VALOR: el filtro posicion lo lleva"_s},
        {{u"filtrar"_s, u"A1"_s, u"7"_s, u"''"_s},
         u"VALOR no sirve: \"''\" queda vacío sin sus apóstrofos"_s},
        {{u"filtrar"_s, u"A1"_s, u"sin-pais"_s, u"203"_s},
         u"Sobra \"203\": el filtro sin-pais no lleva valor"_s},
    };
    for (const Caso &caso : casos) {
        const Corrida c = Lote(dir.path(), QStringList{u"--perfil"_s, p} + caso.argumentos);
        EXPECT_EQ(c.estado, 2);
        EXPECT_EQ(
            c.errores.trimmed().toStdString(),
            (caso.dice + u"; vea zendra_lote %1 --ayuda."_s.arg(caso.argumentos.front())).toStdString());
    }
}

TEST(LineasEnElDocumento, EveryChangeAndEveryFilterHasItsRow) {
    QFile archivo(CarpetaDeFuentes() + "/docs/lote.md"_L1);
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    const QString texto = QString::fromUtf8(archivo.readAll());
    for (const CambioMasivo &c : CambiosMasivos())
        EXPECT_TRUE(texto.contains(u"\n| `%1` | "_s.arg(L(c.nombre)))) << c.nombre;
    for (const FiltroDeLineas &f : FiltrosDeLineas())
        EXPECT_TRUE(texto.contains(u"\n| %1 | `%2` | "_s.arg(f.numero).arg(L(f.nombre)))) << f.nombre;
}

}  // namespace
