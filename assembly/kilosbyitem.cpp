#include "assembly/kilosbyitem.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "assembly/kilomeasure.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

const QString gruposDelReparto = u"groupsubitems"_s;

/// A measure of a group or of an item, and the column of its unit.
struct ColumnaDeMedida {
    QString valor;
    QString unidad;
    QString suma;  ///< its name where the measures of an item are added
};
const std::array<ColumnaDeMedida, 2> columnasDeMedida{
    {{u"valorrelacionestadistica"_s, u"estadistica"_s, u"ue"_s}, {u"valorderesp"_s, u"deresp"_s, u"ude"_s}}};

bool alcanza(Medida medida, const ColumnaDeMedida &columna) {
    const bool esEstadistica = &columna == &columnasDeMedida.front();
    return medida == Medida::Ambas || medida == (esEstadistica ? Medida::Estadistica : Medida::Especifica);
}

/// What an item's groups say of its kilos: the texts of every statement of its spread come from here.
struct MedidaDelItem {
    Medida medida = Medida::Ninguna;
    double dados = 0;  ///< kilos that its groups have

    /// The measure that the others follow.
    const ColumnaDeMedida &principal() const {
        return columnasDeMedida.at(medida == Medida::Especifica ? 1 : 0);
    }
    std::vector<const ColumnaDeMedida *> columnas() const {
        std::vector<const ColumnaDeMedida *> lista;
        for (const ColumnaDeMedida &c : columnasDeMedida)
            if (alcanza(medida, c)) lista.push_back(&c);
        return lista;
    }
    /// The test of the groups in it.
    QString prueba() const {
        QStringList unidades;
        for (const ColumnaDeMedida *c : columnas()) unidades << c->unidad + " = '01'"_L1;
        return unidades.join(" and "_L1);
    }
};

/// One item of one operation, as the statements that write it end.
QString delItem(const ContextoArmado &r, qint64 iditem) {
    return u"id = %1 and interno = %2"_s.arg(QString::number(iditem), r.clave());
}

bool leerMedidas(ContextoArmado &r, qint64 iditem, QStringView prueba, Recordset &rs) {
    return r.consultar(
        u"select sum(fob) as total,sum(valorrelacionestadistica) as ue, sum(valorderesp) as ude,"
        "estadistica,deresp "
        "from groupsubitems "
        "where (estadistica = '01' or deresp = '01') "
        "and (valorrelacionestadistica %1 0 or valorderesp %1 0) and interno = %2 and id = %3 "
        "group by estadistica,deresp"_s.arg(prueba, r.clave(), QString::number(iditem)),
        rs);
}

/// Groups of one item may differ in their units: those in both measures go first, then the statistical ones,
/// in whatever order the store gives them.
MedidaDelItem leerMedidaDelItem(ContextoArmado &r, qint64 iditem) {
    Recordset rs;
    MedidaDelItem m;
    if (!leerMedidas(r, iditem, u">", rs)) leerMedidas(r, iditem, u"=", rs);
    constexpr std::array<Medida, 3> preferencia{Medida::Ambas, Medida::Estadistica, Medida::Especifica};
    const auto lugar = [&preferencia](Medida medida) { return std::ranges::find(preferencia, medida); };
    for (; !rs.Eof(); rs.MoveNext()) {
        const Medida medida = MedidaDe(rs);
        if (lugar(medida) < lugar(m.medida)) {
            m.medida = medida;
            m.dados = 0;
        }
        if (medida == m.medida) m.dados += rs.Numero(m.principal().suma);
    }
    m.dados = SinRastro(m.dados);
    return m;
}

/// All groups in the measure are to share.
void vaciarMedidas(ContextoArmado &r, qint64 iditem, const MedidaDelItem &m) {
    QStringList columnas;
    for (const ColumnaDeMedida *c : m.columnas()) columnas << c->valor + " = 0"_L1;
    r.mandar(
        u"update groupsubitems set %1 "
        "where %2 and %3"_s.arg(columnas.join(", "_L1), m.prueba(), delItem(r, iditem)));
}

/// The groups that have nothing in the measure share `resto` by their FOB.
void darPartes(ContextoArmado &r, qint64 iditem, const MedidaDelItem &m, double resto) {
    const QString donde = u"%1 and %2 = 0 and %3"_s.arg(m.prueba(), m.principal().valor, delItem(r, iditem));
    const double fob = r.numero(
        "select sum(fob) as total "
        "from groupsubitems "
        "where "_L1 +
            donde,
        u"total");
    // Without FOB there are no shares: the largest takes all.
    if (SinRastro(fob) == 0) return;
    const QString parte =
        EnCentavos(r, u"((fob * %1) / %2)"_s.arg(SqlNumber(r.ctx, resto), SqlNumber(r.ctx, fob)));
    QString columnas = "kgneto = "_L1 + parte;
    for (const ColumnaDeMedida *c : m.columnas()) columnas += ", "_L1 + c->valor + " = "_L1 + parte;
    r.mandar(
        u"update groupsubitems set %1 "
        "where %2"_s.arg(columnas, donde));
}

