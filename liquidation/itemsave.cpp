#include "liquidation/itemsave.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/failures.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using entidad::internos;

const QString paginaCero = u"0"_s;
/// The concepts that a list of the common market takes the percentage from.
constexpr L conceptosDeLista("('020','010','015','011')");

QString deOperacion(const QString &interno) {
    return "interno = "_L1 + EnComillas(interno);
}

/// The field's text; an adjustment that was left empty is its masked nothing.
QString textoAGrabar(const AppContext &ctx, const CampoDeItem &campo, const DatosDeItem &datos) {
    const QString texto = datos.value(L(campo.columna));
    return campo.vacioEsCero && texto.trimmed().isEmpty()
               ? numeros::Format(0, QString(L(campo.mascara)), ctx.SeparadorDecimal)
               : texto;
}

/// The first field that should hold a number and does not, told by its name.
const CampoDeItem *sinNumero(const AppContext &ctx, bool cero, const DatosDeItem &datos) {
    for (const CampoDeItem &campo : CamposDeItem()) {
        if (!campo.seGraba || (cero && !campo.enCero) || campo.clase != ClaseDeCampo::Numero) continue;
        if (!numeros::esNumerico(textoAGrabar(ctx, campo, datos))) return &campo;
    }
    return nullptr;
}

void ponerCampo(const AppContext &ctx, Escritura &fila, const CampoDeItem &campo, const DatosDeItem &datos) {
    const QString texto = textoAGrabar(ctx, campo, datos);
    switch (campo.clase) {
        case ClaseDeCampo::Numero:
            fila.numero(campo.columna, texto);
            return;
        case ClaseDeCampo::Opcion:
            fila.marca(campo.columna, texto == "S"_L1);
            return;
        case ClaseDeCampo::CodigoConBlanco:
            fila.texto(campo.columna, texto + QLatin1Char(' '));
            return;
        default:
            fila.texto(campo.columna, texto);
    }
}

bool esMercosur(const QString &lista) {
    return lista.toUpper() == "MERCOSUR"_L1;
}

void grabarItem(AppContext &ctx, const QString &interno, const QString &item, const DatosDeItem &datos) {
    Escritura fila(ctx);
    for (const CampoDeItem &campo : CamposDeItem())
        if (campo.seGraba) ponerCampo(ctx, fila, campo, datos);
    const qint64 tocadas = Ejecutar(
        ctx, internos, fila.actualizar(u"item"_s, "id = "_L1 + item + " and "_L1 + deOperacion(interno)));
    const QString deSusConceptos =
        deOperacion(interno) + " and idconceptos in "_L1 + conceptosDeLista + " and iditem = "_L1 + item;
    // A percentage of 0 goes back to the system; one that was typed stays.
    if (esMercosur(datos.value(u"lista"_s)))
        Ejecutar(ctx, internos, "update itemliq set porcentaje = 0, total= '0' where "_L1 + deSusConceptos);
    else
        Ejecutar(ctx, internos,
                 "update itemliq set porcentaje = NULL where porcentaje = 0 and "_L1 + deSusConceptos);
    if (tocadas == 0) ctx.dialogos.advertir(u"0 (cero) registros actualizados."_s);
}

// The operation's own page

/// A text of the operation's page, which all its items take when there is one.
void grabarParaTodos(AppContext &ctx, const QString &interno, const char *columna, const QString &texto,
                     const char *cola = "") {
    const QString poner = "update item set "_L1 + L(columna) + " = "_L1 + TextoEnComillas(texto);
    Ejecutar(ctx, internos, poner + " where id = 0 and "_L1 + deOperacion(interno));
    if (!texto.isEmpty()) Ejecutar(ctx, internos, poner + " where "_L1 + deOperacion(interno) + L(cola));
}

void grabarListaParaTodos(AppContext &ctx, const QString &interno, const QString &lista) {
    grabarParaTodos(ctx, interno, "lista", lista);
    const QString deSusConceptos = deOperacion(interno) + " and idconceptos in "_L1 + conceptosDeLista;
    Ejecutar(ctx, internos,
             esMercosur(lista)
                 ? "update itemliq set porcentaje = 0 where "_L1 + deSusConceptos
                 : "update itemliq set porcentaje = NULL where porcentaje = 0 and "_L1 + deSusConceptos);
}

