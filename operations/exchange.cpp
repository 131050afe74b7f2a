#include "operations/exchange.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include "frame/base/texts.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/files.h"
#include "frame/paper/replace.h"
#include "operations/exchangefile.h"
#include "operations/exchangemarks.h"
#include "operations/exchangerelated.h"

using namespace Qt::StringLiterals;

namespace intercambio {

namespace {

using L = QLatin1String;

using entidad::internos;

/// About how many rows an operation has, for a bar: those of its longest tables.
qint64 filasDe(AppContext &ctx, const QString &clave) {
    qint64 filas = 1;
    for (const char *tabla : {"subitems", "groupsubitems", "itemliq"}) {
        Recordset rs;
        Consultar(ctx, internos,
                  "select count(*) as n from "_L1 + L(tabla) + " where interno = "_L1 + EnComillas(clave),
                  rs);
        filas += static_cast<qint64>(rs.Numero(u"n"));
    }
    return filas;
}

/// Raises Falla for an operation that cannot leave: one that is gone, and one that another workstation may be
/// changing meanwhile.
void comprobarQueSale(AppContext &ctx, const QString &clave) {
    if (!HayEnElStore(ctx, clave))
        throw Falla{
            0, internos, u"No se encontró el interno %1; vuelva a buscarlo en la lista."_s.arg(clave), {}};
    Recordset rs;
    if (Consultar(ctx, internos, "select maquina from interno where interno = "_L1 + EnComillas(clave), rs) &&
        rs.Texto(u"maquina").trimmed().toUpper() != ctx.PcName.trimmed().toUpper())
        throw Falla{0,
                    internos,
                    u"El interno %1 está abierto por la PC %2; ciérrelo allá y vuelva a exportar."_s.arg(
                        clave, rs.Texto(u"maquina").trimmed()),
                    {}};
}

void exportarUna(AppContext &ctx, const QString &clave, EscritorDeArchivo &escritor, Marcha &marcha) {
    marcha.decir(clave);
    escritor.Operacion(clave);
    const auto enElArchivo = [&](const char *tabla) {
        return [&escritor, &marcha, tabla, empezada = false](const QStringList &columnas,
                                                             const operacion::Fila &fila) mutable {
            if (!std::exchange(empezada, true)) escritor.Tabla(QString(L(tabla)), columnas);
            escritor.Fila(fila);
            marcha.paso();
        };
    };
    for (const TablaRelacionada &tabla : TablasRelacionadas())
        RecorrerRelacionadas(ctx, clave, tabla, enElArchivo(tabla.nombre));
    operacion::Lectura lectura(ctx, clave);
    for (const operacion::Tabla &tabla : operacion::Tablas())
        lectura.Recorrer(tabla, enElArchivo(tabla.nombre));
    escritor.FinDeOperacion();
}

/// Columns of a row by their names.
class FilaConNombres {
 public:
    FilaConNombres(const QStringList &columnas, operacion::Fila fila)
        : columnas_(columnas), fila_(std::move(fila)) {}
    QVariant valor(const char *columna) const {
        const qsizetype c = columnas_.indexOf(L(columna));
        return c < 0 ? QVariant() : fila_.at(static_cast<std::size_t>(c));
    }

