#include "outputs/quotepage.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringDecoder>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/paper/replace.h"
#include "frame/startup.h"
#include "outputs/quote.h"

using namespace Qt::StringLiterals;

namespace {

/// The tags of a section, without their marks, and what fills them.
using Rotulos = QHash<QString, QString>;

const QString marcaDeComentarios = u"<!--###seccioncc###-->"_s;

QString montoDePagina(const AppContext &ctx, double valor) {
    return numeros::Format(valor, u"00.00", ctx.SeparadorDecimal);
}

/// A day with the program's word for it in long form.
QString diaLargo(const QDate &dia) {
    return FechaLarga(dia.startOfDay());
}

/// Texts of users as text: no character of theirs is markup.
QString escapado(const QString &texto) {
    QString html = texto.toHtmlEscaped();
    return html.replace(u'\'', "&#39;"_L1);
}

QString conSaltos(QString texto) {
    texto.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    return texto.replace(u'\n', "<br>"_L1);
}

/// Every character beyond ASCII as its reference.
QString soloAscii(const QString &html) {
    QString ascii;
    ascii.reserve(html.size());
    for (const char32_t c : html.toUcs4()) {
        constexpr char32_t primeroFuera = 0x7f;
        if (c < primeroFuera)
            ascii += QChar(static_cast<char16_t>(c));
        else
            ascii += "&#"_L1 + QString::number(static_cast<uint>(c)) + u';';
    }
    return ascii;
}

/// A template as text: UTF-8, or Latin-1 when its bytes are not that. An office may have edited it.
QString leerSeccion(const AppContext &ctx, QLatin1String nombre) {
    const QString ruta = ctx.ProgramFolder + "seccion/"_L1 + nombre;
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw Falla{static_cast<int>(archivo.error()),
                    u"seccion"_s,
                    u"No se pudo leer %1: %2"_s.arg(QDir::toNativeSeparators(ruta), archivo.errorString()),
                    {}};
    const QByteArray bytes = archivo.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString texto = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : texto;
}

/// Fills the tags in one pass: what a value holds is not looked at again. A tag that the section does not
/// have stays as it stands.
QString llenar(const QString &seccion, const Rotulos &rotulos) {
    static const QRegularExpression rotulo(u"###([a-z0-9]+)###"_s);
    QString texto;
    qsizetype hasta = 0;
    for (auto i = rotulo.globalMatch(seccion); i.hasNext();) {
        const QRegularExpressionMatch hallado = i.next();
        const auto valor = rotulos.constFind(hallado.captured(1));
        if (valor == rotulos.constEnd()) continue;
        texto += seccion.mid(hasta, hallado.capturedStart() - hasta) + *valor;
        hasta = hallado.capturedEnd();
    }
    return texto + seccion.mid(hasta);
}

/// A section that stands once a line, or what stands for no line.
template <class Lineas, class Hacer>
QString repetir(const QString &seccion, const Lineas &lineas, const QString &sinLineas,
                const Hacer &rotulosDe) {
    if (lineas.empty()) return sinLineas;
    QString texto;
    for (const auto &linea : lineas) texto += llenar(seccion, rotulosDe(linea));
    return texto;
}

QString leerComentario(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, entidad::systablas,
                     "select coment from coment where interno = "_L1 + EnComillas(interno), rs)
               ? rs.Texto(u"coment")
               : QString();
}

