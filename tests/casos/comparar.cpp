// Sheets, and what differs between two of them.

#include <QDir>
#include <QFile>
#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/csv.h"
#include "tests/casos/caso.h"

using namespace Qt::StringLiterals;

namespace casos {

namespace {

/// Both stores keep 8-byte numbers: what differs behind the eighth decimal is no amount.
constexpr int decimalesSeguros = 8;

bool sonIguales(const QString &a, const QString &b) {
    if (a == b) return true;
    if (!numeros::esNumerico(a) || !numeros::esNumerico(b)) return false;
    return numeros::iguales(numeros::aNumero(a), numeros::aNumero(b), decimalesSeguros);
}

QString comoClave(const QStringList &claves, const QStringList &valores) {
    QStringList partes;
    for (qsizetype i = 0; i < claves.size(); ++i) partes << claves.at(i) + '='_L1 + valores.at(i);
    return partes.isEmpty() ? u"única fila"_s : partes.join(", "_L1);
}

QString comillas(const QString &texto) {
    return texto.isEmpty() ? u"vacío"_s : '"'_L1 + texto + '"'_L1;
}

}  // namespace

QString Planilla::celda(std::size_t fila, QStringView columna) const {
    const qsizetype i = columnas.indexOf(columna);
    return i < 0 ? QString() : filas.at(fila).at(i);
}

Planilla LeerPlanilla(const QString &archivo, QStringList &defectos) {
    Planilla p;
    if (!QFile::exists(archivo)) return p;
    csv::Lector lector;
    QString error;
    if (!lector.abrir(archivo, error)) {
        defectos << error;
        return p;
    }
    for (const QString &nombre : lector.encabezado()) p.columnas << nombre.toLower();
    csv::Registro registro;
    while (lector.siguiente(registro)) {
        if (registro.defecto.isEmpty() && registro.campos.size() != p.columnas.size())
            registro.defecto =
                u"tiene %1 campos y el encabezado %2"_s.arg(registro.campos.size()).arg(p.columnas.size());
        if (registro.defecto.isEmpty())
            p.filas.push_back(registro.campos);
        else
            defectos << u"%1, línea %2: %3"_s.arg(archivo).arg(registro.linea).arg(registro.defecto);
    }
    return p;
}

QStringList ClavesDe(const QString &tabla) {
    static const QHash<QString, QStringList> claves{
        {u"item"_s, {u"id"_s}},
        {u"itemliq"_s, {u"iditem"_s, u"idconceptos"_s}},
        {u"groupsubitems"_s, {u"idsub"_s}},
        {u"subitems"_s, {u"id"_s}},
        {u"liqcero"_s, {u"idconcepto"_s}},
        {u"itemventaja"_s, {u"iditem"_s, u"idventaja"_s}},
        {u"iteminfo"_s, {u"iditem"_s, u"idinfo"_s}},
        {u"idrel"_s, {u"idroot"_s, u"idsub"_s}},
        {u"sysflag"_s, {u"flag"_s}},
        {u"totales"_s, {u"dato"_s}},
    };
    return claves.value(tabla);
}

QStringList Comparar(const QString &tabla, const Planilla &esperado, std::vector<FilaDelStore> filas) {
    QStringList diferencias;
    const QStringList claves = ClavesDe(tabla);
    for (const QString &clave : claves)
        if (!esperado.columnas.contains(clave))
            return {u"esperado/%1.csv: falta la columna %2, que distingue las filas"_s.arg(tabla, clave)};
    const auto valoresDe = [&claves](const auto &celda) {
        QStringList valores;
        for (const QString &clave : claves) valores << celda(clave);
        return valores;
    };
    for (std::size_t n = 0; n < esperado.filas.size(); ++n) {
        const QStringList buscada = valoresDe([&](const QString &c) { return esperado.celda(n, c); });
        const QString donde = tabla + " ("_L1 + comoClave(claves, buscada) + ')'_L1;
        const auto fila = std::find_if(filas.begin(), filas.end(), [&](const FilaDelStore &f) {
            return std::all_of(claves.begin(), claves.end(), [&](const QString &c) {
                return sonIguales(f.valores.value(c), buscada.at(claves.indexOf(c)));
            });
        });
        if (fila == filas.end()) {
            diferencias << donde + u": la fila no está"_s;
            continue;
        }
        for (const QString &columna : esperado.columnas) {
            const QString quiere = esperado.celda(n, columna);
            const QString hay = fila->valores.value(columna);
            if (!sonIguales(quiere, hay))
                diferencias << donde + ", "_L1 + columna + ": se esperaba "_L1 + comillas(quiere) +
                                   u", salió "_s + comillas(hay);
        }
        filas.erase(fila);
    }
    for (const FilaDelStore &sobra : filas) {
        if (sobra.enSilencio) continue;
        QStringList celdas;
        for (const QString &columna : esperado.columnas)
            celdas << columna + '='_L1 + sobra.valores.value(columna);
        diferencias << tabla + ": sobra la fila "_L1 + celdas.join(", "_L1);
    }
    return diferencias;
}

QStringList CarpetasDeCasos(const QString &raiz) {
    QStringList carpetas;
    for (const QFileInfo &uno : QDir(raiz).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        if (QFile::exists(uno.filePath() + "/caso.txt"_L1)) carpetas << uno.filePath();
    return carpetas;
}

}  // namespace casos
