#pragma once
// Items with their groups, some of which have kilos, and what a spread leaves of them.

#include "assembly/kilosbyitem.h"
#include "tests/items/armado.h"

class KilosPorItem : public ArmadoDePrueba {
 protected:
    /// Groups of an item, as "kilos/fob kilos/fob ..."; a measure whose unit is the kilo has the kilos too.
    void grupos(int id, const QString &texto, const QString &estadistica = QStringLiteral("01"),
                const QString &deresp = {}) {
        for (const QString &uno : texto.split(QLatin1Char(' '))) {
            const QString kilos = uno.section(QLatin1Char('/'), 0, 0);
            const auto medida = [&kilos](const QString &unidad) {
                return unidad == QLatin1String("01") ? kilos : QStringLiteral("7");
            };
            grupo({{"id", QString::number(id)},
                   {"kgneto", kilos},
                   {"fob", uno.section(QLatin1Char('/'), 1)},
                   {"estadistica", QStringLiteral("'%1'").arg(estadistica)},
                   {"valorrelacionestadistica", medida(estadistica)},
                   {"deresp", QStringLiteral("'%1'").arg(deresp)},
                   {"valorderesp", medida(deresp)}});
        }
    }
    void itemDe(int id, const QString &kilos, const QString &fob,
                const QString &estadistica = QStringLiteral("01"), const QString &deresp = {}) {
        item(id, {{"totalkneto", kilos},
                  {"fobtotal", fob},
                  {"estadistica", QStringLiteral("'%1'").arg(estadistica)},
                  {"valorrelacionestadistica", QStringLiteral("70")},
                  {"deresp", QStringLiteral("'%1'").arg(deresp)},
                  {"valorderesp", QStringLiteral("80")}});
    }
    void itemCero() {
        insertar(QStringLiteral("item"), {{"interno", "'OP1'"}, {"id", "0"}, {"totalkneto", "0"}});
    }
    bool ex(int id, double kilos, ModoDeReparto modo = ModoDeReparto::Completar) {
        return Prorratear_ItemEx(*ctx, QLatin1String(clave), id, kilos, modo);
    }
    bool cero(double kilos) { return Prorratear_ItemCero(*ctx, QLatin1String(clave), kilos); }

    /// A column of the groups of an item in the order of their lines, joined by blanks.
    std::string columna(const char *nombre, int id = 1) {
        return filas(QLatin1String("select ") + QLatin1String(nombre) +
                     QLatin1String(" from groupsubitems where interno = 'OP1' and id = ") +
                     QString::number(id) + QLatin1String(" order by idsub"))
            .replace(QLatin1Char('\n'), QLatin1Char(' '))
            .toStdString();
    }
    std::string kilos(int id = 1) { return columna("kgneto", id); }
    std::string netos() { return f("select id,totalkneto from item where interno = 'OP1' order by id"); }
    std::string mensajes() {
        QStringList textos;
        for (const Mensaje &m : registro.mensajes) textos << m.texto;
        return textos.join(QStringLiteral(" & ")).toStdString();
    }
    void vaciar() {
        registro = {};
        linea = 0;
        for (const char *tabla : {"groupsubitems", "item"})
            ejecutar(QLatin1String("delete from ") + QLatin1String(tabla) +
                     QLatin1String(" where interno = 'OP1'"));
    }
};
