#pragma once
// Four articles in two catalogues, and the screen that keeps them, by keyboard.

#include "subitems/FrmCatArticulos.h"
#include "tests/support/pantallas.h"

/// ALFA holds and B-1, BETA another A-1: pumps of 118.40 each with their suffixes.
class EnCatalogos : public EnPantalla {
 protected:
    void SetUp() override;

    /// The screen as the menu opens it.
    static FrmCatArticulos &catalogos();
    /// The row in hand of the tree, as "catalogue/article".
    static std::string enArbol(const FrmCatArticulos &p);
    static bool expandido(const FrmCatArticulos &p, int fila);
    static bool enLista(const FrmCatArticulos &p);
    /// The text in place of what the field holds, and ENTER.
    static void teclear(QLineEdit *campo, const QString &texto);
    /// A new pump in the screen, but for its code.
    static void teclearBomba(FrmCatArticulos &p);
    /// Every article as "catalogue|article".
    std::string articulos();
    std::string ultimoTexto() const;
    /// The rows of a statement over the entity of catalogues.
    QString enCatalogos(const QString &sql) { return filas(sql, QStringLiteral("CATALOGOS")); }
};
