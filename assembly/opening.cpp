// What a run does before it touches a line: the header is read, its flags are written, the rows that earlier
// runs derived go.

#include <algorithm>
#include <array>

#include "assembly/phases.h"
#include "frame/escritura.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace {

/// A reason of a temporary operation, the flag of the context it sets and the name of its row.
struct Decreto {
    const char *motivo;
    QString MotivoDecreto::*bandera;
    const char *fila;
};
constexpr std::array<Decreto, 5> decretos{{
    {"DTO.1439/96", &MotivoDecreto::d1439_96, "1439/96"},
    {"D1439/96-AI", &MotivoDecreto::d1439_96A1, "1439/96A1"},
    {"D1330/04-A6", &MotivoDecreto::d1330_04A6, "D1330/04A6"},
    {"D1330/04-A7", &MotivoDecreto::d1330_04A7, "D1330/04A7"},
    {"D1330/04-A8", &MotivoDecreto::d1330_04A8, "D1330/04A8"},
}};

void insertarBandera(const ContextoArmado &r, const QString &bandera, const QString &valor) {
    r.mandar(Escritura(r.ctx)
                 .codigo("flag", bandera)
                 .codigo("valor", valor)
                 .crudo("item", u"0"_s)
                 .codigo("interno", r.interno)
                 .insertar(u"SYSFLAG"_s));
}

/// A column of the header and the text of the context that it fills as it stands.
struct Texto {
    QStringView columna;
    QString ContextoArmado::*campo;
};
constexpr std::array<Texto, 20> textos{{
    {u"idsubreg", &ContextoArmado::idsubreg},
    {u"cuitcliente", &ContextoArmado::cuitcliente},
    {u"motivodestsuspensiva", &ContextoArmado::motivodestsuspensiva},
    {u"DCEstMerc", &ContextoArmado::DCEstMerc},
    {u"DCPaisOrigen", &ContextoArmado::DCPaisOrigen},
    {u"DCPaisDestino", &ContextoArmado::DCPaisDestino},
    {u"DCStandard", &ContextoArmado::DCStandard},
    {u"DCRegalias", &ContextoArmado::DCRegalias},
    {u"ONCCAAcuerdo", &ContextoArmado::ONCCAAcuerdo},
    {u"ONCCAElaborador", &ContextoArmado::ONCCAElaborador},
    {u"ONCCAEspecie", &ContextoArmado::ONCCAEspecie},
    {u"ONCCAFaneador", &ContextoArmado::ONCCAFaneador},
    {u"ONCCAMatadero", &ContextoArmado::ONCCAMatadero},
    {u"ONCCAMeccoorgbio", &ContextoArmado::ONCCAMeccoorgbio},
    {u"ONCCARes3106", &ContextoArmado::ONCCARes3106},
    {u"ONCCASisPro", &ContextoArmado::ONCCASisPro},
    {u"ONCCACategoria", &ContextoArmado::ONCCACategoria},
    {u"ONCCACortes", &ContextoArmado::ONCCACortes},
    {u"OpcionesIVA", &ContextoArmado::OpcionesIVA},
    {u"OpcionesGanancias", &ContextoArmado::OpcionesGanancias},
}};

struct Importe {
    QStringView columna;
    double ContextoArmado::*campo;
};
constexpr std::array<Importe, 6> importes{{
    {u"FOBDIVISAS", &ContextoArmado::fobdivisas},
    {u"VALORAPRORRATEAR", &ContextoArmado::valoraprorratear},
    {u"fletedivisas", &ContextoArmado::fletedivisas},
    {u"segurodivisas", &ContextoArmado::segurodivisas},
    {u"DCKgNeto", &ContextoArmado::DCKgNeto},
    {u"DCComExt", &ContextoArmado::DCComExt},
}};

}  // namespace

