// The quote without a screen.

#include <QFileInfo>

#include "frame/base/numbers.h"
#include "operations/batchwork.h"
#include "outputs/quote.h"
#include "outputs/quotepage.h"
#include "outputs/quotepdf.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

void decirTotales(const Trabajo &t, const Presupuesto &p) {
    const ResumenDePresupuesto r = Resumir(p);
    const std::pair<QString, double> totales[] = {
        {u"totalP"_s, p.totalP.pesos},         {u"totalPDolares"_s, p.totalP.dolares},
        {u"totalG"_s, p.totalG.pesos},         {u"totalGDolares"_s, p.totalG.dolares},
        {u"totalC"_s, p.totalC.pesos},         {u"totalCDolares"_s, p.totalC.dolares},
        {u"operativos"_s, r.operativos.pesos}, {u"operativosDolares"_s, r.operativos.dolares},
        {u"subtotal"_s, r.subtotal},           {u"aCuenta"_s, r.aCuenta},
        {u"totalGeneral"_s, r.totalGeneral}};
    for (const auto &[nombre, valor] : totales)
        t.resultado[nombre] = numeros::Format(valor, u"00.00", t.ctx.SeparadorDecimal);
    t.resultado[u"tipoDePase"_s] = p.TxtPase;
}

/// Writes the quote as what the end of the file's name says; whether it was written. What was wrong was told.
bool escribirPresupuesto(const Trabajo &t, const Presupuesto &p, const QString &archivo, bool comoPdf) {
    if (!comoPdf) return LP_ArmarRep(t.ctx, p, archivo);
    const QString defecto = EscribirPresupuestoPdf(t.ctx, p, archivo);
    if (!defecto.isEmpty()) t.ctx.dialogos.critico(defecto);
    return defecto.isEmpty();
}

}  // namespace

int Presupuestar(const Trabajo &t) {
    t.resultado[u"presupuestado"_s] = false;
    const QString archivo = QFileInfo(t.orden.valor("salida")).absoluteFilePath();
    const QString fin = QFileInfo(archivo).suffix().toLower();
    if (fin != "html"_L1 && fin != "htm"_L1 && fin != "pdf"_L1) {
        t.ctx.dialogos.critico(
            u"El presupuesto se escribe en un archivo .html o .pdf, y %1 no termina así; cámbiele el nombre."_s
                .arg(archivo));
        return falla;
    }
    Presupuesto p;
    if (!CargarCaratula(t.ctx, t.orden.clave, p)) return falla;
    if (!HayPase(p)) {
        t.ctx.dialogos.critico(u"Debe ingresar el tipo pase"_s);
        return falla;
    }
    if (!escribirPresupuesto(t, p, archivo, fin == "pdf"_L1)) return falla;
    t.resultado[u"presupuestado"_s] = true;
    t.resultado[u"archivo"_s] = archivo;
    t.resultado[u"bytes"_s] = QFileInfo(archivo).size();
    decirTotales(t, p);
    return bien;
}

}  // namespace lote
