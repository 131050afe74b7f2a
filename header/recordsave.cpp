#include <utility>

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "header/record.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString internos = u"INTERNOS"_s;

constexpr qsizetype largoDeFactura1 = 80;
constexpr qsizetype largoDeDescripcionDJAI = 400;

/// How the checks go on.
enum class Fin {
    Sigue,     ///< the header can be written
    Queda,     ///< the screen stays
    Preguntar  ///< the question of leaving without saving
};

/// The checks of one save, and where the first that fails sends the focus.
struct Revision {
    AppContext &ctx;
    Caratula &c;
    QString foco;

    Fin mal(const char *control, const QString &texto, Fin fin) {
        ctx.dialogos.advertir(texto);
        foco = L(control);
        return fin;
    }
    bool vacio(const char *control) const { return c.texto(control).trimmed().isEmpty(); }
    bool numerico(const char *control) const { return numeros::esNumerico(c.texto(control)); }
    bool activo(const char *control) const { return c[control].activo(); }
    bool sinImportes() const { return EsDeclaracionDJAI(c.regimen()) || EsDeclaracionLAPI(c.regimen()); }
};

Fin revisarPartes(Revision &r) {
    if (!r.vacio("TxtCierreVenta") && !fechas::EsFecha(r.c.texto("TxtCierreVenta")))
        return r.mal("TxtCierreVenta",
                     u"El valor ingresado en el campo CIERRE DE VENTA no es una FECHA valida. "
                     "Corrija el Valor o deje vacio el campo."_s,
                     Fin::Queda);
    if (r.vacio("TxtCuitAduana"))
        return r.mal("TxtCuitAduana", u"Debe ingresar el CUIT de DESPACHANTE"_s, Fin::Queda);
    if (r.c["Txtidvendedor"].visible && r.vacio("Txtidvendedor") && !EsDeclaracionDJAI(r.c.regimen()))
        return r.mal("Txtidvendedor", u"Debe seleccionar vendedor"_s, Fin::Queda);
    if (r.c["Txtidcondventa"].visible && r.vacio("Txtidcondventa"))
        return r.mal("Txtidcondventa", u"Debe ingresar Condición de venta"_s, Fin::Preguntar);
    if (r.ctx.opciones.Responder_Opciones_Obligatorio && r.activo("cboOpcionIVA") &&
        r.activo("cboOpcionesGanancias") && (r.c.cboOpcionIVA < 0 || r.c.cboOpcionesGanancias < 0))
        return r.mal("cboOpcionIVA", u"Debe seleccionar alguna opción en IVA y Ganancias"_s, Fin::Queda);
    return Fin::Sigue;
}

Fin revisarEmbarque(Revision &r) {
    if (!r.activo("txtFechaEmbarque") || r.vacio("txtFechaEmbarque")) return Fin::Sigue;
    const auto fecha = fechas::Leer(r.c.texto("txtFechaEmbarque"));
    if (!fecha)
        return r.mal("txtFechaEmbarque",
                     u"Debe ingresar una fecha válida en Fecha de Embarque (dd/mm/yyyy)"_s, Fin::Preguntar);
    r.c.poner("txtFechaEmbarque", fecha->toString(u"dd/MM/yyyy"_s));
    return Fin::Sigue;
}

/// An amount, its currency and its rate, with the words of each.
struct Importe {
    const char *importe, *divisa, *cotizacion;
    const char16_t *sinImporte, *sinDivisa, *sinCotizacion;
};
constexpr Importe fob{"Txtfobdivisas",
                      "TxtCoddivfob",
                      "TxtDivValorFob",
                      u"El valor FOB debe ser un valor númerico",
                      u"Codigo de divisa no ingresado",
                      u"El tipo de cambio debe ser un valor numerico valido"};
constexpr Importe flete{"Txtfletedivisas",
                        "TxtCodDivFlete",
                        "TxtDivValorFlete",
                        u"El valor FLETE debe ser un valor númerico",
                        u"Codigo de divisa en FLETE no ingresado",
                        u"El tipo de cambio en FLETE debe ser un valor numerico valido"};
constexpr Importe seguro{"Txtsegurodivisas",
                         "TxtCodDivseguro",
                         "TxtDivValorSeguro",
                         u"El valor SEGURO debe ser un valor númerico",
                         u"Codigo de divisa en SEGURO no ingresado",
                         u"El tipo de cambio en SEGURO debe ser un valor numerico valido"};

