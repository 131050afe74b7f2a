#include "bench/operacion.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <cstdio>
#include <cstdlib>

#include "assembly/run.h"
#include "frame/context.h"
#include "liquidation/review.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int posiciones = 125;
constexpr int cien = 100;

int itemDe(int grupo, const FormaDeOperacion &forma) {
    return grupo * forma.itemsPorCienGrupos / cien;
}

int primerGrupo(int item, const FormaDeOperacion &forma) {
    return (item * cien + forma.itemsPorCienGrupos - 1) / forma.itemsPorCienGrupos;
}

void sql(QSqlDatabase db, const QString &texto) {
    QSqlQuery consulta(db);
    if (!consulta.exec(texto)) terminar(texto + ": "_L1 + consulta.lastError().text());
}

QString posicion(int i) {
    return u"9901.%1.%2.100A"_s.arg(i / 100, 2, 10, QLatin1Char('0')).arg(i % 100, 2, 10, QLatin1Char('0'));
}

}  // namespace

void terminar(const QString &texto) {
    std::fprintf(stderr, "%s\n", qPrintable(texto));
    std::exit(1);
}

int itemsDe(int lineas, const FormaDeOperacion &forma) {
    return itemDe(lineas / forma.lineasPorGrupo - 1, forma) + 1;
}

void sembrar(AppContext &ctx, int lineas, const FormaDeOperacion &forma) {
    QSqlDatabase ncm = ctx.conexion(u"NCM"_s).coneccion();
    sql(ncm, u"BEGIN"_s);
    for (int i = 0; i < posiciones; ++i) {
        const QString p = posicion(i);
        sql(ncm,
            u"insert into ncm (\"001\",\"002\",\"003\",\"010\",\"012\",\"015\",\"016\",\"017\","
            "\"018\",\"019\",\"020\",\"023\",\"026\",\"028\",\"048\",\"053\",\"059\") "
            "values ('%1','%2','%3','Prueba','07','%4','3','0','5','2.5','','1.5','14','','2',"
            "'2','')"_s.arg(p.left(10), p.mid(11, 3), p.mid(14, 1))
                .arg(2 + i % 18));
    }
    sql(ncm, u"COMMIT"_s);

    QSqlDatabase personal = ctx.conexion(u"PERSONAL"_s).coneccion();
    sql(personal,
        u"insert into clientes (cuit,nombre,eximgan,eximganvalor,ivaareduccion,"
        "ivaareduccionvalor,cvdi,ingbru) "
        "values ('30999999995','Cliente','N',0,'S',50,'S',2.5)"_s);

    QSqlDatabase internos = ctx.conexion(u"INTERNOS"_s).coneccion();
    sql(internos, u"BEGIN"_s);
    const int grupos = lineas / forma.lineasPorGrupo;
    double fob = 0;
    double kilos = 0;
    for (int l = 0; l < lineas; ++l) {
        const int grupo = l % grupos;
        const int item = itemDe(grupo, forma);
        const double precio = 10 + grupo - primerGrupo(item, forma) + 0.25 * (item % 7);
        const double cantidad = 1 + l % 9;
        const double valor = precio * cantidad;
        fob += valor;
        const double kg = grupo % 3 == 0 ? 0 : cantidad * 0.4;
        kilos += grupo % 3 == 0 ? 1 : kg;
        sql(internos,
            u"insert into subitems (interno,idcatalogo,idarticulo,ncm,descripcion,idunidad,"
            "cantidad,preciounitario,fob,estadistica,valorrelacionestadistica,idpais,estadomerc,"
            "sufijos,kgneto,kgbruto,lapi) "
            "values ('BANCO','C','A%1','%2','Artículo de prueba','07',%3,%4,%5,'07',%3,'%6','2',"
            "'',%7,0,'N')"_s.arg(grupo)
                .arg(posicion(item % posiciones))
                .arg(cantidad)
                .arg(precio)
                .arg(valor)
                .arg(300 + item / posiciones)
                .arg(kg));
    }
    sql(internos,
        u"insert into caratula (interno,fechaalta,idsubreg,idaduana,cuitcliente,"
        "cuitdespaduana,fobdivisas,fobcoddivisas,fobdivcambio,fletedivisas,fletecoddivisas,"
        "fletedivcambio,segurodivisas,segurocoddivisas,segurodivcambio,valoraprorratear,"
        "dckgneto,dccomext,factura8) "
        "values ('BANCO','2026-01-05 10:00:00','IC04','001','30999999995','20123456786',%1,"
        "'DOL',1,%2,'DOL',1,%3,'DOL',1,%4,%5,%6,'S')"_s.arg(fob, 0, 'f', 2)
            .arg(fob * 0.05, 0, 'f', 2)
            .arg(fob * 0.01, 0, 'f', 2)
            .arg(fob * 0.02, 0, 'f', 2)
            .arg(kilos + 100, 0, 'f', 2)
            .arg(fob * 0.003, 0, 'f', 2));
    sql(internos, u"COMMIT"_s);
}

QString formaDe(QString sentencia) {
    static const QRegularExpression cita(u"'(?:[^']|'')*'"_s);
    static const QRegularExpression numero(u"\\b[0-9]+(?:\\.[0-9]+)?\\b"_s);
    return sentencia.replace(cita, u"'?'"_s).replace(numero, u"?"_s);
}

namespace {

void generar(AppContext &ctx, int orden) {
    ctx.ChequeoArmado = u"SI"_s;
    OpcionesDeArmado opciones;
    opciones.ARMARITEM = orden;
    if (!Generar(ctx, u"BANCO"_s, opciones) || ctx.ChequeoArmado != "SI"_L1)
        terminar(u"the assembly did not end"_s);
}

}  // namespace

void armar(AppContext &ctx) {
    generar(ctx, 1);
}

void armarComoSeCargo(AppContext &ctx) {
    ctx.opciones.VrySbtDup = u"S"_s;
    generar(ctx, 2);
}

void recalcular(AppContext &ctx) {
    ctx.LiquidacionPendiente = true;
    ClassLiquidacion calculo(ctx, u"BANCO"_s);
    RecalcularOperacion(ctx, u"BANCO"_s, calculo);
}
