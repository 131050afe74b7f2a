#include "operations/lifecycle.h"

#include <QDateTime>

#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/failures.h"
#include "frame/startup.h"
#include "header/regime.h"
#include "operations/oOperationCopy.h"
#include "operations/operationkey.h"
#include "stock/closing.h"
#include "subitems/inputslink.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

using ajuste::zendra;
using entidad::internos;

QString bandera(int n) {
    return "FLAG"_L1 + QString::number(n);
}

QString deLaClave(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
}

/// The tables of an operation, in the order of their removal.
struct TablaDeOperacion {
    const char *tabla;
    const char *entidad;
};
constexpr TablaDeOperacion tablas[] = {
    {"subitems", "INTERNOS"},  {"groupsubitems", "INTERNOS"}, {"item", "INTERNOS"},
    {"liqcero", "INTERNOS"},   {"itemventaja", "INTERNOS"},   {"itemref", "INTERNOS"},
    {"itempresu", "INTERNOS"}, {"itemliq", "INTERNOS"},       {"iteminfo", "INTERNOS"},
    {"interno", "INTERNOS"},   {"caratula", "INTERNOS"},      {"facturas", "INTERNOS"},
    {"prorrateo", "INTERNOS"}, {"descargas", "INTERNOS"},     {"hval", "SYSTABLAS"},
    {"hvalexp", "SYSTABLAS"}};

/// What this system keeps beside them.
constexpr const char *tablasPropias[] = {"transferidas", "certorigen"};

QString fechaLarga(const Recordset &rs) {
    const QDateTime fecha = AFecha(rs.Fields(u"fecha").Value);
    return fecha.isValid() ? FechaLarga(fecha) : rs.Texto(u"fecha");
}

/// Gives the inputs of lines that took some back to stock. What the link answers is not looked at.
void liberarInsumos(AppContext &ctx, const QString &clave) {
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select cancelaciones,idcatalogo,idarticulo,id from subitems"_L1 + deLaClave(clave), rs);
         !rs.Eof(); rs.MoveNext()) {
        if (rs.Texto(u"cancelaciones") != "OK"_L1) continue;
        const auto enlace = insumos::Enlazar();
        if (!enlace)
            throw Falla{429,
                        u"oInputsLink.clInputsLink"_s,
                        u"No se puede crear el enlace de insumos: la operación tiene líneas con "
                        "insumos tomados y la biblioteca no está instalada."_s,
                        {}};
        enlace->EliminarInsumo(clave, rs.Texto(u"idCatalogo"), rs.Texto(u"IdArticulo"),
                               static_cast<qint64>(rs.Numero(u"ID")));
    }
}

void borrarAjustes(AppContext &ctx, const QString &clave) {
    ctx.ajustes.Borrar(zendra, u"PROCESOS"_s, clave);
    for (int n = 0; n < 8; ++n) ctx.ajustes.Borrar(zendra, clave, bandera(n));
    ctx.ajustes.Borrar(zendra, clave, u"COEFEXPO"_s);
}

}  // namespace

bool CrearInterno(AppContext &ctx, const QString &clave) {
    if (const QString defecto = DefectoDeClaveNueva(clave); !defecto.isEmpty()) {
        ctx.dialogos.advertir(defecto);
        return false;
    }
    try {
        Recordset rs;
        if (Consultar(ctx, internos, "select interno from caratula"_L1 + deLaClave(clave), rs)) {
            ctx.dialogos.advertir(u"El Código de interno ya existe."_s);
            return false;
        }
        if (Ejecutar(ctx, internos,
                     "insert into caratula (interno, fechaalta, ONCCAHabilitado)"
                     " values ("_L1 +
                         EnComillas(clave) + ","_L1 +
                         ctx.DataManager.getDateFormatbyEntity(internos, QDate::currentDate().startOfDay()) +
                         ",'N')"_L1) == 0)
            return false;
        for (int n = 0; n < 8; ++n) ctx.ajustes.Guardar(zendra, clave, bandera(n), u"1"_s);
        ctx.ajustes.Guardar(zendra, clave, u"COEFEXPO"_s, u"0"_s);
        return true;
    } catch (const Falla &e) {
        ContarFalla(ctx, e);
        return false;
    }
}

QString NuevoInterno(AppContext &ctx) {
    const auto escrito = ctx.dialogos.pedirTexto(
        {u"Crear nuevo interno"_s, u"Ingrese el nuevo número de INTERNO/CARPETA"_s, int(largoDeClave), {}});
    QString clave = escrito.value_or(QString()).trimmed();
    if (clave.isEmpty() || !CrearInterno(ctx, clave)) return {};
    return clave;
}

