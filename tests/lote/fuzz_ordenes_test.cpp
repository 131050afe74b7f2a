// Every command of the batch program, every word of it in turn put in place of a text that breaks what pastes
// it: the run ends by itself, says one sentence when it refuses, and touches nothing else.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include "operations/batch.h"
#include "tests/lote/fuzz.h"

using namespace Qt::StringLiterals;

namespace {

/// An order that is done as it stands. A word between "<" and ">" is given other values: a text; behind "in:"
/// the name of a file that is there, behind "out:" of one that is written.
struct Plantilla {
    const char *orden;
    /// Tables that are not only an operation's and that it may write.
    const char *escribe = "";
    const char *respuesta = "";
};
const Plantilla plantillas[] = {
    {"crear <NUEVA-1>"},
    {"armar IT-2026-0003 --forzar"},
    {"armar <IC-2026-0001> --forzar"},
    {"liquidar <IC-2026-0001>"},
    {"item <IC-2026-0001> <1> --cambios <in:item.json>"},
    {"bultos <IC-2026-0001> --cambios <in:bultos.json>"},
    {"comprobar <IC-2026-0001>"},
    {"transferir <IC-2026-0001> --salida <out:declaracion.xml>"},
    {"imprimir <IC-2026-0001> --desde <0> --hasta <1> --subitems --salida <out:hoja.txt>"},
    {"presupuesto <IC-2026-0001> --salida <out:presupuesto.html>"},
    {"lista <lineas> <IC-2026-0001> --salida <out:lineas.csv>"},
    {"lista catalogo <HIDPLATA> --salida <out:catalogo.xlsx>"},
    {"masivo <IC-2026-0001> <EstablecerFiller> <FILLER>"},
    {"masivo IC-2026-0001 EstablecerPaisDeOrigen <438>"},
    {"filtrar <IC-2026-0001> <descripcion> <bomba>"},
    {"filtrar IC-2026-0001 posicion <8413>"},
    {"filtrar IC-2026-0001 pais <438>"},
    {"filtrar IC-2026-0001 sufijos <AA>"},
    {"licencias --catalogo <HIDPLATA> --salida <out:catalogo.xls>"},
    {"licencias --articulo <AMO-DE> --salida <out:articulo.xls>"},
    {"licencias --posicion <8708.80> --salida <out:posicion.xlsx>"},
    {"catalogo cargar <NUEVO> <in:articulos.csv> --reemplazar", "catarticulos"},
    {"catalogo listar <HIDPLATA>"},
    {"catalogo mover <HIDPLATA> <OTRO> --articulo <NP-0750>", "catarticulos", "Si"},
    {"stock cargar <IT-2026-0003> --declaracion <26001IT01000123T> --fecha <1/2/2026> --vencimiento "
     "<31/12/2033> --ctit <CTIT> --merma <2,5>",
     "stock", "Si"},
    {"stock devolver <EC-2026-0008> <{LINEA}>", "stock stockmov"},
    {"stock tomar <EC-2026-0008> <{LINEA}> --de <{STOCK}:400>", "stock stockmov"},
    {"stock revisar --reparar"},
    {"stock listar --cliente <alerces> --declaracion <26001> --articulo <nt-pe> --posicion <5603> --con-saldo"},
    {"exportar <IC-2026-0001> --salida <out:una.zop>"},
    {"importar <in:una.zop> --existentes <omitir>"},
    {"listar"},
    {"borrar <NUEVA-1>", "", "Si"},
};

/// A word of an order, and whether it is given other values.
struct Palabra {
    enum class Clase { Fija, Texto, Leida, Escrita };
    Clase clase = Clase::Fija;
    QString texto;  ///< of a file: its name alone
};

class FuzzDeOrdenes : public EnAmbasALaVez {
 protected:
    using C = Palabra::Clase;

