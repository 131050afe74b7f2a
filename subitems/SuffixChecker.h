#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <vector>

struct AppContext;

/// A suffix family that a position demands.
struct FamiliaDeSufijo {
    QString codigo;      ///< its two letters, upper case
    bool libre = false;  ///< a value between parentheses; else one of `opciones`
    QSet<QString>
        opciones;  ///< four characters each, upper case; "Ninguna opción" (family with "00") among them
};

/// What the nomenclature and the suffix catalogue say of one position.
struct RequisitosDeSufijo {
    bool existe = false;  ///< its first two keys are in the nomenclature
    std::vector<FamiliaDeSufijo> familias;
};

/// The suffix check that asks nothing of the user.
class SuffixCheckerClass {
 public:
    explicit SuffixCheckerClass(AppContext &ctx) : ctx_(ctx) {}

    /// 0 valid; 1 the position's first two keys are not in the nomenclature; 2 a required family has no
    /// fitting token. Tokens of families that are not required do not make a text invalid. Letters fit in
    /// either case, as in the store. Raises Falla.
    int Validar(const QString &posicion, const QString &sufijos) const;

    /// The two halves of Validar, for a caller that checks many texts of few positions: what a position
    /// demands (raises Falla), and whether a text meets it (0, 1 or 2 as above).
    RequisitosDeSufijo Requisitos(const QString &posicion) const;
    /// What each of several positions demands, in three journeys to a server. Raises Falla.
    QHash<QString, RequisitosDeSufijo> Requisitos(const QStringList &posiciones) const;
    static int Cumple(const RequisitosDeSufijo &requisitos, const QString &sufijos);

 private:
    AppContext &ctx_;
};