Fin revisarImporte(Revision &r, const Importe &i) {
    if (!r.activo(i.importe)) return Fin::Sigue;
    if (!r.numerico(i.importe)) return r.mal(i.importe, QString::fromUtf16(i.sinImporte), Fin::Preguntar);
    if (r.vacio(i.divisa)) return r.mal(i.divisa, QString::fromUtf16(i.sinDivisa), Fin::Preguntar);
    if (!r.numerico(i.cotizacion))
        return r.mal(i.cotizacion, QString::fromUtf16(i.sinCotizacion), Fin::Preguntar);
    return Fin::Sigue;
}

/// Freight and insurance: an empty one counts as 0, and two regimes declare neither.
Fin revisarAccesorio(Revision &r, const Importe &i) {
    if (r.vacio(i.importe)) r.c.poner(i.importe, u"0"_s);
    return r.sinImportes() ? Fin::Sigue : revisarImporte(r, i);
}

Fin revisarDJAI(Revision &r) {
    if (!EsDeclaracionDJAI(r.c.regimen())) return Fin::Sigue;
    if (r.activo("txtDJAIFechaArriboAprox") && !fechas::EsFecha(r.c.texto("txtDJAIFechaArriboAprox")))
        return r.mal("txtDJAIFechaArriboAprox", u"Fecha de Arribo Aproximado debe tener una fecha válida"_s,
                     Fin::Queda);
    if (r.activo("txtDJAIFechaEmbarqueAprox") && !fechas::EsFecha(r.c.texto("txtDJAIFechaEmbarqueAprox")))
        return r.mal("txtDJAIFechaEmbarqueAprox",
                     u"Fecha de Embarque Aproximado debe tener una fecha válida"_s, Fin::Queda);
    if (r.c.texto("chkDJAI_ForzarDescripcionMercaderia") == "S"_L1 && r.vacio("txtDJAI_ForzarDescripcion"))
        return r.mal("txtDJAI_ForzarDescripcion", u"Debe escribir descripcion de mercaderia"_s, Fin::Queda);
    QString descripcion = r.c.texto("txtDJAI_ForzarDescripcion");
    r.c.poner("txtDJAI_ForzarDescripcion", descripcion.replace(QLatin1Char('\''), QLatin1Char(' ')));
    return Fin::Sigue;
}

Fin revisar(Revision &r) {
    r.c.poner("TxtSubReg", r.c.regimen().toUpper());
    Fin fin = revisarPartes(r);
    if (fin == Fin::Sigue) fin = revisarEmbarque(r);
    if (fin == Fin::Sigue) fin = revisarImporte(r, fob);
    if (fin == Fin::Sigue) fin = revisarAccesorio(r, flete);
    if (fin == Fin::Sigue) fin = revisarDJAI(r);
    if (fin == Fin::Sigue) fin = revisarAccesorio(r, seguro);
    if (fin == Fin::Sigue && r.c["cboFacilidadPago"].visible && r.vacio("cboFacilidadPago"))
        return r.mal("cboFacilidadPago", u"Debe seleccionar S/N en Facilidad de Pago"_s, Fin::Queda);
    return fin;
}

/// The columns of the one update, in their order.
class Actualizacion {
 public:
    Actualizacion(AppContext &ctx, const Caratula &c) : ctx_(ctx), c_(c) {}

    void codigo(const char *columna, const char *control) { poner(columna, entreComillas(valor(control))); }
    void texto(const char *columna, const char *control) {
        poner(columna, entreComillas(DoblarComillas(valor(control))));
    }
    /// Apostrophes become blanks.
    void sinComillas(const char *columna, const char *control) {
        poner(columna, entreComillas(valor(control).replace(QLatin1Char('\''), QLatin1Char(' '))));
    }
    void numero(const char *columna, const char *control, QStringView mascara) {
        poner(columna, deStore(numeros::Format(valor(control), mascara, ctx_.SeparadorDecimal)));
    }
    /// The column never shown goes back as it came.
    void numeroOculto(const char *columna, const char *control) {
        poner(columna, deStore(c_.texto(control)));
    }
    void positivo(const char *columna, const char *control, QStringView mascara) {
        const double v = numeros::aNumero(valor(control));
        poner(columna, deStore(v > 0 ? numeros::Format(v, mascara, ctx_.SeparadorDecimal) : u"0"_s));
    }
    void marca(const char *columna, const char *control) {
        poner(columna, valor(control) == "S"_L1 ? u"'S'"_s : u"'N'"_s);
    }
    void mayusculas(const char *columna, const char *control) {
        poner(columna, entreComillas(valor(control).toUpper()));
    }
    void fecha(const char *columna, const char *control) {
        const auto dia = fechas::Leer(valor(control));
        poner(columna, dia ? ctx_.DataManager.getDateFormatbyEntity(internos, dia->startOfDay()) : u"null"_s);
    }
    void poner(const char *columna, const QString &valorSql) {
        if (!partes_.isEmpty()) partes_ += QLatin1Char(',');
        partes_ += L(columna) + " = "_L1 + valorSql;
    }
    /// What a control writes: a hidden one writes empty, and so 0 as a number.
    QString valor(const char *control) const {
        const ControlDeCaratula &uno = c_[control];
        return uno.visible ? uno.texto : QString();
    }
    static QString entreComillas(const QString &texto) {
        return QLatin1Char('\'') + texto + QLatin1Char('\'');
    }
    QString sentencia() const {
        return "update caratula set "_L1 + partes_ + " where interno = '"_L1 + c_.interno + "'"_L1;
    }