    void SetUp() override {
        EnAmbasALaVez::SetUp();
        escribir(u"item.json"_s, R"({"informacion":{"agregar":[]},"campos":{"naladisa":"84137010"}})");
        escribir(u"bultos.json"_s, R"({"transferir":true,"campos":{"bulnro":"12"}})");
        escribir(u"articulos.csv"_s,
                 "articulo;posicion;nombre;unidad;precio\nLI-1;4901.99.00.111H;Libro;07;12,50\n");
        linea_ =
            columna(u"select min(id) from subitems where interno = 'EC-2026-0008' and idarticulo = 'NT-PE'"_s)
                .value(0);
        stock_ = columna(u"select id from stock where idarticulo = 'NT-PE'"_s).value(0);
    }

    std::vector<Palabra> palabrasDe(const Plantilla &p) const {
        static const QHash<QString, C> clases{{u"in"_s, C::Leida}, {u"out"_s, C::Escrita}};
        static const QRegularExpression hueco(u"^<(?:(in|out):)?(.*)>$"_s);
        std::vector<Palabra> palabras;
        for (QString palabra : QString::fromLatin1(p.orden).split(u' ')) {
            palabra.replace(u"{LINEA}"_s, linea_).replace(u"{STOCK}"_s, stock_);
            const auto m = hueco.match(palabra);
            if (m.hasMatch())
                palabras.push_back({clases.value(m.captured(1), C::Texto), m.captured(2)});
            else
                palabras.push_back({C::Fija, palabra});
        }
        return palabras;
    }

    static QString dicha(const Palabra &p) {
        return p.clase == C::Leida || p.clase == C::Escrita ? carpeta + u'/' + p.texto : p.texto;
    }

    static OrdenDeLote ordenDe(const Plantilla &p, const std::vector<Palabra> &palabras) {
        OrdenDeLote orden;
        for (const Palabra &una : palabras) orden.palabras << dicha(una);
        if (*p.respuesta != '\0') orden.respuestas << QString::fromLatin1(p.respuesta);
        return orden;
    }

    /// The next text that an argument can carry.
    QString otroTexto() {
        for (;;)
            if (QString texto = ronda.siguiente(); CabeEnArgumento(texto)) return texto;
    }

    /// Puts `feo` in the place of a word; the end of a file's name stays, since it tells the kind.
    Palabra conOtro(const Palabra &palabra, const QString &feo) {
        if (palabra.clase == C::Texto) return {palabra.clase, feo};
        const QString nombre = feo + u'.' + QFileInfo(palabra.texto).suffix();
        if (palabra.clase == C::Leida)
            for (std::size_t n = 0; n < cuantas; ++n)
                QFile::copy(tienda(n).carpeta() + u'/' + palabra.texto, tienda(n).carpeta() + u'/' + nombre);
        return {palabra.clase, nombre};
    }

    /// What has to be there after an order that was done with another word.
    void comprobar(const QString &comando, const Palabra &palabra, const Corrida &c, const QString &donde) {
        if (palabra.clase == C::Escrita && c.estado == 0) {
            for (std::size_t n = 0; n < cuantas; ++n)
                EXPECT_TRUE(QFileInfo::exists(tienda(n).carpeta() + u'/' + palabra.texto))
                    << donde.toStdString();
        }
        if (comando == u"crear"_s && c.estado == 0) {
            creadas_ << palabra.texto.trimmed();
            EXPECT_TRUE(columna(u"select interno from caratula"_s).contains(palabra.texto.trimmed()))
                << donde.toStdString();
        }
    }