void LeerCaratula(ContextoArmado &r) {
    Recordset rs;
    r.consultar(
        "SELECT idsubreg,cuitcliente,"
        "FOBDIVISAS,VALORAPRORRATEAR,fletedivisas,segurodivisas,motivodestsuspensiva,"
        "DCEstMerc, DCForzarEstMerc, DCPaisOrigen, DCForzarPaisOrigen, DCPaisDestino, "
        "DCStandard, DCRegalias, DCKgNeto, DCComExt, "
        "ONCCAAcuerdo, ONCCAElaborador, ONCCAEspecie, ONCCAFaneador, ONCCAMatadero, ONCCAMeccoorgbio, "
        "ONCCARes3106, ONCCASisPro, ONCCACategoria, ONCCACortes, "
        "OpcionesIVA, OpcionesGanancias, DATOCOMPRADOR, NROTRANSINTER, "
        "DC_DJAI_ForzarDescripcionMercaderia, DC_DJAI_DescripcionMercaderia  "
        "FROM CARATULA "
        "where interno = "_L1 +
            r.clave(),
        rs);
    for (const Texto &t : textos) r.*t.campo = rs.Texto(t.columna);
    for (const Importe &i : importes) r.*i.campo = rs.Numero(i.columna);
    r.idsubreg = RegimenEnMayusculas(r.idsubreg);
    r.DCForzarEstMerc = rs.Texto(u"DCForzarEstMerc") == "S"_L1;
    r.DCForzarPaisOrigen = rs.Texto(u"DCForzarPaisOrigen") == "S"_L1;
    r.DATOCOMPRADOR = rs.Texto(u"DATOCOMPRADOR").trimmed();
    r.NROTRANSINTER = rs.Texto(u"NROTRANSINTER").trimmed();
    r.DC_DJAI_DescripcionMercaderia =
        rs.Texto(u"DC_DJAI_DescripcionMercaderia").trimmed().replace("\r\n"_L1, " "_L1);
    r.descripcionForzada = rs.Texto(u"DC_DJAI_ForzarDescripcionMercaderia") == "S"_L1;
    if (r.descripcionForzada) {
        r.opciones.sinDescripcion = true;
        r.opciones.modo = ModoDescripcion::Ninguno;
    }
}

void FijarDecreto(ContextoArmado &r) {
    r.ctx.decreto = MotivoDecreto();
    if (EsRegimenTemporal(r.idsubreg)) {
        const QString motivo = r.motivodestsuspensiva.trimmed();
        const auto *d = std::find_if(decretos.begin(), decretos.end(), [&](const Decreto &uno) {
            return motivo == QLatin1StringView(uno.motivo);
        });
        if (d != decretos.end()) {
            r.ctx.decreto.*(d->bandera) = u"S"_s;
            insertarBandera(r, QLatin1StringView(d->fila), u"S"_s);
            return;
        }
    }
    insertarBandera(r, u"1439/96"_s, u"N"_s);
    insertarBandera(r, u"1439/96A1"_s, u"N"_s);
}

void AdvertirSinDescripcion(const ContextoArmado &r) {
    const OpcionesDeArmado &o = r.opciones;
    if (!r.esDJAI() || !o.sinDescripcion || r.descripcionForzada || o.modo == ModoDescripcion::Mezcla) return;
    r.ctx.dialogos.informar(
        u"ADVERTENCIA: El sistema no envía la descripción de mercadería, "
        "ni lo tiene encuenta para el armado de ítems, requerido por DJAI.\r\n\r\n"
        "Es su responsabilidad cargar la descripción correspondiente en el SIM."_s);
}

void PreguntarCoeficiente(ContextoArmado &r) {
    r.opciones.ChCOEF = false;
    if (r.idsubreg.startsWith('E'_L1)) {
        Pregunta p;
        p.texto =
            u"calculo del coeficiente de Exportación\r\n\r\n"
            "¿Los derechos y demás tributos están incluidos en el precio FOB declarado?"_s;
        r.opciones.ChCOEF = r.ctx.dialogos.preguntar(p);
    }
    r.ctx.CalcularCoeficiente = r.opciones.ChCOEF;
    // The dashboard stands behind the run's screen: its box and its label follow.
    r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, u"ChCOEF"_s, r.opciones.ChCOEF ? 1 : 0, 1, {}});
    r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, u"LbSubregimen"_s, 0, 100, r.idsubreg});
}

void BorrarDerivados(const ContextoArmado &r) {
    for (const char *tabla : {"groupsubitems", "idrel", "itemliq", "itemventaja", "iteminfo"})
        r.mandar(u"delete from %1 where interno = %2"_s.arg(QLatin1StringView(tabla), r.clave()));
}
