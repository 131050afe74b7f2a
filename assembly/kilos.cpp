// Kilos of the header are spread over the groups that have none, and checked item by item.

#include <cmath>

#include "assembly/kilomeasure.h"
#include "assembly/phases.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

using numeros::Format;

const QString tablaDeGrupos = u"groupsubitems"_s;

double sumaDeKilos(ContextoArmado &r) {
    return r.numero("select sum(kgneto) as total from groupsubitems where interno = "_L1 + r.clave(),
                    u"total");
}

void barra(const ContextoArmado &r, int porciento) {
    MarcarBarra(r, u"Pb1"_s, porciento);
}

/// Takes `pedido` kilos from the heaviest rows, one after the other, until none is left to take or no row has
/// more than the floor. Works on cents, so that it ends.
void tomarDeLosPesados(ContextoArmado &r, double pedido) {
    while (pedido > 0) {
        Recordset fila;
        if (!r.abrirActualizable(u"select top 1 * from groupsubitems "
                                 "where interno = %1 and kgneto > 0.01 "
                                 "order by kgneto desc"_s.arg(r.clave()),
                                 fila, tablaDeGrupos))
            return;
        const double kilos = Centavos(fila.Numero(u"kgneto"));
        const bool alcanza = kilos > pedido;
        const double antes = pedido;
        // Either a whole cent less is left to take, or the row falls to zero and is not picked again.
        pedido = alcanza ? 0 : Centavos(pedido - kilos + pisoDeKilos);
        fila.Poner(u"kgneto", Centavos(kilos - (alcanza ? antes : pedido)));
        fila.Update();
    }
}

/// Rows that got nothing are lifted to the floor, and the heaviest ones pay.
void aplicarPiso(ContextoArmado &r, const RepartoPorGrupos &reparto) {
    const double n = r.numero(
        "select count(1) as cantidad from groupsubitems "
        "where kgneto <= 0 and interno = "_L1 +
            r.clave(),
        u"cantidad");
    if (n < 1) return;
    const double pedido = Centavos(n * pisoDeKilos);
    const QString numero = SqlNumber(r.ctx, pedido);
    Recordset pesada;
    if (r.abrirActualizable(
            u"select * from groupsubitems "
            "where flgkg = '*' and interno = %1 and kgneto > %2 "
            "order by kgneto desc"_s.arg(
                r.clave(), reparto.pedidoComoTexto ? EnComillas(numero) : QLatin1Char(' ') + numero),
            pesada, tablaDeGrupos)) {
        pesada.Poner(u"kgneto", Centavos(pesada.Numero(u"kgneto") - pedido));
        pesada.Update();
    } else {
        tomarDeLosPesados(r, pedido);
    }
    r.mandar(
        u"update groupsubitems set kgneto = 0.01  "
        "where interno = %1 and kgneto <= 0"_s.arg(r.clave()));
}

/// The heaviest spread row takes what is missing; false when none is heavy enough.
bool ajustarResto(ContextoArmado &r, double kilos) {
    const double diferencia = Centavos(kilos - Centavos(sumaDeKilos(r)));
    if (diferencia == 0) return true;
    const double valor = std::fabs(diferencia);
    Recordset fila;
    if (!r.abrirActualizable(u"select top 2 * from groupsubitems "
                             "where flgkg = '*' and interno = %1 and kgneto > %2 "
                             "order by kgneto desc"_s.arg(r.clave(), SqlNumber(r.ctx, valor)),
                             fila, tablaDeGrupos)) {
        r.ctx.dialogos.advertir(
            u"Error al redondear prorrateo, no se encontro subitems con kilos mayor a %1\r\n"
            "No se puede continuar.."_s.arg(ParaLeer(r, valor)));
        return false;
    }
    fila.Poner(u"kgneto", Centavos(fila.Numero(u"kgneto") + diferencia));
    fila.Update();
    return true;
}