/// The largest group takes what its item's groups lack or have too much, as far as it has; what is left goes
/// to the next.
void ajustarGrupos(ContextoArmado &r, qint64 iditem, const MedidaDelItem &m, double kilos) {
    const QString &medida = m.principal().valor;
    double resta = Centavos(kilos - r.numero(u"select sum(%1) as total "
                                             "from groupsubitems "
                                             "where %2 and %3"_s.arg(medida, m.prueba(), delItem(r, iditem)),
                                             u"total"));
    const auto elegir = [&](const QString &alcance) {
        return u"select top 1 * from groupsubitems "
               "where interno = %1 and id = %2 and %3%4 "
               "order by %5 desc"_s.arg(r.clave(), QString::number(iditem), m.prueba(), alcance, medida);
    };
    while (resta != 0) {
        const QString alcance = " and "_L1 + medida + " > "_L1 + SqlNumber(r.ctx, std::fabs(resta));
        Recordset fila;
        if (!r.abrirActualizable(elegir(alcance), fila, gruposDelReparto) &&
            !r.abrirActualizable(elegir({}), fila, gruposDelReparto))
            return;
        const double toma = std::max(resta, -Centavos(fila.Numero(medida)));
        if (toma == 0) return;
        fila.Poner(u"kgneto", std::max(0.0, Centavos(fila.Numero(u"kgneto") + toma)));
        for (const ColumnaDeMedida *c : m.columnas())
            fila.Poner(c->valor, std::max(0.0, Centavos(fila.Numero(c->valor) + toma)));
        fila.Update();
        resta = Centavos(resta - toma);
    }
}

/// The item's own quantities in kilos become the sums of its groups.
void llevarAlItem(ContextoArmado &r, qint64 iditem, const MedidaDelItem &m) {
    for (const ColumnaDeMedida *c : m.columnas()) {
        const double suma = r.numero(
            u"select %1 as total "
            "from groupsubitems "
            "where %2"_s.arg(EnCentavos(r, u"sum(%1)"_s.arg(c->valor)), delItem(r, iditem)),
            u"total");
        r.mandar(
            u"update item set %1 = %2 "
            "where %3 = '01' and %4"_s.arg(c->valor, SqlNumber(r.ctx, suma), c->unidad, delItem(r, iditem)));
    }
}

/// An item's kilos over its groups; `m` is what they measure, and may be nothing.
void repartirEnItem(ContextoArmado &r, qint64 iditem, double kilos, ModoDeReparto modo,
                    const MedidaDelItem &m) {
    const auto barra = [&r](int porciento) { MarcarBarra(r, u"Pb2"_s, porciento); };
    barra(0);
    if (m.medida != Medida::Ninguna) {
        const bool rehacer = modo == ModoDeReparto::Rehacer;
        if (rehacer) vaciarMedidas(r, iditem, m);
        darPartes(r, iditem, m, rehacer ? kilos : Centavos(kilos - m.dados));
        barra(50);
        ajustarGrupos(r, iditem, m, kilos);
        llevarAlItem(r, iditem, m);
    }
    r.mandar(
        u"update item set totalkneto = %1 "
        "where %2"_s.arg(SqlNumber(r.ctx, kilos), delItem(r, iditem)));
    barra(100);
}

void decirSinMedida(const ContextoArmado &r) {
    r.ctx.dialogos.informar(u"En los subitem's no se encontro campos para prorratear"_s);
}

/// A spread over the items of a declaration, while it runs.
struct RepartoPorItems {
    ContextoArmado &r;
    bool sinMedida = false;  ///< some item has no measure in kilos

