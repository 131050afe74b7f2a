// Item 0 of the sheet: what the whole operation pays, worked out from its lines.

#include <optional>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "outputs/fixedfield.h"
#include "outputs/itemsheetlines.h"

using namespace Qt::StringLiterals;

namespace {

const QString itemDeOperacion = u"0"_s;

constexpr ColumnaDeHoja columnasDeTotales[] = {{u"Importe", 15}, {u"Conceptos", 26}};
constexpr ColumnaDeHoja columnasDeLineas[] = {
    {u"Posición", 15}, {u"Unidad", 6},       {u"Cantidad", 15},          {u"Unitario", 15},
    {u"FobTotal", 15}, {u"Estadistica", 15}, {u"Derecho Especifico", 15}};

/// A text of the items: the one that they share.
class TextoComun {
 public:
    void ver(const QString &texto) {
        if (!texto_)
            texto_ = texto;
        else if (*texto_ != texto)
            varios_ = true;
    }
    QString texto() const { return varios_ ? u"Varios"_s : texto_.value_or(QString()); }

 private:
    std::optional<QString> texto_;
    bool varios_ = false;
};

/// The operation as its items make it.
struct SumasDeOperacion {
    std::vector<ResumenLiq> conceptos;
    TextoComun naladisa, lista, estadomerc, idpais, idproc, estadistica;
    double totalkneto = 0, cantidad = 0, ajusteinc = 0, ajusteded = 0;
    double fob = 0, flete = 0, seguro = 0;
};

/// The FOB and the quantity of an item are those of its lines.
void sumarLineas(CorridaDeHoja &h, Recordset &rs, SumasDeOperacion &s) {
    double fob = 0;
    double cantidad = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        fob += rs.Numero(u"cantidad") * rs.Numero(u"preciounitario");
        cantidad += rs.Numero(u"cantidad");
    }
    h.calculo.FOBTotalITEM = fob;
    h.calculo.fijarItemCantidad(cantidad);
    s.fob += fob;
    s.cantidad += cantidad;
}

/// A percentage that stands runs on the bases of this sheet; the coefficient of an export is in them already.
double totalDelConcepto(CorridaDeHoja &h, const Recordset &fila, const QString &codigo) {
    const bool vacio = fila.EsNulo(u"Porcentaje");
    QString porcentaje = vacio ? u"Vacio"_s : fila.Texto(u"Porcentaje");
    double base = fila.Numero(u"Baseimp");
    return h.calculo.ObtenerValorConcepto(codigo, porcentaje, fila.Numero(u"Valor"), base,
                                          fila.Texto(u"PorcentajeB"), 0, fila.Numero(u"Porcentaje") != 0);
}

void sumarConceptos(CorridaDeHoja &h, Recordset &rs, SumasDeOperacion &s) {
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString codigo = rs.Texto(u"idconceptos").trimmed();
        SumarAlResumen(h.ctx, s.conceptos, codigo, h.conMascara(totalDelConcepto(h, rs, codigo)),
                       rs.Texto(u"pgc").trimmed());
    }
}

void sumarItem(CorridaDeHoja &h, const Recordset &item, const Recordset &completo, SumasDeOperacion &s) {
    const QString id = item.Texto(u"id");
    CargarItemDeHoja(h, completo);
    std::vector<Recordset> filas =
        h.consultarJuntas({"select valorderesp,valorrelacionestadistica,"
                           "ncm,idunidad,cantidad,preciounitario,"
                           "biendeuso,sufijos,fob as fobtotal"
                           " from groupsubitems"
                           " where id = "_L1 +
                               id + " and interno = "_L1 + EnComillas(h.interno) + " order by idsub"_L1,
                           "select * from itemliq"
                           " where interno = "_L1 +
                               EnComillas(h.interno) + " and iditem = "_L1 + id});
    sumarLineas(h, filas.at(0), s);
    h.calculo.ObtenerBaseImponible();
    h.calculo.ObtenerBaseIVA();
    sumarConceptos(h, filas.at(1), s);
    s.naladisa.ver(item.Texto(u"naladisa"));
    s.lista.ver(item.Texto(u"lista"));
    s.estadomerc.ver(item.Texto(u"estadomerc"));
    s.idpais.ver(item.Texto(u"idpais"));
    s.idproc.ver(item.Texto(u"idproc"));
    s.estadistica.ver(item.Texto(u"estadistica"));
    s.totalkneto += item.Numero(u"totalkneto");
    s.ajusteinc += item.Numero(u"ajusteinc");
    s.ajusteded += item.Numero(u"ajusteded");
    s.flete += h.calculo.FLETETotalITEM;
    s.seguro += h.calculo.SEGUROTotalITEM;
}

