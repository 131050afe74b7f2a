// What the batch program takes is in the store as it was given, whatever it holds, on both kinds of store;
// what it does not take is told and leaves no trace.

#include <QFile>
#include <QProcess>

#include "frame/base/texts.h"
#include "frame/base/values.h"
#include "frame/csv.h"
#include "frame/entities.h"
#include "operations/operationkey.h"
#include "tests/lote/fuzz.h"

using namespace Qt::StringLiterals;

namespace {

/// A text of JSON in plain letters: every other one, halves of pairs among them, by its number.
QByteArray enJson(const QString &texto) {
    QByteArray json = "\"";
    for (const QChar c : texto) {
        const bool llana = c >= u' ' && c < u'\u007f' && c != u'"' && c != u'\\';
        json += llana ? QByteArray(1, c.toLatin1())
                      : "\\u" + QByteArray::number(c.unicode(), 16).rightJustified(4, '0');
    }
    return json + '"';
}

QByteArray enCsv(QString texto) {
    return '"' + texto.replace(u'"', u"\"\""_s).toUtf8() + '"';
}

QString numerado(const char *letra, std::size_t n) {
    return QLatin1String(letra) + QString::number(n).rightJustified(3, u'0');
}

class FuzzDeDatos : public EnAmbasALaVez {
 protected:
    /// The table, and as many mixtures.
    std::vector<QString> textos() {
        std::vector<QString> todos;
        for (const TextoFeo &t : TextosFeos()) todos.push_back(t.texto);
        const std::size_t deTabla = todos.size();
        for (std::size_t n = 0; n < deTabla; ++n) todos.push_back(azar.mezcla());
        return todos;
    }
    /// One value of both stores.
    QString unValor(const QString &sql, const QString &entidad = u"INTERNOS"_s) {
        return columna(sql, entidad).value(0, u"<nada>"_s);
    }
};

TEST_F(FuzzDeDatos, AKeyIsTakenAsItIsOrRefusedAndADeletedOneTakesNothingElseAlong) {
    QStringList creadas;
    const auto antes = huellas();
    const qsizetype deMuestra = columna(u"select interno from caratula"_s).size();
    for (const TextoFeo &t : TextosFeos()) {
        if (!CabeEnArgumento(t.texto) || t.texto.startsWith(u"--"_s)) continue;
        const QString clave = t.texto.trimmed();
        const Corrida c = dar({{u"crear"_s, t.texto}}, QString::fromLatin1(t.que));
        EXPECT_EQ(c.estado == 0, DefectoDeClaveNueva(clave).isEmpty()) << t.que;
        if (c.estado == 0) creadas << clave;
    }
    constexpr qsizetype bastantes = 20;
    EXPECT_GE(creadas.size(), bastantes);
    QStringList estan = columna(u"select interno from caratula"_s);
    for (const QString &clave : creadas) EXPECT_TRUE(estan.contains(clave)) << Visto(clave).toStdString();
    EXPECT_EQ(estan.size(), deMuestra + creadas.size());
    hacer(QStringList{u"exportar"_s} + creadas + QStringList{u"--salida"_s, carpeta + u"/claves.zop"_s});
    QStringList dichas;
    const Corrida lista = dar({{u"listar"_s}, {}, true}, u"listar"_s);
    for (const QJsonObject &o : lista.mensajes()) dichas << o.value(u"interno"_s).toString();
    for (const QString &clave : creadas) EXPECT_TRUE(dichas.contains(clave)) << Visto(clave).toStdString();
    // Wild cards and words of SQL are letters of a key: each goes alone.
    for (int vez = 0; vez < 5; ++vez) {
        const QString clave =
            creadas.takeAt(static_cast<qsizetype>(azar.menorQue(static_cast<std::size_t>(creadas.size()))));
        hacer({u"borrar"_s, clave}, {u"Si"_s});
        nadaMas(antes, {creadas, {}}, u"borrar "_s + Visto(clave));
    }
}

TEST_F(FuzzDeDatos, AnInformationOfAnItemIsKeptAsGiven) {
    hacer({u"armar"_s, u"IC-2026-0001"_s, u"--forzar"_s});
    const auto todos = textos();
    std::vector<std::size_t> buenos;
    QByteArray json;
    for (std::size_t n = 0; n < todos.size(); ++n) {
        const QString id = numerado("I", n);
        ejecutar(u"insert into informacion (id,descripcion) values ('%1','x')"_s.arg(id), u"SYSTABLAS"_s);
        if (!DefectoDeTexto(todos[n]).isEmpty()) continue;
        json +=
            (buenos.empty() ? "" : ",") + ("{\"id\":" + enJson(id) + ",\"valor\":" + enJson(todos[n]) + '}');
        buenos.push_back(n);
    }
    const SinContar sin{{u"IC-2026-0001"_s}, {}};
    const auto antes = huellas(sin);
    escribir(u"c.json"_s, "{\"informacion\":{\"agregar\":[" + json + "]}}");
    hacer({u"item"_s, u"IC-2026-0001"_s, u"1"_s, u"--cambios"_s, carpeta + u"/c.json"_s});
    for (const std::size_t n : buenos)
        EXPECT_TRUE(
            unValor(u"select valor from iteminfo where interno = 'IC-2026-0001' and idinfo = '%1'"_s.arg(
                numerado("I", n))) == todos[n])
            << Visto(todos[n]).toStdString();
    // What no store keeps is refused by name, and so is a code that is none.
    for (const QString &feo : {u"a"_s + QChar(0) + u'b', u"a"_s + QChar(0xD83D), QString(QChar(0xDEA2))}) {
        escribir(u"c.json"_s,
                 "{\"informacion\":{\"agregar\":[{\"id\":\"NRO.LICENCIA\",\"valor\":" + enJson(feo) + "}]}}");
        const Corrida c =
            dar({{u"item"_s, u"IC-2026-0001"_s, u"1"_s, u"--cambios"_s, carpeta + u"/c.json"_s}}, Visto(feo));
        EXPECT_EQ(c.estado, 1) << Visto(feo).toStdString();
        EXPECT_EQ(unValor(u"select count(*) from iteminfo where idinfo = 'NRO.LICENCIA'"_s), u"0"_s);
    }
    for (int vez = 0; vez < 8; ++vez) {
        const QString feo = ronda.siguiente();
        escribir(u"c.json"_s, "{\"informacion\":{\"eliminar\":[" + enJson(feo) + "]}}");
        const Corrida c =
            dar({{u"item"_s, u"IC-2026-0001"_s, u"1"_s, u"--cambios"_s, carpeta + u"/c.json"_s}}, Visto(feo));
        EXPECT_EQ(c.estado, 1) << Visto(feo).toStdString();
    }
    EXPECT_EQ(unValor(u"select count(*) from iteminfo where idinfo like 'I___'"_s),
              QString::number(buenos.size()));
    nadaMas(antes, sin, u"informacion"_s);
}

TEST_F(FuzzDeDatos, EveryMemberOfAFileOfChangesIsKeptOrRefused) {
    hacer({u"armar"_s, u"IC-2026-0001"_s, u"--forzar"_s});
    const char *const moldes[] = {
        R"({"campos":{"naladisa":%1}})",
        R"({"campos":{"lista":%1}})",
        R"({"campos":{"idpais":%1}})",
        R"({"campos":{"tipoitem":%1,"itemasociado":%1}})",
        R"({"campos":{"onccaacuerdo":%1,"opcionesiva":%1}})",
        R"({"campos":{"totalkneto":%1}})",
        R"({"campos":{%1:"1"}})",
        R"({"ventajas":{"agregar":[%1]}})",
        R"({"ventajas":{"eliminar":[%1]}})",
        R"({"conceptos":{"agregar":[{"codigo":%1,"porcentaje":1,"base":1000}]}})",
        R"({"conceptos":{"modificar":[{"codigo":"010","motivo":%1,"pgc":"G"}]}})",
        R"({"conceptos":{"modificar":[{"codigo":"010","pgc":%1}]}})",
        R"({"conceptos":{"modificar":[{"codigo":"010","nuevo":%1}]}})",
        R"({"conceptos":{"eliminar":[%1]}})",
        R"({"kilos":%1})",
        R"({%1:1})",
    };
    const SinContar sin{{u"IC-2026-0001"_s}, {}};
    const auto antes = huellas(sin);
    for (const char *molde : moldes) {
        for (int vez = 0; vez < 3; ++vez) {
            const QString feo = ronda.siguiente();
            QByteArray json = molde;
            json.replace("%1", enJson(feo));
            escribir(u"c.json"_s, json);
            const QString donde = QString::fromLatin1(molde) + u' ' + Visto(feo);
            const Corrida c =
                dar({{u"item"_s, u"IC-2026-0001"_s, u"1"_s, u"--cambios"_s, carpeta + u"/c.json"_s}}, donde);
            if (c.estado == 0 && QLatin1String(molde).contains("naladisa"_L1)) {
                EXPECT_EQ(
                    Visto(unValor(u"select naladisa from item where interno = 'IC-2026-0001' and id = 1"_s))
                        .toStdString(),
                    Visto(feo).toStdString());
            }
        }
    }
    nadaMas(antes, sin, u"item"_s);
}

TEST_F(FuzzDeDatos, PackagesKeepWhatTheyAreGiven) {
    const char *const columnas[] = {"marcabul", "bulnro", "bulcod",  "bultip",   "buldes",
                                    "via",      "trans",  "bandera", "factura10"};
    const SinContar sin{{u"IC-2026-0001"_s}, {}};
    const auto antes = huellas(sin);
    std::vector<QString> buenos;
    for (const QString &t : textos())
        if (DefectoDeTexto(t).isEmpty()) buenos.push_back(t);
    for (std::size_t desde = 0; desde + std::size(columnas) <= buenos.size(); desde += std::size(columnas)) {
        QByteArray campos;
        for (std::size_t c = 0; c < std::size(columnas); ++c)
            campos +=
                (c == 0 ? "" : ",") + ('"' + QByteArray(columnas[c]) + "\":") + enJson(buenos[desde + c]);
        escribir(u"c.json"_s, "{\"transferir\":true,\"campos\":{" + campos + "}}");
        hacer({u"bultos"_s, u"IC-2026-0001"_s, u"--cambios"_s, carpeta + u"/c.json"_s});
        for (std::size_t c = 0; c < std::size(columnas); ++c)
            EXPECT_TRUE(unValor(u"select %1 from caratula where interno = 'IC-2026-0001'"_s.arg(
                            QLatin1String(columnas[c]))) == buenos[desde + c])
                << columnas[c] << ' ' << Visto(buenos[desde + c]).toStdString();
    }
    nadaMas(antes, sin, u"bultos"_s);
}

TEST_F(FuzzDeDatos, ACatalogueIsLoadedListedAndMovedAsItIs) {
    std::vector<QString> todos;
    for (const QString &t : textos())
        if (DefectoDeTexto(t).isEmpty()) todos.push_back(t);
    QByteArray csv = "idarticulo,descripcion,otros,itfiller,ncm,idunidad,preciounitario\n";
    for (const QString &t : todos)
        csv += enCsv(Recortado(t, 50)) + ',' + enCsv(Recortado(t, 255)) + ',' + enCsv(Recortado(t, 100)) +
               ',' + enCsv(Recortado(t, 40)) + ",4901.99.00.111H,07,12.5\n";
    escribir(u"feos.csv"_s, csv);
    const SinContar sin{{}, {u"catarticulos"_s}};
    const auto antes = huellas(sin);
    const QString otros = u"select count(*) from catarticulos where idcatalogo not like 'FEO%'"_s;
    const QString cuantosOtros = unValor(otros, entidad::catalogos);
    const QString catalogo = u"FEO'S; --"_s;
    const Corrida carga =
        dar({{u"catalogo"_s, u"cargar"_s, catalogo, carpeta + u"/feos.csv"_s}}, u"cargar"_s);
    const Corrida lista = dar({{u"catalogo"_s, u"listar"_s, catalogo}, {}, true}, u"listar"_s);
    EXPECT_EQ(lista.estado, 0);
    EXPECT_EQ(lista.resultado().value(u"cantidad"_s).toInt(),
              carga.resultado().value(u"agregados"_s).toInt());
    QHash<QString, QString> descripciones;
    for (const QJsonObject &o : lista.mensajes())
        descripciones[o.value(u"articulo"_s).toString()] = o.value(u"descripcion"_s).toString();
    int guardados = 0;
    for (const QString &t : todos) {
        const QString codigo = Recortado(t, 50).trimmed();
        if (!descripciones.contains(codigo)) continue;
        ++guardados;
        EXPECT_TRUE(descripciones.value(codigo) == Recortado(t, 255).trimmed() ||
                    // Two texts that begin alike have one code.
                    t.size() >= 50)
            << Visto(t).toStdString() << " / " << Visto(descripciones.value(codigo)).toStdString();
        EXPECT_TRUE(columna(u"select otros from catarticulos where idcatalogo = "_s +
                                TextoEnComillas(catalogo) + u" and idarticulo = "_s + TextoEnComillas(codigo),
                            entidad::catalogos)
                            .value(0) == Recortado(t, 100).trimmed() ||
                    t.size() >= 50)
            << Visto(t).toStdString();
    }
    EXPECT_GE(guardados, 80);
    for (const char *clase : {"csv", "xlsx", "pdf"})
        hacer({u"lista"_s, u"catalogo"_s, catalogo, u"--salida"_s,
               carpeta + u"/feos."_s + QLatin1String(clase)});
    hacer({u"licencias"_s, u"--catalogo"_s, catalogo, u"--salida"_s, carpeta + u"/feos.xls"_s});
    hacer({u"catalogo"_s, u"mover"_s, catalogo, u"FEO\\"_s}, {u"Si"_s});
    EXPECT_EQ(unValor(u"select count(*) from catarticulos where idcatalogo = 'FEO\\'"_s, entidad::catalogos),
              QString::number(lista.resultado().value(u"cantidad"_s).toInt()));
    EXPECT_EQ(unValor(otros, entidad::catalogos), cuantosOtros);
    escribir(u"nulo.csv"_s, QByteArray("idarticulo,ncm\nA\0B,1\n", 20));
    EXPECT_EQ(
        dar({{u"catalogo"_s, u"cargar"_s, u"FEO NULO"_s, carpeta + u"/nulo.csv"_s}}, u"a zero character"_s)
            .estado,
        1);
    EXPECT_EQ(
        unValor(u"select count(*) from catarticulos where idcatalogo = 'FEO NULO'"_s, entidad::catalogos),
        u"0"_s);
    nadaMas(antes, sin, u"catalogo"_s);
}

TEST_F(FuzzDeDatos, MarksOfPlacesInATextAreNotFilledIn) {
    escribir(u"%2%1.csv"_s,
             "articulo,posicion,unidad,precio\n%2%1,4901.99.00.111H,07,1\n%2%1,4901.99.00.111H,07,1\n");
    const Corrida carga =
        dar({{u"catalogo"_s, u"cargar"_s, u"MARCAS"_s, carpeta + u"/%2%1.csv"_s}}, u"csv"_s);
    EXPECT_EQ(
        carga.textos(),
        QStringList(u"línea 3: el artículo %2%1 está repetido, es el de la línea 2; la fila no se carga"_s));
    escribir(u"%2%1.json"_s, "{");
    const Corrida json = dar({{u"listar"_s, u"--opciones"_s, carpeta + u"/%2%1.json"_s}}, u"json"_s);
    EXPECT_EQ(json.errores, u"El archivo "_s + tienda(0).carpeta() +
                                u"/%2%1.json no es JSON válido (falla en el byte 1); corríjalo.\n"_s);
    const Corrida corta = dar(
        {{u"licencias"_s, u"--posicion"_s, u"%2%1"_s, u"--salida"_s, carpeta + u"/x.xls"_s}}, u"posicion"_s);
    EXPECT_EQ(
        corta.errores,
        u"--posicion no sirve: \"%2%1\" tiene menos de 5 caracteres; vea zendra_lote licencias --ayuda.\n"_s);
}

TEST_F(FuzzDeDatos, AnArgumentThatIsNoUtf8IsOneThatIsNotThere) {
    for (std::size_t n = 0; n < cuantas; ++n) {
        QProcess p;
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.insert(u"HOME"_s, tienda(n).carpeta());
        p.setProcessEnvironment(entorno);
        p.start(
            u"/bin/sh"_s,
            {u"-c"_s, u"exec \"$0\" --perfil \"$1\" --ajustes \"$2\" borrar \"$(printf 'a\\377\\300b')\""_s,
             qEnvironmentVariable("ZENDRA_BIN", CarpetaDeConstruccion()) + u"/zendra_lote"_s,
             tienda(n).perfil(), tienda(n).carpeta() + u"/lote.ini"_s});
        const Corrida c = TerminarLote(p);
        EXPECT_EQ(DefectoDeCorrida(c).toStdString(), "");
        EXPECT_EQ(c.estado, 1);
        EXPECT_EQ(c.textos().size(), 1);
    }
}

}  // namespace
