#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/base/texts.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/failures.h"
#include "header/record.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

using entidad::internos;

constexpr qsizetype largoDeFactura1 = 80;
constexpr qsizetype largoDeDescripcionDJAI = 400;

/// What the box of a store error calls the place: the office reads it to the support by telephone.
constexpr int lineaDeRevision = 1;
constexpr int lineaDeEscritura = 13;

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
    r.c.poner("txtDJAI_ForzarDescripcion", SinComillas(r.c.texto("txtDJAI_ForzarDescripcion")));
    return Fin::Sigue;
}

Fin revisar(Revision &r) {
    r.c.poner("TxtSubReg", RegimenEnMayusculas(r.c.regimen()));
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

/// The columns of the one update, in their order: each takes what its control stands for.
class Actualizacion {
 public:
    Actualizacion(const AppContext &ctx, const Caratula &c) : ctx_(ctx), c_(c), escritura_(ctx, internos) {}

    void codigo(const char *columna, const char *control) {
        const DefinicionDeControl *d = DefinicionDe(QString(L(control)));
        const bool mayusculas = d != nullptr && EsCampoDeCodigo(*d);
        escritura_.codigo(columna, mayusculas ? valor(control).toUpper() : valor(control));
    }
    /// The regime has its capitals already, and one of them is spelled in mixed case.
    void regimen(const char *columna) { escritura_.codigo(columna, c_.regimen()); }
    void texto(const char *columna, const char *control) { escritura_.texto(columna, valor(control)); }
    void sinComillas(const char *columna, const char *control) {
        escritura_.sinComillas(columna, valor(control));
    }
    void numero(const char *columna, const char *control) { escritura_.numero(columna, valor(control)); }
    /// The column never shown goes back as it came.
    void numeroOculto(const char *columna, const char *control) {
        escritura_.numero(columna, c_.texto(control));
    }
    void positivo(const char *columna, const char *control) {
        const QString numero = valor(control);
        escritura_.numero(columna, numeros::aNumero(numero) > 0 ? numero : u"0"_s);
    }
    void marca(const char *columna, const char *control) {
        escritura_.marca(columna, valor(control) == "S"_L1);
    }
    void siONo(const char *columna, const char *control) {
        escritura_.codigo(columna, valor(control).toUpper());
    }
    void opcion(const char *columna, const char *control, const QString &codigo) {
        escritura_.codigo(columna, c_[control].visible ? codigo : QString());
    }
    void fecha(const char *columna, const char *control) {
        const auto dia = fechas::Leer(valor(control));
        escritura_.crudo(
            columna, dia ? ctx_.DataManager.getDateFormatbyEntity(internos, dia->startOfDay()) : u"null"_s);
    }
    /// A date as the text it is, which the store reads; none is no date.
    void fechaEnTexto(const char *columna, const char *control) {
        const QString dia = valor(control).trimmed();
        escritura_.crudo(columna, dia.isEmpty() ? u"null"_s : EnComillas(dia));
    }
    void textoLargo(const char *columna, const char *control, qsizetype largo) {
        escritura_.texto(columna, Recortado(valor(control), largo));
    }
    void facturas(const char *columna) {
        const QString linea = FacturasEnUnaLinea(c_.LstFact);
        if (!linea.isEmpty()) escritura_.texto(columna, linea);
    }
    QString sentencia() const {
        return escritura_.actualizar(u"caratula"_s, "interno = "_L1 + EnComillas(c_.interno));
    }

 private:
    /// What a control writes: a hidden one writes empty, and so 0 as a number.
    QString valor(const char *control) const { return c_[control].visible ? c_.valor(control) : QString(); }

    const AppContext &ctx_;
    const Caratula &c_;
    Escritura escritura_;
};

void ponerPartes(Actualizacion &a) {
    a.regimen("idsubreg");
    a.codigo("idaduana", "txtIdAduana1");
    a.codigo("idaduanasal", "TxtIdAduana2");
    a.codigo("cuitcliente", "TxtCUITCliente");
    a.codigo("cuitdespaduana", "TxtCuitAduana");
    a.facturas("factura1");
    a.texto("factura2", "TxtNombreven");
    a.texto("factura3", "TxtNombreadu");
    a.texto("factura5", "txtDepAlm");
    a.sinComillas("factura7", "TxtNombre");
    a.codigo("idvendedor", "Txtidvendedor");
}

void ponerImportes(Actualizacion &a) {
    a.numero("fobdivisas", "Txtfobdivisas");
    a.codigo("fobcoddivisas", "TxtCoddivfob");
    a.numero("fobdivcambio", "TxtDivValorFob");
    a.numero("fletedivisas", "Txtfletedivisas");
    a.codigo("fletecoddivisas", "TxtCodDivFlete");
    a.numero("fletedivcambio", "TxtDivValorFlete");
    a.numero("Segurodivisas", "Txtsegurodivisas");
    a.codigo("segurocoddivisas", "TxtCodDivseguro");
    a.numero("segurodivcambio", "TxtDivValorSeguro");
    a.numero("seguroporcentaje", "txtPorc");
    a.numero("valoraprorratear", "TxtProrratear");
    a.numero("ajusteincluir", "TxtAjustIncluir");
    a.numero("ajustededucir", "TxtAjustDeducir");
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
    a.numero("DCComext", "txtDCComiExt");
    a.codigo("DCEstMerc", "txtDCEstMerc");
    a.marca("DCForzarEstMerc", "chkDCForzarEstMerc");
    a.codigo("DCPaisOrigen", "txtDCPaisOrigen");
    a.marca("DCForzarPaisOrigen", "chkDCForzarPaisOrigen");
    a.codigo("DCPaisDestino", "txtDCPaisDest");
    a.siONo("DCStandard", "txtDCStandard");
    a.siONo("DCRegalias", "TxtDCRegalias");
    a.codigo("DCBancos", "txtDCBancos");
    a.numero("DCKgNeto", "TxtKgNeto");
    a.sinComillas("DATOCOMPRADOR", "txtDATOCOMPRADOR");
    a.sinComillas("NROTRANSINTER", "txtNROTRANSINTER");
    a.opcion("OpcionesIVA", "cboOpcionIVA", OpcionIVACodigo(c.cboOpcionIVA));
    a.opcion("OpcionesGanancias", "cboOpcionesGanancias", OpcionGananciasCodigo(c.cboOpcionesGanancias));
    a.positivo("gastos_anteriores_fob", "txtGastosAnterioresFOB");
    a.positivo("gastos_posteriores_fob", "txtGastosPosterioresFOB");
}

void ponerDJAI(Actualizacion &a, const Caratula &c) {
    if (!EsDeclaracionDJAI(c.regimen())) return;
    a.fecha("DJAI_FECHA_EMB_APROX", "txtDJAIFechaEmbarqueAprox");
    a.fecha("DJAI_FECHA_ARRIB_APROX", "txtDJAIFechaArriboAprox");
    a.marca("DC_DJAI_ForzarDescripcionMercaderia", "chkDJAI_ForzarDescripcionMercaderia");
    a.textoLargo("DC_DJAI_DescripcionMercaderia", "txtDJAI_ForzarDescripcion", largoDeDescripcionDJAI);
}

qint64 escribir(AppContext &ctx, const Caratula &c) {
    const Reloj reloj(ctx.dialogos);
    Actualizacion a(ctx, c);
    ponerPartes(a);
    ponerImportes(a);
    ponerDestino(a, c);
    ponerDatosComunes(a, c);
    ponerDJAI(a, c);
    a.fechaEnTexto("fechaembarque", "txtFechaEmbarque");
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

/// What cannot be kept keeps nobody: where the store has lost the header, or cannot be asked for it or for
/// its invoices, the user may leave whatever is missing on the screen.
bool saleSinGuardar(AppContext &ctx, const QString &interno) {
    const QString deLaOperacion = " where interno = "_L1 + EnComillas(interno);
    try {
        Recordset rs;
        if (Consultar(ctx, internos, "select interno from caratula"_L1 + deLaOperacion, rs)) {
            Consultar(ctx, internos, "select interno from facturas"_L1 + deLaOperacion, rs);
            return false;
        }
    } catch (const Falla &) {
        // The question tells it.
    }
    return ctx.dialogos.preguntar(
        {u"Los datos no pueden ser guardados, desea SALIR de caratula?"_s, {}, Icono::Pregunta, false});
}

SalidaDeCaratula guardar(AppContext &ctx, Caratula &c) {
    int seccion = lineaDeRevision;
    try {
        Revision revision{ctx, c, {}};
        const Fin fin = revisar(revision);
        if (fin == Fin::Queda) return {false, false, revision.foco};
        if (fin == Fin::Preguntar)
            return salirPreguntando(ctx, c, u"desea SALIR de la caratula, sin guardar la información?"_s,
                                    revision.foco);
        seccion = lineaDeEscritura;
        if (escribir(ctx, c) == 0)
            return salirPreguntando(ctx, c, u"Los datos no pueden ser guardados, desea SALIR de caratula?"_s,
                                    {});
        return salir(ctx, c, true);
    } catch (const Falla &e) {
        ContarFalla(ctx, e,
                    QString::number(e.numero) +
                        u" - seccion[ZENDRA.FrmCaratula.CmdGuardar Linea %1 ]::"_s.arg(seccion) +
                        e.descripcion);
        return {false, false, {}};
    }
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
    SalidaDeCaratula salida = guardar(ctx, c);
    if (!salida.cierra && saleSinGuardar(ctx, c.interno)) salida.cierra = true;
    return salida;
}
