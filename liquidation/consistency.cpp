#include "liquidation/consistency.h"

#include "frame/base/values.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

QString pais(const Recordset &rs, QStringView columna) {
    return rs.Texto(columna).trimmed().toUpper();
}

/// The countries of one joined row.
struct Paises {
    QString SubOrigen, GrupoOrigen, ItemOrigen, SubDestino, GrupoDestino, ItemDestino;
    explicit Paises(const Recordset &rs)
        : SubOrigen(pais(rs, u"SubItemsIDPAIS")),
          GrupoOrigen(pais(rs, u"GroupSubItemsIDPAIS")),
          ItemOrigen(pais(rs, u"ItemIDPAIS")),
          SubDestino(pais(rs, u"SubItemsIDPAISPROC")),
          GrupoDestino(pais(rs, u"GroupSubItemsIDPROC")),
          ItemDestino(pais(rs, u"ItemIDPAISPROC")) {}
};

struct Caratula {
    QString CaratulaOrigen, CaratulaDestino;
    bool Forzar = false;
};

/// "(Pais Origen SUBITEM=x) difiere de (Pais Origen Grupo=y)"
QString difiere(const char *cual, const char *uno, const QString &a, const char *otro, const QString &b) {
    return "(Pais "_L1 + L(cual) + QLatin1Char(' ') + L(uno) + QLatin1Char('=') + a +
           ") difiere de (Pais "_L1 + L(cual) + QLatin1Char(' ') + L(otro) + QLatin1Char('=') + b +
           QLatin1Char(')');
}

void compararOrigenForzado(const Paises &p, const Caratula &c, const QString &id, QStringList &hallados) {
    const L cola(" - Forzar ACTIVADO");
    if (p.ItemOrigen != c.CaratulaOrigen)
        hallados << "Item: "_L1 + id + difiere("Origen", "ITEM", p.ItemOrigen, "Caratula", c.CaratulaOrigen) +
                        cola;
    if (p.SubOrigen.isEmpty()) return;
    if (p.SubOrigen != p.GrupoOrigen)
        hallados << "Item:"_L1 + id + difiere("Origen", "SUBITEM", p.SubOrigen, "Grupo", p.GrupoOrigen) +
                        cola;
    if (p.SubOrigen != p.ItemOrigen)
        hallados << "Item:"_L1 + id + difiere("Origen", "SUBITEM", p.SubOrigen, "ITEM", p.ItemOrigen) + cola;
}

void compararOrigen(const Paises &p, const Caratula &c, const QString &id, QStringList &hallados) {
    const L cola(" - Forzar DESACTIVADO");
    if (p.SubOrigen.isEmpty()) {
        if (c.CaratulaOrigen.isEmpty())
            hallados << "Advertencia! Item:"_L1 + id + "(Pais Origen SUBITEM no se ha completado)"_L1 + cola;
        return;
    }
    if (p.GrupoOrigen != p.SubOrigen)
        hallados << "ERROR DE INCONGRUENCIA DE DATOS Item:"_L1 + id +
                        difiere("Origen", "SUBITEM", p.SubOrigen, "Grupo", p.GrupoOrigen) + cola;
    if (p.ItemOrigen != p.GrupoOrigen)
        hallados << "Item:"_L1 + id + difiere("Origen", "Grupo", p.GrupoOrigen, "ITEM", p.ItemOrigen) + cola;
    if (p.ItemOrigen != p.SubOrigen)
        hallados << "Item:"_L1 + id + difiere("Origen", "SUBITEM", p.SubOrigen, "ITEM", p.ItemOrigen) + cola;
}

