#include "tests/lote/fuzz.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include "frame/base/values.h"

using namespace Qt::StringLiterals;

namespace {

/// What one store says, without what is its own: the folder, and the sizes of what has a date inside.
QString parejo(const Corrida &c, const QString &carpeta, bool enOrdenDeTextos) {
    QStringList lineas;
    for (QJsonObject o : c.lineas) {
        o.remove(u"bytes"_s);
        lineas << QString::fromUtf8(QJsonDocument(o).toJson(QJsonDocument::Compact));
    }
    lineas << c.errores;
    if (enOrdenDeTextos) lineas.sort();
    return lineas.join(u'\n').replace(carpeta, u"{CARPETA}"_s);
}

QStringList argumentosDe(const Tienda &t, const OrdenDeLote &orden) {
    QStringList argumentos;
    if (!orden.palabras.contains(u"--perfil"_s)) argumentos << u"--perfil"_s << t.perfil();
    if (!orden.palabras.contains(u"--ajustes"_s))
        argumentos << u"--ajustes"_s << t.carpeta() + u"/lote.ini"_s;
    if (!orden.respuestas.isEmpty()) {
        const QByteArray json = QJsonDocument(QJsonArray::fromStringList(orden.respuestas)).toJson();
        argumentos << u"--respuestas"_s << Escribir(t.carpeta(), u"respuestas.json"_s, json);
    }
    for (QString palabra : orden.palabras) argumentos << palabra.replace(u"{CARPETA}"_s, t.carpeta());
    return argumentos;
}

}  // namespace

QString DefectoDeCorrida(const Corrida &c) {
    constexpr int masAlto = 2;
    if (c.estado < 0 || c.estado > masAlto) return u"it ended with %1: %2"_s.arg(c.estado).arg(c.errores);
    if (!c.ilegibles.isEmpty()) return u"no JSON: "_s + Visto(c.ilegibles.join(u'\n'));
    if (c.estado == 2) {
        if (!c.lineas.empty()) return u"a wrong use that wrote lines"_s;
        if (c.errores.count(u'\n') != 1 || !c.errores.endsWith(u'\n'))
            return u"a wrong use is one line: "_s + Visto(c.errores);
        for (const QChar letra : c.errores.chopped(1))
            if (!letra.isPrint() && !letra.isSurrogate()) return u"not for a terminal: "_s + Visto(c.errores);
    } else {
        if (!c.errores.isEmpty()) return u"on standard error: "_s + c.errores.left(2000);
        if (c.lineas.empty()) return u"no line at all"_s;
        if (c.resultado().value(u"estado"_s).toInt(-1) != c.estado) return u"the last line has no status"_s;
    }
    QStringList dicho = c.textos();
    dicho << c.errores;
    for (const QString &texto : dicho)
        if (TienePalabrasDeMotor(texto)) return u"words of an engine: "_s + Visto(texto);
    if (c.estado == 1) {
        for (const QString &texto : c.textos())
            if (!texto.trimmed().isEmpty()) return {};
        // What was only asked and answered No is told by its question; the rest by its own counts.
        if (c.mensajes().empty()) return u"refused without a word"_s;
    }
    return {};
}

void EnAmbasALaVez::SetUp() {
    for (std::size_t n = 0; n < cuantas; ++n) {
        tiendas_[n] = std::make_unique<Tienda>(n == 0 ? u"ACCESS"_s : u"SQL"_s, true);
        ctx_[n] = tiendas_[n]->contexto(registros_[n]);
    }
    RecordProperty("semilla", QString::number(azar.semilla()).toStdString());
    // Links of articles are the server's alone.
    ejecutar(u"delete from articulo_ventaja"_s, u"CATALOGOS"_s);
}

void EnAmbasALaVez::TearDown() {
    if (HasFailure()) ADD_FAILURE() << "made again with ZENDRA_SEMILLA=" << azar.semilla();
    for (std::size_t n = 0; n < cuantas; ++n) {
        ctx_[n].reset();
        tiendas_[n].reset();
    }
}

Corrida EnAmbasALaVez::dar(const OrdenDeLote &orden, const QString &donde) {
    std::array<std::unique_ptr<QProcess>, cuantas> procesos;
    for (std::size_t n = 0; n < cuantas; ++n)
        procesos[n] = EmpezarLote(tiendas_[n]->carpeta(), argumentosDe(*tiendas_[n], orden));
    std::array<Corrida, cuantas> corridas;
    std::array<QString, cuantas> dicho;
    for (std::size_t n = 0; n < cuantas; ++n) {
        corridas[n] = TerminarLote(*procesos[n]);
        const QString defecto = DefectoDeCorrida(corridas[n]);
        EXPECT_TRUE(defecto.isEmpty())
            << (n == 0 ? "files" : "server") << ", " << donde.toStdString() << ": " << defecto.toStdString();
        dicho[n] = parejo(corridas[n], tiendas_[n]->carpeta(), orden.enOrdenDeTextos);
    }
    EXPECT_EQ(Visto(dicho[0]).toStdString(), Visto(dicho[1]).toStdString()) << donde.toStdString();
    EXPECT_TRUE(dicho[0] == dicho[1]) << donde.toStdString();
    return corridas[0];
}

Corrida EnAmbasALaVez::hacer(const QStringList &palabras, const QStringList &respuestas) {
    Corrida c = dar({palabras, respuestas}, palabras.join(u' '));
    EXPECT_EQ(c.estado, 0) << Visto(palabras.join(u' ')).toStdString() << ": "
                           << Visto(c.textos().join(u" / "_s)).toStdString()
                           << Visto(c.errores).toStdString();
    return c;
}

void EnAmbasALaVez::ejecutar(const QString &sql, const QString &entidad) {
    for (const auto &ctx : ctx_) Ejecutar(*ctx, entidad, sql);
}

QStringList EnAmbasALaVez::columna(const QString &sql, const QString &entidad) {
    std::array<QStringList, cuantas> todas;
    for (std::size_t n = 0; n < cuantas; ++n) {
        Recordset rs;
        for (Consultar(*ctx_[n], entidad, sql, rs); !rs.Eof(); rs.MoveNext())
            todas[n] << EsNull(rs.Fields(0).Value);
    }
    EXPECT_TRUE(todas[0] == todas[1]) << sql.toStdString();
    return todas[0];
}

void EnAmbasALaVez::escribir(const QString &nombre, const QByteArray &datos) {
    for (const auto &t : tiendas_) {
        const QString ruta = t->carpeta() + u'/' + nombre;
        QFile f(ruta);
        // A name that the system does not take is the program's to refuse.
        if (f.open(QIODevice::WriteOnly)) f.write(datos);
    }
}

std::array<std::map<QString, QString>, EnAmbasALaVez::cuantas> EnAmbasALaVez::huellas(const SinContar &sin) {
    std::array<std::map<QString, QString>, cuantas> todas;
    for (std::size_t n = 0; n < cuantas; ++n) todas[n] = Huella(*ctx_[n], sin);
    return todas;
}

void EnAmbasALaVez::nadaMas(const std::array<std::map<QString, QString>, cuantas> &antes,
                            const SinContar &sin, const QString &donde) {
    const auto ahora = huellas(sin);
    for (std::size_t n = 0; n < cuantas; ++n)
        EXPECT_EQ(Diferencias(antes[n], ahora[n]).toStdString(), "")
            << (n == 0 ? "files" : "server") << ", " << donde.toStdString();
}
