// The page of one item: its data as they stand, its liquidation as it was stored.

#include "frame/base/values.h"
#include "outputs/fixedfield.h"
#include "outputs/itemsheetlines.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int anchoDeNumero = 15;
constexpr int puntosDeItem = 79;

constexpr ColumnaDeHoja columnasDeConceptos[] = {{u"Conceptos", 30},      {u"Porc. %", 15}, {u"P/C/G", 5, 2},
                                                 {u"Base Imponible", 15}, {u"Importe", 15}, {u"Motivos", 10}};
enum { EnConcepto, EnPorcentaje, EnObligacion, EnBase, EnImporte, EnMotivo };

constexpr ColumnaDeHoja columnasDeSubitem[] = {
    {u"Cantidad", 15}, {u"Unitario", 15}, {u"FobTotal", 15}, {u"Estadistica", 15}, {u"Cant. Especifico", 15},
};
const QString margenDeSubitem = u"       "_s;

QString enCampo(const QString &texto) {
    return CampoFijo(texto, anchoDeNumero);
}

void escribirDatos(CorridaDeHoja &h, const QString &id, const Recordset &rs) {
    const auto monto = [&](QStringView columna) { return enCampo(h.conMascara(rs.Numero(columna))); };
    const auto numero = [&](QStringView columna) { return enCampo(h.comoNumero(rs.Numero(columna))); };
    const BasesDeItem bases = h.bases.value(id);
    h.enHojaNueva(u" "_s);
    h.linea(QString(puntosDeItem, u'.'));
    h.linea(u" "_s);
    h.linea("     ITEM "_L1 + h.conMascara(id.toDouble(), u"000"));
    h.linea("      NCM "_L1 + rs.Texto(u"NCM") + " -  UNID ESTA "_L1 + rs.Texto(u"estadistica"));
    h.linea(" CANTIDAD "_L1 + monto(u"Cantidad"));
    h.linea(u" "_s);
    h.linea("      FOB "_L1 + numero(u"fobtotal") + " -  AJUS INC "_L1 + monto(u"ajusteinc"));
    h.linea("    FLETE "_L1 + numero(u"itflete") + " -  AJUS DED "_L1 + numero(u"ajusteded"));
    h.linea("   SEGURO "_L1 + numero(u"itseguro") + " -  KG NETO "_L1 + numero(u"totalkneto"));
    h.linea(u" "_s);
    h.linea(" EST MERC "_L1 + rs.Texto(u"estadomerc"));
    h.linea(u" "_s);
    h.linea("PAIS ORIG "_L1 + rs.Texto(u"Idpais"));
    h.linea(u" "_s);
    h.linea("PAIS PROC "_L1 + rs.Texto(u"idproc"));
    h.linea(u" "_s);
    h.linea("Base Imponible: "_L1 + h.conMascara(bases.imponible) + " - Base Iva: "_L1 +
            h.conMascara(bases.iva));
    h.linea(u" "_s);
    if (const QString lista = rs.Texto(u"Lista"); !lista.isEmpty()) {
        h.linea("      LISTA: "_L1 + lista);
        h.linea(u" "_s);
    }
}

void escribirConceptos(CorridaDeHoja &h, Recordset &rs) {
    h.linea(u"------------"_s, true);
    h.linea(u"LIQUIDACION:"_s, true);
    h.encabezado(columnasDeConceptos);
    const auto enColumna = [](const QString &texto, int columna) {
        return CampoFijo(texto, columnasDeConceptos[columna].ancho);
    };
    for (; !rs.Eof(); rs.MoveNext()) {
        // What is not there is no 0.
        const QString porcentaje =
            rs.EsNulo(u"Porcentaje") ? QString() : h.conMascara(rs.Numero(u"Porcentaje"));
        const QString base = rs.EsNulo(u"Baseimp") ? QString() : h.comoNumero(rs.Numero(u"Baseimp"));
        h.linea(enColumna(rs.Texto(u"conceptos") + " ("_L1 + rs.Texto(u"idconceptos") + ')'_L1, EnConcepto) +
                u' ' + enColumna(porcentaje, EnPorcentaje) + u' ' + "   "_L1 + rs.Texto(u"pgc") + "   "_L1 +
                "  "_L1 + enColumna(base, EnBase) + u' ' +
                enColumna(h.conMascara(rs.Numero(u"Total")), EnImporte) + u' ' +
                enColumna(rs.Texto(u"motivo"), EnMotivo));
    }
}

void escribirSubitems(CorridaDeHoja &h, Recordset &rs) {
    if (rs.Eof()) return;
    EscribirTituloDeSubitems(h);
    h.encabezado(columnasDeSubitem, margenDeSubitem);
    for (int numero = 1; !rs.Eof(); rs.MoveNext(), ++numero) {
        h.linea(h.conMascara(numero, u"0000") + ".- "_L1 +
                    FilaDeHoja(columnasDeSubitem, {h.conMascara(rs.Numero(u"cantidad")),
                                                   h.conMascara(rs.Numero(u"preciounitario"), u"00.00000"),
                                                   h.conMascara(rs.Numero(u"fob")),
                                                   h.conMascara(rs.Numero(u"valorrelacionestadistica")),
                                                   h.conMascara(rs.Numero(u"valorderesp"))}),
                true);
        h.linea(rs.Texto(u"sufijos"));
    }
}

}  // namespace

void EscribirPaginaDeItem(CorridaDeHoja &h, const Recordset &item) {
    const QString id = item.Texto(u"id");
    if (!h.bases.contains(id)) CargarItemDeHoja(h, item);
    enum { Datos, Conceptos, Ventajas, Informacion, Subitems };
    const QString interno = EnComillas(h.interno);
    QStringList sentencias{
        "select fobtotal,itflete,itseguro,"
        "ajusteinc,ajusteded,estadistica,"
        "idproc,idpais,totalkneto,estadomerc,"
        "lista,naladisa,ncm,idunidad,"
        "cantidad,preciounitario,valorrelacionestadistica,valorderesp"
        " from item"
        " where id = "_L1 +
            id + " and interno = "_L1 + interno,
        "select * from itemliq"
        " where total>0 and interno = "_L1 +
            interno + " and iditem = "_L1 + id + " order by idconceptos"_L1,
        SentenciaDeVentajas(h.interno, id), SentenciaDeInformacion(h.interno, id)};
    if (h.subitems)
        sentencias << "select ncm,idunidad,cantidad,preciounitario,"
                      "fob,sufijos,"
                      "valorrelacionestadistica,valorderesp"
                      " from groupsubitems"
                      " where id = "_L1 +
                          id + " and interno = "_L1 + interno + " order by idsub"_L1;
    std::vector<Recordset> filas = h.consultarJuntas(sentencias);
    // Another person may have taken it away meanwhile.
    if (filas.at(Datos).Eof()) return;
    escribirDatos(h, id, filas.at(Datos));
    escribirConceptos(h, filas.at(Conceptos));
    EscribirVentajas(h, filas.at(Ventajas));
    EscribirInformacion(h, filas.at(Informacion));
    if (h.subitems) escribirSubitems(h, filas.at(Subitems));
}
