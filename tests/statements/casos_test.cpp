#include "tests/statements/casos.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>
#include <QStringList>
#include <memory>

#include "frame/base/values.h"
#include "frame/context.h"
#include "tests/statements/muestra.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

struct Store {
    std::unique_ptr<Tienda> tienda;
    Registro registro;
    std::unique_ptr<AppContext> ctx;
};

struct Pareja {
    Store archivos, servidor;
};

/// "{moment}" as the entity's date literal.
QString conFechas(QString texto, const AppContext &ctx, const QString &entidad) {
    static const QRegularExpression marca(u"\\{(\\d{4}-\\d\\d-\\d\\d(?: \\d\\d:\\d\\d:\\d\\d)?)\\}"_s);
    for (auto m = marca.match(texto); m.hasMatch(); m = marca.match(texto)) {
        const QString fecha = m.captured(1);
        const QDateTime momento = fecha.size() > 10 ? QDateTime::fromString(fecha, u"yyyy-MM-dd HH:mm:ss"_s)
                                                    : QDate::fromString(fecha, Qt::ISODate).startOfDay();
        texto.replace(m.capturedStart(), m.capturedLength(),
                      ctx.DataManager.getDateFormatbyEntity(entidad, momento));
    }
    return texto;
}

void llenar(Store &store, const QString &etiqueta) {
    store.tienda = std::make_unique<Tienda>(etiqueta);
    store.ctx = store.tienda->contexto(store.registro);
    for (const FilaDeMuestra &fila : muestra())
        Ejecutar(*store.ctx, QLatin1String(fila.entidad),
                 conFechas(QString::fromUtf8(fila.texto), *store.ctx, QLatin1String(fila.entidad)));
}

Pareja &pareja() {
    static std::unique_ptr<Pareja> una;
    if (!una) {
        auto nueva = std::make_unique<Pareja>();
        llenar(nueva->archivos, u"ACCESS"_s);
        llenar(nueva->servidor, u"SQL"_s);
        una = std::move(nueva);
        // While the drivers can still be loaded.
        qAddPostRoutine([] { una.reset(); });
    }
    return *una;
}

QString celda(const QVariant &valor) {
    if (valor.isNull()) return u"<null>"_s;
    return valor.typeId() == QMetaType::QString ? QLatin1Char('\'') + valor.toString() + QLatin1Char('\'')
                                                : EsNull(valor);
}

void leer(AppContext &ctx, const QString &texto, const QString &entidad, Respuesta &r) {
    Recordset rs;
    Consultar(ctx, entidad, texto, rs);
    for (int c = 0; c < rs.columnas(); ++c) {
        const QString nombre = rs.nombreDeColumna(c).toLower();
        static const QRegularExpression deTabla(u"^[a-z_0-9]+$"_s);
        r.columnas << (deTabla.match(nombre).hasMatch() ? nombre : QString());
    }
    for (; !rs.Eof(); rs.MoveNext()) {
        QStringList celdas;
        for (int c = 0; c < rs.columnas(); ++c) celdas << celda(rs.Fields(c).Value);
        r.filas << celdas.join(QLatin1Char('|'));
    }
}

/// The table that a command writes.
QString tablaDe(const QString &texto) {
    static const QRegularExpression escribe(u"^\\s*(?:update|insert\\s+into|delete\\s+from)\\s+(\\w+)"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    const auto m = escribe.match(texto);
    return m.hasMatch() ? m.captured(1) : u"descargas"_s;
}

Respuesta correr(AppContext &ctx, const QString &original, const QString &entidad) {
    Respuesta r;
    const QString texto = conFechas(original, ctx, entidad);
    const bool lee = texto.trimmed().startsWith("select"_L1, Qt::CaseInsensitive);
    Conexion &conexion = ctx.conexion(entidad);
    if (!lee) conexion.coneccion().transaction();
    try {
        if (lee) {
            leer(ctx, texto, entidad, r);
        } else {
            r.tocadas = Ejecutar(ctx, entidad, texto);
            leer(ctx, "select * from "_L1 + tablaDe(texto), entidad, r);
        }
    } catch (const Falla &e) {
        r.rechazada = true;
        r.error = e.descripcion;
    }
    // A refused command ends the server's connection, and the transaction with it.
    if (!lee && conexion.abierta()) conexion.coneccion().rollback();
    return r;
}

}  // namespace

QString Respuesta::sinComillas() const {
    return filas.join(QLatin1Char('\n')).remove(QLatin1Char('\''));
}

LosDos correrEnLosDos(const QString &texto, const QString &entidad) {
    Pareja &p = pareja();
    LosDos r;
    r.archivos = correr(*p.archivos.ctx, texto, entidad);
    r.servidor = correr(*p.servidor.ctx, texto, entidad);
    return r;
}

TEST_P(Statements, AnswerAlikeOnBothStores) {
    const Caso &caso = GetParam();
    const QString texto = QString::fromUtf8(caso.texto);
    const bool lee = texto.trimmed().startsWith("select"_L1, Qt::CaseInsensitive);
    const auto [archivos, servidor] = correrEnLosDos(texto, QLatin1String(caso.entidad));
    if (caso.espera == Espera::Rechazo) {
        EXPECT_TRUE(archivos.rechazada) << "the file store takes it";
        EXPECT_TRUE(servidor.rechazada) << "the server store takes it";
        EXPECT_FALSE(archivos.error.isEmpty());
        EXPECT_FALSE(servidor.error.isEmpty());
        return;
    }
    ASSERT_FALSE(archivos.rechazada) << archivos.error.toStdString();
    ASSERT_FALSE(servidor.rechazada) << servidor.error.toStdString();
    EXPECT_EQ(archivos.tocadas, servidor.tocadas);
    ASSERT_EQ(archivos.columnas.size(), servidor.columnas.size());
    // A column without a name is called after its expression by one engine and after its function by the
    // other.
    for (qsizetype c = 0; c < archivos.columnas.size(); ++c) {
        if (archivos.columnas[c].isEmpty()) continue;
        EXPECT_EQ(archivos.columnas[c].toStdString(), servidor.columnas[c].toStdString());
    }
    EXPECT_EQ(archivos.filas.join(QLatin1Char('\n')).toStdString(),
              servidor.filas.join(QLatin1Char('\n')).toStdString());
    const qint64 cuantas = lee ? archivos.filas.size() : archivos.tocadas;
    if (caso.espera == Espera::Filas)
        EXPECT_GT(cuantas, 0);
    else
        EXPECT_EQ(cuantas, 0);
    if (caso.respuesta == nullptr) return;
    EXPECT_EQ((lee ? archivos.sinComillas() : QString::number(archivos.tocadas)).toStdString(),
              caso.respuesta);
}
