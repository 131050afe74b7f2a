#include <cmath>

#include "assembly/run.h"
#include "frame/numbers.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;
using numeros::Format;

const QString tablaDeGrupos = QStringLiteral("groupsubitems");
constexpr double piso = 0.01;

double centavos(double valor) {
    return numeros::redondear(valor, 2);
}

QString clave(const ContextoArmado &r) {
    return QLatin1Char('\'') + r.interno + QLatin1Char('\'');
}

double uno(ContextoArmado &r, const QString &sql, QStringView columna) {
    Recordset rs;
    return r.consultar(sql, rs) ? rs.Numero(columna) : 0;
}

/// A number as the user of this workstation writes it.
QString paraLeer(double valor) {
    QString texto = numeros::aTexto(valor);
    return ReemplazarSeparadorDecimal(texto);
}

double sumaDeKilos(ContextoArmado &r) {
    return uno(r, L("select sum(kgneto) as total from groupsubitems where interno = ") + clave(r), u"total");
}

void barra(ContextoArmado &r, int porciento) {
    r.ctx.dialogos.avance({Avance::Tipo::Barra, 0, QStringLiteral("Pb1"), porciento, 100, {}});
    r.ctx.dialogos.atenderEventos();
}

/// Takes `pedido` kilos from the heaviest rows, one after the other, until none is left to take or no row has
/// more than the floor. Works on cents, so that it ends.
void tomarDeLosPesados(ContextoArmado &r, double pedido) {
    while (pedido > 0) {
        r.internos().Sql = L("select top 1 * from groupsubitems where interno = ") + clave(r) +
                           L(" and kgneto > 0.01 order by kgneto desc");
        Recordset fila;
        if (!r.internos().crearrsActualizable(fila, tablaDeGrupos)) return;
        const double kilos = centavos(fila.Numero(u"kgneto"));
        const bool alcanza = kilos > pedido;
        const double antes = pedido;
        // Either a whole cent less is left to take, or the row falls to zero and is not picked again.
        pedido = alcanza ? 0 : centavos(pedido - kilos + piso);
        fila.Poner(u"kgneto", centavos(kilos - (alcanza ? antes : pedido)));
        fila.Update();
    }
}

/// Rows that got nothing are lifted to the floor, and the heaviest ones pay.
void aplicarPiso(ContextoArmado &r) {
    const double n = uno(
        r, L("select count(1) as cantidad from groupsubitems where kgneto <= 0 and interno = ") + clave(r),
        u"cantidad");
    if (n < 1) return;
    const double pedido = centavos(n * piso);
    r.internos().Sql = L("select * from groupsubitems where flgkg = '*' and interno = ") + clave(r) +
                       L(" and kgneto >  ") + SqlNumber(pedido) + L(" order by kgneto desc");
    Recordset pesada;
    if (r.internos().crearrsActualizable(pesada, tablaDeGrupos)) {
        pesada.Poner(u"kgneto", centavos(pesada.Numero(u"kgneto") - pedido));
        pesada.Update();
    } else {
        tomarDeLosPesados(r, pedido);
    }
    r.ejecutar(L("update groupsubitems set kgneto = 0.01  where interno = ") + clave(r) +
               L(" and kgneto <= 0"));
}

/// The heaviest spread row takes what is missing; false when none is heavy enough.
bool ajustarResto(ContextoArmado &r, double kilos) {
    const double diferencia = centavos(kilos - centavos(sumaDeKilos(r)));
    if (diferencia == 0) return true;
    const double valor = std::fabs(diferencia);
    r.internos().Sql = L("select top 2 * from groupsubitems where flgkg = '*' and interno = ") + clave(r) +
                       L(" and kgneto > ") + SqlNumber(valor) + L(" order by kgneto desc");
    Recordset fila;
    if (!r.internos().crearrsActualizable(fila, tablaDeGrupos)) {
        r.ctx.dialogos.advertir(QStringLiteral("Error al redondear prorrateo, no se encontro subitems con "
                                               "kilos mayor a %1\r\nNo se puede continuar..")
                                    .arg(paraLeer(valor)));
        return false;
    }
    fila.Poner(u"kgneto", centavos(fila.Numero(u"kgneto") + diferencia));
    fila.Update();
    return true;
}

void llevarAItems(ContextoArmado &r, double kilos) {
    const L si("01");
    r.ejecutar(L("update groupsubitems set valorrelacionestadistica = kgneto where interno = ") + clave(r) +
               L(" and estadistica = '01'"));
    r.ejecutar(L("update groupsubitems set valorderesp = kgneto where interno = ") + clave(r) +
               L(" and deresp = '01'"));
    barra(r, 80);
    Recordset rs;
    for (r.consultar(L("select id,estadistica,deresp,") +
                         SqlRound(QStringLiteral("INTERNOS"), QStringLiteral("sum(kgneto)"), u"00.00") +
                         L(" as totalkg from groupsubitems where interno = ") + clave(r) +
                         L(" group by id,estadistica,deresp"),
                     rs);
         !rs.Eof(); rs.MoveNext()) {
        const QString total = SqlNumber(rs.Numero(u"TotalKg"));
        r.ejecutar(L("update item set totalkneto = ") + total + L(" ") +
                   (rs.Texto(u"estadistica") == si ? L(", valorrelacionestadistica = ") + total + L(" ")
                                                   : QString()) +
                   (rs.Texto(u"deresp") == si ? L(", valorderesp = ") + total + L(" ") : QString()) +
                   L(" where interno = ") + clave(r) + L(" and id = ") + SqlNumber(rs.Numero(u"ID")));
    }
    r.ejecutar(L("update item set totalkneto = ") + SqlNumber(kilos) + L(" where interno = ") + clave(r) +
               L(" and id = 0"));
}