 private:
    const QStringList &columnas_;
    operacion::Fila fila_;
};

/// Rows are counted; what is shown of an operation is read of them, and no more.
void mirarFila(const LectorDeArchivo &lector, OperacionEnArchivo &una) {
    ++una.filas;
    if (lector.tabla() == "subitems"_L1) ++una.lineas;
    if (lector.tabla() == "transferidas"_L1) una.transferida = true;
    if (lector.tabla() == "item"_L1) {
        const FilaConNombres fila(lector.columnas(), lector.fila());
        if (EsNumero(fila.valor("id")) != 0) ++una.items;
    }
    if (lector.tabla() == "caratula"_L1) {
        const FilaConNombres fila(lector.columnas(), lector.fila());
        una.subregimen = EsNull(fila.valor("idsubreg"));
        una.cliente = EsNull(fila.valor("factura7"));
        una.despachante = EsNull(fila.valor("factura3"));
    }
}

}  // namespace

QString RutaDe(const AppContext &ctx, const QString &texto) {
    const QString limpio = texto.trimmed();
    if (limpio.isEmpty()) return {};
    return QDir(CarpetaDeArchivos(ctx, seccionDeAjustes))
        .absoluteFilePath(QDir::fromNativeSeparators(limpio));
}

bool HayEnElStore(AppContext &ctx, const QString &clave) {
    // A key that the stores refuse is in none of them.
    if (clave.contains(u'\'') || !DefectoDeTexto(clave).isEmpty()) return false;
    Recordset rs;
    return Consultar(ctx, internos, "select interno from caratula where interno = "_L1 + EnComillas(clave),
                     rs);
}

Exportacion Exportar(AppContext &ctx, const QStringList &claves, const QString &archivo) {
    const Reloj reloj(ctx.dialogos);
    Exportacion r;
    r.archivo = QFileInfo(archivo).absoluteFilePath();
    QStringList todas = claves;
    todas.removeDuplicates();
    // What the store says goes to the user as it is; what the disk says is told by whoever replaces the file.
    QString delStore;
    const auto escribir = [&](QIODevice &destino) {
        EscritorDeArchivo escritor(destino, static_cast<int>(todas.size()));
        try {
            qint64 filas = 0;
            for (const QString &clave : todas) {
                comprobarQueSale(ctx, clave);
                filas += filasDe(ctx, clave);
            }
            Marcha marcha(ctx.dialogos, filas);
            for (const QString &clave : todas) exportarUna(ctx, clave, escritor, marcha);
            escritor.Cerrar();
            r.filas = escritor.filas();
        } catch (const Falla &e) {
            if (e.fuente != fuenteDeArchivo) delStore = e.descripcion;
            return e.descripcion;
        }
        return QString();
    };
    r.aviso = todas.isEmpty() ? u"Elija al menos una operación para exportar."_s
                              : papel::ReemplazarArchivo(r.archivo, escribir);
    if (!delStore.isEmpty()) r.aviso = delStore;
    if (!r.aviso.isEmpty()) return r;
    r.hecho = true;
    r.operaciones = static_cast<int>(todas.size());
    r.bytes = QFileInfo(r.archivo).size();
    r.aviso = (r.operaciones == 1 ? u"Se exportó %1 operación en %2 (%3 bytes)."_s
                                  : u"Se exportaron %1 operaciones en %2 (%3 bytes)."_s)
                  .arg(QString::number(r.operaciones), QDir::toNativeSeparators(r.archivo),
                       QString::number(r.bytes));
    return r;
}

std::vector<OperacionEnArchivo> LeerContenido(AppContext &ctx, const QString &archivo) {
    std::vector<OperacionEnArchivo> operaciones;
    QSet<QString> claves;
    LectorDeArchivo lector(archivo);
    for (Registro r = lector.Siguiente(); r != Registro::Termino; r = lector.Siguiente()) {
        if (r == Registro::Operacion) {
            if (claves.contains(lector.clave().toCaseFolded()))
                throw Falla{
                    0,
                    fuenteDeArchivo,
                    u"El archivo %1 tiene dos veces la operación %2; pida que lo exporten otra vez."_s.arg(
                        QDir::toNativeSeparators(archivo), lector.clave()),
                    {}};
            claves.insert(lector.clave().toCaseFolded());
            operaciones.push_back({.clave = lector.clave()});
            ctx.dialogos.atenderEventos();
        } else if (r == Registro::Fila) {
            mirarFila(lector, operaciones.back());
        }
    }
    return operaciones;
}

ContenidoDeArchivo Mirar(AppContext &ctx, const QString &archivo) {
    const Reloj reloj(ctx.dialogos);
    ContenidoDeArchivo contenido;
    try {
        contenido.operaciones = LeerContenido(ctx, archivo);
    } catch (const Falla &e) {
        contenido.defecto = e.descripcion;
    }
    return contenido;
}

}  // namespace intercambio