bool ComprobarBloqueo(AppContext &ctx, const QString &interno) {
    const Reloj reloj(ctx.dialogos);
    Recordset rs;
    if (!Consultar(ctx, internos, "select interno,maquina,fecha from interno"_L1 + deLaClave(interno), rs))
        return true;
    if (rs.Texto(u"maquina").trimmed().toUpper() != ctx.PcName.trimmed().toUpper()) {
        ctx.dialogos.informar("Este interno esta abierto por la PC: "_L1 + rs.Texto(u"maquina") +
                              "\r\n\r\nAccedido el "_L1 + fechaLarga(rs));
        return false;
    }
    ctx.dialogos.critico(
        "El estado de INTERNO indica que el mismo esta abierto.\r\n\r\nSe procedera a "
        "cambiar el estado.\r\n\r\nUltimo Acceso: "_L1 +
        fechaLarga(rs));
    Ejecutar(ctx, internos, "delete from interno"_L1 + deLaClave(interno));
    return true;
}

BanderasDeOperacion LeerBanderas(AppContext &ctx, const QString &interno) {
    BanderasDeOperacion banderas{};
    for (int n = 0; n < 8; ++n) {
        const QString valor = ctx.ajustes.Leer(zendra, interno, bandera(n), u"1"_s);
        banderas[static_cast<std::size_t>(n)] = valor.isEmpty() ? 1 : valor.toInt();
    }
    return banderas;
}

void TomarBloqueo(AppContext &ctx, const QString &interno) {
    Ejecutar(
        ctx, internos,
        Escritura(ctx)
            .codigo("interno", interno)
            .codigo("maquina", ctx.PcName)
            .codigo("usuario", {})
            .crudo("fecha", ctx.DataManager.getDateFormatbyEntity(internos, QDateTime::currentDateTime()))
            .insertar(u"interno"_s));
}

Apertura AbrirSinPantalla(AppContext &ctx, const QString &interno) {
    Apertura apertura;
    if (!ComprobarBloqueo(ctx, interno)) return apertura;
    apertura.banderas = LeerBanderas(ctx, interno);
    TomarBloqueo(ctx, interno);
    apertura.abierta = true;
    return apertura;
}

void GuardarYLiberar(AppContext &ctx, const QString &interno, const BanderasDeOperacion &banderas,
                     std::optional<int> coefexpo) {
    const Reloj reloj(ctx.dialogos);
    for (int n = 0; n < 8; ++n)
        ctx.ajustes.Guardar(zendra, interno, bandera(n),
                            QString::number(banderas[static_cast<std::size_t>(n)]));
    if (coefexpo) ctx.ajustes.Guardar(zendra, interno, u"COEFEXPO"_s, QString::number(*coefexpo));
    Ejecutar(ctx, internos, "delete from interno"_L1 + deLaClave(interno));
}

bool ConfirmarEliminacion(AppContext &ctx, const QString &interno) {
    return ctx.dialogos.preguntar({"Confirma eliminar el interno "_L1 + interno, {}, Icono::Pregunta, false});
}

bool EliminarInterno(AppContext &ctx, const QString &interno) {
    return ConfirmarEliminacion(ctx, interno) && EliminarSinPreguntar(ctx, interno);
}

bool EliminarSinPreguntar(AppContext &ctx, const QString &interno) {
    const Reloj reloj(ctx.dialogos);
    if (interno.trimmed().isEmpty()) return false;
    const auto barra = [&ctx](int valor) {
        ctx.dialogos.avance({Avance::Tipo::Barra, 0, u"Pb"_s, valor, 20, {}});
    };
    try {
        int paso = 0;
        barra(paso);
        liberarInsumos(ctx, interno);
        for (const TablaDeOperacion &t : tablas) {
            Ejecutar(ctx, L(t.entidad), "delete from "_L1 + L(t.tabla) + deLaClave(interno));
            barra(++paso);
        }
        stock::DespedirOperacion(ctx, interno);
        for (const char *tabla : tablasPropias)
            Ejecutar(ctx, internos, "delete from "_L1 + L(tabla) + deLaClave(interno));
        borrarAjustes(ctx, interno);
        barra(20);
        return true;
    } catch (const Falla &e) {
        ContarFalla(ctx, e);
        return false;
    }
}

QString CopiarInterno(AppContext &ctx, const QString &interno) {
    return oOperationCopy::Mostrar(ctx, interno);
}

QString SentenciaDeDireccion(const QString &idsubreg) {
    return "select CSTAIMPEXP from STA where id = "_L1 + EnComillas(idsubreg);
}

QString getTypeOPfromSubReg(AppContext &ctx, const QString &idsubreg) {
    Recordset rs;
    if (!Consultar(ctx, entidad::systablas, SentenciaDeDireccion(idsubreg), rs)) return {};
    return rs.Texto(u"cstaimpexp");
}
