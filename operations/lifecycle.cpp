#include "operations/lifecycle.h"

#include <QDateTime>

#include "frame/startup.h"
#include "header/regime.h"
#include "operations/inputslink.h"
#include "siblings/oOperationCopy.h"

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");
const QString zendra = QStringLiteral("ZENDRA");

QString bandera(int n) {
    return L("FLAG") + QString::number(n);
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

QString fechaLarga(const Recordset &rs) {
    const QDateTime fecha = AFecha(rs.Fields(u"fecha").Value);
    return fecha.isValid() ? FechaLarga(fecha) : rs.Texto(u"fecha");
}

/// Gives the inputs of lines that took some back to stock. What the link answers is not looked at.
void liberarInsumos(AppContext &ctx, const QString &clave) {
    Recordset rs;
    for (Consultar(ctx, internos,
                   L("select cancelaciones,idcatalogo,idarticulo,id from subitems where interno = '") +
                       clave + L("'"),
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        if (rs.Texto(u"cancelaciones") != L("OK")) continue;
        if (!insumos::crearEnlace)
            throw ErrorDeStore{
                429,
                QStringLiteral("oInputsLink.clInputsLink"),
                QStringLiteral("No se puede crear el enlace de insumos: la operación tiene líneas con "
                               "insumos tomados y la biblioteca no está instalada."),
                {}};
        const insumos::Enlace enlace = insumos::crearEnlace();
        enlace.EliminarInsumo(clave, rs.Texto(u"idCatalogo"), rs.Texto(u"IdArticulo"),
                              static_cast<qint64>(rs.Numero(u"ID")));
    }
}

void borrarAjustes(AppContext &ctx, const QString &clave) {
    ctx.ajustes.Borrar(zendra, QStringLiteral("PROCESOS"), clave);
    for (int n = 0; n < 8; ++n) ctx.ajustes.Borrar(zendra, clave, bandera(n));
    ctx.ajustes.Borrar(zendra, clave, QStringLiteral("COEFEXPO"));
}

}  // namespace

std::function<insumos::Enlace()> insumos::crearEnlace;

bool CrearInterno(AppContext &ctx, const QString &clave) {
    try {
        Recordset rs;
        if (Consultar(ctx, internos, L("select interno from caratula where interno = '") + clave + L("'"),
                      rs)) {
            ctx.dialogos.advertir(QStringLiteral("El Código de interno ya existe."));
            return false;
        }
        if (Ejecutar(ctx, internos,
                     L("insert into caratula (interno, fechaalta, ONCCAHabilitado) values ('") + clave +
                         L("',") +
                         ctx.DataManager.getDateFormatbyEntity(internos, QDate::currentDate().startOfDay()) +
                         L(",'N')")) == 0)
            return false;
        for (int n = 0; n < 8; ++n) ctx.ajustes.Guardar(zendra, clave, bandera(n), QStringLiteral("1"));
        ctx.ajustes.Guardar(zendra, clave, QStringLiteral("COEFEXPO"), QStringLiteral("0"));
        return true;
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(QString::number(e.numero) + L(" - ") + e.descripcion);
        return false;
    }
}

QString NuevoInterno(AppContext &ctx) {
    const auto escrito =
        ctx.dialogos.pedirTexto({QStringLiteral("Crear nuevo interno"),
                                 QStringLiteral("Ingrese el nuevo número de INTERNO/CARPETA"),
                                 40,
                                 {}});
    QString clave = escrito.value_or(QString()).trimmed();
    if (clave.isEmpty() || !CrearInterno(ctx, clave)) return {};
    return clave;
}

bool ComprobarBloqueo(AppContext &ctx, const QString &interno) {
    const Reloj reloj(ctx.dialogos);
    Recordset rs;
    if (!Consultar(ctx, internos,
                   L("select interno,maquina,fecha from interno where interno = '") + interno + L("'"), rs))
        return true;
    if (rs.Texto(u"maquina").trimmed().toUpper() != ctx.PcName.trimmed().toUpper()) {
        ctx.dialogos.informar(L("Este interno esta abierto por la PC: ") + rs.Texto(u"maquina") +
                              L("\r\n\r\nAccedido el ") + fechaLarga(rs));
        return false;
    }
    ctx.dialogos.critico(L("El estado de INTERNO indica que el mismo esta abierto.\r\n\r\nSe procedera a "
                           "cambiar el estado.\r\n\r\nUltimo Acceso: ") +
                         fechaLarga(rs));
    Ejecutar(ctx, internos, L("delete from interno where interno = '") + interno + L("'"));
    return true;
}

BanderasDeOperacion LeerBanderas(AppContext &ctx, const QString &interno) {
    BanderasDeOperacion banderas{};
    for (int n = 0; n < 8; ++n) {
        const QString valor = ctx.ajustes.Leer(zendra, interno, bandera(n), QStringLiteral("1"));
        banderas[static_cast<std::size_t>(n)] = valor.isEmpty() ? 1 : valor.toInt();
    }
    return banderas;
}

void TomarBloqueo(AppContext &ctx, const QString &interno) {
    Ejecutar(ctx, internos,
             L("insert into interno (interno,maquina,usuario,fecha) values ('") + interno + L("','") +
                 ctx.PcName + L("','',") +
                 ctx.DataManager.getDateFormatbyEntity(internos, QDateTime::currentDateTime()) + L(")"));
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
    if (coefexpo)
        ctx.ajustes.Guardar(zendra, interno, QStringLiteral("COEFEXPO"), QString::number(*coefexpo));
    Ejecutar(ctx, internos, L("delete from interno where interno = '") + interno + L("'"));
}

bool ConfirmarEliminacion(AppContext &ctx, const QString &interno) {
    return ctx.dialogos.preguntar({L("Confirma eliminar el interno ") + interno, {}, Icono::Pregunta, false});
}

bool EliminarInterno(AppContext &ctx, const QString &interno) {
    return ConfirmarEliminacion(ctx, interno) && EliminarSinPreguntar(ctx, interno);
}

bool EliminarSinPreguntar(AppContext &ctx, const QString &interno) {
    const Reloj reloj(ctx.dialogos);
    if (interno.trimmed().isEmpty()) return false;
    const auto barra = [&ctx](int valor) {
        ctx.dialogos.avance({Avance::Tipo::Barra, 0, QStringLiteral("Pb"), valor, 20, {}});
    };
    try {
        int paso = 0;
        barra(paso);
        liberarInsumos(ctx, interno);
        for (const TablaDeOperacion &t : tablas) {
            Ejecutar(ctx, L(t.entidad),
                     L("delete from ") + L(t.tabla) + L(" where interno = '") + interno + L("'"));
            barra(++paso);
        }
        borrarAjustes(ctx, interno);
        barra(20);
        return true;
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(QString::number(e.numero) + L(" - ") + e.descripcion);
        return false;
    }
}

QString CopiarInterno(AppContext &ctx, const QString &interno) {
    return oOperationCopy::Mostrar(ctx, interno);
}

QString getTypeOPfromSubReg(AppContext &ctx, const QString &idsubreg) {
    Recordset rs;
    if (!Consultar(ctx, QStringLiteral("SYSTABLAS"),
                   L("select CSTAIMPEXP from STA where id = '") + idsubreg + L("'"), rs))
        return {};
    return rs.Texto(u"cstaimpexp");
}