void compararDestino(const Paises &p, const Caratula &c, const QString &id, QStringList &hallados) {
    if (c.CaratulaDestino.isEmpty() && p.SubDestino.isEmpty() && p.ItemDestino.isEmpty()) {
        hallados << "Advertencia! Item:"_L1 + id +
                        "(Pais Destino SUBITEM/ITEM no se ha completado, No especificado en Caratula)"_L1;
        return;
    }
    if (p.SubDestino.isEmpty()) return;
    const QString cabeza = "ERROR DE INCONGRUENCIA DE DATOS Item:"_L1 + id;
    // The test is on destinations and so are the words; the two values shown are the origins, as offices know
    // the report.
    if (p.GrupoDestino != p.SubDestino)
        hallados << cabeza + difiere("Destino", "SUBITEM", p.SubOrigen, "Grupo", p.GrupoOrigen);
    if (p.SubDestino != p.ItemDestino)
        hallados << cabeza + difiere("Destino", "SUBITEM", p.SubDestino, "ITEM", p.ItemDestino);
}

}  // namespace

QString GenerarReporte(AppContext &ctx, const QString &interno, bool &hayDiferencias) {
    const QString internos = u"INTERNOS"_s;
    QString reporte;
    const auto agregar = [&reporte](const QString &linea) { reporte += linea + "\r\n"_L1; };
    Caratula caratula;
    Recordset rs;
    if (Consultar(ctx, internos,
                  "Select DCPaisOrigen, DcForzarPaisOrigen, DcPaisDestino From Caratula Where Interno = "_L1 +
                      EnComillas(interno),
                  rs)) {
        caratula = {pais(rs, u"DCPaisOrigen"), pais(rs, u"DcPaisDestino"),
                    rs.Texto(u"DcForzarPaisOrigen") == "S"_L1};
    } else {
        hayDiferencias = true;
        agregar(u"Error Buscando Interno en CARATULA"_s);
    }
    if (!Consultar(ctx, internos,
                   "Select SubItems.ID as SubItemsID,"
                   "SubItems.IdPais as SubItemsIDPAIS,SubItems.IdPaisProc as SubItemsIDPAISPROC,"
                   "GroupSubItems.ID as GroupSubItemsID, "
                   "GroupSubItems.IdPais as GroupSubItemsIDPAIS, "
                   "GroupSubItems.IdPaisProc as GroupSubItemsIDPROC,"
                   "Item.IdPais as ItemIDPAIS, Item.IdProc as ItemIDPAISPROC "
                   "From SubItems, GroupSubItems, Item "
                   "Where GroupSubItems.ID = Item.ID "
                   "AND SubItems.ID = GroupSubItems.IDSUB "
                   "AND SubItems.Interno = GroupSubItems.Interno "
                   "AND GroupSubItems.Interno = Item.Interno "
                   "AND GroupSubItems.Interno = "_L1 +
                       EnComillas(interno) + " Order by GroupSubitems.ID, GroupSubItems.IDSub "_L1,
                   rs)) {
        hayDiferencias = true;
        agregar(u"Error Analizando Interno en Item/SubItems/GroupSubItems"_s);
        return reporte;
    }
    QString ItemActual = u"0"_s;
    bool Hallazgos = false;
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString id = rs.Texto(u"GroupSubItemsID");
        if (id != ItemActual) {
            if (ItemActual != "0"_L1) {
                if (Hallazgos)
                    hayDiferencias = true;
                else
                    agregar("Item: "_L1 + ItemActual + " Verificacion OK"_L1);
            }
            Hallazgos = false;
            ItemActual = id;
        }
        const Paises p(rs);
        QStringList hallados;
        if (caratula.Forzar)
            compararOrigenForzado(p, caratula, id, hallados);
        else
            compararOrigen(p, caratula, id, hallados);
        compararDestino(p, caratula, id, hallados);
        for (const QString &linea : std::as_const(hallados)) agregar(linea);
        Hallazgos = Hallazgos || !hallados.isEmpty();
    }
    return reporte;
}

bool ComprobarInterno(AppContext &ctx, const QString &interno) {
    bool hayDiferencias = false;
    const QString reporte = GenerarReporte(ctx, interno, hayDiferencias);
    if (!hayDiferencias) return false;
    ctx.dialogos.informe({u"Zendra v3 - Reporte de Diferencias Encontradas."_s, reporte, true});
    return true;
}
