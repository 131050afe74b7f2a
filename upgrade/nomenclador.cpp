// A nomenclature file as the tariff authority publishes it, into the numbered columns of ncm.

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>

#include "frame/base/numbers.h"
#include "frame/base/position.h"
#include "upgrade/carga.h"

using namespace Qt::StringLiterals;

namespace actualizacion {

using esquema::Columna;

namespace {

constexpr int largoDePosicion = 15;

enum class Clase { Texto, Tasa, Intervencion };

/// What a column of the file becomes.
struct Rol {
    const char *encabezado;
    const char *columna;
    Clase clase;
};

const Rol roles[] = {
    {"partida", "004", Clase::Texto},
    {"descripcion_superior", "005", Clase::Texto},
    {"descripcion", "010", Clase::Texto},
    {"unidad", "012", Clase::Texto},
    {"die", "015", Clase::Tasa},
    {"te", "016", Clase::Tasa},
    {"derecho_especifico", "017", Clase::Tasa},
    {"de", "018", Clase::Tasa},
    {"re", "019", Clase::Tasa},
    {"unidad_derecho_especifico", "020", Clase::Texto},
    {"aec", "026", Clase::Tasa},
    {"intervencion", "043", Clase::Intervencion},
};

/// One numbered column to be filled from one field.
struct FuenteDeNcm {
    QString columna;
    Clase clase = Clase::Texto;
    qsizetype campo = -1;
};

const QString columnaDeUnidad = u"012"_s;
const QString columnaDeLicencia = u"059"_s;  // "*": non-automatic import licence

/// Where the values of one row go: names in the order of the two prepared statements.
struct Plan {
    qsizetype campoPosicion = -1;
    std::vector<FuenteDeNcm> fuentes;
    bool conUnidad = false;
    bool conIntervencion = false;
    /// Numbered columns written on insert (fuentes, then the licence mark), without the unit when the file
    /// lacks it.
    QStringList columnas;
};

Plan planDe(csv::Lector &lector, const QString &archivo, const QString &unidadPorDefecto,
            ResultadoCsv &resultado) {
    Plan plan;
    const QStringList &encabezado = lector.encabezado();
    QSet<QString> usadas;
    for (qsizetype i = 0; i < encabezado.size(); ++i) {
        QString nombre = encabezado.at(i).toLower();
        if (nombre == "posicion"_L1) {
            plan.campoPosicion = i;
            continue;
        }
        FuenteDeNcm fuente;
        for (const Rol &rol : roles)
            if (nombre == QLatin1String(rol.encabezado))
                fuente = {QString::fromLatin1(rol.columna), rol.clase, i};
        nombre.remove(QLatin1Char('['));
        nombre.remove(QLatin1Char(']'));
        // A number names its column directly, but the keys come from the position alone.
        if (fuente.campo < 0 && nombre > "003"_L1 && esquema::buscarTabla(u"ncm")->columna(nombre) != nullptr)
            fuente = {nombre, Clase::Texto, i};
        if (fuente.campo < 0 || usadas.contains(fuente.columna)) {
            resultado.avisos << csv::AvisoDeLinea(
                1, u"no se conoce la columna \"%1\"; no se carga"_s.arg(encabezado.at(i)));
            continue;
        }
        usadas.insert(fuente.columna);
        plan.conUnidad = plan.conUnidad || fuente.columna == columnaDeUnidad;
        plan.conIntervencion = plan.conIntervencion || fuente.clase == Clase::Intervencion;
        plan.fuentes.push_back(fuente);
    }
    if (plan.campoPosicion < 0)
        Detener(u"El archivo %1 no tiene la columna posicion; revise su primera línea."_s.arg(archivo));
    if (!plan.conUnidad && unidadPorDefecto.isEmpty())
        Detener(u"El archivo %1 no trae la unidad estadística; indique una con --unidad."_s.arg(archivo));
    if (usadas.contains(columnaDeLicencia)) plan.conIntervencion = false;
    for (const FuenteDeNcm &f : plan.fuentes) plan.columnas << f.columna;
    if (plan.conIntervencion) plan.columnas << columnaDeLicencia;
    return plan;
}

/// The values of one record in the order of plan.columnas; an empty list when the row cannot be loaded.
QStringList valoresDe(const Plan &plan, const csv::Registro &registro, const QString &unidadPorDefecto,
                      ResultadoCsv &resultado) {
    QStringList valores;
    QString licencia = u""_s;
    for (const FuenteDeNcm &f : plan.fuentes) {
        QString texto = registro.campos.at(f.campo).trimmed();
        if (f.clase == Clase::Tasa && !texto.isEmpty()) {
            if (numeros::esNumerico(texto)) {
                texto.replace(QLatin1Char(','), QLatin1Char('.'));
            } else {
                resultado.avisos << csv::AvisoDeLinea(registro.linea,
                                                      u"\"%1\" no es una tasa para la columna %2; se carga "
                                                      "vacía"_s.arg(texto, f.columna));
                texto = u""_s;
            }
        }
        if (f.clase == Clase::Intervencion && !texto.isEmpty()) {
            // The published sheets now and then leave a figure before the letters.
            const QString letras = texto.section(QLatin1Char(' '), -1);
            if (letras != texto)
                resultado.avisos << csv::AvisoDeLinea(
                    registro.linea,
                    u"la intervención \"%1\" se toma como \"%2\""_s.arg(texto.simplified(), letras));
            texto = letras;
            if (letras == "LNA"_L1) licencia = u"*"_s;
        }
        if (f.columna == columnaDeUnidad && texto.isEmpty()) texto = unidadPorDefecto;
        valores << texto;
    }
    if (plan.conIntervencion) valores << licencia;
    return valores;
}

void cargar(Destino &destino, csv::Lector &lector, const QString &archivo, const QString &unidadPorDefecto,
            const Progreso &progreso, ResultadoCsv &resultado) {
    const Plan plan = planDe(lector, archivo, unidadPorDefecto, resultado);
    const Almacen &a = *destino.almacen;

    QStringList alta{u"\"001\""_s, u"\"002\""_s, u"\"003\""_s};
    QStringList cambio;
    for (const QString &c : plan.columnas) {
        alta << Almacen::comillas(c);
        cambio << Almacen::comillas(c) + u" = ?"_s;
    }
    if (!plan.conUnidad) alta << Almacen::comillas(columnaDeUnidad);
    QStringList marcas(alta.size(), u"?"_s);

    const qint64 total = std::max<qint64>(lector.lineas() - 1, 0);
    const QString que = u"Cargando el nomenclador"_s;
    if (progreso) progreso(que, 0, total);
    static const QRegularExpression forma(u"^\\d{4}\\.\\d{2}\\.\\d{2}\\.\\d{3}[A-Z]$"_s);

    // They outlive the rollback of a refused load: the server frees nothing inside a broken transaction.
    QSqlQuery insercion(a.db());
    QSqlQuery modificacion(a.db());
    a.comenzar();
    try {
        QSet<QString> presentes;
        for (const QString &p :
             a.lista(u"select \"001\" || '.' || \"002\" || \"003\" from %1"_s.arg(destino.nombre)))
            presentes.insert(p);
        // A position that is there keeps the columns that the file does not speak of.
        const bool listo =
            insercion.prepare(
                u"insert into %1 (%2) "
                "values (%3)"_s.arg(destino.nombre, alta.join(", "_L1), marcas.join(", "_L1))) &&
            (cambio.isEmpty() ||
             modificacion.prepare(u"update %1 "
                                  "set %2 "
                                  "where \"001\" = ? and \"002\" = ? and \"003\" = ?"_s.arg(
                                      destino.nombre, cambio.join(", "_L1))));
        if (!listo)
            Detener(u"El store rechazó la carga del nomenclador: %1"_s.arg(
                insercion.lastError().databaseText() + modificacion.lastError().databaseText()));

        QSet<QString> vistas;
        csv::Registro registro;
        while (lector.siguienteFila(registro, resultado.avisos)) {
            const QString posicion = registro.campos.at(plan.campoPosicion).trimmed();
            if (posicion.size() != largoDePosicion || !forma.match(posicion).hasMatch()) {
                resultado.avisos << csv::AvisoDeLinea(
                    registro.linea,
                    u"\"%1\" no es una posición de 15 caracteres; la fila no se carga"_s.arg(posicion));
                continue;
            }
            if (vistas.contains(posicion))
                resultado.avisos << csv::AvisoDeLinea(
                    registro.linea, u"la posición %1 está repetida; queda la última"_s.arg(posicion));
            vistas.insert(posicion);
            const QStringList valores = valoresDe(plan, registro, unidadPorDefecto, resultado);
            const ClavesNcm claves = CortarPosicion(posicion);
            const bool esta = presentes.contains(posicion);
            QSqlQuery &q = esta ? modificacion : insercion;
            int n = 0;
            if (!esta)
                for (const QString &clave : {claves.c001, claves.c002, claves.c003}) q.bindValue(n++, clave);
            for (const QString &valor : valores) q.bindValue(n++, valor);
            if (!esta && !plan.conUnidad) q.bindValue(n++, unidadPorDefecto);
            if (esta)
                for (const QString &clave : {claves.c001, claves.c002, claves.c003}) q.bindValue(n++, clave);
            if ((!esta || !cambio.isEmpty()) && !q.exec())
                Detener(u"No se cargó nada de %1: el store rechazó la línea %2 (%3)."_s.arg(
                    archivo, QString::number(registro.linea), q.lastError().databaseText().simplified()));
            presentes.insert(posicion);
            ++resultado.cargadas;
            if (progreso && resultado.cargadas % filasPorAviso == 0) progreso(que, resultado.cargadas, total);
        }
        insercion.finish();
        modificacion.finish();
        a.confirmar();
        if (resultado.cargadas >= filasPorAviso) a.medir(destino.nombre);
    } catch (...) {
        a.deshacer();
        resultado.cargadas = 0;
        throw;
    }
    if (progreso) progreso(que, total, total);
}

}  // namespace

ResultadoCsv CargarNomenclador(const QString &rutaDelPerfil, const QString &archivo,
                               const QString &unidadPorDefecto, const Progreso &progreso) {
    ResultadoCsv resultado;
    try {
        csv::Lector lector;
        if (!lector.abrir(archivo, resultado.error)) return resultado;
        Destino destino;
        abrirDestino(destino, rutaDelPerfil, u"ncm"_s);
        cargar(destino, lector, archivo, unidadPorDefecto, progreso, resultado);
        resultado.ok = true;
    } catch (const Falla &e) {
        resultado.error = e.descripcion;
    }
    return resultado;
}

}  // namespace actualizacion