    void dar(qint64 iditem, double kilos) {
        const MedidaDelItem m = leerMedidaDelItem(r, iditem);
        if (m.medida == Medida::Ninguna) sinMedida = true;
        repartirEnItem(r, iditem, kilos, ModoDeReparto::Rehacer, m);
    }
    /// The shares of the items without kilos, in their order.
    void darPartes(double resto, double fob) {
        Recordset rs;
        r.consultar(
            u"select id,%1 as valor "
            "from item "
            "where id <> 0 and totalkneto = 0 and interno = %2"_s.arg(
                EnCentavos(r,
                           u"((fobtotal * %1) / %2)"_s.arg(SqlNumber(r.ctx, resto), SqlNumber(r.ctx, fob))),
                r.clave()),
            rs);
        const int total = std::max(1, rs.RecordCount());
        for (int n = 1; !rs.Eof(); rs.MoveNext(), ++n) {
            const auto id = rs.Fields(u"id").Value.toLongLong();
            const double valor = rs.Numero(u"Valor");
            r.mandar(
                u"update item set totalkneto = %1 "
                "where %2"_s.arg(SqlNumber(r.ctx, valor), delItem(r, id)));
            dar(id, valor);
            MarcarBarra(r, u"Pb1"_s, n * 100 / total);
        }
    }
    /// An item of `kilos` takes a difference, also in what its own units count in kilos.
    void tomar(qint64 iditem, double kilos, double diferencia) {
        struct {
            QString columna, unidad;
        } const propias[] = {{u"cantidad"_s, u"idunidad"_s},
                             {u"valorrelacionestadistica"_s, u"estadistica"_s},
                             {u"valorderesp"_s, u"deresp"_s}};
        for (const auto &p : propias)
            r.mandar(
                u"update item set %1 = %1 + %2 "
                "where %3 = '01' and %4"_s.arg(p.columna, SqlNumber(r.ctx, diferencia), p.unidad,
                                               delItem(r, iditem)));
        dar(iditem, Centavos(kilos + diferencia));
    }
    /// The first item above the difference takes it. One that it would leave without kilos, and none above
    /// it: then the heaviest ones, as far as they have. False when nobody takes it.
    bool ajustar(double kilos) {
        double resta = Centavos(kilos - r.numero("select sum(totalkneto) as totalk "
                                                 "from item "
                                                 "where id>0 and interno = "_L1 +
                                                     r.clave(),
                                                 u"totalk"));
        if (resta == 0) return true;
        Recordset rs;
        if (r.consultar(u"select top 1 id,totalkneto "
                        "from item "
                        "where totalkneto>%1 and id>0 and interno = %2"_s.arg(
                            EnComillas(SqlNumber(r.ctx, resta)), r.clave()),
                        rs) &&
            Centavos(rs.Numero(u"totalkneto") + resta) > 0) {
            tomar(rs.Fields(u"id").Value.toLongLong(), rs.Numero(u"totalkneto"), resta);
            return true;
        }
        r.consultar(
            u"select id,totalkneto "
            "from item "
            "where id>0 and interno = %1 "
            "order by totalkneto desc"_s.arg(r.clave()),
            rs);
        for (; !rs.Eof() && resta != 0; rs.MoveNext()) {
            const double suyos = Centavos(rs.Numero(u"totalkneto"));
            const double toma = std::max(resta, -suyos);
            if (toma == 0) return false;
            tomar(rs.Fields(u"id").Value.toLongLong(), suyos, toma);
            resta = Centavos(resta - toma);
        }
        return resta == 0;
    }
};

}  // namespace

bool Prorratear_ItemCeroEx(AppContext &ctx, const QString &interno, double kilos) {
    const Reloj reloj(ctx.dialogos);
    ContextoArmado r{ctx, interno};
    EscrituraLigera ligera(r.internos());
    const bool termino = Prorratear_ItemCeroEx(r, kilos, RepartoPorGrupos::DeLaRevision());
    ligera.Terminar();
    return termino;
}

bool Prorratear_ItemCero(AppContext &ctx, const QString &interno, double kilos) {
    const Reloj reloj(ctx.dialogos);
    ContextoArmado r{ctx, interno};
    const double total = Centavos(kilos);
    const double fobDeGrupos = r.numero(
        "select sum(fob) as total from groupsubitems where interno = "_L1 + r.clave() + " and id <> 0"_L1,
        u"total");
    Recordset rs;
    r.consultar(
        u"select sum(fobtotal) as total,sum(totalkneto) as totalk "
        "from item "
        "where interno = %1 and id <> 0 and totalkneto > 0"_s.arg(r.clave()),
        rs);
    const double dados = SinRastro(rs.Numero(u"totalk"));
    if (dados >= total) {
        ctx.dialogos.advertir(
            u"En la suma de Total Kg Neto en uno o mas items (%1) resulta mayor al que intenta prorratear"_s
                .arg(ParaLeer(r, dados)));
        return false;
    }
    const double fob = SinRastro(fobDeGrupos - rs.Numero(u"total"));
    EscrituraLigera ligera(r.internos());
    RepartoPorItems reparto{r};
    if (fob > 0) {
        reparto.darPartes(Centavos(total - dados), fob);
    } else if (r.numero("select count(*) as cant "
                        "from item "
                        "where id <> 0 and totalkneto = 0 and interno = "_L1 +
                            r.clave(),
                        u"cant") > 0) {
        ctx.dialogos.advertir(
            u"Los items sin kilos no tienen FOB por el cual prorratear; cargue los kilos en cada item."_s);
        return false;
    }
    if (!reparto.ajustar(total)) {
        ctx.dialogos.advertir(u"La operación no tiene items; ármela para prorratear los kilos."_s);
        return false;
    }
    r.mandar(
        u"update item set totalkneto = %1 "
        "where id = 0 and interno = %2"_s.arg(SqlNumber(ctx, total), r.clave()));
    Prorratear_ItemVacios(ctx, interno);
    ligera.Terminar();
    if (reparto.sinMedida) decirSinMedida(r);
    return true;
}

