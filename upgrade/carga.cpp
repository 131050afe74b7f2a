#include "upgrade/carga.h"

#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <memory>

#include "frame/base/numbers.h"
#include "upgrade/controles.h"

using namespace Qt::StringLiterals;

namespace actualizacion {

using esquema::Columna;
using esquema::Tabla;
using esquema::Tipo;

namespace {

/// One column of the table that a load fills, and where its value comes from.
struct Fuente {
    const Columna *columna = nullptr;
    qsizetype campo = -1;  ///< position in the record; -1: the default
    QVariant porDefecto;
};

/// A header name as the schema spells it: "[015]" is the column 015.
QString nombreDeColumna(QString nombre) {
    if (nombre.startsWith(QLatin1Char('[')) && nombre.endsWith(QLatin1Char(']')))
        nombre = nombre.mid(1, nombre.size() - 2);
    return nombre.trimmed().toLower();
}

std::vector<Fuente> fuentesDe(const Destino &destino, const QStringList &encabezado,
                              const QStringList &porDefecto, const QString &archivo,
                              ResultadoCsv &resultado) {
    std::vector<Fuente> fuentes;
    QSet<QString> usadas;
    for (qsizetype i = 0; i < encabezado.size(); ++i) {
        const QString nombre = nombreDeColumna(encabezado.at(i));
        const Columna *columna = destino.tabla->columna(nombre);
        if (columna == nullptr)
            resultado.avisos << csv::AvisoDeLinea(
                1, u"la tabla %1 no tiene la columna \"%2\"; no se carga"_s.arg(destino.tabla->nombre,
                                                                                encabezado.at(i)));
        else if (usadas.contains(nombre))
            resultado.avisos << csv::AvisoDeLinea(
                1, u"la columna \"%1\" está repetida; se toma la primera"_s.arg(nombre));
        else
            fuentes.push_back({columna, i, {}});
        if (columna != nullptr) usadas.insert(nombre);
    }
    if (fuentes.empty())
        Detener(u"El archivo %1 no tiene ninguna columna de la tabla %2; revise su primera línea."_s.arg(
            archivo, destino.tabla->nombre));
    for (const QString &par : porDefecto) {
        const qsizetype igual = par.indexOf(QLatin1Char('='));
        const QString nombre = nombreDeColumna(par.left(igual));
        const Columna *columna = igual < 0 ? nullptr : destino.tabla->columna(nombre);
        const std::optional<QVariant> valor =
            columna == nullptr ? std::nullopt : valorDe(*destino.almacen, *columna, par.mid(igual + 1));
        if (!valor)
            Detener(
                u"El valor por defecto \"%1\" no sirve para la tabla %2; escríbalo como "
                "columna=valor."_s.arg(par, destino.tabla->nombre));
        if (!usadas.contains(nombre)) fuentes.push_back({columna, -1, *valor});
    }
    return fuentes;
}

}  // namespace

void ponerAlDiaLaNumeracion(const Destino &destino) {
    if (!destino.almacen->servidor()) return;  // the file store numbers behind the highest by itself
    for (const Columna &c : destino.tabla->columnas) {
        if (c.tipo != Tipo::Generado) continue;
        destino.almacen->lista(
            u"select setval("
            "pg_get_serial_sequence('%1', '%2'), "
            "greatest(coalesce((select max(%3) from %1), 0) + 1, "
            "nextval(pg_get_serial_sequence('%1', '%2'))), "
            "false)"_s.arg(destino.nombre, c.nombre, Almacen::comillas(c.nombre)));
    }
}

void cargarLector(Destino &destino, csv::Lector &lector, const QString &archivo, bool reemplazar,
                  const QStringList &porDefecto, const Progreso &progreso, ResultadoCsv &resultado) {
    const Almacen &a = *destino.almacen;
    const std::vector<Fuente> fuentes =
        fuentesDe(destino, lector.encabezado(), porDefecto, archivo, resultado);
    QStringList nombres;
    QStringList marcas;
    QHash<QString, qsizetype> lugares;
    bool numerada = false;
    for (const Fuente &f : fuentes) {
        if (f.campo >= 0) lugares.insert(f.columna->nombre, f.campo);
        nombres << Almacen::comillas(f.columna->nombre);
        marcas << u"?"_s;
        numerada = numerada || f.columna->tipo == Tipo::Generado;
    }
    const ControlDeFilas admite = ControlDe(destino, lugares, archivo, reemplazar);
    const QString que = u"Cargando %1"_s.arg(destino.tabla->nombre);
    const qint64 total = std::max<qint64>(lector.lineas() - 1, 0);
    if (progreso) progreso(que, 0, total);

    // It outlives the rollback of a refused load: the server frees nothing inside a broken transaction.
    QSqlQuery insercion(a.db());
    a.comenzar();
    try {
        if (reemplazar) a.ejecutar(u"delete from %1"_s.arg(destino.nombre));
        if (!insercion.prepare(
                u"insert into %1 (%2) "
                "values (%3)"_s.arg(destino.nombre, nombres.join(", "_L1), marcas.join(", "_L1))))
            Detener(u"El store rechazó la carga de %1: %2"_s.arg(
                destino.tabla->nombre, insercion.lastError().databaseText().simplified()));
        csv::Registro registro;
        while (lector.siguienteFila(registro, resultado.avisos)) {
            FilaPorCargar fila{registro.linea, registro.campos, lugares, resultado.avisos};
            if (!admite(fila)) continue;
            for (std::size_t i = 0; i < fuentes.size(); ++i) {
                const Fuente &f = fuentes[i];
                QVariant valor = f.porDefecto;
                if (f.campo >= 0) {
                    const QString &texto = registro.campos.at(f.campo);
                    if (const std::optional<QVariant> leido = valorDe(a, *f.columna, texto)) {
                        valor = *leido;
                    } else {
                        valor = *valorDe(a, *f.columna, QString());
                        resultado.avisos << csv::AvisoDeLinea(
                            registro.linea, u"\"%1\" no sirve para la columna %2; se carga vacía"_s.arg(
                                                texto, f.columna->nombre));
                    }
                }
                insercion.bindValue(static_cast<int>(i), valor);
            }
            if (!insercion.exec())
                Detener(u"No se cargó nada de %1: el store rechazó la línea %2 (%3)."_s.arg(
                    archivo, QString::number(registro.linea),
                    insercion.lastError().databaseText().simplified()));
            ++resultado.cargadas;
            if (progreso && resultado.cargadas % filasPorAviso == 0) progreso(que, resultado.cargadas, total);
        }
        insercion.finish();
        if (numerada) ponerAlDiaLaNumeracion(destino);
        a.confirmar();
        if (resultado.cargadas >= filasPorAviso) a.medir(destino.nombre);
    } catch (...) {
        a.deshacer();
        resultado.cargadas = 0;
        throw;
    }
    if (progreso) progreso(que, total, total);
}

ResultadoCsv CargarCsv(const QString &rutaDelPerfil, const QString &tabla, const QString &archivo,
                       bool reemplazar, const QStringList &porDefecto, const Progreso &progreso) {
    ResultadoCsv resultado;
    try {
        csv::Lector lector;
        if (!lector.abrir(archivo, resultado.error)) return resultado;
        Destino destino;
        abrirDestino(destino, rutaDelPerfil, tabla);
        cargarLector(destino, lector, archivo, reemplazar, porDefecto, progreso, resultado);
        resultado.ok = true;
    } catch (const Falla &e) {
        resultado.error = e.descripcion;
    }
    return resultado;
}

}  // namespace actualizacion
