#include "subitems/SuffixChecker.h"

#include <QStringList>
#include <algorithm>

#include "frame/context.h"
#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype largoCodificado = 4;
constexpr qsizetype largoLibre = 2;

const QString ncm = u"NCM"_s;

/// The tokens of a suffix text, upper case. A "-" inside parentheses belongs to the value: the entry of lines
/// never writes one, an imported line may.
QStringList tokens(const QString &sufijos) {
    QStringList lista;
    QString token;
    bool dentro = false;
    for (const QChar c : sufijos) {
        if (c == '-'_L1 && !dentro) {
            lista << token.trimmed().toUpper();
            token.clear();
            continue;
        }
        if (c == '('_L1) dentro = true;
        if (c == ')'_L1) dentro = false;
        token += c;
    }
    if (!token.isEmpty()) lista << token.trimmed().toUpper();
    return lista;
}

/// family(value), with something for a value.
bool esValorLibre(const QString &token, const QString &familia) {
    const QString cabeza = familia + '('_L1;
    return token.startsWith(cabeza) && token.endsWith(')'_L1) &&
           !token.mid(cabeza.size(), token.size() - cabeza.size() - 1).trimmed().isEmpty();
}

bool encaja(const QString &token, const FamiliaDeSufijo &familia) {
    return familia.libre ? esValorLibre(token, familia.codigo) : familia.opciones.contains(token);
}

}  // namespace

int SuffixCheckerClass::Validar(const QString &posicion, const QString &sufijos) const {
    return Cumple(Requisitos(posicion), sufijos);
}

RequisitosDeSufijo SuffixCheckerClass::Requisitos(const QString &posicion) const {
    RequisitosDeSufijo requisitos;
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    requisitos.existe = Consultar(ctx_, ncm,
                                  "select [001] as pos from ncm where [001]='"_L1 + claves.c001 +
                                      "' and [002]='"_L1 + claves.c002 + "'"_L1,
                                  rs);
    if (!requisitos.existe) return requisitos;
    const QString lista = ListaDeClavesSim(posicion);
    Recordset familias;
    Consultar(ctx_, ncm, "select distinct left(sufijo,2) as asufijo from sufidos where sim in "_L1 + lista,
              familias);
    for (; !familias.Eof(); familias.MoveNext()) {
        FamiliaDeSufijo familia;
        const QString codigo = familias.Texto(u"asufijo");
        familia.codigo = codigo.toUpper();
        Recordset filas;
        if (!Consultar(ctx_, ncm,
                       "select sufijo,detalle from sufidos where sim in "_L1 + lista +
                           " and left(sufijo,2) = '"_L1 + codigo + "'"_L1,
                       filas))
            continue;
        // The first row tells the family's kind; one of another length, or of a letter without a type,
        // demands nothing.
        const qsizetype largo = filas.Texto(u"sufijo").size();
        familia.libre = largo == largoLibre;
        if (familia.libre && !familia.codigo.startsWith('A'_L1) && !familia.codigo.startsWith('Z'_L1))
            continue;
        if (!familia.libre && largo != largoCodificado) continue;
        if (!familia.libre) {
            familia.opciones.insert(familia.codigo + "00"_L1);
            for (; !filas.Eof(); filas.MoveNext())
                familia.opciones.insert(filas.Texto(u"sufijo").trimmed().toUpper());
        }
        requisitos.familias.push_back(std::move(familia));
    }
    return requisitos;
}

int SuffixCheckerClass::Cumple(const RequisitosDeSufijo &requisitos, const QString &sufijos) {
    if (!requisitos.existe) return 1;
    const QStringList dados = tokens(sufijos);
    const bool completo = std::all_of(
        requisitos.familias.begin(), requisitos.familias.end(), [&dados](const FamiliaDeSufijo &familia) {
            return std::any_of(dados.begin(), dados.end(),
                               [&familia](const QString &token) { return encaja(token, familia); });
        });
    return completo ? 0 : 2;
}
