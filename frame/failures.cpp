#include "frame/failures.h"

#include <QCoreApplication>
#include <QTimer>

#include "frame/context.h"

using namespace Qt::StringLiterals;

QString TextoDeFalla(const Falla &e) {
    if (e.numero == 0 || e.numero == Falla::sinStore) return e.descripcion;
    return QString::number(e.numero) + " - "_L1 + e.descripcion;
}

void ContarFalla(AppContext &ctx, const Falla &e, const QString &texto, bool modalDeSistema) {
    const bool seFue = e.numero == Falla::sinStore;
    if (seFue && *ctx.perdidaContada) return;
    ctx.dialogos.critico(texto.isEmpty() ? TextoDeFalla(e) : texto, {}, modalDeSistema);
    if (!seFue || QCoreApplication::instance() == nullptr) return;
    *ctx.perdidaContada = true;
    QTimer::singleShot(0, QCoreApplication::instance(), [contada = ctx.perdidaContada] { *contada = false; });
}
