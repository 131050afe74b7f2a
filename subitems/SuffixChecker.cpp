#include "subitems/SuffixChecker.h"

#include <QStringList>
#include <algorithm>

#include "frame/context.h"
#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

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

/// Those of a position's families that ask for a token.
std::vector<FamiliaDeSufijo> demandadas(const std::vector<FamiliaDelCatalogo> &familias) {
    std::vector<FamiliaDeSufijo> pedidas;
    for (const FamiliaDelCatalogo &f : familias) {
        if (!f.pedible()) continue;
        FamiliaDeSufijo familia{f.codigo.toUpper(), !f.codificada(), {}};
        if (!familia.libre) {
            familia.opciones.insert(familia.codigo + "00"_L1);
            for (const FilaDeSufijo &fila : f.filas) familia.opciones.insert(fila.sufijo.trimmed().toUpper());
        }
        pedidas.push_back(std::move(familia));
    }
    return pedidas;
}

}  // namespace

int SuffixCheckerClass::Validar(const QString &posicion, const QString &sufijos) const {
    return Cumple(Requisitos(posicion), sufijos);
}

RequisitosDeSufijo SuffixCheckerClass::Requisitos(const QString &posicion) const {
    return Requisitos(QStringList{posicion}).value(posicion);
}

QHash<QString, RequisitosDeSufijo> SuffixCheckerClass::Requisitos(const QStringList &posiciones) const {
    QHash<QString, RequisitosDeSufijo> requisitos;
    QStringList queExisten;
    const std::vector<bool> existen = ExistenPosiciones(ctx_, posiciones);
    for (std::size_t n = 0; n < existen.size(); ++n) {
        const QString &posicion = posiciones.at(static_cast<qsizetype>(n));
        requisitos[posicion].existe = existen[n];
        if (existen[n]) queExisten << posicion;
    }
    const std::vector<std::vector<FamiliaDelCatalogo>> familias = LeerFamilias(ctx_, queExisten);
    for (std::size_t n = 0; n < familias.size(); ++n)
        requisitos[queExisten.at(static_cast<qsizetype>(n))].familias = demandadas(familias[n]);
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
