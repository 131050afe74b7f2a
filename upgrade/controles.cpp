#include "upgrade/controles.h"

#include <QRegularExpression>
#include <QSet>
#include <memory>

using namespace Qt::StringLiterals;

namespace actualizacion {

namespace {

const QString columnaPosicion = u"posicion"_s;
const QString columnaAclaraciones = u"aclaraciones"_s;
const QString columnaAclaracion = u"aclaracion"_s;
const QString columnaDescripcion = u"descripcion"_s;
const QString columnaFecha = u"fecha"_s;

const QString noSeCarga = u"; la fila no se carga"_s;

/// The number of a note as the look-ups ask for it; empty for a text that is none.
QString numeroDeAclaracion(const QString &texto) {
    static const QRegularExpression cifras(u"^0*([1-9][0-9]{0,8})$"_s);
    return cifras.match(texto).captured(1);
}

QSet<QString> conjunto(const QStringList &lista) {
    return {lista.begin(), lista.end()};
}

/// The values of a column of the licence tables.
QSet<QString> valoresDe(const Destino &destino, const char *tabla, const QString &columna) {
    return conjunto(destino.almacen->lista(u"select distinct %1 from %2"_s.arg(
        Almacen::comillas(columna),
        destino.almacen->nombreDe(destino.esquemaDe, QString::fromLatin1(tabla)))));
}

QString claveDeFila(const QStringList &partes) {
    return partes.join(QChar(QChar::LineSeparator)).toCaseFolded();
}

/// The columns that the file has, in the order of the table.
QStringList columnasDe(const Destino &destino, const QHash<QString, qsizetype> &lugares) {
    QStringList columnas;
    for (const esquema::Columna &c : destino.tabla->columnas)
        if (lugares.contains(c.nombre)) columnas << c.nombre;
    return columnas;
}

/// The rows that are there, as claveDeFila tells those of the file.
QSet<QString> filasPresentes(const Destino &destino, const QStringList &columnas) {
    QStringList partes;
    for (const QString &c : columnas) partes << u"coalesce(%1, '')"_s.arg(Almacen::comillas(c));
    QSet<QString> claves;
    for (const QString &fila : destino.almacen->lista(u"select %1 from %2"_s.arg(
             partes.join(u" || '%1' || "_s.arg(QChar(QChar::LineSeparator))), destino.nombre)))
        claves << fila.toCaseFolded();
    return claves;
}

/// Drops what is no note's number, so that the look-up finds a statement that it can send.
QString aclaracionesDe(FilaPorCargar &fila, const QSet<QString> &conocidas) {
    QStringList numeros;
    for (const QString &pieza : fila.campo(columnaAclaraciones).split(u' ', Qt::SkipEmptyParts)) {
        const QString numero = numeroDeAclaracion(pieza);
        if (numero.isEmpty()) {
            fila.avisar(
                u"\"%1\" no es el número de una aclaración (van separados por un blanco); se carga sin "
                "ella"_s.arg(pieza));
            continue;
        }
        if (!conocidas.contains(numero))
            fila.avisar(
                u"la aclaración %1 no está en lnapiaclaraciones; se carga igual, agréguela allí"_s.arg(
                    numero));
        numeros << numero;
    }
    return numeros.join(u' ');
}

ControlDeFilas deLasPosiciones(const Destino &destino, const QHash<QString, qsizetype> &lugares,
                               bool reemplazar) {
    struct Vistas {
        QSet<QString> filas, conocidas, nomenclador;
    };
    auto v = std::make_shared<Vistas>();
    const QStringList columnas = columnasDe(destino, lugares);
    if (!reemplazar) v->filas = filasPresentes(destino, columnas);
    v->conocidas = valoresDe(destino, "lnapiaclaraciones", columnaAclaracion);
    v->nomenclador = valoresDe(destino, "ncm", u"001"_s);
    return [v, columnas](FilaPorCargar &fila) {
        static const QRegularExpression forma(u"^\\d{4}\\.\\d{2}\\.\\d{2}$"_s);
        QString &suya = fila.campo(columnaPosicion);
        suya = suya.trimmed();
        if (!forma.match(suya).hasMatch()) {
            fila.avisar(u"\"%1\" no es una posición de 10 caracteres, como 8413.70.10"_s.arg(suya) +
                        noSeCarga);
            return false;
        }
        if (fila.tiene(columnaAclaraciones))
            fila.campo(columnaAclaraciones) = aclaracionesDe(fila, v->conocidas);
        QStringList partes;
        for (const QString &c : columnas) partes << fila.campo(c);
        const QString clave = claveDeFila(partes);
        if (v->filas.contains(clave)) {
            fila.avisar(u"la licencia de la posición %1 está repetida"_s.arg(suya) + noSeCarga);
            return false;
        }
        v->filas << clave;
        // Without a nomenclature there is nothing to hold it against.
        if (!v->nomenclador.isEmpty() && !v->nomenclador.contains(suya))
            fila.avisar(u"la posición %1 no está en el nomenclador; se carga igual, revísela"_s.arg(suya));
        return true;
    };
}

ControlDeFilas deLasAclaraciones(const Destino &destino, const QHash<QString, qsizetype> &, bool reemplazar) {
    auto vistas = std::make_shared<QSet<QString>>();
    if (!reemplazar) *vistas = valoresDe(destino, "lnapiaclaraciones", columnaAclaracion);
    return [vistas](FilaPorCargar &fila) {
        QString &suyo = fila.campo(columnaAclaracion);
        const QString numero = numeroDeAclaracion(suyo.trimmed());
        if (numero.isEmpty()) {
            fila.avisar(u"\"%1\" no es el número de una aclaración"_s.arg(suyo) + noSeCarga);
            return false;
        }
        if (vistas->contains(numero)) {
            fila.avisar(u"la aclaración %1 está repetida; queda la primera"_s.arg(numero));
            return false;
        }
        if (fila.campo(columnaDescripcion).trimmed().isEmpty()) {
            fila.avisar(u"la aclaración %1 no tiene descripción"_s.arg(numero) + noSeCarga);
            return false;
        }
        *vistas << numero;
        suyo = numero;
        return true;
    };
}

/// The menu shows one date: that of the first row.
ControlDeFilas deLaFecha(const Destino &destino, const QHash<QString, qsizetype> &, bool reemplazar) {
    auto hay = std::make_shared<bool>(
        !reemplazar && !destino.almacen->lista(u"select 1 from %1 limit 1"_s.arg(destino.nombre)).isEmpty());
    return [hay, &destino](FilaPorCargar &fila) {
        const QString &texto = fila.campo(columnaFecha);
        const std::optional<QVariant> valor =
            valorDe(*destino.almacen, *destino.tabla->columna(columnaFecha), texto);
        if (!valor || valor->isNull()) {
            fila.avisar(u"\"%1\" no es una fecha, como 2026-01-05"_s.arg(texto) + noSeCarga);
            return false;
        }
        if (*hay) {
            fila.avisar(u"ya hay una fecha de los datos; esta no se carga, reemplace la tabla"_s);
            return false;
        }
        *hay = true;
        return true;
    };
}

struct Fila {
    const char *tabla;
    QStringList necesarias;
    ControlDeFilas (*hacer)(const Destino &, const QHash<QString, qsizetype> &, bool reemplazar);
};

}  // namespace

ControlDeFilas ControlDe(const Destino &destino, const QHash<QString, qsizetype> &lugares,
                         const QString &archivo, bool reemplazar) {
    const Fila controles[] = {
        {"lnapiposicionesafectadas", {columnaPosicion}, deLasPosiciones},
        {"lnapiaclaraciones", {columnaAclaracion, columnaDescripcion}, deLasAclaraciones},
        {"lnapifechadedatos", {columnaFecha}, deLaFecha},
    };
    for (const Fila &f : controles) {
        if (destino.tabla->nombre != QLatin1String(f.tabla)) continue;
        for (const QString &columna : f.necesarias)
            if (!lugares.contains(columna))
                Detener(
                    u"El archivo %1 no tiene la columna %2, que la tabla %3 necesita; revise su primera "
                    "línea."_s.arg(archivo, columna, destino.tabla->nombre));
        return f.hacer(destino, lugares, reemplazar);
    }
    return [](FilaPorCargar &) { return true; };
}

}  // namespace actualizacion