/// Where the kilo is the measure, the measure follows the kilos; the items take their groups' sums.
void llevarAItems(ContextoArmado &r, double kilos) {
    const auto clave = r.clave();
    r.mandar(
        u"update groupsubitems set valorrelacionestadistica = kgneto "
        "where interno = %1 and estadistica = '01'"_s.arg(clave));
    r.mandar(
        u"update groupsubitems set valorderesp = kgneto "
        "where interno = %1 and deresp = '01'"_s.arg(clave));
    barra(r, 80);
    Recordset rs;
    r.consultar(
        u"select id,estadistica,deresp,%1 as totalkg "
        "from groupsubitems "
        "where interno = %2 "
        "group by id,estadistica,deresp"_s.arg(EnCentavos(r, u"sum(kgneto)"_s), clave),
        rs);
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString total = SqlNumber(r.ctx, rs.Numero(u"TotalKg"));
        const auto cuando = [&](QStringView unidad, const QString &forma) {
            return rs.Texto(unidad) == unidadKilo ? forma.arg(total) : QString();
        };
        r.mandar(
            u"update item set totalkneto = %1 %2%3 "
            "where interno = %4 and id = %5"_s.arg(
                total, cuando(u"estadistica", u", valorrelacionestadistica = %1 "_s),
                cuando(u"deresp", u", valorderesp = %1 "_s), clave, SqlNumber(r.ctx, rs.Numero(u"ID"))));
    }
    r.mandar(
        u"update item set totalkneto = %1 "
        "where interno = %2 and id = 0"_s.arg(SqlNumber(r.ctx, kilos), clave));
}

struct MedidaLeida {
    bool hay = false;
    Medida medida = Medida::Ninguna;
    double valor = 0;
};

QString sentenciaDeMedida(const ContextoArmado &r, const QString &prueba, const QString &id) {
    return u"select estadistica,deresp,%1 as est,%2 as esp "
           "from groupsubitems "
           "where %3 and id = %4 and interno= %5 "
           "group by estadistica,deresp"_s.arg(EnCentavos(r, u"sum(valorrelacionestadistica)"_s),
                                               EnCentavos(r, u"sum(valorderesp)"_s), prueba, id, r.clave());
}

/// The measure of the item's groups that pass `prueba`. Groups of one item may differ in their units: those
/// that name the kilo count, in whatever order the store gives them.
MedidaLeida leerMedida(const ContextoArmado &r, const QString &prueba, const QString &id) {
    Recordset rs;
    MedidaLeida m;
    m.hay = r.consultar(sentenciaDeMedida(r, prueba, id), rs);
    for (; !rs.Eof(); rs.MoveNext()) {
        m.medida = MedidaDe(rs);
        if (m.medida == Medida::Ninguna) continue;
        m.valor = rs.Numero(m.medida == Medida::Especifica ? u"esp" : u"est");
        break;
    }
    return m;
}

void escribirKilos(const ContextoArmado &r, double kilos, const QString &id) {
    r.mandar(
        u"update item set totalkneto = %1 "
        "where id = %2 and interno = %3"_s.arg(SqlNumber(r.ctx, kilos), id, r.clave()));
}

enum class Hallazgo { Ninguno, Informar, Cortar };

/// An item whose measure is the kilo, and what its groups that have the measure say.
struct ItemEnRevision {
    QString id;
    MedidaLeida con;

    /// The test of its groups that have nothing in the measure.
    const QString &pruebaDeLosVacios() const {
        static const QString ceroEstadistica = u"valorrelacionestadistica = 0"_s;
        static const QString ceroEspecifica = u"valorderesp = 0"_s;
        // A mark that no row holds: with both measures there is no empty group.
        static const QString ninguna = u"(valorrelacionestadistica = 123456 or valorderesp = 123456)"_s;
        if (con.medida == Medida::Estadistica) return ceroEstadistica;
        return con.medida == Medida::Especifica ? ceroEspecifica : ninguna;
    }
};

/// Some items at a time: what the groups without the measure are asked hangs on what those with it said, and
/// neither on what is written.
std::vector<ItemEnRevision> leerMedidas(const ContextoArmado &r, const QStringList &ids) {
    const QString conMedida = u"(valorrelacionestadistica > 0 or valorderesp > 0)"_s;
    Conexion &internos = r.internos();
    std::vector<ItemEnRevision> items;
    items.reserve(static_cast<std::size_t>(ids.size()));
    QStringList preguntas;
    for (const QString &id : ids) preguntas << sentenciaDeMedida(r, conMedida, id);
    internos.Anticipar(preguntas);
    for (const QString &id : ids) items.push_back({id, leerMedida(r, conMedida, id)});
    preguntas.clear();
    for (const ItemEnRevision &i : items) preguntas << sentenciaDeMedida(r, i.pruebaDeLosVacios(), i.id);
    internos.Anticipar(preguntas);
    return items;
}

