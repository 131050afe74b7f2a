// The road of a loading with the user: what is asked, what is shown, what is told.

#include <algorithm>

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/regime.h"
#include "stock/loadlines.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

constexpr double mermaMaxima = 100;
const QString formaDelDia = u"dd/MM/yyyy"_s;
const QString tituloDeCarga = u"Cargar en el stock"_s;

QString deLaOperacion(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
}

/// "8 nuevas, 1 cambiada": what there is none of is not told.
QString contadas(const ResultadoDeCarga &r) {
    struct Cuenta {
        int cuantas;
        const char *una;
        const char *varias;
    };
    QStringList partes;
    for (const Cuenta &c :
         {Cuenta{r.nuevas, "nueva", "nuevas"}, Cuenta{r.cambiadas, "cambiada", "cambiadas"},
          Cuenta{r.quitadas, "quitada", "quitadas"}, Cuenta{r.negadas, "sin cambiar", "sin cambiar"}})
        if (c.cuantas > 0)
            partes << u"%1 %2"_s.arg(c.cuantas).arg(QString::fromLatin1(c.cuantas == 1 ? c.una : c.varias));
    return partes.join(", "_L1);
}

std::optional<QString> pedir(const AppContext &ctx, const QString &que, const QString &inicial) {
    constexpr int largo = 60;
    const auto texto = ctx.dialogos.pedirTexto({tituloDeCarga, que, largo, inicial});
    if (!texto) return {};
    return texto->trimmed();
}

/// Asks until it is a day, or empty; false when it was left.
bool pedirDia(const AppContext &ctx, const QString &que, QDate &dia) {
    for (QString texto = dia.toString(formaDelDia);;) {
        const auto escrito = pedir(ctx, que, texto);
        if (!escrito) return false;
        texto = *escrito;
        const auto leido = fechas::Leer(texto);
        if (texto.isEmpty() || leido) {
            dia = leido.value_or(QDate());
            return true;
        }
        ctx.dialogos.advertir(u"\"%1\" no es una fecha; escríbala como día, mes y año."_s.arg(texto));
    }
}

bool pedirMerma(const AppContext &ctx, double &merma) {
    for (QString texto = numeros::FormatSinPerdida(merma, u"00.00", ctx.SeparadorDecimal);;) {
        const auto escrito = pedir(ctx, u"Ingrese el porcentaje de mermas y pérdidas"_s, texto);
        if (!escrito) return false;
        texto = *escrito;
        if (texto.isEmpty() || numeros::esNumerico(texto)) {
            merma = numeros::aNumero(texto);
            return true;
        }
        ctx.dialogos.advertir(u"\"%1\" no es un porcentaje; escriba un número de 0 a 100."_s.arg(texto));
    }
}

bool pedirDatos(const AppContext &ctx, DatosDeDeclaracion &datos) {
    const auto dit = pedir(ctx, u"Ingrese el número de la declaración de importación temporal"_s, datos.dit);
    if (!dit) return false;
    datos.dit = *dit;
    if (!pedirDia(ctx, u"Ingrese la fecha de la declaración"_s, datos.fecha) ||
        !pedirDia(ctx, u"Ingrese el vencimiento del plazo; vacío si no vence"_s, datos.vencimiento))
        return false;
    const auto ctit = pedir(ctx, u"Ingrese el número de expediente del CTIT"_s, datos.expctit);
    if (!ctit) return false;
    datos.expctit = *ctit;
    return pedirMerma(ctx, datos.merma);
}

}  // namespace

QString DefectoParaCargar(AppContext &ctx, const QString &interno) {
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select idsubreg,cuitcliente,factura8 from caratula"_L1 + deLaOperacion(interno), rs))
        return u"La operación %1 ya no existe; vuelva a buscarla."_s.arg(interno);
    const QString regimen = RegimenEnMayusculas(rs.Texto(u"idsubreg"));
    if (!EsRegimenTemporal(regimen) || DireccionRegimen(ctx, regimen) != "I"_L1)
        return u"El stock se carga con importaciones temporales y el régimen %1 no lo es."_s.arg(regimen);
    if (rs.Texto(u"cuitcliente").trimmed().isEmpty())
        return u"La operación no tiene cliente y el stock es de un cliente; complete la carátula."_s;
    const QString armada = rs.Texto(u"factura8");
    if (armada != "N"_L1 ||
        !Consultar(ctx, internos, "select id from item"_L1 + deLaOperacion(interno) + " and id <> 0"_L1, rs))
        return u"La operación no está armada; arme los items y vuelva a cargarla."_s;
    return {};
}