    QString linea_, stock_;
    QStringList creadas_;
};

TEST_F(FuzzDeOrdenes, EveryCommandOfTheHelpIsDrivenInEveryWordThatItTakes) {
    const QStringList ayuda = Lote(tienda(0).carpeta(), {u"--ayuda"_s}).ilegibles;
    QSet<QString> comandos;
    static const QRegularExpression renglon(u"^  ([a-z]+(?: [a-z]+)?)(?= |$)"_s);
    for (qsizetype n = ayuda.indexOf(u"Comandos:"_s) + 1; n < ayuda.size() && !ayuda.at(n).isEmpty(); ++n)
        if (const auto m = renglon.match(ayuda.at(n)); m.hasMatch()) comandos << m.captured(1);
    EXPECT_EQ(comandos.size(), static_cast<qsizetype>(lote::Comandos().size())) << "the help is read whole";
    for (const consola::Comando &c : lote::Comandos()) {
        const QString nombre = QLatin1String(c.nombre);
        EXPECT_TRUE(comandos.contains(nombre)) << c.nombre;
        qsizetype argumentos = 0;
        QSet<QString> opciones;
        for (const Plantilla &p : plantillas) {
            if (!(QString::fromLatin1(p.orden) + u' ').startsWith(nombre + u' ')) continue;
            const std::vector<Palabra> palabras = palabrasDe(p);
            qsizetype suyos = 0;
            for (std::size_t n = static_cast<std::size_t>(nombre.count(u' ') + 1); n < palabras.size(); ++n) {
                const QString antes = palabras[n - 1].texto;
                if (palabras[n].texto.startsWith(u"--"_s))
                    opciones << palabras[n].texto.mid(2);
                else if (!antes.startsWith(u"--"_s))
                    suyos += palabras[n].clase == C::Fija ? 0 : 1;
                else
                    EXPECT_NE(palabras[n].clase, C::Fija) << p.orden;
            }
            argumentos = std::max(argumentos, suyos);
        }
        EXPECT_EQ(argumentos, static_cast<qsizetype>(c.argumentos.size())) << c.nombre;
        for (const consola::Opcion &o : c.opciones)
            EXPECT_TRUE(opciones.contains(QLatin1String(o.nombre))) << c.nombre << " --" << o.nombre;
    }
}

TEST_F(FuzzDeOrdenes, NoWordOfAnOrderBecomesAPieceOfAStatement) {
    const int veces = qEnvironmentVariable("ZENDRA_FUZZ_VECES", u"2"_s).toInt();
    for (const Plantilla &p : plantillas) {
        const std::vector<Palabra> palabras = palabrasDe(p);
        const QString comando = lote::Comandos().empty() ? QString() : palabras.front().texto;
        SinContar sin{{u"IC-2026-0001"_s, u"IT-2026-0003"_s, u"EC-2026-0008"_s, u"NUEVA-1"_s},
                      QString::fromLatin1(p.escribe).split(u' ', Qt::SkipEmptyParts)};
        sin.operaciones << creadas_;
        const auto antes = huellas(sin);
        const OrdenDeLote buena = ordenDe(p, palabras);
        hacer(buena.palabras, buena.respuestas);
        for (std::size_t n = 0; n < palabras.size(); ++n) {
            if (palabras[n].clase == C::Fija) continue;
            for (int vez = 0; vez < veces; ++vez) {
                std::vector<Palabra> otras = palabras;
                const QString feo = otroTexto();
                otras[n] = conOtro(palabras[n], feo);
                const QString donde = QString::fromLatin1(p.orden) + u" word %1: "_s.arg(n) + Visto(feo);
                comprobar(comando, otras[n], dar(ordenDe(p, otras), donde), donde);
            }
        }
        sin.operaciones << creadas_;
        nadaMas(antes, sin, QString::fromLatin1(p.orden));
    }
}

TEST_F(FuzzDeOrdenes, NoOptionOfEveryCommandDoesEither) {
    escribir(u"opciones.json"_s, R"({"opVDE":"S"})");
    escribir(u"si.json"_s, R"(["Si"])");
    const char *const opciones[] = {"ajustes", "opciones", "respuestas", "traza", "perfil"};
    const QHash<QString, QString> leidas{{u"opciones"_s, u"opciones.json"_s},
                                         {u"respuestas"_s, u"si.json"_s},
                                         {u"perfil"_s, QFileInfo(tienda(0).perfil()).fileName()}};
    const auto antes = huellas();
    for (const char *opcion : opciones) {
        const QString nombre = QLatin1String(opcion);
        for (int vez = 0; vez < 3; ++vez) {
            const QString feo = otroTexto();
            const QString archivo = leidas.contains(nombre)
                                        ? conOtro({C::Leida, leidas.value(nombre)}, feo).texto
                                        : feo + u".ini"_s;
            dar({{u"--"_s + nombre, carpeta + u'/' + archivo, u"listar"_s}},
                u"--"_s + nombre + u' ' + Visto(feo));
        }
    }
    nadaMas(antes, {}, u"options"_s);
}

}  // namespace
