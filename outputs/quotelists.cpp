#include "outputs/quotelists.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::internos;
using L1 = QLatin1String;

/// A list: its table, its column, and what is told of an entry that is there.
struct Maestra {
    L1 tabla;
    L1 columna;
    L1 lectura;
    QString repetida;
};

const Maestra &maestra(ListaDePresupuesto cual) {
    static const Maestra conceptos{"conpresu"_L1, "concepto"_L1,
                                   "select * from conpresu order by concepto"_L1,
                                   u"Ya existe este concepto.!"_s};
    static const Maestra referencias{"referencias"_L1, "referencia"_L1,
                                     "select referencia from referencias order by referencia"_L1,
                                     u"Esta referencia ya existe"_s};
    return cual == ListaDePresupuesto::Conceptos ? conceptos : referencias;
}

}  // namespace

QStringList LeerLista(AppContext &ctx, ListaDePresupuesto cual) {
    const Maestra &m = maestra(cual);
    QStringList textos;
    Recordset rs;
    for (Consultar(ctx, internos, m.lectura, rs); !rs.Eof(); rs.MoveNext())
        textos << rs.Texto(QString(m.columna));
    return textos;
}

bool AgregarALista(AppContext &ctx, ListaDePresupuesto cual, const QString &texto) {
    const Maestra &m = maestra(cual);
    if (texto.trimmed().isEmpty()) {
        ctx.dialogos.advertir(u"Debe ingresar un Nombre valido para el nuevo concepto."_s);
        return false;
    }
    const QString valor = TextoEnComillas(texto);
    Recordset rs;
    Consultar(ctx, internos,
              "select count(*) as cont from "_L1 + m.tabla + " where "_L1 + m.columna + " = "_L1 + valor, rs);
    if (rs.Numero(u"cont") > 0) {
        ctx.dialogos.advertir(m.repetida);
        return false;
    }
    Ejecutar(ctx, internos,
             "insert into "_L1 + m.tabla + " ("_L1 + m.columna + ") values ("_L1 + valor + ")"_L1);
    return true;
}

void QuitarDeLista(AppContext &ctx, ListaDePresupuesto cual, const QString &texto) {
    const Maestra &m = maestra(cual);
    Ejecutar(ctx, internos,
             "delete from "_L1 + m.tabla + " where "_L1 + m.columna + " = "_L1 + TextoEnComillas(texto));
}
