#include "forms/certificates.h"

#include <algorithm>

#include "frame/base/dates.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/transaction.h"
#include "header/changes.h"
#include "header/codes.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace certificados {

namespace {

using entidad::internos;

QString deLaOperacion(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
}

bool mismoNumero(const QString &a, const QString &b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QString diaEnTexto(const std::optional<QDate> &dia) {
    return dia ? dia->toString(u"dd/MM/yyyy"_s) : QString();
}

/// The header's countries, which the assembly puts on its groups: over every line, or where a line has none.
struct PaisDeCaratula {
    QString origen, procedencia;
    bool forzarOrigen = false;

    void poner(Linea &linea) const {
        if (!origen.isEmpty() && (forzarOrigen || linea.idpais.isEmpty())) linea.idpais = origen;
        if (linea.idpaisproc.isEmpty()) linea.idpaisproc = procedencia;
    }
};

PaisDeCaratula leerCaratula(AppContext &ctx, Legajo &legajo) {
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select idsubreg,fechaalta,factura2,dcpaisorigen,dcforzarpaisorigen,dcpaisdestino "
                   "from caratula"_L1 +
                       deLaOperacion(legajo.interno),
                   rs))
        return {};
    legajo.existe = true;
    legajo.exportacion = DireccionRegimen(ctx, RegimenEnMayusculas(rs.Texto(u"idsubreg"))) == "E"_L1;
    legajo.fecha = fechas::Leer(rs.Texto(u"fechaalta")).value_or(QDate::currentDate());
    legajo.vendedor = rs.Texto(u"factura2").trimmed();
    return {rs.Texto(u"dcpaisorigen").trimmed(), rs.Texto(u"dcpaisdestino").trimmed(),
            rs.Texto(u"dcforzarpaisorigen") == "S"_L1};
}

void leerCertificados(AppContext &ctx, Legajo &legajo) {
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select id,numero,fecha,idpais,exportador,vencimiento,observaciones "
                   "from certorigen"_L1 +
                       deLaOperacion(legajo.interno) + " order by numero, id"_L1,
                   rs);
         !rs.Eof(); rs.MoveNext())
        legajo.certificados.push_back({static_cast<qint64>(rs.Numero(u"id")), rs.Texto(u"numero"),
                                       fechas::Leer(rs.Texto(u"fecha")), rs.Texto(u"idpais").trimmed(),
                                       rs.Texto(u"exportador"), fechas::Leer(rs.Texto(u"vencimiento")),
                                       rs.Texto(u"observaciones")});
}

void leerLineas(AppContext &ctx, Legajo &legajo, const PaisDeCaratula &caratula) {
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select id,idarticulo,ncm,descripcion,cantidad,idunidad,fob,idpais,idpaisproc,certorig "
                   "from subitems"_L1 +
                       deLaOperacion(legajo.interno) + " order by id"_L1,
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        Linea linea{.id = static_cast<qint64>(rs.Numero(u"id")),
                    .orden = static_cast<int>(legajo.lineas.size()) + 1,
                    .idarticulo = rs.Texto(u"idarticulo"),
                    .ncm = rs.Texto(u"ncm"),
                    .descripcion = rs.Texto(u"descripcion"),
                    .cantidad = rs.Numero(u"cantidad"),
                    .idunidad = rs.Texto(u"idunidad"),
                    .fob = rs.Numero(u"fob"),
                    .idpais = rs.Texto(u"idpais").trimmed(),
                    .idpaisproc = rs.Texto(u"idpaisproc").trimmed(),
                    .certorig = rs.Texto(u"certorig").trimmed()};
        caratula.poner(linea);
        legajo.lineas.push_back(std::move(linea));
    }
}

Veredicto rechazar(const AppContext &ctx, const QString &texto, const QString &foco) {
    ctx.dialogos.advertir(texto);
    return Veredicto::mal(foco);
}

/// A day that was typed; none for an empty field. False for a text that is no day.
bool leerDia(const QString &texto, std::optional<QDate> &dia) {
    dia = fechas::Leer(texto);
    return dia || texto.trimmed().isEmpty();
}