/// Do some of its groups have the measure and others not?
Hallazgo revisarMedida(const ContextoArmado &r, const ItemEnRevision &item) {
    const MedidaLeida &a = item.con;
    if (a.medida != Medida::Ninguna) escribirKilos(r, a.valor, item.id);
    const MedidaLeida b = leerMedida(r, item.pruebaDeLosVacios(), item.id);
    if (!b.hay) return a.valor <= 0 ? Hallazgo::Cortar : Hallazgo::Ninguno;
    escribirKilos(r, b.valor, item.id);
    if (b.valor != 0 && a.valor <= 0) return Hallazgo::Cortar;
    return b.valor == 0 && a.valor != 0 ? Hallazgo::Informar : Hallazgo::Ninguno;
}

QString alaDerecha(const ContextoArmado &r, double valor) {
    return Format(valor, u"00.00", r.ctx.SeparadorDecimal).rightJustified(10);
}

}  // namespace

const RepartoPorGrupos &RepartoPorGrupos::DelArmado() {
    static const RepartoPorGrupos reparto{u"(kgneto <= 0 or kgneto is null)"_s, false,
                                          u"No hay registros para prorratear!\r\n"
                                          "ya que todos los articulos tienen cargado kilo neto.\r\n"
                                          "Si desea prorratear debe poner los kilos en 0 (cero)\r\n"
                                          "En Carga de Subitems"_s};
    return reparto;
}

const RepartoPorGrupos &RepartoPorGrupos::DeLaRevision() {
    static const RepartoPorGrupos reparto{u"kgneto <= 0"_s, true,
                                          u"No hay registros para prorratear!\r\n"
                                          "Si necesita cambiar el kilo total\r\n"
                                          "debe rearmar los item's, modifícando\r\n"
                                          "algún valor de carátula."_s};
    return reparto;
}

bool Prorratear_ItemCeroEx(ContextoArmado &r, double kilos, const RepartoPorGrupos &reparto) {
    barra(r, 10);
    double fobTotal =
        r.numero("select sum(fob) as total from groupsubitems where interno = "_L1 + r.clave(), u"total");
    const double dados = sumaDeKilos(r);
    if (kilos < SinRastro(dados)) {
        r.ctx.dialogos.advertir(
            u"El kilo a prorratear (%1) debe ser mayor a %2"_s.arg(ParaLeer(r, kilos), ParaLeer(r, dados)));
        return false;
    }
    const double resto = Centavos(kilos - dados);
    barra(r, 20);
    r.mandar(
        u"update groupsubitems set flgkg = '*' "
        "where interno = %1 and %2"_s.arg(r.clave(), reparto.sinKilos));
    r.mandar(
        "update groupsubitems set flgkg = '' "
        "where (flgkg is null or flgkg<>'*') and interno = "_L1 +
        r.clave());
    barra(r, 30);
    Recordset rs;
    r.consultar(
        u"select sum(fob) as fobtotal,count(fob) as cantidad "
        "from groupsubitems "
        "where interno = %1 and (kgneto <= 0 or kgneto is null)"_s.arg(r.clave()),
        rs);
    if (rs.Numero(u"Cantidad") == 0) {
        r.ctx.dialogos.informar(reparto.nadaQueProrratear, u"PRORRATEO DE KILOS NETO.."_s);
        return false;
    }
    if (rs.Numero(u"FobTotal") != 0) fobTotal = rs.Numero(u"FobTotal");
    barra(r, 40);
    const QString parte = u"((fob * %1) / %2)"_s.arg(SqlNumber(r.ctx, resto), SqlNumber(r.ctx, fobTotal));
    r.mandar(
        u"Update groupsubitems set kgneto = %1 "
        "where interno = %2 and kgneto <= 0 and flgkg='*'"_s.arg(EnCentavos(r, parte), r.clave()));
    barra(r, 50);
    aplicarPiso(r, reparto);
    barra(r, 70);
    if (!ajustarResto(r, kilos)) return false;
    llevarAItems(r, kilos);
    barra(r, 100);
    return true;
}