struct Ajuste {
    const char *columna;
    double deCaratula;     ///< the header's own
    const char *sinTipoG;  ///< tail of the statement that shares it
    bool ceroSinCaratula;  ///< without the header's, the page's own is 0
    bool rechazoContinua;  ///< a share that the store refuses is told, and the save goes on
};

/// The page's adjustment over the items by their FOB.
void repartir(AppContext &ctx, const QString &interno, const Ajuste &a, const QString &importe,
              double fobSinG) {
    Recordset rs;
    Consultar(ctx, internos,
              "select id,((fobtotal) * '"_L1 + importe + "') / ('"_L1 + SqlNumber(ctx, fobSinG) +
                  "') as valor"
                  " from item"
                  " where id<> 0 and "_L1 +
                  deOperacion(interno) + L(a.sinTipoG),
              rs);
    EscrituraLigera ligera(ctx.conexion(internos));
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString parte = numeros::Format(rs.Numero(u"valor"), u"00.00", ctx.SeparadorDecimal);
        Ejecutar(ctx, internos,
                 "update item set "_L1 + L(a.columna) + " ="_L1 + EnComillas(SqlNumber(ctx, parte)) +
                     " where id = "_L1 + rs.Texto(u"ID") + " and "_L1 + deOperacion(interno));
    }
    ligera.Terminar();
}

void grabarAjuste(AppContext &ctx, const QString &interno, const Ajuste &a, const QString &texto,
                  double fobSinG) {
    const bool hayEnCaratula = a.deCaratula != 0;
    const QString importe = !hayEnCaratula && a.ceroSinCaratula ? u"0"_s : SqlNumber(ctx, texto);
    Ejecutar(ctx, internos,
             "update item set "_L1 + L(a.columna) + " = "_L1 + importe + " where id = 0 and "_L1 +
                 deOperacion(interno));
    if (!hayEnCaratula || numeros::aNumero(texto) == 0) return;
    try {
        repartir(ctx, interno, a, importe, fobSinG);
    } catch (const Falla &e) {
        if (!a.rechazoContinua) throw;
        ContarFalla(ctx, e);
    }
}

void grabarCero(AppContext &ctx, const QString &interno, const DatosDeItem &datos,
                const ClassLiquidacion &calculo) {
    const auto texto = [&](const char *columna) {
        return textoAGrabar(ctx, *CampoDeColumna(L(columna)), datos);
    };
    grabarParaTodos(ctx, interno, "naladisa", texto("naladisa"));
    grabarListaParaTodos(ctx, interno, texto("lista"));
    for (const char *columna : {"idpais", "estadomerc"})
        grabarParaTodos(ctx, interno, columna, texto(columna));
    // What an item says of its own stays.
    grabarParaTodos(ctx, interno, "idproc", texto("idproc"), " and (idproc='' or idproc is null)");
    for (const char *columna : {"regalias", "standard"})
        grabarParaTodos(ctx, interno, columna, texto(columna));
    grabarAjuste(ctx, interno,
                 {"ajusteinc", calculo.CaratulaAjusteIncluir, " and tipoitem <> 'G'", false, false},
                 texto("ajusteinc"), calculo.CaratulaFobTotalSinG);
    // The condition is what it is: every store refuses it, and the header's deduction is shared where the
    // page is loaded.
    grabarAjuste(ctx, interno,
                 {"ajusteded", calculo.CaratulaAjusteDeducir, " and tipoitem = <> 'G'", true, true},
                 texto("ajusteded"), calculo.CaratulaFobTotalSinG);
}

}  // namespace

Veredicto GrabarItem(AppContext &ctx, const QString &interno, const QString &item, const DatosDeItem &datos,
                     const ClassLiquidacion &calculo) {
    const bool cero = item == paginaCero;
    if (const CampoDeItem *campo = sinNumero(ctx, cero, datos)) {
        ctx.dialogos.advertir(
            u"\"%1\" no es un número: corríjalo y vuelva a grabar."_s.arg(QString::fromUtf8(campo->nombre)));
        return Veredicto::mal(L(campo->control));
    }
    const Reloj reloj(ctx.dialogos);
    if (cero)
        grabarCero(ctx, interno, datos, calculo);
    else
        grabarItem(ctx, interno, item, datos);
    return Veredicto::bien();
}

void MarcarListaTipeada(AppContext &ctx, const QString &interno, const QString &item) {
    Ejecutar(ctx, internos,
             "update item set itmodif = 'S' where "_L1 + deOperacion(interno) + " and id = "_L1 + item);
}
