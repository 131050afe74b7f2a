#include "subitems/linebulk.h"

#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "header/changes.h"
#include "header/codes.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using C = CamposSubItem;

/// One column on the lines that it is for.
QString sentenciaMasiva(const AppContext &ctx, const QString &interno, const ColumnaMasiva &c,
                        const QString &valor) {
    Escritura e(ctx, entidad::internos);
    if (c.numero)
        e.numero(c.columna, 0);
    else
        e.texto(c.columna, valor);
    QString donde = "interno = "_L1 + EnComillas(interno);
    if (*c.unidad != 0) donde.prepend(L(c.unidad) + " = "_L1 + EnComillas(kilogramo) + " and "_L1);
    return e.actualizar(u"subitems"_s, donde);
}

}  // namespace

const std::vector<CambioMasivo> &CambiosMasivos() {
    static const std::vector<CambioMasivo> todos{
        {"SetearKilosCero",
         "&Kilos netos en cero",
         "CONFIRMA DEJAR EN 0 (cero), KG NETO, ESTADISTICA, ESPECIFICO en todos los subitems",
         "",
         {{"kgneto", &C::TxtKgNeto, true},
          {"valorrelacionestadistica", &C::TxtValorsobreestadistica, true, "estadistica",
           &C::LbCodigoEstadistica},
          {"valorderesp", &C::TxtDerEsp, true, "deresp", &C::LbIdDerEsp}}},
        // Its name is of the days when it did something else; what it does is what it asks.
        {"VariarPaisOrigen",
         "Vaciar el &país de origen",
         "Confirma vaciar el campo Pais Origen en todos los articulos cargados?",
         "",
         {{.columna = "idpais", .campo = &C::TxtIdpais, .descripcion = &C::LbDescPais}}},
        {"VaciarFiller",
         "Vaciar el &filler",
         "Confirma vaciar el campo Filler en todos los articulos cargados?",
         "",
         {{.columna = "itfiller", .campo = &C::TxtFiller}}},
        {"VaciarIdProrrateo",
         "Vaciar el código de p&rorrateo",
         "Confirma vaciar el campo Id Prorrateo en todos los articulos cargados?",
         "",
         {{.columna = "codprorrateo", .campo = &C::TxtCodProrrateo}}},
        {"EstablecerFiller",
         "Establecer el f&iller...",
         "Ingrese el valor de filler para todos los subitems:",
         "Establecer Filler",
         {{.columna = "itfiller", .campo = &C::TxtFiller}}},
        {"EstablecerPaisDeOrigen",
         "Establecer el país de &origen...",
         "Ingrese el valor (código) de País De Origen para todos los subitems:",
         "Establecer País De Origen",
         {{.columna = "idpais", .campo = &C::TxtIdpais, .descripcion = &C::LbDescPais}}},
        {"EstablecerPaisDeProcedencia",
         "Establecer el país de pro&cedencia...",
         "Ingrese el valor (código) de País De Procedencia para todos los subitems:",
         "Establecer País De Procedencia",
         {{.columna = "idpaisproc", .campo = &C::txtIdPaisProc, .descripcion = &C::LbDescPaisProc}}},
    };
    return todos;
}

const CambioMasivo *CambioDeNombre(const QString &nombre) {
    const auto &todos = CambiosMasivos();
    const auto c = std::find_if(todos.begin(), todos.end(), [&nombre](const CambioMasivo &x) {
        return nombre.compare(L(x.nombre), Qt::CaseInsensitive) == 0;
    });
    return c == todos.end() ? nullptr : &*c;
}

bool PedirCambioMasivo(AppContext &ctx, const CambioMasivo &cambio, QString &valor) {
    const QString texto = QString::fromUtf8(cambio.pregunta);
    if (!cambio.pideValor()) return ctx.dialogos.preguntar({texto, {}, Icono::Pregunta, false});
    Entrada entrada;
    entrada.titulo = QString::fromUtf8(cambio.titulo);
    entrada.texto = texto;
    valor = ctx.dialogos.pedirTexto(entrada).value_or(QString()).trimmed();
    return !valor.isEmpty();
}

qint64 HacerCambioMasivo(AppContext &ctx, const QString &interno, const CambioMasivo &cambio,
                         const QString &valor) {
    qint64 lineas = 0;
    for (const ColumnaMasiva &c : cambio.columnas) {
        const qint64 tocadas = Ejecutar(ctx, entidad::internos, sentenciaMasiva(ctx, interno, c, valor));
        // The first column is every line's. Noted at once: what follows may fail.
        if (lineas == 0 && tocadas > 0) AnotarCambio(ctx, interno);
        lineas = std::max(lineas, tocadas);
    }
    return lineas;
}

void SeguirCambioMasivo(AppContext &ctx, const CambioMasivo &cambio, const QString &valor, SubItems &s) {
    if (s.modo != 2) return;
    for (const ColumnaMasiva &c : cambio.columnas) {
        if (c.campoDeUnidad != nullptr && s.campos.*c.campoDeUnidad != kilogramo) continue;
        s.campos.*c.campo = c.numero ? numeros::Format(0, u"00.00", ctx.SeparadorDecimal) : valor;
        if (c.descripcion != nullptr)
            s.campos.*c.descripcion = valor.isEmpty() ? QString() : getPaisDescripcion(ctx, valor);
    }
}