/// Blank lines for a letterhead, at the top of what is seen.
QString conLineasEnBlanco(const QString &texto, int lineas) {
    if (lineas == 0) return texto;
    static const QRegularExpression cuerpo(u"<body[^>]*>"_s, QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch hallado = cuerpo.match(texto);
    QString con = texto;
    return con.insert(hallado.hasMatch() ? hallado.capturedEnd() : 0, u"<br>"_s.repeated(lineas));
}

Rotulos rotulosDeValores(const AppContext &ctx, const Presupuesto &p) {
    return {{u"fobvlr"_s, p.LbFOB},
            {u"fletvlr"_s, p.LbFlete},
            {u"segvlr"_s, p.LbSeguro},
            {u"ajuinc"_s, p.LbAjInc},
            {u"ajuded"_s, p.LbAjDed},
            {u"pasfob"_s, p.LbPaseFob},
            {u"pasflet"_s, p.LbPaseFlete},
            {u"passeg"_s, p.LbPaseSeguro},
            {u"bimp"_s, p.LbBaseImp},
            {u"bimppeso"_s, montoDePagina(ctx, numeros::aNumero(p.LbBaseImp) * PaseDe(p))},
            {u"biva"_s, p.LbBaseIVA},
            {u"tipocambio"_s, escapado(p.TxtPase)}};
}

Rotulos rotulosDeTotales(const AppContext &ctx, const Presupuesto &p) {
    return {{u"gsttotpes"_s, montoDePagina(ctx, p.totalP.pesos)},
            {u"gstotdol"_s, montoDePagina(ctx, p.totalP.dolares)},
            {u"totgarpes"_s, montoDePagina(ctx, p.totalG.pesos)},
            {u"totgardol"_s, montoDePagina(ctx, p.totalG.dolares)},
            {u"totcobpes"_s, montoDePagina(ctx, p.totalC.pesos)},
            {u"totcobdol"_s, montoDePagina(ctx, p.totalC.dolares)}};
}

Rotulos rotulosDelFinal(const AppContext &ctx, const Presupuesto &p) {
    const ResumenDePresupuesto r = Resumir(p);
    const QString pesos = montoDePagina(ctx, r.operativos.pesos);
    const QString dolares = montoDePagina(ctx, r.operativos.dolares);
    return {{u"optotpes"_s, pesos},
            {u"optotdol"_s, dolares},
            {u"totpes"_s, pesos},
            {u"totdol"_s, dolares},
            {u"totadu"_s, montoDePagina(ctx, p.totalP.pesos)},
            {u"subtotal"_s, montoDePagina(ctx, r.subtotal)},
            {u"cuenta"_s, r.aCuenta == 0 ? u"-"_s : montoDePagina(ctx, r.aCuenta)},
            {u"totalgeneral"_s, montoDePagina(ctx, r.totalGeneral)}};
}

/// Whether a folder takes files is known when one was written: what the system says of a folder's permissions
/// is not the whole truth everywhere.
QString escribirDondeSePueda(const AppContext &ctx, const QString &nombre, const QByteArray &bytes) {
    QString propia = ctx.ProgramFolder + nombre;
    if (papel::ReemplazarArchivo(propia, bytes).isEmpty()) return propia;
    const QDir documentos(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    documentos.mkpath(u"."_s);
    QString ajena = documentos.filePath(nombre);
    const QString defecto = papel::ReemplazarArchivo(ajena, bytes);
    if (defecto.isEmpty()) return ajena;
    ctx.dialogos.critico(defecto);
    return {};
}

}  // namespace

QString AsuntoDelPresupuesto(const QDate &dia) {
    return u"Presupuesto "_s + diaLargo(dia);
}

QString PaginaDelPresupuesto(AppContext &ctx, const Presupuesto &p, const QDate &dia) {
    QString texto = llenar(leerSeccion(ctx, "seccion00.cpl"_L1), {{u"fechapres"_s, escapado(diaLargo(dia))},
                                                                  {u"desnom"_s, escapado(p.LbDespachante)},
                                                                  {u"clinom"_s, escapado(p.LbCliente)},
                                                                  {u"intnro"_s, escapado(p.interno)},
                                                                  {u"clidir"_s, escapado(p.LbCLIDOM)}});
    texto = conLineasEnBlanco(texto, p.lineasEnBlanco);
    const QString sinLineas = u"<tr class=\"texto\" ></tr>"_s;
    texto += repetir(
        leerSeccion(ctx, "seccion01.cpl"_L1), p.referencias, sinLineas, [](const ReferenciaDePresupuesto &r) {
            return Rotulos{{u"refer00"_s, escapado(r.referencia)}, {u"valorrefer00"_s, escapado(r.valor)}};
        });
    const QString comentario = leerComentario(ctx, p.interno);
    if (!comentario.trimmed().isEmpty())
        texto.replace(marcaDeComentarios, llenar(leerSeccion(ctx, "seccioncc.cpl"_L1),
                                                 {{u"comentarios"_s, conSaltos(escapado(comentario))}}));
    texto += llenar(leerSeccion(ctx, "seccion02.cpl"_L1), rotulosDeValores(ctx, p));
    texto +=
        repetir(leerSeccion(ctx, "seccion03.cpl"_L1), p.gastos, sinLineas, [&ctx](const GastoDeDespacho &g) {
            return Rotulos{{u"gstdsc"_s, escapado(g.concepto)},
                           {u"pgc"_s, escapado(g.pgc)},
                           {u"gstpesr"_s, montoDePagina(ctx, g.pesos)},
                           {u"gstdlr"_s, montoDePagina(ctx, g.dolares)}};
        });
    texto += llenar(leerSeccion(ctx, "seccion04.cpl"_L1), rotulosDeTotales(ctx, p));
    texto += repetir(leerSeccion(ctx, "seccion05.cpl"_L1), p.operativos,
                     u"<tr class=\"texto\" >Sin Datos...</tr>"_s, [&](const GastoOperativo &g) {
                         const EnDosMonedas mostrado = ImporteMostrado(p, g);
                         return Rotulos{{u"opdsc"_s, escapado(g.concepto)},
                                        {u"oppes"_s, montoDePagina(ctx, mostrado.pesos)},
                                        {u"opdol"_s, montoDePagina(ctx, mostrado.dolares)}};
                     });
    texto += llenar(leerSeccion(ctx, "seccion06.cpl"_L1), rotulosDelFinal(ctx, p));
    return soloAscii(texto);
}

bool LP_ArmarRep(AppContext &ctx, const Presupuesto &p, const QString &archivo) {
    if (archivo.isEmpty()) {
        ctx.dialogos.advertir(u"Error Nombre el archivo no llego como parametro"_s);
        return false;
    }
    const QString defecto =
        papel::ReemplazarArchivo(archivo, PaginaDelPresupuesto(ctx, p, QDate::currentDate()).toLatin1());
    if (!defecto.isEmpty()) ctx.dialogos.critico(defecto);
    return defecto.isEmpty();
}

QString EscribirVista(AppContext &ctx, const Presupuesto &p) {
    return escribirDondeSePueda(ctx, u"vista.htm"_s,
                                PaginaDelPresupuesto(ctx, p, QDate::currentDate()).toLatin1());
}

QString EscribirEml(AppContext &ctx, const Presupuesto &p) {
    const QDate hoy = QDate::currentDate();
    // A line end in an address would begin a line of the head.
    const QStringList cabeza{u"From: \"%1\""_s.arg(p.remitente.simplified()),
                             u"To: \"%1\""_s.arg(p.TxtEmail.simplified()),
                             u"subject: "_s + AsuntoDelPresupuesto(hoy),
                             u"Content-Type: text/html;Charset=\"iso-8859-1\""_s,
                             u"Content -Transfer - Encoding: quoted -printable"_s,
                             u"X-Unsent: 1"_s,
                             {}};
    QString texto = cabeza.join(u'\n') + u'\n' + PaginaDelPresupuesto(ctx, p, hoy);
    return escribirDondeSePueda(ctx, u"Presupuesto.eml"_s, texto.replace(u'\n', "\r\n"_L1).toLatin1());
}