/// The checks of a card, in the order of its fields; `c` takes what it says.
Veredicto revisar(AppContext &ctx, const Legajo &legajo, const Ficha &ficha, Certificado &c) {
    c.id = ficha.id;
    c.numero = ficha.TxtNumero.trimmed();
    c.idpais = ficha.TxtIdPais.trimmed();
    c.exportador = ficha.TxtExportador.trimmed();
    c.observaciones = ficha.TxtObservaciones.trimmed();
    if (c.numero.isEmpty())
        return rechazar(ctx, u"Falta el número del certificado de origen, ingréselo para guardar."_s,
                        u"TxtNumero"_s);
    for (const Certificado &otro : legajo.certificados)
        if (otro.id != c.id && mismoNumero(otro.numero, c.numero))
            return rechazar(
                ctx,
                u"El certificado %1 ya está en la operación, modifíquelo o ingrese otro número."_s.arg(
                    c.numero),
                u"TxtNumero"_s);
    if (!leerDia(ficha.TxtFecha, c.fecha))
        return rechazar(ctx, u"La fecha del certificado no es válida, corríjala."_s, u"TxtFecha"_s);
    if (!c.fecha)
        return rechazar(ctx, u"Falta la fecha del certificado de origen, ingrésela para guardar."_s,
                        u"TxtFecha"_s);
    if (!leerDia(ficha.TxtVencimiento, c.vencimiento))
        return rechazar(ctx, u"El vencimiento del certificado no es una fecha válida, corríjalo."_s,
                        u"TxtVencimiento"_s);
    if (c.vencimiento && *c.vencimiento < *c.fecha)
        return rechazar(ctx, u"El certificado vence antes de su fecha, corrija una de las dos."_s,
                        u"TxtVencimiento"_s);
    if (c.idpais.isEmpty())
        return rechazar(ctx, u"Falta el país de origen del certificado, ingréselo para guardar."_s,
                        u"TxtIdPais"_s);
    if (getPaisDescripcion(ctx, c.idpais).isEmpty())
        return rechazar(ctx, u"El país %1 no está en la tabla de países, elíjalo con F6."_s.arg(c.idpais),
                        u"TxtIdPais"_s);
    return Veredicto::bien();
}

/// Lines that bear another number are taken over only when the user says so.
bool confirmarCambioDeCertificado(const AppContext &ctx, const Legajo &legajo, const Certificado &c,
                                  const std::set<qint64> &lineas) {
    const Certificado *antes = legajo.buscar(c.id);
    std::vector<int> deOtro;
    for (const Linea &l : legajo.lineas)
        if (lineas.contains(l.id) && !l.certorig.isEmpty() && !l.lleva(c.numero) &&
            (antes == nullptr || !l.lleva(antes->numero)))
            deOtro.push_back(l.orden);
    if (deOtro.empty()) return true;
    return ctx.dialogos.preguntar({u"Ya hay otro certificado en %1. ¿Desea reemplazarlo por el %2?"_s.arg(
                                       NombrarLineas(deOtro), c.numero),
                                   u"Certificado de origen"_s, Icono::Pregunta, true});
}

/// Puts a number on lines; their number in all touched.
qint64 ponerNumero(AppContext &ctx, const QString &interno, const std::vector<qint64> &lineas,
                   const QString &numero) {
    // What a statement can hold without being a strain on either store.
    constexpr std::size_t deUnaVez = 500;
    qint64 tocadas = 0;
    for (std::size_t desde = 0; desde < lineas.size(); desde += deUnaVez) {
        QStringList ids;
        const std::size_t hasta = std::min(lineas.size(), desde + deUnaVez);
        for (std::size_t i = desde; i < hasta; ++i) ids << QString::number(lineas[i]);
        tocadas += Ejecutar(
            ctx, internos,
            Escritura(ctx)
                .texto("certorig", numero)
                .actualizar(u"subitems"_s, "interno = "_L1 + EnComillas(interno) + " and id in ("_L1 +
                                               ids.join(QLatin1Char(',')) + ")"_L1));
    }
    return tocadas;
}

QString diaSql(AppContext &ctx, const std::optional<QDate> &dia) {
    return dia ? ctx.DataManager.getDateFormatbyEntity(internos, dia->startOfDay()) : u"null"_s;
}

QString deEste(const QString &interno, qint64 id) {
    return "interno = "_L1 + EnComillas(interno) + " and id = "_L1 + QString::number(id);
}

