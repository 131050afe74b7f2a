#include "tests/exchange/oficinas.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>

#include "assembly/run.h"
#include "frame/base/values.h"
#include "liquidation/ClassLiquidacion.h"
#include "liquidation/review.h"
#include "operations/gzip.h"
#include "operations/operationrows.h"

using namespace Qt::StringLiterals;

void DosOficinas::SetUp() {
    EnAmbosStores::SetUp();
}

void DosOficinas::preparar(const QString &interno) {
    ctx->ChequeoArmado = u"SI"_s;
    ASSERT_TRUE(Generar(*ctx, interno, {.ARMARITEM = 2, .modo = ModoDescripcion::Maria}));
    ASSERT_EQ(ctx->ChequeoArmado, u"SI"_s);
    ClassLiquidacion calculo(*ctx, interno);
    ctx->LiquidacionPendiente = true;
    RecalcularOperacion(*ctx, interno, calculo);
    ctx->PcName = u"PC1"_s;
    const QString linea = uno(*ctx, u"select min(id) as n from subitems where interno = '%1'"_s.arg(interno));
    for (
        const QString &sql :
        {u"insert into certorigen (interno,numero,exportador,fecha) values ('%1','AR-1','Ñandú ''S.A.''',%3)"_s,
         u"insert into idrel (interno,idroot,idsub) values ('%1',%2,%2)"_s,
         u"insert into descargas (interno,dit,cantidad,idexportacion) values ('%1','26001DIT1',1.5,null)"_s,
         u"insert into iteminfo (interno,iditem,idinfo,valor) values ('%1',1,'NRO.DJAI','X')"_s,
         u"insert into sysflag (interno,flag,valor,item) values ('%1','1439/96','S',1)"_s,
         u"insert into transferidas (interno,maquina,archivo,suma,fecha) values ('%1','PC1','a.xml','00',%3)"_s})
        ejecutar(QString(sql)
                     .replace("%1"_L1, interno)
                     .replace("%2"_L1, linea)
                     .replace("%3"_L1, ctx->DataManager.getDateFormatbyEntity(
                                           u"INTERNOS"_s, QDateTime(QDate(2026, 2, 28), QTime(23, 59, 58)))));
    for (const QString &tabla : {u"hval"_s, u"hvalexp"_s})
        ejecutar(u"insert into %1 (interno,datos) values ('%2','renglón 1\r\nrenglón ''2''')"_s.arg(tabla,
                                                                                                    interno),
                 u"SYSTABLAS"_s);
}

void DosOficinas::exportarDe(AppContext &de, const QStringList &claves, const QString &archivo) {
    const intercambio::Exportacion r = intercambio::Exportar(de, claves, archivo);
    ASSERT_TRUE(r.hecho) << r.aviso.toStdString();
}

intercambio::Importacion DosOficinas::importarEn(AppContext &a, const QString &archivo,
                                                 intercambio::Decision decision) {
    std::map<QString, intercambio::Plan> plan;
    for (const intercambio::OperacionEnArchivo &o : intercambio::Mirar(a, archivo).operaciones)
        plan[o.clave] = {decision};
    return intercambio::Importar(a, archivo, plan);
}

AppContext &DosOficinas::otra(const char *etiqueta) {
    if (!otroCtx_) {
        otraTienda_ = std::make_unique<Tienda>(QLatin1String(etiqueta));
        otroCtx_ = otraTienda_->contexto(otroRegistro_);
    }
    return *otroCtx_;
}

QString DosOficinas::uno(AppContext &de, const QString &sql, const QString &entidad) {
    Recordset rs;
    return Consultar(de, entidad, sql, rs) ? EsNull(rs.Fields(0).Value) : u"<nada>"_s;
}

QString DosOficinas::cuentas(AppContext &de, const QString &interno) {
    QStringList partes;
    for (const operacion::Tabla &t : operacion::Tablas()) {
        const QString nombre = QLatin1String(t.nombre);
        const QString n = uno(de, u"select count(*) as n from %1 where interno = '%2'"_s.arg(nombre, interno),
                              QLatin1String(t.entidad));
        if (n != "0"_L1) partes << nombre + u' ' + n;
    }
    partes.sort();
    return partes.join(u',');
}

QByteArray DosOficinas::bytesDe(const QString &archivo) {
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArrayLiteral("<nada>");
}

QByteArray DosOficinas::expandido(const QString &archivo) {
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly)) return {};
    gzip::Lector lector(f);
    QByteArray todo;
    for (QByteArray parte = lector.leer(); !parte.isEmpty(); parte = lector.leer()) todo += parte;
    return todo;
}

void DosOficinas::comprimir(const QByteArray &lineas, const QString &archivo, bool conSuma) {
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    gzip::Escritor escritor(f);
    ASSERT_TRUE(escritor.escribir(lineas));
    const QByteArray suma = QCryptographicHash::hash(lineas, QCryptographicHash::Sha256).toHex();
    ASSERT_TRUE(escritor.escribir(conSuma ? "{\"suma\":\"" + suma + "\"}\n" : QByteArray()));
    ASSERT_TRUE(escritor.terminar());
}
