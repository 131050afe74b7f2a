#include "header/codes.h"

#include "frame/context.h"
#include "frame/numbers.h"

namespace {

using L = QLatin1String;

/// A key with its table and the entity each service reads; null where the service does not offer it. The
/// services disagree on purpose: an entity's connection sees the others' tables.
struct Tabla {
    const char *clave;
    const char *tabla;
    const char *entidadDescripcion;
    const char *entidadId;
};
constexpr Tabla tablas[] = {
    {"SUBREG", "STA", "SYSTABLAS", "INTERNOS"},
    {"ADUANA", "ADUANA", "SYSTABLAS", "INTERNOS"},
    {"TIPOEMB", "TIPOEMB", "INTERNOS", "INTERNOS"},
    {"CODEMB", "CODEMB", "INTERNOS", "INTERNOS"},
    {"VIA", "via", "INTERNOS", "INTERNOS"},
    {"CODVENTA", "CONDICIONDEVENTA", "SYSTABLAS", "SYSTABLAS"},
    {"DIVISAS", "DIVISAS", "INTERNOS", "INTERNOS"},
    {"PAIS", "PAIS", "SYSTABLAS", "SYSTABLAS"},
    {"MOTIVO", "MOTIVO", "SYSTABLAS", "SYSTABLAS"},
    {"PUERTO", "PUERTOS", "INTERNOS", "INTERNOS"},
    {"ESTADOMERCADERIA", "ESTADOMERCADERIA", "INTERNOS", "INTERNOS"},
    {"UNIDADES", "UNIDADES", "INTERNOS", "INTERNOS"},
    {"BANCOS", "BANCOS", nullptr, "SYSTABLAS"},
};

/// What the two services differ in.
struct Servicio {
    const char *columna;
    const char *marca;
    const char *Tabla::*entidad;
};
constexpr Servicio descripcion{"descripcion", "BUSCARDESCRIPCION", &Tabla::entidadDescripcion};
constexpr Servicio identidad{"id", "BuscarId", &Tabla::entidadId};

QString sentencia(const Tabla &t, const Servicio &s, const QString &codigo) {
    if (L(t.tabla) == L("PUERTOS"))
        return L("SELECT LPOR as descripcion FROM PUERTOS where cpor = '") + codigo + L("'");
    return L("select ") + L(s.columna) + L(" from ") + L(t.tabla) + L(" where id ='") + codigo + L("'");
}

void completarAux(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux) {
    Recordset rs;
    if (clave == L("SUBREG") && Consultar(ctx, QStringLiteral("SYSTABLAS"),
                                          L("select cstaimpexp from sta where id = '") + codigo + L("'"), rs))
        aux = rs.Texto(u"cstaimpexp");
    if (aux == L("Div") && Consultar(ctx, QStringLiteral("INTERNOS"),
                                     L("select * from divisas where id = '") + codigo + L("'"), rs))
        aux = numeros::Format(rs.Numero(u"imp"), u"00.000000");
}

QString buscar(AppContext &ctx, const Servicio &s, const QString &clave, const QString &codigo, QString &aux,
               int silencio) {
    if (clave.isEmpty() || codigo.isEmpty()) return {};
    const Reloj reloj(ctx.dialogos);
    const Tabla *tabla = nullptr;
    for (const Tabla &t : tablas)
        if (clave == L(t.clave)) tabla = &t;
    if (tabla == nullptr || tabla->*s.entidad == nullptr) return {};
    if (clave == L("DIVISAS")) aux = QStringLiteral("Div");
    try {
        Recordset rs;
        if (!Consultar(ctx, L(tabla->*s.entidad), sentencia(*tabla, s, codigo), rs)) {
            if (silencio != 1)
                ctx.dialogos.advertir(
                    L("CODIGO INEXISTENTE DE ") + clave +
                        QStringLiteral(
                            "\r\n\r\nNo se enconto DESCRIPCIÓN para esta CLAVE\r\n\r\n[CARATULA.") +
                        L(s.marca) + QLatin1Char('.') + clave + QLatin1Char(']'),
                    L("Buscar ") + clave);
            if (aux == L("Div")) aux.clear();
            return {};
        }
        // The ports' statement brings no id: asking for it fails, and a failed look-up answers nothing.
        const QString encontrado = rs.Texto(QString(L(s.columna)));
        completarAux(ctx, clave, codigo, aux);
        return encontrado;
    } catch (const ErrorDeStore &) {
        return {};
    }
}

QString enSilencio(AppContext &ctx, const char *clave, const QString &codigo) {
    QString aux;
    return BuscarDescripcion(ctx, L(clave), codigo, aux, 1);
}

}  // namespace

QString BuscarDescripcion(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux,
                          int silencio) {
    return buscar(ctx, descripcion, clave, codigo, aux, silencio);
}

QString BuscarId(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux, int silencio) {
    return buscar(ctx, identidad, clave, codigo, aux, silencio);
}

QString getAduanaDescripcion(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "ADUANA", codigo);
}
QString getPaisDescripcion(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "PAIS", codigo);
}
QString getEstadoMercaderiaDescripcion(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "ESTADOMERCADERIA", codigo);
}
QString getUnidadDescripcion(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "UNIDADES", codigo);
}
QString getSubRegimen(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "SUBREG", codigo);
}