QString VerificarIntegridad(ContextoArmado &r) {
    Recordset rs;
    r.consultar(
        "select id from item "
        "where (estadistica<>'01' and deresp<>'01') and totalkneto > 0 and interno = "_L1 +
            r.clave(),
        rs);
    const auto sinKilos = [&] {
        return u"select count(*) as cant from groupsubitems "
               "where kgneto = 0 and id = %1 and interno = %2"_s.arg(rs.Texto(u"ID"), r.clave());
    };
    std::vector<QStringList> preguntas;
    for (; !rs.Eof(); rs.MoveNext()) preguntas.push_back({sinKilos()});
    LecturaAdelantada adelantada(r.internos(), std::move(preguntas));
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        adelantada.Vuelta();
        if (r.numero(sinKilos(), u"cant") > 0) {
            MostrarSubItems(r, rs.Texto(u"ID").toLongLong());
            return u"NO"_s;
        }
    }
    r.consultar(
        u"select id from item "
        "where (estadistica='01' or deresp = '01') and interno = %1 "
        "and (valorrelacionestadistica > 0 or valorderesp > 0)"_s.arg(r.clave()),
        rs);
    QStringList ids;
    for (; !rs.Eof(); rs.MoveNext()) ids << rs.Texto(u"ID");
    barra(r, 0);
    QString respuesta = u"SI"_s;
    constexpr qsizetype tramo = 64;
    for (qsizetype desde = 0; desde < ids.size(); desde += tramo) {
        qsizetype n = desde;
        for (const ItemEnRevision &item : leerMedidas(r, ids.mid(desde, tramo))) {
            const Hallazgo hallazgo = revisarMedida(r, item);
            if (hallazgo != Hallazgo::Ninguno) {
                MostrarSubItems(r, item.id.toLongLong());
                respuesta = u"NO"_s;
            }
            if (hallazgo == Hallazgo::Cortar) {
                r.internos().OlvidarAnticipos();
                return respuesta;
            }
            barra(r, static_cast<int>(++n * 100 / ids.size()));
        }
    }
    return respuesta;
}

void MostrarSubItems(ContextoArmado &r, qint64 iditem) {
    QStringList lineas{u"Verificación de Subitem's:"_s,
                       u"--------------------------"_s,
                       {},
                       u"Los siguientes subitem's deberán tener cargados todos kilogramos o ninguno."_s,
                       u"Por favor revise los campos ESTADÍSTICA si es 01, DERECHO ESPECIFICO si es 01"_s,
                       u"y Kilogramos Neto."_s,
                       {},
                       u"UE = UNIDAD ESTADISTICA, UDE = UNIDAD DE DERECHO ESPECIFICO"_s,
                       {},
                       u"NCM             UD   CANTIDAD PRE. UNIT. UE   CANT. UE UDE  CANT UDE.    KG NETO"_s,
                       u"--------------- -- ---------- ---------- -- ---------- --- ---------- ----------"_s};
    Recordset rs;
    r.consultar(
        u"select ncm,idunidad,cantidad,preciounitario,"
        "estadistica,valorrelacionestadistica,deresp,valorderesp,kgneto "
        "from groupsubitems "
        "where id = %1 and interno = %2"_s.arg(QString::number(iditem), r.clave()),
        rs);
    for (; !rs.Eof(); rs.MoveNext())
        lineas << QStringList{rs.Texto(u"ncm").leftJustified(15),
                              rs.Texto(u"idunidad").leftJustified(2),
                              alaDerecha(r, rs.Numero(u"cantidad")),
                              alaDerecha(r, rs.Numero(u"preciounitario")),
                              rs.Texto(u"estadistica").leftJustified(2),
                              alaDerecha(r, rs.Numero(u"valorrelacionestadistica")),
                              rs.Texto(u"deresp").leftJustified(3),
                              alaDerecha(r, rs.Numero(u"valorderesp")),
                              alaDerecha(r, rs.Numero(u"kgneto"))}
                      .join(QLatin1Char(' '));
    r.ctx.dialogos.informe({{}, lineas.join("\r\n"_L1), false});
}
