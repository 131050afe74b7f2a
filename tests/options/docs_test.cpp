// docs/opciones.md tells every option as its row does.

#include <gtest/gtest.h>

#include <QFile>
#include <QMap>
#include <QRegularExpression>

#include "frame/optionrows.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

QString leerFuente(const QString &ruta) {
    QFile f(CarpetaDeFuentes() + QLatin1Char('/') + ruta);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << ruta.toStdString();
    return QString::fromUtf8(f.readAll());
}

/// The captions that stand on the controls of the option screen, or in the label that belongs to each.
QMap<QString, QString> rotulos() {
    const QString forma = leerFuente(u"desktop/FrmConGen.ui"_s);
    QMap<QString, QString> todos;
    static const QRegularExpression propio(
        u"<widget class=\"Q(?:CheckBox|RadioButton)\" name=\"(\\w+)\">\\s*"
        "<property name=\"text\"><string>([^<]*)</string>"_s);
    for (auto m = propio.globalMatch(forma); m.hasNext();) {
        const QRegularExpressionMatch uno = m.next();
        todos[uno.captured(1)] = uno.captured(2);
    }
    static const QRegularExpression vecino(
        u"<property name=\"text\"><string>([^<]*)</string></property>\\s*"
        "<property name=\"buddy\"><cstring>(\\w+)</cstring>"_s);
    for (auto m = vecino.globalMatch(forma); m.hasNext();) {
        const QRegularExpressionMatch uno = m.next();
        todos[uno.captured(2)] = uno.captured(1).remove(u"&amp;"_s);
    }
    return todos;
}

QString valores(ClaseDeOpcion clase) {
    switch (clase) {
        case ClaseDeOpcion::Bandera:
        case ClaseDeOpcion::Nivel:
        case ClaseDeOpcion::Letra:
        case ClaseDeOpcion::LetraRecortada:
            return u"`S` on, anything else off"_s;
        case ClaseDeOpcion::BanderaSalvoN:
            return u"`N` off, anything else on"_s;
        case ClaseDeOpcion::BanderaDeInsumos:
            return u"`S` on, where the temporary inputs are installed"_s;
        case ClaseDeOpcion::Orden:
            return u"`1` by tariff position, `2` as entered"_s;
        case ClaseDeOpcion::Fijo:
            return u"any number, without effect"_s;
        case ClaseDeOpcion::Lista:
            return u"`0` by number, `1` by date of creation"_s;
        case ClaseDeOpcion::Tasa:
            return u"percent; no number ends the load"_s;
        case ClaseDeOpcion::Numero:
            return u"percent"_s;
        case ClaseDeOpcion::Iniciales:
            return u"up to two letters"_s;
        case ClaseDeOpcion::Impresora:
        case ClaseDeOpcion::Texto:
            return u"text"_s;
    }
    return {};
}

QString filaDeTabla(const FilaDeOpcion &fila, const QMap<QString, QString> &leyendas) {
    const QString control = L(fila.control);
    const QString donde = *fila.area == '\0' ? u"file"_s : u"settings `%1`"_s.arg(L(fila.area));
    const QString defecto = *fila.defecto == '\0' ? u"empty"_s : u"`%1`"_s.arg(L(fila.defecto));
    const QString enPantalla = control.isEmpty() ? u"none"_s : u"`%1` %2"_s.arg(control, leyendas[control]);
    return u"| `%1` | %2 | %3 | %4 | %5 |"_s.arg(L(fila.clave), donde, valores(fila.clase), defecto,
                                                 enPantalla.trimmed());
}

TEST(DocsDeOpciones, TheTableIsThatOfTheRowsInTheirOrder) {
    const QMap<QString, QString> leyendas = rotulos();
    QStringList esperada;
    for (const FilaDeOpcion &fila : FilasDeOpciones()) esperada << filaDeTabla(fila, leyendas);
    QStringList escrita;
    const QStringList lineas = leerFuente(u"docs/opciones.md"_s).split(QLatin1Char('\n'));
    for (const QString &linea : lineas)
        if (linea.startsWith(u"| `"_s)) escrita << linea;
    EXPECT_EQ(escrita.join(QLatin1Char('\n')).toStdString(), esperada.join(QLatin1Char('\n')).toStdString());
}

TEST(DocsDeOpciones, EveryControlOfARowStandsOnTheScreenOnce) {
    const QString forma = leerFuente(u"desktop/FrmConGen.ui"_s);
    for (const FilaDeOpcion &fila : FilasDeOpciones())
        if (*fila.control != '\0') {
            EXPECT_EQ(forma.count(u"name=\"%1\""_s.arg(L(fila.control))), 1) << fila.control;
        }
}

TEST(DocsDeOpciones, NoTwoRowsShareAKeyOrAControl) {
    QStringList claves;
    QStringList controles;
    for (const FilaDeOpcion &fila : FilasDeOpciones()) {
        claves << QString(L(fila.clave)).toUpper();
        if (*fila.control != '\0') controles << L(fila.control);
    }
    EXPECT_EQ(claves.removeDuplicates(), 0);
    EXPECT_EQ(controles.removeDuplicates(), 0);
}

}  // namespace
