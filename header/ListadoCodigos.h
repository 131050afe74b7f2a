#pragma once
// Our own library of code listings: which rows a pick list of a code table shows, and what each one answers.

#include <QString>
#include <QStringList>
#include <vector>

struct AppContext;

/// A row of a pick list.
struct FilaDeCodigo {
    QString vista;        ///< what the user sees and searches
    QString devuelto;     ///< the text that the list answers
    QString codigo;       ///< the code, trimmed, cut from the answer as the table's rule says
    QString descripcion;  ///< the plain description; a unit's begins with a blank, as its statement makes it
};

/// A pick list ready to be shown.
struct ListaDeCodigos {
    QString titulo;
    std::vector<FilaDeCodigo> filas;

    /// The rows as the user sees them.
    QStringList vistas() const;
};

class ListadoCodigosClass {
 public:
    explicit ListadoCodigosClass(AppContext &ctx) : ctx_(ctx) {}

    /// False for the keys that have a table but no pick list (MOTIVO), and for the empty key.
    static bool Ofrece(const QString &clave);

    /// The list of a key (SUBREG, ADUANA, PAIS, MOTIVOSTEMPI …). Any other key is taken for the name of a
    /// table with id and descripcion in the code store. Empty for a key that is not offered. Raises
    /// Falla.
    ListaDeCodigos Listado(const QString &clave) const;

 private:
    AppContext &ctx_;
};