QString DefectoDeDatos(const DatosDeDeclaracion &datos) {
    if (datos.dit.trimmed().isEmpty())
        return u"Falta el número de la declaración; el stock se busca por él."_s;
    if (datos.fecha.isValid() && datos.vencimiento.isValid() && datos.vencimiento < datos.fecha)
        return u"El vencimiento es anterior a la fecha de la declaración; corríjalo."_s;
    if (datos.merma < 0 || datos.merma > mermaMaxima)
        return u"El porcentaje de mermas y pérdidas va de 0 a 100; corríjalo."_s;
    return {};
}

DatosDeDeclaracion DatosPropuestos(AppContext &ctx, const QString &interno, const QDate &hoy) {
    if (const std::vector<Linea> cargadas = LineasCargadas(ctx, interno); !cargadas.empty()) {
        const Linea &l = cargadas.front();
        return {l.dit, l.fecha, l.vencimiento, l.expctit, l.merma};
    }
    DatosDeDeclaracion datos;
    datos.fecha = hoy;
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select autorizdestsuspensiva,plazoautorizacion from caratula"_L1 + deLaOperacion(interno),
                   rs))
        return datos;
    datos.expctit = rs.Texto(u"autorizdestsuspensiva").trimmed();
    const QString plazo = rs.Texto(u"plazoautorizacion").trimmed();
    if (numeros::esNumerico(plazo) && numeros::aNumero(plazo) > 0)
        datos.vencimiento = hoy.addDays(static_cast<qint64>(numeros::aNumero(plazo)));
    return datos;
}

ResultadoDeCarga CargarConDatos(AppContext &ctx, const QString &interno, const DatosDeDeclaracion &dados) {
    DatosDeDeclaracion datos = dados;
    datos.dit = datos.dit.trimmed().toUpper();
    QString defecto = DefectoParaCargar(ctx, interno);
    if (defecto.isEmpty()) defecto = DefectoDeDatos(datos);
    if (!defecto.isEmpty()) {
        ctx.dialogos.advertir(defecto);
        return {};
    }
    const bool primera = LineasCargadas(ctx, interno).empty();
    const std::vector<Diferencia> diferencias = Diferencias(ctx, interno, datos);
    if (diferencias.empty()) {
        ctx.dialogos.informar(u"El stock ya tiene la operación tal como está."_s);
        return {true};
    }
    if (!primera) {
        QStringList textos;
        for (const Diferencia &d : diferencias) textos << d.texto;
        ctx.dialogos.informe({u"Diferencias con el stock"_s, textos.join("\r\n"_L1), true});
        const bool hayQueLlevar =
            std::any_of(diferencias.begin(), diferencias.end(),
                        [](const Diferencia &d) { return d.clase != Diferencia::Clase::Negada; });
        if (!hayQueLlevar) return {};
        if (!ctx.dialogos.preguntar(
                {u"La operación ya está en el stock, con diferencias. ¿Las lleva al stock?"_s, tituloDeCarga,
                 Icono::Pregunta, true}))
            return {};
    }
    const ResultadoDeCarga r = Aplicar(ctx, diferencias);
    if (r.ok)
        ctx.dialogos.informar(
            u"La declaración %1 está en el stock; líneas: %2."_s.arg(datos.dit, contadas(r)));
    return r;
}

bool CargarPreguntando(AppContext &ctx, const QString &interno, const QDate &hoy) {
    if (const QString defecto = DefectoParaCargar(ctx, interno); !defecto.isEmpty()) {
        ctx.dialogos.advertir(defecto);
        return false;
    }
    DatosDeDeclaracion datos = DatosPropuestos(ctx, interno, hoy);
    do {
        if (!pedirDatos(ctx, datos)) return false;
        const QString defecto = DefectoDeDatos(datos);
        if (defecto.isEmpty()) break;
        ctx.dialogos.advertir(defecto);
    } while (true);
    return CargarConDatos(ctx, interno, datos).ok;
}

}  // namespace stock