/// Writes the card's row; false when it was changed and is gone.
bool escribirFila(AppContext &ctx, const QString &interno, Certificado &c) {
    Escritura e(ctx);
    e.texto("numero", c.numero)
        .crudo("fecha", diaSql(ctx, c.fecha))
        .codigo("idpais", c.idpais)
        .texto("exportador", c.exportador)
        .crudo("vencimiento", diaSql(ctx, c.vencimiento))
        .texto("observaciones", c.observaciones);
    if (c.id != 0) return Ejecutar(ctx, internos, e.actualizar(u"certorigen"_s, deEste(interno, c.id))) > 0;
    Ejecutar(ctx, internos, e.codigo("interno", interno).insertar(u"certorigen"_s));
    Recordset rs;
    Consultar(ctx, internos, "select max(id) as id from certorigen"_L1 + deLaOperacion(interno), rs);
    c.id = static_cast<qint64>(rs.Numero(u"id"));
    return true;
}

/// The certificate's row and its lines, kept together; false when the row is gone.
bool escribir(AppContext &ctx, const Legajo &legajo, Certificado &c, const std::set<qint64> &lineas) {
    const Certificado *antes = legajo.buscar(c.id);
    std::vector<qint64> lasQueEntran;
    std::vector<qint64> lasQueSalen;
    for (const Linea &l : legajo.lineas) {
        const bool suya = l.lleva(c.numero) || (antes != nullptr && l.lleva(antes->numero));
        if (lineas.contains(l.id)) {
            // Also one that spells the number in another case.
            if (l.certorig != c.numero) lasQueEntran.push_back(l.id);
        } else if (suya) {
            lasQueSalen.push_back(l.id);
        }
    }
    Transaccion juntas(ctx.conexion(internos));
    if (!escribirFila(ctx, legajo.interno, c)) return false;
    const qint64 tocadas = ponerNumero(ctx, legajo.interno, lasQueEntran, c.numero) +
                           ponerNumero(ctx, legajo.interno, lasQueSalen, {});
    if (tocadas > 0) AnotarCambio(ctx, legajo.interno);
    juntas.Confirmar();
    return true;
}

/// What is odd about a saved certificate, told once.
void avisar(const AppContext &ctx, const Legajo &legajo, const Certificado &c) {
    QStringList avisos;
    if (Vencido(legajo, c))
        avisos
            << u"El certificado %1 venció el %2, antes de la fecha de la operación (%3): pida uno vigente."_s
                   .arg(c.numero, diaEnTexto(c.vencimiento), diaEnTexto(legajo.fecha));
    if (const std::vector<int> otras = LineasDeOtroPais(legajo, c); !otras.empty())
        avisos << u"El país del certificado %1 (%2) no es el de %3: revise el país o las líneas que cubre."_s
                      .arg(c.numero, c.idpais, NombrarLineas(otras));
    if (!avisos.isEmpty()) ctx.dialogos.advertir(avisos.join("\r\n\r\n"_L1));
}

void decirQueNoEsta(const AppContext &ctx) {
    ctx.dialogos.advertir(
        u"El certificado ya no está en la operación: cierre la pantalla y vuelva a abrirla."_s);
}

}  // namespace

bool Linea::lleva(const QString &numero) const {
    return !certorig.isEmpty() && mismoNumero(certorig, numero.trimmed());
}

const Certificado *Legajo::buscar(qint64 id) const {
    const auto hallado = std::find_if(certificados.begin(), certificados.end(),
                                      [id](const Certificado &c) { return c.id == id; });
    return hallado == certificados.end() ? nullptr : &*hallado;
}

std::set<qint64> Legajo::lineasDe(const QString &numero) const {
    std::set<qint64> suyas;
    for (const Linea &l : lineas)
        if (l.lleva(numero)) suyas.insert(l.id);
    return suyas;
}

QStringList Legajo::numerosSueltos() const {
    QStringList sueltos;
    for (const Linea &l : lineas) {
        const bool deAlguno = std::any_of(certificados.begin(), certificados.end(),
                                          [&l](const Certificado &c) { return l.lleva(c.numero); });
        if (!l.certorig.isEmpty() && !deAlguno && !sueltos.contains(l.certorig, Qt::CaseInsensitive))
            sueltos << l.certorig;
    }
    return sueltos;
}

Legajo Leer(AppContext &ctx, const QString &interno) {
    Legajo legajo;
    legajo.interno = interno;
    const PaisDeCaratula caratula = leerCaratula(ctx, legajo);
    leerCertificados(ctx, legajo);
    leerLineas(ctx, legajo, caratula);
    return legajo;
}

