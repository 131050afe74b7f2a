#pragma once
// The tariff nomenclature, as lines and assembly ask for it.

#include <QString>
#include <QStringList>
#include <vector>

#include "frame/base/position.h"

struct AppContext;

/// A row of the suffix catalogue.
struct FilaDeSufijo {
    QString sim;  ///< the key under which it stands, 14 characters
    QString sufijo;
    QString detalle;
};
/// Every suffix row that applies to the position, in the order of the catalogue. Raises Falla.
std::vector<FilaDeSufijo> LeerSufijos(AppContext &ctx, const QString &posicion);

/// Whether the nomenclature has the position's first two keys: the third is not asked for. Raises Falla.
bool ExistePosicion(AppContext &ctx, const QString &posicion);
/// The same of several, in one journey to a server: an answer for each. Raises Falla.
std::vector<bool> ExistenPosiciones(AppContext &ctx, const QStringList &posiciones);

/// A family of suffixes with its rows, the first of which tells its kind. The letters read in any case.
struct FamiliaDelCatalogo {
    QString codigo;                   ///< its two letters, as the catalogue spells them
    std::vector<FilaDeSufijo> filas;  ///< never empty; `sim` is not read

    /// Coded options of four characters.
    bool codificada() const { return filas.front().sufijo.size() == 4; }
    /// A free value, of text or of digits.
    bool texto() const { return libre('A'); }
    bool numero() const { return libre('Z'); }
    /// It can be asked for. One of another length, or of a letter without a type, demands nothing.
    bool pedible() const { return codificada() || texto() || numero(); }

 private:
    bool libre(char tipo) const {
        return filas.front().sufijo.size() == 2 && codigo.startsWith(QLatin1Char(tipo), Qt::CaseInsensitive);
    }
};
/// The families that the position's four keys bring, in the order of the record set. Raises Falla.
std::vector<FamiliaDelCatalogo> LeerFamilias(AppContext &ctx, const QString &posicion);
/// The same of several, in two journeys to a server: those of each. Raises Falla.
std::vector<std::vector<FamiliaDelCatalogo>> LeerFamilias(AppContext &ctx, const QStringList &posiciones);

/// The licence mark and the stamps mark of a position, as the assembly asks for them.
struct MarcasNcm {
    bool encontrada = false;
    bool automotriz = false;    ///< [028] is "*"
    bool estampillado = false;  ///< [041] is "*"
    bool lapi = false;          ///< [059] is "*"
};
/// Raises Falla.
MarcasNcm LeerMarcasNcm(AppContext &ctx, const QString &posicion);
/// The same of several, in one journey to a server: those of each. Raises Falla.
std::vector<MarcasNcm> LeerMarcasNcm(AppContext &ctx, const QStringList &posiciones);

/// What ExistePosicion, LeerFamilias at first and LeerMarcasNcm ask of NCM, to be asked ahead.
QString SentenciaDePosicion(const QString &posicion);
QString SentenciaDeFamilias(const QString &posicion);
QString SentenciaDeMarcas(const QString &posicion);
