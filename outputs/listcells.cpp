#include "outputs/listcells.h"

#include <QStringList>
#include <algorithm>

#include "frame/base/dates.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace listas {

papel::Columna DeTexto(const QString &titulo, int ancho) {
    return {titulo, papel::Clase::Texto, ancho, {}, false};
}

papel::Columna DeNumero(const QString &titulo, int ancho, const QString &mascara, bool suma) {
    return {titulo, papel::Clase::Numero, ancho, mascara, suma};
}

papel::Columna DeDia(const QString &titulo) {
    constexpr int anchoDeDia = 10;
    return {titulo, papel::Clase::Fecha, anchoDeDia, {}, false};
}

QVariant Celda(const Recordset &rs, const QString &columna, papel::Clase clase) {
    if (rs.EsNulo(columna)) return {};
    switch (clase) {
        case papel::Clase::Numero:
            return rs.Numero(columna);
        case papel::Clase::Fecha: {
            const auto dia = fechas::Leer(rs.Texto(columna));
            return dia ? QVariant(*dia) : QVariant();
        }
        case papel::Clase::Texto:
            break;
    }
    return rs.Texto(columna).trimmed();
}

void AjustarAnchos(papel::Tabla &tabla) {
    for (std::size_t c = 0; c < tabla.columnas.size(); ++c) {
        papel::Columna &columna = tabla.columnas[c];
        if (columna.clase != papel::Clase::Texto) continue;
        qsizetype ancho = columna.titulo.size();
        for (const papel::Fila &fila : tabla.filas)
            if (fila.tipo == papel::Fila::Tipo::Dato)
                ancho = std::max(ancho, fila.celdas[c].toString().size());
        columna.ancho = std::min(columna.ancho, static_cast<int>(ancho));
    }
}

bool vaAntes(const QString &a, const QString &b) {
    const int sinCaso = a.compare(b, Qt::CaseInsensitive);
    return sinCaso != 0 ? sinCaso < 0 : a < b;
}

QString Contadas(int cuantas, const QString &una, const QString &varias) {
    return QString::number(cuantas) + QLatin1Char(' ') + (cuantas == 1 ? una : varias);
}

QString EncabezadoDeOperacion(AppContext &ctx, const QString &interno, bool conImportes) {
    QStringList partes{u"Operación "_s + interno};
    Recordset rs;
    if (Consultar(ctx, entidad::internos,
                  "select idsubreg,factura7,fobcoddivisas "
                  "from caratula "
                  "where interno = "_L1 +
                      EnComillas(interno),
                  rs)) {
        const QString divisa = conImportes ? rs.Texto(u"fobcoddivisas").trimmed() : QString();
        partes << RegimenEnMayusculas(rs.Texto(u"idsubreg")).trimmed() << rs.Texto(u"factura7").trimmed()
               << (divisa.isEmpty() ? QString() : u"FOB en "_s + divisa);
        partes.removeAll(QString());
    }
    return partes.join(" - "_L1);
}

}  // namespace listas