bool Prorratear_ItemEx(AppContext &ctx, const QString &interno, qint64 iditem, double kilos,
                       ModoDeReparto modo) {
    const Reloj reloj(ctx.dialogos);
    ContextoArmado r{ctx, interno};
    const MedidaDelItem m = leerMedidaDelItem(r, iditem);
    const double total = Centavos(kilos);
    if (modo != ModoDeReparto::Rehacer && total <= m.dados) {
        ctx.dialogos.advertir(
            u"Item: %1\r\n\r\n"
            "El valor ingresado a Prorratear (%2) es menor o igual\r\n\r\n"
            "al total de Kg ingresados en Subitem's (%3)"_s.arg(QString::number(iditem), ParaLeer(r, total),
                                                                ParaLeer(r, m.dados)));
        return false;
    }
    EscrituraLigera ligera(r.internos());
    repartirEnItem(r, iditem, total, modo, m);
    ligera.Terminar();
    if (m.medida == Medida::Ninguna) decirSinMedida(r);
    return true;
}

void Prorratear_ItemVacios(AppContext &ctx, const QString &interno) {
    ContextoArmado r{ctx, interno};
    Recordset items;
    r.consultar(
        u"select id,COUNT(*) as cant "
        "from groupsubitems "
        "where kgneto = 0 and (estadistica = '01' or deresp = '01' or idunidad = '01') and interno = %1 "
        "GROUP BY ID"_s.arg(r.clave()),
        items);
    for (; !items.Eof(); items.MoveNext()) {
        const QString id = items.Texto(u"ID");
        const double falta = Centavos(items.Numero(u"Cant") * pisoDeKilos);
        Recordset pesado;
        if (!r.abrirActualizable(
                u"select top 1 * from groupsubitems "
                "where interno = %1 and ID = %2 And kgneto > %3 "
                "order by kgneto desc"_s.arg(r.clave(), id, EnComillas(SqlNumber(ctx, falta))),
                pesado, gruposDelReparto))
            continue;
        const QString deEste = u"interno = %1 and id = %2"_s.arg(r.clave(), id);
        for (const ColumnaDeMedida &c : columnasDeMedida)
            r.mandar(
                u"update groupsubitems set %1 = 0.01 "
                "where %2 = '01' and %1 = 0 and %3"_s.arg(c.valor, c.unidad, deEste));
        r.mandar(
            u"update groupsubitems set kgneto = 0.01 "
            "where kgneto = 0 and %1"_s.arg(deEste));
        pesado.Poner(u"kgneto", Centavos(pesado.Numero(u"kgneto") - falta));
        for (const ColumnaDeMedida &c : columnasDeMedida)
            // A measure that was empty is at the floor now, and has nothing to give.
            if (pesado.Texto(c.unidad) == unidadKilo && pesado.Numero(c.valor) > falta)
                pesado.Poner(c.valor, Centavos(pesado.Numero(c.valor) - falta));
        pesado.Update();
    }
}

Veredicto ProrratearKilos(AppContext &ctx, const QString &interno, const QString &item,
                          const QString &valor) {
    const bool todaLaDeclaracion = item.trimmed() == "0"_L1;
    const double kilos = Centavos(numeros::aNumero(valor));
    bool prorrateado = false;
    if (!numeros::esNumerico(valor))
        ctx.dialogos.advertir(todaLaDeclaracion ? u"Debe ingresar un valor númerico"_s
                                                : u"El valor a prorratear debe ser numerico"_s);
    else if (!todaLaDeclaracion)
        prorrateado =
            Prorratear_ItemEx(ctx, interno, item.trimmed().toLongLong(), kilos, ModoDeReparto::Completar);
    else if (kilos == 0)
        ctx.dialogos.advertir(u"Los valores deben ser mayores a cero"_s);
    else
        prorrateado = Prorratear_ItemCero(ctx, interno, kilos);
    return prorrateado ? Veredicto::bien() : Veredicto::mal(u"TxtValor"_s);
}