 private:
    QString deStore(const QString &numero) const {
        return AStoreNumero(numero, ctx_.DataManager.getDecimalSeparatorbyEntity(internos));
    }

    AppContext &ctx_;
    const Caratula &c_;
    QString partes_;
};

void ponerPartes(Actualizacion &a, const Caratula &c) {
    a.codigo("idsubreg", "TxtSubReg");
    a.codigo("idaduana", "txtIdAduana1");
    a.codigo("idaduanasal", "TxtIdAduana2");
    a.codigo("cuitcliente", "TxtCUITCliente");
    a.codigo("cuitdespaduana", "TxtCuitAduana");
    a.poner("factura1", Actualizacion::entreComillas(DoblarComillas(FacturasEnUnaLinea(c.LstFact))));
    a.texto("factura2", "TxtNombreven");
    a.texto("factura3", "TxtNombreadu");
    a.texto("factura5", "txtDepAlm");
    a.sinComillas("factura7", "TxtNombre");
    a.codigo("idvendedor", "Txtidvendedor");
}

void ponerImportes(Actualizacion &a) {
    a.numero("fobdivisas", "Txtfobdivisas", u"00.00");
    a.codigo("fobcoddivisas", "TxtCoddivfob");
    a.numero("fobdivcambio", "TxtDivValorFob", u"0.000000");
    a.numero("fletedivisas", "Txtfletedivisas", u"00.00");
    a.codigo("fletecoddivisas", "TxtCodDivFlete");
    a.numero("fletedivcambio", "TxtDivValorFlete", u"0.000000");
    a.numero("Segurodivisas", "Txtsegurodivisas", u"00.00");
    a.codigo("segurocoddivisas", "TxtCodDivseguro");
    a.numero("segurodivcambio", "TxtDivValorSeguro", u"0.000000");
    a.numero("seguroporcentaje", "txtPorc", u"00.00");
    a.numero("valoraprorratear", "TxtProrratear", u"00.00");
    a.numero("ajusteincluir", "TxtAjustIncluir", u"00.00");
    a.numero("ajustededucir", "TxtAjustDeducir", u"00.00");
    a.numeroOculto("factorconver", "TxtFactCon");
}

void ponerDestino(Actualizacion &a, const Caratula &c) {
    a.codigo("idcondiciondeventa", "Txtidcondventa");
    a.codigo("idpaisdestino", "TxtIdpais");
    a.codigo("motivodestsuspensiva", "Txtmotdestsusp");
    a.texto("autorizdestsuspensiva", "TxtautdestSusp");
    a.texto("plazoautorizacion", "TxtPlazoaut");
    if (c["TxtCierreVenta"].activo() && fechas::EsFecha(c.texto("TxtCierreVenta")))
        a.texto("cierreventa", "TxtCierreVenta");
    if (c["cboFacilidadPago"].visible) a.codigo("facilidadpago", "cboFacilidadPago");
}