/// Which measure of an item is the kilo.
enum class Medida { Ninguna, Estadistica, Especifica, Ambas };

struct MedidaLeida {
    bool hay = false;
    Medida medida = Medida::Ninguna;
    double valor = 0;
};

Medida medidaDe(const Recordset &rs) {
    const L kilo("01");
    const bool estadistica = rs.Texto(u"estadistica") == kilo;
    const bool especifica = rs.Texto(u"deresp") == kilo;
    if (estadistica) return especifica ? Medida::Ambas : Medida::Estadistica;
    return especifica ? Medida::Especifica : Medida::Ninguna;
}

/// The measure of the item's groups that pass `prueba`. Groups of one item may differ in their units: those
/// that name the kilo count, in whatever order the store gives them.
MedidaLeida leerMedida(ContextoArmado &r, const QString &prueba, const QString &id) {
    const QString entidad = QStringLiteral("INTERNOS");
    Recordset rs;
    MedidaLeida m;
    m.hay = r.consultar(L("select estadistica,deresp,") +
                            SqlRound(entidad, QStringLiteral("sum(valorrelacionestadistica)"), u"00.00") +
                            L(" as est,") + SqlRound(entidad, QStringLiteral("sum(valorderesp)"), u"00.00") +
                            L(" as esp from groupsubitems where ") + prueba + L(" and id = ") + id +
                            L(" and interno= ") + clave(r) + L(" group by estadistica,deresp"),
                        rs);
    for (; !rs.Eof(); rs.MoveNext()) {
        m.medida = medidaDe(rs);
        if (m.medida == Medida::Ninguna) continue;
        m.valor = rs.Numero(m.medida == Medida::Especifica ? u"esp" : u"est");
        break;
    }
    return m;
}

void escribirKilos(ContextoArmado &r, double kilos, const QString &id) {
    r.ejecutar(L("update item set totalkneto = ") + SqlNumber(kilos) + L(" where id = ") + id +
               L(" and interno = ") + clave(r));
}

enum class Hallazgo { Ninguno, Informar, Cortar };

/// One item whose measure is the kilo: do some of its groups have it and others not?
Hallazgo revisarMedida(ContextoArmado &r, const QString &id) {
    const MedidaLeida a =
        leerMedida(r, QStringLiteral("(valorrelacionestadistica > 0 or valorderesp > 0)"), id);
    if (a.medida != Medida::Ninguna) escribirKilos(r, a.valor, id);
    static const QString ceroEstadistica = QStringLiteral("valorrelacionestadistica = 0");
    static const QString ceroEspecifica = QStringLiteral("valorderesp = 0");
    // A mark that no row holds: with both measures there is no empty group.
    static const QString ninguna =
        QStringLiteral("(valorrelacionestadistica = 123456 or valorderesp = 123456)");
    const QString &prueba = a.medida == Medida::Estadistica
                                ? ceroEstadistica
                                : (a.medida == Medida::Especifica ? ceroEspecifica : ninguna);
    const MedidaLeida b = leerMedida(r, prueba, id);
    if (!b.hay) return a.valor <= 0 ? Hallazgo::Cortar : Hallazgo::Ninguno;
    escribirKilos(r, b.valor, id);
    if (b.valor != 0 && a.valor <= 0) return Hallazgo::Cortar;
    return b.valor == 0 && a.valor != 0 ? Hallazgo::Informar : Hallazgo::Ninguno;
}

QString alaDerecha(double valor) {
    return Format(valor, u"00.00").rightJustified(10);
}

}  // namespace