/// False when the user stopped the run.
bool sumarOperacion(CorridaDeHoja &h, SumasDeOperacion &s) {
    const QString interno = EnComillas(h.interno);
    Recordset items;
    h.consultar(
        "select id,ajusteinc,ajusteded,estadistica,"
        "idproc,idpais,totalkneto,estadomerc,"
        "lista,naladisa,ncm,idunidad,"
        "cantidad,preciounitario,valorrelacionestadistica,valorderesp"
        " from item"
        " where id<>0 and interno = "_L1 +
            interno,
        items);
    // The calculator takes more of an item than the page shows; both come in the order of insertion.
    Recordset completos;
    h.consultar("select * from item where interno = "_L1 + interno + " and id<>0"_L1, completos);
    for (h.posiciones.Adelantar(completos); !items.Eof(); items.MoveNext(), completos.MoveNext()) {
        if (!h.seguir()) return false;
        sumarItem(h, items, completos, s);
    }
    return true;
}

void ponerFicha(CorridaDeHoja &h, const SumasDeOperacion &s) {
    h.ficha = {{u"Item"_s, u"000"_s},
               {u"Naladisa"_s, s.naladisa.texto()},
               {u"Lista"_s, s.lista.texto()},
               {u"Estado de la mercadería"_s, s.estadomerc.texto()},
               {u"Total kg neto"_s, h.conMascara(s.totalkneto)},
               {u"País de origen"_s, s.idpais.texto()},
               {u"País de procedencia"_s, s.idproc.texto()},
               {u"Unidad estadística"_s, s.estadistica.texto()},
               {u"Cantidad"_s, h.conMascara(s.cantidad)},
               {u"Ajuste a incluir"_s, h.conMascara(s.ajusteinc)},
               {u"Ajuste a deducir"_s, h.conMascara(s.ajusteded)},
               {u"FOB"_s, h.conMascara(s.fob)},
               {u"Flete"_s, h.conMascara(s.flete)},
               {u"Seguro"_s, h.conMascara(s.seguro)}};
}

/// A total of the last recalculation; 0 where the store refuses the question.
double totalReservado(const CorridaDeHoja &h, const char *codigo) {
    try {
        Recordset rs;
        // The missing "and" stands: what answers it is the store's own business.
        return h.consultar(
                   "select valor from liqcero"
                   " where idconcepto = '"_L1 +
                       QLatin1String(codigo) + "' interno = "_L1 + EnComillas(h.interno),
                   rs)
                   ? rs.Numero(u"valor")
                   : 0;
    } catch (const Falla &) {
        return 0;
    }
}

void escribirTotales(CorridaDeHoja &h, const std::vector<ResumenLiq> &conceptos) {
    const QString baseImponible = h.comoNumero(totalReservado(h, "###baseimp"));
    const QString baseIVA = h.comoNumero(totalReservado(h, "###baseiva"));
    h.enHojaNueva("Interno: "_L1 + h.interno);
    h.linea(u" "_s);
    h.linea("Base Imponible: "_L1 + baseImponible);
    h.linea("Base Iva: "_L1 + baseIVA);
    h.linea(u" "_s);
    for (const auto *texto : {u"------------", u"LIQUIDACION:", u" "})
        h.linea(QString::fromUtf16(texto), true);
    h.encabezado(columnasDeTotales);
    for (const ResumenLiq &c : conceptos) {
        const double total = numeros::aNumero(c.total);
        if (total == 0) continue;
        Recordset rs;
        const bool hay =
            h.consultar("select descripcion from conceptos where id = "_L1 + EnComillas(c.concepto), rs);
        h.linea(CampoFijo(h.conMascara(total), columnasDeTotales[0].ancho) + " ("_L1 + c.concepto + ") "_L1 +
                (hay ? rs.Texto(u"descripcion") : QString()));
    }
}

void escribirLineas(CorridaDeHoja &h) {
    Recordset rs;
    if (!h.consultar("select ncm,idunidad,cantidad,preciounitario,"
                     "cantidad * preciounitario as fobtotal,"
                     "valorrelacionestadistica,valorderesp"
                     " from groupsubitems"
                     " where interno = "_L1 +
                         EnComillas(h.interno) + " order by idsub"_L1,
                     rs))
        return;
    EscribirTituloDeSubitems(h);
    h.encabezado(columnasDeLineas);
    for (; !rs.Eof(); rs.MoveNext())
        h.linea(FilaDeHoja(
            columnasDeLineas,
            {rs.Texto(u"NCM"), rs.Texto(u"idunidad"), h.conMascara(rs.Numero(u"cantidad")),
             h.conMascara(rs.Numero(u"preciounitario"), u"00.00000"), h.conMascara(rs.Numero(u"fobtotal")),
             h.conMascara(rs.Numero(u"valorrelacionestadistica")), h.conMascara(rs.Numero(u"valorderesp"))}));
}

}  // namespace

bool EscribirPaginaDeOperacion(CorridaDeHoja &h) {
    SumasDeOperacion s;
    if (!sumarOperacion(h, s)) return false;
    ponerFicha(h, s);
    escribirTotales(h, s.conceptos);
    std::vector<Recordset> bloques = h.consultarJuntas({SentenciaDeVentajas(h.interno, itemDeOperacion),
                                                        SentenciaDeInformacion(h.interno, itemDeOperacion)});
    EscribirVentajas(h, bloques.at(0));
    EscribirInformacion(h, bloques.at(1));
    if (h.subitems) escribirLineas(h);
    return true;
}
