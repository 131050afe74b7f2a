#pragma once
// The one writer of inserts and updates: a column and its value stand together.

#include <QString>
#include <string>
#include <vector>

struct AppContext;

/// The columns of one insert or of one update, in the order they are put. The two ways of quoting stand here
/// and nowhere else: a key or a code goes in as it stands and is refused (Falla) with a quote in it, free
/// text has its quotes doubled. What no store keeps is refused in both.
class Escritura {
 public:
    /// Numbers take the decimal separator of `entidad`.
    explicit Escritura(const AppContext &ctx, const QString &entidad = QStringLiteral("INTERNOS"));

    /// A key or a code, as it stands.
    Escritura &codigo(const char *columna, const QString &valor);
    /// Free text, its quotes doubled.
    Escritura &texto(const char *columna, const QString &valor);
    /// Free text that may not hold a quote: each becomes a blank.
    Escritura &sinComillas(const char *columna, const QString &valor);
    /// A number's text in either separator; "0" for what is no number.
    Escritura &numero(const char *columna, const QString &valor);
    Escritura &numero(const char *columna, double valor);
    /// 'S' or 'N'.
    Escritura &marca(const char *columna, bool valor);
    /// SQL as it stands: a date literal, null, a column of the same row.
    Escritura &crudo(const char *columna, const QString &sql);

    bool vacia() const { return pares_.empty(); }
    /// Each list joined by commas, for a statement that is spelled in another way.
    QString columnas() const;
    QString valores() const;

    /// "insert into `tabla` (a,b) values (1,'x')".
    QString insertar(const QString &tabla) const;
    /// "update `tabla` set a = 1,b = 'x' where `donde`".
    QString actualizar(const QString &tabla, const QString &donde) const;

 private:
    struct Par {
        std::string columna;  // a copy: the caller's may be gone when the statement is asked for
        QString sql;
    };
    QString separador_;
    std::vector<Par> pares_;
};