void Prorratear_ItemCeroEx(ContextoArmado &r, double kilos) {
    barra(r, 10);
    double fobTotal =
        uno(r, L("select sum(fob) as total from groupsubitems where interno = ") + clave(r), u"total");
    const double dados = sumaDeKilos(r);
    // Sums of cents carry a trace of the binary arithmetic, which is no kilo.
    constexpr int decimalesSeguros = 8;
    if (kilos < numeros::redondear(dados, decimalesSeguros)) {
        r.ctx.dialogos.advertir(QStringLiteral("El kilo a prorratear (%1) debe ser mayor a %2")
                                    .arg(paraLeer(kilos), paraLeer(dados)));
        return;
    }
    const double resto = centavos(kilos - dados);
    barra(r, 20);
    r.ejecutar(L("update groupsubitems set flgkg = '*' where interno = ") + clave(r) +
               L(" and (kgneto <= 0 or kgneto is null)"));
    r.ejecutar(L("update groupsubitems set flgkg = '' where (flgkg is null or flgkg<>'*') and interno = ") +
               clave(r));
    barra(r, 30);
    Recordset rs;
    r.consultar(L("select sum(fob) as fobtotal,count(fob) as cantidad from groupsubitems where interno = ") +
                    clave(r) + L(" and (kgneto <= 0 or kgneto is null)"),
                rs);
    if (rs.Numero(u"Cantidad") == 0) {
        r.ctx.dialogos.informar(
            QStringLiteral("No hay registros para prorratear!\r\nya que todos los articulos tienen cargado "
                           "kilo neto.\r\nSi desea prorratear debe poner los "
                           "kilos en 0 (cero)\r\nEn Carga de Subitems"),
            QStringLiteral("PRORRATEO DE KILOS NETO.."));
        return;
    }
    if (rs.Numero(u"FobTotal") != 0) fobTotal = rs.Numero(u"FobTotal");
    barra(r, 40);
    r.ejecutar(L("Update groupsubitems set kgneto = ") +
               SqlRound(QStringLiteral("INTERNOS"),
                        L("((fob * ") + SqlNumber(resto) + L(") / ") + SqlNumber(fobTotal) + L(")"),
                        u"00.00") +
               L(" where interno = ") + clave(r) + L(" and kgneto <= 0 and flgkg='*'"));
    barra(r, 50);
    aplicarPiso(r);
    barra(r, 70);
    if (!ajustarResto(r, kilos)) return;
    llevarAItems(r, kilos);
    barra(r, 100);
}

QString VerificarIntegridad(ContextoArmado &r) {
    Recordset rs;
    for (r.consultar(L("select id from item where (estadistica<>'01' and deresp<>'01') and totalkneto > 0 "
                       "and interno = ") +
                         clave(r),
                     rs);
         !rs.Eof(); rs.MoveNext()) {
        const QString id = rs.Texto(u"ID");
        if (uno(r,
                L("select count(*) as cant from groupsubitems where kgneto = 0 and id = ") + id +
                    L(" and interno = ") + clave(r),
                u"cant") > 0) {
            MostrarSubItems(r, id.toLongLong());
            return QStringLiteral("NO");
        }
    }
    r.consultar(L("select id from item where (estadistica='01' or deresp = '01') and interno = ") + clave(r) +
                    L(" and (valorrelacionestadistica > 0 or valorderesp > 0)"),
                rs);
    const int total = rs.RecordCount();
    barra(r, 0);
    QString respuesta = QStringLiteral("SI");
    for (int n = 1; !rs.Eof(); rs.MoveNext(), ++n) {
        const QString id = rs.Texto(u"ID");
        const Hallazgo hallazgo = revisarMedida(r, id);
        if (hallazgo != Hallazgo::Ninguno) {
            MostrarSubItems(r, id.toLongLong());
            respuesta = QStringLiteral("NO");
        }
        if (hallazgo == Hallazgo::Cortar) break;
        barra(r, n * 100 / total);
    }
    return respuesta;
}

void MostrarSubItems(ContextoArmado &r, qint64 iditem) {
    QStringList lineas{
        QStringLiteral("Verificación de Subitem's:"),
        QStringLiteral("--------------------------"),
        {},
        QStringLiteral("Los siguientes subitem's deberán tener cargados todos kilogramos o ninguno."),
        QStringLiteral("Por favor revise los campos ESTADÍSTICA si es 01, DERECHO ESPECIFICO si es 01"),
        QStringLiteral("y Kilogramos Neto."),
        {},
        QStringLiteral("UE = UNIDAD ESTADISTICA, UDE = UNIDAD DE DERECHO ESPECIFICO"),
        {},
        QStringLiteral("NCM             UD   CANTIDAD PRE. UNIT. UE   CANT. UE UDE  CANT UDE.    KG NETO"),
        QStringLiteral("--------------- -- ---------- ---------- -- ---------- --- ---------- ----------")};
    Recordset rs;
    for (r.consultar(L("select "
                       "ncm,idunidad,cantidad,preciounitario,estadistica,valorrelacionestadistica,deresp,"
                       "valorderesp,kgneto from groupsubitems where id = ") +
                         QString::number(iditem) + L(" and interno = ") + clave(r),
                     rs);
         !rs.Eof(); rs.MoveNext())
        lineas << QStringList{rs.Texto(u"ncm").leftJustified(15),
                              rs.Texto(u"idunidad").leftJustified(2),
                              alaDerecha(rs.Numero(u"cantidad")),
                              alaDerecha(rs.Numero(u"preciounitario")),
                              rs.Texto(u"estadistica").leftJustified(2),
                              alaDerecha(rs.Numero(u"valorrelacionestadistica")),
                              rs.Texto(u"deresp").leftJustified(3),
                              alaDerecha(rs.Numero(u"valorderesp")),
                              alaDerecha(rs.Numero(u"kgneto"))}
                      .join(QLatin1Char(' '));
    r.ctx.dialogos.informe({{}, lineas.join(L("\r\n")), false});
}
