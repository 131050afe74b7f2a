#include "operations/oOperationCopy.h"

#include <QDateTime>
#include <utility>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/failures.h"
#include "operations/operationkey.h"
#include "operations/operationrows.h"

using namespace Qt::StringLiterals;

namespace oOperationCopy {

namespace {

using L = QLatin1String;

using entidad::internos;

/// The day of the process; a context that was never started has the present one.
QString hoy(AppContext &ctx) {
    return ctx.TodayInternos.isEmpty()
               ? ctx.DataManager.getDateFormatbyEntity(internos, QDate::currentDate().startOfDay())
               : ctx.TodayInternos;
}

QString deLaClave(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
}

bool existe(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, internos, "select interno from caratula"_L1 + deLaClave(interno), rs);
}

/// Rows that a deletion left behind under the new key would mix with the copy: they go first.
void copiarTodo(AppContext &ctx, const QString &origen, const QString &destino) {
    operacion::Destino copia(ctx, destino, false);
    copia.Limpiar();
    copia.Poner(u"caratula"_s, u"fechaalta"_s, hoy(ctx));
    operacion::Lectura original(ctx, origen);
    for (const operacion::Tabla &tabla : operacion::Tablas()) {
        if (tabla.deSuHistoria) continue;
        bool empezada = false;
        original.Recorrer(tabla, [&](const QStringList &columnas, const operacion::Fila &fila) {
            if (!std::exchange(empezada, true)) copia.Empezar(tabla, columnas);
            copia.Agregar(fila);
        });
        copia.Terminar();
    }
}

}  // namespace

void Copiar(AppContext &ctx, const QString &origen, const QString &destino) {
    if (existe(ctx, destino)) throw Falla{0, internos, u"El Código de interno ya existe."_s, {}};
    // Thousands of rows, each a statement of its own: the disk is waited for once, before the copy counts as
    // done.
    EscrituraLigera ligera(ctx.conexion(internos));
    copiarTodo(ctx, origen, destino);
    ligera.Terminar();
}

QString Mostrar(AppContext &ctx, const QString &Numero_Interno) {
    const auto escrito = ctx.dialogos.pedirTexto(
        {u"Copiar interno"_s, u"Ingrese el nuevo número de INTERNO/CARPETA"_s, int(largoDeClave), {}});
    QString destino = escrito.value_or(QString()).trimmed();
    if (destino.isEmpty()) return {};
    if (const QString defecto = DefectoDeClaveNueva(destino); !defecto.isEmpty()) {
        ctx.dialogos.advertir(defecto);
        return {};
    }
    const Reloj reloj(ctx.dialogos);
    try {
        // Another workstation may have deleted it since the list was filled.
        if (!existe(ctx, Numero_Interno)) {
            ctx.dialogos.advertir(
                u"El interno %1 ya no existe: vuelva a buscarlo en la lista."_s.arg(Numero_Interno));
            return {};
        }
        if (existe(ctx, destino)) {
            ctx.dialogos.advertir(u"El Código de interno ya existe."_s);
            return {};
        }
        Copiar(ctx, Numero_Interno, destino);
        return destino;
    } catch (const Falla &e) {
        ContarFalla(ctx, e, e.descripcion);
        return {};
    }
}

}  // namespace oOperationCopy