void ponerDatosComunes(Actualizacion &a, const Caratula &c) {
    a.numero("DCComext", "txtDCComiExt", u"00.00");
    a.codigo("DCEstMerc", "txtDCEstMerc");
    a.marca("DCForzarEstMerc", "chkDCForzarEstMerc");
    a.codigo("DCPaisOrigen", "txtDCPaisOrigen");
    a.marca("DCForzarPaisOrigen", "chkDCForzarPaisOrigen");
    a.codigo("DCPaisDestino", "txtDCPaisDest");
    a.mayusculas("DCStandard", "txtDCStandard");
    a.mayusculas("DCRegalias", "TxtDCRegalias");
    a.codigo("DCBancos", "txtDCBancos");
    a.numero("DCKgNeto", "TxtKgNeto", u"00.00");
    a.sinComillas("DATOCOMPRADOR", "txtDATOCOMPRADOR");
    a.sinComillas("NROTRANSINTER", "txtNROTRANSINTER");
    const auto opcion = [&](const char *control, const QString &codigo) {
        return Actualizacion::entreComillas(c[control].visible ? codigo : QString());
    };
    a.poner("OpcionesIVA", opcion("cboOpcionIVA", OpcionIVACodigo(c.cboOpcionIVA)));
    a.poner("OpcionesGanancias",
            opcion("cboOpcionesGanancias", OpcionGananciasCodigo(c.cboOpcionesGanancias)));
    a.positivo("gastos_anteriores_fob", "txtGastosAnterioresFOB", u"00.000");
    a.positivo("gastos_posteriores_fob", "txtGastosPosterioresFOB", u"00.000");
}

void ponerDJAI(Actualizacion &a, const Caratula &c) {
    if (!EsDeclaracionDJAI(c.regimen())) return;
    a.fecha("DJAI_FECHA_EMB_APROX", "txtDJAIFechaEmbarqueAprox");
    a.fecha("DJAI_FECHA_ARRIB_APROX", "txtDJAIFechaArriboAprox");
    a.marca("DC_DJAI_ForzarDescripcionMercaderia", "chkDJAI_ForzarDescripcionMercaderia");
    a.poner("DC_DJAI_DescripcionMercaderia",
            Actualizacion::entreComillas(
                DoblarComillas(a.valor("txtDJAI_ForzarDescripcion").left(largoDeDescripcionDJAI))));
}

qint64 escribir(AppContext &ctx, const Caratula &c) {
    const Reloj reloj(ctx.dialogos);
    Actualizacion a(ctx, c);
    ponerPartes(a, c);
    ponerImportes(a);
    ponerDestino(a, c);
    ponerDatosComunes(a, c);
    ponerDJAI(a, c);
    const QString embarque = a.valor("txtFechaEmbarque").trimmed();
    a.poner("fechaembarque", embarque.isEmpty() ? u"null"_s : a.entreComillas(embarque));
    a.texto("anexo_vendedor", "txtAnexo_Vendedor");
    return Ejecutar(ctx, internos, a.sentencia());
}

/// The last check, on every road out of the screen.
SalidaDeCaratula salir(AppContext &ctx, const Caratula &c, bool guardada) {
    const bool exportacion = Left(c.regimen(), 2).compare("EC"_L1, Qt::CaseInsensitive) == 0;
    if (c["TxtFactura"].activo() && c.LstFact.isEmpty() && !exportacion) {
        ctx.dialogos.advertir(u"Faltan Facturas."_s);
        return {false, guardada, u"TxtFactura"_s};
    }
    return {true, guardada, {}};
}

SalidaDeCaratula salirPreguntando(AppContext &ctx, const Caratula &c, const QString &texto,
                                  const QString &foco) {
    if (!ctx.dialogos.preguntar({texto, {}, Icono::Pregunta, false})) return {false, false, foco};
    return salir(ctx, c, false);
}

}  // namespace

QString FacturasEnUnaLinea(const QStringList &facturas) {
    QString linea;
    for (const QString &factura : facturas) linea += factura + QLatin1Char(',');
    if (linea.isEmpty()) return linea;
    if (linea.size() > largoDeFactura1) linea.truncate(largoDeFactura1);
    linea.chop(1);
    return linea;
}

SalidaDeCaratula GuardarCaratula(AppContext &ctx, Caratula &c) {
    int seccion = 1;
    try {
        Revision revision{ctx, c, {}};
        const Fin fin = revisar(revision);
        if (fin == Fin::Queda) return {false, false, revision.foco};
        if (fin == Fin::Preguntar)
            return salirPreguntando(ctx, c, u"desea SALIR de la caratula, sin guardar la información?"_s,
                                    revision.foco);
        seccion = 13;  // the number of the step in hand, for the error's box
        if (escribir(ctx, c) == 0)
            return salirPreguntando(ctx, c, u"Los datos no pueden ser guardados, desea SALIR de caratula?"_s,
                                    {});
        return salir(ctx, c, true);
    } catch (const Falla &e) {
        ctx.dialogos.critico(QString::number(e.numero) +
                             u" - seccion[ZENDRA.FrmCaratula.CmdGuardar Linea %1 ]::"_s.arg(seccion) +
                             e.descripcion);
        return {false, false, {}};
    }
}