bool Vencido(const Legajo &legajo, const Certificado &certificado) {
    return certificado.vencimiento && *certificado.vencimiento < legajo.fecha;
}

std::vector<int> LineasDeOtroPais(const Legajo &legajo, const Certificado &certificado) {
    std::vector<int> otras;
    for (const Linea &l : legajo.lineas) {
        if (!l.lleva(certificado.numero) || l.idpais.isEmpty() || certificado.idpais.isEmpty()) continue;
        // What is exported names its destination as its country, and its origin as where it comes from.
        const bool suya =
            l.idpais == certificado.idpais || (legajo.exportacion && l.idpaisproc == certificado.idpais);
        if (!suya) otras.push_back(l.orden);
    }
    return otras;
}

QString Aviso(const Legajo &legajo, const Certificado &certificado) {
    QStringList avisos;
    if (Vencido(legajo, certificado)) avisos << u"Vencido"_s;
    if (!LineasDeOtroPais(legajo, certificado).empty()) avisos << u"Otro país"_s;
    if (legajo.lineasDe(certificado.numero).empty()) avisos << u"Sin líneas"_s;
    return avisos.join(", "_L1);
}

Ficha FichaDe(const Legajo &legajo, const Certificado &certificado) {
    return {.id = certificado.id,
            .TxtNumero = certificado.numero,
            .TxtFecha = diaEnTexto(certificado.fecha),
            .TxtIdPais = certificado.idpais,
            .TxtExportador = certificado.exportador,
            .TxtVencimiento = diaEnTexto(certificado.vencimiento),
            .TxtObservaciones = certificado.observaciones,
            .lineas = legajo.lineasDe(certificado.numero)};
}

Veredicto Guardar(AppContext &ctx, const QString &interno, const Ficha &ficha, qint64 &id) {
    // As it stands now: another screen may have changed lines since the card was opened.
    const Legajo legajo = Leer(ctx, interno);
    Certificado c;
    if (Veredicto v = revisar(ctx, legajo, ficha, c); !v.ok) return v;
    if (!confirmarCambioDeCertificado(ctx, legajo, c, ficha.lineas)) return Veredicto::mal(u"GrdLineas"_s);
    if (!escribir(ctx, legajo, c, ficha.lineas)) {
        decirQueNoEsta(ctx);
        return Veredicto::mal();
    }
    id = c.id;
    avisar(ctx, Leer(ctx, interno), c);
    return Veredicto::bien();
}

bool Eliminar(AppContext &ctx, const QString &interno, qint64 id) {
    const Legajo legajo = Leer(ctx, interno);
    const Certificado *c = legajo.buscar(id);
    if (c == nullptr) {
        decirQueNoEsta(ctx);
        return false;
    }
    const std::set<qint64> suyas = legajo.lineasDe(c->numero);
    const QString deLasLineas =
        suyas.empty() ? QString() : u" Sus %1 líneas quedan sin certificado."_s.arg(suyas.size());
    if (!ctx.dialogos.preguntar(
            {u"¿Confirma eliminar el certificado de origen %1?"_s.arg(c->numero) +
                 (suyas.size() == 1 ? u" Su línea queda sin certificado."_s : deLasLineas),
             u"Certificado de origen"_s, Icono::Pregunta, true}))
        return false;
    Transaccion juntas(ctx.conexion(internos));
    Ejecutar(ctx, internos, "delete from certorigen where "_L1 + deEste(interno, id));
    if (ponerNumero(ctx, interno, {suyas.begin(), suyas.end()}, {}) > 0) AnotarCambio(ctx, interno);
    juntas.Confirmar();
    return true;
}

QString NombrarLineas(const std::vector<int> &ordenes) {
    constexpr std::size_t bastantes = 6;
    QStringList numeros;
    for (std::size_t i = 0; i < std::min(ordenes.size(), bastantes); ++i)
        numeros << QString::number(ordenes[i]);
    if (numeros.size() == 1) return u"la línea "_s + numeros.front();
    const QString ultimo =
        ordenes.size() > bastantes ? u"%1 más"_s.arg(ordenes.size() - bastantes) : numeros.takeLast();
    return u"las líneas "_s + numeros.join(", "_L1) + " y "_L1 + ultimo;
}

}  // namespace certificados
