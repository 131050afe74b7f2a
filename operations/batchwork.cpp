#include "operations/batchwork.h"

#include <QJsonArray>
#include <optional>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "operations/lifecycle.h"

using namespace Qt::StringLiterals;

namespace lote {

bool HayOperacion(AppContext &ctx, const QString &clave) {
    Recordset rs;
    if (Consultar(ctx, entidad::internos,
                  "select interno from caratula where interno = "_L1 + EnComillas(clave), rs))
        return true;
    ctx.dialogos.critico(u"No se encontró el interno %1; revise la clave o créelo primero."_s.arg(clave));
    return false;
}

void TrasElTrabajo(bool dicha, const std::function<void()> &hacer) {
    try {
        hacer();
    } catch (const Falla &) {
        if (!dicha) throw;
    }
}

int ConLaOperacion(const Trabajo &t, const std::function<int()> &hacer) {
    if (!ComprobarBloqueo(t.ctx, t.orden.clave)) return falla;
    const BanderasDeOperacion banderas = LeerBanderas(t.ctx, t.orden.clave);
    TomarBloqueo(t.ctx, t.orden.clave);
    const auto liberar = [&] { GuardarYLiberar(t.ctx, t.orden.clave, banderas, std::nullopt); };
    int estado = falla;
    try {
        estado = hacer();
    } catch (...) {
        TrasElTrabajo(true, liberar);
        throw;
    }
    TrasElTrabajo(estado != bien, liberar);
    return estado;
}

void DecirLiquidacion(const Trabajo &t, const ResultadoRecalculo &r) {
    QJsonArray grilla;
    for (const FilaLiq &f : r.grilla)
        grilla.append(QJsonObject{
            {u"numero"_s, f.numero}, {u"concepto"_s, f.concepto}, {u"total"_s, f.total}, {u"pgc"_s, f.pgc}});
    const auto conDosDecimales = [&ctx = t.ctx](double importe) {
        return numeros::Format(importe, u"00.00", ctx.SeparadorDecimal);
    };
    t.resultado[u"totalP"_s] = conDosDecimales(r.totalP);
    t.resultado[u"totalG"_s] = conDosDecimales(r.totalG);
    t.resultado[u"totalC"_s] = conDosDecimales(r.totalC);
    t.resultado[u"baseImponible"_s] = conDosDecimales(r.sumaBaseImponible);
    t.resultado[u"baseIVA"_s] = conDosDecimales(r.sumaBaseIVA);
    t.resultado[u"conceptos"_s] = grilla;
}

}  // namespace lote
