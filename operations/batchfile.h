#pragma once
// The files that a command of the batch reads: what they may hold, as data, and the judge over it.

#include <QJsonObject>
#include <QString>
#include <vector>

namespace lote {

/// What a member of such a file is.
enum class Forma {
    Valor,   ///< a text, a number or a truth value
    Textos,  ///< a list of texts
    Objeto,  ///< the members of `dentro`
    Lista,   ///< a list of objects with the members of `dentro`
};

struct Miembro {
    QString nombre;
    Forma forma = Forma::Valor;
    std::vector<Miembro> dentro = {};
    bool obligatorio = false;
    bool enCualquierCaja = false;  ///< the names of `dentro` are columns: capitals do not matter
};

/// What is wrong with `objeto`, as one sentence for the user; empty when it holds nothing but `miembros`,
/// each in its form.
QString DefectoDe(const QJsonObject &objeto, const std::vector<Miembro> &miembros);

/// The text of a value as a user would type it: a number with `separador`, "S" or "N" for a truth value,
/// empty for what is absent.
QString TextoDeValor(const QJsonValue &valor, QChar separador);
/// The texts of a list; none for what is absent.
QStringList TextosDeLista(const QJsonValue &valor);

}  // namespace lote
